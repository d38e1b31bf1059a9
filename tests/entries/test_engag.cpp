// Individual entries on a real base: the time proposed from Liffn around the
// season floor, the panel built from Nage with its 25 m-only rows, the rows a
// swimmer leaves in Engag as the selection moves, the search and the Delete
// key, and the end of a pass kept or undone through Engag_tempo.

#include "entries/engag_test_base.h"
#include "src/competitions/handoff.h"
#include "src/entries/frm_engag.h"
#include "src/entries/utils_engag.h"
#include "src/frame/keywords.h"
#include "src/frame/list_helpers.h"
#include "src/frame/upgrade.h"

#include <QFile>

using namespace plouvarine;

namespace {

class Engag : public plouvarine::testing::EngagBase {
protected:
    FrmEngag* open(const QString& compet, const QString& mode = QStringLiteral("Modif"), bool modele = false)
    {
        FrmEngag* view = OuvrirEngag(*app, mode, compet, QStringLiteral("Définition des engagements"), modele);
        EXPECT_NE(view, nullptr);
        return view;
    }
    void show(FrmEngag& view, const QString& num)
    {
        const std::optional<int> row = find_key(view.lsv_engag(), num);
        ASSERT_TRUE(row.has_value()) << num.toStdString();
        view.select_swimmer(*row);
        ASSERT_EQ(view.swimmer(), num);
    }
};

TEST_F(Engag, TheProposalIsTheFastestTimeSinceTheOpeningOfTheSeasonBefore)
{
    // A competition of March 2025: its season opened on 16 September 2024,
    // the one before on 16 September 2023.
    EXPECT_EQ(DebutPerf(QStringLiteral("20250315")), QStringLiteral("20230916"));
    EXPECT_EQ(DebutPerf(QStringLiteral("20250916")), QStringLiteral("20240916"));
    EXPECT_EQ(DebutPerf(QStringLiteral("20250915")), QStringLiteral("20230916"));

    const QString anna = swimmer(QStringLiteral("LE GALL"), QStringLiteral("Anna"), QStringLiteral("F"));
    const QString yann = swimmer(QStringLiteral("MORVAN"), QStringLiteral("Yann"), QStringLiteral("M"));
    perf(anna, 2, QStringLiteral("1.05"), QStringLiteral("20230916"), 25, QStringLiteral("Morlaix"));  // the floor: counts
    perf(anna, 2, QStringLiteral("1.03"), QStringLiteral("20230915"), 25);  // the day before: too old
    perf(anna, 2, QStringLiteral("1.08"), QStringLiteral("20241010"), 25);
    perf(anna, 12, QStringLiteral("1.15"), QStringLiteral("20230915"), 25);  // nothing since the floor
    perf(anna, 3, QStringLiteral("2.25"), QStringLiteral("20241110"), 25);
    perf(anna, 3, QStringLiteral("2.2"), QStringLiteral("20241201"), 50, QStringLiteral("Brest"));  // any pool, as it is
    perf(anna, 4, QStringLiteral("4.5"), QStringLiteral("20241001"), 25, QStringLiteral("Vannes"));
    perf(anna, 4, QStringLiteral("4.5"), QStringLiteral("20241101"), 50, QStringLiteral("Quimper"));
    perf(yann, 51, QStringLiteral("0.2812"), QStringLiteral("20241010"), 50);
    perf(yann, 51, QStringLiteral("0.2904"), QStringLiteral("20241020"), 25);

    const TabPerf tab = ChercherPerfs(app->db, anna, QStringLiteral("20230916"));
    EXPECT_EQ(tab[2].temps, QStringLiteral("1.0500"));
    EXPECT_EQ(tab[2].date, QStringLiteral("20230916"));
    EXPECT_EQ(tab[2].lieu, QStringLiteral("Morlaix"));
    EXPECT_EQ(tab[2].bassin, QStringLiteral("25"));
    EXPECT_TRUE(tab[12].temps.isEmpty());
    EXPECT_EQ(tab[3].temps, QStringLiteral("2.2000"));
    EXPECT_EQ(tab[3].bassin, QStringLiteral("50"));
    EXPECT_EQ(tab[3].lieu, QStringLiteral("Brest"));
    // Of equal times one performance is taken whole: its place, date and pool together.
    EXPECT_EQ(tab[4].temps, QStringLiteral("4.5000"));
    const QString taken = tab[4].lieu + QLatin1Char(':') + tab[4].date + QLatin1Char(':') + tab[4].bassin;
    EXPECT_TRUE(taken == QStringLiteral("Vannes:20241001:25") || taken == QStringLiteral("Quimper:20241101:50"))
        << taken.toStdString();
    EXPECT_TRUE(tab[1].temps.isEmpty());  // his performance is not hers

    // A man's event lands on the row of the woman's code.
    const TabPerf his = ChercherPerfs(app->db, yann, QStringLiteral("20230916"));
    EXPECT_EQ(his[1].temps, QStringLiteral("0.2812"));
    EXPECT_EQ(his[1].bassin, QStringLiteral("50"));
    EXPECT_EQ(RowOfCode(51), 1);
    EXPECT_EQ(CodeOffset(QStringLiteral("M")), 50);
    EXPECT_EQ(CodeOffset(QStringLiteral("F")), 0);
}

TEST_F(Engag, ThePanelFollowsNageAndLocksThe25mRowsOfA50mCompetition)
{
    const PanelEvents events = ChargerEpreuves(app->db);
    EXPECT_EQ(events[12].label, QStringLiteral("100m dos"));
    EXPECT_EQ(events[0].label, QStringLiteral("25m n.l."));
    EXPECT_FALSE(events[8].shown);   // a relay is no individual entry
    EXPECT_FALSE(events[45].shown);  // nor a mixed relay
    EXPECT_FALSE(events[20].possible_50);
    EXPECT_TRUE(events[21].possible_50);
    int shown = 0;
    for (const PanelEvent& e : events)
        shown += e.shown ? 1 : 0;
    EXPECT_EQ(shown, 22);

    const QString yann = swimmer(QStringLiteral("MORVAN"), QStringLiteral("Yann"), QStringLiteral("M"));
    const QString long_pool = competition(QStringLiteral("20250315"), 50);
    individual(long_pool, yann);
    entry(long_pool, yann, 70, QStringLiteral("0.19"));  // a 25 m breast stored before
    FrmEngag* view = open(long_pool);
    ASSERT_NE(view, nullptr);
    show(*view, yann);
    for (int row : {0, 10, 20, 30, 40})
        EXPECT_FALSE(view->check_enabled(row)) << row;
    EXPECT_TRUE(view->check_enabled(21));
    // The stored entry still shows, and can't be taken away here.
    EXPECT_TRUE(view->panel()[20].checked);
    view->set_checked(20, false);
    view->set_checked(10, true);
    EXPECT_TRUE(view->panel()[20].checked);
    EXPECT_FALSE(view->panel()[10].checked);
    view->cmd_ok();
    EXPECT_EQ(entries(long_pool), QStringList{yann + QStringLiteral(":70:0.19:20241012:Lorient:25")});

    const QString short_pool = competition(QStringLiteral("20250315"), 25);
    individual(short_pool, yann);
    view = open(short_pool);
    ASSERT_NE(view, nullptr);
    show(*view, yann);
    EXPECT_TRUE(view->check_enabled(20));
    EXPECT_FALSE(view->has_option_50(20));
    EXPECT_TRUE(view->has_option_50(21));
}

TEST_F(Engag, TickedEventsProposeTimesAndReachEngagAsTheSelectionMoves)
{
    const QString compet = competition(QStringLiteral("20250315"), 50);
    const QString anna = swimmer(QStringLiteral("LE GALL"), QStringLiteral("Anna"), QStringLiteral("F"));
    const QString yann = swimmer(QStringLiteral("MORVAN"), QStringLiteral("Yann"), QStringLiteral("M"));
    individual(compet, anna);
    individual(compet, yann);
    perf(anna, 2, QStringLiteral("1.05"), QStringLiteral("20240110"), 25, QStringLiteral("Morlaix"));
    perf(anna, 3, QStringLiteral("2.2"), QStringLiteral("20241201"), 50, QStringLiteral("Brest"));
    perf(yann, 51, QStringLiteral("0.2812"), QStringLiteral("20241010"), 50, QStringLiteral("Saint-Brieuc"));

    FrmEngag* view = open(compet);
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->cbo_team(), QStringList{QStringLiteral("Individuel")});
    EXPECT_EQ(view->lsv_engag().rowCount(), 2);
    show(*view, anna);
    view->set_checked(2, true);
    const EngagRow& proposed = view->panel()[2];
    EXPECT_EQ(proposed.temps, QStringLiteral("1.0500"));
    EXPECT_EQ(proposed.lieu, QStringLiteral("Morlaix"));
    EXPECT_EQ(proposed.jour + proposed.mois + proposed.annee, QStringLiteral("10012024"));
    EXPECT_FALSE(proposed.bassin_50);
    view->set_checked(3, true);
    EXPECT_TRUE(view->panel()[3].bassin_50);
    view->set_temps(3, QStringLiteral("2,1"));  // overtyped
    view->leave_temps(3);
    EXPECT_EQ(view->panel()[3].temps, QStringLiteral("2.1000"));
    view->set_checked(11, true);  // no performance: empty fields, 25 m
    EXPECT_TRUE(view->panel()[11].temps.isEmpty());
    view->set_checked(12, true);
    view->set_checked(12, false);  // taken back: nothing stored

