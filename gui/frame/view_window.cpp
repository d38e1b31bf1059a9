#include "gui/frame/view_window.h"

#include <QCloseEvent>
#include <QMdiSubWindow>

namespace plouvarine::gui {

ViewWindow::ViewWindow(View& view, QWidget* parent) : QDialog(parent), view_(view)
{
    setObjectName(view.name());
    setWindowTitle(view.title());
    view_.on_changed = [this] {
        setWindowTitle(view_.title());
        refresh();
    };
    view_.on_close = [this] { end(); };
}

ViewWindow::~ViewWindow()
{
    view_.on_changed = nullptr;
    view_.on_close = nullptr;
}

void ViewWindow::end()
{
    if (ended_)
        return;
    ended_ = true;
    // Leaves exec() for a modal window, hides a child one.
    done(QDialog::Accepted);
    // A child window goes with its sub-window, whichever of the two was closed.
    if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget())) {
        sub->hide();
        sub->deleteLater();
    }
}

void ViewWindow::closeEvent(QCloseEvent* event)
{
    // The close box, Escape and the sub-window's close all land here: the view
    // may refuse; otherwise it unloads, and its on_close ends this window.
    // QDialog's own handling is not called: it would reject() once more.
    if (!view_.is_closed() && !view_.query_close()) {
        event->ignore();
        return;
    }
    view_.close();
    end();
    event->accept();
}

void ViewWindow::reject()
{
    close();
}

}  // namespace plouvarine::gui
