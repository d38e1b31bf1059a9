#pragma once
// Where a competition chosen in Frm_liste_compet goes next, by the list's mode.

#include <QString>
#include <functional>

namespace plouvarine {

class AppContext;

// The person chose the competition `num` (its AutoNum; empty for "Impor res"
// with "&Nouvelle": results for a competition not in the base) in the list
// opened with `keyword`.
void competition_chosen(AppContext& app, const QString& keyword, const QString& num);

// What choosing a competition opens, for the keywords whose windows belong to
// a subject above the competitions (the entries): that subject registers its
// door here when it is plugged in. A later registration replaces the earlier.
using CompetitionDoor = std::function<void(AppContext& app, const QString& num)>;
void set_competition_door(const QString& keyword, CompetitionDoor door);

// The doors of "disk" and "Impor res": the operation runner with the entry
// files component and the results import.
void install_exchange_doors();

}  // namespace plouvarine
