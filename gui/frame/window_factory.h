#pragma once
// Which window draws which view: each subject of gui/ registers a maker per
// window name ("Frm_liste_club" -> the club list window). The Qt services ask
// here when a view is shown.

#include <QString>
#include <functional>

class QWidget;

namespace plouvarine {
class View;
}

namespace plouvarine::gui {

class ViewWindow;

using WindowMaker = std::function<ViewWindow*(View& view, QWidget* parent)>;

void register_window(const QString& name, WindowMaker maker);
// The window for `view`, or null when none is registered under its name.
ViewWindow* make_window(View& view, QWidget* parent);

}  // namespace plouvarine::gui
