#pragma once
// Dates and seasons. Every date of the base is a text of eight digits
// yyyymmdd, the empty text meaning no date, so that two dates compare as
// plain text (also in SQL). Detail views enter a date in three small fields,
// day, month and year; the display forms use French month and weekday names
// whatever the host's language.
//
// The sporting season opens on 16 September ("0916"): a date belongs to the
// season opened by the last 16 September on or before it.
//
// Nothing here shows a message: bad input gives the empty text or false.

#include <QDate>
#include <QString>

namespace plouvarine {


// Month and day of the opening of a season.
inline constexpr char kOuvertureSaison[] = "0916";

// The three display forms and the stored form.
inline constexpr char kFormatDateLongue[] = "d mmmm yyyy";
inline constexpr char kFormatDateJour[] = "dddd d mmmm yyyy";
inline constexpr char kFormatDateCourte[] = "d/mm/yyyy";
inline constexpr char kFormatDateBase[] = "yyyymmdd";

// Splits yyyymmdd: year = first 4 characters, month = characters 5 and 6,
// day = last 2. No check of any kind.
void DecoupeDate(const QString& date, QString& year, QString& month, QString& day);

// Pads a month or day of one character with a leading "0" (in place), then
// joins year, month and day. Lengths of 0 or more than 2 are left as they are.
QString ComposeDate(const QString& year, QString& month, QString& day);

// True when the year has at least 4 characters, month and day are not empty,
// the day's value lies in 1..31 and the month's in 1..12. The month's length
// is not checked here (that is JourValide's work).
bool DateValide(const QString& year, const QString& month, const QString& day);

// True when the day does not pass the number of days of the month. Month 0
// (not typed yet) counts as 31 days; February has 28 days only for a year
// above 1900 that is not a multiple of 4 (no century rule: 2100 is leap).
// A day of 0 passes; a month above 12 fails.
bool JourValide(int day, int month, int year);

// The date yyyymmdd as display text in `format` ("d mmmm yyyy" when empty).
// Empty when the text is not 8 characters long; a text that is no date comes
// back as "dd mm yyyy", unformatted.
QString DateLongue(const QString& date, const QString& format = {});

// ddmmyyyy to the stored form; empty when the length is not 8 or the parts
// fail DateValide.
QString DateVersBase(const QString& ddmmyyyy);

// Second minus first in whole days (0 for the same day). The texts are read by
// lit_date, so DateLongue output is accepted; 0 when either cannot be read.
int EcartJours(const QString& first, const QString& second);

// The opening date (yyyymmdd) of the season of `date`, `seasons_back`
// seasons earlier. `date` must have eight characters.
QString DebutSaison(const QString& date, int seasons_back = 0);

// Rounds a field position toward zero to a multiple of ten: 47 gives 40.
int ArrondiDizaine(int position);

// The numbers of a day, month and year field: 0 for an empty field.
struct ChampsDate {
    int day = 0;
    int month = 0;
    int year = 0;
};
ChampsDate LitChampsDate(const QString& day, const QString& month, const QString& year);

// Writes the parts of `date` into the three fields, or empties all three when
// the date is not 8 characters long or fails DateValide.
void AfficheDate(QString& day, QString& month, QString& year, const QString& date);

// The date formatter: `format` in the house's notation (d, dd, ddd, dddd,
// m, mm, mmm, mmmm, yy, yyyy, any case; "/" and other characters literal),
// always with French names.
QString format_date(const QDate& date, const QString& format);

// Reads a date written day, month, year: separated by blanks, "/", "-" or
// ".", the month as a number or a French name (with or without accents), an
// optional French weekday in front. Invalid QDate when it is no date.
QDate lit_date(const QString& text);

}  // namespace plouvarine
