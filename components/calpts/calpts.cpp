#include "calpts.h"

#include "src/base/utils_time.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringList>
#include <cmath>
#include <stdexcept>

namespace Calcul_Point {

namespace {

// An event of the catalogue as World Aquatics names it: relay legs, distance
// of one swimmer, stroke, and sex ("F", "M", "X" for mixed).
struct Event {
    QString sex;
    int swimmers = 1;
    int distance = 0;
    QString stroke;
};

// The catalogue's codes: women 0 to 49, the same men's event 50 more; the
// tens follow the stroke; 45 to 49 are the mixed relays.
bool event_of(qint16 code, Event& e)
{
    if (code < 0 || code > 99)
        return false;
    const int k = code % 50;
    e.sex = code < 50 ? QStringLiteral("F") : QStringLiteral("M");
    static const int free_distances[] = {25, 50, 100, 200, 400, 800, 1500};
    static const int stroke_distances[] = {25, 50, 100, 200};
    if (k <= 6) {
        e.stroke = QStringLiteral("FREE");
        e.distance = free_distances[k];
    } else if (k <= 9) {
        e.stroke = QStringLiteral("FREE");
        e.swimmers = 4;
        e.distance = 50 << (k - 7);
    } else if (k >= 10 && k <= 33 && k % 10 <= 3) {
        static const char* strokes[] = {"BACK", "BREAST", "FLY"};
        e.stroke = QLatin1String(strokes[k / 10 - 1]);
        e.distance = stroke_distances[k % 10];
    } else if (k >= 40 && k <= 42) {
        e.stroke = QStringLiteral("MEDLEY");
        e.distance = 100 << (k - 40);
    } else if (k == 43 || k == 44) {
        e.stroke = QStringLiteral("MEDLEY");
        e.swimmers = 4;
        e.distance = k == 43 ? 50 : 100;
    } else if (k >= 45 && code < 50) {
        e.sex = QStringLiteral("X");
        e.swimmers = 4;
        e.stroke = k <= 47 ? QStringLiteral("FREE") : QStringLiteral("MEDLEY");
        e.distance = k <= 47 ? (50 << (k - 45)) : (50 << (k - 48));
    } else {
        return false;
    }
    return true;
}

QString key_of(const QString& course, const QString& sex, int swimmers, int distance, const QString& stroke)
{
    return course + u' ' + sex + u' ' + QString::number(swimmers) + u' ' + QString::number(distance) + u' ' + stroke;
}

// "1:42.00" or "20.91" in hundredths; 0 when it is no time.
int hundredths_of(const QString& text)
{
    static const QRegularExpression re(QStringLiteral("^(?:(\\d+):)?(\\d{1,2})\\.(\\d\\d)$"));
    const QRegularExpressionMatch m = re.match(text);
    if (!m.hasMatch())
        return 0;
    return (m.captured(1).toInt() * 60 + m.captured(2).toInt()) * 100 + m.captured(3).toInt();
}

// A time value m.sscc in hundredths of a second.
long long hundredths_of(double temps)
{
    const plouvarine::TempsDecoupe t = plouvarine::decoupe_temps(temps);
    return (static_cast<long long>(t.minutes) * 60 + t.secondes) * 100 + t.centiemes;
}

// The points of a time, both in hundredths. Truncated as World Aquatics does;
// the margin keeps an exact cube (a time equal to the base) from falling to
// the point below through the rounding of doubles.
int points_of(int base, long long time)
{
    if (base <= 0 || time <= 0)
        return 0;
    const double ratio = double(base) / double(time);
    return int(std::floor(1000.0 * ratio * ratio * ratio + 1e-9));
}

}  // namespace

bool ClsCalcul::load_table(const QString& path, QString* error)
{
    bases_.clear();
    name_.clear();
    auto fail = [&](const QString& why) {
        bases_.clear();
        name_.clear();
        if (error)
            *error = why;
        return false;
    };
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return fail(QStringLiteral("Table des temps de base introuvable : ") + path);
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    int number = 0;
    for (QString line : lines) {
        ++number;
        line = line.trimmed();
        if (line.isEmpty())
            continue;
        if (line.startsWith(u'#')) {
            const QString header = line.mid(1).trimmed();
            if (header.startsWith(QLatin1String("table:")))
                name_ = header.mid(6).trimmed();
            continue;
        }
        // course;sex;swimmers;distance;stroke;base time[;note]
        const QStringList f = line.split(u';');
        const int swimmers = f.value(2).toInt();
        const int distance = f.value(3).toInt();
        const int base = hundredths_of(f.value(5).trimmed());
        const bool known = f.size() >= 6 && (f[0] == QLatin1String("LCM") || f[0] == QLatin1String("SCM"))
                           && (f[1] == QLatin1String("F") || f[1] == QLatin1String("M") || f[1] == QLatin1String("X"))
                           && (swimmers == 1 || swimmers == 4) && distance > 0 && !f[4].isEmpty() && base > 0;
        if (!known)
            return fail(QStringLiteral("Ligne %1 illisible dans ").arg(number) + path);
        bases_.insert(key_of(f[0], f[1], swimmers, distance, f[4]), base);
    }
    if (name_.isEmpty() || bases_.isEmpty())
        return fail(QStringLiteral("Ce fichier n'est pas une table de temps de base : ") + path);
    return true;
}

int ClsCalcul::base_time(qint16 code_nage, int bassin) const
{
    Event e;
    if ((bassin != 25 && bassin != 50) || !event_of(code_nage, e))
        return 0;
    return bases_.value(key_of(bassin == 50 ? QStringLiteral("LCM") : QStringLiteral("SCM"), e.sex, e.swimmers,
                               e.distance, e.stroke));
}

int ClsCalcul::CalculPoint(double temps, qint16 code_nage, int bassin) const
{
    if (!(temps > 0))
        return 0;
    try {
        return points_of(base_time(code_nage, bassin), hundredths_of(temps));
    } catch (const std::overflow_error&) {
        return 0;  // a time past any table
    }
}

QString ClsCalcul::CalculTps(qint16 points, qint16 code_nage, int bassin) const
{
    const int base = base_time(code_nage, bassin);
    if (base == 0 || points < 1 || points > kMaxPoints)
        return {};
    // The exact time of those points first, then to the hundredth: the slowest
    // time still worth them.
    long long t = static_cast<long long>(std::floor(base / std::cbrt(points / 1000.0)));
    while (t > 1 && points_of(base, t) < points)
        --t;
    while (points_of(base, t + 1) >= points)
        ++t;
    const long long minutes = t / 6000;
    const long long seconds = (t / 100) % 60;
    const long long cents = t % 100;
    return plouvarine::format_temps(double(minutes) + double(seconds) / 100.0 + double(cents) / 10000.0);
}

}  // namespace Calcul_Point
