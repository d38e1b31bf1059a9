#pragma once
// What the monitor measures, read from the system (Linux /proc; elsewhere the
// figures the system does not give stay unknown, -1).

#include <QString>

namespace SuiviPerf {

struct CpuTimes {
    unsigned long long busy = 0;
    unsigned long long total = 0;
};

// The processor's cumulated times since start-up.
CpuTimes cpu_times();
// The load between two readings, in percent; -1 when nothing passed.
int cpu_load(const CpuTimes& before, const CpuTimes& after);
// The memory in use on the machine and its total, in kB; -1 when unknown.
long long memory_used_kb(long long* total_kb = nullptr);
// The program's own resident memory, in kB; -1 when unknown.
long long own_memory_kb();
// The free space of the disk of `path` (its folder when it is a file), in
// bytes; -1 when unknown.
long long free_space(const QString& path);

}  // namespace SuiviPerf
