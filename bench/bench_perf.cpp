// Benchmarks of the performance history on a large generated base whose clubs
// hold 500 swimmers each: one swimmer's best per event over all seasons, and
// the whole club's.

#include "large_base.h"

#include "src/frame/access.h"
#include "src/frame/app_context.h"
#include "src/results/view_perf.h"

#include <benchmark/benchmark.h>

using namespace plouvarine;
using plouvarine::bench::SilentServices;

namespace {

bench::LargePlace& place()
{
    static bench::LargePlace p(QStringLiteral("perf.mdb"), [] {
        bench::LargeBaseSize size;
        size.clubs = 40;  // 20,000 licences: 500 a club
        return size;
    }());
    return p;
}

struct App {
    App() : app(ui, place().dir.path())
    {
        bench::open_large_base(app, place());
        app.state.club_code = app.db.load_rows(QStringLiteral("select Code_club from Licence where Num = 1")).first();
        view = std::make_unique<FrmViewPerf>(app);
        view->charge_nageurs();  // best per event, all seasons: the defaults
    }
    ~App()
    {
        view.reset();
        close_base(app);
    }
    SilentServices ui;
    AppContext app;
    std::unique_ptr<FrmViewPerf> view;
};

void BM_PerfHistoryOneSwimmer(benchmark::State& state)
{
    App a;
    const int swimmers = a.view->lsv_nageur().rowCount();
    int row = 0;
    for (auto _ : state) {
        state.PauseTiming();
        a.view->set_checked(row, false);
        row = (row + 1) % swimmers;
        a.view->set_checked(row, true);
        state.ResumeTiming();
        a.view->affiche_perfs();
        benchmark::DoNotOptimize(a.view->lsv_perf().rowCount());
    }
}
BENCHMARK(BM_PerfHistoryOneSwimmer)->Unit(benchmark::kMillisecond);

void BM_PerfHistoryWholeClub(benchmark::State& state)
{
    App a;
    a.view->set_chk_all_nageurs(true);
    state.counters["swimmers"] = a.view->lsv_nageur().rowCount();
    for (auto _ : state) {
        a.view->affiche_perfs();
        benchmark::DoNotOptimize(a.view->lsv_perf().rowCount());
    }
    state.counters["rows"] = a.view->lsv_perf().rowCount();
}
BENCHMARK(BM_PerfHistoryWholeClub)->Unit(benchmark::kMillisecond);

}  // namespace
