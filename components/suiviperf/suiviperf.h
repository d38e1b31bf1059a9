#pragma once
// The component "sviprf": SuiviPerf.clsSuiviPerf, the performance monitor.

#include "measures.h"
#include "src/tools/monitor_component.h"

#include <QLabel>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>

namespace SuiviPerf {

// The small window, above the others, that tells its moves.
class MonitorWindow : public QWidget {
    Q_OBJECT
public:
    MonitorWindow();
    void show_figures(const QStringList& lines);

Q_SIGNALS:
    void moved(const QPoint& position);

protected:
    void moveEvent(QMoveEvent* event) override;

private:
    QLabel* text_ = nullptr;
};

class clsSuiviPerf : public QObject, public plouvarine::PerfMonitor {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID PLOUVARINE_PERF_MONITOR_IID FILE "sviprf.json")
    Q_INTERFACES(plouvarine::PerfMonitor)

public:
    clsSuiviPerf();
    ~clsSuiviPerf() override;

    void ShowHideWindow(bool show) override;
    bool window_visible() const override;
    void SetPosition(qint32& x, qint32& y) override;
    qint32 lgPositionX() const override { return x_; }
    qint32 lgPositionY() const override { return y_; }
    void set_lgPositionX(qint32 x) override { x_ = x; }
    void set_lgPositionY(qint32 y) override { y_ = y; }
    qint32 lgIntervalTimer() const override { return interval_; }
    void set_lgIntervalTimer(qint32 ms) override;
    bool bMustBeAlwaysOpen() const override { return always_open_; }
    void set_bMustBeAlwaysOpen(bool on) override { always_open_ = on; }
    void set_base_path(const QString& path) override { base_path_ = path; }
    QStringList figures() const override { return figures_; }

private:
    void refresh();

    QPointer<MonitorWindow> window_;
    QTimer timer_;
    CpuTimes last_cpu_;
    QStringList figures_;
    QString base_path_;
    qint32 x_ = 0;
    qint32 y_ = 0;
    qint32 interval_ = 1000;
    bool always_open_ = false;
};

}  // namespace SuiviPerf
