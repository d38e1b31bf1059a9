#include "src/entries/liste_modele.h"

#include "src/base/sql_text.h"
#include "src/competitions/frm_prog.h"
#include "src/competitions/handoff.h"
#include "src/competitions/prog_models.h"
#include "src/competitions/utils_programme.h"
#include "src/entries/frm_engag.h"
#include "src/entries/modeles.h"
#include "src/entries/teams.h"
#include "src/frame/app_context.h"
#include "src/frame/keywords.h"
#include "src/frame/list_helpers.h"
#include "src/frame/status_lines.h"

namespace plouvarine {

namespace {

bool is_prog(const QString& kind)
{
    return kind == keyword::kModelProg;
}

MenuLocks list_locks(const QString& kind, const QString& mode)
{
    const LockGroup group = is_prog(kind) ? LockGroup::ProgrammeModel : LockGroup::EntryModel;
    if (mode == keyword::kModif || mode == keyword::kSuppr)
        return {whole_group(group)};
    // While the list shows them, no model may go.
    return locks_on({is_prog(kind) ? QStringLiteral("mnuModeleProgSuppr") : QStringLiteral("mnuModeleEngagSuppr")});
}

}  // namespace

// ---------------------------------------------------------------- list

FrmListeModele::FrmListeModele(AppContext& app, const QString& kind, const QString& mode)
    : View(app, QString(kName)), kind_(kind), mode_(mode)
{
    list_.setHorizontalHeaderLabels({QStringLiteral("Modèle")});
}

bool FrmListeModele::takes_into_model() const
{
    return mode_ == keyword::kModeleDepuisEngagement || mode_ == keyword::kModeleDepuisProgramme;
}

void FrmListeModele::set_liste(const QString& num)
{
    AppContext& a = app();
    status_text(a.ui, QStringLiteral("Chargement de la liste des modèles"));
    try {
        fill_collections(a.db,
                         QStringLiteral("SELECT NumAuto, Nom_modele FROM ") + TableModele(kind_) +
                             QStringLiteral(" where Num_profil = ") + sql_key(a.state.profile_num) +
                             QStringLiteral(" order by Nom_modele"),
                         {{&list_, {1}, 0, false}});
        list_.setHorizontalHeaderLabels({QStringLiteral("Modèle")});
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QString(), &e);
    }
    status_text(a.ui, QString());
    const std::optional<int> row = num.isEmpty() ? std::nullopt : find_key(list_, num);
    if (row)
        select_row_at(selection_, *row);
    else if (list_.rowCount() > 0)
        select_row_at(selection_, 0);
    changed();
}

QString FrmListeModele::current_num() const
{
    const QModelIndex current = selection_.currentIndex();
    return current.isValid() ? row_key(list_, current.row()) : QString();
}

QString FrmListeModele::current_name() const
{
    const QModelIndex current = selection_.currentIndex();
    return current.isValid() ? list_.item(current.row(), 0)->text() : QString();
}

void FrmListeModele::set_action_caption(const QString& caption)
{
    caption_ = caption;
    changed();
}

bool FrmListeModele::action_enabled() const
{
    // A new model needs no row.
    return !caption_.isEmpty() && (takes_into_model() || list_.rowCount() > 0);
}

bool FrmListeModele::ok_enabled() const
{
    return mode_ == keyword::kSuppr || list_.rowCount() > 0 || !(takes_into_model() || mode_ == keyword::kChoisir);
}

void FrmListeModele::cmd_action()
{
    if (!action_enabled())
        return;
    if (takes_into_model()) {
        new_model();
        return;
    }
    const QString num = current_num();
    if (mode_ == keyword::kSuppr)
        mark_selection();
    else if (num.isEmpty())
        return;
    else if (mode_ == keyword::kChoisir)
        cmd_ok();
    else
        open_model(num, current_name());
}

void FrmListeModele::activate()
{
    if (mode_ == keyword::kSuppr)
        return;
    if (takes_into_model() || mode_ == keyword::kChoisir)
        cmd_ok();
    else
        cmd_action();
}

