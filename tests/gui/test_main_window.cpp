// The main window: its menu actions clicked, messages and file dialogs
// scripted. The first run on a new base, clicked through its real modal
// windows: the code help opened over the forced club, the club list over the
// forced profile; closing the nested window must leave the forced one open.

#include "gui/frame/main_window.h"
#include "src/base/errors.h"
#include "src/clubs/club_hooks.h"
#include "gui/frame/window_settings.h"
#include "src/subjects.h"
#include "src/frame/window_registry.h"
#include "window_test.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QSettings>
#include <QTimer>
#include <QTreeView>

using namespace plouvarine;
using plouvarine::gui::MainWindow;
using namespace plouvarine::testing;

namespace {

const QString kLoseUnsaved = QStringLiteral("Les données non sauvegardées seront effacées. Continuer ?");

class MainWindowTest : public AppFixture {
protected:
    void SetUp() override
    {
        ensure_application();
        AppFixture::SetUp();
        install_subject_commands(*app);
        window = std::make_unique<MainWindow>(*app);
        window->show();
    }
    void TearDown() override
    {
        window.reset();
        AppFixture::TearDown();
    }

    // The action as the menu bar holds it, clicked.
    void click(const QString& name)
    {
        QAction* action = window->menuBar()->findChild<QAction*>(name);
        if (!action)
            action = window->findChild<QAction*>(name);
        ASSERT_NE(action, nullptr) << name.toStdString();
        action->trigger();
    }
    bool enabled(const QString& name) const { return window->action(name)->isEnabled(); }
    // A base made by Nouvelle, open.
    QString new_base()
    {
        const QString base = work_file(QStringLiteral("club.mdb"));
        ui.files.push_back(base);
        click(QStringLiteral("mnuBaseNew"));
        EXPECT_TRUE(app->db.is_open());
        return base;
    }

    // The commands that lead somewhere: enabled, with every menu above enabled too.
    QStringList reachable_commands() const
    {
        QStringList names;
        for (const MenuEntry& e : app->menus.entries()) {
            if (e.kind != MenuKind::Command || !e.visible)
                continue;
            bool ok = window->action(e.name)->isEnabled();
            for (QString p = e.parent; ok && !p.isEmpty(); p = app->menus.entry(p)->parent)
                ok = window->action(p)->isEnabled();
            if (ok)
                names << e.name;
        }
        return names;
    }

    QStringList pools()
    {
        return app->db.load_rows(QStringLiteral("select Nom from Piscine where Nom <> 'Null' order by Nom")).column(0);
    }

    std::unique_ptr<MainWindow> window;
};

// Picks a line of a drop-down list.
void pick(QWidget* window, const QString& name, const QString& text)
{
    auto* box = find<QComboBox>(window, name);
    ASSERT_NE(box, nullptr);
    const int index = box->findText(text);
    ASSERT_GE(index, 0) << text.toStdString();
    box->setCurrentIndex(index);
    Q_EMIT box->textActivated(text);
}

QString text_of(QWidget* window, const QString& field)
{
    return find<QLineEdit>(window, field)->text();
}

class FirstRunTest : public WindowTest<> {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        install_club_hooks(*app);
        open_main();
        app->enable_menus(false);
    }
};

}  // namespace

TEST_F(MainWindowTest, TheMenuTreeAndWhatLeadsAnywhereWithAndWithoutABaseEveryCommandRunningSomething)
{
    // Every entry of the tree is drawn, with its caption.
    for (const MenuEntry& e : app->menus.entries()) {
        QAction* action = window->action(e.name);
        ASSERT_NE(action, nullptr) << e.name.toStdString();
        if (e.kind != MenuKind::Separator) {
            EXPECT_EQ(action->text(), e.caption);
        }
    }
    EXPECT_EQ(window->menuBar()->actions().size(), 8);
    EXPECT_EQ(window->menuBar()->actions().first()->text(), QStringLiteral("&Base"));
    EXPECT_FALSE(window->menuBar()->actions().contains(window->tarifs_menu()->menuAction()));

    const QStringList no_base{"mnuBaseNew",         "mnuBaseOpen",       "mnuBaseSuppr",
                              "mnuExit",            "mnuPerfOrdiAffiche", "mnuPerfOrdiMasquer",
                              "mnuPerfOrdiParam",   "mnuPerfOrdiTjsVisible", "mnuHelpGuide", "mnuMajLogiciel",
                              "mnuMajBase",         "mnuHelpInfo"};
    EXPECT_EQ(reachable_commands(), no_base);

    // The actions follow the menu's state when a base opens.
    new_base();
    const QStringList with_base = reachable_commands();
    EXPECT_FALSE(with_base.contains(QStringLiteral("mnuBaseNew")));
    EXPECT_TRUE(with_base.contains(QStringLiteral("mnuEngagBordereau")));

    // Besides the main window's own commands and the three that stand in the
    // menu with no action, every command runs something.
    const QStringList own{"mnuExit", "mnuHelpInfo", "mnuMajBase"};
    const QStringList silent{"mnuBaseClubConfigRapport", "mnuPerfRecImport", "mnuPerfRecConsult"};
    for (const MenuEntry& e : app->menus.entries()) {
        if (e.kind != MenuKind::Command || !e.visible || own.contains(e.name) || silent.contains(e.name))
            continue;
        const CommandTable::Run* run = app->commands.find(e.name);
        EXPECT_TRUE(run && *run) << e.name.toStdString() << " runs nothing";
    }
}

