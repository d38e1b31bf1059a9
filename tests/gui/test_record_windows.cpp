// The record windows on Qt's offscreen platform, reached from the menu: the
// bands typed and saved, the records shown and typed in the second tab, and
// the swims of the history accepted from the modal proposals. Each window is
// grabbed as a picture (PLOUVARINE_KEEP_SCREENSHOTS=<folder> keeps a copy).

#include "records/records_test_base.h"
#include "window_test.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
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
    void type(QWidget* window, const char* name, const QString& text)
    {
        auto* edit = find<QLineEdit>(window, name);
        edit->clear();
        QTest::keyClicks(edit, text);
    }

    // A band, its record of 2020 and a swim of the history that beats it.
    void seed()
    {
        const QString cat = band(QStringLiteral("Minimes"), 13, 14, QStringLiteral("Homme"));
        exec(QStringLiteral("INSERT INTO RecordClub (Categorie, Code_nage, Bassin, Tps, Nom, Prenom, Date_perf, Lieu) "
                            "VALUES (%1, 52, 25, 1.0512, 'Abgrall', 'Yann', '20200512', 'Brest')").arg(cat));
        swim(swimmer(QStringLiteral("Corre"), QStringLiteral("20110101")), 52, 25, 1.0450, QStringLiteral("20250301"));
    }
};

TEST_F(RecordWindowsTest, BandsAreTypedAndSaved)
{
    main->trigger(QStringLiteral("mnuPerfRecModifier"));
    QWidget* window = main.child_window(QStringLiteral("det_categorie_record_club"));
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Définition des catégories"));
    type(window, "txt_libelle", QStringLiteral("Minimes"));
    type(window, "txt_age_0", QStringLiteral("13a"));  // digits only
    type(window, "txt_age_1", QStringLiteral("14"));
    find<QRadioButton>(window, "Opt_sexe_0")->click();
    find<QPushButton>(window, "Cmd_def_0")->click();
    type(window, "txt_libelle", QStringLiteral("Minimes"));
    type(window, "txt_age_0", QStringLiteral("14"));
    find<QPushButton>(window, "Cmd_def_0")->click();
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_TRUE(ui.messages[0].text.startsWith(QStringLiteral("Ajouter impossible !")));
    find<QRadioButton>(window, "Opt_sexe_1")->click();
    type(window, "txt_libelle", QStringLiteral("Minimes filles"));
    type(window, "txt_age_0", QStringLiteral("13"));
    find<QPushButton>(window, "Cmd_def_0")->click();
    auto* list = find<QTreeView>(window, "lsv_cat");
    ASSERT_EQ(list->model()->rowCount(), 2);
    // A click on a line fills the fields.
    list->setCurrentIndex(list->model()->index(1, 0));
    EXPECT_EQ(find<QLineEdit>(window, "txt_libelle")->text(), QStringLiteral("Minimes"));
    EXPECT_TRUE(find<QRadioButton>(window, "Opt_sexe_0")->isChecked());
    window->resize(560, 440);
    shoot(window, QStringLiteral("categories.png"));

    find<QPushButton>(window, "cmd_0")->click();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(main.child_window(QStringLiteral("det_categorie_record_club")), nullptr);
    EXPECT_EQ(dump(QStringLiteral("SELECT Libelle, Age_inf, Age_sup, Sexe FROM Categori_record_club ORDER BY Sexe")),
              (QStringList{"Minimes filles:13:14:Femme", "Minimes:13:14:Homme"}));
}

