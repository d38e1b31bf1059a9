#include "src/entries/frm_engag.h"

#include "src/base/utils_date.h"
#include "src/base/utils_time.h"
#include "src/competitions/handoff.h"
#include "src/competitions/liste_compet.h"
#include "src/entries/liste_modele.h"
#include "src/entries/modeles.h"
#include "src/base/sql_text.h"
#include "src/frame/app_context.h"
#include "src/frame/keywords.h"
#include "src/frame/list_helpers.h"

#include <QScopedValueRollback>

namespace plouvarine {

FrmEngag::FrmEngag(AppContext& app, const QString& mode, const QString& key, bool modele)
    : View(app, QString(kName)), mode_(mode), key_(key), modele_(modele),
      scope_(modele ? EntryScope::model(key) : EntryScope::competition(key, app.state.profile_num))
{
    QObject::connect(&engag_selection_, &QItemSelectionModel::currentRowChanged, &engag_selection_,
                     [this](const QModelIndex& current) {
                         if (!loading_ && current.isValid())
                             on_swimmer(current.row());
                     });
}

void FrmEngag::Remplir_Info_Engag()
{
    AppContext& a = app();
    try {
        show_counts(read_counts(a, scope_));
        several_clubs_ = a.db.count_query(QStringLiteral("select count(*) from Club")) > 1;
        events_ = ChargerEpreuves(a.db);
        if (!modele_) {
            const Rows compet =
                a.db.load_rows(QStringLiteral("select Longueur, Debut from Rcomp where AutoNum = ") + key_);
            longueur_ = compet.first(0).toInt();
            debut_perf_ = DebutPerf(compet.first(1));
        }
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QString(), &e);
    }
    set_team(0);
}

void FrmEngag::show_counts(const TeamCounts& counts)
{
    teams_ = team_list(counts);
    txt_nb_equipe[0] = QString::number(counts.homme);
    txt_nb_equipe[1] = QString::number(counts.femme);
    txt_nb_equipe[2] = QString::number(counts.mixte);
}

void FrmEngag::show_teams_again()
{
    try {
        show_counts(read_counts(app(), scope_));
    } catch (const std::exception& e) {
        msg_erreur(app().ui, QString(), &e);
    }
    team_index_ = -1;
    set_team(0);
}

void FrmEngag::cmd_def_team()
{
    if (!def_team_enabled())
        return;
    AppContext& a = app();
    save_current();
    swimmer_.clear();
    const TeamCounts typed{count_from_field(txt_nb_equipe[0]), count_from_field(txt_nb_equipe[1]),
                           count_from_field(txt_nb_equipe[2])};
    apply_counts(a, scope_, typed);
    show_teams_again();
}

void FrmEngag::SetAccessControleForModele()
{
    edit_enabled_ = mode_ != keyword::kView;
    changed();
}

bool FrmEngag::row_shown(int row) const
{
    return row >= 0 && row < kPanelRows && events_[size_t(row)].shown;
}

bool FrmEngag::has_option_50(int row) const
{
    return row_shown(row) && events_[size_t(row)].possible_50;
}

bool FrmEngag::check_enabled(int row) const
{
    if (!row_shown(row) || swimmer_.isEmpty())
        return false;
    // The events swum only in a 25 m pool can't be entered elsewhere.
    return modele_ || longueur_ == 25 || events_[size_t(row)].possible_50;
}

bool FrmEngag::fields_enabled(int row) const
{
    return !modele_ && check_enabled(row) && panel_[size_t(row)].checked;
}

void FrmEngag::set_team(int index)
{
    if (index < 0 || index >= teams_.size())
        return;
    save_current();
    team_index_ = index;
    team_ = parse_team(teams_[index]);
    swimmer_.clear();
    PurgeInfoEngagementNageur();
    fill_lists();
    changed();
}

