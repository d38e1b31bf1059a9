// What a user waits for, on a generated base: the whole Ouvrir command (its
// controls, the roll-overs of competitions and licences, the save copy),
// Enregistrer, Annuler, and the first display of the licence window. Each time
// comes with its floor measured in the same run (`zip -6` of the base for the
// commands that write the save, load_rows of the same rows for the list) and
// with the peak memory of the process so far.

#include "large_base.h"

#include "gui/all_windows.h"
#include "gui/frame/view_window.h"
#include "gui/frame/window_factory.h"
#include "src/frame/app_context.h"
#include "src/frame/base_commands.h"
#include "src/frame/access.h"
#include "src/frame/list_helpers.h"
#include "src/licences/liste_licence.h"
#include "src/store/save.h"
#include "src/subjects.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <chrono>
#include <sqlite3.h>
#include <sys/resource.h>

using namespace plouvarine;

namespace {

double seconds_since(std::chrono::steady_clock::time_point t0)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
}

double peak_mb()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_maxrss) / 1024.0;  // kilobytes on Linux
}

// Answers the file dialog with the base and every question with Yes.
class AnsweringServices : public bench::SilentServices {
public:
    Button message_box(const Message& m) override { return m.yes_no ? Button::Yes : Button::Ok; }
    QString file_dialog(const FileDialogRequest&) override { return path; }
    QString path;
};

// A generated base per scale, made ready for the roll-overs: 200 competitions
// past their start still on show, every licence deposited in an old season,
// and the last licence update a year ago. The 4x base takes minutes to make:
// PLOUVARINE_BENCH_BASES names a folder where the bases are kept from one run
// to the next (made under another name, renamed when ready).
struct Bases {
    QString at(int scale)
    {
        const QString kept = qEnvironmentVariable("PLOUVARINE_BENCH_BASES");
        const QDir folder(kept.isEmpty() ? dir.path() : kept);
        const QString ready = folder.filePath(QStringLiteral("source_%1.mdb").arg(scale));
        if (QFileInfo::exists(ready))
            return ready;
        const QString path = folder.filePath(QStringLiteral("making_%1.mdb").arg(scale));
        bench::LargeBaseSize size;
        size.clubs *= scale;
        size.licences *= scale;
        size.performances *= scale;
        size.results *= scale;
        bench::generate_large_base(QStringLiteral(PLOUVARINE_MODEL_FILE), path, size);
        bench::SilentServices ui;
        AppContext app(ui, dir.path());
        app.state.base_path = path;
        connect_base(app);
        for (int i = 0; i < 200; ++i)
            app.db.exec_sql(QStringLiteral("INSERT INTO Rcomp (Num, Type, Nom, Debut, Fin, Lieu, Longueur, Deroule, Visible) "
                                           "VALUES ('%1', 'N', 'Meeting %1', '2025%2', '2025%2', 'Brest', 50, false, true)")
                                .arg(i)
                                .arg(QString::number(1001 + i % 28)));
        app.db.exec_sql(QStringLiteral("UPDATE Licence SET Date_Depot = '20230920', Date_obliteration = '20230920'"));
        app.db.exec_sql(QStringLiteral("UPDATE Info SET LastUpdtLic = '20240916'"));
        close_base(app);
        QFile::remove(save_path(path));
        QFile::rename(path, ready);
        return ready;
    }
    QString copy(int scale, const QString& name)
    {
        const QString source = at(scale);
        const QString path = dir.filePath(name);
        QFile::remove(path);
        QFile::remove(save_path(path));
        QFile::copy(source, path);
        return path;
    }
    double zip6_seconds(const QString& file)
    {
        const QString target = dir.filePath(QStringLiteral("floor.zip"));
        QFile::remove(target);
        const auto t0 = std::chrono::steady_clock::now();
        QProcess::execute(QStringLiteral("zip"), {QStringLiteral("-6"), QStringLiteral("-q"), QStringLiteral("-j"), target, file});
        return seconds_since(t0);
    }
    QTemporaryDir dir;
};

Bases& bases()
{
    static Bases b;
    if (!QFileInfo::exists(b.dir.filePath(QStringLiteral("modele_base.sav"))))
        QFile::copy(QStringLiteral(PLOUVARINE_MODEL_FILE), b.dir.filePath(QStringLiteral("modele_base.sav")));
    return b;
}

struct App {
    App() : app(ui, bases().dir.path())
    {
        app.state.model_path = app.app_file(QStringLiteral("modele_base.sav"));
        app.clock.set_today(QDate(2026, 11, 23));
        install_subject_hooks(app);
    }
    AnsweringServices ui;
    AppContext app;
};

