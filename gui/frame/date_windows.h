#pragma once
// The windows of dates: the day picker.

namespace plouvarine::gui {

void register_date_windows();

}  // namespace plouvarine::gui
