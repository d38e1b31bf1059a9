#pragma once
// The fee a licence pays refers to the club's fees by name.

#include <QString>

namespace plouvarine {

class AppContext;

// NettoieTarifs: a licence of the club whose fee no longer exists loses it.
// False after an error, which has been shown.
bool NettoieTarifs(AppContext& app, const QString& club_code);

}  // namespace plouvarine