    show(*view, yann);
    EXPECT_EQ(entries(compet), (QStringList{anna + QStringLiteral(":2:1.05:20240110:Morlaix:25"),
                                            anna + QStringLiteral(":3:2.1:20241201:Brest:50"),
                                            anna + QStringLiteral(":11:0:::25")}));
    EXPECT_TRUE(ui.status_history.contains(QStringLiteral("Sauvegarde des engagements du nageur en cours")));
    EXPECT_TRUE(ui.status_history.contains(QStringLiteral("Affichage des engagements du nageur en cours")));
    view->set_checked(1, true);
    EXPECT_EQ(view->panel()[1].temps, QStringLiteral("0.2812"));

    // Back to her: her rows as saved, his saved on the way.
    show(*view, anna);
    EXPECT_TRUE(view->panel()[2].checked);
    EXPECT_EQ(view->panel()[3].temps, QStringLiteral("2.1000"));
    EXPECT_TRUE(view->panel()[3].bassin_50);
    EXPECT_EQ(view->panel()[2].jour, QStringLiteral("10"));
    EXPECT_FALSE(view->panel()[12].checked);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag where Num_Lic = %1 and Code_epreuve = 51 and "
                                   "Tps_engagement = 0.2812 and Bassin = 50 and Num_equipe = 0 and Equipe_mixte = false")
                        .arg(yann)),
              1);
}

