#pragma once
// The component "expclub" (expclub.clsExportClub): the clubs of the base
// into "clubs.txt" of the work folder.

#include "src/frame/exchange_component.h"

#include <QObject>

namespace expclub {

class clsExportClub : public QObject, public plouvarine::ExchangeComponent {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID PLOUVARINE_EXCHANGE_COMPONENT_IID FILE "expclub.json")
    Q_INTERFACES(plouvarine::ExchangeComponent)

public:
    // "bExport_Club": true when the file was written.
    bool run(const QString& method, const plouvarine::ExchangeCall& call,
             plouvarine::OperationProgress& progress) override;
};

}  // namespace expclub
