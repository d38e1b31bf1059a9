#include "src/entries/utils_engag.h"

#include "src/base/services.h"
#include "src/base/sql_text.h"
#include "src/base/text.h"
#include "src/base/utils_date.h"
#include "src/base/utils_time.h"
#include "src/frame/app_context.h"
#include "src/store/database.h"

namespace plouvarine {

int RowOfCode(int code)
{
    return code >= 50 ? code - 50 : code;
}

int CodeOffset(const QString& sexe)
{
    return sexe == QLatin1String("M") ? 50 : 0;
}

PanelEvents ChargerEpreuves(Database& db)
{
    PanelEvents events{};
    const Rows rows = db.load_rows(QStringLiteral("select Code_Nage, Libelle, Possible_50 from Nage "
                                                  "where Code_Nage < 50 and Nb_nageurs = 1 and Mixte = false"));
    for (int r = 0; r < rows.size(); ++r) {
        const int code = rows.value(r, 0).toInt();
        if (code < 0 || code >= kPanelRows)
            continue;
        QString label = rows.value(r, 1).trimmed();
        if (label.endsWith(QLatin1String(" Dames")))
            label.chop(6);
        events[size_t(code)] = {true, label, rows.value(r, 2) == QLatin1String("Vrai")};
    }
    return events;
}

QString DebutPerf(const QString& debut_compet)
{
    return debut_compet.size() == 8 ? DebutSaison(debut_compet, 1) : QString();
}

QString ChercherPerfsSql(const QString& swimmer, const QString& debut_perf)
{
    return QStringLiteral("SELECT Tps, Lieu, Date_perf, Code_epreuve, Type_bassin ") + QStringLiteral("From Liffn ") +
           QStringLiteral("Where Num_lic = ") + swimmer + QStringLiteral(" AND Date_perf >= '") + debut_perf +
           QStringLiteral("' ") + QStringLiteral("ORDER BY Code_epreuve, Tps");
}

TabPerf ChercherPerfs(Database& db, const QString& swimmer, const QString& debut_perf)
{
    TabPerf tab{};
    const Rows rows = db.load_rows(ChercherPerfsSql(swimmer, debut_perf));
    int last_code = -1;
    for (int r = 0; r < rows.size(); ++r) {
        const int code = rows.value(r, 3).toInt();
        if (code == last_code)
            continue;  // a slower time of the same event
        last_code = code;
        const int row = RowOfCode(code);
        if (row < 0 || row >= kPanelRows)
            continue;
        tab[size_t(row)] = {normalise_temps(rows.value(r, 0)), rows.value(r, 1), rows.value(r, 2), rows.value(r, 4)};
    }
    return tab;
}

QString AfficherEngagSql(const EntryScope& scope, const Team& team, const QString& swimmer)
{
    if (scope.modele)
        return QStringLiteral("select Code_epreuve from Engag_modele ") + QStringLiteral("where Num_modele = ") +
               scope.key + QStringLiteral(" and Num_Lic = ") + swimmer + team.filter();
    return QStringLiteral("select Code_epreuve, Tps_engagement, Lieu_perf, Date_perf, Bassin from Engag ") +
           QStringLiteral("where Num_compet = ") + scope.key + QStringLiteral(" and Num_Lic = ") + swimmer +
           QStringLiteral(" and Num_profil = ") + scope.profile + team.filter();
}

void AfficherEngagNageur(Database& db, const EntryScope& scope, const Team& team, const QString& swimmer,
                         const PanelEvents& events, EngagPanel& panel)
{
    const Rows rows = db.load_rows(AfficherEngagSql(scope, team, swimmer));
    for (int r = 0; r < rows.size(); ++r) {
        const int row = RowOfCode(rows.value(r, 0).toInt());
        if (row < 0 || row >= kPanelRows)
            continue;
        EngagRow& entry = panel[size_t(row)];
        entry.checked = true;
        if (scope.modele)
            continue;
        entry.temps = normalise_temps(rows.value(r, 1));
        entry.lieu = rows.value(r, 2);
        AfficheDate(entry.jour, entry.mois, entry.annee, rows.value(r, 3));
        entry.bassin_50 = rows.value(r, 4).toInt() == 50 && events[size_t(row)].possible_50;
    }
}

QString InsertEngagSql(const EntryScope& t, const Team& team, const QString& swimmer, int offset, int row,
                       const EngagRow& entry, bool possible_50)
{
    QString sql = t.modele ? QStringLiteral("INSERT INTO Engag_modele") : QStringLiteral("INSERT INTO Engag");
    sql += QStringLiteral(" (Code_epreuve") + QStringLiteral(", Num_Lic") + QStringLiteral(", Num_equipe, Equipe_mixte");
    sql += t.modele ? QStringLiteral(", Num_modele") : QStringLiteral(", Num_profil, Num_compet");
    if (!t.modele)
        sql += QStringLiteral(", Tps_engagement") + QStringLiteral(", Date_perf, Lieu_perf") + QStringLiteral(", Bassin");
    // The column list closes before VALUES.
    sql += QStringLiteral(")") + QStringLiteral(" VALUES (");
    sql += QString::number(row + offset) + QStringLiteral(", ") + swimmer + QStringLiteral(", ") +
           QString::number(team.number) + QStringLiteral(", ") + bool_text(team.mixed);
    if (t.modele)
        return sql + QStringLiteral(", ") + t.key + QStringLiteral(")");
    sql += QStringLiteral(", ") + t.profile + QStringLiteral(", ") + t.key;
    const QString temps = normalise_temps(entry.temps);
    sql += QStringLiteral(", ") + (text_to_double(temps) > 0 ? temps : QStringLiteral("0"));
    if (DateValide(entry.annee, entry.mois, entry.jour)) {
        QString mois = entry.mois;
        QString jour = entry.jour;
        sql += QStringLiteral(", '") + ComposeDate(entry.annee, mois, jour) + QStringLiteral("'");
    } else {
        sql += QStringLiteral(", ''");
    }
    sql += QStringLiteral(", ") + quote_sql(entry.lieu);
    sql += possible_50 && entry.bassin_50 ? QStringLiteral(", 50") : QStringLiteral(", 25");
    return sql + QStringLiteral(")");
}

bool SaveEngagNageur(AppContext& app, const EntryScope& scope, const Team& team, const QString& swimmer,
                     const PanelEvents& events, const EngagPanel& panel)
{
    const QString failed = QStringLiteral("Une erreur s'est produite lors de la sauvegarde des engagements.");
    status_text(app.ui, QStringLiteral("Sauvegarde des engagements du nageur en cours"));
    bool ok = true;
    try {
        const Rows licence = app.db.load_rows(QStringLiteral("select Sexe from Licence where Num = ") + swimmer);
        if (licence.empty()) {
            // Deleted meanwhile in another window: nothing of his is written.
            msg_erreur(app.ui, failed);
            ok = false;
        } else {
            const int offset = CodeOffset(licence.first());
            EffacerEngagNageur(app, scope, swimmer, team);
            for (int row = 0; row < kPanelRows; ++row)
                if (panel[size_t(row)].checked)
                    app.db.exec_sql(InsertEngagSql(scope, team, swimmer, offset, row, panel[size_t(row)],
                                                   events[size_t(row)].possible_50));
        }
    } catch (const std::exception& e) {
        msg_erreur(app.ui, failed, &e);
        ok = false;
    }
    status_text(app.ui, QString());
    return ok;
}

bool CopierVersTempo(AppContext& app, const QString& profile, const QString& compet, bool back)
{
    const QString engag = QStringLiteral("Engag");
    const QString tempo = QStringLiteral("Engag_tempo");
    return back ? CopierEtat(app, engag, tempo, profile, compet) : CopierEtat(app, tempo, engag, profile, compet);
}

void RecopierModele(AppContext& app, const QString& modele)
{
    EffacerTable(app, QStringLiteral("Engag_modele"), QStringLiteral("Num_modele = ") + modele);
    app.db.exec_sql(QStringLiteral("INSERT INTO Engag_modele ( Num_modele, Code_epreuve, Num_Lic, Num_equipe, "
                                   "Equipe_mixte ) ") +
                    QStringLiteral("SELECT Engag_tempo.Num_compet, Engag_tempo.Code_epreuve, Engag_tempo.Num_Lic, "
                                   "Engag_tempo.Num_equipe, Engag_tempo.Equipe_mixte ") +
                    QStringLiteral("FROM Engag_tempo ") + QStringLiteral("WHERE Engag_tempo.Num_compet = ") + modele);
}

}  // namespace plouvarine
