// Tables of the RTF reader: the row definitions (\trowd ... \cellx) and the
// cells (\cell, \row) become a QTextTable, with widths, borders and merges.

#include "src/reports/rtf_reader_state.h"

#include <QTextBlock>

#include <algorithm>

namespace plouvarine::rtf_detail {

bool Reader::table_word(const std::string& w, bool has_param, int param)
{
    static const std::map<std::string, int> sides = {{"clbrdrt", 0}, {"clbrdrl", 1}, {"clbrdrb", 2}, {"clbrdrr", 3}};
    if (w == "intbl") {
        st_.para.in_table = true;
    } else if (w == "itap") {
        st_.para.in_table = param > 0;
    } else if (w == "trowd") {
        row_def_ = RowDef();
        cell_def_ = CellDef();
        border_side_ = -1;
    } else if (w == "trgaph") {
        row_def_.gap = std::max(0, param);
    } else if (w == "trleft") {
        row_def_.left = param;
    } else if (w == "trql" || w == "trqc" || w == "trqr") {
        row_def_.align = w == "trqc" ? Qt::AlignHCenter : w == "trqr" ? Qt::AlignRight : Qt::AlignLeft;
    } else if (w == "cellx") {
        cell_def_.right = param;
        row_def_.cells.push_back(cell_def_);
        cell_def_ = CellDef();
        border_side_ = -1;
    } else if (const auto it = sides.find(w); it != sides.end()) {
        border_side_ = it->second;
        cell_def_.border[border_side_] = 15;  // a plain line until \brdrw says
    } else if (w.rfind("trbrdr", 0) == 0 || w == "brdrt" || w == "brdrl" || w == "brdrb" || w == "brdrr" ||
               w == "box") {
        border_side_ = -1;  // the row's or the paragraph's borders: not drawn
    } else if (w == "brdrw") {
        if (border_side_ >= 0 && has_param)
            cell_def_.border[border_side_] = std::max(1, param);
    } else if (w == "brdrnone" || w == "brdrnil" || w == "brdrtbl") {
        if (border_side_ >= 0)
            cell_def_.border[border_side_] = -1;
    } else if (w == "clmgf") {
        cell_def_.hmerge_first = true;
    } else if (w == "clmrg") {
        cell_def_.hmerge = true;
    } else if (w == "clvmgf") {
        cell_def_.vmerge_first = true;
    } else if (w == "clvmrg") {
        cell_def_.vmerge = true;
    } else if (w == "clvertalt") {
        cell_def_.valign = QTextCharFormat::AlignTop;
    } else if (w == "clvertalc") {
        cell_def_.valign = QTextCharFormat::AlignMiddle;
    } else if (w == "clvertalb") {
        cell_def_.valign = QTextCharFormat::AlignBottom;
    } else if (w == "clcbpat") {
        cell_def_.shade = param;
    } else {
        return false;
    }
    return true;
}

void Reader::ensure_cell()
{
    if (st_.dest != Dest::Text)
        return;
    Sink& o = out();
    if (!st_.para.in_table) {
        end_table();
        return;
    }
    if (!o.table) {
        flush();
        QTextTableFormat format;
        format.setBorder(0);
        format.setBorderCollapse(true);
        format.setCellSpacing(0);
        format.setCellPadding(units_from_twips(row_def_.gap));
        format.setAlignment(row_def_.align);
        const int columns = std::max<int>(1, int(row_def_.cells.size()));
        o.table = o.cursor.insertTable(1, columns, format);
        o.bounds.clear();
        for (const CellDef& cell : row_def_.cells)
            o.bounds.push_back(std::max(cell.right, o.bounds.empty() ? row_def_.left : o.bounds.back()));
        o.table_left = row_def_.left;
        o.vmerge_top.assign(size_t(columns), 0);
        o.row = 0;
        o.row_done = false;
        o.cell = 0;
        o.cell_open = false;
        start_row();
        set_column_widths();
    } else if (o.row_done) {
        o.table->appendRows(1);
        ++o.row;
        o.row_done = false;
        o.cell = 0;
        o.cell_open = false;
        start_row();
    }
    if (o.cell_open)
        return;
    // A cell beyond the row's definition takes the next column.
    while (o.cell >= int(o.cell_columns.size())) {
        const int next = o.cell_columns.empty() ? 0 : o.cell_ends.back() + 1;
        o.cell_columns.push_back(next);
        o.cell_ends.push_back(next);
    }
    const int column = o.cell_columns[size_t(o.cell)];
    if (column >= o.table->columns()) {
        o.table->appendColumns(column - o.table->columns() + 1);
        o.vmerge_top.resize(size_t(o.table->columns()), 0);
    }
    o.cursor = o.table->cellAt(o.row, column).firstCursorPosition();
    o.cell_open = true;
    o.pending_par = false;
}

void Reader::start_row()
{
    // Each cell of the row definition to the columns of the table, by its
    // right edge: a cell over several columns spans them.
    Sink& o = out();
    o.cell_columns.clear();
    o.cell_ends.clear();
    int next = 0;
    for (const CellDef& cell : row_def_.cells) {
        size_t end = 0;
        while (end < o.bounds.size() && o.bounds[end] + 20 < cell.right)
            ++end;
        if (end == o.bounds.size()) {
            o.bounds.push_back(cell.right);
            o.table->appendColumns(std::max(0, int(o.bounds.size()) - o.table->columns()));
            o.vmerge_top.resize(size_t(o.table->columns()), 0);
            set_column_widths();
        }
        const int last = std::max(next, int(end));
        o.cell_columns.push_back(next);
        o.cell_ends.push_back(last);
        next = last + 1;
    }
}

void Reader::set_column_widths()
{
    Sink& o = out();
    if (o.bounds.empty())
        return;
    QList<QTextLength> widths;
    int left = o.table_left;
    for (const int right : o.bounds) {
        widths << QTextLength(QTextLength::FixedLength, units_from_twips(std::max(1, right - left)));
        left = right;
    }
    while (widths.size() < o.table->columns())
        widths << QTextLength();
    QTextTableFormat format = o.table->format();
    format.setColumnWidthConstraints(widths);
    o.table->setFormat(format);
}

void Reader::end_cell()
{
    if (st_.dest != Dest::Text)
        return;
    if (!st_.para.in_table) {
        put(QStringLiteral("\t"));  // a cell out of any table: kept apart by a tab
        return;
    }
    ensure_cell();
    Sink& o = out();
    if (!o.pending_par) {
        flush();
        o.cursor.setBlockFormat(block_format());
        if (o.cursor.block().length() == 1)
            o.cursor.setBlockCharFormat(char_format(st_.chr));
        add_to_list();
    }
    o.pending_par = false;
    ++o.cell;
    o.cell_open = false;
}

void Reader::end_row()
{
    Sink& o = out();
    if (!o.table) {
        end_paragraph();
        return;
    }
    if (o.cell_open)
        end_cell();
    format_row();
    o.row_done = true;
}

void Reader::format_row()
{
    Sink& o = out();
    int merge_from = -1;
    for (size_t i = 0; i < row_def_.cells.size() && i < o.cell_columns.size(); ++i) {
        const CellDef& def = row_def_.cells[i];
        const int first = o.cell_columns[i];
        const int last = o.cell_ends[i];
        if (last >= o.table->columns())
            break;
        QTextTableCell cell = o.table->cellAt(o.row, first);
        QTextTableCellFormat format = cell.format().toTableCellFormat();
        const auto border = [&](int side) {
            return def.border[side] < 0 ? 0.0 : units_from_twips(def.border[side]);
        };
        format.setTopBorder(border(0));
        format.setLeftBorder(border(1));
        format.setBottomBorder(border(2));
        format.setRightBorder(border(3));
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setBorderBrush(QBrush(Qt::black));
        format.setVerticalAlignment(def.valign);
        if (def.shade > 0 && def.shade < colors_.size() && colors_.at(def.shade).isValid())
            format.setBackground(colors_.at(def.shade));
        cell.setFormat(format);
        if (def.hmerge && merge_from >= 0)
            o.table->mergeCells(o.row, merge_from, 1, last - merge_from + 1);
        else if (last > first)
            o.table->mergeCells(o.row, first, 1, last - first + 1);
        if (!def.hmerge)
            merge_from = def.hmerge_first ? first : -1;
        if (def.vmerge_first)
            o.vmerge_top[size_t(first)] = o.row;
        if (def.vmerge) {
            const int top = std::min(o.vmerge_top[size_t(first)], o.row);
            o.table->mergeCells(top, first, o.row - top + 1, last - first + 1);
        }
    }
}

void Reader::end_table()
{
    Sink& o = out();
    if (!o.table)
        return;
    flush();
    QTextCursor after = o.table->lastCursorPosition();
    after.movePosition(QTextCursor::NextBlock);
    o.cursor = after;
    // The paragraph after the table is the one that follows in the file.
    o.cursor.setBlockCharFormat(char_format(st_.chr));
    o.table = nullptr;
    o.pending_par = false;
}

}  // namespace plouvarine::rtf_detail
