#pragma once
// Opening and closing the base in use, on the application's one connection.

namespace plouvarine {

class AppContext;

// Closes the open base in good order, then opens the base at state.base_path.
// Gives false on any failure; the caller composes its message with msg_erreur_base.
bool connect_base(AppContext& app);
// Writes LastClose true and closes; with no open connection does nothing.
void close_base(AppContext& app);

}  // namespace plouvarine
