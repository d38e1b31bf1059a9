#pragma once
// The real main window over a fixture's application, for the window tests that
// go through the menu: the subjects' commands installed, the scripted services
// drawing the real windows through the Qt services, the child windows shown in
// its work area, and every child closed before the window goes.

#include "gui/frame/main_window.h"
#include "gui/frame/qt_services.h"

#include <QMdiArea>
#include <memory>

namespace plouvarine::testing {

class ScriptedServices;

class DrawnMainWindow {
public:
    // Shows the main window over `app` with the menus of an open base.
    void open(AppContext& app, ScriptedServices& ui);
    // Closes every child window, then the main window.
    void close();

    gui::MainWindow* operator->() const { return main_.get(); }
    gui::MainWindow& operator*() const { return *main_; }
    // The inner window of the visible child window named `name`, or null.
    QWidget* child_window(const QString& name) const;

private:
    gui::QtServices qt_;
    std::unique_ptr<gui::MainWindow> main_;
};

}  // namespace plouvarine::testing
