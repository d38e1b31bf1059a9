#pragma once
// What the process holds while it runs: the base in use, the current profile and
// its club, the sentinel licence, and the count of open child windows.

#include <QString>
#include <QtGlobal>

namespace plouvarine {

// The version a base must have to be used; a base below it is upgraded.
constexpr double kRequiredBaseVersion = 5;

struct AppState {
    QString base_path;      // full path of the base in use; empty when closed by Fermer
    QString model_path;     // application folder + "modele_base.sav"
    QString club_code;      // Club.Code_federal of the current profile's club
    QString club_name;      // Club.Intitule of that club
    bool club_selection = false;
    QString profile_name;   // Profil.Libelle of the current profile
    QString profile_num;    // Profil.Num, joined into SQL as it stands
    qint32 monitor_pos_x = 0;
    qint32 monitor_pos_y = 0;
    qint32 monitor_interval = 0;
    bool monitor_always_visible = false;
    QString num_lic_nulle;  // Licence.Num of the sentinel swimmer
    qint16 busy_count = 0;  // list, detail and tool windows open

    void clear_profile()
    {
        club_code.clear();
        club_name.clear();
        club_selection = false;
        profile_name.clear();
        profile_num.clear();
    }
};

}  // namespace plouvarine
