// What each interclub team is worth, sheet by sheet, from its entries; and the
// monitor's settings kept in the profile and read back at the next opening.

#include "points_fixture.h"
#include "src/clubs/utils_profils.h"
#include "src/store/sentinels.h"
#include "src/tools/frm_monitor_def.h"
#include "src/tools/frm_pts_inter.h"
#include "src/tools/suivi_perf.h"
#include "support/golden.h"

using namespace plouvarine;
using namespace plouvarine::testing;

namespace {

class TeamPointsTest : public AppFixture {
protected:
    void SetUp() override
    {
        AppFixture::SetUp();
        connect(make_base());
        install_points_component(*app);
        install_template_component();
        app->state.club_code = QStringLiteral("FRA2210290017");
        app->state.profile_num = QStringLiteral("1");
        Database& db = app->db;
        compet_ = db.append_row(QStringLiteral("Rcomp"),
                                {{"Num", "IC25"}, {"Type", "I"}, {"Nom", "Interclubs"}, {"Debut", "20250405"},
                                 {"Fin", "20250406"}, {"Lieu", "Brest"}, {"Longueur", 25}, {"Visible", true},
                                 {"Deroule", false}},
                                QStringLiteral("AutoNum"));
        // Held already: not offered.
        db.append_row(QStringLiteral("Rcomp"),
                      {{"Num", "OLD"}, {"Type", "I"}, {"Nom", "Passé"}, {"Longueur", 25}, {"Visible", true},
                       {"Deroule", true}},
                      QStringLiteral("AutoNum"));
    }
    QString swimmer(const char* nom, const char* sexe)
    {
        return app->db.append_row(QStringLiteral("Licence"),
                                  {{"Code_club", app->state.club_code}, {"Licence", nom}, {"Nom", nom},
                                   {"Prenom", "Anne"}, {"Sexe", sexe}},
                                  QStringLiteral("Num"));
    }
    void entry(const QString& lic, int code, int team, bool mixed, double time)
    {
        app->db.exec_sql(QStringLiteral("INSERT INTO Engag (Num_compet, Num_profil, Code_epreuve, Num_Lic, Num_equipe, "
                                        "Equipe_mixte, Tps_engagement) VALUES (%1, 1, %2, %3, %4, %5, %6)")
                             .arg(compet_).arg(code).arg(lic).arg(team).arg(mixed ? 1 : 0).arg(time));
    }
    void relay(int code, int team, bool mixed, double time)
    {
        app->db.exec_sql(QStringLiteral("INSERT INTO Relais (Num_profil, Num_compet, Code_epreuve, Num_Lic, Num_equipe, "
                                        "Equipe_mixte, Tps) VALUES (1, %1, %2, %3, %4, %5, %6)")
                             .arg(compet_).arg(code).arg(team * 10 + code).arg(team).arg(mixed ? 1 : 0).arg(time));
    }
    void teams(int men, int women, int mixed)
    {
        app->db.exec_sql(QStringLiteral("INSERT INTO Engag_equipe (Num_compet, Num_profil, Eq_Homme, Eq_Femme, Eq_Mixte) "
                                        "VALUES (%1, 1, %2, %3, %4)")
                             .arg(compet_).arg(men).arg(women).arg(mixed));
    }
    QString compet_;
};

TEST_F(TeamPointsTest, OneSheetPerTeamWithRelaysCountedOnceOrTwice)
{
    const QString paul = swimmer("PAUL", "M");
    const QString anne = swimmer("ANNE", "F");
    const QString lea = swimmer("LEA", "F");
    teams(1, 2, 1);
    entry(paul, 52, 1, false, 0.4484);  // 100 m n.l. Messieurs at its base time: 1000
    entry(anne, 2, 1, false, 1.0050);   // 100 m n.l. Dames, 1:00.50
    entry(lea, 2, 1, false, 0);         // no time: no points, a blank time
    entry(anne, 2, 2, false, 1.0050);   // the same swimmer in the second team, counted in full
    entry(lea, 2, 1, true, 1.0050);     // a mixed team lists no individual swim
    relay(7, 1, false, 2.1655);         // 4x50 m n.l. Dames: 310
    relay(45, 1, true, 2.0515);         // 4x50 m n.l. Mixte: 339

    FrmPtsInter* view = OuvrirPointsEquipes(*app);
    ASSERT_NE(view, nullptr);
    ASSERT_EQ(view->lsv_numauto().rowCount(), 1);
    EXPECT_EQ(view->competition(), compet_);
    // The references: men, women, mixed, each team in order; lines of name in
    // 20, time in 8, points in 4; "Relais comptent double" counts the relay
    // twice in the total (678 for the mixed team), once on its line.
    view->calcule_points_equipes();
    EXPECT_TRUE(view->print_enabled());
    expect_golden(QStringLiteral("tools"), QStringLiteral("team_sheets.txt"), view->rich.text().toUtf8());
    view->chk_relais = true;
    view->calcule_points_equipes();
    expect_golden(QStringLiteral("tools"), QStringLiteral("team_sheets_relais_double.txt"), view->rich.text().toUtf8());

    // Printed through "respts", the meet's tags filled.
    ASSERT_TRUE(view->imprime_points());
    ASSERT_EQ(ui.printed.size(), 1u);
    EXPECT_EQ(ui.printed[0].title, QStringLiteral("Impression"));
    for (const char* part : {"Interclubs", "5/04 - 6/04/2025", "TOTAL POINTS : 678"})
        EXPECT_TRUE(ui.printed[0].text.contains(QLatin1String(part))) << part;
    EXPECT_FALSE(ui.printed[0].text.contains(QStringLiteral("<NOM_COMPET>")));
}

TEST_F(TeamPointsTest, NoTeamEnteredGivesTheNoticeAndNoPrinting)
{
    FrmPtsInter* view = OuvrirPointsEquipes(*app);
    ASSERT_NE(view, nullptr);
    view->calcule_points_equipes();
    EXPECT_EQ(view->rich.text(), FrmPtsInter::kAucuneEquipe);
    EXPECT_FALSE(view->print_enabled());
    EXPECT_FALSE(view->imprime_points());
    teams(0, 0, 0);
    view->calcule_points_equipes();
    EXPECT_EQ(view->rich.text(), FrmPtsInter::kAucuneEquipe);
    EXPECT_TRUE(ui.printed.empty());
}

TEST_F(TeamPointsTest, MonitorSettingsAreKeptInTheProfileAndReadAtTheNextOpening)
{
    app->db.exec_sql(QStringLiteral("INSERT INTO Club (Code_federal, Intitule) VALUES ('FRA2210290017', 'Brest Natation')"));
    ASSERT_TRUE(AjouteProfil(*app, app->state.club_code, QStringLiteral("Bassin")));
    app->db.exec_sql(QStringLiteral("UPDATE Profil SET LastUse = true"));
    app->state.profile_num = value(QStringLiteral("SELECT Num FROM Profil"));
    FrmMonitorDef* def = OuvrirMonitorDef(*app);
    ASSERT_NE(def, nullptr);
    // Without the component there is nothing to fetch.
    def->recuperer();
    EXPECT_EQ(ui.texts(), QStringList{kSuiviNonCharge});

    def->txtParam = {QStringLiteral("120"), QStringLiteral("45"), QStringLiteral("0")};
    EXPECT_FALSE(def->appliquer());
    EXPECT_EQ(ui.texts().last(), FrmMonitorDef::kIntervalNul);
    EXPECT_EQ(value(QStringLiteral("SELECT lgIntervalSuivi FROM Profil")), QStringLiteral("1000"));

    def->txtParam[2] = QStringLiteral("2500");
    def->chkAlwaysVisible = true;
    ASSERT_TRUE(def->appliquer());
    EXPECT_TRUE(app->menus.is_checked(QStringLiteral("mnuPerfOrdiTjsVisible")));
    def->fermer();

    // The next opening reads them back, and applies them.
    app->state.monitor_pos_x = app->state.monitor_pos_y = app->state.monitor_interval = 0;
    app->state.monitor_always_visible = false;
    app->menus.set_checked(QStringLiteral("mnuPerfOrdiTjsVisible"), false);
    read_profile(*app, true);
    applique_suivi_profil(*app);
    EXPECT_EQ(std::tuple(app->state.monitor_pos_x, app->state.monitor_pos_y, app->state.monitor_interval,
                         app->state.monitor_always_visible),
              std::tuple(120, 45, 2500, true));
    EXPECT_TRUE(app->menus.is_checked(QStringLiteral("mnuPerfOrdiTjsVisible")));
    // The profile wants it visible but there is no component: told, no harm.
    EXPECT_EQ(ui.texts().last(), kSuiviNonCharge);

    // "Toujours visible" from the menu switches and keeps it.
    BasculeSuiviVisible(*app);
    EXPECT_FALSE(app->menus.is_checked(QStringLiteral("mnuPerfOrdiTjsVisible")));
    EXPECT_EQ(value(QStringLiteral("SELECT bAlwaysVisibleSuivi FROM Profil")), QStringLiteral("Faux"));

    // The monitor's menu works with no base open: the settings hold for the
    // session, with no error.
    app->db.close();
    ui.clear();
    BasculeSuiviVisible(*app);
    EXPECT_TRUE(app->menus.is_checked(QStringLiteral("mnuPerfOrdiTjsVisible")));
    FrmMonitorDef* alone = OuvrirMonitorDef(*app);
    ASSERT_NE(alone, nullptr);
    alone->txtParam[0] = QStringLiteral("300");
    EXPECT_TRUE(alone->appliquer());
    EXPECT_EQ(app->state.monitor_pos_x, 300);
    EXPECT_TRUE(ui.texts().isEmpty());
}

}  // namespace
