#pragma once
// Every window of the program, registered by the name of its view.

namespace plouvarine::gui {

// Registers the windows of every subject; the program and the window tests call it once.
void register_all_windows();

}  // namespace plouvarine::gui
