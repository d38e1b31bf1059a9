#include "demo/people.h"

#include "components/lenex/lenex_events.h"

#include <cmath>

namespace plouvarine::demo {

namespace {

const char* const kFirstF[] = {"Anaïs", "Maëlle", "Nolwenn", "Clémence", "Lou", "Gwenaëlle", "Inès", "Solène",
                               "Romane", "Jade", "Océane", "Léna", "Morgane", "Elouan", "Katell", "Zoé",
                               "Margaux", "Chloé", "Awen", "Lison"};
const char* const kFirstM[] = {"Tanguy", "Erwan", "Mathis", "Gaël", "Loïc", "Yannick", "Brieuc", "Corentin",
                               "Maël", "Tristan", "Noé", "Aurélien", "Ronan", "Jules", "Titouan", "Killian",
                               "Evan", "Gurvan", "Hugo", "Malo"};
// Family names made up for the demo from Breton-sounding pieces.
const char* const kFamily[] = {"KERVADEC", "LE BRUSQ", "TREGUENNEC", "MORVANIC", "PENHOUAT", "LE GUILVIC",
                               "QUERNEZ", "CARADOUR", "LE MENTEC", "KERBIRIC", "GOASDOUFF", "LE DROGUEN",
                               "PRIGENTOU", "TANGUIREC", "HELLOCO", "LE FLOC'HIC", "KERNEVAR", "BOURHIS",
                               "LE SCOUARN", "GUILLEVIC", "MADEC", "PERENNOU", "KERZERHO", "LE ROUZIC",
                               "JAFFREDOU", "LE TALLEC", "MENGUY", "COLLOREC", "TROADEC", "LANNUZEL"};

template <size_t N>
QString from(const char* const (&list)[N], int i)
{
    return QString::fromUtf8(list[size_t(i) % N]);
}

}  // namespace

int Swimmer::age_on(const QDate& day) const
{
    int age = day.year() - birth.year();
    if (QDate(day.year(), birth.month(), birth.day() == 29 && birth.month() == 2 ? 28 : birth.day()) > day)
        --age;
    return age;
}

QVector<Swimmer> People::swimmers(int count, int youngest, int oldest, const QDate& today, int first_licence)
{
    QVector<Swimmer> list;
    for (int i = 0; i < count; ++i) {
        Swimmer s;
        s.sexe = i % 2 == 0 ? QStringLiteral("F") : QStringLiteral("M");
        // Most of a club is young: three in four from the youngest to 17.
        int age = i < 2 ? (i == 0 ? youngest : oldest)
                        : (pick(4) < 3 ? youngest + pick(18 - youngest) : 18 + pick(oldest - 17));
        s.birth = today.addYears(-age).addDays(-1 - pick(360));
        s.prenom = s.sexe == QLatin1String("F") ? from(kFirstF, pick(20)) : from(kFirstM, pick(20));
        s.nom = from(kFamily, pick(30));
        s.licence = QStringLiteral("%1C").arg(first_licence + i * 37, 5, 10, QLatin1Char('0'));
        s.level = uniform(1.0, 1.3);
        list.append(s);
    }
    return list;
}

QString People::person()
{
    return (pick(2) ? from(kFirstF, pick(20)) : from(kFirstM, pick(20))) + u' ' + from(kFamily, pick(30));
}

double time_value(double seconds)
{
    const long hundredths = std::lround(seconds * 100);
    const long minutes = hundredths / 6000;
    const long rest = hundredths % 6000;
    return double(minutes) + double(rest) / 10000.0;
}

double seconds_of(double value)
{
    const double minutes = std::floor(value);
    return minutes * 60 + std::round((value - minutes) * 10000) / 100;
}

double swim_time(int code, const Swimmer& s, const QDate& day, double jitter)
{
    lenex::SwimStyle style;
    QChar gender;
    if (!lenex::event_style(code, style, gender))
        return 0;
    // A 100 m free at 20 years old; younger swimmers are slower each year, the
    // masters a little slower each year past 25.
    double t100 = s.sexe == QLatin1String("F") ? 66.0 : 59.0;
    const int age = s.age_on(day);
    if (age < 20)
        t100 *= 1.0 + 0.055 * (20 - age);
    else if (age > 25)
        t100 *= 1.0 + 0.009 * (age - 25);
    double stroke = 1.0;
    if (style.stroke == QLatin1String("BACK"))
        stroke = 1.11;
    else if (style.stroke == QLatin1String("BREAST"))
        stroke = 1.24;
    else if (style.stroke == QLatin1String("FLY"))
        stroke = 1.09;
    else if (style.stroke == QLatin1String("MEDLEY"))
        stroke = 1.13;
    const double one = t100 * stroke * s.level * std::pow(style.distance / 100.0, 1.08) * (1.0 + jitter);
    return time_value(one);
}

}  // namespace plouvarine::demo
