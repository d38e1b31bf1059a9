#include "src/licences/utils_licences.h"

#include "src/clubs/mon_club.h"
#include "src/frame/app_context.h"
#include "src/frame/commands.h"
#include "src/frame/keywords.h"
#include "src/base/sql_text.h"
#include "src/licences/det_licence.h"
#include "src/licences/liste_licence.h"

namespace plouvarine {

namespace {

// The columns of tab_licence, in its order.
const char* const kColumns[kTabActivites] = {
    "Code_club", "Licence",  "Nom",       "Prenom",   "Sexe",     "Date_Naissance", "Nationalite",
    "Adresse",   "Suite_adresse", "Code_Postal", "Localite", "Telephone", "Sportive", "Synchro",
    "Water_Polo", "Plongeon", "Dirigeant", "Maitre",  "Date_Depot", "Date_obliteration", "Type_licence",
    "Nature",    "Code_unique", "Tel2",   "Mail",     "Tarif",    "Medecin",        "Date_Ctrl_Medical",
};

// The fields of tab_licence from `first` on, every value a text.
SqlFields licence_fields(const QStringList& tab_licence, int first)
{
    SqlFields fields;
    for (int i = first; i < kTabActivites; ++i)
        fields.push_back({QLatin1String(kColumns[i]), quote_sql(tab_licence.value(i))});
    return fields;
}

}  // namespace

QString AjouteLicenceSql(const QStringList& tab_licence)
{
    const SqlFields fields = licence_fields(tab_licence, kTabCodeClub);
    return QStringLiteral("INSERT INTO Licence (") + sql_columns(fields) + QStringLiteral(") ") +
           QStringLiteral("VALUES (") + sql_values(fields) + QStringLiteral(");");
}

void AjouteLicence(AppContext& app, const QStringList& tab_licence)
{
    app.db.exec_sql(AjouteLicenceSql(tab_licence));
}

QString ModifieLicenceSql(const QStringList& tab_licence, const QString& num)
{
    // Code_club stays: a licence changes club through its own commands.
    return QStringLiteral("UPDATE Licence SET ") + sql_set(licence_fields(tab_licence, kTabLicence)) +
           QStringLiteral(" WHERE Num = ") + sql_key(num);
}

void ModifieLicence(AppContext& app, const QStringList& tab_licence, const QString& num)
{
    app.db.exec_sql(ModifieLicenceSql(tab_licence, num));
}

QString NumLicence(AppContext& app, const QString& licence, const QString& club_code)
{
    return app.db
        .load_rows(QStringLiteral("select Num from Licence where Licence = ") + quote_sql(licence) +
                   QStringLiteral(" and Code_Club = ") + quote_sql(club_code))
        .first();
}

void SauveActivites(AppContext& app, const QString& num, const QString& activites)
{
    const SqlText key = sql_key(num);
    app.db.exec_sql(QStringLiteral("DELETE FROM Activite_licence ") + QStringLiteral("WHERE Num_lic = ") + key);
    for (const QString& name : activites.split(QLatin1Char('\t'))) {
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
