#pragma once
// The main window's place and size in the per-user settings, section "Settings",
// keys "MainLeft", "MainTop", "MainWidth", "MainHeight". With nothing stored the
// window opens at a size that shows its whole menu bar and the largest child
// window, centred in the work area; it never opens larger than that area.

#include <QRect>
#include <optional>

namespace plouvarine::gui {

// The size the main window asks for on its first run.
inline constexpr QSize kMainWindowSize{1024, 720};

// The place stored by the last session, if any.
std::optional<QRect> read_main_geometry();
void write_main_geometry(const QRect& rect);

// Where the main window opens: the stored place when one is given, else
// `wanted` centred; in both cases cut to the work area and moved inside it.
QRect place_main_window(const std::optional<QRect>& stored, QSize wanted, const QRect& work_area);

}  // namespace plouvarine::gui
