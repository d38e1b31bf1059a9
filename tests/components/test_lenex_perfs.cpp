// Performances: the real Lenex files into the history of the base's swimmers
// (rcpperf), and the history out as Lenex (expperf) and back.

#include "components/lenex_support.h"
#include "support/temp_files.h"

#include <QDir>
#include <QXmlStreamReader>

namespace plouvarine::testing {
namespace {

class Performances : public LenexBase {
protected:
    // Every athlete of the file as a licence of the base, in the club "BASE".
    void seed_athletes(const QString& file)
    {
        QXmlStreamReader xml(lenex_bytes(file));
        QStringList values;
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement || xml.name() != u"ATHLETE")
                continue;
            const auto a = xml.attributes();
            auto v = [&](const char* n) { return a.value(QLatin1String(n)).toString().replace(u'\'', QStringLiteral("''")); };
            values.append(QStringLiteral("('BASE', '%1', '%2', '%3', '%4', '%5', true)")
                              .arg(v("license"), v("lastname"), v("firstname"), v("gender"), v("birthdate").remove(u'-')));
        }
        db.exec_sql(QStringLiteral("INSERT INTO Licence (Code_club, Licence, Nom, Prenom, Sexe, Date_Naissance, Visible) VALUES ")
                    + values.join(u','));
    }
    void import_perfs(const QString& source)
    {
        ExchangeCall call;
        call.source = source;
        run(QStringLiteral("rcpperf"), QStringLiteral("bimport_perf"), call);
    }
    int total()
    {
        return count(QStringLiteral("SELECT (SELECT count(*) FROM Liffn) + (SELECT count(*) FROM Liffn_relais)"));
    }
};

class RealPerformances : public Performances, public ::testing::WithParamInterface<const char*> {};

TEST_P(RealPerformances, TheTimedSwimsOfTheBaseSwimmersComeInOnceAndNobodyIsAdded)
{
    SKIP_WITHOUT_LENEX_FILES();
    const QString file = lenex_file(QString::fromLatin1(GetParam()));
    const LenexCounts expected = count_lenex(file, [](int, int) { return false; });
    // A base without the file's swimmers takes nothing and says who is missing.
    import_perfs(file);
    EXPECT_EQ(total(), 0);
    EXPECT_TRUE(trace().contains(QStringLiteral("Nageur absent de la base : "))) << trace().left(400).toStdString();

    if (file.contains(QLatin1String("Erlangen"))) {
        EXPECT_TRUE(trace().contains(QStringLiteral("inconnue (50 m UNKNOWN, 1 nageur(s)) : ses résultats sont ignorés.")));
    }
    seed_athletes(file);
    const int licences = count(QStringLiteral("SELECT count(*) FROM Licence"));
    import_perfs(file);
    EXPECT_FALSE(trace().contains(QStringLiteral("Erreur"))) << trace().toStdString();
    EXPECT_EQ(count(QStringLiteral("SELECT count(*) FROM Liffn WHERE Passage_relais = ' '")), expected.timed_swims);
    EXPECT_EQ(count(QStringLiteral("SELECT count(*) FROM Liffn WHERE Passage_relais = 'R'")), expected.first_legs);
    EXPECT_EQ(count(QStringLiteral("SELECT count(*) FROM Liffn_relais")), expected.timed_relays);
    EXPECT_EQ(count(QStringLiteral("SELECT count(*) FROM Licence")), licences);
    // Pool, place, date and age are the meet's.
    EXPECT_EQ(count(QStringLiteral("SELECT count(*) FROM Liffn WHERE Type_bassin NOT IN (25, 50) OR Lieu = '' "
                                   "OR length(Date_perf) <> 8 OR Age_perf <= 0 OR Tps <= 0 OR Tps >= 91")),
              0);
    // A result's splits do not make it an intermediate time.
    EXPECT_EQ(count(QStringLiteral("SELECT count(*) FROM Liffn WHERE Tps_inter")), 0);

    const int before = total();
    import_perfs(file);
    EXPECT_EQ(total(), before);
    EXPECT_TRUE(trace().contains(QStringLiteral("%1 déjà présente(s)").arg(before))) << trace().toStdString();
}

INSTANTIATE_TEST_SUITE_P(RealFiles, RealPerformances,
                         ::testing::Values("example-results.lef", "16032025_Erlangen_lenex3_results.lxf", "38468.lxf"));

