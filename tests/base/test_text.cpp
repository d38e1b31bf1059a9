// Text helpers: French numbers, family names in capitals, and text files
// replaced whole or not at all.

#include "src/base/text.h"
#include "support/scripted_services.h"
#include "support/temp_files.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <utility>

namespace plouvarine {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::read_bytes;
using testing::ScriptedServices;
using testing::write_bytes;

const QString kWriteFailed = u"Une erreur s'est produite lors de l'écriture du fichier."_s;

TEST(SansAccents, FrenchAccentsGoAndTheRestIsInCapitals)
{
    const std::pair<const char16_t*, const char16_t*> cases[] = {
        {u"Hélène", u"HELENE"}, {u"Çà", u"CA"}, {u"Noël", u"NOEL"}, {u"", u""},
        {u"éèêë àäâ îï ôö üû ç", u"EEEE AAA II OO UU C"},
        // Capitals with accents are lowered first, so they lose theirs too.
        {u"ÉLODIE DE L'ÎLE-BÂTIE", u"ELODIE DE L'ILE-BATIE"},
        // Letters outside the list keep their accents.
        {u"Núñez", u"NÚÑEZ"}, {u"Ÿves Œuvray", u"ŸVES ŒUVRAY"}};
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(SansAccents(QString::fromUtf16(text)), QString::fromUtf16(expected));
}

TEST(TextToDouble, ReadsTheLeadingNumberLikeVal)
{
    const std::pair<const char16_t*, double> cases[] = {
        {u"12,5", 12.5}, {u"12.5", 12.5}, {u"3abc", 3}, {u" 7", 7}, {u"abc", 0}, {u"-1,25", -1.25},
        {u"+4", 4}, {u",5", 0.5}, {u"5,", 5}, {u"-", 0}, {u",", 0}, {u"", 0},
        // Blanks are skipped anywhere, so thousands typed with spaces read whole.
        {u"1 234,5", 1234.5}, {u"\t- 3", -3},
        // Every comma becomes a point, and the second point ends the number.
        {u"1,234,5", 1.234}, {u"2.10.36", 2.10},
        // Exponents, and an exponent marker with nothing after it.
        {u"1e3", 1000}, {u"2,5E-1", 0.25}, {u"4e", 4}, {u"3 m", 3},
        // Digits other than ASCII ones are no number.
        {u"٣", 0}};
    for (const auto& [text, value] : cases)
        EXPECT_DOUBLE_EQ(text_to_double(QString::fromUtf16(text)), value) << QString::fromUtf16(text).toStdString();
    EXPECT_DOUBLE_EQ(text_to_double(QString()), 0.0);
}

TEST(Numbers, RoundHalfEvenSendsTiesToTheEvenNeighbour)
{
    const std::pair<double, int> cases[] = {{2.5, 2},     {3.5, 4},    {0.5, 0},       {-2.5, -2},
                                            {-3.5, -4},   {2.4999, 2}, {2.5001, 3},    {1e12, INT_MAX}};
    for (const auto& [value, rounded] : cases)
        EXPECT_EQ(round_half_even(value), rounded) << value;
}

TEST(WriteTextFile, WritesUtf8OverTheOldTextOrKeepsTheOldFileWithTheMessage)
{
    QTemporaryDir dir;
    ScriptedServices ui;
    const QString path = dir.filePath(u"export.txt"_s);
    ASSERT_TRUE(write_bytes(path, QByteArray(10000, 'x')));
    const QString text = u"Nom\tPrénom\r\nNOËL\tHélène\r\n"_s;
    EXPECT_TRUE(write_text_file(ui, path, text));
    EXPECT_EQ(read_bytes(path), text.toUtf8());
    EXPECT_TRUE(ui.messages.empty());

    const QString locked = QDir(testing::unwritable_folder(dir.path())).filePath(u"export.txt"_s);
    EXPECT_FALSE(write_text_file(ui, locked, u"text"_s));
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].title, u"Erreur"_s);
    EXPECT_TRUE(ui.messages[0].text.endsWith(u'\n' + kWriteFailed)) << ui.messages[0].text.toStdString();
    EXPECT_TRUE(ui.messages[0].text.contains(locked));

    // On a full disk, the old file stays whole.
    QDir().mkdir(dir.filePath(u"full"_s));
    const QString old = dir.filePath(u"full/old.txt"_s);
    ASSERT_TRUE(write_bytes(old, "previous export"));
    const int code = testing::run_with_file_size_limit(64 * 1024, [&] {
        ScriptedServices child_ui;
        const bool written = write_text_file(child_ui, old, QString(200000, u'z'));
        return !written && child_ui.messages.size() == 1 && child_ui.messages[0].text.endsWith(kWriteFailed) ? 0 : 1;
    });
    EXPECT_EQ(code, 0);
    EXPECT_EQ(read_bytes(old), QByteArray("previous export"));
    EXPECT_EQ(QDir(dir.filePath(u"full"_s)).entryList(QDir::Files), QStringList{u"old.txt"_s});
}

}  // namespace
}  // namespace plouvarine
