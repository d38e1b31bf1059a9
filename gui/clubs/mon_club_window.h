#pragma once
// The window det_mon_club: the own club's four tabs.

namespace plouvarine::gui {

void register_mon_club_window();

}  // namespace plouvarine::gui
