#pragma once
// Teams of an interclubs: plain numbers within three kinds (men, women, mixed),
// their count per kind stored per competition and profile (or per entry
// model), and each swimmer in one team or none. Every statement is written
// once over its tables, so that a competition's tables and a model's tables
// ("_modele") run the same code. The snapshot columns Old_* hold the state at
// the start of an editing pass, for its undo.

#include <QString>
#include <QStringList>

namespace plouvarine {

class AppContext;

// The owner of the entries: a competition for a profile, or an entry model.
struct EntryScope {
    QString key;      // Rcomp.AutoNum, or Modele_engag.NumAuto for a model
    QString profile;  // Profil.Num; unused for a model
    bool modele = false;

    static EntryScope competition(const QString& num, const QString& profile) { return {num, profile, false}; }
    static EntryScope model(const QString& num) { return {num, {}, true}; }

    QString nageur_table() const;  // Engag_nageur[_modele]
    QString equipe_table() const;  // Engag_equipe[_modele]
    QString engag_table() const;   // Engag[_modele]
    // The key test, each column preceded by `prefix` ("Engag_nageur.",
    // "<TABLE>."): "Num_compet = 3 and Num_profil = 1", or "Num_modele = 3".
    QString key_where(const QString& prefix = {}) const;
};

// A team as cbo_team names it. Number 0 and not mixed: "Individuel".
struct Team {
    int number = 0;
    bool mixed = false;
    QString sex;  // "M", "F", or empty for a mixed team and for individuals

    bool individual() const { return number == 0 && !mixed; }
    // " and <number_column> = 2 and <mixed_column> = false"
    QString filter(const QString& number_column = QStringLiteral("Num_equipe"),
                   const QString& mixed_column = QStringLiteral("Equipe_mixte")) const;
};

inline const QString kIndividuel = QStringLiteral("Individuel");

// The name of a team in the list: "Equipe 2 Homme"; "Individuel" for none.
QString team_name(const Team& team);
// The choice of cbo_team read back: "Equipe 2 Femme" gives 2, not mixed, "F".
Team parse_team(const QString& text);

struct TeamCounts {
    int homme = 0;
    int femme = 0;
    int mixte = 0;
    bool operator==(const TeamCounts&) const = default;
};

// A count field as it is put back: empty or unreadable is 0, above 49 is 49.
int count_from_field(const QString& text);
// The counts of the owner: 0, 0, 0 when no row holds them.
TeamCounts read_counts(AppContext& app, const EntryScope& scope);
// cbo_team: "Individuel", then the teams of each kind from 1, in the order
// Homme, Femme, Mixte.
QStringList team_list(const TeamCounts& counts);

// Cmd_equipe: stores the counts (field rules applied) and sends the swimmers,
// entries and relays of every team above a count back to individual, each
// kind by its sex. False, with the message shown, on error.
bool apply_counts(AppContext& app, const EntryScope& scope, const TeamCounts& counts);

// Replaces <TABLE>, <NUM_TEAM> and <SEXE_NAGEUR> in `sql`, then runs it.
void ExecTemplate(AppContext& app, const QString& sql, const QString& table, int num_team, const QString& sexe);

// Puts the swimmer in `team` (he has a row in the owner's swimmer table).
void AffecterEquipe(AppContext& app, const EntryScope& scope, const QString& swimmer, const Team& team);

// lsv_engag: the swimmers of `team`, with their sex when the team has one:
// Nom, Prenom, Licence, Club.Intitule with several clubs, Num.
QString team_members_sql(const EntryScope& scope, const Team& team, bool several_clubs);
// lsv_licencie: the swimmers who may join `team` (the club's selection when
// one is in use): Licence, Nom, Prenom, Num, and Club.Intitule for a
// selection. A member of another team is left out, so a swimmer is in one
// team at most; individuals and the team's own members stay.
QString team_candidates_sql(AppContext& app, const EntryScope& scope, const Team& team);
// Cmd_add for one swimmer: his row in the swimmer table, or his team changed.
// False, with the message shown, on error.
bool AjouterDansEquipe(AppContext& app, const EntryScope& scope, const QString& swimmer, const Team& team);
// The swimmer's entries in `team` deleted.
void EffacerEngagNageur(AppContext& app, const EntryScope& scope, const QString& swimmer, const Team& team);
// The swimmer leaves `team`: his entries of the team go, he becomes
// individual and leaves the team's relays. False, with the message shown, on
// error.
bool RetirerDeLEquipe(AppContext& app, const EntryScope& scope, const QString& swimmer, const Team& team);

// The snapshots taken at the start of an editing pass.
void SnapNageurCompet(AppContext& app, const QString& num);
void SnapNageurModele(AppContext& app, const QString& num);
void SnapEquipeCompet(AppContext& app, const QString& num);
void SnapEquipeModele(AppContext& app, const QString& num);
// Both snapshots of the owner: the competition pair or the model pair.
void snap_pass(AppContext& app, const EntryScope& scope);

void RestaurerNageur(AppContext& app, const QString& table, const QString& where);
void RestaurerEquipe(AppContext& app, const QString& table, const QString& where);
void EffacerTable(AppContext& app, const QString& table, const QString& where);

// Replaces the rows of one competition and profile in `table` by those of
// `source` (same columns in the same order). False, with the message shown,
// on failure.
bool CopierEtat(AppContext& app, const QString& table, const QString& source, const QString& profile,
                const QString& compet);

// The teams' share of an undo: assignments and counts back to the snapshots.
void undo_team_pass(AppContext& app, const EntryScope& scope);
// The teams' share of the end of a pass: the snapshots cleared, and the rows
// of swimmers in no team removed.
void end_team_pass(AppContext& app, const EntryScope& scope);

}  // namespace plouvarine
