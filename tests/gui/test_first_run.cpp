// The first run on a new base, clicked through its real modal windows: the
// code help opened over the forced club, the club list over the forced
// profile; closing the nested window must leave the forced one open.

#include "src/clubs/club_hooks.h"
#include "window_test.h"

#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QTreeView>

using namespace plouvarine;
using namespace plouvarine::testing;

namespace {

// Picks a line of a drop-down list.
void pick(QWidget* window, const QString& name, const QString& text)
{
    auto* box = find<QComboBox>(window, name);
    ASSERT_NE(box, nullptr);
    const int index = box->findText(text);
    ASSERT_GE(index, 0) << text.toStdString();
    box->setCurrentIndex(index);
    Q_EMIT box->textActivated(text);
}

QString text_of(QWidget* window, const QString& field)
{
    return find<QLineEdit>(window, field)->text();
}

class FirstRunTest : public WindowTest<> {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        install_club_hooks(*app);
        open_main();
        app->enable_menus(false);
    }
};

}  // namespace

TEST_F(FirstRunTest, NewBaseAsksForAClubThenAProfileEachOverItsHelper)
{
    std::map<QString, std::function<void(QWidget*)>> plays;
    QStringList seen;
    // Plays the modal window in front; one that opens another arms it again first.
    std::function<void()> step = [&] {
        QWidget* w = QApplication::activeModalWidget();
        if (!w || !plays.count(w->objectName())) {
            if (seen.size() < 20)
                QTimer::singleShot(10, step);
            return;
        }
        seen << w->objectName();
        plays[w->objectName()](w);
    };
    plays[QStringLiteral("dem_info_obli")] = [&](QWidget* w) {
        EXPECT_EQ(w->windowTitle(), QStringLiteral("Nouveau Club"));
        // A new base has no club: the window can't be left without one.
        EXPECT_FALSE(find<QPushButton>(w, QStringLiteral("cmd_annuler"))->isEnabled());
        type_in(find<QLineEdit>(w, QStringLiteral("text1_0")), QStringLiteral(" Stade Brestois"));
        EXPECT_FALSE(find<QPushButton>(w, QStringLiteral("cmd_ok"))->isEnabled());
        QTimer::singleShot(10, step);
        click(w, QStringLiteral("Command1_2"));
        EXPECT_EQ(text_of(w, QStringLiteral("text1_1")), QStringLiteral("FRA2210290017"));
        EXPECT_EQ(text_of(w, QStringLiteral("text1_0")), QStringLiteral("Stade Brestois"));
        QTimer::singleShot(10, step);
        click(w, QStringLiteral("cmd_ok"));
    };
    plays[QStringLiteral("construc_code_club")] = [](QWidget* w) {
        find<QRadioButton>(w, QStringLiteral("Opt_type_0"))->click();
        EXPECT_EQ(find<QComboBox>(w, QStringLiteral("Cb_pays"))->currentText(), QStringLiteral("FRANCE"));
        pick(w, QStringLiteral("Cb_inter"), QStringLiteral("Nord-Ouest"));
        pick(w, QStringLiteral("Cb_region"), QStringLiteral("Bretagne"));
        pick(w, QStringLiteral("Cb_departement"), QStringLiteral("Finistère"));
        type_in(find<QLineEdit>(w, QStringLiteral("txt_code_fourni")), QStringLiteral("17"));
        click(w, QStringLiteral("Command1_0"));
        EXPECT_EQ(text_of(w, QStringLiteral("txt_codification")), QStringLiteral("FRA2210290017"));
        click(w, QStringLiteral("Command1_1"));  // "Copier le code Club ?" Yes
    };
    plays[QStringLiteral("det_profil_obli")] = [&](QWidget* w) {
        EXPECT_EQ(w->windowTitle(), QStringLiteral("Création profil"));
        type_in(find<QLineEdit>(w, QStringLiteral("text1_0")), QStringLiteral("Secrétaire"));
        EXPECT_FALSE(find<QPushButton>(w, QStringLiteral("cmd_ok"))->isEnabled());
        // The first profile cannot be left undone: Annuler is shown off.
        EXPECT_FALSE(find<QPushButton>(w, QStringLiteral("cmd_annuler"))->isEnabled());
        QTimer::singleShot(10, step);
        click(w, QStringLiteral("cmd_club"));
        EXPECT_EQ(text_of(w, QStringLiteral("text1_1")), QStringLiteral("FRA2210290017"));
        click(w, QStringLiteral("cmd_ok"));
    };
    plays[QStringLiteral("Frm_liste_club_obli")] = [](QWidget* w) {
        auto* list = find<QTreeView>(w, QStringLiteral("Lsv_club"));
        ASSERT_EQ(list->model()->rowCount(), 1);
        EXPECT_EQ(list->model()->index(0, 1).data().toString(), QStringLiteral("Stade Brestois"));
        list->setCurrentIndex(list->model()->index(0, 0));
        click(w, QStringLiteral("cmd_ok"));
    };
    QTimer::singleShot(10, step);
    ui.files.push_back(work_file(QStringLiteral("neuve.mdb")));
    ui.answers = {Button::Yes};
    main->action(QStringLiteral("mnuBaseNew"))->trigger();

    EXPECT_EQ(seen, (QStringList{"dem_info_obli", "construc_code_club", "det_profil_obli", "Frm_liste_club_obli"}));
    EXPECT_EQ(ui.titled(QStringLiteral("Erreur")).size(), 0u);
    EXPECT_EQ(app->state.club_code, QStringLiteral("FRA2210290017"));
    EXPECT_EQ(app->state.club_name, QStringLiteral("Stade Brestois"));
    EXPECT_EQ(app->state.profile_name, QStringLiteral("Secrétaire"));
    EXPECT_EQ(ui.status[1], QStringLiteral("Profil : Secrétaire (Stade Brestois)"));
    EXPECT_EQ(app->db.count_query(QStringLiteral("select count(*) from Profil where LastUse = true")), 1);
    EXPECT_EQ(app->state.busy_count, 0);

    // The base is ready: the club list opens from the menu and holds its locks.
    main->action(QStringLiteral("mnuBaseClubListe"))->trigger();
    QWidget* list = child_window(QStringLiteral("Frm_liste_club"));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->windowTitle(), QStringLiteral("Liste des Clubs"));
    EXPECT_FALSE(main->action(QStringLiteral("mnuBaseClubSuppr"))->isEnabled());
    list->parentWidget()->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(main->action(QStringLiteral("mnuBaseClubSuppr"))->isEnabled());
}
