// Benchmarks of the club records on the large generated base: the search of
// a club's history (some 3,000 swims) for new records against 50 age bands,
// first with no record yet, then with every band's records held, against one
// plain read of the same swims; and the save of a band definition that merges
// bands over those records.

#include "large_base.h"

#include "src/frame/access.h"
#include "src/frame/app_context.h"
#include "src/records/record_categories.h"
#include "src/records/record_finder.h"

#include <benchmark/benchmark.h>

using namespace plouvarine;
using plouvarine::bench::SilentServices;

namespace {

bench::LargePlace& place()
{
    static bench::LargePlace p(QStringLiteral("records.mdb"));
    return p;
}

// The first club of the base with two-year bands from 10 to 59 for each sex.
struct App {
    App() : app(ui, place().dir.path())
    {
        bench::open_large_base(app, place());
        app.state.club_code = app.db.load_rows(QStringLiteral("select Code_club from Licence where Num = 1")).first();
        app.state.club_name = QStringLiteral("Bench");
        app.db.exec_sql(QStringLiteral("DELETE FROM RecordClub"));
        app.db.exec_sql(QStringLiteral("DELETE FROM Categori_record_club"));
        // The generated swims put odd licences in the men's events: their
        // swimmers are made men, so that each swim has a band of its sex.
        app.db.exec_sql(QStringLiteral("UPDATE Licence SET Sexe = CASE WHEN Num % 2 = 1 THEN 'M' ELSE 'F' END"));
        for (const char* sexe : {"Homme", "Femme"})
            for (int age = 10; age < 60; age += 2)
                bands.push_back({QStringLiteral("%1 %2 ans").arg(QLatin1String(sexe)).arg(age), age, age + 1,
                                 QLatin1String(sexe)});
        enregistre_categories(app.db, app.state.club_code, bands);
    }
    ~App() { close_base(app); }
    // Every proposal accepted: the records of every band, event and pool.
    void hold_all()
    {
        for (const RecordProposal& p : cherche_records(app))
            accepte_record(app, 1, p.entry, QString());
    }
    SilentServices ui;
    AppContext app;
    std::vector<CategorieRecord> bands;
};

void BM_ChercheRecordsNoneHeld(benchmark::State& state)
{
    App a;
    size_t found = 0;
    for (auto _ : state)
        found = cherche_records(a.app).size();
    state.counters["proposals"] = double(found);
}
BENCHMARK(BM_ChercheRecordsNoneHeld)->Unit(benchmark::kMillisecond);

void BM_ChercheRecordsAllHeld(benchmark::State& state)
{
    App a;
    a.hold_all();
    size_t found = 0;
    for (auto _ : state)
        found = cherche_records(a.app).size();
    state.counters["records"] = double(a.app.db.count_query(QStringLiteral("SELECT count(*) FROM RecordClub")));
    state.counters["proposals"] = double(found);
}
BENCHMARK(BM_ChercheRecordsAllHeld)->Unit(benchmark::kMillisecond);

// The yardstick: the club's individual swims with their swimmers and events,
// read once, as the search reads them.
void BM_LoadClubHistory(benchmark::State& state)
{
    App a;
    const QString sql = QStringLiteral("SELECT Liffn.Code_epreuve, Liffn.Type_bassin, Liffn.Tps, Liffn.Date_perf, "
                                       "Liffn.Lieu, Liffn.Age_perf, Licence.Nom, Licence.Prenom, "
                                       "Licence.Date_Naissance, Nage.Sexe, Nage.Libelle, Licence.Sexe "
                                       "FROM Liffn Liffn, Licence Licence, Nage Nage WHERE Licence.Num = Liffn.Num_Lic "
                                       "AND Nage.Code_Nage = Liffn.Code_epreuve AND Liffn.Code_club = '") +
                        a.app.state.club_code + QStringLiteral("'");
    int rows = 0;
    for (auto _ : state)
        rows = a.app.db.load_rows(sql).size();
    state.counters["swims"] = rows;
}
BENCHMARK(BM_LoadClubHistory)->Unit(benchmark::kMillisecond);

// Pairs of bands merged into four-year bands, over every record held.
void BM_MergeBandsOverRecords(benchmark::State& state)
{
    App a;
    a.hold_all();
    std::vector<CategorieRecord> merged;
    for (const CategorieRecord& b : a.bands)
        if (b.age_inf % 4 == 2)
            merged.push_back({b.libelle, b.age_inf, b.age_inf + 3, b.sexe});
    for (auto _ : state) {
        state.PauseTiming();
        a.app.db.exec_sql(QStringLiteral("DELETE FROM RecordClub"));
        enregistre_categories(a.app.db, a.app.state.club_code, a.bands);
        a.hold_all();
        state.ResumeTiming();
        enregistre_categories(a.app.db, a.app.state.club_code, merged);
    }
    state.counters["records_left"] = double(a.app.db.count_query(QStringLiteral("SELECT count(*) FROM RecordClub")));
}
BENCHMARK(BM_MergeBandsOverRecords)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace
