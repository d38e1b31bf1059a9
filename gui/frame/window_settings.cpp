#include "gui/frame/window_settings.h"

#include <QSettings>
#include <algorithm>

namespace plouvarine::gui {

namespace {

QSettings settings()
{
    return QSettings(QStringLiteral("Plouvarine"), QStringLiteral("Plouvarine"));
}

std::optional<int> read_int(QSettings& s, const char* key)
{
    bool ok = false;
    const int v = s.value(QLatin1String(key)).toString().toInt(&ok);
    return ok ? std::optional<int>(v) : std::nullopt;
}

}  // namespace

std::optional<QRect> read_main_geometry()
{
    QSettings s = settings();
    s.beginGroup(QStringLiteral("Settings"));
    const auto left = read_int(s, "MainLeft");
    const auto top = read_int(s, "MainTop");
    const auto width = read_int(s, "MainWidth");
    const auto height = read_int(s, "MainHeight");
    if (!left || !top || !width || !height || *width <= 0 || *height <= 0)
        return std::nullopt;
    return QRect(*left, *top, *width, *height);
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

QRect place_main_window(const std::optional<QRect>& stored, QSize wanted, const QRect& work_area)
{
    if (work_area.isEmpty())
        return stored.value_or(QRect(QPoint(0, 0), wanted));
    QRect rect;
    if (stored) {
        rect = QRect(stored->topLeft(), stored->size().boundedTo(work_area.size()));
    } else {
        rect = QRect(QPoint(0, 0), wanted.boundedTo(work_area.size()));
        rect.moveCenter(work_area.center());
    }
    // A place kept from a larger or another screen comes back into view.
    rect.moveLeft(std::clamp(rect.left(), work_area.left(), work_area.right() - rect.width() + 1));
    rect.moveTop(std::clamp(rect.top(), work_area.top(), work_area.bottom() - rect.height() + 1));
    return rect;
}

}  // namespace plouvarine::gui