void FrmEngag::fill_lists()
{
    AppContext& a = app();
    const QScopedValueRollback<bool> loading(loading_, true);
    engag_.clear();
    licencie_.clear();
    try {
        QStringList headers{QStringLiteral("Nom"), QStringLiteral("Prénom"), QStringLiteral("Licence")};
        std::vector<int> columns{0, 1, 2};
        if (several_clubs_) {
            headers << QStringLiteral("Club Origine");
            columns.push_back(3);
        }
        fill_collections(a.db, team_members_sql(scope_, team_, several_clubs_),
                         {{&engag_, columns, several_clubs_ ? 4 : 3, false}});
        engag_.setHorizontalHeaderLabels(headers);
        fill_collections(a.db, team_candidates_sql(a, scope_, team_), {{&licencie_, {0, 1, 2}, 3, false}});
        licencie_.setHorizontalHeaderLabels({QStringLiteral("Licence"), QStringLiteral("Nom"), QStringLiteral("Prénom")});
        for (int r = 0; r < licencie_.rowCount(); ++r)
            licencie_.item(r, 0)->setData(licencie_.item(r, 1)->text() + QLatin1Char(' ') + licencie_.item(r, 2)->text(),
                                          kNomPrenomRole);
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QString(), &e);
    }
    engag_selection_.clear();
    licencie_selection_.clear();
}

void FrmEngag::select_swimmer(int row)
{
    const QModelIndex current = engag_selection_.currentIndex();
    if (current.isValid() && current.row() == row)
        on_swimmer(row);
    else
        select_row_at(engag_selection_, row);  // the selection's signal shows him
}

void FrmEngag::on_swimmer(int row)
{
    const QString num = row_key(engag_, row);
    if (num.isEmpty() || num == swimmer_)
        return;
    AppContext& a = app();
    save_current();
    PurgeInfoEngagementNageur();
    swimmer_ = num;
    status_text(a.ui, QStringLiteral("Affichage des engagements du nageur en cours"));
    try {
        AfficherEngagNageur(a.db, scope_, team_, swimmer_, events_, panel_);
        if (!modele_)
            tab_perf_ = ChercherPerfs(a.db, swimmer_, debut_perf_);
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QString(), &e);
    }
    status_text(a.ui, QString());
    changed();
}

void FrmEngag::PurgeInfoEngagementNageur()
{
    panel_ = EngagPanel{};
    tab_perf_ = TabPerf{};
}

void FrmEngag::save_current()
{
    if (mode_ == keyword::kView || swimmer_.isEmpty() || !app().db.is_open())
        return;
    SaveEngagNageur(app(), scope_, team_, swimmer_, events_, panel_);
}

void FrmEngag::set_checked(int row, bool checked)
{
    if (loading_ || !check_enabled(row))
        return;
    EngagRow& entry = row_at(row);
    entry = EngagRow{};
    entry.checked = checked;
    if (checked && !modele_) {
        const PerfSlot& perf = tab_perf_[size_t(row)];
        if (!perf.temps.isEmpty()) {
            entry.temps = perf.temps;
            entry.lieu = perf.lieu;
            if (!perf.date.isEmpty())
                AfficheDate(entry.jour, entry.mois, entry.annee, perf.date);
            entry.bassin_50 = perf.bassin == QLatin1String("50") && has_option_50(row);
        }
    }
    changed();
}

void FrmEngag::set_temps(int row, const QString& text)
{
    if (!fields_enabled(row))
        return;
    row_at(row).temps = text;
    last_temps_row_ = row;
}

void FrmEngag::leave_temps(int row)
{
    if (!fields_enabled(row))
        return;
    row_at(row).temps = normalise_temps(row_at(row).temps);
    changed();
}

void FrmEngag::set_lieu(int row, const QString& text)
{
    if (fields_enabled(row))
        row_at(row).lieu = text;
}

void FrmEngag::set_date_part(int row, int part, const QString& text)
{
    if (!fields_enabled(row))
        return;
    EngagRow& entry = row_at(row);
    (part == 0 ? entry.jour : part == 1 ? entry.mois : entry.annee) = text;
}

