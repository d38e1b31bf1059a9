#include "support/pdf_pages.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

namespace plouvarine::testing {

std::vector<QImage> render_pdf(const QString& pdf, int dpi)
{
    std::vector<QImage> pages;
    QTemporaryDir dir;
    QProcess run;
    run.start(QStringLiteral("pdftoppm"),
              {QStringLiteral("-png"), QStringLiteral("-r"), QString::number(dpi), pdf, dir.filePath(QStringLiteral("p"))});
    if (!run.waitForFinished(60000) || run.exitStatus() != QProcess::NormalExit || run.exitCode() != 0)
        return pages;
    // pdftoppm numbers the pages with as many digits as the last one needs, so
    // the names sort in page order.
    for (const QString& name : QDir(dir.path()).entryList({QStringLiteral("p-*.png")}, QDir::Files, QDir::Name))
        pages.push_back(QImage(dir.filePath(name)));
    return pages;
}

double ink_share(const QImage& page)
{
    if (page.isNull())
        return 0;
    const QImage image = page.convertToFormat(QImage::Format_RGB32);
    qint64 ink = 0;
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x)
            if (qGray(line[x]) < 200)
                ++ink;
    }
    return double(ink) / (double(image.width()) * image.height());
}

}  // namespace plouvarine::testing
