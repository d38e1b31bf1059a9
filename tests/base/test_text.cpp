// Text helpers: SQL quoting, numbers typed the French way, family names in
// capitals, and text files that are replaced whole or not at all.

#include "src/base/text.h"
#include "support/scripted_services.h"
#include "support/temp_files.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace plouvarine {
namespace {

using testing::read_bytes;
using testing::ScriptedServices;
using testing::write_bytes;

const QString kWriteFailed = QStringLiteral("Une erreur s'est produite lors de l'écriture du fichier.");

TEST(SansAccents, FrenchAccentsGoAndTheRestIsInCapitals)
{
    EXPECT_EQ(SansAccents(QStringLiteral("Hélène")), QStringLiteral("HELENE"));
    EXPECT_EQ(SansAccents(QStringLiteral("Çà")), QStringLiteral("CA"));
    EXPECT_EQ(SansAccents(QStringLiteral("Noël")), QStringLiteral("NOEL"));
    EXPECT_EQ(SansAccents(QStringLiteral("éèêë àäâ îï ôö üû ç")), QStringLiteral("EEEE AAA II OO UU C"));
    // Capitals with accents are lowered first, so they lose theirs too.
    EXPECT_EQ(SansAccents(QStringLiteral("ÉLODIE DE L'ÎLE-BÂTIE")), QStringLiteral("ELODIE DE L'ILE-BATIE"));
    // Letters outside the list keep their accents.
    EXPECT_EQ(SansAccents(QStringLiteral("Núñez")), QStringLiteral("NÚÑEZ"));
    EXPECT_EQ(SansAccents(QStringLiteral("Ÿves Œuvray")), QStringLiteral("ŸVES ŒUVRAY"));
    EXPECT_EQ(SansAccents(QString()), QString());
}

TEST(SqlText, QuoteSqlDoublesEveryApostrophe)
{
    EXPECT_EQ(quote_sql(QStringLiteral("O'Brien")), QStringLiteral("O''Brien"));
    EXPECT_EQ(quote_sql(QStringLiteral("'l''île'")), QStringLiteral("''l''''île''"));
    EXPECT_EQ(quote_sql(QStringLiteral("Dupont")), QStringLiteral("Dupont"));
}

TEST(SqlText, TextOrJoinsQuotedComparisons)
{
    EXPECT_EQ(text_or({QStringLiteral("1"), QStringLiteral("O'Brien")}, QStringLiteral("Licence.Nom")),
              QStringLiteral("Licence.Nom = '1' or Licence.Nom = 'O''Brien'"));
    EXPECT_EQ(text_or({QStringLiteral("FRA")}, QStringLiteral("Code")), QStringLiteral("Code = 'FRA'"));
    EXPECT_EQ(text_or({}, QStringLiteral("Code")), QString());
    EXPECT_EQ(bool_text(true), QStringLiteral("true"));
    EXPECT_EQ(bool_text(false), QStringLiteral("false"));
}

TEST(TextToDouble, ReadsTheLeadingNumberLikeVal)
{
    EXPECT_DOUBLE_EQ(text_to_double(QStringLiteral("12,5")), 12.5);
    EXPECT_DOUBLE_EQ(text_to_double(QStringLiteral("12.5")), 12.5);
    EXPECT_DOUBLE_EQ(text_to_double(QStringLiteral("3abc")), 3.0);
    EXPECT_DOUBLE_EQ(text_to_double(QString()), 0.0);
    EXPECT_DOUBLE_EQ(text_to_double(QStringLiteral(" 7")), 7.0);
    EXPECT_DOUBLE_EQ(text_to_double(QStringLiteral("abc")), 0.0);
    EXPECT_DOUBLE_EQ(text_to_double(QStringLiteral("-1,25")), -1.25);
    EXPECT_DOUBLE_EQ(text_to_double(QStringLiteral("+4")), 4.0);
    EXPECT_DOUBLE_EQ(text_to_double(QStringLiteral(",5")), 0.5);
    EXPECT_DOUBLE_EQ(text_to_double(QStringLiteral("5,")), 5.0);
    EXPECT_DOUBLE_EQ(text_to_double(QStringLiteral("-")), 0.0);
    EXPECT_DOUBLE_EQ(text_to_double(QStringLiteral(",")), 0.0);
    // Blanks are skipped anywhere, so thousands typed with spaces read whole.
    EXPECT_DOUBLE_EQ(text_to_double(QStringLiteral("1 234,5")), 1234.5);
    EXPECT_DOUBLE_EQ(text_to_double(QStringLiteral("\t- 3")), -3.0);
    // Every comma becomes a point, and the second point ends the number.
    EXPECT_DOUBLE_EQ(text_to_double(QStringLiteral("1,234,5")), 1.234);
    EXPECT_DOUBLE_EQ(text_to_double(QStringLiteral("2.10.36")), 2.10);
    // Exponents, and an exponent marker with nothing after it.
    EXPECT_DOUBLE_EQ(text_to_double(QStringLiteral("1e3")), 1000.0);
    EXPECT_DOUBLE_EQ(text_to_double(QStringLiteral("2,5E-1")), 0.25);
    EXPECT_DOUBLE_EQ(text_to_double(QStringLiteral("4e")), 4.0);
    EXPECT_DOUBLE_EQ(text_to_double(QStringLiteral("3 m")), 3.0);
    // Digits other than ASCII ones are no number.
    EXPECT_DOUBLE_EQ(text_to_double(QStringLiteral("٣")), 0.0);
}

TEST(RoundHalfEven, TiesGoToTheEvenNeighbour)
{
    EXPECT_EQ(round_half_even(2.5), 2);
    EXPECT_EQ(round_half_even(3.5), 4);
    EXPECT_EQ(round_half_even(0.5), 0);
    EXPECT_EQ(round_half_even(-2.5), -2);
    EXPECT_EQ(round_half_even(-3.5), -4);
    EXPECT_EQ(round_half_even(2.4999), 2);
    EXPECT_EQ(round_half_even(2.5001), 3);
    // The archive report: 250000 bytes of a 1000000-byte base save 75 %.
    EXPECT_EQ(round_half_even((1000000.0 - 250000.0) * 100.0 / 1000000.0), 75);
    EXPECT_EQ(round_half_even(1e12), INT_MAX);
}

class WriteTextFileTest : public ::testing::Test {
protected:
    QString at(const QString& name) const { return QDir(dir.path()).filePath(name); }
    QTemporaryDir dir;
    ScriptedServices ui;
};

TEST_F(WriteTextFileTest, WritesUtf8AndReplacesTheOldText)
{
    const QString path = at(QStringLiteral("export.txt"));
    ASSERT_TRUE(write_bytes(path, QByteArray(10000, 'x')));
    const QString text = QStringLiteral("Nom\tPrénom\r\nNOËL\tHélène\r\n");
    EXPECT_TRUE(write_text_file(ui, path, text));
    EXPECT_EQ(read_bytes(path), text.toUtf8());
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(WriteTextFileTest, FailureShowsTheMessageAndKeepsTheOldFile)
{
    const QString path = QDir(testing::unwritable_folder(dir.path())).filePath(QStringLiteral("export.txt"));
    EXPECT_FALSE(write_text_file(ui, path, QStringLiteral("text")));
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].title, QStringLiteral("Erreur"));
    EXPECT_TRUE(ui.messages[0].text.endsWith(QLatin1Char('\n') + kWriteFailed)) << ui.messages[0].text.toStdString();
    EXPECT_TRUE(ui.messages[0].text.contains(path));

    // On a full disk, the old file stays whole.
    QDir().mkdir(at(QStringLiteral("full")));
    const QString old = at(QStringLiteral("full/old.txt"));
    ASSERT_TRUE(write_bytes(old, "previous export"));
    const int code = testing::run_with_file_size_limit(64 * 1024, [&] {
        ScriptedServices child_ui;
        const bool written = write_text_file(child_ui, old, QString(200000, QLatin1Char('z')));
        return !written && child_ui.messages.size() == 1 && child_ui.messages[0].text.endsWith(kWriteFailed) ? 0 : 1;
    });
    EXPECT_EQ(code, 0);
    EXPECT_EQ(read_bytes(old), QByteArray("previous export"));
    EXPECT_EQ(QDir(at(QStringLiteral("full"))).entryList(QDir::Files), QStringList{QStringLiteral("old.txt")});
}

}  // namespace
}  // namespace plouvarine
