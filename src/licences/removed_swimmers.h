#pragma once
// Entry operations shared by the team, relay and licence windows.

#include <QString>
#include <optional>

namespace plouvarine {

class AppContext;

// RetirerDesRelais: every relay place Licence1 to Licence10 that holds one of
// `swimmers` (a list or a sub-select) goes to the empty licence; the other
// swimmers keep their places. Each filter is applied only when given.
void RetirerDesRelais(AppContext& app, const QString& swimmers, const QString& competitions = {},
                      std::optional<int> team = std::nullopt, std::optional<bool> mixed = std::nullopt,
                      const QString& profile = {});

}  // namespace plouvarine
