// Relays on a real base: the entry time summed from the swimmers' best times
// (free and medley legs, the pool rule, the seasons counted), the message
// naming the swimmers without a time, the counts per team and event with their
// statements run as they reach SQLite, the composition saved and read back,
// a scratched swimmer's empty place, and the window's way through it all.

#include "src/entries/frm_engag_relais.h"
#include "src/entries/relays.h"
#include "src/frame/keywords.h"
#include "src/frame/list_helpers.h"
#include "src/competitions/handoff.h"
#include "src/licences/removed_swimmers.h"
#include "entries_test_base.h"

using namespace plouvarine;

namespace {

class Relays : public plouvarine::testing::EntriesBase {
protected:
    RelayKey key(const QString& code, int number, const Team& team = {1, false, QStringLiteral("M")}) const
    {
        return {QStringLiteral("1"), compet, code, number, team};
    }
    QString time_of(const QString& libelle, const std::vector<RelaySwimmer>& swimmers, int longueur)
    {
        const RelayTime result = calcul_temps_relais(*app, libelle, swimmers, longueur);
        return result.ok() ? result.time : relay_time_message(result);
    }
};

TEST_F(Relays, LegsAreReadFromTheLabel)
{
    const RelayLegs free100 = relay_legs(QStringLiteral("4x100m n.l. Mess."));
    EXPECT_EQ(free100.distance, 100);
    EXPECT_TRUE(free100.free);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(free100.code(i), 2);
    const RelayLegs medley50 = relay_legs(QStringLiteral("4x50m 4N Dames"));
    EXPECT_EQ(medley50.distance, 50);
    EXPECT_FALSE(medley50.free);
    EXPECT_EQ((std::vector<int>{medley50.code(0), medley50.code(1), medley50.code(2), medley50.code(3)}),
              (std::vector<int>{11, 21, 31, 1}));
    EXPECT_EQ(relay_legs(QStringLiteral("4X200M N.L. Mixte")).code(2), 3);
    EXPECT_EQ(relay_legs(QStringLiteral("4x25m n.l. Dames")).code(0), 25);  // another distance stands as it is
}

TEST_F(Relays, FreeRelayIn50mSumsTheBest50mPoolTimesOfEitherSex)
{
    const QString a = swimmer(QStringLiteral("Abgrall"), QStringLiteral("M"), QStringLiteral("Yann"));
    const QString b = swimmer(QStringLiteral("Bothorel"), QStringLiteral("F"), QStringLiteral("Nolwenn"));
    const QString c = swimmer(QStringLiteral("Cadiou"), QStringLiteral("M"), QStringLiteral("Erwan"));
    const QString d = swimmer(QStringLiteral("Derrien"), QStringLiteral("M"), QStringLiteral("Loic"));
    perf(a, 52, QStringLiteral("0.5845"), QStringLiteral("20240110"));         // 58.45
    perf(a, 52, QStringLiteral("0.5512"), QStringLiteral("20241110"), 25);     // faster, but in a 25 m pool
    perf(a, 53, QStringLiteral("0.5000"), QStringLiteral("20241110"));         // another event
    perf(b, 2, QStringLiteral("1.0250"), QStringLiteral("20221020"));          // 16 Sept. 2022 counts
    perf(c, 52, QStringLiteral("0.5930"), QStringLiteral("20220916"));         // the first day counted
    perf(c, 52, QStringLiteral("0.5000"), QStringLiteral("20220915"));         // the day before does not
    perf(d, 2, QStringLiteral("0.5990"), QStringLiteral("20250101"));          // a women's code: either counts
    const std::vector<RelaySwimmer> team{{a, "Abgrall", "Yann"}, {b, "Bothorel", "Nolwenn"},
                                         {c, "Cadiou", "Erwan"}, {d, "Derrien", "Loic"}};
    // 58.45 + 1:02.50 + 59.30 + 59.90 = 3:60.15, carried to 4:00.15.
    EXPECT_EQ(time_of(QStringLiteral("4x100m n.l. Mess."), team, 50), QStringLiteral("4.0015"));
    // In a 25 m competition the 25 m pool's 55.12 comes in.
    EXPECT_EQ(time_of(QStringLiteral("4x100m n.l. Mess."), team, 25), QStringLiteral("3.5682"));
}

TEST_F(Relays, MedleyTakesBackBreastFlyThenFree)
{
    std::vector<RelaySwimmer> team;
    const int legs[] = {12, 22, 32, 2};
    for (int i = 0; i < 4; ++i) {
        const QString num = swimmer(QStringLiteral("Nageuse%1").arg(i), QStringLiteral("F"));
        team.push_back({num, QStringLiteral("Nageuse%1").arg(i), QStringLiteral("Anne")});
        perf(num, legs[i], QStringLiteral("1.1000"), QStringLiteral("20241012"));
        // A faster time at any other leg's event is not hers to give.
        perf(num, legs[(i + 1) % 4], QStringLiteral("0.5000"), QStringLiteral("20241012"));
    }
    EXPECT_EQ(time_of(QStringLiteral("4x100m 4N Dames"), team, 50), QStringLiteral("4.4000"));
}

TEST_F(Relays, SwimmersWithoutAUsableTimeAreNamedAndNoTimeIsGiven)
{
    const QString a = swimmer(QStringLiteral("Abgrall"), QStringLiteral("M"), QStringLiteral("Yann"));
    const QString b = swimmer(QStringLiteral("Bothorel"), QStringLiteral("M"), QStringLiteral("Goulven"));
    const QString c = swimmer(QStringLiteral("Cadiou"), QStringLiteral("M"), QStringLiteral("Erwan"));
    perf(a, 51, QStringLiteral("0.2800"), QStringLiteral("20241012"));
    perf(b, 51, QStringLiteral("0.2900"), QStringLiteral("20241012"), 25);  // only in a 25 m pool
    perf(c, 51, QStringLiteral("0.2700"), QStringLiteral("20210101"));      // too old
    const QString head = QStringLiteral("Impossible de calculer le temps d'engagement car ");
    const QString tail = QStringLiteral("pas de performances enregistrées utilisables pour ce relais :\n");

    EXPECT_EQ(time_of(QStringLiteral("4x50m n.l. Mess."), {{a, "Abgrall", "Yann"}, {b, "Bothorel", "Goulven"}}, 50),
              head + QStringLiteral("un nageur n'a ") + tail + QStringLiteral("- Bothorel Goulven\n"));
    EXPECT_EQ(time_of(QStringLiteral("4x50m n.l. Mess."),
                      {{a, "Abgrall", "Yann"}, {b, "Bothorel", "Goulven"}, {c, "Cadiou", "Erwan"}}, 50),
              head + QStringLiteral("des nageurs n'ont ") + tail +
                  QStringLiteral("- Bothorel Goulven\n- Cadiou Erwan\n"));
}

TEST_F(Relays, CountsAndCompositionStatementsRunAsTheyReachTheBase)
{
    const Team men1{1, false, QStringLiteral("M")};
    const Team mixed1{1, true, {}};
    // The mixed team of the same number, in a mixed and in a men's event.
    relay(46, 1, 1, true);
    relay(46, 2, 1, true);
    relay(58, 1, 1, true);
    relay(58, 2, 1, true);
    std::vector<RelayCount> counts{{QStringLiteral("58"), 4, 3, 0}, {QStringLiteral("46"), 4, 0, 0}};
    ASSERT_TRUE(save_relay_counts(*app, QStringLiteral("1"), compet, men1, counts));
    const QString nulle = app->state.num_lic_nulle;
    EXPECT_EQ(dump(QStringLiteral("select * from Relais where Equipe_mixte = false order by Num_Lic")),
              (QStringList{QStringLiteral("1:%1:58:1:1:Faux:0:%2").arg(compet, QStringList(10, nulle).join(':')),
                           QStringLiteral("1:%1:58:2:1:Faux:0:%2").arg(compet, QStringList(10, nulle).join(':')),
                           QStringLiteral("1:%1:58:3:1:Faux:0:%2").arg(compet, QStringList(10, nulle).join(':'))}));
    EXPECT_EQ(counts[0].nb_equipe_ori, 3);

    // The composition: two swimmers, the time, the other places empty.
    const QString a = swimmer(QStringLiteral("Abgrall"), QStringLiteral("M"));
    const QString b = swimmer(QStringLiteral("Bothorel"), QStringLiteral("M"));
    app->db.exec_sql(relay_save_sql(key(QStringLiteral("58"), 2), QStringLiteral("3.5512"), {b, a}, nulle));
    const RelayRow row = load_relay(*app, key(QStringLiteral("58"), 2));
    EXPECT_EQ(row.tps, QStringLiteral("3.5512"));
    EXPECT_EQ(row.licences, (QStringList{b, a} + QStringList(8, nulle)));
    EXPECT_TRUE(load_relay(*app, key(QStringLiteral("58"), 3, mixed1)).licences.isEmpty());

    // Lowering 3 to 1 deletes relays 2 and 3 with their compositions, and no
    // relay of the mixed team of the same number.
    counts[0].nb_equipe = 1;
    counts[1].nb_equipe = 0;
    ASSERT_TRUE(save_relay_counts(*app, QStringLiteral("1"), compet, men1, counts));
    const auto left = [this] {
        QStringList rows = dump(QStringLiteral("select Code_epreuve, Num_Lic, Equipe_mixte from Relais"));
        rows.sort();
        return rows;
    };
    EXPECT_EQ(left(), (QStringList{"46:1:Vrai", "46:2:Vrai", "58:1:Faux", "58:1:Vrai", "58:2:Vrai"}));
    // A mixed team's count ignores the event's sex: its relays in a men's
    // event are its own.
    std::vector<RelayCount> mixed_counts{{QStringLiteral("46"), 4, 1, 2}, {QStringLiteral("58"), 4, 1, 2}};
    ASSERT_TRUE(save_relay_counts(*app, QStringLiteral("1"), compet, mixed1, mixed_counts));
    EXPECT_EQ(left(), (QStringList{"46:1:Vrai", "58:1:Faux", "58:1:Vrai"}));

    exec(QStringLiteral("DROP TABLE Relais"));
    std::vector<RelayCount> more{{QStringLiteral("58"), 4, 2, 1}};
    EXPECT_FALSE(save_relay_counts(*app, QStringLiteral("1"), compet, men1, more));
    EXPECT_TRUE(messages().last().contains(
        QStringLiteral("Une erreur s'est produite lors de la sauvegarde du nombre d'équipe relais.")));
}

TEST_F(Relays, AScratchedSwimmerLeavesHisPlaceEmpty)
{
    const QString a = swimmer(QStringLiteral("Abgrall"), QStringLiteral("M"));
    const QString b = swimmer(QStringLiteral("Bothorel"), QStringLiteral("M"));
    const QString c = swimmer(QStringLiteral("Cadiou"), QStringLiteral("M"));
    relay(58, 1, 1, false, {a, b, c});
    RetirerDesRelais(*app, b, compet, 1, false, QStringLiteral("1"));
    const QString nulle = app->state.num_lic_nulle;
    EXPECT_EQ(load_relay(*app, key(QStringLiteral("58"), 1)).licences, (QStringList{a, nulle, c} + QStringList(7, nulle)));

    // The window shows the two left in their order.
    app->db.exec_sql(QStringLiteral("INSERT INTO Engag_equipe (Num_compet, Num_profil, Eq_Homme) VALUES (%1, 1, 1)")
                         .arg(compet));
    FrmEngagRelais* view = OuvrirEngagRelais(*app, QString(keyword::kModif), compet, QStringLiteral("Relais"));
    ASSERT_NE(view, nullptr);
    view->set_team_index(1);
    view->cmd_composition();
    ASSERT_EQ(view->relay_number(), 1);
    ASSERT_EQ(view->lsv_engag_relais().rowCount(), 2);
    EXPECT_EQ(row_key(view->lsv_engag_relais(), 0), a);
    EXPECT_EQ(row_key(view->lsv_engag_relais(), 1), c);
}

// The window's way: counts per team and event, composition from the team's
// members, the computed time, a second relay, and everything found again.
class RelayWindowFlow : public Relays {
protected:
    void SetUp() override
    {
        Relays::SetUp();
        exec(QStringLiteral("INSERT INTO Engag_equipe (Num_compet, Num_profil, Eq_Homme, Eq_Femme, Eq_Mixte) "
                            "VALUES (%1, 1, 1, 0, 1)")
                 .arg(compet));
        for (int i = 0; i < 5; ++i) {
            men << swimmer(QStringLiteral("Homme%1").arg(i), QStringLiteral("M"), QStringLiteral("Yann"));
            member(men.last(), 1, false);
            perf(men.last(), 52, QStringLiteral("1.0%1").arg(i) + QStringLiteral("00"), QStringLiteral("20241012"));
        }
        woman = swimmer(QStringLiteral("Femme"), QStringLiteral("F"));
        member(woman, 1, true);
        member(swimmer(QStringLiteral("Guivarch"), QStringLiteral("M")), 1, true);
    }
    QStringList men;
    QString woman;
};

TEST_F(RelayWindowFlow, CountsCompositionAndTimeReachTheBase)
{
    FrmEngagRelais* view = OuvrirEngagRelais(*app, QString(keyword::kModif), compet, QStringLiteral("Relais"));
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->cbo_team(), (QStringList{"Individuel", "Equipe 1 Homme", "Equipe 1 Mixte"}));
    view->set_team_index(1);
    // A men's team in a 50 m competition: the men's relays that a 50 m pool allows.
    EXPECT_EQ(plouvarine::testing::column_texts(view->Lst_relais()),
              (QStringList{"4x50m n.l. Mess.", "4x50m 4N Mess.", "4x100m n.l. Mess.", "4x100m 4N Mess.",
                           "4x200m n.l. Mess."}));
    const int free100 = *find_key(view->Lst_relais(), QStringLiteral("58"));
    select_row_at(view->relais_selection(), free100);
    EXPECT_EQ(view->txt_nb_equipe(), QStringLiteral("1"));  // proposed
    view->cmd_plus();
    view->cmd_plus();
    view->cmd_moins();
    EXPECT_EQ(view->txt_nb_equipe(), QStringLiteral("2"));
    view->cmd_composition();
    EXPECT_EQ(count(QStringLiteral("select count(*) from Relais where Code_epreuve = 58")), 2);
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
    EXPECT_EQ(view->txt_temps, QStringLiteral("4.0600"));

