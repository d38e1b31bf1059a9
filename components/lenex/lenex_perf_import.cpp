#include "components/exchange/trace.h"
#include "components/lenex/lenex_base.h"
#include "components/lenex/lenex_perfs.h"
#include "components/lenex/lenex_reader.h"
#include "components/lenex/lenex_time.h"
#include "src/base/errors.h"
#include "src/frame/exchange_component.h"

#include <array>

namespace plouvarine::lenex {

int age_on(const QString& birthdate, const QString& date)
{
    if (birthdate.size() != 8 || date.size() != 8)
        return 0;
    int age = date.left(4).toInt() - birthdate.left(4).toInt();
    if (date.mid(4) < birthdate.mid(4))
        --age;
    return std::max(age, 0);
}

PerfMarks perf_marks(const QString& comment)
{
    PerfMarks marks;
    for (const QString& part : comment.split(QStringLiteral(", "))) {
        if (part == QString::fromUtf8(kFirstLegComment))
            marks.first_leg = true;
        else if (part == QString::fromUtf8(kIntermediateComment))
            marks.intermediate = true;
        else
            return {};
    }
    return marks;
}

namespace {

QString time_key(double t)
{
    return QString::number(t, 'f', 4);
}

}  // namespace

class PerformanceImport::Importer {
public:
    Importer(Database& db, exchange::Trace& trace, OperationProgress& progress)
        : trace_(trace), progress_(progress), clubs_(db), swimmers_(db),
          swim_(db, QStringLiteral("INSERT INTO Liffn (Code_epreuve, Code_club, Num_Lic, Type_bassin, Date_perf, Tps, "
                                   "Lieu, Codif_Fede, Codif_Inter, Codif_Reg, Codif_Depart, Passage_relais, Tps_inter, "
                                   "Age_perf, Num_compet, NumManuel) VALUES (?, ?, ?, ?, ?, ?, ?, ' ', ' ', ' ', ' ', ?, "
                                   "?, ?, 0, 0)")),
          relay_(db, QStringLiteral("INSERT INTO Liffn_relais (Code_epreuve, Code_club, Num_Lic, Type_bassin, Date_perf, "
                                    "Tps, Lieu, Relayeur1, Relayeur2, Relayeur3, Relayeur4, Relayeur5, Relayeur6, "
                                    "Relayeur7, Relayeur8, Relayeur9, Relayeur10, Codif_Fede, Codif_Inter, Codif_Reg, "
                                    "Codif_Depart, Num_compet, NumManuel) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, "
                                    "?, ?, ?, ?, ' ', ' ', ' ', ' ', 0, 0)"))
    {
        Statement s(db, QStringLiteral("SELECT Code_epreuve, Num_Lic, Type_bassin, Date_perf, Tps, Passage_relais, "
                                       "Tps_inter FROM Liffn"));
        s.query();
        while (s.next())
            seen_.insert(swim_key(s.integer(0), s.integer(1), s.integer(2), s.text(3), s.real(4),
                                  {s.text(5).trimmed() == QLatin1String("R"), s.integer(6) != 0}));
        Statement r(db, QStringLiteral("SELECT Code_epreuve, Code_club, Type_bassin, Date_perf, Tps, Relayeur1, "
                                       "Relayeur2, Relayeur3, Relayeur4 FROM Liffn_relais"));
        r.query();
        while (r.next())
            seen_.insert(relay_key(r.integer(0), r.text(1), r.integer(2), r.text(3), r.real(4),
                                   {r.integer(5), r.integer(6), r.integer(7), r.integer(8)}));
    }

