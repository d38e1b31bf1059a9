#include "components/lenex/lenex_reader.h"

#include "components/lenex/lenex_time.h"
#include "src/base/errors.h"
#include "src/base/files.h"
#include "src/base/zip.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>

namespace plouvarine::lenex {

namespace {

class Parser {
public:
    Parser(const QByteArray& xml, const QString& name) : xml_(xml) { doc_.file = name; }

    Document run()
    {
        if (!xml_.readNextStartElement() || xml_.name() != u"LENEX") {
            if (!xml_.hasError())
                fail(QStringLiteral("ce n'est pas un fichier Lenex (élément LENEX attendu)"));
        } else {
            while (xml_.readNextStartElement()) {
                enter();
                if (xml_.name() == u"MEETS")
                    children(u"MEET", [this] { meet(); });
                else
                    xml_.skipCurrentElement();
            }
        }
        if (xml_.hasError())
            fail(xml_.error() == QXmlStreamReader::PrematureEndOfDocumentError
                     ? QStringLiteral("fichier incomplet, fin inattendue")
                     : QStringLiteral("XML mal formé (%1)").arg(xml_.errorString()));
        return std::move(doc_);
    }

private:
    // The attributes of the element just entered (read once: attributes()
    // copies them).
    QString attr(const char* name) const { return attrs_.value(QLatin1String(name)).toString(); }
    int int_attr(const char* name, int fallback = 0) const
    {
        bool ok = false;
        const int v = attrs_.value(QLatin1String(name)).toInt(&ok);
        return ok ? v : fallback;
    }
    void enter()
    {
        element_ = xml_.name().toString();
        attrs_ = xml_.attributes();
    }

    [[noreturn]] void fail(const QString& why)
    {
        const QString element = element_.isEmpty() ? QStringLiteral("LENEX") : element_;
        QString text = why;
        if (text.endsWith(u'.'))
            text.chop(1);
        throw LenexError(QStringLiteral("%1 : ligne %2, élément %3 : %4")
                             .arg(doc_.file)
                             .arg(xml_.lineNumber())
                             .arg(element, text));
    }

    // Calls `f` on each child element named `name`, skipping the others.
    template <typename F> void children(QStringView name, F f)
    {
        while (xml_.readNextStartElement()) {
            enter();
            if (xml_.name() == name)
                f();
            else
                xml_.skipCurrentElement();
        }
    }

    void meet()
    {
        Meet m;
        m.name = attr("name");
        m.city = attr("city");
        m.nation = attr("nation");
        m.course = attr("course");
        while (xml_.readNextStartElement()) {
            enter();
            if (xml_.name() == u"SESSIONS")
                children(u"SESSION", [&] { session(m); });
            else if (xml_.name() == u"CLUBS")
                children(u"CLUB", [&] { m.clubs.append(club()); });
            else
                xml_.skipCurrentElement();
        }
        doc_.meets.append(std::move(m));
    }

    void session(Meet& m)
    {
        const QString date = base_date(attr("date"));
        if (!date.isEmpty()) {
            if (m.first_date.isEmpty() || date < m.first_date)
                m.first_date = date;
            if (date > m.last_date)
                m.last_date = date;
        }
        const QString course = attr("course");
        if (m.course.isEmpty())
            m.course = course;
        while (xml_.readNextStartElement()) {
            enter();
            if (xml_.name() == u"EVENTS")
                children(u"EVENT", [&] { event(m, date); });
            else
                xml_.skipCurrentElement();
        }
    }

    void event(Meet& m, const QString& date)
    {
        Event e;
        e.id = attr("eventid");
        e.number = int_attr("number");
        e.gender = attr("gender");
        e.round = attr("round");
        e.date = date;
        while (xml_.readNextStartElement()) {
            enter();
            if (xml_.name() == u"SWIMSTYLE") {
                e.style.distance = int_attr("distance");
                e.style.relaycount = int_attr("relaycount", 1);
                e.style.stroke = attr("stroke");
                xml_.skipCurrentElement();
            } else if (xml_.name() == u"AGEGROUPS") {
                children(u"AGEGROUP", [&] { agegroup(m, e); });
            } else if (xml_.name() == u"HEATS") {
                children(u"HEAT", [&] {
                    e.heats.insert(attr("heatid"), Heat{int_attr("number"), attr("final")});
                    xml_.skipCurrentElement();
                });
            } else {
                xml_.skipCurrentElement();
            }
        }
        m.event_index.insert(e.id, int(m.events.size()));
        m.events.append(std::move(e));
    }

    void agegroup(Meet& m, Event& e)
    {
        AgeGroup g{attr("agegroupid"), attr("name"), int_attr("agemin", -1), int_attr("agemax", -1)};
        const bool open = g.agemin < 0 && g.agemax < 0;
        while (xml_.readNextStartElement()) {
            enter();
            if (xml_.name() == u"RANKINGS") {
                children(u"RANKING", [&] {
                    // A swim ranked in an open group and in an age group goes
                    // to the age group.
                    const QString id = attr("resultid");
                    if (!open || !m.result_agegroup.contains(id))
                        m.result_agegroup.insert(id, g.id);
                    xml_.skipCurrentElement();
                });
            } else {
                xml_.skipCurrentElement();
            }
        }
        e.agegroups.append(std::move(g));
    }

