#include "competitions/handoff.h"

namespace plouvarine {

// The windows behind these keywords are still to be written; until they are,
// choosing a competition leads nowhere. By keyword, what is to come:
//   "modif prog"                     frm_prog in "Modif", title "Programme compétition"
//   "Choix pour engagements"         the team records prepared, Engag and Relais copied to
//                                    Engag_tempo and Relais_tempo, then frm_engag, title
//                                    "Définition des engagements"
//   "Choix pour engagements relais"  Relais copied to Relais_tempo, then frm_engag_relais
//   "disk"                           the runner with createdisk.clscreate_disk, title
//                                    "Création Fichiers Engagements", keyword "disk"
//   "Imprim convoc"                  frm_convocation
//   "Imprim bordereau"               the printed entry slip
//   "Impor res"                      the runner with RecupResultat.clsRecupResult, title
//                                    "Importer Résultats", keyword "impres"
void competition_chosen(AppContext& app, const QString& keyword, const QString& num)
{
    Q_UNUSED(app);
    Q_UNUSED(keyword);
    Q_UNUSED(num);
}

}  // namespace plouvarine
