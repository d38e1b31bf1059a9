#pragma once
// The component "expperf" (export_perf.clsExportPerf): the performances of the club, or of every club, as a Lenex file.

#include "src/frame/exchange_component.h"

#include <QObject>

namespace export_perf {

class clsExportPerf : public QObject, public plouvarine::ExchangeComponent {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID PLOUVARINE_EXCHANGE_COMPONENT_IID FILE "expperf.json")
    Q_INTERFACES(plouvarine::ExchangeComponent)

public:
    // "bexport_performance".
    bool run(const QString& method, const plouvarine::ExchangeCall& call,
             plouvarine::OperationProgress& progress) override;
};

}  // namespace export_perf
