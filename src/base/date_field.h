#pragma once
// The keyboard rule of the day, month and year fields of a date: a keystroke
// that makes the date of the triple impossible (31 in April, 30 in February)
// is undone without a word, so the person sees that the key did nothing.
//
// Each key press in a date field first calls MemoChampDate; each change of
// its text then calls ControleSaisieDate. Each date (its binding to a window)
// keeps its own memory, so nothing of one field's keystroke reaches another.

#include "src/base/entry_field.h"

#include <span>

namespace plouvarine {

class DateKeystrokes {
public:
    // Memorises the field's text and caret before the key arrives.
    void MemoChampDate(const EntryField& field);

    // `fields` is a field array laid out in tens: the triple of the field at
    // `changed` lies at base, base + step, base + 2 * step (day, month, year);
    // positions without a field hold null. While `guard` is false (a view
    // filling its own fields) nothing is checked. When the triple fails
    // JourValide, the changed field gets the memorised text and caret back.
    void ControleSaisieDate(std::span<EntryField* const> fields, bool& guard, int changed, int base,
                            int step = 1);

    // The same rule for three fields held apart; `changed` is one of them.
    void ControleSaisieDate(EntryField& day, EntryField& month, EntryField& year, EntryField& changed,
                            bool& guard);

    // The text and caret of the last keystroke memorised.
    const KeystrokeMemory& memory() const { return memory_; }

private:
    void undo_keystroke(EntryField& changed, bool& guard);

    KeystrokeMemory memory_;
};

}  // namespace plouvarine
