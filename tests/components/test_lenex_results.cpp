// The results import (rcpres) on the three real Lenex files and on bad input.

#include "components/lenex/lenex_results.h"
#include "components/lenex/lenex_time.h"
#include "components/lenex_support.h"
#include "src/base/zip.h"
#include "support/temp_files.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

namespace plouvarine::testing {
namespace {

// The base keeps the splits at the 50 m (100 m beyond 400 m) marks before the
// finish, fourteen at most.
bool split_fits(int total, int at)
{
    const int step = total <= 400 ? 50 : 100;
    return at > 0 && at < total && (total - at) % step == 0 && (total - at) / step <= 14;
}

struct RealFile {
    const char* name;
    int length;
};

class ResultsBase : public LenexBase {
protected:
    // Imports `source` into the competition `num`; gives the call to run again.
    ExchangeCall import_results(const QString& source, int num, bool new_compet = false)
    {
        ExchangeCall call;
        call.source = source;
        call.num_compet = QString::number(num);
        call.new_compet = new_compet;
        last_result = run(QStringLiteral("rcpres"), QStringLiteral("bimport_result"), call);
        return call;
    }
    bool last_result = false;
};

class ResultsImport : public ResultsBase, public ::testing::WithParamInterface<RealFile> {};

TEST_P(ResultsImport, EverySwimOfTheFileReachesTheCompetitionOnceWithItsStatusesAndSplits)
{
    SKIP_WITHOUT_LENEX_FILES();
    const QString file = lenex_file(QString::fromLatin1(GetParam().name));
    const LenexCounts expected = count_lenex(file, split_fits);
    ASSERT_GT(expected.swims, 0);
    const int licences = count(QStringLiteral("SELECT count(*) FROM Licence"));
    const int num = add_competition(GetParam().length);
    ExchangeCall call = import_results(file, num);
    EXPECT_FALSE(last_result);
    EXPECT_FALSE(trace().contains(QStringLiteral("Erreur"))) << trace().toStdString();

    // Swims, relays, statuses, splits.
    const QString where = QStringLiteral(" WHERE Num_compet = %1").arg(num);
    QStringList inter;
    for (int i = 1; i <= 14; ++i)
        inter.append(QStringLiteral("(Inter%1 > 0)").arg(i));
    EXPECT_EQ(rows(QStringLiteral("SELECT (SELECT count(*) FROM Prres%2), (SELECT count(*) FROM Prres_relais%2), "
                                  "(SELECT count(*) FROM Prres%2 AND Tps >= 91) + "
                                  "(SELECT count(*) FROM Prres_relais%2 AND Tps >= 91), "
                                  "(SELECT coalesce(sum(%1), 0) FROM Prres%2) + "
                                  "(SELECT coalesce(sum(%1), 0) FROM Prres_relais%2)")
                       .arg(inter.join(u'+'), where)),
              QStringList{QString::asprintf("%d|%d|%d|%d", expected.swims, expected.relays, expected.statuses,
                                            expected.splits)});
    // Every swimmer of a swim is a licence of the base now, in a club of the
    // base, and each swim has a category of the competition.
    EXPECT_EQ(rows(QStringLiteral("SELECT (SELECT count(*) FROM Prres p LEFT JOIN Licence l ON l.Num = p.Num_Lic%1 "
                                  "AND l.Num IS NULL), (SELECT count(*) FROM Prres p LEFT JOIN Club c ON "
                                  "c.Code_federal = p.Code_club%1 AND c.Num IS NULL), (SELECT count(*) FROM Prres p%1 "
                                  "AND p.Num_categorie NOT IN (SELECT Num_cat FROM Categori c WHERE c.Num_compet = "
                                  "p.Num_compet))")
                       .arg(where)),
              QStringList{QStringLiteral("0|0|0")});
    EXPECT_GT(count(QStringLiteral("SELECT count(*) FROM Licence")), licences);

    // The competition had no programme: it gets one line per event with results.
    EXPECT_EQ(count(QStringLiteral("SELECT count(*) FROM Pcomp") + where + QStringLiteral(" AND JourCourse >= 1")),
              count(QStringLiteral("SELECT count(*) FROM (SELECT Code_epreuve FROM Prres%1 UNION "
                                   "SELECT Code_epreuve FROM Prres_relais%1)").arg(where)));

    // The same file again adds nothing.
    const auto rows_in_base = [&] {
        int n = 0;
        for (const char* table : {"Pcomp", "Prres", "Licence", "Club", "Categori"})
            n += count(QStringLiteral("SELECT count(*) FROM ") + QLatin1String(table));
        return n;
    };
    const int before = rows_in_base();
    run(QStringLiteral("rcpres"), QStringLiteral("bimport_result"), call);
    EXPECT_EQ(rows_in_base(), before);
    EXPECT_TRUE(trace().contains(QStringLiteral("%1 déjà présent(s)").arg(expected.swims + expected.relays)))
        << trace().toStdString();

    // A competition whose programme stands keeps it as it is.
    const int other = add_competition(GetParam().length);
    db.exec_sql(QStringLiteral("INSERT INTO Pcomp (Num_compet, Code_epreuve, JourCourse, Num_ordre) VALUES (%1, 2, 1, 1)")
                    .arg(other));
    call.num_compet = QString::number(other);
    run(QStringLiteral("rcpres"), QStringLiteral("bimport_result"), call);
    EXPECT_EQ(rows(QStringLiteral("SELECT Code_epreuve FROM Pcomp WHERE Num_compet = %1").arg(other)), QStringList{"2"});
}

INSTANTIATE_TEST_SUITE_P(RealFiles, ResultsImport,
                         ::testing::Values(RealFile{"example-results.lef", 25},
                                           RealFile{"16032025_Erlangen_lenex3_results.lxf", 50},
                                           RealFile{"38468.lxf", 0}));

using ResultsDetail = ResultsBase;

TEST_F(ResultsDetail, SwimsKeepTheirDetailsAndSwimmersOfTheBaseAreFoundNotAddedAgain)
{
    SKIP_WITHOUT_LENEX_FILES();
    // Two swimmers of the file already in the base: by licence, and by name and
    // birth date ("Günter Schmah" without licence, accents and case apart).
    db.exec_sql(QStringLiteral("INSERT INTO Licence (Code_club, Licence, Nom, Prenom, Sexe, Date_Naissance, Visible) "
                               "VALUES ('X', '19251', 'Autre', 'Nom', 'M', '19540112', true)"));
    db.exec_sql(QStringLiteral("INSERT INTO Licence (Code_club, Licence, Nom, Prenom, Sexe, Date_Naissance, Visible) "
                               "VALUES ('X', '', 'SCHMAH', 'gunter', 'M', '19380101', true)"));
    const int num = add_competition(25);
    const QString file = lenex_file(QStringLiteral("example-results.lef"));
    import_results(file, num, true);
    // The competition made for the results takes the meet's name and place.
    EXPECT_EQ(rows(QStringLiteral("SELECT Nom, Lieu, Debut, Longueur FROM Rcomp WHERE AutoNum = %1").arg(num)),
              QStringList{QStringLiteral("Schweizerische Masters Meisterschaften|Nottwil|20090926|25")});
    // Relay 1 of its club, 4x50 m medley mixed: 2:30.14, splits nearest the finish first.
    EXPECT_EQ(rows(QStringLiteral("SELECT Code_epreuve, Tps, Numero_couloir, Inter1, Inter2, Inter3, Inter4 FROM Prres_relais "
                                  "WHERE Num_compet = %1 AND Tps = 2.3014").arg(num)),
              QStringList{QStringLiteral("48|2.3014|6|1.5799|1.2154|0.4618|0")});
    // Ales Vrana, 100 m (event 1414...), 712 points, 1:23.18 in lane 5.
    EXPECT_EQ(rows(QStringLiteral("SELECT p.Tps, p.Cotation_FFN, p.Numero_couloir, p.Type_course FROM Prres p "
                                  "JOIN Licence l ON l.Num = p.Num_Lic WHERE l.Licence = '19251' AND p.Tps = 1.2318")),
              QStringList{QStringLiteral("1.2318|712|5|S")});
    // Each status of the file as its code.
    const LenexCounts counts = count_lenex(file, [](int, int) { return false; });
    EXPECT_EQ(count(QStringLiteral("SELECT count(*) FROM Prres WHERE Tps = 94")), counts.by_status.value("DNS"));
    EXPECT_EQ(count(QStringLiteral("SELECT count(*) FROM Prres WHERE Tps = 92")), counts.by_status.value("WDR"));

    EXPECT_EQ(count(QStringLiteral("SELECT count(*) FROM Licence WHERE Licence = '19251'")), 1);
    EXPECT_EQ(count(QStringLiteral("SELECT count(*) FROM Licence WHERE Nom = 'Schmah'")), 1);
    EXPECT_GT(count(QStringLiteral("SELECT count(*) FROM Prres p JOIN Licence l ON l.Num = p.Num_Lic WHERE l.Nom = 'SCHMAH'")), 0);
    EXPECT_FALSE(trace().contains(QStringLiteral("Nageur ajouté : Schmah")));
    EXPECT_TRUE(trace().contains(QStringLiteral("Nageur ajouté : ")));
    EXPECT_TRUE(trace().contains(QStringLiteral("Club ajouté : WAED Schwimmverein Wädenswil")));
}

TEST_F(ResultsDetail, BadInputLeavesTheBaseAsItWasAndSaysWhyInTheTrace)
{
    SKIP_WITHOUT_LENEX_FILES();
    const int num = add_competition(25);
    const QString full = QString::fromUtf8(read_bytes(lenex_file(QStringLiteral("example-results.lef"))));
    QTemporaryDir src;
    // Not XML; cut in the middle of the clubs (swims before the cut must not
    // stay); an .lxf holding no .lef; an .lxf whose entry climbs out.
    write_bytes(src.filePath(QStringLiteral("a_texte.lef")), "Nom;Prenom\nLe Goff;Anne\n");
    write_bytes(src.filePath(QStringLiteral("b_tronque.lef")), full.left(full.size() * 2 / 3).toUtf8());
    write_bytes(src.filePath(QStringLiteral("lisez.txt")), "rien");
    zip_file(src.filePath(QStringLiteral("c_vide.lxf")), src.filePath(QStringLiteral("lisez.txt")));
    const QString day = QStringLiteral("2025-03-01");
    const QString swum = QStringLiteral("00:01:05.00");
    write_bytes(src.filePath(QStringLiteral("evil.lef")), small_lenex(day, swum));
    zip_file(src.filePath(QStringLiteral("d_evasion.lxf")), src.filePath(QStringLiteral("evil.lef")),
             QStringLiteral("../evil.lef"));
    QFile::remove(src.filePath(QStringLiteral("evil.lef")));
    // Declared UTF-8, written in Latin-1.
    write_bytes(src.filePath(QStringLiteral("f_codage.lef")), small_lenex(day, swum).replace("Le Goff", "L\xe9 Goff"));
    // Another course.
    write_bytes(src.filePath(QStringLiteral("e_bassin.lef")), small_lenex(day, swum, QStringLiteral("LCM")));
    const QString counts = QStringLiteral("SELECT count(*), (SELECT count(*) FROM Licence), (SELECT count(*) FROM Club), "
                                          "(SELECT count(*) FROM Categori) FROM Prres");
    const QStringList before = rows(counts);
    import_results(src.path(), num);
    EXPECT_EQ(rows(counts), before);
    const QStringList lines = trace().split(u'\n', Qt::SkipEmptyParts);
    auto has = [&](const QString& start, const QString& part) {
        for (const QString& l : lines) {
            if (l.startsWith(QStringLiteral("Erreur : ") + start) && l.contains(part))
                return true;
        }
        return false;
    };
    EXPECT_TRUE(has(QStringLiteral("a_texte.lef : ligne 1"), QStringLiteral("LENEX"))) << trace().toStdString();
    EXPECT_TRUE(has(QStringLiteral("b_tronque.lef : ligne"), QStringLiteral("fichier incomplet"))) << trace().toStdString();
    EXPECT_TRUE(has(QStringLiteral("c_vide.lxf"), QStringLiteral("aucun fichier .lef"))) << trace().toStdString();
    EXPECT_TRUE(has(QStringLiteral("d_evasion.lxf"), QStringLiteral("ne peut être ouvert"))) << trace().toStdString();
    EXPECT_TRUE(has(QStringLiteral("e_bassin.lef"), QStringLiteral("bassin de 50 m"))) << trace().toStdString();
    EXPECT_TRUE(has(QStringLiteral("f_codage.lef : ligne 1"), QStringLiteral("XML mal formé"))) << trace().toStdString();
    EXPECT_FALSE(QFile::exists(path(QStringLiteral("tmpexpimp/evil.lef"))));
}

TEST_F(ResultsDetail, AFailureHalfWayLeavesTheBaseAsItWasAndNamesTheResult)
{
    SKIP_WITHOUT_LENEX_FILES();
    const int num = add_competition(25);
    // The engine refuses one swim deep in the file, after clubs and swimmers were added.
    db.exec_sql(QStringLiteral("CREATE TRIGGER refuse BEFORE INSERT ON Prres WHEN NEW.Tps = 1.2318 "
                               "BEGIN SELECT RAISE(ABORT, 'refusé'); END"));
    const QString state = QStringLiteral("SELECT (SELECT count(*) FROM Prres), (SELECT count(*) FROM Licence), "
                                         "(SELECT count(*) FROM Club), (SELECT count(*) FROM Categori), "
                                         "(SELECT Nom FROM Rcomp WHERE AutoNum = %1)")
                              .arg(num);
    const QStringList before = rows(state);
    import_results(lenex_file(QStringLiteral("example-results.lef")), num, true);
    EXPECT_EQ(rows(state), before);
    EXPECT_TRUE(trace().contains(QRegularExpression(QStringLiteral(
        "Erreur : example-results\\.lef : ligne \\d+, élément RESULT : refusé\\. Rien n'est importé de ce fichier\\."))))
        << trace().toStdString();
}

TEST_F(ResultsDetail, UnknownStrokeIsSkippedAndATimeNtIsKeptWithoutTime)
{
    const int num = add_competition(25);
    QTemporaryDir src;
    const QString odd = src.filePath(QStringLiteral("odd.lef"));
    const QString day = QStringLiteral("2025-03-01");
    write_bytes(odd, small_lenex(day, QStringLiteral("00:01:05.00"), QStringLiteral("SCM"), QStringLiteral("UNKNOWN")));
    import_results(odd, num);
    EXPECT_TRUE(trace().contains(QStringLiteral("Épreuve n° 1 inconnue (100 m UNKNOWN"))) << trace().toStdString();
    EXPECT_EQ(count(QStringLiteral("SELECT count(*) FROM Prres")), 0);

    write_bytes(odd, small_lenex(day, QStringLiteral("NT"), QStringLiteral("SCM"), QStringLiteral("BACK")));
    import_results(odd, num);
    EXPECT_TRUE(trace().contains(QStringLiteral("Temps « NT » sans statut pour Le Goff Anne"))) << trace().toStdString();
    EXPECT_EQ(rows(QStringLiteral("SELECT Code_epreuve, Tps, Numero_couloir FROM Prres")), QStringList{QStringLiteral("12|0|3")});
}

TEST(LenexValues, TimesStatusesRacesAndSplitColumns)
{
    double v = 0;
    EXPECT_TRUE(lenex::parse_swimtime(u"00:01:23.18", v));
    EXPECT_DOUBLE_EQ(v, 1.2318);
    EXPECT_TRUE(lenex::parse_swimtime(u"01:02:03.04", v));
    EXPECT_DOUBLE_EQ(v, 62.0304);
    for (const char* bad : {"NT", "", "00:00:00.00", "0:01:23.18", "00:61:00.00", "00:01:23,18"}) {
        EXPECT_FALSE(lenex::parse_swimtime(QString::fromLatin1(bad), v)) << bad;
        EXPECT_EQ(v, 0);
    }
    EXPECT_EQ(lenex::format_swimtime(62.0304), QStringLiteral("01:02:03.04"));
    EXPECT_EQ(lenex::format_swimtime(0.2501), QStringLiteral("00:00:25.01"));
    EXPECT_EQ(lenex::format_swimtime(0), QStringLiteral("NT"));

    const std::pair<const char*, double> statuses[] = {{"DSQ", 99.9999}, {"SICK", 91}, {"WDR", 92},
                                                        {"DNS", 94},      {"DNF", 95},  {"EXH", 0}};
    for (const auto& [status, code] : statuses)
        EXPECT_EQ(lenex::status_code(QLatin1String(status)), code) << status;
    EXPECT_EQ(lenex::status_code(QStringLiteral("DSQ"), true), 93) << "a relay's disqualification";

    const std::pair<const char*, const char*> races[] = {{"FIN", "F"}, {"SEM", "2"}, {"PRE", "S"}, {"XYZ", "Inconnu"}};
    for (const auto& [round, kind] : races)
        EXPECT_EQ(lenex::race_kind(QLatin1String(round)), QLatin1String(kind)) << round;

    // {total, split distance, column}: 0 is a split the base does not keep.
    const int splits[][3] = {{400, 350, 1}, {400, 50, 7}, {400, 25, 0}, {1500, 100, 14}, {1500, 50, 0}, {100, 100, 0}};
    for (const auto& [total, at, column] : splits)
        EXPECT_EQ(lenex::split_column(total, at), column) << total << " " << at;
}

}  // namespace
}  // namespace plouvarine::testing
