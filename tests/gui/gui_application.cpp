#include "gui_application.h"

#include "gui/all_windows.h"
#include "gui/frame/window_factory.h"

#include <QApplication>
#include <QTemporaryDir>

namespace plouvarine::testing {

void ensure_application()
{
    static QTemporaryDir config;
    static int argc = 1;
    static char name[] = "test_gui";
    static char* argv[] = {name, nullptr};
    if (QApplication::instance())
        return;
    qputenv("XDG_CONFIG_HOME", config.path().toUtf8());
    new QApplication(argc, argv);
    gui::register_all_windows();
}

}  // namespace plouvarine::testing
