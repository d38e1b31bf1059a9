#pragma once
// The rich-text buffer of the reports and the operations that fill it.
//
// `RichBox` is a document with a selection, as a rich-text control has: every
// operation acts at the selection, and writing replaces the selection. The
// attributes set while nothing is selected are kept for the text written next.

#include "src/base/page_setup.h"

#include <QString>
#include <QStringList>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>

namespace plouvarine {

class Services;

class RichBox {
public:
    RichBox();
    RichBox(const RichBox&) = delete;
    RichBox& operator=(const RichBox&) = delete;

    QTextDocument& document() { return document_; }
    const QTextDocument& document() const { return document_; }
    QTextCursor& cursor() { return cursor_; }
    const QTextCursor& cursor() const { return cursor_; }
    QString text() const { return document_.toPlainText(); }

    // The header and footer printed on every page, and the page itself.
    QTextDocument& header() { return header_; }
    QTextDocument& footer() { return footer_; }
    QTextDocument& first_header() { return first_header_; }
    QTextDocument& first_footer() { return first_footer_; }
    const QPageLayout& page_layout() const { return layout_; }
    // What printing needs of the page: its layout, the header and the footer.
    PageSetup page_setup() const;
    // What the last load left out of the file, one line each.
    const QStringList& load_notes() const { return notes_; }

    // Loads an RTF file in place of the text, with its page, header and
    // footer; false with the reason in `error`.
    bool LoadFile(const QString& path, QString* error = nullptr);
    // Saves the text as RTF (the rich-text exports of the reports).
    bool SaveFile(const QString& path, QString* error = nullptr) const;
    // The text and formatting of `other` in place of this one's, with its page.
    void copy_from(const RichBox& other);
    // The page, header and footer of `other` in place of this one's.
    void copy_page_from(const RichBox& other);

    // Selects the first occurrence of `text` at or after `start`, letters in
    // either case; gives its position, or -1 with the selection unchanged.
    int Find(const QString& text, int start = 0);
    void select(int start, int length);
    void select_all();
    // The insertion point at the end of the text.
    void move_to_end();

    // Attributes of the selection and of the text written next.
    void merge(const QTextCharFormat& modifier);
    // Replaces the selection by `text`, in the format of the selection's first
    // character with the attributes set since.
    void write(const QString& text);

private:
    QTextCharFormat format_at_selection() const;

    QTextDocument document_;
    QTextDocument header_;
    QTextDocument footer_;
    QTextDocument first_header_;
    QTextDocument first_footer_;
    bool has_header_ = false;
    bool has_footer_ = false;
    bool first_page_differs_ = false;
    QPageLayout layout_;
    qreal header_distance_ = 36;
    qreal footer_distance_ = 36;
    QStringList notes_;
    QTextCursor cursor_;
    QTextCharFormat typing_;  // attributes set for what is written next
};

// The operations of the report writers, at the selection of `rich`.
void SetGras(RichBox& rich, bool flag);
void SetSouligne(RichBox& rich, bool flag);
void SetItalique(RichBox& rich, bool flag);
// Sets the size in points, unless it is 0.
void SetTaille(RichBox& rich, double size);
void SetPolice(RichBox& rich, const QString& family);
// The alignment of the paragraphs of the selection.
void SetAlignement(RichBox& rich, Qt::Alignment alignment);
void EcrireTexte(RichBox& rich, const QString& text, double size = 0);
void EcrireGras(RichBox& rich, const QString& text, double size = 0);
void EcrireSouligne(RichBox& rich, const QString& text, double size = 0);
void EcrireStyle(RichBox& rich, const QString& text, double size, bool bold, bool underline);
// Puts the rich text `other` in place of the selection, with its formatting.
void EcrireRich(RichBox& rich, const RichBox& other);
// Finds `tag` from `start` and writes `text` in its place: only the first
// occurrence after the start changes. False, with nothing written, when the
// tag is not there.
bool RemplacerBalise(RichBox& rich, const QString& tag, const QString& text, int start = 0);
// Writes `text` in place of every `tag` of the header and the footer, which
// stand on every page; each takes the format of the tag's first character.
void RemplacerBaliseEnTete(RichBox& rich, const QString& tag, const QString& text);
// A report's own tag: the first `tag` of the body as RemplacerBalise does (the
// cursor left there), and every one of the header and the footer, where a
// club may put the date or its name.
bool RemplacerBalisePartout(RichBox& rich, const QString& tag, const QString& text);
void LirePosition(const RichBox& rich, int& start, int& length);
// Selects the whole text and sends it to the printer under `document_name`.
// False when the person cancels the printer choice.
bool ImprimerRich(Services& ui, RichBox& rich, const QString& document_name);

}  // namespace plouvarine
