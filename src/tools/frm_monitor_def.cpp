#include "src/tools/frm_monitor_def.h"

#include "src/base/services.h"
#include "src/clubs/utils_profils.h"
#include "src/frame/app_context.h"
#include "src/tools/suivi_perf.h"

namespace plouvarine {

FrmMonitorDef::FrmMonitorDef(AppContext& app) : View(app, QString(kName))
{
    set_title(QStringLiteral("Paramètres du suivi des performances"));
    txtParam = {QString::number(app.state.monitor_pos_x), QString::number(app.state.monitor_pos_y),
                QString::number(app.state.monitor_interval)};
    chkAlwaysVisible = app.state.monitor_always_visible;
}

void FrmMonitorDef::recuperer()
{
    PerfMonitor* monitor = suivi_charge(app());
    if (!monitor) {
        msg_info(app().ui, kSuiviNonCharge);
        return;
    }
    txtParam = {QString::number(monitor->lgPositionX()), QString::number(monitor->lgPositionY()),
                QString::number(monitor->lgIntervalTimer())};
    changed();
}

bool FrmMonitorDef::appliquer()
{
    // The fields take digits only; what is left empty counts as 0.
    const qint32 x = txtParam[0].toInt();
    const qint32 y = txtParam[1].toInt();
    const qint32 interval = txtParam[2].toInt();
    if (interval <= 0) {
        msg_erreur(app().ui, kIntervalNul);
        return false;
    }
    // With no base open the settings hold for this session only.
    if (app().db.is_open() && !SauveParametresSuivi(app(), x, y, interval, chkAlwaysVisible))
        return false;
    AppState& state = app().state;
    state.monitor_pos_x = x;
    state.monitor_pos_y = y;
    state.monitor_interval = interval;
    state.monitor_always_visible = chkAlwaysVisible;
    if (PerfMonitor* monitor = suivi_charge(app())) {
        monitor->set_lgPositionX(x);
        monitor->set_lgPositionY(y);
        monitor->set_lgIntervalTimer(interval);
        monitor->set_bMustBeAlwaysOpen(chkAlwaysVisible);
        qint32 px = x;
        qint32 py = y;
        monitor->SetPosition(px, py);
    }
    app().menus.set_checked(QStringLiteral("mnuPerfOrdiTjsVisible"), chkAlwaysVisible);
    return true;
}

FrmMonitorDef* OuvrirMonitorDef(AppContext& app)
{
    if (app.windows.check_window_open(QString(FrmMonitorDef::kName)))
        return nullptr;
    auto view = std::make_unique<FrmMonitorDef>(app);
    if (!view->register_window(QString(WindowRegistry::kMainWindow)))
        return nullptr;
    return show_child(app.ui, std::move(view));
}

}  // namespace plouvarine
