#pragma once
// Tab-separated text files, as spreadsheets open and save them: UTF-8 (written
// with a byte-order mark), one
// header line naming the columns, then one line per row, fields apart by a
// tab. A field cannot hold a tab or a line break: the writer turns them into
// blanks. The reader takes a byte-order mark and "\r\n" line ends, and
// finds a column by its header name, whatever the column order.

#include <QString>
#include <QStringList>
#include <stdexcept>
#include <vector>

namespace plouvarine::exchange {

// A file that cannot be read, or a line that does not fit its header: the
// message names the file's line (1 for the header).
class TabFileError : public std::runtime_error {
public:
    TabFileError(int line, const QString& message)
        : std::runtime_error(message.toStdString()), line_(line), message_(message) {}
    int line() const { return line_; }
    const QString& message() const { return message_; }

private:
    int line_;
    QString message_;
};

// Writes the header and the rows. The file is written beside its place and
// renamed over it once whole. Gives the empty text, or why it failed.
QString write_tab_file(const QString& path, const QStringList& header, const std::vector<QStringList>& rows);

// The column names of the file's first line (without a byte-order mark), or
// nothing when the file cannot be read.
QStringList tab_header(const QString& path);

class TabFile {
public:
    // Reads the whole file. Throws TabFileError for a file that cannot be read,
    // is not UTF-8, has no header, or has a line whose field count differs
    // from the header's. Blank lines are skipped.
    explicit TabFile(const QString& path);

    const QStringList& header() const { return header_; }
    int size() const { return int(rows_.size()); }
    // The file's line number of a row (the header is line 1).
    int line_of(int row) const { return lines_[size_t(row)]; }
    // The row's field of the column named `name` (case ignored), or the empty
    // text when the file has no such column.
    QString field(int row, const QString& name) const;
    bool has_column(const QString& name) const { return column(name) >= 0; }
    // Throws TabFileError when one of the columns is missing.
    void require(const QStringList& names) const;

private:
    int column(const QString& name) const;

    QStringList header_;
    std::vector<QStringList> rows_;
    std::vector<int> lines_;
};

}  // namespace plouvarine::exchange
