// The first run on a new base, clicked through its real windows: Nouvelle, the
// first club (with the code help), the first profile with its club, and a base
// ready to work with the profile shown in the status bar.

#include "src/clubs/club_hooks.h"
#include "gui/frame/main_window.h"
#include "src/subjects.h"
#include "gui/frame/view_window.h"
#include "gui/frame/window_factory.h"
#include "window_test.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeView>

using namespace plouvarine;
using namespace plouvarine::testing;

namespace {

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

class FirstRunTest : public AppFixture {
protected:
    void SetUp() override
    {
        ensure_application();
        AppFixture::SetUp();
        install_club_hooks(*app);
        install_subject_commands(*app);
        main = std::make_unique<gui::MainWindow>(*app);
        main->show();
    }
    void TearDown() override
    {
        ui.drop_windows();
        main.reset();
        AppFixture::TearDown();
    }

    // The real window of a modal view, driven by `play`.
    void drive(const QString& name, std::function<void(QWidget*)> play)
    {
        ui.drivers[name] = [this, play](View& view) {
            std::unique_ptr<gui::ViewWindow> window(gui::make_window(view, main.get()));
            ASSERT_NE(window, nullptr);
            window->show();
            play(window.get());
        };
    }

    std::unique_ptr<gui::MainWindow> main;
};

TEST_F(FirstRunTest, NewBaseAsksForAClubThenAProfile)
{
    drive(QStringLiteral("construc_code_club"), [](QWidget* w) {
        find<QRadioButton>(w, QStringLiteral("Opt_type_0"))->click();
        EXPECT_EQ(find<QComboBox>(w, QStringLiteral("Cb_pays"))->currentText(), QStringLiteral("FRANCE"));
        pick(w, QStringLiteral("Cb_inter"), QStringLiteral("Nord-Ouest"));
        pick(w, QStringLiteral("Cb_region"), QStringLiteral("Bretagne"));
        pick(w, QStringLiteral("Cb_departement"), QStringLiteral("Finistère"));
        type_in(find<QLineEdit>(w, QStringLiteral("txt_code_fourni")), QStringLiteral("17"));
        click(w, QStringLiteral("Command1_0"));
        EXPECT_EQ(find<QLineEdit>(w, QStringLiteral("txt_codification"))->text(), QStringLiteral("FRA2210290017"));
        click(w, QStringLiteral("Command1_1"));  // "Copier le code Club ?" Yes
    });
    drive(QStringLiteral("dem_info_obli"), [](QWidget* w) {
        EXPECT_EQ(w->windowTitle(), QStringLiteral("Nouveau Club"));
        // A new base has no club: the view can't be left without one.
        EXPECT_FALSE(find<QPushButton>(w, QStringLiteral("cmd_annuler"))->isEnabled());
        type_in(find<QLineEdit>(w, QStringLiteral("text1_0")), QStringLiteral(" Stade Brestois"));
        EXPECT_FALSE(find<QPushButton>(w, QStringLiteral("cmd_ok"))->isEnabled());
        click(w, QStringLiteral("Command1_2"));
        EXPECT_EQ(find<QLineEdit>(w, QStringLiteral("text1_1"))->text(), QStringLiteral("FRA2210290017"));
        EXPECT_EQ(find<QLineEdit>(w, QStringLiteral("text1_0"))->text(), QStringLiteral("Stade Brestois"));
        click(w, QStringLiteral("cmd_ok"));
    });
    drive(QStringLiteral("Frm_liste_club_obli"), [](QWidget* w) {
        auto* list = find<QTreeView>(w, QStringLiteral("Lsv_club"));
        ASSERT_EQ(list->model()->rowCount(), 1);
        EXPECT_EQ(list->model()->index(0, 1).data().toString(), QStringLiteral("Stade Brestois"));
        list->setCurrentIndex(list->model()->index(0, 0));
        click(w, QStringLiteral("cmd_ok"));
    });
    drive(QStringLiteral("det_profil_obli"), [](QWidget* w) {
        EXPECT_EQ(w->windowTitle(), QStringLiteral("Création profil"));
        type_in(find<QLineEdit>(w, QStringLiteral("text1_0")), QStringLiteral("Secrétaire"));
        EXPECT_FALSE(find<QPushButton>(w, QStringLiteral("cmd_ok"))->isEnabled());
        // The first profile cannot be left undone: Annuler is shown off.
        EXPECT_FALSE(find<QPushButton>(w, QStringLiteral("cmd_annuler"))->isEnabled());
        click(w, QStringLiteral("cmd_club"));
        EXPECT_EQ(find<QLineEdit>(w, QStringLiteral("text1_1"))->text(), QStringLiteral("FRA2210290017"));
        click(w, QStringLiteral("cmd_ok"));
    });

    ui.files.push_back(work_file(QStringLiteral("neuve.mdb")));
    ui.answers = {Button::Yes};
    main->action(QStringLiteral("mnuBaseNew"))->trigger();

    EXPECT_EQ(ui.shown_views, (QStringList{QStringLiteral("dem_info_obli"), QStringLiteral("construc_code_club"),
                                           QStringLiteral("det_profil_obli"), QStringLiteral("Frm_liste_club_obli")}));
    EXPECT_EQ(ui.titled(QStringLiteral("Erreur")).size(), 0u);
    EXPECT_EQ(app->state.club_code, QStringLiteral("FRA2210290017"));
    EXPECT_EQ(app->state.profile_name, QStringLiteral("Secrétaire"));
    EXPECT_EQ(ui.status[1], QStringLiteral("Profil : Secrétaire (Stade Brestois)"));
    EXPECT_EQ(app->db.count_query(QStringLiteral("select count(*) from Profil where LastUse = true")), 1);
    EXPECT_EQ(app->state.busy_count, 0);

    // The base is ready: the club list opens from the menu and holds its locks.
    ASSERT_TRUE(main->action(QStringLiteral("mnuBaseClubListe"))->isEnabled());
    main->action(QStringLiteral("mnuBaseClubListe"))->trigger();
    ASSERT_NE(ui.window(QStringLiteral("Frm_liste_club")), nullptr);
    EXPECT_EQ(ui.window(QStringLiteral("Frm_liste_club"))->title(), QStringLiteral("Liste des Clubs"));
    EXPECT_FALSE(main->action(QStringLiteral("mnuBaseClubSuppr"))->isEnabled());
    ui.close_window(QStringLiteral("Frm_liste_club"));
    EXPECT_TRUE(main->action(QStringLiteral("mnuBaseClubSuppr"))->isEnabled());
}

}  // namespace
