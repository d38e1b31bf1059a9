#include "gui/all_windows.h"

#include "gui/clubs/club_windows.h"
#include "gui/clubs/mon_club_window.h"
#include "gui/clubs/pool_windows.h"
#include "gui/competitions/competition_windows.h"
#include "gui/entries/convocation_window.h"
#include "gui/entries/engag_window.h"
#include "gui/entries/model_windows.h"
#include "gui/entries/relay_window.h"
#include "gui/frame/attente_window.h"
#include "gui/frame/date_windows.h"
#include "gui/licences/licence_windows.h"
#include "gui/results/result_window.h"
#include "gui/records/record_windows.h"
#include "gui/tools/tool_windows.h"
#include "gui/results/perf_windows.h"

namespace plouvarine::gui {

void register_all_windows()
{
    register_club_windows();
    register_mon_club_window();
    register_pool_windows();
    register_date_windows();
    register_attente_window();
    register_licence_windows();
    register_competition_windows();
    register_engag_window();
    register_relay_window();
    register_convocation_window();
    register_result_window();
    register_record_windows();
    register_tool_windows();
    register_model_windows();
    register_perf_windows();
}

}  // namespace plouvarine::gui
