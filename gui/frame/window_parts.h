#pragma once
// Pieces every window shares: a report-style list bound to a view's model and
// selection, the row of command buttons, a field written without echo, a
// digit-only field, and the registration of a window class for its view.

#include <QAbstractButton>
#include <QButtonGroup>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QRegularExpressionValidator>
#include <QSignalBlocker>
#include <QStandardItemModel>
#include <QTreeView>
#include <functional>

#include "gui/frame/view_window.h"
#include "gui/frame/window_factory.h"

namespace plouvarine::gui {

// A list that shares the view's model and selection, with the Delete key and
// the double click forwarded.
class BoundList : public QTreeView {
public:
    // The rows a column's width is fitted to: QHeaderView's default, or only
    // those in view, for lists long enough that measuring costs more than
    // reading them (the licences: tens of thousands of rows).
    static constexpr int kFirstThousandRows = 1000;
    static constexpr int kVisibleRowsOnly = 0;

    BoundList(const QString& name, QAbstractItemModel& model, QItemSelectionModel& selection, QWidget* parent,
              bool multiple = false, int fitted_rows = kFirstThousandRows)
        : QTreeView(parent)
    {
        setObjectName(name);
        header()->setResizeContentsPrecision(fitted_rows);
        setRootIsDecorated(false);
        setUniformRowHeights(true);
        setEditTriggers(QAbstractItemView::NoEditTriggers);
        setSelectionBehavior(QAbstractItemView::SelectRows);
        setSelectionMode(multiple ? QAbstractItemView::ExtendedSelection : QAbstractItemView::SingleSelection);
        setModel(&model);
        setSelectionModel(&selection);
        // Codes and names show whole, measured again as the rows change; the
        // last column takes what is left.
        header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        header()->setStretchLastSection(true);
        connect(this, &QTreeView::doubleClicked, this, [this] {
            if (on_activated)
                on_activated();
        });
        // The row drawn as current is the row the commands act on: a current
        // row that the view set alone (the first one, on focus) is selected too.
        connect(&selection, &QItemSelectionModel::currentChanged, this,
                [this](const QModelIndex& current) { select_current(current); });
        select_current(selection.currentIndex());
    }
    std::function<void()> on_activated;
    std::function<void()> on_delete_key;

    // Draws the arrow of the order the rows are in: `column` counts from 1,
    // 0 for no order of the person's.
    void show_sort(int column, bool ascending)
    {
        header()->setSortIndicatorShown(column > 0);
        if (column > 0)
            header()->setSortIndicator(column - 1, ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
    }

protected:
    void focusInEvent(QFocusEvent* event) override
    {
        QTreeView::focusInEvent(event);
        select_current(currentIndex());
    }
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

private:
    void select_current(const QModelIndex& current)
    {
        QItemSelectionModel* selection = selectionModel();
        if (!current.isValid() || !selection || selection->isRowSelected(current.row(), current.parent()))
            return;
        // A multiple choice keeps its rows; an empty one takes the current row.
        if (selectionMode() == QAbstractItemView::ExtendedSelection && selection->hasSelection())
            return;
        selection->select(current, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
};

// A command button at the end of `row`, a row or a column of buttons; taking
// the focus does not make it the default button.
inline QPushButton* add_button(QBoxLayout* row, const QString& name, const QString& caption,
                               std::function<void()> action)
{
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    button->setAutoDefault(false);
    QObject::connect(button, &QPushButton::clicked, button, [action = std::move(action)] { action(); });
    row->addWidget(button);
    return button;
}

// Shows `text` in the field without telling the view, which holds it already.
inline void set_text(QLineEdit* edit, const QString& text)
{
    if (edit->text() == text)
        return;
    const QSignalBlocker block(edit);
    edit->setText(text);
}

// Lets only the digits "0" to "9" be typed in the field.
inline void digits_only(QLineEdit* edit)
{
    edit->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), edit));
}

// Ticks the option `id` of the group without telling anyone; an id the group
// does not hold leaves every option unticked.
inline void check_option(QButtonGroup* group, int id)
{
    const QSignalBlocker block(group);
    if (QAbstractButton* button = group->button(id)) {
        button->setChecked(true);
        return;
    }
    group->setExclusive(false);
    for (QAbstractButton* button : group->buttons())
        button->setChecked(false);
    group->setExclusive(true);
}

// Registers the window class W for the views of type V shown under `name`;
// `extra` goes to W's constructor after the view and the parent.
template <typename V, typename W, typename... Extra>
void register_view_window(const QString& name, Extra... extra)
{
    register_window(name, [extra...](View& view, QWidget* parent) -> ViewWindow* {
        auto* typed = dynamic_cast<V*>(&view);
        return typed ? new W(*typed, parent, extra...) : nullptr;
    });
}

}  // namespace plouvarine::gui
