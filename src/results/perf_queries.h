#pragma once
// The statements of the performance history: the swimmers who have any, and
// the two reads of the rows, one for a swimmer and one for the club's relays,
// shaped by the options of the view.

#include <QString>

namespace plouvarine {

// The options of frm_view_perf, as the person set them.
struct PerfOptions {
    int tri = 1;       // Opt_tri: 0 by date (latest first), 1 by time (best first)
    int saison = 2;    // Opt_saison: 0 "En cours", 1 "Dernière", 2 "Toutes"
    int nb_perf = 1;   // Opt_nbPerf: 0 "Toutes", 1 one, 2 "Personnalisé"
    QString txt_nb_perf;
    bool codif = false;       // Chk_codif
    bool tps_inter = false;   // Chk_tps_inter
    bool tps_relais = false;  // Chk_tps_relais
    bool selection = false;   // Chk_selection: the club's own swims only

    // The rows kept per event and per swimmer: -1 for all.
    int limit() const;
    // The label of option 1 of Opt_nbPerf: "Dernière" by date, "Meilleure" by time.
    QString label_one() const;
    bool operator==(const PerfOptions&) const = default;
};

// The placeholder of the swimmer's number in the individual statement.
inline const QString kNumLicence = QStringLiteral("<NUM_LICENCE>");

struct PerfQueries {
    QString individuel;  // holds kNumLicence
    QString relais;
};

// construit_requetes_perf: `club` is the profile's club code, `today` yyyymmdd.
PerfQueries construit_requetes_perf(const PerfOptions& options, const QString& club, const QString& today);

// charge_nageurs: Num, Nom, Prenom, Licence, (Intitule on a selection),
// Date_Naissance of the swimmers of the profile that have a performance.
QString requete_nageurs_perf(const QString& club, bool selection);

}  // namespace plouvarine