void FrmListeModele::delete_key()
{
    if (mode_ == keyword::kSuppr)
        mark_selection();
}

void FrmListeModele::mark_selection()
{
    const QStringList nums = take_selected_rows(list_, selection_);
    if (nums.isEmpty())
        return;
    try {
        app().db.exec_sql(QStringLiteral("update ") + TableModele(kind_) +
                          QStringLiteral(" set Suppr = true where NumAuto IN (") + sql_keys(nums) +
                          QStringLiteral(")"));
        marked_ = true;
    } catch (const std::exception& e) {
        msg_erreur(app().ui, QString(), &e);
    }
    changed();
}

void FrmListeModele::undo_marks()
{
    if (!marked_ || !app().db.is_open())
        return;
    marked_ = false;
    try {
        app().db.exec_sql(QStringLiteral("UPDATE ") + TableModele(kind_) + QStringLiteral(" SET Suppr = false"));
    } catch (const std::exception& e) {
        msg_erreur(app().ui, QString(), &e);
    }
}

void FrmListeModele::cmd_ok()
{
    AppContext& a = app();
    const QString num = current_num();
    const QString name = current_name();
    if (mode_ == keyword::kSuppr) {
        if (marked_) {
            const QString table = TableModele(kind_);
            const QString marked = QStringLiteral("(SELECT NumAuto FROM ") + table + QStringLiteral(" WHERE Suppr = true)");
            try {
                // The rows of the models go with them.
                const QStringList details = is_prog(kind_) ? QStringList{QStringLiteral("Pcomp_modele")}
                                                           : QStringList{QStringLiteral("Engag_modele"),
                                                                         QStringLiteral("Engag_nageur_modele"),
                                                                         QStringLiteral("Engag_equipe_modele")};
                for (const QString& detail : details)
                    a.db.exec_sql(QStringLiteral("DELETE FROM ") + detail + QStringLiteral(" WHERE Num_modele IN ") +
                                  marked);
                a.db.exec_sql(QStringLiteral("DELETE FROM ") + table + QStringLiteral(" WHERE Suppr = true"));
                marked_ = false;
                status_text(a.ui, kStatusDeleted);
            } catch (const std::exception& e) {
                msg_erreur(a.ui, QString(), &e);
                return;
            }
        }
    } else if (mode_ == keyword::kChoisir) {
        if (num.isEmpty())
            return;
        auto chosen = on_chosen;
        close();
        if (chosen)
            chosen(num, name);
        return;
    } else if (takes_into_model()) {
        if (num.isEmpty())
            return;
        overwrite(num, name);
        return;
    }
    close();
}

void FrmListeModele::cmd_annuler()
{
    undo_marks();
    close();
}

bool FrmListeModele::query_close()
{
    undo_marks();
    return true;
}

void FrmListeModele::ForceUnloadWindowsEngag(const QString&)
{
    if (!is_closed() && app().db.is_open())
        set_liste(current_num());
}

bool FrmListeModele::fill_model(const QString& num)
{
    if (mode_ == keyword::kModeleDepuisEngagement)
        return ModeleDepuisCompet(app(), num, compet);
    return save_programme && save_programme(num);
}

void FrmListeModele::overwrite(const QString& num, const QString& name)
{
    AppContext& a = app();
    const QString question = is_prog(kind_) ? QStringLiteral("Ecraser le modèle de programme ")
                                            : QStringLiteral("Ecraser le modèle d'engagements ");
    if (msg_confirm(a.ui, question + name + QStringLiteral(" ?"), kDefaultNo) != Button::Yes)
        return;
    if (!is_prog(kind_)) {
        try {
            EffacerModele(a, num);
        } catch (const std::exception& e) {
            msg_erreur(a.ui,
                       QStringLiteral("Erreur lors de l'effacements des anciennes données du modèle.\nLes données du "
                                      "modèles n'ont pas été sauvegardées"),
                       &e);
            return;
        }
    }
    fill_model(num);
    close();
}

void FrmListeModele::new_model()
{
    AppContext& a = app();
    const std::optional<QString> num = NommerModele(a, kind_, mode_, {}, {}, QString(kName));
    if (!num)
        return;
    fill_model(*num);
    close();
}

