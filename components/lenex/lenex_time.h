#pragma once
// Lenex swim times ("HH:MM:SS.hh", or "NT" for no time) and the base's time
// values (m.sscc, see src/base/utils_time.h).

#include <QString>
#include <QStringView>

namespace plouvarine::lenex {

// The time value of a Lenex swim time. "NT", the empty text and a text that is
// not a time give false and leave `value` at 0.
bool parse_swimtime(QStringView text, double& value);

// The Lenex form of a time value; 0 (no time) gives "NT".
QString format_swimtime(double value);

// A Lenex date ("yyyy-mm-dd") as the base's yyyymmdd, and back. Anything else
// gives the empty text.
QString base_date(QStringView lenex_date);
QString lenex_date(const QString& base_date);

}  // namespace plouvarine::lenex
