#include "src/reports/rich_text.h"

#include "src/reports/pictures.h"
#include "src/reports/rtf_reader.h"
#include "src/reports/rtf_writer.h"
#include "src/base/services.h"

#include <QTextBlock>
#include <QTextDocumentFragment>

#include <algorithm>

namespace plouvarine {

RichBox::RichBox() : cursor_(&document_) {}

namespace {

void copy_document(const QTextDocument& from, QTextDocument& to)
{
    to.clear();
    copy_pictures(from, to);
    QTextCursor(&to).insertFragment(QTextDocumentFragment(&from));
    QTextCursor first(&to);
    first.setBlockFormat(from.begin().blockFormat());
    first.setBlockCharFormat(from.begin().charFormat());
}

}  // namespace

PageSetup RichBox::page_setup() const
{
    PageSetup page;
    page.layout = layout_;
    page.header = has_header_ ? &header_ : nullptr;
    page.footer = has_footer_ ? &footer_ : nullptr;
    page.first_page_differs = first_page_differs_;
    page.first_header = first_page_differs_ && !first_header_.isEmpty() ? &first_header_ : nullptr;
    page.first_footer = first_page_differs_ && !first_footer_.isEmpty() ? &first_footer_ : nullptr;
    page.header_distance = header_distance_;
    page.footer_distance = footer_distance_;
    return page;
}

bool RichBox::LoadFile(const QString& path, QString* error)
{
    // The text is replaced only once the file is known to be RTF.
    RtfExtras extras;
    extras.header = &header_;
    extras.footer = &footer_;
    extras.first_header = &first_header_;
    extras.first_footer = &first_footer_;
    if (!load_rtf_file(path, document_, error, &extras))
        return false;
    has_header_ = extras.has_header;
    has_footer_ = extras.has_footer;
    first_page_differs_ = extras.first_page_differs;
    layout_ = extras.layout;
    header_distance_ = extras.header_distance;
    footer_distance_ = extras.footer_distance;
    notes_ = extras.notes;
    select(0, 0);
    return true;
}

bool RichBox::SaveFile(const QString& path, QString* error) const
{
    const PageSetup page = page_setup();
    return save_rtf_file(document_, path, error, &page);
}

void RichBox::copy_from(const RichBox& other)
{
    copy_document(other.document_, document_);
    copy_page_from(other);
    select(0, 0);
}

void RichBox::copy_page_from(const RichBox& other)
{
    copy_document(other.header_, header_);
    copy_document(other.footer_, footer_);
    copy_document(other.first_header_, first_header_);
    copy_document(other.first_footer_, first_footer_);
    first_page_differs_ = other.first_page_differs_;
    has_header_ = other.has_header_;
    has_footer_ = other.has_footer_;
    layout_ = other.layout_;
    header_distance_ = other.header_distance_;
    footer_distance_ = other.footer_distance_;
    notes_ = other.notes_;
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
    copy_pictures(other.document(), rich.document());
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

void RemplacerBaliseEnTete(RichBox& rich, const QString& tag, const QString& text)
{
    if (tag.isEmpty())
        return;
    for (QTextDocument* part : {&rich.header(), &rich.footer(), &rich.first_header(), &rich.first_footer()}) {
        for (QTextCursor found = part->find(tag); !found.isNull(); found = part->find(tag, found)) {
            QTextCursor first(part);
            first.setPosition(found.selectionStart() + 1);
            found.insertText(text, first.charFormat());
        }
    }
}

bool RemplacerBalisePartout(RichBox& rich, const QString& tag, const QString& text)
{
    RemplacerBaliseEnTete(rich, tag, text);
    return RemplacerBalise(rich, tag, text);
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
    return ui.print_document(document_name, rich.document(), rich.page_setup());
}

}  // namespace plouvarine
