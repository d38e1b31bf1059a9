#include "src/clubs/club_hooks.h"

#include "src/clubs/dem_info.h"
#include "src/clubs/utils_club.h"
#include "src/clubs/utils_profils.h"
#include "src/frame/app_context.h"
#include "src/frame/keywords.h"

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
