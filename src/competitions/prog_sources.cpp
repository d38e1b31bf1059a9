#include "src/competitions/prog_sources.h"

#include "src/base/files.h"
#include "src/base/utils_date.h"
#include "src/base/zip.h"
#include "src/base/errors.h"
#include "src/competitions/lenex_styles.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QStringDecoder>
#include <QXmlStreamReader>

namespace plouvarine {

namespace {

// The days a programme may span: more is a date typed wrong.
constexpr int kMaxJours = 99;

bool all_digits(const QString& text)
{
    if (text.isEmpty())
        return false;
    for (QChar c : text)
        if (!c.isDigit() || c.unicode() > 127)
            return false;
    return true;
}

// A number field of a line: blank is 0, anything but digits an error.
qint16 number_field(const QString& line, int pos, int length, int line_no, const QString& what)
{
    const QString text = line.mid(pos, length).trimmed();
    if (text.isEmpty())
        return 0;
    if (!all_digits(text))
        throw SourceError(QStringLiteral("Ligne %1 du fichier Pcomp.txt : %2 n'est pas un nombre (\"%3\").")
                              .arg(line_no)
                              .arg(what, text));
    return qint16(text.toInt());
}

int day_from(const QString& first, const QString& date)
{
    return EcartJours(DateLongue(first), DateLongue(date)) + 1;
}

}  // namespace

QStringList lire_lignes(const QByteArray& bytes)
{
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8.decode(bytes);
    if (utf8.hasError())
        text = QString::fromLatin1(bytes);
    if (text.startsWith(QChar(0xFEFF)))
        text.remove(0, 1);
    text.remove(QLatin1Char('\r'));
    return text.split(QLatin1Char('\n'));
}

bool est_fichier_pcomp(const QString& path)
{
    return QFileInfo(path).fileName().toLower() == QLatin1String("pcomp.txt");
}

std::vector<PcompLine> lire_pcomp(const QStringList& lines)
{
    std::vector<PcompLine> out;
    for (int i = 0; i < lines.size(); ++i) {
        const QString& line = lines[i];
        const int no = i + 1;
        if (line.trimmed().isEmpty())
            continue;
        if (line.size() < 5)
            throw SourceError(QStringLiteral("Ligne %1 du fichier Pcomp.txt : ligne trop courte pour un code nage.")
                                  .arg(no));
        const QString code = line.mid(3, 2).trimmed();
        if (!all_digits(code))
            throw SourceError(QStringLiteral("Ligne %1 du fichier Pcomp.txt : le code nage \"%2\" n'est pas un nombre.")
                                  .arg(no)
                                  .arg(line.mid(3, 2)));
        PcompLine p;
        p.code = code.toInt();
        const QString date = line.mid(5, 8).trimmed();
        if (!date.isEmpty()) {
            p.date = all_digits(date) ? DateVersBase(date) : QString();
            if (p.date.isEmpty())
                throw SourceError(
                    QStringLiteral("Ligne %1 du fichier Pcomp.txt : la date \"%2\" n'est pas une date.").arg(no).arg(date));
        }
        p.slot.Type = number_field(line, 14, 1, no, QStringLiteral("le type de classement"));
        p.slot.Nb_finales = number_field(line, 15, 1, no, QStringLiteral("le nombre de finales"));
        const QString kind = line.mid(16, 1);
        p.slot.Type_finale = kind == QLatin1String("T") || kind == QLatin1String("C") ? kind : QStringLiteral(" ");
        p.slot.Num_ordre = number_field(line, 17, 2, no, QStringLiteral("le numéro d'ordre"));
        out.push_back(p);
    }
    return out;
}

PcompDays jours_pcomp(const std::vector<PcompLine>& lines)
{
    QString low = QStringLiteral("99999999");
    QString high = QStringLiteral("00000000");
    for (const PcompLine& l : lines) {
        if (l.date.isEmpty())
            continue;
        low = qMin(low, l.date);
        high = qMax(high, l.date);
    }
    PcompDays days;
    const bool dated = high != QLatin1String("00000000");
    if (dated) {
        days.count = day_from(low, high);
        if (days.count > kMaxJours)
            throw SourceError(QStringLiteral("Les dates du fichier Pcomp.txt s'étendent sur plus de %1 jours.")
                                  .arg(kMaxJours));
    }
    for (const PcompLine& l : lines)
        days.day.push_back(dated && !l.date.isEmpty() ? day_from(low, l.date) : 1);
    return days;
}

QString message_codes_inconnus(const std::vector<PcompLine>& unknown, const std::vector<int>& days,
                               const QStringList* nage_lines)
{
    QString text = QStringLiteral("Des codes nages sont inconnus dans le fichier pcomp.txt : \n");
    if (!nage_lines) {
        QStringList codes;
        for (const PcompLine& l : unknown)
            codes << QString::number(l.code);
        return text + codes.join(QLatin1Char('\n')) +
               QStringLiteral("\nFichier nage.txt non présent, impossible de trouver des informations sur ces codes.");
    }
    QMap<int, QString> labels;
    for (const QString& line : *nage_lines) {
        const QString code = line.left(2).trimmed();
        if (all_digits(code))
            labels.insert(code.toInt(), line.mid(2).trimmed());
    }
    QStringList out;
    for (size_t i = 0; i < unknown.size(); ++i)
        out << QString::number(unknown[i].code).leftJustified(2) + labels.value(unknown[i].code).leftJustified(20) +
                   QStringLiteral(", journée ") + QString::number(days[i]) + QStringLiteral(", ordre ") +
                   QString::number(unknown[i].slot.Num_ordre);
    return text + out.join(QLatin1Char('\n'));
}

// ---------------------------------------------------------------- Lenex

namespace {

struct LenexEvent {
    int number = 0;
    QString gender, round, date;
    lenex::SwimStyle style;
};

class ProgReader {
public:
    ProgReader(const QByteArray& xml, const QString& name) : xml_(xml), name_(name) {}

