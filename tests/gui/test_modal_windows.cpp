// Modal windows drawn by the real services over a fixture's base: the
// operation runner with a club export clicked through, its progress and
// report, and the club import's option and folder; the day picker. And line
// edits bound to the date and time keyboard rules.

#include "gui/frame/date_field_binding.h"
#include "gui/frame/qt_services.h"
#include "gui/frame/time_field_binding.h"
#include "gui/frame/view_window.h"
#include "src/frame/choose_date_view.h"
#include "src/frame/components.h"
#include "src/frame/operation_runner.h"
#include "window_test.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTextEdit>
#include <QTimer>

using namespace plouvarine;
using namespace plouvarine::testing;
using namespace Qt::Literals::StringLiterals;

namespace {

class ModalWindowsTest : public AppFixture {
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
    // Plays the modal picker opened on a date, then gives its result.
    QString pick(const QString& year, const QString& month, const QString& day,
                 const std::function<void(QWidget*)>& play)
    {
        ChooseDateView view(*app);
        EXPECT_TRUE(view.register_window());
        view.open(year, month, day);
        QTimer::singleShot(0, [&] { play(QApplication::activeModalWidget()); });
        qt.show_modal(view);
        return view.result();
    }
    static void key(QWidget* target, int k, const QString& text = {})
    {
        QKeyEvent press(QEvent::KeyPress, k, Qt::NoModifier, text);
        QApplication::sendEvent(target, &press);
    }
    static void type(QWidget* target, const QString& text)
    {
        for (const QChar c : text)
            key(target, c.toUpper().unicode(), QString(c));
    }
    gui::QtServices qt;
};

}  // namespace

TEST_F(ModalWindowsTest, AnExportClickedThroughShowsItsReportAndGivesTheBaseBack)
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
}

TEST_F(ModalWindowsTest, TheClubImportShowsItsOptionAndTakesTheChosenFolder)
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
}

TEST_F(ModalWindowsTest, TheYearAndMonthMoveTheCalendarAndOkGivesItsDay)
{
    bool played = false;
    const QString result = pick(u"2004"_s, u"9"_s, u"16"_s, [&](QWidget* w) {
        ASSERT_TRUE(w);
        played = true;
        EXPECT_EQ(w->windowTitle(), u"Sélection d'un jour"_s);
        auto* year = w->findChild<QLineEdit*>(u"txt_annee"_s);
        auto* month = w->findChild<QComboBox*>(u"Cb_mois"_s);
        auto* calendar = w->findChild<QCalendarWidget*>(u"MonthView1"_s);
        EXPECT_EQ(calendar->selectedDate(), QDate(2004, 9, 16));
        EXPECT_EQ(month->itemText(1), u"Février"_s);
        year->selectAll();
        type(year, u"2x001"_s);  // letters do not get in
        month->setCurrentIndex(1);
        // The calendar's arrow moves the fields with it.
        calendar->showNextMonth();
        EXPECT_EQ(year->text() + u"/"_s + QString::number(month->currentIndex()), u"2001/2"_s);
        click(w, u"Cmd_0"_s);
    });
    EXPECT_TRUE(played);
    EXPECT_EQ(result, u"20010316"_s);
    EXPECT_FALSE(app->is_busy());

    EXPECT_EQ(pick(QString(), QString(), QString(), [](QWidget* w) { click(w, u"Cmd_1"_s); }), QString());
}

TEST_F(ModalWindowsTest, BoundLineEditsFollowTheKeyboardRules)
{
    QWidget form;
    auto* day = new QLineEdit(&form);
    auto* month = new QLineEdit(&form);
    auto* year = new QLineEdit(&form);
    gui::bind_date_fields(day, month, year);
    type(month, u"02"_s);
    type(year, u"2003"_s);
    type(day, u"29"_s);
    EXPECT_EQ(day->text(), u"2"_s);
    day->setText(u"31"_s);  // the window's own writing is left alone
    EXPECT_EQ(day->text(), u"31"_s);

    auto* time = new QLineEdit(&form);
    gui::bind_time_field(ui, time);
    type(time, u"7,.9"_s);
    EXPECT_EQ(time->text(), u"7."_s);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, u"Saisie du temps incorrect."_s);
    type(time, u".5"_s);
    key(time, Qt::Key_Home);
    key(time, Qt::Key_Delete);
    EXPECT_EQ(time->text(), u".5"_s);
    EXPECT_EQ(ui.messages.size(), 1u);
}
