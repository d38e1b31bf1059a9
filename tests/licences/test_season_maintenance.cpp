// The life of licence rows on a real base: the entries that go with a deleted
// swimmer, selection memberships, the purge two years on and the season's
// roll-over around 16 September.

#include "src/licences/season_maintenance.h"
#include "licence_test_base.h"

using namespace plouvarine;

namespace {

class SeasonTest : public plouvarine::testing::LicenceBase {
protected:
    // A new licence ("N") deposited and stamped on `deposit`.
    QString deposited(const QString& name, const QString& number, const QString& deposit = u"20040920"_s)
    {
        const QString num = licence(name, u"A"_s, number);
        exec(u"UPDATE Licence SET Date_Depot = '%1', Date_obliteration = '%1', Type_licence = 'N' WHERE Num = %2"_s.arg(
            deposit, num));
        return num;
    }
};

}  // namespace

TEST_F(SeasonTest, ADeletionTurnsFinalWithItsEntriesAndRelayPlaces)
{
    const QString gone = deposited(u"PARTI"_s, u"85001F"_s);
    const QString stays = deposited(u"RESTE"_s, u"85002F"_s);
    const QString open = competition(true, false);
    const QString hidden = competition(false, false);
    const QString run = competition(true, true);
    for (const QString& c : {open, hidden, run})
        for (const QString& l : {gone, stays})
            exec(u"INSERT INTO Engag (Num_compet, Num_Lic, Code_epreuve) VALUES (%1, %2, 1);"_s.arg(c, l));
    exec(u"INSERT INTO Engag_nageur (Num_compet, Num_Lic) VALUES (%1, %2);"_s.arg(open, gone));
    exec(u"INSERT INTO Engag_modele (Num_modele, Num_Lic) VALUES (1, %1), (1, %2);"_s.arg(gone, stays));
    exec(u"INSERT INTO Relais (Num_compet, Licence1, Licence2, Licence3) VALUES (%1, %2, %3, %2), "
         "(%4, %2, %3, 0);"_s.arg(open, gone, stays, run));
    exec(u"INSERT INTO Selection (Code_Sel, Num_Lic) VALUES ('FRA2210290000', %1);"_s.arg(gone));
    exec(u"INSERT INTO Licence_tempo (Num) VALUES (%1);"_s.arg(gone));
    app->clock.set_today(QDate(2006, 3, 14));

    SupprimeEngagementsLicences(*app, false, QLatin1String(kClub), QString());

    // Entries go in visible competitions only, models everywhere.
    EXPECT_EQ(dump(u"select Num_compet from Engag where Num_Lic = "_s + gone), QStringList{hidden});
    EXPECT_EQ(count(u"select count(*) from Engag where Num_Lic = "_s + stays), 3);
    EXPECT_EQ(count(u"select count(*) from Engag_nageur"_s), 0);
    EXPECT_EQ(dump(u"select Num_Lic from Engag_modele"_s), QStringList{stays});
    EXPECT_EQ(field(gone, u"Date_suppr"_s), u"20060314"_s);
    EXPECT_EQ(value(u"select Visible from Selection"_s), u"Faux"_s);
    // Relay places of competitions not yet run take the empty licence; the others keep theirs.
    const QString nulle = app->state.num_lic_nulle;
    EXPECT_EQ(dump(u"select Licence1, Licence2, Licence3 from Relais order by Num_compet"_s),
              (QStringList{nulle + u':' + stays + u':' + nulle, gone + u':' + stays + u":0"_s}));

    // A change of sex cleans one swimmer without touching the deletion marks.
    exec(u"INSERT INTO Engag (Num_compet, Num_Lic, Code_epreuve) VALUES (%1, %2, 2);"_s.arg(open, stays));
    SupprimeEngagementsLicences(*app, false, QLatin1String(kClub), stays);
    EXPECT_EQ(count(u"select count(*) from Engag where Num_Lic = "_s + stays), 1);
    EXPECT_EQ(field(stays, u"Date_suppr"_s), QString());
}

