#include "src/base/utils_time.h"

#include "src/base/text.h"

#include <QByteArray>
#include <cmath>
#include <cstdio>
#include <limits>
#include <stdexcept>

namespace plouvarine {

namespace {

qint16 checked16(long long value)
{
    if (value < std::numeric_limits<qint16>::min() || value > std::numeric_limits<qint16>::max())
        throw std::overflow_error("Dépassement de capacité");
    return qint16(value);
}

}  // namespace

QString format_temps(double value)
{
    if (!std::isfinite(value))
        return QStringLiteral("0.0000");
    // The decimal digits of the number, to the 15 significant digits a double
    // carries, so that 1.00005 rounds as it reads and not as it is stored.
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.14e", std::fabs(value));
    const QByteArray scientific(buffer);
    const qsizetype e = scientific.indexOf('e');
    QByteArray digits = scientific.left(e);
    digits.remove(1, 1);  // the point after the first digit
    const int exponent = scientific.mid(e + 1).toInt();

    // Digits from 10^exponent down; keep those down to 10^-4.
    // value = 0.digits * 10^(exponent + 1)
    int int_digits = exponent + 1;
    if (int_digits < 0) {
        digits.prepend(QByteArray(-int_digits, '0'));
        int_digits = 0;
    }
    const qsizetype keep = int_digits + 4;
    while (digits.size() <= keep)
        digits.append('0');
    const bool round_up = digits.at(keep) >= '5';
    digits.truncate(keep);
    if (round_up) {
        qsizetype i = digits.size() - 1;
        while (i >= 0 && digits.at(i) == '9')
            digits[i--] = '0';
        if (i >= 0)
            digits[i] = char(digits.at(i) + 1);
        else {
            digits.prepend('1');
            ++int_digits;
        }
    }
    QByteArray whole = digits.left(int_digits);
    while (whole.size() > 1 && whole.startsWith('0'))
        whole.remove(0, 1);
    if (whole.isEmpty())
        whole = "0";
    QString text = QString::fromLatin1(whole + '.' + digits.mid(int_digits));
    if (value < 0 && text != QLatin1String("0.0000"))
        text.prepend(QLatin1Char('-'));
    return text;
}

QString normalise_temps(const QString& text)
{
    QString input = text;
    input.replace(QLatin1Char(','), QLatin1Char('.'));
    return format_temps(text_to_double(input)).replace(QLatin1Char(','), QLatin1Char('.'));
}

QString affiche_temps(const QString& text)
{
    const QString s = normalise_temps(text);
    if (s == QLatin1String("0.0000"))
        return QStringLiteral(" ");
    QString minutes = s.left(s.indexOf(QLatin1Char('.')));
    minutes.remove(QLatin1Char(' '));
    const QString last = s.right(4);
    QString shown = last.left(2) + QLatin1Char('.') + last.right(2);
    if (text_to_double(minutes) > 0)
        shown.prepend(minutes + QLatin1Char(':'));
    return shown;
}

TempsDecoupe decoupe_temps(double value)
{
    const QString last = format_temps(value).right(4);
    TempsDecoupe parts;
    const double minutes = std::floor(value);
    if (!(minutes >= std::numeric_limits<qint16>::min() && minutes <= std::numeric_limits<qint16>::max()))
        throw std::overflow_error("Dépassement de capacité");
    parts.minutes = qint16(minutes);
    parts.secondes = qint16(last.left(2).toInt());
    parts.centiemes = qint16(last.right(2).toInt());
    return parts;
}

void ajoute_retenue(qint16& first, qint16 second, qint16 limit, qint16& carry)
{
    first = checked16(static_cast<long long>(first) + second);
    if (first < limit) {
        carry = 0;
    } else {
        first = qint16(first - limit);
        carry = 1;
    }
}

QString ajoute_temps(double first, double second)
{
    TempsDecoupe a = decoupe_temps(first);
    TempsDecoupe b = decoupe_temps(second);
    qint16 carry = 0;
    ajoute_retenue(a.centiemes, b.centiemes, 100, carry);
    b.secondes = checked16(static_cast<long long>(b.secondes) + carry);
    ajoute_retenue(a.secondes, b.secondes, 60, carry);
    const qint16 minutes = checked16(static_cast<long long>(b.minutes) + a.minutes + carry);
    return QString::number(minutes) + QLatin1Char('.')
           + QString::number(a.secondes).rightJustified(2, QLatin1Char('0'))
           + QString::number(a.centiemes).rightJustified(2, QLatin1Char('0'));
}

}  // namespace plouvarine
