#pragma once
// Utils_ajout_perf_manuel: what the two forms of manual performances share,
// the entry part (time, place, date, pool, codifications), its check and the
// insert of the row, numbered among the manual rows of its own table.

#include <QString>
#include <QStringList>
#include <array>

namespace plouvarine {

class AppContext;

// The fields of txt_info, by index.
enum PerfField : int { kFieldTemps = 0, kFieldLieu = 1, kFieldJour = 3, kFieldMois = 4, kFieldAnnee = 5 };
// The focus given to the swimmers' list by the check of a relay.
inline constexpr int kFocusLicences = -2;

struct PerfEntry {
    std::array<QString, 6> txt_info;
    int opt_bassin = 0;            // 0 for 25 m, 1 for 50 m
    bool bassin50_enabled = true;  // the event may be swum in a 50 m pool
    // Op_f, Op_r, Op_rg, Op_d: 0 "Qualificative", 1 "Référence", 2 "Animation", -1 none.
    std::array<int, 4> codif{-1, -1, -1, -1};
    bool chk_relais = false;  // "Réalisée au départ d'un relais"
    bool chk_inter = false;   // "Temps intermédiaire"
    bool chk_sel = false;     // "Réalisée au sein de la sélection": shown, never stored
    int focus = -1;           // where the last check put the focus

    // The date as yyyymmdd from the three fields.
    QString date() const;
    // Leaving the time field: its text rounded to the canonical form.
    void leave_time();
};

// The caption of option `index` of Opt_bassin: "25 m" or "50 m".
QString caption_bassin(int index);
// The letter of a codification group: "Q", "R", "A" or " ".
QString codif_choisie(int option);
// cmd_CodifClear: no codification chosen.
void efface_codifs(PerfEntry& entry);
// efface_saisie_perf: the entry back to its start (the pool is the event's
// to reset).
void efface_saisie_perf(PerfEntry& entry);

// verif_saisie_perf: `nb_relayeurs` is 0 for an individual, else the event's
// number of swimmers, `composition` the number in the relay.
bool verif_saisie_perf(AppContext& app, PerfEntry& entry, int nb_relayeurs = 0, int composition = 0);

// What enregistre_perf inserts besides the entry.
struct PerfTarget {
    QString code_epreuve;
    QString libelle;
    QString club;          // the swimmer's club, or the profile's for a relay
    QString num_lic;       // the swimmer; "1" for a relay
    QString nom_complet;   // for the question
    QString naissance;     // the birth date yyyymmdd
    QStringList relayeurs; // Licence.Num in leg order
};

// The next manual number of `table`: the largest plus 1, 1 for the first.
int prochain_num_manuel(AppContext& app, const QString& table);
// The age on the performance: the years only.
int age_perf(const QString& naissance, const QString& date_perf);
// enregistre_perf: asks, then inserts; true when the row was inserted.
bool enregistre_perf(AppContext& app, const PerfEntry& entry, bool relay, const PerfTarget& target);

}  // namespace plouvarine
