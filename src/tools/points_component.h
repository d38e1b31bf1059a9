#pragma once
// The points component "calpts" (Calcul_Point.ClsCalcul): converts a swim time
// into World Aquatics points and back, for an event of the catalogue (Nage)
// swum in a pool of 25 or 50 m. The component owns the formula and reads the
// base times from its data file; the program holds neither.

#include <QString>
#include <QtPlugin>

namespace plouvarine {

class PointsCalculator {
public:
    virtual ~PointsCalculator() = default;

    // Reads the table of base times at `path`. False, with the reason in
    // `error`, when the file is missing or is not a table of base times; the
    // table in use is then empty and every conversion gives nothing.
    virtual bool load_table(const QString& path, QString* error) = 0;
    // The name of the table read ("World Aquatics Points 2023").
    virtual QString table_name() const = 0;

    // The points of the time `temps` (m.sscc) in event `code_nage` in a pool of
    // `bassin` metres, truncated; 0 when there are none (no time, no base time
    // for the event in that pool, a time too slow to be worth one point).
    virtual int CalculPoint(double temps, qint16 code_nage, int bassin) const = 0;
    // The slowest time (canonical m.sscc text) that is worth `points`; the empty
    // text when those points cannot be reached (no base time, points out of
    // 1 to kMaxPoints).
    virtual QString CalculTps(qint16 points, qint16 code_nage, int bassin) const = 0;

    static constexpr int kMaxPoints = 1500;
};

}  // namespace plouvarine

#define PLOUVARINE_POINTS_CALCULATOR_IID "fr.plouvarine.PointsCalculator/1.0"
Q_DECLARE_INTERFACE(plouvarine::PointsCalculator, PLOUVARINE_POINTS_CALCULATOR_IID)
