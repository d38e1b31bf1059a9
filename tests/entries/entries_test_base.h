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
        app->db.append_row(QStringLiteral("Engag_nageur"),
                           {{"Num_compet", compet}, {"Num_profil", 1}, {"Num_Lic", num}, {"Equipe", team},
                            {"Equipe_m", mixed}},
                           QStringLiteral("Num_Lic"));
    }
    void entry(const QString& num, int code, int team, bool mixed, const QString& tps = QStringLiteral("1.0512"))
    {
        app->db.append_row(QStringLiteral("Engag"),
                           {{"Num_compet", compet}, {"Num_profil", 1}, {"Code_epreuve", code}, {"Num_Lic", num},
                            {"Num_equipe", team}, {"Equipe_mixte", mixed}, {"Tps_engagement", tps.toDouble()},
                            {"Date_perf", "20241012"}, {"Lieu_perf", "Brest"}, {"Bassin", 50}},
                           QStringLiteral("Num_Lic"));
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
        app->db.append_row(QStringLiteral("Liffn"),
                           {{"Code_epreuve", code}, {"Code_club", kClub}, {"Num_Lic", num}, {"Type_bassin", bassin},
                            {"Date_perf", date}, {"Tps", tps.toDouble()}, {"Lieu", "Rennes"}},
                           QStringLiteral("Num_Lic"));
    }

    QString compet;
};

}  // namespace plouvarine::testing
