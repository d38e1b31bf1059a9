// The entry windows reached through the competition list: the relays of a
// team given, composed and timed by their buttons, the rows found in Relais;
// the convocations' boxes, toolbar and reply option, the ticked letters printed.

#include "entries/entries_test_base.h"
#include "window_test.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QTextEdit>
#include <QToolButton>
#include <QTreeView>

using namespace plouvarine;
using namespace plouvarine::testing;

namespace {

class EntryWindowsTest : public WindowTest<EntriesBase> {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        app->state.club_name = QStringLiteral("Brest Natation");
        install_template_component();
        open_main();
    }
    void select(QTreeView* list, int row) { list->setCurrentIndex(list->model()->index(row, 0)); }
};

TEST_F(EntryWindowsTest, ATeamsRelaysAreCountedComposedAndTimed)
{
    exec(QStringLiteral("INSERT INTO Engag_equipe (Num_compet, Num_profil, Eq_Homme) VALUES (%1, 1, 1)").arg(compet));
    QStringList nums;
    for (const char* name : {"Abgrall", "Bothorel", "Cadiou", "Derrien"}) {
        nums << swimmer(QString::fromUtf8(name), QStringLiteral("M"), QStringLiteral("Yann"));
        member(nums.last(), 1, false);
        perf(nums.last(), 52, QStringLiteral("0.5%1").arg(nums.size() + 5), QStringLiteral("20241012"));
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
    auto* members = relay->findChild<QTreeView*>("lsv_nageurs");
    auto* composed = relay->findChild<QTreeView*>("lsv_engag_relais");
    ASSERT_EQ(members->model()->rowCount(), 4);
    for (int i = 0; i < 4; ++i) {
        select(members, 0);
        click(relay, "Cmd_add_0");
    }
    EXPECT_EQ(composed->model()->rowCount(), 4);
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
        member(swimmer(QString::fromUtf8(name), QStringLiteral("M"), QStringLiteral("Yann")), 0, false);

    QWidget* window = open_chosen(QStringLiteral("mnuEngagConvoc"), QStringLiteral("frm_convocation"));
    ASSERT_NE(window, nullptr);
    auto* swimmers = window->findChild<QTreeView*>("Lsv_nageurs");
    ASSERT_EQ(swimmers->model()->rowCount(), 2);
    window->findChild<QCheckBox*>("Chk_all")->click();
    EXPECT_EQ(swimmers->model()->index(1, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));

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
