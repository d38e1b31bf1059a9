#include "src/base/text.h"

#include "src/base/errors.h"
#include "src/base/services.h"

#include <QSaveFile>

#include <climits>
#include <cmath>

namespace plouvarine {

namespace {

bool is_digit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

// The longest run of digits from `i`, appended to `out`.
qsizetype take_digits(const QString& s, qsizetype i, QByteArray& out)
{
    while (i < s.size() && is_digit(s.at(i)))
        out.append(char(s.at(i++).unicode()));
    return i;
}

}  // namespace

QString quote_sql(const QString& text)
{
    QString quoted = text;
    return quoted.replace(QLatin1Char('\''), QLatin1String("''"));
}

QString bool_text(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

double text_to_double(const QString& text)
{
    QString s;
    s.reserve(text.size());
    for (const QChar c : text)
        if (c != QLatin1Char(' ') && c != QLatin1Char('\t') && c != QLatin1Char('\n'))
            s.append(c == QLatin1Char(',') ? QLatin1Char('.') : c);

    // [sign] digits [. digits] [e|d [sign] digits], as far as it goes.
    QByteArray number;
    qsizetype i = 0;
    if (i < s.size() && (s.at(i) == QLatin1Char('+') || s.at(i) == QLatin1Char('-')))
        number.append(char(s.at(i++).unicode()));
    qsizetype before = number.size();
    i = take_digits(s, i, number);
    qsizetype digits = number.size() - before;
    if (i < s.size() && s.at(i) == QLatin1Char('.')) {
        number.append('.');
        before = number.size();
        i = take_digits(s, i + 1, number);
        digits += number.size() - before;
    }
    if (digits == 0)
        return 0.0;
    if (i < s.size() && QStringLiteral("eEdD").contains(s.at(i))) {
        QByteArray exponent("e");
        qsizetype j = i + 1;
        if (j < s.size() && (s.at(j) == QLatin1Char('+') || s.at(j) == QLatin1Char('-')))
            exponent.append(char(s.at(j++).unicode()));
        const qsizetype sign_end = exponent.size();
        take_digits(s, j, exponent);
        if (exponent.size() > sign_end)
            number += exponent;
    }
    return number.toDouble();  // the C locale: the point is the decimal separator
}

int round_half_even(double value)
{
    if (std::isnan(value))
        return 0;
    const double r = std::nearbyint(value);  // the default rounding mode sends ties to even
    if (r >= double(INT_MAX))
        return INT_MAX;
    if (r <= double(INT_MIN))
        return INT_MIN;
    return int(r);
}

QString SansAccents(const QString& text)
{
    struct Replacement {
        const char16_t* letters;
        QChar plain;
    };
    static const Replacement kReplacements[] = {
        {u"éèêë", QLatin1Char('E')}, {u"àäâ", QLatin1Char('A')}, {u"îï", QLatin1Char('I')},
        {u"ôö", QLatin1Char('O')},   {u"üû", QLatin1Char('U')},  {u"ç", QLatin1Char('C')},
    };
    QString s = text.toLower();
    for (const Replacement& r : kReplacements)
        for (const char16_t* c = r.letters; *c; ++c)
            s.replace(QChar(*c), r.plain);
    return s.toUpper();
}

QString text_or(const QStringList& values, const QString& field)
{
    QStringList parts;
    parts.reserve(values.size());
    for (const QString& v : values)
        parts << field + QStringLiteral(" = '") + quote_sql(v) + QLatin1Char('\'');
    return parts.join(QStringLiteral(" or "));
}

bool write_text_file(Services& ui, const QString& path, const QString& text)
{
    QSaveFile file(path);
    const QByteArray bytes = text.toUtf8();
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit())
        return true;
    const FileError error(75, file.errorString() + QStringLiteral(" : ") + path);
    msg_erreur(ui, QStringLiteral("Une erreur s'est produite lors de l'écriture du fichier."), &error);
    return false;
}

}  // namespace plouvarine
