#pragma once
// frmMain: the frame of the application. It holds the child windows in an MDI
// area, draws the menu tree of MenuState (each action named after its command),
// the two panels of the status bar, and routes every command to the function
// plugged in for it. Commands with nothing plugged in stand in the menu and do
// nothing.

#include "src/frame/window_registry.h"

#include <QHash>
#include <QMainWindow>
#include <functional>

class QAction;
class QLabel;
class QMdiArea;
class QMdiSubWindow;
class QMenu;
class QTimer;

namespace plouvarine {
class AppContext;
}

namespace plouvarine::gui {

class MainWindow : public QMainWindow, public WindowInstance {
    Q_OBJECT
public:
    // Loads the window: geometry from the settings, then the menus for no base.
    explicit MainWindow(AppContext& app, QWidget* parent = nullptr);
    ~MainWindow() override;

    // Plugs the function a command runs; one line per command.
    void set_command(const QString& command, std::function<void()> run);
    // Runs a command as a click on its menu entry would: nothing when the
    // entry is disabled or nothing is plugged in.
    void trigger(const QString& command);

    // The action of a menu entry (a command, a menu, a separator), by its name.
    QAction* action(const QString& name) const;
    // The hidden fee menu "mnuTarifs", shown by the licence list at the cursor.
    QMenu* tarifs_menu() const { return tarifs_; }
    // A click on a fee line gives its index (0 is "Aucun").
    std::function<void(int)> on_tarif_chosen;

    QMdiArea* mdi_area() const { return mdi_; }
    // Shows a child window inside the frame; the sub-window takes its object name.
    QMdiSubWindow* show_child(QWidget* window);

    // Draws a status panel (1: the profile, 2: the running step); the
    // services' set_status lands here.
    void show_status(int panel, const QString& text);
    QString status_panel(int panel) const;

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void build_menu(QMenu* menu, const QString& parent);
    QAction* add_entry(QMenu* menu, const QString& name);
    void refresh_actions();
    void rebuild_tarifs();
    void plug_frame_commands();
    void quit();
    void unload();

    AppContext& app_;
    QHash<QString, QAction*> actions_;
    QHash<QString, std::function<void()>> commands_;
    QMenu* tarifs_ = nullptr;
    QMdiArea* mdi_;
    QLabel* panels_[2];
    QTimer* resize_timer_;
    // Quitter unloads the window without the question of the close box.
    bool quitting_ = false;
    bool unloaded_ = false;
};

}  // namespace plouvarine::gui
