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
                ControleSaisieDate(array, guard, 10 + i, ArrondiDizaine(10 + i));
            };
        }
    }
    // Types at the caret, one key at a time, as the keyboard does.
    QString type(int field, const QString& text)
    {
        TextEntry& f = fields[field];
        for (const QChar c : text) {
            MemoChampDate(f);
            f.set_text(f.text().insert(f.cursor_position(), c));
        }
        return f.text();
    }
    TextEntry fields[3];
    std::vector<EntryField*> array = std::vector<EntryField*>(20, nullptr);
    bool guard = true;
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
}

TEST(DateField, ThePartlyTypedTripleFollowsTheFebruaryRule)
{
    DateTriple t;
    t.type(0, u"29"_s);
    EXPECT_EQ(t.type(1, u"02"_s), u"02"_s);      // no year yet: 29 February passes
    EXPECT_EQ(t.type(2, u"1901"_s), u"190"_s);   // 1901 has no 29 February
    EXPECT_EQ(t.type(2, u"4"_s), u"1904"_s);
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
    MemoChampDate(day);
    day.set_text(u"31"_s);
    ControleSaisieDate(day, month, year, day, guard);
    EXPECT_EQ(day.text(), u"30"_s);
    EXPECT_EQ(month.text(), u"02"_s);
    EXPECT_TRUE(guard);
}
