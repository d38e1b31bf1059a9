#pragma once
// The commands of the Base menu that make a base current or end the work with
// it: Nouvelle, Ouvrir, Enregistrer, Annuler Opérations, Fermer, Quitter and the
// close box. Each runs to its end and reports through the services.

namespace plouvarine {

class AppContext;

// The controls that follow the opening of any base: club, profile, sentinels.
void startup_controls(AppContext& app);
// True when the base may be used, after an upgrade if its version is old.
bool check_version(AppContext& app);

void new_base_command(AppContext& app);
void open_base_command(AppContext& app);
void save_command(AppContext& app);
void cancel_command(AppContext& app);

// Fermer: ends the work with the base, not the process.
void close_command(AppContext& app);

enum class QuitOutcome { Refused, Stay, Quit };
// Quitter: Quit means unload the main window and end the process.
QuitOutcome quit_command(AppContext& app);
// The close box: gives true when the main window may close.
bool query_close(AppContext& app);
// The main window's unload: the base is closed in good order.
void unload_main(AppContext& app);

// Registers the Base menu's commands on files and the software update in the
// application's command table.
void install_base_commands(AppContext& app);

}  // namespace plouvarine
