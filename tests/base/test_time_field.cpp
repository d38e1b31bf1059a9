// The keyboard rule of time fields: what can be typed, and the keystroke that
// brings the seconds to 60, refused with its message.

#include "src/base/time_field.h"
#include "support/scripted_services.h"

#include <gtest/gtest.h>

using namespace plouvarine;
using namespace Qt::Literals::StringLiterals;
using plouvarine::testing::ScriptedServices;

namespace {

class TimeFieldTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        field.on_text_changed = [this] { rule.verif_saisie_temps(ui, field); };
    }
    // Keys as the window passes them: key down, then the character, filtered.
    QString type(const QString& keys)
    {
        for (const QChar c : keys) {
            rule.filtre_suppr_temps(0, field);
            const int code = rule.filtre_touche_temps(field, c.unicode());
            QString text = field.text();
            const int at = field.cursor_position();
            if (code == kToucheRetour && at > 0)
                write(text.remove(at - 1, 1), at - 1);
            else if (code != 0 && code != kToucheRetour)
                write(text.insert(at, QChar(code)), at + 1);
        }
        return field.text();
    }
    void del()
    {
        rule.filtre_suppr_temps(kToucheSuppr, field);
        const int at = field.cursor_position();
        write(field.text().remove(at, 1), at);
    }
    void write(const QString& text, int caret)
    {
        field.set_text(text);
        field.set_cursor_position(caret);
    }

    ScriptedServices ui;
    TextEntry field;
    TimeKeystrokes rule;
};

}  // namespace

TEST_F(TimeFieldTest, OnlyDigitsBackspaceAndOnePointAreTypedAndNeverSixtySeconds)
{
    for (const QChar c : u",: -a\r"_s)
        EXPECT_EQ(rule.filtre_touche_temps(field, c.unicode()), 0) << int(c.unicode());
    EXPECT_EQ(type(u"1.2."_s), u"1.2"_s);  // no second point
    EXPECT_EQ(type(QString(QChar(kToucheRetour))), u"1."_s);
    EXPECT_TRUE(rule.memory().text.isEmpty());  // consumed by the check
    EXPECT_EQ(type(u"5907"_s), u"1.5907"_s);
    EXPECT_TRUE(ui.messages.empty());

    // Sixty seconds are refused at the key that makes them.
    write(QString(), 0);
    EXPECT_EQ(type(u"7.9"_s), u"7."_s);  // the 7 goes unchecked, the 9 is refused
    EXPECT_EQ(field.cursor_position(), 2);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].title, u"Erreur"_s);
    EXPECT_EQ(ui.messages[0].text, u"Saisie du temps incorrect."_s);
    EXPECT_TRUE(rule.memory().text.isEmpty());

    write(QString(), 0);
    EXPECT_EQ(type(u"1.60"_s), u"1.0"_s);  // refused at the 6
    EXPECT_EQ(ui.messages.size(), 2u);
    write(QString(), 0);
    EXPECT_EQ(type(u"90.00"_s), u"90.00"_s);  // the minutes are free
    EXPECT_EQ(ui.messages.size(), 2u);
}

TEST_F(TimeFieldTest, DeletingAndOutsideWritingFollowTheFieldsOwnMemory)
{
    type(u"1.23"_s);
    field.set_cursor_position(0);
    for (int i = 0; i < 4; ++i)
        del();
    EXPECT_EQ(field.text(), QString());
    field.set_text(u"1.75"_s);  // nothing remembered: not checked
    EXPECT_EQ(field.text(), u"1.75"_s);
    EXPECT_TRUE(ui.messages.empty());

    // Delete at the end changes nothing and leaves its memory standing...
    write(u"1.25"_s, 4);
    del();
    ASSERT_EQ(rule.memory().text, u"1.25"_s);
    // ...which another time field of the window never sees: its own change
    // is checked against its own memory, empty here.
    TextEntry other;
    TimeKeystrokes other_keys;
    other.on_text_changed = [&] { other_keys.verif_saisie_temps(ui, other); };
    other.set_text(u"1.75"_s);
    EXPECT_EQ(other.text(), u"1.75"_s);
    EXPECT_TRUE(ui.messages.empty());
    // The next change of this field is checked against it.
    field.set_text(u"1.75"_s);
    EXPECT_EQ(field.text(), u"1.25"_s);
    EXPECT_EQ(field.cursor_position(), 4);
    EXPECT_EQ(ui.messages.size(), 1u);
}
