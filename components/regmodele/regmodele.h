#pragma once
// The component "regmodele": writes the default template of each report kind.

#include "src/reports/template_builder.h"

#include <QObject>

namespace Reg_modele {

class clsRegModele : public QObject, public plouvarine::TemplateBuilder {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID PLOUVARINE_TEMPLATE_BUILDER_IID FILE "regmodele.json")
    Q_INTERFACES(plouvarine::TemplateBuilder)

public:
    bool Construct_Modele(const QString& path, const QString& kind) override;
};

}  // namespace Reg_modele
