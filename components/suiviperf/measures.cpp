#include "measures.h"

#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>
#include <QStringList>

namespace SuiviPerf {

namespace {

QString read_proc(const char* path)
{
    QFile file(QString::fromLatin1(path));
    // /proc files tell no size: read them to the end.
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    return QString::fromLatin1(file.readAll());
}

// The value in kB of the line "key:  value kB".
long long kb_field(const QString& text, const QString& key)
{
    for (const QString& line : text.split(u'\n')) {
        if (line.startsWith(key + u':'))
            return line.mid(key.size() + 1).trimmed().split(u' ').value(0).toLongLong();
    }
    return -1;
}

}  // namespace

CpuTimes cpu_times()
{
    CpuTimes t;
    const QString stat = read_proc("/proc/stat");
    const QStringList f = stat.section(u'\n', 0, 0).simplified().split(u' ');
    if (f.value(0) != QLatin1String("cpu"))
        return t;
    // user nice system idle iowait irq softirq steal
    for (int i = 1; i < f.size() && i <= 8; ++i) {
        const unsigned long long v = f[i].toULongLong();
        t.total += v;
        if (i != 4 && i != 5)
            t.busy += v;
    }
    return t;
}

int cpu_load(const CpuTimes& before, const CpuTimes& after)
{
    if (after.total <= before.total)
        return -1;
    return int((after.busy - before.busy) * 100 / (after.total - before.total));
}

long long memory_used_kb(long long* total_kb)
{
    const QString info = read_proc("/proc/meminfo");
    const long long total = kb_field(info, QStringLiteral("MemTotal"));
    const long long available = kb_field(info, QStringLiteral("MemAvailable"));
    if (total_kb)
        *total_kb = total;
    return total < 0 || available < 0 ? -1 : total - available;
}

long long own_memory_kb()
{
    return kb_field(read_proc("/proc/self/status"), QStringLiteral("VmRSS"));
}

long long free_space(const QString& path)
{
    if (path.isEmpty())
        return -1;
    const QFileInfo info(path);
    const QStorageInfo storage(info.isDir() ? path : info.absolutePath());
    return storage.isValid() ? storage.bytesAvailable() : -1;
}

}  // namespace SuiviPerf
