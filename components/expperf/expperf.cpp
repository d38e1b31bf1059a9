#include "components/expperf/expperf.h"

#include "components/exchange/trace.h"
#include "components/lenex/lenex_component.h"
#include "components/lenex/lenex_perfs.h"

#include <QDir>

namespace export_perf {

using namespace plouvarine;

bool clsExportPerf::run(const QString& method, const ExchangeCall& call, OperationProgress& progress)
{
    return lenex::run_on_base(method, QStringLiteral("bexport_performance"), call,
                              [&](Database& db, exchange::Trace& trace) {
        progress.set_message(0, QStringLiteral("Export des performances"));
        // The runner's option is "Restreindre à mon club": unticked, every club.
        const bool all_clubs = !call.option;
        const QString name = QStringLiteral("performances.lef");
        const int rows = lenex::export_performances(db, call.club_code, all_clubs, QDir(call.tmp_dir).filePath(name),
                                                    trace, progress);
        if (rows == 0) {
            trace.line(QStringLiteral("Aucune performance à exporter."));
            return false;
        }
        trace.line(QStringLiteral("Fichier %1 : %2 performance(s) exportée(s).").arg(name).arg(rows));
        return true;
    });
}

}  // namespace export_perf
