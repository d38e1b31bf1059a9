#include "src/base/utils_date.h"

#include "src/base/text.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>
#include <array>

namespace plouvarine {

namespace {

// French names, written out so that the host's language never shows through.
const std::array<const char*, 12> kMonthNames = {
    "janvier", "février", "mars", "avril", "mai", "juin",
    "juillet", "août", "septembre", "octobre", "novembre", "décembre"};
const std::array<const char*, 12> kMonthShort = {
    "janv.", "févr.", "mars", "avr.", "mai", "juin",
    "juil.", "août", "sept.", "oct.", "nov.", "déc."};
// Monday first, as QDate::dayOfWeek counts.
const std::array<const char*, 7> kDayNames = {
    "lundi", "mardi", "mercredi", "jeudi", "vendredi", "samedi", "dimanche"};
const std::array<const char*, 7> kDayShort = {
    "lun.", "mar.", "mer.", "jeu.", "ven.", "sam.", "dim."};

QString name(const char* utf8) { return QString::fromUtf8(utf8); }

// Lower case, without accents and without a final point: "Févr." gives "fevr".
QString folded(const QString& word)
{
    QString out;
    for (const QChar c : word.normalized(QString::NormalizationForm_D)) {
        if (c.category() == QChar::Mark_NonSpacing || c == QLatin1Char('.'))
            continue;
        out.append(c.toLower());
    }
    return out;
}

// The month of a French name or of one of its unambiguous beginnings
// (three letters at least); 0 when there is none.
int month_of_name(const QString& word)
{
    const QString key = folded(word);
    if (key.size() < 3)
        return 0;
    int found = 0;
    for (int m = 0; m < 12; ++m) {
        const QString full = folded(name(kMonthNames[m]));
        if (full == key)
            return m + 1;
        if (full.startsWith(key)) {
            if (found)
                return 0;
            found = m + 1;
        }
    }
    return found;
}

bool is_day_name(const QString& word)
{
    const QString key = folded(word);
    for (int d = 0; d < 7; ++d)
        if (folded(name(kDayNames[d])) == key || folded(name(kDayShort[d])) == key)
            return true;
    return false;
}

bool all_digits(const QString& text)
{
    if (text.isEmpty())
        return false;
    for (const QChar c : text)
        if (!c.isDigit())
            return false;
    return true;
}

QString two_digits(int value) { return QString::number(value).rightJustified(2, QLatin1Char('0')); }

}  // namespace

void DecoupeDate(const QString& date, QString& year, QString& month, QString& day)
{
    year = date.left(4);
    month = date.mid(4, 2);
    day = date.right(2);
}

QString ComposeDate(const QString& year, QString& month, QString& day)
{
    if (month.size() == 1)
        month.prepend(QLatin1Char('0'));
    if (day.size() == 1)
        day.prepend(QLatin1Char('0'));
    return year + month + day;
}

bool DateValide(const QString& year, const QString& month, const QString& day)
{
    if (year.size() < 4 || month.isEmpty() || day.isEmpty())
        return false;
    const double d = text_to_double(day);
    const double m = text_to_double(month);
    return d >= 1 && d <= 31 && m >= 1 && m <= 12;
}

bool JourValide(int day, int month, int year)
{
    int days = 0;
    switch (month) {
    case 0: case 1: case 3: case 5: case 7: case 8: case 10: case 12:
        days = 31;
        break;
    case 4: case 6: case 9: case 11:
        days = 30;
        break;
    case 2:
        days = (year > 1900 && year % 4 != 0) ? 28 : 29;
        break;
    default:
        return false;
    }
    return day <= days;
}

QString DateLongue(const QString& date, const QString& format)
{
    if (date.size() != 8)
        return {};
    const QString& shown = format.isEmpty() ? QString::fromLatin1(kFormatDateLongue) : format;
    // Eight digits, the stored form, are read in place: lit_date would give the
    // same date from "dd mm yyyy", at many times the cost on a long list.
    const bool stored = std::all_of(date.begin(), date.end(),
                                    [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); });
    if (stored) {
        const auto number = [&date](qsizetype from, qsizetype length) {
            int value = 0;
            for (qsizetype i = from; i < from + length; ++i)
                value = value * 10 + (date.at(i).unicode() - '0');
            return value;
        };
        const QDate value(number(0, 4), number(4, 2), number(6, 2));
        if (value.isValid())
            return format_date(value, shown);
    }
    QString year, month, day;
    DecoupeDate(date, year, month, day);
    const QString text = day + QLatin1Char(' ') + month + QLatin1Char(' ') + year;
    const QDate value = lit_date(text);
    if (!value.isValid())
        return text;
    return format_date(value, shown);
}

