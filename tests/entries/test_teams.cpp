// Teams on a real base: the counts and the team names, a lowered count sending
// the teams above it back to individual, and the undo of a whole pass.

#include "src/entries/teams.h"
#include "src/licences/removed_swimmers.h"
#include "entries_test_base.h"

using namespace plouvarine;
using namespace Qt::Literals::StringLiterals;

namespace {

class Teams : public plouvarine::testing::EntriesBase {
protected:
    EntryScope scope() const { return EntryScope::competition(compet, "1"); }

    QStringList swimmers()
    {
        return dump(u"select Num_Lic, Equipe, Equipe_m from Engag_nageur where Num_compet = "_s + compet +
                    u" order by Num_Lic"_s);
    }
    // The team members, entries and relays of the competition.
    QStringList snapshot()
    {
        return swimmers() +
               dump("select * from Engag where Num_compet = " + compet + " order by Num_Lic, Code_epreuve") +
               dump("select * from Relais where Num_compet = " + compet +
                    " order by Code_epreuve, Num_equipe, Equipe_mixte, Num_Lic");
    }

    // Three men's, three women's and two mixed teams; a man and a woman in
    // each team 3, a man in team 1, a woman and a man in mixed team 2, each
    // with an entry, and a relay for each of those teams.
    void interclubs()
    {
        ASSERT_TRUE(apply_counts(*app, scope(), {3, 3, 2}));
        man1 = swimmer("Abgrall", "M");
        man3 = swimmer("Bothorel", "M");
        woman3 = swimmer("Cadiou", "F");
        mixed_w = swimmer("Derrien", "F");
        mixed_m = swimmer("Even", "M");
        member(man1, 1, false);
        member(man3, 3, false);
        member(woman3, 3, false);
        member(mixed_w, 2, true);
        member(mixed_m, 2, true);
        entry(man1, 52, 1, false);
        entry(man3, 52, 3, false);
        entry(man3, 53, 0, false);  // an individual entry of his stays
        entry(woman3, 2, 3, false);
        entry(mixed_w, 2, 2, true);
        entry(mixed_m, 52, 2, true);
        relay(58, 1, 3, false, {man3});
        relay(8, 1, 3, false, {woman3});
        relay(58, 1, 1, false, {man1});
        relay(46, 1, 2, true, {mixed_w, mixed_m});
        relay(46, 1, 1, true);
    }
    // The start of an editing pass: snapshots, then the work tables.
    void begin_pass()
    {
        snap_pass(*app, scope());
        ASSERT_TRUE(CopierEtat(*app, u"Engag_tempo"_s, u"Engag"_s, u"1"_s, compet));
        ASSERT_TRUE(CopierEtat(*app, u"Relais_tempo"_s, u"Relais"_s, u"1"_s, compet));
    }
    // Command 1 of the entries: everything back as the pass found it.
    void undo_pass()
    {
        undo_team_pass(*app, scope());
        EffacerTable(*app, u"Engag"_s, scope().key_where());
        ASSERT_TRUE(CopierEtat(*app, u"Engag"_s, u"Engag_tempo"_s, u"1"_s, compet));
        ASSERT_TRUE(CopierEtat(*app, u"Relais"_s, u"Relais_tempo"_s, u"1"_s, compet));
    }

