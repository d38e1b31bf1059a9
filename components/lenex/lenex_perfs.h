#pragma once
// Performances: the swims of a Lenex results file into the performance
// history of the base's swimmers (Liffn, Liffn_relais), and the history back
// out as a Lenex file that this import reads to the same rows.

#include "components/lenex/lenex_model.h"

#include <QString>
#include <memory>

namespace plouvarine {
class Database;
class OperationProgress;
namespace exchange { class Trace; }
}

namespace plouvarine::lenex {

// The comment of a result that stands for a relay's first leg (Passage_relais "R").
inline constexpr char kFirstLegComment[] = "Premier relayeur";
// The comment of a result that stands for an intermediate time (Tps_inter):
// a split kept as a performance at its own distance.
inline constexpr char kIntermediateComment[] = "Temps intermédiaire";

// The marks of a performance that a result's comment carries: none for a full
// performance, one of the comments above, or both joined by ", " (a first
// leg's time that is itself an intermediate time).
struct PerfMarks {
    bool first_leg = false, intermediate = false;
};
QString perf_comment(PerfMarks marks);
// Any other comment (an organiser's free text) marks nothing.
PerfMarks perf_marks(const QString& comment);

struct PerfCounts {
    int swims = 0, first_legs = 0, relays = 0;
    int already = 0, unmatched = 0, no_time = 0;
};

// Imports the timed swims of the base's swimmers (found by licence, then by
// name and birth date), one transaction per document; nothing is added for a
// swimmer the base lacks (the trace names each one once), and a performance
// already in the base is not added twice. Made once for a whole folder, so
// that the base's swimmers and performances are read once.
class PerformanceImport {
public:
    PerformanceImport(Database& db, exchange::Trace& trace, OperationProgress& progress);
    ~PerformanceImport();
    // Throws LenexError for an unknown pool length, DbError; either leaves the
    // base as it was.
    PerfCounts import(const Document& doc);

private:
    class Importer;
    Database& db_;
    exchange::Trace& trace_;
    OperationProgress& progress_;
    std::unique_ptr<Importer> importer_;
};

// Writes the performances of the club `club_code` (every club when
// `all_clubs`) as a Lenex file at `path` (.lef, or .lxf zipped): one meet per
// place, date and pool. Gives the number of rows written (0: no file).
int export_performances(Database& db, const QString& club_code, bool all_clubs, const QString& path,
                        exchange::Trace& trace, OperationProgress& progress);

// The age in whole years on `date` of one born on `birthdate` (both yyyymmdd);
// 0 when either is missing.
int age_on(const QString& birthdate, const QString& date);

}  // namespace plouvarine::lenex
