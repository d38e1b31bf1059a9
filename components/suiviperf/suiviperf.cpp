#include "suiviperf.h"

#include <QLocale>
#include <QMoveEvent>
#include <QVBoxLayout>
#include <algorithm>

namespace SuiviPerf {

namespace {

QString megabytes(long long kb)
{
    return kb < 0 ? QStringLiteral("?") : QLocale(QLocale::French).toString(kb / 1024) + QStringLiteral(" Mo");
}

}  // namespace

MonitorWindow::MonitorWindow()
    : QWidget(nullptr, Qt::Tool | Qt::WindowStaysOnTopHint | Qt::WindowTitleHint | Qt::CustomizeWindowHint)
{
    setObjectName(QStringLiteral("SuiviPerf"));
    setWindowTitle(QStringLiteral("Suivi des performances"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 6, 8, 6);
    text_ = new QLabel;
    text_->setObjectName(QStringLiteral("figures"));
    layout->addWidget(text_);
}

void MonitorWindow::show_figures(const QStringList& lines)
{
    text_->setText(lines.join(u'\n'));
    adjustSize();
}

void MonitorWindow::moveEvent(QMoveEvent* event)
{
    QWidget::moveEvent(event);
    Q_EMIT moved(pos());
}

clsSuiviPerf::clsSuiviPerf()
{
    connect(&timer_, &QTimer::timeout, this, [this] { refresh(); });
}

clsSuiviPerf::~clsSuiviPerf()
{
    delete window_.data();
}

void clsSuiviPerf::ShowHideWindow(bool show)
{
    if (!show) {
        timer_.stop();
        if (window_)
            window_->hide();
        return;
    }
    if (!window_) {
        window_ = new MonitorWindow;
        connect(window_.data(), &MonitorWindow::moved, this, [this](const QPoint& p) {
            x_ = p.x();
            y_ = p.y();
        });
    }
    last_cpu_ = cpu_times();
    refresh();
    window_->move(x_, y_);
    window_->show();
    timer_.start(std::max(interval_, kMinInterval));
}

bool clsSuiviPerf::window_visible() const
{
    return window_ && window_->isVisible();
}

void clsSuiviPerf::SetPosition(qint32& x, qint32& y)
{
    x_ = x;
    y_ = y;
    if (window_) {
        window_->move(x, y);
        x = x_ = window_->x();
        y = y_ = window_->y();
    }
}

void clsSuiviPerf::set_lgIntervalTimer(qint32 ms)
{
    interval_ = ms;
    // A timer at 0 would spin: the monitor never refreshes faster than its floor.
    if (timer_.isActive())
        timer_.start(std::max(interval_, kMinInterval));
}

void clsSuiviPerf::refresh()
{
    const CpuTimes now = cpu_times();
    const int load = cpu_load(last_cpu_, now);
    last_cpu_ = now;
    long long total = -1;
    const long long used = memory_used_kb(&total);
    const long long free = free_space(base_path_);
    figures_ = {
        QStringLiteral("Processeur : ") + (load < 0 ? QStringLiteral("?") : QString::number(load) + QStringLiteral(" %")),
        QStringLiteral("Mémoire utilisée : ") + megabytes(used) + QStringLiteral(" / ") + megabytes(total),
        QStringLiteral("Disque de la base, libre : ") + (free < 0 ? QStringLiteral("?") : megabytes(free / 1024)),
        QStringLiteral("Mémoire du programme : ") + megabytes(own_memory_kb()),
    };
    if (window_)
        window_->show_figures(figures_);
}

}  // namespace SuiviPerf
