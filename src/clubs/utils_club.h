#pragma once
// The club register: the federal code, its check against the geography, and
// the statements that add, change and soft-delete clubs.
//
// A club code has 13 characters: country (3), inter-region (1), region (2),
// department (3), federal number (4). A code that ends in "0000" is a
// selection. A soft-deleted club keeps its row (results point to it) but holds
// its own Num as code, so that its code is free again.

#include <QString>

namespace plouvarine {

class AppContext;

inline constexpr int kClubCodeLength = 13;

// The message a refused code gives, after the caller's prefix line.
QString invalid_code_message();

// True when the code's last four characters are "0000".
bool EstCodeSelection(const QString& code);
// Checks the code against Pays, Inter_Region, Region and Departement. A code
// that is not 13 characters long is refused silently; any other refusal shows
// `prefixe` (and a line break) then "Le code club tapé n'est pas valide." when
// `afficher` is true. Database errors go to the caller.
bool CodeClubValide(AppContext& app, const QString& code, bool afficher, const QString& prefixe);
// True when a club holds the code, the rows `num_exclu` (a list of Num, may
// be empty) apart; with `afficher`, says so through msg_club_double.
bool ClubExiste(AppContext& app, const QString& code, const QString& num_exclu, bool afficher,
                const QString& prefixe);
// Adds a visible club when its code is valid; gives the validity.
bool AjouteClub(AppContext& app, const QString& code, const QString& name);
// Rewrites the club `num` when the new code is valid; the code travels into
// the rows that hold it. Gives the validity.
bool ModifieClub(AppContext& app, const QString& code, const QString& name, const QString& num,
                 const QString& prefixe);
// The Num of the club that holds the code, or the empty text.
QString NumClub(AppContext& app, const QString& code);
// Soft-deletes the clubs of the numeric condition `N` (on Num) and the rows
// that depend on them through the quoted condition `C` (on Code_Club, with
// the Num as value). Shows one message on failure; what ran stays. Gives
// true when every statement ran.
bool SupprimeClubs(AppContext& app, const QString& numeric_condition, const QString& quoted_condition);
// The number of visible clubs.
int ExisteClubVisible(AppContext& app);

// The composition help on a code field: gives true, with the composed code in
// `field`, when the person chose to copy it.
bool AideCodeClub(AppContext& app, QString& field);

// The club list of a menu command (keyword, title, OK caption), and the club
// detail for a new club.
void OuvreListeClubs(AppContext& app, const QString& keyword, const QString& title, const QString& ok_caption);
void OuvreDetailClub(AppContext& app, const QString& keyword);

}  // namespace plouvarine
