#include "src/base/time_field.h"

#include "src/base/services.h"
#include "src/base/utils_time.h"

namespace plouvarine {

void TimeKeystrokes::memo_saisie_temps(const EntryField& field)
{
    memory_.text = field.text();
    memory_.position = field.cursor_position();
}

int TimeKeystrokes::filtre_touche_temps(const EntryField& field, int character)
{
    if ((character >= '0' && character <= '9') || character == kToucheRetour) {
        memo_saisie_temps(field);
        return character;
    }
    if (character == kTouchePoint && !field.text().contains(QLatin1Char('.'))) {
        memo_saisie_temps(field);
        return character;
    }
    return 0;
}

void TimeKeystrokes::filtre_suppr_temps(int key_code, const EntryField& field)
{
    if (key_code == kToucheSuppr)
        memo_saisie_temps(field);
}

void TimeKeystrokes::verif_saisie_temps(Services& ui, EntryField& field)
{
    if (memory_.text.isEmpty())
        return;
    const QString text = field.text();
    if (text.isEmpty()) {
        memory_.text.clear();
        return;
    }
    if (normalise_temps(text).right(4).toInt() < 6000) {
        memory_.text.clear();
        return;
    }
    // Emptied before the field is written, since that write comes back here.
    const QString kept = memory_.text;
    const int position = memory_.position;
    memory_.text.clear();
    msg_erreur(ui, QStringLiteral("Saisie du temps incorrect."));
    field.set_text(kept);
    field.set_cursor_position(position);
}

}  // namespace plouvarine
