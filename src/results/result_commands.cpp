#include "src/results/result_commands.h"

#include "src/frame/app_context.h"
#include "src/results/view_result.h"

namespace plouvarine {

void install_result_commands(AppContext& app)
{
    app.commands.add(QStringLiteral("mnuCompetVoirResult"), [](AppContext& a) { OuvrirResultats(a); });
}

}  // namespace plouvarine