void FrmEngag::set_bassin_50(int row, bool on)
{
    if (!fields_enabled(row))
        return;
    row_at(row).bassin_50 = on && has_option_50(row);
    changed();
}

void FrmEngag::set_search_text(const QString& text)
{
    search_ = text;
    incremental_select(licencie_selection_, search_, 0, kNomPrenomRole);
    changed();
}

void FrmEngag::search_return()
{
    if (!edit_enabled_ || !incremental_search(licencie_, search_, 0, kNomPrenomRole))
        return;
    Cmd_add();
    search_.clear();
    changed();
}

void FrmEngag::Cmd_add()
{
    if (!edit_enabled_)
        return;
    AppContext& a = app();
    std::vector<int> rows;
    for (const QModelIndex& index : licencie_selection_.selectedRows())
        rows.push_back(index.row());
    if (rows.empty())
        if (const QModelIndex current = licencie_selection_.currentIndex(); current.isValid())
            rows.push_back(current.row());
    QStringList added;
    for (int row : rows) {
        const QString num = row_key(licencie_, row);
        if (num.isEmpty() || !AjouterDansEquipe(a, scope_, num, team_))
            break;
        added << num;
    }
    if (added.isEmpty())
        return;
    // The lists are read again: the swimmers move from right to left, and the
    // last one added is shown.
    const QString shown = swimmer_;
    save_current();
    swimmer_.clear();
    PurgeInfoEngagementNageur();
    fill_lists();
    if (const std::optional<int> row = find_key(engag_, added.last()))
        select_swimmer(*row);
    else if (const std::optional<int> before = find_key(engag_, shown))
        select_swimmer(*before);
    changed();
}

void FrmEngag::delete_key()
{
    if (!edit_enabled_ || swimmer_.isEmpty())
        return;
    AppContext& a = app();
    const QString num = swimmer_;
    const QModelIndex current = engag_selection_.currentIndex();
    const int row = current.isValid() ? current.row() : 0;
    if (RetirerDeLEquipe(a, scope_, num, team_) && team_.individual()) {
        // Taken out of "Individuel" he has neither team nor entries left: his
        // row goes now, as the end of the pass would take it.
        try {
            EffacerTable(a, scope_.nageur_table(), QStringLiteral("Num_Lic = ") + num + QStringLiteral(" and ") +
                                                       scope_.key_where());
        } catch (const std::exception& e) {
            msg_erreur(a.ui, QStringLiteral("Une erreur s'est produite lors de l'opération."), &e);
        }
    }
    swimmer_.clear();
    PurgeInfoEngagementNageur();
    fill_lists();
    if (const std::optional<int> next = row_after_removal(row, engag_.rowCount()))
        select_swimmer(*next);
    changed();
}

void FrmEngag::cmd_ok()
{
    AppContext& a = app();
    save_current();
    const bool modele_wanted = !modele_ && Chk_DoModele && mode_ != keyword::kView;
    const QString key = key_;
    const bool rename = modele_ && mode_ == keyword::kModif;
    const QString caller = a.windows.caller_of(QString(kName));
    finish();
    // A model edited keeps or changes its name.
    if (rename) {
        try {
            const QString name = a.db.load_rows(QStringLiteral("select Nom_modele from Modele_engag where NumAuto = ") +
                                                sql_key(key))
                                     .first();
            NommerModele(a, QString(keyword::kModelEngag), QString(keyword::kModif), key, name, caller);
        } catch (const std::exception& e) {
            msg_erreur(a.ui, QString(), &e);
        }
    }
    // The entries go on into a new model once this pass has ended: the door of
    // "modele depuis engagement" is the model list, which the entry models
    // register.
    if (modele_wanted)
        competition_chosen(a, QString(keyword::kModeleDepuisEngagement), key);
}

