#pragma once
// The window of frm_convocation: the entered swimmers with their check boxes
// and "Sélectionner tous", the message with its style and alignment buttons,
// the programme and reply-coupon options with the reply date, and the buttons.

namespace plouvarine::gui {

// Registers frm_convocation by view name.
void register_convocation_window();

}  // namespace plouvarine::gui
