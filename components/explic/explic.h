#pragma once
// The component "explic" (explic.clsExportLicence): the licences of the
// current club, and of its selection when it is a selection club, into
// "licences.txt" of the work folder.

#include "src/frame/exchange_component.h"

#include <QObject>

namespace explic {

class clsExportLicence : public QObject, public plouvarine::ExchangeComponent {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID PLOUVARINE_EXCHANGE_COMPONENT_IID FILE "explic.json")
    Q_INTERFACES(plouvarine::ExchangeComponent)

public:
    // "bExport_licence": true when the file was written.
    bool run(const QString& method, const plouvarine::ExchangeCall& call,
             plouvarine::OperationProgress& progress) override;
};

}  // namespace explic
