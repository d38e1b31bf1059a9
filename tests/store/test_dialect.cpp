// The Jet statements of the system on SQLite: the rewrites as texts, then real
// statements on bases made from the model base, checked by their rows.

#include "src/base/errors.h"
#include "src/base/sql_text.h"
#include "src/store/database.h"
#include "src/store/dialect.h"
#include "support/app_fixture.h"
#include "support/statement_log.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>
#include <sqlite3.h>
#include <string>
#include <tuple>
#include <utility>

using namespace Qt::Literals::StringLiterals;

using namespace plouvarine;
using plouvarine::testing::AppFixture;

namespace {

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

constexpr const char* kClub = "FRA1234560001";
constexpr const char* kSelection = "FRA1234560000";

class DialectOnBase : public AppFixture {
protected:
    void SetUp() override
    {
        AppFixture::SetUp();
        connect(make_base());
        app->state.club_code = QString::fromLatin1(kClub);
        for (const auto& [code, name, is_selection] : {std::tuple{club(), u"CN Plouvarine"_s, u"false"_s},
                                                       std::tuple{selection(), u"Sélection du Finistère"_s, u"true"_s}})
            run(u"INSERT INTO Club (Code_federal, Intitule, Selection) VALUES ('%1', '%2', %3);"_s.arg(code, name,
                                                                                                       is_selection));
        run(u"INSERT INTO Profil (Code_club, libelle) VALUES ('%1', 'Club');"_s.arg(club()));
        run(u"INSERT INTO Profil (Code_club, libelle) VALUES ('%1', 'Sélection');"_s.arg(selection()));
        profile = read(u"select Num from Profil where Libelle = 'Club'"_s).first();
        sel_profile = read(u"select Num from Profil where Libelle = 'Sélection'"_s).first();
        compet = add_competition(u"12"_s);
        past = add_competition(u"13"_s);
        run(u"Update Rcomp Set Visible = false where AutoNum IN ("_s + past + QLatin1Char(')'));
    }

    static QString club() { return QString::fromLatin1(kClub); }
    static QString selection() { return QString::fromLatin1(kSelection); }

    void run(const QString& sql) { app->db.exec_sql(sql); }
    Rows read(const QString& sql) { return app->db.load_rows(sql); }
    // Every row of a read, its fields joined with "|", for whole-result checks.
    QStringList lines(const QString& sql) { return plouvarine::testing::row_texts(read(sql), u'|'); }

    QString add_competition(const QString& num)
    {
        run(QStringLiteral("INSERT INTO Rcomp (Num, Type, Nom, debut, fin, Lieu, Longueur, Nb_couloir, Codif_fede, "
                           "Codif_inter, Codif_reg, Codif_depar, Num_Piscine) VALUES ('%1', 'I', 'Interclubs', "
                           "'20990105', '20990105', 'Brest', 50, 8, 'Q', ' ', ' ', ' ', 0);")
                .arg(num));
        return read(u"select AutoNum from Rcomp where Num = '"_s + num + QLatin1Char('\'')).first();
    }

    QString add_swimmer(const QString& licence, const QString& nom, const QString& sexe)
    {
        run(QStringLiteral(
                "INSERT INTO Licence (Code_club, licence, Nom, Prenom, sexe) VALUES ('%1', '%2', %3, 'X', '%4');")
                .arg(club(), licence, quote_sql(nom).text(), sexe));
        return read(u"select Num from Licence where Licence = '%1' and Code_Club = '%2'"_s.arg(licence, club()))
            .first();
    }

    void add_entry(const QString& prof, const QString& comp, const QString& event, const QString& swimmer)
    {
        run(QStringLiteral(
                "INSERT INTO Engag (Code_epreuve, Num_Lic, Num_equipe, Equipe_mixte, Num_profil, Num_compet, "
                "Tps_engagement, Date_perf, Lieu_perf, Bassin) VALUES (%1, %2, 0, false, %3, %4, 0.3012, '', '', 25);")
                .arg(event, swimmer, prof, comp));
    }

