#pragma once

namespace plouvarine::gui {

// frm_liste_modele and det_modele_obli.
void register_model_windows();

}  // namespace plouvarine::gui
