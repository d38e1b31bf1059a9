#include "src/frame/unavailable.h"

#include "src/frame/app_context.h"

namespace plouvarine {

namespace {

// "Rapport cotisation", "Records / Importer" and "Records / Consulter" stand in
// the menu with no action at all, and are not listed here.
constexpr const char* kToCome[] = {
    // Imports and exports.
    "mnuBaseClubImport", "mnuBaseClubExport", "mnuLicImport", "mnuLicMaj", "mnuLicExp",
    // Results.
    "mnuCompetVoirResult",
    // Models of entries and of programmes.
    "mnuModeleEngagNew", "mnuModeleEngagView", "mnuModeleEngagModif", "mnuModeleEngagSuppr",
    "mnuModeleProgNew", "mnuModeleProgView", "mnuModeleProgModif", "mnuModeleProgSuppr",
    // Performances and the club's records.
    "mnuPerfImpor", "mnuPerfExporter",
    "mnuPerfRecView", "mnuPerfRecModifier",
    // Calculators and the performance monitor.
    "mnuOutilsCalculTps", "mnuOutilsCalculPoint", "mnuOutilsCalculPointEquipe",
    "mnuPerfOrdiAffiche", "mnuPerfOrdiMasquer", "mnuPerfOrdiParam", "mnuPerfOrdiTjsVisible",
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
