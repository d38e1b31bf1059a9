#pragma once
// The competition register: the statements of Rcomp and the openers of the
// competition windows.
//
// A competition in edit travels as a CompetRecord, the 13 columns that its
// INSERT writes. A competition lives in three states, told by
// (Deroule, Visible): to come (false, true), hidden by a deletion (false,
// false), retired once begun (true, false); rows made for an import of
// results stand at (true, true).

#include "src/base/sql_text.h"

#include <QString>
#include <QStringList>

namespace plouvarine {

class AppContext;

// A competition as the detail writes it, unquoted.
struct CompetRecord {
    QString num;
    QString type;         // "C", "I" (interclubs)
    QString nom;
    QString debut;        // "yyyymmdd"
    QString fin;
    QString lieu;
    QString longueur;     // "25", "50"
    QString nb_couloir;
    // The level letters ("Q", "R", "A", or a blank) from the federation down.
    QString codif_fede;
    QString codif_inter;
    QString codif_reg;
    QString codif_depar;
    QString num_piscine;
};

// The INSERT of a new competition; its texts quoted.
QString AjouterCompetSql(const CompetRecord& compet);
// True on success; the engine's error is dropped, the caller reports.
bool AjouterCompet(AppContext& app, const CompetRecord& compet);
// The UPDATE of the competition `autonum`, its texts quoted here.
QString ModifierCompetSql(const CompetRecord& compet, const QString& autonum);
bool ModifierCompet(AppContext& app, const CompetRecord& compet, const QString& autonum);
// A competition row for an import of results (taken place, shown, no pool):
// its AutoNum, or the empty text after the error message.
QString CreerCompetImport(AppContext& app);
// One column of the competition as text; empty when there is no such row.
QString ChampCompet(AppContext& app, const QString& autonum, const QString& column);
QString DebutCompet(AppContext& app, const QString& autonum);
qint16 LongueurCompet(AppContext& app, const QString& autonum);
// Competitions that have begun by today leave the lists: taken place, hidden.
// Errors go to the caller.
void MajCompetitions(AppContext& app);
// Copies the rows of the comma list of AutoNum into Rcomp_tempo.
bool SauverCompetTempo(AppContext& app, const SqlText& autonums);

// det_compet in `mode` ("Nouveau" or "Modif"), under `title`; `caller` is the
// window to reload after a save (the main window when empty).
void OuvrirDetCompet(AppContext& app, const QString& mode, const QString& title, const QString& caller = {},
                     const QString& autonum = {});
// Frm_liste_compet in `mode`, with its action command's caption, its title,
// the window that opened it (the main window when empty) and, when not empty,
// its own SELECT.
class FrmListeCompet;
FrmListeCompet* OuvrirListeCompet(AppContext& app, const QString& mode, const QString& caption,
                                  const QString& title, const QString& caller = {}, const QString& sql = {});

// The competition commands of the main window: mnuCompetNew, mnuCompetListe,
// mnuCompetModif, mnuCompetSuppr and the list commands of the entries, the
// programme and the results import. False for another command.
bool run_competition_command(AppContext& app, const QString& command);
// Registers the Compétitions and Engagements menus in the command table.
void install_competition_commands(AppContext& app);

}  // namespace plouvarine