TEST_F(Engag, ASwimmerWhoseSexChangedKeepsHisRowsUnderHisNewCodes)
{
    const QString compet = competition(QStringLiteral("20250315"), 25);
    const QString camille = swimmer(QStringLiteral("RIOU"), QStringLiteral("Camille"), QStringLiteral("M"));
    const QString anna = swimmer(QStringLiteral("LE GALL"), QStringLiteral("Anna"), QStringLiteral("F"));
    individual(compet, camille);
    individual(compet, anna);
    entry(compet, camille, 52, QStringLiteral("1.02"));
    exec(QStringLiteral("UPDATE Licence SET Sexe = 'F' WHERE Num = ") + camille);
    FrmEngag* view = open(compet);
    ASSERT_NE(view, nullptr);
    show(*view, camille);
    EXPECT_TRUE(view->panel()[2].checked);
    EXPECT_EQ(view->panel()[2].temps, QStringLiteral("1.0200"));
    show(*view, anna);
    EXPECT_EQ(entries(compet), QStringList{camille + QStringLiteral(":2:1.02:20241012:Lorient:25")});
}

TEST_F(Engag, TheInsertOfOneRowRunsOnTheBaseForACompetitionAndForAModel)
{
    const QString compet = competition(QStringLiteral("20250315"), 50);
    const QString anna = swimmer(QStringLiteral("LE GALL"), QStringLiteral("Anna"), QStringLiteral("F"));
    const EntryScope target = EntryScope::competition(compet, app->state.profile_num);
    const Team team{2, true, {}};
    EngagRow row{true, QStringLiteral("-1"), QStringLiteral("Saint-Malo l'été"), QStringLiteral("12"),
                 QStringLiteral("13"), QStringLiteral("2024"), true};
    // A negative time goes as 0, a date that can't be one as none, the 50 m
    // only where the row has it.
    exec(InsertEngagSql(target, team, anna, 0, 20, row, false));
    EXPECT_EQ(entries(compet), QStringList{anna + QStringLiteral(":20:0::Saint-Malo l'été:25")});
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag where Num_equipe = 2 and Equipe_mixte = true")), 1);

    const QString modele =
        app->db.append_row(QStringLiteral("Modele_engag"), {{"Nom_modele", "Interclubs"}}, QStringLiteral("NumAuto"));
    const QString sql = InsertEngagSql(EntryScope::model(modele), Team{}, anna, 50, 2, row, true);
    EXPECT_FALSE(sql.contains(QStringLiteral("Tps_engagement")));
    EXPECT_FALSE(sql.contains(QStringLiteral("Bassin")));
    exec(sql);
    EXPECT_EQ(value(QStringLiteral("select Code_epreuve || ':' || Num_Lic from Engag_modele where Num_modele = ") +
                    modele),
              QStringLiteral("52:") + anna);
}

