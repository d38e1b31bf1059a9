#include "src/subjects.h"

#include "src/clubs/club_commands.h"
#include "src/clubs/club_hooks.h"
#include "src/competitions/competition_hooks.h"
#include "src/competitions/handoff.h"
#include "src/competitions/utils_compet.h"
#include "src/entries/convo_bordereau.h"
#include "src/entries/frm_engag.h"
#include "src/entries/frm_engag_relais.h"
#include "src/entries/liste_modele.h"
#include "src/licences/season_maintenance.h"
#include "src/licences/utils_licences.h"
#include "src/results/result_commands.h"
#include "src/records/frm_view_record.h"
#include "src/tools/tool_commands.h"
#include "src/results/perf_commands.h"

namespace plouvarine {

void install_subject_hooks(AppContext& app)
{
    install_club_hooks(app);
    install_licence_hooks(app);
    install_competition_hooks(app);
    install_tool_hooks(app);
}

void install_subject_commands(AppContext& app)
{
    install_club_commands(app);
    install_licence_commands(app);
    install_competition_commands(app);
    // The competition list's doors to the entries and the relays.
    install_entries_handoff();
    install_relay_handoff();
    // Its doors to the entry files and the results import.
    install_exchange_doors();
    install_print_handoff();
    install_result_commands(app);
    // The club's records and their bands.
    install_record_commands(app);
    install_tool_commands(app);
    install_model_commands(app);
    install_perf_commands(app);
}

}  // namespace plouvarine
