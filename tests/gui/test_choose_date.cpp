// The day picker drawn by its window; line edits bound to the date and time rules.

#include "gui/frame/qt_services.h"
#include "gui/frame/window_factory.h"
#include "window_test.h"
#include "src/frame/choose_date_view.h"
#include "gui/frame/date_field_binding.h"
#include "gui/frame/time_field_binding.h"
#include "support/app_fixture.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QTimer>

using namespace plouvarine;
using namespace plouvarine::testing;
using namespace Qt::Literals::StringLiterals;

namespace {

class ChooseDateWindowTest : public AppFixture {
protected:
    void SetUp() override
    {
        ensure_application();
        AppFixture::SetUp();
    }
    // Plays the modal picker opened on a date, then gives its result.
    QString pick(const QString& year, const QString& month, const QString& day,
                 const std::function<void(QWidget*)>& play)
    {
        ChooseDateView view(*app);
        EXPECT_TRUE(view.register_window());
        view.open(year, month, day);
        QTimer::singleShot(0, [&] { play(QApplication::activeModalWidget()); });
        gui::QtServices().show_modal(view);
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
};

}  // namespace

TEST_F(ChooseDateWindowTest, TheYearAndMonthMoveTheCalendarAndOkGivesItsDay)
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

TEST_F(ChooseDateWindowTest, BoundLineEditsFollowTheKeyboardRules)
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