    LenexProgramme run()
    {
        if (!xml_.readNextStartElement() || xml_.name() != u"LENEX") {
            check();
            throw SourceError(QStringLiteral("Le fichier %1 n'est pas un fichier Lenex.").arg(name_));
        }
        bool met = false;
        while (xml_.readNextStartElement()) {
            if (xml_.name() == u"MEETS" && !met) {
                while (xml_.readNextStartElement()) {
                    if (xml_.name() == u"MEET" && !met) {
                        meet();
                        met = true;
                    } else {
                        xml_.skipCurrentElement();
                    }
                }
            } else {
                xml_.skipCurrentElement();
            }
        }
        check();
        if (!met)
            throw SourceError(QStringLiteral("Le fichier %1 ne décrit aucune compétition.").arg(name_));
        return build();
    }

private:
    void check()
    {
        if (!xml_.hasError())
            return;
        if (xml_.error() == QXmlStreamReader::PrematureEndOfDocumentError)
            throw SourceError(QStringLiteral("Le fichier %1 est incomplet (fin inattendue à la ligne %2).")
                                  .arg(name_)
                                  .arg(xml_.lineNumber()));
        throw SourceError(QStringLiteral("Le fichier %1 n'est pas un fichier Lenex lisible (ligne %2 : %3).")
                              .arg(name_)
                              .arg(xml_.lineNumber())
                              .arg(xml_.errorString()));
    }
    QString attr(const char* name) const { return xml_.attributes().value(QLatin1String(name)).toString(); }
    // A number as the file writes it; one that is no number or too large: 0.
    int number(const char* name) const
    {
        bool ok = false;
        const int v = xml_.attributes().value(QLatin1String(name)).toInt(&ok);
        return ok && v >= 0 ? v : 0;
    }

    void meet()
    {
        prog_.nom = attr("name").trimmed();
        prog_.ville = attr("city").trimmed();
        course_ = attr("course");
        while (xml_.readNextStartElement()) {
            if (xml_.name() == u"POOL") {
                prog_.couloirs = number("lanemax");
                xml_.skipCurrentElement();
            } else if (xml_.name() == u"SESSIONS") {
                while (xml_.readNextStartElement())
                    xml_.name() == u"SESSION" ? session() : xml_.skipCurrentElement();
            } else {
                xml_.skipCurrentElement();
            }
        }
    }

    void session()
    {
        QString date = attr("date");
        date.remove(QLatin1Char('-'));
        if (date.size() != 8 || !all_digits(date) || DateLongue(date).isEmpty() ||
            !QDate::fromString(date, QStringLiteral("yyyyMMdd")).isValid())
            date.clear();
        if (course_.isEmpty())
            course_ = attr("course");
        while (xml_.readNextStartElement()) {
            if (xml_.name() == u"EVENTS") {
                while (xml_.readNextStartElement())
                    xml_.name() == u"EVENT" ? event(date) : xml_.skipCurrentElement();
            } else {
                xml_.skipCurrentElement();
            }
        }
    }

    void event(const QString& date)
    {
        LenexEvent e;
        e.number = number("number");
        e.gender = attr("gender");
        e.round = attr("round");
        e.date = date;
        while (xml_.readNextStartElement()) {
            if (xml_.name() == u"SWIMSTYLE") {
                e.style.distance = number("distance");
                e.style.relaycount = qMax(1, number("relaycount"));
                e.style.stroke = attr("stroke");
            }
            xml_.skipCurrentElement();
        }
        events_.push_back(e);
    }

    static QString describe(const LenexEvent& e)
    {
        const lenex::SwimStyle& s = e.style;
        const QString distance = s.relaycount > 1 ? QStringLiteral("%1x%2 m").arg(s.relaycount).arg(s.distance)
                                                  : QStringLiteral("%1 m").arg(s.distance);
        return QStringLiteral("Epreuve %1 : %2 %3, sexe %4")
            .arg(e.number)
            .arg(distance, s.stroke.isEmpty() ? QStringLiteral("?") : s.stroke,
                 e.gender.isEmpty() ? QStringLiteral("?") : e.gender);
    }

