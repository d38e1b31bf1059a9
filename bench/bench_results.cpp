// The results browser on the large generated base with one meet of 2,000
// swims (30 individual events of seven series and a final each, splits on the
// long ones, two categories, two relay events): "Voir" with every event ticked,
// by type of race with the splits and by lanes, and the HTML export of that
// list. Each comes with its floor measured in the same run: load_rows of the
// meet's swims in one read.

#include "large_base.h"

#include "src/frame/access.h"
#include "src/frame/app_context.h"
#include "src/results/results_export.h"
#include "src/results/view_result.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <benchmark/benchmark.h>
#include <chrono>
#include <sqlite3.h>

using namespace plouvarine;
using plouvarine::bench::SilentServices;

namespace {

constexpr int kMeet = 100000;

void run(sqlite3* db, const char* sql)
{
    sqlite3_exec(db, sql, nullptr, nullptr, nullptr);
}

// Lays the meet into the base at `path`.
int lay_meet(const QString& path)
{
    sqlite3* db = nullptr;
    sqlite3_open_v2(QFile::encodeName(path).constData(), &db, SQLITE_OPEN_READWRITE, nullptr);
    run(db, "BEGIN");
    run(db, QStringLiteral("INSERT INTO Rcomp (AutoNum, Num, Nom, Debut, Fin, Lieu, Longueur, Deroule, Visible) "
                           "VALUES (%1, 'B1', 'Meeting du banc', '20300405', '20300406', 'Brest', 50, 1, 1)")
                .arg(kMeet)
                .toUtf8()
                .constData());
    run(db, QStringLiteral("INSERT INTO Categori VALUES (%1, 1, 'Benjamins'), (%1, 2, 'Minimes')").arg(kMeet).toUtf8().constData());
    sqlite3_stmt* swim = nullptr;
    sqlite3_prepare_v2(db,
                       "INSERT INTO Prres (Num_compet, Code_epreuve, Num_Lic, Code_club, Num_equipe, Tps, Cotation_FFN, "
                       "Type_course, Numero_serie, Numero_couloir, Numero_ordre_couloir, Num_categorie, Inter1, Inter2, "
                       "Inter3, Inter4, Inter5, Inter6, Inter7) "
                       "SELECT ?1, ?2, Num, Code_club, 0, ?3, ?4, ?5, ?6, ?7, 1, ?8, ?9, ?9, ?9, ?9, ?9, ?9, ?9 "
                       "FROM Licence WHERE Num = ?10",
                       -1, &swim, nullptr);
    sqlite3_stmt* relay = nullptr;
    sqlite3_prepare_v2(db,
                       "INSERT INTO Prres_relais (Num_compet, Code_epreuve, Num_Lic, Code_club, Num_equipe, Tps, "
                       "Cotation_FFN, Type_course, Numero_serie, Numero_couloir, Numero_ordre_couloir, Num_categorie) "
                       "SELECT ?1, ?2, ?3, Code_club, 1, ?4, 600, 'F', ?5, ?6, 1, 1 FROM Licence WHERE Num = ?7",
                       -1, &relay, nullptr);
    static const int events[] = {1, 2, 3, 4, 5, 6, 11, 12, 13, 21, 22, 23, 31, 32, 33};
    int swims = 0;
    int order = 0;
    int lic = 1;
    auto programme = [&](int code) {
        ++order;
        run(db, QStringLiteral("INSERT INTO Pcomp (Num_compet, Code_epreuve, JourCourse, Num_ordre) VALUES (%1, %2, %3, %4)")
                    .arg(kMeet)
                    .arg(code)
                    .arg(1 + order % 2)
                    .arg(order)
                    .toUtf8()
                    .constData());
    };
    for (int men = 0; men < 2; ++men)
        for (int base : events) {
            const int code = base + 50 * men;
            programme(code);
            for (int s = 0; s < 8; ++s)
                for (int lane = 1; lane <= 8; ++lane) {
                    const bool final = s == 7;
                    sqlite3_bind_int(swim, 1, kMeet);
                    sqlite3_bind_int(swim, 2, code);
                    sqlite3_bind_double(swim, 3, (lane == 8 && s % 3 == 0) ? 93.0 : 0.25 + (lic % 400) / 100.0);
                    sqlite3_bind_int(swim, 4, 400 + lic % 600);
                    sqlite3_bind_text(swim, 5, final ? "F" : "S", -1, SQLITE_STATIC);
                    sqlite3_bind_int(swim, 6, final ? 1 : s + 1);
                    sqlite3_bind_int(swim, 7, lane);
                    sqlite3_bind_int(swim, 8, 1 + s % 2);
                    sqlite3_bind_double(swim, 9, 0.2512);
                    sqlite3_bind_int(swim, 10, lic);
                    sqlite3_step(swim);
                    sqlite3_reset(swim);
                    lic = 1 + (lic * 7 + 13) % 20000;
                    ++swims;
                }
        }
    for (int code : {8, 58}) {
        programme(code);
        for (int r = 1; r <= 40 && swims < 2000; ++r) {
            sqlite3_bind_int(relay, 1, kMeet);
            sqlite3_bind_int(relay, 2, code);
            sqlite3_bind_int(relay, 3, r);
            sqlite3_bind_double(relay, 4, 3.5 + r / 100.0);
            sqlite3_bind_int(relay, 5, 1 + (r - 1) / 8);
            sqlite3_bind_int(relay, 6, 1 + (r - 1) % 8);
            sqlite3_bind_int(relay, 7, r);
            sqlite3_step(relay);
            sqlite3_reset(relay);
            ++swims;
        }
    }
    sqlite3_finalize(swim);
    sqlite3_finalize(relay);
    run(db, "COMMIT");
    sqlite3_close(db);
    return swims;
}

struct ResultsPlace : plouvarine::bench::LargePlace {
    ResultsPlace() : LargePlace(QStringLiteral("results.mdb")) { swims = lay_meet(base); }
    int swims = 0;
};

ResultsPlace& place()
{
    static ResultsPlace p;
    return p;
}

struct App {
    App() : app(ui, place().dir.path())
    {
        static int argc = 1;
        static char name[] = "plouvarine_bench";
        static char* argv[] = {name, nullptr};
        if (!QCoreApplication::instance())
            new QGuiApplication(argc, argv);
        plouvarine::bench::open_large_base(app, place());
        app.state.club_code = app.db.load_rows(QStringLiteral("select Code_club from Licence where Num = 1")).first();
        view = std::make_unique<FrmViewResult>(app);
        view->charge_competitions();
        view->set_chk_all(true);
    }
    ~App()
    {
        view.reset();
        close_base(app);
    }
    void options(const ResultOptions& o)
    {
        view->cmd_option(0);
        view->set_options(o);
        view->cmd_option(1);
    }
    // The floor: the meet's swims in one read.
    double floor_seconds()
    {
        const auto t0 = std::chrono::steady_clock::now();
        const Rows rows = app.db.load_rows(
            QStringLiteral("SELECT Licence.Nom, Licence.Prenom, Licence.Date_Naissance, Club.Intitule, Prres.* "
                           "FROM Licence Licence, Club Club, Prres Prres WHERE Licence.Num = Prres.Num_Lic "
                           "AND Prres.Code_club = Club.Code_federal AND Prres.Num_compet = %1")
                .arg(kMeet));
        benchmark::DoNotOptimize(rows.size());
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
    }
    SilentServices ui;
    AppContext app;
    std::unique_ptr<FrmViewResult> view;
};

void report(benchmark::State& state, App& a, double seconds)
{
    double floor = 0;
    for (int i = 0; i < 3; ++i)
        floor += a.floor_seconds();
    floor /= 3;
    const double each = seconds / double(state.iterations());
    state.counters["swims"] = place().swims;
    state.counters["rows"] = a.view->lsv_results().rowCount();
    state.counters["load_rows_ms"] = 1000 * floor;
    state.counters["over_load_rows"] = floor > 0 ? each / floor : 0;
}

// "Voir": arg 0 by type of race with splits, nationality and team; 1 by lanes.
void BM_ResultsBrowser2000Swims(benchmark::State& state)
{
    App a;
    if (state.range(0) == 0)
        a.options({0, 0, 0, true, true, true});
    else
        a.options({1, 1, 0, false, false, false});
    double total = 0;
    for (auto _ : state) {
        const auto t0 = std::chrono::steady_clock::now();
        a.view->affiche_resultats();
        const double s = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
        state.SetIterationTime(s);
        total += s;
    }
    report(state, a, total);
}
BENCHMARK(BM_ResultsBrowser2000Swims)->Arg(0)->Arg(1)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

// The HTML tree of the list with splits, into a folder that already holds one.
void BM_ResultsHtmlExport2000Swims(benchmark::State& state)
{
    App a;
    a.options({0, 0, 0, true, true, true});
    a.view->affiche_resultats();
    const QString target = QDir(place().dir.path()).filePath(QStringLiteral("site/resultats.htm"));
    QDir().mkpath(QDir(place().dir.path()).filePath(QStringLiteral("site")));
    double total = 0;
    for (auto _ : state) {
        const auto t0 = std::chrono::steady_clock::now();
        if (!exporte_html(a.app, a.view->sheet(), a.view->current_compet(), target))
            state.SkipWithError("export failed");
        const double s = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
        state.SetIterationTime(s);
        total += s;
    }
    report(state, a, total);
}
BENCHMARK(BM_ResultsHtmlExport2000Swims)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
