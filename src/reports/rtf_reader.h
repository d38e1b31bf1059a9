#pragma once
// Reading Rich Text Format into a QTextDocument.
//
// The reader takes what word processors write (WordPad, Word, LibreOffice):
// the font and colour tables, character attributes (font, size, bold, italic,
// underline, colour), paragraphs with their alignment, indents and tab stops,
// tabs, line and page breaks, 8-bit text in the document's code page and
// Unicode characters with their fallback skipped. Destinations that carry no
// body text (information block, style sheet, pictures, headers, ignorable
// "{\*...}" groups) are passed over. A damaged file gives what could be read
// up to the damage; only data that is not RTF at all is refused.

#include <QByteArray>
#include <QString>

class QTextDocument;

namespace plouvarine {

// Replaces the content of `document` by the RTF `data`. False, with the reason
// in `error`, when the data is empty or does not open with "{\rtf".
bool read_rtf(const QByteArray& data, QTextDocument& document, QString* error = nullptr);

// Reads the file at `path` into `document`; false with the reason when the file
// cannot be read or is no RTF.
bool load_rtf_file(const QString& path, QTextDocument& document, QString* error = nullptr);

}  // namespace plouvarine
