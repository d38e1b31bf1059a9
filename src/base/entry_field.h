#pragma once
// What the keyboard rules of the date and time fields need of an entry field:
// its text and its caret. The windows adapt their line edits to it; views and
// tests can use TextEntry, which holds both itself.

#include <QString>
#include <functional>

namespace plouvarine {

class EntryField {
public:
    virtual ~EntryField() = default;
    virtual QString text() const = 0;
    // Writing the text is a change of the field, as typing is.
    virtual void set_text(const QString& text) = 0;
    virtual int cursor_position() const = 0;
    virtual void set_cursor_position(int position) = 0;
};

// A field's text and caret just before a keystroke, kept by the field's
// binding so that a refused key can be undone.
struct KeystrokeMemory {
    QString text;
    int position = 0;
};

// A field held in memory. `on_text_changed` runs after each change of the
// text, as a line edit's change event does.
class TextEntry : public EntryField {
public:
    explicit TextEntry(QString text = {}) : text_(std::move(text)), cursor_(int(text_.size())) {}

    QString text() const override { return text_; }
    void set_text(const QString& text) override
    {
        if (text == text_)
            return;
        text_ = text;
        cursor_ = int(text_.size());
        if (on_text_changed)
            on_text_changed();
    }
    int cursor_position() const override { return cursor_; }
    void set_cursor_position(int position) override
    {
        cursor_ = qBound(0, position, int(text_.size()));
    }

    std::function<void()> on_text_changed;

private:
    QString text_;
    int cursor_ = 0;
};

}  // namespace plouvarine
