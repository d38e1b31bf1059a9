// Relays on a real base: the entry time summed from the swimmers' best times,
// the counts per team and event, the composition, and the window's way.

#include "src/entries/frm_engag_relais.h"
#include "src/entries/relays.h"
#include "src/frame/keywords.h"
#include "src/frame/list_helpers.h"
#include "src/competitions/handoff.h"
#include "src/licences/removed_swimmers.h"
#include "entries_test_base.h"

using namespace plouvarine;
using namespace Qt::Literals::StringLiterals;

namespace {

class Relays : public plouvarine::testing::EntriesBase {
protected:
    RelayKey key(const QString& code, int number, const Team& team = {1, false, u"M"_s}) const
    {
        return {u"1"_s, compet, code, number, team};
    }
    QString time_of(const QString& libelle, const std::vector<RelaySwimmer>& swimmers, int longueur)
    {
        const RelayTime result = calcul_temps_relais(*app, libelle, swimmers, longueur);
        return result.ok() ? result.time : relay_time_message(result);
    }
};

TEST_F(Relays, LegsAreReadFromTheLabel)
{
    // "distance free: the codes of the four legs".
    const auto legs = [](const QString& label) {
        const RelayLegs l = relay_legs(label);
        return QString::asprintf("%d %d: %d %d %d %d", l.distance, l.free, l.code(0), l.code(1), l.code(2), l.code(3));
    };
    EXPECT_EQ(legs(u"4x100m n.l. Mess."_s), u"100 1: 2 2 2 2"_s);
    EXPECT_EQ(legs(u"4x50m 4N Dames"_s), u"50 0: 11 21 31 1"_s);
    EXPECT_EQ(legs(u"4X200M N.L. Mixte"_s), u"200 1: 3 3 3 3"_s);
    // Another distance stands as it is.
    EXPECT_EQ(legs(u"4x25m n.l. Dames"_s), u"25 1: 25 25 25 25"_s);
}

TEST_F(Relays, TheTimeSumsTheBestTimeOfEachLegInThePoolOfTheCompetition)
{
    const QString a = swimmer("Abgrall", "M", "Yann");
    const QString b = swimmer("Bothorel", "F", "Nolwenn");
    const QString c = swimmer("Cadiou", "M", "Erwan");
    const QString d = swimmer("Derrien", "M", "Loic");
    perf(a, 52, "0.5845", "20240110");      // 58.45
    perf(a, 52, "0.5512", "20241110", 25);  // faster, but in a 25 m pool
    perf(a, 53, "0.5000", "20241110");      // another event
    perf(b, 2, "1.0250", "20221020");       // 16 Sept. 2022 counts
    perf(c, 52, "0.5930", "20220916");      // the first day counted
    perf(c, 52, "0.5000", "20220915");      // the day before does not
    perf(d, 2, "0.5990", "20250101");       // a women's code: either counts
    const std::vector<RelaySwimmer> team{
        {a, "Abgrall", "Yann"}, {b, "Bothorel", "Nolwenn"}, {c, "Cadiou", "Erwan"}, {d, "Derrien", "Loic"}};
    // 58.45 + 1:02.50 + 59.30 + 59.90 = 3:60.15, carried to 4:00.15.
    EXPECT_EQ(time_of(u"4x100m n.l. Mess."_s, team, 50), u"4.0015"_s);
    // In a 25 m competition the 25 m pool's 55.12 comes in.
    EXPECT_EQ(time_of(u"4x100m n.l. Mess."_s, team, 25), u"3.5682"_s);

    // A medley takes back, breast, fly then free, each from its own event.
    std::vector<RelaySwimmer> medley;
    const int codes[] = {12, 22, 32, 2};
    for (int i = 0; i < 4; ++i) {
        const QString num = swimmer(u"Nageuse%1"_s.arg(i), u"F"_s);
        medley.push_back({num, u"Nageuse%1"_s.arg(i), u"Anne"_s});
        perf(num, codes[i], "1.1000", "20241012");
        // A faster time at any other leg's event is not hers to give.
        perf(num, codes[(i + 1) % 4], "0.5000", "20241012");
    }
    EXPECT_EQ(time_of(u"4x100m 4N Dames"_s, medley, 50), u"4.4000"_s);
}

TEST_F(Relays, SwimmersWithoutAUsableTimeAreNamedAndNoTimeIsGiven)
{
    const QString a = swimmer("Abgrall", "M", "Yann");
    const QString b = swimmer("Bothorel", "M", "Goulven");
    const QString c = swimmer("Cadiou", "M", "Erwan");
    perf(a, 51, "0.2800", "20241012");
    perf(b, 51, "0.2900", "20241012", 25);  // only in a 25 m pool
    perf(c, 51, "0.2700", "20210101");      // too old
    const QString head = u"Impossible de calculer le temps d'engagement car "_s;
    const QString tail = u"pas de performances enregistrées utilisables pour ce relais :\n"_s;

    EXPECT_EQ(time_of(u"4x50m n.l. Mess."_s, {{a, "Abgrall", "Yann"}, {b, "Bothorel", "Goulven"}}, 50),
              head + u"un nageur n'a "_s + tail + u"- Bothorel Goulven\n"_s);
    EXPECT_EQ(time_of(u"4x50m n.l. Mess."_s,
                      {{a, "Abgrall", "Yann"}, {b, "Bothorel", "Goulven"}, {c, "Cadiou", "Erwan"}}, 50),
              head + u"des nageurs n'ont "_s + tail + u"- Bothorel Goulven\n- Cadiou Erwan\n"_s);
}

TEST_F(Relays, CountsAndCompositionStatementsRunAsTheyReachTheBase)
{
    const Team men1{1, false, u"M"_s};
    const Team mixed1{1, true, {}};
    // The mixed team of the same number, in a mixed and in a men's event.
    relay(46, 1, 1, true);
    relay(46, 2, 1, true);
    relay(58, 1, 1, true);
    relay(58, 2, 1, true);
    std::vector<RelayCount> counts{{u"58"_s, 4, 3, 0}, {u"46"_s, 4, 0, 0}};
    ASSERT_TRUE(save_relay_counts(*app, u"1"_s, compet, men1, counts));
    const QString nulle = app->state.num_lic_nulle;
    QStringList empty_relays;
    for (const char* number : {"1", "2", "3"})
        empty_relays << u"1:%1:58:%2:1:Faux:0:%3"_s.arg(compet, number, QStringList(10, nulle).join(':'));
    EXPECT_EQ(dump(u"select * from Relais where Equipe_mixte = false order by Num_Lic"_s), empty_relays);
    EXPECT_EQ(counts[0].nb_equipe_ori, 3);

    // The composition: two swimmers, the time, the other places empty.
    const QString a = swimmer("Abgrall", "M");
    const QString b = swimmer("Bothorel", "M");
    app->db.exec_sql(relay_save_sql(key(u"58"_s, 2), u"3.5512"_s, {b, a}, nulle));
    const RelayRow row = load_relay(*app, key(u"58"_s, 2));
    EXPECT_EQ(row.tps, u"3.5512"_s);
    EXPECT_EQ(row.licences, (QStringList{b, a} + QStringList(8, nulle)));
    EXPECT_TRUE(load_relay(*app, key(u"58"_s, 3, mixed1)).licences.isEmpty());

    // Lowering 3 to 1 deletes relays 2 and 3 with their compositions, and no
    // relay of the mixed team of the same number.
    counts[0].nb_equipe = 1;
    counts[1].nb_equipe = 0;
    ASSERT_TRUE(save_relay_counts(*app, u"1"_s, compet, men1, counts));
    const QString left = u"select Code_epreuve, Num_Lic, Equipe_mixte from Relais order by 1, 2, 3"_s;
    EXPECT_EQ(dump(left), (QStringList{"46:1:Vrai", "46:2:Vrai", "58:1:Faux", "58:1:Vrai", "58:2:Vrai"}));
    // A mixed team's count ignores the event's sex: its relays in a men's
    // event are its own.
    std::vector<RelayCount> mixed_counts{{u"46"_s, 4, 1, 2}, {u"58"_s, 4, 1, 2}};
    ASSERT_TRUE(save_relay_counts(*app, u"1"_s, compet, mixed1, mixed_counts));
    EXPECT_EQ(dump(left), (QStringList{"46:1:Vrai", "58:1:Faux", "58:1:Vrai"}));

    exec(u"DROP TABLE Relais"_s);
    std::vector<RelayCount> more{{u"58"_s, 4, 2, 1}};
    EXPECT_FALSE(save_relay_counts(*app, u"1"_s, compet, men1, more));
    EXPECT_TRUE(
        messages().last().contains(u"Une erreur s'est produite lors de la sauvegarde du nombre d'équipe relais."_s));
}

TEST_F(Relays, AScratchedSwimmerLeavesHisPlaceEmpty)
{
    const QString a = swimmer("Abgrall", "M");
    const QString b = swimmer("Bothorel", "M");
    const QString c = swimmer("Cadiou", "M");
    relay(58, 1, 1, false, {a, b, c});
    RetirerDesRelais(*app, b, compet, 1, false, u"1"_s);
    const QString nulle = app->state.num_lic_nulle;
    EXPECT_EQ(load_relay(*app, key(u"58"_s, 1)).licences, (QStringList{a, nulle, c} + QStringList(7, nulle)));

    // The window shows the two left in their order.
    app->db.exec_sql(u"INSERT INTO Engag_equipe (Num_compet, Num_profil, Eq_Homme) VALUES (%1, 1, 1)"_s.arg(compet));
    FrmEngagRelais* view = OuvrirEngagRelais(*app, QString(keyword::kModif), compet, u"Relais"_s);
    ASSERT_NE(view, nullptr);
    view->set_team_index(1);
    view->cmd_composition();
    ASSERT_EQ(view->relay_number(), 1);
    ASSERT_EQ(view->lsv_engag_relais().rowCount(), 2);
    EXPECT_EQ((QStringList{row_key(view->lsv_engag_relais(), 0), row_key(view->lsv_engag_relais(), 1)}),
              (QStringList{a, c}));
}

// The window's way: counts per team and event, composition from the team's
// members, the computed time, a second relay, and everything found again.
class RelayWindowFlow : public Relays {
protected:
    void SetUp() override
    {
        Relays::SetUp();
        exec(
            u"INSERT INTO Engag_equipe (Num_compet, Num_profil, Eq_Homme, Eq_Femme, Eq_Mixte) VALUES (%1, 1, 1, 0, 1)"_s
                .arg(compet));
        for (int i = 0; i < 5; ++i) {
            men << swimmer(u"Homme%1"_s.arg(i), u"M"_s, u"Yann"_s);
            member(men.last(), 1, false);
            perf(men.last(), 52, u"1.0%1"_s.arg(i) + u"00"_s, u"20241012"_s);
        }
        woman = swimmer("Femme", "F");
        member(woman, 1, true);
        member(swimmer("Guivarch", "M"), 1, true);
    }
    QStringList men;
    QString woman;
};

TEST_F(RelayWindowFlow, CountsCompositionAndTimeReachTheBase)
{
    FrmEngagRelais* view = OuvrirEngagRelais(*app, QString(keyword::kModif), compet, u"Relais"_s);
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->cbo_team(), (QStringList{"Individuel", "Equipe 1 Homme", "Equipe 1 Mixte"}));
    view->set_team_index(1);
    // A men's team in a 50 m competition: the men's relays that a 50 m pool allows.
    EXPECT_EQ(plouvarine::testing::column_texts(view->Lst_relais()),
              (QStringList{"4x50m n.l. Mess.", "4x50m 4N Mess.", "4x100m n.l. Mess.", "4x100m 4N Mess.",
                           "4x200m n.l. Mess."}));
    const int free100 = *find_key(view->Lst_relais(), u"58"_s);
    select_row_at(view->relais_selection(), free100);
    EXPECT_EQ(view->txt_nb_equipe(), u"1"_s);  // proposed
    view->cmd_plus();
    view->cmd_plus();
    view->cmd_moins();
    EXPECT_EQ(view->txt_nb_equipe(), u"2"_s);
    view->cmd_composition();
    EXPECT_EQ(count(u"select count(*) from Relais where Code_epreuve = 58"_s), 2);
    EXPECT_EQ(view->composition_caption(), FrmEngagRelais::kCaptionSelection);
    EXPECT_EQ(view->cbo_team_relais(), QStringList{"4x100m n.l. Mess."});
    EXPECT_EQ(view->lst_num_relais().rowCount(), 2);
    ASSERT_EQ(view->relay_number(), 1);
    ASSERT_EQ(view->lsv_nageurs().rowCount(), 5);  // the team's men only

