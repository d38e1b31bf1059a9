#include "components/rcpperf/rcpperf.h"

#include "components/exchange/trace.h"
#include "components/lenex/lenex_component.h"
#include "components/lenex/lenex_perfs.h"

namespace RecupPerf {

using namespace plouvarine;

bool clsRecupPerf::run(const QString& method, const ExchangeCall& call, OperationProgress& progress)
{
    return lenex::run_on_base(method, QStringLiteral("bimport_perf"), call, [&](Database& db, exchange::Trace& trace) {
        progress.set_message(0, QStringLiteral("Import des performances"));
        lenex::PerformanceImport import(db, trace, progress);
        lenex::for_each_document(call.source, call.tmp_dir, trace, [&](const lenex::Document& doc) {
            const lenex::PerfCounts n = import.import(doc);
            trace.line(QStringLiteral("%1 : %2 performance(s) individuelle(s), %3 premier(s) relayeur(s), %4 relais "
                                      "ajouté(s) ; %5 déjà présente(s) ; %6 nageur(s) absent(s) de la base ; "
                                      "%7 nage(s) sans temps (« NT »).")
                           .arg(doc.file)
                           .arg(n.swims)
                           .arg(n.first_legs)
                           .arg(n.relays)
                           .arg(n.already)
                           .arg(n.unmatched)
                           .arg(n.no_time));
        });
        return false;
    });
}

}  // namespace RecupPerf
