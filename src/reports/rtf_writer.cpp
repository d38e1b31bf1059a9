#include "src/reports/rtf_writer.h"

#include <QColor>
#include <QSaveFile>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFragment>

#include <cmath>

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

int twips(qreal points)
{
    return int(std::lround(points * 20));
}

class Writer {
public:
    explicit Writer(const QTextDocument& document) : doc_(document) {}
    QByteArray run();

private:
    QString family_of(const QTextCharFormat& format) const;
    int font_index(const QString& family);
    int color_index(const QColor& color);
    void text(const QString& text);
    void paragraph(const QTextBlock& block);
    void run_of(const QTextFragment& fragment);

    const QTextDocument& doc_;
    QStringList fonts_;
    QList<QColor> colors_;
    QByteArray body_;
};

QString Writer::family_of(const QTextCharFormat& format) const
{
    const QStringList families = format.fontFamilies().toStringList();
    if (!families.isEmpty() && !families.first().isEmpty())
        return families.first();
    return doc_.defaultFont().family();
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
        } else if (c < 0x20) {
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

void Writer::paragraph(const QTextBlock& block)
{
    const QTextBlockFormat format = block.blockFormat();
    if (format.pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore)
        body_ += "\\page ";
    body_ += "\\pard";
    const Qt::Alignment align = format.alignment() & Qt::AlignHorizontal_Mask;
    if (align & Qt::AlignHCenter)
        body_ += "\\qc";
    else if (align & Qt::AlignJustify)
        body_ += "\\qj";
    else if (align & (Qt::AlignRight | Qt::AlignTrailing) && !(align & Qt::AlignLeft))
        body_ += "\\qr";
    else
        body_ += "\\ql";
    const auto number = [this](const char* word, qreal points) {
        if (const int value = twips(points))
            body_ += word + QByteArray::number(value);
    };
    number("\\li", format.leftMargin());
    number("\\ri", format.rightMargin());
    number("\\fi", format.textIndent());
    number("\\sb", format.topMargin());
    number("\\sa", format.bottomMargin());
    for (const QTextOption::Tab& tab : format.tabPositions()) {
        if (tab.type == QTextOption::RightTab)
            body_ += "\\tqr";
        else if (tab.type == QTextOption::CenterTab)
            body_ += "\\tqc";
        else if (tab.type == QTextOption::DelimiterTab)
            body_ += "\\tqdec";
        body_ += "\\tx" + QByteArray::number(twips(tab.position));
    }
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
    const qreal size = mark.fontPointSize() > 0 ? mark.fontPointSize() : doc_.defaultFont().pointSizeF();
    if (size > 0)
        body_ += "\\fs" + QByteArray::number(int(std::lround(size * 2)));
    body_ += "\\par}\n";
}

void Writer::run_of(const QTextFragment& fragment)
{
    const QTextCharFormat format = fragment.charFormat();
    body_ += "{\\f" + QByteArray::number(font_index(family_of(format)));
    const qreal size = format.fontPointSize() > 0 ? format.fontPointSize() : doc_.defaultFont().pointSizeF();
    if (size > 0)
        body_ += "\\fs" + QByteArray::number(int(std::lround(size * 2)));
    if (format.fontWeight() > QFont::Medium)
        body_ += "\\b";
    if (format.fontItalic())
        body_ += "\\i";
    if (format.fontUnderline())
        body_ += "\\ul";
    if (format.hasProperty(QTextFormat::ForegroundBrush) && format.foreground().style() != Qt::NoBrush)
        body_ += "\\cf" + QByteArray::number(color_index(format.foreground().color()));
    body_ += ' ';
    text(fragment.text());
    body_ += "}";
}

QByteArray Writer::run()
{
    for (QTextBlock block = doc_.begin(); block.isValid(); block = block.next())
        paragraph(block);
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

QByteArray write_rtf(const QTextDocument& document)
{
    return Writer(document).run();
}

bool save_rtf_file(const QTextDocument& document, const QString& path, QString* error)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(write_rtf(document)) < 0 || !file.commit()) {
        if (error)
            *error = file.errorString();
        return false;
    }
    return true;
}

}  // namespace plouvarine
