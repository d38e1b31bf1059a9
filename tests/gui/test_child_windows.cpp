// The child windows of the main window over a base made by Nouvelle. Every
// way out of every one runs the same unload: the window goes, its menu locks
// and its place in busy_count come back once, and the next opening gives one
// window again. A view drawn by its window: the close box goes through the
// view, a modal window returns once its view is closed. The pool windows and
// the tools' windows with their buttons wired to the views; the monitor
// component's own window, always on top.

#include "gui/frame/view_window.h"
#include "gui/frame/window_factory.h"
#include "src/frame/components.h"
#include "src/tools/suivi_perf.h"
#include "tools/points_fixture.h"
#include "window_test.h"

#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionTitleBar>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <QTreeView>

using namespace plouvarine;
using namespace plouvarine::testing;

namespace {

const QString kCode = QStringLiteral("0535600012345");

struct ChildWindow {
    const char* command;  // the menu entry that opens it
    const char* name;     // the window's name
    const char* button;   // its own way out (Fermer, Annuler or Quitter)
    // The licence list keeps Escape for its search field, which it empties.
    bool escape_closes = true;
};

// One of each kind: lists, details, the club's information, in each subject.
const ChildWindow kWindows[] = {
    {"mnuBaseClubListe", "Frm_liste_club", "cmd_annuler"},
    {"mnuBaseClubSuppr", "Frm_liste_club", "cmd_annuler"},
    {"mnuBaseClubNew", "dem_info", "cmd_annuler"},
    {"mnuBaseClubConfigInfo", "det_mon_club", "Command1_2"},
    {"mnuBaseProfilList", "Frm_liste_profil", "cmd_annuler"},
    {"mnuBaseProfilNew", "det_profil", "cmd_annuler"},
    {"mnuLicListe", "frm_liste_licence", "cmd_1", false},
    {"mnuLicSuppr", "frm_liste_licence", "cmd_1", false},
    {"mnuLicNew", "det_licence", "Command1_1"},
    {"mnuCompetListe", "Frm_liste_compet", "Command1_0"},
    {"mnuCompetNew", "det_compet", "Command1_1"},
    {"mnuModelePiscineView", "Frm_liste_piscine", "Command1_1"},
    {"mnuModelePiscineNew", "det_Piscine", "cmd_annuler"},
    {"mnuCompetVoirResult", "frm_view_result", "cmd_1"},
    {"mnuPerfRecView", "frm_view_record", "cmd_quitter"},
    {"mnuPerfRecModifier", "det_categorie_record_club", "cmd_1"},
    {"mnuModeleEngagView", "frm_liste_modele", "Command1_1"},
    {"mnuModeleProgSuppr", "frm_liste_modele", "Command1_1"},
    {"mnuPerfView", "frm_view_perf", "cmd_1"},
    {"mnuPerfAjout", "frm_ajout_perf", "cmd_quitter"},
    {"mnuPerfAjoutRelais", "frm_ajout_perf_relais", "cmd_quitter"},
    {"mnuOutilsCalculPoint", "frm_calpts", "cmd_quitter"},
    {"mnuOutilsCalculTps", "frm_calTps", "cmd_Quitter"},
    {"mnuOutilsCalculPointEquipe", "frm_PtsInter", "cmd_1"},
    {"mnuPerfOrdiParam", "frmMonitorDef", "Command1_2"},
};

// The windows of a competition chosen in the competition list (its Ok).
const ChildWindow kCompetitionWindows[] = {
    {"mnuEngagIndiv", "frm_engag", "Command1_0"},
    {"mnuEngagRelais", "frm_engag_relais", "Command1_1"},
    {"mnuEngagConvoc", "frm_convocation", "cmd_0"},
};

// A window that may not be left until its work is marked done.
class ChoreView : public View {
public:
    explicit ChoreView(AppContext& app) : View(app, QStringLiteral("frm_chore")) {}
    bool query_close() override { return done; }
    bool done = false;
};

enum Exit { CloseBox, InnerClose, Escape, OwnButton };
const char* const kExitNames[] = {"close box", "close of the inner window", "Escape", "own button"};

class ChildWindowsTest : public WindowTest<> {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        gui::register_window(QStringLiteral("frm_chore"),
                             [](View& v, QWidget* parent) { return new gui::ViewWindow(v, parent); });
        open_main();
        app->enable_menus(false);
        ui.files.push_back(work_file(QStringLiteral("club.mdb")));
        main->trigger(QStringLiteral("mnuBaseNew"));
        ASSERT_TRUE(app->db.is_open());
        // A club of the base, so that no detail window is the forced first one.
        app->db.exec_sql(QStringLiteral("INSERT INTO Club (Code_federal, Intitule) VALUES ('%1', 'CN Vannes')")
                             .arg(kCode));
        app->state.club_code = kCode;
        app->state.club_name = QStringLiteral("CN Vannes");
        app->state.profile_num = QStringLiteral("1");
        install_points_component(*app);
    }
    // Whether the title bar of `sub` shows its whole title.
    static bool whole_title(QMdiSubWindow* sub)
    {
        QStyleOptionTitleBar bar;
        bar.initFrom(sub);
        bar.rect = QRect(0, 0, sub->width(), sub->style()->pixelMetric(QStyle::PM_TitleBarHeight, &bar, sub));
        bar.titleBarFlags = sub->windowFlags();
        bar.subControls = QStyle::SC_All;
        const QRect label = sub->style()->subControlRect(QStyle::CC_TitleBar, &bar, QStyle::SC_TitleBarLabel, sub);
        QFont bold = QApplication::font("QMdiSubWindowTitleBar");
        bold.setBold(true);  // as the title bar draws it
        return label.width() >= QFontMetrics(bold).horizontalAdvance(sub->windowTitle());
    }
    void look_at(QWidget* window, const QString& name) { shoot(window, name + QStringLiteral(".png")); }
    QList<QMdiSubWindow*> subs(const QString& name) const
    {
        QList<QMdiSubWindow*> found;
        for (QMdiSubWindow* sub : main->mdi_area()->subWindowList())
            if (sub->objectName() == name)
                found << sub;
        return found;
    }
    // What the menus and the registry show when no child window is open.
    void expect_all_given_back(const QString& what)
    {
        EXPECT_TRUE(main->mdi_area()->subWindowList().isEmpty()) << what.toStdString();
        EXPECT_EQ(app->state.busy_count, 0) << what.toStdString();
        EXPECT_TRUE(app->windows.open_windows().isEmpty()) << what.toStdString();
        for (const char* command : {"mnuBaseClubListe", "mnuLicListe", "mnuCompetListe", "mnuModelePiscineView",
                                    "mnuBaseProfilList", "mnuBaseClubConfigInfo"})
            EXPECT_TRUE(main->action(QString::fromLatin1(command))->isEnabled())
                << what.toStdString() << ": " << command;
    }
    void leave(QMdiSubWindow* sub, const ChildWindow& w, Exit exit)
    {
        QWidget* inner = sub->widget();
        switch (exit) {
        case CloseBox: sub->close(); break;
        case InnerClose: inner->close(); break;
        case Escape: QTest::keyClick(inner->focusWidget() ? inner->focusWidget() : inner, Qt::Key_Escape); break;
        case OwnButton: {
            auto* button = inner->findChild<QPushButton*>(QString::fromLatin1(w.button));
            ASSERT_NE(button, nullptr) << w.name << " " << w.button;
            button->click();
            break;
        }
        }
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

}  // namespace

TEST_F(ChildWindowsTest, EveryWayOutOfEveryChildWindowUnloadsItOnce)
{
    for (const ChildWindow& w : kWindows) {
        for (Exit exit : {CloseBox, InnerClose, Escape, OwnButton}) {
            const QString what = QStringLiteral("%1 by %2").arg(QLatin1String(w.command), QLatin1String(kExitNames[exit]));
            main->trigger(QString::fromLatin1(w.command));
            QList<QMdiSubWindow*> open = subs(QString::fromLatin1(w.name));
            ASSERT_EQ(open.size(), 1) << what.toStdString();
            EXPECT_EQ(app->state.busy_count, 1) << what.toStdString();
            // At its first size the title bar shows the whole title.
            EXPECT_TRUE(whole_title(open.first())) << what.toStdString();
            // A second opening brings the same window to the front.
            main->trigger(QString::fromLatin1(w.command));
            ASSERT_EQ(subs(QString::fromLatin1(w.name)), open) << what.toStdString();

            if (exit == Escape && !w.escape_closes) {
                leave(open.first(), w, exit);
                EXPECT_EQ(subs(QString::fromLatin1(w.name)), open) << what.toStdString();
                EXPECT_EQ(app->state.busy_count, 1) << what.toStdString();
                leave(open.first(), w, CloseBox);
                expect_all_given_back(what);
                continue;
            }

            leave(open.first(), w, exit);
            expect_all_given_back(what);
            // A window left behind would hide every later fault: clear it.
            qDeleteAll(subs(QString::fromLatin1(w.name)));
        }
        // Opened again after all that, it is one window.
        main->trigger(QString::fromLatin1(w.command));
        EXPECT_EQ(subs(QString::fromLatin1(w.name)).size(), 1) << w.command;
        EXPECT_EQ(app->state.busy_count, 1) << w.command;
        leave(subs(QString::fromLatin1(w.name)).first(), w, CloseBox);
        expect_all_given_back(QString::fromLatin1(w.command));
    }
}

TEST_F(ChildWindowsTest, TheMainWindowsPathsNeverLeaveAWindowWithoutItsBase)
{
    main->trigger(QStringLiteral("mnuLicSuppr"));
    ASSERT_EQ(subs(QStringLiteral("frm_liste_licence")).size(), 1);

    // Fermer, Quitter and the close box refuse while the list is at work,
    // with no question: the list keeps its base and its locks.
    for (const char* way : {"mnuBaseClose", "mnuExit", ""}) {
        ui.clear();
        if (*way)
            main->trigger(QLatin1String(way));
        else
            EXPECT_FALSE(main->close());
        EXPECT_TRUE(ui.messages.empty()) << way;
    }
    EXPECT_TRUE(app->db.is_open());
    EXPECT_EQ(subs(QStringLiteral("frm_liste_licence")).size(), 1);
    EXPECT_EQ(app->state.busy_count, 1);
    EXPECT_FALSE(main->action(QStringLiteral("mnuLicSuppr"))->isEnabled());

    // Annuler Opérations puts the saved base back in place of this one: the
    // list opened on it goes first.
    ui.answers.push_back(Button::Yes);
    main->trigger(QStringLiteral("mnuBaseAnnuler"));
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_TRUE(app->db.is_open());
    expect_all_given_back(QStringLiteral("Annuler Opérations"));

    // Then Fermer goes through, and Nouvelle opens another base with no window.
    ui.answers.push_back(Button::Yes);
    main->trigger(QStringLiteral("mnuBaseClose"));
    EXPECT_FALSE(app->db.is_open());
    ui.files.push_back(work_file(QStringLiteral("autre.mdb")));
    main->trigger(QStringLiteral("mnuBaseNew"));
    ASSERT_TRUE(app->db.is_open());
    expect_all_given_back(QStringLiteral("Nouvelle"));
}

TEST_F(ChildWindowsTest, TheWindowsOfAChosenCompetitionLeaveEveryWay)
{
    install_template_component();
    app->clock.set_today(QDate(2025, 3, 10));
    app->db.append_row(QStringLiteral("Rcomp"),
                       {{"Num", "IC1"}, {"Nom", "Interclubs"}, {"Debut", "20250405"}, {"Fin", "20250405"},
                        {"Lieu", "Brest"}, {"Longueur", 50}, {"Visible", true}, {"Deroule", false}},
                       QStringLiteral("AutoNum"));
    for (const ChildWindow& w : kCompetitionWindows) {
        for (Exit exit : {Escape, CloseBox, OwnButton}) {
            const QString what = QStringLiteral("%1 by %2").arg(QLatin1String(w.name), QLatin1String(kExitNames[exit]));
            ASSERT_NE(open_chosen(QLatin1String(w.command), QLatin1String(w.name)), nullptr) << what.toStdString();
            const QList<QMdiSubWindow*> open = subs(QString::fromLatin1(w.name));
            ASSERT_EQ(open.size(), 1) << what.toStdString();
            const int busy = app->state.busy_count;
            leave(open.first(), w, exit);
            EXPECT_TRUE(subs(QString::fromLatin1(w.name)).isEmpty()) << what.toStdString();
            EXPECT_EQ(app->state.busy_count, busy - 1) << what.toStdString();
            // The competition list, if it stayed, goes by its close box.
            for (QMdiSubWindow* sub : main->mdi_area()->subWindowList())
                leave(sub, w, CloseBox);
            expect_all_given_back(what);
            for (QMdiSubWindow* sub : main->mdi_area()->subWindowList())
                delete sub;
        }
    }
}

TEST_F(ChildWindowsTest, TheOperationWindowLeavesByEscapeAndGivesTheBaseBack)
{
    const QString dll = component_file(QStringLiteral("expclub.dll"));
    ASSERT_TRUE(QFile::copy(QFileInfo(plouvarine::testing::model_file()).dir().filePath(dll), app->app_file(dll)));
    QString title;
    QTimer::singleShot(0, [&] {
        QWidget* w = QApplication::activeModalWidget();
        ASSERT_NE(w, nullptr);
        title = w->windowTitle();
        QTest::keyClick(w->focusWidget() ? w->focusWidget() : w, Qt::Key_Escape);
    });
    main->trigger(QStringLiteral("mnuBaseClubExport"));
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(title, QStringLiteral("Exporter Clubs"));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(app->db.is_open());
    expect_all_given_back(QStringLiteral("frm_attente by Escape"));
}

TEST_F(ChildWindowsTest, TheCloseBoxAsksTheViewWhetherItMayGo)
{
    auto view = std::make_unique<ChoreView>(*app);
    ChoreView* chore = view.get();
    ASSERT_TRUE(chore->register_window(WindowRegistry::kMainWindow, {whole_group(LockGroup::Licence)}));
    ui.show_window(std::move(view));
    ASSERT_EQ(main->mdi_area()->subWindowList().size(), 1);
    QMdiSubWindow* sub = main->mdi_area()->subWindowList().first();
    EXPECT_EQ(sub->objectName(), QStringLiteral("frm_chore"));
    EXPECT_TRUE(app->is_busy());

    // The close box is refused while the work is not done.
    EXPECT_FALSE(sub->close());
    EXPECT_TRUE(app->windows.is_open(QStringLiteral("frm_chore")));

    chore->done = true;
    EXPECT_TRUE(sub->close());
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(app->windows.is_open(QStringLiteral("frm_chore")));
    EXPECT_FALSE(app->is_busy());
    EXPECT_TRUE(main->mdi_area()->subWindowList().isEmpty());
}

TEST_F(ChildWindowsTest, AModalWindowReturnsWhenItsViewCloses)
{
    ChoreView chore(*app);
    ASSERT_TRUE(chore.register_window());
    bool was_shown = false;
    QTimer::singleShot(0, [&] {
        QWidget* modal = QApplication::activeModalWidget();
        was_shown = modal && modal->objectName() == QStringLiteral("frm_chore");
        modal->close();  // refused: not done
        chore.done = true;
        chore.close();
    });
    ui.show_modal(chore);
    EXPECT_TRUE(was_shown);
    EXPECT_TRUE(chore.is_closed());
    EXPECT_FALSE(app->is_busy());
}

TEST_F(ChildWindowsTest, ThePoolWindowsFromTheMenuActOnTheRowDrawnAsCurrent)
{
    // The base made by Nouvelle holds the reference pool deletions fall back on.
    app->db.append_row(QStringLiteral("Piscine"), {{"Nom", "Kercado"}, {"Ville", "Vannes"}, {"Bassin", 25}},
                       QStringLiteral("Num"));
    QWidget* detail = open(QStringLiteral("mnuModelePiscineNew"), QStringLiteral("det_Piscine"));
    ASSERT_NE(detail, nullptr);
    EXPECT_FALSE(main->action(QStringLiteral("mnuModelePiscineNew"))->isEnabled());
    find<QLineEdit>(detail, QStringLiteral("txt_nom"))->setText(QStringLiteral("Aquaval"));
    find<QLineEdit>(detail, QStringLiteral("txt_ville"))->setText(QStringLiteral("Vannes"));
    find<QRadioButton>(detail, QStringLiteral("Op_bass_0"))->setChecked(true);
    click(detail, QStringLiteral("cmd_ok"));
    EXPECT_TRUE(gone(QStringLiteral("det_Piscine")));
    EXPECT_EQ(app->db.load_rows(QStringLiteral("select Ville, Bassin from Piscine where Nom = 'Aquaval'")).first(1),
              QStringLiteral("50"));
    EXPECT_TRUE(main->action(QStringLiteral("mnuModelePiscineNew"))->isEnabled());

    QWidget* list = open(QStringLiteral("mnuModelePiscineView"), QStringLiteral("Frm_liste_piscine"));
    ASSERT_NE(list, nullptr);
    auto* tree = find<QTreeView>(list, QStringLiteral("Lsv_piscine"));
    ASSERT_EQ(tree->model()->rowCount(), 2);
    // Taking the focus, the list makes its first row current, and draws it so.
    tree->selectionModel()->setCurrentIndex(tree->model()->index(0, 0), QItemSelectionModel::NoUpdate);
    ASSERT_EQ(tree->selectionModel()->selectedRows().size(), 1);
    EXPECT_EQ(tree->selectionModel()->selectedRows().first().row(), 0);
    click(list, QStringLiteral("Command1_0"));
    detail = child_window(QStringLiteral("det_Piscine"));
    ASSERT_NE(detail, nullptr);
    EXPECT_EQ(find<QLineEdit>(detail, QStringLiteral("txt_nom"))->text(), QStringLiteral("Aquaval"));
    detail->parentWidget()->close();
    list->parentWidget()->close();

    list = open(QStringLiteral("mnuModelePiscineSuppr"), QStringLiteral("Frm_liste_piscine"));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->windowTitle(), QStringLiteral("Supprimer Piscines"));
    tree = find<QTreeView>(list, QStringLiteral("Lsv_piscine"));
    const QModelIndexList aquaval = tree->model()->match(tree->model()->index(0, 0), Qt::DisplayRole, "Aquaval");
    ASSERT_EQ(aquaval.size(), 1);
    tree->setCurrentIndex(aquaval[0]);
    click(list, QStringLiteral("Command1_0"));
    EXPECT_EQ(tree->model()->rowCount(), 1);
    click(list, QStringLiteral("Command1_1"));
    EXPECT_TRUE(gone(QStringLiteral("Frm_liste_piscine")));
    EXPECT_EQ(app->db.count_query(QStringLiteral("select count(*) from Piscine where Nom = 'Aquaval'")), 0);
    EXPECT_FALSE(app->is_busy());
    EXPECT_TRUE(main->mdi_area()->subWindowList().isEmpty());
}

