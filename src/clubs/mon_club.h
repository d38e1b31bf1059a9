#pragma once
// det_mon_club: the club of the current profile keeps its address, officers,
// activities and fees. The lists are edited in memory and written at once by a
// safe replacement: the old rows are marked, the new ones inserted, and only
// when all went in do the marked rows go; otherwise the new rows go and the
// old ones get their mark back.

#include "src/frame/view.h"

#include <QMap>
#include <QStandardItemModel>
#include <QString>
#include <QStringList>

namespace plouvarine {

struct ClubInfo {
    QString adresse;
    QString code_postal;
    QString ville;
    QString telephone;
    QString fax;
    QString mail;
};

struct Officer {
    QString fonction;
    QString nom;
    QString tel1;
    QString tel2;
    QString mail;
};

// The own-club statements. Each gives false after showing its message.
bool SauveInfosClub(AppContext& app, const ClubInfo& info, const QString& num);
bool MarqueSuppr(AppContext& app, const QString& table, const QString& libelle, const QString& code);
bool RetireSuppr(AppContext& app, const QString& table, const QString& libelle, const QString& code);
bool AjouteDirigeant(AppContext& app, const QString& code, const Officer& officer);
bool AjouteActivite(AppContext& app, const QString& code, const QString& activite, const QString& responsable);
bool AjouteTarif(AppContext& app, const QString& code, const QString& intitule, double montant);
// `libelle` is the whole ending of the message after "Erreur lors de la suppression des ".
bool SupprimeMarques(AppContext& app, const QString& table, const QString& condition, const QString& libelle);
int NombreTarifs(AppContext& app, const QString& code);

class OwnClubView : public View {
public:
    static constexpr QLatin1String kName{"det_mon_club"};
    // Euros to francs, shown only.
    static constexpr double kFrancRate = 6.55957;

    explicit OwnClubView(AppContext& app);

    // First tab.
    QString nom;
    QString code;
    ClubInfo info;
    // The club whose data this is, as the profile gave it at loading.
    const QString& club_code() const { return club_code_; }

    // "&Recharger": everything again from the base.
    void load();
    // "&Enregistrer": gives true when every step went through.
    bool save();
    // Cmd_code "Aide": the code help, whose code may replace the field's.
    void aide_code();
    // "&Quitter": closes and forgets what was not saved.
    void quit() { close(); }

    // Officers: "Fonction", "Nom", "Téléphone 1", "Téléphone 2", "Email".
    QStandardItemModel& Lsv_role() { return roles_; }
    Officer officer_at(int row) const;
    // Cmd_role 0: the fields as a new row, or over the selected row (-1: none).
    void put_officer(const Officer& officer, int selected_row);
    // Cmd_role 2.
    void remove_officer(int row);

    // Activities: the names (Cbo_activite) and the people in charge of the
    // chosen one (lsv_responsable, "Responsable").
    // In the base's order of texts, accents beside their letters.
    QStringList activities() const;
    const QString& chosen_activity() const { return chosen_activity_; }
    void choose_activity(const QString& activity);
    QStandardItemModel& lsv_responsable() { return responsables_; }
    // Cmd_activite 0 and 1.
    void add_activity(const QString& activity);
    void remove_activity(const QString& activity);
    // Cmd_add_resp and Cmd_suppr_resp, on the chosen activity.
    void add_responsable(const QString& name);
    void remove_responsable(int row);

    // Fees: "Tarif", "Montant".
    QStandardItemModel& Lsv_tarif() { return fees_; }
    // Cmd_AddTarif: the fee as a new row, or over the selected row (-1: none);
    // false, with the information shown, when the name or the amount is missing.
    bool put_fee(const QString& intitule, const QString& montant, int selected_row);
    // Cmd_SupprTarif.
    void remove_fee(int row);

    // The amount field: digits and one decimal mark, a comma or a point.
    static bool amount_key_accepted(const QString& text, QChar key);
    // The typed or shown amount as a number, "185.50", "185,50" or "185,50 €".
    static double amount_value(const QString& typed);
    // An amount as the field takes it, "185,50", and as the fee list shows it,
    // "185,50 €".
    static QString amount_field(double amount);
    static QString amount_text(double amount);
    // The conversion shown beside the amount when Chk_corres is ticked.
    static QString franc_conversion(const QString& typed);

private:
    void load_info();
    void load_officers();
    void load_activities();
    void load_fees();
    void show_responsables();
    // One table's safe replacement; `insert` adds row i and answers false on failure.
    bool replace_rows(const QString& table, const QString& word, int count,
                      const std::function<bool(int)>& insert);

    QString club_code_;
    QStandardItemModel roles_;
    QMap<QString, QStringList> activities_;
    QString chosen_activity_;
    QStandardItemModel responsables_;
    QStandardItemModel fees_;
};

// The command "&Information générale": the one own-club window.
void OuvreMonClub(AppContext& app);

}  // namespace plouvarine
