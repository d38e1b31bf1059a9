#include "gui/frame/main_window.h"
#include "gui/frame/view_window.h"

#include "src/frame/base_commands.h"

#include "src/frame/app_context.h"
#include "src/frame/commands.h"
#include "gui/frame/splash_window.h"
#include "gui/frame/upgrade_window.h"
#include "gui/frame/window_settings.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMdiArea>
#include <QFont>
#include <QFontMetrics>
#include <QIcon>
#include <QMdiSubWindow>
#include <QPixmap>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QStyle>
#include <QStyleOptionTitleBar>
#include <QTimer>

namespace plouvarine::gui {

MainWindow::MainWindow(AppContext& app, QWidget* parent) : QMainWindow(parent), app_(app)
{
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(app_.main_title());

    mdi_ = new QMdiArea(this);
    mdi_->setObjectName(QStringLiteral("mdiArea"));
    setCentralWidget(mdi_);

    for (const MenuEntry* top : app_.menus.children(QString())) {
        if (!top->visible) {
            // The fee menu is a context menu of the licence list, never in the bar.
            tarifs_ = new QMenu(top->caption, this);
            tarifs_->setObjectName(top->name);
            actions_.insert(top->name, tarifs_->menuAction());
            continue;
        }
        auto* menu = menuBar()->addMenu(top->caption);
        menu->setObjectName(top->name);
        menu->menuAction()->setObjectName(top->name);
        actions_.insert(top->name, menu->menuAction());
        build_menu(menu, top->name);
    }
    rebuild_tarifs();

    statusBar()->setObjectName(QStringLiteral("sbStatusBar"));
    for (int i = 0; i < 2; ++i) {
        panels_[i] = new QLabel(this);
        panels_[i]->setObjectName(QStringLiteral("sbStatusBarPanel%1").arg(i + 1));
        // The profile shows whole; the running step takes the rest.
        statusBar()->addPermanentWidget(panels_[i], i == 0 ? 0 : 1);
    }

    // After a resize the status bar is drawn again once the sizes settle.
    resize_timer_ = new QTimer(this);
    resize_timer_->setObjectName(QStringLiteral("Timer1"));
    resize_timer_->setSingleShot(true);
    connect(resize_timer_, &QTimer::timeout, this, [this] {
        status_text(app_.ui, QStringLiteral("Resize"));
        status_text(app_.ui, QString());
    });

    app_.menus.on_changed = [this] { refresh_actions(); };
    app_.menus.on_tarifs_changed = [this] { rebuild_tarifs(); };
    app_.windows.set_main_window(this);
    app_.windows.on_bring_to_front = [this](const QString& name) {
        for (QMdiSubWindow* sub : mdi_->subWindowList()) {
            if (sub->objectName() == name) {
                mdi_->setActiveSubWindow(sub);
                return;
            }
        }
        // A modal window is the services' own.
        app_.ui.bring_to_front(name);
    };

    plug_frame_commands();

    // Wide enough for the whole menu bar, never wider than the work area.
    const QScreen* screen = QApplication::primaryScreen();
    const QSize wanted = kMainWindowSize.expandedTo(QSize(menuBar()->sizeHint().width() + 16, 0));
    setGeometry(place_main_window(read_main_geometry(), wanted, screen ? screen->availableGeometry() : QRect()));
    app_.enable_menus(false);
    refresh_actions();
}

MainWindow::~MainWindow()
{
    app_.menus.on_changed = nullptr;
    app_.menus.on_tarifs_changed = nullptr;
    app_.windows.on_bring_to_front = nullptr;
    app_.windows.set_main_window(nullptr);
    // The child windows go now, while this is still a whole MainWindow: a
    // child may undo what it hooked into it.
    delete mdi_;
    mdi_ = nullptr;
}

void MainWindow::build_menu(QMenu* menu, const QString& parent)
{
    for (const MenuEntry* entry : app_.menus.children(parent)) {
        if (entry->kind == MenuKind::Menu) {
            QMenu* sub = menu->addMenu(entry->caption);
            sub->setObjectName(entry->name);
            sub->menuAction()->setObjectName(entry->name);
            actions_.insert(entry->name, sub->menuAction());
            build_menu(sub, entry->name);
        } else {
            add_entry(menu, entry->name);
        }
    }
}

QAction* MainWindow::add_entry(QMenu* menu, const QString& name)
{
    const MenuEntry* entry = app_.menus.entry(name);
    QAction* action = entry->kind == MenuKind::Separator ? menu->addSeparator() : menu->addAction(entry->caption);
    action->setObjectName(name);
    action->setCheckable(entry->checkable);
    actions_.insert(name, action);
    if (entry->kind == MenuKind::Command)
        connect(action, &QAction::triggered, this, [this, name] { trigger(name); });
    return action;
}

void MainWindow::refresh_actions()
{
    // The menus follow the base: so does the title, with its file name.
    setWindowTitle(app_.main_title());
    for (auto it = actions_.cbegin(); it != actions_.cend(); ++it) {
        it.value()->setEnabled(app_.menus.is_enabled(it.key()));
        if (it.value()->isCheckable())
            it.value()->setChecked(app_.menus.is_checked(it.key()));
    }
}

void MainWindow::rebuild_tarifs()
{
    if (!tarifs_)
        return;
    tarifs_->clear();
    const QStringList& lines = app_.menus.tarifs();
    for (int i = 0; i < lines.size(); ++i) {
        QAction* line = tarifs_->addAction(lines[i]);
        line->setObjectName(QStringLiteral("mnuTarifsSel_%1").arg(i));
        line->setCheckable(true);
        line->setChecked(i == app_.menus.checked_tarif());
        connect(line, &QAction::triggered, this, [this, i] {
            if (on_tarif_chosen)
                on_tarif_chosen(i);
        });
    }
}

void MainWindow::set_command(const QString& command, std::function<void()> run)
{
    commands_.insert(command, std::move(run));
}

void MainWindow::trigger(const QString& command)
{
    if (!app_.menus.is_enabled(command))
        return;
    // An error no command expected ends that command with its message, never
    // the program.
    try {
        const auto it = commands_.constFind(command);
        if (it != commands_.cend() && *it) {
            (*it)();
            return;
        }
        if (const CommandTable::Run* run = app_.commands.find(command); run && *run)
            (*run)(app_);
    } catch (const std::exception& e) {
        msg_erreur(app_.ui, QStringLiteral("Une erreur s'est produite."), &e);
    }
}

QAction* MainWindow::action(const QString& name) const
{
    return actions_.value(name, nullptr);
}

QMdiSubWindow* MainWindow::show_child(QWidget* window)
{
    if (auto* hosted = qobject_cast<ViewWindow*>(window))
        hosted->placed_in(*this);
    QMdiSubWindow* sub = mdi_->addSubWindow(window);
    sub->setObjectName(window->objectName());
    // No toolkit logo in the child windows' title bars.
    QPixmap blank(16, 16);
    blank.fill(Qt::transparent);
    sub->setWindowIcon(QIcon(blank));
    sub->setAttribute(Qt::WA_DeleteOnClose);
    window->setAttribute(Qt::WA_DeleteOnClose);
    // Whole, at its own size at least: every field and button in view.
    sub->resize(sub->sizeHint().expandedTo(sub->size()));
    // Wide enough for its whole title, which the smallest windows would cut.
    QStyleOptionTitleBar bar;
    bar.initFrom(sub);
    bar.rect = QRect(0, 0, sub->width(), sub->style()->pixelMetric(QStyle::PM_TitleBarHeight, &bar, sub));
    bar.titleBarFlags = sub->windowFlags();
    bar.subControls = QStyle::SC_All;
    const int label = sub->style()->subControlRect(QStyle::CC_TitleBar, &bar, QStyle::SC_TitleBarLabel, sub).width();
    // The title bar draws its caption in bold.
    QFont bar_font = QApplication::font("QMdiSubWindowTitleBar");
    bar_font.setBold(true);
    const int title = QFontMetrics(bar_font).horizontalAdvance(window->windowTitle()) + 8;
    if (label < title)
        sub->resize(sub->width() + title - label, sub->height());
    sub->show();
    mdi_->setActiveSubWindow(sub);
    return sub;
}

void MainWindow::show_status(int panel, const QString& text)
{
    if (panel < 1 || panel > 2)
        return;
    panels_[panel - 1]->setText(text);
    // Long steps run on this thread: draw the caption before they go on.
    panels_[panel - 1]->repaint();
}

QString MainWindow::status_panel(int panel) const
{
    return panel >= 1 && panel <= 2 ? panels_[panel - 1]->text() : QString();
}

void MainWindow::plug_frame_commands()
{
    // The commands of the main window itself; the others come from the
    // application's command table, filled by the frame and the subjects.
    set_command(QStringLiteral("mnuExit"), [this] { quit(); });
    set_command(QStringLiteral("mnuHelpInfo"), [this] { SplashWindow(app_, this).exec(); });
    set_command(QStringLiteral("mnuMajBase"), [this] { UpgradeWindow(app_, this).exec(); });
}

void MainWindow::quit()
{
    if (quit_command(app_) != QuitOutcome::Quit)
        return;
    quitting_ = true;
    close();
    QCoreApplication::quit();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    // Quitter has done its own ending; the close box and the system ask first.
    if (!quitting_ && !query_close(app_)) {
        event->ignore();
        return;
    }
    unload();
    event->accept();
}

void MainWindow::unload()
{
    if (unloaded_)
        return;
    unloaded_ = true;
    // The size the person gave it, not the maximised one.
    write_main_geometry(normalGeometry().isValid() ? normalGeometry() : geometry());
    unload_main(app_);
}

void MainWindow::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    resize_timer_->start(10);
}

}  // namespace plouvarine::gui
