#include "src/competitions/utils_compet.h"

#include "src/clubs/pools.h"
#include "src/competitions/det_compet.h"
#include "src/competitions/liste_compet.h"
#include "src/frame/app_context.h"
#include "src/frame/commands.h"
#include "src/frame/keywords.h"
#include "src/base/sql_text.h"

namespace plouvarine {

namespace {

// What a competition's detail writes, new or changed; Num, the user's own
// number, is a text.
SqlFields compet_fields(const CompetRecord& c)
{
    return {{QStringLiteral("Num"), quote_sql(c.num)},
            {QStringLiteral("Type"), quote_sql(c.type)},
            {QStringLiteral("Nom"), quote_sql(c.nom)},
            {QStringLiteral("Debut"), quote_sql(c.debut)},
            {QStringLiteral("Fin"), quote_sql(c.fin)},
            {QStringLiteral("Lieu"), quote_sql(c.lieu)},
            {QStringLiteral("Longueur"), sql_key(c.longueur)},
            {QStringLiteral("Nb_couloir"), sql_key(c.nb_couloir)},
            {QStringLiteral("Codif_fede"), quote_sql(c.codif_fede)},
            {QStringLiteral("Codif_inter"), quote_sql(c.codif_inter)},
            {QStringLiteral("Codif_reg"), quote_sql(c.codif_reg)},
            {QStringLiteral("Codif_depar"), quote_sql(c.codif_depar)},
            {QStringLiteral("Num_Piscine"), sql_key(c.num_piscine)}};
}

}  // namespace

QString AjouterCompetSql(const CompetRecord& c)
{
    const SqlFields fields = compet_fields(c);
    return QStringLiteral("INSERT INTO Rcomp ") + QStringLiteral("(") + sql_columns(fields) + QStringLiteral(") ") +
           QStringLiteral("VALUES (") + sql_values(fields) + QStringLiteral(");");
}

bool AjouterCompet(AppContext& app, const CompetRecord& compet)
{
    try {
        app.db.exec_sql(AjouterCompetSql(compet));
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

QString ModifierCompetSql(const CompetRecord& c, const QString& autonum)
{
    return QStringLiteral("Update Rcomp Set ") + sql_set(compet_fields(c)) + QStringLiteral(" where AutoNum = ") +
           sql_key(autonum);
}

bool ModifierCompet(AppContext& app, const CompetRecord& compet, const QString& autonum)
{
    try {
        app.db.exec_sql(ModifierCompetSql(compet, autonum));
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

QString CreerCompetImport(AppContext& app)
{
    try {
        const QString nulle = NumPiscineNulle(app);
        const QString key = app.db.append_row(
            QStringLiteral("Rcomp"),
            {{QStringLiteral("Deroule"), true}, {QStringLiteral("Visible"), true}, {QStringLiteral("Num_Piscine"), nulle}},
            QStringLiteral("AutoNum"));
        return key.trimmed();
    } catch (const std::exception& e) {
        msg_erreur(app.ui,
                   QStringLiteral("Erreur lors de la création de la nouvelle compétition pour importation des "
                                  "résultats !"),
                   &e);
        return {};
    }
}

QString ChampCompet(AppContext& app, const QString& autonum, const QString& column)
{
    const Rows rows = app.db.load_rows(QStringLiteral("SELECT ") + column +
                                       QStringLiteral(" FROM Rcomp where AutoNum = ") + sql_key(autonum));
    return rows.size() > 0 ? rows.value(0, 0) : QString();
}

QString DebutCompet(AppContext& app, const QString& autonum)
{
    return ChampCompet(app, autonum, QStringLiteral("Debut"));
}

qint16 LongueurCompet(AppContext& app, const QString& autonum)
{
    return qint16(ChampCompet(app, autonum, QStringLiteral("Longueur")).toInt());
}

void MajCompetitions(AppContext& app)
{
    app.db.exec_sql(QStringLiteral("UPDATE Rcomp SET Deroule = true, Visible = false") +
                    QStringLiteral(" WHERE Deroule = false AND Visible = true AND Debut <= ") +
                    quote_sql(app.clock.today_text()));
}

bool SauverCompetTempo(AppContext& app, const SqlText& autonums)
{
    try {
        app.db.exec_sql(QStringLiteral("INSERT INTO Rcomp_tempo ") + QStringLiteral("SELECT Rcomp.* ") +
                        QStringLiteral("From Rcomp ") + QStringLiteral("WHERE Rcomp.AutoNum IN (") + autonums +
                        QStringLiteral(");"));
        return true;
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QStringLiteral("Erreur lors de la sauvegarde temporaire de la compétition"), &e);
        return false;
    }
}

void OuvrirDetCompet(AppContext& app, const QString& mode, const QString& title, const QString& caller,
                     const QString& autonum)
{
    if (app.windows.check_window_open(QString(DetCompet::kName)))
        return;
    auto detail = std::make_unique<DetCompet>(app, mode, autonum);
    detail->set_title(title);
    MenuLocks locks;
    if (mode == keyword::kNouveau)
        locks = locks_on({QStringLiteral("mnuCompetNew"), QStringLiteral("mnuCompetModif"),
                          QStringLiteral("mnuCompetSuppr")});
    if (!detail->register_window(caller.isEmpty() ? QString(WindowRegistry::kMainWindow) : caller, locks))
        return;
    if (mode != keyword::kNouveau)
        detail->load();
    app.ui.show_window(std::move(detail));
}

FrmListeCompet* OuvrirListeCompet(AppContext& app, const QString& mode, const QString& caption,
                                  const QString& title, const QString& caller, const QString& sql)
{
    if (app.windows.check_window_open(QString(FrmListeCompet::kName)))
        return nullptr;
    auto list = std::make_unique<FrmListeCompet>(app, mode);
    list->set_action_caption(caption);
    if (!list->register_window(caller.isEmpty() ? QString(WindowRegistry::kMainWindow) : caller,
                               FrmListeCompet::locks_for(mode)))
        return nullptr;
    list->set_liste(title, sql);
    return show_child(app.ui, std::move(list));
}

bool run_competition_command(AppContext& app, const QString& command)
{
    const CommandTarget* target = find_command(command);
    if (!target)
        return false;
    try {
        if (command == QLatin1String("mnuCompetNew")) {
            OuvrirDetCompet(app, target->keyword, target->title);
            return true;
        }
        if (target->window != FrmListeCompet::kName)
            return false;
        OuvrirListeCompet(app, target->keyword, target->ok_caption, target->title);
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QStringLiteral("Une erreur s'est produite."), &e);
    }
    return true;
}

void install_competition_commands(AppContext& app)
{
    for (const char* c : {"mnuCompetNew", "mnuCompetListe", "mnuCompetModif", "mnuCompetSuppr", "mnuEngagProgramme",
                          "mnuEngagIndiv", "mnuEngagRelais", "mnuEngagDisk", "mnuEngagConvoc", "mnuEngagBordereau",
                          "mnuCompetResult"}) {
        const QString name = QLatin1String(c);
        app.commands.add(name, [name](AppContext& a) { run_competition_command(a, name); });
    }
}

}  // namespace plouvarine
