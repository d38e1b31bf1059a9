#include "src/competitions/handoff.h"

#include "src/competitions/liste_compet.h"
#include "src/competitions/utils_programme.h"
#include "src/frame/app_context.h"
#include "src/frame/keywords.h"
#include "src/frame/unavailable.h"

#include <QHash>

namespace plouvarine {

namespace {

QHash<QString, CompetitionDoor>& doors()
{
    static QHash<QString, CompetitionDoor> registered;
    return registered;
}

}  // namespace

void set_competition_door(const QString& keyword, CompetitionDoor door)
{
    doors().insert(keyword, std::move(door));
}

// "modif prog" opens the programme of the competition; a registered door
// opens the window of its keyword ("Choix pour engagements relais", the
// entry slip and the convocations of "Imprim bordereau" and "Imprim convoc"). The
// windows behind the other keywords are still to be written; until they are,
// choosing a competition says so. By keyword, what is to come:
//   "Choix pour engagements"         the team records prepared, Engag and Relais copied to
//                                    Engag_tempo and Relais_tempo, then frm_engag, title
//                                    "Définition des engagements"
//   "disk"                           the runner with createdisk.clscreate_disk, title
//                                    "Création Fichiers Engagements", keyword "disk"
//   "Impor res"                      the runner with RecupResultat.clsRecupResult, title
//                                    "Importer Résultats", keyword "impres"
void competition_chosen(AppContext& app, const QString& keyword, const QString& num)
{
    const auto door = doors().constFind(keyword);
    if (door != doors().cend()) {
        (*door)(app, num);
        return;
    }
    if (keyword == plouvarine::keyword::kModifProg)
        OuvrirProg(app, QString(plouvarine::keyword::kModif), num, false, QStringLiteral("Programme compétition"),
                   QString(FrmListeCompet::kName));
    else
        not_available(app);
}

}  // namespace plouvarine
