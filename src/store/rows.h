#pragma once
// The in-memory result of a read: every value as text, one list per selected
// column. A read with no row still has its columns, each empty.

#include <QString>
#include <QStringList>
#include <vector>

namespace plouvarine {

class Rows {
public:
    Rows() = default;
    explicit Rows(QStringList names) : names_(std::move(names)), columns_(names_.size()) {}

    int size() const { return columns_.empty() ? 0 : int(columns_.front().size()); }
    bool empty() const { return size() == 0; }
    int column_count() const { return int(columns_.size()); }
    const QStringList& names() const { return names_; }

    // Column `column` (0 for the first selected field), every row in order.
    const QStringList& column(int column) const { return columns_.at(size_t(column)); }
    // The value of row `row` (0 for the first) in column `column`.
    const QString& value(int row, int column = 0) const { return columns_.at(size_t(column)).at(row); }
    // The first row's value of a column, or the empty text when there is no row.
    QString first(int column = 0) const { return empty() ? QString() : value(0, column); }

    void append(int column, const QString& text) { columns_[size_t(column)].append(text); }

private:
    QStringList names_;
    std::vector<QStringList> columns_;
};

}  // namespace plouvarine
