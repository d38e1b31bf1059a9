#include "store/access.h"

#include "frame/app_context.h"
#include "frame/errors.h"

namespace plouvarine {

bool connect_base(AppContext& app)
{
    close_base(app);
    status_text(app.ui, QStringLiteral("Ouverture de la base"));
    try {
        app.db.open(app.state.base_path);
    } catch (const Error&) {
        status_text(app.ui, QString());
        return false;
    }
    status_text(app.ui, QString());
    return true;
}

void close_base(AppContext& app)
{
    if (!app.db.is_open())
        return;
    try {
        app.db.set_last_close(QStringLiteral("True"));
    } catch (const Error&) {
        // A base that cannot take the flag (no Info table, read-only) still closes.
    }
    app.db.close();
}

}  // namespace plouvarine
