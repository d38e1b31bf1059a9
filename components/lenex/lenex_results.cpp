#include "components/lenex/lenex_results.h"

#include "components/exchange/trace.h"
#include "components/lenex/lenex_base.h"
#include "components/lenex/lenex_reader.h"
#include "src/base/errors.h"
#include "src/frame/exchange_component.h"

#include <QDate>
#include <algorithm>
#include <array>

namespace plouvarine::lenex {

double status_code(const QString& status, bool faulty_takeover)
{
    if (status == QLatin1String("DSQ"))
        return faulty_takeover ? 93 : 99.9999;
    if (status == QLatin1String("SICK"))
        return 91;  // forfait excusé
    if (status == QLatin1String("WDR"))
        return 92;  // forfait déclaré
    if (status == QLatin1String("DNS"))
        return 94;  // forfait non déclaré
    if (status == QLatin1String("DNF"))
        return 95;  // abandon
    return 0;
}

QString race_kind(const QString& round)
{
    if (round == QLatin1String("FIN"))
        return QStringLiteral("F");
    if (round == QLatin1String("SEM"))
        return QStringLiteral("2");
    if (round == QLatin1String("QUA"))
        return QStringLiteral("4");
    if (round == QLatin1String("SOP") || round == QLatin1String("SOS") || round == QLatin1String("SOQ"))
        return QStringLiteral("B");
    if (round.isEmpty() || round == QLatin1String("TIM") || round == QLatin1String("PRE")
        || round == QLatin1String("FHT") || round == QLatin1String("TIMETRIAL"))
        return QStringLiteral("S");
    return QStringLiteral("Inconnu");
}

int split_column(int distance, int at)
{
    const int step = distance <= 400 ? 50 : 100;
    if (at <= 0 || at >= distance || (distance - at) % step != 0)
        return 0;
    const int column = (distance - at) / step;
    return column <= 14 ? column : 0;
}

namespace {

QString category_label(const AgeGroup& g)
{
    if (!g.name.isEmpty())
        return g.name;
    if (g.agemin < 0 && g.agemax < 0)
        return QStringLiteral("Toutes catégories");
    if (g.agemax < 0)
        return QStringLiteral("%1 ans et plus").arg(g.agemin);
    if (g.agemin < 0)
        return QStringLiteral("%1 ans et moins").arg(g.agemax);
    if (g.agemin == g.agemax)
        return QStringLiteral("%1 ans").arg(g.agemin);
    return QStringLiteral("%1 à %2 ans").arg(g.agemin).arg(g.agemax);
}

const char* const kRowColumns =
    " (Num_compet, Code_epreuve, Num_Lic, Code_club, Num_equipe, Tps, Cotation_FFN, Type_course, Numero_serie, "
    "Numero_couloir, Numero_ordre_couloir, Num_categorie, Inter1, Inter2, Inter3, Inter4, Inter5, Inter6, Inter7, "
    "Inter8, Inter9, Inter10, Inter11, Inter12, Inter13, Inter14) VALUES (?, ?, ?, ?, 0, ?, ?, ?, ?, ?, 1, ?, ?, ?, "
    "?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)";

class Importer {
public:
    Importer(Database& db, int num_compet, exchange::Trace& trace, OperationProgress& progress)
        : db_(db), num_compet_(num_compet), trace_(trace), progress_(progress), clubs_(db), swimmers_(db),
          swim_(db, QStringLiteral("INSERT INTO Prres") + QLatin1String(kRowColumns)),
          relay_(db, QStringLiteral("INSERT INTO Prres_relais") + QLatin1String(kRowColumns)),
          category_(db, QStringLiteral("INSERT INTO Categori (Num_compet, Num_cat, Libelle) VALUES (?, ?, ?)")),
          programme_(db, QStringLiteral("INSERT INTO Pcomp (Num_compet, Code_epreuve, JourCourse, Type, Nb_finales, "
                                        "Type_finale, Num_ordre) VALUES (?, ?, ?, 1, 0, ' ', ?)"))
    {
        Statement lines(db, QStringLiteral("SELECT Code_epreuve FROM Pcomp WHERE Num_compet = ?"));
        lines.query({num_compet});
        while (lines.next())
            programmed_.insert(lines.integer(0));
        Statement cats(db, QStringLiteral("SELECT Num_cat, Libelle FROM Categori WHERE Num_compet = ?"));
        cats.query({num_compet});
        while (cats.next()) {
            categories_.insert(cats.text(1), cats.integer(0));
            next_category_ = std::max(next_category_, cats.integer(0) + 1);
        }
        Statement swims(db, QStringLiteral("SELECT Code_epreuve, Num_Lic, Type_course, Numero_serie, Numero_couloir, "
                                           "Num_categorie FROM Prres WHERE Num_compet = ?"));
        swims.query({num_compet});
        while (swims.next())
            seen_.insert(key(swims.integer(0), QString::number(swims.integer(1)), swims.text(2), swims.integer(3),
                             swims.integer(4)) + u'|' + QString::number(swims.integer(5)));
        Statement relays(db, QStringLiteral("SELECT Code_epreuve, Code_club, Num_Lic, Type_course, Numero_serie, "
                                            "Numero_couloir, Num_categorie FROM Prres_relais WHERE Num_compet = ?"));
        relays.query({num_compet});
        while (relays.next())
            seen_.insert(key(relays.integer(0), relays.text(1).toUpper() + u'/' + QString::number(relays.integer(2)),
                             relays.text(3), relays.integer(4), relays.integer(5)) + u'|' + QString::number(relays.integer(6)));
    }

