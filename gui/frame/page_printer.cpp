#include "gui/frame/page_printer.h"

#include <QAbstractTextDocumentLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextDocument>
#include <QTextFrame>

#include <algorithm>
#include <memory>

namespace plouvarine::gui {

namespace {

// A copy of `source` laid out for `device` at `width` device pixels, with no
// margin of its own: the page gives the margins.
std::unique_ptr<QTextDocument> laid_out(const QTextDocument& source, QPaintDevice& device, qreal width)
{
    std::unique_ptr<QTextDocument> copy(source.clone());
    copy->documentLayout()->setPaintDevice(&device);
    QTextFrameFormat root = copy->rootFrame()->frameFormat();
    root.setMargin(0);
    copy->rootFrame()->setFrameFormat(root);
    copy->setTextWidth(width);
    return copy;
}

void draw(QPainter& painter, QTextDocument& document, const QPointF& at, const QRectF& clip)
{
    painter.save();
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
    const qreal dots_per_mm = device.logicalDpiY() / 25.4;
    const QRectF sheet = device.pageLayout().fullRectPixels(device.logicalDpiX());
    const qreal left = margins.left() * dots_per_mm;
    const qreal width = std::max<qreal>(1, sheet.width() - (margins.left() + margins.right()) * dots_per_mm);
    const qreal pt = device.logicalDpiY() / 72.0;

    std::unique_ptr<QTextDocument> header = page.header ? laid_out(*page.header, device, width) : nullptr;
    std::unique_ptr<QTextDocument> footer = page.footer ? laid_out(*page.footer, device, width) : nullptr;
    const qreal header_top = page.header_distance * pt;
    const qreal header_bottom = header ? header_top + header->size().height() : 0;
    const qreal footer_height = footer ? footer->size().height() : 0;
    const qreal footer_top = sheet.height() - page.footer_distance * pt - footer_height;
    // The body keeps clear of the header and the footer even where the
    // template's margins are narrower than they are tall.
    const qreal top = std::max(margins.top() * dots_per_mm, header ? header_bottom + 6 * pt : 0);
    const qreal bottom = std::min(sheet.height() - margins.bottom() * dots_per_mm,
                                  footer ? footer_top - 6 * pt : sheet.height());
    const qreal height = std::max<qreal>(pt * 72, bottom - top);

    std::unique_ptr<QTextDocument> body = laid_out(document, device, width);
    body->setPageSize(QSizeF(width, height));
    const int pages = std::max(1, body->pageCount());
    for (int i = 0; i < pages; ++i) {
        if (i > 0)
            device.newPage();
        const QRectF slice(0, i * height, width, height);
        draw(painter, *body, QPointF(left, top - slice.top()), slice);
        if (header)
            draw(painter, *header, QPointF(left, header_top), QRectF(QPointF(0, 0), header->size()));
        if (footer)
            draw(painter, *footer, QPointF(left, footer_top), QRectF(QPointF(0, 0), footer->size()));
    }
}

}  // namespace plouvarine::gui