    void meet(const Document& doc, const Meet& m)
    {
        counts = {};
        pool_ = course_length(m.course);
        if (pool_ == 0)
            throw LenexError(QStringLiteral("%1 : bassin « %2 » inconnu (SCM ou LCM attendu)").arg(doc.file, m.course));
        meet_ = &m;
        file_ = doc.file;
        trace_.line(QStringLiteral("Fichier %1 : %2, %3").arg(doc.file, m.name, m.city));
        for (const QString& line : unknown_events(m))
            trace_.line(line);
        // The base's swimmers of the whole meet first: a relay may take a
        // swimmer listed under another club.
        QHash<QString, int> nums;
        QHash<QString, QString> genders;
        for (const Club& c : m.clubs) {
            for (const Athlete& a : c.athletes) {
                if (const int num = swimmers_.find(a.license, a.lastname, a.firstname, a.birthdate))
                    nums.insert(a.id, num);
                genders.insert(a.id, a.gender);
            }
        }
        int done = 0;
        for (const Club& c : m.clubs) {
            progress_.set_club(c.name);
            progress_.set_progress(done++, int(m.clubs.size()));
            const QString code = clubs_.find(c.code, c.name);
            for (const Athlete& a : c.athletes)
                athlete(a, code, nums.value(a.id));
            for (const Relay& r : c.relays)
                relay(c, r, code, nums, genders);
        }
    }

    PerfCounts counts;

private:
    // An intermediate time and a full performance of the same time are two
    // performances, as are a first leg's time and a swim of its own.
    static QString swim_key(int code, int num, int pool, const QString& date, double tps, PerfMarks marks)
    {
        return QStringLiteral("%1|%2|%3|%4|%5|%6%7")
            .arg(code)
            .arg(num)
            .arg(pool)
            .arg(date, time_key(tps), marks.first_leg ? QStringLiteral("R") : QString(),
                 marks.intermediate ? QStringLiteral("I") : QString());
    }

    static QString relay_key(int code, const QString& club, int pool, const QString& date, double tps,
                             const std::array<int, 4>& legs)
    {
        return QStringLiteral("R|%1|%2|%3|%4|%5|%6|%7|%8|%9")
            .arg(code)
            .arg(club.toUpper())
            .arg(pool)
            .arg(date, time_key(tps))
            .arg(legs[0])
            .arg(legs[1])
            .arg(legs[2])
            .arg(legs[3]);
    }

    // A result's splits are times inside its own race, not performances:
    // only a result marked as one is an intermediate time.
    void add_swim(int code, const QString& club, int num, const QString& date, double tps, PerfMarks marks)
    {
        const QString k = swim_key(code, num, pool_, date, tps, marks);
        if (seen_.contains(k)) {
            ++counts.already;
            return;
        }
        seen_.insert(k);
        swim_.run({code, club, num, pool_, date, tps, meet_->city,
                   marks.first_leg ? QStringLiteral("R") : QStringLiteral(" "), marks.intermediate,
                   age_on(swimmers_.birthdate_of(num), date)});
        ++(marks.first_leg ? counts.first_legs : counts.swims);
    }

    void athlete(const Athlete& a, const QString& club_code, int num)
    {
        bool timed = false;
        for (const Result& r : a.results) {
            if (status_free(r) && r.time > 0)
                timed = true;
            else if (status_free(r))
                ++counts.no_time;
        }
        if (!timed)
            return;
        if (num == 0) {
            ++counts.unmatched;
            if (!reported_.contains(a.lastname + u'|' + a.firstname + u'|' + a.birthdate))
                trace_.line(QStringLiteral("Nageur absent de la base : %1 %2 (licence %3), né(e) le %4")
                            .arg(a.lastname, a.firstname, a.license.isEmpty() ? QStringLiteral("inconnue") : a.license,
                                 lenex_date(a.birthdate)));
            reported_.insert(a.lastname + u'|' + a.firstname + u'|' + a.birthdate);
            return;
        }
        progress_.set_swimmer(a.lastname + u' ' + a.firstname);
        const QString club = club_code.isEmpty() ? swimmers_.club_of(num) : club_code;
        for (const Result& r : a.results) {
            const Event* e = meet_->event(r.eventid);
            if (!e || !status_free(r))
                continue;
            if (r.time <= 0)
                continue;
            const int code = event_code(e->style, first_char(event_gender(*e, a.gender)));
            if (code < 0 || e->style.relaycount > 1)
                continue;
            guarded(r, [&] {
                add_swim(code, club, num, e->date, r.time, perf_marks(r.comment));
            });
        }
    }

