#include "src/frame/unavailable.h"

#include "src/frame/app_context.h"

namespace plouvarine {

namespace {

// "Rapport cotisation", "Records / Importer" and "Records / Consulter" stand in
// the menu with no action at all, and are not listed here.
constexpr const char* kToCome[] = {
    // Imports and exports.
    "mnuBaseClubImport", "mnuBaseClubExport", "mnuLicImport", "mnuLicMaj", "mnuLicExp",
    // Performances.
    "mnuPerfImpor", "mnuPerfAjout", "mnuPerfAjoutRelais", "mnuPerfView", "mnuPerfExporter",
};

}  // namespace

void not_available(AppContext& app)
{
    msg_info(app.ui, kNotAvailable);
}

void install_unavailable_commands(AppContext& app)
{
    for (const char* name : kToCome)
        app.commands.add(QLatin1String(name), not_available);
}

}  // namespace plouvarine
