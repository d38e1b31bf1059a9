#include "gui/frame/view_window.h"

#include <QCloseEvent>

namespace plouvarine::gui {

ViewWindow::ViewWindow(View& view, QWidget* parent) : QDialog(parent), view_(view)
{
    setObjectName(view.name());
    setWindowTitle(view.title());
    view_.on_changed = [this] {
        setWindowTitle(view_.title());
        refresh();
    };
    view_.on_close = [this] {
        if (closing_)
            return;
        closing_ = true;
        done(QDialog::Accepted);
        // A child window closes its sub-window with it.
        if (parentWidget() && parentWidget()->inherits("QMdiSubWindow"))
            parentWidget()->close();
    };
}

ViewWindow::~ViewWindow()
{
    view_.on_changed = nullptr;
    view_.on_close = nullptr;
}

void ViewWindow::closeEvent(QCloseEvent* event)
{
    if (!closing_ && !view_.is_closed()) {
        if (!view_.query_close()) {
            event->ignore();
            return;
        }
        closing_ = true;
        view_.close();
        // The view's on_close came back at once (closing_ is set): end the
        // dialog here, so that a modal window closed by its box leaves its
        // event loop instead of staying on screen over a closed view.
        done(QDialog::Accepted);
    }
    QDialog::closeEvent(event);
}

void ViewWindow::reject()
{
    close();
}

}  // namespace plouvarine::gui
