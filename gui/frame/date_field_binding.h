#pragma once
// Binds line edits to the keyboard rules of the core: the day, month and year
// fields of a date here, a time field in results/time_field_binding.h. A
// window calls one function per date or time and is done.

#include "src/base/date_field.h"
#include "src/base/entry_field.h"

#include <QObject>
#include <QPointer>

#include <QLineEdit>
#include <array>
#include <functional>

namespace plouvarine::gui {

// A line edit seen as an entry field of the core.
class LineEditField : public EntryField {
public:
    explicit LineEditField(QLineEdit* edit) : edit_(edit) {}
    QString text() const override;
    void set_text(const QString& text) override;
    int cursor_position() const override;
    void set_cursor_position(int position) override;
    QLineEdit* edit() const { return edit_; }

private:
    QPointer<QLineEdit> edit_;
};

// Memorises a date field before each key, and undoes a keystroke that makes
// the date of the triple impossible. Owned by the day field.
class DateFieldBinding : public QObject {
    Q_OBJECT
public:
    DateFieldBinding(QLineEdit* day, QLineEdit* month, QLineEdit* year);

    // Off while the window fills the fields itself; on by default.
    void set_guard(bool on) { guard_ = on; }
    bool guard() const { return guard_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    LineEditField* field_of(QObject* watched);
    void check(LineEditField& changed);

    LineEditField day_;
    LineEditField month_;
    LineEditField year_;
    DateKeystrokes keystrokes_;
    bool guard_ = true;
};

DateFieldBinding* bind_date_fields(QLineEdit* day, QLineEdit* month, QLineEdit* year);

// The three fields of a date as every detail window draws them: digits only,
// two, two and four long, each just wide enough, named `prefix` + index (from
// `base`), bound to the keyboard rules. `changed(index, text)` follows each field.
struct DateTriple {
    std::array<QLineEdit*, 3> fields{};
    DateFieldBinding* binding = nullptr;
};
DateTriple make_date_triple(const QString& prefix, int base, std::function<void(int, const QString&)> changed);

}  // namespace plouvarine::gui
