#pragma once
// The import of a meet's Lenex results into a competition: every swim of every
// club into Prres and Prres_relais, the age groups into Categori, the clubs
// and swimmers the base lacks into Club and Licence.

#include "components/lenex/lenex_model.h"

#include <QString>

namespace plouvarine {
class Database;
class OperationProgress;
namespace exchange { class Trace; }
}

namespace plouvarine::lenex {

// The base's status code (the time values of 91 and over) of a Lenex status;
// 0 for a swim that keeps its time (no status, EXH). A disqualified relay
// whose take-over was faulty is 93.
double status_code(const QString& status, bool faulty_takeover = false);

// The kind of race (Prres.Type_course) of a Lenex round.
QString race_kind(const QString& round);

// The column (1 to 14, 0 for none) of a split taken at `at` metres of a race
// of `distance` metres: Inter1 is the point nearest the finish, one step back
// each, the step 50 m up to 400 m and 100 m beyond.
int split_column(int distance, int at);

struct ResultCounts {
    int swims = 0, relays = 0, statuses = 0, splits = 0;
    int already = 0, skipped = 0;
    int clubs_added = 0, swimmers_added = 0, categories_added = 0;
};

// Imports one document into the competition `num_compet` (Rcomp.AutoNum) in
// one transaction; `fill_competition` writes the meet's name, place, dates and
// pool into the competition (a competition made for these results). A swim
// already in the base is not added again. Throws LenexError (nothing written)
// for a file of another pool length; DbError leaves the base as it was.
ResultCounts import_results(Database& db, const Document& doc, int num_compet, bool fill_competition,
                            exchange::Trace& trace, OperationProgress& progress);

}  // namespace plouvarine::lenex
