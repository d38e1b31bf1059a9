#include "components/expclub/expclub.h"

#include "components/exchange/base_session.h"
#include "components/exchange/tab_columns.h"
#include "components/exchange/tab_file.h"
#include "components/exchange/traced_run.h"
#include "src/base/files.h"

namespace expclub {

using namespace plouvarine;
using namespace plouvarine::exchange;

bool clsExportClub::run(const QString& method, const ExchangeCall& call, OperationProgress& progress)
{
    return traced_run(call.trace_file, [&](Trace& trace) {
        if (method != QLatin1String("bExport_Club")) {
            trace.error(QStringLiteral("méthode inconnue : ") + method);
            return false;
        }
        trace.line(QStringLiteral("Export des clubs de la base ") + call.base);
        BaseSession session(call.base);
        const QStringList columns = club_columns();
        const std::vector<QStringList> rows = read_columns(
            session.db(), columns, QStringLiteral("FROM Club WHERE Visible = true ORDER BY Code_federal"), {kClubFlag});
        progress.set_progress(0, int(rows.size()));
        const QString target = path_join(call.tmp_dir, kClubFile);
        if (const QString error = write_tab_file(target, columns, rows); !error.isEmpty()) {
            trace.error(QStringLiteral("écriture du fichier ") + kClubFile + QStringLiteral(" : ") + error);
            return false;
        }
        progress.set_progress(int(rows.size()), int(rows.size()));
        trace.line(QStringLiteral("%1 club(s) exporté(s) dans le fichier %2.").arg(rows.size()).arg(kClubFile));
        return true;
    });
}

}  // namespace expclub
