#include "src/frame/view.h"

#include "src/frame/app_context.h"

namespace plouvarine {

View::View(AppContext& app, QString name) : app_(app), name_(std::move(name)) {}

View::~View()
{
    registration_.release();
}

bool View::register_window(const QString& caller, const MenuLocks& locks)
{
    if (registration_.registered())
        return true;
    WindowRegistration r(app_.windows, name_, caller, locks, this);
    if (!r.registered())
        return false;
    registration_ = std::move(r);
    return true;
}

void View::set_title(const QString& title)
{
    title_ = title;
    changed();
}

void View::close()
{
    if (closed_)
        return;
    closed_ = true;
    follows_.clear();
    registration_.release();
    if (on_close)
        on_close();
}

void View::changed()
{
    if (on_changed)
        on_changed();
}

}  // namespace plouvarine

namespace plouvarine {

void View::follow(Subject subject, ChangeNotifier::Handler handler)
{
    if (!closed_)
        follows_.push_back(app_.changes.subscribe(subject, std::move(handler)));
}

}  // namespace plouvarine
