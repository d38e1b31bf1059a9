#pragma once
// The statements the tests send, as a log that outlives each test program.
// Every test program records each distinct statement that goes through the
// dialect into its own file of the log folder; the dialect survey reads them
// all back. ctest empties the folder before a run and surveys after the rest.

#include "src/store/database.h"

#include <vector>

namespace plouvarine::testing {

// Every statement recorded in the log folder so far, each once.
std::vector<SentStatement> recorded_statements();

}  // namespace plouvarine::testing