    // Relay 2 saves relay 1 on the way.
    select_row_at(view->num_selection(), 1);
    EXPECT_EQ(view->relay_number(), 2);
    EXPECT_EQ(view->lsv_engag_relais().rowCount(), 0);
    select_row_at(view->nageurs_selection(), 0);
    view->cmd_add(0);
    view->cmd_caltps();  // three swimmers short: no message, one leg only
    EXPECT_EQ(view->txt_temps, QStringLiteral("1.0000"));
    view->txt_temps.clear();
    view->cmd_ok();
    EXPECT_TRUE(view->is_closed());

    const QString nulle = app->state.num_lic_nulle;
    EXPECT_EQ(dump(QStringLiteral("select Num_Lic, Tps, Licence1, Licence2, Licence3, Licence4, Licence5 from Relais "
                                  "order by Num_Lic")),
              (QStringList{QStringLiteral("1:4.06:%1:%2:%3:%4:%5").arg(men[3], men[0], men[1], men[2], nulle),
                           QStringLiteral("2:0:%1:%2:%2:%2:%2").arg(men[0], nulle)}));
    EXPECT_EQ(count(QStringLiteral("select count(*) from Relais_tempo")), 0);
}

TEST_F(RelayWindowFlow, MixedTeamTakesBothSexesAndCancelRestores)
{
    relay(8, 1, 1, false, {woman});
    // The competition list's door: Relais set aside in Relais_tempo, then the window.
    install_relay_handoff();
    competition_chosen(*app, QString(keyword::kChoixPourEngagementsRelais), compet);
    auto* view = ui.window_as<FrmEngagRelais>(QString(FrmEngagRelais::kName));
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Relais_tempo")), 1);

    view->set_team_index(2);  // Equipe 1 Mixte
    const int mixed = *find_key(view->Lst_relais(), QStringLiteral("46"));
    select_row_at(view->relais_selection(), mixed);
    view->set_nb_equipe(QStringLiteral("1"));
    view->cmd_composition();
    ASSERT_EQ(view->relay_number(), 1);
    EXPECT_EQ(plouvarine::testing::column_texts(view->lsv_nageurs()), (QStringList{"Femme", "Guivarch"}));
    view->cmd_annuler();
    EXPECT_TRUE(view->is_closed());
    EXPECT_EQ(dump(QStringLiteral("select Code_epreuve, Licence1 from Relais")), QStringList{"8:" + woman});
    EXPECT_EQ(count(QStringLiteral("select count(*) from Relais_tempo")), 0);
}

