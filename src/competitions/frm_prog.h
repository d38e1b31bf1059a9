#pragma once
// frm_prog: the programme of a competition, or of a model. The catalogue is
// a list of tick boxes; a ticked event gets a day, a running order and its
// kind of classification. The view edits an array in memory, one slot per
// event code, and writes it back whole on "Ok"; until then nothing reaches
// the base. "&Détail" shows the programme as it will stand, day by day.

#include "src/competitions/utils_programme.h"
#include "src/frame/view.h"

#include <QDate>
#include <QItemSelectionModel>
#include <QSet>
#include <QStandardItemModel>
#include <QStringList>
#include <functional>

namespace plouvarine {

struct LenexProgramme;

class FrmProg : public View {
public:
    static constexpr QLatin1String kName{"frm_prog"};
    static constexpr QLatin1String kNewModele{"new modele"};
    // Captions of Cmd_det_def (accented: not Latin-1 literals).
    static inline const QString kCaptionDetail = QStringLiteral("&Détail");
    static inline const QString kCaptionDef = QStringLiteral("&Déf");

    // Indexes of the options of optNbFinales (1 to 3) and OptType.
    enum TypeFinale : int { kToutesCategories = 0, kCategories = 1 };

    // `key` is the AutoNum of the competition, or the NumAuto of the model
    // when `modele`.
    FrmProg(AppContext& app, const QString& mode, const QString& key, bool modele);

    const QString& mode() const { return mode_; }
    const QString& key() const { return key_; }
    bool bModele() const { return modele_; }
    int longueur() const { return longueur_; }
    int intJourneeMax() const { return journee_max_; }
    const TabProg& tabProg() const { return tab_; }
    TabProg& tabProg() { return tab_; }

    // Which commands show, by mode and by kind of programme.
    void setVisibleControlModele();
    // The definition side (true) or the finished programme (false).
    void setViewControle(bool visible);
    // Fills the catalogue, the programme and the days, then selects the first
    // event.
    void setListeNage();
    // The ticks from the array; the selected event into the fields.
    void RefreshListeNage();
    void setTabFromTab(const QString& num);
    void setTabFromModele(const QString& num);
    // A model's days from the number typed in txt_nb_journee.
    void SetListeFromText();
    // A model shown in "View": its finished programme.
    void loadModeleProg();

    // LsvNage: "Libelle", "Code Nage"; tick boxes on the first column, the
    // event code as the key of each row.
    QStandardItemModel& LsvNage() { return nage_; }
    QItemSelectionModel& nage_selection() { return nage_selection_; }
    // Lsv_prog: "Libelle", "Num Ordre".
    QStandardItemModel& Lsv_prog() { return prog_; }

    // A click on an event, or a change of its tick.
    void select_event(int row);
    void set_checked(int row, bool checked);
    int selected_event() const { return last_index_; }

    // The fields of the selected event.
    int Optclass = 0;      // the Type of the option on; 0 for none
    int optNbFinales = 0;  // 1 to 3; 0 for none
    int OptType = -1;      // TypeFinale; -1 for none
    QString txtordre;
    QString txt_nb_journee;
    bool Chk_modele = false;
    bool optclass_enabled() const { return optclass_enabled_; }
    bool finales_enabled() const { return finales_enabled_; }
    bool ordre_enabled() const { return ordre_enabled_; }
    // The option chosen in Optclass: 1 ("Temps") locks the finals.
    void set_optclass(int type);

    // CboDate: the days of the competition ("d mmm yyyy") or of the model.
    const QStringList& CboDate() const { return days_; }
    int cbo_index() const { return day_index_; }
    void set_cbo_index(int index);
    bool cbo_enabled() const { return cbo_enabled_; }

    // What shows.
    bool definition_visible() const { return definition_visible_; }
    bool Cmd_det_def_visible() const { return det_def_visible_; }
    bool Chk_modele_visible() const { return chk_modele_visible_; }
    bool Cmd_modele_visible() const { return cmd_modele_visible_; }
    bool Cmd_charger_visible() const { return cmd_charger_visible_; }
    bool Cmd_compet_visible() const { return cmd_compet_visible_; }
    bool journee_visible() const { return journee_visible_; }
    bool Command1_1_visible() const { return cmd1_visible_; }
    const QString& Cmd_det_def_caption() const { return det_def_caption_; }

    // The fields of the remembered event into the array.
    void SaveFormInTab();
    // Writes the array to `table` for `num`.
    bool SaveTabInTable(const QString& table, const QString& num, bool modele);

    // Cmd_det_def: the finished programme, or back to the definition.
    void Cmd_det_def();
    // The sources of a programme; each fills the array for review, nothing
    // reaches the base before "Ok".
    // Cmd_modele: a programme model chosen in the model list.
    void Cmd_modele();
    // Cmd_compet: a competition that took place, hidden or not.
    void Cmd_compet();
    // Cmd_charger: a Pcomp.txt (models only).
    void Cmd_charger();
    // Cmd_lenex: the events of a Lenex meet file.
    void Cmd_lenex();
    bool Cmd_lenex_visible() const { return cmd_compet_visible_; }
    // What each source does once chosen.
    void prendre_modele(const QString& num, const QString& name);
    void prendre_compet(const QString& autonum);
    void charger_pcomp(const QString& path);
    void charger_lenex(const QString& path);
    // The copy list's own statement: competitions that took place and have a
    // programme.
    static QString CompetPourProgSql();

    // Command1 0 "Ok" and 1 "&Annuler".
    void cmd_ok();
    void cmd_annuler();
    bool query_close() override;

private:
    void on_select(int row);
    void load_fields(int row);
    void empty_tempo();
    void clear_fields();
    void ControleOrdre(int day, int num_ordre);
    void show_detail();
    void apply_loaded(const LoadedProg& loaded);
    void finish();
    int code_of(int row) const;
    // The event codes of the list's rows: those a programme source may fill.
    QSet<int> listed_codes() const;
    // The open dialog of a programme source: the chosen existing file, or the
    // empty text on cancel.
    QString choose_source(const QString& title, const QString& filter);
    // Runs `read` on a fresh work folder for the source's copies, tells its
    // failure, then drops the folder and shows the list again.
    void read_in_work_folder(const std::function<void(const QString& work)>& read);
    void model_days(int count);
    void offer_meet(const LenexProgramme& meet);
    void load_days();

    QString mode_;
    QString key_;
    bool modele_;
    int longueur_ = 0;
    int journee_max_ = 1;
    int last_index_ = -1;
    bool no_save_ = false;  // loading: the fields are not saved
    bool filling_ = false;  // the lists are being filled: no event is chosen
    TabProg tab_{};

    QStandardItemModel nage_;
    QItemSelectionModel nage_selection_{&nage_};
    QStandardItemModel prog_;
    QStringList days_;
    QList<QDate> day_dates_;
    int day_index_ = -1;
    bool cbo_enabled_ = false;
    bool optclass_enabled_ = false;
    bool finales_enabled_ = false;
    bool ordre_enabled_ = false;

    bool definition_visible_ = true;
    bool det_def_visible_ = true;
    bool chk_modele_visible_ = true;
    bool cmd_modele_visible_ = true;
    bool cmd_charger_visible_ = true;
    bool cmd_compet_visible_ = true;
    bool journee_visible_ = true;
    bool cmd1_visible_ = true;
    QString det_def_caption_{kCaptionDetail};
};

}  // namespace plouvarine
