// The model windows: the list's marks and undo, the naming window left every
// way, the programme window of a model, the model choice of the entry window.

#include "gui/frame/view_window.h"
#include "gui/frame/window_factory.h"
#include "src/competitions/frm_prog.h"
#include "src/entries/liste_modele.h"
#include "src/frame/keywords.h"
#include "window_test.h"

#include <QPushButton>
#include <QTest>
#include <QTreeView>

using namespace plouvarine;
using namespace plouvarine::testing;

namespace {

class ModelWindowsTest : public WindowTest<> {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        connect(make_base());
        app->state.profile_num = QStringLiteral("1");
        open_main();
    }
    QString model(const QString& name, const QString& table = QStringLiteral("Modele_engag"))
    {
        return app->db.append_row(table, {{"Nom_modele", name}, {"Num_profil", 1}}, QStringLiteral("NumAuto"));
    }
};

}  // namespace

TEST_F(ModelWindowsTest, DeletionListMarksAndGivesBackOnCancel)
{
    model(QStringLiteral("Benjamins"));
    model(QStringLiteral("Poussins"));
    QWidget* window = open(QStringLiteral("mnuModeleEngagSuppr"), QStringLiteral("frm_liste_modele"));
    ASSERT_NE(window, nullptr);
    auto* tree = window->findChild<QTreeView*>("Lsv_modele");
    ASSERT_EQ(tree->model()->rowCount(), 2);
    shoot(window, QStringLiteral("frm_liste_modele.png"));
    tree->setCurrentIndex(tree->model()->index(0, 0));
    QTest::keyClick(tree, Qt::Key_Delete);
    EXPECT_EQ(tree->model()->rowCount(), 1);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Modele_engag where Suppr = true")), 1);
    click(window, QStringLiteral("Command1_1"));
    EXPECT_TRUE(gone(QStringLiteral("frm_liste_modele")));
    EXPECT_EQ(count(QStringLiteral("select count(*) from Modele_engag where Suppr = false")), 2);
    EXPECT_TRUE(main->action(QStringLiteral("mnuModeleEngagSuppr"))->isEnabled());
}

TEST_F(ModelWindowsTest, NamingWindowIsLeftByItsButtonsEscapeAndCloseBox)
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

TEST_F(ModelWindowsTest, ProgrammeOfAModelOffersItsSources)
{
    model(QStringLiteral("Meeting"), QStringLiteral("Modele_prog"));
    QWidget* list = open(QStringLiteral("mnuModeleProgModif"), QStringLiteral("frm_liste_modele"));
    ASSERT_NE(list, nullptr);
    click(list, QStringLiteral("Command1_2"));
    QWidget* prog = main.child_window(QString(FrmProg::kName));
    ASSERT_NE(prog, nullptr);
    EXPECT_EQ(prog->windowTitle(), QStringLiteral("Modification du modèle de programme Meeting"));
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

TEST_F(ModelWindowsTest, EntryWindowOpensTheModelChoice)
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
