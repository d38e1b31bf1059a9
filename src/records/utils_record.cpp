#include "src/records/utils_record.h"

#include "src/base/services.h"
#include "src/base/sql_text.h"
#include "src/base/utils_date.h"
#include "src/frame/app_context.h"

namespace plouvarine {

QString date_record(const QString& day, const QString& month, const QString& year, const QDate& today)
{
    QString d = day.trimmed();
    QString m = month.trimmed();
    const QString y = year.trimmed();
    if (!DateValide(y, m, d) || !JourValide(d.toInt(), m.toInt(), y.toInt()))
        return {};
    const QString date = ComposeDate(y, m, d);
    if (date > today.toString(QStringLiteral("yyyyMMdd")))
        return {};
    return date;
}

QString champs_manquants(const RecordEntry& entry)
{
    QStringList items;
    if (entry.nom.trimmed().isEmpty())
        items << QStringLiteral("Nom du détenteur");
    if (entry.tps <= 0)
        items << QStringLiteral("Temps réalisé");
    if (entry.date.isEmpty())
        items << QStringLiteral("Date de le performance");
    if (items.isEmpty())
        return {};
    return QStringLiteral("Impossible d'enregistrer le record car ") +
           (items.size() == 1 ? QStringLiteral("la donnée suivante est manquante : ")
                              : QStringLiteral("les données suivantes sont manquantes : ")) +
           QStringLiteral("\n") + items.join(u'\n');
}

bool verif_champs_record(AppContext& app, const RecordEntry& entry)
{
    const QString missing = champs_manquants(entry);
    if (missing.isEmpty())
        return true;
    msg_erreur(app.ui, missing);
    return false;
}

bool verif_record(AppContext& app, int k, const RecordEntry& entry)
{
    const Rows rows = app.db.load_rows(
        QStringLiteral("SELECT RecordClub.Tps, RecordClub.Date_perf ") +
        QStringLiteral("FROM Categori_record_club Categori_record_club, RecordClub RecordClub ") +
        QStringLiteral("WHERE Categori_record_club.Num_cat = RecordClub.Categorie ") +
        QStringLiteral("AND Categori_record_club.Code_Club=") + quote_sql(app.state.club_code) + QStringLiteral(" ") +
        QStringLiteral("AND Categori_record_club.Libelle=") + quote_sql(entry.libelle) + QStringLiteral(" ") +
        QStringLiteral("AND RecordClub.Code_nage=") + sql_number(entry.code_nage) + QStringLiteral(" ") +
        QStringLiteral("AND RecordClub.Bassin = ") + sql_number(entry.bassin) + QStringLiteral(" ") +
        QStringLiteral("ORDER BY RecordClub.Tps"));
    if (rows.size() < k)
        return true;
    const double beaten = rows.value(k - 1, 0).toDouble();
    const QString date = rows.value(k - 1, 1);
    if (entry.tps > beaten || entry.date < date) {
        msg_erreur(app.ui, QString::fromUtf8(kRecordRefuse));
        return false;
    }
    return true;
}

QString enregistre_record(AppContext& app, int k, const RecordEntry& entry, const QString& current)
{
    QString num = current;
    if (k == 1 || num.isEmpty())
        num = app.db.append_row(QStringLiteral("RecordClub"),
                                {{QStringLiteral("Categorie"), entry.categorie.toLongLong()},
                                 {QStringLiteral("Code_nage"), entry.code_nage},
                                 {QStringLiteral("Bassin"), entry.bassin}},
                                QStringLiteral("Num_auto"));
    QString sql = QStringLiteral("UPDATE RecordClub Set Tps = ") + sql_decimal(entry.tps) + QStringLiteral(", ") +
                  QStringLiteral("Nom = ") + quote_sql(entry.nom) + QStringLiteral(", Prenom = ") +
                  quote_sql(entry.prenom) + QStringLiteral(", Date_perf = ") + quote_sql(entry.date) +
                  QStringLiteral(", Lieu = ") + quote_sql(entry.lieu);
    for (int i = 1; i <= 10; ++i) {
        const QString name = i <= entry.relais.size() ? entry.relais[i - 1] : QStringLiteral(" ");
        sql += QStringLiteral(", Rel") + QString::number(i) + QStringLiteral(" = ") + quote_sql(name);
    }
    app.db.exec_sql(sql + QStringLiteral(" WHERE Num_auto = ") + sql_key(num));
    return num;
}

QString accepte_record(AppContext& app, int k, const RecordEntry& entry, const QString& current)
{
    if (!verif_champs_record(app, entry) || !verif_record(app, k, entry))
        return {};
    return enregistre_record(app, k, entry, current);
}

QString sexe_categorie(const QString& sexe_nage)
{
    const QString s = sexe_nage.trimmed().toUpper();
    if (s == QLatin1String("F"))
        return QStringLiteral("Femme");
    if (s == QLatin1String("M"))
        return QStringLiteral("Homme");
    return QStringLiteral("Mixte");
}

}  // namespace plouvarine