    QString profile, sel_profile, compet, past;
};

// DELETE FROM t t WHERE exists (...): the entries of swimmers marked in a
// selection go for the selection's profiles, in visible competitions.
TEST_F(DialectOnBase, DeleteWithAnAliasTakesOnlyTheRowsItsSubqueriesName)
{
    const QString marked = add_swimmer(u"11111A"_s, u"LE GALL"_s, u"M"_s);
    const QString member = add_swimmer(u"22222B"_s, u"KERMAREC"_s, u"M"_s);
    for (const QString& num : {marked, member})
        run(u"INSERT INTO Selection (Code_Sel, Num_Lic) VALUES ('%1', %2);"_s.arg(selection(), num));
    run(u"Update Selection Set Suppr = true, Visible = false where Num_Lic = %1 and Code_Sel = '%2'"_s.arg(
        marked, selection()));
    add_entry(sel_profile, compet, u"51"_s, marked);  // goes
    add_entry(sel_profile, past, u"51"_s, marked);    // hidden competition
    add_entry(profile, compet, u"52"_s, marked);      // the club's own profile
    add_entry(sel_profile, compet, u"51"_s, member);  // not marked

    run(QStringLiteral("Delete FROM Engag Engag WHERE exists (SELECT Rcomp.AutoNum FROM Rcomp Rcomp WHERE "
                       "Rcomp.Visible=True AND Rcomp.AutoNum = Engag.Num_compet) AND exists (SELECT Profil.Num "
                       "FROM Profil Profil WHERE Profil.Code_club='%1' AND Profil.Num = Engag.Num_profil) AND "
                       "exists (SELECT Selection.Num_Lic FROM Selection Selection WHERE Selection.Suppr = true AND "
                       "Selection.Code_Sel = '%1' AND Selection.Num_Lic = Engag.Num_Lic)")
            .arg(selection()));

    QStringList left = lines(u"select Num_profil, Num_compet, Num_Lic from Engag"_s);
    QStringList kept = {QStringList({sel_profile, past, marked}).join(u'|'),
                        QStringList({profile, compet, marked}).join(u'|'),
                        QStringList({sel_profile, compet, member}).join(u'|')};
    left.sort();
    kept.sort();
    EXPECT_EQ(left, kept);
}

// INSERT INTO t VALUES with fewer values than t has columns: the values go to
// the first columns and the snapshot columns take their defaults.
TEST_F(DialectOnBase, PositionalInsertNamesTheFirstColumnsOfTheTable)
{
    const QString sql = u"INSERT INTO Engag_equipe VALUES (%1, %2, 0, 0, 0);"_s.arg(compet, profile);
    EXPECT_EQ(jet_to_sqlite(sql, app->db.handle()).toStdString(),
              QStringLiteral("INSERT INTO Engag_equipe (Num_compet, Num_profil, Eq_Homme, Eq_Femme, Eq_Mixte) "
                             "VALUES (%1, %2, 0, 0, 0);")
                  .arg(compet, profile)
                  .toStdString());
    // As many values as columns, a column list, a SELECT, no connection, an
    // unknown table: nothing to complete.
    for (const QString& same : {u"INSERT INTO Activite_licence VALUES (4, 'Natation');"_s,
                                u"INSERT INTO Selection (Code_Sel, Num_Lic) VALUES ('X', 4);"_s,
                                u"INSERT INTO Relais SELECT Relais_tempo.* From Relais_tempo"_s,
                                u"INSERT INTO Absente VALUES (1)"_s})
        EXPECT_EQ(jet_to_sqlite(same, app->db.handle()).toStdString(), same.toStdString());
    EXPECT_EQ(jet_to_sqlite(sql, nullptr).toStdString(), sql.toStdString());
    // Values are counted at the top level, texts and parentheses as one value each.
    EXPECT_EQ(jet_to_sqlite(u"insert into Activites values ('a, b', ('c,d'))"_s, app->db.handle()).toStdString(),
              "insert into Activites (Code_federal, Activite) values ('a, b', ('c,d'))");

    app->db.exec_sql(jet_to_sqlite(sql, app->db.handle()));
    EXPECT_EQ(lines(u"select * from Engag_equipe"_s), QStringList{compet + u'|' + profile + u"|0|0|0|0|0|0"_s});
}

// An order on a yes/no column comes out as under Jet, where true is -1.
TEST_F(DialectOnBase, OrdersOnBooleanColumnsRunAsUnderJet)
{
    const Rewrite cases[] = {
        {"SELECT Libelle, Code_Nage FROM Nage ORDER BY Mixte DESC, Sexe, Nb_nageurs, Code_nage",
         "SELECT Libelle, Code_Nage FROM Nage ORDER BY Mixte ASC, Sexe, Nb_nageurs, Code_nage"},
        {"SELECT Nage.Libelle FROM Nage Nage, Liffn_relais Liffn_relais WHERE Nage.Code_Nage = "
         "Liffn_relais.Code_epreuve ORDER BY Nage.Mixte DESC, Nage.Sexe, Liffn_relais.Date_perf desc",
         "SELECT Nage.Libelle FROM Nage Nage, Liffn_relais Liffn_relais WHERE Nage.Code_Nage = "
         "Liffn_relais.Code_epreuve ORDER BY Nage.Mixte ASC, Nage.Sexe, Liffn_relais.Date_perf desc"},
        {"SELECT Nage.Libelle FROM Nage Nage, Engag Engag WHERE Nage.Code_Nage = Engag.Code_epreuve "
         "ORDER BY Engag.Num_equipe, Engag.Equipe_mixte, Engag.Code_epreuve",
         "SELECT Nage.Libelle FROM Nage Nage, Engag Engag WHERE Nage.Code_Nage = Engag.Code_epreuve "
         "ORDER BY Engag.Num_equipe, Engag.Equipe_mixte DESC, Engag.Code_epreuve"},
        {"select Num from Licence order by visible asc;", "select Num from Licence order by visible desc;"},
        // Left as they are: keys on other columns, expressions, an unknown
        // table, an order inside a subquery.
        {"SELECT Num, Nom FROM Licence WHERE Visible = true order by Nom DESC, Prenom", nullptr},
        {"SELECT Code_Nage FROM Nage ORDER BY -Mixte, 1", nullptr},
        {"SELECT x FROM Absente ORDER BY Mixte DESC", nullptr},
        {"SELECT Nom FROM Licence WHERE Num IN (SELECT Num_Lic FROM Selection ORDER BY Visible DESC)", nullptr}};
    for (const Rewrite& c : cases)
        EXPECT_EQ(jet_to_sqlite(QString::fromUtf8(c.jet), app->db.handle()).toStdString(), c.sqlite ? c.sqlite : c.jet);
    // With no connection nothing is known of the columns.
    EXPECT_EQ(jet_to_sqlite(u"SELECT Code_Nage FROM Nage ORDER BY Mixte DESC"_s).toStdString(),
              "SELECT Code_Nage FROM Nage ORDER BY Mixte DESC");

    // Run through the access layer.
    const QString swimmer = add_swimmer(u"11111A"_s, u"LE GALL"_s, u"M"_s);
    for (const auto& [event, mixed] : {std::pair{u"51"_s, u"false"_s}, std::pair{u"52"_s, u"true"_s}})
        run(QStringLiteral("INSERT INTO Engag (Num_compet, Num_profil, Code_epreuve, Num_Lic, Num_equipe, "
                           "Equipe_mixte) VALUES (%1, %2, %3, %4, 1, %5)")
                .arg(compet, profile, event, swimmer, mixed));
    // The catalogue order: the mixed relays come last.
    const QStringList mixed = read(u"select Code_Nage from Nage where Mixte = true order by Code_Nage"_s).column(0);
    ASSERT_FALSE(mixed.isEmpty());
    const QStringList listed =
        read(u"SELECT Libelle, Code_Nage FROM Nage ORDER BY Mixte DESC, Sexe, Nb_nageurs, Code_nage"_s).column(1);
    EXPECT_EQ(listed.mid(listed.size() - mixed.size()), mixed);
    // The entry slip's order: within a team number, the mixed team first.
    EXPECT_EQ(read(QStringLiteral("SELECT Nage.Code_Nage, Engag.Equipe_mixte FROM Nage Nage, Engag Engag WHERE "
                                  "Nage.Code_Nage = Engag.Code_epreuve ORDER BY Engag.Num_equipe, "
                                  "Engag.Equipe_mixte, Nage.Code_Nage"))
                  .column(1),
              QStringList({"Vrai", "Faux"}));
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
    ASSERT_EQ(
        sqlite3_open_v2(plouvarine::testing::model_file().toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr),
        SQLITE_OK);
    Database::prepare_connection(db);
    // Tables the tests make for themselves, and the schema changes of the
    // upgrades (tried on the old bases they apply to), are not the model's.
    const QRegularExpression schema(u"^\\s*(create|alter|drop)\\s"_s, QRegularExpression::CaseInsensitiveOption);
    const QRegularExpression made(u"^\\s*create\\s+table\\s+(\\w+)"_s, QRegularExpression::CaseInsensitiveOption);
    QStringList own_tables;
    for (const SentStatement& s : sent)
        if (const auto m = made.match(s.jet); m.hasMatch())
            own_tables << m.captured(1);
    int checked = 0;
    for (const SentStatement& s : sent) {
        if (!s.prepared || schema.match(s.jet).hasMatch() ||
            std::any_of(own_tables.begin(), own_tables.end(),
                        [&](const QString& t) { return s.jet.contains(QRegularExpression(u"\\b%1\\b"_s.arg(t))); }))
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

// Forms SQLite takes as written, where a different reading would go unnoticed.
TEST_F(DialectOnBase, FormsTakenAsWrittenReadAsUnderJet)
{
    // A fee that no longer exists is cleared; one spelled in another case stays.
    const QString kept = add_swimmer(u"11111A"_s, u"LE GALL"_s, u"M"_s);
    const QString cleared = add_swimmer(u"22222B"_s, u"KERMAREC"_s, u"M"_s);
    run(u"insert into Tarifs (Code_federal, Intitule, Tarif) values ('%1', 'Adulte', 120.5)"_s.arg(club()));
    run(u"Update Licence set Tarif = 'ADULTE' where Num = "_s + kept);
    run(u"Update Licence set Tarif = 'Enfant' where Num = "_s + cleared);
    run(QStringLiteral("Update Licence set Tarif = '' where Code_club = '%1' and not Tarif in "
                       "(select Intitule from Tarifs where code_federal = '%1')")
            .arg(club()));
    EXPECT_EQ(lines(u"select Num, Tarif from Licence order by Num"_s),
              QStringList({kept + u"|ADULTE"_s, cleared + u'|'}));

    // The prefix of a selection finds its clubs with "%", in any case.
    const QString prefix = selection().left(9).toLower();
    EXPECT_EQ(read(u"SELECT Code_federal, Intitule, Num FROM Club where Code_federal like '"_s + prefix +
                   u"%' and Visible = true order by Intitule"_s)
                  .column(0),
              QStringList({club(), selection()}));

    // The doubled WHERE of the relay swimmers' read fails, as it always did.
    EXPECT_THROW(read(QStringLiteral("SELECT Licence.Nom FROM Club Club, Licence Licence, Selection Selection "
                                     "WHERE WHERE Club.Code_federal = Licence.Code_Club")),
                 DbError);
}

}  // namespace
