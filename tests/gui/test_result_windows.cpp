// The results window on the fixed meet: its boxes, option buttons, "Voir" and
// "Epreuve :" wired to the view, the list drawn from its top, the menu locked.
// The performance windows: the history of a ticked swimmer and its progression
// chart, saved, printed and left every way; the manual forms typed and saved.

#include "results/perf_test_base.h"
#include "results/results_test_base.h"
#include "window_test.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QHeaderView>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTreeView>

using namespace plouvarine;
using namespace plouvarine::testing;

namespace {

const QString kChart = QStringLiteral("frm_perf_progression");

class ResultWindowTest : public WindowTest<ResultsBase> {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        open_main();
    }
};

class PerfWindowsTest : public WindowTest<PerfBase> {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        install_template_component();
        open_main();
    }
    void snapshot(QWidget* window, const QString& name, QSize size)
    {
        window->window()->resize(size);
        window->resize(size);
        QApplication::processEvents();
        shoot(window, name);
    }
    QString first_bytes(const QString& path, int n)
    {
        QFile f(path);
        return f.open(QIODevice::ReadOnly) ? QString::fromLatin1(f.read(n)) : QString();
    }
};

TEST_F(ResultWindowTest, ShowsTheMeetByEventWithTheChosenColumns)
{
    QWidget* window = open(QStringLiteral("mnuCompetVoirResult"), QStringLiteral("frm_view_result"));
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Résultats des compétitions"));
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

TEST_F(PerfWindowsTest, HistoryAndItsProgressionChart)
{
    const QString anne = swimmer(QStringLiteral("Abgrall"), QStringLiteral("F"));
    swimmer(QStringLiteral("Bihan"), QStringLiteral("F"));
    const std::tuple<const char*, const char*, int> swims[] = {
        {"20230920", "1.1210", 25}, {"20240301", "1.0950", 50}, {"20240915", "1.0940", 25},
        {"20241005", "1.1005", 25}, {"20241201", "1.0899", 50}, {"20250110", "1.0820", 25}};
    for (const auto& [date, tps, pool] : swims)
        perf(anne, 2, QLatin1String(date), QLatin1String(tps), pool);

    QWidget* window = open(QStringLiteral("mnuPerfView"), QStringLiteral("frm_view_perf"));
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Performances des licenciés"));
    auto* swimmers = window->findChild<QTreeView*>("LsvNageur");
    ASSERT_EQ(swimmers->model()->rowCount(), 1);  // only those with a swim
    swimmers->model()->setData(swimmers->model()->index(0, 0), Qt::Checked, Qt::CheckStateRole);
    auto* print = window->findChild<QPushButton*>("cmd_2");
    EXPECT_FALSE(print->isEnabled());
    click(window, QStringLiteral("cmd_0"));
    auto* perfs = window->findChild<QTreeView*>("LsvPerf");
    ASSERT_EQ(perfs->model()->rowCount(), 4);
    EXPECT_TRUE(print->isEnabled());
    // Options are changed only between "&Modifier" and "&Valider".
    auto* tri = window->findChild<QWidget*>("Opt_tri_0");
    EXPECT_FALSE(tri->isEnabled());
    click(window, QStringLiteral("Cmd_option_0"));
    EXPECT_TRUE(tri->isEnabled());
    EXPECT_FALSE(window->findChild<QPushButton*>("cmd_0")->isEnabled());
    click(window, QStringLiteral("Cmd_option_2"));
    EXPECT_FALSE(tri->isEnabled());

    perfs->setCurrentIndex(perfs->model()->index(3, 0));
    auto* chart_button = window->findChild<QPushButton*>("cmd_progression");
    ASSERT_TRUE(chart_button->isEnabled());
    EXPECT_TRUE(window->findChild<QPushButton*>("cmd_4")->isEnabled());
    snapshot(window, QStringLiteral("perf_view.png"), QSize(1100, 640));

    chart_button->click();
    QWidget* chart = main.child_window(kChart);
    ASSERT_NE(chart, nullptr);
    EXPECT_EQ(chart->windowTitle(), QStringLiteral("Progression : Abgrall Anne - 100m n.l. Dames"));
    snapshot(chart, QStringLiteral("perf_chart.png"), QSize(900, 560));
    const QString png = work_file(QStringLiteral("progression.png"));
    const QString pdf = work_file(QStringLiteral("progression.pdf"));
    ui.files = {png, pdf};
    click(chart, QStringLiteral("cmd_enregistrer"));
    click(chart, QStringLiteral("cmd_enregistrer"));
    EXPECT_EQ(first_bytes(png, 4), QStringLiteral("\x89PNG"));
    EXPECT_EQ(first_bytes(pdf, 4), QStringLiteral("%PDF"));
    click(chart, QStringLiteral("cmd_imprimer"));
    ASSERT_EQ(ui.printed.size(), 1u);
    EXPECT_TRUE(ui.printed[0].text.startsWith(QStringLiteral("Progression : Abgrall Anne")));

    // Its own button, Escape and the close box.
    for (int way = 0; way < 3; ++way) {
        if (way > 0)
            chart_button->click();
        chart = main.child_window(kChart);
        ASSERT_NE(chart, nullptr) << way;
        if (way == 0)
            click(chart, QStringLiteral("cmd_quitter"));
        else if (way == 1)
            QTest::keyClick(chart, Qt::Key_Escape);
        else
            chart->parentWidget()->close();
        EXPECT_TRUE(gone(kChart)) << way;
        EXPECT_FALSE(app->windows.is_open(kChart)) << way;
    }
    EXPECT_TRUE(ui.titled(QStringLiteral("Erreur")).empty()) << ui.texts().join(u'\n').toStdString();
}

TEST_F(PerfWindowsTest, TheSwimmersListShowsItsColumnsWholeAtTheFirstSize)
{
    const QString num = app->db.append_row(QStringLiteral("Licence"),
                                           {{"Code_club", kClub}, {"Licence", "LE ROY-KERHERVE"}, {"Nom", "Le Roy-Kerhervé"},
                                            {"Prenom", "Anne-Sophie"}, {"Sexe", "F"}, {"Date_Naissance", "20051107"},
                                            {"Visible", true}},
                                           QStringLiteral("Num"));
    perf(num, 2, QStringLiteral("20250110"), QStringLiteral("1.082"));
    QWidget* window = open(QStringLiteral("mnuPerfView"), QStringLiteral("frm_view_perf"));
    ASSERT_NE(window, nullptr);
    QApplication::processEvents();
    auto* swimmers = window->findChild<QTreeView*>("LsvNageur");
    ASSERT_EQ(swimmers->model()->rowCount(), 1);
    // Name, licence and birth date in view without scrolling sideways.
    EXPECT_LE(swimmers->header()->length(), swimmers->viewport()->width());
    // Tab goes down the window as it is drawn: the search above the list.
    EXPECT_EQ(tab_order(window, {"txt_recherche", "LsvNageur"}), QStringLiteral("txt_recherche LsvNageur"));
}

TEST_F(PerfWindowsTest, ManualSwimTypedAndSaved)
{
    const QString anne = swimmer(QStringLiteral("Abgrall"), QStringLiteral("F"));
    QWidget* window = open(QStringLiteral("mnuPerfAjout"), QStringLiteral("frm_ajout_perf"));
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Ajout manuel de performances"));
    auto* licences = window->findChild<QTreeView*>("lsv_licence");
    ASSERT_EQ(licences->model()->rowCount(), 1);
    licences->setCurrentIndex(licences->model()->index(0, 0));
    QTest::keyClick(licences, Qt::Key_Return);
    auto* nages = window->findChild<QTreeView*>("LsvNage");
    ASSERT_GT(nages->model()->rowCount(), 0);
    nages->setCurrentIndex(nages->model()->index(1, 0));  // 50m n.l. Dames
    QTest::keyClick(nages, Qt::Key_Return);
    fill(window, {{"txt_info_0", "0.3123"}, {"txt_info_1", "Brest"}, {"txt_info_3", "01"}, {"txt_info_4", "03"},
                  {"txt_info_5", "2025"}});
    window->findChild<QWidget*>("Op_f_0")->setFocus();
    click(window, QStringLiteral("Op_f_0"));
    snapshot(window, QStringLiteral("perf_ajout.png"), QSize(820, 600));
    ui.answers.push_back(Button::Yes);
    click(window, QStringLiteral("Cmd_def_0"));
    EXPECT_EQ(app->db.load_rows(QStringLiteral("SELECT Num_Lic FROM Liffn")).first(), anne);
    EXPECT_TRUE(window->findChild<QLineEdit*>("txt_info_0")->text().isEmpty());

    // The next event reached by the keyboard is the one the next swim goes to.
    nages->setFocus();
    QTest::keyClick(nages, Qt::Key_Down);
    ASSERT_EQ(nages->currentIndex().siblingAtColumn(1).data().toString(), QStringLiteral("100m n.l. Dames"));
    fill(window, {{"txt_info_0", "1.0850"}, {"txt_info_1", "Brest"}, {"txt_info_3", "02"}, {"txt_info_4", "03"},
                  {"txt_info_5", "2025"}});
    ui.answers.push_back(Button::Yes);
    click(window, QStringLiteral("Cmd_def_0"));
    EXPECT_EQ(app->db.load_rows(QStringLiteral("SELECT group_concat(Code_epreuve, ' ') FROM (SELECT Code_epreuve FROM "
                                               "Liffn ORDER BY NumManuel)"))
                  .first(),
              QStringLiteral("1 2"));
}

TEST_F(PerfWindowsTest, ManualRelayListsTheSwimmersOfTheEventReachedThenIsComposedAndSaved)
{
    for (const char* name : {"Abgrall", "Bihan", "Cozic", "Derrien"})
        swimmer(QLatin1String(name), QStringLiteral("F"));
    swimmer(QStringLiteral("Ezanno"), QStringLiteral("M"));
    QWidget* window = open(QStringLiteral("mnuPerfAjoutRelais"), QStringLiteral("frm_ajout_perf_relais"));
    ASSERT_NE(window, nullptr);
    auto* nages = window->findChild<QTreeView*>("LsvNage");
    auto* licences = window->findChild<QTreeView*>("lsv_licence");
    // Down the list by the keyboard: each event reached lists its swimmers,
    // everyone for a mixed relay, the women for a women's one.
    nages->setFocus();
    int mixed = 0;
    int women = 0;
    for (int row = 0; row < nages->model()->rowCount() && (mixed == 0 || women == 0); ++row) {
        QTest::keyClick(nages, Qt::Key_Down);
        const QString label = nages->currentIndex().siblingAtColumn(1).data().toString();
        if (label.endsWith(QLatin1String("Mixte")))
            mixed = licences->model()->rowCount();
        else if (label.endsWith(QLatin1String("Dames")))
            women = licences->model()->rowCount();
    }
    EXPECT_EQ(mixed, 5);
    EXPECT_EQ(women, 4);

    const QModelIndexList event8 =
        nages->model()->match(nages->model()->index(0, 0), Qt::DisplayRole, "8", 1, Qt::MatchExactly);
    ASSERT_EQ(event8.size(), 1);
    nages->setCurrentIndex(event8[0]);
    QTest::keyClick(nages, Qt::Key_Return);
    auto* add = window->findChild<QPushButton*>("Cmd_add_0");
    for (int i = 0; i < 4; ++i)
        add->click();
    EXPECT_FALSE(add->isEnabled());
    fill(window, {{"txt_info_0", "4.1"}, {"txt_info_1", "Quimper"}, {"txt_info_3", "1"}, {"txt_info_4", "3"},
                  {"txt_info_5", "2025"}});
    snapshot(window, QStringLiteral("perf_ajout_relais.png"), QSize(1040, 740));
    ui.answers.push_back(Button::Yes);
    click(window, QStringLiteral("Cmd_def_0"));
    EXPECT_EQ(app->db.load_rows(QStringLiteral("SELECT Tps, Relayeur5 FROM Liffn_relais")).first(1),
              app->state.num_lic_nulle);
    EXPECT_TRUE(ui.titled(QStringLiteral("Erreur")).empty()) << ui.texts().join(u'\n').toStdString();
}

}  // namespace