TEST_F(Engag, AModelKeepsTicksOnly)
{
    const QString anna = swimmer(QStringLiteral("LE GALL"), QStringLiteral("Anna"), QStringLiteral("F"));
    perf(anna, 2, QStringLiteral("1.05"), QStringLiteral("20250110"), 25);
    const QString modele =
        app->db.append_row(QStringLiteral("Modele_engag"), {{"Nom_modele", "Interclubs"}}, QStringLiteral("NumAuto"));
    exec(QStringLiteral("INSERT INTO Engag_nageur_modele (Num_modele, Num_Lic, Equipe, Equipe_m) VALUES (%1, %2, 0, "
                        "false)")
             .arg(modele, anna));
    FrmEngag* view = open(modele, QStringLiteral("Modif"), true);
    ASSERT_NE(view, nullptr);
    EXPECT_FALSE(view->fields_visible());
    show(*view, anna);
    view->set_checked(2, true);
    view->set_checked(20, true);  // a model knows no pool length
    EXPECT_TRUE(view->panel()[2].temps.isEmpty());
    EXPECT_FALSE(view->fields_enabled(2));
    view->cmd_ok();
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag_modele where Num_modele = %1 and Num_Lic = %2 and "
                                   "Code_epreuve in (2, 20)")
                        .arg(modele, anna)),
              2);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag")), 0);
}