    void meet(const Document& doc, const Meet& m, bool fill)
    {
        Statement comp(db_, QStringLiteral("SELECT Longueur FROM Rcomp WHERE AutoNum = ?"));
        comp.query({num_compet_});
        if (!comp.next())
            throw LenexError(QStringLiteral("%1 : la compétition n° %2 n'existe pas dans la base").arg(doc.file).arg(num_compet_));
        const int length = comp.integer(0);
        const int file_length = course_length(m.course);
        if (file_length == 0)
            throw LenexError(QStringLiteral("%1 : bassin « %2 » inconnu (SCM ou LCM attendu)").arg(doc.file, m.course));
        if (fill) {
            Statement up(db_, QStringLiteral("UPDATE Rcomp SET Nom = ?, Lieu = ?, Debut = ?, Fin = ?, Longueur = ? "
                                             "WHERE AutoNum = ?"));
            up.run({m.name, m.city, m.first_date, m.last_date, file_length, num_compet_});
        } else if (length != 0 && length != file_length) {
            throw LenexError(QStringLiteral("%1 : résultats en bassin de %2 m pour une compétition en bassin de %3 m")
                                 .arg(doc.file)
                                 .arg(file_length)
                                 .arg(length));
        } else if (length == 0) {
            Statement up(db_, QStringLiteral("UPDATE Rcomp SET Longueur = ? WHERE AutoNum = ?"));
            up.run({file_length, num_compet_});
        }
        trace_.line(QStringLiteral("Fichier %1 : %2, %3").arg(doc.file, m.name, m.city));
        meet_ = &m;
        file_ = doc.file;
        for (const QString& line : unknown_events(m))
            trace_.line(line);
        int done = 0;
        for (const Club& c : m.clubs) {
            progress_.set_club(c.name);
            progress_.set_progress(done++, int(m.clubs.size()));
            club(c);
        }
        progress_.set_progress(int(m.clubs.size()), int(m.clubs.size()));
    }

    ResultCounts counts;

private:
    static QString key(int code, const QString& who, const QString& kind, int series, int lane)
    {
        return QStringLiteral("%1|%2|%3|%4|%5").arg(code).arg(who, kind).arg(series).arg(lane);
    }

    void club(const Club& c)
    {
        QString code = clubs_.find(c.code, c.name);
        if (code.isEmpty()) {
            code = clubs_.add(c.code, c.name);
            ++counts.clubs_added;
            trace_.line(QStringLiteral("Club ajouté : %1 %2").arg(code, c.name));
        }
        for (const Athlete& a : c.athletes) {
            if (a.results.isEmpty())
                continue;
            int num = swimmers_.find(a.license, a.lastname, a.firstname, a.birthdate);
            if (num == 0) {
                if (a.lastname.isEmpty()) {
                    trace_.line(QStringLiteral("Nageur sans nom ni licence connue (%1) : %2 résultat(s) ignoré(s).")
                                    .arg(c.name)
                                    .arg(a.results.size()));
                    counts.skipped += int(a.results.size());
                    continue;
                }
                num = swimmers_.add(code, a.license, a.lastname, a.firstname, a.gender, a.birthdate, a.nation);
                ++counts.swimmers_added;
                trace_.line(QStringLiteral("Nageur ajouté : %1 %2 (licence %3), %4")
                                .arg(a.lastname, a.firstname, a.license.isEmpty() ? QStringLiteral("inconnue") : a.license,
                                     code));
            }
            progress_.set_swimmer(a.lastname + u' ' + a.firstname);
            for (const Result& r : a.results)
                row(swim_, r, QString::number(num), code, num, a.gender, a.lastname + u' ' + a.firstname);
        }
        for (const Relay& rl : c.relays) {
            for (const Result& r : rl.results)
                row(relay_, r, code.toUpper() + u'/' + QString::number(rl.number), code, rl.number, rl.gender,
                    QStringLiteral("relais %1 %2").arg(rl.number).arg(c.name));
        }
    }

