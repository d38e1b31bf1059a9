// The competition windows: a new competition typed into det_compet and saved,
// then listed; the programme of a competition chosen in the list, edited and saved.

#include "competitions/compet_test_base.h"
#include "window_test.h"

#include <QComboBox>
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
    QWidget* det = open(QStringLiteral("mnuCompetNew"), QStringLiteral("det_compet"));
    ASSERT_NE(det, nullptr);
    const std::pair<const char*, const char*> typed[] = {
        {"text1_0", "Meeting de Brest"}, {"text1_1", "b-25"},       {"text1_2", "Brest"},
        {"txt_date_0", "12"},            {"txt_date_1", "04"},      {"txt_date_2", "2025"},
        {"txt_date_10", "13"},           {"txt_date_11", "04"},     {"txt_date_12", "2025"}};
    for (const auto& [field, text] : typed)
        type_in(det, field, QString::fromUtf8(text));
    EXPECT_EQ(det->findChild<QLineEdit*>("text1_1")->text(), "B25");
    click(det, "Option1_1");  // interclubs: 25 m and Animation, locked
    EXPECT_TRUE(det->findChild<QRadioButton*>("Op_d_2")->isChecked());
    EXPECT_FALSE(det->findChild<QRadioButton*>("Op_bass_1")->isEnabled());
    click(det, "Command1_0");
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("Compétition mémorisée avec succès.")});
    EXPECT_TRUE(gone(QStringLiteral("det_compet")));
    EXPECT_EQ(dump("select Num, Type, Longueur, Codif_depar, Debut, Fin from Rcomp"),
              QStringList{"B25:I:25:A:20250412:20250413"});

    QWidget* list = open(QStringLiteral("mnuCompetListe"), QStringLiteral("Frm_liste_compet"));
    ASSERT_NE(list, nullptr);
    auto* view = find<QTreeView>(list, "lsv_compet");
    EXPECT_EQ(view->model()->index(0, 1).data().toString(), "Meeting de Brest");
    EXPECT_FALSE(list->findChild<QPushButton*>("Command1_2")->isVisible());
}

TEST_F(CompetWindowTest, ProgrammeIsChosenFromTheListThenSaved)
{
    const QString num = compet("20250315", "20250316");
    QWidget* prog = open_chosen(QStringLiteral("mnuEngagProgramme"), QStringLiteral("frm_prog"));
    ASSERT_NE(prog, nullptr);

    // Tick the 100 m free women, as a click on its box does.
    auto* events = find<QTreeView>(prog, "LsvNage");
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
    ASSERT_EQ(days->count(), 2);
    days->setCurrentIndex(1);
    Q_EMIT days->activated(1);  // as a choice in the drop-down does
    type_in(prog, "txtordre", "4");
    click(prog, "Command1_0");
    EXPECT_TRUE(gone(QStringLiteral("frm_prog")));
    EXPECT_EQ(dump("select Code_epreuve, JourCourse, Type, Nb_finales, Type_finale, Num_ordre from Pcomp where "
                   "Num_compet = " + num),
              QStringList{"2:2:3:2:C:4"});
    EXPECT_TRUE(ui.texts().isEmpty());
}
