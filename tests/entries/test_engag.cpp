// Individual entries on a real base: the proposed time, the panel from Nage,
// the rows left in Engag as the selection moves, and a pass kept or undone.

#include "entries/engag_test_base.h"
#include "src/competitions/handoff.h"
#include "src/entries/frm_engag.h"
#include "src/entries/utils_engag.h"
#include "src/frame/keywords.h"
#include "src/frame/list_helpers.h"
#include "src/frame/upgrade.h"

#include <QFile>

using namespace plouvarine;
using namespace Qt::Literals::StringLiterals;

namespace {

class Engag : public plouvarine::testing::EngagBase {
protected:
    FrmEngag* open(const QString& compet, const QString& mode = u"Modif"_s, bool modele = false)
    {
        FrmEngag* view = OuvrirEngag(*app, mode, compet, u"Définition des engagements"_s, modele);
        EXPECT_NE(view, nullptr);
        return view;
    }
    // The window of the pass the competition list opens.
    FrmEngag* pass(const QString& compet)
    {
        competition_chosen(*app, QString(keyword::kChoixPourEngagements), compet);
        return ui.window_as<FrmEngag>(u"frm_engag"_s);
    }
    void show(FrmEngag& view, const QString& num)
    {
        const std::optional<int> row = find_key(view.lsv_engag(), num);
        ASSERT_TRUE(row.has_value()) << num.toStdString();
        view.select_swimmer(*row);
        ASSERT_EQ(view.swimmer(), num);
    }
    // A new swimmer in the individual list of `compet`.
    QString entered(const QString& compet, const QString& nom, const QString& prenom, const QString& sexe)
    {
        const QString num = swimmer(nom, prenom, sexe);
        individual(compet, num);
        return num;
    }
    void search(FrmEngag& view, const QString& text)
    {
        view.set_search_text(text);
        view.search_return();
    }
    QString new_model()
    {
        return app->db.append_row(u"Modele_engag"_s, {{"Nom_modele", "Interclubs"}}, u"NumAuto"_s);
    }
    static QString text(const PerfSlot& p) { return p.temps + u':' + p.date + u':' + p.lieu + u':' + p.bassin; }
    static QString text(const EngagRow& r)
    {
        return r.temps + u':' + r.jour + r.mois + r.annee + u':' + r.lieu + (r.bassin_50 ? u":50"_s : u":25"_s);
    }
};

TEST_F(Engag, TheProposalIsTheFastestTimeSinceTheOpeningOfTheSeasonBefore)
{
    // A competition of March 2025: its season opened on 16 September 2024,
    // the one before on 16 September 2023.
    EXPECT_EQ(DebutPerf(u"20250315"_s), u"20230916"_s);
    EXPECT_EQ(DebutPerf(u"20250916"_s), u"20240916"_s);
    EXPECT_EQ(DebutPerf(u"20250915"_s), u"20230916"_s);

    const QString anna = swimmer("LE GALL", "Anna", "F");
    const QString yann = swimmer("MORVAN", "Yann", "M");
    perf(anna, 2, "1.05", "20230916", 25, "Morlaix");  // the floor: counts
    perf(anna, 2, "1.03", "20230915", 25);             // the day before: too old
    perf(anna, 2, "1.08", "20241010", 25);
    perf(anna, 12, "1.15", "20230915", 25);  // nothing since the floor
    perf(anna, 3, "2.25", "20241110", 25);
    perf(anna, 3, "2.2", "20241201", 50, "Brest");  // any pool, as it is
    perf(anna, 4, "4.5", "20241001", 25, "Vannes");
    perf(anna, 4, "4.5", "20241101", 50, "Quimper");
    perf(yann, 51, "0.2812", "20241010", 50);
    perf(yann, 51, "0.2904", "20241020", 25);

    const TabPerf tab = ChercherPerfs(app->db, anna, u"20230916"_s);
    EXPECT_EQ(text(tab[2]), u"1.0500:20230916:Morlaix:25"_s);
    EXPECT_EQ(text(tab[12]), u":::"_s);
    EXPECT_EQ(text(tab[3]), u"2.2000:20241201:Brest:50"_s);
    EXPECT_EQ(text(tab[1]), u":::"_s);  // his performance is not hers
    // Of equal times one performance is taken whole: its place, date and pool together.
    EXPECT_TRUE(text(tab[4]) == u"4.5000:20241001:Vannes:25"_s || text(tab[4]) == u"4.5000:20241101:Quimper:50"_s)
        << text(tab[4]).toStdString();
    // A man's event lands on the row of the woman's code.
    EXPECT_EQ(text(ChercherPerfs(app->db, yann, u"20230916"_s)[1]), u"0.2812:20241010:Rennes:50"_s);
}

TEST_F(Engag, ThePanelFollowsNageAndLocksThe25mRowsOfA50mCompetition)
{
    const PanelEvents events = ChargerEpreuves(app->db);
    EXPECT_EQ(events[12].label, u"100m dos"_s);
    EXPECT_EQ(events[0].label, u"25m n.l."_s);
    EXPECT_FALSE(events[8].shown);   // a relay is no individual entry
    EXPECT_FALSE(events[45].shown);  // nor a mixed relay
    EXPECT_FALSE(events[20].possible_50);
    EXPECT_TRUE(events[21].possible_50);
    EXPECT_EQ(std::count_if(events.begin(), events.end(), [](const PanelEvent& e) { return e.shown; }), 22);

    const QString yann = swimmer("MORVAN", "Yann", "M");
    const QString long_pool = competition("20250315", 50);
    individual(long_pool, yann);
    entry(long_pool, yann, 70, "0.19");  // a 25 m breast stored before
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
    EXPECT_EQ(entries(long_pool), QStringList{yann + u":70:0.19:20241012:Lorient:25"_s});

    const QString short_pool = competition("20250315", 25);
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
    const QString compet = competition("20250315", 50);
    const QString anna = entered(compet, "LE GALL", "Anna", "F");
    const QString yann = entered(compet, "MORVAN", "Yann", "M");
    perf(anna, 2, "1.05", "20240110", 25, "Morlaix");
    perf(anna, 3, "2.2", "20241201", 50, "Brest");
    perf(yann, 51, "0.2812", "20241010", 50, "Saint-Brieuc");

    FrmEngag* view = open(compet);
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->cbo_team(), QStringList{u"Individuel"_s});
    EXPECT_EQ(view->lsv_engag().rowCount(), 2);
    show(*view, anna);
    view->set_checked(2, true);
    EXPECT_EQ(text(view->panel()[2]), u"1.0500:10012024:Morlaix:25"_s);
    view->set_checked(3, true);
    view->set_temps(3, u"2,1"_s);  // overtyped
    view->leave_temps(3);
    EXPECT_EQ(text(view->panel()[3]), u"2.1000:01122024:Brest:50"_s);
    view->set_checked(11, true);  // no performance: empty fields, 25 m
    EXPECT_EQ(text(view->panel()[11]), u":::25"_s);
    view->set_checked(12, true);
    view->set_checked(12, false);  // taken back: nothing stored

