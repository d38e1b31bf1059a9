#include "drawn_main_window.h"
#include "window_test.h"

#include "gui/all_windows.h"
#include "src/frame/app_context.h"
#include "src/subjects.h"
#include "support/scripted_services.h"

#include <QAbstractButton>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QMdiSubWindow>
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

void click(QWidget* window, const QString& name)
{
    auto* button = window->findChild<QAbstractButton*>(name);
    ASSERT_NE(button, nullptr) << name.toStdString();
    ASSERT_TRUE(button->isEnabled()) << name.toStdString();
    button->click();
}

void type_in(QWidget* field, const QString& text)
{
    for (const QChar c : text) {
        QKeyEvent event(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
        QApplication::sendEvent(field, &event);
    }
}

void shoot(QWidget* window, const QString& folder, const QString& name)
{
    const QString png = QDir(folder).filePath(name);
    ASSERT_TRUE(window->grab().save(png)) << png.toStdString();
    if (const QString keep = qEnvironmentVariable("PLOUVARINE_KEEP_SCREENSHOTS"); !keep.isEmpty())
        QFile::copy(png, QDir(keep).filePath(name));
}

}  // namespace plouvarine::testing
