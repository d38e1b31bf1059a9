#pragma once
// Reading Rich Text Format into a QTextDocument.
//
// The reader takes what word processors write (WordPad, Word, LibreOffice):
// the font and colour tables, character attributes (font, size, bold, italic,
// underline, strike-through, superscript and subscript, colour), paragraphs
// with their alignment, indents, spacing and tab stops, bulleted and numbered
// lists, tables with their column widths, borders and merged cells, PNG and
// JPEG pictures at their size, tabs, line and page breaks, 8-bit text in the
// document's code page and Unicode characters with their fallback skipped.
// The page, its header and its footer are given apart. Destinations that carry
// no body text (information block, style sheet, ignorable "{\*...}" groups)
// are passed over. A damaged file gives what could be read up to the damage;
// only data that is not RTF at all is refused.

#include "src/base/page_setup.h"

#include <QByteArray>
#include <array>
#include <QString>
#include <QStringList>

class QTextDocument;

namespace plouvarine {

// What an RTF file holds beside its body.
struct RtfExtras {
    // Filled with the header and the footer when not null.
    QTextDocument* header = nullptr;
    QTextDocument* footer = nullptr;
    bool has_header = false;
    bool has_footer = false;
    // The first page's own header and footer (\titlepg, \headerf, \footerf).
    QTextDocument* first_header = nullptr;
    QTextDocument* first_footer = nullptr;
    bool first_page_differs = false;
    std::array<QTextDocument*, 4> parts() const { return {header, footer, first_header, first_footer}; }
    // The page; invalid when the file gives no paper size.
    QPageLayout layout;
    qreal header_distance = 36;  // points
    qreal footer_distance = 36;
    // One line for each thing of the file that was left out (a picture in a
    // format that cannot be drawn).
    QStringList notes;
};

// Replaces the content of `document` by the RTF `data`. False, with the reason
// in `error`, when the data is empty or does not open with "{\rtf".
bool read_rtf(const QByteArray& data, QTextDocument& document, QString* error = nullptr,
              RtfExtras* extras = nullptr);

// Reads the file at `path` into `document`; false with the reason when the file
// cannot be read or is no RTF.
bool load_rtf_file(const QString& path, QTextDocument& document, QString* error = nullptr,
                   RtfExtras* extras = nullptr);

}  // namespace plouvarine