    void relay(const Club& c, const Relay& rl, const QString& club_code, const QHash<QString, int>& nums,
               const QHash<QString, QString>& genders)
    {
        for (const Result& r : rl.results) {
            const Event* e = meet_->event(r.eventid);
            if (!e || !status_free(r) || r.time <= 0)
                continue;
            const int code = event_code(e->style, first_char(event_gender(*e, rl.gender)));
            if (code < 0)
                continue;
            std::array<int, 10> legs{};
            legs.fill(swimmers_.nulle());
            bool complete = !r.positions.isEmpty();
            const RelayPosition* first = nullptr;
            for (const RelayPosition& p : r.positions) {
                const int num = nums.value(p.athleteid);
                if (p.number < 1 || p.number > 10 || num == 0)
                    complete = false;
                else
                    legs[size_t(p.number - 1)] = num;
                if (p.number == 1)
                    first = &p;
            }
            // The first swimmer's leg is a time of his own: the split at the
            // end of his distance.
            if (first && nums.value(first->athleteid)) {
                const QString gender = genders.value(first->athleteid);
                const int leg_code = first_leg_code(code, first_char(gender));
                for (const Split& s : r.splits) {
                    if (leg_code >= 0 && s.distance == e->style.distance) {
                        const int num = nums.value(first->athleteid);
                        guarded(r, [&] {
                            add_swim(leg_code, club_code.isEmpty() ? swimmers_.club_of(num) : club_code, num,
                                     e->date, s.time, {.first_leg = true});
                        });
                    }
                }
            }
            if (!complete) {
                trace_.line(QStringLiteral("Relais %1 de %2 (épreuve n° %3) : relayeurs absents de la base, non importé.")
                                .arg(rl.number)
                                .arg(c.name)
                                .arg(e->number));
                continue;
            }
            // A club the base lacks: the relay goes to its swimmers' club.
            const QString club = club_code.isEmpty() ? swimmers_.club_of(legs[0]) : club_code;
            const QString k = relay_key(code, club, pool_, e->date, r.time, {legs[0], legs[1], legs[2], legs[3]});
            if (seen_.contains(k)) {
                ++counts.already;
                continue;
            }
            seen_.insert(k);
            guarded(r, [&] {
                relay_.run({code, club, rl.number, pool_, e->date, r.time, meet_->city, legs[0], legs[1], legs[2],
                            legs[3], legs[4], legs[5], legs[6], legs[7], legs[8], legs[9]});
            });
            ++counts.relays;
        }
    }

    // Runs a write of the result `r`; an engine error names the result.
    template <typename F> void guarded(const Result& r, F write)
    {
        try {
            write();
        } catch (const Error& failure) {
            throw LenexError(QStringLiteral("%1 : ligne %2, élément RESULT : %3")
                                 .arg(file_)
                                 .arg(r.line)
                                 .arg(failure.description()));
        }
    }

    // A swim out of the race (any status but an exhibition) is no performance.
    static bool status_free(const Result& r) { return r.status.isEmpty() || r.status == QLatin1String("EXH"); }

    exchange::Trace& trace_;
    OperationProgress& progress_;
    Clubs clubs_;
    Swimmers swimmers_;
    Statement swim_, relay_;
    QSet<QString> seen_, reported_;
    const Meet* meet_ = nullptr;
    QString file_;
    int pool_ = 0;
};

PerformanceImport::PerformanceImport(Database& db, exchange::Trace& trace, OperationProgress& progress)
    : db_(db), trace_(trace), progress_(progress)
{
}

PerformanceImport::~PerformanceImport() = default;

PerfCounts PerformanceImport::import(const Document& doc)
{
    Transaction tx(db_);
    if (!importer_)
        importer_ = std::make_unique<Importer>(db_, trace_, progress_);
    PerfCounts total;
    try {
        for (const Meet& m : doc.meets) {
            importer_->meet(doc, m);
            const PerfCounts& n = importer_->counts;
            total.swims += n.swims;
            total.first_legs += n.first_legs;
            total.relays += n.relays;
            total.already += n.already;
            total.unmatched += n.unmatched;
            total.no_time += n.no_time;
        }
        tx.commit();
    } catch (...) {
        // What the importer remembers of the rolled-back rows is read again.
        importer_.reset();
        throw;
    }
    return total;
}

}  // namespace plouvarine::lenex
