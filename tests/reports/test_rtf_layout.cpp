// What a club puts in a template beside its text: pictures, tables, lists,
// headers and footers, as LibreOffice and Word write them, read, filled and
// written back.

#include "src/base/doc_units.h"
#include "src/reports/pictures.h"
#include "src/reports/rich_text.h"
#include "src/reports/rtf_reader.h"
#include "src/reports/rtf_writer.h"
#include "report_test_support.h"
#include "support/office_template.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QAbstractTextDocumentLayout>
#include <QTemporaryDir>
#include <QTextList>
#include <QTextTable>
#include <gtest/gtest.h>

namespace plouvarine::testing {
namespace {

class RtfLayout : public ::testing::Test {
protected:
    void SetUp() override { ensure_gui_application(); }
};

// The pictures of a document, in order, as their bytes and their size.
struct Picture {
    QByteArray bytes;
    qreal width = 0;
    qreal height = 0;
};

std::vector<Picture> pictures_of(const QTextDocument& document)
{
    std::vector<Picture> out;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        for (auto it = block.begin(); !it.atEnd(); ++it)
            if (it.fragment().charFormat().isImageFormat()) {
                const QTextImageFormat f = it.fragment().charFormat().toImageFormat();
                out.push_back({picture_bytes(document, f.name()), f.width(), f.height()});
            }
    return out;
}

std::vector<QTextTable*> tables_of(const QTextDocument& document)
{
    std::vector<QTextTable*> out;
    for (QTextFrame* frame : document.rootFrame()->childFrames())
        if (auto* table = qobject_cast<QTextTable*>(frame))
            out.push_back(table);
    return out;
}

QString cell_text(QTextTable* table, int row, int column)
{
    const QTextTableCell cell = table->cellAt(row, column);
    QTextCursor cursor = cell.firstCursorPosition();
    cursor.setPosition(cell.lastPosition(), QTextCursor::KeepAnchor);
    return cursor.selectedText();
}

// The list of the paragraph holding `text`: its style and its number of items.
std::pair<int, int> list_with(const QTextDocument& document, const QString& text)
{
    const QTextList* list = block_with(document, text).textList();
    return list ? std::pair{int(list->format().style()), list->count()} : std::pair{0, 0};
}

QByteArray round_trip(const QTextDocument& document, QTextDocument& back)
{
    const QByteArray rtf = write_rtf(document);
    EXPECT_TRUE(read_rtf(rtf, back));
    return rtf;
}

TEST_F(RtfLayout, LibreOfficeTemplateKeepsLogoTableListHeaderAndFooterThroughARoundTrip)
{
    QTemporaryDir dir;
    const OfficeTemplate made = make_office_template(dir.path());
    if (made.rtf.isEmpty())
        GTEST_SKIP() << made.error.toStdString();
    RichBox rich;
    ASSERT_TRUE(rich.LoadFile(made.rtf));
    EXPECT_TRUE(rich.load_notes().isEmpty()) << rich.load_notes().join(QLatin1Char('\n')).toStdString();

    const auto pictures = pictures_of(rich.document());
    ASSERT_EQ(pictures.size(), 1u);  // the WMF stand-in is not taken as a second picture
    EXPECT_EQ(picture_kind(pictures[0].bytes), PictureKind::Png);
    EXPECT_EQ(QImage::fromData(pictures[0].bytes).pixelColor(10, 10), QColor(200, 30, 30));
    EXPECT_NEAR(pictures[0].width, 4 / 2.54 * 96, 2);  // 4 cm in the layout's unit
    EXPECT_NEAR(pictures[0].height, 2 / 2.54 * 96, 2);

    const auto tables = tables_of(rich.document());
    ASSERT_EQ(tables.size(), 1u);
    QTextTable* table = tables[0];
    ASSERT_EQ(table->rows(), 2);
    ASSERT_EQ(table->columns(), 2);
    EXPECT_EQ(cell_text(table, 0, 0), QStringLiteral("Club"));
    EXPECT_EQ(cell_text(table, 1, 1), QStringLiteral("<CODE_CLUB>"));
    const QList<QTextLength> widths = table->format().columnWidthConstraints();
    ASSERT_EQ(widths.size(), 2);
    EXPECT_NEAR(widths[1].rawValue() / widths[0].rawValue(), 2.0, 0.1);  // 8 cm beside 4 cm
    EXPECT_GT(table->cellAt(0, 0).format().toTableCellFormat().topBorder(), 0);

    EXPECT_EQ(list_with(rich.document(), QStringLiteral("Bonnet")),
              std::pair(int(QTextListFormat::ListDisc), 2));
    EXPECT_EQ(block_with(rich.document(), QStringLiteral("Licence")).text(), QStringLiteral("Licence à jour"));
    EXPECT_TRUE(rich.page_setup().header);
    EXPECT_EQ(rich.header().toPlainText().trimmed(), QStringLiteral("En-tête du <NOM_CLUB>"));
    EXPECT_EQ(rich.footer().toPlainText().trimmed(), QStringLiteral("Pied de page du club"));
    const QMarginsF margins = rich.page_layout().margins(QPageLayout::Millimeter);
    EXPECT_NEAR(margins.left(), 25, 0.5);
    EXPECT_EQ(rich.page_layout().orientation(), QPageLayout::Portrait);

    // Tags inside cells are found like any other.
    EXPECT_TRUE(RemplacerBalise(rich, QStringLiteral("<NOM_CLUB>"), QStringLiteral("Cercle des nageurs")));
    EXPECT_EQ(cell_text(table, 0, 1), QStringLiteral("Cercle des nageurs"));

    // Saved and read again: the same picture bytes, cells, list, header and page.
    const QString saved = dir.filePath(QStringLiteral("saved.rtf"));
    ASSERT_TRUE(rich.SaveFile(saved));
    RichBox back;
    ASSERT_TRUE(back.LoadFile(saved));
    const auto pictures_back = pictures_of(back.document());
    ASSERT_EQ(pictures_back.size(), 1u);
    EXPECT_EQ(pictures_back[0].bytes, pictures[0].bytes);
    EXPECT_NEAR(pictures_back[0].width, pictures[0].width, 0.1);
    const auto tables_back = tables_of(back.document());
    ASSERT_EQ(tables_back.size(), 1u);
    ASSERT_EQ(tables_back[0]->rows(), 2);
    EXPECT_EQ(cell_text(tables_back[0], 0, 1), QStringLiteral("Cercle des nageurs"));
    EXPECT_EQ(cell_text(tables_back[0], 1, 0), QStringLiteral("Code"));
    EXPECT_EQ(list_with(back.document(), QStringLiteral("Bonnet")), std::pair(int(QTextListFormat::ListDisc), 2));
    EXPECT_EQ(back.header().toPlainText().trimmed(), QStringLiteral("En-tête du <NOM_CLUB>"));
    EXPECT_NEAR(back.page_layout().margins(QPageLayout::Millimeter).left(), 25, 0.5);

    // The word processor's file cut anywhere: read up to the cut, never a failure.
    QFile file(made.rtf);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray whole = file.readAll();
    for (qsizetype cut = 6; cut < whole.size(); cut += whole.size() / 89) {
        QTextDocument part, header, footer;
        RtfExtras extras;
        extras.header = &header;
        extras.footer = &footer;
        EXPECT_TRUE(read_rtf(whole.left(cut), part, nullptr, &extras)) << cut;
    }
}

TEST_F(RtfLayout, PicturesInEveryFormWordWritesThemAndTheOnesThatCannotBeDrawn)
{
    const QByteArray png = solid_png(6, 3, Qt::blue);
    // Binary data in \bin, scaled to half its goal width, inside \shppict with a
    // metafile stand-in that is not drawn beside it.
    QByteArray rtf = "{\\rtf1\\ansi{\\*\\shppict{\\pict{\\*\\picprop{\\sp{\\sn wzName}{\\sv Logo}}}"
                     "\\picscalex50\\picscaley100\\picw6\\pich3\\picwgoal1440\\pichgoal720\\pngblip\\bin" +
                     QByteArray::number(png.size()) + " " + png + "}}{\\nonshppict{\\pict\\wmetafile8 0100}}";
    // An EMF with a PNG stand-in: the stand-in is drawn, nothing is noted.
    rtf += "{\\*\\shppict{\\pict\\emfblip 01000000}}{\\nonshppict{\\pict\\pngblip " + png.toHex() + "}}";
    // A WMF alone and an EMF whose stand-in is a WMF: one note each, no failure.
    rtf += "{\\pict\\wmetafile8 0100}{\\*\\shppict{\\pict\\emfblip 0100}}{\\nonshppict{\\pict\\wmetafile8 01}}";
    rtf += " fin\\par}";
    QTextDocument doc;
    RtfExtras extras;
    ASSERT_TRUE(read_rtf(rtf, doc, nullptr, &extras));
    const auto pictures = pictures_of(doc);
    ASSERT_EQ(pictures.size(), 2u);
    EXPECT_EQ(pictures[0].bytes, png);
    EXPECT_NEAR(pictures[0].width, 720 / 15.0, 0.01);   // 1 inch at 50 %
    EXPECT_NEAR(pictures[0].height, 720 / 15.0, 0.01);
    EXPECT_NEAR(pictures[1].width, 6, 0.01);             // no goal: its pixels
    ASSERT_EQ(extras.notes.size(), 2);
    EXPECT_TRUE(extras.notes[0].contains(QStringLiteral("WMF")));
    EXPECT_TRUE(extras.notes[1].contains(QStringLiteral("EMF")));
    EXPECT_TRUE(doc.toPlainText().endsWith(QStringLiteral("fin")));

    // A damaged PNG is left out the same way.
    QTextDocument damaged;
    RtfExtras damaged_extras;
    ASSERT_TRUE(read_rtf("{\\rtf1{\\pict\\pngblip 89504e470d0a1a0a0000}ok\\par}", damaged, nullptr, &damaged_extras));
    EXPECT_TRUE(pictures_of(damaged).empty());
    EXPECT_EQ(damaged_extras.notes.size(), 1);
    EXPECT_EQ(damaged.toPlainText(), QStringLiteral("ok"));

    // JPEG comes back byte for byte too.
    QImage photo(20, 10, QImage::Format_RGB32);
    photo.fill(Qt::green);
    QByteArray jpeg;
    QBuffer buffer(&jpeg);
    buffer.open(QIODevice::WriteOnly);
    photo.save(&buffer, "JPEG");
    QTextDocument with_jpeg;
    ASSERT_TRUE(read_rtf("{\\rtf1{\\pict\\jpegblip\\picwgoal300\\pichgoal150 " + jpeg.toHex() + "}\\par}", with_jpeg));
    QTextDocument back;
    round_trip(with_jpeg, back);
    ASSERT_EQ(pictures_of(back).size(), 1u);
    EXPECT_EQ(pictures_of(back)[0].bytes, jpeg);
    EXPECT_NEAR(pictures_of(back)[0].width, 20, 0.01);
}

TEST_F(RtfLayout, WordTablesWithMergedCellsAlignmentAndTagsSurviveARoundTrip)
{
    // Row 1: a title over both columns (\clmgf/\clmrg). Rows 2-3: the first
    // column merged down (\clvmgf/\clvmrg), the second centred vertically.
    const QByteArray rtf =
        "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}"
        "\\trowd\\trgaph108\\trleft-108\\clmgf\\clbrdrb\\brdrs\\brdrw15\\cellx2000\\clmrg\\cellx6000"
        "\\pard\\intbl\\qc R\\'e9ponse\\cell\\pard\\intbl\\cell\\row"
        "\\trowd\\trgaph108\\trleft-108\\clvmgf\\cellx2000\\clvertalc\\cellx6000"
        "\\pard\\intbl Nageur\\cell\\pard\\intbl {\\b <NAG}{\\i EUR>}\\cell\\row"
        "\\trowd\\trgaph108\\trleft-108\\clvmrg\\cellx2000\\clvertalc\\cellx6000"
        "\\pard\\intbl\\cell\\pard\\intbl <LICENCE>\\par second\\cell\\row"
        "\\pard Apr\\'e8s\\par}";
    RichBox rich;
    ASSERT_TRUE(read_rtf(rtf, rich.document()));
    auto tables = tables_of(rich.document());
    ASSERT_EQ(tables.size(), 1u);
    QTextTable* table = tables[0];
    ASSERT_EQ(table->rows(), 3);
    ASSERT_EQ(table->columns(), 2);
    EXPECT_EQ(table->cellAt(0, 0).columnSpan(), 2);
    EXPECT_EQ(table->cellAt(1, 0).rowSpan(), 2);
    EXPECT_EQ(cell_text(table, 0, 0), QStringLiteral("Réponse"));
    EXPECT_EQ(table->cellAt(0, 0).firstCursorPosition().blockFormat().alignment() & Qt::AlignHorizontal_Mask,
              Qt::AlignHCenter);
    EXPECT_EQ(table->cellAt(1, 1).format().verticalAlignment(), QTextCharFormat::AlignMiddle);
    EXPECT_NEAR(table->format().columnWidthConstraints().at(1).rawValue(), 4000 / 15.0, 0.01);
    EXPECT_TRUE(rich.text().endsWith(QStringLiteral("Après")));
    // The table opens the page: the paragraph a document keeps before it takes no room.
    EXPECT_LE(rich.document().documentLayout()->blockBoundingRect(rich.document().begin()).height(), 2);

    // Tags in cells, one of them split over two runs, are replaced in place.
    EXPECT_TRUE(RemplacerBalise(rich, QStringLiteral("<NAGEUR>"), QStringLiteral("Marie Le Goff")));
    EXPECT_TRUE(RemplacerBalise(rich, QStringLiteral("<LICENCE>"), QStringLiteral("123456")));
    EXPECT_EQ(cell_text(table, 1, 1), QStringLiteral("Marie Le Goff"));
    EXPECT_TRUE(run_with(rich.document(), QStringLiteral("Marie")).bold);

    QTextDocument back;
    round_trip(rich.document(), back);
    tables = tables_of(back);
    ASSERT_EQ(tables.size(), 1u);
    ASSERT_EQ(tables[0]->rows(), 3);
    EXPECT_EQ(tables[0]->cellAt(0, 0).columnSpan(), 2);
    EXPECT_EQ(tables[0]->cellAt(1, 0).rowSpan(), 2);
    EXPECT_EQ(cell_text(tables[0], 1, 1), QStringLiteral("Marie Le Goff"));
    EXPECT_EQ(cell_text(tables[0], 2, 1), QStringLiteral("123456") + QChar(QChar::ParagraphSeparator) +
                                              QStringLiteral("second"));
    EXPECT_GT(tables[0]->cellAt(0, 0).format().toTableCellFormat().bottomBorder(), 0);
    EXPECT_EQ(tables[0]->cellAt(1, 1).format().verticalAlignment(), QTextCharFormat::AlignMiddle);
    EXPECT_TRUE(back.toPlainText().endsWith(QStringLiteral("Après")));
    EXPECT_EQ(back.toPlainText(), rich.text());  // no paragraph added before the table

    // Cut anywhere, a table gives what was read before the cut and never fails.
    for (qsizetype cut = 6; cut < rtf.size(); cut += 3) {
        QTextDocument part;
        EXPECT_TRUE(read_rtf(rtf.left(cut), part)) << cut;
    }
}

TEST_F(RtfLayout, ListsInWordsFormAndTheOlderFormAndCharacterAttributes)
{
    const QByteArray rtf =
        "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}{\\f1\\fcharset2 Symbol;}}"
        // Word: \ls with the label in \listtext.
        "\\pard\\fi-360\\li720\\ls1\\ilvl0{\\listtext\\pard\\plain\\f1 \\'b7\\tab}Un\\par"
        "{\\listtext\\pard\\plain\\f1 \\'b7\\tab}Deux\\par"
        "\\pard\\fi-360\\li720\\ls2{\\listtext 1.\\tab}Premier\\par{\\listtext 2.\\tab}Second\\par"
        // WordPad: \pn.
        "\\pard{\\pntext\\f1\\'b7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'b7}}\\fi-720\\li720 Puce\\par"
        "{\\pntext\\f1\\'b7\\tab}Autre puce\\par"
        "\\pard{\\pntext a.\\tab}{\\*\\pn\\pnlvlbody\\pnlcltr\\pnstart1{\\pntxta .}}Lettre\\par"
        "\\pard\\fi567\\sb240\\sa120\\sl360\\slmult1 {\\strike barr\\'e9} H{\\sub 2}O m{\\super 2}\\par}";
    QTextDocument doc;
    ASSERT_TRUE(read_rtf(rtf, doc));
    EXPECT_EQ(list_with(doc, QStringLiteral("Un")), std::pair(int(QTextListFormat::ListDisc), 2));
    EXPECT_EQ(list_with(doc, QStringLiteral("Premier")), std::pair(int(QTextListFormat::ListDecimal), 2));
    EXPECT_EQ(list_with(doc, QStringLiteral("Puce")), std::pair(int(QTextListFormat::ListDisc), 2));
    EXPECT_EQ(list_with(doc, QStringLiteral("Lettre")), std::pair(int(QTextListFormat::ListLowerAlpha), 1));
    EXPECT_EQ(block_with(doc, QStringLiteral("Un")).text(), QStringLiteral("Un"));  // the label is the list's
    EXPECT_NE(block_with(doc, QStringLiteral("Un")).textList(), block_with(doc, QStringLiteral("Puce")).textList());

    const auto check = [](const QTextDocument& d) {
        const QTextBlock last = block_with(d, QStringLiteral("barré"));
        EXPECT_NEAR(last.blockFormat().textIndent(), units_from_twips(567), 0.01);
        EXPECT_NEAR(last.blockFormat().topMargin(), units_from_twips(240), 0.01);
        EXPECT_NEAR(last.blockFormat().bottomMargin(), units_from_twips(120), 0.01);
        EXPECT_EQ(last.blockFormat().lineHeightType(), int(QTextBlockFormat::ProportionalHeight));
        EXPECT_NEAR(last.blockFormat().lineHeight(), 150, 0.01);
        for (auto it = last.begin(); !it.atEnd(); ++it) {
            const QTextFragment f = it.fragment();
            const QTextCharFormat c = f.charFormat();
            if (f.text() == QStringLiteral("barré"))
                EXPECT_TRUE(c.fontStrikeOut());
            else if (f.text() == QStringLiteral("2"))
                EXPECT_NE(c.verticalAlignment(), QTextCharFormat::AlignNormal);
            else
                EXPECT_FALSE(c.fontStrikeOut() || c.verticalAlignment() != QTextCharFormat::AlignNormal)
                    << f.text().toStdString();
        }
        EXPECT_EQ(block_with(d, QStringLiteral("H")).text(), QStringLiteral("barré H2O m2"));
    };
    check(doc);

    QTextDocument back;
    round_trip(doc, back);
    EXPECT_EQ(list_with(back, QStringLiteral("Un")), std::pair(int(QTextListFormat::ListDisc), 2));
    EXPECT_EQ(list_with(back, QStringLiteral("Premier")), std::pair(int(QTextListFormat::ListDecimal), 2));
    EXPECT_EQ(list_with(back, QStringLiteral("Lettre")), std::pair(int(QTextListFormat::ListLowerAlpha), 1));
    EXPECT_EQ(back.toPlainText(), doc.toPlainText());
    check(back);
}

TEST_F(RtfLayout, TagSplitOverThreeRunsIsReplacedInTheFormatOfItsFirstCharacter)
{
    // As Word leaves it after a spelling check: the tag cut into runs, with a
    // bookmark between two of them.
    const QByteArray rtf = "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}{\\f1 Times;}}"
                           "Club : {\\b\\f1 <NOM}{\\i _CL}{\\*\\bkmkstart x}{\\ul UB>}{\\bkmkend x} fin\\par}";
    RichBox rich;
    ASSERT_TRUE(read_rtf(rtf, rich.document()));
    ASSERT_TRUE(RemplacerBalise(rich, QStringLiteral("<NOM_CLUB>"), QStringLiteral("Dauphins")));
    EXPECT_EQ(rich.text(), QStringLiteral("Club : Dauphins fin"));
    const TextRun run = run_with(rich.document(), QStringLiteral("Dauphins"));
    EXPECT_EQ(run.text, QStringLiteral("Dauphins"));
    EXPECT_TRUE(run.bold);
    EXPECT_FALSE(run.italic || run.underline);
    EXPECT_EQ(run.family, QStringLiteral("Times"));
}

TEST_F(RtfLayout, PageHeaderAndFooterFromWordAreReadAndWrittenBack)
{
    const QByteArray rtf = "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}\\paperw16838\\paperh11906"
                           "\\margl720\\margr720\\margt1080\\margb1080\\landscape\\sectd\\headery500\\footery400"
                           "{\\headerl gauche\\par}{\\header {\\b Club} <NOM_CLUB>{\\pict\\pngblip " +
                           solid_png(4, 4, Qt::red).toHex() +
                           "}\\par}{\\footer Page\\par}{\\header second\\par}"
                           "\\titlepg{\\headerf Premi\\'e8re <NOM_CLUB>\\par}Corps\\par}";
    RichBox rich;
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("paysage.rtf"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(rtf);
    file.close();
    ASSERT_TRUE(rich.LoadFile(path));
    EXPECT_EQ(rich.text(), QStringLiteral("Corps"));
    const QString header = QStringLiteral("Club <NOM_CLUB>") + QChar(QChar::ObjectReplacementCharacter);
    EXPECT_EQ(rich.header().toPlainText(), header);
    ASSERT_EQ(pictures_of(rich.header()).size(), 1u);
    EXPECT_EQ(rich.footer().toPlainText(), QStringLiteral("Page"));
    EXPECT_EQ(rich.page_layout().orientation(), QPageLayout::Landscape);
    EXPECT_EQ(rich.page_layout().pageSize().id(), QPageSize::A4);
    EXPECT_NEAR(rich.page_layout().margins(QPageLayout::Point).top(), 54, 0.01);
    EXPECT_NEAR(rich.page_setup().header_distance, 25, 0.01);
    // The first page's own header; no first-page footer: none on that page.
    EXPECT_TRUE(rich.page_setup().first_page_differs);
    ASSERT_TRUE(rich.page_setup().first_header);
    EXPECT_EQ(rich.page_setup().first_header->toPlainText(), QStringLiteral("Première <NOM_CLUB>"));
    EXPECT_FALSE(rich.page_setup().first_footer);
    RemplacerBaliseEnTete(rich, QStringLiteral("<NOM_CLUB>"), QStringLiteral("CN Brest"));
    EXPECT_EQ(rich.first_header().toPlainText(), QStringLiteral("Première CN Brest"));
    EXPECT_EQ(rich.header().toPlainText(), QStringLiteral("Club CN Brest") + QChar(QChar::ObjectReplacementCharacter));
    RemplacerBaliseEnTete(rich, QStringLiteral("CN Brest"), QStringLiteral("<NOM_CLUB>"));

    // The convocation copies the template for each swimmer, page and all.
    RichBox copy;
    copy.copy_from(rich);
    EXPECT_EQ(copy.header().toPlainText(), header);
    EXPECT_EQ(copy.page_layout().orientation(), QPageLayout::Landscape);

    ASSERT_TRUE(copy.SaveFile(path));
    RichBox back;
    ASSERT_TRUE(back.LoadFile(path));
    EXPECT_EQ(back.header().toPlainText(), header);
    EXPECT_TRUE(run_with(back.header(), QStringLiteral("Club")).bold);
    ASSERT_EQ(pictures_of(back.header()).size(), 1u);
    EXPECT_EQ(pictures_of(back.header())[0].bytes, pictures_of(rich.header())[0].bytes);
    EXPECT_EQ(back.footer().toPlainText(), QStringLiteral("Page"));
    EXPECT_EQ(back.page_layout().orientation(), QPageLayout::Landscape);
    EXPECT_NEAR(back.page_layout().margins(QPageLayout::Point).left(), 36, 0.01);
    EXPECT_NEAR(back.page_setup().footer_distance, 20, 0.01);
    ASSERT_TRUE(back.page_setup().first_page_differs && back.page_setup().first_header);
    EXPECT_EQ(back.page_setup().first_header->toPlainText(), QStringLiteral("Première <NOM_CLUB>"));
}

}  // namespace
}  // namespace plouvarine::testing
