#pragma once
// The two rows every base holds to stand for no swimmer and no pool, both named
// "Null": the licence nulle fills an empty place of a relay, the piscine de
// référence stands for a competition without a pool. Made when missing.

#include <QString>

namespace plouvarine {

class Database;
class Services;

// Gives Licence.Num of the sentinel swimmer, creating it under the current club
// when missing; the empty text after an error (already reported).
QString check_licence_nulle(Database& db, Services& ui, const QString& club_code);
// Gives Piscine.Num of the reference pool, creating it when missing (the
// competitions whose pool no longer exists are put on it); throws when the
// base cannot be read or written.
QString piscine_reference(Database& db);
// Creates the reference pool when missing; an error is reported.
void check_piscine_reference(Database& db, Services& ui);

}  // namespace plouvarine
