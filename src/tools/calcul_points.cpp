#include "src/tools/calcul_points.h"

#include "src/base/files.h"
#include "src/base/services.h"
#include "src/frame/app_context.h"
#include "src/frame/components.h"

#include <QFileInfo>
#include <QPluginLoader>

namespace plouvarine {

QString points_table_path(const AppContext& app)
{
    return app.app_file(QStringLiteral("calpts_bases.txt"));
}

PointsCalculator* cree_calcul_points(AppContext& app, QString* error)
{
    QString why;
    PointsCalculator* calcul = nullptr;
    const QString file = app.app_file(component_file(QStringLiteral("calpts.dll")));
    if (QFileInfo(file).isFile()) {
        // The plugin stays loaded for the session; its one instance is shared
        // by the calculators, each reading the table again as it opens.
        QPluginLoader loader(file);
        calcul = qobject_cast<PointsCalculator*>(loader.instance());
        if (!calcul)
            why = loader.errorString();
        else if (!calcul->load_table(points_table_path(app), &why))
            calcul = nullptr;
    } else {
        why = QStringLiteral("Composant introuvable : ") + file;
    }
    if (!calcul) {
        msg_erreur(app.ui, kCalculPointsIndisponible);
        if (error)
            *error = why;
    }
    return calcul;
}

}  // namespace plouvarine