TEST_F(ChildWindowsTest, TableCotationDrawsItsTable)
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
    EXPECT_EQ(find<QLineEdit>(window, "Txt_Time_0")->text(), QStringLiteral("1.05"));
    EXPECT_EQ(window->findChild<QLabel*>("lblPtsCal")->text(), QStringLiteral("503"));
    fill(window, {{"Txt_pts_1", "600"}, {"Txt_pts_2", "620"}});
    click(window, QStringLiteral("Cmd_TablePts"));
    EXPECT_EQ(window->findChild<QTreeView*>("LsvTable")->model()->rowCount(), 21);
    look_at(window, QStringLiteral("frm_calpts"));
}

TEST_F(ChildWindowsTest, TimeCalculatorAddsAndUndoes)
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

TEST_F(ChildWindowsTest, TeamPointsShowTheirSheets)
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
    // Tab goes down the left column as drawn, then to the sheets beside it.
    EXPECT_EQ(tab_order(window, {"rich", "cmd_1", "cmd_2", "cmd_0", "chk_relais", "lsv_numauto"}),
              QStringLiteral("lsv_numauto chk_relais cmd_0 cmd_2 cmd_1 rich"));
    auto* print = window->findChild<QPushButton*>("cmd_2");
    EXPECT_FALSE(print->isEnabled());
    click(window, QStringLiteral("cmd_0"));
    EXPECT_TRUE(window->findChild<QTextEdit*>("rich")->toPlainText().contains(QStringLiteral("TOTAL POINTS : 333")));
    window->resize(760, 420);
    look_at(window, QStringLiteral("frm_PtsInter"));
    click(window, QStringLiteral("cmd_2"));
    EXPECT_EQ(ui.printed.size(), 1u);
}

TEST_F(ChildWindowsTest, TheMonitorShowsItsFiguresAboveTheOtherWindowsWhereTheProfileWants)
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
