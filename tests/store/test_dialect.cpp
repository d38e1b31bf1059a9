// The Jet statements of the system on SQLite: first the rewrites as texts, form
// by form, then real statements run on bases made from the model base, each
// checked by the rows it leaves or reads.

#include "src/base/errors.h"
#include "src/base/sql_text.h"
#include "src/base/text.h"
#include "src/store/database.h"
#include "src/store/dialect.h"
#include "support/app_fixture.h"
#include "support/statement_log.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>
#include <sqlite3.h>
#include <string>

using namespace plouvarine;
using plouvarine::testing::AppFixture;

namespace {

// Texts as standard strings, so that a failure shows them.
std::string text(const QString& value)
{
    return value.toStdString();
}

std::string text(const QStringList& values)
{
    return values.join(QStringLiteral(" / ")).toStdString();
}

// ---------------------------------------------------------------------------
// The rewrites, as texts
// ---------------------------------------------------------------------------

struct Rewrite {
    const char* jet;
    const char* sqlite;  // null: SQLite takes the statement as it stands
};

TEST(JetToSqlite, RewritesOnlyTheFormsSqliteRefusesAndNeverInsideQuotes)
{
    const Rewrite cases[] = {
        // DELETE loses its column selection.
        {"DELETE * from Engag WHERE Num_Lic in (select Num from Licence_tempo)",
         "DELETE from Engag WHERE Num_Lic in (select Num from Licence_tempo)"},
        {"delete Engag.* FROM Engag WHERE Num_compet = 3", "delete FROM Engag WHERE Num_compet = 3"},
        {"  DELETE   *   FROM Liffn", "  DELETE   FROM Liffn"},
        {"Delete from Profil where Num = 4 or Num = 7", nullptr},
        // An alias right after the table takes AS; a clause word is no alias.
        {"Delete FROM Engag Engag WHERE exists (SELECT Rcomp.AutoNum FROM Rcomp Rcomp "
         "WHERE Rcomp.AutoNum = Engag.Num_compet)",
         "Delete FROM Engag AS Engag WHERE exists (SELECT Rcomp.AutoNum FROM Rcomp Rcomp "
         "WHERE Rcomp.AutoNum = Engag.Num_compet)"},
        {"UPDATE Engag_nageur Engag_nageur SET Equipe = 0 WHERE Engag_nageur.Equipe > 1",
         "UPDATE Engag_nageur AS Engag_nageur SET Equipe = 0 WHERE Engag_nageur.Equipe > 1"},
        {"Update Dirigeant set Suppr = true where Code_federal = 'X'", nullptr},
        {"delete from Licence_tempo", nullptr},
        // Qualified columns lose their table on the left of SET only.
        {"UPDATE Engag_nageur Engag_nageur SET Engag_nageur.Equipe = 0, Engag_nageur.Equipe_m = false "
         "WHERE Engag_nageur.Equipe > 2",
         "UPDATE Engag_nageur AS Engag_nageur SET Equipe = 0, Equipe_m = false WHERE Engag_nageur.Equipe > 2"},
        {"UPDATE RecordClub Set RecordClub.Categorie = 9 WHERE RecordClub.Categorie in (SELECT c.Num_cat from c);",
         "UPDATE RecordClub Set Categorie = 9 WHERE RecordClub.Categorie in (SELECT c.Num_cat from c);"},
        {"update Engag_nageur set Old_equipe = Engag_nageur.Equipe, Old_equipe_m = (select max(t.x) from t) "
         "where Num_compet = 3",
         nullptr},
        // A number glued to the next keyword is set apart; an exponent, a name
        // ending in digits and a bracketed name are not.
        {"WHERE Engag.Num_compet = 12AND Engag.Num_Lic = 41ORDER BY Engag.Num_equipe",
         "WHERE Engag.Num_compet = 12 AND Engag.Num_Lic = 41 ORDER BY Engag.Num_equipe"},
        {"where Tps < 1.2345or Tps > 90group by Code_epreuve", "where Tps < 1.2345 or Tps > 90 group by Code_epreuve"},
        {"select 1e5, Licence10 from Relais where Licence1AND = 2", nullptr},
        {"select [12AND] from t where Nom = '5AND 7ORDER'", nullptr},
        // Texts in quotes are never touched; outside them the rewrite applies.
        {"INSERT INTO Piscine (Nom) VALUES ('DELETE * FROM Engag');", nullptr},
        {"UPDATE Licence SET Nom = 'O''BRIEN', Prenom = 'Anne' WHERE Nom = 'O''Brien'", nullptr},
        {"Update Club Set Intitule = 'Club.Nom = x, Engag.* ' where Num = 4", nullptr},
        {"select count(*) from Profil where Libelle ='l''équipe 2AND 3'", nullptr},
        {"DELETE * FROM Piscine WHERE Nom = 'DELETE * FROM Piscine'",
         "DELETE FROM Piscine WHERE Nom = 'DELETE * FROM Piscine'"},
        {"UPDATE Licence Licence SET Licence.Nom = 'O''BRIEN' WHERE Licence.Nom = 'Licence.Nom = 1AND'",
         "UPDATE Licence AS Licence SET Nom = 'O''BRIEN' WHERE Licence.Nom = 'Licence.Nom = 1AND'"},
        // Without a connection, the forms that need the tables stay.
        {"INSERT INTO Engag_equipe VALUES (4, 2, 0, 0, 0);", nullptr},
        {"SELECT Code_Nage FROM Nage ORDER BY Mixte DESC", nullptr},
    };
    for (const Rewrite& c : cases)
        EXPECT_EQ(jet_to_sqlite(QString::fromUtf8(c.jet)).toStdString(), c.sqlite ? c.sqlite : c.jet);
}

// ---------------------------------------------------------------------------
// Real statements on a real base
// ---------------------------------------------------------------------------

constexpr const char* kClub = "FRA1234560001";
constexpr const char* kSelection = "FRA1234560000";

class DialectOnBase : public AppFixture {
protected:
    void SetUp() override
    {
        AppFixture::SetUp();
        connect(make_base());
        app->state.club_code = QString::fromLatin1(kClub);
        run(QStringLiteral(
                "INSERT INTO Club (Code_federal, Intitule, Selection) VALUES ('%1', 'CN Plouvarine', false);")
                .arg(club()));
        run(QStringLiteral(
                "INSERT INTO Club (Code_federal, Intitule, Selection) VALUES ('%1', 'Sélection du Finistère', true);")
                .arg(selection()));
        run(QStringLiteral("INSERT INTO Profil (Code_club, libelle) VALUES ('%1', 'Club');").arg(club()));
        run(QStringLiteral("INSERT INTO Profil (Code_club, libelle) VALUES ('%1', 'Sélection');").arg(selection()));
        profile = read(QStringLiteral("select Num from Profil where Libelle = 'Club'")).first();
        sel_profile = read(QStringLiteral("select Num from Profil where Libelle = 'Sélection'")).first();
        compet = add_competition(QStringLiteral("12"));
        past = add_competition(QStringLiteral("13"));
        run(QStringLiteral("Update Rcomp Set Visible = false where AutoNum IN (") + past + QLatin1Char(')'));
    }