TEST_F(Engag, ANewModelIsKeptByOkAndItsHeadGoesOnCancel)
{
    const QString anna = swimmer(QStringLiteral("LE GALL"), QStringLiteral("Anna"), QStringLiteral("F"));
    const auto new_model = [this] {
        return app->db.append_row(QStringLiteral("Modele_engag"), {{"Nom_modele", "Interclubs"}},
                                  QStringLiteral("NumAuto"));
    };
    const auto enter = [&](const QString& modele) {
        FrmEngag* view = open(modele, QStringLiteral("new modele"), true);
        EXPECT_NE(view, nullptr);
        if (!view)
            return static_cast<FrmEngag*>(nullptr);
        view->set_search_text(QStringLiteral("le gall"));
        view->search_return();
        view->set_checked(12, true);
        return view;
    };
    const QString kept = new_model();
    FrmEngag* view = enter(kept);
    ASSERT_NE(view, nullptr);
    view->cmd_ok();
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag_modele where Num_modele = %1 and Code_epreuve = 12")
                        .arg(kept)),
              1);
    // The model's swimmer stays, though in no team: the end of a new model's
    // pass removes nothing.
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag_nageur_modele where Num_modele = ") + kept), 1);

    const QString dropped = new_model();
    view = enter(dropped);
    ASSERT_NE(view, nullptr);
    view->cmd_annuler();
    EXPECT_EQ(count(QStringLiteral("select count(*) from Modele_engag where NumAuto = ") + dropped), 0);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Modele_engag where NumAuto = ") + kept), 1);
    EXPECT_EQ(ui.window(QStringLiteral("frm_engag")), nullptr);
}

TEST_F(Engag, TheSearchEntersASwimmerFromTheKeyboard)
{
    const QString compet = competition(QStringLiteral("20250315"), 25);
    swimmer(QStringLiteral("ABALAIN"), QStringLiteral("Jeanne"), QStringLiteral("F"));
    const QString lucie = swimmer(QStringLiteral("DUPONT"), QStringLiteral("Lucie"), QStringLiteral("F"));
    FrmEngag* view = open(compet);
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->lsv_engag().rowCount(), 0);
    EXPECT_EQ(view->lsv_licencie().rowCount(), 2);
    view->set_search_text(QStringLiteral("zz"));
    view->search_return();  // no match: nobody added
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag_nageur")), 0);
    view->set_search_text(QStringLiteral("dupont l"));
    view->search_return();
    EXPECT_EQ(view->swimmer(), lucie);
    EXPECT_TRUE(view->search_text().isEmpty());
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag_nageur where Num_Lic = %1 and Equipe = 0 and "
                                   "Equipe_m = false and Num_compet = %2 and Num_profil = %3")
                        .arg(lucie, compet, app->state.profile_num)),
              1);
    // Adding her again finds her row and makes no second one.
    view->set_search_text(QStringLiteral("dupont"));
    view->search_return();
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag_nageur where Num_Lic = ") + lucie), 1);
    EXPECT_EQ(view->lsv_engag().rowCount(), 1);
}

TEST_F(Engag, TheDeleteKeyTakesTheSwimmerOutWithHisEntriesAndRelayPlaces)
{
    const QString compet = competition(QStringLiteral("20250315"), 25);
    const QString anna = swimmer(QStringLiteral("LE GALL"), QStringLiteral("Anna"), QStringLiteral("F"));
    const QString rozenn = swimmer(QStringLiteral("TANGUY"), QStringLiteral("Rozenn"), QStringLiteral("F"));
    individual(compet, anna);
    individual(compet, rozenn);
    entry(compet, anna, 2, QStringLiteral("1.05"));
    entry(compet, rozenn, 3, QStringLiteral("2.3"));
    exec(QStringLiteral("INSERT INTO Relais VALUES (%1, %2, 8, 1, 0, false, 4.3, %3, %4, %5, %5, %5, %5, %5, %5, %5, %5)")
             .arg(app->state.profile_num, compet, anna, rozenn, app->state.num_lic_nulle));
    FrmEngag* view = open(compet);
    ASSERT_NE(view, nullptr);
    show(*view, anna);
    view->delete_key();
    EXPECT_EQ(entries(compet), QStringList{rozenn + QStringLiteral(":3:2.3:20241012:Lorient:25")});
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag_nageur where Num_Lic = ") + anna), 0);
    EXPECT_EQ(value(QStringLiteral("select Licence1 || ':' || Licence2 from Relais")),
              app->state.num_lic_nulle + QLatin1Char(':') + rozenn);
    // The next swimmer is on show, and she can be added again.
    EXPECT_EQ(view->swimmer(), rozenn);
    EXPECT_EQ(view->lsv_engag().rowCount(), 1);
    EXPECT_TRUE(find_key(view->lsv_licencie(), anna).has_value());
}

