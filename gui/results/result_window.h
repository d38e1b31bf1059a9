#pragma once
// The window of frm_view_result: the competitions, their events with tick
// boxes and "Afficher toutes les nages", the options frame with its three
// commands, the results list with "Epreuve :", and the commands Voir,
// Imprimer, Exporter and Quitter.

namespace plouvarine::gui {

// Registers frm_view_result by view name.
void register_result_window();

}  // namespace plouvarine::gui