TEST_F(MainWindowTest, NewThenSaveThenCancelThenClose)
{
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Plouvarine"));
    new_base();
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Plouvarine - club.mdb"));

    app->db.exec_sql(QStringLiteral("INSERT INTO Piscine (Nom) VALUES ('Enregistrée');"));
    click(QStringLiteral("mnuBaseSave"));
    app->db.exec_sql(QStringLiteral("INSERT INTO Piscine (Nom) VALUES ('Annulée');"));
    ui.answers.push_back(Button::Yes);
    click(QStringLiteral("mnuBaseAnnuler"));
    EXPECT_EQ(pools(), QStringList{QStringLiteral("Enregistrée")});

    ui.clear();
    ui.answers.push_back(Button::Yes);
    click(QStringLiteral("mnuBaseClose"));
    EXPECT_EQ(ui.texts(), QStringList{kLoseUnsaved});
    EXPECT_FALSE(app->db.is_open());
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Plouvarine"));
    EXPECT_TRUE(enabled(QStringLiteral("mnuBaseOpen")));
    EXPECT_FALSE(enabled(QStringLiteral("mnuBaseSave")));
    // A disabled command does nothing when clicked.
    ui.clear();
    click(QStringLiteral("mnuBaseSave"));
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(MainWindowTest, QuitterWithABaseOpen)
{
    const QString base = new_base();
    app->db.exec_sql(QStringLiteral("INSERT INTO Piscine (Nom) VALUES ('Gardée');"));

    ui.answers.push_back(Button::No);
    click(QStringLiteral("mnuExit"));
    EXPECT_EQ(ui.messages.back().text, kLoseUnsaved);
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(app->db.is_open());

    window->setGeometry(140, 120, 700, 520);
    const int asked = int(ui.messages.size());
    ui.answers.push_back(Button::Yes);
    click(QStringLiteral("mnuExit"));
    // Quitter asks once and goes: not the close box's question after it.
    EXPECT_EQ(int(ui.messages.size()), asked + 1);
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(app->db.is_open());
    QSettings stored(QStringLiteral("Plouvarine"), QStringLiteral("Plouvarine"));
    EXPECT_EQ(QSize(stored.value(QStringLiteral("Settings/MainWidth")).toInt(),
                    stored.value(QStringLiteral("Settings/MainHeight")).toInt()),
              window->geometry().size());
    connect(base);
    EXPECT_EQ(pools(), QStringList{QStringLiteral("Gardée")});
}

TEST_F(MainWindowTest, TheFirstWindowShowsItsWholeMenuBarAndTheNextTheSizeLeft)
{
    window.reset();
    QSettings(QStringLiteral("Plouvarine"), QStringLiteral("Plouvarine")).remove(QStringLiteral("Settings"));
    window = std::make_unique<MainWindow>(*app);
    window->show();
    const QRect area = QApplication::primaryScreen()->availableGeometry();
    // No entry folds into the extension button: Outils and "?" are in the bar.
    EXPECT_GE(window->menuBar()->width(), window->menuBar()->sizeHint().width());
    EXPECT_TRUE(area.contains(window->geometry())) << area.width() << "x" << area.height();
    EXPECT_LE(std::abs(window->geometry().center().x() - area.center().x()), 1);

    // Left at a size of the person's, it comes back at that size and place.
    window->setGeometry(30, 40, 640, 480);
    window->close();
    window.reset();
    window = std::make_unique<MainWindow>(*app);
    EXPECT_EQ(window->geometry(), QRect(30, 40, 640, 480));

    // A place kept from a larger screen is cut to the work area and brought back into it.
    const QRect work(0, 0, 1280, 1024);
    EXPECT_EQ(gui::place_main_window(QRect(900, -50, 2000, 600), {1024, 720}, work), QRect(0, 0, 1280, 600));
    EXPECT_EQ(gui::place_main_window(std::nullopt, {1024, 720}, work), QRect(128, 152, 1024, 720));
    EXPECT_EQ(gui::place_main_window(std::nullopt, {1024, 720}, QRect(0, 0, 800, 600)), QRect(0, 0, 800, 600));
}

TEST_F(MainWindowTest, AChildWindowLocksItsCommandAndTheCloseBoxAsksOnceItIsGone)
{
    new_base();

    auto* child = new QWidget;
    child->setObjectName(QStringLiteral("Frm_liste_club"));
    ASSERT_TRUE(app->windows.opened(child->objectName(), WindowRegistry::kMainWindow,
                                    {whole_group(LockGroup::Club)}));
    window->show_child(child);
    EXPECT_FALSE(enabled(QStringLiteral("mnuBaseClubListe")));

    // A second click on an open list brings it to the front.
    window->mdi_area()->activateNextSubWindow();
    EXPECT_TRUE(app->windows.check_window_open(QStringLiteral("Frm_liste_club")));
    EXPECT_EQ(window->mdi_area()->activeSubWindow()->objectName(), QStringLiteral("Frm_liste_club"));

    app->windows.closed(child->objectName());
    EXPECT_TRUE(enabled(QStringLiteral("mnuBaseClubListe")));
    ui.answers.push_back(Button::Yes);
    EXPECT_TRUE(window->close());
    EXPECT_EQ(ui.messages.back().text, QStringLiteral("Sauvegarder les données ?"));
    EXPECT_FALSE(app->db.is_open());
}

TEST_F(MainWindowTest, AnErrorNoCommandCaughtEndsTheCommandNotTheProgram)
{
    app->commands.add(QStringLiteral("mnuBaseNew"), [](AppContext&) {
        throw DbError(8, QStringLiteral("attempt to write a readonly database"));
    });
    click(QStringLiteral("mnuBaseNew"));
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].title, QStringLiteral("Erreur"));
    EXPECT_TRUE(ui.messages[0].text.contains(QStringLiteral("attempt to write a readonly database")));
    EXPECT_TRUE(ui.messages[0].text.endsWith(QStringLiteral("Une erreur s'est produite.")));
    click(QStringLiteral("mnuBaseNew"));  // and the program goes on
    EXPECT_EQ(ui.messages.size(), 2u);
}

