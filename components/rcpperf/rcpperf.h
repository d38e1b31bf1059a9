#pragma once
// The component "rcpperf" (RecupPerf.clsRecupPerf): the Lenex results of a folder into the base swimmers' performances.

#include "src/frame/exchange_component.h"

#include <QObject>

namespace RecupPerf {

class clsRecupPerf : public QObject, public plouvarine::ExchangeComponent {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID PLOUVARINE_EXCHANGE_COMPONENT_IID FILE "rcpperf.json")
    Q_INTERFACES(plouvarine::ExchangeComponent)

public:
    // "bimport_perf".
    bool run(const QString& method, const plouvarine::ExchangeCall& call,
             plouvarine::OperationProgress& progress) override;
};

}  // namespace RecupPerf
