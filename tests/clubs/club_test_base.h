#pragma once
// A connected copy of the model base, with helpers to lay clubs, profiles,
// licences and entries into it.

#include "src/frame/app_context.h"
#include "src/base/sql_text.h"
#include "src/base/text.h"
#include "support/app_fixture.h"

namespace plouvarine::testing {

class ClubBase : public AppFixture {
protected:
    void SetUp() override
    {
        AppFixture::SetUp();
        connect(make_base());
    }

    QString add_club(const QString& code, const QString& name)
    {
        exec(QStringLiteral("INSERT INTO Club (Code_federal, Intitule, Selection) VALUES ('%1', %2, false)")
                 .arg(code, quote_sql(name).text()));
        return value(QStringLiteral("select Num from Club where Code_federal = '%1'").arg(code));
    }
    QString add_profile(const QString& name, const QString& code, bool current)
    {
        exec(QStringLiteral("INSERT INTO Profil (Libelle, Code_club, LastUse) VALUES (%1, '%2', %3)")
                 .arg(quote_sql(name).text(), code, current ? QStringLiteral("true") : QStringLiteral("false")));
        return value(QStringLiteral("select Num from Profil where Libelle = %1").arg(quote_sql(name).text()));
    }
    QString add_licence(const QString& nom, const QString& code)
    {
        exec(QStringLiteral("INSERT INTO Licence (Code_club, Nom, Prenom, Visible) VALUES ('%1', '%2', 'A', true)")
                 .arg(code, nom));
        return value(QStringLiteral("select max(Num) from Licence"));
    }
    // One row per profile table for the profile `num`.
    void add_profile_entries(const QString& num)
    {
        exec(QStringLiteral("INSERT INTO Engag (Num_compet, Num_profil, Code_epreuve, Num_Lic) VALUES (1, %1, 2, 3)").arg(num));
        exec(QStringLiteral("INSERT INTO Engag_equipe (Num_compet, Num_profil) VALUES (1, %1)").arg(num));
        exec(QStringLiteral("INSERT INTO Engag_nageur (Num_compet, Num_profil, Num_Lic) VALUES (1, %1, 3)").arg(num));
        exec(QStringLiteral("INSERT INTO Modele_engag (Nom_modele, Num_profil) VALUES ('m%1', %1)").arg(num));
        exec(QStringLiteral("INSERT INTO Relais (Num_profil, Num_compet, Code_epreuve) VALUES (%1, 1, 40)").arg(num));
    }
    int profile_entries(const QString& num)
    {
        int total = 0;
        for (const char* table : {"Engag", "Engag_equipe", "Engag_nageur", "Modele_engag", "Relais"})
            total += count(QStringLiteral("select count(*) from %1 where Num_profil = %2").arg(QLatin1String(table), num));
        return total;
    }
};

}  // namespace plouvarine::testing
