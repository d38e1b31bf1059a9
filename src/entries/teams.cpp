#include "src/entries/teams.h"

#include "src/base/services.h"
#include "src/base/text.h"
#include "src/frame/app_context.h"
#include "src/licences/removed_swimmers.h"

namespace plouvarine {

namespace {

const QString kPrefix = QStringLiteral("Equipe ");
const QString kHomme = QStringLiteral("Homme");
const QString kFemme = QStringLiteral("Femme");
const QString kMixte = QStringLiteral("Mixte");
constexpr int kMaxTeams = 49;

// The men's or women's teams above the count: their swimmers, by the sex in
// Licence, become individual.
const QString kSwimmersBySex = QStringLiteral(
    "UPDATE <TABLE> <TABLE> SET <TABLE>.Equipe = 0, <TABLE>.Equipe_m = false "
    "WHERE <TABLE>.Equipe > <NUM_TEAM> AND <TABLE>.Equipe_m = false AND <KEY> AND "
    "EXISTS (SELECT Licence.Num FROM Licence Licence WHERE Licence.Sexe = '<SEXE_NAGEUR>' AND "
    "Licence.Num = <TABLE>.Num_Lic)");
const QString kSwimmersMixed = QStringLiteral(
    "UPDATE <TABLE> SET Equipe = 0, Equipe_m = false WHERE Equipe > <NUM_TEAM> AND Equipe_m = true AND <KEY>");
const QString kEntriesBySex = QStringLiteral(
    "DELETE FROM <TABLE> <TABLE> WHERE <TABLE>.Num_equipe > <NUM_TEAM> AND <TABLE>.Equipe_mixte = false AND "
    "<KEY> AND EXISTS (SELECT Licence.Num FROM Licence Licence WHERE Licence.Sexe = '<SEXE_NAGEUR>' AND "
    "Licence.Num = <TABLE>.Num_Lic)");
const QString kEntriesMixed = QStringLiteral(
    "DELETE FROM <TABLE> WHERE Num_equipe > <NUM_TEAM> AND Equipe_mixte = true AND <KEY>");
// Relays are kept apart by the sex of their event.
const QString kRelaysBySex = QStringLiteral(
    "DELETE FROM Relais Relais WHERE Relais.Num_equipe > <NUM_TEAM> AND Relais.Equipe_mixte = False AND <KEY> "
    "AND EXISTS (SELECT Nage.Code_Nage FROM Nage Nage WHERE Nage.Sexe = '<SEXE_NAGEUR>' AND "
    "Nage.Code_Nage = Relais.Code_epreuve)");
const QString kRelaysMixed = QStringLiteral(
    "DELETE FROM Relais WHERE Relais.Num_equipe > <NUM_TEAM> AND Relais.Equipe_mixte = true AND <KEY>");

QString table_name(const QString& base, const EntryScope& scope)
{
    return scope.modele ? base + QStringLiteral("_modele") : base;
}

}  // namespace

QString EntryScope::nageur_table() const { return table_name(QStringLiteral("Engag_nageur"), *this); }
QString EntryScope::equipe_table() const { return table_name(QStringLiteral("Engag_equipe"), *this); }
QString EntryScope::engag_table() const { return table_name(QStringLiteral("Engag"), *this); }

QString EntryScope::key_where(const QString& prefix) const
{
    if (modele)
        return prefix + QStringLiteral("Num_modele = ") + key;
    return prefix + QStringLiteral("Num_compet = ") + key + QStringLiteral(" and ") + prefix +
           QStringLiteral("Num_profil = ") + profile;
}

QString Team::filter(const QString& number_column, const QString& mixed_column) const
{
    return QStringLiteral(" and ") + number_column + QStringLiteral(" = ") + QString::number(number) +
           QStringLiteral(" and ") + mixed_column + QStringLiteral(" = ") + bool_text(mixed);
}

QString team_name(const Team& team)
{
    if (team.individual())
        return kIndividuel;
    const QString kind = team.mixed ? kMixte : team.sex == QLatin1String("M") ? kHomme : kFemme;
    return kPrefix + QString::number(team.number) + QLatin1Char(' ') + kind;
}

Team parse_team(const QString& text)
{
    Team team;
    if (!text.startsWith(kPrefix))
        return team;
    const QString rest = text.mid(kPrefix.size());
    const qsizetype blank = rest.indexOf(QLatin1Char(' '));
    team.number = rest.left(blank).toInt();
    const QString kind = blank < 0 ? QString() : rest.mid(blank + 1);
    if (kind == kHomme)
        team.sex = QStringLiteral("M");
    else if (kind == kFemme)
        team.sex = QStringLiteral("F");
    else if (kind == kMixte)
        team.mixed = true;
    return team;
}

int count_from_field(const QString& text)
{
    bool ok = false;
    const int value = text.trimmed().toInt(&ok);
    if (!ok || value < 0)
        return 0;
    return value > kMaxTeams ? kMaxTeams : value;
}

TeamCounts read_counts(AppContext& app, const EntryScope& scope)
{
    QString sql = QStringLiteral("SELECT Eq_Homme, Eq_Femme, Eq_Mixte") + QStringLiteral(" FROM <TABLE> where <ATTR> = ");
    sql.replace(QStringLiteral("<TABLE>"), scope.equipe_table());
    sql.replace(QStringLiteral("<ATTR>"), scope.modele ? QStringLiteral("Num_modele") : QStringLiteral("Num_compet"));
    sql += scope.key;
    if (!scope.modele)
        sql += QStringLiteral(" and Num_profil = ") + scope.profile;
    const Rows rows = app.db.load_rows(sql);
    if (rows.empty())
        return {};
    return {count_from_field(rows.value(0, 0)), count_from_field(rows.value(0, 1)),
            count_from_field(rows.value(0, 2))};
}

QStringList team_list(const TeamCounts& counts)
{
    QStringList list{kIndividuel};
    for (int n = 1; n <= counts.homme; ++n)
        list << team_name({n, false, QStringLiteral("M")});
    for (int n = 1; n <= counts.femme; ++n)
        list << team_name({n, false, QStringLiteral("F")});
    for (int n = 1; n <= counts.mixte; ++n)
        list << team_name({n, true, {}});
    return list;
}

void ExecTemplate(AppContext& app, const QString& sql, const QString& table, int num_team, const QString& sexe)
{
    QString statement = sql;
    statement.replace(QStringLiteral("<TABLE>"), table);
    statement.replace(QStringLiteral("<NUM_TEAM>"), QString::number(num_team));
    statement.replace(QStringLiteral("<SEXE_NAGEUR>"), sexe);
    app.db.exec_sql(statement);
}

bool apply_counts(AppContext& app, const EntryScope& scope, const TeamCounts& typed)
{
    const TeamCounts counts{count_from_field(QString::number(typed.homme)),
                            count_from_field(QString::number(typed.femme)),
                            count_from_field(QString::number(typed.mixte))};
    const QString table = scope.equipe_table();
    const QString key = scope.key_where();
    try {
        if (app.db.count_query(QStringLiteral("select count(*) from ") + table + QStringLiteral(" where ") + key) == 0)
            app.db.exec_sql(QStringLiteral("INSERT INTO ") + table + QStringLiteral(" VALUES (") + scope.key +
                            (scope.modele ? QString() : QStringLiteral(", ") + scope.profile) +
                            QStringLiteral(", 0, 0, 0);"));
        app.db.exec_sql(QStringLiteral("Update ") + table + QStringLiteral(" Set Eq_Homme = ") +
                        QString::number(counts.homme) + QStringLiteral(", Eq_Femme = ") +
                        QString::number(counts.femme) + QStringLiteral(", Eq_Mixte = ") +
                        QString::number(counts.mixte) + QStringLiteral(" where ") + key);

        // The key written over <TABLE>, so that each template names its own table.
        const QString table_key = scope.key_where(QStringLiteral("<TABLE>."));
        const auto with_key = [&](QString sql) { return sql.replace(QStringLiteral("<KEY>"), table_key); };
        struct Kind {
            int count;
            QString sex;
        };
        for (const Kind& kind : {Kind{counts.homme, QStringLiteral("M")}, Kind{counts.femme, QStringLiteral("F")}}) {
            ExecTemplate(app, with_key(kSwimmersBySex), scope.nageur_table(), kind.count, kind.sex);
            ExecTemplate(app, with_key(kEntriesBySex), scope.engag_table(), kind.count, kind.sex);
            if (!scope.modele)
                ExecTemplate(app, with_key(kRelaysBySex), QStringLiteral("Relais"), kind.count, kind.sex);
        }
        ExecTemplate(app, with_key(kSwimmersMixed), scope.nageur_table(), counts.mixte, {});
        ExecTemplate(app, with_key(kEntriesMixed), scope.engag_table(), counts.mixte, {});
        if (!scope.modele)
            ExecTemplate(app, with_key(kRelaysMixed), QStringLiteral("Relais"), counts.mixte, {});
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QStringLiteral("Une erreur s'est produite lors de l'exécution de l'opération."), &e);
        return false;
    }
    return true;
}