TEST_F(MainWindowTest, TheInformationWindowWithNoBase)
{
    QString connected;
    QTimer::singleShot(0, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        connected = plouvarine::testing::find<QLabel>(dialog, QStringLiteral("lbl_connected"))->text();
        EXPECT_NE(plouvarine::testing::find<QAbstractItemView>(dialog, QStringLiteral("Lst_DLL")), nullptr);
        dialog->close();
    });
    click(QStringLiteral("mnuHelpInfo"));
    EXPECT_EQ(connected, QStringLiteral("Pas connecté"));
}

TEST_F(MainWindowTest, TheFeeMenuAndTheStatusPanels)
{
    app->menus.set_tarifs({QStringLiteral("Adulte"), QStringLiteral("Jeune")});
    app->menus.set_checked_tarif(2);
    QStringList lines;
    for (QAction* a : window->tarifs_menu()->actions())
        lines << a->text() + (a->isChecked() ? QStringLiteral("*") : QString());
    EXPECT_EQ(lines, (QStringList{"Aucun", "Adulte", "Jeune*"}));

    window->show_status(1, QStringLiteral("Profil : Secrétariat (ASN)"));
    window->show_status(2, QStringLiteral("Compactage"));
    EXPECT_EQ(window->status_panel(1) + u'|' + window->status_panel(2),
              QStringLiteral("Profil : Secrétariat (ASN)|Compactage"));
}

