// Templates printed to PDF, then looked at as a person would: the page rendered
// to a picture. One made in LibreOffice, filled; the indents, tab stops and
// spacing of a template's paragraphs at the size the word processor gave them.

#include "gui/frame/qt_services.h"
#include "window_test.h"
#include "src/reports/rich_text.h"
#include "support/office_template.h"
#include "support/pdf_pages.h"

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace plouvarine::testing {
namespace {

constexpr int kDpi = 72;

qreal cm(qreal value, int dpi = kDpi)
{
    return value / 2.54 * dpi;
}

bool is_logo_red(const QColor& c)
{
    return std::abs(c.red() - 200) < 30 && c.green() < 70 && c.blue() < 70;
}

bool is_ink(const QColor& c)
{
    return c.lightness() < 140;
}

// The words of a page with their left and top edges, in points.
std::vector<std::tuple<QString, qreal, qreal>> words_of(const QString& pdf)
{
    QProcess run;
    run.start(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), pdf, QStringLiteral("-")});
    run.waitForFinished(60000);
    const QString html = QString::fromUtf8(run.readAllStandardOutput());
    static const QRegularExpression word(
        QStringLiteral("<word xMin=\"([0-9.]+)\" yMin=\"([0-9.]+)\"[^>]*>([^<]*)</word>"));
    std::vector<std::tuple<QString, qreal, qreal>> out;
    for (auto it = word.globalMatch(html); it.hasNext();) {
        const auto m = it.next();
        out.emplace_back(m.captured(3), m.captured(1).toDouble(), m.captured(2).toDouble());
    }
    return out;
}

// The pages of a PDF as text, laid out.
QStringList pages_text(const QString& pdf)
{
    QProcess text;
    text.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
    text.waitForFinished(60000);
    QStringList pages = QString::fromUtf8(text.readAllStandardOutput()).split(QLatin1Char('\f'));
    if (!pages.isEmpty() && pages.last().trimmed().isEmpty())
        pages.removeLast();
    return pages;
}

// The lines of ink of a page, top to bottom: their first and last rows and
// their leftmost inked column.
struct InkLine {
    int top = 0;
    int bottom = 0;
    int left = 0;
};

std::vector<InkLine> ink_lines(const QImage& page)
{
    std::vector<InkLine> lines;
    bool in_line = false;
    for (int y = 0; y < page.height(); ++y) {
        int left = -1;
        for (int x = 0; x < page.width() && left < 0; ++x)
            if (page.pixelColor(x, y).lightness() < 128)
                left = x;
        if (left < 0) {
            in_line = false;
            continue;
        }
        if (!in_line)
            lines.push_back({y, y, left});
        in_line = true;
        lines.back().bottom = y;
        lines.back().left = std::min(lines.back().left, left);
    }
    return lines;
}

class PrintedTemplate : public ::testing::Test {
protected:
    void SetUp() override
    {
        ensure_application();
        if (QStandardPaths::findExecutable(QStringLiteral("pdftoppm")).isEmpty())
            GTEST_SKIP() << "pdftoppm is not installed";
    }
    QTemporaryDir dir;
    gui::QtServices ui;
};

