#pragma once
// frm_view_result, "Résultats des compétitions": the competitions that have
// results, the events of the chosen one with a tick box each, and one long
// list of result rows built for the ticked events, grouped by event, type of
// race, series and category. The list is what the exports write, as it stands.
// Nothing here writes to the base.

#include "src/frame/view.h"
#include "src/results/result_rows.h"

#include <QStandardItemModel>
#include <QStringList>

namespace plouvarine {

// The six settings of the options frame.
struct ResultOptions {
    int type_affich = 0;   // Opt_typeAffich: 0 "Par type de courses", 1 "Par séries"
    int pres_serie = 0;    // Opt_PresSerie: 0 "Par temps", 1 "Par couloirs"
    int club = 0;          // Opt_Club: 0 "Tous les clubs", 1 "Uniquement clubs liés au profil"
    bool equipe = false;        // Chk_equipe
    bool tps_inter = false;     // Chk_tps_inter
    bool nationalite = false;   // Chk_nationalite
    bool operator==(const ResultOptions&) const = default;
};

// What lire_options_affichage makes of the options: the flags of a run and the
// two ORDER BY tails, "<TABLE>" standing for the table's name.
struct DisplayOrder {
    bool by_series = true;
    QString order;         // the order of the blocks' queries
    QString series_order;  // the order of the series query
    QString inter_select;  // the select list's tail: the Inter columns, or " "
};
DisplayOrder lire_options_affichage(const ResultOptions& options);

class FrmViewResult : public View {
public:
    static constexpr QLatin1String kName{"frm_view_result"};
    // Role of lsv_compet's first item: Rcomp.AutoNum (the hidden lsv_info_compet).
    static constexpr int kAutoNumRole = Qt::UserRole + 1;
    // Roles of LsvNage's first item: Lsv_info_relais "Nb relayeurs", "Distance".
    static constexpr int kNbNageursRole = Qt::UserRole + 2;
    static constexpr int kDistanceRole = Qt::UserRole + 3;

    explicit FrmViewResult(AppContext& app);

    QStandardItemModel& lsv_compet() { return compets_; }
    QStandardItemModel& lsv_nage() { return nages_; }
    QStandardItemModel& lsv_results() { return results_; }
    const QStringList& cbo_search() const { return search_; }

    // The competitions that took place, are shown and have individual results,
    // the latest first; the first one is clicked.
    void charge_competitions();
    // A click on competition `row`: its events, the list emptied.
    void click_compet(int row);
    const QString& current_compet() const { return compet_; }

    // "Afficher toutes les nages": while ticked, every event stays ticked.
    bool chk_all() const { return chk_all_; }
    void set_chk_all(bool on);
    void set_ticked(int row, bool on);
    bool ticked(int row) const;
    // A double click ticks the event.
    void double_click_nage(int row) { set_ticked(row, true); }

    // The options, and whether their frame is open for change.
    const ResultOptions& options() const { return options_; }
    bool options_open() const { return options_open_; }
    // Changes one setting while the frame is open; "Par type de courses"
    // forces "Par temps".
    void set_options(const ResultOptions& options);
    bool pres_serie_enabled() const { return options_open_ && options_.type_affich == 1; }
    // Cmd_option: 0 "&Modifier", 1 "&Valider", 2 "&Annuler".
    void cmd_option(int index);

    // Columns of LsvResults for the current options; the list is emptied.
    void prepare_colonnes();
    int first_inter() const { return first_inter_; }

    // "Voir": the rows of the ticked events.
    void affiche_resultats();
    // "Epreuve :": the row of the event's title, selected and shown; -1 if none.
    int choose_search(int index);
    int current_row() const { return current_row_; }

    // Commands' states.
    bool voir_enabled() const { return !options_open_; }
    bool imprimer_enabled() const { return print_enabled_; }
    bool exporter_enabled() const { return print_enabled_; }
    bool modifier_enabled() const { return !options_open_; }
    bool search_enabled() const { return print_enabled_; }

    // "Imprimer": the list through the template "rescompet", each event
    // starting a page of its own. False when nothing was printed.
    bool imprimer();
    // "Exporter": the file chosen says the form: .txt tab text, .rtf rich
    // text, .htm the HTML tree. False when nothing was written.
    bool exporter();

    // The list as the exports read it.
    ResultSheet sheet() const;

    // cmd 1 "&Quitter"
    void quitter() { close(); }

private:
    void remplir_resultats_epreuve(const QString& code, bool relay, const DisplayOrder& order);
    void ajoute_ligne_titre(const QString& text, int distance = 0, const QString& first = QStringLiteral(" "));
    void add_row(const QStringList& cells);
    QString libelle_categorie(const QString& num_cat);
    void enable_outputs();

    QStandardItemModel compets_;
    QStandardItemModel nages_;
    QStandardItemModel results_;
    QStringList search_;
    QString compet_;
    bool chk_all_ = false;
    ResultOptions options_;
    ResultOptions saved_;
    bool options_open_ = false;
    bool print_enabled_ = false;
    int first_inter_ = 6;
    int current_row_ = -1;
};

// Opens frm_view_result; null when it is open already.
FrmViewResult* OuvrirResultats(AppContext& app);

}  // namespace plouvarine
