#pragma once
// The windows of the tools: "Table Cotation", "Calculatrice de temps", the
// interclub team points and the monitor's settings.

namespace plouvarine::gui {

void register_tool_windows();

}  // namespace plouvarine::gui
