// A view drawn by its window: the close box goes through the view, the view's
// locks and busy place come back when its window closes, a modal window
// returns once its view is closed; the pool windows driven from the menu.

#include "gui/frame/view_window.h"
#include "gui/frame/window_factory.h"
#include "window_test.h"

#include <QMdiSubWindow>
#include <QRadioButton>
#include <QTimer>
#include <QTreeView>

using namespace plouvarine;
using namespace plouvarine::testing;

namespace {

// A window that may not be left until its work is marked done.
class ChoreView : public View {
public:
    explicit ChoreView(AppContext& app) : View(app, QStringLiteral("frm_chore")) {}
    bool query_close() override { return done; }
    bool done = false;
};

class ViewWindowTest : public WindowTest<> {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        gui::register_window(QStringLiteral("frm_chore"),
                             [](View& v, QWidget* parent) { return new gui::ViewWindow(v, parent); });
        open_main();
    }
};

}  // namespace

TEST_F(ViewWindowTest, AChildWindowGivesBackItsLocksWhenItCloses)
{
    auto view = std::make_unique<ChoreView>(*app);
    ChoreView* chore = view.get();
    ASSERT_TRUE(chore->register_window(WindowRegistry::kMainWindow, {whole_group(LockGroup::Licence)}));
    ui.show_window(std::move(view));
    ASSERT_EQ(main->mdi_area()->subWindowList().size(), 1);
    QMdiSubWindow* sub = main->mdi_area()->subWindowList().first();
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
    EXPECT_TRUE(main->mdi_area()->subWindowList().isEmpty());
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
    ui.show_modal(chore);
    EXPECT_TRUE(was_shown);
    EXPECT_TRUE(chore.is_closed());
    EXPECT_FALSE(app->is_busy());
}

TEST_F(ViewWindowTest, ThePoolWindowsFromTheMenuActOnTheRowDrawnAsCurrent)
{
    // A base made by Nouvelle, which holds the reference pool deletions fall back on.
    app->enable_menus(false);
    ui.files.push_back(work_file(QStringLiteral("club.mdb")));
    main->trigger(QStringLiteral("mnuBaseNew"));
    ASSERT_TRUE(app->db.is_open());
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
    EXPECT_EQ(ui.messages.back().text, QStringLiteral("Nouvelle piscine enregistrée."));
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
