#include "components/lenex/lenex_component.h"

#include "components/exchange/trace.h"
#include "components/lenex/lenex_reader.h"
#include "src/base/errors.h"
#include "src/store/database.h"

#include <QFileInfo>

namespace plouvarine::lenex {

bool run_on_base(const QString& method, const QString& expected, const ExchangeCall& call,
                 const std::function<bool(Database&, exchange::Trace&)>& work)
{
    exchange::Trace trace(call.trace_file);
    if (method != expected) {
        trace.error(QStringLiteral("méthode « %1 » inconnue de ce composant.").arg(method));
        return false;
    }
    try {
        Database db;
        db.open(call.base);
        const bool result = work(db, trace);
        db.close();
        return result;
    } catch (const LenexError& e) {
        trace.error(e.text());
    } catch (const Error& e) {
        trace.error(e.description());
    } catch (const std::exception& e) {
        trace.error(QString::fromLocal8Bit(e.what()));
    }
    return false;
}

int for_each_document(const QString& source, const QString& work_dir, exchange::Trace& trace,
                      const std::function<void(const Document&)>& import)
{
    const QStringList files = source_files(source);
    if (files.isEmpty()) {
        trace.error(QStringLiteral("aucun fichier Lenex (.lef, .lxf, .zip) dans %1.").arg(source));
        return 0;
    }
    int imported = 0;
    for (const QString& file : files) {
        const QString name = QFileInfo(file).fileName();
        try {
            for (const QString& lef : lef_files(file, work_dir)) {
                import(read_lef(lef));
                ++imported;
            }
        } catch (const LenexError& e) {
            trace.error(e.text() + QStringLiteral(". Rien n'est importé de ce fichier."));
        } catch (const Error& e) {
            trace.error(QStringLiteral("%1 : %2. Rien n'est importé de ce fichier.").arg(name, e.description()));
        }
    }
    return imported;
}

}  // namespace plouvarine::lenex
