#include "src/clubs/utils_profils.h"

#include "src/clubs/det_profil.h"
#include "src/clubs/liste_profil.h"
#include "src/frame/app_context.h"
#include "src/frame/keywords.h"
#include "src/base/sql_text.h"

namespace plouvarine {

namespace {

const QString kClubConfig = QStringLiteral("mnuBaseClubConfig");

// "Votre Club" has no meaning for a selection. The command is held by one lock
// while the current club is a selection; read_profile is the only writer of
// club_selection, so its old value tells whether that lock is held.
void set_club_selection(AppContext& app, bool selection)
{
    if (selection != app.state.club_selection)
        app.menus.apply_locks(selection ? locks_on({kClubConfig}) : reversed(locks_on({kClubConfig})));
    app.state.club_selection = selection;
}

}  // namespace

void read_profile(AppContext& app, bool avec_suivi)
{
    const Rows rows = app.db.load_rows(
        QStringLiteral("SELECT Club.Code_federal, Club.Intitule, Club.Selection, ")
        + QStringLiteral("Profil.Libelle, Profil.Num, Profil.lgPosXSuivi, ")
        + QStringLiteral("Profil.lgPosYSuivi, Profil.lgIntervalSuivi, Profil.bAlwaysVisibleSuivi ")
        + QStringLiteral("FROM Club Club, Profil Profil ") + QStringLiteral("WHERE Profil.LastUse = true and ")
        + QStringLiteral("Club.Code_federal = Profil.Code_club"));
    if (!rows.empty()) {
        app.state.club_code = rows.value(0, 0);
        app.state.club_name = rows.value(0, 1);
        set_club_selection(app, rows.value(0, 2) == QLatin1String("Vrai"));
        app.state.profile_name = rows.value(0, 3);
        app.state.profile_num = rows.value(0, 4);
        if (avec_suivi) {
            app.state.monitor_pos_x = rows.value(0, 5).toInt();
            app.state.monitor_pos_y = rows.value(0, 6).toInt();
            app.state.monitor_interval = rows.value(0, 7).toInt();
            app.state.monitor_always_visible = rows.value(0, 8) == QLatin1String("Vrai");
        }
    } else {
        // Until a profile is chosen the program runs with no current profile.
        set_club_selection(app, false);
        app.state.clear_profile();
        if (app.db.count_query(QStringLiteral("select count(*) from Profil")) == 0) {
            DetProfil forced(app, QString(DetProfil::kObliName), QString(keyword::kNouveau));
            if (forced.register_window())
                app.ui.show_modal(forced);
        } else {
            FrmListeProfilObli forced(app);
            if (forced.register_window())
                app.ui.show_modal(forced);
        }
    }
    app.ui.set_status(1, QStringLiteral("Profil : ") + app.state.profile_name + QStringLiteral(" (")
                             + app.state.club_name + QLatin1Char(')'));
}

SqlFields profile_fields(const QString& code, const QString& name)
{
    return {{QStringLiteral("Code_club"), quote_sql(code)}, {QStringLiteral("Libelle"), quote_sql(name)}};
}

bool AjouteProfil(AppContext& app, const QString& code, const QString& name)
{
    try {
        const SqlFields fields = profile_fields(code, name);
        app.db.exec_sql(QStringLiteral("INSERT INTO Profil (") + sql_columns(fields) + QStringLiteral(") ")
                        + QStringLiteral("VALUES (") + sql_values(fields) + QStringLiteral(");"));
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QStringLiteral("Une erreur s'est produite lors de la sauvegarde du profil."), &e);
        return false;
    }
    return true;
}

bool SauveVisibiliteSuivi(AppContext& app, bool value)
{
    try {
        app.db.exec_sql(QStringLiteral("UPDATE Profil SET ") + QStringLiteral("bAlwaysVisibleSuivi = ") + bool_text(value)
                        + QStringLiteral(" WHERE Num = ") + sql_key(app.state.profile_num));
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QStringLiteral("Une erreur s'est produite lors de la sauvegarde du paramètre."), &e);
        return false;
    }
    return true;
}

bool SauveParametresSuivi(AppContext& app, int x, int y, int interval, bool visible)
{
    try {
        app.db.exec_sql(QStringLiteral("UPDATE Profil SET ") + QStringLiteral("lgPosXSuivi = ") + QString::number(x)
                        + QStringLiteral(", lgPosYSuivi = ") + QString::number(y)
                        + QStringLiteral(", lgIntervalSuivi = ") + QString::number(interval)
                        + QStringLiteral(", bAlwaysVisibleSuivi = ")
                        + (visible ? QStringLiteral("true") : QStringLiteral("False"))
                        + QStringLiteral(" WHERE Num = ") + sql_key(app.state.profile_num));
    } catch (const std::exception& e) {
        msg_erreur(app.ui,
                   QStringLiteral("Une erreur s'est produite lors de la sauvegarde ")
                       + QStringLiteral("des paramètres de suivi des performances."),
                   &e);
        return false;
    }
    return true;
}

void choose_profile(AppContext& app, const QString& name, bool avec_suivi)
{
    app.db.exec_sql(QStringLiteral("Update Profil Set LastUse = false"));
    app.db.exec_sql(QStringLiteral("Update Profil Set LastUse = true where Libelle = ") + quote_sql(name));
    read_profile(app, avec_suivi);
}

void purge_profile_entries(AppContext& app, const QString& num)
{
    for (const char* table : kProfileTables)
        app.db.exec_sql(QStringLiteral("DELETE from ") + QLatin1String(table) + QStringLiteral(" where Num_profil = ")
                        + sql_key(num));
}

void OuvreDetailProfil(AppContext& app, const QString& keyword)
{
    if (app.windows.check_window_open(QString(DetProfil::kName)))
        return;
    auto detail = std::make_unique<DetProfil>(app, QString(DetProfil::kName), keyword);
    MenuLocks locks;
    if (keyword == keyword::kNouveau) {
        locks = {whole_group(LockGroup::Profile)};
        const MenuLocks club = locks_on({QStringLiteral("mnuBaseClubModif"), QStringLiteral("mnuBaseClubSuppr")});
        locks.insert(locks.begin(), club.begin(), club.end());
    } else {
        // The current profile, as it stands.
        detail->set_nom(app.state.profile_name);
        detail->set_code(app.state.club_code, app.state.club_name);
        locks = locks_on({QStringLiteral("mnuBaseProfilModif"), QStringLiteral("mnuBaseProfilSuppr"),
                          QStringLiteral("mnuBaseProfilInfo")});
    }
    if (!detail->register_window(QString(WindowRegistry::kMainWindow), locks))
        return;
    app.ui.show_window(std::move(detail));
}

void OuvreListeProfils(AppContext& app, const QString& keyword, const QString& title, const QString& ok_caption)
{
    if (app.windows.check_window_open(QString(FrmListeProfil::kName)))
        return;
    auto list = std::make_unique<FrmListeProfil>(app, keyword);
    list->set_title(title);
    list->set_ok_caption(ok_caption);
    if (!list->register_window(QString(WindowRegistry::kMainWindow), FrmListeProfil::locks_for(keyword)))
        return;
    list->set_liste();
    app.ui.show_window(std::move(list));
}

}  // namespace plouvarine