void AffecterEquipe(AppContext& app, const EntryScope& scope, const QString& swimmer, const Team& team)
{
    app.db.exec_sql(QStringLiteral("Update ") + scope.nageur_table() + QStringLiteral(" Set ") +
                    QStringLiteral("Equipe = ") + QString::number(team.number) + QStringLiteral(", Equipe_m = ") +
                    bool_text(team.mixed) + QStringLiteral(" where Num_Lic = ") + swimmer + QStringLiteral(" and ") +
                    scope.key_where());
}

QString team_members_sql(const EntryScope& scope, const Team& team, bool several_clubs)
{
    const QString t = scope.nageur_table();
    QString sql = QStringLiteral("SELECT Licence.Nom, Licence.Prenom, Licence.Licence, ") +
                  (several_clubs ? QStringLiteral("Club.Intitule,") : QString()) + QStringLiteral(" Licence.Num ") +
                  QStringLiteral("FROM Licence Licence") + QStringLiteral(",Club Club") + QStringLiteral(", ") + t +
                  QLatin1Char(' ') + t + QLatin1Char(' ') + QStringLiteral("WHERE ") +
                  QStringLiteral("Club.Code_federal = Licence.Code_Club AND ") + QStringLiteral("Licence.Num = ") + t +
                  QStringLiteral(".Num_Lic AND ") + scope.key_where(t + QLatin1Char('.')) + QStringLiteral(" AND ") +
                  t + QStringLiteral(".Equipe = ") + QString::number(team.number) + QStringLiteral(" AND ") + t +
                  QStringLiteral(".Equipe_m = ") + bool_text(team.mixed);
    if (!team.sex.isEmpty())
        sql += QStringLiteral(" AND Licence.Sexe = '") + team.sex + QLatin1Char('\'');
    return sql + QStringLiteral(" AND Licence.Visible = true ORDER BY Licence.Nom, Licence.Prenom");
}

