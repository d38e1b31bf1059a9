#include "src/base/time_field.h"

#include "src/base/services.h"
#include "src/base/utils_time.h"

namespace plouvarine {

MemoireSaisieTemps& memoire_saisie_temps()
{
    static MemoireSaisieTemps memory;
    return memory;
}

void memo_saisie_temps(const EntryField& field)
{
    memoire_saisie_temps().ancien_temps = field.text();
    memoire_saisie_temps().ancienne_position = field.cursor_position();
}

int filtre_touche_temps(const EntryField& field, int character)
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

void filtre_suppr_temps(int key_code, const EntryField& field)
{
    if (key_code == kToucheSuppr)
        memo_saisie_temps(field);
}

void verif_saisie_temps(Services& ui, EntryField& field)
{
    MemoireSaisieTemps& memory = memoire_saisie_temps();
    if (memory.ancien_temps.isEmpty())
        return;
    const QString text = field.text();
    if (text.isEmpty()) {
        memory.ancien_temps.clear();
        return;
    }
    if (normalise_temps(text).right(4).toInt() < 6000) {
        memory.ancien_temps.clear();
        return;
    }
    // Emptied before the field is written, since that write comes back here.
    const QString kept = memory.ancien_temps;
    const int position = memory.ancienne_position;
    memory.ancien_temps.clear();
    msg_erreur(ui, QStringLiteral("Saisie du temps incorrect."));
    field.set_text(kept);
    field.set_cursor_position(position);
}

}  // namespace plouvarine
