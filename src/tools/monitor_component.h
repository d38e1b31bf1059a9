#pragma once
// The performance monitor component "sviprf" (SuiviPerf.clsSuiviPerf): a
// small window of its own, above the others, with the machine's processor
// load, the memory in use, the free space of the base's disk and the
// program's own memory, refreshed at its timer's interval.

#include <QString>
#include <QStringList>
#include <QtPlugin>

namespace plouvarine {

class PerfMonitor {
public:
    virtual ~PerfMonitor() = default;

    // Shows or hides the window.
    virtual void ShowHideWindow(bool show) = 0;
    virtual bool window_visible() const = 0;
    // Moves the window to (x, y); both are given back as the window stands.
    virtual void SetPosition(qint32& x, qint32& y) = 0;
    // The position, which follows the window when the person moves it.
    virtual qint32 lgPositionX() const = 0;
    virtual qint32 lgPositionY() const = 0;
    virtual void set_lgPositionX(qint32 x) = 0;
    virtual void set_lgPositionY(qint32 y) = 0;
    // The refresh interval in milliseconds; below kMinInterval the timer
    // runs at kMinInterval.
    virtual qint32 lgIntervalTimer() const = 0;
    virtual void set_lgIntervalTimer(qint32 ms) = 0;
    virtual bool bMustBeAlwaysOpen() const = 0;
    virtual void set_bMustBeAlwaysOpen(bool on) = 0;
    // The base whose disk's free space is shown.
    virtual void set_base_path(const QString& path) = 0;
    // The figures as last measured, one line each, as the window shows them.
    virtual QStringList figures() const = 0;

    static constexpr qint32 kMinInterval = 100;
};

}  // namespace plouvarine

#define PLOUVARINE_PERF_MONITOR_IID "fr.plouvarine.PerfMonitor/1.0"
Q_DECLARE_INTERFACE(plouvarine::PerfMonitor, PLOUVARINE_PERF_MONITOR_IID)
