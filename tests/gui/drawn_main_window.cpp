#include "drawn_main_window.h"

#include "src/frame/app_context.h"
#include "src/subjects.h"
#include "support/scripted_services.h"

#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>

namespace plouvarine::testing {

void DrawnMainWindow::open(AppContext& app, ScriptedServices& ui)
{
    install_subject_commands(app);
    main_ = std::make_unique<gui::MainWindow>(app);
    qt_.show_child = [this](QWidget* w) { main_->show_child(w); };
    ui.draw_with = &qt_;
    main_->show();
    app.enable_menus(true);
}

void DrawnMainWindow::close()
{
    if (!main_)
        return;
    for (QMdiSubWindow* sub : main_->mdi_area()->subWindowList())
        sub->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    main_.reset();
}

QWidget* DrawnMainWindow::child_window(const QString& name) const
{
    for (QMdiSubWindow* sub : main_->mdi_area()->subWindowList())
        if (sub->objectName() == name && sub->isVisible())
            return sub->widget();
    return nullptr;
}

}  // namespace plouvarine::testing
