#pragma once
// The main window's place and size in the per-user settings, section "Settings",
// keys "MainLeft", "MainTop", "MainWidth", "MainHeight". The defaults are the
// old twips (1000, 1000, 6500, 6500) converted at the screen's resolution, so the
// window first comes up the size it always had.

#include <QRect>

class QWidget;

namespace plouvarine::gui {

// Twips to pixels at `dpi` dots per inch (1440 twips to the inch).
int twips_to_pixels(int twips, double dpi);

QRect read_main_geometry(double dpi);
void write_main_geometry(const QRect& rect);

}  // namespace plouvarine::gui
