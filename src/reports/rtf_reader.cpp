#include "src/reports/rtf_reader.h"

#include "src/reports/rtf_format.h"
#include "src/reports/rtf_reader_state.h"

#include <QFile>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>

#include <algorithm>
#include <cctype>
#include <set>

namespace plouvarine {

namespace rtf_detail {

namespace {

// Windows-1252 between 0x80 and 0x9F; the rest of the page is Latin-1.
constexpr char16_t kCp1252High[32] = {
    0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

QChar cp1252_char(unsigned char byte)
{
    if (byte >= 0x80 && byte < 0xA0)
        return QChar(kCp1252High[byte - 0x80]);
    return QChar(byte);
}

// The Windows code page of a font's \fcharset.
int charset_codepage(int charset)
{
    static const std::map<int, int> pages = {
        {128, 932}, {129, 949}, {134, 936}, {136, 950}, {161, 1253}, {162, 1254}, {163, 1258},
        {177, 1255}, {178, 1256}, {186, 1257}, {204, 1251}, {222, 874}, {238, 1250}};
    const auto it = pages.find(charset);
    return it == pages.end() ? 0 : it->second;
}

// Destinations whose text is not part of the body.
const std::set<std::string>& skipped_destinations()
{
    static const std::set<std::string> names = {
        "info", "stylesheet", "object", "headerl", "footerl", "footnote", "pntext", "fldinst", "xe", "tc", "txe",
        "bkmkstart", "bkmkend",
        "filetbl", "revtbl", "listtable", "listoverridetable", "rsidtbl", "generator", "pntxta", "pntxtb",
        "themedata", "colorschememapping", "datastore", "latentstyles", "xmlnstbl", "mmathPr", "userprops",
        "docvar", "pgdsctbl", "comment", "annotation", "atnid", "atnauthor", "operator",
        "author", "title", "subject", "keywords", "doccomm", "company", "fchars", "lchars",
        "wgrffmtfilter", "pnseclvl", "template", "printim", "creatim", "revtim", "buptim"};
    return names;
}

const std::map<std::string, char16_t>& symbol_words()
{
    static const std::map<std::string, char16_t> words = {
        {"emdash", 0x2014}, {"endash", 0x2013}, {"bullet", 0x2022}, {"lquote", 0x2018},
        {"rquote", 0x2019}, {"ldblquote", 0x201C}, {"rdblquote", 0x201D}, {"emspace", 0x2003},
        {"enspace", 0x2002}, {"qmspace", 0x2005}, {"zwj", 0x200D}, {"zwnj", 0x200C}};
    return words;
}

bool is_underline_word(const std::string& w)
{
    static const std::set<std::string> words = {
        "ul", "uld", "uldash", "uldashd", "uldashdd", "uldb", "ulhwave", "ulldash", "ulth", "ulthd",
        "ulthdash", "ulthdashd", "ulthdashdd", "ulthldash", "ululdbwave", "ulw", "ulwave"};
    return words.count(w) > 0;
}

constexpr int kMaxDepth = 1000;

}  // namespace

void Reader::run()
{
    while (pos_ < in_.size() && !done_) {
        const char c = in_.at(pos_++);
        switch (c) {
        case '{':
            open_group();
            break;
        case '}':
            close_group();
            break;
        case '\\':
            control();
            break;
        case '\r':
        case '\n':
            break;
        default:
            plain_byte(static_cast<unsigned char>(c));
            break;
        }
    }
    if (!done_)
        close_open_paragraph();  // a truncated document: keep what was read
    end_table();
    finish_page();
}

void Reader::close_open_paragraph()
{
    flush();
    if (!out().pending_par && st_.dest == Dest::Text && !out().table)
        out().cursor.setBlockFormat(block_format());
}

void Reader::open_group()
{
    fallback_left_ = 0;
    if (int(stack_.size()) >= kMaxDepth) {
        ++overflow_;
        return;
    }
    stack_.push_back(st_);
    group_start_ = true;
    star_ = false;
}

void Reader::close_group()
{
    fallback_left_ = 0;
    group_start_ = false;
    star_ = false;
    if (overflow_ > 0) {
        --overflow_;
        return;
    }
    if (stack_.empty()) {
        done_ = true;
        return;
    }
    if (stack_.size() == 1)
        close_open_paragraph();
    if (st_.dest == Dest::Picture && stack_.back().dest != Dest::Picture)
        finish_picture();
    if (st_.sink != stack_.back().sink) {
        // The end of a header or footer: its last paragraph and table close.
        close_open_paragraph();
        end_table();
    }
    if (st_.dest == Dest::FontTable && !font_name_.trimmed().isEmpty())
        fonts_[font_num_] = {font_name_.trimmed(), font_charset_cp_};
    if (st_.dest == Dest::FontTable)
        font_name_.clear();
    st_ = stack_.back();
    stack_.pop_back();
    if (stack_.empty())
        done_ = true;  // the end of the document's group: what follows is no RTF
    else
        flush();
}

bool Reader::skipping_fallback()
{
    if (fallback_left_ > 0) {
        --fallback_left_;
        return true;
    }
    return false;
}

void Reader::control()
{
    if (pos_ >= in_.size())
        return;
    const char c = in_.at(pos_);
    if (!std::isalpha(static_cast<unsigned char>(c))) {
        ++pos_;
        symbol(c);
        return;
    }
    std::string name;
    while (pos_ < in_.size() && std::isalpha(static_cast<unsigned char>(in_.at(pos_))) && name.size() < 32)
        name += in_.at(pos_++);
    bool negative = false;
    bool has_param = false;
    long long param = 0;
    if (pos_ < in_.size() && in_.at(pos_) == '-') {
        negative = true;
        ++pos_;
    }
    int digits = 0;
    while (pos_ < in_.size() && std::isdigit(static_cast<unsigned char>(in_.at(pos_)))) {
        if (digits++ < 10)
            param = param * 10 + (in_.at(pos_) - '0');
        has_param = true;
        ++pos_;
    }
    if (pos_ < in_.size() && in_.at(pos_) == ' ')
        ++pos_;
    param = std::clamp(negative ? -param : param, -2147483647LL, 2147483647LL);

    if (name == "bin") {
        // Binary data: a picture's, or skipped.
        const qsizetype end = std::min<qsizetype>(in_.size(), pos_ + std::max<long long>(0, param));
        if (st_.dest == Dest::Picture)
            pict_.bin += in_.mid(pos_, end - pos_);
        pos_ = end;
        return;
    }
    if (skipping_fallback())
        return;
    word(name, has_param, int(param));
}

void Reader::symbol(char c)
{
    if (c == '*') {
        star_ = true;
        return;
    }
    if (c == '\'') {
        int value = 0;
        int read = 0;
        while (read < 2 && pos_ < in_.size() && std::isxdigit(static_cast<unsigned char>(in_.at(pos_)))) {
            const char h = char(std::tolower(static_cast<unsigned char>(in_.at(pos_))));
            value = value * 16 + (h <= '9' ? h - '0' : h - 'a' + 10);
            ++pos_;
            ++read;
        }
        if (read == 0 || skipping_fallback())
            return;
        decoded_byte(static_cast<unsigned char>(value));
        return;
    }
    if (skipping_fallback())
        return;
    switch (c) {
    case '\\':
    case '{':
    case '}':
        plain_byte(static_cast<unsigned char>(c));
        break;
    case '~':
        if (st_.dest == Dest::Text)
            put(QString(QChar(0x00A0)));
        break;
    case '_':
        if (st_.dest == Dest::Text)
            put(QString(QChar(0x2011)));
        break;
    case '\r':
    case '\n':
        if (st_.dest == Dest::Text)
            end_paragraph();
        break;
    case '\t':
        if (st_.dest == Dest::Text)
            put(QStringLiteral("\t"));
        break;
    default:
        break;  // optional hyphen, index marks and unknown symbols
    }
}

void Reader::word(const std::string& w, bool has_param, int param)
{
    const bool at_start = group_start_;
    const bool starred = star_;
    group_start_ = false;
    star_ = false;

    if (st_.dest == Dest::Skip)
        return;
    if (st_.dest == Dest::Picture) {
        // The groups inside a picture (its properties, its id) hold no data.
        if (at_start)
            st_.dest = Dest::Skip;
        else
            picture_word(w, param);
        return;
    }
    if (st_.dest == Dest::ListDef) {
        list_word(w, param);
        return;
    }
    if (w == "pict") {
        st_.dest = st_.dest == Dest::Text ? Dest::Picture : Dest::Skip;
        pict_ = PictState();
        return;
    }
    if (w == "shppict") {
        in_shppict_ = true;
        shppict_drawn_ = shppict_noted_ = false;
        return;
    }
    if (w == "nonshppict") {
        // The stand-in that older readers draw: wanted only when the picture
        // proper could not be drawn.
        if (shppict_drawn_ || !shppict_noted_)
            st_.dest = Dest::Skip;
        return;
    }
    if (w == "listtext") {
        st_.dest = st_.dest == Dest::Text ? Dest::ListText : Dest::Skip;
        list_label_.clear();
        return;
    }
    if (w == "pn" && st_.dest == Dest::Text) {
        st_.dest = Dest::ListDef;
        st_.para.pn = true;
        st_.para.pn_style = QTextListFormat::ListDecimal;
        if (!stack_.empty())
            stack_.back().para = st_.para;
        return;
    }
    if (w == "header" || w == "headerr" || w == "footer" || w == "footerr" || w == "headerf" || w == "footerf") {
        enter_part(w);
        return;
    }
    if (w == "fonttbl") {
        st_.dest = Dest::FontTable;
        font_name_.clear();
        return;
    }
    if (w == "colortbl") {
        st_.dest = Dest::ColorTable;
        colors_.clear();
        red_ = green_ = blue_ = -1;
        return;
    }
    if (skipped_destinations().count(w) || (starred && at_start)) {
        st_.dest = Dest::Skip;
        return;
    }
    if (st_.dest == Dest::FontTable) {
        if (w == "f") {
            if (!font_name_.trimmed().isEmpty())
                fonts_[font_num_] = {font_name_.trimmed(), font_charset_cp_};
            font_name_.clear();
            font_num_ = param;
            font_charset_cp_ = 0;
        } else if (w == "fcharset") {
            font_charset_cp_ = param == 2 ? -1 : charset_codepage(param);
        } else if (w == "cpg") {
            font_charset_cp_ = param;
        } else if (w == "u") {
            font_name_ += QChar(char16_t(param < 0 ? param + 65536 : param));
            fallback_left_ = st_.uc;
        }
        return;
    }
    if (st_.dest == Dest::ColorTable) {
        if (w == "red")
            red_ = param;
        else if (w == "green")
            green_ = param;
        else if (w == "blue")
            blue_ = param;
        return;
    }

    // The document's header.
    if (w == "ansicpg") {
        ansicpg_ = param > 0 ? param : 1252;
    } else if (w == "deff") {
        deff_ = param;
    } else if (w == "uc") {
        st_.uc = std::clamp(param, 0, 10);
    } else if (w == "u") {
        const QChar c(char16_t(param < 0 ? param + 65536 : param));
        if (st_.dest == Dest::ListText)
            list_label_ += c;
        else
            put(QString(c));
        fallback_left_ = st_.uc;
    }
    // Character attributes.
    else if (w == "plain") {
        st_.chr = CharState();
    } else if (w == "f") {
        st_.chr.font = param;
    } else if (w == "fs") {
        if (has_param && param > 0)
            st_.chr.half_points = std::min(param, 3276);
    } else if (w == "b") {
        st_.chr.bold = !has_param || param != 0;
    } else if (w == "i") {
        st_.chr.italic = !has_param || param != 0;
    } else if (is_underline_word(w)) {
        st_.chr.underline = !has_param || param != 0;
    } else if (w == "ulnone") {
        st_.chr.underline = false;
    } else if (w == "strike" || w == "striked") {
        st_.chr.strike = !has_param || param != 0;
    } else if (w == "super") {
        st_.chr.script = QTextCharFormat::AlignSuperScript;
    } else if (w == "sub") {
        st_.chr.script = QTextCharFormat::AlignSubScript;
    } else if (w == "nosupersub") {
        st_.chr.script = QTextCharFormat::AlignNormal;
    } else if (w == "cf") {
        st_.chr.color = param;
    }
    // Paragraph attributes.
    else if (w == "pard") {
        st_.para = ParaState();
        list_label_.clear();
    } else if (table_word(w, has_param, param) || page_word(w, param) || list_word(w, param)) {
    } else if (w == "ql") {
        st_.para.align = Qt::AlignLeft;
    } else if (w == "qc") {
        st_.para.align = Qt::AlignHCenter;
    } else if (w == "qr") {
        st_.para.align = Qt::AlignRight;
    } else if (w == "qj") {
        st_.para.align = Qt::AlignJustify;
    } else if (w == "tqr") {
        st_.para.next_tab = QTextOption::RightTab;
    } else if (w == "tqc") {
        st_.para.next_tab = QTextOption::CenterTab;
    } else if (w == "tqdec") {
        st_.para.next_tab = QTextOption::DelimiterTab;
    } else if (w == "tx" || w == "tb") {
        QTextOption::Tab tab(units_from_twips(param), w == "tb" ? QTextOption::LeftTab : st_.para.next_tab);
        if (tab.type == QTextOption::DelimiterTab)
            tab.delimiter = QLatin1Char(',');
        st_.para.tabs.append(tab);
        st_.para.next_tab = QTextOption::LeftTab;
    } else if (w == "li") {
        st_.para.left = param;
    } else if (w == "ri") {
        st_.para.right = param;
    } else if (w == "fi") {
        st_.para.first = param;
    } else if (w == "sb") {
        st_.para.before = param;
    } else if (w == "sa") {
        st_.para.after = param;
    } else if (w == "sl") {
        st_.para.line = param;
    } else if (w == "slmult") {
        st_.para.line_multiple = param != 0;
    }
    // Body text.
    else if (w == "par" || w == "sect" || w == "nestrow") {
        end_paragraph();
    } else if (w == "cell") {
        end_cell();
    } else if (w == "row") {
        end_row();
    } else if (w == "page") {
        // A break right after a paragraph mark starts no empty paragraph.
        if (!out().pending_par)
            end_paragraph();
        out().page_break_next = true;
    } else if (w == "line") {
        put(QString(QChar::LineSeparator));
    } else if (w == "tab" || w == "nestcell") {
        put(QStringLiteral("\t"));
    } else {
        const auto it = symbol_words().find(w);
        if (it != symbol_words().end())
            put(QString(QChar(it->second)));
    }
}

void Reader::plain_byte(unsigned char c)
{
    group_start_ = false;
    if (skipping_fallback())
        return;
    if (st_.dest == Dest::ColorTable) {
        if (c == ';') {
            colors_.append(red_ < 0 && green_ < 0 && blue_ < 0
                               ? QColor()
                               : QColor(std::clamp(red_, 0, 255), std::clamp(green_, 0, 255),
                                        std::clamp(blue_, 0, 255)));
            red_ = green_ = blue_ = -1;
        }
        return;
    }
    if (st_.dest == Dest::Picture) {
        if (std::isxdigit(c))
            pict_.hex += char(c);
        return;
    }
    if (c < 0x20)
        return;
    if (c >= 0x80) {
        decoded_byte(c);
        return;
    }
    if (st_.dest == Dest::ListText) {
        list_label_ += QChar(c);
        return;
    }
    if (st_.dest == Dest::FontTable) {
        if (c == ';') {
            if (!font_name_.trimmed().isEmpty())
                fonts_[font_num_] = {font_name_.trimmed(), font_charset_cp_};
            font_name_.clear();
        } else {
            font_name_ += QChar(c);
        }
        return;
    }
    if (st_.dest == Dest::Text)
        put(QString(QChar(c)));
}

void Reader::decoded_byte(unsigned char c)
{
    if (st_.dest == Dest::FontTable)
        font_name_ += decode(c);
    else if (st_.dest == Dest::ListText)
        list_label_ += decode(c);
    else if (st_.dest == Dest::Text)
        put(QString(decode(c)));
}

int Reader::codepage() const
{
    const auto it = fonts_.find(st_.chr.font < 0 ? deff_ : st_.chr.font);
    if (st_.dest == Dest::Text && it != fonts_.end() && it->second.codepage != 0)
        return it->second.codepage;
    return ansicpg_;
}

QChar Reader::decode(unsigned char byte)
{
    const int page = codepage();
    if (byte < 0x80 || page == 1252 || page == -1)
        return page == -1 ? QChar(byte) : cp1252_char(byte);
    auto& decoder = decoders_[page];
    if (!decoder) {
        const QByteArray name = "windows-" + QByteArray::number(page);
        decoder = std::make_unique<QStringDecoder>(name.constData());
    }
    if (!decoder->isValid())
        return cp1252_char(byte);
    const QString text = decoder->decode(QByteArrayView(reinterpret_cast<const char*>(&byte), 1));
    return text.size() == 1 ? text.at(0) : cp1252_char(byte);
}

void Reader::put(const QString& text)
{
    if (st_.dest != Dest::Text)
        return;
    materialize_paragraph();
    Sink& o = out();
    if (!o.pending.isEmpty() && !(o.pending_chr == st_.chr))
        flush();
    o.pending_chr = st_.chr;
    o.pending += text;
}

void Reader::flush()
{
    Sink& o = out();
    if (o.pending.isEmpty())
        return;
    o.cursor.insertText(o.pending, char_format(o.pending_chr));
    o.pending.clear();
}

void Reader::end_paragraph()
{
    if (st_.dest != Dest::Text)
        return;
    materialize_paragraph();
    flush();
    Sink& o = out();
    o.cursor.setBlockFormat(block_format());
    // An empty paragraph keeps the format of its mark: text typed there takes it.
    if (o.cursor.block().length() == 1)
        o.cursor.setBlockCharFormat(char_format(st_.chr));
    add_to_list();
    // The new paragraph is made when something follows: a last \par closes the
    // last paragraph and opens none.
    o.pending_par = true;
    o.page_break_here = false;
}

void Reader::materialize_paragraph()
{
    ensure_cell();
    Sink& o = out();
    if (!o.pending_par)
        return;
    o.pending_par = false;
    o.page_break_here = o.page_break_next;
    o.page_break_next = false;
    o.cursor.insertBlock(block_format(), char_format(st_.chr));
}

QTextListFormat::Style label_style(const QString& label)
{
    QString text = label;
    text.remove(QLatin1Char('\t'));
    text = text.trimmed();
    static const QRegularExpression decimal(QStringLiteral("^\\d+[.)]?$"));
    static const QRegularExpression roman(QStringLiteral("^[ivxlc]{2,}[.)]?$"));
    static const QRegularExpression upper_roman(QStringLiteral("^[IVXLC]{2,}[.)]?$"));
    static const QRegularExpression lower(QStringLiteral("^[a-z][.)]$"));
    static const QRegularExpression upper(QStringLiteral("^[A-Z][.)]$"));
    if (decimal.match(text).hasMatch())
        return QTextListFormat::ListDecimal;
    if (roman.match(text).hasMatch())
        return QTextListFormat::ListLowerRoman;
    if (upper_roman.match(text).hasMatch())
        return QTextListFormat::ListUpperRoman;
    if (lower.match(text).hasMatch())
        return QTextListFormat::ListLowerAlpha;
    if (upper.match(text).hasMatch())
        return QTextListFormat::ListUpperAlpha;
    if (text == QLatin1String("o"))
        return QTextListFormat::ListCircle;
    if (text == QString(QChar(0x25AA)) || text == QString(QChar(0x25A0)) || text == QString(QChar(0xA7)))
        return QTextListFormat::ListSquare;
    return QTextListFormat::ListDisc;
}

bool Reader::list_word(const std::string& w, int param)
{
    ParaState& p = st_.para;
    if (st_.dest == Dest::ListDef) {
        if (w == "pnlvlblt")
            p.pn_style = QTextListFormat::ListDisc;
        else if (w == "pnlvlbody" || w == "pndec")
            p.pn_style = QTextListFormat::ListDecimal;
        else if (w == "pnlcltr")
            p.pn_style = QTextListFormat::ListLowerAlpha;
        else if (w == "pnucltr")
            p.pn_style = QTextListFormat::ListUpperAlpha;
        else if (w == "pnlcrm")
            p.pn_style = QTextListFormat::ListLowerRoman;
        else if (w == "pnucrm")
            p.pn_style = QTextListFormat::ListUpperRoman;
        else if (w == "pnlvl")
            p.level = std::clamp(param - 1, 0, 8);
        else
            return false;
        // The definition belongs to the paragraph around the group.
        if (!stack_.empty())
            stack_.back().para = p;
        return true;
    }
    if (w == "ls")
        p.ls = param;
    else if (w == "ilvl")
        p.level = std::clamp(param, 0, 8);
    else
        return false;
    return true;
}

void Reader::add_to_list()
{
    const ParaState& p = st_.para;
    Sink& o = out();
    if (p.ls <= 0 && !p.pn) {
        o.last_list.clear();
        return;
    }
    const QTextListFormat::Style style = p.pn ? p.pn_style : label_style(list_label_);
    QString key = (p.pn ? QStringLiteral("pn") : QStringLiteral("ls%1").arg(p.ls)) + QStringLiteral(":%1").arg(p.level);
    if (p.pn) {
        // The older form has no list number: a list is the paragraphs in a row.
        key += QStringLiteral(":%1").arg(int(style));
        if (o.last_list != key)
            o.lists.erase(key);
    }
    o.last_list = key;
    QTextList*& list = o.lists[key];
    if (list && list->format().style() == style) {
        list->add(o.cursor.block());
        return;
    }
    QTextListFormat format;
    format.setStyle(style);
    format.setIndent(p.level + 1);
    list = o.cursor.createList(format);
}

QTextCharFormat Reader::char_format(const CharState& chr) const
{
    QTextCharFormat format;
    const auto it = fonts_.find(chr.font < 0 ? deff_ : chr.font);
    if (it != fonts_.end() && !it->second.name.isEmpty())
        format.setFontFamilies(QStringList{it->second.name});
    format.setFontPointSize(chr.half_points / 2.0);
    format.setFontWeight(chr.bold ? QFont::Bold : QFont::Normal);
    format.setFontItalic(chr.italic);
    format.setFontUnderline(chr.underline);
    format.setFontStrikeOut(chr.strike);
    if (chr.script != QTextCharFormat::AlignNormal)
        format.setVerticalAlignment(chr.script);
    if (chr.color > 0 && chr.color < colors_.size() && colors_.at(chr.color).isValid())
        format.setForeground(colors_.at(chr.color));
    return format;
}

QTextBlockFormat Reader::block_format() const
{
    QTextBlockFormat format;
    const ParaState& p = st_.para;
    format.setAlignment(p.align);
    format.setTabPositions(p.tabs);
    format.setLeftMargin(units_from_twips(p.left));
    format.setRightMargin(units_from_twips(p.right));
    format.setTextIndent(units_from_twips(p.first));
    format.setTopMargin(units_from_twips(p.before));
    format.setBottomMargin(units_from_twips(p.after));
    if (p.line > 0 && p.line_multiple)
        format.setLineHeight(p.line * 100.0 / 240, QTextBlockFormat::ProportionalHeight);
    else if (p.line > 0)
        format.setLineHeight(units_from_twips(p.line), QTextBlockFormat::MinimumHeight);
    else if (p.line < 0)
        format.setLineHeight(units_from_twips(-p.line), QTextBlockFormat::FixedHeight);
    if (p.ls > 0 || p.pn) {
        // The list draws the label: the indent goes to the list.
        format.setLeftMargin(0);
        format.setTextIndent(0);
    }
    if (out().page_break_here)
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    return format;
}

}  // namespace rtf_detail

namespace {

using rtf_detail::Reader;

// A document always opens with a paragraph: before a table that opens the
// file, that empty paragraph takes no room on the page, and is not written back.
void flatten_leading_block(QTextDocument& document)
{
    const QTextBlock first = document.begin();
    const QList<QTextFrame*> frames = document.rootFrame()->childFrames();
    if (first.length() != 1 || frames.isEmpty() || !qobject_cast<QTextTable*>(frames.first()) ||
        frames.first()->firstPosition() > first.position() + 2)
        return;
    QTextBlockFormat format;
    format.setLineHeight(0.01, QTextBlockFormat::FixedHeight);
    format.setProperty(kLeadingBlock, true);
    QTextCharFormat tiny;
    tiny.setFontPointSize(1);
    QTextCursor cursor(first);
    cursor.setBlockFormat(format);
    cursor.setBlockCharFormat(tiny);
}

bool check_header(const QByteArray& data, QString* error)
{
    qsizetype start = 0;
    while (start < data.size() && std::isspace(static_cast<unsigned char>(data.at(start))))
        ++start;
    if (start == data.size()) {
        if (error)
            *error = QStringLiteral("Le fichier est vide.");
        return false;
    }
    if (!data.mid(start, 5).startsWith("{\\rtf")) {
        if (error)
            *error = QStringLiteral("Le fichier n'est pas au format RTF.");
        return false;
    }
    return true;
}

}  // namespace

bool read_rtf(const QByteArray& data, QTextDocument& document, QString* error, RtfExtras* extras)
{
    if (!check_header(data, error))
        return false;
    document.clear();
    if (extras) {
        for (QTextDocument* part : extras->parts())
            if (part)
                part->clear();
        RtfExtras fresh;
        fresh.header = extras->header;
        fresh.footer = extras->footer;
        fresh.first_header = extras->first_header;
        fresh.first_footer = extras->first_footer;
        *extras = fresh;
    }
    // One edit block: the document lays itself out once at the end instead of
    // after each run of text, which made large templates quadratic.
    QTextCursor(&document).beginEditBlock();
    Reader reader(data, document, extras);
    reader.run();
    QTextCursor(&document).endEditBlock();
    // Once the edit is over: the document knows its tables only then.
    flatten_leading_block(document);
    if (extras) {
        for (QTextDocument* part : extras->parts())
            if (part)
                flatten_leading_block(*part);
    }
    return true;
}

bool load_rtf_file(const QString& path, QTextDocument& document, QString* error, RtfExtras* extras)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = file.errorString();
        return false;
    }
    return read_rtf(file.readAll(), document, error, extras);
}

}  // namespace plouvarine
