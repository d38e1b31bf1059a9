#pragma once
// frm_cherche_record, "Records à valider": the swims of the club's history
// (Liffn, Liffn_relais) that would beat or equal the current record of their
// band, event and pool, or that would be the first one. Each line is accepted
// or set aside by the person; an accepted line goes through the rules of a
// record typed by hand.

#include "src/frame/view.h"
#include "src/records/utils_record.h"

#include <QStandardItemModel>
#include <functional>
#include <vector>

namespace plouvarine {

struct RecordProposal {
    RecordEntry entry;
    QString epreuve;       // the event's label
    QString record_tps;    // the current record's time, empty for none
};

// The proposals, by band, event and pool, oldest swim first, so that taking
// them in order builds the history of each record. A swim already held as a
// record is not proposed again. The age of a relay is that of its oldest
// swimmer; its holder is the club.
std::vector<RecordProposal> cherche_records(AppContext& app);

class FrmChercheRecord : public View {
public:
    static constexpr QLatin1String kName{"frm_cherche_record"};
    explicit FrmChercheRecord(AppContext& app);

    // "Nom", "Epreuve", "Catégorie", "Bassin", "Tps", "Date", "Lieu", "Record actuel".
    QStandardItemModel& lsv_propositions() { return list_; }
    const std::vector<RecordProposal>& propositions() const { return proposals_; }
    void charge();
    int selected = -1;
    // "&Accepter": the selected line becomes a record, if the rules allow it,
    // and leaves the list. "&Ignorer" sets it aside. "&Fermer".
    bool accepter();
    void ignorer();
    void fermer() { close(); }
    // Shows the window modally once the proposals are read; with none, says so.
    void ouvre(const QString& caller);
    std::function<void()> on_accepted;

private:
    void remove_selected();
    QStandardItemModel list_;
    std::vector<RecordProposal> proposals_;
};

}  // namespace plouvarine
