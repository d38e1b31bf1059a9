#include "src/clubs/utils_club.h"

#include "src/clubs/construc_code_club.h"
#include "src/clubs/dem_info.h"
#include "src/clubs/liste_club.h"
#include "src/frame/app_context.h"
#include "src/frame/keywords.h"
#include "src/base/sql_text.h"

namespace plouvarine {

namespace {

const QString kFrance = QStringLiteral("FRA");

bool refuse(AppContext& app, bool afficher, const QString& prefixe)
{
    if (afficher)
        msg_erreur(app.ui, (prefixe.isEmpty() ? QString() : prefixe + QLatin1Char('\n')) + invalid_code_message());
    return false;
}

// What a club's detail writes, new or changed.
SqlFields club_fields(const QString& code, const QString& name)
{
    return {{QStringLiteral("Code_federal"), quote_sql(code)},
            {QStringLiteral("Intitule"), quote_sql(name)},
            {QStringLiteral("Selection"), bool_text(EstCodeSelection(code))}};
}

}  // namespace

QString invalid_code_message()
{
    return QStringLiteral("Le code club tapé n'est pas valide.");
}

bool EstCodeSelection(const QString& code)
{
    return code.right(4) == QLatin1String("0000");
}

bool CodeClubValide(AppContext& app, const QString& code, bool afficher, const QString& prefixe)
{
    if (code.size() != kClubCodeLength)
        return false;
    const QString country = code.left(3);
    const QString inter = code.mid(3, 1);
    const QString region = code.mid(4, 2);
    const QString department = code.mid(6, 3);

    if (app.db.count_query(QStringLiteral("select count(*) from Pays where code = ") + quote_sql(country)) == 0)
        return refuse(app, afficher, prefixe);
    // The inter-region digit is joined unquoted: anything but a digit is no code.
    if (!is_sql_key(inter)
        || app.db.count_query(QStringLiteral("select count(*) from Inter_Region where code = ") + sql_key(inter)) == 0)
        return refuse(app, afficher, prefixe);

    if (country.compare(kFrance, Qt::CaseInsensitive) != 0)
        return inter == QLatin1String("0") ? true : refuse(app, afficher, prefixe);

    if (inter == QLatin1String("0")) {
        if (region != QLatin1String("00") || department != QLatin1String("000"))
            return refuse(app, afficher, prefixe);
        return true;
    }
    if (region == QLatin1String("00"))
        return department == QLatin1String("000") ? true : refuse(app, afficher, prefixe);

    const int in_inter = app.db.count_query(
        QStringLiteral("SELECT count(*) ") + QStringLiteral("FROM Inter_Region Inter_Region, Region Region ")
        + QStringLiteral("WHERE Inter_Region.Code = Region.CodeInter ") + QStringLiteral("AND Region.Code = ")
        + quote_sql(region) + QStringLiteral(" ") + QStringLiteral("and Inter_Region.Code = ") + sql_key(inter));
    if (in_inter == 0)
        return refuse(app, afficher, prefixe);
    if (department == QLatin1String("000"))
        return true;
    const int in_region = app.db.count_query(
        QStringLiteral("SELECT count(*) ") + QStringLiteral("FROM Region Region, Departement Departement ")
        + QStringLiteral("WHERE Region.Code = Departement.Region ") + QStringLiteral("AND Departement.Code = ")
        + quote_sql(department) + QStringLiteral(" ") + QStringLiteral("AND region.code = ") + quote_sql(region));
    return in_region != 0 ? true : refuse(app, afficher, prefixe);
}

bool ClubExiste(AppContext& app, const QString& code, const QString& num_exclu, bool afficher,
                const QString& prefixe)
{
    QString sql = QStringLiteral("select count(*) from Club ") + QStringLiteral("where Code_federal = ")
                  + quote_sql(code);
    if (!num_exclu.isEmpty())
        sql += QStringLiteral("and not num in (") + sql_key(num_exclu) + QLatin1Char(')');
    const bool exists = app.db.count_query(sql) >= 1;
    if (exists && afficher)
        msg_club_double(app.ui, prefixe.isEmpty() ? QString() : prefixe + QLatin1Char('\n'));
    return exists;
}

bool AjouteClub(AppContext& app, const QString& code, const QString& name)
{
    if (!CodeClubValide(app, code, true, QStringLiteral("Ajout annulé.")))
        return false;
    const SqlFields fields = club_fields(code, name);
    app.db.exec_sql(QStringLiteral("INSERT INTO Club (") + sql_columns(fields) + QStringLiteral(") ")
                    + QStringLiteral("VALUES (") + sql_values(fields) + QStringLiteral(");"));
    return true;
}

bool ModifieClub(AppContext& app, const QString& code, const QString& name, const QString& num,
                 const QString& prefixe)
{
    if (!CodeClubValide(app, code, true, prefixe))
        return false;
    app.db.exec_sql(QStringLiteral("Update Club Set ") + sql_set(club_fields(code, name)) + QStringLiteral(" where Num = ")
                    + sql_key(num));
    return true;
}

QString NumClub(AppContext& app, const QString& code)
{
    return app.db
        .load_rows(QStringLiteral("select num from Club ") + QStringLiteral("where Code_federal = ")
                   + quote_sql(code))
        .first();
}

bool SupprimeClubs(AppContext& app, const QString& numeric_condition, const QString& quoted_condition)
{
    const QString& n = numeric_condition;
    const QString& c = quoted_condition;
    try {
        // The new code travels into every row that held the old one, so from
        // here on those rows are found by the club's Num.
        app.db.exec_sql(QStringLiteral("Update Club Set Code_federal = Num, Visible = false where ") + n);
        app.db.exec_sql(QStringLiteral("Delete from Profil where ") + c);
        app.db.exec_sql(QStringLiteral("UPDATE Licence Set Visible = false, Date_suppr = ") + quote_sql(app.clock.today_text())
                        + QStringLiteral(" where ") + c);
        app.db.exec_sql(QStringLiteral("UPDATE Selection Set Visible = false where Num_Lic IN (select Num from Licence where ")
                        + c + QLatin1Char(')'));
        for (const char* table : {"Engag_nageur", "Engag_modele", "Engag"})
            app.db.exec_sql(QStringLiteral("Delete from ") + QLatin1String(table)
                            + QStringLiteral(" where Num_Lic IN (select Num from Licence where Code_club = ") + c
                            + QLatin1Char(')'));
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QStringLiteral("Une erreur s'est produite lors de la suppression des clubs."), &e);
        return false;
    }
    return true;
}