    static QString club() { return QString::fromLatin1(kClub); }
    static QString selection() { return QString::fromLatin1(kSelection); }

    void run(const QString& sql) { app->db.exec_sql(sql); }
    Rows read(const QString& sql) { return app->db.load_rows(sql); }
    // Every row of a read, its fields joined with "|", for whole-result checks.
    QStringList lines(const QString& sql)
    {
        const Rows rows = read(sql);
        QStringList out;
        for (int r = 0; r < rows.size(); ++r) {
            QStringList fields;
            for (int c = 0; c < rows.column_count(); ++c)
                fields << rows.value(r, c);
            out << fields.join(QLatin1Char('|'));
        }
        return out;
    }

    QString add_competition(const QString& num)
    {
        run(QStringLiteral("INSERT INTO Rcomp (Num, Type, Nom, debut, fin, Lieu, Longueur, Nb_couloir, Codif_fede, "
                           "Codif_inter, Codif_reg, Codif_depar, Num_Piscine) VALUES ('%1', 'I', 'Interclubs', "
                           "'20990105', '20990105', 'Brest', 50, 8, 'Q', ' ', ' ', ' ', 0);")
                .arg(num));
        return read(QStringLiteral("select AutoNum from Rcomp where Num = '") + num + QLatin1Char('\'')).first();
    }

    QString add_swimmer(const QString& licence, const QString& nom, const QString& sexe)
    {
        run(QStringLiteral(
                "INSERT INTO Licence (Code_club, licence, Nom, Prenom, sexe) VALUES ('%1', '%2', %3, 'X', '%4');")
                .arg(club(), licence, quote_sql(nom).text(), sexe));
        return read(QStringLiteral("select Num from Licence where Licence = '%1' and Code_Club = '%2'")
                        .arg(licence, club()))
            .first();
    }

    void add_entry(const QString& prof, const QString& comp, const QString& event, const QString& swimmer, int team = 0,
                   const QString& tps = QStringLiteral("0.3012"))
    {
        run(QStringLiteral(
                "INSERT INTO Engag (Code_epreuve, Num_Lic, Num_equipe, Equipe_mixte, Num_profil, Num_compet, "
                "Tps_engagement, Date_perf, Lieu_perf, Bassin) VALUES (%1, %2, %3, false, %4, %5, %6, '', '', 25);")
                .arg(event, swimmer)
                .arg(team)
                .arg(prof, comp, tps));
    }

