#pragma once
// Individual entries: the fifty-row event panel, the proposal of an entry time
// from a swimmer's performances, and the rows of Engag (or Engag_modele) of one
// swimmer in one team, read and replaced whole.
//
// Event codes are split by sex: a man's event is the woman's code plus 50. The
// panel works on the woman's code, its row; a swimmer's rows become codes by
// his offset (50 for "M", else 0).

#include "src/entries/teams.h"

#include <QString>
#include <array>

namespace plouvarine {

class AppContext;
class Database;

inline constexpr int kPanelRows = 50;

// The row of the panel that shows an event code.
int RowOfCode(int code);
// The code offset of a swimmer of sex `sexe`.
int CodeOffset(const QString& sexe);

// One row of the panel as the catalogue gives it.
struct PanelEvent {
    bool shown = false;       // an individual event of that code exists
    QString label;            // "100m dos": the event's label without its sex
    bool possible_50 = true;  // swum in a 50 m pool too: the row has a 50 m option
};
using PanelEvents = std::array<PanelEvent, kPanelRows>;
// The panel's rows from Nage: the women's individual events, labelled without
// their trailing "Dames".
PanelEvents ChargerEpreuves(Database& db);

// The best performance of one event, as texts: time (normalised), place, date
// yyyymmdd, pool ("25" or "50"). An empty time: none since the floor.
struct PerfSlot {
    QString temps;
    QString lieu;
    QString date;
    QString bassin;
};
using TabPerf = std::array<PerfSlot, kPanelRows>;

// The earliest date of a usable performance for a competition that begins on
// `debut_compet`: the opening of the season before the competition's.
QString DebutPerf(const QString& debut_compet);
QString ChercherPerfsSql(const QString& swimmer, const QString& debut_perf);
// For each row the fastest time since `debut_perf`, whatever the pool; of equal
// times the first the base returns.
TabPerf ChercherPerfs(Database& db, const QString& swimmer, const QString& debut_perf);

// One row of the panel as the person fills it. In a model only `checked`
// counts.
struct EngagRow {
    bool checked = false;
    QString temps;
    QString lieu;
    QString jour;
    QString mois;
    QString annee;
    bool bassin_50 = false;  // the 50 m option is on
};
using EngagPanel = std::array<EngagRow, kPanelRows>;

// The swimmer's entries in `team`, a competition's or a model's.
QString AfficherEngagSql(const EntryScope& scope, const Team& team, const QString& swimmer);
// The swimmer's stored entries into `panel` (which the caller has emptied).
// A stored 50 m pool shows only on a row that has the 50 m option.
void AfficherEngagNageur(Database& db, const EntryScope& scope, const Team& team, const QString& swimmer,
                         const PanelEvents& events, EngagPanel& panel);

// The INSERT of one ticked row: the code is `row` plus the swimmer's offset.
// A time that is empty or not above 0 goes as 0; a date only when the three
// fields make one; the pool 50 only on a row that has the option.
QString InsertEngagSql(const EntryScope& scope, const Team& team, const QString& swimmer, int offset, int row,
                       const EngagRow& entry, bool possible_50);
// Replaces the swimmer's rows of the team by the ticked rows of `panel`, the
// codes by his sex as it stands now. On an error "Une erreur s'est produite
// lors de la sauvegarde des engagements." is shown and the rows written so far
// stay: false. A swimmer no longer in Licence is such an error, before
// anything is written.
bool SaveEngagNageur(AppContext& app, const EntryScope& scope, const Team& team, const QString& swimmer,
                     const PanelEvents& events, const EngagPanel& panel);

// The entries of a competition into Engag_tempo (or back with `back`), through
// CopierEtat. False, with the message shown, on failure.
bool CopierVersTempo(AppContext& app, const QString& profile, const QString& compet, bool back = false);
// A model's entries back from Engag_tempo, where the model number stands in
// Num_compet. The engine's errors go to the caller.
void RecopierModele(AppContext& app, const QString& modele);

}  // namespace plouvarine
