#pragma once
// The component "rcptlic": the licences of a "licences.txt" into the base
// (rcptlic.clsRecupLicence), and the unique codes of an IUF update
// (rcptlic.clsMajIUF). A person is found by licence number, then by name and
// birth date; a licence file adds the unknown ones and brings the known ones
// up to date, an IUF update only rewrites the codes of known swimmers.

#include "src/frame/exchange_component.h"

#include <QObject>

namespace rcptlic {

class clsRecupLicence : public QObject, public plouvarine::ExchangeComponent {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID PLOUVARINE_EXCHANGE_COMPONENT_IID FILE "rcptlic.json")
    Q_INTERFACES(plouvarine::ExchangeComponent)

public:
    // "bimport_licence" (gives false), or "bImport_CodeIUF" with the option
    // "my club only" (gives true when the update went through).
    bool run(const QString& method, const plouvarine::ExchangeCall& call,
             plouvarine::OperationProgress& progress) override;
};

}  // namespace rcptlic
