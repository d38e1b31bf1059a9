// Dates as stored texts, their display in French, the sporting season, and the
// day picker as ChoisirDate drives it.

#include "src/frame/choose_date_view.h"
#include "src/base/utils_date.h"
#include "support/app_fixture.h"

#include <QLocale>
#include <gtest/gtest.h>

using namespace plouvarine;
using namespace Qt::Literals::StringLiterals;
using plouvarine::testing::AppFixture;

TEST(UtilsDate, JourValideKeepsTheOldFebruaryRuleAndAnEmptyMonth)
{
    struct Day {
        int day, month, year;
        bool valid;
    };
    const Day days[] = {
        // 1900 and below: always 29; a year or a month not typed yet lets 29 and 31 pass; no century rule.
        {29, 2, 1900, true}, {29, 2, 1899, true}, {29, 2, 0, true},   {29, 2, 1901, false}, {29, 2, 2004, true},
        {29, 2, 2100, true}, {30, 2, 2004, false}, {31, 4, 2004, false}, {31, 0, 0, true},  {32, 0, 0, false},
        {1, 13, 2004, false}, {0, 6, 2004, true}};
    for (const Day& d : days)
        EXPECT_EQ(JourValide(d.day, d.month, d.year), d.valid) << d.day << '/' << d.month << '/' << d.year;
}

TEST(UtilsDate, DebutSaisonTurnsOnTheSixteenthOfSeptember)
{
    EXPECT_EQ(QStringList({DebutSaison(u"20040915"_s), DebutSaison(u"20040916"_s), DebutSaison(u"20041231"_s),
                           DebutSaison(u"20041231"_s, 2), DebutSaison(u"20040915"_s, 2)}),
              QStringList({"20030916", "20040916", "20040916", "20020916", "20010916"}));
}

TEST(UtilsDate, ComposeCheckShowAndConvertStoredDates)
{
    QString month = u"9"_s, day = u"6"_s, empty, three = u"123"_s;
    EXPECT_EQ(ComposeDate(u"2004"_s, month, day), u"20040906"_s);
    EXPECT_EQ(month + day, u"0906"_s);  // rewritten in place
    EXPECT_EQ(ComposeDate(u"2004"_s, empty, three), u"2004123"_s);

    EXPECT_FALSE(DateValide(u"04"_s, u"1"_s, u"1"_s));
    EXPECT_TRUE(DateValide(u"2004"_s, u"2"_s, u"31"_s));  // the month's length is not seen
    EXPECT_FALSE(DateValide(u"2004"_s, u"13"_s, u"1"_s));
    EXPECT_FALSE(DateValide(u"2004"_s, u"1"_s, u"0"_s));
    EXPECT_FALSE(DateValide(u"2004"_s, QString(), u"1"_s));

    EXPECT_EQ(QStringList({DateVersBase(u"31122004"_s), DateVersBase(u"3112200"_s), DateVersBase(u"32122004"_s)}),
              QStringList({"20041231", "", ""}));

    QString shown_day = u"x"_s, shown_month = u"x"_s, year = u"x"_s;
    for (const auto& [stored, shown] : {std::pair{u"20040906"_s, QStringList({"06", "09", "2004"})},
                                        {QString(), QStringList({"", "", ""})},
                                        {u"20041301"_s, QStringList({"", "", ""})}}) {
        AfficheDate(shown_day, shown_month, year, stored);
        EXPECT_EQ(QStringList({shown_day, shown_month, year}), shown) << stored.toStdString();
    }
    const ChampsDate read = LitChampsDate(u"07"_s, QString(), u"2004"_s);
    EXPECT_EQ(QList<int>({read.day, read.month, read.year}), QList<int>({7, 0, 2004}));
    EXPECT_EQ(QList<int>({ArrondiDizaine(47), ArrondiDizaine(3)}), QList<int>({40, 0}));
}