TEST_F(PrintedTemplate, LogoTableHeaderAndFooterOfALibreOfficeTemplateReachThePage)
{
    const OfficeTemplate made = make_office_template(dir.path());
    if (made.rtf.isEmpty())
        GTEST_SKIP() << made.error.toStdString();
    RichBox rich;
    ASSERT_TRUE(rich.LoadFile(made.rtf));
    ASSERT_TRUE(RemplacerBalise(rich, QStringLiteral("<NOM_CLUB>"), QStringLiteral("Dauphins")));
    ASSERT_TRUE(RemplacerBalise(rich, QStringLiteral("<CODE_CLUB>"), QStringLiteral("0123456789012")));
    RemplacerBaliseEnTete(rich, QStringLiteral("<NOM_CLUB>"), QStringLiteral("Dauphins"));

    const QString pdf = dir.filePath(QStringLiteral("modele.pdf"));
    ASSERT_TRUE(ui.write_pdf(pdf, QStringLiteral("Convocation"), rich.document(), rich.page_setup()));
    const std::vector<QImage> rendered = render_pdf(pdf, kDpi);
    ASSERT_FALSE(rendered.empty());
    const QImage& page = rendered.front();
    EXPECT_NEAR(page.width(), cm(21), 2);  // A4 portrait, as the template says
    EXPECT_NEAR(page.height(), cm(29.7), 2);

    // The logo: red, 4 cm by 2 cm, at the left margin of the body.
    QRect logo;
    for (int y = 0; y < page.height(); ++y)
        for (int x = 0; x < page.width(); ++x)
            if (is_logo_red(page.pixelColor(x, y)))
                logo |= QRect(x, y, 1, 1);
    ASSERT_FALSE(logo.isNull()) << "no logo on the page";
    EXPECT_NEAR(logo.width(), cm(4), 3);
    EXPECT_NEAR(logo.height(), cm(2), 3);
    EXPECT_GT(logo.left(), cm(2.5));
    EXPECT_LT(logo.left(), cm(6));
    EXPECT_TRUE(is_logo_red(page.pixelColor(logo.center())));

    // The table's cells apart: the club's name in the second column, 4 cm to
    // the right of the first, with the line between them.
    const auto words = words_of(pdf);
    // The lowest place of a word on the page.
    const auto find = [&](const QString& text) {
        QPointF at(-1, -1);
        for (const auto& [w, x, y] : words)
            if (w == text && y > at.y())
                at = QPointF(x, y);
        EXPECT_GE(at.y(), 0) << "no word " << text.toStdString();
        return at;
    };
    const QPointF club = find(QStringLiteral("Club"));
    const QPointF name = find(QStringLiteral("Dauphins"));
    const QPointF code = find(QStringLiteral("0123456789012"));
    EXPECT_NEAR(name.y(), club.y(), 2);
    EXPECT_NEAR(name.x() - club.x(), cm(4), 10);
    EXPECT_NEAR(code.x(), name.x(), 1);
    EXPECT_GT(code.y(), name.y() + 5);
    EXPECT_GT(club.y(), logo.bottom());
    bool line = false;
    for (int x = int(name.x()) - 12; x < int(name.x()); ++x)
        line = line || is_ink(page.pixelColor(x, int(name.y()) + 4));
    EXPECT_TRUE(line) << "no border between the cells";

    // The header above the body, the footer at the foot of the page.
    const QPointF header = find(QStringLiteral("En-tête"));
    const QPointF footer = find(QStringLiteral("Pied"));
    EXPECT_LT(header.y(), logo.top());
    EXPECT_GT(footer.y(), page.height() - cm(3));

    // A letter over several pages: the header and the footer on each, every
    // line of the body once, none lost or doubled where a page ends.
    rich.move_to_end();
    for (int i = 1; i <= 150; ++i)
        EcrireTexte(rich, QStringLiteral("\nLigne%1 du corps").arg(i));
    ASSERT_TRUE(ui.write_pdf(pdf, QStringLiteral("Convocation"), rich.document(), rich.page_setup()));
    QStringList pages = pages_text(pdf);
    ASSERT_GE(pages.size(), 3);
    QString body;
    for (const QString& one : pages) {
        EXPECT_TRUE(one.contains(QStringLiteral("En-tête du Dauphins")));
        EXPECT_TRUE(one.contains(QStringLiteral("Pied de page du club")));
        body += one;
    }
    for (int i = 1; i <= 150; ++i)
        EXPECT_EQ(body.count(QStringLiteral("Ligne%1 ").arg(i)), 1) << i;

    // A first page of its own: its header there, no footer there, the others after.
    PageSetup first_page = rich.page_setup();
    QTextDocument letterhead;
    letterhead.setPlainText(QStringLiteral("Papier à en-tête"));
    first_page.first_page_differs = true;
    first_page.first_header = &letterhead;
    ASSERT_TRUE(ui.write_pdf(pdf, QStringLiteral("Convocation"), rich.document(), first_page));
    pages = pages_text(pdf);
    ASSERT_GE(pages.size(), 3);
    EXPECT_TRUE(pages[0].contains(QStringLiteral("Papier à en-tête")));
    EXPECT_FALSE(pages[0].contains(QStringLiteral("En-tête du")) || pages[0].contains(QStringLiteral("Pied de page")));
    EXPECT_TRUE(pages[1].contains(QStringLiteral("En-tête du")) && pages[1].contains(QStringLiteral("Pied de page")));
    EXPECT_FALSE(pages[1].contains(QStringLiteral("Papier")));

    // A landscape template prints on landscape sheets, at its own left margin.
    PageSetup landscape = rich.page_setup();
    landscape.layout = QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF(40, 30, 40, 30),
                                   QPageLayout::Millimeter);
    ASSERT_TRUE(ui.write_pdf(pdf, QStringLiteral("Convocation"), rich.document(), landscape));
    const std::vector<QImage> wide_pages = render_pdf(pdf, kDpi);
    ASSERT_FALSE(wide_pages.empty());
    const QImage& wide = wide_pages.front();
    EXPECT_NEAR(wide.width(), cm(29.7), 2);
    EXPECT_NEAR(wide.height(), cm(21), 2);
    const auto first_words = words_of(pdf);
    ASSERT_FALSE(first_words.empty());
    EXPECT_NEAR(std::get<1>(first_words.front()), cm(4), 2);  // the header's first word
}

