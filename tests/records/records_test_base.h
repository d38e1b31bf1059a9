#pragma once
// The club of the profile, and helpers to lay record
// bands, records, swimmers and swims into it.

#include "src/base/sql_text.h"
#include "src/frame/app_context.h"
#include "support/app_fixture.h"

namespace plouvarine::testing {

class RecordsBase : public ProfileClubFixture {
protected:
    void SetUp() override
    {
        ProfileClubFixture::SetUp();
        app->state.club_name = QStringLiteral("Brest Natation");
    }

    QString band(const QString& label, int inf, int sup, const QString& sexe, const QString& club = QLatin1String(kClub))
    {
        return app->db.append_row(QStringLiteral("Categori_record_club"),
                                  {{"Code_Club", club}, {"Libelle", label}, {"Age_inf", inf}, {"Age_sup", sup},
                                   {"Sexe", sexe}},
                                  QStringLiteral("Num_cat"));
    }
    QString record(const QString& cat, int code, int bassin, double tps, const QString& date,
                   const QString& nom = QStringLiteral("Le Gall"))
    {
        return app->db.append_row(QStringLiteral("RecordClub"),
                                  {{"Categorie", cat.toInt()}, {"Code_nage", code}, {"Bassin", bassin}, {"Tps", tps},
                                   {"Nom", nom}, {"Prenom", "Anne"}, {"Date_perf", date}, {"Lieu", "Brest"}},
                                  QStringLiteral("Num_auto"));
    }
    QString swimmer(const QString& nom, const QString& birth, const QString& sexe = QStringLiteral("M"))
    {
        return app->db.append_row(QStringLiteral("Licence"),
                                  {{"Code_club", kClub}, {"Licence", nom.toUpper()}, {"Nom", nom}, {"Prenom", "Yann"},
                                   {"Sexe", sexe}, {"Date_Naissance", birth}},
                                  QStringLiteral("Num"));
    }
    void swim(const QString& num, int code, int bassin, double tps, const QString& date,
              const QString& club = QLatin1String(kClub))
    {
        app->db.append_row(QStringLiteral("Liffn"),
                           {{"Code_epreuve", code}, {"Code_club", club}, {"Num_Lic", num.toInt()}, {"Type_bassin", bassin},
                            {"Date_perf", date}, {"Tps", tps}, {"Lieu", "Rennes"}},
                           QStringLiteral("Num_Lic"));
    }

};

}  // namespace plouvarine::testing
