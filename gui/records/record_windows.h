#pragma once
// The windows of the club records: frm_view_record with its two tabs, the
// bands' dialog det_categorie_record_club, and frm_cherche_record, the swims
// of the history proposed as records.

namespace plouvarine::gui {

// Registers the three windows by view name.
void register_record_windows();

}  // namespace plouvarine::gui