    // One relay of the club profile, written by position as the relay window
    // writes it; the places after the swimmers hold `nulle`.
    void add_relay(const QString& event, int number, int team, const QStringList& swimmers, const QString& nulle)
    {
        QStringList places = swimmers;
        while (places.size() < 10)
            places << nulle;
        run(QStringLiteral("INSERT INTO Relais VALUES (%1, %2, %3, %4, %5, false, 0, %6);")
                .arg(profile, compet, event)
                .arg(number)
                .arg(team)
                .arg(places.join(QStringLiteral(", "))));
    }

    QString event_code(const QString& condition)
    {
        return read(QStringLiteral("select Code_Nage from Nage where ") + condition +
                    QStringLiteral(" order by Code_Nage"))
            .first();
    }

    QString profile, sel_profile, compet, past;
};

// DELETE FROM t t WHERE exists (...): the entries of swimmers marked in a
// selection go for the selection's profiles, in visible competitions.
TEST_F(DialectOnBase, DeleteWithAnAliasTakesOnlyTheRowsItsSubqueriesName)
{
    const QString marked = add_swimmer(QStringLiteral("11111A"), QStringLiteral("LE GALL"), QStringLiteral("M"));
    const QString member = add_swimmer(QStringLiteral("22222B"), QStringLiteral("KERMAREC"), QStringLiteral("M"));
    for (const QString& num : {marked, member})
        run(QStringLiteral("INSERT INTO Selection (Code_Sel, Num_Lic) VALUES ('%1', %2);").arg(selection(), num));
    run(QStringLiteral("Update Selection Set Suppr = true, Visible = false where Num_Lic = %1 and Code_Sel = '%2'")
            .arg(marked, selection()));
    add_entry(sel_profile, compet, QStringLiteral("51"), marked); // goes
    add_entry(sel_profile, past, QStringLiteral("51"), marked); // hidden competition
    add_entry(profile, compet, QStringLiteral("52"), marked); // the club's own profile
    add_entry(sel_profile, compet, QStringLiteral("51"), member); // not marked

    run(QStringLiteral("Delete FROM Engag Engag WHERE exists (SELECT Rcomp.AutoNum FROM Rcomp Rcomp WHERE "
                       "Rcomp.Visible=True AND Rcomp.AutoNum = Engag.Num_compet) AND exists (SELECT Profil.Num "
                       "FROM Profil Profil WHERE Profil.Code_club='%1' AND Profil.Num = Engag.Num_profil) AND "
                       "exists (SELECT Selection.Num_Lic FROM Selection Selection WHERE Selection.Suppr = true AND "
                       "Selection.Code_Sel = '%1' AND Selection.Num_Lic = Engag.Num_Lic)")
            .arg(selection()));

    const QStringList left = lines(QStringLiteral("select Num_profil, Num_compet, Num_Lic from Engag"));
    EXPECT_EQ(left.size(), 3);
    EXPECT_FALSE(left.contains(sel_profile + QLatin1Char('|') + compet + QLatin1Char('|') + marked));
    EXPECT_TRUE(left.contains(sel_profile + QLatin1Char('|') + past + QLatin1Char('|') + marked));
    EXPECT_TRUE(left.contains(profile + QLatin1Char('|') + compet + QLatin1Char('|') + marked));
    EXPECT_TRUE(left.contains(sel_profile + QLatin1Char('|') + compet + QLatin1Char('|') + member));
}

// UPDATE t t SET t.col and DELETE FROM t t, as the team templates compose them:
// lowering the men's count from 2 to 1 sends the men of team 2 to individual,
// deletes their team-2 entries and the men's relays of team 2, and touches no
// woman of a team 2 and no mixed team.
TEST_F(DialectOnBase, LoweringTheMenCountTakesTheMenOfTheLastTeamOnly)
{
    const QString man1 = add_swimmer(QStringLiteral("11111A"), QStringLiteral("LE GALL"), QStringLiteral("M"));
    const QString man2 = add_swimmer(QStringLiteral("22222B"), QStringLiteral("KERMAREC"), QStringLiteral("M"));
    const QString woman2 = add_swimmer(QStringLiteral("33333C"), QStringLiteral("O'BRIEN"), QStringLiteral("F"));
    const QString mixed2 = add_swimmer(QStringLiteral("44444D"), QStringLiteral("TANGUY"), QStringLiteral("M"));
    const auto assign = [&](const QString& num, int team, bool mixed) {
        run(QStringLiteral("INSERT INTO Engag_nageur (Num_profil, Num_compet, Num_Lic, Equipe, Equipe_m) VALUES (%1, "
                           "%2, %3, %4, %5);")
                .arg(profile, compet, num)
                .arg(team)
                .arg(mixed ? QStringLiteral("true") : QStringLiteral("false")));
    };
    assign(man1, 1, false);
    assign(man2, 2, false);
    assign(woman2, 2, false);
    assign(mixed2, 2, true);
    add_entry(profile, compet, QStringLiteral("51"), man1, 1);
    add_entry(profile, compet, QStringLiteral("51"), man2, 2);
    add_entry(profile, compet, QStringLiteral("1"), woman2, 2);
    const QString nulle = QStringLiteral("0");
    const QString men_relay = event_code(QStringLiteral("Nb_nageurs > 1 and Sexe = 'M'"));
    const QString women_relay = event_code(QStringLiteral("Nb_nageurs > 1 and Sexe = 'F'"));
    add_relay(men_relay, 1, 1, {man1}, nulle);
    add_relay(men_relay, 1, 2, {man2}, nulle);
    add_relay(women_relay, 1, 2, {woman2}, nulle);

    const auto template_run = [&](QString sql, const QString& table) {
        const QString key = QStringLiteral("<TABLE>.Num_compet = %1 and <TABLE>.Num_profil = %2").arg(compet, profile);
        sql.replace(QStringLiteral("<KEY>"), key);
        sql.replace(QStringLiteral("<TABLE>"), table);
        sql.replace(QStringLiteral("<NUM_TEAM>"), QStringLiteral("1"));
        sql.replace(QStringLiteral("<SEXE_NAGEUR>"), QStringLiteral("M"));
        run(sql);
    };
    template_run(QStringLiteral("UPDATE <TABLE> <TABLE> SET <TABLE>.Equipe = 0, <TABLE>.Equipe_m = false "
                                "WHERE <TABLE>.Equipe > <NUM_TEAM> AND <TABLE>.Equipe_m = false AND <KEY> AND "
                                "EXISTS (SELECT Licence.Num FROM Licence Licence WHERE Licence.Sexe = '<SEXE_NAGEUR>' "
                                "AND Licence.Num = <TABLE>.Num_Lic)"),
                 QStringLiteral("Engag_nageur"));
    template_run(QStringLiteral("DELETE FROM <TABLE> <TABLE> WHERE <TABLE>.Num_equipe > <NUM_TEAM> AND "
                                "<TABLE>.Equipe_mixte = false AND <KEY> AND EXISTS (SELECT Licence.Num FROM Licence "
                                "Licence WHERE Licence.Sexe = '<SEXE_NAGEUR>' AND Licence.Num = <TABLE>.Num_Lic)"),
                 QStringLiteral("Engag"));
    template_run(
        QStringLiteral("DELETE FROM Relais Relais WHERE Relais.Num_equipe > <NUM_TEAM> AND "
                       "Relais.Equipe_mixte = False AND <KEY> AND EXISTS (SELECT Nage.Code_Nage FROM Nage Nage "
                       "WHERE Nage.Sexe = '<SEXE_NAGEUR>' AND Nage.Code_Nage = Relais.Code_epreuve)"),
        QStringLiteral("Relais"));

    EXPECT_EQ(text(lines(QStringLiteral("select Num_Lic, Equipe, Equipe_m from Engag_nageur order by Num_Lic"))),
              text(QStringList({man1 + QStringLiteral("|1|Faux"), man2 + QStringLiteral("|0|Faux"),
                                woman2 + QStringLiteral("|2|Faux"), mixed2 + QStringLiteral("|2|Vrai")})));
    EXPECT_EQ(text(lines(QStringLiteral("select Num_Lic, Num_equipe from Engag order by Num_Lic"))),
              text(QStringList({man1 + QStringLiteral("|1"), woman2 + QStringLiteral("|2")})));
    EXPECT_EQ(
        text(lines(QStringLiteral("select Code_epreuve, Num_equipe from Relais order by Num_equipe, Code_epreuve"))),
        text(QStringList({men_relay + QStringLiteral("|1"), women_relay + QStringLiteral("|2")})));
}

// UPDATE t SET t.col: the records of the old men's bands up to the new band's
// highest age move to the new band; others stay where they are.
TEST_F(DialectOnBase, QualifiedSetMovesTheRecordsOfTheMergedBands)
{
    const auto band = [&](const char* label, int from, int to, const char* sexe) {
        run(QStringLiteral("INSERT INTO Categori_record_club  (Code_Club, Libelle, Age_inf, Age_sup, Sexe) "
                           "VALUES ('%1', '%2', %3, %4, '%5')")
                .arg(club(), QString::fromUtf8(label))
                .arg(from)
                .arg(to)
                .arg(QString::fromUtf8(sexe)));
        return read(QStringLiteral("select max(Num_cat) from Categori_record_club")).first();
    };
    const QString benjamins = band("Benjamins", 10, 11, "Homme");
    const QString minimes = band("Minimes", 12, 13, "Homme");
    const QString cadets = band("Cadets", 14, 15, "Homme");
    const QString filles = band("Minimes filles", 12, 13, "Femme");
    for (const QString& cat : {benjamins, minimes, cadets, filles})
        run(QStringLiteral(
                "INSERT INTO RecordClub (Categorie, Code_nage, Bassin, Tps, Nom) VALUES (%1, 51, 25, 0.3012, 'X')")
                .arg(cat));
    run(QStringLiteral("UPDATE Categori_record_club SET Old = true where Code_Club = '") + club() + QLatin1Char('\''));
    const QString jeunes = band("Jeunes", 10, 13, "Homme");
    ASSERT_EQ(text(read(QStringLiteral("Select Num_cat, Age_sup, Sexe from Categori_record_club where Code_Club = '") +
                        club() + QStringLiteral("' and Old = false order by age_inf"))
                       .first()),
              text(jeunes));

    run(QStringLiteral("UPDATE RecordClub Set RecordClub.Categorie = %1 WHERE RecordClub.Categorie in ( "
                       "SELECT Categori_record_club.Num_cat from Categori_record_club Where "
                       "Categori_record_club.Code_Club = '%2' AND Categori_record_club.Old = True AND "
                       "Categori_record_club.Sexe = 'Homme' AND Categori_record_club.Age_sup <= 13);")
            .arg(jeunes, club()));

    EXPECT_EQ(text(read(QStringLiteral("select Categorie from RecordClub order by Num_auto")).column(0)),
              text(QStringList({jeunes, jeunes, cadets, filles})));
}

// A number glued to the next keyword, as the convocation and relay statements
// join a key and the next piece: read as Jet reads them.
TEST_F(DialectOnBase, NumbersGluedToKeywordsReadAsTwoTokens)
{
    const QString swimmer = add_swimmer(QStringLiteral("11111A"), QStringLiteral("LE GALL"), QStringLiteral("M"));
    const QString other = add_swimmer(QStringLiteral("22222B"), QStringLiteral("KERMAREC"), QStringLiteral("M"));
    add_entry(profile, compet, QStringLiteral("52"), swimmer, 0, QStringLiteral("1.0523"));
    add_entry(profile, compet, QStringLiteral("51"), swimmer, 0, QStringLiteral("0.2745"));
    add_entry(profile, compet, QStringLiteral("51"), other);
    add_entry(sel_profile, compet, QStringLiteral("53"), swimmer);

    const QString engag =
        QStringLiteral("SELECT Nage.Libelle, Engag.Tps_engagement, Engag.Num_equipe, Engag.Equipe_mixte "
                       "FROM Nage Nage, Engag Engag WHERE Nage.Code_Nage = Engag.Code_epreuve "
                       "AND Engag.Num_compet = ") +
        compet + QStringLiteral("AND Engag.Num_profil = ") + profile + QStringLiteral("AND Engag.Num_Lic = ") +
        swimmer + QStringLiteral("ORDER BY Engag.Num_equipe, Engag.Equipe_mixte, Engag.Code_epreuve");
    const QString label51 = read(QStringLiteral("select Libelle from Nage where Code_Nage = 51")).first();
    const QString label52 = read(QStringLiteral("select Libelle from Nage where Code_Nage = 52")).first();
    EXPECT_EQ(
        text(lines(engag)),
        text(QStringList({label51 + QStringLiteral("|0.2745|0|Faux"), label52 + QStringLiteral("|1.0523|0|Faux")})));

    const QString relay = event_code(QStringLiteral("Nb_nageurs > 1 and Sexe = 'M'"));
    add_relay(relay, 1, 1, {swimmer}, QStringLiteral("0"));
    add_relay(relay, 2, 1, {other}, QStringLiteral("0"));
    add_relay(relay, 3, 1, {other, swimmer}, QStringLiteral("0"));
    add_relay(relay, 1, 2, {other}, QStringLiteral("0"));
    const QString counts = QStringLiteral("SELECT Relais.code_epreuve, Max(Relais.Num_Lic) AS MaxDeNum_Lic "
                                          "FROM Nage Nage, Relais Relais WHERE Nage.Code_Nage = Relais.Code_epreuve "
                                          "AND Relais.Num_compet = ") +
        compet + QStringLiteral("AND Relais.Num_profil = ") + profile +
        QStringLiteral("AND Relais.Num_equipe = 1 and Nage.Sexe = 'M' group by Relais.code_epreuve");
    EXPECT_EQ(text(lines(counts)), text(QStringList({relay + QStringLiteral("|3")})));

    QString condition;
    for (int n = 1; n <= 10; ++n)
        condition += QStringLiteral(" OR Licence%1 = %2").arg(n).arg(swimmer);
    condition = condition.mid(4);
    const QString relays = QStringLiteral("SELECT Nage.Libelle, Relais.Num_Lic, Relais.Num_equipe, Relais.Equipe_mixte "
                                          "FROM Nage Nage, Relais Relais WHERE Nage.Code_Nage = Relais.Code_epreuve "
                                          "AND Relais.Num_compet = ") +
        compet + QStringLiteral("AND Relais.Num_profil = ") + profile + QStringLiteral("AND (") + condition +
        QStringLiteral(") ORDER BY Relais.Num_equipe, Relais.Equipe_mixte, Relais.Code_epreuve");
    QStringList numbers = read(relays).column(1);
    numbers.sort();
    EXPECT_EQ(text(numbers), text(QStringList({QStringLiteral("1"), QStringLiteral("3")})));
}

// INSERT INTO t VALUES with fewer values than t has columns: the values go to
// the first columns and the snapshot columns take their defaults.
TEST_F(DialectOnBase, PositionalInsertNamesTheFirstColumnsOfTheTable)
{
    const QString sql = QStringLiteral("INSERT INTO Engag_equipe VALUES (%1, %2, 0, 0, 0);").arg(compet, profile);
    EXPECT_EQ(jet_to_sqlite(sql, app->db.handle()).toStdString(),
              QStringLiteral("INSERT INTO Engag_equipe (Num_compet, Num_profil, Eq_Homme, Eq_Femme, Eq_Mixte) "
                             "VALUES (%1, %2, 0, 0, 0);")
                  .arg(compet, profile)
                  .toStdString());
    // As many values as columns, a column list, a SELECT, no connection, an
    // unknown table: nothing to complete.
    const QString full = QStringLiteral("INSERT INTO Activite_licence VALUES (4, 'Natation');");
    const QString named = QStringLiteral("INSERT INTO Selection (Code_Sel, Num_Lic) VALUES ('X', 4);");
    const QString select = QStringLiteral("INSERT INTO Relais SELECT Relais_tempo.* From Relais_tempo");
    const QString unknown = QStringLiteral("INSERT INTO Absente VALUES (1)");
    for (const QString& same : {full, named, select, unknown})
        EXPECT_EQ(jet_to_sqlite(same, app->db.handle()).toStdString(), same.toStdString());
    EXPECT_EQ(jet_to_sqlite(sql, nullptr).toStdString(), sql.toStdString());
    // Values are counted at the top level, texts and parentheses as one value each.
    EXPECT_EQ(
        jet_to_sqlite(QStringLiteral("insert into Activites values ('a, b', ('c,d'))"), app->db.handle()).toStdString(),
        "insert into Activites (Code_federal, Activite) values ('a, b', ('c,d'))");

    app->db.exec_sql(jet_to_sqlite(sql, app->db.handle()));
    EXPECT_EQ(text(lines(QStringLiteral("select * from Engag_equipe"))),
              text(QStringList({compet + QLatin1Char('|') + profile + QStringLiteral("|0|0|0|0|0|0")})));
}

// An order on a yes/no column comes out as under Jet, where true is -1.
TEST_F(DialectOnBase, OrdersOnBooleanColumnsRunAsUnderJet)
{
    const auto turned = [&](const char* sql) {
        return jet_to_sqlite(QString::fromUtf8(sql), app->db.handle()).toStdString();
    };
    EXPECT_EQ(turned("SELECT Libelle, Code_Nage FROM Nage ORDER BY Mixte DESC, Sexe, Nb_nageurs, Code_nage"),
              "SELECT Libelle, Code_Nage FROM Nage ORDER BY Mixte ASC, Sexe, Nb_nageurs, Code_nage");
    EXPECT_EQ(turned("SELECT Nage.Libelle FROM Nage Nage, Liffn_relais Liffn_relais WHERE Nage.Code_Nage = "
                     "Liffn_relais.Code_epreuve ORDER BY Nage.Mixte DESC, Nage.Sexe, Liffn_relais.Date_perf desc"),
              "SELECT Nage.Libelle FROM Nage Nage, Liffn_relais Liffn_relais WHERE Nage.Code_Nage = "
              "Liffn_relais.Code_epreuve ORDER BY Nage.Mixte ASC, Nage.Sexe, Liffn_relais.Date_perf desc");
    EXPECT_EQ(turned("SELECT Nage.Libelle FROM Nage Nage, Engag Engag WHERE Nage.Code_Nage = Engag.Code_epreuve "
                     "ORDER BY Engag.Num_equipe, Engag.Equipe_mixte, Engag.Code_epreuve"),
              "SELECT Nage.Libelle FROM Nage Nage, Engag Engag WHERE Nage.Code_Nage = Engag.Code_epreuve "
              "ORDER BY Engag.Num_equipe, Engag.Equipe_mixte DESC, Engag.Code_epreuve");
    EXPECT_EQ(turned("select Num from Licence order by visible asc;"),
              "select Num from Licence order by visible desc;");
    // Left as they are: keys on other columns, expressions, an unknown table,
    // an order inside a subquery, and no connection.
    const char* same[] = {
        "SELECT Num, Nom FROM Licence WHERE Visible = true order by Nom DESC, Prenom",
        "SELECT Code_Nage FROM Nage ORDER BY -Mixte, 1",
        "SELECT x FROM Absente ORDER BY Mixte DESC",
        "SELECT Nom FROM Licence WHERE Num IN (SELECT Num_Lic FROM Selection ORDER BY Visible DESC)",
    };
    for (const char* sql : same)
        EXPECT_EQ(turned(sql), sql);
    EXPECT_EQ(jet_to_sqlite(QStringLiteral("SELECT Code_Nage FROM Nage ORDER BY Mixte DESC")).toStdString(),
              "SELECT Code_Nage FROM Nage ORDER BY Mixte DESC");
}

// The statements that need the tables, through the access layer.
TEST_F(DialectOnBase, TheAccessLayerRunsTheFormsThatNeedTheTables)
{
    const QString swimmer = add_swimmer(QStringLiteral("11111A"), QStringLiteral("LE GALL"), QStringLiteral("M"));
    run(QStringLiteral("INSERT INTO Engag (Num_compet, Num_profil, Code_epreuve, Num_Lic, Num_equipe, Equipe_mixte) "
                       "VALUES (%1, %2, 51, %3, 1, false)")
            .arg(compet, profile, swimmer));
    run(QStringLiteral("INSERT INTO Engag (Num_compet, Num_profil, Code_epreuve, Num_Lic, Num_equipe, Equipe_mixte) "
                       "VALUES (%1, %2, 52, %3, 1, true)")
            .arg(compet, profile, swimmer));
    // The catalogue order: the mixed relays come last.
    const QStringList mixed =
        read(QStringLiteral("select Code_Nage from Nage where Mixte = true order by Code_Nage")).column(0);
    ASSERT_FALSE(mixed.isEmpty());
    const QStringList listed =
        read(QStringLiteral("SELECT Libelle, Code_Nage FROM Nage ORDER BY Mixte DESC, Sexe, Nb_nageurs, Code_nage"))
            .column(1);
    EXPECT_EQ(text(listed.mid(listed.size() - mixed.size())), text(mixed));
    // The entry slip's order: within a team number, the mixed team first.
    EXPECT_EQ(
        text(read(QStringLiteral("SELECT Nage.Code_Nage, Engag.Equipe_mixte FROM Nage Nage, Engag Engag WHERE "
                                 "Nage.Code_Nage = Engag.Code_epreuve ORDER BY Engag.Num_equipe, Engag.Equipe_mixte, "
                                 "Nage.Code_Nage"))
                 .column(1)),
        text(QStringList({QStringLiteral("Vrai"), QStringLiteral("Faux")})));

    ASSERT_EQ(app->db.count_query(
                  QStringLiteral("select count(*) from Engag_equipe where Num_compet = %1 and Num_profil = %2")
                      .arg(compet, profile)),
              0);
    run(QStringLiteral("INSERT INTO Engag_equipe VALUES (%1, %2, 0, 0, 0);").arg(compet, profile));
    run(QStringLiteral("Update Engag_equipe Set Eq_Homme = 3, Eq_Femme = 1, Eq_Mixte = 0 where Num_compet = %1 and "
                       "Num_profil = %2")
            .arg(compet, profile));
    run(QStringLiteral(
            "update Engag_equipe set Old_Eq_Homme = Eq_Homme, Old_Eq_Femme = Eq_Femme, Old_Eq_Mixte = Eq_Mixte "
            "where Num_compet = %1 and Num_profil = %2")
            .arg(compet, profile));
    EXPECT_EQ(text(lines(QStringLiteral("select * from Engag_equipe"))),
              text(QStringList({compet + QLatin1Char('|') + profile + QStringLiteral("|3|1|0|3|1|0")})));

    run(QStringLiteral("INSERT INTO Engag_equipe_modele VALUES (7, 0, 0, 0);"));
    EXPECT_EQ(text(lines(QStringLiteral("select * from Engag_equipe_modele"))),
              text(QStringList({QStringLiteral("7|0|0|0|0|0|0")})));
}

// The survey of the dialect, on the statements the other tests really sent
// (recorded by support/statement_log.cpp; ctest runs this test last): each one
// SQLite prepared then also prepares, rewritten, on an untouched model base, so
// that every table and column a statement names is in the base we ship.
TEST(DialectSurvey, EveryStatementTheTestsSentPreparesOnTheModelBase)
{
    const std::vector<SentStatement> sent = plouvarine::testing::recorded_statements();
    ASSERT_GT(sent.size(), 300u) << "few statements recorded: run the survey through ctest, after the other tests";
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open_v2(plouvarine::testing::model_file().toUtf8().constData(), &db, SQLITE_OPEN_READONLY,
                              nullptr),
              SQLITE_OK);
    Database::prepare_connection(db);
    // Tables the tests make for themselves, and the schema changes of the
    // upgrades (tried on the old bases they apply to), are not the model's.
    const QRegularExpression schema(QStringLiteral("^\\s*(create|alter|drop)\\s"),
                                    QRegularExpression::CaseInsensitiveOption);
    const QRegularExpression made(QStringLiteral("^\\s*create\\s+table\\s+(\\w+)"),
                                  QRegularExpression::CaseInsensitiveOption);
    QStringList own_tables;
    for (const SentStatement& s : sent)
        if (const auto m = made.match(s.jet); m.hasMatch())
            own_tables << m.captured(1);
    int checked = 0;
    for (const SentStatement& s : sent) {
        if (!s.prepared || schema.match(s.jet).hasMatch() ||
            std::any_of(own_tables.begin(), own_tables.end(), [&](const QString& t) {
                return s.jet.contains(QRegularExpression(QStringLiteral("\\b%1\\b").arg(t)));
            }))
            continue;
        const QByteArray sql = jet_to_sqlite(s.jet, db).toUtf8();
        sqlite3_stmt* stmt = nullptr;
        EXPECT_EQ(sqlite3_prepare_v2(db, sql.constData(), int(sql.size()), &stmt, nullptr), SQLITE_OK)
            << sqlite3_errmsg(db) << "\n  " << s.jet.toStdString();
        sqlite3_finalize(stmt);
        ++checked;
    }
    sqlite3_close_v2(db);
    EXPECT_GT(checked, 300);
}