QString team_candidates_sql(AppContext& app, const EntryScope& scope, const Team& team)
{
    const bool selection = app.state.club_selection;
    const QString code = quote_sql(app.state.club_code);
    QString sql =
        selection ? QStringLiteral("SELECT Licence.Licence, Licence.Nom, Licence.Prenom, Licence.Num, Club.Intitule ") +
                        QStringLiteral("FROM Club Club, Licence Licence, Selection Selection ") +
                        QStringLiteral("WHERE Club.Code_federal = Licence.Code_club and Licence.Num = Selection.Num_Lic "
                                       "and ") +
                        QStringLiteral("Selection.Code_Sel =  '") + code +
                        QStringLiteral("' and Selection.Visible = true and Licence.Visible = true")
                  : QStringLiteral("SELECT Licence, Nom, Prenom, Num FROM Licence ") +
                        QStringLiteral("where Code_Club = '") + code + QStringLiteral("' and Visible = true");
    const QString t = scope.nageur_table();
    sql += QStringLiteral(" AND NOT (") + (selection ? QStringLiteral("Licence.") : QString()) +
           QStringLiteral("Num IN ") + QStringLiteral("(SELECT Num_Lic FROM ") + t + QStringLiteral(" WHERE ") +
           scope.key_where() + QStringLiteral(" AND NOT (") + t + QStringLiteral(".Equipe = 0 AND ") + t +
           QStringLiteral(".Equipe_m = false) AND not (") + t + QStringLiteral(".Equipe = ") +
           QString::number(team.number) + QStringLiteral(" AND ") + t + QStringLiteral(".Equipe_m = ") +
           bool_text(team.mixed) + QStringLiteral(")))");
    if (!team.sex.isEmpty())
        sql += QStringLiteral(" and ") + QStringLiteral("Sexe = '") + team.sex + QLatin1Char('\'');
    return sql + QStringLiteral(" order by ") + QStringLiteral("Nom, ") + QStringLiteral("Prenom");
}