TEST_F(Engag, UndoingThePassBringsTheEntriesBackAndKeepingItKeepsThem)
{
    install_entries_handoff();
    const QString compet = competition(QStringLiteral("20250315"), 25);
    const QString other = competition(QStringLiteral("20250316"), 25);
    const QString anna = swimmer(QStringLiteral("LE GALL"), QStringLiteral("Anna"), QStringLiteral("F"));
    const QString yann = swimmer(QStringLiteral("MORVAN"), QStringLiteral("Yann"), QStringLiteral("M"));
    individual(compet, anna);
    individual(compet, yann);
    entry(compet, anna, 2, QStringLiteral("1.05"));
    entry(compet, yann, 53, QStringLiteral("2.01"));
    entry(other, anna, 4, QStringLiteral("5.2"));
    exec(QStringLiteral("INSERT INTO Relais VALUES (%1, %2, 8, 1, 0, false, 4.3, %3, %4, %4, %4, %4, %4, %4, %4, %4, %4)")
             .arg(app->state.profile_num, compet, anna, app->state.num_lic_nulle));
    const QStringList before = entries(compet);

    competition_chosen(*app, QString(keyword::kChoixPourEngagements), compet);
    auto* view = ui.window_as<FrmEngag>(QStringLiteral("frm_engag"));
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->title(), QStringLiteral("Définition des engagements"));
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag_tempo")), 2);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Relais_tempo")), 1);
    show(*view, anna);
    view->set_checked(2, false);
    view->set_checked(5, true);
    show(*view, yann);
    view->delete_key();
    ASSERT_NE(entries(compet), before);
    view->cmd_annuler();
    EXPECT_EQ(entries(compet), before);
    EXPECT_EQ(entries(other).size(), 1);
    EXPECT_EQ(value(QStringLiteral("select Licence1 from Relais")), anna);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag_tempo")), 0);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Relais_tempo")), 0);
    EXPECT_EQ(ui.window(QStringLiteral("frm_engag")), nullptr);
    EXPECT_TRUE(ui.status_history.contains(QStringLiteral("Annulation des modifications")));

    // The end of the pass leaves no row for a swimmer in no team: the next
    // pass enters her again, and finds her entries.
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag_nageur")), 0);

    // Kept: the changes stand and the work tables are empty.
    competition_chosen(*app, QString(keyword::kChoixPourEngagements), compet);
    view = ui.window_as<FrmEngag>(QStringLiteral("frm_engag"));
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->lsv_engag().rowCount(), 0);
    view->set_search_text(QStringLiteral("le gall"));
    view->search_return();
    ASSERT_EQ(view->swimmer(), anna);
    EXPECT_TRUE(view->panel()[2].checked);
    view->set_checked(5, true);
    view->cmd_ok();
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag where Num_compet = %1 and Code_epreuve = 5").arg(compet)),
              1);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag_tempo")), 0);
    EXPECT_EQ(ui.window(QStringLiteral("frm_engag")), nullptr);

    // The close box keeps the pass too, swimmer on show included.
    competition_chosen(*app, QString(keyword::kChoixPourEngagements), compet);
    view = ui.window_as<FrmEngag>(QStringLiteral("frm_engag"));
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag_tempo")), 3);
    view->set_search_text(QStringLiteral("le gall"));
    view->search_return();
    view->set_checked(6, true);
    EXPECT_TRUE(ui.close_window(QStringLiteral("frm_engag")));
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag where Num_compet = %1 and Code_epreuve = 6").arg(compet)),
              1);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag_tempo")), 0);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag_nageur")), 0);
}

