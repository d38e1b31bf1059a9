#pragma once
// Entry models: named sets of teams, swimmers and events without times, kept
// by a profile. A model is taken from a competition's entries, edited by
// itself in frm_engag, and applied to a competition, where it replaces all
// the entries. Programme models (Modele_prog, Pcomp_modele) share the head
// columns, so the model list serves both kinds.

#include <QString>

namespace plouvarine {

class AppContext;

// The head table of a kind ("Engag" or "Prog"): "Modele_engag", "Modele_prog".
QString TableModele(const QString& kind);

// The three detail tables of an entry model emptied. The engine's errors go
// to the caller.
void EffacerModele(AppContext& app, const QString& modele);
// The entries, teams and swimmers of the competition (current profile) added
// to the model. On failure "Erreur durant la sauvegarde du modèle.": false.
bool ModeleDepuisCompet(AppContext& app, const QString& modele, const QString& compet);
// The model's entries into Engag_tempo, the model number in Num_compet, for
// the undo of an editing pass. False, with the message shown, on failure.
bool MemoModeleTempo(AppContext& app, const QString& modele);
// Replaces every entry, relay, swimmer and team count of the competition
// (current profile) by the model's; in a 50 m pool the events swum only in a
// 25 m pool are left out. False, with the information shown, on failure.
bool AppliquerModele(AppContext& app, const QString& modele, const QString& compet);

}  // namespace plouvarine
