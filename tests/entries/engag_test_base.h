#pragma once
// The entry base with what the individual entries need besides: competitions
// on a given date, performances with their place, swimmers in "Individuel".

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
        app->db.append_row(QStringLiteral("Engag"),
                           {{"Num_compet", compet}, {"Num_profil", app->state.profile_num}, {"Code_epreuve", code},
                            {"Num_Lic", num}, {"Num_equipe", equipe}, {"Equipe_mixte", false},
                            {"Tps_engagement", tps.toDouble()}, {"Date_perf", "20241012"}, {"Lieu_perf", "Lorient"},
                            {"Bassin", 25}},
                           QStringLiteral("Num_Lic"));
    }
    // The swimmer in the individual list of the competition.
    void individual(const QString& compet, const QString& num)
    {
        app->db.append_row(QStringLiteral("Engag_nageur"),
                           {{"Num_profil", app->state.profile_num}, {"Num_compet", compet}, {"Num_Lic", num},
                            {"Equipe", 0}, {"Equipe_m", false}},
                           QStringLiteral("Num_Lic"));
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
