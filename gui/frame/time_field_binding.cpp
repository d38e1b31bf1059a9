#include "gui/frame/time_field_binding.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace plouvarine::gui {

TimeFieldBinding::TimeFieldBinding(Services& ui, QLineEdit* edit)
    : QObject(edit), ui_(ui), field_(edit)
{
    edit->installEventFilter(this);
    connect(edit, &QLineEdit::textChanged, this, [this] { keystrokes_.verif_saisie_temps(ui_, field_); });
}

bool TimeFieldBinding::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != field_.edit() || event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);

    // Key down. Qt's code of the point equals the platform's code of Delete,
    // so only the Delete key itself is handed over as that code.
    keystrokes_.filtre_suppr_temps(key->key() == Qt::Key_Delete ? kToucheSuppr : -1, field_);

    // Key press: the keys that type a character. Delete types none; Tab,
    // Return and Escape belong to the window (focus, default and cancel buttons).
    int character = 0;
    switch (key->key()) {
    case Qt::Key_Backspace:
        character = kToucheRetour;
        break;
    case Qt::Key_Delete:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
        return false;
    default:
        if (key->text().isEmpty())
            return false;  // arrows, Home, End...: no character
        character = key->text().at(0).unicode();
        break;
    }
    return keystrokes_.filtre_touche_temps(field_, character) == 0;
}

TimeFieldBinding* bind_time_field(Services& ui, QLineEdit* edit)
{
    return new TimeFieldBinding(ui, edit);
}

}  // namespace plouvarine::gui
