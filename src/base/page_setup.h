#pragma once
// How a document goes on paper: the page with its orientation and margins, and
// the header and footer drawn on every page.

#include <QPageLayout>

class QTextDocument;

namespace plouvarine {

struct PageSetup {
    // Invalid: the printer's own page, with margins of 2 cm.
    QPageLayout layout;
    // Drawn at the top and at the bottom of every page, when given.
    const QTextDocument* header = nullptr;
    const QTextDocument* footer = nullptr;
    // With `first_page_differs`, the first page has these instead (none when null).
    bool first_page_differs = false;
    const QTextDocument* first_header = nullptr;
    const QTextDocument* first_footer = nullptr;
    // From the page's top edge to the header, and from the page's bottom edge
    // to the footer's last line, in points.
    qreal header_distance = 36;
    qreal footer_distance = 36;
};

}  // namespace plouvarine