TEST_F(Engag, ATeamChosenInTheListCarriesItsNumberIntoTheEntriesAndUndoBringsTheCountsBack)
{
    install_entries_handoff();
    const QString compet = competition(QStringLiteral("20250315"), 25);
    const QString anna = swimmer(QStringLiteral("LE GALL"), QStringLiteral("Anna"), QStringLiteral("F"));
    const QString yann = swimmer(QStringLiteral("MORVAN"), QStringLiteral("Yann"), QStringLiteral("M"));
    exec(QStringLiteral("INSERT INTO Engag_equipe (Num_compet, Num_profil, Eq_Homme, Eq_Femme, Eq_Mixte) VALUES "
                        "(%1, %2, 1, 0, 60)")
             .arg(compet, app->state.profile_num));
    competition_chosen(*app, QString(keyword::kChoixPourEngagements), compet);
    auto* view = ui.window_as<FrmEngag>(QStringLiteral("frm_engag"));
    ASSERT_NE(view, nullptr);
    ASSERT_EQ(view->cbo_team().size(), 1 + 1 + 49);  // a count of 60 is read as 49
    EXPECT_EQ(view->cbo_team()[1], QStringLiteral("Equipe 1 Homme"));
    view->set_team(1);
    // Only men may join a men's team.
    ASSERT_EQ(view->lsv_licencie().rowCount(), 1);
    EXPECT_EQ(row_key(view->lsv_licencie(), 0), yann);
    view->set_search_text(QStringLiteral("morvan"));
    view->search_return();
    ASSERT_EQ(view->swimmer(), yann);
    view->set_checked(2, true);
    view->set_team(0);  // the swimmer on show is saved first
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag where Num_Lic = %1 and Code_epreuve = 52 and "
                                   "Num_equipe = 1 and Equipe_mixte = false")
                        .arg(yann)),
              1);
    EXPECT_EQ(view->lsv_engag().rowCount(), 0);
    EXPECT_TRUE(find_key(view->lsv_licencie(), anna).has_value());
    EXPECT_FALSE(find_key(view->lsv_licencie(), yann).has_value());  // he is in a team

    // The men's team given up: he and his entry go back; undo restores all.
    view->txt_nb_equipe[0] = QStringLiteral("0");
    view->cmd_def_team();
    EXPECT_EQ(view->team_index(), 0);
    EXPECT_EQ(view->cbo_team().size(), 1 + 49);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag where Num_Lic = ") + yann), 0);
    view->cmd_annuler();
    EXPECT_EQ(value(QStringLiteral("select Eq_Homme || ':' || Eq_Mixte from Engag_equipe")), QStringLiteral("1:60"));
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag")), 0);
}

TEST_F(Engag, TheViewModeChangesNothing)
{
    const QString compet = competition(QStringLiteral("20250315"), 25);
    const QString anna = swimmer(QStringLiteral("LE GALL"), QStringLiteral("Anna"), QStringLiteral("F"));
    const QString yann = swimmer(QStringLiteral("MORVAN"), QStringLiteral("Yann"), QStringLiteral("M"));
    individual(compet, anna);
    individual(compet, yann);
    entry(compet, anna, 2, QStringLiteral("1.05"));
    FrmEngag* view = open(compet, QStringLiteral("View"));
    ASSERT_NE(view, nullptr);
    EXPECT_FALSE(view->search_enabled());
    EXPECT_FALSE(view->add_enabled());
    EXPECT_FALSE(view->chk_domodele_visible());
    show(*view, anna);
    view->set_checked(2, false);
    view->set_checked(4, true);
    show(*view, yann);
    view->delete_key();
    view->cmd_annuler();
    EXPECT_EQ(entries(compet), QStringList{anna + QStringLiteral(":2:1.05:20241012:Lorient:25")});
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag_nageur")), 2);
}

