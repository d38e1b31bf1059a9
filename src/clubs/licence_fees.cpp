#include "src/clubs/licence_fees.h"

#include "src/frame/app_context.h"
#include "src/base/sql_text.h"

namespace plouvarine {

bool NettoieTarifs(AppContext& app, const QString& club_code)
{
    const SqlText code = quote_sql(club_code);
    try {
        // A licence with no fee at all (null) is left as it is.
        app.db.exec_sql(QStringLiteral("Update Licence set Tarif = '' ") + QStringLiteral("where Code_club = ") +
                        code + QStringLiteral(" ") +
                        QStringLiteral("and not Tarif in (select Intitule from Tarifs where code_federal = ") +
                        code + QStringLiteral(")"));
        return true;
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QStringLiteral("Une erreur s'est produite lors de la suppression des tarifs invalides ") +
                               QString::fromUtf8(e.what()));
        return false;
    }
}

}  // namespace plouvarine
