#pragma once
// The window of frm_engag: cbo_team, the team's swimmers (lsv_engag), the
// panel of events with their time, place, date and pool, and on the right the
// swimmers who can be added, with the search field txt_search.

namespace plouvarine::gui {

// Registers frm_engag by view name.
void register_engag_window();

}  // namespace plouvarine::gui
