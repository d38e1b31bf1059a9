#pragma once
// A connected copy of the model base with a club, its current profile, a few
// swimmers of both sexes, competitions and performances in Liffn: what the
// entry tests and the entry window's test work on.

#include "src/base/text.h"
#include "src/clubs/pools.h"
#include "src/frame/app_context.h"
#include "src/store/sentinels.h"
#include "support/app_fixture.h"

namespace plouvarine::testing {

class EngagBase : public AppFixture {
protected:
    static constexpr const char* kClub = "FRA2210290017";

    void SetUp() override
    {
        AppFixture::SetUp();
        connect(make_base());
        exec(QStringLiteral("INSERT INTO Club (Code_federal, Intitule, Selection) VALUES ('%1', 'Brest Natation', false)")
                 .arg(QLatin1String(kClub)));
        app->state.club_code = QLatin1String(kClub);
        app->state.club_name = QStringLiteral("Brest Natation");
        app->state.profile_num = app->db.append_row(QStringLiteral("Profil"),
                                                    {{"Libelle", "Entraîneur"}, {"Code_club", kClub}},
                                                    QStringLiteral("Num"));
        app->state.num_lic_nulle = check_licence_nulle(app->db, app->ui, app->state.club_code);
        check_piscine_reference(app->db, app->ui);
        app->clock.set_today(QDate(2025, 3, 10));
    }
    QString swimmer(const QString& nom, const QString& prenom, const QString& sexe)
    {
        return app->db.append_row(QStringLiteral("Licence"),
                                  {{"Code_club", kClub}, {"Licence", nom.left(3) + prenom.left(3)}, {"Nom", nom},
                                   {"Prenom", prenom}, {"Sexe", sexe}, {"Date_Naissance", "20080307"}},
                                  QStringLiteral("Num"));
    }
    // A competition to come in a pool of `longueur` metres.
    QString competition(const QString& debut, int longueur)
    {
        exec(QStringLiteral("INSERT INTO Rcomp (Num, Type, Nom, Debut, Fin, Lieu, Longueur, Nb_couloir, Codif_fede, "
                            "Codif_inter, Codif_reg, Codif_depar, Num_Piscine) VALUES ('N1', 'C', 'Meeting', '%1', "
                            "'%1', 'Brest', %2, 8, 'Q', 'Q', 'Q', 'Q', %3)")
                 .arg(debut)
                 .arg(longueur)
                 .arg(NumPiscineNulle(*app)));
        return value(QStringLiteral("select max(AutoNum) from Rcomp"));
    }
    void perf(const QString& num, int code, const QString& tps, const QString& date, int bassin,
              const QString& lieu = QStringLiteral("Rennes"))
    {
        exec(QStringLiteral("INSERT INTO Liffn (Code_epreuve, Code_club, Num_Lic, Type_bassin, Date_perf, Tps, Lieu) "
                            "VALUES (%1, '%2', %3, %4, '%5', %6, '%7')")
                 .arg(code)
                 .arg(QLatin1String(kClub), num)
                 .arg(bassin)
                 .arg(date, tps, quote_sql(lieu)));
    }
    void entry(const QString& compet, const QString& num, int code, const QString& tps, int equipe = 0)
    {
        exec(QStringLiteral("INSERT INTO Engag (Num_compet, Num_profil, Code_epreuve, Num_Lic, Num_equipe, "
                            "Equipe_mixte, Tps_engagement, Date_perf, Lieu_perf, Bassin) VALUES (%1, %2, %3, %4, %5, "
                            "false, %6, '20241012', 'Lorient', 25)")
                 .arg(compet, app->state.profile_num)
                 .arg(code)
                 .arg(num)
                 .arg(equipe)
                 .arg(tps));
    }
    // The swimmer in the individual list of the competition.
    void individual(const QString& compet, const QString& num)
    {
        exec(QStringLiteral("INSERT INTO Engag_nageur (Num_profil, Num_compet, Num_Lic, Equipe, Equipe_m) VALUES "
                            "(%1, %2, %3, 0, false)")
                 .arg(app->state.profile_num, compet, num));
    }
    // The rows of Engag, "swimmer:code:time:date:place:pool", in order.
    QStringList entries(const QString& compet, const QString& table = QStringLiteral("Engag"))
    {
        const Rows rows = app->db.load_rows(
            QStringLiteral("select Num_Lic, Code_epreuve, Tps_engagement, Date_perf, Lieu_perf, Bassin from %1 "
                           "where Num_compet = %2 order by Num_Lic, Code_epreuve")
                .arg(table, compet));
        QStringList out;
        for (int r = 0; r < rows.size(); ++r) {
            QStringList cells;
            for (int c = 0; c < 6; ++c)
                cells << rows.value(r, c);
            out << cells.join(QLatin1Char(':'));
        }
        return out;
    }
    void exec(const QString& sql) { app->db.exec_sql(sql); }
    int count(const QString& sql) { return app->db.count_query(sql); }
    QString value(const QString& sql) { return app->db.load_rows(sql).first(); }
};

}  // namespace plouvarine::testing
