#pragma once
// frm_view_record, "Records du club": the first tab shows the records of the
// ticked events by band and pool, with or without their history; the second
// adds, replaces or corrects the record of one event, band and pool.

#include "src/frame/view.h"
#include "src/records/utils_record.h"

#include <QStandardItemModel>
#include <QStringList>
#include <array>

namespace plouvarine {

class RichBox;
class DetCategorieRecordClub;

class FrmViewRecord : public View {
public:
    static constexpr QLatin1String kName{"frm_view_record"};
    // LsvNage: the event's code is the row key; these ride beside it, where
    // the hidden Lsv_info_relais kept "Nb relayeurs" and "Possible 50".
    static constexpr int kNbNageursRole = Qt::UserRole + 2;
    static constexpr int kPossible50Role = Qt::UserRole + 3;
    // lsvRecords: what a row is, for the report.
    static constexpr int kKindRole = Qt::UserRole + 4;
    enum RowKind { Data = 0, Title = 1, Blank = 2 };

    explicit FrmViewRecord(AppContext& app);
    ~FrmViewRecord() override;
    void ForceUnloadWindowsEngag(const QString& form_name) override;

    // ---- First tab ----
    QStandardItemModel& lsv_nage() { return nages_; }
    void charge_nages();
    void set_checked(int row, bool on);
    int opt_view_bassin = 0;  // 0 25 m, 1 50 m, 2 "Tous bassins"
    bool chk_histo = false;    // "Historique complet"
    bool chk_relayeur = false; // "Afficher les relayeurs"
    QStandardItemModel& lsv_records() { return records_; }
    // Cbo_search: the event titles and the row of each in lsvRecords.
    const QStringList& cbo_search() const { return search_titles_; }
    int search_row(int index) const { return search_rows_.value(index, -1); }
    // Cmd_view: 0 show, 1 "Imprimer", 2 "Exporter", 3 "Effacer".
    void cmd_view(int index);
    bool charge_records();
    bool imprimer();
    bool exporter();
    void effacer();
    // The report of the list, the template's tags written (edite_records).
    bool edite_records(RichBox& rich);
    QString titre_export() const;

    // ---- Second tab ----
    // The tab opens on `row` of LsvNage, or on the first ticked event when -1.
    void ouvre_saisie(int row = -1);
    int event_row() const { return event_row_; }
    QString event_title() const;
    bool possible_50() const { return possible_50_; }
    int nb_relayeurs() const { return nb_relayeurs_; }
    // Cbo_cat and the Num_cat of each entry.
    const QStringList& cbo_cat() const { return cat_labels_; }
    int cbo_cat_index() const { return cat_index_; }
    void set_cbo_cat(int index);
    int opt_bassin() const { return opt_bassin_; }  // 0 "25 m", 1 "50 m"
    void set_opt_bassin(int index);
    static QString bassin_caption(int index);
    // The fields of the record.
    QString txt_nom;
    QString txt_prenom;
    QString txt_tps;
    std::array<QString, 3> txt_date;  // day, month, year
    // Cmd_Date "Sélection d'une date": the day picker fills the three fields.
    void cmd_date();
    QString txt_lieu;
    QString txt_relayeur;             // "Nom relayeur :"
    QStringList lsv_relais;
    int relais_selected = -1;
    void add_relayeur();              // "Ajouter à la composition"
    void remove_relayeur();           // "Supprimer de la composition"
    void move_relayeur(int delta);    // cmd_plus (-1), cmd_moins (+1)
    bool relais_enabled() const { return nb_relayeurs_ >= 2; }
    bool relais_full() const { return lsv_relais.size() >= std::min(nb_relayeurs_, 10); }
    // The record shown: its Num_auto, empty when there is none yet.
    const QString& current_record() const { return current_; }
    void charge_record();

    // Cmd_def: 0 "&Annuler", 1 "&Insérer", 2 "&Remplacer", 3 "&Modifier".
    // "&Insérer" and "&Remplacer" first open the fields, then save them;
    // "&Modifier" opens them on the record shown, saved by "&Remplacer".
    enum class Saisie { None, Insert, Replace, Correct };
    Saisie saisie() const { return saisie_; }
    bool editing() const { return saisie_ != Saisie::None; }
    bool cmd_def_enabled(int index) const;
    bool cmd_def(int index);
    RecordEntry entry() const;

    // "&Quitter"
    void quitter() { close(); }
    // "Catégories" opens det_categorie_record_club; its save reloads the bands.
    void categories();
    // "Chercher dans les performances" opens the proposals of new records.
    void chercher();

private:
    void charge_categories(const QString& sexe);
    void clear_fields();

    QStandardItemModel nages_;
    QStandardItemModel records_;
    QStringList search_titles_;
    QList<int> search_rows_;

    int event_row_ = -1;
    bool possible_50_ = true;
    int nb_relayeurs_ = 1;
    QString sexe_;
    bool cats_loaded_ = false;
    QStringList cat_labels_;
    QStringList cat_nums_;
    int cat_index_ = -1;
    int opt_bassin_ = 0;
    QString current_;
    DetCategorieRecordClub* categories_ = nullptr;
    Saisie saisie_ = Saisie::None;
};

// Opens frm_view_record; null when it is open already.
FrmViewRecord* OuvrirRecords(AppContext& app);
// The commands mnuPerfRecView and mnuPerfRecModifier.
void install_record_commands(AppContext& app);

}  // namespace plouvarine
