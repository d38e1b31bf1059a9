#include "src/frame/status_lines.h"

#include "src/frame/app_context.h"

namespace plouvarine {

QString saved_at_text(const AppContext& app)
{
    return QStringLiteral("Base enregistrée à ") + app.clock.now().toString(QStringLiteral("HH:mm"));
}

}  // namespace plouvarine
