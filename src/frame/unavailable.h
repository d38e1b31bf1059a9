#pragma once
// The menu commands whose windows are still to be written. Each is registered
// in the command table with one information message, so that the person knows
// the command was heard; a subject that comes to run one replaces it.

#include <QString>

namespace plouvarine {

class AppContext;

inline const QString kNotAvailable = QStringLiteral("Cette fonction n'est pas encore disponible.");

// The information "Cette fonction n'est pas encore disponible.".
void not_available(AppContext& app);

// Registers not_available under the calculators, the monitor, the imports and
// exports, the results, the performances and the models.
void install_unavailable_commands(AppContext& app);

}  // namespace plouvarine
