#include "src/licences/utils_licences.h"

#include "src/clubs/mon_club.h"
#include "src/frame/app_context.h"
#include "src/frame/commands.h"
#include "src/frame/keywords.h"
#include "src/base/sql_text.h"
#include "src/licences/det_licence.h"
#include "src/licences/liste_licence.h"

namespace plouvarine {

std::vector<std::pair<QLatin1String, QString>> LicenceRecord::columns() const
{
    return {
        {QLatin1String("Code_club"), code_club},
        {QLatin1String("Licence"), licence},
        {QLatin1String("Nom"), nom},
        {QLatin1String("Prenom"), prenom},
        {QLatin1String("Sexe"), sexe},
        {QLatin1String("Date_Naissance"), date_naissance},
        {QLatin1String("Nationalite"), nationalite},
        {QLatin1String("Adresse"), adresse},
        {QLatin1String("Suite_adresse"), suite_adresse},
        {QLatin1String("Code_Postal"), code_postal},
        {QLatin1String("Localite"), localite},
        {QLatin1String("Telephone"), telephone},
        {QLatin1String("Sportive"), sportive},
        {QLatin1String("Synchro"), synchro},
        {QLatin1String("Water_Polo"), water_polo},
        {QLatin1String("Plongeon"), plongeon},
        {QLatin1String("Dirigeant"), dirigeant},
        {QLatin1String("Maitre"), maitre},
        {QLatin1String("Date_Depot"), date_depot},
        {QLatin1String("Date_obliteration"), date_obliteration},
        {QLatin1String("Type_licence"), type_licence},
        {QLatin1String("Nature"), nature},
        {QLatin1String("Code_unique"), code_unique},
        {QLatin1String("Tel2"), tel2},
        {QLatin1String("Mail"), mail},
        {QLatin1String("Tarif"), tarif},
        {QLatin1String("Medecin"), medecin},
        {QLatin1String("Date_Ctrl_Medical"), date_ctrl_medical},
    };
}

namespace {

// The fields of a licence, every value a text; Code_club left out when `with_club` is false.
SqlFields licence_fields(const LicenceRecord& licence, bool with_club)
{
    SqlFields fields;
    for (const auto& [column, value] : licence.columns())
        if (with_club || column != QLatin1String("Code_club"))
            fields.push_back({column, quote_sql(value)});
    return fields;
}

}  // namespace

QString AjouteLicenceSql(const LicenceRecord& licence)
{
    const SqlFields fields = licence_fields(licence, true);
    return QStringLiteral("INSERT INTO Licence (") + sql_columns(fields) + QStringLiteral(") ") +
           QStringLiteral("VALUES (") + sql_values(fields) + QStringLiteral(");");
}

void AjouteLicence(AppContext& app, const LicenceRecord& licence)
{
    app.db.exec_sql(AjouteLicenceSql(licence));
}

QString ModifieLicenceSql(const LicenceRecord& licence, const QString& num)
{
    // Code_club stays: a licence changes club through its own commands.
    return QStringLiteral("UPDATE Licence SET ") + sql_set(licence_fields(licence, false)) +
           QStringLiteral(" WHERE Num = ") + sql_key(num);
}

void ModifieLicence(AppContext& app, const LicenceRecord& licence, const QString& num)
{
    app.db.exec_sql(ModifieLicenceSql(licence, num));
}

QString NumLicence(AppContext& app, const QString& licence, const QString& club_code)
{
    return app.db
        .load_rows(QStringLiteral("select Num from Licence where Licence = ") + quote_sql(licence) +
                   QStringLiteral(" and Code_Club = ") + quote_sql(club_code))
        .first();
}

void SauveActivites(AppContext& app, const QString& num, const QStringList& activites)
{
    const SqlText key = sql_key(num);
    app.db.exec_sql(QStringLiteral("DELETE FROM Activite_licence ") + QStringLiteral("WHERE Num_lic = ") + key);
    for (const QString& name : activites) {
        if (name.isEmpty())
            continue;
        app.db.exec_sql(QStringLiteral("INSERT INTO Activite_licence ") + QStringLiteral("VALUES (") + key +
                        QStringLiteral(", ") + quote_sql(name) + QStringLiteral(")"));
    }
}

QString PrefixeSelection(const QString& code)
{
    if (code.endsWith(QStringLiteral("0000000000")))
        return code.left(3);
    if (code.endsWith(QStringLiteral("000000000")))
        return code.left(4);
    if (code.endsWith(QStringLiteral("0000000")))
        return code.left(6);
    if (code.endsWith(QStringLiteral("0000")))
        return code.left(9);
    return {};
}

void OuvreDetailLicence(AppContext& app, const QString& mode, const QString& num, const QString& caller)
{
    if (app.windows.check_window_open(QString(DetLicence::kName)))
        return;
    auto detail = std::make_unique<DetLicence>(app, mode, num);
    detail->set_title(mode == keyword::kNouveau ? QStringLiteral("Nouvelle Licence") : QStringLiteral("Modifier Licence"));
    MenuLocks locks;
    if (mode == keyword::kNouveau)
        locks = locks_on({QStringLiteral("mnuLicNew"), QStringLiteral("mnuLicImport"), QStringLiteral("mnuLicModif"),
                          QStringLiteral("mnuLicSuppr")});
    if (!detail->register_window(caller.isEmpty() ? QString(WindowRegistry::kMainWindow) : caller, locks))
        return;
    detail->load();
    app.ui.show_window(std::move(detail));
}

void OuvreListeLicences(AppContext& app, const QString& mode, const QString& title, const QString& ok_caption)
{
    if (app.windows.check_window_open(QString(FrmListeLicence::kName)))
        return;
    auto list = std::make_unique<FrmListeLicence>(app, mode);
    list->set_ok_caption(ok_caption);
    if (!list->register_window(QString(WindowRegistry::kMainWindow), FrmListeLicence::locks_for(mode)))
        return;
    list->set_liste(title);
    if (mode == keyword::kSsCotisation)
        list->ChargeMenuTarifs();
    app.ui.show_window(std::move(list));
}

bool run_licence_command(AppContext& app, const QString& command)
{
    try {
        if (command == QLatin1String("mnuLicPrint")) {
            ImprimeRapportLicences(app);
            return true;
        }
        const CommandTarget* target = find_command(command);
        if (!target)
            return false;
        if (command == QLatin1String("mnuLicNew")) {
            OuvreDetailLicence(app, target->keyword);
            return true;
        }
        if (target->window != FrmListeLicence::kName)
            return false;
        if (target->keyword == keyword::kSsCotisation && NombreTarifs(app, app.state.club_code) < 1) {
            msg_erreur(app.ui, QStringLiteral("Vous devez d'abord définir au moins un tarif."));
            return true;
        }
        OuvreListeLicences(app, target->keyword, target->title, target->ok_caption);
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QString(), &e);
    }
    return true;
}

void install_licence_commands(AppContext& app)
{
    for (const char* c : {"mnuLicNew", "mnuLicListe", "mnuLicModif", "mnuLicSuppr", "mnuLicPrint",
                          "mnuBaseClubCotisationUnknown"}) {
        const QString name = QLatin1String(c);
        app.commands.add(name, [name](AppContext& a) { run_licence_command(a, name); });
    }
}

}  // namespace plouvarine
