// The entry time of a relay on the large generated base: the four lookups of
// Cmd_caltps for a 4x100 m medley, in a 25 m and a 50 m competition, against
// one read of the same swimmers' whole performance history.

#include "large_base.h"

#include "src/entries/relays.h"
#include "src/frame/access.h"
#include "src/frame/app_context.h"

#include <benchmark/benchmark.h>
#include <chrono>

using namespace plouvarine;

namespace {

plouvarine::bench::LargePlace& relay_base()
{
    static plouvarine::bench::LargePlace base(QStringLiteral("relays.mdb"));
    return base;
}

void BM_RelayTimeMedley4x100(benchmark::State& state)
{
    plouvarine::bench::SilentServices ui;
    AppContext app(ui, relay_base().dir.path());
    app.state.base_path = relay_base().base;
    connect_base(app);
    app.clock.set_today(QDate(2025, 3, 10));
    const int longueur = int(state.range(0));
    // The four men with the most performances at the legs of the medley; the
    // lookups cost the same whether a leg finds a time or not.
    std::vector<RelaySwimmer> swimmers;
    const Rows men = app.db.load_rows(
        QStringLiteral("SELECT Num_Lic FROM Liffn WHERE Code_epreuve IN (52, 62, 72, 82) GROUP BY Num_Lic "
                       "ORDER BY count(*) DESC LIMIT 4"));
    for (int r = 0; r < men.size(); ++r)
        swimmers.push_back({men.value(r), QStringLiteral("Nom"), QStringLiteral("Prenom")});
    const QString numbers = men.column(0).join(QStringLiteral(", "));
    double relay_s = 0, history_s = 0;
    RelayTime result;
    for (auto _ : state) {
        auto t0 = std::chrono::steady_clock::now();
        result = calcul_temps_relais(app, QStringLiteral("4x100m 4N Mess."), swimmers, longueur);
        relay_s += std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
        t0 = std::chrono::steady_clock::now();
        benchmark::DoNotOptimize(app.db.load_rows(
            QStringLiteral("SELECT Tps, Lieu, Date_perf, Code_epreuve, Type_bassin FROM Liffn WHERE Num_lic IN (") +
            numbers + QStringLiteral(") ORDER BY Code_epreuve, Tps")));
        history_s += std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
    }
    close_base(app);
    state.counters["swimmers"] = double(swimmers.size());
    state.counters["timed"] = result.ok() ? 1 : 0;
    state.counters["relay_ms"] = benchmark::Counter(relay_s * 1000, benchmark::Counter::kAvgIterations);
    state.counters["relay_over_history"] = history_s > 0 ? relay_s / history_s : 0;
}
BENCHMARK(BM_RelayTimeMedley4x100)->Arg(25)->Arg(50)->Unit(benchmark::kMicrosecond);

}  // namespace