void FrmListeModele::open_model(const QString& num, const QString& name)
{
    AppContext& a = app();
    const QString caller = QString(kName);
    if (is_prog(kind_)) {
        if (mode_ == keyword::kView)
            OuvrirProg(a, QString(keyword::kView), num, true, QStringLiteral("Modèle de programme ") + name, caller,
                       false, true);
        else
            OuvrirProg(a, QString(keyword::kModif), num, true,
                       QStringLiteral("Modification du modèle de programme ") + name, caller);
        return;
    }
    if (mode_ == keyword::kView) {
        OuvrirEngag(a, QString(keyword::kView), num, QStringLiteral("Modèle d'engagements ") + name, true, caller);
        return;
    }
    if (a.windows.check_window_open(QString(FrmEngag::kName)))
        return;
    status_text(a.ui, QStringLiteral("Chargement du modèle"));
    bool ready = false;
    try {
        SnapNageurModele(a, num);
        SnapEquipeModele(a, num);
        ready = MemoModeleTempo(a, num);
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QString(), &e);
    }
    status_text(a.ui, QString());
    if (ready)
        OuvrirEngag(a, QString(keyword::kModif), num, QStringLiteral("Modification du modèle d'engagements ") + name,
                    true, caller);
}

// ---------------------------------------------------------------- naming

DetModeleObli::DetModeleObli(AppContext& app, const QString& kind, const QString& mode, const QString& num)
    : View(app, QString(kName)), kind_(kind), mode_(mode), num_(num)
{
}

void DetModeleObli::cmd_ok()
{
    AppContext& a = app();
    const QString name = txt_nom.trimmed();
    if (name.isEmpty()) {
        msg_erreur(a.ui, QStringLiteral("Donner un nom au profil."));
        return;
    }
    const QString table = TableModele(kind_);
    if (mode_ == keyword::kModif) {
        try {
            a.db.exec_sql(QStringLiteral("UPDATE ") + table + QStringLiteral(" SET Nom_modele = ") + quote_sql(name) +
                          QStringLiteral(" where NumAuto = ") + sql_key(num_));
        } catch (const std::exception& e) {
            msg_erreur(a.ui, QString(), &e);
            return;
        }
    } else {
        try {
            num_ = a.db.append_row(table,
                                   {{QStringLiteral("Nom_modele"), name},
                                    {QStringLiteral("Num_profil"), a.state.profile_num.toInt()}},
                                   QStringLiteral("NumAuto"));
        } catch (const std::exception& e) {
            msg_erreur(a.ui, QStringLiteral("Erreur lors de l'écriture du modèle.\nModèle non sauvegardé."), &e);
            return;
        }
    }
    saved_ = true;
    close();
}

void DetModeleObli::cmd_annuler()
{
    close();
}

std::optional<QString> NommerModele(AppContext& app, const QString& kind, const QString& mode, const QString& num,
                                    const QString& name, const QString& caller)
{
    DetModeleObli naming(app, kind, mode, num);
    naming.txt_nom = name;
    naming.set_title(mode == keyword::kModif ? QStringLiteral("Nom du modèle") : QStringLiteral("Nouveau modèle"));
    if (!naming.register_window(caller.isEmpty() ? QString(WindowRegistry::kMainWindow) : caller))
        return std::nullopt;
    app.ui.show_modal(naming);
    if (!naming.saved())
        return std::nullopt;
    // A list that shows the models shows the new name.
    if (auto* list = dynamic_cast<FrmListeModele*>(app.windows.instance(QString(FrmListeModele::kName))))
        if (list->kind() == kind && !list->is_closed())
            list->set_liste(naming.num());
    return naming.num();
}

FrmListeModele* OuvrirListeModele(AppContext& app, const QString& kind, const QString& mode, const QString& caption,
                                  const QString& title, const QString& caller)
{
    if (app.windows.check_window_open(QString(FrmListeModele::kName)))
        return nullptr;
    auto list = std::make_unique<FrmListeModele>(app, kind, mode);
    if (!list->register_window(caller.isEmpty() ? QString(WindowRegistry::kMainWindow) : caller,
                               list_locks(kind, mode)))
        return nullptr;
    list->set_title(title);
    list->set_action_caption(caption);
    list->set_liste();
    return show_child(app.ui, std::move(list));
}

