#pragma once
// The base of every window that draws a view. It closes when the view closes,
// passes its close box to the view (which may refuse), and redraws on the
// view's changes through refresh(). Shown modally by exec(), or as a child
// window of the main window.

#include "src/frame/view.h"

#include <QDialog>

namespace plouvarine::gui {

class MainWindow;

class ViewWindow : public QDialog {
    Q_OBJECT
public:
    ViewWindow(View& view, QWidget* parent = nullptr);
    ~ViewWindow() override;

    View& view() const { return view_; }
    // The main window has taken this window among its children: a window that
    // uses the main window's own parts (its context menus) keeps it here.
    virtual void placed_in(MainWindow& main) {}

protected:
    // Draws the view's state again; windows override it.
    virtual void refresh() {}
    void closeEvent(QCloseEvent* event) override;
    // Escape and Return follow the view's buttons, not QDialog's defaults.
    void reject() override;

private:
    // The view has closed: the window ends, once.
    void end();

    View& view_;
    bool ended_ = false;
};

}  // namespace plouvarine::gui
