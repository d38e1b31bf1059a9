// Reading and writing RTF: round trips of every attribute the reports use,
// files as word processors write them, and damaged data.

#include "src/base/doc_units.h"
#include "src/reports/rtf_reader.h"
#include "src/reports/rtf_writer.h"
#include "report_test_support.h"
#include "support/office_template.h"
#include "support/temp_files.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextCursor>
#include <gtest/gtest.h>

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

QByteArray read_fixture(const QString& name)
{
    QFile file(rtf_fixture(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return file.readAll();
}

class Rtf : public ::testing::Test {
protected:
    void SetUp() override { ensure_gui_application(); }
};

TEST_F(Rtf, RoundTripKeepsRunsParagraphsAndText)
{
    QTextDocument doc;
    QTextCursor c(&doc);
    QTextBlockFormat centred;
    centred.setAlignment(Qt::AlignHCenter);
    c.setBlockFormat(centred);
    c.insertText(QStringLiteral("Convocation "), format(QStringLiteral("Arial"), 16, true));
    c.insertText(QStringLiteral("du {club} \\ été"), format(QStringLiteral("Arial"), 16, false, true));

    QTextBlockFormat tabs;
    tabs.setAlignment(Qt::AlignLeft);
    tabs.setTabPositions({QTextOption::Tab(100, QTextOption::LeftTab), QTextOption::Tab(350.5, QTextOption::RightTab)});
    tabs.setLeftMargin(28.35);
    c.insertBlock(tabs);
    c.insertText(QStringLiteral("Nom\tPrénom\t1:02.35"), format(QStringLiteral("Courier New"), 9));
    c.insertText(QStringLiteral(" souligné"), format(QStringLiteral("Courier New"), 9, false, false, true));

    QTextBlockFormat right;
    right.setAlignment(Qt::AlignRight);
    c.insertBlock(right);
    c.insertText(QStringLiteral("Łódź – 東京 € œ ¤ 𝄞") + QChar(QChar::LineSeparator) + QStringLiteral("suite"),
                 format(QStringLiteral("Times New Roman"), 11.5, true, true, true));

    QTextBlockFormat empty;
    empty.setAlignment(Qt::AlignJustify);
    c.insertBlock(empty, format(QStringLiteral("Courier New"), 10));

    QTextBlockFormat next_page;
    next_page.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    c.insertBlock(next_page);
    c.insertText(QStringLiteral("page 2"), format(QStringLiteral("Arial"), 10));

    const QByteArray rtf = write_rtf(doc);
    for (const char byte : rtf)
        ASSERT_LT(static_cast<unsigned char>(byte), 0x80) << "RTF is 7-bit text";

    QTextDocument back;
    ASSERT_TRUE(read_rtf(rtf, back));
    EXPECT_EQ(back.toPlainText(), doc.toPlainText());
    EXPECT_EQ(runs_of(back), runs_of(doc));
    ASSERT_EQ(back.blockCount(), 5);
    EXPECT_EQ(back.findBlockByNumber(0).blockFormat().alignment() & Qt::AlignHorizontal_Mask, Qt::AlignHCenter);
    EXPECT_EQ(back.findBlockByNumber(2).blockFormat().alignment() & Qt::AlignHorizontal_Mask, Qt::AlignRight);
    EXPECT_EQ(back.findBlockByNumber(3).blockFormat().alignment() & Qt::AlignHorizontal_Mask, Qt::AlignJustify);
    const QTextBlockFormat tabs_back = back.findBlockByNumber(1).blockFormat();
    ASSERT_EQ(tabs_back.tabPositions().size(), 2);
    EXPECT_DOUBLE_EQ(tabs_back.tabPositions().at(0).position, 100);
    EXPECT_EQ(tabs_back.tabPositions().at(1).type, QTextOption::RightTab);
    EXPECT_NEAR(tabs_back.tabPositions().at(1).position, 350.5, 0.05);
    EXPECT_NEAR(tabs_back.leftMargin(), 28.35, 0.05);
    // The empty paragraph keeps the format of what will be typed there.
    EXPECT_EQ(back.findBlockByNumber(3).charFormat().fontFamilies().toStringList().value(0), QStringLiteral("Courier New"));
    EXPECT_TRUE(back.findBlockByNumber(4).blockFormat().pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore);
    EXPECT_FALSE(back.findBlockByNumber(2).blockFormat().pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore);

    // A second pass gives the same bytes: nothing drifts from one save to the next.
    EXPECT_EQ(write_rtf(back), rtf);
}

TEST_F(Rtf, ParagraphLengthsAreInTheLayoutUnitAndKeepTheirTwipsThroughARoundTrip)
{
    const QByteArray rtf = "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}"
                           "\\pard\\li1134\\ri567\\fi1701\\sb113\\sa57\\sl-317\\slmult0\\tx1701\\tqr\\tx9071 A\\par"
                           "\\pard\\fi-283\\li283\\sl397\\slmult0 B\\par}";
    QTextDocument doc;
    ASSERT_TRUE(read_rtf(rtf, doc));
    // 1134 twips, 2 cm, are 75.6 of the layout's 96ths of an inch.
    const QTextBlockFormat a = doc.begin().blockFormat();
    EXPECT_NEAR(a.leftMargin(), 2 / 2.54 * 96, 0.01);
    EXPECT_NEAR(a.textIndent(), 3 / 2.54 * 96, 0.05);
    EXPECT_DOUBLE_EQ(a.rightMargin(), units_from_twips(567));
    EXPECT_DOUBLE_EQ(a.topMargin(), units_from_twips(113));
    EXPECT_DOUBLE_EQ(a.lineHeight(), units_from_twips(317));
    ASSERT_EQ(a.tabPositions().size(), 2);
    EXPECT_DOUBLE_EQ(a.tabPositions().at(1).position, units_from_twips(9071));

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

TEST_F(Rtf, EmptyDocumentAndTrailingEmptyParagraphSurvive)
{
    QTextDocument empty;
    QTextDocument back;
    ASSERT_TRUE(read_rtf(write_rtf(empty), back));
    EXPECT_EQ(back.blockCount(), 1);
    EXPECT_TRUE(back.toPlainText().isEmpty());

    QTextDocument two;
    QTextCursor(&two).insertText(QStringLiteral("A\n"));  // "A" and an empty paragraph
    ASSERT_EQ(two.blockCount(), 2);
    ASSERT_TRUE(read_rtf(write_rtf(two), back));
    EXPECT_EQ(back.blockCount(), 2);
    EXPECT_EQ(back.toPlainText(), QStringLiteral("A\n"));
}

TEST_F(Rtf, ReadsLibreOfficeOutput)
{
    QTextDocument doc;
    ASSERT_TRUE(read_rtf(read_fixture(QStringLiteral("libreoffice_convocation.rtf")), doc));
    EXPECT_EQ(doc.toPlainText(), QStringLiteral("Convocation du club\nCompétition : <NOM_COMPET>\n"
                                                "Nageur\t<NAGEUR>\t€ 12\n<ENGAG>"));
    const TextRun title = run_with(doc, QStringLiteral("Convocation"));
    EXPECT_EQ(title.family, QStringLiteral("Arial"));
    EXPECT_EQ(title.size, 16);
    EXPECT_TRUE(title.bold);
    EXPECT_EQ(doc.begin().blockFormat().alignment() & Qt::AlignHorizontal_Mask, Qt::AlignHCenter);
    // The font with an alternative name in its entry keeps its own name.
    EXPECT_EQ(run_with(doc, QStringLiteral("Compétition")).family, QStringLiteral("Liberation Serif"));
    const TextRun tag = run_with(doc, QStringLiteral("<NOM_COMPET>"));
    EXPECT_EQ(tag.family, QStringLiteral("Courier New"));
    EXPECT_TRUE(tag.italic);
    const QTextBlock tabs = block_with(doc, QStringLiteral("Nageur"));
    ASSERT_EQ(tabs.blockFormat().tabPositions().size(), 2);
    EXPECT_DOUBLE_EQ(tabs.blockFormat().tabPositions().at(0).position, units_from_twips(2835));
    EXPECT_EQ(tabs.blockFormat().tabPositions().at(1).type, QTextOption::RightTab);
    EXPECT_EQ(tabs.begin().fragment().charFormat().foreground().color(), QColor(255, 0, 0));
}

TEST_F(Rtf, ReadsWordOutput)
{
    QTextDocument doc;
    ASSERT_TRUE(read_rtf(read_fixture(QStringLiteral("word_bordereau.rtf")), doc));
    const QString text = doc.toPlainText();
    EXPECT_EQ(text, QStringLiteral("Bordereau d’engagement\nClub\t<NOM_CLUB>\t€ été souligné fin łódź\n<ENGAG_INDIV>"));
    // Nothing of the header, the information block, the style sheet, the
    // pictures or the theme reaches the text.
    for (const char* absent : {"EN-TETE", "Normal", "Secr", "89504e47", "504b03", "Default Paragraph"})
        EXPECT_FALSE(text.contains(QLatin1String(absent))) << absent;
    const TextRun title = run_with(doc, QStringLiteral("Bordereau"));
    EXPECT_TRUE(title.bold);
    EXPECT_EQ(title.size, 14);
    EXPECT_EQ(title.family, QStringLiteral("Calibri"));
    EXPECT_TRUE(run_with(doc, QStringLiteral("souligné")).underline);
    EXPECT_FALSE(run_with(doc, QStringLiteral(" fin")).underline);
    EXPECT_EQ(run_with(doc, QStringLiteral("<ENGAG_INDIV>")).family, QStringLiteral("Courier New"));
    const QTextBlockFormat club = block_with(doc, QStringLiteral("<NOM_CLUB>")).blockFormat();
    EXPECT_NEAR(club.leftMargin(), units_from_twips(567), 0.01);
    ASSERT_EQ(club.tabPositions().size(), 2);
    EXPECT_EQ(club.tabPositions().at(1).type, QTextOption::RightTab);
}

TEST_F(Rtf, ReadsWordPadOutputWithPicturesBinaryAndPageBreak)
{
    QTextDocument doc;
    ASSERT_TRUE(read_rtf(read_fixture(QStringLiteral("wordpad_bordereau.rtf")), doc));
    EXPECT_EQ(doc.toPlainText(),
              QStringLiteral("Le <DATE_JOUR>\nGras italique normal\nseconde ligne\n\n<ENGAG_INDIV>\nPage deux \u05D0 fin"));
    // The line break stays inside its paragraph.
    EXPECT_EQ(doc.blockCount(), 5);
    EXPECT_EQ(doc.findBlockByNumber(1).text(),
              QStringLiteral("Gras italique normal") + QChar(QChar::LineSeparator) + QStringLiteral("seconde ligne"));
    EXPECT_EQ(doc.begin().blockFormat().alignment() & Qt::AlignHorizontal_Mask, Qt::AlignRight);
    EXPECT_TRUE(run_with(doc, QStringLiteral("Gras")).bold);
    EXPECT_TRUE(run_with(doc, QStringLiteral("italique")).italic);
    EXPECT_FALSE(run_with(doc, QStringLiteral(" normal")).italic);
    EXPECT_EQ(run_with(doc, QStringLiteral("<ENGAG_INDIV>")).family, QStringLiteral("Courier New"));
    EXPECT_TRUE(block_with(doc, QStringLiteral("Page deux")).blockFormat().pageBreakPolicy() &
                QTextFormat::PageBreak_AlwaysBefore);
}

TEST_F(Rtf, DamagedDataLoadsWhatItCanAndNeverCrashes)
{
    QTextDocument doc;
    QString error;
    EXPECT_FALSE(read_rtf(QByteArray(), doc, &error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_FALSE(read_rtf("   \r\n", doc, &error));
    EXPECT_FALSE(read_rtf("Bonjour <NOM_CLUB>", doc, &error));
    EXPECT_EQ(error, QStringLiteral("Le fichier n'est pas au format RTF."));
    EXPECT_FALSE(load_rtf_file(QStringLiteral("/nonexistent/modele.rtf"), doc, &error));

    // Truncated in the middle of a run: the text up to the cut.
    const QByteArray whole = read_fixture(QStringLiteral("word_bordereau.rtf"));
    const qsizetype cut = whole.indexOf("soulign");
    ASSERT_GT(cut, 0);
    ASSERT_TRUE(read_rtf(whole.left(cut + 4), doc));
    EXPECT_TRUE(doc.toPlainText().startsWith(QStringLiteral("Bordereau d’engagement\nClub\t<NOM_CLUB>")));
    EXPECT_TRUE(doc.toPlainText().endsWith(QStringLiteral("soul")));

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
    EXPECT_EQ(doc.toPlainText(), QStringLiteral("a"));
    ASSERT_TRUE(read_rtf(damaged[1], doc));
    EXPECT_EQ(doc.toPlainText(), QStringLiteral("deep"));
}

TEST_F(Rtf, SaveReplacesTheFileOnlyWhenWritten)
{
    QTemporaryDir dir;
    QTextDocument doc;
    QTextCursor(&doc).insertText(QStringLiteral("modèle"));
    const QString path = dir.filePath(QStringLiteral("a.rtf"));
    ASSERT_TRUE(save_rtf_file(doc, path));
    QTextDocument back;
    ASSERT_TRUE(load_rtf_file(path, back));
    EXPECT_EQ(back.toPlainText(), QStringLiteral("modèle"));
    QString error;
    EXPECT_FALSE(save_rtf_file(doc, dir.filePath(QStringLiteral("missing/a.rtf")), &error));
    EXPECT_FALSE(error.isEmpty());
}

TEST_F(Rtf, ReadsWhatLibreOfficeConverts)
{
    const QString soffice = QStandardPaths::findExecutable(QStringLiteral("soffice"));
    if (soffice.isEmpty())
        GTEST_SKIP() << "soffice is not installed";
    QTemporaryDir dir;
    const QString html = dir.filePath(QStringLiteral("modele.html"));
    QFile file(html);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<html><body><p align=center><b>Bordereau</b></p><p><i>Comp&eacute;tition</i> "
               "&lt;NOM_COMPET&gt; &#8364;</p></body></html>");
    file.close();
    // Imported into the word processor proper: its web module has no RTF export.
    QString error;
    const QString rtf = office_convert(html, dir.path(),
                                       {QStringLiteral("--infilter=HTML (StarWriter)"), QStringLiteral("--convert-to"),
                                        QStringLiteral("rtf:Rich Text Format")},
                                       QStringLiteral("modele.rtf"), &error);
    ASSERT_FALSE(rtf.isEmpty()) << error.toStdString();
    QTextDocument doc;
    ASSERT_TRUE(load_rtf_file(rtf, doc));
    EXPECT_TRUE(doc.toPlainText().contains(QStringLiteral("Compétition <NOM_COMPET> €")));
    EXPECT_TRUE(run_with(doc, QStringLiteral("Bordereau")).bold);
    EXPECT_TRUE(run_with(doc, QStringLiteral("Compétition")).italic);
}

}  // namespace
}  // namespace plouvarine::testing
