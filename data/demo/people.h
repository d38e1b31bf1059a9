#pragma once
// The invented people of the demo base: the swimmers of the club and of two
// rival clubs, drawn from fixed lists with a fixed seed, and the time each
// would swim an event at a given age. No name belongs to anyone real.

#include <QDate>
#include <QString>
#include <QVector>
#include <random>

namespace plouvarine::demo {

struct Swimmer {
    int num = 0;          // Licence.Num once in the base (0 for a rival's swimmer)
    QString licence;      // five digits and "C"
    QString nom, prenom;  // family name in capitals without accents
    QString sexe;         // "F" or "M"
    QDate birth;
    double level = 1.0;   // 1.0 the club's fastest, up to 1.3
    QString birth_text() const { return birth.toString(QStringLiteral("yyyyMMdd")); }
    int age_on(const QDate& day) const;
};

struct DemoClub {
    QString code, name, city;
    QVector<Swimmer> swimmers;
};

class People {
public:
    explicit People(unsigned seed) : rng_(seed) {}
    // `count` swimmers of both sexes, from `youngest` to `oldest` years old on
    // `today`, the two ends always present.
    QVector<Swimmer> swimmers(int count, int youngest, int oldest, const QDate& today, int first_licence);
    QString person();  // "Prénom NOM" of an officer
    double uniform(double low, double high) { return std::uniform_real_distribution<double>(low, high)(rng_); }
    int pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(rng_); }

private:
    std::mt19937 rng_;
};

// The time value (m.sscc) of `code`'s distance and stroke for `s` on `day`,
// with `jitter` as a fraction (0.01 for one per cent slower).
double swim_time(int code, const Swimmer& s, const QDate& day, double jitter);
// Seconds as a time value.
double time_value(double seconds);
double seconds_of(double value);

}  // namespace plouvarine::demo
