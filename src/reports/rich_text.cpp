#include "src/reports/rich_text.h"

#include "src/reports/rtf_reader.h"
#include "src/reports/rtf_writer.h"
#include "src/base/services.h"

#include <QTextBlock>
#include <QTextDocumentFragment>

#include <algorithm>

namespace plouvarine {

RichBox::RichBox() : cursor_(&document_) {}

bool RichBox::LoadFile(const QString& path, QString* error)
{
    // The text is replaced only once the file is known to be RTF.
    if (!load_rtf_file(path, document_, error))
        return false;
    select(0, 0);
    return true;
}

bool RichBox::SaveFile(const QString& path, QString* error) const
{
    return save_rtf_file(document_, path, error);
}

void RichBox::copy_from(const RichBox& other)
{
    document_.clear();
    QTextCursor(&document_).insertFragment(QTextDocumentFragment(&other.document_));
    QTextCursor first(&document_);
    first.setBlockFormat(other.document_.begin().blockFormat());
    first.setBlockCharFormat(other.document_.begin().charFormat());
    select(0, 0);
}

int RichBox::Find(const QString& text, int start)
{
    if (text.isEmpty())
        return -1;
    const QTextCursor found = document_.find(text, std::max(0, start));
    if (found.isNull())
        return -1;
    cursor_ = found;
    typing_ = QTextCharFormat();
    return found.selectionStart();
}

void RichBox::select(int start, int length)
{
    const int last = document_.characterCount() - 1;
    cursor_.setPosition(std::clamp(start, 0, last));
    cursor_.setPosition(std::clamp(start + length, 0, last), QTextCursor::KeepAnchor);
    typing_ = QTextCharFormat();
}

void RichBox::select_all()
{
    select(0, document_.characterCount() - 1);
}

void RichBox::move_to_end()
{
    select(document_.characterCount() - 1, 0);
}

void RichBox::merge(const QTextCharFormat& modifier)
{
    typing_.merge(modifier);
    if (cursor_.hasSelection())
        cursor_.mergeCharFormat(modifier);
}

QTextCharFormat RichBox::format_at_selection() const
{
    // The format of the selection's first character; at an insertion point,
    // that of the character before it.
    QTextCursor probe(cursor_);
    const int start = cursor_.selectionStart();
    if (cursor_.hasSelection() && start + 1 < document_.characterCount())
        probe.setPosition(start + 1);
    else
        probe.setPosition(start);
    return probe.charFormat();
}

void RichBox::write(const QString& text)
{
    QTextCharFormat format = format_at_selection();
    format.merge(typing_);
    // Paragraph breaks written as "\n" or "\r\n" become paragraphs.
    QString normalized = text;
    normalized.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    normalized.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    cursor_.beginEditBlock();
    cursor_.removeSelectedText();
    const QStringList lines = normalized.split(QLatin1Char('\n'));
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (i > 0)
            cursor_.insertBlock(cursor_.blockFormat(), format);
        if (!lines.at(i).isEmpty())
            cursor_.insertText(lines.at(i), format);
    }
    cursor_.endEditBlock();
}

void SetGras(RichBox& rich, bool flag)
{
    QTextCharFormat f;
    f.setFontWeight(flag ? QFont::Bold : QFont::Normal);
    rich.merge(f);
}

void SetSouligne(RichBox& rich, bool flag)
{
    QTextCharFormat f;
    f.setFontUnderline(flag);
    rich.merge(f);
}

void SetItalique(RichBox& rich, bool flag)
{
    QTextCharFormat f;
    f.setFontItalic(flag);
    rich.merge(f);
}

void SetTaille(RichBox& rich, double size)
{
    if (size == 0)
        return;
    QTextCharFormat f;
    f.setFontPointSize(size);
    rich.merge(f);
}

void SetPolice(RichBox& rich, const QString& family)
{
    QTextCharFormat f;
    f.setFontFamilies(QStringList{family});
    rich.merge(f);
}

void SetAlignement(RichBox& rich, Qt::Alignment alignment)
{
    QTextBlockFormat f;
    f.setAlignment(alignment);
    rich.cursor().mergeBlockFormat(f);
}

void EcrireTexte(RichBox& rich, const QString& text, double size)
{
    SetTaille(rich, size);
    rich.write(text);
}

void EcrireGras(RichBox& rich, const QString& text, double size)
{
    SetGras(rich, true);
    EcrireTexte(rich, text, size);
    SetGras(rich, false);
}

void EcrireSouligne(RichBox& rich, const QString& text, double size)
{
    SetSouligne(rich, true);
    EcrireTexte(rich, text, size);
    SetSouligne(rich, false);
}

void EcrireStyle(RichBox& rich, const QString& text, double size, bool bold, bool underline)
{
    SetGras(rich, bold);
    SetSouligne(rich, underline);
    EcrireTexte(rich, text, size);
    SetGras(rich, false);
    SetSouligne(rich, false);
}

void EcrireRich(RichBox& rich, const RichBox& other)
{
    QTextCursor& cursor = rich.cursor();
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    cursor.setBlockFormat(other.document().begin().blockFormat());
    cursor.insertFragment(QTextDocumentFragment(&other.document()));
    cursor.endEditBlock();
}

bool RemplacerBalise(RichBox& rich, const QString& tag, const QString& text, int start)
{
    if (rich.Find(tag, start) < 0)
        return false;
    rich.write(text);
    return true;
}

void LirePosition(const RichBox& rich, int& start, int& length)
{
    const QTextCursor& cursor = rich.cursor();
    start = cursor.selectionStart();
    length = cursor.selectionEnd() - cursor.selectionStart();
}

bool ImprimerRich(Services& ui, RichBox& rich, const QString& document_name)
{
    rich.select_all();
    return ui.print_document(document_name, rich.document());
}

}  // namespace plouvarine