TEST_F(RecordWindowsTest, RecordsAreShownTypedAndFoundInTheHistory)
{
    seed();
    main->trigger(QStringLiteral("mnuPerfRecView"));
    QWidget* window = main.child_window(QStringLiteral("frm_view_record"));
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Records du club"));
    auto* nages = find<QTreeView>(window, "LsvNage");
    // Tab goes as the window is drawn: the events on the left, then the tabs.
    QStringList order;
    for (QWidget* w = window->nextInFocusChain(); w != window; w = w->nextInFocusChain())
        if (w == nages || w->objectName() == QLatin1String("tabs"))
            order << w->objectName();
    EXPECT_EQ(order.join(u' ').toStdString(), "LsvNage tabs");
    int row = -1;
    for (int r = 0; r < nages->model()->rowCount(); ++r)
        if (nages->model()->index(r, 0).data().toString() == QStringLiteral("100m n.l. Mess."))
            row = r;
    ASSERT_GE(row, 0);
    nages->model()->setData(nages->model()->index(row, 0), Qt::Checked, Qt::CheckStateRole);
    find<QRadioButton>(window, "Opt_view_bassin_2")->click();
    find<QPushButton>(window, "Cmd_view_0")->click();
    auto* records = find<QTreeView>(window, "lsvRecords");
    ASSERT_EQ(records->model()->rowCount(), 5);
    EXPECT_EQ(records->model()->index(4, 1).data().toString(), QStringLiteral("Abgrall Yann"));
    EXPECT_EQ(find<QComboBox>(window, "Cbo_search")->count(), 1);
    window->resize(980, 620);
    shoot(window, QStringLiteral("records_list.png"));

    // The second tab on the ticked event: the record shown, read-only.
    auto* tabs = find<QTabWidget>(window, "tabs");
    tabs->setCurrentIndex(1);
    EXPECT_EQ(find<QComboBox>(window, "Cbo_cat")->currentText(), QStringLiteral("Minimes"));
    auto* nom = find<QLineEdit>(window, "txt_info_0");
    EXPECT_EQ(nom->text(), QStringLiteral("Abgrall"));
    EXPECT_TRUE(nom->isReadOnly());
    EXPECT_FALSE(find<QPushButton>(window, "Cmd_def_0")->isEnabled());

    find<QPushButton>(window, "Cmd_def_1")->click();
    EXPECT_FALSE(nom->isReadOnly());
    EXPECT_FALSE(tabs->isTabEnabled(0));
    EXPECT_FALSE(find<QPushButton>(window, "Cmd_def_3")->isEnabled());
    type(window, "txt_info_0", QStringLiteral("Bihan"));
    type(window, "txt_info_2", QStringLiteral("1.0500"));
    type(window, "txt_date_0", QStringLiteral("3"));
    type(window, "txt_date_1", QStringLiteral("2"));
    type(window, "txt_date_2", QStringLiteral("2025"));
    type(window, "txt_info_3", QStringLiteral("Quimper"));
    shoot(window, QStringLiteral("records_entry.png"));
    find<QPushButton>(window, "Cmd_def_1")->click();
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_TRUE(nom->isReadOnly());
    EXPECT_TRUE(tabs->isTabEnabled(0));
    EXPECT_EQ(nom->text(), QStringLiteral("Bihan"));

    // The history's swim beats the new record: proposed, then accepted.
    bool played = false;
    QTimer::singleShot(0, [&] {
        QWidget* finder = QApplication::activeModalWidget();
        ASSERT_NE(finder, nullptr);
        played = true;
        EXPECT_EQ(finder->windowTitle(), QStringLiteral("Records à valider"));
        auto* list = find<QTreeView>(finder, "lsv_propositions");
        EXPECT_EQ(list->model()->rowCount(), 1);
        EXPECT_EQ(list->model()->index(0, 7).data().toString(), QStringLiteral("1:05.00"));
        finder->resize(880, 380);
        shoot(finder, QStringLiteral("records_finder.png"));
        find<QPushButton>(finder, "cmd_0")->click();
        QTest::keyClick(finder, Qt::Key_Escape);
    });
    find<QPushButton>(window, "cmd_chercher")->click();
    EXPECT_TRUE(played);
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(dump(QStringLiteral("SELECT Nom, Tps, Date_perf FROM RecordClub ORDER BY Tps")),
              (QStringList{"Corre:1.045:20250301", "Bihan:1.05:20250203", "Abgrall:1.0512:20200512"}));
    // The tab shows the new record.
    EXPECT_EQ(nom->text(), QStringLiteral("Corre"));
}

TEST_F(RecordWindowsTest, TheProposalsCloseByTheirButtonTheCloseBoxAndEscape)
{
    seed();
    main->trigger(QStringLiteral("mnuPerfRecView"));
    QWidget* window = main.child_window(QStringLiteral("frm_view_record"));
    ASSERT_NE(window, nullptr);
    for (int exit = 0; exit < 3; ++exit) {
        bool played = false;
        QTimer::singleShot(0, [&] {
            QWidget* finder = QApplication::activeModalWidget();
            ASSERT_NE(finder, nullptr);
            played = true;
            EXPECT_EQ(app->state.busy_count, 2);
            if (exit == 0)
                find<QPushButton>(finder, "cmd_2")->click();
            else if (exit == 1)
                finder->close();
            else
                QTest::keyClick(finder, Qt::Key_Escape);
        });
        find<QPushButton>(window, "cmd_chercher")->click();
        EXPECT_TRUE(played) << exit;
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << exit;
        EXPECT_EQ(app->state.busy_count, 1) << exit;
    }
    // Nothing was accepted.
    EXPECT_EQ(count(QStringLiteral("SELECT count(*) FROM RecordClub")), 1);
}

}  // namespace
