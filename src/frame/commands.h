#pragma once
// What each menu command of the main window opens, as data, so that the main
// window wires a command to its window in one line. The base commands (New,
// Open, Save...), the exchange operations and the monitor are plain functions
// and are not in this table.

#include <QString>
#include <vector>

namespace plouvarine {

enum class CommandKind {
    List,      // a list window with a keyword, a title and an OK caption
    Detail,    // a detail window with a keyword (a new record, the current profile)
    Window,    // a window of its own (results, performances, calculators...)
    NoAction,  // stands in the menu and does nothing
};

struct CommandTarget {
    QString command;      // "mnuLicListe"
    CommandKind kind = CommandKind::List;
    QString window;       // the window's name: "frm_liste_licence"; empty for NoAction
    QString keyword;      // the action keyword (keyword.h); empty when none
    QString title;        // the window title passed by the command; empty when none
    QString ok_caption;   // caption of the list's OK button; empty: none (kept hidden)
    QString model_kind;   // "Engag" or "Prog" for the model windows, else empty
    bool modal = false;   // shown modally by the command itself
};

// Every command of the table: the list commands first, then the detail,
// window and no-action ones.
const std::vector<CommandTarget>& command_table();
// The entry of a command, or null when the command is not in the table.
const CommandTarget* find_command(const QString& command);
// The commands that open `window`, in table order.
std::vector<const CommandTarget*> commands_opening(const QString& window);

}  // namespace plouvarine
