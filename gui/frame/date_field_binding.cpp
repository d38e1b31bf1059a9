#include "gui/frame/date_field_binding.h"

#include "gui/frame/window_parts.h"

#include <QEvent>
#include <QLineEdit>

namespace plouvarine::gui {

QString LineEditField::text() const
{
    return edit_ ? edit_->text() : QString();
}

void LineEditField::set_text(const QString& text)
{
    if (edit_)
        edit_->setText(text);
}

int LineEditField::cursor_position() const
{
    return edit_ ? edit_->cursorPosition() : 0;
}

void LineEditField::set_cursor_position(int position)
{
    if (edit_)
        edit_->setCursorPosition(position);
}

DateFieldBinding::DateFieldBinding(QLineEdit* day, QLineEdit* month, QLineEdit* year)
    : QObject(day), day_(day), month_(month), year_(year)
{
    for (LineEditField* field : {&day_, &month_, &year_}) {
        QLineEdit* edit = field->edit();
        edit->installEventFilter(this);
        // Edits by the person only: the window's own writing is never undone.
        connect(edit, &QLineEdit::textEdited, this, [this, field] { check(*field); });
    }
}

LineEditField* DateFieldBinding::field_of(QObject* watched)
{
    for (LineEditField* field : {&day_, &month_, &year_})
        if (field->edit() == watched)
            return field;
    return nullptr;
}

bool DateFieldBinding::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress)
        if (LineEditField* field = field_of(watched))
            keystrokes_.MemoChampDate(*field);
    return QObject::eventFilter(watched, event);
}

void DateFieldBinding::check(LineEditField& changed)
{
    keystrokes_.ControleSaisieDate(day_, month_, year_, changed, guard_);
}

DateFieldBinding* bind_date_fields(QLineEdit* day, QLineEdit* month, QLineEdit* year)
{
    return new DateFieldBinding(day, month, year);
}

DateTriple make_date_triple(const QString& prefix, int base, std::function<void(int, const QString&)> changed)
{
    DateTriple triple;
    for (int k = 0; k < 3; ++k) {
        const int index = base + k;
        auto* edit = new QLineEdit;
        edit->setObjectName(prefix + QString::number(index));
        edit->setMaxLength(k == 2 ? 4 : 2);
        // Wide enough for its digits, no more: the three read as one date.
        edit->setFixedWidth(edit->fontMetrics().horizontalAdvance(QStringLiteral("0000")) * (k == 2 ? 2 : 1) + 12);
        digits_only(edit);
        QObject::connect(edit, &QLineEdit::textChanged, edit,
                         [changed, index](const QString& text) { changed(index, text); });
        triple.fields[size_t(k)] = edit;
    }
    triple.binding = bind_date_fields(triple.fields[0], triple.fields[1], triple.fields[2]);
    return triple;
}

}  // namespace plouvarine::gui
