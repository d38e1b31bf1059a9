// Benchmarks of the individual entries on the large generated base: the time
// proposal of one swimmer, the save of ten events, the opening of the entry
// view on a competition with 500 entries, an entry model of 500 entries
// applied to a competition.

#include "large_base.h"

#include "src/entries/frm_engag.h"
#include "src/entries/modeles.h"
#include "src/entries/utils_engag.h"
#include "src/frame/access.h"
#include "src/frame/app_context.h"

#include <benchmark/benchmark.h>

using namespace plouvarine;
using plouvarine::bench::SilentServices;

namespace {

// One large base for the entry benchmarks, made on first use, with a
// profile, a competition and 500 entries of 100 swimmers.
bench::LargePlace& place()
{
    static bench::LargePlace p(QStringLiteral("entries.mdb"));
    return p;
}

struct App {
    App() : app(ui, place().dir.path())
    {
        bench::open_large_base(app, place());
        app.state.profile_num = QStringLiteral("1");
        app.state.club_code = app.db.load_rows(QStringLiteral("select Code_club from Licence where Num = 1")).first();
        compet = app.db.append_row(QStringLiteral("Rcomp"),
                                   {{"Num", "B1"}, {"Nom", "Bench"}, {"Debut", "20250315"}, {"Fin", "20250315"},
                                    {"Longueur", 25}},
                                   QStringLiteral("AutoNum"));
    }
    ~App() { close_base(app); }
    SilentServices ui;
    AppContext app;
    QString compet;
};

void BM_ChercherPerfs(benchmark::State& state)
{
    App a;
    int lic = 0;
    for (auto _ : state) {
        const TabPerf tab = ChercherPerfs(a.app.db, QString::number(1 + lic++ % 20000), QStringLiteral("20230916"));
        benchmark::DoNotOptimize(tab[2].temps.size());
    }
}
BENCHMARK(BM_ChercherPerfs)->Unit(benchmark::kMicrosecond);

void BM_SaveEngagNageurTenEvents(benchmark::State& state)
{
    App a;
    const PanelEvents events = ChargerEpreuves(a.app.db);
    EngagPanel panel{};
    int ticked = 0;
    for (int row = 0; row < kPanelRows && ticked < 10; ++row)
        if (events[size_t(row)].shown) {
            panel[size_t(row)] = {true, QStringLiteral("1.0523"), QStringLiteral("Brest"), QStringLiteral("12"),
                                  QStringLiteral("10"), QStringLiteral("2024"), false};
            ++ticked;
        }
    const EntryScope target = EntryScope::competition(a.compet, a.app.state.profile_num);
    int lic = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(SaveEngagNageur(a.app, target, Team{}, QString::number(1 + lic++ % 20000), events, panel));
}
BENCHMARK(BM_SaveEngagNageurTenEvents)->Unit(benchmark::kMillisecond);

// The entry view of a competition whose 100 swimmers hold 500 entries: the
// teams, the two lists and the panel, up to its showing.
void BM_OpenEngagOn500Entries(benchmark::State& state)
{
    App a;
    Database& db = a.app.db;
    const Rows swimmers = db.load_rows(QStringLiteral("select Num from Licence where Code_club = '") +
                                       a.app.state.club_code + QStringLiteral("' and Visible = true limit 100"));
    for (int s = 0; s < swimmers.size(); ++s) {
        db.exec_sql(QStringLiteral("INSERT INTO Engag_nageur (Num_profil, Num_compet, Num_Lic, Equipe, Equipe_m) "
                                   "VALUES (1, %1, %2, 0, false)")
                        .arg(a.compet, swimmers.value(s)));
        for (int e = 1; e <= 5; ++e)
            db.exec_sql(QStringLiteral("INSERT INTO Engag (Num_compet, Num_profil, Code_epreuve, Num_Lic, Num_equipe, "
                                       "Equipe_mixte, Tps_engagement, Date_perf, Lieu_perf, Bassin) VALUES (%1, 1, %2, "
                                       "%3, 0, false, 1.05, '20241012', 'Brest', 25)")
                            .arg(a.compet)
                            .arg(e)
                            .arg(swimmers.value(s)));
    }
    state.counters["entries"] = db.count_query(QStringLiteral("select count(*) from Engag where Num_compet = ") +
                                               a.compet);
    for (auto _ : state) {
        // The silent services close the view as soon as it is shown.
        benchmark::DoNotOptimize(OuvrirEngag(a.app, QStringLiteral("View"), a.compet, QStringLiteral("Bench"), false));
    }
}
BENCHMARK(BM_OpenEngagOn500Entries)->Unit(benchmark::kMillisecond);

// A model of 100 swimmers and 500 entries applied to a 50 m competition in one
// step: the competition's entries and relays deleted, the model's copied.
void BM_AppliquerModele500Entries(benchmark::State& state)
{
    App a;
    Database& db = a.app.db;
    const QString modele = db.append_row(QStringLiteral("Modele_engag"), {{"Nom_modele", "Bench"}, {"Num_profil", 1}},
                                         QStringLiteral("NumAuto"));
    const Rows swimmers = db.load_rows(QStringLiteral("select Num from Licence where Code_club = '") +
                                       a.app.state.club_code + QStringLiteral("' and Visible = true limit 100"));
    for (int s = 0; s < swimmers.size(); ++s) {
        db.exec_sql(QStringLiteral("INSERT INTO Engag_nageur_modele (Num_modele, Num_Lic, Equipe, Equipe_m) VALUES "
                                   "(%1, %2, 0, false)")
                        .arg(modele, swimmers.value(s)));
        for (int e = 0; e < 5; ++e)
            db.exec_sql(QStringLiteral("INSERT INTO Engag_modele (Num_modele, Code_epreuve, Num_Lic, Num_equipe, "
                                       "Equipe_mixte) VALUES (%1, %2, %3, 0, false)")
                            .arg(modele)
                            .arg(e)
                            .arg(swimmers.value(s)));
    }
    db.exec_sql(QStringLiteral("UPDATE Rcomp SET Longueur = 50 WHERE AutoNum = ") + a.compet);
    for (auto _ : state)
        benchmark::DoNotOptimize(AppliquerModele(a.app, modele, a.compet));
    // Code 0 (25 m free) is left out in a 50 m pool.
    state.counters["entries"] = db.count_query(QStringLiteral("select count(*) from Engag where Num_compet = ") +
                                               a.compet);
}
BENCHMARK(BM_AppliquerModele500Entries)->Unit(benchmark::kMillisecond);

}  // namespace
