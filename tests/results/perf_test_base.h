#pragma once
// The club of the profile, swimmers and the helpers that lay performances into Liffn and
// Liffn_relais as the imports and the manual forms leave them.

#include "src/base/sql_text.h"
#include "src/frame/app_context.h"
#include "support/app_fixture.h"

namespace plouvarine::testing {

class PerfBase : public ProfileClubFixture {
protected:
    void SetUp() override
    {
        ProfileClubFixture::SetUp();
        app->state.club_name = QStringLiteral("Brest Natation");
    }

    QString swimmer(const QString& nom, const QString& sexe, const QString& naissance = QStringLiteral("20050307"))
    {
        return app->db.append_row(QStringLiteral("Licence"),
                                  {{"Code_club", kClub}, {"Licence", nom.toUpper()}, {"Nom", nom}, {"Prenom", "Anne"},
                                   {"Sexe", sexe}, {"Date_Naissance", naissance}, {"Visible", true}},
                                  QStringLiteral("Num"));
    }
    QString competition(const QString& nom, const QString& debut)
    {
        return app->db.append_row(QStringLiteral("Rcomp"), {{"Nom", nom}, {"Debut", debut}, {"Longueur", 25}},
                                  QStringLiteral("AutoNum"));
    }
    // One swim of `num` in `event` (Nage.Code_Nage).
    void perf(const QString& num, int event, const QString& date, const QString& tps, int bassin = 25,
              const QString& compet = QStringLiteral("0"), int manuel = 0, bool inter = false, bool relais = false)
    {
        exec(QStringLiteral("INSERT INTO Liffn (Code_epreuve, Code_club, Num_Lic, Type_bassin, Date_perf, Tps, Lieu, "
                            "Passage_relais, Tps_inter, Num_compet, NumManuel) VALUES (%1, '%2', %3, %4, '%5', %6, "
                            "'Brest', '%7', %8, %9, %10)")
                 .arg(event)
                 .arg(QLatin1String(kClub), num)
                 .arg(bassin)
                 .arg(date, tps, relais ? QStringLiteral("R") : QStringLiteral(" "), bool_text(inter).text(), compet)
                 .arg(manuel));
    }
    void relay_perf(int event, const QString& date, const QString& tps, int team,
                    const QString& compet = QStringLiteral("0"), int manuel = 0)
    {
        exec(QStringLiteral("INSERT INTO Liffn_relais (Code_epreuve, Code_club, Num_Lic, Type_bassin, Date_perf, Tps, "
                            "Lieu, Num_compet, NumManuel) VALUES (%1, '%2', %3, 25, '%4', %5, 'Quimper', %6, %7)")
                 .arg(event)
                 .arg(QLatin1String(kClub))
                 .arg(team)
                 .arg(date, tps, compet)
                 .arg(manuel));
    }
};

}  // namespace plouvarine::testing
