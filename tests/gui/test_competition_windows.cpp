// The competition windows: a new competition typed into det_compet, saved and
// listed; the programme of one chosen in the list, edited and saved. The model
// windows: the list's marks and undo, the naming window left every way, the
// programme window of a model, the model choice of the entry window.

#include "competitions/compet_test_base.h"
#include "gui/frame/view_window.h"
#include "gui/frame/window_factory.h"
#include "src/competitions/frm_prog.h"
#include "src/entries/liste_modele.h"
#include "src/frame/keywords.h"
#include "window_test.h"

#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTreeView>

using namespace plouvarine;
using namespace plouvarine::testing;

namespace {

class CompetWindowTest : public WindowTest<CompetFixture> {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        app->state.profile_num = QStringLiteral("1");
        open_main();
    }
    QString model(const QString& name, const QString& table = QStringLiteral("Modele_engag"))
    {
        return app->db.append_row(table, {{"Nom_modele", name}, {"Num_profil", 1}}, QStringLiteral("NumAuto"));
    }
};

}  // namespace

TEST_F(CompetWindowTest, NewCompetitionIsTypedAndSavedThenListed)
{
    QWidget* det = open(QStringLiteral("mnuCompetNew"), QStringLiteral("det_compet"));
    ASSERT_NE(det, nullptr);
    fill(det, {{"text1_0", "Meeting de Brest"}, {"text1_1", "b-25"}, {"text1_2", "Brest"}, {"txt_date_0", "12"},
               {"txt_date_1", "04"}, {"txt_date_2", "2025"}, {"txt_date_10", "13"}, {"txt_date_11", "04"},
               {"txt_date_12", "2025"}});
    EXPECT_EQ(det->findChild<QLineEdit*>("text1_1")->text(), "B25");
    click(det, "Option1_1");  // interclubs: 25 m and Animation, locked
    EXPECT_FALSE(det->findChild<QRadioButton*>("Op_bass_1")->isEnabled());
    click(det, "Command1_0");
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("Compétition mémorisée avec succès.")});
    EXPECT_TRUE(gone(QStringLiteral("det_compet")));
    EXPECT_EQ(dump("select Num, Type, Longueur, Codif_depar, Debut, Fin from Rcomp"),
              QStringList{"B25:I:25:A:20250412:20250413"});

    QWidget* list = open(QStringLiteral("mnuCompetListe"), QStringLiteral("Frm_liste_compet"));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->windowTitle(), QStringLiteral("Liste des compétitions à venir"));
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
    EXPECT_FALSE(prog->findChild<QRadioButton*>("optNbFinales_1")->isEnabled());
    click(prog, "Optclass_3");
    EXPECT_TRUE(prog->findChild<QRadioButton*>("optNbFinales_1")->isChecked());
    click(prog, "optNbFinales_2");
    click(prog, "OptType_1");
    auto* days = prog->findChild<QComboBox*>("CboDate");
    ASSERT_EQ(days->count(), 2);
    days->setCurrentIndex(1);
    Q_EMIT days->activated(1);  // as a choice in the drop-down does
    fill(prog, {{"txtordre", "4"}});
    click(prog, "Command1_0");
    EXPECT_TRUE(gone(QStringLiteral("frm_prog")));
    EXPECT_EQ(dump("select Code_epreuve, JourCourse, Type, Nb_finales, Type_finale, Num_ordre from Pcomp where "
                   "Num_compet = " + num),
              QStringList{"2:2:3:2:C:4"});
    EXPECT_TRUE(ui.texts().isEmpty());
}

TEST_F(CompetWindowTest, DeletionListMarksAndGivesBackOnCancel)
{
    model(QStringLiteral("Benjamins"));
    model(QStringLiteral("Poussins"));
    QWidget* window = open(QStringLiteral("mnuModeleEngagSuppr"), QStringLiteral("frm_liste_modele"));
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Supprimer des modèles d'engagements"));
    EXPECT_EQ(find<QPushButton>(window, "Command1_2")->text(), QStringLiteral("&Supprimer"));
    auto* tree = window->findChild<QTreeView*>("Lsv_modele");
    ASSERT_EQ(tree->model()->rowCount(), 2);
    shoot(window, QStringLiteral("frm_liste_modele.png"));
    tree->setCurrentIndex(tree->model()->index(0, 0));
    QTest::keyClick(tree, Qt::Key_Delete);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Modele_engag where Suppr = true")), 1);
    click(window, QStringLiteral("Command1_1"));
    EXPECT_TRUE(gone(QStringLiteral("frm_liste_modele")));
    EXPECT_EQ(count(QStringLiteral("select count(*) from Modele_engag where Suppr = false")), 2);
    EXPECT_TRUE(main->action(QStringLiteral("mnuModeleEngagSuppr"))->isEnabled());
}

