#pragma once
// The subjects of the program plugged into the application: the steps they add
// to the opening of a base and the menu commands they run.

namespace plouvarine {

class AppContext;

// The opening hooks of the clubs, licences and competitions.
void install_subject_hooks(AppContext& app);
// The menu commands of every subject, in the application's command table.
void install_subject_commands(AppContext& app);

}  // namespace plouvarine
