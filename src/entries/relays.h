#pragma once
// Relay entries of a competition. A row of Relais is one relay of one team in
// one relay event: Num_Lic holds its running number within the team and event
// (from 1), Licence1 to Licence10 the swimmers in the order they swim, the null
// licence in an empty place. The entry time is the sum of the swimmers' own
// best individual times over their leg.

#include "src/entries/teams.h"

#include <QString>
#include <QStringList>
#include <vector>

namespace plouvarine {

class AppContext;

constexpr int kRelayPlaces = 10;

// One relay: competition and profile, event, team and running number.
struct RelayKey {
    QString profile;
    QString compet;
    QString code;  // Nage.Code_Nage
    int number = 1;
    Team team;

    // " where Num_profil = 1 and Num_compet = 3 and Code_epreuve = 8 and
    // Num_Lic = 2 and Num_equipe = 1 and Equipe_mixte = false"
    QString where() const;
};

// The events the legs of a relay are looked up in, read from its label: the
// distance of one swimmer stands between the first "x" and the first "m".
// A free relay ("n.l.") swims the unit event (1, 2, 3 for 50, 100, 200 m; any
// other distance as it stands) on every leg; a medley swims back, breast,
// fly, then free (unit + 10, + 20, + 30, unit).
struct RelayLegs {
    int distance = 0;
    bool free = false;
    int unit = 0;
    // The women's code of the event swum at `position` (0 for the first leg);
    // the men's code is 50 more.
    int code(int position) const;
};
RelayLegs relay_legs(const QString& libelle);

struct RelaySwimmer {
    QString num;  // Licence.Num
    QString nom;
    QString prenom;
};

// What Cmd_caltps found: the canonical sum, or the swimmers without a usable
// time, one "- Nom Prénom" line each.
struct RelayTime {
    QString time;
    QString missing;
    int missing_count = 0;
    bool ok() const { return missing_count == 0; }
};

// Sums each swimmer's best time at his leg's event, women's or men's code,
// since the start of the season two seasons before today; in a 50 m
// competition only from a 50 m pool.
RelayTime calcul_temps_relais(AppContext& app, const QString& libelle, const std::vector<RelaySwimmer>& swimmers,
                              int longueur);
// "Impossible de calculer le temps d'engagement car un nageur n'a pas ..."
QString relay_time_message(const RelayTime& result);

// The row of a new relay, the ten places empty.
QString relay_insert_sql(const RelayKey& key, const QString& num_lic_nulle);
// The composition saved: the time, the swimmers in order, empty places after.
QString relay_save_sql(const RelayKey& key, const QString& time, const QStringList& swimmers,
                       const QString& num_lic_nulle);

// The relays wanted and stored for one event of a team.
struct RelayCount {
    QString code;
    int nb_nageurs = 0;
    int nb_equipe = 0;
    int nb_equipe_ori = 0;
};
// Deletes the relays above each count and adds the new ones, empty; the
// stored counts then equal the wanted ones. False, with the message shown, on
// error.
bool save_relay_counts(AppContext& app, const QString& profile, const QString& compet, const Team& team,
                       std::vector<RelayCount>& counts);

// A relay as stored: its time and its ten places.
struct RelayRow {
    QString tps;
    QStringList licences;
};
// The relay, or an empty row when it is not stored.
RelayRow load_relay(AppContext& app, const RelayKey& key);

}  // namespace plouvarine
