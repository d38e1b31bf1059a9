#pragma once
// The menu commands of the results: "&Voir Résultats" opens frm_view_result.

namespace plouvarine {

class AppContext;

void install_result_commands(AppContext& app);

}  // namespace plouvarine
