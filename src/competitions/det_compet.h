#pragma once
// det_compet: one competition, new ("Nouveau") or changed ("Modif"): name,
// number, place, first and last day, type, pool length, lanes, pool and the
// four codifications. An interclubs ("I") is always 25 m and "A" at every
// level: choosing that type sets and locks those options.

#include "src/competitions/utils_compet.h"
#include "src/frame/view.h"

#include <QStringList>
#include <array>

namespace plouvarine {

class PoolListView;

class DetCompet : public View {
public:
    static constexpr QLatin1String kName{"det_compet"};

    // Indexes of text1.
    enum Text1 : int { kNom = 0, kNumero = 1, kLieu = 2 };
    static constexpr int kText1Count = 3;
    // First index of each date triple of txt_date (day, month, year).
    enum DateTriple : int { kDebut = 0, kFin = 10 };
    static constexpr int kDateFieldCount = 13;
    // Option1.
    enum Type : int { kChampionnats = 0, kInterclubs = 1 };
    // Op_bass.
    enum Bassin : int { kBassin25 = 0, kBassin50 = 1 };
    // Op_f, Op_r, Op_rg, Op_d.
    enum Codif : int { kQualificative = 0, kReference = 1, kAnimation = 2 };
    enum Level : int { kFederale = 0, kInterRegionale, kRegionale, kDepartementale };
    static constexpr int kLevelCount = 4;

    // Cb_couloir: "3" to "10".
    static QStringList lane_choices();
    // The key filter of the number: a letter comes out in capitals; A to Z, 0
    // to 9, Backspace and Enter go through; any other key gives 0 (dropped).
    static int FiltreToucheNumero(int key_ascii);
    // The same rule over a pasted or typed text.
    static QString FiltreNumero(const QString& text);

    // Fills the lanes and sets the reference pool; nothing else is read
    // before load().
    DetCompet(AppContext& app, const QString& mode, const QString& autonum = {});
    ~DetCompet() override;

    const QString& mode() const { return mode_; }
    const QString& autonum() const { return autonum_; }

    // In any mode but "Nouveau": the competition's row.
    void load();

    // The fields, as the window shows them.
    std::array<QString, kText1Count> text1;
    std::array<QString, kDateFieldCount> txt_date;
    int Option1 = -1;                          // -1: no type chosen
    int Op_bass = -1;
    QString Cb_couloir = QStringLiteral("8");
    std::array<int, kLevelCount> codif{-1, -1, -1, -1};
    // The pool: its Num and the name shown (empty for the reference pool).
    QString num_piscine;
    QString lbl_piscine;

    // Choosing the type applies the interclubs rule.
    void set_type(int index);
    // Options of pool length and codification are disabled for an interclubs.
    bool options_enabled() const { return options_enabled_; }

    // cmdPiscine: the pool list in "Choisir"; cmdPiscineClear: no pool.
    void choose_pool();
    void clear_pool();
    // Cmd_clear_option: no codification at any level.
    void clear_options();
    // The date picker on a triple.
    void choose_date(int triple);

    // The control that takes the focus after a failed check.
    const QString& focus_field() const { return focus_; }
    // The checks, in order; the first failing one shows its message.
    bool ValideCompet();
    // tabCompet from the fields (dates as yyyymmdd).
    CompetRecord LitCompet() const;

    // Command1 0: true when saved (the view has closed).
    bool save();
    // Command1 1.
    void cancel() { close(); }

    // The pool list opened from here has closed.
    void ForceUnloadWindowsEngag(const QString& form_name) override;

private:
    bool fail(const QString& text, const QString& focus);
    QString date_of(int triple) const;

    QString mode_;
    QString autonum_;
    QString piscine_nulle_;
    QString focus_;
    bool options_enabled_ = true;
    PoolListView* pool_list_ = nullptr;
};

}  // namespace plouvarine
