#include "src/tools/tool_commands.h"

#include "src/frame/app_context.h"
#include "src/tools/frm_calpts.h"
#include "src/tools/frm_caltps.h"
#include "src/tools/frm_monitor_def.h"
#include "src/tools/frm_pts_inter.h"
#include "src/tools/suivi_perf.h"

namespace plouvarine {

void install_tool_commands(AppContext& app)
{
    app.commands.add(QStringLiteral("mnuOutilsCalculTps"), [](AppContext& a) { OuvrirCalculTemps(a); });
    app.commands.add(QStringLiteral("mnuOutilsCalculPoint"), [](AppContext& a) { OuvrirCalculPoints(a); });
    app.commands.add(QStringLiteral("mnuOutilsCalculPointEquipe"), [](AppContext& a) { OuvrirPointsEquipes(a); });
    app.commands.add(QStringLiteral("mnuPerfOrdiAffiche"), [](AppContext& a) { AfficheSuivi(a); });
    app.commands.add(QStringLiteral("mnuPerfOrdiMasquer"), [](AppContext& a) { MasqueSuivi(a); });
    app.commands.add(QStringLiteral("mnuPerfOrdiTjsVisible"), [](AppContext& a) { BasculeSuiviVisible(a); });
    app.commands.add(QStringLiteral("mnuPerfOrdiParam"), [](AppContext& a) { OuvrirMonitorDef(a); });
}

void install_tool_hooks(AppContext& app)
{
    auto read = app.hooks.read_profile;
    app.hooks.read_profile = [read](AppContext& a) {
        if (read)
            read(a);
        applique_suivi_profil(a);
    };
    app.hooks.release_monitor = [](AppContext& a) { libere_suivi(a); };
}

}  // namespace plouvarine