TEST_F(Performances, ExportedPerformancesReadBackToTheSameRows)
{
    SKIP_WITHOUT_LENEX_FILES();
    const QString file = lenex_file(QStringLiteral("38468.lxf"));
    seed_athletes(file);
    import_perfs(file);
    // Liffn without the codifications, which the exported file does not carry.
    const QString swims = QStringLiteral("SELECT Code_epreuve, Code_club, Num_Lic, Type_bassin, Date_perf, Tps, Lieu, "
                                         "Passage_relais, Tps_inter, Age_perf, Num_compet FROM Liffn "
                                         "ORDER BY 1, 2, 3, 4, 5, 6, 8, 9");
    const QString relays = QStringLiteral("SELECT * FROM Liffn_relais ORDER BY 1, 2, 3, 4, 5, 6, 8");
    const QStringList swims_before = rows(swims), relays_before = rows(relays);
    ASSERT_GT(swims_before.size(), 1000);
    ASSERT_GT(relays_before.size(), 100);

    ExchangeCall out;
    out.option = false;  // every club
    ASSERT_TRUE(run(QStringLiteral("expperf"), QStringLiteral("bexport_performance"), out)) << trace().toStdString();
    const QString exported = path(QStringLiteral("exported.lef"));
    ASSERT_TRUE(QFile::rename(path(QStringLiteral("tmpexpimp/performances.lef")), exported));
    db.exec_sql(QStringLiteral("DELETE FROM Liffn"));
    db.exec_sql(QStringLiteral("DELETE FROM Liffn_relais"));
    import_perfs(exported);
    EXPECT_FALSE(trace().contains(QStringLiteral("Erreur"))) << trace().toStdString();
    EXPECT_EQ(rows(swims), swims_before);
    EXPECT_EQ(rows(relays), relays_before);

    // My club only: the rows of that club alone (a club of the base now).
    db.exec_sql(QStringLiteral("UPDATE Liffn_relais SET Code_club = 'AUTRE' WHERE Code_epreuve > 50"));
    db.exec_sql(QStringLiteral("UPDATE Liffn SET Code_club = 'AUTRE' WHERE Code_epreuve > 50"));
    const QString club = QStringLiteral("BASE");
    const QStringList relays_both = rows(relays);
    out.option = true;
    out.club_code = club;
    ASSERT_TRUE(run(QStringLiteral("expperf"), QStringLiteral("bexport_performance"), out));
    db.exec_sql(QStringLiteral("DELETE FROM Liffn"));
    db.exec_sql(QStringLiteral("DELETE FROM Liffn_relais"));
    // (each run empties the work folder: the file is kept apart first)
    ASSERT_TRUE(QFile::rename(path(QStringLiteral("tmpexpimp/performances.lef")), path(QStringLiteral("club.lef"))));
    import_perfs(path(QStringLiteral("club.lef")));
    EXPECT_EQ(count(QStringLiteral("SELECT count(*) FROM Liffn_relais WHERE Code_club <> '%1'").arg(club)), 0);
    EXPECT_EQ(count(QStringLiteral("SELECT count(*) FROM Liffn WHERE Code_club <> '%1'").arg(club)), 0);
    QStringList club_relays;
    for (const QString& r : relays_both)
        if (r.section(u'|', 1, 1) == club)
            club_relays.append(r);
    EXPECT_EQ(rows(relays), club_relays);

    // No performance of a club that has none: no file, and the trace says so.
    out.club_code = QStringLiteral("AUCUN");
    EXPECT_FALSE(run(QStringLiteral("expperf"), QStringLiteral("bexport_performance"), out));
    EXPECT_TRUE(trace().contains(QStringLiteral("Aucune performance à exporter.")));
}

