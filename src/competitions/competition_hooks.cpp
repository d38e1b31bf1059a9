#include "src/competitions/competition_hooks.h"

#include "src/competitions/utils_compet.h"
#include "src/frame/app_context.h"

namespace plouvarine {

void install_competition_hooks(AppContext& app)
{
    app.hooks.competitions_rollover = [](AppContext& a) {
        // A base that cannot be brought up to date opens all the same; the
        // next opening tries again.
        try {
            MajCompetitions(a);
        } catch (const std::exception&) {
        }
    };
}

}  // namespace plouvarine
