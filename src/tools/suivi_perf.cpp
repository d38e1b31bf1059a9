#include "src/tools/suivi_perf.h"

#include "src/base/services.h"
#include "src/clubs/utils_profils.h"
#include "src/frame/app_context.h"
#include "src/frame/components.h"

#include <QFileInfo>
#include <QPluginLoader>
#include <memory>

namespace plouvarine {

namespace {

// The component once loaded, and the application it was loaded for: a
// plugin's instance is one per process.
struct Loaded {
    const AppContext* app = nullptr;
    std::unique_ptr<QPluginLoader> loader;
    PerfMonitor* monitor = nullptr;
};

Loaded& loaded()
{
    static Loaded held;
    return held;
}

const QString kTjsVisible = QStringLiteral("mnuPerfOrdiTjsVisible");

PerfMonitor* charge(AppContext& app)
{
    Loaded& held = loaded();
    if (held.monitor && held.app == &app)
        return held.monitor;
    const QString file = app.app_file(component_file(QStringLiteral("sviprf.dll")));
    if (!QFileInfo(file).isFile())
        return nullptr;
    auto loader = std::make_unique<QPluginLoader>(file);
    auto* monitor = qobject_cast<PerfMonitor*>(loader->instance());
    if (!monitor)
        return nullptr;
    held.app = &app;
    held.loader = std::move(loader);
    held.monitor = monitor;
    return monitor;
}

}  // namespace

PerfMonitor* suivi_charge(AppContext& app)
{
    const Loaded& held = loaded();
    return held.app == &app ? held.monitor : nullptr;
}

bool AfficheSuivi(AppContext& app)
{
    PerfMonitor* monitor = charge(app);
    if (!monitor) {
        msg_info(app.ui, kSuiviNonCharge);
        return false;
    }
    monitor->set_base_path(app.state.base_path);
    monitor->ShowHideWindow(true);
    qint32 x = app.state.monitor_pos_x;
    qint32 y = app.state.monitor_pos_y;
    monitor->SetPosition(x, y);
    monitor->set_lgIntervalTimer(app.state.monitor_interval);
    monitor->set_bMustBeAlwaysOpen(app.state.monitor_always_visible);
    return true;
}

void MasqueSuivi(AppContext& app)
{
    if (PerfMonitor* monitor = suivi_charge(app))
        monitor->ShowHideWindow(false);
}

void BasculeSuiviVisible(AppContext& app)
{
    const bool on = !app.state.monitor_always_visible;
    // With no base open the menu still works, for this session only.
    if (app.db.is_open() && !SauveVisibiliteSuivi(app, on))
        return;
    app.state.monitor_always_visible = on;
    app.menus.set_checked(kTjsVisible, on);
    if (PerfMonitor* monitor = suivi_charge(app))
        monitor->set_bMustBeAlwaysOpen(on);
}

void applique_suivi_profil(AppContext& app)
{
    app.menus.set_checked(kTjsVisible, app.state.monitor_always_visible);
    if (app.state.monitor_always_visible) {
        AfficheSuivi(app);
    } else if (PerfMonitor* monitor = suivi_charge(app)) {
        // Another profile's window does not stay.
        monitor->ShowHideWindow(false);
    }
}

void libere_suivi(AppContext& app)
{
    Loaded& held = loaded();
    if (!held.monitor || held.app != &app)
        return;
    held.monitor->ShowHideWindow(false);
    const bool unloaded = held.loader->unload();
    held.monitor = nullptr;
    held.app = nullptr;
    held.loader.reset();
    if (!unloaded)
        msg_erreur(app.ui, kSuiviDechargement);
}

}  // namespace plouvarine
