// The record windows reached from the menu: the bands typed and saved, the
// records shown and typed in the second tab, the swims of the history accepted
// from the modal proposals, and those left every way.

#include "records/records_test_base.h"
#include "window_test.h"

#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QTreeView>

using namespace plouvarine;
using namespace plouvarine::testing;

namespace {

class RecordWindowsTest : public WindowTest<RecordsBase> {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        open_main();
    }
    // A band, its record of 2020 and a swim of the history that beats it.
    void seed()
    {
        const QString cat = band(QStringLiteral("Minimes"), 13, 14, QStringLiteral("Homme"));
        exec(QStringLiteral("INSERT INTO RecordClub (Categorie, Code_nage, Bassin, Tps, Nom, Prenom, Date_perf, Lieu) "
                            "VALUES (%1, 52, 25, 1.0512, 'Abgrall', 'Yann', '20200512', 'Brest')").arg(cat));
        swim(swimmer(QStringLiteral("Corre"), QStringLiteral("20110101")), 52, 25, 1.0450, QStringLiteral("20250301"));
    }
    // Plays with `play` the modal proposals that "Chercher" of `window` opens.
    void with_proposals(QWidget* window, const std::function<void(QWidget*)>& play)
    {
        bool played = false;
        QTimer::singleShot(0, [&] {
            QWidget* finder = QApplication::activeModalWidget();
            ASSERT_NE(finder, nullptr);
            played = true;
            play(finder);
        });
        click(window, QStringLiteral("cmd_chercher"));
        EXPECT_TRUE(played);
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    }
};

TEST_F(RecordWindowsTest, BandsAreTypedAndSaved)
{
    QWidget* window = open(QStringLiteral("mnuPerfRecModifier"), QStringLiteral("det_categorie_record_club"));
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Définition des catégories"));
    fill(window, {{"txt_libelle", "Minimes"}, {"txt_age_0", "13a"}, {"txt_age_1", "14"}});  // digits only
    click(window, QStringLiteral("Opt_sexe_0"));
    click(window, QStringLiteral("Cmd_def_0"));
    click(window, QStringLiteral("Opt_sexe_1"));
    fill(window, {{"txt_libelle", "Minimes filles"}, {"txt_age_0", "13"}, {"txt_age_1", "14"}});
    click(window, QStringLiteral("Cmd_def_0"));
    auto* list = find<QTreeView>(window, "lsv_cat");
    ASSERT_EQ(list->model()->rowCount(), 2);
    // A click on a line fills the fields.
    list->setCurrentIndex(list->model()->index(1, 0));
    EXPECT_EQ(find<QLineEdit>(window, "txt_libelle")->text(), QStringLiteral("Minimes"));
    EXPECT_TRUE(find<QRadioButton>(window, "Opt_sexe_0")->isChecked());
    window->resize(560, 440);
    shoot(window, QStringLiteral("categories.png"));
    click(window, QStringLiteral("cmd_0"));
    EXPECT_TRUE(gone(QStringLiteral("det_categorie_record_club")));
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(dump(QStringLiteral("SELECT Libelle, Age_inf, Age_sup, Sexe FROM Categori_record_club ORDER BY Sexe")),
              (QStringList{"Minimes filles:13:14:Femme", "Minimes:13:14:Homme"}));
}

