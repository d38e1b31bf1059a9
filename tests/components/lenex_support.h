#pragma once
// What the exchange component tests share: the real plugins loaded from the
// application folder, bases made from the model base, a progress that records
// what it is told, and an independent count of what a Lenex file holds.

#include "src/frame/exchange_component.h"
#include "src/store/database.h"
#include "support/app_fixture.h"

#include <QDir>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <gtest/gtest.h>

// The real Lenex files lie beside the project, in ../shared/lenex, and are
// never copied into it: a checkout without them skips the tests that read them.
#define SKIP_WITHOUT_LENEX_FILES()                                   \
    if (!QDir(QStringLiteral(PLOUVARINE_LENEX_DIR)).exists())        \
    GTEST_SKIP() << "no Lenex files at " PLOUVARINE_LENEX_DIR

namespace plouvarine::testing {

class RecordedProgress : public OperationProgress {
public:
    void set_message(int, const QString&) override {}
    void set_club(const QString& text) override { clubs << text; }
    void set_swimmer(const QString&) override {}
    void set_progress(int value, int maximum) override { last = {value, maximum}; }
    void append_report(const QString&) override {}
    QStringList clubs;
    std::pair<int, int> last{-1, -1};
};

// The real Lenex file `name` of the shared fixtures.
QString lenex_file(const QString& name);

// The plugin `name` ("rcpres"...) from the application folder; fails the test
// when it cannot be loaded.
ExchangeComponent* load_component(const QString& name);

// What a results file holds, counted with a plain walk of its XML: results of
// the events the catalogue has (not an UNKNOWN stroke), by kind.
struct LenexCounts {
    int swims = 0, relays = 0, statuses = 0, splits = 0;
    int timed_swims = 0;               // individual, a time and no status but EXH
    int timed_relays = 0;              // the same, of a relay with its swimmers' positions
    int first_legs = 0;                // timed relays with a split at the end of the first leg
    QMap<QString, int> by_status;
};
// A small results file: one club, one swimmer, one 100 m event swum on `date`.
QByteArray small_lenex(const QString& date, const QString& swimtime, const QString& course = QStringLiteral("SCM"),
                       const QString& stroke = QStringLiteral("FREE"));

// `split_fits(total distance, split distance)` tells which splits the base can hold.
// The XML of a .lef, or of the .lef an .lxf holds.
QByteArray lenex_bytes(const QString& path);
LenexCounts count_lenex(const QString& path, const std::function<bool(int, int)>& split_fits);

// A base made from the model base in a temporary folder, open on a
// connection of the test's own between component runs.
class LenexBase : public ::testing::Test {
protected:
    void SetUp() override;
    QString path(const QString& name) const { return dir_.filePath(name); }
    // Another copy of the model base in the folder; its path.
    QString copy_model(const QString& name);
    // Runs a component's method on call.base, by default the open base (closed
    // for the call); gives its result. The trace of the call is then in trace().
    bool run(const QString& component, const QString& method, ExchangeCall call);
    QString trace() const { return trace_; }
    // A competition with the pool `length` (0: not known yet); its AutoNum.
    int add_competition(int length);
    int count(const QString& sql) { return db.count_query(sql); }
    QStringList rows(const QString& sql) { return row_texts(db.load_rows(sql), u'|'); }

    QTemporaryDir dir_;
    QString base_;
    Database db;
    QString trace_;
    RecordedProgress progress;
};

}  // namespace plouvarine::testing
