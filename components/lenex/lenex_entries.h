#pragma once
// The club's entries for a competition as a Lenex entries file, for the meet
// manager of the organiser.

#include <QString>

namespace plouvarine {
class Database;
class OperationProgress;
namespace exchange { class Trace; }
}

namespace plouvarine::lenex {

struct EntryCounts {
    int athletes = 0, entries = 0, relays = 0;
};

// Writes the entries (Engag) and relays (Relais) of the profile `profile_num`
// in the competition `num_compet` at `path` (.lef, or .lxf zipped): the MEET
// with one SESSION per day of the programme (Pcomp) and its EVENTS, the
// profile's CLUB with its ATHLETES and their ENTRIES, and its RELAYS with the
// swimmers' positions. Throws LenexError when the competition or the profile
// is missing.
EntryCounts export_entries(Database& db, int num_compet, int profile_num, const QString& path,
                           exchange::Trace& trace, OperationProgress& progress);

}  // namespace plouvarine::lenex
