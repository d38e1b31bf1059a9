#include "components/lenex_support.h"

#include "src/base/zip.h"
#include "src/frame/components.h"
#include "support/app_fixture.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QPluginLoader>
#include <QXmlStreamReader>

namespace plouvarine::testing {

QString lenex_file(const QString& name)
{
    return QDir(QStringLiteral(PLOUVARINE_LENEX_DIR)).filePath(name);
}

ExchangeComponent* load_component(const QString& name)
{
    const QString file =
        QFileInfo(model_file()).dir().filePath(component_file(name + QStringLiteral(".dll")));
    QPluginLoader loader(file);
    auto* component = qobject_cast<ExchangeComponent*>(loader.instance());
    EXPECT_NE(component, nullptr) << loader.errorString().toStdString();
    return component;
}

QByteArray small_lenex(const QString& date, const QString& swimtime, const QString& course, const QString& stroke)
{
    return QStringLiteral(
               "<?xml version=\"1.0\" encoding=\"UTF-8\"?><LENEX version=\"3.0\"><MEETS><MEET name=\"M\" "
               "city=\"Quimper\" course=\"%1\"><SESSIONS><SESSION number=\"1\" date=\"%2\"><EVENTS><EVENT "
               "eventid=\"1\" number=\"1\" gender=\"F\" round=\"TIM\"><SWIMSTYLE distance=\"100\" relaycount=\"1\" "
               "stroke=\"%3\"/></EVENT></EVENTS></SESSION></SESSIONS><CLUBS><CLUB code=\"0929001\" name=\"Brest\">"
               "<ATHLETES><ATHLETE athleteid=\"1\" lastname=\"Le Goff\" firstname=\"Anne\" gender=\"F\" "
               "birthdate=\"2010-05-04\" license=\"123456A\"><RESULTS><RESULT resultid=\"1\" eventid=\"1\" "
               "swimtime=\"%4\" lane=\"3\"/></RESULTS></ATHLETE></ATHLETES></CLUB></CLUBS></MEET></MEETS></LENEX>")
        .arg(course, date, stroke, swimtime)
        .toUtf8();
}

QByteArray lenex_bytes(const QString& path)
{
    QString lef = path;
    QTemporaryDir unpacked;
    if (path.endsWith(QLatin1String(".lxf"))) {
        unzip_archive(path, unpacked.path());
        QDirIterator it(unpacked.path(), {QStringLiteral("*.lef")}, QDir::Files, QDirIterator::Subdirectories);
        lef = it.next();
    }
    QFile f(lef);
    EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << lef.toStdString();
    return f.readAll();
}

LenexCounts count_lenex(const QString& path, const std::function<bool(int, int)>& split_fits)
{
    const QByteArray bytes = lenex_bytes(path);
    // A meet's events, with their whole distance, come before its results.
    QMap<QString, int> distance, leg;
    QSet<QString> unknown;
    QString event;
    LenexCounts n;
    QXmlStreamReader xml(bytes);
    QStringList stack;
    bool counted = false, timed_relay = false, leg_split = false, first = false;
    int total = 0, leg_distance = 0;
    while (!xml.atEnd()) {
        const auto token = xml.readNext();
        if (token == QXmlStreamReader::EndElement) {
            if (xml.name() == u"RESULT" && timed_relay && first) {
                ++n.timed_relays;
                n.first_legs += leg_split;
            }
            if (xml.name() == u"RESULT")
                timed_relay = false;
            stack.removeLast();
            continue;
        }
        if (token != QXmlStreamReader::StartElement)
            continue;
        const QString name = xml.name().toString();
        const auto a = xml.attributes();
        if (name == QLatin1String("EVENT"))
            event = a.value(QLatin1String("eventid")).toString();
        if (name == QLatin1String("SWIMSTYLE")) {
            leg[event] = a.value(QLatin1String("distance")).toInt();
            distance[event] = leg[event] * std::max(1, a.value(QLatin1String("relaycount")).toInt());
            if (a.value(QLatin1String("stroke")) == u"UNKNOWN")
                unknown.insert(event);
        }
        if (name == QLatin1String("RESULT") && stack.size() >= 2) {
            const QString owner = stack[stack.size() - 2];
            const QString eventid = a.value(QLatin1String("eventid")).toString();
            counted = (owner == QLatin1String("ATHLETE") || owner == QLatin1String("RELAY")) && !unknown.contains(eventid);
            total = distance.value(eventid);
            if (counted) {
                const QString status = a.value(QLatin1String("status")).toString();
                ++(owner == QLatin1String("ATHLETE") ? n.swims : n.relays);
                if (!status.isEmpty() && status != QLatin1String("EXH")) {
                    ++n.statuses;
                    ++n.by_status[status];
                }
                const QString t = a.value(QLatin1String("swimtime")).toString();
                const bool timed = (status.isEmpty() || status == QLatin1String("EXH")) && t.size() == 11
                                   && t != QLatin1String("00:00:00.00");
                if (owner == QLatin1String("ATHLETE"))
                    n.timed_swims += timed;
                timed_relay = owner == QLatin1String("RELAY") && timed;
                leg_split = first = false;
                leg_distance = leg.value(eventid);
            }
        }
        if (name == QLatin1String("SPLIT") && counted && split_fits(total, a.value(QLatin1String("distance")).toInt()))
            ++n.splits;
        if (name == QLatin1String("SPLIT") && a.value(QLatin1String("distance")).toInt() == leg_distance)
            leg_split = true;
        if (name == QLatin1String("RELAYPOSITION") && a.value(QLatin1String("number")) == u"1")
            first = true;
        stack.append(name);
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return n;
}

void LenexBase::SetUp()
{
    ASSERT_TRUE(dir_.isValid());
    base_ = copy_model(QStringLiteral("club.mdb"));
    db.open(base_);
}

QString LenexBase::copy_model(const QString& name)
{
    const QString copy = dir_.filePath(name);
    EXPECT_TRUE(QFile::copy(model_file(), copy));
    QFile::setPermissions(copy, QFile::permissions(copy) | QFileDevice::WriteOwner);
    return copy;
}

bool LenexBase::run(const QString& component, const QString& method, ExchangeCall call)
{
    ExchangeComponent* c = load_component(component);
    if (!c)
        return false;
    const bool own = call.base.isEmpty();
    if (own)
        call.base = base_;
    const QString trace_file = dir_.filePath(QStringLiteral("trace.txt"));
    QFile::remove(trace_file);
    call.trace_file = trace_file;
    if (call.tmp_dir.isEmpty()) {
        call.tmp_dir = dir_.filePath(QStringLiteral("tmpexpimp"));
        QDir(call.tmp_dir).removeRecursively();
        QDir().mkpath(call.tmp_dir);
    }
    if (own)
        db.close();
    const bool result = c->run(method, call, progress);
    if (own)
        db.open(base_);
    QFile f(trace_file);
    trace_ = f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
    return result;
}

int LenexBase::add_competition(int length)
{
    db.exec_sql(QStringLiteral("INSERT INTO Rcomp (Num, Type, Nom, Debut, Fin, Lieu, Longueur, Visible) "
                               "VALUES ('1', 'C', 'Essai', '20250301', '20250302', 'Brest', %1, true)")
                    .arg(length));
    return db.count_query(QStringLiteral("SELECT max(AutoNum) FROM Rcomp"));
}

}  // namespace plouvarine::testing
