#pragma once
// The menu commands of the performances: the history and the two forms of
// manual performances.

namespace plouvarine {

class AppContext;

// mnuPerfView, mnuPerfAjout, mnuPerfAjoutRelais.
void install_perf_commands(AppContext& app);

}  // namespace plouvarine
