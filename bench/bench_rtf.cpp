// Reading a large report template: tens of thousands of format runs, as a long
// list laid out by hand in a word processor gives; and a letterhead whose logo
// is a photograph of a megabyte, as a club scans it.

#include "src/reports/rtf_reader.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QRandomGenerator>
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

// A PNG of noise: it does not compress, so its size is its pixels'.
QByteArray noise_png(int side)
{
    QImage image(side, side, QImage::Format_RGB32);
    QRandomGenerator random(20);
    for (int y = 0; y < side; ++y) {
        auto* line = reinterpret_cast<quint32*>(image.scanLine(y));
        for (int x = 0; x < side; ++x)
            line[x] = 0xff000000u | (random.generate() & 0xffffffu);
    }
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return png;
}

// A letter of a 1 MB logo in hex (2 MB of RTF) above a table of tags and a
// few paragraphs, the picture read, decoded and laid in the document.
void BM_ReadTemplateWithLargeLogo(benchmark::State& state)
{
    const QByteArray png = noise_png(590);
    QByteArray rtf("{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}{\\header Club\\par}"
                   "{\\*\\shppict{\\pict\\pngblip\\picwgoal2268\\pichgoal2268\n");
    const QByteArray hex = png.toHex();
    for (qsizetype at = 0; at < hex.size(); at += 128)
        rtf += hex.mid(at, 128) + '\n';
    rtf += "}}\\par\n";
    for (int row = 0; row < 20; ++row)
        rtf += "\\trowd\\cellx3000\\cellx9000\\pard\\intbl Nageur\\cell\\pard\\intbl <NAGEUR>\\cell\\row\n";
    for (int i = 0; i < 50; ++i)
        rtf += "\\pard {\\b <NOM_CLUB>} convoque ses nageurs.\\par\n";
    rtf += "}";
    for (auto _ : state) {
        QTextDocument document;
        QString error;
        benchmark::DoNotOptimize(plouvarine::read_rtf(rtf, document, &error));
    }
    state.counters["octets"] = double(rtf.size());
    state.counters["octets_image"] = double(png.size());
}
BENCHMARK(BM_ReadTemplateWithLargeLogo)->Unit(benchmark::kMillisecond);

}  // namespace
