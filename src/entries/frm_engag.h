#pragma once
// frm_engag: the individual entries of a team ("Individuel" or one of the
// competition's teams) in a competition, or in an entry model. The person
// picks a swimmer in lsv_engag and ticks his events in the fifty-row panel;
// in a competition each ticked event proposes the swimmer's best time since
// the season before. The swimmer's rows are replaced in the base as the
// selection moves; Engag_tempo, filled before the window opens, lets the whole
// pass be undone.

#include "src/entries/utils_engag.h"
#include "src/frame/view.h"

#include <QItemSelectionModel>
#include <QStandardItemModel>
#include <QStringList>

namespace plouvarine {

class FrmEngag : public View {
public:
    static constexpr QLatin1String kName{"frm_engag"};
    static constexpr QLatin1String kNewModele{"new modele"};
    // The role of lsv_licencie's first item holding "Nom Prénom", what the
    // search matches.
    static constexpr int kNomPrenomRole = Qt::UserRole + 2;

    // `key`: the competition's AutoNum, or the model's NumAuto when `modele`.
    FrmEngag(AppContext& app, const QString& mode, const QString& key, bool modele);

    const QString& mode() const { return mode_; }
    const QString& key() const { return key_; }
    bool bModele() const { return modele_; }
    int longueur() const { return longueur_; }
    const QString& debut_perf() const { return debut_perf_; }

    // The teams, the pool length and the floor of the performances; then the
    // first team is shown.
    void Remplir_Info_Engag();
    // Which controls change data, by mode and kind.
    void SetAccessControleForModele();

    // cbo_team: "Individuel", then "Equipe 1 Homme"...
    const QStringList& cbo_team() const { return teams_; }
    int team_index() const { return team_index_; }
    // Saves the swimmer on show, then lists the swimmers of the team chosen.
    void set_team(int index);
    const Team& team() const { return team_; }

    // lsv_engag: "Nom", "Prénom", "Licence" (and "Club Origine" when the base
    // holds several clubs); the key of a row is Licence.Num.
    QStandardItemModel& lsv_engag() { return engag_; }
    QItemSelectionModel& engag_selection() { return engag_selection_; }
    // lsv_licencie: the swimmers who can still join the team: "Licence", "Nom",
    // "Prénom"; several may be chosen.
    QStandardItemModel& lsv_licencie() { return licencie_; }
    QItemSelectionModel& licencie_selection() { return licencie_selection_; }

    // The swimmer on show (Licence.Num), empty for none.
    const QString& swimmer() const { return swimmer_; }
    // Shows the swimmer of row `row` of lsv_engag, as a click does.
    void select_swimmer(int row);

    // The panel.
    const PanelEvents& events() const { return events_; }
    const EngagPanel& panel() const { return panel_; }
    const TabPerf& tabPerf() const { return tab_perf_; }
    bool row_shown(int row) const;
    bool check_enabled(int row) const;
    bool fields_enabled(int row) const;
    bool has_option_50(int row) const;
    // A tick given or taken by the person.
    void set_checked(int row, bool checked);
    // The fields of a row as typed: the time is rewritten on leaving it.
    void set_temps(int row, const QString& text);
    void leave_temps(int row);
    // The row of the last time field typed in, where the time calculator
    // copies its total; -1 before any.
    int last_temps_row() const { return last_temps_row_; }
    void set_lieu(int row, const QString& text);
    // `part` 0 day, 1 month, 2 year.
    void set_date_part(int row, int part, const QString& text);
    void set_bassin_50(int row, bool on);

    // txt_search: the search in lsv_licencie as the person types; Return with
    // a match adds the swimmer found.
    const QString& search_text() const { return search_; }
    void set_search_text(const QString& text);
    void search_return();
    // Cmd_add: the chosen swimmers of lsv_licencie join the team and the last
    // one is shown.
    void Cmd_add();
    // The Delete key in lsv_engag: the swimmer on show leaves the team, his
    // entries of the team and its relays.
    void delete_key();

    bool search_enabled() const { return edit_enabled_; }
    bool add_enabled() const { return edit_enabled_; }
    bool save_enabled() const { return edit_enabled_; }
    bool def_team_enabled() const { return edit_enabled_; }
    bool fields_visible() const { return !modele_; }

    // "Faire un modèle", only in a competition: on command 0 the entries go on
    // into a new model, through the competition list's door of "modele depuis
    // engagement" (the model list, registered by the entry models).
    bool Chk_DoModele = false;
    bool chk_domodele_visible() const { return !modele_ && mode_ != QLatin1String("View"); }

    // txt_nb_equipe(0) to (2): the men's, women's and mixed team counts, as
    // typed; cmd_def_team applies them (a lowered count sends the swimmers,
    // entries and relays of the teams above it back to individual) and shows
    // "Individuel".
    QString txt_nb_equipe[3];
    void cmd_def_team();

    // Cmd_modele, in a competition: a model chosen in the model list replaces
    // all the entries and relays of the competition.
    void Cmd_modele();
    bool cmd_modele_visible() const { return chk_domodele_visible(); }
    void appliquer_modele(const QString& num, const QString& name);

    // Command 0 keeps the pass, command 1 undoes it; both then clear the
    // work tables and close.
    void cmd_ok();
    void cmd_annuler();
    bool query_close() override;

private:
    void show_counts(const TeamCounts& counts);
    // The team counts read again from the base, and the first team shown.
    void show_teams_again();
    void fill_lists();
    void on_swimmer(int row);
    void PurgeInfoEngagementNageur();
    void save_current();
    // The snapshots cleared and the work tables emptied.
    void end_pass();
    void finish();
    EngagRow& row_at(int row) { return panel_[size_t(row)]; }

    QString mode_;
    QString key_;
    int last_temps_row_ = -1;
    bool modele_;
    EntryScope scope_;
    Team team_;
    int longueur_ = 25;
    QString debut_perf_;
    bool several_clubs_ = false;
    bool edit_enabled_ = true;
    bool loading_ = false;

    QStringList teams_;
    int team_index_ = -1;
    QStandardItemModel engag_;
    QItemSelectionModel engag_selection_{&engag_};
    QStandardItemModel licencie_;
    QItemSelectionModel licencie_selection_{&licencie_};
    QString swimmer_;
    QString search_;

    PanelEvents events_{};
    EngagPanel panel_{};
    TabPerf tab_perf_{};
};

// Opens frm_engag (unless it stands already) in `mode` for the competition or
// model `key`, under `title`; `caller` is told when it closes. Null when the
// window was open already.
FrmEngag* OuvrirEngag(AppContext& app, const QString& mode, const QString& key, const QString& title, bool modele,
                      const QString& caller = {});

// The hand-over of the competition list in "Choix pour engagements": the
// snapshots of the teams, the competition's entries and relays copied to the
// work tables, then frm_engag, "Définition des engagements".
void EngagerCompetition(AppContext& app, const QString& compet, const QString& caller);

// Makes "Choix pour engagements" of the competition list open the entries.
void install_entries_handoff();

}  // namespace plouvarine
