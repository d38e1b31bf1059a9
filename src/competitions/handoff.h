#pragma once
// Where a competition chosen in Frm_liste_compet goes next, by the list's mode.

#include <QString>

namespace plouvarine {

class AppContext;

// The person chose the competition `num` (its AutoNum; empty for "Impor res"
// with "&Nouvelle": results for a competition not in the base) in the list
// opened with `keyword`.
void competition_chosen(AppContext& app, const QString& keyword, const QString& num);

}  // namespace plouvarine
