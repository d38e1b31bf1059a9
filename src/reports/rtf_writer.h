#pragma once
// Writing a QTextDocument as Rich Text Format, in the form word processors
// read: a font table, a colour table, the page with its header and footer,
// then one paragraph per block with its alignment, indents, spacing, tab stops
// and list label, runs with their font, size, bold, italic, underline,
// strike-through, superscript or subscript and colour, tables row by row with
// their cells' widths, borders and merges, and pictures as the PNG or JPEG
// data they were read from. Text outside Windows-1252 goes as \uN with a "?"
// for readers that do not know Unicode.

#include "src/base/page_setup.h"

#include <QByteArray>
#include <QString>

class QTextDocument;

namespace plouvarine {

// The document as RTF, with the page of `page` when given.
QByteArray write_rtf(const QTextDocument& document, const PageSetup* page = nullptr);

// Writes the document to `path`. The file is written beside the target and
// renamed over it, so that a failure leaves the old file whole. False, with
// the reason in `error`, when the file cannot be written.
bool save_rtf_file(const QTextDocument& document, const QString& path, QString* error = nullptr,
                   const PageSetup* page = nullptr);

}  // namespace plouvarine
