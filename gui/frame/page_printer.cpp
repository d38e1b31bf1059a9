#include "gui/frame/page_printer.h"

#include "src/base/doc_units.h"

#include <QAbstractTextDocumentLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextDocument>
#include <QTextFrame>

#include <algorithm>
#include <memory>

namespace plouvarine::gui {

namespace {

// A copy of `source` laid out `width` wide, with no margin of its own: the
// page gives the margins. It keeps the document's own unit, in which its
// indents, tab stops, spacing, pictures and tables are all counted; laid out
// on the printer instead, Qt would scale some of them to its resolution and
// leave the others as they are.
std::unique_ptr<QTextDocument> laid_out(const QTextDocument& source, qreal width)
{
    std::unique_ptr<QTextDocument> copy(source.clone());
    QTextFrameFormat root = copy->rootFrame()->frameFormat();
    root.setMargin(0);
    copy->rootFrame()->setFrameFormat(root);
    copy->setTextWidth(width);
    return copy;
}

// Draws `document` with its top left corner `at`, in the document's unit,
// scaled to the device.
void draw(QPainter& painter, QTextDocument& document, const QPointF& at, const QRectF& clip)
{
    painter.save();
    const QPaintDevice& device = *painter.device();
    painter.scale(device.logicalDpiX() / kUnitsPerInch, device.logicalDpiY() / kUnitsPerInch);
    painter.translate(at);
    painter.setClipRect(clip);
    QAbstractTextDocumentLayout::PaintContext context;
    // A dot inside the page: a line pushed to the next page still belongs to a
    // block that began on this one, and would be drawn, out of sight, on both.
    context.clip = clip.adjusted(0, 1, 0, -1);
    context.palette.setColor(QPalette::Text, Qt::black);
    document.documentLayout()->draw(&painter, context);
    painter.restore();
}

}  // namespace

void print_pages(QPagedPaintDevice& device, const QTextDocument& document, const PageSetup& page)
{
    QPageLayout layout = page.layout.isValid() ? page.layout : device.pageLayout();
    if (!page.layout.isValid()) {
        layout.setUnits(QPageLayout::Millimeter);
        layout.setMargins(QMarginsF(20, 20, 20, 20));
    }
    const QMarginsF margins = layout.margins(QPageLayout::Millimeter);
    // The device draws on the whole sheet; the margins are kept here, where the
    // header and footer go.
    device.setPageLayout(QPageLayout(layout.pageSize(), layout.orientation(), QMarginsF(), QPageLayout::Millimeter));
    QPainter painter(&device);
    // Everything below is in the document's unit; `draw` scales it to the device.
    const qreal dots_per_mm = kUnitsPerInch / 25.4;
    const qreal pt = kUnitsPerInch / 72.0;
    const QRectF sheet = device.pageLayout().fullRect(QPageLayout::Point);
    const QSizeF paper = sheet.size() * pt;
    const qreal left = margins.left() * dots_per_mm;
    const qreal width = std::max<qreal>(1, paper.width() - (margins.left() + margins.right()) * dots_per_mm);

    const auto lay = [&](const QTextDocument* part) {
        return part ? laid_out(*part, width) : nullptr;
    };
    // The first page's own header and footer, when the template has them,
    // else the same as every page's.
    std::unique_ptr<QTextDocument> parts[2][2] = {
        {lay(page.header), lay(page.footer)},
        {page.first_page_differs ? lay(page.first_header) : lay(page.header),
         page.first_page_differs ? lay(page.first_footer) : lay(page.footer)}};
    const qreal header_top = page.header_distance * pt;
    qreal header_bottom = 0;
    qreal footer_top = paper.height();
    for (const auto& pair : parts) {
        if (pair[0])
            header_bottom = std::max(header_bottom, header_top + pair[0]->size().height() + 6 * pt);
        if (pair[1])
            footer_top = std::min(footer_top, paper.height() - page.footer_distance * pt - pair[1]->size().height());
    }
    // The body keeps clear of the headers and the footers even where the
    // template's margins are narrower than they are tall; every page has the
    // same height, for the body is cut into pages before it is drawn.
    const qreal top = std::max(margins.top() * dots_per_mm, header_bottom);
    const qreal bottom = std::min(paper.height() - margins.bottom() * dots_per_mm,
                                  footer_top < paper.height() ? footer_top - 6 * pt : paper.height());
    const qreal height = std::max<qreal>(pt * 72, bottom - top);

    std::unique_ptr<QTextDocument> body = laid_out(document, width);
    body->setPageSize(QSizeF(width, height));
    const int pages = std::max(1, body->pageCount());
    for (int i = 0; i < pages; ++i) {
        if (i > 0)
            device.newPage();
        const QRectF slice(0, i * height, width, height);
        draw(painter, *body, QPointF(left, top - slice.top()), slice);
        const auto& [header, footer] = parts[i == 0 ? 1 : 0];
        if (header)
            draw(painter, *header, QPointF(left, header_top), QRectF(QPointF(0, 0), header->size()));
        if (footer)
            draw(painter, *footer, QPointF(left, paper.height() - page.footer_distance * pt - footer->size().height()),
                 QRectF(QPointF(0, 0), footer->size()));
    }
}

}  // namespace plouvarine::gui
