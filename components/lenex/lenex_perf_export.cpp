#include "components/exchange/trace.h"
#include "components/lenex/lenex_base.h"
#include "components/lenex/lenex_perfs.h"
#include "components/lenex/lenex_time.h"
#include "components/lenex/lenex_writer.h"
#include "src/frame/exchange_component.h"

#include <QVector>
#include <map>
#include <set>

namespace plouvarine::lenex {

namespace {

struct Swim {
    int code = 0;
    double time = 0;
    PerfMarks marks;
};

struct RelaySwim {
    int code = 0, number = 0;
    double time = 0;
    QVector<int> legs;
};

struct ClubPart {
    std::map<int, QVector<Swim>> swims;  // by licence
    QVector<RelaySwim> relays;
};

// One meet of the file: the swims of one place, date and pool.
struct MeetPart {
    QString place, date;
    int pool = 0;
    std::set<int> codes;
    std::map<QString, ClubPart> clubs;
};

struct Person {
    QString license, lastname, firstname, gender, birthdate, nation;
};

void attribute(QXmlStreamWriter& xml, const char* name, const QString& value)
{
    if (!value.isEmpty())
        xml.writeAttribute(QLatin1String(name), value);
}

bool is_time(double t)
{
    return t > 0 && t < 91;
}

}  // namespace

QString perf_comment(PerfMarks marks)
{
    QStringList parts;
    if (marks.first_leg)
        parts.append(QString::fromUtf8(kFirstLegComment));
    if (marks.intermediate)
        parts.append(QString::fromUtf8(kIntermediateComment));
    return parts.join(QStringLiteral(", "));
}

int export_performances(Database& db, const QString& club_code, bool all_clubs, const QString& path,
                        exchange::Trace& trace, OperationProgress& progress)
{
    const QString where = all_clubs ? QString() : QStringLiteral(" WHERE Code_club = ?");
    std::map<QString, MeetPart> meets;
    auto meet_of = [&](const QString& place, const QString& date, int pool) -> MeetPart& {
        MeetPart& m = meets[QStringLiteral("%1|%2|%3").arg(date, place).arg(pool)];
        m.place = place;
        m.date = date;
        m.pool = pool;
        return m;
    };
    int rows = 0, skipped = 0;
    Statement swims(db, QStringLiteral("SELECT Code_epreuve, Code_club, Num_Lic, Type_bassin, Date_perf, Tps, Lieu, "
                                       "Passage_relais, Tps_inter FROM Liffn") + where);
    Statement relays(db, QStringLiteral("SELECT Code_epreuve, Code_club, Num_Lic, Type_bassin, Date_perf, Tps, Lieu, "
                                        "Relayeur1, Relayeur2, Relayeur3, Relayeur4, Relayeur5, Relayeur6, Relayeur7, "
                                        "Relayeur8, Relayeur9, Relayeur10 FROM Liffn_relais") + where);
    if (all_clubs) {
        swims.query();
        relays.query();
    } else {
        swims.query({club_code});
        relays.query({club_code});
    }
    SwimStyle style;
    QChar gender;
    while (swims.next()) {
        if (!is_time(swims.real(5)) || !event_style(swims.integer(0), style, gender) || style.relaycount > 1) {
            ++skipped;
            continue;
        }
        MeetPart& m = meet_of(swims.text(6), swims.text(4), swims.integer(3));
        m.codes.insert(swims.integer(0));
        m.clubs[swims.text(1)].swims[swims.integer(2)].append(
            {swims.integer(0), swims.real(5), {swims.text(7).trimmed() == QLatin1String("R"), swims.integer(8) != 0}});
        ++rows;
    }
    std::set<int> people;
    Swimmers base(db);
    while (relays.next()) {
        if (!is_time(relays.real(5)) || !event_style(relays.integer(0), style, gender) || style.relaycount < 2) {
            ++skipped;
            continue;
        }
        MeetPart& m = meet_of(relays.text(6), relays.text(4), relays.integer(3));
        m.codes.insert(relays.integer(0));
        RelaySwim r{relays.integer(0), relays.integer(2), relays.real(5), {}};
        for (int i = 7; i < 17; ++i) {
            const int num = relays.integer(i);
            if (num != 0 && num != base.nulle())
                r.legs.append(num);
        }
        ClubPart& c = m.clubs[relays.text(1)];
        for (int num : r.legs)
            c.swims.try_emplace(num);
        c.relays.append(r);
        ++rows;
    }
    if (skipped)
        trace.line(QStringLiteral("%1 performance(s) sans temps ou d'épreuve sans équivalent Lenex : non écrite(s).").arg(skipped));
    if (rows == 0)
        return 0;

    std::map<int, Person> persons;
    Statement who(db, QStringLiteral("SELECT Num, Licence, Nom, Prenom, Sexe, Date_Naissance, Nationalite FROM Licence"));
    who.query();
    while (who.next())
        persons[who.integer(0)] = {who.text(1), who.text(2), who.text(3), who.text(4), who.text(5), who.text(6)};
    Clubs clubs(db);

    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    begin_document(xml);
    xml.writeStartElement(QStringLiteral("MEETS"));
    int done = 0;
    for (const auto& [key, m] : meets) {
        progress.set_progress(done++, int(meets.size()));
        xml.writeStartElement(QStringLiteral("MEET"));
        xml.writeAttribute(QStringLiteral("name"), m.place.isEmpty() ? QStringLiteral("Performances") : m.place);
        attribute(xml, "city", m.place);
        xml.writeAttribute(QStringLiteral("nation"), QStringLiteral("FRA"));
        xml.writeAttribute(QStringLiteral("course"), course_name(m.pool));
        xml.writeStartElement(QStringLiteral("SESSIONS"));
        xml.writeStartElement(QStringLiteral("SESSION"));
        xml.writeAttribute(QStringLiteral("number"), QStringLiteral("1"));
        attribute(xml, "date", lenex_date(m.date));
        xml.writeStartElement(QStringLiteral("EVENTS"));
        int number = 0;
        for (int code : m.codes) {
            event_style(code, style, gender);
            xml.writeStartElement(QStringLiteral("EVENT"));
            xml.writeAttribute(QStringLiteral("eventid"), QString::number(code));
            xml.writeAttribute(QStringLiteral("number"), QString::number(++number));
            xml.writeAttribute(QStringLiteral("gender"), QString(gender));
            xml.writeAttribute(QStringLiteral("round"), QStringLiteral("TIM"));
            xml.writeStartElement(QStringLiteral("SWIMSTYLE"));
            xml.writeAttribute(QStringLiteral("distance"), QString::number(style.distance));
            xml.writeAttribute(QStringLiteral("relaycount"), QString::number(style.relaycount));
            xml.writeAttribute(QStringLiteral("stroke"), style.stroke);
            xml.writeEndElement();
            xml.writeEndElement();
        }
        xml.writeEndElement();  // EVENTS
        xml.writeEndElement();  // SESSION
        xml.writeEndElement();  // SESSIONS
        xml.writeStartElement(QStringLiteral("CLUBS"));
        for (const auto& [code, c] : m.clubs) {
            progress.set_club(clubs.name_of(code));
            xml.writeStartElement(QStringLiteral("CLUB"));
            xml.writeAttribute(QStringLiteral("type"), QStringLiteral("CLUB"));
            xml.writeAttribute(QStringLiteral("code"), code);
            const QString name = clubs.name_of(code);
            xml.writeAttribute(QStringLiteral("name"), name.isEmpty() ? code : name);
            xml.writeStartElement(QStringLiteral("ATHLETES"));
            for (const auto& [num, list] : c.swims) {
                const Person& p = persons[num];
                xml.writeStartElement(QStringLiteral("ATHLETE"));
                xml.writeAttribute(QStringLiteral("athleteid"), QString::number(num));
                attribute(xml, "license", p.license);
                xml.writeAttribute(QStringLiteral("lastname"), p.lastname);
                xml.writeAttribute(QStringLiteral("firstname"), p.firstname);
                attribute(xml, "gender", p.gender);
                attribute(xml, "birthdate", lenex_date(p.birthdate));
                attribute(xml, "nation", p.nation);
                if (!list.isEmpty()) {
                    xml.writeStartElement(QStringLiteral("RESULTS"));
                    for (const Swim& s : list) {
                        xml.writeStartElement(QStringLiteral("RESULT"));
                        xml.writeAttribute(QStringLiteral("eventid"), QString::number(s.code));
                        xml.writeAttribute(QStringLiteral("swimtime"), format_swimtime(s.time));
                        attribute(xml, "comment", perf_comment(s.marks));
                        xml.writeEndElement();
                    }
                    xml.writeEndElement();
                }
                xml.writeEndElement();
            }
            xml.writeEndElement();  // ATHLETES
            if (!c.relays.isEmpty()) {
                xml.writeStartElement(QStringLiteral("RELAYS"));
                for (const RelaySwim& r : c.relays) {
                    event_style(r.code, style, gender);
                    xml.writeStartElement(QStringLiteral("RELAY"));
                    xml.writeAttribute(QStringLiteral("number"), QString::number(r.number));
                    xml.writeAttribute(QStringLiteral("gender"), QString(gender));
                    xml.writeStartElement(QStringLiteral("RESULTS"));
                    xml.writeStartElement(QStringLiteral("RESULT"));
                    xml.writeAttribute(QStringLiteral("eventid"), QString::number(r.code));
                    xml.writeAttribute(QStringLiteral("swimtime"), format_swimtime(r.time));
                    xml.writeStartElement(QStringLiteral("RELAYPOSITIONS"));
                    for (int i = 0; i < r.legs.size(); ++i) {
                        xml.writeStartElement(QStringLiteral("RELAYPOSITION"));
                        xml.writeAttribute(QStringLiteral("athleteid"), QString::number(r.legs[i]));
                        xml.writeAttribute(QStringLiteral("number"), QString::number(i + 1));
                        xml.writeEndElement();
                    }
                    xml.writeEndElement();  // RELAYPOSITIONS
                    xml.writeEndElement();  // RESULT
                    xml.writeEndElement();  // RESULTS
                    xml.writeEndElement();  // RELAY
                }
                xml.writeEndElement();
            }
            xml.writeEndElement();  // CLUB
        }
        xml.writeEndElement();  // CLUBS
        xml.writeEndElement();  // MEET
    }
    xml.writeEndElement();  // MEETS
    xml.writeEndDocument();
    save_lenex(bytes, path);
    return rows;
}

}  // namespace plouvarine::lenex
