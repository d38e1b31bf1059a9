#include "demo/meet.h"

#include "components/lenex/lenex_events.h"
#include "components/lenex/lenex_time.h"
#include "components/lenex/lenex_writer.h"

#include <QXmlStreamWriter>
#include <algorithm>
#include <cmath>

namespace plouvarine::demo {

namespace {

struct AgeBand {
    const char* id;
    const char* name;
    int min, max;
};
constexpr AgeBand kBands[] = {{"J", "Jeunes", 8, 13}, {"U", "Juniors", 14, 17}, {"S", "Seniors et Maîtres", 18, 99}};

// One swim of an event, individual or relay, as the file places it.
struct Placed {
    QString resultid, club_code;
    double time = 0;
    QString status;
    int heat = 0, lane = 0;
    QString band;  // age group id, empty for a relay
};

QString attr_date(const QDate& d)
{
    return d.toString(QStringLiteral("yyyy-MM-dd"));
}

// FFN-like points: about 1000 for a national-level 100 m free, falling with
// the cube of the time.
int points(int code, const QString& sexe, double value)
{
    if (value <= 0)
        return 0;
    Swimmer ref;
    ref.sexe = sexe;
    ref.birth = QDate(2000, 1, 1);
    ref.level = 0.86;
    const double best = seconds_of(swim_time(code, ref, QDate(2022, 6, 1), 0));
    return int(std::lround(1000 * std::pow(best / seconds_of(value), 3)));
}

void write_splits(QXmlStreamWriter& xml, int distance, double value)
{
    if (distance < 100 || value <= 0)
        return;
    const double total = seconds_of(value);
    xml.writeStartElement(QStringLiteral("SPLITS"));
    for (int at = 50; at < distance; at += 50) {
        // The first length is the fastest: a little ahead of an even pace.
        const double t = total * at / distance * (at == 50 ? 0.95 : 0.985);
        xml.writeStartElement(QStringLiteral("SPLIT"));
        xml.writeAttribute(QStringLiteral("distance"), QString::number(at));
        xml.writeAttribute(QStringLiteral("swimtime"), lenex::format_swimtime(time_value(t)));
        xml.writeEndElement();
    }
    xml.writeEndElement();
}

void write_result(QXmlStreamWriter& xml, const QString& id, int code, double time, const QString& status,
                  const QString& sexe, const Placed& placed, int distance)
{
    xml.writeStartElement(QStringLiteral("RESULT"));
    xml.writeAttribute(QStringLiteral("resultid"), id);
    xml.writeAttribute(QStringLiteral("eventid"), QString::number(code));
    xml.writeAttribute(QStringLiteral("heatid"), QStringLiteral("%1-%2").arg(code).arg(placed.heat));
    xml.writeAttribute(QStringLiteral("lane"), QString::number(placed.lane));
    xml.writeAttribute(QStringLiteral("swimtime"), lenex::format_swimtime(status.isEmpty() ? time : 0));
    if (!status.isEmpty())
        xml.writeAttribute(QStringLiteral("status"), status);
    else
        xml.writeAttribute(QStringLiteral("points"), QString::number(points(code, sexe, time)));
    if (status.isEmpty())
        write_splits(xml, distance, time);
}

}  // namespace

void write_meet(const DemoMeet& meet, const QVector<DemoClub>& clubs, const QString& path)
{
    // Places every swim: heats of the pool's lanes, slowest first, and the age group.
    QHash<int, QVector<Placed>> by_event;
    for (int i = 0; i < meet.swims.size(); ++i) {
        const MeetSwim& s = meet.swims[i];
        const Swimmer& who = clubs[s.club].swimmers[s.swimmer];
        Placed p{QStringLiteral("R%1").arg(i), clubs[s.club].code, s.time, s.status, 0, 0, {}};
        const int age = who.age_on(meet.date);
        for (const AgeBand& b : kBands)
            if (age >= b.min && age <= b.max)
                p.band = QString::fromLatin1(b.id);
        by_event[s.code].append(p);
    }
    for (int i = 0; i < meet.relays.size(); ++i) {
        const MeetRelay& r = meet.relays[i];
        by_event[r.code].append({QStringLiteral("L%1").arg(i), clubs[r.club].code, r.time, QString(), 0, 0, {}});
    }
    QHash<QString, Placed> placed;
    for (auto it = by_event.begin(); it != by_event.end(); ++it) {
        QVector<Placed>& list = it.value();
        // A swim without time is seeded with the slowest.
        std::stable_sort(list.begin(), list.end(), [](const Placed& a, const Placed& b) {
            return (a.time == 0 ? 1e9 : a.time) > (b.time == 0 ? 1e9 : b.time);
        });
        for (int i = 0; i < list.size(); ++i) {
            list[i].heat = i / 8 + 1;
            list[i].lane = i % 8 + 1;
            placed.insert(list[i].resultid, list[i]);
        }
    }

    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    lenex::begin_document(xml);
    xml.writeStartElement(QStringLiteral("MEETS"));
    xml.writeStartElement(QStringLiteral("MEET"));
    xml.writeAttribute(QStringLiteral("name"), meet.name);
    xml.writeAttribute(QStringLiteral("city"), meet.city);
    xml.writeAttribute(QStringLiteral("nation"), QStringLiteral("FRA"));
    xml.writeAttribute(QStringLiteral("course"), lenex::course_name(meet.pool));
    xml.writeStartElement(QStringLiteral("SESSIONS"));
    xml.writeStartElement(QStringLiteral("SESSION"));
    xml.writeAttribute(QStringLiteral("number"), QStringLiteral("1"));
    xml.writeAttribute(QStringLiteral("date"), attr_date(meet.date));
    xml.writeStartElement(QStringLiteral("EVENTS"));
    for (int n = 0; n < meet.codes.size(); ++n) {
        const int code = meet.codes[n];
        lenex::SwimStyle style;
        QChar gender;
        lenex::event_style(code, style, gender);
        xml.writeStartElement(QStringLiteral("EVENT"));
        xml.writeAttribute(QStringLiteral("eventid"), QString::number(code));
        xml.writeAttribute(QStringLiteral("number"), QString::number(n + 1));
        xml.writeAttribute(QStringLiteral("gender"), QString(gender));
        xml.writeAttribute(QStringLiteral("round"), QStringLiteral("TIM"));
        xml.writeStartElement(QStringLiteral("SWIMSTYLE"));
        xml.writeAttribute(QStringLiteral("distance"), QString::number(style.distance));
        xml.writeAttribute(QStringLiteral("relaycount"), QString::number(style.relaycount));
        xml.writeAttribute(QStringLiteral("stroke"), style.stroke);
        xml.writeEndElement();
        QVector<Placed> list = by_event.value(code);
        std::stable_sort(list.begin(), list.end(), [](const Placed& a, const Placed& b) {
            return (a.status.isEmpty() ? a.time : 1e9) < (b.status.isEmpty() ? b.time : 1e9);
        });
        xml.writeStartElement(QStringLiteral("AGEGROUPS"));
        if (style.relaycount > 1) {
            xml.writeStartElement(QStringLiteral("AGEGROUP"));
            xml.writeAttribute(QStringLiteral("agegroupid"), QStringLiteral("%1-T").arg(code));
            xml.writeAttribute(QStringLiteral("name"), QStringLiteral("Toutes catégories"));
            xml.writeEndElement();
        } else {
            for (const AgeBand& b : kBands) {
                xml.writeStartElement(QStringLiteral("AGEGROUP"));
                xml.writeAttribute(QStringLiteral("agegroupid"), QStringLiteral("%1-%2").arg(code).arg(QLatin1String(b.id)));
                xml.writeAttribute(QStringLiteral("name"), QString::fromUtf8(b.name));
                xml.writeAttribute(QStringLiteral("agemin"), QString::number(b.min));
                xml.writeAttribute(QStringLiteral("agemax"), QString::number(b.max));
                xml.writeStartElement(QStringLiteral("RANKINGS"));
                int place = 0;
                for (const Placed& p : list) {
                    if (p.band != QLatin1String(b.id))
                        continue;
                    xml.writeStartElement(QStringLiteral("RANKING"));
                    xml.writeAttribute(QStringLiteral("place"), QString::number(p.status.isEmpty() ? ++place : -1));
                    xml.writeAttribute(QStringLiteral("resultid"), p.resultid);
                    xml.writeEndElement();
                }
                xml.writeEndElement();
                xml.writeEndElement();
            }
        }
        xml.writeEndElement();
        const int heats = list.isEmpty() ? 0 : (int(list.size()) - 1) / 8 + 1;
        xml.writeStartElement(QStringLiteral("HEATS"));
        for (int h = 1; h <= heats; ++h) {
            xml.writeStartElement(QStringLiteral("HEAT"));
            xml.writeAttribute(QStringLiteral("heatid"), QStringLiteral("%1-%2").arg(code).arg(h));
            xml.writeAttribute(QStringLiteral("number"), QString::number(h));
            xml.writeEndElement();
        }
        xml.writeEndElement();
        xml.writeEndElement();  // EVENT
    }
    xml.writeEndElement();  // EVENTS
    xml.writeEndElement();  // SESSION
    xml.writeEndElement();  // SESSIONS

    xml.writeStartElement(QStringLiteral("CLUBS"));
    for (int c = 0; c < clubs.size(); ++c) {
        const DemoClub& club = clubs[c];
        xml.writeStartElement(QStringLiteral("CLUB"));
        xml.writeAttribute(QStringLiteral("code"), club.code);
        xml.writeAttribute(QStringLiteral("name"), club.name);
        xml.writeAttribute(QStringLiteral("nation"), QStringLiteral("FRA"));
        xml.writeStartElement(QStringLiteral("ATHLETES"));
        for (int a = 0; a < club.swimmers.size(); ++a) {
            const Swimmer& s = club.swimmers[a];
            xml.writeStartElement(QStringLiteral("ATHLETE"));
            xml.writeAttribute(QStringLiteral("athleteid"), QStringLiteral("%1-%2").arg(c).arg(a));
            xml.writeAttribute(QStringLiteral("license"), s.licence);
            xml.writeAttribute(QStringLiteral("lastname"), s.nom);
            xml.writeAttribute(QStringLiteral("firstname"), s.prenom);
            xml.writeAttribute(QStringLiteral("gender"), s.sexe);
            xml.writeAttribute(QStringLiteral("nation"), QStringLiteral("FRA"));
            xml.writeAttribute(QStringLiteral("birthdate"), attr_date(s.birth));
            xml.writeStartElement(QStringLiteral("RESULTS"));
            for (int i = 0; i < meet.swims.size(); ++i) {
                const MeetSwim& sw = meet.swims[i];
                if (sw.club != c || sw.swimmer != a)
                    continue;
                lenex::SwimStyle style;
                QChar gender;
                lenex::event_style(sw.code, style, gender);
                const QString id = QStringLiteral("R%1").arg(i);
                write_result(xml, id, sw.code, sw.time, sw.status, s.sexe, placed.value(id), style.distance);
                xml.writeEndElement();
            }
            xml.writeEndElement();  // RESULTS
            xml.writeEndElement();  // ATHLETE
        }
        xml.writeEndElement();  // ATHLETES
        xml.writeStartElement(QStringLiteral("RELAYS"));
        for (int i = 0; i < meet.relays.size(); ++i) {
            const MeetRelay& r = meet.relays[i];
            if (r.club != c)
                continue;
            lenex::SwimStyle style;
            QChar gender;
            lenex::event_style(r.code, style, gender);
            xml.writeStartElement(QStringLiteral("RELAY"));
            xml.writeAttribute(QStringLiteral("number"), QString::number(r.number));
            xml.writeAttribute(QStringLiteral("gender"), QString(gender));
            xml.writeStartElement(QStringLiteral("RESULTS"));
            const QString id = QStringLiteral("L%1").arg(i);
            const QString sexe = gender == u'F' ? QStringLiteral("F") : QStringLiteral("M");
            write_result(xml, id, r.code, r.time, QString(), sexe, placed.value(id), style.distance * style.relaycount);
            xml.writeStartElement(QStringLiteral("RELAYPOSITIONS"));
            for (int leg = 0; leg < r.legs.size(); ++leg) {
                xml.writeStartElement(QStringLiteral("RELAYPOSITION"));
                xml.writeAttribute(QStringLiteral("athleteid"), QStringLiteral("%1-%2").arg(c).arg(r.legs[leg]));
                xml.writeAttribute(QStringLiteral("number"), QString::number(leg + 1));
                xml.writeEndElement();
            }
            xml.writeEndElement();  // RELAYPOSITIONS
            xml.writeEndElement();  // RESULT
            xml.writeEndElement();  // RESULTS
            xml.writeEndElement();  // RELAY
        }
        xml.writeEndElement();  // RELAYS
        xml.writeEndElement();  // CLUB
    }
    xml.writeEndElement();  // CLUBS
    xml.writeEndElement();  // MEET
    xml.writeEndElement();  // MEETS
    xml.writeEndElement();  // LENEX
    xml.writeEndDocument();
    lenex::save_lenex(bytes, path);
}

}  // namespace plouvarine::demo
