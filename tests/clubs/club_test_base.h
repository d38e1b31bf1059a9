#pragma once
// A connected copy of the model base, with helpers to lay clubs, profiles,
// licences and entries into it.

#include "src/frame/app_context.h"
#include "src/base/sql_text.h"
#include "src/base/text.h"
#include "support/app_fixture.h"

using namespace Qt::Literals::StringLiterals;

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
        exec(u"INSERT INTO Club (Code_federal, Intitule, Selection) VALUES ('%1', %2, false)"_s.arg(
            code, quote_sql(name).text()));
        return value(u"select Num from Club where Code_federal = '%1'"_s.arg(code));
    }
    QString add_profile(const QString& name, const QString& code, bool current)
    {
        exec(u"INSERT INTO Profil (Libelle, Code_club, LastUse) VALUES (%1, '%2', %3)"_s.arg(
            quote_sql(name).text(), code, current ? u"true"_s : u"false"_s));
        return value(u"select Num from Profil where Libelle = %1"_s.arg(quote_sql(name).text()));
    }
    QString add_licence(const QString& nom, const QString& code)
    {
        exec(u"INSERT INTO Licence (Code_club, Nom, Prenom, Visible) VALUES ('%1', '%2', 'A', true)"_s.arg(code, nom));
        return value(u"select max(Num) from Licence"_s);
    }
    // One row per profile table for the profile `num`.
    void add_profile_entries(const QString& num)
    {
        exec(u"INSERT INTO Engag (Num_compet, Num_profil, Code_epreuve, Num_Lic) VALUES (1, %1, 2, 3)"_s.arg(num));
        exec(u"INSERT INTO Engag_equipe (Num_compet, Num_profil) VALUES (1, %1)"_s.arg(num));
        exec(u"INSERT INTO Engag_nageur (Num_compet, Num_profil, Num_Lic) VALUES (1, %1, 3)"_s.arg(num));
        exec(u"INSERT INTO Modele_engag (Nom_modele, Num_profil) VALUES ('m%1', %1)"_s.arg(num));
        exec(u"INSERT INTO Relais (Num_profil, Num_compet, Code_epreuve) VALUES (%1, 1, 40)"_s.arg(num));
    }
    int profile_entries(const QString& num)
    {
        int total = 0;
        for (const char* table : {"Engag", "Engag_equipe", "Engag_nageur", "Modele_engag", "Relais"})
            total += count(u"select count(*) from %1 where Num_profil = %2"_s.arg(QLatin1String(table), num));
        return total;
    }
};

}  // namespace plouvarine::testing
