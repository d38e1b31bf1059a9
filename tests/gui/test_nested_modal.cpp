// The forced first-run windows shown modally by the real services, with the
// club list and the code help opened over them: closing the nested window
// must leave the forced one open until its own work is done.

#include "src/clubs/club_hooks.h"
#include "gui/frame/main_window.h"
#include "src/subjects.h"
#include "gui/frame/qt_services.h"
#include "window_test.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QTreeView>

using namespace plouvarine;
using plouvarine::testing::AppFixture;
using plouvarine::testing::click;

namespace {

void type_into(QWidget* window, const char* field, const QString& text)
{
    auto* edit = window->findChild<QLineEdit*>(QLatin1String(field));
    edit->setText(text);
    Q_EMIT edit->textEdited(text);
}

class NestedModalTest : public AppFixture {
protected:
    void SetUp() override
    {
        plouvarine::testing::ensure_application();
        AppFixture::SetUp();
        install_club_hooks(*app);
        install_subject_commands(*app);
        main = std::make_unique<gui::MainWindow>(*app);
        main->show();
        ui.draw_with = &qt;
    }
    void TearDown() override
    {
        main.reset();
        AppFixture::TearDown();
    }
    gui::QtServices qt;
    std::unique_ptr<gui::MainWindow> main;
};

}  // namespace

TEST_F(NestedModalTest, TheForcedProfileWindowOutlivesItsClubChoice)
{
    QStringList seen;
    std::function<void()> step = [&] {
        QWidget* w = QApplication::activeModalWidget();
        if (w)
            seen << w->objectName();
        const int times = int(seen.count(QStringLiteral("det_profil_obli")));
        if (w && w->objectName() == QStringLiteral("dem_info_obli")) {
            type_into(w, "text1_0", QStringLiteral("Stade Brestois"));
            type_into(w, "text1_1", QStringLiteral("FRA2210290017"));
            click(w, "cmd_ok");
        } else if (w && w->objectName() == QStringLiteral("det_profil_obli") && times == 1) {
            type_into(w, "text1_0", QStringLiteral("Secrétaire"));
            QTimer::singleShot(10, step);  // plays the club list, opened modally by the click
            click(w, "cmd_club");
            return;
        } else if (w && w->objectName() == QStringLiteral("Frm_liste_club_obli")) {
            auto* list = w->findChild<QTreeView*>();
            list->setCurrentIndex(list->model()->index(0, 0));
            click(w, "cmd_ok");
        } else if (w && w->objectName() == QStringLiteral("det_profil_obli")) {
            EXPECT_EQ(w->findChild<QLineEdit*>(QStringLiteral("text1_1"))->text(), QStringLiteral("FRA2210290017"));
            click(w, "cmd_ok");
            return;
        }
        if (seen.size() < 20)
            QTimer::singleShot(10, step);
    };
    QTimer::singleShot(10, step);
    ui.files.push_back(work_file(QStringLiteral("neuve.mdb")));
    main->action(QStringLiteral("mnuBaseNew"))->trigger();

    EXPECT_EQ(seen, (QStringList{"dem_info_obli", "det_profil_obli", "Frm_liste_club_obli", "det_profil_obli"}));
    EXPECT_EQ(app->state.profile_name, QStringLiteral("Secrétaire"));
    EXPECT_EQ(app->state.club_name, QStringLiteral("Stade Brestois"));
    EXPECT_EQ(app->state.busy_count, 0);
}
