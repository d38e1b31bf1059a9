// The tools' windows opened from the menu, their buttons wired to the views,
// their titles whole; the monitor component's own window, always on top.

#include "src/frame/components.h"
#include "src/tools/suivi_perf.h"
#include "tools/points_fixture.h"
#include "window_test.h"

#include <QFile>
#include <QLabel>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionTitleBar>
#include <QTest>
#include <QTextEdit>
#include <QTreeView>

using namespace plouvarine;
using namespace plouvarine::testing;

namespace {

class ToolWindowsTest : public WindowTest<> {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        connect(make_base());
        app->state.club_code = QStringLiteral("FRA2210290017");
        app->state.profile_num = QStringLiteral("1");
        install_points_component(*app);
        open_main();
    }
    void look_at(QWidget* window, const QString& name) { shoot(window, name + QStringLiteral(".png")); }
};

TEST_F(ToolWindowsTest, TableCotationDrawsItsTable)
{
    QWidget* window = open(QStringLiteral("mnuOutilsCalculPoint"), QStringLiteral("frm_calpts"));
    ASSERT_NE(window, nullptr);
    auto* events = window->findChild<QTreeView*>("LsvNage");
    ASSERT_GT(events->model()->rowCount(), 40);
    // Tab goes down the window as it is drawn: the pool above the events.
    EXPECT_EQ(tab_order(window, {"Opt_bassin_25", "LsvNage"}), QStringLiteral("Opt_bassin_25 LsvNage"));
    EXPECT_TRUE(events->isColumnHidden(1));
    events->setCurrentIndex(events->model()->index(2, 0));
    click(window, QStringLiteral("Opt_bassin_50"));
    fill(window, {{"Txt_Time_0", "1.05"}});
    click(window, QStringLiteral("Cmd_calpts"));
    EXPECT_EQ(window->findChild<QLabel*>("lblPtsCal")->text(), QStringLiteral("503"));
    fill(window, {{"Txt_pts_1", "600"}, {"Txt_pts_2", "620"}});
    click(window, QStringLiteral("Cmd_TablePts"));
    EXPECT_EQ(window->findChild<QTreeView*>("LsvTable")->model()->rowCount(), 21);
    look_at(window, QStringLiteral("frm_calpts"));
}

TEST_F(ToolWindowsTest, TimeCalculatorAddsAndUndoes)
{
    QWidget* window = open(QStringLiteral("mnuOutilsCalculTps"), QStringLiteral("frm_calTps"));
    ASSERT_NE(window, nullptr);
    auto* field = window->findChild<QLineEdit*>("txt_tpsAjout");
    auto* suppr = window->findChild<QPushButton*>("cmd_Suppr");
    EXPECT_FALSE(suppr->isEnabled());
    EXPECT_FALSE(window->findChild<QPushButton*>("cmd_Copie")->isEnabled());
    for (const char* typed : {"0.3456", "1.0578"}) {
        QTest::keyClicks(field, QLatin1String(typed));
        click(window, QStringLiteral("cmd_Ajout"));
    }
    EXPECT_TRUE(field->text().isEmpty());
    auto* histo = window->findChild<QTreeView*>("lsv_Histo");
    ASSERT_EQ(histo->model()->rowCount(), 2);
    EXPECT_EQ(histo->model()->index(1, 1).data().toString(), QStringLiteral("1.4034"));
    EXPECT_TRUE(suppr->isEnabled());
    look_at(window, QStringLiteral("frm_calTps"));
    suppr->click();
    EXPECT_EQ(histo->model()->rowCount(), 1);
}

TEST_F(ToolWindowsTest, TeamPointsShowTheirSheets)
{
    install_template_component();
    const QString compet = app->db.append_row(QStringLiteral("Rcomp"),
                                              {{"Num", "IC"}, {"Type", "I"}, {"Nom", "Interclubs"}, {"Longueur", 25},
                                               {"Visible", true}, {"Deroule", false}},
                                              QStringLiteral("AutoNum"));
    app->db.exec_sql(QStringLiteral("INSERT INTO Engag_equipe (Num_compet, Num_profil, Eq_Homme) VALUES (%1, 1, 1)").arg(compet));
    app->db.exec_sql(QStringLiteral("INSERT INTO Relais (Num_profil, Num_compet, Code_epreuve, Num_Lic, Num_equipe, "
                                    "Equipe_mixte, Tps) VALUES (1, %1, 57, 1, 1, 0, 1.5797)").arg(compet));
    QWidget* window = open(QStringLiteral("mnuOutilsCalculPointEquipe"), QStringLiteral("frm_PtsInter"));
    ASSERT_NE(window, nullptr);
    auto* print = window->findChild<QPushButton*>("cmd_2");
    EXPECT_FALSE(print->isEnabled());
    click(window, QStringLiteral("cmd_0"));
    EXPECT_TRUE(window->findChild<QTextEdit*>("rich")->toPlainText().contains(QStringLiteral("TOTAL POINTS : 333")));
    window->resize(760, 420);
    look_at(window, QStringLiteral("frm_PtsInter"));
    click(window, QStringLiteral("cmd_2"));
    EXPECT_EQ(ui.printed.size(), 1u);
}

