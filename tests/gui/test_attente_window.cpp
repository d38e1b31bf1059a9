// The operation runner drawn by its window: a club export clicked through,
// its progress and report on screen; the club import's option and folder.

#include "gui/frame/qt_services.h"
#include "gui/frame/view_window.h"
#include "src/frame/components.h"
#include "src/frame/operation_runner.h"
#include "window_test.h"

#include <QCheckBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTextEdit>
#include <QTimer>

using namespace plouvarine;
using namespace plouvarine::testing;
using namespace Qt::Literals::StringLiterals;

namespace {

class AttenteWindowTest : public AppFixture {
protected:
    void SetUp() override
    {
        ensure_application();
        AppFixture::SetUp();
        install_components({"expclub.dll", "rcptclub.dll"});
        connect(make_base());
        for (const char* code : {"0123", "0456"})
            app->db.append_row(u"Club"_s, {{u"Code_federal"_s, QString::fromLatin1(code)},
                                           {u"Intitule"_s, u"Club "_s + QString::fromLatin1(code)}},
                               u"Num"_s);
        ui.draw_with = &qt;
    }
    // Runs the operation `name` with its window played by `play`.
    void run(const QString& name, const std::function<void(QWidget*)>& play)
    {
        bool played = false;
        QTimer::singleShot(0, [&] {
            QWidget* w = QApplication::activeModalWidget();
            ASSERT_TRUE(w);
            played = true;
            play(w);
        });
        run_operation(*app, name);
        EXPECT_TRUE(played);
        EXPECT_TRUE(app->db.is_open());
    }
    gui::QtServices qt;
};

}  // namespace

TEST_F(AttenteWindowTest, AnExportClickedThroughShowsItsReportAndGivesTheBaseBack)
{
    const QString target = work_file(u"cible"_s);
    QDir().mkpath(target);
    run(u"expclub"_s, [&](QWidget* w) {
        EXPECT_EQ(w->windowTitle(), u"Exporter Clubs"_s);
        EXPECT_EQ(w->findChildren<QLabel*>().first()->text(), u"Répertoire de sauvegarde :"_s);
        EXPECT_FALSE(w->findChild<QCheckBox*>(u"chk_option"_s)->isVisible());
        auto* rich = w->findChild<QTextEdit*>(u"RichRapport"_s);
        EXPECT_FALSE(rich->isVisible());
        ui.folders.push_back(target);
        click(w, u"Cmd_rep"_s);
        ui.answers.push_back(Button::Yes);
        click(w, u"Cmd_ok"_s);
        EXPECT_TRUE(rich->isVisible());
        EXPECT_TRUE(rich->toPlainText().contains(u"2 club(s) exporté(s) dans le fichier clubs.txt."_s))
            << rich->toPlainText().toStdString();
        EXPECT_EQ(w->findChild<QLabel*>(u"lb_message_0"_s)->text(), u"Export en cours"_s);
        auto* progress = w->findChild<QProgressBar*>(u"ProgressBar1"_s);
        EXPECT_EQ(progress->value() * 10 + progress->maximum(), 22);  // 2 clubs of 2
        EXPECT_TRUE(w->findChild<QPushButton*>(u"Cmd_ok"_s)->isEnabled());
        shoot(w, work_dir(), u"frm_attente.png"_s);
        click(w, u"Cmd_quit"_s);
    });
    EXPECT_TRUE(QFileInfo::exists(QDir(target).filePath(u"clubs.txt"_s)));
    EXPECT_EQ(ui.texts(), QStringList{OperationRunner::kOverwrite});
}

TEST_F(AttenteWindowTest, TheClubImportShowsItsOptionAndTakesTheChosenFolder)
{
    const QString source = work_file(u"source"_s);
    run(u"impclub"_s, [&](QWidget* w) {
        auto* box = w->findChild<QCheckBox*>(u"chk_option"_s);
        EXPECT_TRUE(box->isVisible());
        EXPECT_EQ(box->text(), u"Force mise à jour des clubs"_s);
        box->click();
        EXPECT_TRUE(dynamic_cast<OperationRunner&>(dynamic_cast<gui::ViewWindow&>(*w).view()).option_ticked());
        ui.folders.push_back(source);
        click(w, u"Cmd_rep"_s);
        EXPECT_EQ(w->findChild<QLineEdit*>(u"txt_rep"_s)->text(), source);
        shoot(w, work_dir(), u"frm_attente_impclub.png"_s);
        w->close();  // the close box
    });
    EXPECT_EQ(ui.folder_prompts, QStringList{u"Sélectionner le répertoire source"_s});
}
