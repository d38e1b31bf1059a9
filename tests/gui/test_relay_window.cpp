// The relay window on Qt's offscreen platform, reached from the menu through
// the competition list: a men's team given two relays of the 4x100 m free,
// the first composed from the team's members with its computed time, and the
// rows found in Relais after "Ok".

#include "gui/frame/main_window.h"
#include "src/base/text.h"
#include "src/store/sentinels.h"
#include "src/subjects.h"
#include "window_test.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

using namespace plouvarine;
using namespace plouvarine::testing;

namespace {

class RelayWindowTest : public WindowTest<> {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        connect(make_base());
        app->state.club_code = QStringLiteral("FRA2210290017");
        app->state.profile_num = QStringLiteral("1");
        app->state.num_lic_nulle = check_licence_nulle(app->db, app->ui, app->state.club_code);
        app->clock.set_today(QDate(2025, 3, 10));
        open_main();
    }
    void select(QTreeView* list, int row) { list->setCurrentIndex(list->model()->index(row, 0)); }
};

TEST_F(RelayWindowTest, ATeamsRelaysAreCountedComposedAndTimed)
{
    Database& db = app->db;
    const QString compet = db.append_row(QStringLiteral("Rcomp"),
                                         {{"Num", "IC1"}, {"Nom", "Interclubs"}, {"Debut", "20250405"},
                                          {"Fin", "20250405"}, {"Lieu", "Brest"}, {"Longueur", 50},
                                          {"Visible", true}, {"Deroule", false}},
                                         QStringLiteral("AutoNum"));
    db.exec_sql(QStringLiteral("INSERT INTO Engag_equipe (Num_compet, Num_profil, Eq_Homme) VALUES (%1, 1, 1)").arg(compet));
    const QStringList names{"Abgrall", "Bothorel", "Cadiou", "Derrien"};
    QStringList nums;
    for (int i = 0; i < names.size(); ++i) {
        nums << db.append_row(QStringLiteral("Licence"),
                              {{"Code_club", app->state.club_code}, {"Licence", names[i].toUpper()}, {"Nom", names[i]},
                               {"Prenom", "Yann"}, {"Sexe", "M"}},
                              QStringLiteral("Num"));
        db.exec_sql(QStringLiteral("INSERT INTO Engag_nageur (Num_compet, Num_profil, Num_Lic, Equipe) VALUES (%1, 1, "
                                   "%2, 1)")
                        .arg(compet, nums.last()));
        db.exec_sql(QStringLiteral("INSERT INTO Liffn (Code_epreuve, Num_Lic, Type_bassin, Date_perf, Tps) "
                                   "VALUES (52, %1, 50, '20241012', 0.5%2)")
                        .arg(nums.last())
                        .arg(i + 6));
    }

    main->trigger(QStringLiteral("mnuEngagRelais"));
    QWidget* list = child_window(QStringLiteral("Frm_liste_compet"));
    ASSERT_NE(list, nullptr);
    click(list, "Command1_2");
    QWidget* relay = child_window(QStringLiteral("frm_engag_relais"));
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
    EXPECT_EQ(relay->findChild<QComboBox*>("cbo_team_relais")->currentText(), "4x100m n.l. Mess.");
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
    const QImage shot = relay->grab().toImage();
    EXPECT_FALSE(shot.isNull());
    shot.save(work_file(QStringLiteral("frm_engag_relais.png")));

    click(relay, "Command1_0");
    QApplication::processEvents();
    EXPECT_EQ(child_window(QStringLiteral("frm_engag_relais")), nullptr);
    const Rows rows = db.load_rows(QStringLiteral("select Num_Lic, Tps, Licence1, Licence4, Licence5 from Relais "
                                                  "where Code_epreuve = 58 order by Num_Lic"));
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows.value(0, 1), "3.5");
    EXPECT_EQ(rows.value(0, 2), nums[0]);
    EXPECT_EQ(rows.value(0, 3), nums[3]);
    EXPECT_EQ(rows.value(0, 4), app->state.num_lic_nulle);
    EXPECT_EQ(rows.value(1, 2), app->state.num_lic_nulle);
}

}  // namespace