    show(*view, yann);
    EXPECT_EQ(entries(compet), (QStringList{anna + u":2:1.05:20240110:Morlaix:25"_s,
                                            anna + u":3:2.1:20241201:Brest:50"_s, anna + u":11:0:::25"_s}));
    EXPECT_TRUE(ui.status_history.contains(u"Sauvegarde des engagements du nageur en cours"_s));
    EXPECT_TRUE(ui.status_history.contains(u"Affichage des engagements du nageur en cours"_s));
    view->set_checked(1, true);
    EXPECT_EQ(view->panel()[1].temps, u"0.2812"_s);

    // Back to her: her rows as saved, his saved on the way.
    show(*view, anna);
    EXPECT_TRUE(view->panel()[2].checked);
    EXPECT_EQ(text(view->panel()[2]), u"1.0500:10012024:Morlaix:25"_s);
    EXPECT_EQ(text(view->panel()[3]), u"2.1000:01122024:Brest:50"_s);
    EXPECT_FALSE(view->panel()[12].checked);
    EXPECT_EQ(count(u"select count(*) from Engag where Num_Lic = %1 and Code_epreuve = 51 and Tps_engagement = 0.2812 "
                    "and Bassin = 50 and Num_equipe = 0 and Equipe_mixte = false"_s.arg(yann)),
              1);
}

