#pragma once
// frm_calpts, "Table Cotation": for one event and one pool, a time into points
// and points into a time, and tables of both over an interval.

#include "src/frame/view.h"
#include "src/tools/points_component.h"

#include <QItemSelectionModel>
#include <QStandardItemModel>
#include <array>

namespace plouvarine {

class FrmCalpts : public View {
public:
    static constexpr QLatin1String kName{"frm_calpts"};
    static inline const QString kErreurPoints = QStringLiteral("Erreur dans la saisie de l'interval de points.");
    static inline const QString kErreurTemps = QStringLiteral("Erreur dans la saisie de l'interval temps.");

    FrmCalpts(AppContext& app, PointsCalculator& calcul);

    // LsvNage: "Libelle" and "Code Nage" (hidden), women's and men's events
    // before the mixed ones, by sex, individual before relays.
    QStandardItemModel& lsv_nage() { return nage_; }
    QItemSelectionModel& nage_selection() { return nage_selection_; }
    void load_events();
    // Choosing an event or a pool clears the results, the fields and the table.
    void select_event(int row);
    qint16 code_nage() const;
    // "25 m / 50 m": the pool whose base times apply.
    int bassin() const { return bassin_; }
    void set_bassin(int metres);

    // Txt_Time 0 (the time to convert), 1 and 2 (the bounds of the table by
    // time); Txt_pts likewise.
    std::array<QString, 3> txt_time;
    std::array<QString, 3> txt_pts;

    const QString& lbl_pts_cal() const { return pts_cal_; }
    const QString& lbl_tps_cal() const { return tps_cal_; }
    void Cmd_calpts();
    void Cmd_caltps();
    // The tables: "Temps" and "Points" in the order of the request.
    void Cmd_TablePts();
    void Cmd_TableTps();
    QStandardItemModel& lsv_table() { return table_; }
    bool table_shown() const { return table_shown_; }

    void cmd_quitter() { close(); }

private:
    // Rows from `from` to `to` points, stopping at the first that gives no
    // time; one "Non Dispo" row when none does.
    void remplit_table(int from, int to, bool points_first);
    void clear_all();

    PointsCalculator& calcul_;
    QStandardItemModel nage_;
    QItemSelectionModel nage_selection_{&nage_};
    QStandardItemModel table_;
    int bassin_ = 25;
    QString pts_cal_;
    QString tps_cal_;
    bool table_shown_ = false;
};

// Opens "Table Cotation" from the menu; nothing when it is open already or the
// points component cannot be had.
FrmCalpts* OuvrirCalculPoints(AppContext& app);

}  // namespace plouvarine
