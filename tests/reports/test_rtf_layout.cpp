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
#include "support/temp_files.h"

#include <QBuffer>
#include <QImage>
#include <QAbstractTextDocumentLayout>
#include <QTemporaryDir>
#include <QTextList>
#include <QTextTable>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

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

// The one table of a document: each row its cells' texts joined with "|".
QStringList table_rows(const QTextDocument& document, QTextTable** found = nullptr)
{
    QTextTable* table = nullptr;
    for (QTextFrame* frame : document.rootFrame()->childFrames())
        if (auto* t = qobject_cast<QTextTable*>(frame)) {
            EXPECT_EQ(table, nullptr) << "a second table";
            table = t;
        }
    if (found)
        *found = table;
    QStringList rows;
    for (int row = 0; table && row < table->rows(); ++row) {
        QStringList cells;
        for (int column = 0; column < table->columns(); ++column) {
            const QTextTableCell cell = table->cellAt(row, column);
            QTextCursor cursor = cell.firstCursorPosition();
            cursor.setPosition(cell.lastPosition(), QTextCursor::KeepAnchor);
            cells << cursor.selectedText();
        }
        rows << cells.join(u'|');
    }
    return rows;
}

// The list of the paragraph holding each text: its style and its number of items.
QList<std::pair<int, int>> lists_with(const QTextDocument& document, const QStringList& texts)
{
    QList<std::pair<int, int>> out;
    for (const QString& text : texts) {
        const QTextList* list = block_with(document, text).textList();
        out << (list ? std::pair{int(list->format().style()), list->count()} : std::pair{0, 0});
    }
    return out;
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
    EXPECT_TRUE(rich.load_notes().isEmpty()) << rich.load_notes().join(u'\n').toStdString();

    const auto pictures = pictures_of(rich.document());
    ASSERT_EQ(pictures.size(), 1u);  // the WMF stand-in is not taken as a second picture
    EXPECT_EQ(picture_kind(pictures[0].bytes), PictureKind::Png);
    EXPECT_EQ(QImage::fromData(pictures[0].bytes).pixelColor(10, 10), QColor(200, 30, 30));
    EXPECT_NEAR(pictures[0].width, 4 / 2.54 * 96, 2);  // 4 cm in the layout's unit
    EXPECT_NEAR(pictures[0].height, 2 / 2.54 * 96, 2);

    QTextTable* table = nullptr;
    EXPECT_EQ(table_rows(rich.document(), &table), QStringList({"Club|<NOM_CLUB>", "Code|<CODE_CLUB>"}));
    ASSERT_TRUE(table);
    const QList<QTextLength> widths = table->format().columnWidthConstraints();
    ASSERT_EQ(widths.size(), 2);
    EXPECT_NEAR(widths[1].rawValue() / widths[0].rawValue(), 2.0, 0.1);  // 8 cm beside 4 cm
    EXPECT_GT(table->cellAt(0, 0).format().toTableCellFormat().topBorder(), 0);
    EXPECT_EQ(block_with(rich.document(), u"Licence"_s).text(), u"Licence à jour"_s);
    EXPECT_TRUE(rich.page_setup().header);
    EXPECT_EQ(rich.footer().toPlainText().trimmed(), u"Pied de page du club"_s);
    EXPECT_EQ(rich.page_layout().orientation(), QPageLayout::Portrait);

    // Tags inside cells are found like any other.
    EXPECT_TRUE(RemplacerBalise(rich, u"<NOM_CLUB>"_s, u"Cercle des nageurs"_s));
    const QStringList filled = {u"Club|Cercle des nageurs"_s, u"Code|<CODE_CLUB>"_s};
    EXPECT_EQ(table_rows(rich.document()), filled);

    // Saved and read again: the same picture bytes, cells, list, header and page.
    const QString saved = dir.filePath(u"saved.rtf"_s);
    ASSERT_TRUE(rich.SaveFile(saved));
    RichBox back;
    ASSERT_TRUE(back.LoadFile(saved));
    EXPECT_EQ(table_rows(back.document()), filled);
    for (RichBox* box : {&rich, &back}) {
        const auto logo = pictures_of(box->document());
        ASSERT_EQ(logo.size(), 1u);
        EXPECT_EQ(logo[0].bytes, pictures[0].bytes);
        EXPECT_NEAR(logo[0].width, pictures[0].width, 0.1);
        EXPECT_EQ(lists_with(box->document(), {u"Bonnet"_s}), QList({std::pair(int(QTextListFormat::ListDisc), 2)}));
        EXPECT_EQ(box->header().toPlainText().trimmed(), u"En-tête du <NOM_CLUB>"_s);
        EXPECT_NEAR(box->page_layout().margins(QPageLayout::Millimeter).left(), 25, 0.5);
    }

    // The word processor's file cut anywhere: read up to the cut, never a failure.
    const QByteArray whole = read_bytes(made.rtf);
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
    QByteArray rtf =
        "{\\rtf1\\ansi{\\*\\shppict{\\pict{\\*\\picprop{\\sp{\\sn wzName}{\\sv Logo}}}"
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
    EXPECT_NEAR(pictures[0].width, 720 / 15.0, 0.01);  // 1 inch at 50 %
    EXPECT_NEAR(pictures[0].height, 720 / 15.0, 0.01);
    EXPECT_NEAR(pictures[1].width, 6, 0.01);  // no goal: its pixels
    ASSERT_EQ(extras.notes.size(), 2);
    EXPECT_TRUE(extras.notes[0].contains(u"WMF"_s));
    EXPECT_TRUE(extras.notes[1].contains(u"EMF"_s));
    EXPECT_TRUE(doc.toPlainText().endsWith(u"fin"_s));

    // A damaged PNG is left out the same way.
    QTextDocument damaged;
    RtfExtras damaged_extras;
    ASSERT_TRUE(read_rtf("{\\rtf1{\\pict\\pngblip 89504e470d0a1a0a0000}ok\\par}", damaged, nullptr, &damaged_extras));
    EXPECT_TRUE(pictures_of(damaged).empty());
    EXPECT_EQ(damaged_extras.notes.size(), 1);
    EXPECT_EQ(damaged.toPlainText(), u"ok"_s);

    // JPEG comes back byte for byte too.
    QImage photo(20, 10, QImage::Format_RGB32);
    photo.fill(Qt::green);
    QByteArray jpeg;
    QBuffer buffer(&jpeg);
    buffer.open(QIODevice::WriteOnly);
    photo.save(&buffer, "JPEG");
    QTextDocument with_jpeg, back;
    ASSERT_TRUE(read_rtf("{\\rtf1{\\pict\\jpegblip\\picwgoal300\\pichgoal150 " + jpeg.toHex() + "}\\par}", with_jpeg));
    round_trip(with_jpeg, back);
    const auto jpeg_back = pictures_of(back);
    ASSERT_EQ(jpeg_back.size(), 1u);
    EXPECT_EQ(jpeg_back[0].bytes, jpeg);
    EXPECT_NEAR(jpeg_back[0].width, 20, 0.01);
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
    QTextTable* table = nullptr;
    EXPECT_EQ(table_rows(rich.document(), &table).size(), 3);
    ASSERT_TRUE(table);
    EXPECT_EQ(alignment(table->cellAt(0, 0).firstCursorPosition().block()), Qt::AlignHCenter);
    EXPECT_NEAR(table->format().columnWidthConstraints().at(1).rawValue(), 4000 / 15.0, 0.01);
    // The table opens the page: the paragraph a document keeps before it takes no room.
    EXPECT_LE(rich.document().documentLayout()->blockBoundingRect(rich.document().begin()).height(), 2);

    // Tags in cells, one of them split over two runs, are replaced in place.
    EXPECT_TRUE(RemplacerBalise(rich, u"<NAGEUR>"_s, u"Marie Le Goff"_s));
    EXPECT_TRUE(RemplacerBalise(rich, u"<LICENCE>"_s, u"123456"_s));
    EXPECT_TRUE(run_with(rich.document(), u"Marie"_s).bold);

    QTextDocument back;
    round_trip(rich.document(), back);
    EXPECT_EQ(back.toPlainText(), rich.text());  // no paragraph added before the table
    for (const QTextDocument* doc : std::initializer_list<const QTextDocument*>{&rich.document(), &back}) {
        const QStringList rows = table_rows(*doc, &table);
        ASSERT_TRUE(table);
        EXPECT_EQ(rows, QStringList({u"Réponse|Réponse"_s, u"Nageur|Marie Le Goff"_s,
                                     u"Nageur|123456"_s + QChar(QChar::ParagraphSeparator) + u"second"_s}));
        EXPECT_EQ(QList<int>({table->cellAt(0, 0).columnSpan(), table->cellAt(1, 0).rowSpan()}), QList<int>({2, 2}));
        EXPECT_GT(table->cellAt(0, 0).format().toTableCellFormat().bottomBorder(), 0);
        EXPECT_EQ(table->cellAt(1, 1).format().verticalAlignment(), QTextCharFormat::AlignMiddle);
        EXPECT_TRUE(doc->toPlainText().endsWith(u"Après"_s));
    }

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
    EXPECT_EQ(block_with(doc, u"Un"_s).text(), u"Un"_s);  // the label is the list's
    EXPECT_NE(block_with(doc, u"Un"_s).textList(), block_with(doc, u"Puce"_s).textList());

    QTextDocument back;
    round_trip(doc, back);
    EXPECT_EQ(back.toPlainText(), doc.toPlainText());
    for (const QTextDocument* d : std::initializer_list<const QTextDocument*>{&doc, &back}) {
        EXPECT_EQ(lists_with(*d, {u"Un"_s, u"Premier"_s, u"Puce"_s, u"Lettre"_s}),
                  QList({std::pair(int(QTextListFormat::ListDisc), 2), std::pair(int(QTextListFormat::ListDecimal), 2),
                         std::pair(int(QTextListFormat::ListDisc), 2),
                         std::pair(int(QTextListFormat::ListLowerAlpha), 1)}));
        const QTextBlock last = block_with(*d, u"barré"_s);
        EXPECT_EQ(last.text(), u"barré H2O m2"_s);
        EXPECT_NEAR(last.blockFormat().textIndent(), units_from_twips(567), 0.01);
        EXPECT_NEAR(last.blockFormat().topMargin(), units_from_twips(240), 0.01);
        EXPECT_NEAR(last.blockFormat().bottomMargin(), units_from_twips(120), 0.01);
        EXPECT_EQ(last.blockFormat().lineHeightType(), int(QTextBlockFormat::ProportionalHeight));
        EXPECT_NEAR(last.blockFormat().lineHeight(), 150, 0.01);
        QStringList marks;
        for (auto it = last.begin(); !it.atEnd(); ++it) {
            const QTextCharFormat c = it.fragment().charFormat();
            marks << it.fragment().text() + (c.fontStrikeOut() ? u" strike"_s : QString()) +
                         (c.verticalAlignment() != QTextCharFormat::AlignNormal ? u" shifted"_s : QString());
        }
        EXPECT_EQ(marks, QStringList({"barré strike", " H", "2 shifted", "O m", "2 shifted"}));
    }
}

