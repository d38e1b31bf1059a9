#pragma once
// Opening and closing the base in use, on the application's one connection.

#include "src/base/errors.h"

#include <optional>

namespace plouvarine {

class AppContext;

// Closes the open base in good order, then opens the base at state.base_path.
// Gives false on any failure; the caller composes its message with msg_erreur_base,
// with the engine's error that `failure`, when given, receives.
bool connect_base(AppContext& app, std::optional<Error>* failure = nullptr);
// Unloads every open window, then writes LastClose true and closes; with no
// open connection only the windows go.
void close_base(AppContext& app);
// Waits for the save being written, writes LastClose true and closes the
// connection, leaving the windows open: for the window that hands the base
// file to a component for the time of its run.
void disconnect_base(AppContext& app);


// Closes the base, restores the save and opens the base again.
bool cancel_operations(AppContext& app);
// True when the last use did not end cleanly and the person chose to restore.
bool check_crash(AppContext& app);
// After a failure that left the base closed: reconnect, or restore and give up.
void reopen_or_recover(AppContext& app);

}  // namespace plouvarine
