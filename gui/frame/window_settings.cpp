#include "gui/frame/window_settings.h"

#include <QSettings>
#include <cmath>

namespace plouvarine::gui {

namespace {

QSettings settings()
{
    return QSettings(QStringLiteral("Plouvarine"), QStringLiteral("Plouvarine"));
}

int read_int(QSettings& s, const char* key, int fallback)
{
    bool ok = false;
    const int v = s.value(QLatin1String(key)).toString().toInt(&ok);
    return ok ? v : fallback;
}

}  // namespace

int twips_to_pixels(int twips, double dpi)
{
    return int(std::lround(twips * dpi / 1440.0));
}

QRect read_main_geometry(double dpi)
{
    QSettings s = settings();
    s.beginGroup(QStringLiteral("Settings"));
    const int left = read_int(s, "MainLeft", twips_to_pixels(1000, dpi));
    const int top = read_int(s, "MainTop", twips_to_pixels(1000, dpi));
    const int width = read_int(s, "MainWidth", twips_to_pixels(6500, dpi));
    const int height = read_int(s, "MainHeight", twips_to_pixels(6500, dpi));
    return QRect(left, top, width, height);
}

void write_main_geometry(const QRect& rect)
{
    QSettings s = settings();
    s.beginGroup(QStringLiteral("Settings"));
    s.setValue(QStringLiteral("MainLeft"), QString::number(rect.left()));
    s.setValue(QStringLiteral("MainTop"), QString::number(rect.top()));
    s.setValue(QStringLiteral("MainWidth"), QString::number(rect.width()));
    s.setValue(QStringLiteral("MainHeight"), QString::number(rect.height()));
}

}  // namespace plouvarine::gui
