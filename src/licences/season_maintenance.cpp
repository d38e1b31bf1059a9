#include "src/licences/season_maintenance.h"

#include "src/licences/removed_swimmers.h"
#include "src/frame/app_context.h"
#include "src/base/sql_text.h"
#include "src/base/utils_date.h"

namespace plouvarine {

namespace {

QString replace_all(QString text, const QString& from, const QString& to)
{
    return text.replace(from, to);
}

QString stored(const QDate& date)
{
    return date.toString(QStringLiteral("yyyyMMdd"));
}

}  // namespace

void AjouteASelection(AppContext& app, const QString& code_sel, const QString& num)
{
    const SqlText code = quote_sql(code_sel);
    const int present = app.db.count_query(QStringLiteral("select count(*) from Selection where Code_Sel = ") + code +
                                           QStringLiteral(" and Num_Lic = ") + sql_key(num));
    if (present > 0)
        app.db.exec_sql(QStringLiteral("UPDATE Selection Set Visible = true ") + QStringLiteral("Where Code_Sel = ") +
                        code + QStringLiteral(" and Num_Lic = ") + sql_key(num));
    else
        app.db.exec_sql(QStringLiteral("INSERT INTO Selection (Code_Sel, Num_Lic) ") + QStringLiteral("VALUES (") +
                        code + QStringLiteral(", ") + sql_key(num) + QStringLiteral(");"));
}

void SupprimeEngagementsLicences(AppContext& app, bool selection, const QString& code_text, const QString& condition)
{
    const SqlText code = quote_sql(code_text);
    const QString not_run = QStringLiteral("select AutoNum from RComp where deroule = false");
    if (selection) {
        const QString entries =
            QStringLiteral("Delete ") + QStringLiteral("FROM Engag Engag ") +
            QStringLiteral("WHERE exists (SELECT Rcomp.AutoNum ") +
            QStringLiteral("FROM Rcomp Rcomp WHERE Rcomp.Visible=True AND Rcomp.AutoNum = Engag.Num_compet) AND ") +
            QStringLiteral("exists (SELECT Profil.Num ") + QStringLiteral("FROM Profil Profil WHERE Profil.Code_club=") +
            code + QStringLiteral(" AND Profil.Num = Engag.Num_profil) AND ") +
            QStringLiteral("exists (SELECT Selection.Num_Lic ") +
            QStringLiteral("FROM Selection Selection WHERE Selection.Suppr = true AND Selection.Code_Sel = ") + code +
            QStringLiteral(" AND Selection.Num_Lic = Engag.Num_Lic)");
        app.db.exec_sql(entries);
        app.db.exec_sql(replace_all(entries, QStringLiteral("Engag"), QStringLiteral("Engag_nageur")));
        const QString models =
            QStringLiteral("DELETE ") + QStringLiteral("FROM Engag_nageur_modele Engag_nageur_modele ") +
            QStringLiteral("WHERE exists (SELECT Modele_engag.Num_profil ") +
            QStringLiteral("FROM Modele_engag Modele_engag, Profil Profil ") +
            QStringLiteral("WHERE Profil.Num = Modele_engag.Num_profil AND Profil.Code_club = ") + code +
            QStringLiteral(" AND Modele_engag.NumAuto = Engag_nageur_modele.Num_modele) AND ") +
            QStringLiteral("exists (SELECT Selection.Num_Lic ") + QStringLiteral("FROM Selection Selection ") +
            QStringLiteral("WHERE Selection.Code_Sel = ") + code +
            QStringLiteral(" AND Selection.Suppr = True AND Engag_nageur_modele.Num_Lic = Selection.Num_Lic)");
        app.db.exec_sql(models);
        app.db.exec_sql(replace_all(models, QStringLiteral("Engag_nageur_modele"), QStringLiteral("Engag_modele")));
        app.db.exec_sql(QStringLiteral("Update Selection set Suppr = false ") + QStringLiteral("where Code_Sel = ") +
                        code + QStringLiteral(" ") + QStringLiteral("and Suppr = true"));
        // The marks are gone by now, so this list is empty: the relays of a
        // selection keep their swimmers, as they always have.
        RetirerDesRelais(app,
                         QStringLiteral("select Num_Lic from Selection ") + QStringLiteral("where Code_Sel = ") +
                             code + QStringLiteral(" ") + QStringLiteral("and Suppr = true and visible = false"),
                         not_run, std::nullopt, std::nullopt, app.state.profile_num);
        return;
    }
    const QString swimmers = condition.isEmpty() ? QStringLiteral("select Num from Licence_tempo") : condition;
    const QString entries = QStringLiteral("DELETE * from Engag ") + QStringLiteral("WHERE Num_Lic in (") + swimmers +
                            QStringLiteral(") AND ") +
                            QStringLiteral("Engag.Num_compet in (select Rcomp.AutoNum from Rcomp where Rcomp.Visible=True)");
    app.db.exec_sql(entries);
    app.db.exec_sql(replace_all(entries, QStringLiteral("Engag"), QStringLiteral("Engag_nageur")));
    const QString models =
        QStringLiteral("Delete from Engag_nageur_modele ") + QStringLiteral("where Num_Lic in (") + swimmers + QStringLiteral(")");
    app.db.exec_sql(models);
    app.db.exec_sql(replace_all(models, QStringLiteral("Engag_nageur_modele"), QStringLiteral("Engag_modele")));
    if (condition.isEmpty()) {
        app.db.exec_sql(QStringLiteral("Update Licence Set Date_suppr = ") + quote_sql(app.clock.today_text()) +
                        QStringLiteral(" where Num in (select Num from Licence_tempo)"));
        app.db.exec_sql(QStringLiteral("Update Selection set Visible = false ") + QStringLiteral("where Num_Lic in (") +
                        swimmers + QStringLiteral(")"));
    }
    RetirerDesRelais(app, swimmers, not_run);
}

void PurgeLicences(AppContext& app)
{
    const QString limit = stored(app.clock.today().addYears(-2));
    app.db.exec_sql(QStringLiteral("UPDATE Licence SET Licence = Num") +
                    QStringLiteral(" WHERE Visible = false AND Date_suppr < ") + quote_sql(limit));
}

void MajSaisonLicences(AppContext& app)
{
    const Rows info = app.db.load_rows(QStringLiteral("select LastUpdtLic from Info"));
    if (info.empty())
        return;
    const QString last = info.first();
    const QDate today = app.clock.today();
    const QString today_text = stored(today);
    if (!last.isEmpty()) {
        const QDate last_date = QDate::fromString(last, QStringLiteral("yyyyMMdd"));
        const QString year_on = last_date.isValid() ? stored(last_date.addYears(1)) : QString();
        if (today_text >= last && today_text < year_on)
            return;
    }
    const QString d = DebutSaison(today_text, 0);
    app.db.exec_sql(QStringLiteral("UPDATE Licence ") + QStringLiteral("SET Date_Depot = ") + quote_sql(d) +
                    QStringLiteral(", Date_obliteration = ") + quote_sql(d) + QStringLiteral(", Type_licence = 'R' ") +
                    QStringLiteral("WHERE Date_Depot < ") + quote_sql(d));
    app.db.exec_sql(QStringLiteral("UPDATE Info ") + QStringLiteral("SET LastUpdtLic = ") + quote_sql(d));
}

void install_licence_hooks(AppContext& app)
{
    app.hooks.licences_maintenance = [](AppContext& a) {
        // Both steps report nothing: a base they cannot bring up to date
        // opens all the same, and the next opening tries again.
        try {
            PurgeLicences(a);
            MajSaisonLicences(a);
        } catch (const std::exception&) {
        }
    };
}

}  // namespace plouvarine
