#pragma once
// The tools' menu commands (the calculators, the team points, the performance
// monitor) and the monitor's part in the opening and the end of work.

namespace plouvarine {

class AppContext;

void install_tool_commands(AppContext& app);
// After the profile is read, its monitor settings are applied; at the end of
// work the monitor is released.
void install_tool_hooks(AppContext& app);

}  // namespace plouvarine