    Club club()
    {
        Club c;
        c.code = attr("code");
        c.name = attr("name");
        c.nation = attr("nation");
        while (xml_.readNextStartElement()) {
            enter();
            if (xml_.name() == u"ATHLETES")
                children(u"ATHLETE", [&] { c.athletes.append(athlete()); });
            else if (xml_.name() == u"RELAYS")
                children(u"RELAY", [&] { c.relays.append(relay()); });
            else
                xml_.skipCurrentElement();
        }
        return c;
    }

    Athlete athlete()
    {
        Athlete a;
        a.id = attr("athleteid");
        a.license = attr("license").trimmed();
        a.firstname = attr("firstname").trimmed();
        a.lastname = attr("lastname").trimmed();
        a.gender = attr("gender");
        a.nation = attr("nation");
        a.birthdate = base_date(attr("birthdate"));
        while (xml_.readNextStartElement()) {
            enter();
            if (xml_.name() == u"RESULTS")
                children(u"RESULT", [&] { a.results.append(result()); });
            else
                xml_.skipCurrentElement();
        }
        return a;
    }

    Relay relay()
    {
        Relay r;
        r.number = int_attr("number");
        r.gender = attr("gender");
        while (xml_.readNextStartElement()) {
            enter();
            if (xml_.name() == u"RESULTS")
                children(u"RESULT", [&] { r.results.append(result()); });
            else
                xml_.skipCurrentElement();
        }
        return r;
    }

    Result result()
    {
        Result r;
        r.line = int(xml_.lineNumber());
        r.resultid = attr("resultid");
        r.eventid = attr("eventid");
        r.heatid = attr("heatid");
        r.swimtime = attr("swimtime");
        r.status = attr("status");
        r.comment = attr("comment");
        r.points = int_attr("points");
        r.lane = int_attr("lane");
        parse_swimtime(r.swimtime, r.time);
        while (xml_.readNextStartElement()) {
            enter();
            if (xml_.name() == u"SPLITS") {
                children(u"SPLIT", [&] {
                    Split s{int_attr("distance"), 0};
                    if (parse_swimtime(attr("swimtime"), s.time))
                        r.splits.append(s);
                    xml_.skipCurrentElement();
                });
            } else if (xml_.name() == u"RELAYPOSITIONS") {
                children(u"RELAYPOSITION", [&] {
                    r.positions.append({attr("athleteid"), int_attr("number"), attr("status")});
                    xml_.skipCurrentElement();
                });
            } else {
                xml_.skipCurrentElement();
            }
        }
        element_ = QStringLiteral("RESULT");
        return r;
    }

    QXmlStreamReader xml_;
    Document doc_;
    QString element_;
    QXmlStreamAttributes attrs_;
};

bool has_suffix(const QString& path, const char* suffix)
{
    return path.endsWith(QLatin1String(suffix), Qt::CaseInsensitive);
}

QStringList unpack(const QString& archive, const QString& work_dir)
{
    QDir().mkpath(work_dir);
    const QString folder = unique_folder(QStringLiteral("lxf"), work_dir);
    const QString name = QFileInfo(archive).fileName();
    try {
        unzip_archive(archive, folder);
    } catch (const Error& e) {
        throw LenexError(QStringLiteral("%1 : le fichier compressé ne peut être ouvert (%2)").arg(name, e.description()));
    }
    QStringList found;
    QDirIterator it(folder, {QStringLiteral("*.lef")}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        found.append(it.next());
    if (found.isEmpty())
        throw LenexError(QStringLiteral("%1 : le fichier compressé ne contient aucun fichier .lef").arg(name));
    found.sort();
    return found;
}

}  // namespace

Document parse_lenex(const QByteArray& xml, const QString& name)
{
    return Parser(xml, name).run();
}

QStringList source_files(const QString& source)
{
    if (!QFileInfo(source).isDir())
        return {source};
    // Below the folder too: a zip the runner unpacked keeps its folders.
    QStringList files;
    QDirIterator it(source, {QStringLiteral("*.lef"), QStringLiteral("*.lxf"), QStringLiteral("*.zip")}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext())
        files.append(it.next());
    files.sort();
    return files;
}

QStringList lef_files(const QString& file, const QString& work_dir)
{
    if (!QFileInfo(file).isFile())
        throw LenexError(QStringLiteral("%1 : fichier introuvable").arg(file));
    if (has_suffix(file, ".lxf") || has_suffix(file, ".zip"))
        return unpack(file, work_dir);
    return {file};
}

QStringList unknown_events(const Meet& meet)
{
    QStringList lines;
    for (const Event& e : meet.events) {
        if (event_code(e.style, u'F') < 0 && event_code(e.style, u'M') < 0 && event_code(e.style, u'X') < 0)
            lines.append(QStringLiteral("Épreuve n° %1 inconnue (%2 m %3, %4 nageur(s)) : ses résultats sont ignorés.")
                             .arg(e.number)
                             .arg(e.style.distance)
                             .arg(e.style.stroke)
                             .arg(e.style.relaycount));
    }
    return lines;
}

Document read_lef(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        throw LenexError(QStringLiteral("%1 : lecture impossible (%2)").arg(QFileInfo(path).fileName(), f.errorString()));
    return parse_lenex(f.readAll(), QFileInfo(path).fileName());
}

}  // namespace plouvarine::lenex
