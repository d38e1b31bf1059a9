#include "src/base/date_field.h"

#include "src/base/utils_date.h"

namespace plouvarine {

namespace {

QString text_at(std::span<EntryField* const> fields, int position)
{
    if (position < 0 || position >= int(fields.size()) || !fields[position])
        return {};
    return fields[position]->text();
}

}  // namespace

void DateKeystrokes::undo_keystroke(EntryField& changed, bool& guard)
{
    guard = false;
    changed.set_text(memory_.text);
    changed.set_cursor_position(memory_.position);
    guard = true;
}

void DateKeystrokes::MemoChampDate(const EntryField& field)
{
    memory_.text = field.text();
    memory_.position = field.cursor_position();
}

void DateKeystrokes::ControleSaisieDate(std::span<EntryField* const> fields, bool& guard, int changed, int base,
                                        int step)
{
    if (!guard)
        return;
    const ChampsDate date = LitChampsDate(text_at(fields, base), text_at(fields, base + step),
                                          text_at(fields, base + 2 * step));
    if (JourValide(date.day, date.month, date.year))
        return;
    if (changed >= 0 && changed < int(fields.size()) && fields[changed])
        undo_keystroke(*fields[changed], guard);
}

void DateKeystrokes::ControleSaisieDate(EntryField& day, EntryField& month, EntryField& year, EntryField& changed,
                                        bool& guard)
{
    if (!guard)
        return;
    const ChampsDate date = LitChampsDate(day.text(), month.text(), year.text());
    if (!JourValide(date.day, date.month, date.year))
        undo_keystroke(changed, guard);
}

}  // namespace plouvarine
