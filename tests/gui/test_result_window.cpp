// The results window on the fixed meet: its boxes, option buttons, "Voir" and
// "Epreuve :" wired to the view, the list drawn from its top, the menu locked.

#include "results/results_test_base.h"
#include "window_test.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeView>

using namespace plouvarine;
using namespace plouvarine::testing;

namespace {

class ResultWindowTest : public WindowTest<ResultsBase> {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        open_main();
    }
};

TEST_F(ResultWindowTest, ShowsTheMeetByEventWithTheChosenColumns)
{
    QWidget* window = open(QStringLiteral("mnuCompetVoirResult"), QStringLiteral("frm_view_result"));
    ASSERT_NE(window, nullptr);
    EXPECT_FALSE(main->action(QStringLiteral("mnuCompetSuppr"))->isEnabled());

    auto* nages = find<QTreeView>(window, "LsvNage");
    ASSERT_EQ(nages->model()->rowCount(), 5);
    find<QCheckBox>(window, "Chk_all")->click();
    EXPECT_EQ(nages->model()->index(3, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));

    auto* print = find<QPushButton>(window, "cmd_2");
    auto* voir = find<QPushButton>(window, "cmd_0");
    auto* lanes = find<QRadioButton>(window, "Opt_PresSerie_1");
    auto* inter = find<QCheckBox>(window, "Chk_tps_inter");
    EXPECT_FALSE(print->isEnabled());
    EXPECT_FALSE(inter->isEnabled());
    find<QPushButton>(window, "Cmd_option_0")->click();
    EXPECT_FALSE(voir->isEnabled());
    EXPECT_FALSE(lanes->isEnabled()) << "by type of race, lanes are no choice";
    find<QRadioButton>(window, "Opt_typeAffich_1")->click();
    EXPECT_TRUE(lanes->isEnabled());
    inter->click();
    find<QCheckBox>(window, "Chk_nationalite")->click();
    find<QPushButton>(window, "Cmd_option_1")->click();
    EXPECT_TRUE(voir->isEnabled());
    EXPECT_FALSE(inter->isEnabled());

    voir->click();
    auto* results = find<QTreeView>(window, "LsvResults");
    EXPECT_GT(results->model()->rowCount(), 40);
    // The list starts at its top, with no blank row drawn as chosen.
    EXPECT_EQ(results->indexAt(QPoint(1, 1)).row(), 0);
    EXPECT_FALSE(results->selectionModel()->hasSelection());
    EXPECT_EQ(results->model()->headerData(3, Qt::Horizontal).toString(), QStringLiteral("Nat"));
    EXPECT_TRUE(print->isEnabled());
    auto* search = find<QComboBox>(window, "Cbo_search");
    ASSERT_EQ(search->count(), 5);
    search->setCurrentIndex(2);
    search->activated(2);
    EXPECT_EQ(results->currentIndex().siblingAtColumn(1).data().toString(), QStringLiteral("1500m n.l. Dames"));
    // Changing the options leaves the list where the person scrolled it.
    results->scrollToTop();
    QApplication::processEvents();
    const int top = results->indexAt(QPoint(1, 1)).row();
    find<QPushButton>(window, "Cmd_option_0")->click();
    find<QPushButton>(window, "Cmd_option_2")->click();
    QApplication::processEvents();
    EXPECT_EQ(results->indexAt(QPoint(1, 1)).row(), top);

    window->resize(1300, 760);
    shoot(window, QStringLiteral("resultats.png"));

    find<QPushButton>(window, "cmd_1")->click();
    EXPECT_EQ(main.child_window(QStringLiteral("frm_view_result")), nullptr);
    EXPECT_TRUE(main->action(QStringLiteral("mnuCompetSuppr"))->isEnabled());
}

}  // namespace
