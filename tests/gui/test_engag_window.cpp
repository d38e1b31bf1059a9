// The entry window reached through the competition list: a swimmer found and
// entered from the keyboard, two events ticked, another swimmer, and back.

#include "entries/engag_test_base.h"
#include "window_test.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QRadioButton>
#include <QTreeView>

using namespace plouvarine;
using namespace plouvarine::testing;

namespace {

class EngagWindowTest : public WindowTest<EngagBase> {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        open_main();
    }
    void key(QWidget* target, int code)
    {
        QKeyEvent press(QEvent::KeyPress, code, Qt::NoModifier);
        QApplication::sendEvent(target, &press);
    }
    void choose_swimmer(QWidget* window, const QString& nom)
    {
        auto* list = window->findChild<QTreeView*>("lsv_engag");
        const QModelIndexList found =
            list->model()->match(list->model()->index(0, 0), Qt::DisplayRole, nom, 1, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << nom.toStdString();
        list->setCurrentIndex(found[0]);
    }
    // Types `text` over what the time field holds, as the person does.
    void overtype(QLineEdit* field, const QString& text)
    {
        field->setFocus();
        field->selectAll();
        type_in(field, text);
    }
};

TEST_F(EngagWindowTest, ASwimmerIsEnteredTickedLeftAndFoundAsSaved)
{
    const QString compet = competition(QStringLiteral("20250315"), 50);
    const QString anna = swimmer(QStringLiteral("LE GALL"), QStringLiteral("Anna"), QStringLiteral("F"));
    const QString yann = swimmer(QStringLiteral("MORVAN"), QStringLiteral("Yann"), QStringLiteral("M"));
    individual(compet, yann);
    perf(anna, 2, QStringLiteral("1.05"), QStringLiteral("20240110"), 25, QStringLiteral("Morlaix"));
    perf(anna, 3, QStringLiteral("2.2"), QStringLiteral("20241201"), 50, QStringLiteral("Brest"));

    QWidget* w = open_chosen(QStringLiteral("mnuEngagIndiv"), QStringLiteral("frm_engag"));
    ASSERT_NE(w, nullptr);
    // Only the pool's individual events get a box; only 50 m ones a 50 m option.
    EXPECT_EQ(w->findChild<QCheckBox*>("Check1_8"), nullptr);   // a relay
    EXPECT_EQ(w->findChild<QRadioButton*>("Option1_70"), nullptr);  // 25 m breast

    // Anna typed in the search and entered with Return.
    auto* search = find<QLineEdit>(w, "txt_search");
    type_in(search, QStringLiteral("le g"));
    key(search, Qt::Key_Return);
    auto* lsv = find<QTreeView>(w, "lsv_engag");
    ASSERT_EQ(lsv->model()->rowCount(), 2);
    EXPECT_EQ(lsv->currentIndex().siblingAtColumn(0).data().toString(), QStringLiteral("LE GALL"));

    EXPECT_FALSE(find<QCheckBox>(w, "Check1_20")->isEnabled());  // 25 m only, in a 50 m pool
    find<QCheckBox>(w, "Check1_2")->click();
    find<QCheckBox>(w, "Check1_3")->click();
    // The proposal overtyped: the time rule takes the keys, leaving rewrites it.
    auto* temps = find<QLineEdit>(w, "txt_temps_3");
    overtype(temps, QStringLiteral("2.18"));
    Q_EMIT temps->editingFinished();
    EXPECT_EQ(temps->text(), QStringLiteral("2.1800"));
    find<QRadioButton>(w, "Option1_3")->click();

    choose_swimmer(w, QStringLiteral("MORVAN"));
    EXPECT_FALSE(find<QCheckBox>(w, "Check1_2")->isChecked());
    EXPECT_EQ(entries(compet), (QStringList{anna + QStringLiteral(":2:1.05:20240110:Morlaix:25"),
                                            anna + QStringLiteral(":3:2.18:20241201:Brest:25")}));

    choose_swimmer(w, QStringLiteral("LE GALL"));
    EXPECT_TRUE(find<QCheckBox>(w, "Check1_3")->isChecked());
    EXPECT_EQ(temps->text(), QStringLiteral("2.1800"));
    EXPECT_TRUE(find<QRadioButton>(w, "Option1_3")->isChecked());

    // A time typed badly is refused by the time rule, and nothing of it is kept.
    auto* other = find<QLineEdit>(w, "txt_temps_2");
    overtype(other, QStringLiteral("1.60"));
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("Saisie du temps incorrect.")});
    EXPECT_NE(other->text(), QStringLiteral("1.60"));
    other->setText(QStringLiteral("1.0500"));
    ui.clear();

    // The Delete key takes him out of "Individuel", and leaves her entries.
    choose_swimmer(w, QStringLiteral("MORVAN"));
    key(lsv, Qt::Key_Delete);
    EXPECT_EQ(lsv->model()->rowCount(), 1);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag_nageur where Num_Lic = ") + yann), 0);

    click(w, QStringLiteral("Command1_0"));
    EXPECT_TRUE(gone(QStringLiteral("frm_engag")));
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag_tempo")), 0);
    EXPECT_EQ(entries(compet).size(), 2);
    EXPECT_TRUE(ui.texts().isEmpty());
}

}  // namespace
