#pragma once
// A meet of the demo as its organiser would publish the results: a Lenex 3.0
// file with the events, heats, age groups and rankings, and every club's
// swims and relays, which the base then takes in through the ordinary
// results and performances imports.

#include "demo/people.h"

#include <QDate>
#include <QString>
#include <QVector>

namespace plouvarine::demo {

struct MeetSwim {
    int club = 0;        // index into the meet's clubs
    int swimmer = 0;     // index into that club's swimmers
    int code = 0;        // Nage.Code_Nage
    double time = 0;     // time value; 0 with a status
    QString status;      // "", "DNS", "DSQ"
};

struct MeetRelay {
    int club = 0;
    int number = 1;      // the club's relay number in the event
    int code = 0;
    double time = 0;
    QVector<int> legs;   // swimmers of the club, in leg order
};

struct DemoMeet {
    QString name, city;
    QDate date;
    int pool = 25;
    QVector<int> codes;  // the events, in running order
    QVector<MeetSwim> swims;
    QVector<MeetRelay> relays;
};

// Writes `meet` as the Lenex file `path` (.lef). Throws LenexError.
void write_meet(const DemoMeet& meet, const QVector<DemoClub>& clubs, const QString& path);

}  // namespace plouvarine::demo
