#include "store/sentinels.h"

#include "frame/app_context.h"
#include "frame/errors.h"
#include "frame/text.h"

namespace plouvarine {

QString check_licence_nulle(AppContext& app)
{
    try {
        for (int attempt = 0; attempt < 2; ++attempt) {
            const Rows rows = app.db.load_rows(QStringLiteral("select Num from Licence where Nom = 'Null'"));
            if (!rows.empty())
                return rows.first();
            app.db.exec_sql(QStringLiteral("INSERT INTO Licence (Code_Club, Licence, Nom, Visible, Date_suppr) VALUES ('") +
                            quote_sql(app.state.club_code) + QStringLiteral("', '1', 'Null', false, '');"));
        }
        throw Error(0, QStringLiteral("Licence nulle introuvable après sa création."));
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QStringLiteral("Une erreur s'est produite lors du contrôle de la licence nulle."), &e);
    }
    return {};
}

void check_piscine_reference(AppContext& app)
{
    try {
        if (app.db.count_query(QStringLiteral("select count(*) from Piscine where Nom = 'Null'")) == 0)
            app.db.exec_sql(QStringLiteral("INSERT INTO Piscine (Nom) VALUES ('Null');"));
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QStringLiteral("Une erreur s'est produite lors du contrôle de la piscine de référence."), &e);
    }
}

}  // namespace plouvarine