TEST_F(Engag, ASwimmerWhoseSexChangedKeepsHisRowsUnderHisNewCodes)
{
    const QString compet = competition("20250315", 25);
    const QString camille = entered(compet, "RIOU", "Camille", "M");
    const QString anna = entered(compet, "LE GALL", "Anna", "F");
    entry(compet, camille, 52, "1.02");
    exec("UPDATE Licence SET Sexe = 'F' WHERE Num = " + camille);
    FrmEngag* view = open(compet);
    ASSERT_NE(view, nullptr);
    show(*view, camille);
    EXPECT_TRUE(view->panel()[2].checked);
    EXPECT_EQ(view->panel()[2].temps, u"1.0200"_s);
    show(*view, anna);
    EXPECT_EQ(entries(compet), QStringList{camille + u":2:1.02:20241012:Lorient:25"_s});
}

TEST_F(Engag, TheInsertOfOneRowRunsOnTheBaseForACompetitionAndForAModel)
{
    const QString compet = competition("20250315", 50);
    const QString anna = swimmer("LE GALL", "Anna", "F");
    const EntryScope target = EntryScope::competition(compet, app->state.profile_num);
    const EngagRow row{true, u"-1"_s, u"Saint-Malo l'été"_s, u"12"_s, u"13"_s, u"2024"_s, true};
    // A negative time goes as 0, a date that can't be one as none, the 50 m
    // only where the row has it.
    exec(InsertEngagSql(target, Team{2, true, {}}, anna, 0, 20, row, false));
    EXPECT_EQ(entries(compet), QStringList{anna + u":20:0::Saint-Malo l'été:25"_s});
    EXPECT_EQ(count("select count(*) from Engag where Num_equipe = 2 and Equipe_mixte = true"), 1);

    const QString modele = new_model();
    // Engag_modele has no time nor pool: the statement runs only without them.
    exec(InsertEngagSql(EntryScope::model(modele), Team{}, anna, 50, 2, row, true));
    EXPECT_EQ(value("select Code_epreuve || ':' || Num_Lic from Engag_modele where Num_modele = " + modele),
              "52:" + anna);
}

TEST_F(Engag, AModelKeepsTicksOnlyAndANewOneGoesOnCancel)
{
    const QString anna = swimmer("LE GALL", "Anna", "F");
    perf(anna, 2, "1.05", "20250110", 25);
    const QString kept = new_model();
    const QString ticked = "select Code_epreuve, Num_Lic from Engag_modele where Num_modele = " + kept + " order by 1";
    FrmEngag* view = open(kept, u"new modele"_s, true);
    ASSERT_NE(view, nullptr);
    EXPECT_FALSE(view->fields_visible());
    search(*view, u"le gall"_s);
    ASSERT_EQ(view->swimmer(), anna);
    view->set_checked(2, true);
    view->set_checked(20, true);  // a model knows no pool length
    EXPECT_TRUE(view->panel()[2].temps.isEmpty());
    EXPECT_FALSE(view->fields_enabled(2));
    view->cmd_ok();
    EXPECT_EQ(dump(ticked), (QStringList{"2:" + anna, "20:" + anna}));
    EXPECT_EQ(count("select count(*) from Engag"), 0);
    // The model's swimmer stays, though in no team: the end of a new model's
    // pass removes nothing.
    EXPECT_EQ(count("select count(*) from Engag_nageur_modele where Num_modele = " + kept), 1);

    // Edited, the model shows its ticks and keeps what is left of them.
    view = open(kept, u"Modif"_s, true);
    ASSERT_NE(view, nullptr);
    show(*view, anna);
    EXPECT_TRUE(view->panel()[20].checked);
    view->set_checked(20, false);
    view->cmd_ok();
    EXPECT_EQ(dump(ticked), QStringList{"2:" + anna});

    const QString dropped = new_model();
    view = open(dropped, u"new modele"_s, true);
    ASSERT_NE(view, nullptr);
    search(*view, u"le gall"_s);
    view->set_checked(12, true);
    view->cmd_annuler();
    EXPECT_EQ(dump("select NumAuto from Modele_engag"), QStringList{kept});
    EXPECT_EQ(ui.window(u"frm_engag"_s), nullptr);
}

