#pragma once
// The inside of the RTF reader, shared by its files: the state of a group, of
// a paragraph, of a table and of a picture being read, and the reader itself.
// Nothing here is for use outside src/reports/rtf_reader*.cpp.

#include "src/base/doc_units.h"
#include "src/reports/rtf_reader.h"

#include <QColor>
#include <QList>
#include <QString>
#include <QStringDecoder>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextList>
#include <QTextOption>
#include <QTextTable>

#include <array>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace plouvarine::rtf_detail {

enum class Dest { Text, Skip, FontTable, ColorTable, Picture, ListText, ListDef };

struct CharState {
    int font = -1;         // -1: the default font
    int half_points = 24;  // 12 pt
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike = false;
    QTextCharFormat::VerticalAlignment script = QTextCharFormat::AlignNormal;
    int color = 0;         // 0: automatic
    bool operator==(const CharState&) const = default;
};

struct ParaState {
    Qt::Alignment align = Qt::AlignLeft;
    QList<QTextOption::Tab> tabs;
    QTextOption::TabType next_tab = QTextOption::LeftTab;
    int left = 0, right = 0, first = 0, before = 0, after = 0;  // twips
    int line = 0;          // \sl: >0 at least, <0 exactly, in twips
    bool line_multiple = false;
    bool in_table = false;
    // A list item: \ls (Word's and LibreOffice's lists) or \pn (the older form).
    int ls = 0;
    int level = 0;
    bool pn = false;
    QTextListFormat::Style pn_style = QTextListFormat::ListDisc;
};

// The picture being read.
struct PictState {
    enum Kind { Unknown, Png, Jpeg, Emf, Wmf, Other } kind = Unknown;
    int w = 0, h = 0;          // pixels for PNG and JPEG
    int goal_w = 0, goal_h = 0;  // twips
    int scale_x = 100, scale_y = 100;
    QByteArray hex;
    QByteArray bin;
};

struct CellDef {
    int right = 0;  // twips, from the row's left
    int border[4] = {-1, -1, -1, -1};  // top, left, bottom, right: width in twips, -1 none
    bool hmerge_first = false, hmerge = false;
    bool vmerge_first = false, vmerge = false;
    QTextCharFormat::VerticalAlignment valign = QTextCharFormat::AlignTop;
    int shade = 0;  // colour index, 0 none
};

struct RowDef {
    std::vector<CellDef> cells;
    int gap = 108;  // half the space between cells, twips
    int left = 0;
    Qt::Alignment align = Qt::AlignLeft;
};

// Where the text goes: the body, the header or the footer, each with its own
// paragraph in progress, table and lists.
struct Sink {
    explicit Sink(QTextDocument* document) : cursor(document) {}
    QTextCursor cursor;
    QString pending;
    CharState pending_chr;
    bool pending_par = false;
    bool page_break_next = false;
    bool page_break_here = false;
    // The table being read.
    QTextTable* table = nullptr;
    std::vector<int> bounds;     // the right edge of each column, twips
    std::vector<int> vmerge_top;  // per column, the row where a vertical merge began
    int row = 0;
    int cell = 0;
    bool row_done = false;      // \row seen: the next cell opens a new row
    std::vector<int> cell_columns;  // the first column of each cell of the row
    std::vector<int> cell_ends;     // and its last
    int table_left = 0;
    bool cell_open = false;
    // The lists met so far, by their \ls and level or their \pn form.
    std::map<QString, QTextList*> lists;
    QString last_list;
};

struct GroupState {
    CharState chr;
    ParaState para;
    int uc = 1;
    Dest dest = Dest::Text;
    Sink* sink = nullptr;
};

struct FontEntry {
    QString name;
    int codepage = 0;
};

class Reader {
public:
    Reader(const QByteArray& data, QTextDocument& document, RtfExtras* extras)
        : in_(data), body_(&document), extras_(extras)
    {
        st_.sink = &body_;
    }

    void run();

private:
    void open_group();
    void close_group();
    void control();
    void word(const std::string& name, bool has_param, int param);
    void symbol(char c);
    void plain_byte(unsigned char c);
    void decoded_byte(unsigned char c);
    void put(const QString& text);
    void flush();
    void close_open_paragraph();
    void end_paragraph();
    void materialize_paragraph();
    QTextCharFormat char_format(const CharState& chr) const;
    QTextBlockFormat block_format() const;
    int codepage() const;
    QChar decode(unsigned char byte);
    bool skipping_fallback();
    bool table_word(const std::string& w, bool has_param, int param);
    bool page_word(const std::string& w, int param);
    bool list_word(const std::string& w, int param);
    void enter_part(const std::string& w);
    void picture_word(const std::string& w, int param);
    void finish_picture();
    void ensure_cell();
    void start_row();
    void end_cell();
    void end_row();
    void end_table();
    void format_row();
    void set_column_widths();
    void add_to_list();
    void finish_page();

    Sink& out() { return *st_.sink; }
    const Sink& out() const { return *st_.sink; }

    const QByteArray& in_;
    qsizetype pos_ = 0;
    Sink body_;
    RtfExtras* extras_;
    std::array<std::unique_ptr<Sink>, 4> parts_;  // header, footer, first page's header and footer
    std::vector<GroupState> stack_;
    GroupState st_;
    int overflow_ = 0;
    bool group_start_ = false;
    bool star_ = false;
    bool done_ = false;

    std::map<int, FontEntry> fonts_;
    int deff_ = 0;
    int ansicpg_ = 1252;
    std::map<int, std::unique_ptr<QStringDecoder>> decoders_;
    // Font table entry being read.
    int font_num_ = 0;
    int font_charset_cp_ = 0;
    QString font_name_;
    // Colour table entry being read.
    QList<QColor> colors_;
    int red_ = -1, green_ = -1, blue_ = -1;

    int fallback_left_ = 0;

    PictState pict_;
    bool in_shppict_ = false;
    bool shppict_drawn_ = false;   // the last \shppict gave a picture
    bool shppict_noted_ = false;   // the last \shppict left a note
    QString list_label_;           // the text of \listtext: tells bullets from numbers
    RowDef row_def_;
    CellDef cell_def_;
    int border_side_ = -1;
    // The page: document values, then the section's.
    int paper_w_ = 0, paper_h_ = 0;
    int margin_[4] = {-1, -1, -1, -1};  // left, top, right, bottom
    bool landscape_ = false;
    bool title_page_ = false;
    int header_y_ = 720, footer_y_ = 720;
};

// The list style that a list item's label shows: "1." numbers, "a)" letters, a
// bullet otherwise.
QTextListFormat::Style label_style(const QString& label);

}  // namespace plouvarine::rtf_detail
