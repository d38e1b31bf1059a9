#pragma once
// The base of every view: a list, detail or working window's behaviour, held in
// the core. The window that draws a view binds to it, refreshes on `on_changed`
// and closes on `on_close`; the view never sees a widget.
//
// A view opens its window through the services (show_modal or show_window) and
// ends it with close(). While registered, the window counts in busy_count and
// holds its menu locks; close() and the destructor give them back once.

#include "src/base/services.h"
#include "src/frame/change_notifier.h"
#include "src/frame/window_registry.h"

#include <QString>
#include <functional>
#include <memory>
#include <vector>

namespace plouvarine {

class AppContext;

class View : public WindowInstance {
public:
    // `name` is the window's name ("Frm_liste_club", "dem_info_obli"...).
    View(AppContext& app, QString name);
    ~View() override;
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    const QString& name() const { return name_; }
    AppContext& app() const { return app_; }

    // Takes the window's place among the open windows: busy_count, the locks
    // and the caller told at its closing. False, with nothing taken, when a
    // window of that name is open already.
    bool register_window(const QString& caller = {}, const MenuLocks& locks = {});
    bool registered() const { return registration_.registered(); }

    // The window's title, as the command or the view sets it.
    const QString& title() const { return title_; }
    void set_title(const QString& title);

    // The close box of the window: true lets it close. A view that must not be
    // left before its work is done says no, and says why.
    virtual bool query_close() { return true; }

    // The view is done: its registration is given back and its window closes.
    // A second call does nothing. The window's close box lands here too.
    void close();
    bool is_closed() const { return closed_; }

    // Set by the drawing window.
    std::function<void()> on_changed;  // something shown has changed
    std::function<void()> on_close;    // the window must close now

protected:
    // Tells the window to draw again.
    void changed();
    // Until the view closes, `handler` runs after each change of `subject`
    // told by another view (app().changes).
    void follow(Subject subject, ChangeNotifier::Handler handler);

private:
    AppContext& app_;
    QString name_;
    QString title_;
    WindowRegistration registration_;
    std::vector<ChangeNotifier::Subscription> follows_;
    bool closed_ = false;
};

// Hands `view` to the services as a child window of the main window and gives
// it back to the command that opened it; the window owns it from now on.
template <typename V>
V* show_child(Services& ui, std::unique_ptr<V> view)
{
    V* shown = view.get();
    ui.show_window(std::move(view));
    return shown;
}

}  // namespace plouvarine
