// Time values m.sscc: the canonical text, the display, the split and the sum
// with its carries.

#include "src/base/utils_time.h"

#include <gtest/gtest.h>
#include <stdexcept>

using namespace plouvarine;
using namespace Qt::Literals::StringLiterals;

TEST(UtilsTime, NormaliseReadsLenientlyAndRoundsToFourDecimals)
{
    EXPECT_EQ(normalise_temps(u"1.2345"_s), u"1.2345"_s);
    EXPECT_EQ(normalise_temps(u"0,2345"_s), u"0.2345"_s);
    EXPECT_EQ(normalise_temps(u"1.23.45"_s), u"1.2300"_s);
    EXPECT_EQ(normalise_temps(u"1 23"_s), u"123.0000"_s);
    EXPECT_EQ(normalise_temps(u"  7."_s), u"7.0000"_s);
    EXPECT_EQ(normalise_temps(u"1:23.45"_s), u"1.0000"_s);
    EXPECT_EQ(normalise_temps(u"abc"_s), u"0.0000"_s);
    EXPECT_EQ(normalise_temps(QString()), u"0.0000"_s);
    EXPECT_EQ(normalise_temps(u"1.23456"_s), u"1.2346"_s);
    EXPECT_EQ(normalise_temps(u"1.99996"_s), u"2.0000"_s);
    EXPECT_EQ(normalise_temps(u"0.00004"_s), u"0.0000"_s);
    // Rounded on the decimal digits as written, not on the nearest double.
    EXPECT_EQ(normalise_temps(u"1.00005"_s), u"1.0001"_s);
    EXPECT_EQ(normalise_temps(u"90.5999"_s), u"90.5999"_s);
}

TEST(UtilsTime, AfficheTempsForms)
{
    EXPECT_EQ(affiche_temps(u"1.2345"_s), u"1:23.45"_s);
    EXPECT_EQ(affiche_temps(u"10.0005"_s), u"10:00.05"_s);
    EXPECT_EQ(affiche_temps(u"0.2345"_s), u"23.45"_s);
    EXPECT_EQ(affiche_temps(u"0,2345"_s), u"23.45"_s);
    EXPECT_EQ(affiche_temps(u"0.0507"_s), u"05.07"_s);
    EXPECT_EQ(affiche_temps(u"1.99996"_s), u"2:00.00"_s);
    EXPECT_EQ(affiche_temps(u"0"_s), u" "_s);
    EXPECT_EQ(affiche_temps(QString()), u" "_s);
    EXPECT_EQ(affiche_temps(u"0.00004"_s), u" "_s);
    EXPECT_EQ(affiche_temps(u"123"_s), u"123:00.00"_s);
}

TEST(UtilsTime, DecoupeTakesMinutesFromTheValueAndDigitsFromTheText)
{
    const TempsDecoupe t = decoupe_temps(12.3456);
    EXPECT_EQ(t.minutes, 12);
    EXPECT_EQ(t.secondes, 34);
    EXPECT_EQ(t.centiemes, 56);
    const TempsDecoupe odd = decoupe_temps(1.99996);
    EXPECT_EQ(odd.minutes, 1);
    EXPECT_EQ(odd.secondes, 0);
    EXPECT_EQ(odd.centiemes, 0);
    EXPECT_THROW(decoupe_temps(40000.0), std::overflow_error);
}

TEST(UtilsTime, AjouteTempsCarriesOnceEach)
{
    EXPECT_EQ(ajoute_temps(0.5990, 0.0020), u"1.0010"_s);
    EXPECT_EQ(ajoute_temps(1.3000, 1.3000), u"3.0000"_s);
    EXPECT_EQ(ajoute_temps(0.0, 0.2345), u"0.2345"_s);
    EXPECT_EQ(ajoute_temps(0.5999, 0.0001), u"1.0000"_s);
    // Seconds already over 60 lose 60 only once.
    EXPECT_EQ(ajoute_temps(0.7000, 0.7000), u"1.8000"_s);
    EXPECT_EQ(ajoute_temps(0.9999, 0.9999), u"1.13998"_s);

    qint16 first = 95, carry = 7;
    ajoute_retenue(first, 5, 100, carry);
    EXPECT_EQ(first, 0);
    EXPECT_EQ(carry, 1);
    ajoute_retenue(first, 59, 60, carry);
    EXPECT_EQ(first, 59);
    EXPECT_EQ(carry, 0);

    EXPECT_EQ(ajoute_temps(32766.0, 0.5930), u"32766.5930"_s);
    EXPECT_THROW(ajoute_temps(32767.5999, 0.0001), std::overflow_error);
    EXPECT_THROW(ajoute_temps(32000.0, 800.0), std::overflow_error);
}
