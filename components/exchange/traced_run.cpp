#include "components/exchange/traced_run.h"

#include "components/exchange/tab_file.h"
#include "src/base/errors.h"

namespace plouvarine::exchange {

bool traced_run(const QString& trace_file, const std::function<bool(Trace&)>& work, bool import)
{
    Trace trace(trace_file);
    try {
        return work(trace);
    } catch (const TabFileError& e) {
        trace.error(e.message());
    } catch (const Error& e) {
        trace.error(e.description());
    } catch (const std::exception& e) {
        trace.error(QString::fromUtf8(e.what()));
    }
    if (import)
        trace.line(kImportCancelled);
    return false;
}

void at_line(int line, const std::function<void()>& work)
{
    try {
        work();
    } catch (const Error& e) {
        throw TabFileError(line, QStringLiteral("ligne %1 : %2").arg(line).arg(e.description()));
    }
}

}  // namespace plouvarine::exchange
