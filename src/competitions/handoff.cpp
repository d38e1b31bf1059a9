#include "src/competitions/handoff.h"

#include "src/competitions/liste_compet.h"
#include "src/competitions/utils_programme.h"
#include "src/frame/app_context.h"
#include "src/frame/keywords.h"

namespace plouvarine {

// "modif prog" opens the programme of the competition; the subjects above the
// competitions register what their keywords open in app.handoffs
// ("Choix pour engagements": the entries). The windows behind the other
// keywords are still to be written; until they are, choosing a competition
// leads nowhere. By keyword, what is to come:
//   "Choix pour engagements relais"  Relais copied to Relais_tempo, then frm_engag_relais
//   "disk"                           the runner with createdisk.clscreate_disk, title
//                                    "Création Fichiers Engagements", keyword "disk"
//   "Imprim convoc"                  frm_convocation
//   "Imprim bordereau"               the printed entry slip
//   "Impor res"                      the runner with RecupResultat.clsRecupResult, title
//                                    "Importer Résultats", keyword "impres"
void competition_chosen(AppContext& app, const QString& keyword, const QString& num)
{
    if (keyword == plouvarine::keyword::kModifProg)
        OuvrirProg(app, QString(plouvarine::keyword::kModif), num, false, QStringLiteral("Programme compétition"),
                   QString(FrmListeCompet::kName));
    else if (const HandoffTable::Run* run = app.handoffs.find(keyword))
        (*run)(app, num);
}

}  // namespace plouvarine
