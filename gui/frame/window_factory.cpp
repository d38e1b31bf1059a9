#include "frame/window_factory.h"

#include "clubs/club_windows.h"
#include "clubs/mon_club_window.h"
#include "clubs/pool_windows.h"
#include "competitions/competition_windows.h"
#include "frame/view.h"
#include "frame/view_window.h"
#include "licences/date_windows.h"
#include "licences/licence_windows.h"

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

void register_all_windows()
{
    register_club_windows();
    register_mon_club_window();
    register_pool_windows();
    register_date_windows();
    register_licence_windows();
    register_competition_windows();
}

}  // namespace plouvarine::gui
