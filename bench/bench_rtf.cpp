// Reading a large report template: tens of thousands of format runs, as a long
// list laid out by hand in a word processor gives.

#include "src/reports/rtf_reader.h"

#include <QByteArray>
#include <QTextDocument>
#include <benchmark/benchmark.h>

namespace {

QByteArray large_template(int runs)
{
    QByteArray rtf("{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}\n");
    for (int i = 0; i < runs; ++i) {
        rtf += (i % 2) ? "{\\b Nageur " : "{\\i Club ";
        rtf += QByteArray::number(i);
        rtf += (i % 10 == 9) ? "}\\par\n" : "} ";
    }
    rtf += "}";
    return rtf;
}

void BM_ReadLargeTemplate(benchmark::State& state)
{
    const QByteArray rtf = large_template(int(state.range(0)));
    for (auto _ : state) {
        QTextDocument document;
        QString error;
        benchmark::DoNotOptimize(plouvarine::read_rtf(rtf, document, &error));
    }
    state.counters["octets"] = double(rtf.size());
}
BENCHMARK(BM_ReadLargeTemplate)->Arg(20000)->Arg(40000)->Unit(benchmark::kMillisecond);

}  // namespace