    // The codes of an event: an event open to both sexes is swum by each.
    static std::vector<int> codes_of(const LenexEvent& e)
    {
        std::vector<int> codes;
        const QString g = e.gender;
        if (g == QLatin1String("F") || g == QLatin1String("M") || g == QLatin1String("X")) {
            codes.push_back(lenex::event_code(e.style, g.front()));
        } else if (g.isEmpty() || g == QLatin1String("A")) {
            codes.push_back(lenex::event_code(e.style, u'F'));
            codes.push_back(lenex::event_code(e.style, u'M'));
        } else {
            codes.push_back(-1);
        }
        return codes;
    }

    static int type_of(const QStringList& rounds)
    {
        if (rounds.contains(QLatin1String("QUA")))
            return 4;
        if (rounds.contains(QLatin1String("SEM")))
            return 2;
        if (rounds.contains(QLatin1String("FIN")) && rounds.contains(QLatin1String("PRE")))
            return 3;
        return 1;
    }

    LenexProgramme build()
    {
        prog_.longueur = lenex::course_length(course_);
        for (const LenexEvent& e : events_) {
            if (e.date.isEmpty())
                continue;
            if (prog_.debut.isEmpty() || e.date < prog_.debut)
                prog_.debut = e.date;
            prog_.fin = qMax(prog_.fin, e.date);
        }
        if (!prog_.debut.isEmpty()) {
            prog_.jours = day_from(prog_.debut, prog_.fin);
            if (prog_.jours > kMaxJours)
                throw SourceError(QStringLiteral("Les sessions du fichier %1 s'étendent sur plus de %2 jours.")
                                      .arg(name_)
                                      .arg(kMaxJours));
        }
        // Each code once: its first swim gives the day and the order, all its
        // rounds the kind of classification.
        QMap<int, LenexProgramme::Item> items;
        QMap<int, QStringList> rounds;
        for (const LenexEvent& e : events_) {
            bool known = false;
            for (int code : codes_of(e)) {
                if (code < 0 || code >= kEventSlots)
                    continue;
                known = true;
                rounds[code] << e.round;
                const int day = e.date.isEmpty() ? 1 : day_from(prog_.debut, e.date);
                auto it = items.find(code);
                if (it != items.end() && it->slot.JourCourse <= day)
                    continue;
                LenexProgramme::Item item;
                item.code = code;
                item.slot.JourCourse = qint16(day);
                item.slot.Num_ordre = qint16(e.number <= 999 ? e.number : 0);
                items.insert(code, item);
            }
            if (!known)
                prog_.sans_code << describe(e);
        }
        for (auto it = items.begin(); it != items.end(); ++it) {
            ProgSlot& s = it->slot;
            s.Type = qint16(type_of(rounds.value(it.key())));
            s.Nb_finales = s.Type == 1 ? 0 : 1;
            s.Type_finale = s.Type == 1 ? QStringLiteral(" ") : QStringLiteral("T");
            prog_.items.push_back(*it);
        }
        return prog_;
    }

    QXmlStreamReader xml_;
    QString name_;
    QString course_;
    LenexProgramme prog_;
    std::vector<LenexEvent> events_;
};

bool zipped(const QString& path)
{
    return path.endsWith(QLatin1String(".lxf"), Qt::CaseInsensitive) ||
           path.endsWith(QLatin1String(".zip"), Qt::CaseInsensitive) || is_zip(path);
}

QByteArray read_all(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw SourceError(QStringLiteral("Le fichier %1 ne peut être lu.").arg(QFileInfo(path).fileName()));
    return file.readAll();
}

}  // namespace

LenexProgramme lire_programme_lenex(const QByteArray& xml, const QString& name)
{
    return ProgReader(xml, name).run();
}

LenexProgramme lire_fichier_lenex(const QString& path, const QString& work_dir)
{
    const QString name = QFileInfo(path).fileName();
    if (!zipped(path))
        return lire_programme_lenex(read_all(path), name);
    const QString folder = unique_folder(QStringLiteral("tmpLenex"), work_dir);
    try {
        unzip_archive(path, folder);
    } catch (const std::exception&) {
        throw SourceError(QStringLiteral("Le fichier compressé %1 ne peut être ouvert.").arg(name));
    }
    QDirIterator it(folder, {QStringLiteral("*.lef")}, QDir::Files, QDirIterator::Subdirectories);
    if (!it.hasNext())
        throw SourceError(QStringLiteral("Le fichier compressé %1 ne contient aucun fichier .lef.").arg(name));
    const QString lef = it.next();
    return lire_programme_lenex(read_all(lef), name);
}

}  // namespace plouvarine
