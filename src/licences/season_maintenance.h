#pragma once
// A swimmer's licence row is never removed: it belongs to selections, loses its
// entries when deleted, is retired two years after, and is carried into each
// new season when a base opens.

#include <QString>

namespace plouvarine {

class AppContext;

// A swimmer joins a selection club, or comes back to it.
void AjouteASelection(AppContext& app, const QString& code_sel, const QString& num);

// Removes the entries of swimmers being deleted. `selection`: the swimmers
// marked in the selection `code`; otherwise the licence `condition` (a Num),
// or, when empty, every licence of Licence_tempo, whose deletion turns final.
// Errors go to the caller.
void SupprimeEngagementsLicences(AppContext& app, bool selection, const QString& code, const QString& condition);

// Licences deleted more than two years ago give their number back.
void PurgeLicences(AppContext& app);
// Once a season, every licence not deposited in it becomes a renewal dated
// from the season's opening.
void MajSaisonLicences(AppContext& app);

// Sets the opening step "Mise à jour des licences": the purge, then the season.
void install_licence_hooks(AppContext& app);

}  // namespace plouvarine
