// Every way out of every child window runs the same unload: the window goes,
// its menu locks and its place in busy_count come back once, and the next
// opening gives one window again. The tool windows are among them.

#include "src/frame/components.h"
#include "tools/points_fixture.h"
#include "window_test.h"

#include <QFileInfo>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTest>
#include <QTimer>

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

enum Exit { CloseBox, InnerClose, Escape, OwnButton };
const char* const kExitNames[] = {"close box", "close of the inner window", "Escape", "own button"};

class WindowExitsTest : public WindowTest<> {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
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

TEST_F(WindowExitsTest, EveryWayOutOfEveryChildWindowUnloadsItOnce)
{
    for (const ChildWindow& w : kWindows) {
        for (Exit exit : {CloseBox, InnerClose, Escape, OwnButton}) {
            const QString what = QStringLiteral("%1 by %2").arg(QLatin1String(w.command), QLatin1String(kExitNames[exit]));
            main->trigger(QString::fromLatin1(w.command));
            QList<QMdiSubWindow*> open = subs(QString::fromLatin1(w.name));
            ASSERT_EQ(open.size(), 1) << what.toStdString();
            EXPECT_EQ(app->state.busy_count, 1) << what.toStdString();
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

TEST_F(WindowExitsTest, TheMainWindowsPathsNeverLeaveAWindowWithoutItsBase)
{
    main->trigger(QStringLiteral("mnuLicSuppr"));
    ASSERT_EQ(subs(QStringLiteral("frm_liste_licence")).size(), 1);

    // Fermer, Quitter and the close box refuse while the list is at work: the
    // list keeps its base and its locks.
    main->trigger(QStringLiteral("mnuBaseClose"));
    EXPECT_FALSE(main->close());
    main->trigger(QStringLiteral("mnuExit"));
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

TEST_F(WindowExitsTest, TheWindowsOfAChosenCompetitionLeaveEveryWay)
{
    install_template_component();
    app->clock.set_today(QDate(2025, 3, 10));
    app->state.profile_num = QStringLiteral("1");
    app->db.append_row(QStringLiteral("Rcomp"),
                       {{"Num", "IC1"}, {"Nom", "Interclubs"}, {"Debut", "20250405"}, {"Fin", "20250405"},
                        {"Lieu", "Brest"}, {"Longueur", 50}, {"Visible", true}, {"Deroule", false}},
                       QStringLiteral("AutoNum"));
    for (const ChildWindow& w : kCompetitionWindows) {
        for (Exit exit : {Escape, CloseBox, OwnButton}) {
            const QString what = QStringLiteral("%1 by %2").arg(QLatin1String(w.name), QLatin1String(kExitNames[exit]));
            main->trigger(QString::fromLatin1(w.command));
            const QList<QMdiSubWindow*> lists = subs(QStringLiteral("Frm_liste_compet"));
            ASSERT_EQ(lists.size(), 1) << what.toStdString();
            auto* ok = lists.first()->widget()->findChild<QPushButton*>(QStringLiteral("Command1_2"));
            ASSERT_NE(ok, nullptr) << what.toStdString();
            ok->click();
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

TEST_F(WindowExitsTest, TheOperationWindowLeavesByEscapeAndGivesTheBaseBack)
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
