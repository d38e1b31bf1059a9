#include "gui/frame/choose_date_window.h"

#include "src/frame/list_helpers.h"
#include "src/frame/choose_date_view.h"

#include <QCalendarWidget>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>

namespace plouvarine::gui {

ChooseDateWindow::ChooseDateWindow(ChooseDateView& view, QWidget* parent)
    : ViewWindow(view, parent), view_(view)
{
    txt_annee_ = new QLineEdit(this);
    txt_annee_->setObjectName(QStringLiteral("txt_annee"));
    txt_annee_->setMaxLength(4);
    txt_annee_->installEventFilter(this);

    cb_mois_ = new QComboBox(this);
    cb_mois_->setObjectName(QStringLiteral("Cb_mois"));
    cb_mois_->addItems(ChooseDateView::month_names());
    cb_mois_->installEventFilter(this);

    calendar_ = new QCalendarWidget(this);
    calendar_->setObjectName(QStringLiteral("MonthView1"));
    calendar_->setLocale(QLocale(QLocale::French, QLocale::France));
    calendar_->setFirstDayOfWeek(Qt::Monday);
    calendar_->setGridVisible(true);
    calendar_->setDateRange(view.minimum_date(), view.maximum_date());

    ok_ = new QPushButton(QStringLiteral("&Ok"), this);
    ok_->setObjectName(QStringLiteral("Cmd_0"));
    cancel_ = new QPushButton(QStringLiteral("&Annuler"), this);
    cancel_->setObjectName(QStringLiteral("Cmd_1"));
    // Return that ends an edit of the year must not close the window.
    ok_->setAutoDefault(false);
    cancel_->setAutoDefault(false);

    auto* top = new QHBoxLayout;
    top->addWidget(new QLabel(QStringLiteral("Année :"), this));
    top->addWidget(txt_annee_);
    top->addWidget(new QLabel(QStringLiteral("Mois :"), this));
    top->addWidget(cb_mois_, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(ok_);
    buttons->addWidget(cancel_);
    auto* layout = new QGridLayout(this);
    layout->addLayout(top, 0, 0);
    layout->addWidget(calendar_, 1, 0);
    layout->addLayout(buttons, 2, 0);

    connect(txt_annee_, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (!refreshing_)
            view_.set_txt_annee(text);
    });
    connect(cb_mois_, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (!refreshing_)
            view_.set_cb_mois(index);
    });
    connect(calendar_, &QCalendarWidget::selectionChanged, this, [this] {
        if (!refreshing_)
            view_.set_calendar_date(calendar_->selectedDate());
    });
    // The calendar's own arrows move the year and month fields with them.
    connect(calendar_, &QCalendarWidget::currentPageChanged, this, [this](int year, int month) {
        if (refreshing_)
            return;
        view_.set_txt_annee(QString::number(year));
        view_.set_cb_mois(month - 1);
    });
    connect(calendar_, &QCalendarWidget::activated, this, [this](QDate date) {
        view_.activate_day(date);
        // Confirmed once the event that activated the day is over.
        QTimer::singleShot(0, this, [this] { view_.confirm_activation(); });
    });
    connect(ok_, &QPushButton::clicked, this, [this] { view_.ok(); });
    connect(cancel_, &QPushButton::clicked, this, [this] { view_.cancel(); });

    refresh();
}

void ChooseDateWindow::refresh()
{
    refreshing_ = true;
    if (txt_annee_->text() != view_.txt_annee())
        txt_annee_->setText(view_.txt_annee());
    cb_mois_->setCurrentIndex(view_.cb_mois());
    const QDate date = view_.calendar_date();
    if (date.isValid()) {
        calendar_->setSelectedDate(date);
        calendar_->setCurrentPage(date.year(), date.month());
    }
    refreshing_ = false;
}

bool ChooseDateWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn) {
        view_.field_focused();
        if (watched == txt_annee_)
            QTimer::singleShot(0, txt_annee_, [edit = txt_annee_] { edit->selectAll(); });
    } else if (watched == txt_annee_ && event->type() == QEvent::KeyPress) {
        const QString text = static_cast<QKeyEvent*>(event)->text();
        if (!text.isEmpty() && !digit_key_accepted(text.at(0).unicode()))
            return true;
    }
    return ViewWindow::eventFilter(watched, event);
}

}  // namespace plouvarine::gui