TEST_F(FirstRunTest, NewBaseAsksForAClubThenAProfileEachOverItsHelper)
{
    std::map<QString, std::function<void(QWidget*)>> plays;
    QStringList seen;
    // Plays the modal window in front; one that opens another arms it again first.
    std::function<void()> step = [&] {
        QWidget* w = QApplication::activeModalWidget();
        if (!w || !plays.count(w->objectName())) {
            if (seen.size() < 20)
                QTimer::singleShot(10, step);
            return;
        }
        seen << w->objectName();
        plays[w->objectName()](w);
    };
    plays[QStringLiteral("dem_info_obli")] = [&](QWidget* w) {
        EXPECT_EQ(w->windowTitle(), QStringLiteral("Nouveau Club"));
        // A new base has no club: the window can't be left without one.
        EXPECT_FALSE(find<QPushButton>(w, QStringLiteral("cmd_annuler"))->isEnabled());
        type_in(find<QLineEdit>(w, QStringLiteral("text1_0")), QStringLiteral(" Stade Brestois"));
        EXPECT_FALSE(find<QPushButton>(w, QStringLiteral("cmd_ok"))->isEnabled());
        QTimer::singleShot(10, step);
        click(w, QStringLiteral("Command1_2"));
        EXPECT_EQ(text_of(w, QStringLiteral("text1_1")), QStringLiteral("FRA2210290017"));
        EXPECT_EQ(text_of(w, QStringLiteral("text1_0")), QStringLiteral("Stade Brestois"));
        QTimer::singleShot(10, step);
        click(w, QStringLiteral("cmd_ok"));
    };
    plays[QStringLiteral("construc_code_club")] = [](QWidget* w) {
        find<QRadioButton>(w, QStringLiteral("Opt_type_0"))->click();
        EXPECT_EQ(find<QComboBox>(w, QStringLiteral("Cb_pays"))->currentText(), QStringLiteral("FRANCE"));
        pick(w, QStringLiteral("Cb_inter"), QStringLiteral("Nord-Ouest"));
        pick(w, QStringLiteral("Cb_region"), QStringLiteral("Bretagne"));
        pick(w, QStringLiteral("Cb_departement"), QStringLiteral("Finistère"));
        type_in(find<QLineEdit>(w, QStringLiteral("txt_code_fourni")), QStringLiteral("17"));
        click(w, QStringLiteral("Command1_0"));
        EXPECT_EQ(text_of(w, QStringLiteral("txt_codification")), QStringLiteral("FRA2210290017"));
        click(w, QStringLiteral("Command1_1"));  // "Copier le code Club ?" Yes
    };
    plays[QStringLiteral("det_profil_obli")] = [&](QWidget* w) {
        EXPECT_EQ(w->windowTitle(), QStringLiteral("Création profil"));
        type_in(find<QLineEdit>(w, QStringLiteral("text1_0")), QStringLiteral("Secrétaire"));
        EXPECT_FALSE(find<QPushButton>(w, QStringLiteral("cmd_ok"))->isEnabled());
        // The first profile cannot be left undone: Annuler is shown off.
        EXPECT_FALSE(find<QPushButton>(w, QStringLiteral("cmd_annuler"))->isEnabled());
        QTimer::singleShot(10, step);
        click(w, QStringLiteral("cmd_club"));
        EXPECT_EQ(text_of(w, QStringLiteral("text1_1")), QStringLiteral("FRA2210290017"));
        click(w, QStringLiteral("cmd_ok"));
    };
    plays[QStringLiteral("Frm_liste_club_obli")] = [](QWidget* w) {
        auto* list = find<QTreeView>(w, QStringLiteral("Lsv_club"));
        ASSERT_EQ(list->model()->rowCount(), 1);
        EXPECT_EQ(list->model()->index(0, 1).data().toString(), QStringLiteral("Stade Brestois"));
        list->setCurrentIndex(list->model()->index(0, 0));
        click(w, QStringLiteral("cmd_ok"));
    };
    QTimer::singleShot(10, step);
    ui.files.push_back(work_file(QStringLiteral("neuve.mdb")));
    ui.answers = {Button::Yes};
    main->action(QStringLiteral("mnuBaseNew"))->trigger();

    EXPECT_EQ(seen, (QStringList{"dem_info_obli", "construc_code_club", "det_profil_obli", "Frm_liste_club_obli"}));
    EXPECT_EQ(ui.titled(QStringLiteral("Erreur")).size(), 0u);
    EXPECT_EQ(app->state.club_code, QStringLiteral("FRA2210290017"));
    EXPECT_EQ(ui.status[1], QStringLiteral("Profil : Secrétaire (Stade Brestois)"));
    EXPECT_EQ(app->db.count_query(QStringLiteral("select count(*) from Profil where LastUse = true")), 1);
    EXPECT_EQ(app->state.busy_count, 0);

    // The base is ready: the club list opens from the menu and holds its locks.
    main->action(QStringLiteral("mnuBaseClubListe"))->trigger();
    QWidget* list = child_window(QStringLiteral("Frm_liste_club"));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->windowTitle(), QStringLiteral("Liste des Clubs"));
    EXPECT_FALSE(main->action(QStringLiteral("mnuBaseClubSuppr"))->isEnabled());
    list->parentWidget()->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(main->action(QStringLiteral("mnuBaseClubSuppr"))->isEnabled());
}
