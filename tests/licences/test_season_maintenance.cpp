// The life of licence rows on a real base: the entries that go with a deleted
// swimmer, selection memberships, the purge two years on and the season's
// roll-over around 16 September.

#include "src/licences/season_maintenance.h"
#include "support/app_fixture.h"

using namespace plouvarine;
using plouvarine::testing::AppFixture;

namespace {

class SeasonTest : public AppFixture {
protected:
    void SetUp() override
    {
        AppFixture::SetUp();
        connect(make_base());
        app->state.num_lic_nulle = licence(QStringLiteral("Null"), QStringLiteral("X"));
    }
    QString licence(const QString& name, const QString& number, const QString& deposit = QStringLiteral("20040920"))
    {
        return app->db.append_row(QStringLiteral("Licence"),
                                  {{QStringLiteral("Code_club"), QStringLiteral("FRA2210290017")},
                                   {QStringLiteral("Licence"), number},
                                   {QStringLiteral("Nom"), name},
                                   {QStringLiteral("Date_Depot"), deposit},
                                   {QStringLiteral("Date_obliteration"), deposit},
                                   {QStringLiteral("Type_licence"), QStringLiteral("N")}},
                                  QStringLiteral("Num"));
    }
    QString competition(bool visible, bool run)
    {
        return app->db.append_row(QStringLiteral("Rcomp"),
                                  {{QStringLiteral("Nom"), QStringLiteral("Meeting")},
                                   {QStringLiteral("Visible"), visible},
                                   {QStringLiteral("Deroule"), run}},
                                  QStringLiteral("AutoNum"));
    }
    void exec(const QString& sql) { app->db.exec_sql(sql); }
    int count(const QString& sql) { return app->db.count_query(sql); }
    QString value(const QString& sql) { return app->db.load_rows(sql).first(); }
};

}  // namespace

TEST_F(SeasonTest, ADeletionTurnsFinalWithItsEntriesAndRelayPlaces)
{
    const QString gone = licence(QStringLiteral("PARTI"), QStringLiteral("85001F"));
    const QString stays = licence(QStringLiteral("RESTE"), QStringLiteral("85002F"));
    const QString open = competition(true, false);
    const QString hidden = competition(false, false);
    const QString run = competition(true, true);
    for (const QString& c : {open, hidden, run})
        for (const QString& l : {gone, stays})
            exec(QStringLiteral("INSERT INTO Engag (Num_compet, Num_Lic, Code_epreuve) VALUES (%1, %2, 1);").arg(c, l));
    exec(QStringLiteral("INSERT INTO Engag_nageur (Num_compet, Num_Lic) VALUES (%1, %2);").arg(open, gone));
    exec(QStringLiteral("INSERT INTO Engag_modele (Num_modele, Num_Lic) VALUES (1, %1), (1, %2);").arg(gone, stays));
    exec(QStringLiteral("INSERT INTO Relais (Num_compet, Licence1, Licence2, Licence3) VALUES (%1, %2, %3, %2), "
                        "(%4, %2, %3, 0);").arg(open, gone, stays, run));
    exec(QStringLiteral("INSERT INTO Selection (Code_Sel, Num_Lic) VALUES ('FRA2210290000', %1);").arg(gone));
    exec(QStringLiteral("INSERT INTO Licence_tempo (Num) VALUES (%1);").arg(gone));
    app->clock.set_today(QDate(2006, 3, 14));

    SupprimeEngagementsLicences(*app, false, QStringLiteral("FRA2210290017"), QString());

    // Entries go in visible competitions only, models everywhere.
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag where Num_Lic = %1").arg(gone)), 1);
    EXPECT_EQ(value(QStringLiteral("select Num_compet from Engag where Num_Lic = %1").arg(gone)), hidden);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag where Num_Lic = %1").arg(stays)), 3);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag_nageur")), 0);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag_modele")), 1);
    EXPECT_EQ(value(QStringLiteral("select Date_suppr from Licence where Num = %1").arg(gone)), QStringLiteral("20060314"));
    EXPECT_EQ(value(QStringLiteral("select Visible from Selection")), QStringLiteral("Faux"));
    // Relay places of competitions not yet run take the empty licence; the others keep theirs.
    const Rows relays = app->db.load_rows(QStringLiteral("select Licence1, Licence2, Licence3 from Relais order by Num_compet"));
    EXPECT_EQ(relays.value(0, 0), app->state.num_lic_nulle);
    EXPECT_EQ(relays.value(0, 1), stays);
    EXPECT_EQ(relays.value(0, 2), app->state.num_lic_nulle);
    EXPECT_EQ(relays.value(1, 0), gone);

    // A change of sex cleans one swimmer without touching the deletion marks.
    exec(QStringLiteral("INSERT INTO Engag (Num_compet, Num_Lic, Code_epreuve) VALUES (%1, %2, 2);").arg(open, stays));
    SupprimeEngagementsLicences(*app, false, QStringLiteral("FRA2210290017"), stays);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag where Num_Lic = %1").arg(stays)), 1);
    EXPECT_EQ(value(QStringLiteral("select Date_suppr from Licence where Num = %1").arg(stays)), QString());
}