    // Five members, four places.
    for (int i = 0; i < 5; ++i) {
        select_row_at(view->nageurs_selection(), 0);
        view->cmd_add(0);
    }
    EXPECT_EQ(view->lsv_engag_relais().rowCount(), 4);
    EXPECT_EQ(view->lsv_nageurs().rowCount(), 1);
    EXPECT_FALSE(view->can_add());
    // The last one swims first.
    select_row_at(view->engag_selection(), 3);
    for (int i = 0; i < 3; ++i)
        view->cmd_plus();
    view->cmd_caltps();
    // 1:03.00 + 1:00.00 + 1:01.00 + 1:02.00
    EXPECT_EQ(view->txt_temps, u"4.0600"_s);

    // Relay 2 saves relay 1 on the way.
    select_row_at(view->num_selection(), 1);
    EXPECT_EQ(view->relay_number(), 2);
    EXPECT_EQ(view->lsv_engag_relais().rowCount(), 0);
    select_row_at(view->nageurs_selection(), 0);
    view->cmd_add(0);
    view->cmd_caltps();  // three swimmers short: no message, one leg only
    EXPECT_EQ(view->txt_temps, u"1.0000"_s);
    view->txt_temps.clear();
    view->cmd_ok();
    EXPECT_TRUE(view->is_closed());

