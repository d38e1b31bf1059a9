#pragma once
// The points component as the calculators use it: the plugin "calpts" of the
// application folder with the table of base times beside it.

#include "src/tools/points_component.h"

#include <QString>

namespace plouvarine {

class AppContext;

// What a window shows when its component cannot be had.
inline const QString kCalculPointsIndisponible =
    QStringLiteral("Une erreur s'est produite lors du chargement de la fenêtre");
// The label of a conversion that gives nothing.
inline const QString kNonDispo = QStringLiteral("Non Dispo");

// The table of base times: "calpts_bases.txt" in the application folder.
QString points_table_path(const AppContext& app);

// Calcul_Point.ClsCalcul, created with its table read. Null when the plugin or
// its table is missing or damaged, after the error message; the reason goes
// to `error` too.
PointsCalculator* cree_calcul_points(AppContext& app, QString* error = nullptr);

}  // namespace plouvarine
