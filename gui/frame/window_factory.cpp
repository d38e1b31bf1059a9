#include "gui/frame/window_factory.h"

#include "src/frame/view.h"
#include "gui/frame/view_window.h"

#include <QHash>

namespace plouvarine::gui {

namespace {

QHash<QString, WindowMaker>& makers()
{
    static QHash<QString, WindowMaker> table;
    return table;
}

}  // namespace

void register_window(const QString& name, WindowMaker maker)
{
    makers().insert(name, std::move(maker));
}

ViewWindow* make_window(View& view, QWidget* parent)
{
    const auto it = makers().constFind(view.name());
    return it == makers().cend() ? nullptr : (*it)(view, parent);
}

}  // namespace plouvarine::gui
