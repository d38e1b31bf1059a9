#pragma once
// Frm_liste_profil: the profiles, with the one in use marked. "View" and
// "Modif" open det_profil on a row, "Suppr" deletes the marked profiles,
// "Choisir" makes a profile current. Frm_liste_profil_obli: the forced choice
// when no profile is in use.

#include "src/frame/menu_state.h"
#include "src/frame/view.h"

#include <QItemSelectionModel>
#include <QStandardItemModel>

namespace plouvarine {

// The club code of a profile row; the Num rides under kKeyRole.
inline constexpr int kProfileCodeRole = Qt::UserRole + 2;

class FrmListeProfil : public View {
public:
    static constexpr QLatin1String kName{"Frm_liste_profil"};
    static MenuLocks locks_for(const QString& keyword);

    FrmListeProfil(AppContext& app, const QString& keyword);

    const QString& keyword() const { return keyword_; }
    const QString& ok_caption() const { return ok_caption_; }
    void set_ok_caption(const QString& caption);

    // Columns "Profil", "Utilisé" ("X" on the profile in use).
    QStandardItemModel& list() { return list_; }
    QItemSelectionModel& selection() { return selection_; }
    const QStringList& marked() const { return marked_; }

    void set_liste();
    void ReloadListe() { set_liste(); }
    bool ok_enabled() const { return selection_.currentIndex().isValid(); }

    // Command1 2 or a double click, by keyword.
    void ok();
    // "Suppr": the Delete key or the command.
    void mark_selected();
    void confirm_deletion();
    void cancel() { close(); }

private:
    QString keyword_;
    QString ok_caption_;
    QStandardItemModel list_;
    QItemSelectionModel selection_{&list_};
    QStringList marked_;
};

class FrmListeProfilObli : public View {
public:
    static constexpr QLatin1String kName{"Frm_liste_profil_obli"};
    explicit FrmListeProfilObli(AppContext& app);

    QStandardItemModel& list() { return list_; }
    QItemSelectionModel& selection() { return selection_; }
    bool ok_enabled() const { return selection_.currentIndex().isValid(); }

    // The selected profile becomes current; a double click does the same.
    void confirm();
    // "&Annuler": no profile is chosen.
    void cancel() { close(); }

private:
    QStandardItemModel list_;
    QItemSelectionModel selection_{&list_};
};

}  // namespace plouvarine
