#pragma once
// Binds a line edit to the keyboard rule of time fields: digits, Backspace and
// one point only, and a keystroke that brings the seconds to 60 is refused
// with its message. Owned by the line edit.

#include "gui/frame/date_field_binding.h"
#include "src/base/time_field.h"

#include <QObject>

class QLineEdit;

namespace plouvarine {
class Services;
}

namespace plouvarine::gui {

class TimeFieldBinding : public QObject {
    Q_OBJECT
public:
    TimeFieldBinding(Services& ui, QLineEdit* edit);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Services& ui_;
    LineEditField field_;
    TimeKeystrokes keystrokes_;
};

TimeFieldBinding* bind_time_field(Services& ui, QLineEdit* edit);

}  // namespace plouvarine::gui
