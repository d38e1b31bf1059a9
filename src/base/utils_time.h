#pragma once
// Swim times. A time is one double read by position, m.sscc: the integer part
// is minutes (no limit), the first two decimals the seconds (00 to 59), the
// next two the hundredths. It is never a count of seconds; numeric order is
// time order as long as the seconds stay under 60. 0 means no time. Values of
// 91 and more are status codes of the result tables and are treated here as
// plain numbers.
//
// The canonical text of a time has four decimals and always a point ("1.2345"),
// whatever the machine's number settings: it is the text joined into SQL.

#include <QString>

namespace plouvarine {

// The canonical text of a time typed or read from the base: commas read as
// points, the number at the start read leniently (blanks skipped, stops at
// the first character that cannot continue it, 0 when there is none), rounded
// to four decimals. "1.23.45" gives "1.2300", "0,2345" gives "0.2345".
QString normalise_temps(const QString& text);

// The display text: "1:23.45", "10:00.05", "23.45", "05.07"; no time (0, the
// empty text) is one blank.
QString affiche_temps(const QString& text);

struct TempsDecoupe {
    qint16 minutes = 0;
    qint16 secondes = 0;
    qint16 centiemes = 0;
};

// Minutes from the value itself rounded down, seconds and hundredths from its
// text rounded to four decimals. Throws std::overflow_error beyond 16 bits.
TempsDecoupe decoupe_temps(double value);

// first += second; at or over `limit`, the limit is taken off once, only once,
// and the carry is 1, else 0. Throws std::overflow_error beyond 16 bits.
void ajoute_retenue(qint16& first, qint16 second, qint16 limit, qint16& carry);

// The canonical text of the sum of two times, hundredths carried into seconds
// and seconds into minutes (one subtraction each). Throws std::overflow_error
// when the minutes pass 16 bits.
QString ajoute_temps(double first, double second);

// The number formatted with four decimals and a point, rounded half away from
// zero on its decimal digits.
QString format_temps(double value);

}  // namespace plouvarine
