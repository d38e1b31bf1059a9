#include "clubs/club_hooks.h"

#include "clubs/dem_info.h"
#include "clubs/utils_club.h"
#include "clubs/utils_profils.h"
#include "frame/app_context.h"
#include "frame/keywords.h"

namespace plouvarine {

void install_club_hooks(AppContext& app)
{
    app.hooks.check_club = [](AppContext& a) {
        if (ExisteClubVisible(a) != 0)
            return;
        DemInfo first(a, QString(DemInfo::kObliName), QString(keyword::kNouveau));
        if (first.register_window())
            a.ui.show_modal(first);
    };
    app.hooks.read_profile = [](AppContext& a) { read_profile(a, true); };
}

}  // namespace plouvarine
