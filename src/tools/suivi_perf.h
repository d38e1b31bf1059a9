#pragma once
// The performance monitor on the program's side: the menu commands that show,
// hide and keep it visible, the settings of the current profile applied at
// each opening, and its release at the end of work.

#include "src/tools/monitor_component.h"

#include <QString>

namespace plouvarine {

class AppContext;

inline const QString kSuiviNonCharge = QStringLiteral(
    "Le composant de suivi des performances n'est pas chargé.\nImpossible de récupérer les paramètres.");
inline const QString kSuiviDechargement =
    QStringLiteral("Erreur lors du déchargement de la dll de suivi des performances.");

// The running component, null while it is not loaded.
PerfMonitor* suivi_charge(AppContext& app);

// mnuPerfOrdiAffiche: creates the component on first use, then shows its
// window at the position, interval and option in memory. False, after the
// message, when there is no component.
bool AfficheSuivi(AppContext& app);
// mnuPerfOrdiMasquer
void MasqueSuivi(AppContext& app);
// mnuPerfOrdiTjsVisible: the option switched, ticked in the menu, given to
// the component and kept in the profile.
void BasculeSuiviVisible(AppContext& app);
// The settings read with the profile: the menu's tick, and the window opened
// when the profile wants it always visible.
void applique_suivi_profil(AppContext& app);
// Hides and releases the component; its failure gives kSuiviDechargement.
void libere_suivi(AppContext& app);

}  // namespace plouvarine
