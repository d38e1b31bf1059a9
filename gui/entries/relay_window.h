#pragma once
// The window of frm_engag_relais: the team (cbo_team), the selection page with
// the relay events and their counts (Lst_relais, txt_nb_equipe, cmd_plus,
// cmd_moins), and the composition page with the relay events engaged
// (cbo_team_relais), the relay numbers, the swimmers of the relay
// (lsv_engag_relais), the team's members (lsv_nageurs), the entry time
// (txt_temps) and its computation (Cmd_caltps).

namespace plouvarine::gui {

// Registers frm_engag_relais by view name.
void register_relay_window();

}  // namespace plouvarine::gui
