#include "src/clubs/club_commands.h"

#include "src/clubs/mon_club.h"
#include "src/clubs/pools.h"
#include "src/clubs/utils_club.h"
#include "src/clubs/utils_profils.h"
#include "src/frame/app_context.h"
#include "src/frame/commands.h"

namespace plouvarine {

bool run_club_command(AppContext& app, const QString& command)
{
    const CommandTarget* target = find_command(command);
    if (!target)
        return false;
    try {
        if (target->window == QLatin1String("Frm_liste_club"))
            OuvreListeClubs(app, target->keyword, target->title, target->ok_caption);
        else if (target->window == QLatin1String("dem_info"))
            OuvreDetailClub(app, target->keyword);
        else if (target->window == QLatin1String("Frm_liste_profil"))
            OuvreListeProfils(app, target->keyword, target->title, target->ok_caption);
        else if (target->window == QLatin1String("det_profil"))
            OuvreDetailProfil(app, target->keyword);
        else
            return false;
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QString(), &e);
    }
    return true;
}

void install_club_commands(AppContext& app)
{
    for (const char* c : {"mnuBaseClubNew", "mnuBaseClubListe", "mnuBaseClubModif", "mnuBaseClubSuppr",
                          "mnuBaseProfilNew", "mnuBaseProfilList", "mnuBaseProfilModif", "mnuBaseProfilSuppr",
                          "mnuBaseProfilInfo", "mnuBaseProfilChange"}) {
        const QString name = QLatin1String(c);
        app.commands.add(name, [name](AppContext& a) { run_club_command(a, name); });
    }
    app.commands.add(QStringLiteral("mnuBaseClubConfigInfo"), [](AppContext& a) { OuvreMonClub(a); });
    app.commands.add(QStringLiteral("mnuModelePiscineNew"),
                     [](AppContext& a) { OuvreDetailPiscine(a, QStringLiteral("Nouveau")); });
    for (const char* c : {"mnuModelePiscineView", "mnuModelePiscineModif", "mnuModelePiscineSuppr"}) {
        const QString name = QLatin1String(c);
        app.commands.add(name, [name](AppContext& a) {
            if (const CommandTarget* target = find_command(name))
                OuvreListePiscines(a, target->keyword, target->title, target->ok_caption,
                                   QString(WindowRegistry::kMainWindow));
        });
    }
}

}  // namespace plouvarine
