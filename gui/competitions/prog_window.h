#pragma once
// The window of frm_prog: the catalogue with its tick boxes, the options of
// the selected event (Optclass_1..8, optNbFinales_1..3, OptType_0..1,
// txtordre, CboDate) and the finished programme Lsv_prog.

namespace plouvarine::gui {

// Registers frm_prog by view name.
void register_prog_window();

}  // namespace plouvarine::gui
