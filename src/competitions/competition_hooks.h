#pragma once
// The opening step "Mise à jour des compétitions": competitions that have
// begun leave the lists of competitions to come.

namespace plouvarine {

class AppContext;

void install_competition_hooks(AppContext& app);

}  // namespace plouvarine
