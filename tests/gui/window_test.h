#pragma once
// What the window tests share: the one QApplication, the real main window over
// the fixture's base, and the moves a person makes on a window.

#include "drawn_main_window.h"
#include "support/app_fixture.h"

#include <QApplication>
#include <QLineEdit>
#include <QWidget>
#include <gtest/gtest.h>

namespace plouvarine::testing {

// The one QApplication of the window tests, its settings kept in a folder of
// its own so that no test reads or writes the person's settings.
void ensure_application();
// The named child of `window`; a failure when there is none.
template <typename T = QWidget>
T* find(QWidget* window, const QString& name)
{
    T* w = window->findChild<T*>(name);
    EXPECT_NE(w, nullptr) << name.toStdString();
    return w;
}
// Clicks the named button, which must be there and enabled.
void click(QWidget* window, const QString& name);
// One key event per character, as typed, after what the field holds.
void type_in(QWidget* field, const QString& text);
// Types each text into the named line edit of `window`, in place of what it held.
inline void fill(QWidget* window, std::initializer_list<std::pair<const char*, const char*>> fields)
{
    for (const auto& [name, text] : fields)
        if (auto* edit = find<QLineEdit>(window, QLatin1String(name))) {
            edit->clear();
            type_in(edit, QString::fromUtf8(text));
        }
}
// Those of `names` that Tab reaches in `window`, in the order it reaches them.
inline QString tab_order(QWidget* window, const QStringList& names)
{
    QStringList order;
    for (QWidget* w = window->nextInFocusChain(); w != window; w = w->nextInFocusChain())
        if (names.contains(w->objectName()))
            order << w->objectName();
    return order.join(u' ');
}
// Grabs the window as `name` in `folder`; PLOUVARINE_KEEP_SCREENSHOTS=<folder>
// keeps a copy to look at.
void shoot(QWidget* window, const QString& folder, const QString& name);

// The fixture `Base` with the main window drawn once `open_main` is called on
// the base it prepared, and closed before the base goes.
template <typename Base = AppFixture>
class WindowTest : public Base {
protected:
    void SetUp() override
    {
        ensure_application();
        Base::SetUp();
    }
    void TearDown() override
    {
        main.close();
        Base::TearDown();
    }
    void open_main() { main.open(*this->app, this->ui); }
    QWidget* child_window(const QString& name) const { return main.child_window(name); }
    // The window `name` opened by the menu command `command`, or null.
    QWidget* open(const QString& command, const QString& name)
    {
        main->trigger(command);
        return main.child_window(name);
    }
    // The window `name` of the competition chosen ("Ok") in the list `command` opens.
    QWidget* open_chosen(const QString& command, const QString& name)
    {
        QWidget* list = open(command, QStringLiteral("Frm_liste_compet"));
        if (!list)
            return nullptr;
        click(list, QStringLiteral("Command1_2"));
        return main.child_window(name);
    }
    // Whether the window `name` is gone once its deletion has run.
    bool gone(const QString& name) const
    {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return main.child_window(name) == nullptr;
    }
    void shoot(QWidget* window, const QString& name) { testing::shoot(window, this->work_dir(), name); }

    DrawnMainWindow main;
};

}  // namespace plouvarine::testing
