#include "src/results/perf_commands.h"

#include "src/frame/app_context.h"
#include "src/results/ajout_perf.h"
#include "src/results/view_perf.h"

namespace plouvarine {

void install_perf_commands(AppContext& app)
{
    app.commands.add(QStringLiteral("mnuPerfView"), [](AppContext& a) { OuvrirViewPerf(a); });
    app.commands.add(QStringLiteral("mnuPerfAjout"), [](AppContext& a) { OuvrirAjoutPerf(a); });
    app.commands.add(QStringLiteral("mnuPerfAjoutRelais"), [](AppContext& a) { OuvrirAjoutPerfRelais(a); });
}

}  // namespace plouvarine