// ---------------------------------------------------------------- commands

namespace {

// A new model from the menu: named, then defined in its window.
void nouveau_modele(AppContext& app, const QString& kind)
{
    const bool prog = is_prog(kind);
    const QString window = prog ? QString(FrmProg::kName) : QString(FrmEngag::kName);
    if (app.windows.check_window_open(window))
        return;
    const QString mode = prog ? QString(keyword::kNouveauProg) : QString(keyword::kNouveau);
    const std::optional<QString> num = NommerModele(app, kind, mode);
    if (!num)
        return;
    QString name;
    try {
        name = app.db.load_rows(QStringLiteral("select Nom_modele from ") + TableModele(kind) +
                                QStringLiteral(" where NumAuto = ") + sql_key(*num))
                   .first();
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QString(), &e);
        return;
    }
    if (prog)
        OuvrirProg(app, QString(FrmProg::kNewModele), *num, true,
                   QStringLiteral("Définition du programme pour nouveau modèle ") + name, {});
    else
        OuvrirEngag(app, QString(FrmEngag::kNewModele), *num,
                    QStringLiteral("Définition des engagements pour nouveau modèle ") + name, true);
}

struct ModelMenuEntry {
    const char* command;
    const char* kind;
    const char* mode;
    const char* caption;
    const char* title;
};

}  // namespace

void install_model_commands(AppContext& app)
{
    static const ModelMenuEntry entries[] = {
        {"mnuModeleEngagView", "Engag", "View", "&Voir", "Liste des modèles d'engagements"},
        {"mnuModeleEngagModif", "Engag", "Modif", "&Modifier", "Modification des modèles d'engagements"},
        {"mnuModeleEngagSuppr", "Engag", "Suppr", "&Supprimer", "Supprimer des modèles d'engagements"},
        {"mnuModeleProgView", "Prog", "View", "&Voir", "Liste des modèles de programme"},
        {"mnuModeleProgModif", "Prog", "Modif", "&Modifier", "Modifier Modèles de programme"},
        {"mnuModeleProgSuppr", "Prog", "Suppr", "&Supprimer", "Supprimer des modèles de programme"},
    };
    for (const ModelMenuEntry& e : entries)
        app.commands.add(QLatin1String(e.command), [e](AppContext& a) {
            OuvrirListeModele(a, QLatin1String(e.kind), QLatin1String(e.mode), QString::fromUtf8(e.caption),
                              QString::fromUtf8(e.title));
        });
    app.commands.add(QStringLiteral("mnuModeleEngagNew"),
                     [](AppContext& a) { nouveau_modele(a, QString(keyword::kModelEngag)); });
    app.commands.add(QStringLiteral("mnuModeleProgNew"),
                     [](AppContext& a) { nouveau_modele(a, QString(keyword::kModelProg)); });

    // "Faire un modèle" at the end of an entry pass.
    set_competition_door(QString(keyword::kModeleDepuisEngagement), [](AppContext& a, const QString& compet) {
        if (FrmListeModele* list = OuvrirListeModele(a, QString(keyword::kModelEngag),
                                                     QString(keyword::kModeleDepuisEngagement),
                                                     QStringLiteral("&Nouveau"),
                                                     QStringLiteral("Enregistrement dans un modèle")))
            list->compet = compet;
    });

    // The programme window: choosing a model, saving into one, renaming one.
    set_prog_model_door([](AppContext& a, const ProgModelRequest& r) {
        const QString kind = QString(keyword::kModelProg);
        if (r.mode == keyword::kModif) {
            NommerModele(a, kind, r.mode, r.num, r.name, r.caller);
            return;
        }
        if (FrmListeModele* list = OuvrirListeModele(a, kind, r.mode, r.caption, r.title, r.caller)) {
            list->on_chosen = r.chosen;
            list->save_programme = r.save;
        }
    });
}

}  // namespace plouvarine
