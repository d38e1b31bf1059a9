#include "src/frame/unavailable.h"

#include "src/frame/app_context.h"

namespace plouvarine {

void not_available(AppContext& app)
{
    msg_info(app.ui, kNotAvailable);
}

}  // namespace plouvarine
