#pragma once
// The keyboard rule of every time field. A field is wired so: on key down,
// filtre_suppr_temps; on key press, the character is replaced by what
// filtre_touche_temps gives (0 drops the key); on change of its text,
// verif_saisie_temps. Only digits, Backspace and one point can be typed; a
// keystroke that brings the seconds to 60 or more is refused with
// "Saisie du temps incorrect." and the field goes back to its text before it.
//
// Each time field (its binding to a window) keeps the text before the key in
// a memory of its own.

#include "src/base/entry_field.h"

namespace plouvarine {

class Services;

// Key codes of the platform that the rule knows.
inline constexpr int kToucheSuppr = 46;     // Delete, on key down
inline constexpr int kToucheRetour = 8;     // Backspace, as a character
inline constexpr int kTouchePoint = 46;     // ".", as a character

class TimeKeystrokes {
public:
    // The character to let through, or 0 to drop the key. Digits and
    // Backspace pass; a point passes only when the field has none yet. What
    // passes is remembered first.
    int filtre_touche_temps(const EntryField& field, int character);

    // Key down: Delete remembers the field; other keys do nothing.
    void filtre_suppr_temps(int key_code, const EntryField& field);

    // After a change of the field's text: checks the seconds against the
    // remembered text, and puts it back with a message when they reach 60.
    void verif_saisie_temps(Services& ui, EntryField& field);

    // The text of the field just before the key being processed (empty when
    // nothing is remembered) and the caret at that moment.
    const KeystrokeMemory& memory() const { return memory_; }

private:
    void memo_saisie_temps(const EntryField& field);

    KeystrokeMemory memory_;
};

}  // namespace plouvarine
