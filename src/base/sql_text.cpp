#include "src/base/sql_text.h"

#include <algorithm>
#include <stdexcept>

namespace plouvarine {

namespace {

QString joined(const SqlFields& fields, QString (*part)(const SqlField&))
{
    QStringList parts;
    parts.reserve(qsizetype(fields.size()));
    for (const SqlField& f : fields)
        parts << part(f);
    return parts.join(QStringLiteral(", "));
}

}  // namespace

SqlText quote_sql(const QString& text)
{
    QString doubled = text;
    // The engine reads a statement up to its first NUL: one inside a value
    // would cut the statement there.
    doubled.remove(QChar(u'\0'));
    doubled.replace(QLatin1Char('\''), QLatin1String("''"));
    return SqlText(QLatin1Char('\'') + doubled + QLatin1Char('\''));
}

bool is_sql_key(const QString& text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar c) {
        return c >= QLatin1Char('0') && c <= QLatin1Char('9');
    });
}

SqlText sql_key(const QString& digits)
{
    if (!is_sql_key(digits))
        throw std::invalid_argument("not a key: " + digits.toStdString());
    return SqlText(digits);
}

SqlText sql_keys(const QStringList& keys)
{
    QStringList checked;
    checked.reserve(keys.size());
    for (const QString& k : keys)
        checked << sql_key(k).text();
    return SqlText(checked.join(QLatin1Char(',')));
}

SqlText sql_number(qint64 value)
{
    return SqlText(QString::number(value));
}

SqlText sql_decimal(double value)
{
    return SqlText(QString::number(value, 'g', 15));
}

SqlText bool_text(bool value)
{
    return SqlText(value ? QStringLiteral("true") : QStringLiteral("false"));
}

QString sql_set(const SqlFields& fields)
{
    return joined(fields, [](const SqlField& f) { return f.column + QStringLiteral(" = ") + f.value; });
}

QString sql_columns(const SqlFields& fields)
{
    return joined(fields, [](const SqlField& f) { return f.column; });
}

QString sql_values(const SqlFields& fields)
{
    return joined(fields, [](const SqlField& f) { return f.value.text(); });
}

QString text_or(const QStringList& values, const QString& field)
{
    QStringList parts;
    parts.reserve(values.size());
    for (const QString& v : values)
        parts << field + QStringLiteral(" = ") + quote_sql(v);
    return parts.join(QStringLiteral(" or "));
}

}  // namespace plouvarine
