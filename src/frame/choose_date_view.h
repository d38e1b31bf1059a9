#pragma once
// The day picker "frm_choose_date": a year field, a month list and a month
// calendar. Opened modally by ChoisirDate on a year, month and day; "&Ok"
// gives the calendar's date as yyyymmdd, "&Annuler" the empty text.

#include "src/frame/view.h"

#include <QDate>
#include <QStringList>

namespace plouvarine {

class ChooseDateView : public View {
public:
    explicit ChooseDateView(AppContext& app);

    // "Janvier" ... "Décembre", the entries of Cb_mois.
    static const QStringList& month_names();

    // Fills the window: empty values take today's year, month or day.
    void open(const QString& year, const QString& month, const QString& day);

    // What the window shows.
    const QString& txt_annee() const { return txt_annee_; }
    int cb_mois() const { return cb_mois_; }          // 0 for January
    QDate calendar_date() const { return calendar_; }  // MonthView1
    // The calendar's limits: those of the calendar control.
    QDate minimum_date() const { return minimum_; }
    QDate maximum_date() const { return maximum_; }
    bool ready() const { return ready_; }

    // The person's actions.
    void set_txt_annee(const QString& text);
    void set_cb_mois(int index);
    // A day chosen or reached in the calendar.
    void set_calendar_date(const QDate& date);
    // A day activated in the calendar: remembered, then confirmed by
    // confirm_activation, unless the focus entered the year or month between.
    void activate_day(const QDate& date);
    void confirm_activation();
    // The focus enters txt_annee or Cb_mois.
    void field_focused();
    void ok();      // Cmd(0) "&Ok"
    void cancel();  // Cmd(1) "&Annuler"

    bool query_close() override;

    // The chosen date yyyymmdd, or empty.
    const QString& result() const { return result_; }

private:
    // Moves the calendar to the year and month of the fields.
    void follow_fields();
    void move_calendar(int year, int month);

    QString txt_annee_;
    int cb_mois_ = 0;
    QDate calendar_;
    QDate minimum_{1753, 1, 1};
    QDate maximum_{9999, 12, 31};
    bool ready_ = false;
    bool activated_ = false;
    QString result_;
};

// The day picker "frm_choose_date", modal, opened on these values (empty
// values take today's). The chosen date yyyymmdd, or empty when cancelled.
QString ChoisirDate(AppContext& app, const QString& year, const QString& month, const QString& day);

// Picks a date for the three fields: true with the fields rewritten when a
// date was chosen, false with the fields untouched when cancelled.
bool ChoisirDateChamps(AppContext& app, QString& day, QString& month, QString& year);

}  // namespace plouvarine
