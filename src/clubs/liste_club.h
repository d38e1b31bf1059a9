#pragma once
// Frm_liste_club: the visible clubs, by name, with the action its keyword
// gives: "View" and "Modif" open dem_info on a row, "Suppr" deletes the marked
// clubs, "Choisir" and "liste club pour profil" give a club back to the caller.
// Frm_liste_club_obli: the club choice of the first profile.

#include "src/frame/menu_state.h"
#include "src/frame/view.h"

#include <QItemSelectionModel>
#include <QStandardItemModel>
#include <functional>

namespace plouvarine {

// Roles of the first item of a club row: its Num rides under kKeyRole.
inline constexpr int kClubCodeRole = Qt::UserRole + 2;
inline constexpr int kClubNameRole = Qt::UserRole + 3;

class FrmListeClub : public View {
public:
    static constexpr QLatin1String kName{"Frm_liste_club"};
    // What a list in `keyword` locks while it is open.
    static MenuLocks locks_for(const QString& keyword);

    FrmListeClub(AppContext& app, const QString& keyword);

    const QString& keyword() const { return keyword_; }
    const QString& ok_caption() const { return ok_caption_; }
    void set_ok_caption(const QString& caption);
    // The caller's own SELECT (Code_federal, Intitule, Num); empty for the
    // visible clubs by name.
    void set_sql(const QString& sql) { sql_ = sql; }

    // Columns "Code Club", "Libellé Club"; the Num under kKeyRole.
    QStandardItemModel& list() { return list_; }
    QItemSelectionModel& selection() { return selection_; }
    // Lsv_num: the Num of the rows marked for deletion.
    const QStringList& marked() const { return marked_; }

    void set_liste();
    void ReloadListe() { set_liste(); }
    // The OK command is shown unless the keyword is "View" with no caption,
    // and enabled when the list has a selected row.
    bool ok_visible() const;
    bool ok_enabled() const;

    // The OK command or a double click, by keyword.
    void ok();
    // "Suppr": the Delete key (code 46) or the command moves the selected rows
    // out of the list into the marked ones.
    void mark_selected();
    // "Suppr": deletes the marked clubs.
    void confirm_deletion();
    void cancel() { close(); }

    // The club chosen in "Choisir" or "liste club pour profil".
    const QString& chosen_code() const { return chosen_code_; }
    const QString& chosen_name() const { return chosen_name_; }
    std::function<void(const QString& code, const QString& name)> on_chosen;

private:
    std::optional<int> selected_row() const;

    QString keyword_;
    QString ok_caption_;
    QString sql_;
    QStandardItemModel list_;
    QItemSelectionModel selection_{&list_};
    QStringList marked_;
    QString chosen_code_;
    QString chosen_name_;
};

class FrmListeClubObli : public View {
public:
    static constexpr QLatin1String kName{"Frm_liste_club_obli"};
    explicit FrmListeClubObli(AppContext& app);

    QStandardItemModel& list() { return list_; }
    QItemSelectionModel& selection() { return selection_; }
    bool ok_enabled() const { return selection_.currentIndex().isValid(); }

    // Gives the selected club to on_chosen and closes; "&Annuler" only closes.
    void confirm();
    void cancel() { close(); }
    std::function<void(const QString& code, const QString& name)> on_chosen;

private:
    QStandardItemModel list_;
    QItemSelectionModel selection_{&list_};
};

}  // namespace plouvarine