TEST_F(RtfLayout, TagSplitOverThreeRunsIsReplacedInTheFormatOfItsFirstCharacter)
{
    // As Word leaves it after a spelling check: the tag cut into runs, with a
    // bookmark between two of them.
    const QByteArray rtf =
        "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}{\\f1 Times;}}"
        "Club : {\\b\\f1 <NOM}{\\i _CL}{\\*\\bkmkstart x}{\\ul UB>}{\\bkmkend x} fin\\par}";
    RichBox rich;
    ASSERT_TRUE(read_rtf(rtf, rich.document()));
    ASSERT_TRUE(RemplacerBalise(rich, u"<NOM_CLUB>"_s, u"Dauphins"_s));
    EXPECT_EQ(rich.text(), u"Club : Dauphins fin"_s);
    EXPECT_EQ(run_with(rich.document(), u"Dauphins"_s).text, u"Dauphins"_s);
    EXPECT_EQ(look(rich.document(), u"Dauphins"_s), u"Times 12 bold"_s);
}

TEST_F(RtfLayout, PageHeaderAndFooterFromWordAreReadAndWrittenBack)
{
    const QByteArray rtf =
        "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}\\paperw16838\\paperh11906"
        "\\margl720\\margr720\\margt1080\\margb1080\\landscape\\sectd\\headery500\\footery400"
        "{\\headerl gauche\\par}{\\header {\\b Club} <NOM_CLUB>{\\pict\\pngblip " +
        solid_png(4, 4, Qt::red).toHex() +
        "}\\par}{\\footer Page\\par}{\\header second\\par}"
        "\\titlepg{\\headerf Premi\\'e8re <NOM_CLUB>\\par}Corps\\par}";
    RichBox rich;
    QTemporaryDir dir;
    const QString path = dir.filePath(u"paysage.rtf"_s);
    ASSERT_TRUE(write_bytes(path, rtf));
    ASSERT_TRUE(rich.LoadFile(path));
    EXPECT_EQ(rich.text(), u"Corps"_s);
    const QString header = u"Club <NOM_CLUB>"_s + QChar(QChar::ObjectReplacementCharacter);
    EXPECT_EQ(rich.page_layout().pageSize().id(), QPageSize::A4);
    EXPECT_NEAR(rich.page_layout().margins(QPageLayout::Point).top(), 54, 0.01);
    EXPECT_NEAR(rich.page_setup().header_distance, 25, 0.01);
    RemplacerBaliseEnTete(rich, u"<NOM_CLUB>"_s, u"CN Brest"_s);
    EXPECT_EQ(rich.first_header().toPlainText(), u"Première CN Brest"_s);
    EXPECT_EQ(rich.header().toPlainText(), u"Club CN Brest"_s + QChar(QChar::ObjectReplacementCharacter));
    RemplacerBaliseEnTete(rich, u"CN Brest"_s, u"<NOM_CLUB>"_s);

    // The convocation copies the template for each swimmer, page and all; the
    // copy saved and read again keeps it too.
    RichBox copy, back;
    copy.copy_from(rich);
    ASSERT_TRUE(copy.SaveFile(path));
    ASSERT_TRUE(back.LoadFile(path));
    EXPECT_NEAR(back.page_layout().margins(QPageLayout::Point).left(), 36, 0.01);
    EXPECT_NEAR(back.page_setup().footer_distance, 20, 0.01);
    EXPECT_TRUE(run_with(back.header(), u"Club"_s).bold);
    for (RichBox* box : {&rich, &copy, &back}) {
        EXPECT_EQ(box->header().toPlainText(), header);
        const auto logo = pictures_of(box->header());
        ASSERT_EQ(logo.size(), 1u);
        EXPECT_EQ(logo[0].bytes, pictures_of(rich.header())[0].bytes);
        EXPECT_EQ(box->footer().toPlainText(), u"Page"_s);
        EXPECT_EQ(box->page_layout().orientation(), QPageLayout::Landscape);
        // The first page's own header; no first-page footer: none on that page.
        ASSERT_TRUE(box->page_setup().first_page_differs && box->page_setup().first_header);
        EXPECT_EQ(box->page_setup().first_header->toPlainText(), u"Première <NOM_CLUB>"_s);
        EXPECT_FALSE(box->page_setup().first_footer);
    }
}

}  // namespace
}  // namespace plouvarine::testing
