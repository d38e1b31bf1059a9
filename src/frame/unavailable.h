#pragma once
// The answer of a door that nothing has plugged in yet: one information
// message, so that the person knows the command was heard.

#include <QString>

namespace plouvarine {

class AppContext;

inline const QString kNotAvailable = QStringLiteral("Cette fonction n'est pas encore disponible.");

// The information "Cette fonction n'est pas encore disponible.".
void not_available(AppContext& app);

}  // namespace plouvarine
