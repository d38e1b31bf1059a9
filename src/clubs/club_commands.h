#pragma once
// The club and profile commands of the main window's menu, each opening its
// window with the keyword, title and OK caption of the command table.

#include <QString>

namespace plouvarine {

class AppContext;

// Runs one of mnuBaseClubNew, mnuBaseClubListe, mnuBaseClubModif,
// mnuBaseClubSuppr and the mnuBaseProfil commands. False for another command.
bool run_club_command(AppContext& app, const QString& command);

// Registers the commands of the Base menu's clubs, profiles and own club, and
// of the pools, in the application's command table.
void install_club_commands(AppContext& app);

}  // namespace plouvarine