int ExisteClubVisible(AppContext& app)
{
    return app.db.count_query(QStringLiteral("select count(*) from Club where visible = true"));
}

bool AideCodeClub(AppContext& app, QString& field)
{
    ConstrucCodeClub help(app, field);
    if (!help.register_window())
        return false;
    app.ui.show_modal(help);
    if (!help.copied())
        return false;
    field = help.codification();
    return true;
}

void OuvreListeClubs(AppContext& app, const QString& keyword, const QString& title, const QString& ok_caption)
{
    if (app.windows.check_window_open(QString(FrmListeClub::kName)))
        return;
    auto list = std::make_unique<FrmListeClub>(app, keyword);
    list->set_title(title);
    list->set_ok_caption(ok_caption);
    if (!list->register_window(QString(WindowRegistry::kMainWindow), FrmListeClub::locks_for(keyword)))
        return;
    list->set_liste();
    app.ui.show_window(std::move(list));
}

void OuvreDetailClub(AppContext& app, const QString& keyword)
{
    if (app.windows.check_window_open(QString(DemInfo::kName)))
        return;
    auto detail = std::make_unique<DemInfo>(app, QString(DemInfo::kName), keyword);
    MenuLocks locks;
    if (keyword == keyword::kNouveau)
        locks = locks_on({QStringLiteral("mnuBaseClubNew"), QStringLiteral("mnuBaseClubListe"),
                          QStringLiteral("mnuBaseClubModif"), QStringLiteral("mnuBaseClubSuppr"),
                          QStringLiteral("mnuBaseClubConfig"), QStringLiteral("mnuBaseProfilNew"),
                          QStringLiteral("mnuBaseProfilModif"), QStringLiteral("mnuBaseProfilChange")});
    if (!detail->register_window(QString(WindowRegistry::kMainWindow), locks))
        return;
    app.ui.show_window(std::move(detail));
}

}  // namespace plouvarine
