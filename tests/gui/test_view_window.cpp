// A view drawn by its window: the close box goes through the view, the view's
// locks and busy place come back when its child window closes, and a modal
// window returns once its view is closed.

#include "gui/frame/main_window.h"
#include "src/subjects.h"
#include "gui/frame/qt_services.h"
#include "gui/frame/view_window.h"
#include "gui/frame/window_factory.h"
#include "gui_application.h"
#include "support/app_fixture.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeView>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTimer>

using namespace plouvarine;
using plouvarine::testing::AppFixture;
using plouvarine::testing::ensure_application;

namespace {

// A window that may not be left until its work is marked done.
class ChoreView : public View {
public:
    explicit ChoreView(AppContext& app) : View(app, QStringLiteral("frm_chore")) {}
    bool query_close() override { return done; }
    bool done = false;
};

class ViewWindowTest : public AppFixture {
protected:
    void SetUp() override
    {
        ensure_application();
        AppFixture::SetUp();
        gui::register_window(QStringLiteral("frm_chore"),
                             [](View& v, QWidget* parent) { return new gui::ViewWindow(v, parent); });
        install_subject_commands(*app);
        window = std::make_unique<gui::MainWindow>(*app);
        qt.show_child = [this](QWidget* w) { window->show_child(w); };
    }
    void TearDown() override
    {
        window.reset();
        AppFixture::TearDown();
    }
    gui::QtServices qt;
    std::unique_ptr<gui::MainWindow> window;
};

}  // namespace

TEST_F(ViewWindowTest, AChildWindowGivesBackItsLocksWhenItCloses)
{
    auto view = std::make_unique<ChoreView>(*app);
    ChoreView* chore = view.get();
    ASSERT_TRUE(chore->register_window(WindowRegistry::kMainWindow, {whole_group(LockGroup::Licence)}));
    qt.show_window(std::move(view));
    ASSERT_EQ(window->mdi_area()->subWindowList().size(), 1);
    QMdiSubWindow* sub = window->mdi_area()->subWindowList().first();
    EXPECT_EQ(sub->objectName(), QStringLiteral("frm_chore"));
    EXPECT_TRUE(app->is_busy());
    EXPECT_EQ(app->menus.counter(QStringLiteral("mnuLicListe")), 1);

    // The close box is refused while the work is not done.
    EXPECT_FALSE(sub->close());
    EXPECT_TRUE(app->windows.is_open(QStringLiteral("frm_chore")));

    chore->done = true;
    EXPECT_TRUE(sub->close());
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(app->windows.is_open(QStringLiteral("frm_chore")));
    EXPECT_FALSE(app->is_busy());
    EXPECT_EQ(app->menus.counter(QStringLiteral("mnuLicListe")), 0);
    EXPECT_TRUE(window->mdi_area()->subWindowList().isEmpty());
}

TEST_F(ViewWindowTest, AModalWindowReturnsWhenItsViewCloses)
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
    qt.show_modal(chore);
    EXPECT_TRUE(was_shown);
    EXPECT_TRUE(chore.is_closed());
    EXPECT_FALSE(app->is_busy());
}

TEST_F(ViewWindowTest, ThePoolWindowsFromTheMenu)
{
    ui.draw_with = &qt;
    ui.files.push_back(work_file(QStringLiteral("club.mdb")));
    window->trigger(QStringLiteral("mnuBaseNew"));
    ASSERT_TRUE(app->db.is_open());

    window->trigger(QStringLiteral("mnuModelePiscineNew"));
    auto* detail = window->mdi_area()->findChild<QWidget*>(QStringLiteral("det_Piscine"));
    ASSERT_NE(detail, nullptr);
    EXPECT_FALSE(window->action(QStringLiteral("mnuModelePiscineNew"))->isEnabled());
    detail->findChild<QLineEdit*>(QStringLiteral("txt_nom"))->setText(QStringLiteral("Aquaval"));
    detail->findChild<QLineEdit*>(QStringLiteral("txt_ville"))->setText(QStringLiteral("Vannes"));
    detail->findChild<QRadioButton*>(QStringLiteral("Op_bass_0"))->setChecked(true);
    detail->findChild<QPushButton*>(QStringLiteral("cmd_ok"))->click();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(ui.messages.back().text, QStringLiteral("Nouvelle piscine enregistrée."));
    EXPECT_EQ(app->db.load_rows(QStringLiteral("select Ville, Bassin from Piscine where Nom = 'Aquaval'")).first(1),
              QStringLiteral("50"));
    EXPECT_TRUE(window->action(QStringLiteral("mnuModelePiscineNew"))->isEnabled());

    window->trigger(QStringLiteral("mnuModelePiscineSuppr"));
    auto* list = window->mdi_area()->findChild<QWidget*>(QStringLiteral("Frm_liste_piscine"));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->windowTitle(), QStringLiteral("Supprimer Piscines"));
    auto* tree = list->findChild<QTreeView*>(QStringLiteral("Lsv_piscine"));
    ASSERT_EQ(tree->model()->rowCount(), 1);
    tree->selectionModel()->select(tree->model()->index(0, 0), QItemSelectionModel::Select);
    list->findChild<QPushButton*>(QStringLiteral("Command1_0"))->click();
    EXPECT_EQ(tree->model()->rowCount(), 0);
    list->findChild<QPushButton*>(QStringLiteral("Command1_1"))->click();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(app->db.count_query(QStringLiteral("select count(*) from Piscine where Nom = 'Aquaval'")), 0);
    EXPECT_FALSE(app->is_busy());
    EXPECT_TRUE(window->mdi_area()->subWindowList().isEmpty());
}

TEST_F(ViewWindowTest, TheRowDrawnAsCurrentIsTheRowTheCommandsActOn)
{
    ui.draw_with = &qt;
    ui.files.push_back(work_file(QStringLiteral("club.mdb")));
    window->trigger(QStringLiteral("mnuBaseNew"));
    ASSERT_TRUE(app->db.is_open());
    app->db.exec_sql(QStringLiteral("INSERT INTO Piscine (Nom, Ville, NbCouloir, Bassin) VALUES "
                                    "('Aquaval', 'Vannes', 8, 50), ('Kercado', 'Vannes', 6, 25)"));

    window->trigger(QStringLiteral("mnuModelePiscineView"));
    auto* list = window->mdi_area()->findChild<QWidget*>(QStringLiteral("Frm_liste_piscine"));
    ASSERT_NE(list, nullptr);
    auto* tree = list->findChild<QTreeView*>(QStringLiteral("Lsv_piscine"));
    ASSERT_EQ(tree->model()->rowCount(), 2);
    // Taking the focus, the list makes its first row current, and draws it so.
    tree->selectionModel()->setCurrentIndex(tree->model()->index(0, 0), QItemSelectionModel::NoUpdate);
    ASSERT_EQ(tree->selectionModel()->selectedRows().size(), 1);
    EXPECT_EQ(tree->selectionModel()->selectedRows().first().row(), 0);

    list->findChild<QPushButton*>(QStringLiteral("Command1_0"))->click();
    auto* detail = window->mdi_area()->findChild<QWidget*>(QStringLiteral("det_Piscine"));
    ASSERT_NE(detail, nullptr);
    EXPECT_EQ(detail->findChild<QLineEdit*>(QStringLiteral("txt_nom"))->text(), QStringLiteral("Aquaval"));
    ui.drop_windows();
}
