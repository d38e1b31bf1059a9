#pragma once
// Pieces the club and profile windows share: a report-style list bound to a
// view's model and selection, and the row of command buttons.

#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTreeView>
#include <functional>

namespace plouvarine::gui {

// A list that shares the view's model and selection, with the Delete key and
// the double click forwarded.
class BoundList : public QTreeView {
public:
    BoundList(const QString& name, QStandardItemModel& model, QItemSelectionModel& selection, QWidget* parent,
              bool multiple = false)
        : QTreeView(parent)
    {
        setObjectName(name);
        setRootIsDecorated(false);
        setUniformRowHeights(true);
        setEditTriggers(QAbstractItemView::NoEditTriggers);
        setSelectionBehavior(QAbstractItemView::SelectRows);
        setSelectionMode(multiple ? QAbstractItemView::ExtendedSelection : QAbstractItemView::SingleSelection);
        setModel(&model);
        setSelectionModel(&selection);
        header()->setStretchLastSection(true);
        // Codes and names show whole; only the rows on screen are measured.
        for (int c = 0; c + 1 < model.columnCount(); ++c)
            resizeColumnToContents(c);
        connect(this, &QTreeView::doubleClicked, this, [this] {
            if (on_activated)
                on_activated();
        });
    }
    std::function<void()> on_activated;
    std::function<void()> on_delete_key;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->key() == Qt::Key_Delete && on_delete_key) {
            on_delete_key();
            return;
        }
        if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && on_activated) {
            on_activated();
            return;
        }
        QTreeView::keyPressEvent(event);
    }
};

inline QPushButton* add_button(QHBoxLayout* row, const QString& name, const QString& caption,
                               std::function<void()> action)
{
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    button->setAutoDefault(false);
    QObject::connect(button, &QPushButton::clicked, button, [action = std::move(action)] { action(); });
    row->addWidget(button);
    return button;
}

}  // namespace plouvarine::gui
