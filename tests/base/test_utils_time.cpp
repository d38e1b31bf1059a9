// Time values m.sscc: the canonical text, the display, the split and the sum
// with its carries.

#include "src/base/utils_time.h"

#include <QList>
#include <gtest/gtest.h>

#include <stdexcept>
#include <tuple>
#include <utility>

using namespace plouvarine;
using namespace Qt::Literals::StringLiterals;

TEST(UtilsTime, NormaliseAndDisplay)
{
    const std::pair<QString, QString> normalised[] = {
        {u"1.2345"_s, u"1.2345"_s},  {u"0,2345"_s, u"0.2345"_s}, {u"1.23.45"_s, u"1.2300"_s},
        {u"1 23"_s, u"123.0000"_s},  {u"  7."_s, u"7.0000"_s},   {u"1:23.45"_s, u"1.0000"_s},
        {u"abc"_s, u"0.0000"_s},     {QString(), u"0.0000"_s},   {u"1.23456"_s, u"1.2346"_s},
        {u"1.99996"_s, u"2.0000"_s}, {u"0.00004"_s, u"0.0000"_s},
        // Rounded on the decimal digits as written, not on the nearest double.
        {u"1.00005"_s, u"1.0001"_s}, {u"90.5999"_s, u"90.5999"_s}};
    for (const auto& [in, out] : normalised)
        EXPECT_EQ(normalise_temps(in), out) << in.toStdString();
    const std::pair<QString, QString> shown[] = {
        {u"1.2345"_s, u"1:23.45"_s}, {u"10.0005"_s, u"10:00.05"_s}, {u"0.2345"_s, u"23.45"_s},
        {u"0,2345"_s, u"23.45"_s},   {u"0.0507"_s, u"05.07"_s},     {u"1.99996"_s, u"2:00.00"_s},
        {u"0"_s, u" "_s},            {QString(), u" "_s},           {u"0.00004"_s, u" "_s},
        {u"123"_s, u"123:00.00"_s}};
    for (const auto& [in, out] : shown)
        EXPECT_EQ(affiche_temps(in), out) << in.toStdString();
}

TEST(UtilsTime, DecoupeTakesMinutesFromTheValueAndDigitsFromTheText)
{
    const auto parts = [](double value) {
        const TempsDecoupe t = decoupe_temps(value);
        return QList<int>({t.minutes, t.secondes, t.centiemes});
    };
    EXPECT_EQ(parts(12.3456), QList<int>({12, 34, 56}));
    EXPECT_EQ(parts(1.99996), QList<int>({1, 0, 0}));
    EXPECT_THROW(decoupe_temps(40000.0), std::overflow_error);
}

TEST(UtilsTime, AjouteTempsCarriesOnceEach)
{
    const std::tuple<double, double, QString> sums[] = {
        {0.5990, 0.0020, u"1.0010"_s}, {1.3000, 1.3000, u"3.0000"_s}, {0.0, 0.2345, u"0.2345"_s},
        {0.5999, 0.0001, u"1.0000"_s}, {32766.0, 0.5930, u"32766.5930"_s},
        // Seconds already over 60 lose 60 only once.
        {0.7000, 0.7000, u"1.8000"_s}, {0.9999, 0.9999, u"1.13998"_s}};
    for (const auto& [a, b, sum] : sums)
        EXPECT_EQ(ajoute_temps(a, b), sum) << a << " + " << b;
    EXPECT_THROW(ajoute_temps(32767.5999, 0.0001), std::overflow_error);
    EXPECT_THROW(ajoute_temps(32000.0, 800.0), std::overflow_error);

    qint16 first = 95, carry = 7;
    ajoute_retenue(first, 5, 100, carry);
    EXPECT_EQ(QList<int>({first, carry}), QList<int>({0, 1}));
    ajoute_retenue(first, 59, 60, carry);
    EXPECT_EQ(QList<int>({first, carry}), QList<int>({59, 0}));
}
