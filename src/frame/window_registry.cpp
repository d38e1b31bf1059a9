#include "src/frame/window_registry.h"

#include "src/frame/app_context.h"
#include "src/frame/view.h"

#include <algorithm>
#include <utility>

namespace plouvarine {

QString WindowRegistry::already_open_message()
{
    return QStringLiteral("La fenêtre est déjà ouverte.\nTerminer la précédente opération.");
}

WindowRegistry::WindowRegistry(AppContext& app) : app_(app) {}

const WindowRegistry::Entry* WindowRegistry::find(const QString& name) const
{
    for (const Entry& e : open_)
        if (e.name == name)
            return &e;
    return nullptr;
}

bool WindowRegistry::check_window_open(const QString& name, bool silent)
{
    if (!is_open(name))
        return false;
    if (!silent)
        msg_info(app_.ui, already_open_message());
    bring_to_front(name);
    return true;
}

bool WindowRegistry::opened(const QString& name, const QString& caller, const MenuLocks& locks,
                            WindowInstance* instance)
{
    if (is_open(name))
        return false;
    app_.menus.apply_locks(locks);  // throws before any change on a wrong list
    open_.push_back({name, caller, locks, instance});
    app_.busy_inc();
    return true;
}

bool WindowRegistry::closed(const QString& name)
{
    const auto it = std::find_if(open_.begin(), open_.end(), [&](const Entry& e) { return e.name == name; });
    if (it == open_.end())
        return false;
    const Entry gone = *it;
    open_.erase(it);
    // A window that this one opened has nobody left to tell.
    for (Entry& e : open_)
        if (e.caller == name)
            e.caller.clear();

    app_.menus.release_locks(gone.locks);
    app_.busy_dec();

    if (gone.caller == kMainWindow) {
        if (main_)
            main_->ForceUnloadWindowsEngag(name);
    } else if (!gone.caller.isEmpty()) {
        if (WindowInstance* caller = instance(gone.caller))
            caller->ForceUnloadWindowsEngag(name);
    }
    return true;
}

QString WindowRegistry::caller_of(const QString& name) const
{
    const Entry* e = find(name);
    return e ? e->caller : QString();
}

MenuLocks WindowRegistry::locks_of(const QString& name) const
{
    const Entry* e = find(name);
    return e ? e->locks : MenuLocks();
}

WindowInstance* WindowRegistry::instance(const QString& name) const
{
    const Entry* e = find(name);
    return e ? e->instance : nullptr;
}

QStringList WindowRegistry::open_windows() const
{
    QStringList names;
    for (const Entry& e : open_)
        names << e.name;
    return names;
}

void WindowRegistry::close_all()
{
    // Closing one window may close those it opened: read the list each time.
    while (!open_.empty()) {
        const Entry last = open_.back();
        if (auto* view = dynamic_cast<View*>(last.instance))
            view->close();
        if (is_open(last.name))
            closed(last.name);
    }
}

void WindowRegistry::bring_to_front(const QString& name)
{
    if (on_bring_to_front)
        on_bring_to_front(name);
}

WindowRegistration::WindowRegistration(WindowRegistry& registry, QString name, const QString& caller,
                                       const MenuLocks& locks, WindowInstance* instance)
    : name_(std::move(name))
{
    if (registry.opened(name_, caller, locks, instance))
        registry_ = &registry;
}

WindowRegistration::WindowRegistration(WindowRegistration&& other) noexcept
    : registry_(std::exchange(other.registry_, nullptr)), name_(std::move(other.name_))
{
}

WindowRegistration& WindowRegistration::operator=(WindowRegistration&& other) noexcept
{
    if (this != &other) {
        release();
        registry_ = std::exchange(other.registry_, nullptr);
        name_ = std::move(other.name_);
    }
    return *this;
}

void WindowRegistration::release()
{
    if (WindowRegistry* registry = std::exchange(registry_, nullptr))
        registry->closed(name_);
}

}  // namespace plouvarine