TEST_F(Engag, TheSearchEntersASwimmerFromTheKeyboard)
{
    const QString compet = competition("20250315", 25);
    swimmer("ABALAIN", "Jeanne", "F");
    const QString lucie = swimmer("DUPONT", "Lucie", "F");
    FrmEngag* view = open(compet);
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->lsv_engag().rowCount(), 0);
    EXPECT_EQ(view->lsv_licencie().rowCount(), 2);
    search(*view, u"zz"_s);  // no match: nobody added
    EXPECT_EQ(count("select count(*) from Engag_nageur"), 0);
    search(*view, u"dupont l"_s);
    EXPECT_EQ(view->swimmer(), lucie);
    EXPECT_TRUE(view->search_text().isEmpty());
    EXPECT_EQ(dump("select Num_Lic, Equipe, Equipe_m, Num_compet, Num_profil from Engag_nageur"),
              QStringList{u"%1:0:Faux:%2:%3"_s.arg(lucie, compet, app->state.profile_num)});
    // Adding her again finds her row and makes no second one.
    search(*view, u"dupont"_s);
    EXPECT_EQ(count("select count(*) from Engag_nageur where Num_Lic = " + lucie), 1);
    EXPECT_EQ(view->lsv_engag().rowCount(), 1);
}

TEST_F(Engag, TheDeleteKeyTakesTheSwimmerOutWithHisEntriesAndRelayPlaces)
{
    const QString compet = competition("20250315", 25);
    const QString anna = entered(compet, "LE GALL", "Anna", "F");
    const QString rozenn = entered(compet, "TANGUY", "Rozenn", "F");
    entry(compet, anna, 2, "1.05");
    entry(compet, rozenn, 3, "2.3");
    exec(u"INSERT INTO Relais VALUES (%1, %2, 8, 1, 0, false, 4.3, %3, %4, %5, %5, %5, %5, %5, %5, %5, %5)"_s.arg(
        app->state.profile_num, compet, anna, rozenn, app->state.num_lic_nulle));
    FrmEngag* view = open(compet);
    ASSERT_NE(view, nullptr);
    show(*view, anna);
    view->delete_key();
    EXPECT_EQ(entries(compet), QStringList{rozenn + u":3:2.3:20241012:Lorient:25"_s});
    EXPECT_EQ(count("select count(*) from Engag_nageur where Num_Lic = " + anna), 0);
    EXPECT_EQ(value("select Licence1 || ':' || Licence2 from Relais"), app->state.num_lic_nulle + u':' + rozenn);
    // The next swimmer is on show, and she can be added again.
    EXPECT_EQ(view->swimmer(), rozenn);
    EXPECT_EQ(view->lsv_engag().rowCount(), 1);
    EXPECT_TRUE(find_key(view->lsv_licencie(), anna).has_value());
}