TEST_F(RecordWindowsTest, RecordsAreShownTypedAndFoundInTheHistory)
{
    seed();
    QWidget* window = open(QStringLiteral("mnuPerfRecView"), QStringLiteral("frm_view_record"));
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Records du club"));
    // Tab goes as the window is drawn: the events on the left, then the tabs.
    EXPECT_EQ(tab_order(window, {"LsvNage", "tabs"}), QStringLiteral("LsvNage tabs"));
    auto* nages = find<QTreeView>(window, "LsvNage");
    const QModelIndexList event =
        nages->model()->match(nages->model()->index(0, 0), Qt::DisplayRole, "100m n.l. Mess.", 1, Qt::MatchExactly);
    ASSERT_EQ(event.size(), 1);
    nages->model()->setData(event[0], Qt::Checked, Qt::CheckStateRole);
    click(window, QStringLiteral("Opt_view_bassin_2"));
    click(window, QStringLiteral("Cmd_view_0"));
    auto* records = find<QTreeView>(window, "lsvRecords");
    ASSERT_EQ(records->model()->rowCount(), 5);
    EXPECT_EQ(find<QComboBox>(window, "Cbo_search")->count(), 1);
    window->resize(980, 620);
    shoot(window, QStringLiteral("records_list.png"));

    // The second tab on the ticked event: the record shown, read-only until
    // "Modifier", the first tab shut while it is typed.
    auto* tabs = find<QTabWidget>(window, "tabs");
    tabs->setCurrentIndex(1);
    EXPECT_EQ(find<QComboBox>(window, "Cbo_cat")->currentText(), QStringLiteral("Minimes"));
    auto* nom = find<QLineEdit>(window, "txt_info_0");
    EXPECT_EQ(nom->text(), QStringLiteral("Abgrall"));
    EXPECT_TRUE(nom->isReadOnly());
    EXPECT_FALSE(find<QPushButton>(window, "Cmd_def_0")->isEnabled());
    click(window, QStringLiteral("Cmd_def_1"));
    EXPECT_FALSE(nom->isReadOnly());
    EXPECT_FALSE(tabs->isTabEnabled(0));
    EXPECT_FALSE(find<QPushButton>(window, "Cmd_def_3")->isEnabled());
    fill(window, {{"txt_info_0", "Bihan"}, {"txt_info_2", "1.0500"}, {"txt_date_0", "3"}, {"txt_date_1", "2"},
                  {"txt_date_2", "2025"}, {"txt_info_3", "Quimper"}});
    shoot(window, QStringLiteral("records_entry.png"));
    click(window, QStringLiteral("Cmd_def_1"));
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_TRUE(nom->isReadOnly());
    EXPECT_TRUE(tabs->isTabEnabled(0));
    EXPECT_EQ(nom->text(), QStringLiteral("Bihan"));

    // The history's swim beats the new record: proposed, then accepted.
    with_proposals(window, [&](QWidget* finder) {
        EXPECT_EQ(finder->windowTitle(), QStringLiteral("Records à valider"));
        auto* list = find<QTreeView>(finder, "lsv_propositions");
        EXPECT_EQ(list->model()->rowCount(), 1);
        EXPECT_EQ(list->model()->index(0, 7).data().toString(), QStringLiteral("1:05.00"));
        finder->resize(880, 380);
        shoot(finder, QStringLiteral("records_finder.png"));
        click(finder, QStringLiteral("cmd_0"));
        QTest::keyClick(finder, Qt::Key_Escape);
    });
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(dump(QStringLiteral("SELECT Nom, Tps, Date_perf FROM RecordClub ORDER BY Tps")),
              (QStringList{"Corre:1.045:20250301", "Bihan:1.05:20250203", "Abgrall:1.0512:20200512"}));
    // The tab shows the new record.
    EXPECT_EQ(nom->text(), QStringLiteral("Corre"));
}

TEST_F(RecordWindowsTest, TheProposalsCloseByTheirButtonTheCloseBoxAndEscape)
{
    seed();
    QWidget* window = open(QStringLiteral("mnuPerfRecView"), QStringLiteral("frm_view_record"));
    ASSERT_NE(window, nullptr);
    for (int exit = 0; exit < 3; ++exit) {
        with_proposals(window, [&](QWidget* finder) {
            EXPECT_EQ(app->state.busy_count, 2);
            if (exit == 0)
                click(finder, QStringLiteral("cmd_2"));
            else if (exit == 1)
                finder->close();
            else
                QTest::keyClick(finder, Qt::Key_Escape);
        });
        EXPECT_EQ(app->state.busy_count, 1) << exit;
    }
    // Nothing was accepted.
    EXPECT_EQ(count(QStringLiteral("SELECT count(*) from RecordClub")), 1);
}

}  // namespace
