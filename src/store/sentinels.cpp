#include "src/store/sentinels.h"

#include "src/base/services.h"
#include "src/store/database.h"
#include "src/base/errors.h"
#include "src/base/sql_text.h"

namespace plouvarine {

QString check_licence_nulle(Database& db, Services& ui, const QString& club_code)
{
    try {
        for (int attempt = 0; attempt < 2; ++attempt) {
            const Rows rows = db.load_rows(QStringLiteral("select Num from Licence where Nom = 'Null'"));
            if (!rows.empty())
                return rows.first();
            db.exec_sql(QStringLiteral("INSERT INTO Licence (Code_Club, Licence, Nom, Visible, Date_suppr) VALUES (") +
                            quote_sql(club_code) + QStringLiteral(", '1', 'Null', false, '');"));
        }
        throw Error(0, QStringLiteral("Licence nulle introuvable après sa création."));
    } catch (const std::exception& e) {
        msg_erreur(ui, QStringLiteral("Une erreur s'est produite lors du contrôle de la licence nulle."), &e);
    }
    return {};
}

QString piscine_reference(Database& db)
{
    const QString select = QStringLiteral("select Num from Piscine where Nom = 'Null'");
    QString num = db.load_rows(select).first();
    if (num.isEmpty()) {
        db.exec_sql(QStringLiteral("INSERT INTO Piscine (Nom) VALUES ('Null');"));
        num = db.load_rows(select).first();
        if (num.isEmpty())
            throw Error(0, QStringLiteral("Piscine de référence introuvable après sa création."));
        // The competitions left on the row that went (it had another Num) had
        // no pool: they fall on the new one, or the joins on Piscine lose them.
        db.exec_sql(QStringLiteral("UPDATE Rcomp SET Num_Piscine = ") + sql_key(num) +
                    QStringLiteral(" WHERE Num_Piscine NOT IN (SELECT Num FROM Piscine);"));
    }
    return num;
}

void check_piscine_reference(Database& db, Services& ui)
{
    try {
        piscine_reference(db);
    } catch (const std::exception& e) {
        msg_erreur(ui, QStringLiteral("Une erreur s'est produite lors du contrôle de la piscine de référence."), &e);
    }
}

}  // namespace plouvarine
