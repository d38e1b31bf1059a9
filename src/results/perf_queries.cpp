#include "src/results/perf_queries.h"

#include "src/base/sql_text.h"
#include "src/base/utils_date.h"

namespace plouvarine {

int PerfOptions::limit() const
{
    switch (nb_perf) {
    case 0:
        return -1;
    case 2: {
        bool ok = false;
        const int n = txt_nb_perf.trimmed().toInt(&ok);
        return ok ? n : 1;
    }
    default:
        return 1;
    }
}

QString PerfOptions::label_one() const
{
    return tri == 0 ? QStringLiteral("Dernière") : QStringLiteral("Meilleure");
}

PerfQueries construit_requetes_perf(const PerfOptions& options, const QString& club, const QString& today)
{
    PerfQueries q;
    q.individuel = QStringLiteral(
                       "SELECT Nage.Libelle, Liffn.Num_compet, Liffn.Tps, Liffn.Lieu, Liffn.Date_perf, "
                       "Liffn.Type_bassin, Liffn.Codif_Fede, Liffn.Codif_Inter, Liffn.Codif_Reg, Liffn.Codif_Depart, "
                       "Liffn.Passage_relais, Liffn.Tps_inter, Liffn.NumManuel ") +
                   QStringLiteral("FROM Nage Nage, Liffn Liffn ") +
                   QStringLiteral("WHERE Nage.Code_Nage = Liffn.Code_epreuve ") +
                   QStringLiteral("AND Liffn.Num_Lic = ") + kNumLicence;
    q.relais = QStringLiteral("SELECT Nage.Libelle, Liffn_relais.Num_compet, Liffn_relais.Tps, Liffn_relais.Lieu, "
                              "Liffn_relais.Date_perf, Liffn_relais.Type_bassin, Liffn_relais.Codif_Fede, "
                              "Liffn_relais.Codif_Inter, Liffn_relais.Codif_Reg, Liffn_relais.Codif_Depart, "
                              "Liffn_relais.Num_Lic, Liffn_relais.NumManuel ") +
               QStringLiteral("FROM Nage Nage, Liffn_relais Liffn_relais ") +
               QStringLiteral("WHERE Nage.Code_Nage = Liffn_relais.Code_epreuve ") +
               QStringLiteral("AND Liffn_relais.Code_club = ") + quote_sql(club);

    const QString s0 = DebutSaison(today);
    const QString s1 = DebutSaison(today, 1);
    if (options.saison == 0) {
        q.individuel += QStringLiteral(" AND Liffn.Date_perf >= '") + s0 + u'\'';
        q.relais += QStringLiteral(" AND Liffn_relais.Date_perf >= '") + s0 + u'\'';
    } else if (options.saison == 1) {
        const QString range = QStringLiteral(" AND %1.Date_perf >= '%2' AND %1.Date_perf < '%3' ");
        q.individuel += range.arg(QStringLiteral("Liffn"), s1, s0);
        q.relais += range.arg(QStringLiteral("Liffn_relais"), s1, s0);
    }

    if (!options.tps_inter)
        q.individuel += QStringLiteral(" AND Liffn.Tps_inter = false");
    if (!options.tps_relais)
        q.individuel += QStringLiteral(" AND Liffn.Passage_relais <> 'R'");
    if (options.selection)
        q.individuel += QStringLiteral(" AND Liffn.Code_club = ") + quote_sql(club);

    q.individuel += QStringLiteral(" ORDER BY liffn.Code_epreuve");
    q.relais += QStringLiteral(" ORDER BY Nage.Mixte DESC, Nage.Sexe, Nage.Nb_nageurs, Nage.Distance, Nage.Code_Nage ");
    if (options.tri == 0) {
        q.individuel += QStringLiteral(", liffn.Date_perf DESC");
        q.relais += QStringLiteral(", Liffn_relais.Date_perf DESC");
    } else {
        q.individuel += QStringLiteral(", liffn.Tps");
        q.relais += QStringLiteral(", Liffn_relais.Tps");
    }
    return q;
}

QString requete_nageurs_perf(const QString& club, bool selection)
{
    QString sql = QStringLiteral("SELECT Licence.Num, Licence.Nom, Licence.Prenom, Licence.Licence");
    if (selection)
        sql += QStringLiteral(", Club.Intitule");
    sql += QStringLiteral(", Licence.Date_Naissance ");
    sql += QStringLiteral("FROM Club Club, Licence Licence, Liffn Liffn ");
    if (selection)
        sql += QStringLiteral(", Selection Selection ");
    sql += QStringLiteral("WHERE Club.Code_federal = Licence.Code_Club AND Licence.Num = Liffn.Num_Lic AND ");
    if (selection)
        sql += QStringLiteral("Licence.Num = Selection.Num_Lic AND Selection.Code_Sel =") + quote_sql(club) + u' ';
    else
        sql += QStringLiteral("Licence.Code_Club = ") + quote_sql(club) + u' ';
    sql += QStringLiteral("GROUP BY Licence.Num, Licence.Nom, Licence.Prenom, Licence.Licence, Club.Intitule, "
                          "Licence.Date_Naissance ");
    sql += QStringLiteral("ORDER BY Licence.Nom, Licence.Prenom");
    return sql;
}

}  // namespace plouvarine
