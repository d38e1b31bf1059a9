#pragma once
// The component "calpts": World Aquatics points, 1000 x (B / T)^3 truncated,
// B the base time of the event and course, read from the table of base times
// (calpts_bases.txt beside the plugin).

#include "src/tools/points_component.h"

#include <QHash>
#include <QObject>

namespace Calcul_Point {

class ClsCalcul : public QObject, public plouvarine::PointsCalculator {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID PLOUVARINE_POINTS_CALCULATOR_IID FILE "calpts.json")
    Q_INTERFACES(plouvarine::PointsCalculator)

public:
    bool load_table(const QString& path, QString* error) override;
    QString table_name() const override { return name_; }
    int CalculPoint(double temps, qint16 code_nage, int bassin) const override;
    QString CalculTps(qint16 points, qint16 code_nage, int bassin) const override;

private:
    // The base time in hundredths of the event in that pool, 0 for none.
    int base_time(qint16 code_nage, int bassin) const;

    QString name_;
    // "SCM F 1 100 BACK" -> hundredths
    QHash<QString, int> bases_;
};

}  // namespace Calcul_Point
