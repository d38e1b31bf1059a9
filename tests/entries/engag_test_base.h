#pragma once
// The entry bases of the teams and relays, with what the individual entries
// and their window need besides: competitions on a given date, performances
// with their place, swimmers in "Individuel", and the rows of Engag.

#include "entries/entries_test_base.h"
#include "src/clubs/pools.h"
#include "src/store/sentinels.h"

namespace plouvarine::testing {

class EngagBase : public EntriesBase {
protected:
    void SetUp() override
    {
        EntriesBase::SetUp();
        app->state.club_name = QStringLiteral("Brest Natation");
        check_piscine_reference(app->db, app->ui);
    }
    // Hides the base's helper of the same name: the first name comes second.
    QString swimmer(const QString& nom, const QString& prenom, const QString& sexe)
    {
        return EntriesBase::swimmer(nom, sexe, prenom);
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
        EntriesBase::perf(num, code, tps, date, bassin);
        exec(QStringLiteral("UPDATE Liffn SET Lieu = %1 WHERE rowid = last_insert_rowid()").arg(quote_sql(lieu).text()));
    }
    // An individual entry of competition `compet`.
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
    QStringList entries(const QString& compet)
    {
        return dump(QStringLiteral("select Num_Lic, Code_epreuve, Tps_engagement, Date_perf, Lieu_perf, Bassin "
                                   "from Engag where Num_compet = %1 order by Num_Lic, Code_epreuve")
                        .arg(compet));
    }
};

}  // namespace plouvarine::testing
