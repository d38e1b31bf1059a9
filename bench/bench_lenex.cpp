// The Lenex exchange files: a generated results file of 10,000 individual
// results and 1,000 relays imported into a competition (goal: under 2 s), and
// the entries file of 500 entries written (goal: under 200 ms).

#include "components/exchange/trace.h"
#include "components/lenex/lenex_entries.h"
#include "components/lenex/lenex_reader.h"
#include "components/lenex/lenex_results.h"
#include "src/frame/exchange_component.h"
#include "src/store/database.h"

#include <QFile>
#include <QTemporaryDir>
#include <QXmlStreamWriter>
#include <benchmark/benchmark.h>

using namespace plouvarine;

namespace {

class NoProgress : public OperationProgress {
public:
    void set_message(int, const QString&) override {}
    void set_club(const QString&) override {}
    void set_swimmer(const QString&) override {}
    void set_progress(int, int) override {}
    void append_report(const QString&) override {}
};

QString lenex_time(int hundredths)
{
    return QStringLiteral("00:%1:%2.%3")
        .arg(hundredths / 6000, 2, 10, QChar(u'0'))
        .arg(hundredths / 100 % 60, 2, 10, QChar(u'0'))
        .arg(hundredths % 100, 2, 10, QChar(u'0'));
}

// 100 clubs of 20 swimmers with 5 swims each over ten 200 m events (with their
// three splits), and 10 relays a club over two 4x100 m events.
QByteArray results_file()
{
    QByteArray bytes;
    QXmlStreamWriter x(&bytes);
    x.writeStartDocument();
    x.writeStartElement(QStringLiteral("LENEX"));
    x.writeAttribute(QStringLiteral("version"), QStringLiteral("3.0"));
    x.writeStartElement(QStringLiteral("MEETS"));
    x.writeStartElement(QStringLiteral("MEET"));
    x.writeAttribute(QStringLiteral("name"), QStringLiteral("Meeting"));
    x.writeAttribute(QStringLiteral("city"), QStringLiteral("Brest"));
    x.writeAttribute(QStringLiteral("course"), QStringLiteral("SCM"));
    x.writeStartElement(QStringLiteral("SESSIONS"));
    x.writeStartElement(QStringLiteral("SESSION"));
    x.writeAttribute(QStringLiteral("number"), QStringLiteral("1"));
    x.writeAttribute(QStringLiteral("date"), QStringLiteral("2025-03-01"));
    x.writeStartElement(QStringLiteral("EVENTS"));
    const char* strokes[] = {"FREE", "BACK", "BREAST", "FLY", "MEDLEY"};
    for (int e = 0; e < 12; ++e) {
        x.writeStartElement(QStringLiteral("EVENT"));
        x.writeAttribute(QStringLiteral("eventid"), QString::number(e + 1));
        x.writeAttribute(QStringLiteral("number"), QString::number(e + 1));
        x.writeAttribute(QStringLiteral("gender"), e < 10 ? (e % 2 ? QStringLiteral("M") : QStringLiteral("F")) : QStringLiteral("X"));
        x.writeAttribute(QStringLiteral("round"), QStringLiteral("TIM"));
        x.writeStartElement(QStringLiteral("SWIMSTYLE"));
        x.writeAttribute(QStringLiteral("distance"), e < 10 ? QStringLiteral("200") : QStringLiteral("100"));
        x.writeAttribute(QStringLiteral("relaycount"), e < 10 ? QStringLiteral("1") : QStringLiteral("4"));
        x.writeAttribute(QStringLiteral("stroke"), e < 10 ? QLatin1String(strokes[e / 2]) : QLatin1String(strokes[(e - 10) * 4]));
        x.writeEndElement();
        x.writeStartElement(QStringLiteral("AGEGROUPS"));
        x.writeStartElement(QStringLiteral("AGEGROUP"));
        x.writeAttribute(QStringLiteral("agegroupid"), QString::number(e + 1));
        x.writeAttribute(QStringLiteral("agemin"), QStringLiteral("-1"));
        x.writeAttribute(QStringLiteral("agemax"), QStringLiteral("-1"));
        x.writeEndElement();
        x.writeEndElement();
        x.writeEndElement();
    }
    x.writeEndElement();
    x.writeEndElement();
    x.writeEndElement();
    x.writeStartElement(QStringLiteral("CLUBS"));
    int id = 0;
    for (int c = 0; c < 100; ++c) {
        x.writeStartElement(QStringLiteral("CLUB"));
        x.writeAttribute(QStringLiteral("code"), QStringLiteral("C%1").arg(c));
        x.writeAttribute(QStringLiteral("name"), QStringLiteral("Club %1").arg(c));
        x.writeStartElement(QStringLiteral("ATHLETES"));
        for (int a = 0; a < 20; ++a) {
            const bool man = a % 2;
            x.writeStartElement(QStringLiteral("ATHLETE"));
            x.writeAttribute(QStringLiteral("athleteid"), QString::number(++id));
            x.writeAttribute(QStringLiteral("license"), QStringLiteral("%1").arg(id, 6, 10, QChar(u'0')));
            x.writeAttribute(QStringLiteral("lastname"), QStringLiteral("Nom%1").arg(id));
            x.writeAttribute(QStringLiteral("firstname"), QStringLiteral("Prénom"));
            x.writeAttribute(QStringLiteral("gender"), man ? QStringLiteral("M") : QStringLiteral("F"));
            x.writeAttribute(QStringLiteral("birthdate"), QStringLiteral("2010-01-01"));
            x.writeStartElement(QStringLiteral("RESULTS"));
            for (int r = 0; r < 5; ++r) {
                const int event = r * 2 + (man ? 2 : 1);
                const int t = 12000 + (id * 37 + r * 101) % 6000;
                x.writeStartElement(QStringLiteral("RESULT"));
                x.writeAttribute(QStringLiteral("resultid"), QStringLiteral("%1-%2").arg(id).arg(r));
                x.writeAttribute(QStringLiteral("eventid"), QString::number(event));
                x.writeAttribute(QStringLiteral("swimtime"), lenex_time(t));
                x.writeAttribute(QStringLiteral("heatid"), QString::number(event * 100 + id % 50));
                x.writeAttribute(QStringLiteral("lane"), QString::number(id % 8 + 1));
                x.writeAttribute(QStringLiteral("points"), QString::number(500 + id % 300));
                x.writeStartElement(QStringLiteral("SPLITS"));
                for (int s = 1; s < 4; ++s) {
                    x.writeStartElement(QStringLiteral("SPLIT"));
                    x.writeAttribute(QStringLiteral("distance"), QString::number(s * 50));
                    x.writeAttribute(QStringLiteral("swimtime"), lenex_time(t * s / 4));
                    x.writeEndElement();
                }
                x.writeEndElement();
                x.writeEndElement();
            }
            x.writeEndElement();
            x.writeEndElement();
        }
        x.writeEndElement();
        x.writeStartElement(QStringLiteral("RELAYS"));
        for (int r = 0; r < 10; ++r) {
            x.writeStartElement(QStringLiteral("RELAY"));
            x.writeAttribute(QStringLiteral("number"), QString::number(r + 1));
            x.writeAttribute(QStringLiteral("gender"), QStringLiteral("X"));
            x.writeStartElement(QStringLiteral("RESULTS"));
            x.writeStartElement(QStringLiteral("RESULT"));
            x.writeAttribute(QStringLiteral("eventid"), QString::number(11 + r % 2));
            x.writeAttribute(QStringLiteral("swimtime"), lenex_time(24000 + r * 100 + c));
            x.writeAttribute(QStringLiteral("lane"), QString::number(r % 8 + 1));
            x.writeStartElement(QStringLiteral("RELAYPOSITIONS"));
            for (int p = 1; p <= 4; ++p) {
                x.writeStartElement(QStringLiteral("RELAYPOSITION"));
                x.writeAttribute(QStringLiteral("athleteid"), QString::number(c * 20 + (r * 4 + p) % 20 + 1));
                x.writeAttribute(QStringLiteral("number"), QString::number(p));
                x.writeEndElement();
            }
            x.writeEndElement();
            x.writeEndElement();
            x.writeEndElement();
            x.writeEndElement();
        }
        x.writeEndElement();
        x.writeEndElement();
    }
    x.writeEndDocument();
    return bytes;
}

void BM_LenexResultsImport(benchmark::State& state)
{
    QTemporaryDir dir;
    const QString base = dir.filePath(QStringLiteral("club.mdb"));
    const QString file = dir.filePath(QStringLiteral("results.lef"));
    QFile f(file);
    f.open(QIODevice::WriteOnly);
    f.write(results_file());
    f.close();
    NoProgress progress;
    lenex::ResultCounts n;
    for (auto _ : state) {
        state.PauseTiming();
        QFile::remove(base);
        QFile::copy(QStringLiteral(PLOUVARINE_MODEL_FILE), base);
        QFile::setPermissions(base, QFile::permissions(base) | QFileDevice::WriteOwner);
        Database db;
        db.open(base);
        db.exec_sql(QStringLiteral("INSERT INTO Rcomp (Num, Nom, Longueur) VALUES ('1', 'Meeting', 25)"));
        exchange::Trace trace(dir.filePath(QStringLiteral("trace.txt")));
        state.ResumeTiming();
        // Reading, parsing and the import, as the component does them.
        n = lenex::import_results(db, lenex::read_lef(file), 1, false, trace, progress);
        state.PauseTiming();
        db.close();
        state.ResumeTiming();
    }
    state.counters["swims"] = n.swims;
    state.counters["relays"] = n.relays;
    state.counters["splits"] = n.splits;
}
BENCHMARK(BM_LenexResultsImport)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_LenexEntriesWrite(benchmark::State& state)
{
    QTemporaryDir dir;
    const QString base = dir.filePath(QStringLiteral("club.mdb"));
    QFile::copy(QStringLiteral(PLOUVARINE_MODEL_FILE), base);
    QFile::setPermissions(base, QFile::permissions(base) | QFileDevice::WriteOwner);
    Database db;
    db.open(base);
    db.exec_sql(QStringLiteral("INSERT INTO Club (Code_federal, Intitule) VALUES ('0929001', 'Club')"));
    db.exec_sql(QStringLiteral("INSERT INTO Profil (Libelle, Code_club) VALUES ('P', '0929001')"));
    db.exec_sql(QStringLiteral("INSERT INTO Rcomp (Num, Nom, Debut, Longueur) VALUES ('1', 'Meeting', '20250301', 25)"));
    const int codes[] = {1, 2, 3, 11, 12, 21, 22, 31, 32, 41};
    for (int code : codes) {
        db.exec_sql(QStringLiteral("INSERT INTO Pcomp (Num_compet, Code_epreuve, JourCourse) VALUES (1, %1, 1)").arg(code));
        db.exec_sql(QStringLiteral("INSERT INTO Pcomp (Num_compet, Code_epreuve, JourCourse) VALUES (1, %1, 2)").arg(code + 50));
    }
    // 100 swimmers with 5 entries each.
    db.exec_sql(QStringLiteral("BEGIN"));
    for (int s = 0; s < 100; ++s) {
        db.exec_sql(QStringLiteral("INSERT INTO Licence (Code_club, Licence, Nom, Prenom, Sexe, Date_Naissance) "
                                   "VALUES ('0929001', '%1', 'Nom%1', 'Prénom', '%2', '20100101')")
                        .arg(s)
                        .arg(s % 2 ? QStringLiteral("M") : QStringLiteral("F")));
        const int num = db.count_query(QStringLiteral("SELECT max(Num) FROM Licence"));
        for (int e = 0; e < 5; ++e)
            db.exec_sql(QStringLiteral("INSERT INTO Engag (Num_compet, Num_profil, Code_epreuve, Num_Lic, Tps_engagement, "
                                       "Date_perf, Lieu_perf, Bassin) VALUES (1, 1, %1, %2, 1.0512, '20250110', 'Quimper', 25)")
                            .arg(codes[e * 2 + s % 2] + (s % 2) * 50)
                            .arg(num));
    }
    db.exec_sql(QStringLiteral("COMMIT"));
    NoProgress progress;
    exchange::Trace trace(dir.filePath(QStringLiteral("trace.txt")));
    lenex::EntryCounts n;
    for (auto _ : state)
        n = lenex::export_entries(db, 1, 1, dir.filePath(QStringLiteral("engagements.lef")), trace, progress);
    state.counters["entries"] = n.entries;
}
BENCHMARK(BM_LenexEntriesWrite)->Unit(benchmark::kMillisecond);

}  // namespace
