// "Table Cotation" and "Calculatrice de temps": the conversions and tables
// with their interval errors, and the adding machine's history and undo.

#include "points_fixture.h"
#include "src/base/text.h"
#include "src/tools/frm_calpts.h"
#include "src/tools/frm_caltps.h"

using namespace plouvarine;
using namespace plouvarine::testing;

namespace {

class CalculatorTest : public AppFixture {
protected:
    void SetUp() override
    {
        AppFixture::SetUp();
        connect(make_base());
        install_points_component(*app);
    }
    FrmCalpts& open_calpts(qint16 code)
    {
        FrmCalpts* view = OuvrirCalculPoints(*app);
        EXPECT_NE(view, nullptr);
        for (int r = 0; r < view->lsv_nage().rowCount(); ++r)
            if (view->lsv_nage().item(r, 1)->text().toInt() == code)
                view->select_event(r);
        EXPECT_EQ(view->code_nage(), code);
        return *view;
    }
    static QStringList column(QStandardItemModel& model, int c) { return plouvarine::testing::column_texts(model, c); }
};

TEST_F(CalculatorTest, ConvertsBothWaysInThePoolChosen)
{
    FrmCalpts& view = open_calpts(52);  // 100m n.l. Mess.
    // By sex, individual events before relays, the mixed relays last (true
    // sorts as -1, as the base's booleans always did).
    QStandardItemModel& events = view.lsv_nage();
    EXPECT_TRUE(events.item(events.rowCount() - 1, 0)->text().endsWith(QStringLiteral("Mixte")));
    view.txt_time[0] = QStringLiteral("0.4686");
    view.set_bassin(50);
    EXPECT_TRUE(view.txt_time[0].isEmpty());  // a new pool starts afresh
    view.txt_time[0] = QStringLiteral("0.4686");
    view.Cmd_calpts();
    EXPECT_EQ(view.lbl_pts_cal(), QStringLiteral("1000"));
    view.set_bassin(25);
    view.txt_time[0] = QStringLiteral("0.4686");
    view.Cmd_calpts();
    EXPECT_EQ(view.lbl_pts_cal(), QStringLiteral("876"));
    view.txt_pts[0] = QStringLiteral("876");
    view.Cmd_caltps();
    EXPECT_EQ(view.lbl_tps_cal(), QStringLiteral("46.86"));

    // Nothing to give: "Non Dispo".
    for (const char* points : {"0", "5000", "-20", "abc"}) {
        view.txt_pts[0] = QLatin1String(points);
        view.Cmd_caltps();
        EXPECT_EQ(view.lbl_tps_cal(), kNonDispo) << points;
    }
    view.txt_time[0] = QStringLiteral("0");
    view.Cmd_calpts();
    EXPECT_EQ(view.lbl_pts_cal(), kNonDispo);

    // Another event clears the results and the fields.
    view.select_event(3);
    EXPECT_TRUE(view.lbl_pts_cal().isEmpty());
    EXPECT_TRUE(view.txt_pts[0].isEmpty());
    EXPECT_TRUE(ui.texts().isEmpty());
}

TEST_F(CalculatorTest, TablesByPointsAndByTimeWithTheirIntervalErrors)
{
    FrmCalpts& view = open_calpts(52);
    view.set_bassin(50);
    view.txt_pts[1] = QStringLiteral("500");
    view.txt_pts[2] = QStringLiteral("505");
    view.Cmd_TablePts();
    QStandardItemModel& table = view.lsv_table();
    EXPECT_EQ(table.horizontalHeaderItem(0)->text(), QStringLiteral("Points"));
    EXPECT_EQ(column(table, 0), (QStringList{"500", "501", "502", "503", "504", "505"}));
    EXPECT_EQ(table.item(0, 1)->text(), QStringLiteral("59.03"));

    // By time: the time first, falling down the rows.
    view.txt_time[1] = QStringLiteral("0.5800");
    view.txt_time[2] = QStringLiteral("0.5850");
    view.Cmd_TableTps();
    EXPECT_EQ(table.horizontalHeaderItem(0)->text(), QStringLiteral("Temps"));
    const QStringList times = column(table, 0);
    ASSERT_GE(times.size(), 3);
    for (int r = 1; r < times.size(); ++r)
        EXPECT_LT(text_to_double(QString(times[r]).remove(u':')), text_to_double(QString(times[r - 1]).remove(u':')));
    EXPECT_EQ(column(table, 1).first().toInt() + times.size() - 1, column(table, 1).last().toInt());

    // Reversed or equal bounds: the error, the table as it was.
    view.txt_pts[1] = QStringLiteral("600");
    view.txt_pts[2] = QStringLiteral("600");
    view.Cmd_TablePts();
    view.txt_time[1] = QStringLiteral("1.0000");
    view.txt_time[2] = QStringLiteral("0.5900");
    view.Cmd_TableTps();
    EXPECT_EQ(ui.texts(), (QStringList{FrmCalpts::kErreurPoints, FrmCalpts::kErreurTemps}));
    EXPECT_EQ(table.horizontalHeaderItem(0)->text(), QStringLiteral("Temps"));

    // Points past the table stop the rows; none at all is one "Non Dispo" row.
    view.txt_pts[1] = QStringLiteral("1499");
    view.txt_pts[2] = QStringLiteral("3000");
    view.Cmd_TablePts();
    EXPECT_EQ(column(table, 0), (QStringList{"1499", "1500"}));
    view.txt_pts[1] = QStringLiteral("0");
    view.txt_pts[2] = QStringLiteral("10");
    view.Cmd_TablePts();
    EXPECT_EQ(column(table, 0), QStringList{kNonDispo});
    EXPECT_EQ(column(table, 1), QStringList{kNonDispo});
}

TEST_F(CalculatorTest, TimeCalculatorHistoryAndUndo)
{
    FrmCalTps* view = OuvrirCalculTemps(*app);
    ASSERT_NE(view, nullptr);
    EXPECT_FALSE(view->suppr_enabled());
    EXPECT_FALSE(view->copie_enabled());  // no entry window open
    for (const char* typed : {"0.3456", "0", "1.0578", "0.59.99"}) {
        view->txt_tps_ajout = QLatin1String(typed);
        view->cmd_Ajout();
    }
    // "0" adds nothing; "0.59.99" reads as 0.5900.
    QStandardItemModel& histo = view->lsv_histo();
    EXPECT_EQ(column(histo, 0), (QStringList{"0.3456", "1.0578", "0.5900"}));
    EXPECT_EQ(column(histo, 1), (QStringList{"0.3456", "1.4034", "2.3934"}));
    EXPECT_DOUBLE_EQ(view->total(), 2.3934);
    EXPECT_TRUE(view->txt_tps_ajout.isEmpty());

    // Undo the middle row: back to the total of the row before it.
    view->histo_selection().setCurrentIndex(histo.index(1, 0), QItemSelectionModel::ClearAndSelect);
    view->cmd_Suppr();
    EXPECT_DOUBLE_EQ(view->total(), 0.3456);
    EXPECT_EQ(column(histo, 0), (QStringList{"0.3456", "0.5900"}));
    view->histo_selection().setCurrentIndex(histo.index(0, 0), QItemSelectionModel::ClearAndSelect);
    view->cmd_Suppr();
    EXPECT_DOUBLE_EQ(view->total(), 0);
    view->cmd_Suppr();
    EXPECT_FALSE(view->suppr_enabled());
    EXPECT_DOUBLE_EQ(view->total(), 0);
    view->cmd_Quitter();
    EXPECT_TRUE(view->is_closed());
}

}  // namespace
