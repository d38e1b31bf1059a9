// The keystroke that makes a date impossible is undone, silently, in a triple
// of day, month and year fields laid out in tens.

#include "src/base/date_field.h"
#include "src/base/utils_date.h"

#include <gtest/gtest.h>
#include <vector>

using namespace plouvarine;
using namespace Qt::Literals::StringLiterals;

namespace {

// Fields 10, 11, 12 of a window: day, month, year.
struct DateTriple {
    DateTriple()
    {
        for (int i = 0; i < 3; ++i) {
            array[10 + i] = &fields[i];
            fields[i].on_text_changed = [this, i] {
                keys.ControleSaisieDate(array, guard, 10 + i, ArrondiDizaine(10 + i));
            };
        }
    }
    // Types at the caret, one key at a time, as the keyboard does.
    QString type(int field, const QString& text)
    {
        TextEntry& f = fields[field];
        for (const QChar c : text) {
            keys.MemoChampDate(f);
            f.set_text(f.text().insert(f.cursor_position(), c));
        }
        return f.text();
    }
    TextEntry fields[3];
    std::vector<EntryField*> array = std::vector<EntryField*>(20, nullptr);
    bool guard = true;
    DateKeystrokes keys;
};

}  // namespace

TEST(DateField, AnImpossibleDayOrMonthIsUndone)
{
    DateTriple t;
    t.type(1, u"02"_s);
    t.type(2, u"2003"_s);
    EXPECT_EQ(t.type(0, u"30"_s), u"3"_s);
    EXPECT_EQ(t.fields[0].cursor_position(), 1);
    EXPECT_TRUE(t.guard);
    EXPECT_EQ(t.type(0, u"28"_s), u"3"_s);  // 32 and 38 refused in turn

    DateTriple u;
    u.type(0, u"31"_s);
    EXPECT_EQ(u.type(1, u"04"_s), u"0"_s);  // month 0 has 31 days, April not
    EXPECT_EQ(u.type(1, u"5"_s), u"05"_s);

    // The partly typed triple follows the February rule.
    DateTriple v;
    v.type(0, u"29"_s);
    EXPECT_EQ(v.type(1, u"02"_s), u"02"_s);     // no year yet: 29 February passes
    EXPECT_EQ(v.type(2, u"1901"_s), u"190"_s);  // 1901 has no 29 February
    EXPECT_EQ(v.type(2, u"4"_s), u"1904"_s);
}

TEST(DateField, NothingIsCheckedWhileTheViewFillsItsFields)
{
    DateTriple t;
    t.type(0, u"31"_s);
    t.guard = false;
    t.fields[1].set_text(u"04"_s);  // the view's own writing
    EXPECT_EQ(t.fields[1].text(), u"04"_s);

    // The held-apart form undoes only the field that changed.
    TextEntry day(u"30"_s), month(u"02"_s), year;
    bool guard = true;
    DateKeystrokes keys;
    keys.MemoChampDate(day);
    day.set_text(u"31"_s);
    keys.ControleSaisieDate(day, month, year, day, guard);
    EXPECT_EQ(day.text(), u"30"_s);
    EXPECT_EQ(month.text(), u"02"_s);
    EXPECT_TRUE(guard);
}

TEST(DateField, EachDateUndoesToItsOwnLastKeystroke)
{
    DateTriple start, end;
    end.type(0, u"31"_s);
    EXPECT_EQ(end.type(1, u"05"_s), u"05"_s);  // remembers "0" before the 5
    start.type(0, u"12"_s);                    // remembers "1" before the 2

    // A change without a key of its own (a paste) that makes 31 April:
    // the month goes back to what this date remembered, never to the text
    // of the other date's keystroke.
    end.fields[1].set_text(u"04"_s);
    EXPECT_EQ(end.fields[1].text(), u"0"_s);
    EXPECT_EQ(start.fields[0].text(), u"12"_s);
    EXPECT_EQ(start.keys.memory().text, u"1"_s);
    EXPECT_EQ(end.keys.memory().text, u"0"_s);
}
