#pragma once
// The printed products of the entries: the entry slip that a club sends to the
// organiser (all its individual entries and relays of one competition), and
// the convocations.

#include <QString>
#include <QStringList>

namespace plouvarine {

class AppContext;
class RichBox;

// `text` cut to `width` characters or padded on the right with `pad` (an
// empty pad counts as a blank).
QString Completer(const QString& text, int width, const QString& pad = QStringLiteral(" "));
// `text` cut to `width` characters or padded on the left.
QString CompleterGauche(const QString& text, int width, const QString& pad = QStringLiteral(" "));

// The heading word of a team: "Individuel" for team "0", "Mixte" for a mixed
// team, else "Homme" for sex "M" and "Femme" for any other.
QString LibelleEquipe(const QString& number, bool mixed, const QString& sexe);

// Writes the individual and relay sections of competition `num` in place of
// <ENGAG_INDIV> and <ENGAG_RELAIS> of a loaded "bor_engag" template.
void EcrireBordereau(AppContext& app, RichBox& rich, const QString& num);

// Prints the entry slip of competition `num` on the template "bor_engag".
// False when nothing was printed (template missing, cancelled, error shown).
bool ImprimerBordereau(AppContext& app, const QString& num);

// The doors of "Imprim bordereau" (and, once written, "Imprim convoc") in the
// competition list.
void install_print_handoff();

}  // namespace plouvarine