void report(benchmark::State& state, double command_s, double floor_s, int runs, const QString& base)
{
    state.counters["over_zip6"] = floor_s > 0 ? command_s / floor_s : 0;
    state.counters["zip6_ms"] = runs ? 1000 * floor_s / runs : 0;
    state.counters["base_MB"] = double(QFileInfo(base).size()) / 1e6;
    state.counters["peak_MB"] = peak_mb();
}

// Ouvrir from the file dialog to the window given back, on a fresh copy each time.
void BM_OuvrirCommand(benchmark::State& state)
{
    const int scale = int(state.range(0));
    double command_s = 0, floor_s = 0, written_s = 0;
    int runs = 0;
    QString base;
    for (auto _ : state) {
        base = bases().copy(scale, QStringLiteral("ouvrir.mdb"));
        App a;
        a.ui.path = base;
        const auto t0 = std::chrono::steady_clock::now();
        open_base_command(a.app);
        const double s = seconds_since(t0);
        state.SetIterationTime(s);
        command_s += s;
        a.app.saves.wait();
        written_s += seconds_since(t0);
        if (!a.app.db.is_open() || !QFileInfo::exists(save_path(base)))
            state.SkipWithError("Ouvrir did not open the base");
        close_base(a.app);
        floor_s += bases().zip6_seconds(base);
        ++runs;
    }
    report(state, command_s, floor_s, runs, base);
    state.counters["save_written_over_zip6"] = floor_s > 0 ? written_s / floor_s : 0;
}
BENCHMARK(BM_OuvrirCommand)->Arg(1)->Arg(4)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

// Enregistrer and Annuler on an open base.
void save_or_cancel(benchmark::State& state, void (*command)(AppContext&))
{
    const int scale = int(state.range(0));
    const QString base = bases().copy(scale, QStringLiteral("enregistrer.mdb"));
    App a;
    a.ui.path = base;
    open_base_command(a.app);
    a.app.saves.wait();
    double command_s = 0, floor_s = 0, written_s = 0;
    int runs = 0;
    for (auto _ : state) {
        const auto t0 = std::chrono::steady_clock::now();
        command(a.app);
        const double s = seconds_since(t0);
        state.SetIterationTime(s);
        command_s += s;
        a.app.saves.wait();
        written_s += seconds_since(t0);
        if (!a.app.db.is_open())
            state.SkipWithError("the base closed");
        floor_s += bases().zip6_seconds(base);
        ++runs;
    }
    close_base(a.app);
    report(state, command_s, floor_s, runs, base);
    state.counters["save_written_over_zip6"] = floor_s > 0 ? written_s / floor_s : 0;
}
void BM_EnregistrerCommand(benchmark::State& state) { save_or_cancel(state, save_command); }
void BM_AnnulerCommand(benchmark::State& state) { save_or_cancel(state, cancel_command); }
BENCHMARK(BM_EnregistrerCommand)->Arg(1)->Arg(4)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_AnnulerCommand)->Arg(1)->Arg(4)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

// The save copy's compression at Deflate levels 1, 6 and 9, on the snapshot
// of the 1x base: the time until the save file is whole, and its size.
void BM_SaveDeflateLevel(benchmark::State& state)
{
    const int level = int(state.range(0));
    const QString base = bases().copy(1, QStringLiteral("niveau.mdb"));
    App a;
    a.app.state.base_path = base;
    connect_base(a.app);
    const QString snapshot = base + QStringLiteral(".snap");
    const QString archive = base + QStringLiteral(".zip");
    double zip_s = 0, floor_s = 0;
    for (auto _ : state) {
        a.app.db.snapshot_to(snapshot);
        const auto t0 = std::chrono::steady_clock::now();
        zip_snapshot(snapshot, archive, QStringLiteral("niveau.mdb"), level);
        const double s = seconds_since(t0);
        state.SetIterationTime(s);
        zip_s += s;
        a.app.db.snapshot_to(snapshot);
        floor_s += bases().zip6_seconds(snapshot);
        QFile::remove(snapshot);
    }
    close_base(a.app);
    state.counters["over_zip6"] = floor_s > 0 ? zip_s / floor_s : 0;
    state.counters["zip_MB"] = double(QFileInfo(archive).size()) / 1e6;
    state.counters["base_MB"] = double(QFileInfo(base).size()) / 1e6;
}
BENCHMARK(BM_SaveDeflateLevel)->Arg(1)->Arg(6)->Arg(9)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

QApplication& gui_application()
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "plouvarine_bench";
    static char* argv[] = {name, nullptr};
    static QApplication application(argc, argv);
    static const bool registered = [] {
        gui::register_all_windows();
        return true;
    }();
    (void)registered;
    return application;
}

