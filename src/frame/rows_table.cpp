#include "src/frame/rows_table.h"

#include <numeric>

namespace plouvarine {

void RowsTable::reset(RawRows rows, std::vector<Column> columns)
{
    beginResetModel();
    rows_ = std::move(rows);
    columns_ = std::move(columns);
    shown_.resize(size_t(rows_.size()));
    std::iota(shown_.begin(), shown_.end(), 0);
    endResetModel();
}

void RowsTable::set_role(int role, int source)
{
    roles_.insert(role, [source](const RawRows& rows, int row) { return rows.value(row, source); });
}

void RowsTable::set_role(int role, RowText text)
{
    roles_.insert(role, std::move(text));
}

QString RowsTable::text(int row, int column) const
{
    return data(index(row, column)).toString();
}

QString RowsTable::header_text(int column) const
{
    return headerData(column, Qt::Horizontal).toString();
}

int RowsTable::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(shown_.size());
}

int RowsTable::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(columns_.size());
}

QVariant RowsTable::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const int row = shown_[size_t(index.row())];
    if (role == Qt::DisplayRole || role == Qt::EditRole) {
        const Column& column = columns_[size_t(index.column())];
        if (column.source < 0 || column.source >= rows_.column_count())
            return {};
        const QString value = rows_.value(row, column.source);
        return column.format ? column.format(value) : value;
    }
    if (index.column() == 0)
        if (const auto found = roles_.constFind(role); found != roles_.constEnd())
            return found.value()(rows_, row);
    return {};
}

QVariant RowsTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0 && section < int(columns_.size()))
        return columns_[size_t(section)].header;
    return QAbstractTableModel::headerData(section, orientation, role);
}

Qt::ItemFlags RowsTable::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
}

bool RowsTable::removeRows(int row, int count, const QModelIndex& parent)
{
    if (parent.isValid() || row < 0 || count <= 0 || row + count > rowCount())
        return false;
    beginRemoveRows(parent, row, row + count - 1);
    shown_.erase(shown_.begin() + row, shown_.begin() + row + count);
    endRemoveRows();
    return true;
}

}  // namespace plouvarine