TEST_F(CompetWindowTest, NamingWindowIsLeftByItsButtonsEscapeAndCloseBox)
{
    enum class Way { Ok, Cancel, Escape, CloseBox };
    for (Way way : {Way::Ok, Way::Cancel, Way::Escape, Way::CloseBox}) {
        DetModeleObli view(*app, QString(keyword::kModelProg), QString(keyword::kNouveauProg));
        std::unique_ptr<gui::ViewWindow> window(gui::make_window(view, nullptr));
        ASSERT_NE(window, nullptr);
        window->show();
        auto* name = window->findChild<QLineEdit*>("txt_nom");
        QTest::keyClicks(name, QStringLiteral("Meeting d'Arvor"));
        if (way == Way::Ok)
            shoot(window.get(), QStringLiteral("det_modele_obli.png"));
        switch (way) {
        case Way::Ok: window->findChild<QPushButton*>("Command1_0")->click(); break;
        case Way::Cancel: window->findChild<QPushButton*>("Command1_1")->click(); break;
        case Way::Escape: QTest::keyClick(name, Qt::Key_Escape); break;
        case Way::CloseBox: window->close(); break;
        }
        EXPECT_TRUE(view.is_closed()) << int(way);
        EXPECT_EQ(view.saved(), way == Way::Ok) << int(way);
    }
    EXPECT_EQ(app->db.load_rows(QStringLiteral("select Nom_modele from Modele_prog")).first(),
              QStringLiteral("Meeting d'Arvor"));
    EXPECT_EQ(count(QStringLiteral("select count(*) from Modele_prog")), 1);
}

TEST_F(CompetWindowTest, ProgrammeOfAModelOffersItsSources)
{
    model(QStringLiteral("Meeting"), QStringLiteral("Modele_prog"));
    QWidget* list = open(QStringLiteral("mnuModeleProgModif"), QStringLiteral("frm_liste_modele"));
    ASSERT_NE(list, nullptr);
    click(list, QStringLiteral("Command1_2"));
    QWidget* prog = main.child_window(QString(FrmProg::kName));
    ASSERT_NE(prog, nullptr);
    for (const char* name : {"Cmd_charger", "Cmd_compet", "Cmd_lenex"}) {
        auto* button = prog->findChild<QPushButton*>(name);
        EXPECT_TRUE(button->isVisible() && button->isEnabled()) << name;
    }
    EXPECT_FALSE(prog->findChild<QPushButton*>("Cmd_modele")->isVisible());
    prog->resize(900, 560);
    shoot(prog, QStringLiteral("frm_prog_modele.png"));
    // A cancelled file dialog changes nothing.
    click(prog, QStringLiteral("Cmd_lenex"));
    EXPECT_TRUE(ui.messages.empty());
    ASSERT_EQ(ui.file_requests.size(), 1u);
    EXPECT_EQ(ui.file_requests.back().title, QStringLiteral("Sélection d'un fichier Lenex"));
    click(prog, QStringLiteral("Command1_1"));
    EXPECT_TRUE(gone(QString(FrmProg::kName)));
}

TEST_F(CompetWindowTest, EntryWindowOpensTheModelChoice)
{
    app->state.club_code = QStringLiteral("FRA2210290017");
    app->db.append_row(QStringLiteral("Rcomp"),
                       {{"Num", "IC1"}, {"Nom", "Interclubs"}, {"Debut", "20990405"}, {"Fin", "20990405"},
                        {"Lieu", "Brest"}, {"Longueur", 25}, {"Visible", true}, {"Deroule", false}},
                       QStringLiteral("AutoNum"));
    model(QStringLiteral("Benjamins"));
    QWidget* engag = open_chosen(QStringLiteral("mnuEngagIndiv"), QStringLiteral("frm_engag"));
    ASSERT_NE(engag, nullptr);
    auto* cmd = engag->findChild<QPushButton*>("Cmd_modele");
    ASSERT_TRUE(cmd->isVisible());
    engag->resize(900, 600);
    shoot(engag, QStringLiteral("frm_engag_modele.png"));
    cmd->click();
    QWidget* list = main.child_window(QStringLiteral("frm_liste_modele"));
    ASSERT_NE(list, nullptr);
    QTest::keyClick(list->findChild<QTreeView*>("Lsv_modele"), Qt::Key_Escape);
    EXPECT_TRUE(gone(QStringLiteral("frm_liste_modele")));
    click(engag, QStringLiteral("Command1_1"));
    EXPECT_TRUE(gone(QStringLiteral("frm_engag")));
}
