#include "src/entries/relays.h"

#include "src/base/services.h"
#include "src/base/text.h"
#include "src/base/utils_date.h"
#include "src/base/utils_time.h"
#include "src/frame/app_context.h"

namespace plouvarine {

QString RelayKey::where() const
{
    return QStringLiteral(" where Num_profil = ") + profile + QStringLiteral(" and Num_compet = ") + compet +
           QStringLiteral(" and Code_epreuve = ") + code + QStringLiteral(" and Num_Lic = ") +
           QString::number(number) + team.filter();
}

int RelayLegs::code(int position) const
{
    if (free)
        return unit;
    static constexpr int kStroke[] = {10, 20, 30, 0};  // back, breast, fly, free
    return unit + kStroke[position % 4];
}

RelayLegs relay_legs(const QString& libelle)
{
    RelayLegs legs;
    const QString label = libelle.toLower();
    const qsizetype x = label.indexOf(QLatin1Char('x'));
    const qsizetype m = label.indexOf(QLatin1Char('m'), x + 1);
    if (x >= 0 && m > x)
        legs.distance = label.mid(x + 1, m - x - 1).trimmed().toInt();
    legs.free = label.contains(QStringLiteral("n.l."));
    switch (legs.distance) {
    case 50: legs.unit = 1; break;
    case 100: legs.unit = 2; break;
    case 200: legs.unit = 3; break;
    default: legs.unit = legs.distance; break;
    }
    return legs;
}

RelayTime calcul_temps_relais(AppContext& app, const QString& libelle, const std::vector<RelaySwimmer>& swimmers,
                              int longueur)
{
    const RelayLegs legs = relay_legs(libelle);
    const QString pool = longueur == 50 ? QStringLiteral("AND Type_bassin = 50") : QString();
    const QString since = DebutSaison(app.clock.today_text(), 2);
    RelayTime result;
    QString sum = QStringLiteral("0");
    for (size_t i = 0; i < swimmers.size(); ++i) {
        const int code = legs.code(int(i));
        const QString sql = QStringLiteral("SELECT Min(Tps) AS MinDeTps ") + QStringLiteral("FROM Liffn ") +
                            QStringLiteral("WHERE ((Code_epreuve = ") + QString::number(code) +
                            QStringLiteral(" Or Code_epreuve = ") + QString::number(code + 50) +
                            QStringLiteral(") AND Num_Lic = ") + swimmers[i].num + QLatin1Char(' ') + pool +
                            QStringLiteral(" AND Date_perf >= '") + since + QStringLiteral("')");
        const double best = text_to_double(app.db.load_rows(sql).first().replace(QLatin1Char(','), QLatin1Char('.')));
        if (best > 0) {
            sum = ajoute_temps(text_to_double(sum), best);
        } else {
            result.missing += QStringLiteral("- ") + swimmers[i].nom + QLatin1Char(' ') + swimmers[i].prenom +
                              QLatin1Char('\n');
            ++result.missing_count;
        }
    }
    if (result.ok())
        result.time = normalise_temps(sum);
    return result;
}

QString relay_time_message(const RelayTime& result)
{
    return QStringLiteral("Impossible de calculer le temps d'engagement ") + QStringLiteral("car ") +
           (result.missing_count > 1 ? QStringLiteral("des nageurs n'ont ") : QStringLiteral("un nageur n'a ")) +
           QStringLiteral("pas ") + QStringLiteral("de performances enregistrées utilisables pour ce relais :") +
           QLatin1Char('\n') + result.missing;
}

QString relay_insert_sql(const RelayKey& key, const QString& num_lic_nulle)
{
    QStringList empty;
    for (int i = 0; i < kRelayPlaces; ++i)
        empty << num_lic_nulle;
    return QStringLiteral("INSERT INTO Relais") + QStringLiteral(" VALUES (") + key.profile + QStringLiteral(", ") +
           key.compet + QStringLiteral(", ") + key.code + QStringLiteral(", ") + QString::number(key.number) +
           QStringLiteral(", ") + QString::number(key.team.number) + QStringLiteral(", ") + bool_text(key.team.mixed) +
           QStringLiteral(", 0, ") + empty.join(QStringLiteral(", ")) + QStringLiteral(");");
}

QString relay_save_sql(const RelayKey& key, const QString& time, const QStringList& swimmers,
                       const QString& num_lic_nulle)
{
    QStringList sets;
    if (!time.isEmpty())
        sets << QStringLiteral(" Tps = ") + time;
    for (int i = 0; i < kRelayPlaces; ++i)
        sets << QStringLiteral(" Licence") + QString::number(i + 1) + QStringLiteral(" = ") +
                    (i < swimmers.size() ? swimmers.at(i) : num_lic_nulle);
    return QStringLiteral("Update Relais Set") + sets.join(QLatin1Char(',')) + key.where();
}

bool save_relay_counts(AppContext& app, const QString& profile, const QString& compet, const Team& team,
                       std::vector<RelayCount>& counts)
{
    status_text(app.ui, QStringLiteral("Sauvegarde du nombre d'équipes pour les relais dans l'équipe en cours"));
    // A mixed team's relays and another team's of the same number share the
    // men's and women's events: the flag keeps them apart.
    const QString mixed_filter = QStringLiteral(" AND Equipe_mixte = ") + bool_text(team.mixed);
    try {
        for (RelayCount& count : counts) {
            if (count.nb_equipe < count.nb_equipe_ori)
                app.db.exec_sql(QStringLiteral("DELETE FROM Relais where Num_profil = ") + profile +
                                QStringLiteral(" AND Num_compet = ") + compet + QStringLiteral(" AND Num_equipe = ") +
                                QString::number(team.number) + mixed_filter + QStringLiteral(" AND Code_epreuve = ") +
                                count.code + QStringLiteral(" AND Num_Lic > ") + QString::number(count.nb_equipe));
            for (int number = count.nb_equipe_ori + 1; number <= count.nb_equipe; ++number)
                app.db.exec_sql(
                    relay_insert_sql({profile, compet, count.code, number, team}, app.state.num_lic_nulle));
            count.nb_equipe_ori = count.nb_equipe;
        }
    } catch (const std::exception& e) {
        status_text(app.ui, QString());
        msg_erreur(app.ui, QStringLiteral("Une erreur s'est produite lors de la sauvegarde du nombre d'équipe relais."),
                   &e);
        return false;
    }
    status_text(app.ui, QString());
    return true;
}

RelayRow load_relay(AppContext& app, const RelayKey& key)
{
    const Rows rows = app.db.load_rows(
        QStringLiteral("select Tps, Licence1, Licence2, Licence3, Licence4, Licence5, Licence6, Licence7, Licence8, "
                       "Licence9, Licence10 ") +
        QStringLiteral("from Relais ") + key.where().mid(1));
    RelayRow row;
    if (rows.empty())
        return row;
    row.tps = rows.value(0, 0);
    for (int i = 1; i <= kRelayPlaces; ++i)
        row.licences << rows.value(0, i);
    return row;
}

}  // namespace plouvarine
