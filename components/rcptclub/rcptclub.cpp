#include "components/rcptclub/rcptclub.h"

#include "components/exchange/base_session.h"
#include "components/exchange/source_file.h"
#include "components/exchange/tab_columns.h"
#include "components/exchange/tab_file.h"
#include "components/exchange/traced_run.h"
#include "src/base/text.h"

#include <QHash>
#include <QVariant>

namespace rcptclub {

using namespace plouvarine;
using namespace plouvarine::exchange;

namespace {

// The club's fields of the file's line, the key apart.
std::vector<std::pair<QString, QString>> club_fields(const TabFile& file, int row)
{
    std::vector<std::pair<QString, QString>> fields;
    for (const QString& column : club_columns().mid(1)) {
        if (!file.has_column(column))
            continue;
        QString value = file.field(row, column);
        if (column == kClubFlag)
            value = flag_value(value) ? QStringLiteral("1") : QStringLiteral("0");
        fields.emplace_back(column, value);
    }
    return fields;
}

}  // namespace

bool clsRecupClub::run(const QString& method, const ExchangeCall& call, OperationProgress& progress)
{
    traced_run(call.trace_file, [&](Trace& trace) {
        if (method != QLatin1String("bImport_Club")) {
            trace.error(QStringLiteral("méthode inconnue : ") + method);
            return false;
        }
        const QString path = source_file(call.source, kClubFile);
        trace.line(QStringLiteral("Import des clubs du fichier ") + path +
                   (call.option ? QStringLiteral(" (mise à jour forcée)") : QString()));
        const TabFile file(path);
        file.require({club_columns().first(), QStringLiteral("Intitule")});
        BaseSession session(call.base);
        Database& db = session.db();
        QHash<QString, QString> known;  // federal code -> Num
        const Rows rows = db.load_rows(QStringLiteral("SELECT Code_federal, Num FROM Club"));
        for (int r = 0; r < rows.size(); ++r)
            known.insert(rows.value(r, 0).trimmed().toUpper(), rows.value(r, 1));
        session.begin();
        int added = 0, updated = 0, kept = 0;
        for (int row = 0; row < file.size(); ++row) {
            const int line = file.line_of(row);
            const QString code = file.field(row, QStringLiteral("Code_federal"));
            const QString name = file.field(row, QStringLiteral("Intitule"));
            progress.set_club(name);
            progress.set_progress(row, file.size());
            if (code.isEmpty() || name.isEmpty())
                throw TabFileError(line, QStringLiteral("ligne %1 : le code fédéral et l'intitulé du club sont "
                                                        "obligatoires.")
                                             .arg(line));
            const auto fields = club_fields(file, row);
            const auto it = known.constFind(code.toUpper());
            at_line(line, [&] {
                if (it == known.cend()) {
                    std::vector<std::pair<QString, QVariant>> values{{QStringLiteral("Code_federal"), code}};
                    for (const auto& [column, value] : fields)
                        values.emplace_back(column, column == kClubFlag ? QVariant(value == QLatin1String("1"))
                                                                        : QVariant(value));
                    known.insert(code.toUpper(), db.append_row(QStringLiteral("Club"), values, QStringLiteral("Num")));
                    trace.line(QStringLiteral("Club ajouté : %1 %2").arg(code, name));
                    ++added;
                } else if (call.option) {
                    db.exec_sql(QStringLiteral("UPDATE Club SET ") + assignments(fields) +
                                QStringLiteral(", Visible = true WHERE Num = ") + *it);
                    trace.line(QStringLiteral("Club mis à jour : %1 %2").arg(code, name));
                    ++updated;
                } else {
                    ++kept;
                }
            });
        }
        session.commit();
        progress.set_progress(file.size(), file.size());
        trace.line(QStringLiteral("%1 club(s) ajouté(s), %2 mis à jour, "
                                  "%3 déjà présent(s) laissé(s) tel(s) quel(s).")
                       .arg(added)
                       .arg(updated)
                       .arg(kept));
        return true;
    }, true);
    return false;
}

}  // namespace rcptclub
