#pragma once
// The action keywords a command passes to the list or detail window it opens.
// A window's behaviour depends on its keyword, always compared exactly
// (case and blanks included), so every caller spells them from here.

#include <QString>

namespace plouvarine::keyword {

// Constant-initialised, so that other tables may use them at any time.
inline constexpr QLatin1String kView{"View"};                    // show the list; OK hidden or read-only
inline constexpr QLatin1String kModif{"Modif"};                  // pick a row and edit it
inline constexpr QLatin1String kSuppr{"Suppr"};                  // pick rows and delete them
inline constexpr QLatin1String kChoisir{"Choisir"};              // pick one row and give it to the caller
inline constexpr QLatin1String kNouveau{"Nouveau"};              // new record through a detail window
inline constexpr QLatin1String kSsCotisation{"SsCotisation"};    // licences with no fee
inline constexpr QLatin1String kListeClubPourProfil{"liste club pour profil"};
inline constexpr QLatin1String kChoixPourEngagements{"Choix pour engagements"};
inline constexpr QLatin1String kChoixPourEngagementsRelais{"Choix pour engagements relais"};
inline constexpr QLatin1String kModifProg{"modif prog"};
inline constexpr QLatin1String kNouveauProg{"nouveau prog"};
inline constexpr QLatin1String kImprimConvoc{"Imprim convoc"};
inline constexpr QLatin1String kImprimBordereau{"Imprim bordereau"};
inline constexpr QLatin1String kDisk{"disk"};
inline constexpr QLatin1String kImporRes{"Impor res"};
inline constexpr QLatin1String kModeleDepuisProgramme{"modele depuis programme"};
inline constexpr QLatin1String kModeleDepuisEngagement{"modele depuis engagement"};

// The kind of models a model list holds.
inline constexpr QLatin1String kModelEngag{"Engag"};
inline constexpr QLatin1String kModelProg{"Prog"};

}  // namespace plouvarine::keyword
