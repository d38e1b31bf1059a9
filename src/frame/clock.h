#pragma once
// "Today" and the time of day for the whole system. Tests set them; the
// program reads the system clock.

#include <QDate>
#include <QTime>

namespace plouvarine {

class Clock {
public:
    QDate today() const { return fixed_.isValid() ? fixed_ : QDate::currentDate(); }
    void set_today(const QDate& date) { fixed_ = date; }
    void reset() { fixed_ = QDate(); fixed_time_ = QTime(); }
    QTime now() const { return fixed_time_.isValid() ? fixed_time_ : QTime::currentTime(); }
    void set_now(const QTime& time) { fixed_time_ = time; }
    // Today as a date string yyyymmdd.
    QString today_text() const { return today().toString(QStringLiteral("yyyyMMdd")); }

private:
    QDate fixed_;
    QTime fixed_time_;
};

}  // namespace plouvarine
