#include "src/reports/rtf_reader.h"

#include <QColor>
#include <QFile>
#include <QStringDecoder>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <cctype>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace plouvarine {

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
        "info", "stylesheet", "pict", "object", "header", "headerl", "headerr", "headerf", "footer",
        "footerl", "footerr", "footerf", "footnote", "fldinst", "xe", "tc", "txe", "bkmkstart", "bkmkend",
        "filetbl", "revtbl", "listtable", "listoverridetable", "rsidtbl", "generator", "pntxta", "pntxtb",
        "themedata", "colorschememapping", "datastore", "latentstyles", "xmlnstbl", "mmathPr", "userprops",
        "docvar", "pgdsctbl", "comment", "annotation", "atnid", "atnauthor", "nonshppict", "operator",
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

enum class Dest { Text, Skip, FontTable, ColorTable };

struct CharState {
    int font = -1;         // -1: the default font
    int half_points = 24;  // 12 pt
    bool bold = false;
    bool italic = false;
    bool underline = false;
    int color = 0;         // 0: automatic
    bool operator==(const CharState&) const = default;
};

struct ParaState {
    Qt::Alignment align = Qt::AlignLeft;
    QList<QTextOption::Tab> tabs;
    QTextOption::TabType next_tab = QTextOption::LeftTab;
    int left = 0, right = 0, first = 0, before = 0, after = 0;  // twips
};

struct GroupState {
    CharState chr;
    ParaState para;
    int uc = 1;
    Dest dest = Dest::Text;
};

struct FontEntry {
    QString name;
    int codepage = 0;
};

constexpr int kMaxDepth = 1000;

class Reader {
public:
    Reader(const QByteArray& data, QTextCursor& cursor) : in_(data), cursor_(cursor) {}

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

    const QByteArray& in_;
    qsizetype pos_ = 0;
    QTextCursor& cursor_;
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

    QString pending_;
    CharState pending_chr_;
    int fallback_left_ = 0;
    bool pending_par_ = false;
    bool page_break_next_ = false;
    bool page_break_here_ = false;
};

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
}

void Reader::close_open_paragraph()
{
    flush();
    if (!pending_par_ && st_.dest == Dest::Text)
        cursor_.setBlockFormat(block_format());
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
        // Binary data: skipped whatever the destination.
        pos_ = std::min<qsizetype>(in_.size(), pos_ + std::max<long long>(0, param));
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
        put(QString(QChar(char16_t(param < 0 ? param + 65536 : param))));
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
    } else if (w == "cf") {
        st_.chr.color = param;
    }
    // Paragraph attributes.
    else if (w == "pard") {
        st_.para = ParaState();
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
        QTextOption::Tab tab(param / 20.0, w == "tb" ? QTextOption::LeftTab : st_.para.next_tab);
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
    }
    // Body text.
    else if (w == "par" || w == "sect" || w == "row") {
        end_paragraph();
    } else if (w == "page") {
        // A break right after a paragraph mark starts no empty paragraph.
        if (!pending_par_)
            end_paragraph();
        page_break_next_ = true;
    } else if (w == "line") {
        put(QString(QChar::LineSeparator));
    } else if (w == "tab" || w == "cell" || w == "nestcell") {
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
    if (c < 0x20)
        return;
    if (c >= 0x80) {
        decoded_byte(c);
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
    if (!pending_.isEmpty() && !(pending_chr_ == st_.chr))
        flush();
    pending_chr_ = st_.chr;
    pending_ += text;
}

void Reader::flush()
{
    if (pending_.isEmpty())
        return;
    cursor_.insertText(pending_, char_format(pending_chr_));
    pending_.clear();
}

void Reader::end_paragraph()
{
    if (st_.dest != Dest::Text)
        return;
    materialize_paragraph();
    flush();
    cursor_.setBlockFormat(block_format());
    // An empty paragraph keeps the format of its mark: text typed there takes it.
    if (cursor_.block().length() == 1)
        cursor_.setBlockCharFormat(char_format(st_.chr));
    // The new paragraph is made when something follows: a last \par closes the
    // last paragraph and opens none.
    pending_par_ = true;
    page_break_here_ = false;
}

void Reader::materialize_paragraph()
{
    if (!pending_par_)
        return;
    pending_par_ = false;
    page_break_here_ = page_break_next_;
    page_break_next_ = false;
    cursor_.insertBlock(block_format(), char_format(st_.chr));
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
    format.setLeftMargin(p.left / 20.0);
    format.setRightMargin(p.right / 20.0);
    format.setTextIndent(p.first / 20.0);
    format.setTopMargin(p.before / 20.0);
    format.setBottomMargin(p.after / 20.0);
    if (page_break_here_)
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    return format;
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

bool read_rtf(const QByteArray& data, QTextDocument& document, QString* error)
{
    if (!check_header(data, error))
        return false;
    document.clear();
    QTextCursor cursor(&document);
    // One edit block: the document lays itself out once at the end instead of
    // after each run of text, which made large templates quadratic.
    cursor.beginEditBlock();
    Reader reader(data, cursor);
    reader.run();
    cursor.endEditBlock();
    return true;
}

bool load_rtf_file(const QString& path, QTextDocument& document, QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = file.errorString();
        return false;
    }
    return read_rtf(file.readAll(), document, error);
}

}  // namespace plouvarine
