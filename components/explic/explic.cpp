#include "components/explic/explic.h"

#include "src/base/sql_text.h"

#include "components/exchange/base_session.h"
#include "components/exchange/tab_columns.h"
#include "components/exchange/tab_file.h"
#include "components/exchange/traced_run.h"
#include "src/base/files.h"
#include "src/base/text.h"

namespace explic {

using namespace plouvarine;
using namespace plouvarine::exchange;

bool clsExportLicence::run(const QString& method, const ExchangeCall& call, OperationProgress& progress)
{
    return traced_run(call.trace_file, [&](Trace& trace) {
        if (method != QLatin1String("bExport_licence")) {
            trace.error(QStringLiteral("méthode inconnue : ") + method);
            return false;
        }
        if (call.club_code.trimmed().isEmpty()) {
            trace.error(QStringLiteral("aucun club courant : pas de licence à exporter."));
            return false;
        }
        trace.line(QStringLiteral("Export des licences du club ") + call.club_code);
        BaseSession session(call.base);
        const SqlText club = quote_sql(call.club_code.trimmed());
        QString where = QStringLiteral("FROM Licence WHERE Visible = true AND (Code_club = ") + club;
        // A selection club trades the swimmers it selected, whose licence stays
        // in their home club.
        if (flag_value(call.club_selection))
            where += QStringLiteral(" OR Num IN (SELECT Num_Lic FROM Selection WHERE Visible = true AND Code_Sel = ") +
                     club + QStringLiteral(")");
        where += QStringLiteral(") ORDER BY Nom, Prenom, Date_Naissance");
        const QStringList columns = licence_columns();
        const std::vector<QStringList> rows = read_columns(session.db(), columns, where);
        progress.set_progress(0, int(rows.size()));
        const QString target = path_join(call.tmp_dir, kLicenceFile);
        if (const QString error = write_tab_file(target, columns, rows); !error.isEmpty()) {
            trace.error(QStringLiteral("écriture du fichier ") + kLicenceFile + QStringLiteral(" : ") + error);
            return false;
        }
        progress.set_progress(int(rows.size()), int(rows.size()));
        trace.line(QStringLiteral("%1 licence(s) exportée(s) dans le fichier %2.").arg(rows.size()).arg(kLicenceFile));
        return true;
    });
}

}  // namespace explic
