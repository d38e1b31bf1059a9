#include "clubs/club_commands.h"

#include "clubs/utils_club.h"
#include "clubs/utils_profils.h"
#include "frame/app_context.h"
#include "frame/commands.h"

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

}  // namespace plouvarine
