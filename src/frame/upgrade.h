#pragma once
// Bringing an old base up to date: the statements of the upgrade file
// "maj_base.ini" run one version at a time, and the package "maj_base.zip" that
// installs a newer upgrade file (and model base) into the application folder.
//
// The upgrade file: section "INFO", key "Version finale"; one section per starting
// version, "FROM 1", "FROM 2"..., holding "maj1", "maj2"... each one statement,
// without a gap: the first missing or empty key ends the section.

#include <QString>

namespace plouvarine {

class AppContext;

// The value of `key` in `section` of an INI file, or the empty text. Read as the
// platform's private-profile call reads it: names without regard to case, the
// value trimmed and freed of surrounding double quotes, at most 254 characters.
QString read_ini(const QString& section, const QString& key, const QString& file);

// The application folder joined with "maj_base.ini".
QString upgrade_file_path(const AppContext& app);
// "Version finale" of the upgrade file's section "INFO", as written there.
QString final_version(const AppContext& app);

// Runs the upgrade on the connected base at `path` and shows its report
// ("Mise à jour de la base") at the end. True when the base is up to date.
bool upgrade_base(AppContext& app, const QString& path);

// The upgrade window (frm_upgrade_base) and what it runs.

// Installs an upgrade package into the application folder when it brings a
// higher version than the upgrade file there. False when it was refused or failed.
bool install_upgrade_package(AppContext& app, const QString& package);
// The run command of the window: installs `package` if given, then saves,
// upgrades and closes `base` if given, and deletes the save made for it.
void run_upgrade_tool(AppContext& app, const QString& base, const QString& package);

// A package file must be named "maj_base.zip"; a base must have the extension "mdb".
bool is_upgrade_package_name(const QString& path);
bool is_base_file_name(const QString& path);

// Texts of the window's dialogs.
inline const QString kUpgradeBaseDialogTitle = QStringLiteral("Sélection d'une Base");
inline const QString kUpgradeBaseFilter = QStringLiteral("Base de données (*.mdb)|*.mdb");
inline const QString kUpgradePackageFilter = QStringLiteral("Package maj base (maj_base.zip)|maj_base.zip");
inline const QString kUpgradeNotABase = QStringLiteral("Le fichier sélectionné n'est pas une base reconnue.");
// "Package dispo pour upgrade vers version " and the final version, or the empty
// text when there is no upgrade file.
QString upgrade_package_label(const AppContext& app);

}  // namespace plouvarine
