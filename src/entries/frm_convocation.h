#pragma once
// frm_convocation, "Impression des convocations": the swimmers entered in a
// competition, ticked to receive a letter; the club's message in its own
// formatting; whether the programme and a reply coupon go in. One print run
// puts each ticked swimmer's letter on its own pages.

#include "src/frame/view.h"
#include "src/reports/rich_text.h"

#include <QStandardItemModel>
#include <array>

namespace plouvarine {

struct ConvocationSwimmer;

class FrmConvocation : public View {
public:
    static constexpr QLatin1String kName{"frm_convocation"};
    // Roles of a row's first item: the parallel Lsv_info_nageur.
    static constexpr int kNumRole = Qt::UserRole + 1;      // Licence.Num
    static constexpr int kNumClubRole = Qt::UserRole + 2;  // Club.Code_federal

    FrmConvocation(AppContext& app, const QString& num);

    const QString& num() const { return num_; }
    bool several_clubs() const { return several_clubs_; }

    // Lsv_nageurs: "Nom", "Prénom", "Licence" (and "Club Origine"), a check
    // box on each row: the swimmers with a row in Engag_nageur.
    QStandardItemModel& lsv_nageurs() { return nageurs_; }
    void SetListe();
    // "Sélectionner tous": every row takes the box's value.
    bool chk_all() const { return chk_all_; }
    void set_chk_all(bool on);
    void set_checked(int row, bool on);
    bool checked(int row) const;

    // The message, opened in "Courier New"; the window edits this document.
    RichBox rich;
    // The toolbar: 0 bold, 1 italic, 2 underline switched on the selection;
    // 3, 4, 5 align it left, centre, right.
    void cmd_text(int index);

    bool Chk_prog = false;     // "Imprimer programme"
    bool chk_reponse = false;  // "Imprimer coupon réponse"
    // "Réponse avant :" day, month, year; taken only with chk_reponse.
    std::array<QString, 3> txt_description;
    // The reply date as "d mmmm yyyy" when complete, else empty.
    QString reply_date() const;

    // "&Quitter"
    void cmd0() { close(); }
    // "&Imprimer": the ticked swimmers' letters in one print run. False when
    // nothing was printed (none ticked, template failed, cancelled).
    bool cmd1();
    // "PDF par nageur": each ticked swimmer's letter as its own PDF file in
    // a folder the person chooses, "Nom Prénom - Compétition.pdf", a number
    // added when the name is taken. The person may stop between two
    // swimmers. Gives the number of files written.
    int cmd_pdf();
    // The ticked swimmers, in list order.
    std::vector<ConvocationSwimmer> ticked() const;

private:
    QString num_;
    bool several_clubs_ = false;
    QStandardItemModel nageurs_;
    bool chk_all_ = false;
};

// A file name made of `base` for the folder `folder`: the characters that no
// file name may hold become "_", accents stay; " (2)", " (3)"... are added
// when the file exists already or is in `taken`.
QString convocation_file(const QString& folder, const QString& base, const QStringList& taken);

// Opens frm_convocation on competition `num`; null when it is open already.
FrmConvocation* OuvrirConvocation(AppContext& app, const QString& num, const QString& caller);

}  // namespace plouvarine