QString DateVersBase(const QString& ddmmyyyy)
{
    if (ddmmyyyy.size() != 8)
        return {};
    const QString year = ddmmyyyy.right(4);
    const QString month = ddmmyyyy.mid(2, 2);
    const QString day = ddmmyyyy.left(2);
    if (!DateValide(year, month, day))
        return {};
    return year + month + day;
}

int EcartJours(const QString& first, const QString& second)
{
    const QDate from = lit_date(first);
    const QDate to = lit_date(second);
    if (!from.isValid() || !to.isValid())
        return 0;
    return int(from.daysTo(to));
}

QString DebutSaison(const QString& date, int seasons_back)
{
    const int year = int(text_to_double(date.left(4)));
    const QString month_day = date.right(4);
    const int back = month_day < QLatin1String(kOuvertureSaison) ? seasons_back + 1 : seasons_back;
    return QString::number(year - back) + QLatin1String(kOuvertureSaison);
}

int ArrondiDizaine(int position)
{
    return position / 10 * 10;
}

ChampsDate LitChampsDate(const QString& day, const QString& month, const QString& year)
{
    const auto number = [](const QString& field) {
        return field.isEmpty() ? 0 : round_half_even(text_to_double(field));
    };
    return {number(day), number(month), number(year)};
}

void AfficheDate(QString& day, QString& month, QString& year, const QString& date)
{
    QString y, m, d;
    if (date.size() == 8) {
        DecoupeDate(date, y, m, d);
        if (DateValide(y, m, d)) {
            day = d;
            month = m;
            year = y;
            return;
        }
    }
    day.clear();
    month.clear();
    year.clear();
}

QString format_date(const QDate& date, const QString& format)
{
    if (!date.isValid())
        return {};
    QString out;
    qsizetype i = 0;
    while (i < format.size()) {
        const QChar c = format.at(i);
        const QChar lower = c.toLower();
        if (c == QLatin1Char('"')) {  // quoted literal
            const qsizetype end = format.indexOf(QLatin1Char('"'), i + 1);
            const qsizetype stop = end < 0 ? format.size() : end;
            out += format.mid(i + 1, stop - i - 1);
            i = stop + 1;
            continue;
        }
        if (c == QLatin1Char('\\') && i + 1 < format.size()) {
            out += format.at(i + 1);
            i += 2;
            continue;
        }
        if (lower != QLatin1Char('d') && lower != QLatin1Char('m') && lower != QLatin1Char('y')) {
            out += c;
            ++i;
            continue;
        }
        qsizetype run = 1;
        while (i + run < format.size() && format.at(i + run).toLower() == lower)
            ++run;
        i += run;
        if (lower == QLatin1Char('d')) {
            if (run == 1)
                out += QString::number(date.day());
            else if (run == 2)
                out += two_digits(date.day());
            else if (run == 3)
                out += name(kDayShort[date.dayOfWeek() - 1]);
            else
                out += name(kDayNames[date.dayOfWeek() - 1]);
        } else if (lower == QLatin1Char('m')) {
            if (run == 1)
                out += QString::number(date.month());
            else if (run == 2)
                out += two_digits(date.month());
            else if (run == 3)
                out += name(kMonthShort[date.month() - 1]);
            else
                out += name(kMonthNames[date.month() - 1]);
        } else {
            if (run == 1)
                out += QString::number(date.dayOfYear());
            else if (run == 2)
                out += two_digits(date.year() % 100);
            else
                out += QString::number(date.year()).rightJustified(4, QLatin1Char('0'));
        }
    }
    return out;
}

QDate lit_date(const QString& text)
{
    static const QRegularExpression separators(QStringLiteral("[\\s/\\-.,]+"));
    QStringList parts = text.trimmed().split(separators, Qt::SkipEmptyParts);
    if (parts.size() == 4 && is_day_name(parts.first()))
        parts.removeFirst();
    if (parts.size() != 3 || !all_digits(parts[0]) || !all_digits(parts[2]))
        return {};
    const int day = parts[0].toInt();
    const int month = all_digits(parts[1]) ? parts[1].toInt() : month_of_name(parts[1]);
    int year = parts[2].toInt();
    if (parts[2].size() <= 2)
        year += year < 30 ? 2000 : 1900;
    return QDate(year, month, day);
}

}  // namespace plouvarine
