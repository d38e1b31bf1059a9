#pragma once
// The windows of the competition register: the list Frm_liste_compet and the
// detail det_compet. Each draws its view of src/competitions and forwards
// clicks, keys and typing to it. Widgets carry the control names
// ("lsv_compet", "text1_0", "Option1_1", "Cb_couloir"...).

namespace plouvarine::gui {

// Registers Frm_liste_compet and det_compet by view name.
void register_competition_windows();

}  // namespace plouvarine::gui
