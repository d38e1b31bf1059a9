#pragma once
// What every list window shares. A list is a QStandardItemModel (or, for a
// long read-only list, a RowsTable over the rows read) drawn as a
// report-style list: one row per record, the row's text in column 0 and its
// sub-items in the following columns. The record's key (Num, AutoNum...) rides
// on the row's first item under kKeyRole, where the old lists kept a hidden
// twin list in step.
//
// Row numbers count from 0, as Qt does; "no row" is std::nullopt.

#include <QSize>
#include <QString>
#include <QStringList>
#include <Qt>
#include <optional>
#include <vector>

class QAbstractItemModel;
class QItemSelectionModel;
class QStandardItem;
class QStandardItemModel;

namespace plouvarine {

class Database;

inline constexpr int kKeyRole = Qt::UserRole + 1;

// The key of a row (0-based), or the empty text.
QString row_key(const QAbstractItemModel& model, int row);
void set_row_key(QAbstractItemModel& model, int row, const QString& key);
// The first row whose key is `key`.
std::optional<int> find_key(const QAbstractItemModel& model, const QString& key);

// Finds the first row, from row `from` on, whose cell in `column` holds
// `text`, without regard to case; no wrapping round past the last row. A
// `from` outside the list is taken as the first row. How a cell holds the text:
//   partial: the cell begins with the text;
//   whole (and not partial): the cell begins with the text as a whole word,
//     that is, equals it or goes on with a character that is not a letter or digit;
//   neither: the cell equals the text.
std::optional<int> find_row(const QAbstractItemModel& model, const QString& text, int from = 0, bool whole = false,
                            bool partial = false, int column = 0);

// Makes `row` (0-based) the current and only selected row; the list view
// scrolls to the current row. A row outside the list clears the selection.
void select_row_at(QItemSelectionModel& selection, int row);
// Finds the row that equals `text` in `column` and selects it; without one the
// selection stays as it is.
std::optional<int> select_row(QItemSelectionModel& selection, const QString& text, int column = 0);
// After the removal of row `removed_row`: the row that took its place, or the
// last row, or none when the list is empty.
std::optional<int> row_after_removal(int removed_row, int row_count);
// Selects that row (or clears the selection on an empty list).
std::optional<int> select_last_row(QItemSelectionModel& selection, int removed_row);

// A cell that cannot be edited in place, and a row of such cells.
QStandardItem* fixed_cell(const QString& text);
QList<QStandardItem*> fixed_row(const QStringList& cells);

// The marking of a deletion list: the selected rows (or the current row when
// none is selected) leave the list; the row after them is selected. Gives their
// keys, in the order the rows stood from the bottom up.
QStringList take_selected_rows(QAbstractItemModel& model, QItemSelectionModel& selection);

// Ticks or unticks the first item of row `row`, and tells whether it is
// ticked; a row outside the list is left alone and is not ticked.
void check_row(QAbstractItemModel& model, int row, bool value);
bool is_checked(const QAbstractItemModel& model, int row);
// Ticks or unticks the first item of every row.
void check_all(QAbstractItemModel& model, bool value);
// The number of ticked rows.
int count_checked(const QAbstractItemModel& model);
// The rows that are ticked, in order (0-based), and their keys.
std::vector<int> checked_rows(const QAbstractItemModel& model);
QStringList checked_keys(const QAbstractItemModel& model);

// One list that fill_collections fills.
struct ListFill {
    QStandardItemModel* model = nullptr;
    // Result columns (0 for the first selected field): the first gives the
    // row's text, the others its sub-items, in order.
    std::vector<int> columns;
    // The result column kept as the row's key, or -1.
    int key_column = -1;
    // Rows get a tick box, unticked.
    bool checkable = false;
};

// Empties each list, runs `sql` through load_rows, and adds to each list one
// row per result row, all lists in step. `remove`, when not empty, is cut out
// of each row's text (every occurrence, as typed). Gives the number of rows.
// The query's error goes to the caller (the lists stay empty); a column that
// the result does not have is std::invalid_argument.
int fill_collections(Database& db, const QString& sql, const std::vector<ListFill>& lists,
                     const QString& remove = {});

// The search of a list as the person types: the first row whose text in
// `column` (read through `role`) begins with the trimmed typed text, without
// regard to case. Empty typed text finds nothing, so the selection stays.
std::optional<int> incremental_search(const QAbstractItemModel& model, const QString& typed, int column = 0,
                                      int role = Qt::DisplayRole);
// The same, selecting the row found; without one the selection stays.
std::optional<int> incremental_select(QItemSelectionModel& selection, const QString& typed, int column = 0,
                                      int role = Qt::DisplayRole);
// Enter and Escape empty the search field; every other key runs the search.
bool search_key_clears(int key_ascii);

// The key filter of the digit-only fields: the digits "0" to "9" and the
// control characters (Backspace, Enter, Escape) go through; every other
// character is dropped. `key_ascii` is the typed character's code.
bool digit_key_accepted(int key_ascii);

// The minimum size of a window, in pixels.
struct MinimumSize {
    int width = 0;
    int height = 0;

    QSize size() const { return {width, height}; }
    // The size a window keeps after a resize to `size`: each side at least its
    // minimum. A minimized window is left as it is.
    QSize corrected(const QSize& size, bool minimized = false) const;
    // How far the window stands beyond its minimum: the controls that follow
    // the right and bottom edges move by it, those that grow with them grow by it.
    QSize excess(const QSize& size) const;

    bool operator==(const MinimumSize&) const = default;
};

}  // namespace plouvarine
