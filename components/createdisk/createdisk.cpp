#include "components/createdisk/createdisk.h"

#include "components/exchange/trace.h"
#include "components/lenex/lenex_component.h"
#include "components/lenex/lenex_entries.h"

#include <QDir>

namespace createdisk {

using namespace plouvarine;

bool clscreate_disk::run(const QString& method, const ExchangeCall& call, OperationProgress& progress)
{
    return lenex::run_on_base(method, QStringLiteral("bCreation_disquette"), call,
                              [&](Database& db, exchange::Trace& trace) {
        progress.set_message(0, QStringLiteral("Création du fichier d'engagements"));
        // Compressed: the .lxf that meet managers read as it is.
        const QString name = QStringLiteral("engagements_%1.%2")
                                 .arg(call.num_compet, call.option ? QStringLiteral("lxf") : QStringLiteral("lef"));
        const lenex::EntryCounts n = lenex::export_entries(db, call.num_compet.toInt(), call.profile_num.toInt(),
                                                           QDir(call.tmp_dir).filePath(name), trace, progress);
        trace.line(QStringLiteral("Fichier %1 : %2 nageur(s), %3 engagement(s) individuel(s), %4 relais.")
                       .arg(name)
                       .arg(n.athletes)
                       .arg(n.entries)
                       .arg(n.relays));
        return true;
    });
}

}  // namespace createdisk