TEST_F(SeasonTest, ASelectionLosesItsMarkedSwimmersEntriesButNotItsRelays)
{
    const QString sel = QStringLiteral("FRA2210290000");
    const QString swimmer = licence(QStringLiteral("SELEC"), QStringLiteral("90001F"));
    const QString profile = app->db.append_row(QStringLiteral("Profil"),
                                               {{QStringLiteral("Libelle"), QStringLiteral("Sélection")},
                                                {QStringLiteral("Code_club"), sel}},
                                               QStringLiteral("Num"));
    const QString other_profile = app->db.append_row(QStringLiteral("Profil"),
                                                     {{QStringLiteral("Libelle"), QStringLiteral("Club")},
                                                      {QStringLiteral("Code_club"), QStringLiteral("FRA2210290017")}},
                                                     QStringLiteral("Num"));
    app->state.profile_num = profile;
    const QString open = competition(true, false);
    AjouteASelection(*app, sel, swimmer);
    exec(QStringLiteral("UPDATE Selection SET Suppr = true, Visible = false"));
    exec(QStringLiteral("INSERT INTO Engag (Num_compet, Num_profil, Num_Lic) VALUES (%1, %2, %3), (%1, %4, %3);")
             .arg(open, profile, swimmer, other_profile));
    exec(QStringLiteral("INSERT INTO Relais (Num_compet, Num_profil, Licence1) VALUES (%1, %2, %3);").arg(open, profile, swimmer));

    SupprimeEngagementsLicences(*app, true, sel, QString());
    EXPECT_EQ(value(QStringLiteral("select Num_profil from Engag")), other_profile);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag")), 1);
    EXPECT_EQ(value(QStringLiteral("select Suppr from Selection")), QStringLiteral("Faux"));
    EXPECT_EQ(value(QStringLiteral("select Licence1 from Relais")), swimmer);

    // The swimmer who left comes back with the same row.
    AjouteASelection(*app, sel, swimmer);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Selection")), 1);
    EXPECT_EQ(value(QStringLiteral("select Visible from Selection")), QStringLiteral("Vrai"));
}

TEST_F(SeasonTest, ThePurgeFreesNumbersAfterTwoYears)
{
    const QString old = licence(QStringLiteral("ANCIEN"), QStringLiteral("80001F"));
    const QString exact = licence(QStringLiteral("PILE"), QStringLiteral("80002F"));
    const QString active = licence(QStringLiteral("ACTIF"), QStringLiteral("80003F"));
    exec(QStringLiteral("UPDATE Licence SET Visible = false, Date_suppr = '20040313' WHERE Num = ") + old);
    exec(QStringLiteral("UPDATE Licence SET Visible = false, Date_suppr = '20040314' WHERE Num = ") + exact);
    exec(QStringLiteral("UPDATE Licence SET Date_suppr = '20000101' WHERE Num = ") + active);
    app->clock.set_today(QDate(2006, 3, 14));
    PurgeLicences(*app);
    EXPECT_EQ(value(QStringLiteral("select Licence from Licence where Num = ") + old), old);
    EXPECT_EQ(value(QStringLiteral("select Licence from Licence where Num = ") + exact), QStringLiteral("80002F"));
    EXPECT_EQ(value(QStringLiteral("select Licence from Licence where Num = ") + active), QStringLiteral("80003F"));
}

TEST_F(SeasonTest, TheSeasonRollsOverOn16September)
{
    install_licence_hooks(*app);
    const QString older = licence(QStringLiteral("ANCIEN"), QStringLiteral("90001F"), QStringLiteral("20041001"));
    const QString fresh = licence(QStringLiteral("RECENT"), QStringLiteral("90002F"), QStringLiteral("20050916"));
    const QString blank = licence(QStringLiteral("VIDE"), QStringLiteral("90003F"), QString());
    exec(QStringLiteral("UPDATE Info SET LastUpdtLic = '20040916'"));

    app->clock.set_today(QDate(2005, 9, 15));
    app->hooks.licences_maintenance(*app);
    EXPECT_EQ(value(QStringLiteral("select Type_licence from Licence where Num = ") + older), QStringLiteral("N"));
    EXPECT_EQ(value(QStringLiteral("select LastUpdtLic from Info")), QStringLiteral("20040916"));

    app->clock.set_today(QDate(2005, 9, 16));
    app->hooks.licences_maintenance(*app);
    const QString row = QStringLiteral("select Date_Depot || '/' || Date_obliteration || '/' || Type_licence from Licence where Num = ");
    EXPECT_EQ(value(row + older), QStringLiteral("20050916/20050916/R"));
    EXPECT_EQ(value(row + blank), QStringLiteral("20050916/20050916/R"));
    EXPECT_EQ(value(row + fresh), QStringLiteral("20050916/20050916/N"));
    EXPECT_EQ(value(QStringLiteral("select LastUpdtLic from Info")), QStringLiteral("20050916"));

    // A clock set back before the last roll-over runs it again, for the earlier season.
    app->clock.set_today(QDate(2005, 3, 1));
    MajSaisonLicences(*app);
    EXPECT_EQ(value(QStringLiteral("select LastUpdtLic from Info")), QStringLiteral("20040916"));
}