TEST_F(PrintedTemplate, IndentsTabStopsAndSpacingOfTheTemplatePrintAtTheirSize)
{
    constexpr int kIndentDpi = 96;
    // A4 with margins of 2 cm (1134 twips); 2 cm of left indent, 3 cm more on
    // the first line, a tab stop at 10 cm, 2 cm of space before the last paragraph.
    const QString path = dir.filePath(QStringLiteral("retraits.rtf"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\fswiss Arial;}}"
               "\\paperw11906\\paperh16838\\margl1134\\margr1134\\margt1134\\margb1134\n"
               "\\pard\\li1134\\fs24 HHHH\\par\n"
               "\\pard\\li1134\\fi1701 HHHH\\par\n"
               "\\pard\\tx5669\\tab HHHH\\par\n"
               "\\pard\\sb1134 HHHH\\par}");
    file.close();
    RichBox rich;
    ASSERT_TRUE(rich.LoadFile(path));

    const QString pdf = dir.filePath(QStringLiteral("retraits.pdf"));
    ASSERT_TRUE(ui.write_pdf(pdf, QStringLiteral("Retraits"), rich.document(), rich.page_setup()));
    const std::vector<QImage> pages = render_pdf(pdf, kIndentDpi);
    ASSERT_FALSE(pages.empty());
    const std::vector<InkLine> lines = ink_lines(pages.front());
    ASSERT_EQ(lines.size(), 4u);
    // From the sheet's left edge: the 2 cm margin, then the paragraph's own.
    EXPECT_NEAR(lines[0].left, cm(2 + 2, kIndentDpi), 3);
    EXPECT_NEAR(lines[1].left, cm(2 + 2 + 3, kIndentDpi), 3);
    EXPECT_NEAR(lines[2].left, cm(2 + 10, kIndentDpi), 3);
    // The space before the last paragraph, less the leading that a line has
    // over its capitals anyway.
    const int gap = lines[3].top - lines[2].bottom;
    EXPECT_GT(gap, cm(2, kIndentDpi));
    EXPECT_LT(gap, cm(2, kIndentDpi) + cm(0.5, kIndentDpi));
}

}  // namespace
}  // namespace plouvarine::testing