bool AjouterDansEquipe(AppContext& app, const EntryScope& scope, const QString& swimmer, const Team& team)
{
    try {
        const QString count =
            scope.modele ? QStringLiteral("select count(*) from Engag_nageur_modele ") +
                               QStringLiteral("where Num_modele = ") + scope.key + QStringLiteral(" And Num_Lic = ") +
                               swimmer
                         : QStringLiteral("select count(*) from Engag_nageur where Num_compet = ") + scope.key +
                               QStringLiteral(" and Num_Lic = ") + swimmer + QStringLiteral(" and Num_profil = ") +
                               scope.profile;
        if (app.db.count_query(count) >= 1) {
            AffecterEquipe(app, scope, swimmer, team);
            return true;
        }
        const QString owner = scope.modele ? QStringLiteral("INSERT INTO Engag_nageur_modele (Num_modele")
                                           : QStringLiteral("INSERT INTO Engag_nageur (Num_profil, Num_compet");
        const QString key = scope.modele ? scope.key : scope.profile + QStringLiteral(", ") + scope.key;
        app.db.exec_sql(owner + QStringLiteral(", Num_Lic") + QStringLiteral(", Equipe, Equipe_m") +
                        QStringLiteral(") ") + QStringLiteral("VALUES (") + key + QStringLiteral(", ") + swimmer +
                        QStringLiteral(", ") + QString::number(team.number) + QStringLiteral(", ") +
                        bool_text(team.mixed) + QStringLiteral(");"));
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QStringLiteral("Une erreur s'est produite lors de l'opération."), &e);
        return false;
    }
    return true;
}

void EffacerEngagNageur(AppContext& app, const EntryScope& scope, const QString& swimmer, const Team& team)
{
    app.db.exec_sql(scope.modele ? QStringLiteral("delete from Engag_modele where Num_modele = ") + scope.key +
                                       QStringLiteral(" and Num_Lic = ") + swimmer + team.filter()
                                 : QStringLiteral("delete from Engag where Num_compet = ") + scope.key +
                                       QStringLiteral(" and Num_Lic = ") + swimmer +
                                       QStringLiteral(" and Num_profil = ") + scope.profile + team.filter());
}

bool RetirerDeLEquipe(AppContext& app, const EntryScope& scope, const QString& swimmer, const Team& team)
{
    try {
        EffacerEngagNageur(app, scope, swimmer, team);
        AffecterEquipe(app, scope, swimmer, {});
        if (!scope.modele)
            RetirerDesRelais(app, swimmer, scope.key, team.number, team.mixed, scope.profile);
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QStringLiteral("Une erreur s'est produite lors de l'opération."), &e);
        return false;
    }
    return true;
}

void SnapNageurCompet(AppContext& app, const QString& num)
{
    app.db.exec_sql(
        QStringLiteral("update Engag_nageur set Old_equipe = Equipe, Old_equipe_m = Equipe_m where Num_compet = ") +
        num + QStringLiteral(" and Num_profil = ") + app.state.profile_num);
}

