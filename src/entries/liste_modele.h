#pragma once
// frm_liste_modele: the models of the profile, of entries ("Engag") or of
// programmes ("Prog"). By its mode it shows one ("View"), opens one for
// editing ("Modif"), deletes with an undo ("Suppr"), hands one back to the
// window that asked ("Choisir"), or takes a competition's entries or a
// programme into a new or an existing model ("modele depuis engagement",
// "modele depuis programme").
//
// det_modele_obli asks a model's name: for a new model, or to rename one.

#include "src/frame/view.h"

#include <QItemSelectionModel>
#include <QStandardItemModel>
#include <functional>
#include <optional>

namespace plouvarine {

class FrmListeModele : public View {
public:
    static constexpr QLatin1String kName{"frm_liste_modele"};

    FrmListeModele(AppContext& app, const QString& kind, const QString& mode);

    const QString& kind() const { return kind_; }
    const QString& mode() const { return mode_; }

    // Loads the models of the profile and selects `num` (else the first).
    void set_liste(const QString& num = {});
    // Lsv_modele: "Modèle", the NumAuto of each row as its key.
    QStandardItemModel& Lsv_modele() { return list_; }
    QItemSelectionModel& selection() { return selection_; }
    QString current_num() const;
    QString current_name() const;

    // The command of the mode (hidden when its caption is empty).
    const QString& action_caption() const { return caption_; }
    void set_action_caption(const QString& caption);
    bool action_enabled() const;
    void cmd_action();
    // "&Ok": the deletions stand ("Suppr"), the selection is taken
    // ("Choisir", "modele depuis ..."); then the list closes.
    void cmd_ok();
    bool ok_enabled() const;
    // "&Annuler": the deletions of the pass come back ("Suppr"); the list closes.
    void cmd_annuler();
    // Double click or Enter on a row.
    void activate();
    // The Delete key: marks the selection in "Suppr".
    void delete_key();
    bool query_close() override;
    // A window opened from the list has gone: the names may have changed.
    void ForceUnloadWindowsEngag(const QString& form_name) override;

    // "modele depuis engagement": the competition whose entries go in.
    QString compet;
    // "Choisir": the model chosen, with its name.
    std::function<void(const QString& num, const QString& name)> on_chosen;
    // "modele depuis programme": writes the programme into the model `num`.
    std::function<bool(const QString& num)> save_programme;

private:
    void mark_selection();
    void undo_marks();
    void open_model(const QString& num, const QString& name);
    // Fills the model `num` from the competition or the programme.
    bool fill_model(const QString& num);
    void overwrite(const QString& num, const QString& name);
    void new_model();
    bool takes_into_model() const;

    QString kind_;
    QString mode_;
    QString caption_;
    bool marked_ = false;
    QStandardItemModel list_;
    QItemSelectionModel selection_{&list_};
};

class DetModeleObli : public View {
public:
    static constexpr QLatin1String kName{"det_modele_obli"};

    // `num` and the name in txt_nom for "Modif".
    DetModeleObli(AppContext& app, const QString& kind, const QString& mode, const QString& num = {});

    const QString& kind() const { return kind_; }
    const QString& mode() const { return mode_; }
    QString txt_nom;
    // The model once named: its number.
    const QString& num() const { return num_; }
    bool saved() const { return saved_; }

    // Command 0: the name into the base; the window stays on an empty name or
    // a failure.
    void cmd_ok();
    void cmd_annuler();

private:
    QString kind_;
    QString mode_;
    QString num_;
    bool saved_ = false;
};

// det_modele_obli, modal, for a model of `kind` in `mode`: "Modif" renames the
// model `num` (its name shown first), any other mode makes a new one. The
// model's number once saved, nothing when the person cancelled.
std::optional<QString> NommerModele(AppContext& app, const QString& kind, const QString& mode,
                                    const QString& num = {}, const QString& name = {},
                                    const QString& caller = {});

// The one model list, locked and shown; null when it stands already.
FrmListeModele* OuvrirListeModele(AppContext& app, const QString& kind, const QString& mode, const QString& caption,
                                  const QString& title, const QString& caller = {});

// The menu's model commands, the programme window's door to the models and
// the competition list's door of "modele depuis engagement".
void install_model_commands(AppContext& app);

}  // namespace plouvarine