    int category(const Event& e, const Result& r)
    {
        const QString id = meet_->result_agegroup.value(r.resultid);
        const AgeGroup* group = nullptr;
        for (const AgeGroup& g : e.agegroups) {
            if (g.id == id)
                group = &g;
        }
        if (!group && e.agegroups.size() == 1)
            group = &e.agegroups.front();
        if (!group)
            return 0;
        const QString label = category_label(*group);
        auto it = categories_.constFind(label);
        if (it != categories_.cend())
            return *it;
        const int num = next_category_++;
        category_.run({num_compet_, num, label});
        categories_.insert(label, num);
        ++counts.categories_added;
        return num;
    }

    // The results window lists a competition's events from its programme:
    // each event swum gets its line, on its session's day, in the meet's order.
    void programme(const Event& e, int code)
    {
        if (programmed_.contains(code))
            return;
        const QDate first = QDate::fromString(meet_->first_date, QStringLiteral("yyyyMMdd"));
        const QDate day = QDate::fromString(e.date, QStringLiteral("yyyyMMdd"));
        const int journee = first.isValid() && day.isValid() ? int(std::max<qint64>(1, first.daysTo(day) + 1)) : 1;
        programme_.run({num_compet_, code, journee, e.number});
        programmed_.insert(code);
    }

    void row(Statement& insert, const Result& r, const QString& who, const QString& club, int num,
             const QString& gender, const QString& name)
    {
        const Event* e = meet_->event(r.eventid);
        if (!e) {
            trace_.line(QStringLiteral("Résultat de %1 (ligne %2) pour une épreuve absente du fichier : ignoré.")
                            .arg(name)
                            .arg(r.line));
            ++counts.skipped;
            return;
        }
        const bool relay = e->style.relaycount > 1;
        const QString g = event_gender(*e, gender);
        const int code = event_code(e->style, first_char(g));
        if (code < 0) {
            ++counts.skipped;
            return;
        }
        programme(*e, code);
        const Heat heat = e->heats.value(r.heatid);
        const int series = heat.final_letter.isEmpty() ? heat.number : heat.final_letter.front().unicode() - u'A' + 1;
        const QString kind = race_kind(e->round);
        // The category is part of the key: a meet may swim the same event
        // once per age group, each with its own heats.
        const int cat = category(*e, r);
        const QString k = key(code, who, kind, series, r.lane) + u'|' + QString::number(cat);
        if (seen_.contains(k)) {
            ++counts.already;
            return;
        }
        seen_.insert(k);
        bool faulty = false;
        for (const RelayPosition& p : r.positions)
            faulty = faulty || p.status == QLatin1String("DSQ");
        double tps = status_code(r.status, faulty);
        if (tps > 0) {
            ++counts.statuses;
        } else {
            tps = r.time;
            if (tps == 0)
                trace_.line(QStringLiteral("Temps « %1 » sans statut pour %2 (épreuve n° %3, ligne %4) : enregistré sans temps.")
                                .arg(r.swimtime, name)
                                .arg(e->number)
                                .arg(r.line));
        }
        std::array<double, 14> inter{};
        const int distance = e->style.distance * e->style.relaycount;
        for (const Split& s : r.splits) {
            if (const int column = split_column(distance, s.distance)) {
                inter[size_t(column - 1)] = s.time;
                ++counts.splits;
            }
        }
        try {
            insert.run({num_compet_, code, num, club, tps, r.points, kind, series, r.lane, cat, inter[0],
                        inter[1], inter[2], inter[3], inter[4], inter[5], inter[6], inter[7], inter[8], inter[9],
                        inter[10], inter[11], inter[12], inter[13]});
        } catch (const Error& failure) {
            throw LenexError(QStringLiteral("%1 : ligne %2, élément RESULT : %3")
                                 .arg(file_)
                                 .arg(r.line)
                                 .arg(failure.description()));
        }
        ++(relay ? counts.relays : counts.swims);
    }

    Database& db_;
    int num_compet_;
    exchange::Trace& trace_;
    OperationProgress& progress_;
    Clubs clubs_;
    Swimmers swimmers_;
    Statement swim_, relay_, category_, programme_;
    QSet<int> programmed_;
    QHash<QString, int> categories_;
    int next_category_ = 1;
    QSet<QString> seen_;
    const Meet* meet_ = nullptr;
    QString file_;
};

}  // namespace

ResultCounts import_results(Database& db, const Document& doc, int num_compet, bool fill_competition,
                            exchange::Trace& trace, OperationProgress& progress)
{
    Transaction tx(db);
    Importer importer(db, num_compet, trace, progress);
    for (const Meet& m : doc.meets)
        importer.meet(doc, m, fill_competition);
    tx.commit();
    return importer.counts;
}

}  // namespace plouvarine::lenex
