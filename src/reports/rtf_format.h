#pragma once
// What the RTF reader marks in a document for the writer.

#include <QTextFormat>

namespace plouvarine {

// The empty paragraph that a document keeps before a table that opens it:
// it takes no room and is not written.
constexpr int kLeadingBlock = QTextFormat::UserProperty + 1;

}  // namespace plouvarine
