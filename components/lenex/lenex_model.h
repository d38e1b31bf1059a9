#pragma once
// A Lenex file as the imports read it: the meets with their events, the
// clubs with their athletes, relays and results. Only what the base keeps.

#include "components/lenex/lenex_events.h"

#include <QHash>
#include <QString>
#include <QVector>

namespace plouvarine::lenex {

struct Split {
    int distance = 0;
    double time = 0;
};

struct RelayPosition {
    QString athleteid;
    int number = 0;
    QString status;  // "DSQ" for a faulty take-over
};

struct Result {
    QString resultid, eventid, heatid;
    double time = 0;        // 0 when the file gives no time ("NT", none)
    QString swimtime;       // as written, for the trace
    QString status;         // DSQ, DNS, DNF, WDR, SICK, EXH or empty
    QString comment;
    int points = 0;
    int lane = 0;
    int line = 0;           // in the file, for the trace
    QVector<Split> splits;
    QVector<RelayPosition> positions;
};

struct Athlete {
    QString id, license, firstname, lastname, gender, nation;
    QString birthdate;      // yyyymmdd
    QVector<Result> results;
};

struct Relay {
    int number = 0;
    QString gender;
    QVector<Result> results;
};

struct Club {
    QString code, name, nation;
    QVector<Athlete> athletes;
    QVector<Relay> relays;
};

struct AgeGroup {
    QString id, name;
    int agemin = -1, agemax = -1;
};

struct Heat {
    int number = 0;
    QString final_letter;  // "A", "B"... for a final
};

struct Event {
    QString id;
    int number = 0;
    QString gender;         // F, M, X, or empty
    QString round;          // TIM, FIN, SEM, QUA, PRE...
    QString date;           // the session's, yyyymmdd
    SwimStyle style;
    QVector<AgeGroup> agegroups;
    QHash<QString, Heat> heats;
};

struct Meet {
    QString name, city, nation, course;
    QString first_date, last_date;  // yyyymmdd
    QVector<Event> events;
    QHash<QString, int> event_index;             // eventid -> events
    QHash<QString, QString> result_agegroup;     // resultid -> agegroupid
    QVector<Club> clubs;

    const Event* event(const QString& id) const
    {
        const auto it = event_index.constFind(id);
        return it == event_index.cend() ? nullptr : &events[*it];
    }
};

inline QChar first_char(const QString& s)
{
    return s.isEmpty() ? QChar() : s.front();
}

// The gender that tells an event's code: the event's own, or for an event
// open to all ("A", none) the swimmer's or the relay's.
inline QString event_gender(const Event& e, const QString& swimmer_gender)
{
    const bool relay = e.style.relaycount > 1;
    if (e.gender == QLatin1String("F") || e.gender == QLatin1String("M") || (relay && e.gender == QLatin1String("X")))
        return e.gender;
    return swimmer_gender;
}

struct Document {
    QString file;  // the name shown in the trace
    QVector<Meet> meets;
};

}  // namespace plouvarine::lenex
