#pragma once
// "Today" for the whole system. Tests set it; the program reads the system date.

#include <QDate>

namespace plouvarine {

class Clock {
public:
    QDate today() const { return fixed_.isValid() ? fixed_ : QDate::currentDate(); }
    void set_today(const QDate& date) { fixed_ = date; }
    void reset() { fixed_ = QDate(); }
    // Today as a date string yyyymmdd.
    QString today_text() const { return today().toString(QStringLiteral("yyyyMMdd")); }

private:
    QDate fixed_;
};

}  // namespace plouvarine
