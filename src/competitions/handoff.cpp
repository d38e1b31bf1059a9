#include "src/competitions/handoff.h"

#include "src/competitions/liste_compet.h"
#include "src/competitions/utils_programme.h"
#include "src/frame/app_context.h"
#include "src/frame/keywords.h"
#include "src/frame/operation_runner.h"
#include "src/competitions/utils_compet.h"
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

// "modif prog" opens the programme of the competition; a registered door opens
// the window of its keyword (the entries and the relays, the runner for "disk"
// and "Impor res", the entry slip and the convocations, the model list of
// "modele depuis engagement"). A keyword with no door says so.
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

void install_exchange_doors()
{
    // The entry files of the chosen competition.
    set_competition_door(QString(keyword::kDisk),
                         [](AppContext& app, const QString& num) { run_operation(app, QStringLiteral("disk"), num); });
    // Results into the chosen competition, or into one made for them when
    // none was chosen ("&Nouvelle").
    set_competition_door(QString(keyword::kImporRes), [](AppContext& app, const QString& num) {
        run_operation(app, QStringLiteral("impres"), num, num.isEmpty(), &CreerCompetImport);
    });
}

}  // namespace plouvarine
