#include "components/rcptlic/rcptlic.h"

#include "components/exchange/base_session.h"
#include "components/exchange/licence_match.h"
#include "components/exchange/source_file.h"
#include "components/exchange/tab_columns.h"
#include "components/exchange/tab_file.h"
#include "components/exchange/traced_run.h"
#include "src/base/files.h"

#include <QDirIterator>
#include <QVariant>

namespace rcptlic {

using namespace plouvarine;
using namespace plouvarine::exchange;

namespace {

const QString kLicence = QStringLiteral("Licence");
const QString kNom = QStringLiteral("Nom");
const QString kPrenom = QStringLiteral("Prenom");
const QString kNaissance = QStringLiteral("Date_Naissance");
const QString kCodeUnique = QStringLiteral("Code_unique");

bool import_licences(const ExchangeCall& call, OperationProgress& progress, Trace& trace)
{
    const QString path = source_file(call.source, kLicenceFile);
    trace.line(QStringLiteral("Import des licences du fichier ") + path);
    const TabFile file(path);
    file.require({kNom, kPrenom, kNaissance});
    QStringList columns;
    for (const QString& column : licence_columns())
        if (file.has_column(column))
            columns << column;
    BaseSession session(call.base);
    Database& db = session.db();
    LicenceIndex index;
    index.load(db);
    session.begin();
    int added = 0, updated = 0;
    for (int row = 0; row < file.size(); ++row) {
        const int line = file.line_of(row);
        const QString licence = file.field(row, kLicence);
        const QString nom = file.field(row, kNom);
        const QString prenom = file.field(row, kPrenom);
        const QString naissance = file.field(row, kNaissance);
        const QString who = (nom + QLatin1Char(' ') + prenom).trimmed();
        progress.set_swimmer(who);
        progress.set_progress(row, file.size());
        if (nom.isEmpty())
            throw TabFileError(line, QStringLiteral("ligne %1 : le nom est obligatoire.").arg(line));
        at_line(line, [&] {
            LicenceIndex::Found found = index.find(licence, nom, prenom, naissance);
            if (!found.found()) {
                std::vector<std::pair<QString, QVariant>> values;
                for (const QString& column : columns)
                    values.emplace_back(column, file.field(row, column));
                values.emplace_back(QStringLiteral("Visible"), true);
                found = {db.append_row(QStringLiteral("Licence"), values, QStringLiteral("Num")),
                         file.field(row, QStringLiteral("Code_club"))};
                trace.line(QStringLiteral("Licence ajoutée : %1 %2").arg(licence, who));
                ++added;
            } else {
                // The person stays as the base spells her (a file may have
                // lost the accents); a field the file leaves empty keeps what
                // the base knows.
                std::vector<std::pair<QString, QString>> fields;
                for (const QString& column : columns)
                    if (const QString value = file.field(row, column);
                        !value.isEmpty() && column != kNom && column != kPrenom && column != kNaissance)
                        fields.emplace_back(column, value);
                if (!fields.empty())
                    db.exec_sql(QStringLiteral("UPDATE Licence SET ") + assignments(fields) +
                                QStringLiteral(" WHERE Num = ") + found.num);
                if (const QString club = file.field(row, QStringLiteral("Code_club")); !club.isEmpty())
                    found.code_club = club;
                trace.line(QStringLiteral("Licence mise à jour : %1 %2").arg(licence, who));
                ++updated;
            }
            index.add(found, licence, nom, prenom, naissance);
        });
    }
    session.commit();
    progress.set_progress(file.size(), file.size());
    trace.line(QStringLiteral("%1 licence(s) ajoutée(s), %2 mise(s) à jour.").arg(added).arg(updated));
    return false;
}

// The update files of the unpacked package: every text file whose header
// names the licence and the unique code. The others (a notice, say) are told
// and left aside.
QStringList update_files(const QString& folder, Trace& trace)
{
    QStringList files;
    QDirIterator it(folder, {QStringLiteral("*.txt")}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files << it.next();
    files.sort();
    QStringList updates;
    for (const QString& path : files) {
        const QStringList header = tab_header(path);
        if (header.contains(kLicence, Qt::CaseInsensitive) && header.contains(kCodeUnique, Qt::CaseInsensitive))
            updates << path;
        else
            trace.line(QStringLiteral("Fichier %1 ignoré : il n'a pas les colonnes Licence et Code_unique.")
                           .arg(file_name(path)));
    }
    return updates;
}

bool update_codes(const ExchangeCall& call, OperationProgress& progress, Trace& trace)
{
    trace.line(QStringLiteral("Mise à jour des codes IUF") +
               (call.option ? QStringLiteral(" des licences du club ") + call.club_code : QString()));
    const QStringList files = update_files(call.source, trace);
    if (files.isEmpty()) {
        trace.error(QStringLiteral("aucun fichier de mise à jour (.txt) dans le fichier compressé."));
        return false;
    }
    BaseSession session(call.base);
    Database& db = session.db();
    LicenceIndex index;
    index.load(db);
    session.begin();
    int changed = 0, unknown = 0, other_club = 0;
    for (const QString& path : files) {
        trace.line(QStringLiteral("Fichier ") + file_name(path));
        const TabFile file(path);
        for (int row = 0; row < file.size(); ++row) {
            const int line = file.line_of(row);
            const QString licence = file.field(row, kLicence);
            const QString code = file.field(row, kCodeUnique);
            progress.set_swimmer(licence);
            progress.set_progress(row, file.size());
            const LicenceIndex::Found found =
                index.find(licence, file.field(row, kNom), file.field(row, kPrenom), file.field(row, kNaissance));
            if (!found.found()) {
                trace.line(QStringLiteral("ligne %1 : licence %2 inconnue dans la base.").arg(line).arg(licence));
                ++unknown;
                continue;
            }
            if (call.option && found.code_club.compare(call.club_code.trimmed(), Qt::CaseInsensitive) != 0) {
                ++other_club;
                continue;
            }
            at_line(line, [&] {
                db.exec_sql(QStringLiteral("UPDATE Licence SET ") + assignments({{kCodeUnique, code}}) +
                            QStringLiteral(" WHERE Num = ") + found.num);
            });
            ++changed;
        }
    }
    session.commit();
    trace.line(QStringLiteral("%1 code(s) IUF mis à jour, %2 licence(s) inconnue(s), %3 licence(s) d'autres clubs "
                              "laissée(s).")
                   .arg(changed)
                   .arg(unknown)
                   .arg(other_club));
    return true;
}

}  // namespace

bool clsRecupLicence::run(const QString& method, const ExchangeCall& call, OperationProgress& progress)
{
    return traced_run(
        call.trace_file,
        [&](Trace& trace) {
            if (method == QLatin1String("bimport_licence"))
                return import_licences(call, progress, trace);
            if (method == QLatin1String("bImport_CodeIUF"))
                return update_codes(call, progress, trace);
            trace.error(QStringLiteral("méthode inconnue : ") + method);
            return false;
        },
        true);
}

}  // namespace rcptlic
