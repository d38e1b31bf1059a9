#include "src/frame/list_helpers.h"

#include "src/store/database.h"

#include <QItemSelectionModel>
#include <QStandardItemModel>
#include <algorithm>
#include <stdexcept>

namespace plouvarine {

namespace {

QString cell(const QAbstractItemModel& model, int row, int column, int role = Qt::DisplayRole)
{
    return model.data(model.index(row, column), role).toString();
}

bool holds(const QString& value, const QString& text, bool whole, bool partial)
{
    if (partial)
        return value.startsWith(text, Qt::CaseInsensitive);
    if (whole)
        return value.startsWith(text, Qt::CaseInsensitive)
               && (value.size() == text.size() || !value.at(text.size()).isLetterOrNumber());
    return value.compare(text, Qt::CaseInsensitive) == 0;
}

}  // namespace

QString row_key(const QAbstractItemModel& model, int row)
{
    return cell(model, row, 0, kKeyRole);
}

void set_row_key(QAbstractItemModel& model, int row, const QString& key)
{
    model.setData(model.index(row, 0), key, kKeyRole);
}

std::optional<int> find_key(const QAbstractItemModel& model, const QString& key)
{
    for (int row = 0; row < model.rowCount(); ++row)
        if (row_key(model, row) == key)
            return row;
    return std::nullopt;
}

std::optional<int> find_row(const QAbstractItemModel& model, const QString& text, int from, bool whole,
                            bool partial, int column)
{
    const int count = model.rowCount();
    if (from < 0 || from >= count)
        from = 0;
    for (int row = from; row < count; ++row)
        if (holds(cell(model, row, column), text, whole, partial))
            return row;
    return std::nullopt;
}

void select_row_at(QItemSelectionModel& selection, int row)
{
    const QAbstractItemModel* model = selection.model();
    if (!model || row < 0 || row >= model->rowCount()) {
        selection.clear();
        return;
    }
    selection.setCurrentIndex(model->index(row, 0),
                              QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

std::optional<int> select_row(QItemSelectionModel& selection, const QString& text, int column)
{
    if (!selection.model())
        return std::nullopt;
    const auto row = find_row(*selection.model(), text, 0, false, false, column);
    if (row)
        select_row_at(selection, *row);
    return row;
}

QStandardItem* fixed_cell(const QString& text)
{
    auto* item = new QStandardItem(text);
    item->setEditable(false);
    return item;
}

QList<QStandardItem*> fixed_row(const QStringList& cells)
{
    QList<QStandardItem*> row;
    row.reserve(cells.size());
    for (const QString& text : cells)
        row << fixed_cell(text);
    return row;
}

std::optional<int> row_after_removal(int removed_row, int row_count)
{
    if (row_count <= 0)
        return std::nullopt;
    return std::clamp(removed_row, 0, row_count - 1);
}

std::optional<int> select_last_row(QItemSelectionModel& selection, int removed_row)
{
    const int count = selection.model() ? selection.model()->rowCount() : 0;
    const auto row = row_after_removal(removed_row, count);
    select_row_at(selection, row.value_or(-1));
    return row;
}

void check_row(QAbstractItemModel& model, int row, bool value)
{
    model.setData(model.index(row, 0), value ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
}

bool is_checked(const QAbstractItemModel& model, int row)
{
    return model.data(model.index(row, 0), Qt::CheckStateRole).toInt() == Qt::Checked;
}

void check_all(QAbstractItemModel& model, bool value)
{
    for (int row = 0; row < model.rowCount(); ++row)
        check_row(model, row, value);
}

int count_checked(const QAbstractItemModel& model)
{
    int count = 0;
    for (int row = 0; row < model.rowCount(); ++row)
        count += is_checked(model, row) ? 1 : 0;
    return count;
}

std::vector<int> checked_rows(const QAbstractItemModel& model)
{
    std::vector<int> rows;
    for (int row = 0; row < model.rowCount(); ++row)
        if (is_checked(model, row))
            rows.push_back(row);
    return rows;
}

QStringList checked_keys(const QAbstractItemModel& model)
{
    QStringList keys;
    for (int row : checked_rows(model))
        keys << row_key(model, row);
    return keys;
}

int fill_collections(Database& db, const QString& sql, const std::vector<ListFill>& lists, const QString& remove)
{
    for (const ListFill& list : lists)
        list.model->setRowCount(0);

    const Rows rows = db.load_rows(sql);
    for (const ListFill& list : lists) {
        const auto outside = [&](int c) { return c < 0 || c >= rows.column_count(); };
        if (list.columns.empty() || std::any_of(list.columns.begin(), list.columns.end(), outside)
            || (list.key_column != -1 && outside(list.key_column)))
            throw std::invalid_argument("fill_collections: a list names a column the result does not have");
    }

    const int count = rows.size();
    for (const ListFill& list : lists) {
        QStandardItemModel& model = *list.model;
        const int width = int(list.columns.size());
        if (model.columnCount() < width)
            model.setColumnCount(width);
        // One insertion of all the rows, then the cells: a drawn list lays out once.
        model.setRowCount(count);
        for (int row = 0; row < count; ++row) {
            for (int k = 0; k < width; ++k) {
                QString text = rows.value(row, list.columns[size_t(k)]);
                if (k == 0 && !remove.isEmpty())
                    text.remove(remove);
                // Not marked read-only one by one: every view of these lists
                // refuses editing (NoEditTriggers).
                auto* item = new QStandardItem(text);
                if (k == 0) {
                    if (list.key_column >= 0)
                        item->setData(rows.value(row, list.key_column), kKeyRole);
                    if (list.checkable) {
                        item->setCheckable(true);
                        item->setCheckState(Qt::Unchecked);
                    }
                }
                model.setItem(row, k, item);
            }
        }
    }
    return count;
}

std::optional<int> incremental_search(const QAbstractItemModel& model, const QString& typed, int column, int role)
{
    const QString text = typed.trimmed();
    if (text.isEmpty())
        return std::nullopt;
    for (int row = 0; row < model.rowCount(); ++row)
        if (cell(model, row, column, role).startsWith(text, Qt::CaseInsensitive))
            return row;
    return std::nullopt;
}

std::optional<int> incremental_select(QItemSelectionModel& selection, const QString& typed, int column, int role)
{
    if (!selection.model())
        return std::nullopt;
    const auto row = incremental_search(*selection.model(), typed, column, role);
    if (row)
        select_row_at(selection, *row);
    return row;
}

bool search_key_clears(int key_ascii)
{
    return key_ascii == 13 || key_ascii == 27;
}

bool digit_key_accepted(int key_ascii)
{
    return (key_ascii >= '0' && key_ascii <= '9') || (key_ascii >= 0 && key_ascii < 32);
}

QSize MinimumSize::corrected(const QSize& size, bool minimized) const
{
    if (minimized)
        return size;
    return {std::max(size.width(), width), std::max(size.height(), height)};
}

QSize MinimumSize::excess(const QSize& size) const
{
    return {std::max(size.width() - width, 0), std::max(size.height() - height, 0)};
}

QStringList take_selected_rows(QAbstractItemModel& model, QItemSelectionModel& selection)
{
    std::vector<int> rows;
    for (const QModelIndex& index : selection.selectedRows())
        rows.push_back(index.row());
    if (rows.empty() && selection.currentIndex().isValid())
        rows.push_back(selection.currentIndex().row());
    std::sort(rows.rbegin(), rows.rend());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    QStringList keys;
    for (int row : rows) {
        keys << row_key(model, row);
        model.removeRow(row);
    }
    if (!rows.empty())
        select_last_row(selection, rows.back());
    if (model.rowCount() == 0)
        selection.clear();
    return keys;
}

}  // namespace plouvarine
