#include "src/store/raw_rows.h"

#include <stdexcept>

namespace plouvarine {

size_t RawRows::cell(int row, int column) const
{
    if (row < 0 || row >= size() || column < 0 || column >= column_count())
        throw std::out_of_range("RawRows: no such cell");
    return size_t(row) * size_t(names_.size()) + size_t(column);
}

QByteArrayView RawRows::utf8(int row, int column) const
{
    const size_t i = cell(row, column);
    if (ends_[i] & kNull)
        return {};
    const std::uint32_t begin = i == 0 ? 0 : ends_[i - 1] & ~kNull;
    // constData() is never null, so an empty text stays an empty (not null) view.
    return QByteArrayView(arena_.constData() + begin, qsizetype(ends_[i] - begin));
}

QString RawRows::value(int row, int column) const
{
    return QString::fromUtf8(utf8(row, column));
}

void RawRows::append(QByteArrayView utf8)
{
    if (quint64(arena_.size()) + quint64(utf8.size()) >= kNull)
        throw std::length_error("RawRows: more than 2 GB of text");
    arena_.append(utf8);
    ends_.push_back(std::uint32_t(arena_.size()) | (utf8.isNull() ? kNull : 0));
}

}  // namespace plouvarine