TEST_F(Engag, UndoingThePassBringsTheEntriesBackAndKeepingItKeepsThem)
{
    install_entries_handoff();
    const QString compet = competition("20250315", 25);
    const QString other = competition("20250316", 25);
    const QString anna = entered(compet, "LE GALL", "Anna", "F");
    const QString yann = entered(compet, "MORVAN", "Yann", "M");
    entry(compet, anna, 2, "1.05");
    entry(compet, yann, 53, "2.01");
    entry(other, anna, 4, "5.2");
    exec(u"INSERT INTO Relais VALUES (%1, %2, 8, 1, 0, false, 4.3, %3, %4, %4, %4, %4, %4, %4, %4, %4, %4)"_s.arg(
        app->state.profile_num, compet, anna, app->state.num_lic_nulle));
    const QStringList before = entries(compet);

    FrmEngag* view = pass(compet);
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->title(), u"Définition des engagements"_s);
    EXPECT_EQ(count("select count(*) from Engag_tempo"), 2);
    EXPECT_EQ(count("select count(*) from Relais_tempo"), 1);
    show(*view, anna);
    view->set_checked(2, false);
    view->set_checked(5, true);
    show(*view, yann);
    view->delete_key();
    ASSERT_NE(entries(compet), before);
    view->cmd_annuler();
    EXPECT_EQ(entries(compet), before);
    EXPECT_EQ(entries(other).size(), 1);
    EXPECT_EQ(value("select Licence1 from Relais"), anna);
    EXPECT_EQ(count("select count(*) from Engag_tempo"), 0);
    EXPECT_EQ(count("select count(*) from Relais_tempo"), 0);
    EXPECT_EQ(ui.window(u"frm_engag"_s), nullptr);
    EXPECT_TRUE(ui.status_history.contains(u"Annulation des modifications"_s));
    // The end of the pass leaves no row for a swimmer in no team: the next
    // pass enters her again, and finds her entries.
    EXPECT_EQ(count("select count(*) from Engag_nageur"), 0);

    // Kept, by Ok then by the close box with a swimmer on show: the changes
    // stand and the work tables are empty.
    for (int code : {5, 6}) {
        view = pass(compet);
        ASSERT_NE(view, nullptr);
        EXPECT_EQ(view->lsv_engag().rowCount(), 0);
        search(*view, u"le gall"_s);
        ASSERT_EQ(view->swimmer(), anna);
        EXPECT_TRUE(view->panel()[2].checked);
        view->set_checked(code, true);
        if (code == 5)
            view->cmd_ok();
        else
            EXPECT_TRUE(ui.close_window(u"frm_engag"_s));
        EXPECT_EQ(dump("select Code_epreuve from Engag where Code_epreuve in (5, 6) order by 1"),
                  (code == 5 ? QStringList{"5"} : QStringList{"5", "6"}));
        EXPECT_EQ(count("select count(*) from Engag_tempo"), 0);
        EXPECT_EQ(count("select count(*) from Engag_nageur"), 0);
        EXPECT_EQ(ui.window(u"frm_engag"_s), nullptr);
    }
}

TEST_F(Engag, ATeamChosenInTheListCarriesItsNumberIntoTheEntriesAndUndoBringsTheCountsBack)
{
    install_entries_handoff();
    const QString compet = competition("20250315", 25);
    const QString anna = swimmer("LE GALL", "Anna", "F");
    const QString yann = swimmer("MORVAN", "Yann", "M");
    exec(u"INSERT INTO Engag_equipe (Num_compet, Num_profil, Eq_Homme, Eq_Femme, Eq_Mixte) VALUES (%1, %2, 1, 0, 60)"_s
             .arg(compet, app->state.profile_num));
    FrmEngag* view = pass(compet);
    ASSERT_NE(view, nullptr);
    ASSERT_EQ(view->cbo_team().size(), 1 + 1 + 49);  // a count of 60 is read as 49
    EXPECT_EQ(view->cbo_team()[1], u"Equipe 1 Homme"_s);
    view->set_team(1);
    // Only men may join a men's team.
    ASSERT_EQ(view->lsv_licencie().rowCount(), 1);
    EXPECT_EQ(row_key(view->lsv_licencie(), 0), yann);
    search(*view, u"morvan"_s);
    ASSERT_EQ(view->swimmer(), yann);
    view->set_checked(2, true);
    view->set_team(0);  // the swimmer on show is saved first
    EXPECT_EQ(dump("select Num_Lic, Code_epreuve, Num_equipe, Equipe_mixte from Engag"),
              QStringList{yann + u":52:1:Faux"_s});
    EXPECT_EQ(view->lsv_engag().rowCount(), 0);
    EXPECT_TRUE(find_key(view->lsv_licencie(), anna).has_value());
    EXPECT_FALSE(find_key(view->lsv_licencie(), yann).has_value());  // he is in a team

    // The men's team given up: he and his entry go back; undo restores all.
    view->txt_nb_equipe[0] = u"0"_s;
    view->cmd_def_team();
    EXPECT_EQ(view->team_index(), 0);
    EXPECT_EQ(view->cbo_team().size(), 1 + 49);
    EXPECT_EQ(count("select count(*) from Engag where Num_Lic = " + yann), 0);
    view->cmd_annuler();
    EXPECT_EQ(value("select Eq_Homme || ':' || Eq_Mixte from Engag_equipe"), u"1:60"_s);
    EXPECT_EQ(count("select count(*) from Engag"), 0);
}