    const QString nulle = app->state.num_lic_nulle;
    EXPECT_EQ(
        dump(u"select Num_Lic, Tps, Licence1, Licence2, Licence3, Licence4, Licence5 from Relais order by Num_Lic"_s),
        (QStringList{u"1:4.06:%1:%2:%3:%4:%5"_s.arg(men[3], men[0], men[1], men[2], nulle),
                     u"2:0:%1:%2:%2:%2:%2"_s.arg(men[0], nulle)}));
    EXPECT_EQ(count(u"select count(*) from Relais_tempo"_s), 0);
}

TEST_F(RelayWindowFlow, FromTheCompetitionListCancelRestoresAndTheCloseBoxKeeps)
{
    // The competition list's door: Relais set aside in Relais_tempo, then the window.
    install_relay_handoff();
    const auto open = [this] {
        competition_chosen(*app, QString(keyword::kChoixPourEngagementsRelais), compet);
        return ui.window_as<FrmEngagRelais>(QString(FrmEngagRelais::kName));
    };
    relay(8, 1, 1, false, {woman});
    FrmEngagRelais* view = open();
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(count(u"select count(*) from Relais_tempo"_s), 1);
    // A mixed team takes both sexes.
    view->set_team_index(2);  // Equipe 1 Mixte
    select_row_at(view->relais_selection(), *find_key(view->Lst_relais(), u"46"_s));
    view->set_nb_equipe(u"1"_s);
    view->cmd_composition();
    ASSERT_EQ(view->relay_number(), 1);
    EXPECT_EQ(plouvarine::testing::column_texts(view->lsv_nageurs()), (QStringList{"Femme", "Guivarch"}));
    view->cmd_annuler();
    EXPECT_TRUE(view->is_closed());
    EXPECT_EQ(dump(u"select Code_epreuve, Licence1 from Relais"_s), QStringList{"8:" + woman});
    EXPECT_EQ(count(u"select count(*) from Relais_tempo"_s), 0);

    // The close box keeps the relay on show.
    exec("DELETE FROM Relais");
    relay(58, 1, 1, false);
    view = open();
    ASSERT_NE(view, nullptr);
    view->set_team_index(1);
    view->cmd_composition();
    ASSERT_EQ(view->relay_number(), 1);
    select_row_at(view->nageurs_selection(), 2);
    view->cmd_add(0);
    view->txt_temps = u"4.1"_s;
    EXPECT_TRUE(ui.close_window(QString(FrmEngagRelais::kName)));
    EXPECT_EQ(dump(u"select Tps, Licence1, Licence2 from Relais"_s),
              QStringList{u"4.1:%1:%2"_s.arg(men[2], app->state.num_lic_nulle)});
    EXPECT_EQ(count(u"select count(*) from Relais_tempo"_s), 0);
}

