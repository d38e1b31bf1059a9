#pragma once
// frm_liste_licence: the swimmers of the current club, or of the current
// selection. By its mode it shows them ("View"), opens one in det_licence
// ("Modif"), deletes them with an undo ("Suppr"), gives one back to the view
// that asked ("Choisir"), or notes fees for swimmers without one
// ("SsCotisation").
//
// Deletion marks rows at once in the base (hidden licences, noted in
// Licence_tempo, or selection rows with Suppr), so that the undo can bring them
// all back while the view stays open; the confirmation finishes the deletion.

#include "src/frame/menu_state.h"
#include "src/frame/rows_table.h"
#include "src/frame/view.h"

#include <QItemSelectionModel>
#include <QMap>
#include <functional>
#include <optional>
#include <vector>

class QTextDocument;

namespace plouvarine {

// Column 0 of a row holds the Num under kKeyRole, and these.
inline constexpr int kNomCompletRole = Qt::UserRole + 2;  // "Nom Complet": name, a blank, first name
inline constexpr int kNumLicenceRole = Qt::UserRole + 3;  // the stored licence number

class FrmListeLicence : public View {
public:
    static constexpr QLatin1String kName{"frm_liste_licence"};
    static MenuLocks locks_for(const QString& mode);

    FrmListeLicence(AppContext& app, const QString& mode);
    ~FrmListeLicence() override;

    const QString& mode() const { return mode_; }
    const QString& ok_caption() const { return ok_caption_; }
    void set_ok_caption(const QString& caption);

    // Loads the list under `title`, from `sql` when given, else from the
    // statement of the club or selection.
    void set_liste(const QString& title, const QString& sql = {});
    // Loads again with the current statement and order, and selects `num`.
    void ReloadListe(const QString& num);
    const QString& sql_base() const { return sql_base_; }
    const QString& order_clause() const { return order_; }

    // lsv_licence.
    RowsTable& lsv_licence() { return list_; }
    QItemSelectionModel& selection() { return selection_; }
    bool has_club_column() const { return club_column_; }
    // The Num of the current row, or the empty text.
    QString current_num() const;

    // A click on column `column` (1 for the first): the ORDER BY clause,
    // with the sort state moved on.
    QString OrdreListe(int column);
    // The click itself: the list loads again in that order.
    void sort_by_column(int column);
    // The column the rows are in the order of (1 for the first: the names
    // until a click), and whether that order is ascending.
    int sorted_column() const { return last_column_ == 0 ? 1 : last_column_; }
    bool sorted_ascending() const { return last_column_ == 0 || ascending_; }

    // txt_recherche.
    const QString& search_text() const { return search_; }
    // Typing in the field: the search runs on the new text.
    void set_search_text(const QString& text);
    // A key in the field (its character code): Enter and Escape empty the
    // field, and Enter runs SimulAction. True when the key was taken.
    bool search_field_key(int key_ascii);
    // A key with the focus on the list; every key is taken.
    void list_key(int key_ascii);

    // The main command (cmd 2): its caption, whether it shows and is enabled.
    bool cmd2_visible() const { return !ok_caption_.isEmpty(); }
    bool cmd2_enabled() const;
    void cmd2();
    // cmd 0: the confirmation of a deletion (which closes the list), the fee
    // save, the choice.
    bool cmd0_visible() const;
    void cmd0();
    // cmd 1: the undo of a deletion, then the view closes; in other modes it
    // closes at once.
    QString cmd1_caption() const;
    void cmd1();
    // What the main command of the mode does, as Enter or a double click.
    void SimulAction();

    // "Suppr": the selected rows, one at a time.
    void supprime_selection();
    void confirme_suppression();
    // False, with a message, when the rows could not be put back.
    bool annule_suppression();

    // "Choisir": the chosen row.
    struct Choice {
        QString num;
        QString licence;
        QString nom;
        QString prenom;
    };
    const std::optional<Choice>& chosen() const { return chosen_; }
    std::function<void(const Choice&)> on_chosen;

    // "SsCotisation": the fee menu and the fees noted by Num.
    void ChargeMenuTarifs();
    // Ticks the current row's noted fee in the menu, before it shows.
    void prepare_menu_tarifs();
    void mnuTarifsSel_Click(int index);
    const QMap<QString, QString>& noted_fees() const { return fees_; }
    void sauve_tarifs();

private:
    void load(const QString& sql);
    std::optional<int> current_row() const;
    void empty_tempo();

    QString mode_;
    QString ok_caption_;
    QString sql_base_;
    QString order_;
    bool club_column_ = false;
    int last_column_ = 0;
    bool ascending_ = false;
    RowsTable list_;
    QItemSelectionModel selection_{&list_};
    QString search_;
    std::optional<Choice> chosen_;
    QMap<QString, QString> fees_;
};

// The licence report of the current club or selection, on the template
// "rptlic": the profile and club tags, then one line per swimmer.
struct LicenceReport {
    // Nom, Prenom, Licence, Nationalite, Sexe, Date_Naissance.
    std::vector<QStringList> lines;
};
LicenceReport LitRapportLicences(AppContext& app);
// The swimmers' lines in fixed-width columns, the date as d/mm/yyyy.
QStringList LignesRapportLicences(const LicenceReport& report);
// mnuLicPrint: reads, writes and prints the report; false when nothing was printed.
bool ImprimeRapportLicences(AppContext& app);

}  // namespace plouvarine
