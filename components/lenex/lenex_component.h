#pragma once
// What the four Lenex components do around their work: open the base file and
// the trace, read each Lenex file of a source, and turn every failure into a
// trace line, so that the person learns of it from the report.

#include "src/frame/exchange_component.h"

#include <functional>

namespace plouvarine {
class Database;
namespace exchange { class Trace; }
}

namespace plouvarine::lenex {

struct Document;

// Checks that `method` is `expected`, opens the base file of the call and its
// trace, and runs `work`. Every error ends in the trace and gives false.
bool run_on_base(const QString& method, const QString& expected, const ExchangeCall& call,
                 const std::function<bool(Database&, exchange::Trace&)>& work);

// Reads each Lenex file of `source` (a file, or a folder's .lef, .lxf and .zip
// files) and gives each document to `import`. A file that cannot be read or
// whose import fails is told in the trace and the next file goes on; gives
// the number of documents imported.
int for_each_document(const QString& source, const QString& work_dir, exchange::Trace& trace,
                      const std::function<void(const Document&)>& import);

}  // namespace plouvarine::lenex
