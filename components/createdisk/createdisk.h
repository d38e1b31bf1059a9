#pragma once
// The component "createdisk" (createdisk.clscreate_disk): the club's entries and relays for a competition as a Lenex entries file.

#include "src/frame/exchange_component.h"

#include <QObject>

namespace createdisk {

class clscreate_disk : public QObject, public plouvarine::ExchangeComponent {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID PLOUVARINE_EXCHANGE_COMPONENT_IID FILE "createdisk.json")
    Q_INTERFACES(plouvarine::ExchangeComponent)

public:
    // "bCreation_disquette".
    bool run(const QString& method, const plouvarine::ExchangeCall& call,
             plouvarine::OperationProgress& progress) override;
};

}  // namespace createdisk
