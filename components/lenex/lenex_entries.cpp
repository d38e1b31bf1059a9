#include "components/lenex/lenex_entries.h"

#include "components/exchange/trace.h"
#include "components/lenex/lenex_base.h"
#include "components/lenex/lenex_events.h"
#include "components/lenex/lenex_reader.h"
#include "components/lenex/lenex_time.h"
#include "components/lenex/lenex_writer.h"
#include "src/frame/exchange_component.h"

#include <QDate>
#include <QMap>
#include <QVector>
#include <map>

namespace plouvarine::lenex {

namespace {

struct Swimmer {
    QString license, lastname, firstname, gender, birthdate, nation;
};

struct Entry {
    int code = 0;
    double time = 0;
    QString date, place;
    int pool = 0;
};

struct RelayEntry {
    int code = 0, number = 0;
    double time = 0;
    QVector<int> legs;  // licence numbers in order, the licence nulle left out
};

// The licences this file needs, read once each.
class SwimmerBook {
public:
    explicit SwimmerBook(Database& db)
        : read_(db, QStringLiteral("SELECT Licence, Nom, Prenom, Sexe, Date_Naissance, Nationalite FROM Licence "
                                   "WHERE Num = ?"))
    {
    }
    const Swimmer* get(int num)
    {
        auto it = known_.find(num);
        if (it == known_.end()) {
            read_.query({num});
            if (!read_.next())
                return nullptr;
            it = known_.emplace(num, Swimmer{read_.text(0), read_.text(1), read_.text(2), read_.text(3), read_.text(4),
                                             read_.text(5)})
                     .first;
        }
        return &it->second;
    }

private:
    Statement read_;
    std::map<int, Swimmer> known_;
};

void attribute(QXmlStreamWriter& xml, const char* name, const QString& value)
{
    if (!value.isEmpty())
        xml.writeAttribute(QLatin1String(name), value);
}

void write_event(QXmlStreamWriter& xml, int code, int number)
{
    SwimStyle style;
    QChar gender;
    event_style(code, style, gender);
    xml.writeStartElement(QStringLiteral("EVENT"));
    xml.writeAttribute(QStringLiteral("eventid"), QString::number(code));
    xml.writeAttribute(QStringLiteral("number"), QString::number(number));
    xml.writeAttribute(QStringLiteral("gender"), QString(gender));
    xml.writeAttribute(QStringLiteral("round"), QStringLiteral("TIM"));
    xml.writeStartElement(QStringLiteral("SWIMSTYLE"));
    xml.writeAttribute(QStringLiteral("distance"), QString::number(style.distance));
    xml.writeAttribute(QStringLiteral("relaycount"), QString::number(style.relaycount));
    xml.writeAttribute(QStringLiteral("stroke"), style.stroke);
    xml.writeEndElement();
    xml.writeEndElement();
}

}  // namespace

EntryCounts export_entries(Database& db, int num_compet, int profile_num, const QString& path,
                           exchange::Trace& trace, OperationProgress& progress)
{
    Statement comp(db, QStringLiteral("SELECT Nom, Lieu, Debut, Longueur FROM Rcomp WHERE AutoNum = ?"));
    comp.query({num_compet});
    if (!comp.next())
        throw LenexError(QStringLiteral("la compétition n° %1 n'existe pas dans la base").arg(num_compet));
    const QString name = comp.text(0), city = comp.text(1), first_day = comp.text(2);
    const int pool = comp.integer(3);
    Statement profile(db, QStringLiteral("SELECT p.Code_club, c.Intitule FROM Profil p LEFT JOIN Club c "
                                         "ON c.Code_federal = p.Code_club WHERE p.Num = ?"));
    profile.query({profile_num});
    if (!profile.next())
        throw LenexError(QStringLiteral("le profil n° %1 n'existe pas dans la base").arg(profile_num));
    const QString club_code = profile.text(0), club_name = profile.text(1);

    // The programme, day by day; an event entered but missing from the
    // programme goes to the last day, so that no entry is lost.
    QMap<int, QVector<int>> days;
    QSet<int> programme;
    Statement prog(db, QStringLiteral("SELECT Code_epreuve, JourCourse FROM Pcomp WHERE Num_compet = ? "
                                      "ORDER BY JourCourse, Num_ordre, Code_epreuve"));
    prog.query({num_compet});
    while (prog.next()) {
        SwimStyle style;
        QChar gender;
        if (!event_style(prog.integer(0), style, gender)) {
            trace.line(QStringLiteral("Épreuve %1 du programme sans équivalent Lenex : non écrite.").arg(prog.integer(0)));
            continue;
        }
        days[std::max(prog.integer(1), 1)].append(prog.integer(0));
        programme.insert(prog.integer(0));
    }

    SwimmerBook book(db);
    std::map<int, QVector<Entry>> entries;  // by licence, in the file's order of athletes
    Statement engag(db, QStringLiteral("SELECT Num_Lic, Code_epreuve, Tps_engagement, Date_perf, Lieu_perf, Bassin "
                                       "FROM Engag WHERE Num_compet = ? AND Num_profil = ? ORDER BY Num_Lic, Code_epreuve"));
    engag.query({num_compet, profile_num});
    EntryCounts n;
    QSet<int> missing;
    auto check_event = [&](int code) {
        SwimStyle style;
        QChar gender;
        if (!event_style(code, style, gender))
            return false;
        if (!programme.contains(code)) {
            days[days.isEmpty() ? 1 : days.lastKey()].append(code);
            programme.insert(code);
            missing.insert(code);
        }
        return true;
    };
    while (engag.next()) {
        const int code = engag.integer(1);
        if (!check_event(code)) {
            trace.line(QStringLiteral("Engagement sur l'épreuve %1 sans équivalent Lenex : non écrit.").arg(code));
            continue;
        }
        entries[engag.integer(0)].append({code, engag.real(2), engag.text(3), engag.text(4), engag.integer(5)});
    }
    QVector<RelayEntry> relays;
    Statement relais(db, QStringLiteral("SELECT Code_epreuve, Num_Lic, Tps, Licence1, Licence2, Licence3, Licence4, "
                                        "Licence5, Licence6, Licence7, Licence8, Licence9, Licence10 FROM Relais "
                                        "WHERE Num_compet = ? AND Num_profil = ? ORDER BY Code_epreuve, Num_Lic"));
    relais.query({num_compet, profile_num});
    while (relais.next()) {
        RelayEntry r{relais.integer(0), relais.integer(1), relais.real(2), {}};
        if (!check_event(r.code)) {
            trace.line(QStringLiteral("Relais sur l'épreuve %1 sans équivalent Lenex : non écrit.").arg(r.code));
            continue;
        }
        for (int i = 3; i < 13; ++i) {
            const int num = relais.integer(i);
            const Swimmer* s = num ? book.get(num) : nullptr;
            if (s && s->lastname != QLatin1String("Null")) {
                r.legs.append(num);
                entries.try_emplace(num);  // the relay swimmer is an athlete of the club
            }
        }
        relays.append(r);
    }
    for (int code : missing)
        trace.line(QStringLiteral("Épreuve %1 absente du programme : ajoutée au dernier jour.").arg(code));

    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    begin_document(xml);
    xml.writeStartElement(QStringLiteral("MEETS"));
    xml.writeStartElement(QStringLiteral("MEET"));
    xml.writeAttribute(QStringLiteral("name"), name);
    attribute(xml, "city", city);
    xml.writeAttribute(QStringLiteral("nation"), QStringLiteral("FRA"));
    xml.writeAttribute(QStringLiteral("course"), course_name(pool));
    xml.writeStartElement(QStringLiteral("SESSIONS"));
    const QDate start = QDate::fromString(first_day, QStringLiteral("yyyyMMdd"));
    int event_number = 0;
    for (auto it = days.cbegin(); it != days.cend(); ++it) {
        xml.writeStartElement(QStringLiteral("SESSION"));
        xml.writeAttribute(QStringLiteral("number"), QString::number(it.key()));
        if (start.isValid())
            xml.writeAttribute(QStringLiteral("date"), start.addDays(it.key() - 1).toString(Qt::ISODate));
        xml.writeStartElement(QStringLiteral("EVENTS"));
        for (int code : it.value())
            write_event(xml, code, ++event_number);
        xml.writeEndElement();
        xml.writeEndElement();
    }
    xml.writeEndElement();  // SESSIONS
    xml.writeStartElement(QStringLiteral("CLUBS"));
    xml.writeStartElement(QStringLiteral("CLUB"));
    xml.writeAttribute(QStringLiteral("type"), QStringLiteral("CLUB"));
    xml.writeAttribute(QStringLiteral("code"), club_code);
    xml.writeAttribute(QStringLiteral("name"), club_name.isEmpty() ? club_code : club_name);
    xml.writeAttribute(QStringLiteral("nation"), QStringLiteral("FRA"));
    progress.set_club(club_name);
    xml.writeStartElement(QStringLiteral("ATHLETES"));
    int done = 0;
    for (const auto& [num, list] : entries) {
        progress.set_progress(done++, int(entries.size()));
        const Swimmer* s = book.get(num);
        if (!s) {
            trace.line(QStringLiteral("Licence n° %1 absente de la base : ses engagements ne sont pas écrits.").arg(num));
            continue;
        }
        ++n.athletes;
        xml.writeStartElement(QStringLiteral("ATHLETE"));
        xml.writeAttribute(QStringLiteral("athleteid"), QString::number(num));
        attribute(xml, "license", s->license);
        xml.writeAttribute(QStringLiteral("lastname"), s->lastname);
        xml.writeAttribute(QStringLiteral("firstname"), s->firstname);
        attribute(xml, "gender", s->gender);
        attribute(xml, "birthdate", lenex_date(s->birthdate));
        attribute(xml, "nation", s->nation);
        if (!list.isEmpty()) {
            xml.writeStartElement(QStringLiteral("ENTRIES"));
            for (const Entry& e : list) {
                xml.writeStartElement(QStringLiteral("ENTRY"));
                xml.writeAttribute(QStringLiteral("eventid"), QString::number(e.code));
                xml.writeAttribute(QStringLiteral("entrytime"), format_swimtime(e.time));
                if (e.time > 0 && (e.pool == 25 || e.pool == 50))
                    xml.writeAttribute(QStringLiteral("entrycourse"), course_name(e.pool));
                if (e.time > 0 && !e.date.isEmpty()) {
                    xml.writeStartElement(QStringLiteral("MEETINFO"));
                    attribute(xml, "date", lenex_date(e.date));
                    attribute(xml, "city", e.place);
                    xml.writeEndElement();
                }
                xml.writeEndElement();
                ++n.entries;
            }
            xml.writeEndElement();
        }
        xml.writeEndElement();
    }
    xml.writeEndElement();  // ATHLETES
    if (!relays.isEmpty()) {
        xml.writeStartElement(QStringLiteral("RELAYS"));
        for (const RelayEntry& r : relays) {
            SwimStyle style;
            QChar gender;
            event_style(r.code, style, gender);
            xml.writeStartElement(QStringLiteral("RELAY"));
            xml.writeAttribute(QStringLiteral("number"), QString::number(r.number));
            xml.writeAttribute(QStringLiteral("gender"), QString(gender));
            xml.writeStartElement(QStringLiteral("ENTRIES"));
            xml.writeStartElement(QStringLiteral("ENTRY"));
            xml.writeAttribute(QStringLiteral("eventid"), QString::number(r.code));
            xml.writeAttribute(QStringLiteral("entrytime"), format_swimtime(r.time));
            if (!r.legs.isEmpty()) {
                xml.writeStartElement(QStringLiteral("RELAYPOSITIONS"));
                for (int i = 0; i < r.legs.size(); ++i) {
                    xml.writeStartElement(QStringLiteral("RELAYPOSITION"));
                    xml.writeAttribute(QStringLiteral("athleteid"), QString::number(r.legs[i]));
                    xml.writeAttribute(QStringLiteral("number"), QString::number(i + 1));
                    xml.writeEndElement();
                }
                xml.writeEndElement();
            }
            xml.writeEndElement();  // ENTRY
            xml.writeEndElement();  // ENTRIES
            xml.writeEndElement();  // RELAY
            ++n.relays;
        }
        xml.writeEndElement();
    }
    xml.writeEndElement();  // CLUB
    xml.writeEndElement();  // CLUBS
    xml.writeEndElement();  // MEET
    xml.writeEndElement();  // MEETS
    xml.writeEndDocument();
    save_lenex(bytes, path);
    return n;
}

}  // namespace plouvarine::lenex
