#pragma once
// Writing a QTextDocument as Rich Text Format, in the form word processors
// read: a font table, a colour table, then one paragraph per block with its
// alignment, indents and tab stops, and runs with their font, size, bold,
// italic, underline and colour. Text outside Windows-1252 goes as \uN with a
// "?" for readers that do not know Unicode.

#include <QByteArray>
#include <QString>

class QTextDocument;

namespace plouvarine {

QByteArray write_rtf(const QTextDocument& document);

// Writes the document to `path`. The file is written beside the target and
// renamed over it, so that a failure leaves the old file whole. False, with
// the reason in `error`, when the file cannot be written.
bool save_rtf_file(const QTextDocument& document, const QString& path, QString* error = nullptr);

}  // namespace plouvarine