// The statement stepped through on a connection of its own, each value read
// as UTF-8 and left there: the read without the texts load_rows makes.
double step_only_seconds(const QString& base, const QString& sql)
{
    sqlite3* db = nullptr;
    sqlite3_open_v2(QFile::encodeName(base).constData(), &db, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr);
    const auto t0 = std::chrono::steady_clock::now();
    sqlite3_stmt* stmt = nullptr;
    const QByteArray text = sql.toUtf8();
    size_t bytes = 0;
    if (sqlite3_prepare_v2(db, text.constData(), int(text.size()), &stmt, nullptr) == SQLITE_OK) {
        const int n = sqlite3_column_count(stmt);
        while (sqlite3_step(stmt) == SQLITE_ROW)
            for (int c = 0; c < n; ++c) {
                sqlite3_column_text(stmt, c);
                bytes += size_t(sqlite3_column_bytes(stmt, c));
            }
    }
    sqlite3_finalize(stmt);
    const double s = seconds_since(t0);
    sqlite3_close(db);
    benchmark::DoNotOptimize(bytes);
    return s;
}

// The licence window of a club holding every licence of the base (20,000 at
// 1x, 80,000 at 4x): from the command to the rows drawn, against load_rows of
// the same statement.
void BM_LicenceWindowFirstShow(benchmark::State& state)
{
    gui_application();
    const int scale = int(state.range(0));
    const QString base = bases().copy(scale, QStringLiteral("liste.mdb"));
    App a;
    a.app.state.base_path = base;
    connect_base(a.app);
    const QString code = a.app.db.load_rows(QStringLiteral("SELECT Code_federal FROM Club ORDER BY Num")).first();
    a.app.db.exec_sql(QStringLiteral("UPDATE Licence SET Code_club = '") + code + QStringLiteral("'"));
    a.app.state.club_code = code;
    double show_s = 0, fill_s = 0, make_s = 0, rows_s = 0, step_s = 0, search_s = 0, scan_texts_s = 0;
    int rows = 0;
    for (auto _ : state) {
        FrmListeLicence list(a.app, QStringLiteral("View"));
        auto t0 = std::chrono::steady_clock::now();
        list.set_liste(QStringLiteral("Liste des Licences"));
        fill_s += seconds_since(t0);
        const auto made = std::chrono::steady_clock::now();
        gui::ViewWindow* window = gui::make_window(list, nullptr);
        make_s += seconds_since(made);
        window->show();
        QApplication::processEvents();
        window->repaint();
        const double s = seconds_since(t0);
        show_s += s;
        state.SetIterationTime(s);
        rows = list.lsv_licence().rowCount();
        // A typed name that no row has: the search reads every row's
        // "Nom Prénom", each made from the UTF-8 kept.
        t0 = std::chrono::steady_clock::now();
        if (incremental_search(list.lsv_licence(), QStringLiteral("zzzz"), 0, kNomCompletRole))
            state.SkipWithError("a row was found that does not exist");
        search_s += seconds_since(t0);
        delete window;
        t0 = std::chrono::steady_clock::now();
        const Rows read = a.app.db.load_rows(list.sql_base() + QLatin1Char(' ') + list.order_clause());
        const int loaded = read.size();
        rows_s += seconds_since(t0);
        // The same scan over texts made beforehand, as a list holding QStrings searched.
        t0 = std::chrono::steady_clock::now();
        int found = 0;
        for (int r = 0; r < read.size(); ++r)
            found += (read.value(r, 2) + QLatin1Char(' ') + read.value(r, 3)).startsWith(QStringLiteral("zzzz"), Qt::CaseInsensitive);
        benchmark::DoNotOptimize(found);
        scan_texts_s += seconds_since(t0);
        step_s += step_only_seconds(base, list.sql_base() + QLatin1Char(' ') + list.order_clause());
        if (loaded != rows)
            state.SkipWithError("the list does not show every row");
        list.close();
    }
    state.counters["peak_MB"] = peak_mb();
    close_base(a.app);
    state.counters["rows"] = rows;
    state.counters["show_over_load_rows"] = rows_s > 0 ? show_s / rows_s : 0;
    state.counters["fill_over_load_rows"] = rows_s > 0 ? fill_s / rows_s : 0;
    state.counters["window_over_load_rows"] = rows_s > 0 ? make_s / rows_s : 0;
    state.counters["load_rows_ms"] = 1000 * rows_s / double(state.iterations());
    state.counters["step_only_ms"] = 1000 * step_s / double(state.iterations());
    state.counters["search_miss_ms"] = 1000 * search_s / double(state.iterations());
    state.counters["scan_texts_ms"] = 1000 * scan_texts_s / double(state.iterations());
}
BENCHMARK(BM_LicenceWindowFirstShow)->Arg(1)->Arg(4)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
