// The one way values enter a statement: quoted texts, digit-only keys, and the
// SET and VALUES lists that inserts and updates share.

#include "src/base/sql_text.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace plouvarine;

TEST(SqlText, QuoteSqlSurroundsAndDoublesEveryApostrophe)
{
    EXPECT_EQ(quote_sql(QStringLiteral("O'Brien")).text(), QStringLiteral("'O''Brien'"));
    EXPECT_EQ(quote_sql(QStringLiteral("'l''île'")).text(), QStringLiteral("'''l''''île'''"));
    EXPECT_EQ(quote_sql(QString()).text(), QStringLiteral("''"));
    // A NUL would end the statement where the engine reads it.
    EXPECT_EQ(quote_sql(QString::fromUtf16(u"Du\0pont'", 8)).text(), QStringLiteral("'Dupont'''"));
    // Nothing else is escaped: double quotes, semicolons and backslashes are plain in a literal.
    EXPECT_EQ(quote_sql(QStringLiteral("\"a\"; b\\c")).text(), QStringLiteral("'\"a\"; b\\c'"));
    EXPECT_EQ(QStringLiteral("x = ") + quote_sql(QStringLiteral("d'")) + QStringLiteral(" and"),
              QStringLiteral("x = 'd''' and"));
}

TEST(SqlText, KeysAreDigitsOnly)
{
    EXPECT_EQ(sql_key(QStringLiteral("0042")).text(), QStringLiteral("0042"));
    for (const QString& bad : {QString(), QStringLiteral("1 or 1=1"), QStringLiteral("-1"), QStringLiteral("12a"),
                               QStringLiteral(" 12"), QStringLiteral("1;"), QString::fromUtf8("١٢")}) {
        EXPECT_FALSE(is_sql_key(bad)) << bad.toStdString();
        EXPECT_THROW(sql_key(bad), std::invalid_argument) << bad.toStdString();
    }
    EXPECT_EQ(sql_keys({QStringLiteral("3"), QStringLiteral("17")}).text(), QStringLiteral("3,17"));
    EXPECT_THROW(sql_keys({QStringLiteral("3"), QStringLiteral("3)")}), std::invalid_argument);
    EXPECT_EQ(sql_number(-5).text(), QStringLiteral("-5"));
    EXPECT_EQ(sql_decimal(12.5).text(), QStringLiteral("12.5"));
    EXPECT_EQ(bool_text(true).text(), QStringLiteral("true"));
    EXPECT_EQ(bool_text(false).text(), QStringLiteral("false"));
}

TEST(SqlText, InsertsAndUpdatesShareTheirFields)
{
    const SqlFields fields = {{QStringLiteral("Nom"), quote_sql(QStringLiteral("L'Hermine"))},
                              {QStringLiteral("NbCouloir"), sql_number(6)}};
    EXPECT_EQ(sql_set(fields), QStringLiteral("Nom = 'L''Hermine', NbCouloir = 6"));
    EXPECT_EQ(sql_columns(fields), QStringLiteral("Nom, NbCouloir"));
    EXPECT_EQ(sql_values(fields), QStringLiteral("'L''Hermine', 6"));
    EXPECT_EQ(sql_set({}), QString());
}

TEST(SqlText, TextOrJoinsQuotedComparisons)
{
    EXPECT_EQ(text_or({QStringLiteral("1"), QStringLiteral("O'Brien")}, QStringLiteral("Licence.Nom")),
              QStringLiteral("Licence.Nom = '1' or Licence.Nom = 'O''Brien'"));
    EXPECT_EQ(text_or({}, QStringLiteral("Code")), QString());
}