TEST_F(ToolWindowsTest, EachToolWindowShowsItsWholeTitleAtItsFirstSize)
{
    for (const char* command : {"mnuOutilsCalculPoint", "mnuOutilsCalculTps", "mnuOutilsCalculPointEquipe",
                                "mnuPerfOrdiParam"}) {
        main->trigger(QLatin1String(command));
        QMdiSubWindow* s = main->mdi_area()->activeSubWindow();
        ASSERT_NE(s, nullptr) << command;
        QStyleOptionTitleBar bar;
        bar.initFrom(s);
        bar.rect = QRect(0, 0, s->width(), s->style()->pixelMetric(QStyle::PM_TitleBarHeight, &bar, s));
        bar.titleBarFlags = s->windowFlags();
        bar.subControls = QStyle::SC_All;
        const QRect label = s->style()->subControlRect(QStyle::CC_TitleBar, &bar, QStyle::SC_TitleBarLabel, s);
        QFont bold = QApplication::font("QMdiSubWindowTitleBar");
        bold.setBold(true);  // as the title bar draws it
        EXPECT_GE(label.width(), QFontMetrics(bold).horizontalAdvance(s->windowTitle())) << command;
        if (s->objectName() == QLatin1String("frmMonitorDef"))
            look_at(s->widget(), s->objectName());
        s->close();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

TEST_F(ToolWindowsTest, TheMonitorShowsItsFiguresAboveTheOtherWindowsWhereTheProfileWants)
{
    const QString plugin = component_file(QStringLiteral("sviprf.dll"));
    ASSERT_TRUE(QFile::copy(built_file(plugin), app->app_file(plugin)));
    app->state.base_path = work_file(QStringLiteral("club.mdb"));
    app->state.monitor_pos_x = 40;
    app->state.monitor_pos_y = 30;
    app->state.monitor_interval = 0;  // the component keeps its floor
    main->trigger(QStringLiteral("mnuPerfOrdiAffiche"));
    PerfMonitor* monitor = suivi_charge(*app);
    ASSERT_NE(monitor, nullptr);
    EXPECT_TRUE(monitor->window_visible());
    EXPECT_EQ(monitor->lgPositionX(), 40);
    const QStringList figures = monitor->figures();
    ASSERT_EQ(figures.size(), 4);
    EXPECT_TRUE(figures[0].startsWith(QStringLiteral("Processeur : ")));
    EXPECT_FALSE(figures[2].contains(u'?')) << figures[2].toStdString();
    EXPECT_FALSE(figures[3].contains(u'?')) << figures[3].toStdString();
    QWidget* window = nullptr;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->objectName() == QLatin1String("SuiviPerf"))
            window = w;
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->windowFlags() & Qt::WindowStaysOnTopHint);
    QTest::qWait(250);  // a refresh at the floor interval
    look_at(window, QStringLiteral("suiviperf"));

    // The settings' dialog fetches what the component holds.
    QWidget* def = open(QStringLiteral("mnuPerfOrdiParam"), QStringLiteral("frmMonitorDef"));
    ASSERT_NE(def, nullptr);
    click(def, QStringLiteral("Command1_0"));
    EXPECT_EQ(def->findChild<QLineEdit*>("txtParam_0")->text(), QString::number(monitor->lgPositionX()));
    click(def, QStringLiteral("Command1_2"));

    main->trigger(QStringLiteral("mnuPerfOrdiMasquer"));
    EXPECT_FALSE(monitor->window_visible());
    libere_suivi(*app);
    EXPECT_EQ(suivi_charge(*app), nullptr);
    EXPECT_TRUE(ui.texts().isEmpty()) << ui.texts().join(u'|').toStdString();
}

}  // namespace