TEST_F(Performances, IntermediateTimesAndFirstLegsKeepTheirMarksThroughTheExchange)
{
    db.exec_sql(QStringLiteral("INSERT INTO Licence (Code_club, Licence, Nom, Prenom, Sexe, Date_Naissance, Visible) "
                               "VALUES ('0929001', '123456A', 'Le Goff', 'Anne', 'F', '20100504', true)"));
    // The same time four ways: a full performance, a first leg, an intermediate
    // time, and an intermediate time within a first leg.
    db.exec_sql(QStringLiteral("INSERT INTO Liffn (Code_epreuve, Code_club, Num_Lic, Type_bassin, Date_perf, Tps, Lieu, "
                               "Codif_Fede, Codif_Inter, Codif_Reg, Codif_Depart, Passage_relais, Tps_inter, Age_perf, "
                               "Num_compet, NumManuel) SELECT 2, '0929001', Num, 25, '20250110', 1.0512, 'Quimper', ' ', "
                               "' ', ' ', ' ', m.passage, m.inter, 14, 0, 0 FROM Licence, (SELECT ' ' AS passage, false "
                               "AS inter UNION SELECT 'R', false UNION SELECT ' ', true UNION SELECT 'R', true) m"));
    const QString marks = QStringLiteral("SELECT Passage_relais, Tps_inter, Tps FROM Liffn ORDER BY 1, 2");
    const QStringList expected = {QStringLiteral(" |Faux|1.0512"), QStringLiteral(" |Vrai|1.0512"),
                                  QStringLiteral("R|Faux|1.0512"), QStringLiteral("R|Vrai|1.0512")};
    ASSERT_EQ(rows(marks), expected);

    ExchangeCall out;
    out.option = false;
    ASSERT_TRUE(run(QStringLiteral("expperf"), QStringLiteral("bexport_performance"), out)) << trace().toStdString();
    const QString exported = path(QStringLiteral("marks.lef"));
    ASSERT_TRUE(QFile::rename(path(QStringLiteral("tmpexpimp/performances.lef")), exported));
    // Back into the base that has them: each is already there.
    import_perfs(exported);
    EXPECT_EQ(rows(marks), expected);
    EXPECT_TRUE(trace().contains(QStringLiteral("4 déjà présente(s)"))) << trace().toStdString();

    db.exec_sql(QStringLiteral("DELETE FROM Liffn"));
    import_perfs(exported);
    EXPECT_EQ(rows(marks), expected) << trace().toStdString();
    import_perfs(exported);
    EXPECT_EQ(rows(marks), expected);

    // An organiser's own comment marks nothing.
    db.exec_sql(QStringLiteral("DELETE FROM Liffn"));
    const QString other = path(QStringLiteral("other.lef"));
    QByteArray bytes = lenex_bytes(exported);
    ASSERT_EQ(bytes.count(QByteArray("comment=\"Temps intermédiaire\"")), 1);
    bytes.replace(QByteArray("comment=\"Temps intermédiaire\""), QByteArray("comment=\"Temps intermédiaire 50 m\""));
    bytes.replace(QByteArray("comment=\"Premier relayeur, Temps intermédiaire\""), QByteArray("comment=\"Premier relayeur, chrono manuel\""));
    write_bytes(other, bytes);
    import_perfs(other);
    EXPECT_EQ(rows(QStringLiteral("SELECT Passage_relais, Tps_inter FROM Liffn ORDER BY 1, 2")),
              (QStringList{QStringLiteral(" |Faux"), QStringLiteral("R|Faux")}));
}

TEST_F(Performances, AFolderOfAThousandFilesWithABadOneTakesEveryGoodFile)
{
    db.exec_sql(QStringLiteral("INSERT INTO Licence (Code_club, Licence, Nom, Prenom, Sexe, Date_Naissance, Visible) "
                               "VALUES ('0929001', '123456A', 'Le Goff', 'Anne', 'F', '20100504', true)"));
    QTemporaryDir folder;
    const QDate first(2020, 1, 1);
    for (int i = 0; i < 1000; ++i) {
        QByteArray bytes = small_lenex(first.addDays(i).toString(Qt::ISODate),
                                       QStringLiteral("00:01:%1.00").arg(i % 60, 2, 10, QChar(u'0')));
        if (i == 500)
            bytes.chop(200);  // cut in the middle of the club
        if (i == 700)
            bytes.replace(QByteArray("swimtime=\"00:01:40.00\""), QByteArray("swimtime=\"NT\""));
        write_bytes(folder.filePath(QStringLiteral("r%1.lef").arg(i, 4, 10, QChar(u'0'))), bytes);
    }
    import_perfs(folder.path());
    EXPECT_EQ(count(QStringLiteral("SELECT count(*) FROM Liffn")), 998);
    EXPECT_TRUE(trace().contains(QStringLiteral("r0700.lef : 0 performance(s) individuelle(s), 0 premier(s) relayeur(s), "
                                                "0 relais ajouté(s) ; 0 déjà présente(s) ; 0 nageur(s) absent(s) de la "
                                                "base ; 1 nage(s) sans temps (« NT »).")));
    EXPECT_EQ(count(QStringLiteral("SELECT count(*) FROM Liffn WHERE Date_perf = '%1'")
                        .arg(first.addDays(500).toString(QStringLiteral("yyyyMMdd")))),
              0);
    EXPECT_EQ(trace().count(QStringLiteral("Erreur : ")), 1);
    EXPECT_TRUE(trace().contains(QStringLiteral("Erreur : r0500.lef : ligne 1"))) << trace().left(500).toStdString();
    EXPECT_EQ(rows(QStringLiteral("SELECT Code_epreuve, Code_club, Tps, Lieu, Age_perf FROM Liffn WHERE Date_perf = '20200102'")),
              QStringList{QStringLiteral("2|0929001|1.01|Quimper|9")});
}

}  // namespace
}  // namespace plouvarine::testing
