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

// ---------------------------------------------------------------- convocations

struct TempoRapport;

// One swimmer of the convocation list.
struct ConvocationSwimmer {
    QString num;  // Licence.Num
    QString nom;
    QString prenom;
    QString licence;
};

// What the person chose in frm_convocation.
struct ConvocationChoice {
    const RichBox* message = nullptr;  // the club's message, formatting kept
    bool programme = false;            // "Imprimer programme"
    bool coupon = false;               // "Imprimer coupon réponse"
    QString reply_date;                // "d mmmm yyyy", or empty
};

// The sign printed at the ends of the reply coupon, and a font that has it.
inline const QString kCiseaux = QString(QChar(0x2702));
inline const QString kPoliceCiseaux = QStringLiteral("DejaVu Sans");

// Loads the template "convo" into `tempo.rich_modele` and writes what every
// letter shares: the profile tags, the message, the competition with its pool,
// the programme (or neither it nor its heading). False when the template fails.
bool PreparerConvocation(AppContext& app, TempoRapport& tempo, const QString& num, const ConvocationChoice& choice);
// The letter of one swimmer in `tempo.rich`, from the prepared template: name,
// licence, his individual entries and relays, and the coupon when chosen.
void EcrireConvocation(AppContext& app, TempoRapport& tempo, const QString& num, const ConvocationSwimmer& swimmer,
                       const ConvocationChoice& choice);
// The team column of a convocation line: nothing for no team, else the
// number in 5 columns and "X" for a mixed team.
QString ColonneEquipe(const QString& number, bool mixed);

// The doors of "Imprim bordereau" and "Imprim convoc" in the competition list.
void install_print_handoff();

}  // namespace plouvarine
