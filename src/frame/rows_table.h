#pragma once
// A read-only list drawn straight from the rows a statement read: each column
// of the list is one column of the result, served as it is asked for, with no
// item per cell. The rows are kept as UTF-8 (RawRows): a cell becomes a text
// when the view draws it or a search reads it. Filling it costs the stepping
// of the statement and nothing more, which is what a list of tens of
// thousands of swimmers needs.
//
// The row's key rides under kKeyRole on column 0, as in every list; other
// roles of column 0 are result columns or texts made from the row. Rows leave
// the list one by one (the deletion marks); everything else comes back by
// loading again.

#include "src/store/raw_rows.h"

#include <QAbstractTableModel>
#include <QHash>
#include <functional>
#include <vector>

namespace plouvarine {

class RowsTable : public QAbstractTableModel {
public:
    struct Column {
        QString header;
        // The result column shown (0 for the first selected field).
        int source = 0;
        // The shown text made from the stored value, when not the value itself.
        QString (*format)(const QString&) = nullptr;
    };
    // A text of column 0 under some role, made from the row (0-based in `rows`).
    using RowText = std::function<QString(const RawRows& rows, int row)>;

    using QAbstractTableModel::QAbstractTableModel;

    // Shows `rows` under `columns`; the roles set before stay.
    void reset(RawRows rows, std::vector<Column> columns);
    // Column 0 gives, under `role`, the value of result column `source`, or a made text.
    void set_role(int role, int source);
    void set_role(int role, RowText text);

    // The text of a cell as drawn, and of a column's header.
    QString text(int row, int column) const;
    QString header_text(int column) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool removeRows(int row, int count, const QModelIndex& parent = {}) override;

private:
    RawRows rows_;
    std::vector<Column> columns_;
    // The rows of rows_ still in the list, in order: a removal leaves rows_ as read.
    std::vector<int> shown_;
    QHash<int, RowText> roles_;
};

}  // namespace plouvarine
