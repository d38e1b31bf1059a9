#pragma once
// A read kept as the engine gave it: every value's UTF-8 bytes in one arena,
// made into a QString only when a cell is asked for. A long list keeps its
// rows this way and pays for the texts of the cells it draws, not of every
// cell read. The texts are those of Rows, value for value: a null as the null
// text, booleans "Vrai"/"Faux", numbers in their plain form.

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <vector>

namespace plouvarine {

class RawRows {
public:
    RawRows() = default;
    explicit RawRows(QStringList names) : names_(std::move(names)) {}

    int size() const { return names_.isEmpty() ? 0 : int(ends_.size() / size_t(names_.size())); }
    bool empty() const { return size() == 0; }
    int column_count() const { return int(names_.size()); }
    const QStringList& names() const { return names_; }

    // The value of row `row` (0 for the first) in column `column`, as text.
    QString value(int row, int column = 0) const;
    // The same value's bytes, left in the arena (a null view for a null).
    QByteArrayView utf8(int row, int column = 0) const;
    bool is_null(int row, int column = 0) const { return (ends_[cell(row, column)] & kNull) != 0; }
    // The first row's value of a column, or the empty text when there is no row.
    QString first(int column = 0) const { return empty() ? QString() : value(0, column); }

    // Adds the next value, row after row and column after column; a null view
    // is a null. Throws std::length_error past 2 GB of text.
    void append(QByteArrayView utf8);

private:
    size_t cell(int row, int column) const;

    // The high bit of a cell's end marks a null (which has no bytes).
    static constexpr std::uint32_t kNull = 0x80000000u;

    QStringList names_;
    QByteArray arena_;
    // Cell i (row-major) ends where ends_[i] says and begins where cell i - 1 ends.
    std::vector<std::uint32_t> ends_;
};

}  // namespace plouvarine
