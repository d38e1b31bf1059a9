#pragma once
// The component "rcpres" (RecupResultat.clsRecupResult): a meet's Lenex results into the competition's results.

#include "src/frame/exchange_component.h"

#include <QObject>

namespace RecupResultat {

class clsRecupResult : public QObject, public plouvarine::ExchangeComponent {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID PLOUVARINE_EXCHANGE_COMPONENT_IID FILE "rcpres.json")
    Q_INTERFACES(plouvarine::ExchangeComponent)

public:
    // "bimport_result".
    bool run(const QString& method, const plouvarine::ExchangeCall& call,
             plouvarine::OperationProgress& progress) override;
};

}  // namespace RecupResultat
