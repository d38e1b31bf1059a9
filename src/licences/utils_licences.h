#pragma once
// The statements of the Licence table and its activities, and the openers of
// the licence windows.
//
// A licence in edit travels as a LicenceRecord: the 28 values that its INSERT
// writes, then the chosen activities. The statement helpers run on the one connection and let its DbError go to
// the caller, which shows its own message with the engine's text first.

#include <QLatin1String>
#include <QString>
#include <QStringList>
#include <utility>
#include <vector>

namespace plouvarine {

class AppContext;

inline constexpr int kNbAffiliations = 6;

// A licence as the detail writes it, its texts as they go into the base
// (dates "yyyymmdd", flags "O" or empty). Unquoted.
struct LicenceRecord {
    QString code_club;
    QString licence;      // the number with its letter
    QString nom;
    QString prenom;
    QString sexe;         // "M", "F"
    QString date_naissance;
    QString nationalite;  // the country's code
    QString adresse;
    QString suite_adresse;
    QString code_postal;
    QString localite;
    QString telephone;
    // The affiliations, "O" when held.
    QString sportive;
    QString synchro;
    QString water_polo;
    QString plongeon;
    QString dirigeant;
    QString maitre;
    QString date_depot;
    QString date_obliteration;
    QString type_licence;  // "T", "N", "R"
    QString nature;        // "N", "E"
    QString code_unique;
    QString tel2;
    QString mail;
    QString tarif;
    QString medecin;
    QString date_ctrl_medical;
    // Not a column: the names of the chosen activities.
    QStringList activites;

    // The 28 columns of Licence that a licence writes, in their order, each
    // with its value.
    std::vector<std::pair<QLatin1String, QString>> columns() const;
};

// The INSERT of a new licence, its 28 values quoted.
QString AjouteLicenceSql(const LicenceRecord& licence);
void AjouteLicence(AppContext& app, const LicenceRecord& licence);
// The UPDATE of the licence `num` (Code_club stays), its values quoted.
QString ModifieLicenceSql(const LicenceRecord& licence, const QString& num);
void ModifieLicence(AppContext& app, const LicenceRecord& licence, const QString& num);
// The Num of the licence number in the club, or the empty text.
QString NumLicence(AppContext& app, const QString& licence, const QString& club_code);
// Replaces the activities of the licence `num` by these.
void SauveActivites(AppContext& app, const QString& num, const QStringList& activites);
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
