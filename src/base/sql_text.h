#pragma once
// The one way a value enters a statement. Statements are texts in the Jet
// dialect; what is joined into them from outside is an SqlText, which only the
// functions below make: a text between apostrophes with its own apostrophes
// doubled, a key of digits only, a number or a boolean literal. A QString typed
// by the person has no way into the SET or VALUES lists, nor into a function
// that asks for an SqlText, without going through quote_sql.

#include <QString>
#include <QStringList>
#include <utility>
#include <vector>

namespace plouvarine {

class SqlText {
public:
    // The literal as it stands in the statement ("'O''Brien'", "12", "true").
    const QString& text() const { return text_; }
    bool operator==(const SqlText&) const = default;

    friend QString operator+(const QString& left, const SqlText& right) { return left + right.text_; }
    friend QString operator+(const SqlText& left, const QString& right) { return left.text_ + right; }
    friend QString operator+(const SqlText& left, QChar right) { return left.text_ + right; }
    friend QString& operator+=(QString& left, const SqlText& right) { return left += right.text_; }

private:
    explicit SqlText(QString text) : text_(std::move(text)) {}
    friend SqlText quote_sql(const QString& text);
    friend SqlText sql_key(const QString& digits);
    friend SqlText sql_keys(const QStringList& keys);
    friend SqlText sql_number(qint64 value);
    friend SqlText sql_decimal(double value);
    friend SqlText bool_text(bool value);

    QString text_;
};

// The text between apostrophes, each of its apostrophes doubled: "D'Artagnan"
// gives "'D''Artagnan'". Nothing else needs escaping in the dialect.
SqlText quote_sql(const QString& text);
// A key joined unquoted (Num, Num_Lic, Num_compet...). Anything but one or more
// ASCII digits throws std::invalid_argument: such a text is no key and would
// change the statement.
SqlText sql_key(const QString& digits);
// Keys joined with commas, for an IN list.
SqlText sql_keys(const QStringList& keys);
// Whether sql_key takes the text.
bool is_sql_key(const QString& text);
// A whole number, joined unquoted.
SqlText sql_number(qint64 value);
// A decimal number joined unquoted, with a point whatever the machine's settings.
SqlText sql_decimal(double value);
// "true" or "false", the boolean literals of the statements.
SqlText bool_text(bool value);

// A column and the value it receives, for the statements that write a row.
struct SqlField {
    QString column;
    SqlText value;
};
using SqlFields = std::vector<SqlField>;

// "Nom = 'x', NbCouloir = 6": the SET list of an UPDATE.
QString sql_set(const SqlFields& fields);
// "Nom, NbCouloir": the column list of an INSERT.
QString sql_columns(const SqlFields& fields);
// "'x', 6": the VALUES list of an INSERT.
QString sql_values(const SqlFields& fields);

// "field = 'v1' or field = 'v2'...", for a WHERE clause; the values are quoted.
QString text_or(const QStringList& values, const QString& field);

}  // namespace plouvarine
