#pragma once
// The component "rcptclub" (rcptclub.clsRecupClub): the clubs of a
// "clubs.txt" into the base. A club unknown by its federal code is added; a
// known one is rewritten only when the update is forced.

#include "src/frame/exchange_component.h"

#include <QObject>

namespace rcptclub {

class clsRecupClub : public QObject, public plouvarine::ExchangeComponent {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID PLOUVARINE_EXCHANGE_COMPONENT_IID FILE "rcptclub.json")
    Q_INTERFACES(plouvarine::ExchangeComponent)

public:
    // "bImport_Club", the call's option forcing the update. Gives false.
    bool run(const QString& method, const plouvarine::ExchangeCall& call,
             plouvarine::OperationProgress& progress) override;
};

}  // namespace rcptclub