TEST_F(RelayWindowFlow, TheCloseBoxKeepsTheRelayOnShow)
{
    install_relay_handoff();
    relay(58, 1, 1, false);
    competition_chosen(*app, QString(keyword::kChoixPourEngagementsRelais), compet);
    auto* view = ui.window_as<FrmEngagRelais>(QString(FrmEngagRelais::kName));
    ASSERT_NE(view, nullptr);
    view->set_team_index(1);
    view->cmd_composition();
    ASSERT_EQ(view->relay_number(), 1);
    select_row_at(view->nageurs_selection(), 2);
    view->cmd_add(0);
    view->txt_temps = QStringLiteral("4.1");
    EXPECT_TRUE(ui.close_window(QString(FrmEngagRelais::kName)));
    EXPECT_EQ(dump(QStringLiteral("select Tps, Licence1, Licence2 from Relais")),
              QStringList{QStringLiteral("4.1:%1:%2").arg(men[2], app->state.num_lic_nulle)});
    EXPECT_EQ(count(QStringLiteral("select count(*) from Relais_tempo")), 0);
}

TEST_F(RelayWindowFlow, ARelayThatCannotBeReadIsNotShownNorSaved)
{
    relay(58, 1, 1, false, {men[0]});
    relay(58, 2, 1, false, {men[1], men[2]});
    FrmEngagRelais* view = OuvrirEngagRelais(*app, QString(keyword::kModif), compet, QStringLiteral("Relais"));
    ASSERT_NE(view, nullptr);
    view->set_team_index(1);
    view->cmd_composition();
    ASSERT_EQ(view->lsv_engag_relais().rowCount(), 1);
    exec(QStringLiteral("ALTER TABLE Licence RENAME TO Licence_ailleurs"));
    select_row_at(view->num_selection(), 1);
    EXPECT_EQ(view->relay_number(), 0);
    EXPECT_EQ(view->lsv_engag_relais().rowCount(), 0);
    EXPECT_TRUE(messages().last().contains(QStringLiteral("n'a pu être exécutée")));
    view->cmd_caltps();
    view->cmd_ok();
    EXPECT_TRUE(view->is_closed());
    EXPECT_EQ(dump(QStringLiteral("select Num_Lic, Licence1, Licence2 from Relais order by Num_Lic")),
              (QStringList{QStringLiteral("1:%1:%2").arg(men[0], app->state.num_lic_nulle),
                           QStringLiteral("2:%1:%2").arg(men[1], men[2])}));
}

}  // namespace