TEST_F(SeasonTest, ASelectionLosesItsMarkedSwimmersEntriesButNotItsRelays)
{
    const QString sel = QLatin1String(kSelection);
    const QString swimmer = deposited(u"SELEC"_s, u"90001F"_s);
    const QString profile = app->db.append_row(u"Profil"_s, {{"Libelle", "Sélection"}, {"Code_club", sel}}, u"Num"_s);
    const QString other = app->db.append_row(u"Profil"_s, {{"Libelle", "Club"}, {"Code_club", kClub}}, u"Num"_s);
    app->state.profile_num = profile;
    const QString open = competition(true, false);
    AjouteASelection(*app, sel, swimmer);
    exec(u"UPDATE Selection SET Suppr = true, Visible = false"_s);
    exec(u"INSERT INTO Engag (Num_compet, Num_profil, Num_Lic) VALUES (%1, %2, %3), (%1, %4, %3);"_s.arg(
        open, profile, swimmer, other));
    exec(u"INSERT INTO Relais (Num_compet, Num_profil, Licence1) VALUES (%1, %2, %3);"_s.arg(open, profile, swimmer));

    SupprimeEngagementsLicences(*app, true, sel, QString());
    EXPECT_EQ(dump(u"select Num_profil from Engag"_s), QStringList{other});
    EXPECT_EQ(value(u"select Suppr from Selection"_s), u"Faux"_s);
    EXPECT_EQ(value(u"select Licence1 from Relais"_s), swimmer);

    // The swimmer who left comes back with the same row.
    AjouteASelection(*app, sel, swimmer);
    EXPECT_EQ(dump(u"select Visible from Selection"_s), QStringList{u"Vrai"_s});
}

TEST_F(SeasonTest, ThePurgeFreesNumbersAfterTwoYears)
{
    const QString old = deposited(u"ANCIEN"_s, u"80001F"_s);
    const QString exact = deposited(u"PILE"_s, u"80002F"_s);
    const QString active = deposited(u"ACTIF"_s, u"80003F"_s);
    exec(u"UPDATE Licence SET Visible = false, Date_suppr = '20040313' WHERE Num = "_s + old);
    exec(u"UPDATE Licence SET Visible = false, Date_suppr = '20040314' WHERE Num = "_s + exact);
    exec(u"UPDATE Licence SET Date_suppr = '20000101' WHERE Num = "_s + active);
    app->clock.set_today(QDate(2006, 3, 14));
    PurgeLicences(*app);
    EXPECT_EQ((QStringList{field(old, u"Licence"_s), field(exact, u"Licence"_s), field(active, u"Licence"_s)}),
              (QStringList{old, u"80002F"_s, u"80003F"_s}));
}

TEST_F(SeasonTest, TheSeasonRollsOverOn16September)
{
    install_licence_hooks(*app);
    const QString older = deposited(u"ANCIEN"_s, u"90001F"_s, u"20041001"_s);
    const QString fresh = deposited(u"RECENT"_s, u"90002F"_s, u"20050916"_s);
    const QString blank = deposited(u"VIDE"_s, u"90003F"_s, QString());
    exec(u"UPDATE Info SET LastUpdtLic = '20040916'"_s);

    app->clock.set_today(QDate(2005, 9, 15));
    app->hooks.licences_maintenance(*app);
    EXPECT_EQ(field(older, u"Type_licence"_s), u"N"_s);
    EXPECT_EQ(value(u"select LastUpdtLic from Info"_s), u"20040916"_s);

    app->clock.set_today(QDate(2005, 9, 16));
    app->hooks.licences_maintenance(*app);
    const QString row =
        u"select Date_Depot || '/' || Date_obliteration || '/' || Type_licence from Licence where Num = "_s;
    EXPECT_EQ(value(row + older), u"20050916/20050916/R"_s);
    EXPECT_EQ(value(row + blank), u"20050916/20050916/R"_s);
    EXPECT_EQ(value(row + fresh), u"20050916/20050916/N"_s);
    EXPECT_EQ(value(u"select LastUpdtLic from Info"_s), u"20050916"_s);

    // A clock set back before the last roll-over runs it again, for the earlier season.
    app->clock.set_today(QDate(2005, 3, 1));
    MajSaisonLicences(*app);
    EXPECT_EQ(value(u"select LastUpdtLic from Info"_s), u"20040916"_s);
}
