// The operation runner drawn by its window: a club export clicked through,
// its progress and report on screen, the base back after Quitter.

#include "gui/frame/qt_services.h"
#include "gui/frame/view_window.h"
#include "gui_application.h"
#include "src/frame/components.h"
#include "src/frame/operation_runner.h"
#include "support/app_fixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTextEdit>
#include <QLineEdit>
#include <QTimer>

using namespace plouvarine;
using namespace Qt::Literals::StringLiterals;

namespace {

class AttenteWindowTest : public plouvarine::testing::AppFixture {
protected:
    void SetUp() override
    {
        plouvarine::testing::ensure_application();
        AppFixture::SetUp();
        install_components({"expclub.dll", "rcptclub.dll"});
        connect(make_base());
        for (const char* code : {"0123", "0456"})
            app->db.append_row(u"Club"_s, {{u"Code_federal"_s, QString::fromLatin1(code)}, {u"Intitule"_s, u"Club "_s + QString::fromLatin1(code)}},
                               u"Num"_s);
        ui.draw_with = &qt;
    }
    gui::QtServices qt;
};

}  // namespace

TEST_F(AttenteWindowTest, AnExportClickedThroughShowsItsReportAndGivesTheBaseBack)
{
    const QString target = work_file(u"cible"_s);
    QDir().mkpath(target);
    QString title, label, report, before_label;
    bool option_shown = true, report_before = true, ok_after = false;
    int bar = -1;
    QImage image;
    QTimer::singleShot(0, [&] {
        QWidget* w = QApplication::activeModalWidget();
        ASSERT_TRUE(w);
        title = w->windowTitle();
        before_label = w->findChildren<QLabel*>().first()->text();
        option_shown = w->findChild<QCheckBox*>(u"chk_option"_s)->isVisible();
        report_before = w->findChild<QTextEdit*>(u"RichRapport"_s)->isVisible();
        ui.folders.push_back(target);
        w->findChild<QPushButton*>(u"Cmd_rep"_s)->click();
        ui.answers.push_back(Button::Yes);
        w->findChild<QPushButton*>(u"Cmd_ok"_s)->click();
        auto* rich = w->findChild<QTextEdit*>(u"RichRapport"_s);
        report = rich->isVisible() ? rich->toPlainText() : QString();
        label = w->findChild<QLabel*>(u"lb_message_0"_s)->text();
        auto* progress = w->findChild<QProgressBar*>(u"ProgressBar1"_s);
        bar = progress->value() * 10 + progress->maximum();
        ok_after = w->findChild<QPushButton*>(u"Cmd_ok"_s)->isEnabled();
        image = w->grab().toImage();
        if (qEnvironmentVariableIsSet("PLOUVARINE_GRAB_DIR"))
            image.save(QDir(qEnvironmentVariable("PLOUVARINE_GRAB_DIR")).filePath(u"frm_attente.png"_s));
        w->findChild<QPushButton*>(u"Cmd_quit"_s)->click();
    });
    run_operation(*app, u"expclub"_s);
    EXPECT_EQ(title, u"Exporter Clubs"_s);
    EXPECT_EQ(before_label, u"Répertoire de sauvegarde :"_s);
    EXPECT_FALSE(option_shown);
    EXPECT_FALSE(report_before);
    EXPECT_TRUE(report.contains(u"2 club(s) exporté(s) dans le fichier clubs.txt."_s)) << report.toStdString();
    EXPECT_EQ(label, u"Export en cours"_s);
    EXPECT_EQ(bar, 22);  // 2 clubs of 2
    EXPECT_TRUE(ok_after);
    EXPECT_FALSE(image.isNull());
    EXPECT_TRUE(QFileInfo::exists(QDir(target).filePath(u"clubs.txt"_s)));
    EXPECT_EQ(ui.texts(), QStringList{OperationRunner::kOverwrite});
    EXPECT_TRUE(app->db.is_open());
}

TEST_F(AttenteWindowTest, TheClubImportShowsItsOptionAndTakesTheChosenFolder)
{
    const QString source = work_file(u"source"_s);
    QString path, option;
    bool option_shown = false, ticked_in_view = false;
    QTimer::singleShot(0, [&] {
        QWidget* w = QApplication::activeModalWidget();
        ASSERT_TRUE(w);
        auto* box = w->findChild<QCheckBox*>(u"chk_option"_s);
        option_shown = box->isVisible();
        option = box->text();
        box->click();
        ticked_in_view = dynamic_cast<OperationRunner&>(dynamic_cast<gui::ViewWindow&>(*w).view()).option_ticked();
        ui.folders.push_back(source);
        w->findChild<QPushButton*>(u"Cmd_rep"_s)->click();
        path = w->findChild<QLineEdit*>(u"txt_rep"_s)->text();
        if (qEnvironmentVariableIsSet("PLOUVARINE_GRAB_DIR"))
            w->grab().save(QDir(qEnvironmentVariable("PLOUVARINE_GRAB_DIR")).filePath(u"frm_attente_impclub.png"_s));
        w->close();  // the close box
    });
    run_operation(*app, u"impclub"_s);
    EXPECT_TRUE(option_shown);
    EXPECT_EQ(option, u"Force mise à jour des clubs"_s);
    EXPECT_TRUE(ticked_in_view);
    EXPECT_EQ(path, source);
    EXPECT_EQ(ui.folder_prompts, QStringList{u"Sélectionner le répertoire source"_s});
    EXPECT_TRUE(app->db.is_open());
}
