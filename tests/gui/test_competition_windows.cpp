// The competition windows on Qt's offscreen platform: a new competition typed
// into det_compet from the menu and saved, then the list opened with its title;
// the programme of a competition chosen in the list, edited and saved.

#include "gui/frame/main_window.h"
#include "competitions/compet_test_base.h"
#include "window_test.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeView>

using namespace plouvarine;
using namespace plouvarine::testing;

namespace {

class CompetWindowTest : public WindowTest<CompetFixture> {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        open_main();
    }
    void type_in(QWidget* window, const char* field, const QString& text)
    {
        plouvarine::testing::type_in(find<QLineEdit>(window, field), text);
    }
};

}  // namespace

TEST_F(CompetWindowTest, NewCompetitionIsTypedAndSavedThenListed)
{
    main->trigger(QStringLiteral("mnuCompetNew"));
    QWidget* det = child_window(QStringLiteral("det_compet"));
    ASSERT_NE(det, nullptr);
    EXPECT_EQ(det->windowTitle(), QStringLiteral("Nouvelle compétition"));
    type_in(det, "text1_0", "Meeting de Brest");
    type_in(det, "text1_1", "b-25");
    EXPECT_EQ(det->findChild<QLineEdit*>("text1_1")->text(), "B25");
    type_in(det, "text1_2", "Brest");
    type_in(det, "txt_date_0", "12");
    type_in(det, "txt_date_1", "04");
    type_in(det, "txt_date_2", "2025");
    type_in(det, "txt_date_10", "13");
    type_in(det, "txt_date_11", "04");
    type_in(det, "txt_date_12", "2025");
    click(det, "Option1_1");  // interclubs: 25 m and Animation, locked
    EXPECT_TRUE(det->findChild<QRadioButton*>("Op_d_2")->isChecked());
    EXPECT_FALSE(det->findChild<QRadioButton*>("Op_bass_1")->isEnabled());
    click(det, "Command1_0");
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("Compétition mémorisée avec succès.")});
    QApplication::processEvents();
    EXPECT_EQ(child_window(QStringLiteral("det_compet")), nullptr);
    EXPECT_EQ(dump("select Num, Type, Longueur, Codif_depar, Debut, Fin from Rcomp"),
              QStringList{"B25:I:25:A:20250412:20250413"});

    main->trigger(QStringLiteral("mnuCompetListe"));
    QWidget* list = child_window(QStringLiteral("Frm_liste_compet"));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->windowTitle(), QStringLiteral("Liste des compétitions à venir"));
    auto* view = list->findChild<QTreeView*>("lsv_compet");
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->model()->index(0, 1).data().toString(), "Meeting de Brest");
    EXPECT_FALSE(list->findChild<QPushButton*>("Command1_2")->isVisible());
}

TEST_F(CompetWindowTest, ProgrammeIsChosenFromTheListThenSaved)
{
    const QString num = compet("20250315", "20250316");
    main->trigger(QStringLiteral("mnuEngagProgramme"));
    QWidget* list = child_window(QStringLiteral("Frm_liste_compet"));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->findChild<QPushButton*>("Command1_2")->text(), "&Prog");
    click(list, "Command1_2");
    QWidget* prog = child_window(QStringLiteral("frm_prog"));
    ASSERT_NE(prog, nullptr);
    EXPECT_EQ(prog->windowTitle(), QStringLiteral("Programme compétition"));
    EXPECT_EQ(prog->findChild<QComboBox*>("CboDate")->count(), 2);

    // Tick the 100 m free women, as a click on its box does.
    auto* events = prog->findChild<QTreeView*>("LsvNage");
    ASSERT_NE(events, nullptr);
    const QModelIndexList found =
        events->model()->match(events->model()->index(0, 1), Qt::DisplayRole, "2", 1, Qt::MatchExactly);
    ASSERT_EQ(found.size(), 1);
    events->model()->setData(events->model()->index(found[0].row(), 0), Qt::Checked, Qt::CheckStateRole);
    EXPECT_TRUE(prog->findChild<QRadioButton*>("Optclass_1")->isChecked());
    EXPECT_FALSE(prog->findChild<QRadioButton*>("optNbFinales_1")->isEnabled());
    click(prog, "Optclass_3");
    EXPECT_TRUE(prog->findChild<QRadioButton*>("optNbFinales_1")->isChecked());
    click(prog, "optNbFinales_2");
    click(prog, "OptType_1");
    auto* days = prog->findChild<QComboBox*>("CboDate");
    days->setCurrentIndex(1);
    Q_EMIT days->activated(1);  // as a choice in the drop-down does
    type_in(prog, "txtordre", "4");
    click(prog, "Command1_0");
    QApplication::processEvents();
    EXPECT_EQ(child_window(QStringLiteral("frm_prog")), nullptr);
    EXPECT_EQ(dump("select Code_epreuve, JourCourse, Type, Nb_finales, Type_finale, Num_ordre from Pcomp where "
                   "Num_compet = " + num),
              QStringList{"2:2:3:2:C:4"});
    EXPECT_TRUE(ui.texts().isEmpty());
}
