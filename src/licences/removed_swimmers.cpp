#include "src/licences/removed_swimmers.h"

#include "src/frame/app_context.h"
#include "src/base/sql_text.h"

namespace plouvarine {

void RetirerDesRelais(AppContext& app, const QString& swimmers, const QString& competitions,
                      std::optional<int> team, std::optional<bool> mixed, const QString& profile)
{
    status_text(app.ui, QStringLiteral("Suppression du nageur dans les relais"));
    for (int n = 1; n <= 10; ++n) {
        const QString place = QStringLiteral("Licence") + QString::number(n);
        QString sql = QStringLiteral("UPDATE Relais SET ") + place + QStringLiteral(" = ") + sql_key(app.state.num_lic_nulle) +
                      QStringLiteral(" WHERE ") + place + QStringLiteral(" IN (") + swimmers + QStringLiteral(")");
        if (!competitions.isEmpty())
            sql += QStringLiteral(" AND Num_compet in (") + competitions + QStringLiteral(")");
        if (team)
            sql += QStringLiteral(" AND Num_equipe = ") + QString::number(*team);
        if (mixed)
            sql += QStringLiteral(" AND Equipe_mixte = ") + bool_text(*mixed);
        if (!profile.isEmpty())
            sql += QStringLiteral(" AND Num_profil = ") + sql_key(profile);
        app.db.exec_sql(sql);
    }
    status_text(app.ui, QString());
}

}  // namespace plouvarine
