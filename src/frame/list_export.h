#pragma once
// The tab-text export of a list as it stands on screen, shared by the results,
// the performance history and the records: what the user sees is what is
// written, the blanks that stand for empty cells included.

#include <QString>

class QAbstractItemModel;

namespace plouvarine {

// Writes `list` to `path`: the first line when not empty, then the column
// captions, then one line per row (its text and its cells), all separated by a
// tab. UTF-8 with a byte-order mark, so that a spreadsheet reads the accents;
// lines end with "\r\n". The file is replaced only once written whole. Gives
// the empty text, or the cause of the failure in French.
QString exporte_texte(const QString& path, const QAbstractItemModel& list, const QString& first_line = {});

}  // namespace plouvarine
