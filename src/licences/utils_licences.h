#pragma once
// The statements of the Licence table and its activities, and the openers of
// the licence windows.
//
// A licence in edit travels as a list of 29 texts (tab_licence): the 28 values
// of the INSERT in column order, then the chosen activities joined with tabs.
// The statement helpers run on the one connection and let its DbError go to
// the caller, which shows its own message with the engine's text first.

#include <QString>
#include <QStringList>

namespace plouvarine {

class AppContext;

// Positions in tab_licence.
enum TabLicence : int {
    kTabCodeClub = 0,
    kTabLicence,
    kTabNom,
    kTabPrenom,
    kTabSexe,
    kTabDateNaissance,
    kTabNationalite,
    kTabAdresse,
    kTabSuiteAdresse,
    kTabCodePostal,
    kTabLocalite,
    kTabTelephone,
    kTabSportive,  // then Synchro, Water_Polo, Plongeon, Dirigeant, Maitre
    kTabDateDepot = 18,
    kTabDateObliteration,
    kTabTypeLicence,
    kTabNature,
    kTabCodeUnique,
    kTabTel2,
    kTabMail,
    kTabTarif,
    kTabMedecin,
    kTabDateCtrlMedical,
    kTabActivites,
    kTabLicenceSize
};
inline constexpr int kNbAffiliations = 6;

// The INSERT of a new licence, its 28 values quoted.
QString AjouteLicenceSql(const QStringList& tab_licence);
void AjouteLicence(AppContext& app, const QStringList& tab_licence);
// The UPDATE of the licence `num` (Code_club stays), its values quoted.
QString ModifieLicenceSql(const QStringList& tab_licence, const QString& num);
void ModifieLicence(AppContext& app, const QStringList& tab_licence, const QString& num);
// The Num of the licence number in the club, or the empty text.
QString NumLicence(AppContext& app, const QString& licence, const QString& club_code);
// Replaces the activities of the licence `num` by the tab-separated names.
void SauveActivites(AppContext& app, const QString& num, const QString& activites);
// The part of a selection code that its clubs' codes begin with; empty for a
// code that is no selection.
QString PrefixeSelection(const QString& code);

// det_licence in "Nouveau" or "Modif" (the licence `num`), opened by `caller`
// (the main window when empty).
void OuvreDetailLicence(AppContext& app, const QString& mode, const QString& num = {}, const QString& caller = {});
// frm_liste_licence with its mode, title and main command's caption.
void OuvreListeLicences(AppContext& app, const QString& mode, const QString& title, const QString& ok_caption);

// The licence commands of the main window: mnuLicNew, mnuLicListe,
// mnuLicModif, mnuLicSuppr, mnuLicPrint, mnuBaseClubCotisationUnknown.
// False for another command.
bool run_licence_command(AppContext& app, const QString& command);
// Registers the Licences menu and "Licences sans cotisation" in the command table.
void install_licence_commands(AppContext& app);

}  // namespace plouvarine