// ---------------------------------------------------------------------------
// The statements of the catalogue and the access layer
// ---------------------------------------------------------------------------

TEST_F(DialectOnBase, SentinelStatementsMakeEachRowOnce)
{
    const QString find = QStringLiteral("select Num from Licence where Nom = 'Null'");
    ASSERT_TRUE(read(find).empty());
    run(QStringLiteral("INSERT INTO Licence (Code_Club, Licence, Nom, Visible, Date_suppr) VALUES ('") + club() +
        QStringLiteral("', '1', 'Null', false, '');"));
    const Rows nulle = read(find);
    ASSERT_EQ(nulle.size(), 1);
    EXPECT_EQ(text(lines(QStringLiteral("select Code_club, Licence, Visible, Date_suppr from Licence where Num = ") +
                         nulle.first())),
              text(QStringList({club() + QStringLiteral("|1|Faux|")})));
    EXPECT_EQ(text(read(find).first()), text(nulle.first()));

    const QString count = QStringLiteral("select count(*) from Piscine where Nom = 'Null'");
    ASSERT_EQ(app->db.count_query(count), 0);
    run(QStringLiteral("INSERT INTO Piscine (Nom) VALUES ('Null');"));
    EXPECT_EQ(app->db.count_query(count), 1);
    // Texts compare without regard to case, as under Jet: a pool typed "NULL" is
    // taken for the reference pool too, and hidden from the pool list.
    run(QStringLiteral("INSERT INTO Piscine (Nom) VALUES ('NULL');"));
    run(QStringLiteral("INSERT INTO Piscine (Nom) VALUES ('Kerlann');"));
    EXPECT_EQ(app->db.count_query(count), 2);
    EXPECT_EQ(text(read(QStringLiteral("SELECT * from Piscine where Nom <> 'Null' order by Nom")).column(1)),
              text(QStringList({QStringLiteral("Kerlann")})));
}

