#include "components/rcpres/rcpres.h"

#include "components/exchange/trace.h"
#include "components/lenex/lenex_component.h"
#include "components/lenex/lenex_results.h"

namespace RecupResultat {

using namespace plouvarine;

bool clsRecupResult::run(const QString& method, const ExchangeCall& call, OperationProgress& progress)
{
    return lenex::run_on_base(method, QStringLiteral("bimport_result"), call, [&](Database& db, exchange::Trace& trace) {
        progress.set_message(0, QStringLiteral("Import des résultats"));
        bool fill = call.new_compet;
        lenex::for_each_document(call.source, call.tmp_dir, trace, [&](const lenex::Document& doc) {
            const lenex::ResultCounts n = lenex::import_results(db, doc, call.num_compet.toInt(), fill, trace, progress);
            // A competition made for the results takes the first file's meet.
            fill = false;
            trace.line(QStringLiteral("%1 : %2 résultat(s) individuel(s), %3 relais, dont %4 statut(s), %5 temps "
                                      "intermédiaire(s) ; %6 club(s), %7 nageur(s) et %8 catégorie(s) ajouté(s) ; "
                                      "%9 déjà présent(s), ")
                           .arg(doc.file)
                           .arg(n.swims)
                           .arg(n.relays)
                           .arg(n.statuses)
                           .arg(n.splits)
                           .arg(n.clubs_added)
                           .arg(n.swimmers_added)
                           .arg(n.categories_added)
                           .arg(n.already)
                       + QStringLiteral("%1 ignoré(s).").arg(n.skipped));
        });
        return false;
    });
}

}  // namespace RecupResultat
