#include "src/competitions/lenex_styles.h"

namespace plouvarine::lenex {

namespace {

struct Row {
    int code;      // the women's code (or the mixed one)
    int distance;
    int relaycount;
    const char* stroke;
    bool mixed;
};

constexpr Row kRows[] = {
    {0, 25, 1, "FREE", false},    {1, 50, 1, "FREE", false},    {2, 100, 1, "FREE", false},
    {3, 200, 1, "FREE", false},   {4, 400, 1, "FREE", false},   {5, 800, 1, "FREE", false},
    {6, 1500, 1, "FREE", false},  {7, 50, 4, "FREE", false},    {8, 100, 4, "FREE", false},
    {9, 200, 4, "FREE", false},   {10, 25, 1, "BACK", false},   {11, 50, 1, "BACK", false},
    {12, 100, 1, "BACK", false},  {13, 200, 1, "BACK", false},  {20, 25, 1, "BREAST", false},
    {21, 50, 1, "BREAST", false}, {22, 100, 1, "BREAST", false}, {23, 200, 1, "BREAST", false},
    {30, 25, 1, "FLY", false},    {31, 50, 1, "FLY", false},    {32, 100, 1, "FLY", false},
    {33, 200, 1, "FLY", false},   {40, 100, 1, "MEDLEY", false}, {41, 200, 1, "MEDLEY", false},
    {42, 400, 1, "MEDLEY", false}, {43, 50, 4, "MEDLEY", false}, {44, 100, 4, "MEDLEY", false},
    {45, 50, 4, "FREE", true},    {46, 100, 4, "FREE", true},   {47, 200, 4, "FREE", true},
    {48, 50, 4, "MEDLEY", true},  {49, 100, 4, "MEDLEY", true},
};

}  // namespace

int event_code(const SwimStyle& style, QChar gender)
{
    const bool relay = style.relaycount > 1;
    const bool mixed = relay && gender == u'X';
    if (!mixed && gender != u'F' && gender != u'M')
        return -1;
    for (const Row& r : kRows) {
        if (r.distance != style.distance || r.relaycount != style.relaycount || r.mixed != mixed
            || style.stroke != QLatin1String(r.stroke))
            continue;
        return gender == u'M' ? r.code + 50 : r.code;
    }
    return -1;
}

bool event_style(int code, SwimStyle& style, QChar& gender)
{
    if (code < 0 || code > 99)
        return false;
    const int base = code >= 50 ? code - 50 : code;
    for (const Row& r : kRows) {
        if (r.code != base || (r.mixed && code >= 50))
            continue;
        style = {r.distance, r.relaycount, QString::fromLatin1(r.stroke)};
        gender = r.mixed ? u'X' : code >= 50 ? u'M' : u'F';
        return true;
    }
    return false;
}

int first_leg_code(int relay_code, QChar gender)
{
    SwimStyle style;
    QChar relay_gender;
    if (!event_style(relay_code, style, relay_gender) || style.relaycount < 2)
        return -1;
    style.relaycount = 1;
    if (style.stroke == QLatin1String("MEDLEY"))
        style.stroke = QStringLiteral("BACK");
    return event_code(style, gender);
}

int course_length(const QString& course)
{
    if (course == QLatin1String("SCM"))
        return 25;
    if (course == QLatin1String("LCM"))
        return 50;
    return 0;
}

QString course_name(int length)
{
    return length == 50 ? QStringLiteral("LCM") : QStringLiteral("SCM");
}

}  // namespace plouvarine::lenex
