#pragma once
// The windows of the pool register: Frm_liste_piscine and det_Piscine.

namespace plouvarine::gui {

void register_pool_windows();

}  // namespace plouvarine::gui