void SnapNageurModele(AppContext& app, const QString& num)
{
    app.db.exec_sql(QStringLiteral("update Engag_nageur_modele set Old_equipe = Equipe, Old_equipe_m = Equipe_m "
                                   "where Num_modele = ") +
                    num);
}

void SnapEquipeCompet(AppContext& app, const QString& num)
{
    app.db.exec_sql(QStringLiteral("update Engag_equipe set Old_Eq_Homme = Eq_Homme, Old_Eq_Femme = Eq_Femme, "
                                   "Old_Eq_Mixte = Eq_Mixte where Num_compet = ") +
                    num + QStringLiteral(" and Num_profil = ") + app.state.profile_num);
}

void SnapEquipeModele(AppContext& app, const QString& num)
{
    app.db.exec_sql(QStringLiteral("update Engag_equipe_modele set Old_Eq_Homme = Eq_Homme, Old_Eq_Femme = "
                                   "Eq_Femme, Old_Eq_Mixte = Eq_Mixte where Num_modele = ") +
                    num);
}

void snap_pass(AppContext& app, const EntryScope& scope)
{
    if (scope.modele) {
        SnapNageurModele(app, scope.key);
        SnapEquipeModele(app, scope.key);
    } else {
        SnapNageurCompet(app, scope.key);
        SnapEquipeCompet(app, scope.key);
    }
}

void RestaurerNageur(AppContext& app, const QString& table, const QString& where)
{
    app.db.exec_sql(QStringLiteral("Update ") + table +
                    QStringLiteral(" Set Equipe = Old_equipe, Equipe_m = Old_equipe_m where ") + where);
}

void RestaurerEquipe(AppContext& app, const QString& table, const QString& where)
{
    app.db.exec_sql(QStringLiteral("update ") + table +
                    QStringLiteral(" set Eq_Homme = Old_Eq_Homme, Eq_Femme = Old_Eq_Femme, Eq_Mixte = Old_Eq_Mixte "
                                   "where ") +
                    where);
}

void EffacerTable(AppContext& app, const QString& table, const QString& where)
{
    app.db.exec_sql(QStringLiteral("Delete from ") + table + QStringLiteral(" where ") + where);
}

bool CopierEtat(AppContext& app, const QString& table, const QString& source, const QString& profile,
                const QString& compet)
{
    try {
        app.db.exec_sql(QStringLiteral("Delete from ") + table + QStringLiteral(" where Num_profil = ") + profile +
                        QStringLiteral(" and Num_compet = ") + compet);
        app.db.exec_sql(QStringLiteral("INSERT INTO ") + table + QLatin1Char(' ') + QStringLiteral("SELECT ") +
                        source + QStringLiteral(".* ") + QStringLiteral("From ") + source + QLatin1Char(' ') +
                        QStringLiteral("WHERE (((") + source + QStringLiteral(".Num_profil) = ") + profile +
                        QStringLiteral(") AND ((") + source + QStringLiteral(".Num_compet)= ") + compet +
                        QStringLiteral("));"));
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QStringLiteral("Une erreur s'est produite lors de la sauvegarde dans la table ") + table,
                   &e);
        return false;
    }
    return true;
}

void undo_team_pass(AppContext& app, const EntryScope& scope)
{
    RestaurerNageur(app, scope.nageur_table(), scope.key_where());
    RestaurerEquipe(app, scope.equipe_table(), scope.key_where());
}

void end_team_pass(AppContext& app, const EntryScope& scope)
{
    const QString key = scope.key_where();
    app.db.exec_sql(QStringLiteral("Update ") + scope.nageur_table() +
                    QStringLiteral(" Set Old_equipe = 0, Old_equipe_m = false where ") + key);
    app.db.exec_sql(QStringLiteral("Delete from ") + scope.nageur_table() +
                    QStringLiteral(" where Equipe = 0 and Equipe_m = false and ") + key);
    app.db.exec_sql(QStringLiteral("Update ") + scope.equipe_table() +
                    QStringLiteral(" set Old_Eq_Homme = 0, Old_Eq_Femme = 0, Old_Eq_Mixte = 0 where ") + key);
}

}  // namespace plouvarine