TEST_F(Engag, TheViewModeChangesNothing)
{
    const QString compet = competition("20250315", 25);
    const QString anna = entered(compet, "LE GALL", "Anna", "F");
    const QString yann = entered(compet, "MORVAN", "Yann", "M");
    entry(compet, anna, 2, "1.05");
    FrmEngag* view = open(compet, u"View"_s);
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
    EXPECT_EQ(entries(compet), QStringList{anna + u":2:1.05:20241012:Lorient:25"_s});
    EXPECT_EQ(count("select count(*) from Engag_nageur"), 2);
}

TEST_F(Engag, AFailedSaveSaysSoAndKeepsWhatWasWritten)
{
    const QString compet = competition("20250315", 25);
    const QString anna = swimmer("LE GALL", "Anna", "F");
    const EntryScope target = EntryScope::competition(compet, app->state.profile_num);
    EngagPanel panel{};
    panel[1].checked = true;
    panel[2].checked = true;
    panel[2].temps = u"1.05"_s;
    const auto save_fails = [&] {
        ui.messages.clear();
        EXPECT_FALSE(SaveEngagNageur(*app, target, Team{}, anna, ChargerEpreuves(app->db), panel));
        ASSERT_EQ(ui.messages.size(), 1u);
        EXPECT_TRUE(
            ui.messages.back().text.contains(u"Une erreur s'est produite lors de la sauvegarde des engagements."_s));
        EXPECT_EQ(entries(compet), QStringList{anna + u":1:0:::25"_s});
    };
    // The second insert is refused by the engine.
    exec("CREATE TRIGGER refuse_second BEFORE INSERT ON Engag WHEN NEW.Code_epreuve = 2 "
         "BEGIN SELECT RAISE(ABORT, 'refused'); END");
    save_fails();
    // A swimmer deleted in another window: the message, and his rows as they were.
    exec("DROP TRIGGER refuse_second");
    exec("DELETE FROM Licence WHERE Num = " + anna);
    save_fails();
}

TEST_F(Engag, AnOlderBaseGetsTheIndexOfTheProposalThroughTheShippedUpgradeFile)
{
    // The proposal reads a swimmer's performances in event and time order
    // straight from the index, with no sort of its own.
    const auto plan = [this] {
        const Rows rows = app->db.load_rows("EXPLAIN QUERY PLAN " + ChercherPerfsSql(u"5"_s, u"20230916"_s));
        return rows.column(rows.column_count() - 1).join(u'|');
    };
    EXPECT_TRUE(plan().contains(u"idx_Liffn_Num_Lic"_s)) << plan().toStdString();
    EXPECT_FALSE(plan().contains(u"TEMP B-TREE"_s)) << plan().toStdString();

    // A base of version 3, with the index as it stood then.
    exec("DROP INDEX idx_Liffn_Num_Lic");
    exec("CREATE INDEX idx_Liffn_Num_Lic ON Liffn (Num_Lic, Code_epreuve)");
    exec("UPDATE Info Set Version = 3");
    ASSERT_TRUE(plan().contains(u"TEMP B-TREE"_s));
    ASSERT_TRUE(QFile::copy(QStringLiteral(PLOUVARINE_SOURCE_DIR "/data/maj_base.ini"), upgrade_file_path(*app)));
    EXPECT_TRUE(upgrade_base(*app, app->state.base_path));
    EXPECT_EQ(value("select Version from Info"), u"5"_s);
    EXPECT_FALSE(plan().contains(u"TEMP B-TREE"_s)) << plan().toStdString();
    EXPECT_EQ(dump("select name from pragma_index_info('idx_Liffn_Num_Lic')"),
              (QStringList{"Num_Lic", "Code_epreuve", "Tps"}));
}

}  // namespace
