// The indents, tab stops and spacing of a template's paragraphs printed at the
// size the word processor gave them, measured on the rendered page.

#include "gui/frame/qt_services.h"
#include "gui_application.h"
#include "src/reports/rich_text.h"
#include "support/pdf_pages.h"

#include <QFile>
#include <QImage>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace plouvarine::testing {
namespace {

constexpr int kDpi = 96;

qreal cm(qreal value)
{
    return value / 2.54 * kDpi;
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

TEST(PrintedIndents, IndentsTabStopsAndSpacingOfTheTemplatePrintAtTheirSize)
{
    ensure_application();
    if (QStandardPaths::findExecutable(QStringLiteral("pdftoppm")).isEmpty())
        GTEST_SKIP() << "pdftoppm is not installed";
    QTemporaryDir dir;
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
    gui::QtServices ui;
    ASSERT_TRUE(ui.write_pdf(pdf, QStringLiteral("Retraits"), rich.document(), rich.page_setup()));
    const std::vector<QImage> pages = render_pdf(pdf, kDpi);
    ASSERT_FALSE(pages.empty());
    const std::vector<InkLine> lines = ink_lines(pages.front());
    ASSERT_EQ(lines.size(), 4u);
    // From the sheet's left edge: the 2 cm margin, then the paragraph's own.
    EXPECT_NEAR(lines[0].left, cm(2 + 2), 3);
    EXPECT_NEAR(lines[1].left, cm(2 + 2 + 3), 3);
    EXPECT_NEAR(lines[2].left, cm(2 + 10), 3);
    // The space before the last paragraph, less the leading that a line has
    // over its capitals anyway.
    const int gap = lines[3].top - lines[2].bottom;
    EXPECT_GT(gap, cm(2));
    EXPECT_LT(gap, cm(2) + cm(0.5));
}

}  // namespace
}  // namespace plouvarine::testing
