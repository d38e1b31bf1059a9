#pragma once
// The club of the profile with a competition, and helpers to lay swimmers, team members, entries,
// relays and performances into it.

#include "src/base/sql_text.h"
#include "src/base/text.h"
#include "src/frame/app_context.h"
#include "support/app_fixture.h"

namespace plouvarine::testing {

class EntriesBase : public ProfileClubFixture {
protected:
    void SetUp() override
    {
        ProfileClubFixture::SetUp();
        compet = competition(50);
    }

    QString competition(int longueur)
    {
        return app->db.append_row(QStringLiteral("Rcomp"),
                                  {{"Nom", "Interclubs"}, {"Longueur", longueur}, {"Debut", "20250405"},
                                   {"Visible", true}, {"Deroule", false}},
                                  QStringLiteral("AutoNum"));
    }
    QString swimmer(const QString& nom, const QString& sexe, const QString& prenom = QStringLiteral("Anne"))
    {
        return app->db.append_row(QStringLiteral("Licence"),
                                  {{"Code_club", kClub}, {"Licence", nom.toUpper()}, {"Nom", nom}, {"Prenom", prenom},
                                   {"Sexe", sexe}, {"Date_Naissance", "20050307"}},
                                  QStringLiteral("Num"));
    }
    // A team member of the competition (profile 1).
    void member(const QString& num, int team, bool mixed)
    {
        exec(QStringLiteral("INSERT INTO Engag_nageur (Num_compet, Num_profil, Num_Lic, Equipe, Equipe_m) "
                            "VALUES (%1, 1, %2, %3, %4)")
                 .arg(compet, num)
                 .arg(team)
                 .arg(bool_text(mixed).text()));
    }
    void entry(const QString& num, int code, int team, bool mixed, const QString& tps = QStringLiteral("1.0512"))
    {
        exec(QStringLiteral("INSERT INTO Engag (Num_compet, Num_profil, Code_epreuve, Num_Lic, Num_equipe, "
                            "Equipe_mixte, Tps_engagement, Date_perf, Lieu_perf, Bassin) "
                            "VALUES (%1, 1, %2, %3, %4, %5, %6, '20241012', 'Brest', 50)")
                 .arg(compet)
                 .arg(code)
                 .arg(num)
                 .arg(team)
                 .arg(bool_text(mixed).text(), tps));
    }
    // Relay `number` of a team in event `code`, with its swimmers in order.
    void relay(int code, int number, int team, bool mixed, const QStringList& swimmers = {})
    {
        QStringList places;
        for (int i = 0; i < 10; ++i)
            places << (i < swimmers.size() ? swimmers.at(i) : app->state.num_lic_nulle);
        exec(QStringLiteral("INSERT INTO Relais VALUES (1, %1, %2, %3, %4, %5, 0, %6)")
                 .arg(compet)
                 .arg(code)
                 .arg(number)
                 .arg(team)
                 .arg(bool_text(mixed).text(), places.join(QStringLiteral(", "))));
    }
    void perf(const QString& num, int code, const QString& tps, const QString& date, int bassin = 50)
    {
        exec(QStringLiteral("INSERT INTO Liffn (Code_epreuve, Code_club, Num_Lic, Type_bassin, Date_perf, Tps, Lieu) "
                            "VALUES (%1, '%2', %3, %4, '%5', %6, 'Rennes')")
                 .arg(code)
                 .arg(QLatin1String(kClub), num)
                 .arg(bassin)
                 .arg(date, tps));
    }

    QString compet;
};

}  // namespace plouvarine::testing
