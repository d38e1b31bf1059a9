#pragma once
// Frm_liste_compet: the competitions to come (or, for an import of results,
// those made by an import), the door to every later step. By its mode it only
// shows them ("View"), opens one in det_compet ("Modif"), hides them with an
// undo ("Suppr"), or lets the person choose one and hands it on: to the
// programme, the entries, the entry files, the printed products, the import
// of results, or back to the programme window that asked for a copy source.
//
// Deletion hides rows at once (Visible false), noting them in Rcomp_tempo so
// that "&Annuler" can show them again; "&Ok" makes the hiding stand.

#include "src/frame/menu_state.h"
#include "src/frame/view.h"

#include <QItemSelectionModel>
#include <QStandardItemModel>
#include <QStringList>
#include <functional>
#include <optional>

namespace plouvarine {

class FrmListeCompet : public View {
public:
    static constexpr QLatin1String kName{"Frm_liste_compet"};
    // The mode in which the programme window picks a competition to copy from.
    static constexpr QLatin1String kChooseForProg{"Choose compet for prog"};
    static MenuLocks locks_for(const QString& mode);
    // The windows that must not be at work when a competition is handed on
    // in `mode` (the programme, or the views of the entries); none for the
    // other modes.
    static QStringList busy_windows(const QString& mode);

    FrmListeCompet(AppContext& app, const QString& mode);

    const QString& mode() const { return mode_; }

    // Loads the list under `title`, from `sql` when given, else from the
    // statement of the mode.
    void set_liste(const QString& title, const QString& sql = {});
    // Loads again with the current statement and order, and selects `autonum`.
    void ReloadListe(const QString& autonum);
    const QString& sql_base() const { return sql_base_; }
    const QString& order_clause() const { return order_; }

    // lsv_compet: Num, Nom, lieu, Date Début (and Res in "Impor res"); the
    // first item of each row holds the AutoNum under kKeyRole.
    QStandardItemModel& lsv_compet() { return list_; }
    QItemSelectionModel& selection() { return selection_; }
    QString current_autonum() const;

    // A click on column 1 to 4 (Num, Nom, Lieu, Debut): ascending, then
    // descending, then ascending again.
    void sort_by_column(int column);
    // The column clicked last (1 to 4), 0 before any click, and its direction.
    int sorted_column() const;
    bool sorted_descending() const { return descending_; }

    // Command 0 "&Ok", 1 "&Annuler", 2 the action (caption of the mode; hidden
    // when empty), 3 "&Nouvelle" (import of results only).
    const QString& action_caption() const { return caption_; }
    void set_action_caption(const QString& caption);
    bool cmd1_enabled() const { return cmd1_enabled_; }
    bool cmd2_visible() const { return !caption_.isEmpty(); }
    bool cmd2_enabled() const { return cmd2_enabled_; }
    bool cmd3_visible() const;
    void cmd0();
    void cmd1();
    void cmd2();
    void cmd3();
    // Double click (or Enter) on a row.
    void activate();
    // The Delete key in the list: the action command of "Suppr".
    void delete_key();

    // "Choose compet for prog": the chosen AutoNum goes back to the caller.
    std::function<void(const QString& autonum)> on_chosen;

    // The close box: in "Suppr" an unconfirmed pass is undone.
    bool query_close() override;

private:
    void load(const QString& sql);
    void mark_results();
    void hide_selection();
    void undo_deletion();
    void hand_off(const QString& autonum);
    void empty_tempo();

    QString mode_;
    QString caption_;
    QString sql_base_;
    QString order_;
    QString sort_column_;
    bool descending_ = false;
    bool cmd1_enabled_ = true;
    bool cmd2_enabled_ = false;
    QStandardItemModel list_;
    QItemSelectionModel selection_{&list_};
};

}  // namespace plouvarine
