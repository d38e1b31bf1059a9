#pragma once
// The forms of manual performances: frm_ajout_perf, "Ajout manuel de
// performances", adds a swim of one swimmer to Liffn; frm_ajout_perf_relais
// adds a relay swim of the club to Liffn_relais with its composition.

#include "src/frame/view.h"
#include "src/results/ajout_perf_utils.h"

#include <QItemSelectionModel>
#include <QStandardItemModel>

namespace plouvarine {

// What both forms share: the events' list LsvNage, the entry part, the date
// picker, and the save and cancel commands of Cmd_def.
class AjoutPerfForm : public View {
public:
    // Roles of a row's first item: the event's code (kKeyRole), Possible_50,
    // and in the relay form its sex and number of swimmers. In lsv_licence
    // the Licence.Num is the key.
    static constexpr int kPossible50Role = Qt::UserRole + 2;
    static constexpr int kSexeRole = Qt::UserRole + 3;
    static constexpr int kNbNageursRole = Qt::UserRole + 4;
    static constexpr int kNomCompletRole = Qt::UserRole + 5;
    static constexpr int kNaissanceRole = Qt::UserRole + 6;
    static constexpr int kClubRole = Qt::UserRole + 7;

    AjoutPerfForm(AppContext& app, const QString& name);

    PerfEntry entry;

    QStandardItemModel& lsv_nage() { return nages_; }
    QItemSelectionModel& nage_selection() { return nage_selection_; }
    QStandardItemModel& lsv_licence() { return licences_; }
    QItemSelectionModel& licence_selection() { return licence_selection_; }
    // The event chosen in LsvNage: the pool goes back to 25 m, and 50 m is
    // offered only when the event may be swum there.
    virtual void choose_event(int row);
    int event_row() const { return event_row_; }

    // Cmd_Date: the date picker on the three date fields.
    void cmd_date();
    void cmd_codif_clear();
    // Cmd_def(0): checks and saves; the entry is reset after a save.
    virtual bool cmd_enregistrer() = 0;
    // Cmd_def(1): the entry is reset.
    void cmd_annuler();
    void cmd_quitter() { close(); }

protected:
    void reset_entry();
    QString event_code() const;
    QString event_label() const;

    QStandardItemModel nages_;
    QItemSelectionModel nage_selection_{&nages_};
    QStandardItemModel licences_;
    QItemSelectionModel licence_selection_{&licences_};
    int event_row_ = -1;
    bool several_clubs_ = false;
};

class FrmAjoutPerf : public AjoutPerfForm {
public:
    static constexpr QLatin1String kName{"frm_ajout_perf"};
    explicit FrmAjoutPerf(AppContext& app);

    // lsv_licence: "Nom", "Prénom", "N° Licence", ("Club Origine"), "Date
    // Naissance"; `order` is the column clicked, from 0, or -1.
    void charge_licences(int order = -1);
    // Choosing a swimmer opens the second tab with the events of his sex.
    void choose_swimmer(int row);
    int tab() const { return tab_; }
    void set_tab(int tab);
    // "Messieurs" or "Dames".
    const QString& sexe_caption() const { return sexe_caption_; }
    bool cmd_enregistrer() override;

private:
    int swimmer_row_ = -1;
    int tab_ = 0;
    QString sexe_caption_;
};

class FrmAjoutPerfRelais : public AjoutPerfForm {
public:
    static constexpr QLatin1String kName{"frm_ajout_perf_relais"};
    explicit FrmAjoutPerfRelais(AppContext& app);

    // LsvNage: the relay events.
    void charge_nages();
    // The event also brings its swimmers into lsv_licence: those of its sex,
    // everyone for a mixed one.
    void choose_event(int row) override;
    int nb_nageurs() const { return nb_nageurs_; }

    // lsv_compo_relais: the relay's swimmers in leg order.
    QStandardItemModel& lsv_compo_relais() { return compo_; }
    QItemSelectionModel& compo_selection() { return compo_selection_; }
    // Cmd_add(0) moves the selected swimmer into the relay, Cmd_add(1) back.
    void cmd_add(int index);
    bool can_add(int index) const;
    // cmd_plus / cmd_moins: the selected leg one place earlier or later.
    void cmd_plus();
    void cmd_moins();
    bool cmd_enregistrer() override;

private:
    void move_row(QStandardItemModel& from, QItemSelectionModel& from_selection, QStandardItemModel& to,
                  QItemSelectionModel& to_selection);
    void swap_legs(int offset);

    int nb_nageurs_ = 0;
    QStandardItemModel compo_;
    QItemSelectionModel compo_selection_{&compo_};
};

// A row of the forms' lists, read-only, its key on the first item.
void append_perf_row(QStandardItemModel& model, const QStringList& cells, const QString& key);

// Open the forms; null when open already.
FrmAjoutPerf* OuvrirAjoutPerf(AppContext& app);
FrmAjoutPerfRelais* OuvrirAjoutPerfRelais(AppContext& app);

}  // namespace plouvarine
