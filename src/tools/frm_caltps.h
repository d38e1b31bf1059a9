#pragma once
// frm_calTps, "Calculatrice de temps": adds up times typed one by one, with the
// history of each addition, the undo of one, and the copy of the total into
// the time field of the individual entries when they are open.

#include "src/frame/view.h"

#include <QItemSelectionModel>
#include <QStandardItemModel>

namespace plouvarine {

class FrmCalTps : public View {
public:
    static constexpr QLatin1String kName{"frm_calTps"};

    explicit FrmCalTps(AppContext& app);

    // txt_tpsAjout, "Temps à ajouter :" (format M.SSCC).
    QString txt_tps_ajout;
    // The running total, as a time value.
    double total() const { return total_; }

    // lsv_Histo: "Tps ajouté" and "Total".
    QStandardItemModel& lsv_histo() { return histo_; }
    QItemSelectionModel& histo_selection() { return histo_selection_; }

    // cmd_Ajout: adds the time typed (not 0) to the total, a row to the
    // history, and empties the field.
    void cmd_Ajout();
    // cmd_Suppr: removes the chosen row, and the total goes back to the row
    // before it (0 for the first).
    void cmd_Suppr();
    bool suppr_enabled() const { return histo_.rowCount() > 0; }

    // cmd_Copie "&Copier": the total into the time field of the individual
    // entries last typed in; only when the calculator was opened while they
    // were open, and they still are.
    bool copie_enabled() const;
    void cmd_Copie();
    // "Copier le résultat dans la fenêtre d'engagement": the copy happens on
    // "&Quitter" too.
    bool chk_CopieCalcul = false;
    void cmd_Quitter();

private:
    double total_ = 0;
    QStandardItemModel histo_;
    QItemSelectionModel histo_selection_{&histo_};
};

FrmCalTps* OuvrirCalculTemps(AppContext& app);

}  // namespace plouvarine
