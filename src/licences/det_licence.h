#pragma once
// det_licence: one swimmer's licence, new ("Nouveau") or changed ("Modif"),
// on three tabs: identity, medical check with activities, fee.
//
// In a selection club the new swimmer is taken from a club of the selection:
// either typed in for a club chosen from the selection's clubs, or picked from
// the licences of these clubs; a licence that exists already only joins the
// selection. A selection has no activities and fees of its own, so the two
// last tabs stay empty and disabled there.

#include "src/frame/view.h"
#include "src/licences/utils_licences.h"

#include <QItemSelectionModel>
#include <QStandardItemModel>
#include <QStringList>
#include <array>

namespace plouvarine {

class DetLicence : public View {
public:
    static constexpr QLatin1String kName{"det_licence"};

    // Indexes of the text1 control array.
    enum Text1 : int {
        kNumero = 0,
        kNom = 1,
        kPrenom = 2,
        kNationalite = 3,
        kAdresse = 4,
        kSuiteAdresse = 5,
        kCodePostal = 6,
        kLocalite = 7,
        kTelephone = 8,
        kOrigine = 9,
        kCodeUnique = 10,
        kCodeClub = 11,
        kTel2 = 12,
        kMail = 13,
    };
    static constexpr int kText1Count = 14;
    // First index of each date triple of txt_description (day, month, year).
    enum DateTriple : int { kNaissance = 0, kDepot = 10, kObliteration = 20, kCtrlMedical = 30 };
    static constexpr int kDateFieldCount = 33;
    // SSTab1.
    enum Tab : int { kTabIdentite = 0, kTabMedical = 1, kTabTarifs = 2 };
    // Cb_licence.
    static const QStringList& licence_letters();

    // `num`: the licence of "Modif". Nothing is read before load().
    DetLicence(AppContext& app, const QString& mode, const QString& num = {});

    const QString& mode() const { return mode_; }
    const QString& num() const { return num_; }
    bool selection_club() const { return selection_; }

    // Fills the lists of the club, then, in "Modif", the licence.
    void load();

    // The fields, as the window shows them.
    std::array<QString, kText1Count> text1;
    std::array<QString, kDateFieldCount> txt_description;
    int Cb_licence = 0;                // 0 "F", 1 "C"
    int Option_sexe = -1;              // 0 "M", 1 "F", -1 neither
    std::array<bool, 6> Check1{};      // the six affiliations
    int Option_type = -1;              // 0 "Transfert", 1 "Nouvelle", 2 "Renouvellement"
    int Option_nature = -1;            // 0 "Normale", 1 "Eté"
    QString txt_Medecin;

    // LsvActivites: the club's activities, ticked for the licence's.
    QStandardItemModel& LsvActivites() { return activites_; }
    // lsvTarif: the club's fees, at most one selected.
    QStandardItemModel& lsvTarif() { return tarifs_; }
    QItemSelectionModel& tarif_selection() { return tarif_selection_; }
    // cmd_Tarif_Unselect.
    void unselect_tarif();

    // SSTab1: the tab that shows; only its controls are enabled.
    int current_tab() const { return current_tab_; }
    void set_tab(int tab);
    bool tab_enabled(int tab) const;

    // Cmd_Club: enabled for a new swimmer of a selection.
    bool club_choice_enabled() const;
    void choose_club();
    // "Origine du nageur :" and Cmd_origine, shown for a new swimmer of a selection.
    bool origin_visible() const { return club_choice_enabled(); }
    void choose_origin();
    // Cmd_pays.
    void choose_country();
    // Cmd_Date on a triple.
    void choose_date(int triple);

    // ValideLicence: the first failing check shows its message.
    bool ValideLicence();
    // LitLicence: the fields as the licence to write.
    LicenceRecord LitLicence();

    // Command1 0: saves by the mode; true when saved (the view has closed).
    bool save();
    // Command1 1.
    void cancel() { close(); }

private:
    void load_lists();
    void load_licence(const QString& num, bool take_fields_only);
    bool save_new();
    bool save_modif();

    QString mode_;
    QString num_;
    bool selection_ = false;
    QString sexe_loaded_;
    int current_tab_ = kTabIdentite;
    QStandardItemModel activites_;
    QStandardItemModel tarifs_;
    QItemSelectionModel tarif_selection_{&tarifs_};
};

}  // namespace plouvarine
