#pragma once
// The two opening steps that need a club and a profile: "Contrôle Club"
// (dem_info_obli when no visible club exists) and "Lecture profil".

namespace plouvarine {

class AppContext;

void install_club_hooks(AppContext& app);

}  // namespace plouvarine
