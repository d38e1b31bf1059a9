// Reading and writing RTF: round trips, files as word processors write them,
// and damaged data.

#include "src/base/doc_units.h"
#include "src/reports/rtf_reader.h"
#include "src/reports/rtf_writer.h"
#include "report_test_support.h"
#include "support/temp_files.h"

#include <QTemporaryDir>
#include <QTextCursor>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace plouvarine::testing {
namespace {

QTextCharFormat format(const QString& family, double size, bool bold = false, bool italic = false,
                       bool underline = false)
{
    QTextCharFormat f;
    f.setFontFamilies(QStringList{family});
    f.setFontPointSize(size);
    f.setFontWeight(bold ? QFont::Bold : QFont::Normal);
    f.setFontItalic(italic);
    f.setFontUnderline(underline);
    return f;
}

class Rtf : public ::testing::Test {
protected:
    void SetUp() override { ensure_gui_application(); }
};

TEST_F(Rtf, RoundTripKeepsRunsParagraphsAndTextEvenEmpty)
{
    QTextDocument doc;
    QTextCursor c(&doc);
    QTextBlockFormat centred;
    centred.setAlignment(Qt::AlignHCenter);
    c.setBlockFormat(centred);
    c.insertText(u"Convocation "_s, format(u"Arial"_s, 16, true));
    c.insertText(u"du {club} \\ été"_s, format(u"Arial"_s, 16, false, true));

    QTextBlockFormat tabs;
    tabs.setAlignment(Qt::AlignLeft);
    tabs.setTabPositions({QTextOption::Tab(100, QTextOption::LeftTab), QTextOption::Tab(350.5, QTextOption::RightTab)});
    tabs.setLeftMargin(28.35);
    c.insertBlock(tabs);
    c.insertText(u"Nom\tPrénom\t1:02.35"_s, format(u"Courier New"_s, 9));
    c.insertText(u" souligné"_s, format(u"Courier New"_s, 9, false, false, true));

    QTextBlockFormat right;
    right.setAlignment(Qt::AlignRight);
    c.insertBlock(right);
    c.insertText(u"Łódź – 東京 € œ ¤ 𝄞"_s + QChar(QChar::LineSeparator) + u"suite"_s,
                 format(u"Times New Roman"_s, 11.5, true, true, true));

    QTextBlockFormat empty;
    empty.setAlignment(Qt::AlignJustify);
    c.insertBlock(empty, format(u"Courier New"_s, 10));

    QTextBlockFormat next_page;
    next_page.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    c.insertBlock(next_page);
    c.insertText(u"page 2"_s, format(u"Arial"_s, 10));

    const QByteArray rtf = write_rtf(doc);
    for (const char byte : rtf)
        ASSERT_LT(static_cast<unsigned char>(byte), 0x80) << "RTF is 7-bit text";

    QTextDocument back;
    ASSERT_TRUE(read_rtf(rtf, back));
    EXPECT_EQ(runs_of(back), runs_of(doc));  // every paragraph's runs, their texts and looks
    ASSERT_EQ(back.blockCount(), 5);
    EXPECT_EQ(QList<Qt::Alignment>({alignment(back.findBlockByNumber(0)), alignment(back.findBlockByNumber(2)),
                                    alignment(back.findBlockByNumber(3))}),
              QList<Qt::Alignment>({Qt::AlignHCenter, Qt::AlignRight, Qt::AlignJustify}));
    const QTextBlockFormat tabs_back = back.findBlockByNumber(1).blockFormat();
    ASSERT_EQ(tabs_back.tabPositions().size(), 2);
    EXPECT_DOUBLE_EQ(tabs_back.tabPositions().at(0).position, 100);
    EXPECT_EQ(tabs_back.tabPositions().at(1).type, QTextOption::RightTab);
    EXPECT_NEAR(tabs_back.tabPositions().at(1).position, 350.5, 0.05);
    EXPECT_NEAR(tabs_back.leftMargin(), 28.35, 0.05);
    // The empty paragraph keeps the format of what will be typed there.
    EXPECT_EQ(back.findBlockByNumber(3).charFormat().fontFamilies().toStringList().value(0), u"Courier New"_s);
    EXPECT_TRUE(back.findBlockByNumber(4).blockFormat().pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore);
    EXPECT_FALSE(back.findBlockByNumber(2).blockFormat().pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore);

    // A second pass gives the same bytes: nothing drifts from one save to the next.
    EXPECT_EQ(write_rtf(back), rtf);

    // An empty document, and a trailing empty paragraph, survive.
    QTextDocument nothing, two;
    ASSERT_TRUE(read_rtf(write_rtf(nothing), back));
    EXPECT_EQ(back.blockCount(), 1);
    EXPECT_TRUE(back.toPlainText().isEmpty());
    QTextCursor(&two).insertText(u"A\n"_s);
    ASSERT_TRUE(read_rtf(write_rtf(two), back));
    EXPECT_EQ(back.blockCount(), 2);
    EXPECT_EQ(back.toPlainText(), u"A\n"_s);
}

TEST_F(Rtf, ParagraphLengthsAreInTheLayoutUnitAndKeepTheirTwipsThroughARoundTrip)
{
    const QByteArray rtf =
        "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}"
        "\\pard\\li1134\\ri567\\fi1701\\sb113\\sa57\\sl-317\\slmult0\\tx1701\\tqr\\tx9071 A\\par"
        "\\pard\\fi-283\\li283\\sl397\\slmult0 B\\par}";
    QTextDocument doc;
    ASSERT_TRUE(read_rtf(rtf, doc));
    // 1134 twips, 2 cm, are 75.6 of the layout's 96ths of an inch.
    const QTextBlockFormat a = doc.begin().blockFormat();
    EXPECT_NEAR(a.leftMargin(), 2 / 2.54 * 96, 0.01);
    EXPECT_NEAR(a.textIndent(), 3 / 2.54 * 96, 0.05);
    ASSERT_EQ(a.tabPositions().size(), 2);
    EXPECT_EQ(QList<double>({a.rightMargin(), a.topMargin(), a.lineHeight(), a.tabPositions().at(1).position}),
              QList<double>({units_from_twips(567), units_from_twips(113), units_from_twips(317),
                             units_from_twips(9071)}));

    // Written and read again, every length comes back to the same twips.
    const QByteArray written = write_rtf(doc);
    for (const char* word : {"\\li1134", "\\ri567", "\\fi1701", "\\sb113", "\\sa57", "\\sl-317", "\\tx1701",
                             "\\tqr\\tx9071", "\\fi-283", "\\li283", "\\sl397"})
        EXPECT_TRUE(written.contains(word)) << word;
    QTextDocument back;
    ASSERT_TRUE(read_rtf(written, back));
    EXPECT_EQ(write_rtf(back), written);
    EXPECT_EQ(back.begin().blockFormat().leftMargin(), a.leftMargin());
    EXPECT_EQ(back.begin().blockFormat().tabPositions(), a.tabPositions());
}

TEST_F(Rtf, ReadsLibreOfficeOutput)
{
    QTextDocument doc;
    ASSERT_TRUE(read_rtf(read_bytes(rtf_fixture(u"libreoffice_convocation.rtf"_s)), doc));
    EXPECT_EQ(doc.toPlainText(), QStringLiteral("Convocation du club\nCompétition : <NOM_COMPET>\n"
                                                "Nageur\t<NAGEUR>\t€ 12\n<ENGAG>"));
    EXPECT_EQ(look(doc, u"Convocation"_s), u"Arial 16 bold"_s);
    EXPECT_EQ(alignment(doc.begin()), Qt::AlignHCenter);
    // The font with an alternative name in its entry keeps its own name.
    EXPECT_EQ(run_with(doc, u"Compétition"_s).family, u"Liberation Serif"_s);
    EXPECT_EQ(look(doc, u"<NOM_COMPET>"_s), u"Courier New 10 italic"_s);
    const QTextBlock tabs = block_with(doc, u"Nageur"_s);
    ASSERT_EQ(tabs.blockFormat().tabPositions().size(), 2);
    EXPECT_DOUBLE_EQ(tabs.blockFormat().tabPositions().at(0).position, units_from_twips(2835));
    EXPECT_EQ(tabs.blockFormat().tabPositions().at(1).type, QTextOption::RightTab);
    EXPECT_EQ(tabs.begin().fragment().charFormat().foreground().color(), QColor(255, 0, 0));
}

TEST_F(Rtf, ReadsWordOutput)
{
    QTextDocument doc;
    ASSERT_TRUE(read_rtf(read_bytes(rtf_fixture(u"word_bordereau.rtf"_s)), doc));
    const QString text = doc.toPlainText();
    EXPECT_EQ(text, u"Bordereau d’engagement\nClub\t<NOM_CLUB>\t€ été souligné fin łódź\n<ENGAG_INDIV>"_s);
    // Nothing of the header, the information block, the style sheet, the
    // pictures or the theme reaches the text.
    for (const char* absent : {"EN-TETE", "Normal", "Secr", "89504e47", "504b03", "Default Paragraph"})
        EXPECT_FALSE(text.contains(QLatin1String(absent))) << absent;
    EXPECT_EQ(look(doc, u"Bordereau"_s), u"Calibri 14 bold"_s);
    EXPECT_EQ(look(doc, u"souligné"_s), u"Calibri 11 underline"_s);
    EXPECT_EQ(look(doc, u" fin"_s), u"Calibri 11"_s);
    EXPECT_EQ(run_with(doc, u"<ENGAG_INDIV>"_s).family, u"Courier New"_s);
    const QTextBlockFormat club = block_with(doc, u"<NOM_CLUB>"_s).blockFormat();
    EXPECT_NEAR(club.leftMargin(), units_from_twips(567), 0.01);
    ASSERT_EQ(club.tabPositions().size(), 2);
    EXPECT_EQ(club.tabPositions().at(1).type, QTextOption::RightTab);
}

TEST_F(Rtf, ReadsWordPadOutputWithPicturesBinaryAndPageBreak)
{
    QTextDocument doc;
    ASSERT_TRUE(read_rtf(read_bytes(rtf_fixture(u"wordpad_bordereau.rtf"_s)), doc));
    EXPECT_EQ(doc.toPlainText(),
              u"Le <DATE_JOUR>\nGras italique normal\nseconde ligne\n\n<ENGAG_INDIV>\nPage deux \u05D0 fin"_s);
    // The line break stays inside its paragraph.
    EXPECT_EQ(doc.blockCount(), 5);
    EXPECT_EQ(doc.findBlockByNumber(1).text(),
              u"Gras italique normal"_s + QChar(QChar::LineSeparator) + u"seconde ligne"_s);
    EXPECT_EQ(alignment(doc.begin()), Qt::AlignRight);
    EXPECT_EQ(QStringList({look(doc, u"Gras"_s), look(doc, u"italique"_s), look(doc, u" normal"_s),
                           look(doc, u"<ENGAG_INDIV>"_s)}),
              QStringList({"Calibri 11 bold", "Calibri 11 italic", "Calibri 11", "Courier New 10"}));
    EXPECT_TRUE(block_with(doc, u"Page deux"_s).blockFormat().pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore);
}

TEST_F(Rtf, DamagedDataLoadsWhatItCanAndNeverCrashes)
{
    QTextDocument doc;
    QString error;
    EXPECT_FALSE(read_rtf(QByteArray(), doc, &error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_FALSE(read_rtf("   \r\n", doc, &error));
    EXPECT_FALSE(read_rtf("Bonjour <NOM_CLUB>", doc, &error));
    EXPECT_EQ(error, u"Le fichier n'est pas au format RTF."_s);
    EXPECT_FALSE(load_rtf_file(u"/nonexistent/modele.rtf"_s, doc, &error));

    // Truncated in the middle of a run: the text up to the cut.
    const QByteArray whole = read_bytes(rtf_fixture(u"word_bordereau.rtf"_s));
    const qsizetype cut = whole.indexOf("soulign");
    ASSERT_GT(cut, 0);
    ASSERT_TRUE(read_rtf(whole.left(cut + 4), doc));
    EXPECT_TRUE(doc.toPlainText().startsWith(u"Bordereau d’engagement\nClub\t<NOM_CLUB>"_s));
    EXPECT_TRUE(doc.toPlainText().endsWith(u"soul"_s));

    // Every prefix of a real file reads without harm.
    for (qsizetype n = 0; n <= whole.size(); n += 97)
        read_rtf(whole.left(n), doc);

    const QByteArray damaged[] = {
        "{\\rtf1 a}}}}} after the end",
        "{\\rtf1 " + QByteArray(5000, '{') + "deep" + QByteArray(10, '}'),
        "{\\rtf1 \\u99999999999999 \\'",
        "{\\rtf1 \\bin999999999 x",
        "{\\rtf1 {\\fonttbl{\\f0 Arial",
        "{\\rtf1 \\fs-40 \\tx-100 \\uc-5\\u233 ab\\'zz \\f99 text\\cf88 x}",
        "{\\rtf1 \\" + QByteArray(200, 'a') + "123456789012345678 text}",
    };
    for (const QByteArray& data : damaged)
        EXPECT_TRUE(read_rtf(data, doc)) << data.left(40).toStdString();
    ASSERT_TRUE(read_rtf(damaged[0], doc));
    EXPECT_EQ(doc.toPlainText(), u"a"_s);
    ASSERT_TRUE(read_rtf(damaged[1], doc));
    EXPECT_EQ(doc.toPlainText(), u"deep"_s);
}

TEST_F(Rtf, SaveReplacesTheFileOnlyWhenWritten)
{
    QTemporaryDir dir;
    QTextDocument doc, back;
    QTextCursor(&doc).insertText(u"modèle"_s);
    const QString path = dir.filePath(u"a.rtf"_s);
    ASSERT_TRUE(save_rtf_file(doc, path));
    ASSERT_TRUE(load_rtf_file(path, back));
    EXPECT_EQ(back.toPlainText(), u"modèle"_s);
    QString error;
    EXPECT_FALSE(save_rtf_file(doc, dir.filePath(u"missing/a.rtf"_s), &error));
    EXPECT_FALSE(error.isEmpty());
}

}  // namespace
}  // namespace plouvarine::testing
