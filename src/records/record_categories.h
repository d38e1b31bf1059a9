#pragma once
// det_categorie_record_club, "Définition des catégories": the age bands by sex
// in which the club keeps its records. The list is the working copy; nothing
// reaches the base before "&Ok", which replaces the definition as a whole and
// carries the records over to the new bands.

#include "src/frame/view.h"

#include <QStandardItemModel>
#include <QStringList>
#include <array>
#include <functional>

namespace plouvarine {

class Database;

// One band of the definition.
struct CategorieRecord {
    QString libelle;
    int age_inf = 0;
    int age_sup = 0;
    QString sexe;  // "Homme", "Femme" or "Mixte"
};

class DetCategorieRecordClub : public View {
public:
    static constexpr QLatin1String kName{"det_categorie_record_club"};
    // The labels of Opt_sexe, in the order of its options.
    static const QStringList& sexes();

    explicit DetCategorieRecordClub(AppContext& app);

    // lsv_cat: "Libellé", "Age mini", "Age maxi", "Sexe", sorted by lowest
    // age, then sex.
    QStandardItemModel& lsv_cat() { return list_; }
    std::vector<CategorieRecord> lines() const;
    // Loads the club's bands.
    void charge();

    // The fields: txt_libelle, txt_age 0 and 1 (digits only), Opt_sexe.
    QString txt_libelle;
    std::array<QString, 2> txt_age;
    int opt_sexe = 0;
    // A click on a line fills the fields; -1 for none.
    void select_line(int row);
    int selected() const { return selected_; }

    // Cmd_def: 0 adds the fields as a line, 1 "&Modifier" changes the
    // selected line, 2 "&Supprimer" removes it. False when nothing changed.
    static QString cmd_def_caption(int index);
    bool cmd_def(int index);
    // The checks before a line goes in, `changed` the line being changed or
    // -1; shows why a line is refused under `caption`.
    bool verif_categorie(int changed, const QString& caption);
    // Where a band goes in the list.
    int position_categorie(int age_inf, const QString& sexe) const;

    // cmd "&Ok": saves and closes; "&Annuler" closes without saving.
    bool ok();
    void annuler() { close(); }

    // Told after a save (the records window reloads its bands).
    std::function<void()> on_saved;

private:
    void insert_line(const CategorieRecord& band);

    QStandardItemModel list_;
    int selected_ = -1;
};

// enregistre_categories: the definition `bands` in place of the club's, the
// records moved to the new bands lowest first, and what no longer is a
// record in a merged band deleted.
void enregistre_categories(Database& db, const QString& club, const std::vector<CategorieRecord>& bands);
// purge_records: keeps in band `num_cat` only the rows that stood as records
// in turn, per pool and event: a row dated after a faster one goes.
void purge_records(Database& db, const QString& num_cat);

// Opens the dialog on the club of the profile; null when it is open already.
DetCategorieRecordClub* OuvrirCategoriesRecord(AppContext& app, const QString& caller = {});

}  // namespace plouvarine
