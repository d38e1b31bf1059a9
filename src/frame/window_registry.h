#pragma once
// One instance per window. The registry knows the open windows by name
// ("frm_engag", "Frm_liste_compet"...), who opened each one, and what each one
// holds while it is open: its place in busy_count and its menu lock deltas.
// A view registers as its window loads (opened) and unregisters as it unloads
// (closed); nothing else moves busy_count or the counters for it, so what a
// window took is given back exactly once. The main window draws the windows
// and brings one to the front when asked.

#include "src/frame/menu_state.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

namespace plouvarine {

class AppContext;

// What the registry knows of a view: the public method a detail window calls
// on the window that opened it. Views, and the main window, derive from it.
class WindowInstance {
public:
    virtual ~WindowInstance() = default;
    // The window `form_name`, opened from this one, has closed: drop the
    // reference to it. What it changed comes through app.changes.
    virtual void ForceUnloadWindowsEngag(const QString& form_name) {}
};

class WindowRegistry {
public:
    // The name callers give for the main window.
    static constexpr QLatin1String kMainWindow{"frmMain"};
    static QString already_open_message();

    explicit WindowRegistry(AppContext& app);
    WindowRegistry(const WindowRegistry&) = delete;
    WindowRegistry& operator=(const WindowRegistry&) = delete;

    // True if the window is open. Unless `silent`, first shows the information
    // "La fenêtre est déjà ouverte." / "Terminer la précédente opération.";
    // in both cases the window is brought to the front.
    bool check_window_open(const QString& name, bool silent = false);
    bool is_open(const QString& name) const { return find(name) != nullptr; }

    // A window has loaded: `caller` is the window that opened it (kMainWindow
    // for a menu command, empty when nobody is to be told of its closing),
    // `locks` the menu deltas it holds until it closes, `instance` the view, if
    // it opens windows of its own or is reached by others. Takes a place in
    // busy_count. A name already open is refused (false) and nothing changes;
    // a wrong delta list throws std::invalid_argument and nothing changes.
    bool opened(const QString& name, const QString& caller = {}, const MenuLocks& locks = {},
                WindowInstance* instance = nullptr);
    // The window has unloaded: gives back its locks and its place in
    // busy_count, forgets it, then calls its caller's ForceUnloadWindowsEngag
    // with its name. A name that is not open changes nothing (false).
    bool closed(const QString& name);

    // The window that opened `name`; empty when none, or once that window closed.
    QString caller_of(const QString& name) const;
    // The locks `name` holds; empty when it holds none or is not open.
    MenuLocks locks_of(const QString& name) const;
    // The view of an open window, or null.
    // A view that changed the base says so through app.changes; it never
    // reaches for its caller here to reload it.
    WindowInstance* instance(const QString& name) const;
    // The open windows, in the order they opened.
    QStringList open_windows() const;
    // Unloads every open window, the last opened first, as its own way out
    // would (without asking it): nothing opened on a base outlives it.
    void close_all();

    // The main window, told as the caller kMainWindow.
    void set_main_window(WindowInstance* main) { main_ = main; }
    // Puts the named window in front; the main window draws it.
    void bring_to_front(const QString& name);
    std::function<void(const QString& name)> on_bring_to_front;

private:
    struct Entry {
        QString name;
        QString caller;
        MenuLocks locks;
        WindowInstance* instance = nullptr;
    };

    const Entry* find(const QString& name) const;

    AppContext& app_;
    std::vector<Entry> open_;
    WindowInstance* main_ = nullptr;
};

// Keeps a window registered for its own lifetime: a view holds one, so that
// its locks and busy place are given back however it goes away.
class WindowRegistration {
public:
    WindowRegistration() = default;
    // Registers at once; registered() tells whether the name was free.
    WindowRegistration(WindowRegistry& registry, QString name, const QString& caller = {},
                       const MenuLocks& locks = {}, WindowInstance* instance = nullptr);
    ~WindowRegistration() { release(); }
    WindowRegistration(WindowRegistration&& other) noexcept;
    WindowRegistration& operator=(WindowRegistration&& other) noexcept;
    WindowRegistration(const WindowRegistration&) = delete;
    WindowRegistration& operator=(const WindowRegistration&) = delete;

    bool registered() const { return registry_ != nullptr; }
    // Unregisters now (the window unloads); later calls do nothing.
    void release();

private:
    WindowRegistry* registry_ = nullptr;
    QString name_;
};

}  // namespace plouvarine
