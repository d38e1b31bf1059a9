#pragma once
// edite_perfs: the performance history as it stands in LsvPerf, written on
// the template "sperf" in fixed-width lines, with its legend; printed, or
// saved as rich text.

#include <QString>

namespace plouvarine {

class AppContext;
class FrmViewPerf;
class RichBox;

// Writes the report into `rich`, which holds the loaded template.
void ecrit_perfs(AppContext& app, FrmViewPerf& view, RichBox& rich);

// Prints (`print`) or saves to `path`. False when nothing was printed or
// written: the template failed, the printer was cancelled, the file could not
// be written (with the message shown).
bool edite_perfs(AppContext& app, FrmViewPerf& view, bool print, const QString& path);

}  // namespace plouvarine
