#pragma once
// Drawing a document on the pages of a printer or a PDF file: the page of the
// template with its margins and orientation, the header and the footer on
// every page, the body cut into pages between them.

#include "src/base/page_setup.h"

class QPagedPaintDevice;
class QTextDocument;

namespace plouvarine::gui {

void print_pages(QPagedPaintDevice& device, const QTextDocument& document, const PageSetup& page);

}  // namespace plouvarine::gui
