#include "src/frame/choose_date_view.h"

#include "src/base/utils_date.h"

#include "src/frame/app_context.h"
#include "src/base/text.h"

namespace plouvarine {

ChooseDateView::ChooseDateView(AppContext& app) : View(app, QStringLiteral("frm_choose_date"))
{
    set_title(QStringLiteral("Sélection d'un jour"));
}

const QStringList& ChooseDateView::month_names()
{
    static const QStringList names = {
        QStringLiteral("Janvier"), QStringLiteral("Février"), QStringLiteral("Mars"),
        QStringLiteral("Avril"), QStringLiteral("Mai"), QStringLiteral("Juin"),
        QStringLiteral("Juillet"), QStringLiteral("Août"), QStringLiteral("Septembre"),
        QStringLiteral("Octobre"), QStringLiteral("Novembre"), QStringLiteral("Décembre")};
    return names;
}

void ChooseDateView::open(const QString& year, const QString& month, const QString& day)
{
    ready_ = false;
    const QDate today = app().clock.today();
    txt_annee_ = year.isEmpty() ? QString::number(today.year()) : year;

    const int month_number = month.isEmpty() ? today.month() : int(text_to_double(month));
    cb_mois_ = (month_number >= 1 && month_number <= 12) ? month_number - 1 : today.month() - 1;

    int calendar_year = int(text_to_double(txt_annee_.trimmed()));
    if (calendar_year < minimum_.year() || calendar_year > maximum_.year())
        calendar_year = today.year();
    const QDate first(calendar_year, cb_mois_ + 1, 1);
    const int wanted_day = day.isEmpty() ? today.day() : int(text_to_double(day));
    calendar_ = first.addDays(qBound(1, wanted_day, first.daysInMonth()) - 1);
    calendar_ = qBound(minimum_, calendar_, maximum_);

    result_.clear();
    activated_ = false;
    ready_ = true;
    changed();
}

void ChooseDateView::set_txt_annee(const QString& text)
{
    txt_annee_ = text;
    follow_fields();
}

void ChooseDateView::set_cb_mois(int index)
{
    if (index < 0 || index >= 12)
        return;
    cb_mois_ = index;
    follow_fields();
}

void ChooseDateView::follow_fields()
{
    if (!ready_)
        return;
    const QString trimmed = txt_annee_.trimmed();
    const int year = trimmed.isEmpty() ? app().clock.today().year() : int(text_to_double(trimmed));
    if (year >= minimum_.year() && year <= maximum_.year())
        move_calendar(year, cb_mois_ + 1);
    changed();
}

void ChooseDateView::move_calendar(int year, int month)
{
    const QDate first(year, month, 1);
    calendar_ = first.addDays(qMin(calendar_.day(), first.daysInMonth()) - 1);
    calendar_ = qBound(minimum_, calendar_, maximum_);
}

void ChooseDateView::set_calendar_date(const QDate& date)
{
    if (date.isValid())
        calendar_ = qBound(minimum_, date, maximum_);
}

void ChooseDateView::activate_day(const QDate& date)
{
    set_calendar_date(date);
    activated_ = true;
}

void ChooseDateView::confirm_activation()
{
    if (activated_)
        ok();
}

void ChooseDateView::field_focused()
{
    activated_ = false;
}

void ChooseDateView::ok()
{
    activated_ = false;
    result_ = calendar_.toString(QStringLiteral("yyyyMMdd"));
    close();
}

void ChooseDateView::cancel()
{
    activated_ = false;
    result_.clear();
    close();
}

bool ChooseDateView::query_close()
{
    // The close box answers as "&Annuler".
    result_.clear();
    return true;
}

QString ChoisirDate(AppContext& app, const QString& year, const QString& month, const QString& day)
{
    ChooseDateView view(app);
    if (!view.register_window())
        return {};
    view.open(year, month, day);
    app.ui.show_modal(view);
    return view.result();
}

bool ChoisirDateChamps(AppContext& app, QString& day, QString& month, QString& year)
{
    const QString chosen = ChoisirDate(app, year, month, day);
    if (chosen.isEmpty())
        return false;
    AfficheDate(day, month, year, chosen);
    return true;
}

}  // namespace plouvarine
