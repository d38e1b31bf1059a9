#pragma once
// One method's work with its trace: an error that escapes it (a base that
// will not open, a statement that fails, a bad line) is written to the trace
// as "Erreur : " and its text, and the method gives false.

#include "components/exchange/trace.h"

#include <QString>
#include <functional>

namespace plouvarine::exchange {

// An import that fails adds kImportCancelled: its transaction left the base
// as it was.
inline const QString kImportCancelled = QStringLiteral("Import annulé : la base est restée telle qu'elle était.");
bool traced_run(const QString& trace_file, const std::function<bool(Trace&)>& work, bool import = false);

// Runs the work of one line of a file; an error of the base in it is told
// with the line's number.
void at_line(int line, const std::function<void()>& work);

}  // namespace plouvarine::exchange
