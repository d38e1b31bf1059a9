#include "components/lenex/lenex_time.h"

#include "src/base/utils_time.h"

#include <cmath>

namespace plouvarine::lenex {

namespace {

// The digits of `text` as a number, or -1 when one character is not a digit.
int digits(QStringView text)
{
    if (text.isEmpty())
        return -1;
    int n = 0;
    for (QChar c : text) {
        if (!c.isDigit())
            return -1;
        n = n * 10 + c.digitValue();
    }
    return n;
}

}  // namespace

bool parse_swimtime(QStringView text, double& value)
{
    value = 0;
    // HH:MM:SS.hh, exactly eleven characters.
    if (text.size() != 11 || text[2] != u':' || text[5] != u':' || text[8] != u'.')
        return false;
    const int h = digits(text.mid(0, 2)), m = digits(text.mid(3, 2));
    const int s = digits(text.mid(6, 2)), c = digits(text.mid(9, 2));
    if (h < 0 || m < 0 || m > 59 || s < 0 || s > 59 || c < 0)
        return false;
    const int hundredths = s * 100 + c;
    if (h == 0 && m == 0 && hundredths == 0)
        return false;
    value = (h * 60 + m) + hundredths / 10000.0;
    return true;
}

QString format_swimtime(double value)
{
    if (value <= 0)
        return QStringLiteral("NT");
    const TempsDecoupe t = decoupe_temps(value);
    return QStringLiteral("%1:%2:%3.%4")
        .arg(t.minutes / 60, 2, 10, QChar(u'0'))
        .arg(t.minutes % 60, 2, 10, QChar(u'0'))
        .arg(t.secondes, 2, 10, QChar(u'0'))
        .arg(t.centiemes, 2, 10, QChar(u'0'));
}

QString base_date(QStringView d)
{
    if (d.size() != 10 || d[4] != u'-' || d[7] != u'-' || digits(d.mid(0, 4)) < 0 || digits(d.mid(5, 2)) < 0
        || digits(d.mid(8, 2)) < 0)
        return {};
    return d.mid(0, 4).toString() + d.mid(5, 2).toString() + d.mid(8, 2).toString();
}

QString lenex_date(const QString& d)
{
    if (d.size() != 8 || digits(d) < 0)
        return {};
    return d.left(4) + u'-' + d.mid(4, 2) + u'-' + d.mid(6, 2);
}

}  // namespace plouvarine::lenex
