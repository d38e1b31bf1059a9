// The relay window reached through the competition list: a team given two
// relays, the first composed and timed by its buttons, the rows found in Relais.

#include "entries/entries_test_base.h"
#include "window_test.h"

#include <QComboBox>
#include <QPushButton>
#include <QTreeView>

using namespace plouvarine;
using namespace plouvarine::testing;

namespace {

class RelayWindowTest : public WindowTest<EntriesBase> {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        open_main();
    }
    void select(QTreeView* list, int row) { list->setCurrentIndex(list->model()->index(row, 0)); }
};

TEST_F(RelayWindowTest, ATeamsRelaysAreCountedComposedAndTimed)
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

}  // namespace
