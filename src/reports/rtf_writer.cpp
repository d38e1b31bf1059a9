#include "src/reports/rtf_writer.h"

#include "src/base/doc_units.h"
#include "src/reports/pictures.h"
#include "src/reports/rtf_format.h"

#include <QBuffer>
#include <QColor>
#include <QImageReader>
#include <QSaveFile>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFragment>
#include <QTextFrame>
#include <QTextList>
#include <QTextTable>

#include <cmath>
#include <vector>

namespace plouvarine {

namespace {

// The Windows-1252 byte of a character, or 0 when the page has none.
unsigned char cp1252_byte(char16_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return static_cast<unsigned char>(c);
    static constexpr char16_t high[32] = {
        0x20AC, 0, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0, 0x017D, 0, 0, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0, 0x017E, 0x0178};
    for (int i = 0; i < 32; ++i)
        if (high[i] == c)
            return static_cast<unsigned char>(0x80 + i);
    return 0;
}


class Writer {
public:
    explicit Writer(const QTextDocument& document) : doc_(&document) {}
    QByteArray run(const PageSetup* page);

private:
    QString family_of(const QTextCharFormat& format) const;
    int font_index(const QString& family);
    int color_index(const QColor& color);
    void text(const QString& text);
    void frame(QTextFrame::iterator it, bool in_table, QByteArray last_end = "\\par");
    void table(QTextTable* table);
    void paragraph(const QTextBlock& block, bool in_table, const QByteArray& end);
    void list_label(const QTextBlock& block);
    void run_of(const QTextFragment& fragment);
    void picture(const QTextImageFormat& format);
    void part(const char* word, const QTextDocument* document);

