#pragma once
// The windows of the licences: the licence list and the licence detail. Each
// draws its view of src/licences and forwards clicks, keys and typing to it.
// Widgets carry the control names ("lsv_licence", "text1_0", "Cb_licence"...).

namespace plouvarine::gui {

// Registers frm_liste_licence and det_licence by view name.
void register_licence_windows();

}  // namespace plouvarine::gui