// Forms SQLite takes as written, where a different reading would go unnoticed.
TEST_F(DialectOnBase, FormsTakenAsWrittenReadAsUnderJet)
{
    // A fee that no longer exists is cleared; one spelled in another case stays.
    const QString kept = add_swimmer(QStringLiteral("11111A"), QStringLiteral("LE GALL"), QStringLiteral("M"));
    const QString cleared = add_swimmer(QStringLiteral("22222B"), QStringLiteral("KERMAREC"), QStringLiteral("M"));
    run(QStringLiteral("insert into Tarifs (Code_federal, Intitule, Tarif) values ('%1', 'Adulte', 120.5)")
            .arg(club()));
    run(QStringLiteral("Update Licence set Tarif = 'ADULTE' where Num = ") + kept);
    run(QStringLiteral("Update Licence set Tarif = 'Enfant' where Num = ") + cleared);
    run(QStringLiteral("Update Licence set Tarif = '' where Code_club = '%1' and not Tarif in "
                       "(select Intitule from Tarifs where code_federal = '%1')")
            .arg(club()));
    EXPECT_EQ(text(lines(QStringLiteral("select Num, Tarif from Licence order by Num"))),
              text(QStringList({kept + QStringLiteral("|ADULTE"), cleared + QLatin1Char('|')})));

    // The prefix of a selection finds its clubs with "%", in any case.
    const QString prefix = selection().left(9).toLower();
    EXPECT_EQ(text(read(QStringLiteral("SELECT Code_federal, Intitule, Num FROM Club where Code_federal like '") +
                        prefix + QStringLiteral("%' and Visible = true order by Intitule"))
                       .column(0)),
              text(QStringList({club(), selection()})));

    // The doubled WHERE of the relay swimmers' read fails, as it always did.
    EXPECT_THROW(read(QStringLiteral("SELECT Licence.Nom FROM Club Club, Licence Licence, Selection Selection "
                                     "WHERE WHERE Club.Code_federal = Licence.Code_Club")),
                 DbError);
}

} // namespace
