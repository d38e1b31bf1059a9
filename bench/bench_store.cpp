// Benchmarks of the base file on a large generated base. Figures that matter are
// ratios measured in the same run (a save against `zip -6` of the same file).

#include "large_base.h"

#include "src/frame/app_context.h"
#include "src/frame/base_commands.h"
#include "src/licences/liste_licence.h"
#include "src/frame/access.h"
#include "src/frame/base_file_commands.h"
#include "src/store/base_files.h"
#include "src/store/save.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <benchmark/benchmark.h>
#include <chrono>

using namespace plouvarine;
using plouvarine::bench::SilentServices;

namespace {

// One application folder and one large base for the whole run.
struct Workplace : plouvarine::bench::LargePlace {
    Workplace() : LargePlace(QStringLiteral("large_source.mdb")) {}
    // A fresh copy of the large base, so that each benchmark starts alike.
    QString copy(const QString& name) const
    {
        const QString path = dir.filePath(name);
        QFile::remove(path);
        QFile::remove(path + QStringLiteral(".sav"));
        QFile::copy(base, path);
        return path;
    }
};

Workplace& workplace()
{
    static Workplace w;
    return w;
}

struct App {
    explicit App(const QString& base) : app(ui, workplace().dir.path())
    {
        app.state.base_path = base;
        app.state.model_path = app.app_file(QStringLiteral("modele_base.sav"));
    }
    SilentServices ui;
    AppContext app;
};

double seconds_since(std::chrono::steady_clock::time_point t0)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
}

void BM_Open(benchmark::State& state)
{
    const QString base = workplace().copy(QStringLiteral("open.mdb"));
    App a(base);
    for (auto _ : state) {
        connect_base(a.app);
        benchmark::DoNotOptimize(check_crash(a.app));
        benchmark::DoNotOptimize(check_version(a.app));
        close_base(a.app);
    }
}
BENCHMARK(BM_Open)->Unit(benchmark::kMillisecond);

// The save against `zip -6` of the same base file, in the same iteration.
void BM_CreateSaveVsZip6(benchmark::State& state)
{
    const QString base = workplace().copy(QStringLiteral("save.mdb"));
    App a(base);
    connect_base(a.app);
    double save_s = 0, zip_s = 0;
    const QString zip_target = workplace().dir.filePath(QStringLiteral("zip6.zip"));
    for (auto _ : state) {
        auto t0 = std::chrono::steady_clock::now();
        create_save(a.app.base_file());
        const double s = seconds_since(t0);
        save_s += s;
        state.SetIterationTime(s);
        QFile::remove(zip_target);
        t0 = std::chrono::steady_clock::now();
        QProcess::execute(QStringLiteral("zip"), {QStringLiteral("-6"), QStringLiteral("-q"), QStringLiteral("-j"), zip_target, base});
        zip_s += seconds_since(t0);
    }
    close_base(a.app);
    state.counters["save_over_zip6"] = zip_s > 0 ? save_s / zip_s : 0;
    state.counters["base_MB"] = double(QFileInfo(base).size()) / 1e6;
    state.counters["save_MB"] = double(QFileInfo(save_path(base)).size()) / 1e6;
    state.counters["zip6_MB"] = double(QFileInfo(zip_target).size()) / 1e6;
}
BENCHMARK(BM_CreateSaveVsZip6)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

void BM_LoadRowsLicences(benchmark::State& state)
{
    const QString base = workplace().copy(QStringLiteral("rows.mdb"));
    App a(base);
    connect_base(a.app);
    for (auto _ : state) {
        const Rows rows = a.app.db.load_rows(QStringLiteral("SELECT Licence.*, Pays.Libelle FROM Licence LEFT JOIN Pays ON Pays.Code = Licence.Nationalite WHERE Licence.Visible = true ORDER BY Licence.Nom, Licence.Prenom"));
        benchmark::DoNotOptimize(rows.size());
        state.counters["rows"] = rows.size();
    }
    close_base(a.app);
}
BENCHMARK(BM_LoadRowsLicences)->Unit(benchmark::kMillisecond);

void BM_Insert1000(benchmark::State& state)
{
    const QString base = workplace().copy(QStringLiteral("insert.mdb"));
    App a(base);
    connect_base(a.app);
    int n = 0;
    for (auto _ : state) {
        for (int i = 0; i < 1000; ++i, ++n)
            a.app.db.exec_sql(QStringLiteral("INSERT INTO Engag (Num_compet, Num_profil, Code_epreuve, Num_Lic, Num_equipe, Equipe_mixte, Tps_engagement) "
                                             "VALUES (1, 1, %1, %2, 0, false, 1.2345)").arg(1 + n % 40).arg(1 + n % 20000));
    }
    close_base(a.app);
}
BENCHMARK(BM_Insert1000)->Unit(benchmark::kMillisecond);

void BM_Compact(benchmark::State& state)
{
    const QString base = workplace().copy(QStringLiteral("compact.mdb"));
    App a(base);
    connect_base(a.app);
    for (auto _ : state)
        compact_base(a.app, base);
    close_base(a.app);
}
BENCHMARK(BM_Compact)->Unit(benchmark::kMillisecond)->Iterations(3);

// The licence list of a club holding every licence of the large base: filling
// the list and one sort by column, each against load_rows of the same rows.
void BM_LicenceListVsLoadRows(benchmark::State& state)
{
    const QString base = workplace().copy(QStringLiteral("list.mdb"));
    App a(base);
    connect_base(a.app);
    const QString code = a.app.db.load_rows(QStringLiteral("SELECT Code_federal FROM Club ORDER BY Num")).first();
    a.app.db.exec_sql(QStringLiteral("UPDATE Licence SET Code_club = '") + code + QStringLiteral("'"));
    a.app.state.club_code = code;
    const QString sql = QStringLiteral("SELECT Nom, Prenom, Licence, Date_Naissance, Num FROM Licence WHERE Code_Club = '") +
                        code + QStringLiteral("' and Visible = true order by Nom, Prenom");
    double fill_s = 0, sort_s = 0, rows_s = 0;
    int rows = 0;
    for (auto _ : state) {
        FrmListeLicence list(a.app, QStringLiteral("View"));
        auto t0 = std::chrono::steady_clock::now();
        list.set_liste(QStringLiteral("Liste des Licences"));
        const double s = seconds_since(t0);
        fill_s += s;
        t0 = std::chrono::steady_clock::now();
        list.sort_by_column(3);
        sort_s += seconds_since(t0);
        t0 = std::chrono::steady_clock::now();
        rows = a.app.db.load_rows(sql).size();
        rows_s += seconds_since(t0);
        state.SetIterationTime(s);
        list.close();
    }
    close_base(a.app);
    state.counters["rows"] = rows;
    state.counters["fill_over_load_rows"] = rows_s > 0 ? fill_s / rows_s : 0;
    state.counters["sort_over_load_rows"] = rows_s > 0 ? sort_s / rows_s : 0;
}
BENCHMARK(BM_LicenceListVsLoadRows)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace

BENCHMARK_MAIN();
