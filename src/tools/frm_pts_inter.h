#pragma once
// frm_PtsInter, "Calculs des points des équipes interclubs": what each team
// entered in an interclub meet not yet held is worth, from its entry times,
// one sheet per team with its total. Nothing is written to the base.

#include "src/frame/view.h"
#include "src/reports/rich_text.h"

#include <QItemSelectionModel>
#include <QStandardItemModel>

namespace plouvarine {

class PointsCalculator;

class FrmPtsInter : public View {
public:
    static constexpr QLatin1String kName{"frm_PtsInter"};
    static inline const QString kAucuneEquipe = QStringLiteral("AUCUNE EQUIPE ENGAGEE");

    explicit FrmPtsInter(AppContext& app);

    // lsv_numauto: "Num", "Nom" and the hidden "Numauto" of the interclub
    // meets to come.
    QStandardItemModel& lsv_numauto() { return compet_; }
    QItemSelectionModel& compet_selection() { return compet_selection_; }
    void load_competitions();
    // Rcomp.AutoNum of the chosen meet, empty for none.
    QString competition() const;

    // "Relais comptent double"
    bool chk_relais = false;
    // The sheets.
    RichBox rich;
    bool print_enabled() const { return print_enabled_; }

    // cmd 0: the sheets of the chosen meet.
    void calcule_points_equipes();
    // cmd 1
    void quitter() { close(); }
    // cmd 2: through the template "respts". False when nothing was printed.
    bool imprime_points();

private:
    // One team's swims and total.
    void team_sheet(PointsCalculator& calcul, const QString& kind, int number, const QString& mixite,
                    const QString& sexe, int bassin);

    QStandardItemModel compet_;
    QItemSelectionModel compet_selection_{&compet_};
    QString computed_;
    bool print_enabled_ = false;
};

FrmPtsInter* OuvrirPointsEquipes(AppContext& app);

}  // namespace plouvarine
