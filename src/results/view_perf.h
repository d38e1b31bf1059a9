#pragma once
// frm_view_perf, "Performances des licenciés": the history of the ticked
// swimmers event by event (and the club's relays on the line "Relais"), the
// best or the latest swims by season and pool, printed through the template
// "sperf" or saved; the one place where performances are deleted, and the
// door to a swimmer's progression chart.

#include "src/frame/view.h"
#include "src/results/perf_progression.h"
#include "src/results/perf_queries.h"

#include <QItemSelectionModel>
#include <QStandardItemModel>
#include <optional>
#include <vector>

namespace plouvarine {


class FrmViewPerf : public View {
public:
    static constexpr QLatin1String kName{"frm_view_perf"};
    // Roles of a row's first item. LsvNageur: Licence.Num (empty on the
    // relay line), the full name, the club of origin. LsvPerf: the swimmer's
    // Licence.Num and the event's label on each swim and event title, and
    // whether the row comes from the relay pass. The key of LsvPerf rows
    // (kKeyRole) is their LsvNumCompet entry: "Num_compet,NumManuel".
    static constexpr int kNumRole = Qt::UserRole + 2;
    static constexpr int kFullNameRole = Qt::UserRole + 3;
    static constexpr int kClubRole = Qt::UserRole + 4;
    static constexpr int kEventRole = Qt::UserRole + 5;
    static constexpr int kRelayRole = Qt::UserRole + 6;

    explicit FrmViewPerf(AppContext& app);

    bool several_clubs() const { return several_clubs_; }

    // LsvNageur: "Nom", "Prénom", "N° Licence", ("Club Origine"), "Date
    // Naissance", a tick box on each row, and "Relais" last when the club has
    // relay swims.
    QStandardItemModel& lsv_nageur() { return nageurs_; }
    QItemSelectionModel& nageur_selection() { return nageur_selection_; }
    void charge_nageurs();
    void set_checked(int row, bool on);
    bool checked(int row) const;
    // The blank key on the selected swimmer.
    void flip_selected();
    bool chk_all_nageurs() const { return chk_all_; }
    void set_chk_all_nageurs(bool on);
    // txt_recherche: selects the first swimmer whose name begins with `typed`.
    std::optional<int> recherche(const QString& typed);

    // The options: read while closed, changed between "&Modifier" and
    // "&Valider" / "&Annuler".
    const PerfOptions& options() const { return options_; }
    PerfOptions& edited_options() { return edited_; }
    bool editing() const { return editing_; }
    void cmd_modifier();
    // False, with the options still open, on a blank "Personnalisé".
    bool cmd_valider();
    void cmd_annuler();

    // LsvPerf and its columns, set from the options.
    QStandardItemModel& lsv_perf() { return perfs_; }
    QItemSelectionModel& perf_selection() { return perf_selection_; }
    QString num_compet_key(int row) const;
    // cmd(0): the history of the ticked swimmers.
    void affiche_perfs();

    // Cbo_search_nageurs and Cbo_search_epreuve, with their rows in LsvPerf.
    struct SearchEntry {
        QString text;
        int row = 0;
    };
    const std::vector<SearchEntry>& cbo_search_nageurs() const { return search_swimmers_; }
    const std::vector<SearchEntry>& cbo_search_epreuve() const { return search_events_; }
    int search_swimmer() const { return search_swimmer_; }
    // Fills the events of that swimmer and selects his title row.
    void choose_search_swimmer(int index);
    void choose_search_event(int index);

    bool can_print() const { return can_print_; }
    // "Supprimer": the selected row is a swim.
    bool can_delete() const;
    // The progression chart: the selected row is a swim or an event title.
    bool can_chart() const { return chart_choice().has_value(); }
    std::optional<ProgressionChoice> chart_choice() const;

    void cmd_quitter() { close(); }
    // "Imprimer": edite_perfs sent to the printer.
    bool cmd_imprimer();
    // "Sauvegarder": tab text or rich text, as the person chooses.
    bool cmd_sauvegarder();
    // "Supprimer": supprime_perf on the selected row.
    void supprime_perf();
    // "Effacer": every swimmer unticked, the list emptied.
    void cmd_effacer();
    // Opens the progression chart of the selected row.
    void cmd_progression();

private:
    void set_columns();
    void add_row(const QStringList& cells, const QString& key = {}, const QString& num = {},
                 const QString& event = {}, bool relay = false);
    void fill();

    bool several_clubs_ = false;
    QStandardItemModel nageurs_;
    QItemSelectionModel nageur_selection_{&nageurs_};
    bool chk_all_ = false;
    PerfOptions options_;
    PerfOptions edited_;
    bool editing_ = false;
    QStandardItemModel perfs_;
    QItemSelectionModel perf_selection_{&perfs_};
    std::vector<SearchEntry> search_swimmers_;
    std::vector<std::vector<SearchEntry>> swimmer_events_;
    std::vector<SearchEntry> search_events_;
    int search_swimmer_ = -1;
    bool can_print_ = false;
};

// Opens frm_view_perf; null when it is open already.
FrmViewPerf* OuvrirViewPerf(AppContext& app);

}  // namespace plouvarine
