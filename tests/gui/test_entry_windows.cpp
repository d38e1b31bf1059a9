// The entry windows reached through the competition list: a swimmer found and
// entered from the keyboard, two events ticked, another swimmer, and back; the
// relays of a team given, composed and timed by their buttons, the rows found
// in Relais; the convocations' boxes, toolbar and reply option, the letters printed.

#include "entries/engag_test_base.h"
#include "window_test.h"

#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QTextEdit>
#include <QToolButton>
#include <QTreeView>

using namespace plouvarine;
using namespace plouvarine::testing;

namespace {

class EntryWindowsTest : public WindowTest<EngagBase> {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        install_template_component();
        open_main();
    }
    void select(QTreeView* list, int row) { list->setCurrentIndex(list->model()->index(row, 0)); }
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

TEST_F(EntryWindowsTest, ASwimmerIsEnteredTickedLeftAndFoundAsSaved)
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
    // The proposal of her best time shown in the line of the event.
    EXPECT_EQ(find<QLineEdit>(w, "txt_temps_2")->text(), QStringLiteral("1.0500"));
    EXPECT_EQ(find<QLineEdit>(w, "text1_2")->text(), QStringLiteral("Morlaix"));
    EXPECT_EQ(find<QLineEdit>(w, "txt_description_102")->text(), QStringLiteral("2024"));
    EXPECT_TRUE(find<QRadioButton>(w, "Option1_53")->isChecked());
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

    // A time typed badly is refused by the time rule, and nothing of it is kept.
    choose_swimmer(w, QStringLiteral("LE GALL"));
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
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag_tempo")), 0);
    EXPECT_EQ(entries(compet).size(), 2);
    EXPECT_TRUE(ui.texts().isEmpty());
}

TEST_F(EntryWindowsTest, ATeamsRelaysAreCountedComposedAndTimed)
{
    exec(QStringLiteral("INSERT INTO Engag_equipe (Num_compet, Num_profil, Eq_Homme) VALUES (%1, 1, 1)").arg(compet));
    QStringList nums;
    for (const char* name : {"Abgrall", "Bothorel", "Cadiou", "Derrien"}) {
        nums << swimmer(QString::fromUtf8(name), QStringLiteral("Yann"), QStringLiteral("M"));
        member(nums.last(), 1, false);
        perf(nums.last(), 52, QStringLiteral("0.5%1").arg(nums.size() + 5), QStringLiteral("20241012"), 50);
    }

    QWidget* relay = open_chosen(QStringLiteral("mnuEngagRelais"), QStringLiteral("frm_engag_relais"));
    ASSERT_NE(relay, nullptr);

    auto* teams = relay->findChild<QComboBox*>("cbo_team");
    ASSERT_EQ(teams->count(), 2);
    teams->setCurrentIndex(1);
    Q_EMIT teams->activated(1);
    auto* events = relay->findChild<QTreeView*>("Lst_relais");
    const QModelIndexList free100 =
        events->model()->match(events->model()->index(0, 0), Qt::DisplayRole, "4x100m n.l. Mess.");
    ASSERT_EQ(free100.size(), 1);
    select(events, free100[0].row());
    auto* nb = relay->findChild<QLineEdit*>("txt_nb_equipe");
    EXPECT_EQ(nb->text(), "1");
    click(relay, "cmd_plus");
    EXPECT_EQ(nb->text(), "2");
    EXPECT_EQ(events->model()->index(free100[0].row(), 1).data().toString(), "2");

    click(relay, "Cmd_composition");
    EXPECT_EQ(relay->findChild<QPushButton*>("Cmd_composition")->text(), QStringLiteral("&Sélection"));
    auto* members = relay->findChild<QTreeView*>("lsv_nageurs");
    ASSERT_EQ(members->model()->rowCount(), 4);
    for (int i = 0; i < 4; ++i) {
        select(members, 0);
        click(relay, "Cmd_add_0");
    }
    EXPECT_FALSE(relay->findChild<QPushButton*>("Cmd_add_0")->isEnabled());
    click(relay, "Cmd_caltps");
    // 56 + 57 + 58 + 59 seconds
    EXPECT_EQ(relay->findChild<QLineEdit*>("txt_temps")->text(), "3.5000");

    main->resize(1000, 700);
    relay->parentWidget()->resize(780, 480);
    shoot(relay, QStringLiteral("frm_engag_relais.png"));

    click(relay, "Command1_0");
    EXPECT_TRUE(gone(QStringLiteral("frm_engag_relais")));
    const QString nulle = app->state.num_lic_nulle;
    EXPECT_EQ(dump("select Num_Lic, Tps, Licence1, Licence4, Licence5 from Relais where Code_epreuve = 58 order by "
                   "Num_Lic"),
              (QStringList{"1:3.5:" + nums[0] + ':' + nums[3] + ':' + nulle,
                           "2:0:" + nulle + ':' + nulle + ':' + nulle}));
}

TEST_F(EntryWindowsTest, TickedSwimmersGetTheStyledMessage)
{
    for (const char* name : {"Le Bihan", "Abgrall"})
        member(swimmer(QString::fromUtf8(name), QStringLiteral("Yann"), QStringLiteral("M")), 0, false);

    QWidget* window = open_chosen(QStringLiteral("mnuEngagConvoc"), QStringLiteral("frm_convocation"));
    ASSERT_NE(window, nullptr);
    auto* swimmers = window->findChild<QTreeView*>("Lsv_nageurs");
    ASSERT_EQ(swimmers->model()->rowCount(), 2);
    window->findChild<QCheckBox*>("Chk_all")->click();

    auto* date = window->findChild<QLineEdit*>("txt_description_0");
    EXPECT_FALSE(date->isEnabled());
    window->findChild<QCheckBox*>("chk_reponse")->click();
    EXPECT_TRUE(date->isEnabled());

    auto* message = window->findChild<QTextEdit*>("rich");
    message->setFocus();
    message->insertPlainText(QStringLiteral("Rendez-vous à 8h"));
    message->selectAll();
    window->findChild<QToolButton*>("cmd_text_0")->click();
    window->findChild<QToolButton*>("cmd_text_4")->click();

    window->resize(900, 560);
    shoot(window, QStringLiteral("convocation.png"));

    window->findChild<QPushButton*>("cmd_1")->click();
    ASSERT_EQ(ui.printed.size(), 1u);
    const auto& printed = ui.printed[0];
    EXPECT_EQ(printed.text.count(QStringLiteral("Rendez-vous à 8h")), 2);
    EXPECT_TRUE(printed.html.contains(QStringLiteral("font-weight:700")));
    EXPECT_TRUE(printed.html.contains(QStringLiteral("align=\"center\"")));
    EXPECT_EQ(printed.text.count(QString(QChar(0x2702))), 4);
}

}  // namespace
