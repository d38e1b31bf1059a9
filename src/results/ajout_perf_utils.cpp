#include "src/results/ajout_perf_utils.h"

#include "src/base/services.h"
#include "src/base/sql_text.h"
#include "src/base/utils_date.h"
#include "src/base/utils_time.h"
#include "src/frame/app_context.h"

namespace plouvarine {

QString PerfEntry::date() const
{
    QString month = txt_info[kFieldMois].trimmed();
    QString day = txt_info[kFieldJour].trimmed();
    return ComposeDate(txt_info[kFieldAnnee].trimmed(), month, day);
}

void PerfEntry::leave_time()
{
    if (!txt_info[kFieldTemps].isEmpty())
        txt_info[kFieldTemps] = normalise_temps(txt_info[kFieldTemps]);
}

QString caption_bassin(int index)
{
    return index == 1 ? QStringLiteral("50 m") : QStringLiteral("25 m");
}

QString codif_choisie(int option)
{
    switch (option) {
    case 0:
        return QStringLiteral("Q");
    case 1:
        return QStringLiteral("R");
    case 2:
        return QStringLiteral("A");
    default:
        return QStringLiteral(" ");
    }
}

void efface_codifs(PerfEntry& entry)
{
    entry.codif = {-1, -1, -1, -1};
}

void efface_saisie_perf(PerfEntry& entry)
{
    efface_codifs(entry);
    for (QString& text : entry.txt_info)
        text.clear();
    entry.chk_relais = false;
    entry.chk_inter = false;
    entry.chk_sel = false;
}

bool verif_saisie_perf(AppContext& app, PerfEntry& entry, int nb_relayeurs, int composition)
{
    const auto refuse = [&](const QString& item, int focus) {
        msg_erreur(app.ui, QStringLiteral("Veuillez spécifier ") + item + u'.');
        entry.focus = focus;
        return false;
    };
    if (normalise_temps(entry.txt_info[kFieldTemps]).toDouble() == 0)
        return refuse(QStringLiteral("le temps réalisé"), kFieldTemps);
    if (entry.txt_info[kFieldLieu].trimmed().isEmpty())
        return refuse(QStringLiteral("le lieu de la performance"), kFieldLieu);
    const QString year = entry.txt_info[kFieldAnnee].trimmed();
    const QString month = entry.txt_info[kFieldMois].trimmed();
    const QString day = entry.txt_info[kFieldJour].trimmed();
    if (!DateValide(year, month, day) || !JourValide(day.toInt(), month.toInt(), year.toInt()) ||
        entry.date() > app.clock.today_text())
        return refuse(QStringLiteral("une date valide pour la performance"), kFieldJour);
    if (nb_relayeurs > 0 && composition < nb_relayeurs)
        return refuse(QStringLiteral("la composition complète du relais."), kFocusLicences);
    return true;
}

int prochain_num_manuel(AppContext& app, const QString& table)
{
    const QString max =
        app.db.load_rows(QStringLiteral("SELECT Max(NumManuel) ") + QStringLiteral("FROM ") + table + u' ' +
                         QStringLiteral("WHERE Num_compet = 0"))
            .first();
    return max.toInt() + 1;
}

int age_perf(const QString& naissance, const QString& date_perf)
{
    return date_perf.left(4).toInt() - naissance.left(4).toInt();
}

bool enregistre_perf(AppContext& app, const PerfEntry& entry, bool relay, const PerfTarget& target)
{
    try {
        const QString table = relay ? QStringLiteral("Liffn_relais") : QStringLiteral("Liffn");
        const int numero = prochain_num_manuel(app, table);
        const QString date = entry.date();
        QString sql = QStringLiteral("INSERT INTO ") + table + u' ' + QStringLiteral("VALUES (") +
                      sql_key(target.code_epreuve) + QStringLiteral(", ") + quote_sql(target.club) +
                      QStringLiteral(", ") + sql_key(relay ? QStringLiteral("1") : target.num_lic) +
                      QStringLiteral(", ") + caption_bassin(entry.opt_bassin).left(2) + QStringLiteral(", ") +
                      quote_sql(date) + QStringLiteral(", ") + normalise_temps(entry.txt_info[kFieldTemps]) +
                      QStringLiteral(", ") + quote_sql(entry.txt_info[kFieldLieu]);
        if (relay) {
            for (const QString& num : target.relayeurs)
                sql += QStringLiteral(", ") + sql_key(num);
            for (qsizetype i = target.relayeurs.size(); i < 10; ++i)
                sql += QStringLiteral(", ") + sql_key(app.state.num_lic_nulle);
        }
        QStringList codifs;
        for (int option : entry.codif)
            codifs << codif_choisie(option);
        sql += QStringLiteral(", '") + codifs.join(QStringLiteral("', '")) + u'\'';
        if (!relay) {
            sql += QStringLiteral(", ") + (entry.chk_relais ? QStringLiteral("'R'") : QStringLiteral("' '"));
            sql += QStringLiteral(", ") + bool_text(entry.chk_inter);
            sql += QStringLiteral(", ") + sql_number(age_perf(target.naissance, date));
        }
        sql += QStringLiteral(", 0, ") + sql_number(numero) + u')';

        QString question = QStringLiteral("Enregistrer la nouvelle perfomance sur le ") + target.libelle + u'\n';
        if (!relay)
            question += QStringLiteral(" pour ") + target.nom_complet;
        question += QStringLiteral(" avec le temps ") + affiche_temps(entry.txt_info[kFieldTemps]) +
                    QStringLiteral(" ?");
        if (msg_confirm(app.ui, question, kDefaultYes) != Button::Yes)
            return false;
        app.db.exec_sql(sql);
        return true;
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QStringLiteral("Erreur lors de l'insertion de la nouvelle performance."), &e);
        return false;
    }
}

}  // namespace plouvarine
