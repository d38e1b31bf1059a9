// The one way values enter a statement: quoted texts, digit-only keys, and the
// SET and VALUES lists that inserts and updates share.

#include "src/base/sql_text.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Qt::Literals::StringLiterals;

using namespace plouvarine;

TEST(SqlText, QuoteSqlSurroundsAndDoublesEveryApostrophe)
{
    EXPECT_EQ(quote_sql(u"O'Brien"_s).text(), u"'O''Brien'"_s);
    EXPECT_EQ(quote_sql(u"'l''île'"_s).text(), u"'''l''''île'''"_s);
    EXPECT_EQ(quote_sql(QString()).text(), u"''"_s);
    // A NUL would end the statement where the engine reads it.
    EXPECT_EQ(quote_sql(QString::fromUtf16(u"Du\0pont'", 8)).text(), u"'Dupont'''"_s);
    // Nothing else is escaped: double quotes, semicolons and backslashes are plain in a literal.
    EXPECT_EQ(quote_sql(u"\"a\"; b\\c"_s).text(), u"'\"a\"; b\\c'"_s);
    EXPECT_EQ(u"x = "_s + quote_sql(u"d'"_s) + u" and"_s, u"x = 'd''' and"_s);
}

TEST(SqlText, KeysAreDigitsOnly)
{
    EXPECT_EQ(sql_key(u"0042"_s).text(), u"0042"_s);
    for (const QString& bad :
         {QString(), u"1 or 1=1"_s, u"-1"_s, u"12a"_s, u" 12"_s, u"1;"_s, QString::fromUtf8("١٢")}) {
        EXPECT_FALSE(is_sql_key(bad)) << bad.toStdString();
        EXPECT_THROW(sql_key(bad), std::invalid_argument) << bad.toStdString();
    }
    EXPECT_EQ(sql_keys({u"3"_s, u"17"_s}).text(), u"3,17"_s);
    EXPECT_THROW(sql_keys({u"3"_s, u"3)"_s}), std::invalid_argument);
    EXPECT_EQ(QStringList({sql_number(-5).text(), sql_decimal(12.5).text(), bool_text(true).text(),
                           bool_text(false).text()}),
              QStringList({"-5", "12.5", "true", "false"}));
}

TEST(SqlText, InsertsUpdatesAndComparisonsShareTheirQuoting)
{
    const SqlFields fields = {{u"Nom"_s, quote_sql(u"L'Hermine"_s)}, {u"NbCouloir"_s, sql_number(6)}};
    EXPECT_EQ(sql_set(fields), u"Nom = 'L''Hermine', NbCouloir = 6"_s);
    EXPECT_EQ(sql_columns(fields), u"Nom, NbCouloir"_s);
    EXPECT_EQ(sql_values(fields), u"'L''Hermine', 6"_s);
    EXPECT_EQ(sql_set({}), QString());
    // Comparisons joined with "or", quoted.
    EXPECT_EQ(text_or({u"1"_s, u"O'Brien"_s}, u"Licence.Nom"_s), u"Licence.Nom = '1' or Licence.Nom = 'O''Brien'"_s);
    EXPECT_EQ(text_or({}, u"Code"_s), QString());
}