void FrmEngag::Cmd_modele()
{
    if (!cmd_modele_visible())
        return;
    AppContext& a = app();
    FrmListeModele* list =
        OuvrirListeModele(a, QString(keyword::kModelEngag), QString(keyword::kChoisir), QStringLiteral("&Choisir"),
                          QStringLiteral("Choix d'un modèle d'engagements"), QString(kName));
    if (list)
        list->on_chosen = [&a](const QString& num, const QString& name) {
            if (auto* engag = dynamic_cast<FrmEngag*>(a.windows.instance(QString(kName))))
                engag->appliquer_modele(num, name);
        };
}

void FrmEngag::appliquer_modele(const QString& num, const QString& name)
{
    AppContext& a = app();
    save_current();
    swimmer_.clear();
    status_text(a.ui, QStringLiteral("Récupération des données du modèle ") + name);
    AppliquerModele(a, num, key_);
    status_text(a.ui, QString());
    show_teams_again();
}

void FrmEngag::cmd_annuler()
{
    AppContext& a = app();
    if (mode_ != keyword::kView) {
        status_text(a.ui, QStringLiteral("Annulation des modifications"));
        try {
            if (mode_ == kNewModele) {
                EffacerModele(a, key_);
                a.db.exec_sql(QStringLiteral("DELETE from Modele_engag where NumAuto = ") + key_);
            } else {
                undo_team_pass(a, scope_);
                if (modele_) {
                    RecopierModele(a, key_);
                } else {
                    EffacerTable(a, QStringLiteral("Engag"), scope_.key_where());
                    if (CopierVersTempo(a, scope_.profile, key_, true))
                        CopierEtat(a, QStringLiteral("Relais"), QStringLiteral("Relais_tempo"), scope_.profile, key_);
                }
            }
        } catch (const std::exception& e) {
            msg_erreur(a.ui, QString(), &e);
        }
    }
    finish();
}

void FrmEngag::end_pass()
{
    AppContext& a = app();
    swimmer_.clear();
    if (!a.db.is_open())
        return;
    status_text(a.ui, QStringLiteral("Suppression des données temporaires"));
    try {
        if (mode_ != kNewModele && mode_ != keyword::kView)
            end_team_pass(a, scope_);
        a.db.clear_table(QStringLiteral("Engag_tempo"));
        a.db.clear_table(QStringLiteral("Relais_tempo"));
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QString(), &e);
    }
    status_text(a.ui, QString());
}

void FrmEngag::finish()
{
    end_pass();
    close();
}

bool FrmEngag::query_close()
{
    // The close box keeps the pass, as command 0 does.
    save_current();
    end_pass();
    return true;
}

FrmEngag* OuvrirEngag(AppContext& app, const QString& mode, const QString& key, const QString& title, bool modele,
                      const QString& caller)
{
    if (app.windows.check_window_open(QString(FrmEngag::kName)))
        return nullptr;
    auto engag = std::make_unique<FrmEngag>(app, mode, key, modele);
    engag->set_title(title);
    if (!engag->register_window(caller.isEmpty() ? QString(WindowRegistry::kMainWindow) : caller))
        return nullptr;
    engag->SetAccessControleForModele();
    engag->Remplir_Info_Engag();
    return show_child(app.ui, std::move(engag));
}

void EngagerCompetition(AppContext& app, const QString& compet, const QString& caller)
{
    try {
        snap_pass(app, EntryScope::competition(compet, app.state.profile_num));
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QString(), &e);
        return;
    }
    if (!CopierVersTempo(app, app.state.profile_num, compet) ||
        !CopierEtat(app, QStringLiteral("Relais_tempo"), QStringLiteral("Relais"), app.state.profile_num, compet))
        return;
    OuvrirEngag(app, QString(keyword::kModif), compet, QStringLiteral("Définition des engagements"), false, caller);
}

void install_entries_handoff()
{
    set_competition_door(QString(keyword::kChoixPourEngagements), [](AppContext& a, const QString& compet) {
        EngagerCompetition(a, compet, QString(FrmListeCompet::kName));
    });
}

}  // namespace plouvarine