TEST_F(Engag, AFailedSaveSaysSoAndKeepsWhatWasWritten)
{
    const QString compet = competition(QStringLiteral("20250315"), 25);
    const QString anna = swimmer(QStringLiteral("LE GALL"), QStringLiteral("Anna"), QStringLiteral("F"));
    const EntryScope target = EntryScope::competition(compet, app->state.profile_num);
    EngagPanel panel{};
    panel[1].checked = true;
    panel[2].checked = true;
    panel[2].temps = QStringLiteral("1.05");
    // The second insert is refused by the engine.
    exec(QStringLiteral("CREATE TRIGGER refuse_second BEFORE INSERT ON Engag WHEN NEW.Code_epreuve = 2 "
                        "BEGIN SELECT RAISE(ABORT, 'refused'); END"));
    EXPECT_FALSE(SaveEngagNageur(*app, target, Team{}, anna, ChargerEpreuves(app->db), panel));
    ASSERT_FALSE(ui.messages.empty());
    EXPECT_TRUE(ui.messages.back().text.contains(
        QStringLiteral("Une erreur s'est produite lors de la sauvegarde des engagements.")));
    EXPECT_EQ(entries(compet), QStringList{anna + QStringLiteral(":1:0:::25")});

    // A swimmer deleted in another window: the message, and his rows as they were.
    exec(QStringLiteral("DROP TRIGGER refuse_second"));
    exec(QStringLiteral("DELETE FROM Licence WHERE Num = ") + anna);
    ui.messages.clear();
    EXPECT_FALSE(SaveEngagNageur(*app, target, Team{}, anna, ChargerEpreuves(app->db), panel));
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_TRUE(ui.messages.back().text.contains(
        QStringLiteral("Une erreur s'est produite lors de la sauvegarde des engagements.")));
    EXPECT_EQ(entries(compet), QStringList{anna + QStringLiteral(":1:0:::25")});
}

TEST_F(Engag, AnOlderBaseGetsTheIndexOfTheProposalThroughTheShippedUpgradeFile)
{
    // The proposal reads a swimmer's performances in event and time order
    // straight from the index, with no sort of its own.
    const auto plan = [this] {
        const Rows rows = app->db.load_rows(QStringLiteral("EXPLAIN QUERY PLAN ") +
                                            ChercherPerfsSql(QStringLiteral("5"), QStringLiteral("20230916")));
        return rows.column(rows.column_count() - 1).join(QLatin1Char('|'));
    };
    EXPECT_TRUE(plan().contains(QStringLiteral("idx_Liffn_Num_Lic"))) << plan().toStdString();
    EXPECT_FALSE(plan().contains(QStringLiteral("TEMP B-TREE"))) << plan().toStdString();

    // A base of version 3, with the index as it stood then.
    exec(QStringLiteral("DROP INDEX idx_Liffn_Num_Lic"));
    exec(QStringLiteral("CREATE INDEX idx_Liffn_Num_Lic ON Liffn (Num_Lic, Code_epreuve)"));
    exec(QStringLiteral("UPDATE Info Set Version = 3"));
    ASSERT_TRUE(plan().contains(QStringLiteral("TEMP B-TREE")));
    ASSERT_TRUE(QFile::copy(QStringLiteral(PLOUVARINE_SOURCE_DIR "/data/maj_base.ini"), upgrade_file_path(*app)));
    EXPECT_TRUE(upgrade_base(*app, app->state.base_path));
    EXPECT_EQ(value(QStringLiteral("select Version from Info")), QStringLiteral("5"));
    EXPECT_FALSE(plan().contains(QStringLiteral("TEMP B-TREE"))) << plan().toStdString();
    EXPECT_EQ(app->db.load_rows(QStringLiteral("select name from pragma_index_info('idx_Liffn_Num_Lic')"))
                  .column(0)
                  .join(QLatin1Char(',')),
              QStringLiteral("Num_Lic,Code_epreuve,Tps"));
}

}  // namespace