TEST_F(RelayWindowFlow, ARelayThatCannotBeReadIsNotShownNorSaved)
{
    relay(58, 1, 1, false, {men[0]});
    relay(58, 2, 1, false, {men[1], men[2]});
    FrmEngagRelais* view = OuvrirEngagRelais(*app, QString(keyword::kModif), compet, u"Relais"_s);
    ASSERT_NE(view, nullptr);
    view->set_team_index(1);
    view->cmd_composition();
    ASSERT_EQ(view->lsv_engag_relais().rowCount(), 1);
    exec(u"ALTER TABLE Licence RENAME TO Licence_ailleurs"_s);
    select_row_at(view->num_selection(), 1);
    EXPECT_EQ(view->relay_number(), 0);
    EXPECT_EQ(view->lsv_engag_relais().rowCount(), 0);
    EXPECT_TRUE(messages().last().contains(u"n'a pu être exécutée"_s));
    view->cmd_caltps();
    view->cmd_ok();
    EXPECT_TRUE(view->is_closed());
    EXPECT_EQ(dump(u"select Num_Lic, Licence1, Licence2 from Relais order by Num_Lic"_s),
              (QStringList{u"1:%1:%2"_s.arg(men[0], app->state.num_lic_nulle), u"2:%1:%2"_s.arg(men[1], men[2])}));
}

}  // namespace
