#pragma once
// The windows of the clubs and profiles: each draws its view of src/clubs and
// forwards clicks, keys and typing to it. Widgets carry the control names.

namespace plouvarine::gui {

// Registers the club, profile, country and code-help windows by view name.
void register_club_windows();

}  // namespace plouvarine::gui