    const QTextDocument* doc_;
    QStringList fonts_;
    QList<QColor> colors_;
    QByteArray body_;
};

QString Writer::family_of(const QTextCharFormat& format) const
{
    const QStringList families = format.fontFamilies().toStringList();
    if (!families.isEmpty() && !families.first().isEmpty())
        return families.first();
    return doc_->defaultFont().family();
}

int Writer::font_index(const QString& family)
{
    qsizetype index = fonts_.indexOf(family);
    if (index < 0) {
        fonts_.append(family);
        index = fonts_.size() - 1;
    }
    return int(index);
}

int Writer::color_index(const QColor& color)
{
    qsizetype index = colors_.indexOf(color);
    if (index < 0) {
        colors_.append(color);
        index = colors_.size() - 1;
    }
    return int(index) + 1;  // entry 0 is the automatic colour
}

void Writer::text(const QString& text)
{
    for (const QChar qc : text) {
        const char16_t c = qc.unicode();
        if (c == '\\' || c == '{' || c == '}') {
            body_ += '\\';
            body_ += char(c);
        } else if (c == '\t') {
            body_ += "\\tab ";
        } else if (c == QChar::LineSeparator || c == QChar::ParagraphSeparator || c == '\n') {
            body_ += "\\line ";
        } else if (c == 0x00A0) {
            body_ += "\\~";
        } else if (c < 0x20 || c == QChar::ObjectReplacementCharacter) {
            continue;
        } else if (c < 0x80) {
            body_ += char(c);
        } else if (const unsigned char byte = cp1252_byte(c)) {
            body_ += "\\'" + QByteArray::number(byte, 16).rightJustified(2, '0');
        } else {
            body_ += "\\u" + QByteArray::number(int(qint16(c))) + "?";
        }
    }
}

void Writer::frame(QTextFrame::iterator it, bool in_table, QByteArray last_end)
{
    // The blocks of a frame in order; a table's cells are written as a table,
    // except inside another table, where they are paragraphs of its cell.
    std::vector<QTextBlock> blocks;
    const auto write_blocks = [&](bool last) {
        for (size_t i = 0; i < blocks.size(); ++i)
            paragraph(blocks[i], in_table, last && i + 1 == blocks.size() ? last_end : QByteArray("\\par"));
        blocks.clear();
    };
    for (; !it.atEnd(); ++it) {
        if (QTextFrame* child = it.currentFrame()) {
            auto* inner = qobject_cast<QTextTable*>(child);
            if (inner && !in_table) {
                write_blocks(false);
                table(inner);
            } else {
                for (QTextBlock b = child->firstCursorPosition().block();
                     b.isValid() && b.position() <= child->lastPosition(); b = b.next())
                    blocks.push_back(b);
            }
        } else if (it.currentBlock().isValid() && !it.currentBlock().blockFormat().hasProperty(kLeadingBlock)) {
            blocks.push_back(it.currentBlock());
        }
    }
    write_blocks(true);
}

void Writer::table(QTextTable* table)
{
    const QTextTableFormat format = table->format();
    const QList<QTextLength> widths = format.columnWidthConstraints();
    std::vector<int> bounds;
    int right = 0;
    for (int c = 0; c < table->columns(); ++c) {
        const QTextLength width = widths.value(c);
        right += width.type() == QTextLength::FixedLength ? twips_from_units(width.rawValue())
                                                          : 9000 / table->columns();
        bounds.push_back(right);
    }
    const QByteArray gap = QByteArray::number(twips_from_units(format.cellPadding()));
    const Qt::Alignment align = format.alignment() & Qt::AlignHorizontal_Mask;
    const QByteArray row_align = align & Qt::AlignHCenter ? "\\trqc" : align & Qt::AlignRight ? "\\trqr" : "\\trql";
    for (int r = 0; r < table->rows(); ++r) {
        body_ += "\\trowd\\trgaph" + gap + "\\trleft0" + row_align;
        for (int c = 0; c < table->columns(); ++c) {
            const QTextTableCell cell = table->cellAt(r, c);
            if (cell.row() != r)
                body_ += "\\clvmrg";
            else if (cell.rowSpan() > 1)
                body_ += "\\clvmgf";
            if (cell.column() != c)
                body_ += "\\clmrg";
            else if (cell.columnSpan() > 1)
                body_ += "\\clmgf";
            const QTextTableCellFormat cf = cell.format().toTableCellFormat();
            if (cf.verticalAlignment() == QTextCharFormat::AlignMiddle)
                body_ += "\\clvertalc";
            else if (cf.verticalAlignment() == QTextCharFormat::AlignBottom)
                body_ += "\\clvertalb";
            const qreal sides[4] = {cf.topBorder(), cf.leftBorder(), cf.bottomBorder(), cf.rightBorder()};
            const char* const words[4] = {"\\clbrdrt", "\\clbrdrl", "\\clbrdrb", "\\clbrdrr"};
            for (int i = 0; i < 4; ++i)
                if (sides[i] > 0)
                    body_ += QByteArray(words[i]) + "\\brdrs\\brdrw" +
                             QByteArray::number(std::max(1, twips_from_units(sides[i])));
            if (cf.hasProperty(QTextFormat::BackgroundBrush) && cf.background().style() != Qt::NoBrush)
                body_ += "\\clcbpat" + QByteArray::number(color_index(cf.background().color()));
            body_ += "\\cellx" + QByteArray::number(bounds[size_t(c)]);
        }
        body_ += "\n";
        for (int c = 0; c < table->columns(); ++c) {
            const QTextTableCell cell = table->cellAt(r, c);
            if (cell.row() == r && cell.column() == c)
                frame(cell.begin(), true, "\\cell");
            else
                body_ += "\\pard\\intbl\\cell ";
        }
        body_ += "\\row\n";
    }
}

void Writer::list_label(const QTextBlock& block)
{
    const QTextList* list = block.textList();
    const QTextListFormat format = list->format();
    const int level = std::max(0, format.indent() - 1);
    const QTextListFormat::Style style = format.style();
    const bool bullet = style == QTextListFormat::ListDisc || style == QTextListFormat::ListCircle ||
                        style == QTextListFormat::ListSquare;
    QByteArray label;
    if (style == QTextListFormat::ListCircle)
        label = "o";
    else if (style == QTextListFormat::ListSquare)
        label = "\\u9642?";
    else if (bullet)
        label = "\\u8226?";
    else
        label = list->itemText(block).toLatin1();
    // The label as the older readers draw it, then the list in the form that
    // WordPad, Word and LibreOffice all read.
    body_ += "{\\pntext " + label + "\\tab}{\\*\\pn";
    if (level > 0)
        body_ += "\\pnlvl" + QByteArray::number(level + 1);
    if (bullet) {
        body_ += "\\pnlvlblt\\pnindent360{\\pntxtb " + label + "}}";
    } else {
        body_ += "\\pnlvlbody";
        if (style == QTextListFormat::ListLowerAlpha)
            body_ += "\\pnlcltr";
        else if (style == QTextListFormat::ListUpperAlpha)
            body_ += "\\pnucltr";
        else if (style == QTextListFormat::ListLowerRoman)
            body_ += "\\pnlcrm";
        else if (style == QTextListFormat::ListUpperRoman)
            body_ += "\\pnucrm";
        else
            body_ += "\\pndec";
        body_ += "\\pnstart1\\pnindent360{\\pntxta .}}";
    }
    body_ += "\\fi-360\\li" + QByteArray::number(720 * (level + 1));
}

void Writer::paragraph(const QTextBlock& block, bool in_table, const QByteArray& end)
{
    const QTextBlockFormat format = block.blockFormat();
    if (format.pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore)
        body_ += "\\page ";
    body_ += "\\pard";
    if (in_table)
        body_ += "\\intbl";
    const Qt::Alignment align = format.alignment() & Qt::AlignHorizontal_Mask;
    if (align & Qt::AlignHCenter)
        body_ += "\\qc";
    else if (align & Qt::AlignJustify)
        body_ += "\\qj";
    else if (align & (Qt::AlignRight | Qt::AlignTrailing) && !(align & Qt::AlignLeft))
        body_ += "\\qr";
    else
        body_ += "\\ql";
    const auto number = [this](const char* word, qreal units) {
        if (const int value = twips_from_units(units))
            body_ += word + QByteArray::number(value);
    };
    number("\\li", format.leftMargin());
    number("\\ri", format.rightMargin());
    number("\\fi", format.textIndent());
    number("\\sb", format.topMargin());
    number("\\sa", format.bottomMargin());
    switch (format.lineHeightType()) {
    case QTextBlockFormat::ProportionalHeight:
        if (format.lineHeight() != 100)
            body_ += "\\sl" + QByteArray::number(int(std::lround(format.lineHeight() * 2.4))) + "\\slmult1";
        break;
    case QTextBlockFormat::MinimumHeight:
        body_ += "\\sl" + QByteArray::number(twips_from_units(format.lineHeight())) + "\\slmult0";
        break;
    case QTextBlockFormat::FixedHeight:
        body_ += "\\sl-" + QByteArray::number(twips_from_units(format.lineHeight())) + "\\slmult0";
        break;
    default:
        break;
    }
    for (const QTextOption::Tab& tab : format.tabPositions()) {
        if (tab.type == QTextOption::RightTab)
            body_ += "\\tqr";
        else if (tab.type == QTextOption::CenterTab)
            body_ += "\\tqc";
        else if (tab.type == QTextOption::DelimiterTab)
            body_ += "\\tqdec";
        body_ += "\\tx" + QByteArray::number(twips_from_units(tab.position));
    }
    if (block.textList())
        list_label(block);
    body_ += ' ';
    for (auto it = block.begin(); !it.atEnd(); ++it)
        if (it.fragment().isValid())
            run_of(it.fragment());
    // The paragraph mark takes the format of the paragraph's last run; an empty
    // paragraph keeps its own, the format of what is typed there.
    QTextCharFormat mark = block.charFormat();
    for (auto it = block.begin(); !it.atEnd(); ++it)
        if (it.fragment().isValid())
            mark = it.fragment().charFormat();
    body_ += "{\\f" + QByteArray::number(font_index(family_of(mark)));
    const qreal size = mark.fontPointSize() > 0 ? mark.fontPointSize() : doc_->defaultFont().pointSizeF();
    if (size > 0)
        body_ += "\\fs" + QByteArray::number(int(std::lround(size * 2)));
    body_ += end + "}\n";
}

void Writer::run_of(const QTextFragment& fragment)
{
    const QTextCharFormat format = fragment.charFormat();
    body_ += "{\\f" + QByteArray::number(font_index(family_of(format)));
    const qreal size = format.fontPointSize() > 0 ? format.fontPointSize() : doc_->defaultFont().pointSizeF();
    if (size > 0)
        body_ += "\\fs" + QByteArray::number(int(std::lround(size * 2)));
    if (format.fontWeight() > QFont::Medium)
        body_ += "\\b";
    if (format.fontItalic())
        body_ += "\\i";
    if (format.fontUnderline())
        body_ += "\\ul";
    if (format.fontStrikeOut())
        body_ += "\\strike";
    if (format.verticalAlignment() == QTextCharFormat::AlignSuperScript)
        body_ += "\\super";
    else if (format.verticalAlignment() == QTextCharFormat::AlignSubScript)
        body_ += "\\sub";
    if (format.hasProperty(QTextFormat::ForegroundBrush) && format.foreground().style() != Qt::NoBrush)
        body_ += "\\cf" + QByteArray::number(color_index(format.foreground().color()));
    body_ += ' ';
    if (format.isImageFormat()) {
        for (qsizetype i = 0; i < fragment.length(); ++i)
            picture(format.toImageFormat());
    } else {
        text(fragment.text());
    }
    body_ += "}";
}

void Writer::picture(const QTextImageFormat& format)
{
    const QByteArray bytes = picture_bytes(*doc_, format.name());
    const PictureKind kind = picture_kind(bytes);
    if (kind == PictureKind::None)
        return;
    QBuffer buffer;
    buffer.setData(bytes);
    const QSize pixels = QImageReader(&buffer).size();
    const double width = format.width() > 0 ? format.width() : pixels.width();
    const double height = format.height() > 0 ? format.height() : pixels.height();
    body_ += "{\\pict" + QByteArray(kind == PictureKind::Png ? "\\pngblip" : "\\jpegblip");
    body_ += "\\picw" + QByteArray::number(pixels.width()) + "\\pich" + QByteArray::number(pixels.height());
    body_ += "\\picwgoal" + QByteArray::number(twips_from_units(width));
    body_ += "\\pichgoal" + QByteArray::number(twips_from_units(height)) + "\n";
    const QByteArray hex = bytes.toHex();
    for (qsizetype at = 0; at < hex.size(); at += 128)
        body_ += hex.mid(at, 128) + '\n';
    body_ += "}";
}

void Writer::part(const char* word, const QTextDocument* document)
{
    if (!document)
        return;
    const QTextDocument* body = doc_;
    doc_ = document;
    body_ += "{\\" + QByteArray(word) + "\n";
    frame(document->rootFrame()->begin(), false);
    body_ += "}\n";
    doc_ = body;
}

QByteArray Writer::run(const PageSetup* page)
{
    if (page && page->layout.isValid()) {
        const QRectF paper = page->layout.fullRect(QPageLayout::Point);
        const QMarginsF margins = page->layout.margins(QPageLayout::Point);
        body_ += "\\paperw" + QByteArray::number(twips_from_points(paper.width())) + "\\paperh" +
                 QByteArray::number(twips_from_points(paper.height())) + "\\margl" + QByteArray::number(twips_from_points(margins.left())) +
                 "\\margr" + QByteArray::number(twips_from_points(margins.right())) + "\\margt" +
                 QByteArray::number(twips_from_points(margins.top())) + "\\margb" + QByteArray::number(twips_from_points(margins.bottom()));
        if (page->layout.orientation() == QPageLayout::Landscape)
            body_ += "\\landscape";
        body_ += "\n";
    }
    if (page) {
        body_ += "\\sectd\\headery" + QByteArray::number(twips_from_points(page->header_distance)) + "\\footery" +
                 QByteArray::number(twips_from_points(page->footer_distance)) + "\n";
        part("header", page->header);
        part("footer", page->footer);
        if (page->first_page_differs) {
            body_ += "\\titlepg\n";
            part("headerf", page->first_header);
            part("footerf", page->first_footer);
        }
    }
    frame(doc_->rootFrame()->begin(), false);
    QByteArray out = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl";
    for (int i = 0; i < fonts_.size(); ++i) {
        out += "{\\f" + QByteArray::number(i) + "\\fnil\\fcharset0 ";
        const QByteArray saved = body_;
        body_.clear();
        text(fonts_.at(i));
        out += body_ + ";}";
        body_ = saved;
    }
    out += "}\n{\\colortbl ;";
    for (const QColor& color : colors_)
        out += "\\red" + QByteArray::number(color.red()) + "\\green" + QByteArray::number(color.green()) +
               "\\blue" + QByteArray::number(color.blue()) + ";";
    out += "}\n\\uc1\n" + body_ + "}\n";
    return out;
}

}  // namespace

QByteArray write_rtf(const QTextDocument& document, const PageSetup* page)
{
    return Writer(document).run(page);
}

bool save_rtf_file(const QTextDocument& document, const QString& path, QString* error, const PageSetup* page)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(write_rtf(document, page)) < 0 || !file.commit()) {
        if (error)
            *error = file.errorString();
        return false;
    }
    return true;
}

}  // namespace plouvarine
