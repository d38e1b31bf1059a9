#pragma once
// Profiles: the named working identities, each bound to one club. The current
// profile (LastUse true) decides which club the whole program works for; its
// fields in the application state are written here and nowhere else.

#include "src/base/sql_text.h"

#include <QString>

namespace plouvarine {

class AppContext;

// The tables whose rows belong to a profile (Num_profil), emptied of a
// profile's rows when it changes club.
inline constexpr const char* kProfileTables[] = {"Engag", "Engag_equipe", "Engag_nageur", "Modele_engag", "Relais"};

// Reads the current profile into the state. Without one, forces the choice:
// det_profil_obli when the base has no profile, else Frm_liste_profil_obli.
// Then shows "Profil : name (club)" in the first status panel, and keeps
// "Votre Club" disabled for a selection. `avec_suivi` also reads the monitor
// settings.
void read_profile(AppContext& app, bool avec_suivi);

// What a profile's detail writes, new or changed: its club and its name.
SqlFields profile_fields(const QString& code, const QString& name);
// Adds a profile bound to the club `code`. Shows the message and gives false
// on failure.
bool AjouteProfil(AppContext& app, const QString& code, const QString& name);
// The monitor settings of the current profile.
bool SauveVisibiliteSuivi(AppContext& app, bool value);
bool SauveParametresSuivi(AppContext& app, int x, int y, int interval, bool visible);

// Makes the profile of that name the current one, then reads it.
void choose_profile(AppContext& app, const QString& name, bool avec_suivi);
// Deletes a profile's rows from the five profile tables.
void purge_profile_entries(AppContext& app, const QString& num);

// det_profil in a mode ("Nouveau", "View" on the current profile) from a
// menu command, and the profile list with its keyword, title and OK caption.
void OuvreDetailProfil(AppContext& app, const QString& keyword);
void OuvreListeProfils(AppContext& app, const QString& keyword, const QString& title, const QString& ok_caption);

}  // namespace plouvarine
