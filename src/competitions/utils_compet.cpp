#include "src/competitions/utils_compet.h"

#include "src/clubs/pools.h"
#include "src/competitions/det_compet.h"
#include "src/competitions/liste_compet.h"
#include "src/frame/app_context.h"
#include "src/frame/commands.h"
#include "src/frame/keywords.h"
#include "src/base/text.h"

namespace plouvarine {

namespace {

QString quoted(const QString& text)
{
    return QLatin1Char('\'') + text + QLatin1Char('\'');
}

}  // namespace

QString AjouterCompetSql(const QStringList& tab)
{
    auto v = [&tab](int i) { return tab.value(i); };
    return QStringLiteral("INSERT INTO Rcomp ") +
           QStringLiteral("(Num, Type, Nom, debut, fin, Lieu, Longueur, Nb_couloir, Codif_fede, Codif_inter, "
                          "Codif_reg, Codif_depar, Num_Piscine) ") +
           QStringLiteral("VALUES ('") + v(kCompetNum) + QStringLiteral("', ") + quoted(v(kCompetType)) +
           QStringLiteral(", ") + quoted(quote_sql(v(kCompetNom))) + QStringLiteral(", ") + quoted(v(kCompetDebut)) +
           QStringLiteral(", ") + quoted(v(kCompetFin)) + QStringLiteral(", ") + quoted(quote_sql(v(kCompetLieu))) +
           QStringLiteral(", ") + v(kCompetLongueur) + QStringLiteral(", ") + v(kCompetNbCouloir) + QStringLiteral(", ") +
           quoted(v(kCompetCodifFede)) + QStringLiteral(", ") + quoted(v(kCompetCodifInter)) + QStringLiteral(", ") +
           quoted(v(kCompetCodifReg)) + QStringLiteral(", ") + quoted(v(kCompetCodifDepar)) + QStringLiteral(", ") +
           v(kCompetNumPiscine) + QStringLiteral(");");
}

bool AjouterCompet(AppContext& app, const QStringList& tab)
{
    try {
        app.db.exec_sql(AjouterCompetSql(tab));
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

QString ModifierCompetSql(const QStringList& tab, const QString& autonum)
{
    auto v = [&tab](int i) { return tab.value(i); };
    return QStringLiteral("Update Rcomp Set Num = '") + v(kCompetNum) + QStringLiteral("', ") +
           QStringLiteral("Type = '") + v(kCompetType) + QStringLiteral("', ") + QStringLiteral("Nom = '") +
           v(kCompetNom) + QStringLiteral("', ") + QStringLiteral("Debut = '") + v(kCompetDebut) + QStringLiteral("', ") +
           QStringLiteral("Fin = '") + v(kCompetFin) + QStringLiteral("', ") + QStringLiteral("Lieu = '") +
           v(kCompetLieu) + QStringLiteral("', ") + QStringLiteral("Longueur = ") + v(kCompetLongueur) +
           QStringLiteral(", ") + QStringLiteral("Nb_couloir = ") + v(kCompetNbCouloir) + QStringLiteral(", ") +
           QStringLiteral("Codif_fede = '") + v(kCompetCodifFede) + QStringLiteral("', ") +
           QStringLiteral("Codif_inter = '") + v(kCompetCodifInter) + QStringLiteral("', ") +
           QStringLiteral("Codif_reg = '") + v(kCompetCodifReg) + QStringLiteral("', ") +
           QStringLiteral("Codif_depar = '") + v(kCompetCodifDepar) + QStringLiteral("', ") +
           QStringLiteral("Num_Piscine = ") + v(kCompetNumPiscine) + QStringLiteral(" where AutoNum = ") + autonum;
}

bool ModifierCompet(AppContext& app, const QStringList& tab, const QString& autonum)
{
    try {
        app.db.exec_sql(ModifierCompetSql(tab, autonum));
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
                                       QStringLiteral(" FROM Rcomp where AutoNum = ") + autonum);
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
                    QStringLiteral(" WHERE Deroule = false AND Visible = true AND Debut <= '") +
                    app.clock.today_text() + QStringLiteral("'"));
}

bool SauverCompetTempo(AppContext& app, const QString& autonums)
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
    FrmListeCompet* shown = list.get();
    app.ui.show_window(std::move(list));
    return shown;
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
