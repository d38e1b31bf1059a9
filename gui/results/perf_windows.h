#pragma once
// The windows of the performances: the history, the progression chart and
// the two forms of manual performances.

namespace plouvarine::gui {

void register_perf_view_window();
void register_perf_chart_window();
void register_perf_ajout_windows();

// All four, by view name.
void register_perf_windows();

}  // namespace plouvarine::gui
