#include "src/frame/app_context.h"

#include "src/base/files.h"
#include "src/frame/base_commands.h"
#include "src/frame/operation_runner.h"

namespace plouvarine {

AppContext::AppContext(Services& ui_, QString app_dir) : ui(ui_), app_dir_(std::move(app_dir))
{
    db.set_services(&ui);
    install_base_commands(*this);
    install_exchange_commands(*this);
}

QString AppContext::app_file(const QString& name) const
{
    return path_join(app_dir_, name);
}

QString AppContext::tempo_dir() const
{
    return app_file(QStringLiteral("tempo"));
}

QString AppContext::main_title() const
{
    QString title = QStringLiteral("Plouvarine");
    if (menus_base_open() && !state.base_path.isEmpty())
        title += QStringLiteral(" - ") + file_name(state.base_path);
    return title;
}

void AppContext::enable_menus(bool base_open)
{
    menus.enable_menus(base_open);
    if (on_enable_menus)
        on_enable_menus(base_open);
}

}  // namespace plouvarine