    QString man1, man3, woman3, mixed_w, mixed_m;
};

TEST_F(Teams, CountsFollowTheFieldRuleAndNameTheTeams)
{
    EXPECT_EQ(read_counts(*app, scope()), (TeamCounts{0, 0, 0}));  // no row yet
    EXPECT_EQ(team_list({}), QStringList{u"Individuel"_s});

    EXPECT_EQ(count_from_field(u"60"_s), 49);
    EXPECT_EQ(count_from_field(QString()), 0);
    EXPECT_EQ(count_from_field(u"7"_s), 7);
    ASSERT_TRUE(apply_counts(*app, scope(), {60, 2, 1}));
    EXPECT_EQ(read_counts(*app, scope()), (TeamCounts{49, 2, 1}));
    EXPECT_EQ(count(u"select count(*) from Engag_equipe where Num_compet = "_s + compet), 1);
    // A count written as 60 into the base by another hand still reads 49.
    exec(u"update Engag_equipe set Eq_Homme = 60, Eq_Femme = 1"_s);
    const QStringList names = team_list(read_counts(*app, scope()));
    ASSERT_EQ(names.size(), 1 + 49 + 1 + 1);
    EXPECT_EQ(names.mid(0, 2), (QStringList{"Individuel", "Equipe 1 Homme"}));
    EXPECT_EQ(names.mid(49), (QStringList{"Equipe 49 Homme", "Equipe 1 Femme", "Equipe 1 Mixte"}));

    for (const QString& name : names)
        EXPECT_EQ(team_name(parse_team(name)), name);
    // "number mixed sex"
    const auto parsed = [](const QString& name) {
        const Team t = parse_team(name);
        return u"%1 %2 %3"_s.arg(t.number).arg(t.mixed).arg(t.sex);
    };
    EXPECT_EQ(parsed(u"Equipe 2 Femme"_s), u"2 0 F"_s);
    EXPECT_EQ(parsed(u"Equipe 12 Mixte"_s), u"12 1 "_s);
    EXPECT_TRUE(parse_team(u"Individuel"_s).individual());
}

TEST_F(Teams, LoweredCountsSendTheTeamsAboveToIndividualBySex)
{
    interclubs();
    ASSERT_TRUE(apply_counts(*app, scope(), {2, 3, 1}));

    // Men of team 3 and the mixed team 2 are individual; the woman of team 3
    // and the man of team 1 keep their teams.
    EXPECT_EQ(swimmers(), (QStringList{man1 + ":1:Faux", man3 + ":0:Faux", woman3 + ":3:Faux", mixed_w + ":0:Faux",
                                       mixed_m + ":0:Faux"}));
    EXPECT_EQ(dump(QStringLiteral("select Num_Lic, Code_epreuve, Num_equipe, Equipe_mixte from Engag order by "
                                  "Num_Lic, Code_epreuve")),
              (QStringList{man1 + ":52:1:Faux", man3 + ":53:0:Faux", woman3 + ":2:3:Faux"}));
    // The men's relay of team 3 and the mixed relay of team 2 go: events kept
    // apart by their sex, mixed relays by their flag whatever the event.
    EXPECT_EQ(dump(QStringLiteral("select Code_epreuve, Num_equipe, Equipe_mixte from Relais order by Code_epreuve, "
                                  "Num_equipe")),
              (QStringList{"8:3:Faux", "46:1:Vrai", "58:1:Faux"}));
    EXPECT_EQ(read_counts(*app, scope()), (TeamCounts{2, 3, 1}));
}

TEST_F(Teams, RaisingACountDeletesNothing)
{
    interclubs();
    const QStringList before = snapshot();
    ASSERT_TRUE(apply_counts(*app, scope(), {5, 4, 49}));
    ASSERT_TRUE(apply_counts(*app, scope(), {5, 4, 49}));
    EXPECT_EQ(snapshot(), before);
}

TEST_F(Teams, UndoAfterAnySequenceOfCountsBringsEverythingBack)
{
    interclubs();
    AffecterEquipe(*app, scope(), man1, {2, false, u"M"_s});
    exec(u"update Engag set Num_equipe = 2 where Num_Lic = "_s + man1);
    const QStringList before = snapshot();
    const TeamCounts before_counts = read_counts(*app, scope());
    begin_pass();

    ASSERT_TRUE(apply_counts(*app, scope(), {1, 3, 2}));
    AffecterEquipe(*app, scope(), woman3, {1, true, {}});
    ASSERT_TRUE(apply_counts(*app, scope(), {0, 0, 0}));
    ASSERT_TRUE(apply_counts(*app, scope(), {4, 1, 3}));
    EXPECT_EQ(count(u"select count(*) from Relais"_s), 0);
    EXPECT_EQ(count(u"select count(*) from Engag where Num_equipe > 0"_s), 0);

    undo_pass();
    EXPECT_EQ(snapshot(), before);
    EXPECT_EQ(read_counts(*app, scope()), before_counts);

    // The end of the pass clears the snapshots and drops swimmers in no team.
    AffecterEquipe(*app, scope(), man3, {});
    end_team_pass(*app, scope());
    EXPECT_EQ(count(u"select count(*) from Engag_nageur where Num_Lic = "_s + man3), 0);
    EXPECT_EQ(count(u"select count(*) from Engag_nageur where Old_equipe <> 0 or Old_equipe_m <> 0"_s), 0);
    EXPECT_EQ(value(u"select Old_Eq_Homme + Old_Eq_Femme + Old_Eq_Mixte from Engag_equipe"_s), u"0"_s);
}

TEST_F(Teams, AModelRunsTheSameStatementsOnItsOwnTables)
{
    const QString model = app->db.append_row(u"Modele_engag"_s, {{"Nom_modele", "Interclubs"}}, u"NumAuto"_s);
    const EntryScope m = EntryScope::model(model);
    const QString man = swimmer("Abgrall", "M");
    const QString woman = swimmer("Cadiou", "F");
    ASSERT_TRUE(apply_counts(*app, m, {2, 2, 0}));
    for (const QString& num : {man, woman}) {
        exec(u"INSERT INTO Engag_nageur_modele (Num_modele, Num_Lic) VALUES (%1, %2)"_s.arg(model, num));
        exec(QStringLiteral("INSERT INTO Engag_modele (Num_modele, Code_epreuve, Num_Lic, Num_equipe) "
                            "VALUES (%1, 2, %2, 2)")
                 .arg(model, num));
    }
    AffecterEquipe(*app, m, man, {2, false, u"M"_s});
    AffecterEquipe(*app, m, woman, {2, false, u"F"_s});
    snap_pass(*app, m);
    relay(58, 1, 2, false);  // a competition's relay is no model's business

    ASSERT_TRUE(apply_counts(*app, m, {1, 2, 0}));
    EXPECT_EQ(dump(u"select Num_Lic, Equipe from Engag_nageur_modele order by Num_Lic"_s),
              (QStringList{man + ":0", woman + ":2"}));
    EXPECT_EQ(dump(u"select Num_Lic from Engag_modele"_s), QStringList{woman});
    EXPECT_EQ(count(u"select count(*) from Relais"_s), 1);
    EXPECT_EQ(read_counts(*app, m), (TeamCounts{1, 2, 0}));

    undo_team_pass(*app, m);
    EXPECT_EQ(dump(u"select Num_Lic, Equipe from Engag_nageur_modele order by Num_Lic"_s),
              (QStringList{man + ":2", woman + ":2"}));
    EXPECT_EQ(read_counts(*app, m), (TeamCounts{2, 2, 0}));
}

TEST_F(Teams, ListsKeepASwimmerInOneTeamOfHisSex)
{
    interclubs();
    const QString free_man = swimmer("Floch", "M");
    const QString free_woman = swimmer("Gourvennec", "F");
    const QString hidden = swimmer("Hascoet", "M");
    exec(u"update Licence set Visible = false where Num = "_s + hidden);
    member(free_man, 0, false);  // an individual may be moved into a team
    const auto names = [this](const QString& sql, int column) { return app->db.load_rows(sql).column(column); };
    const Team men1{1, false, u"M"_s};
    const Team men3{3, false, u"M"_s};
    const Team mixed2{2, true, {}};

    EXPECT_EQ(names(team_members_sql(scope(), men3, false), 0), QStringList{"Bothorel"});
    EXPECT_EQ(names(team_members_sql(scope(), mixed2, false), 0), (QStringList{"Derrien", "Even"}));
    EXPECT_EQ(names(team_members_sql(scope(), {3, false, u"F"_s}, true), 3), QStringList{"Brest Natation"});
    // Men not in another team: the team's own, the individual, one in no row.
    EXPECT_EQ(names(team_candidates_sql(*app, scope(), men1), 1), (QStringList{"Abgrall", "Floch"}));
    // A mixed team takes both sexes, and keeps its own members.
    EXPECT_EQ(names(team_candidates_sql(*app, scope(), mixed2), 1),
              (QStringList{"Derrien", "Even", "Floch", "Gourvennec"}));

    // The same through the club's selection.
    app->state.club_selection = true;
    for (const QString& num : {man1, man3, free_man, free_woman})
        exec(u"INSERT INTO Selection (Code_Sel, Num_Lic) VALUES ('%1', %2)"_s.arg(kClub, num));
    EXPECT_EQ(names(team_candidates_sql(*app, scope(), men1), 1), (QStringList{"Abgrall", "Floch"}));
    EXPECT_EQ(names(team_candidates_sql(*app, scope(), men1), 4), (QStringList{"Brest Natation", "Brest Natation"}));
    app->state.club_selection = false;

    // Cmd_add: a new row for a swimmer without one, a move for the others.
    ASSERT_TRUE(AjouterDansEquipe(*app, scope(), free_man, men1));
    ASSERT_TRUE(AjouterDansEquipe(*app, scope(), free_woman, mixed2));
    EXPECT_EQ(names(team_members_sql(scope(), men1, false), 0), (QStringList{"Abgrall", "Floch"}));
    EXPECT_EQ(names(team_members_sql(scope(), mixed2, false), 0), (QStringList{"Derrien", "Even", "Gourvennec"}));
    EXPECT_EQ(count(u"select count(*) from Engag_nageur where Num_Lic = "_s + free_man), 1);

    // Leaving the team: its entries and relay places go, not the others.
    relay(57, 1, 3, false, {man1, man3});
    RetirerDeLEquipe(*app, scope(), man3, men3);
    EXPECT_EQ(dump(u"select Code_epreuve, Num_equipe from Engag where Num_Lic = "_s + man3), QStringList{"53:0"});
    EXPECT_EQ(value(u"select Equipe from Engag_nageur where Num_Lic = "_s + man3), u"0"_s);
    EXPECT_EQ(dump(u"select Licence1, Licence2 from Relais where Code_epreuve = 57"_s),
              QStringList{man1 + ":" + app->state.num_lic_nulle});
    EXPECT_EQ(value(u"select Licence1 from Relais where Code_epreuve = 58 and Num_equipe = 3"_s),
              app->state.num_lic_nulle);
}

TEST_F(Teams, AFailedStatementShowsTheMessageAndStops)
{
    interclubs();
    exec(u"DROP TABLE Relais"_s);
    EXPECT_FALSE(apply_counts(*app, scope(), {1, 1, 1}));
    ASSERT_FALSE(ui.messages.empty());
    EXPECT_TRUE(ui.messages.back().text.contains(u"Une erreur s'est produite lors de l'exécution de l'opération."_s));

    EXPECT_FALSE(CopierEtat(*app, u"Relais"_s, u"Relais_tempo"_s, u"1"_s, compet));
    EXPECT_TRUE(
        ui.messages.back().text.contains(u"Une erreur s'est produite lors de la sauvegarde dans la table Relais"_s));
}

}  // namespace