TEST(UtilsDate, DisplayFormsAreFrenchWhateverTheLocale)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const std::tuple<QString, QString, QString> forms[] = {
        {u"20040916"_s, QString(), u"16 septembre 2004"_s},
        {u"20040916"_s, u"dddd d mmmm yyyy"_s, u"jeudi 16 septembre 2004"_s},
        {u"20041206"_s, u"d/mm/yyyy"_s, u"6/12/2004"_s},
        {u"20040806"_s, u"YYYYMMDD"_s, u"20040806"_s},
        {u"2004091"_s, QString(), QString()},
        {u"20040231"_s, QString(), u"31 02 2004"_s},      // no date: unformatted
        {u"00000101"_s, QString(), u"01 01 0000"_s},      // no year 0
        {u"2004-1-5"_s, QString(), u"5 janvier 2004"_s}};  // separators read as lit_date reads them
    for (const auto& [stored, format, shown] : forms)
        EXPECT_EQ(format.isNull() ? DateLongue(stored) : DateLongue(stored, format), shown) << stored.toStdString();
    // Every day of two centuries reads back as itself, leap days included.
    for (QDate day(1900, 1, 1); day.year() < 2100; day = day.addDays(1))
        ASSERT_EQ(lit_date(DateLongue(day.toString(u"yyyyMMdd"_s))), day) << day.toString().toStdString();
    QLocale::setDefault(before);

    EXPECT_EQ(EcartJours(DateLongue(u"20040228"_s), DateLongue(u"20040301"_s)), 2);
    EXPECT_EQ(EcartJours(DateLongue(u"20040301"_s), DateLongue(u"20040301"_s)), 0);
    EXPECT_EQ(EcartJours(u"samedi 31 décembre 2005"_s, u"1/01/2006"_s), 1);
    EXPECT_EQ(EcartJours(u"16 aout 2004"_s, u"15 août 2004"_s), -1);
    EXPECT_EQ(EcartJours(u"n'importe"_s, u"1/01/2006"_s), 0);
}

class ChoisirDateTest : public AppFixture {
protected:
    void SetUp() override
    {
        AppFixture::SetUp();
        app->clock.set_today(QDate(2026, 11, 23));
    }
};

TEST_F(ChoisirDateTest, TheChosenDayIsWrittenToTheFieldsOrNothingOnCancel)
{
    QDate opened;
    ui.drivers[u"frm_choose_date"_s] = [&](View& v) {
        auto& picker = dynamic_cast<ChooseDateView&>(v);
        opened = picker.calendar_date();
        picker.set_txt_annee(u"2008"_s);
        picker.set_cb_mois(1);  // February: the 31st becomes the 29th
        picker.ok();
    };
    QString day = u"31"_s, month = u"1"_s, year;
    ASSERT_TRUE(ChoisirDateChamps(*app, day, month, year));
    EXPECT_EQ(opened, QDate(2026, 1, 31));  // an empty year takes today's
    EXPECT_EQ(QStringList({day, month, year}), QStringList({"29", "02", "2008"}));
    EXPECT_FALSE(app->is_busy());

    ui.drivers[u"frm_choose_date"_s] = [](View& v) { dynamic_cast<ChooseDateView&>(v).cancel(); };
    EXPECT_FALSE(ChoisirDateChamps(*app, day, month, year));
    EXPECT_EQ(QStringList({day, month, year}), QStringList({"29", "02", "2008"}));
    ui.drivers.clear();  // the close box cancels too
    EXPECT_EQ(ChoisirDate(*app, u"2004"_s, u"09"_s, u"06"_s), QString());
}

TEST_F(ChoisirDateTest, ThePickerFollowsItsFieldsWithinTheCalendarsLimits)
{
    ChooseDateView picker(*app);
    picker.open(QString(), QString(), QString());
    EXPECT_EQ(picker.calendar_date(), QDate(2026, 11, 23));
    EXPECT_EQ(picker.cb_mois(), 10);
    picker.set_txt_annee(u"1999"_s);
    EXPECT_EQ(picker.calendar_date(), QDate(1999, 11, 23));
    picker.set_txt_annee(u"199"_s);  // below the limit: stays
    EXPECT_EQ(picker.calendar_date(), QDate(1999, 11, 23));
    picker.set_txt_annee(u"  "_s);  // blank: this year
    picker.set_cb_mois(3);
    EXPECT_EQ(picker.calendar_date(), QDate(2026, 4, 23));

    // An activation is forgotten when the focus enters a field before it is confirmed.
    picker.activate_day(QDate(2026, 4, 2));
    picker.field_focused();
    picker.confirm_activation();
    EXPECT_FALSE(picker.is_closed());
    picker.activate_day(QDate(2026, 4, 3));
    picker.confirm_activation();
    EXPECT_TRUE(picker.is_closed());
    EXPECT_EQ(picker.result(), u"20260403"_s);
}
