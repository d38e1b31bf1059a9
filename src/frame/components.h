#pragma once
// The components of the application and their versions, as the information
// window lists them.
//
// Each component of the application folder is a Qt plugin named after its
// component name with the platform's plugin suffix and no "lib" prefix:
// "calpts.dll" is "calpts.so" here. Its version is the "Version" key of the
// plugin's metadata, read from the file without loading it. The two zip
// libraries of the system folder are answered by the zip library this build
// is linked with.

#include <QString>
#include <vector>

namespace plouvarine {

class AppContext;

struct ComponentRow {
    QString file;     // the name shown in the "dll" column
    QString version;  // the version, or the text that says why there is none
};

inline const QString kVersionUnavailable = QStringLiteral("Version non disponible");
inline const QString kComponentMissing = QStringLiteral("Erreur, dll non trouvée");

// The platform's file name of a component listed as "name.dll": "calpts.dll"
// gives "calpts.so" on Linux, "calpts.dylib" on macOS, "calpts.dll" on Windows.
QString component_file(const QString& name);

// The version of the plugin at `path`, from its metadata; kVersionUnavailable
// when the file is no plugin or its metadata hold no version, kComponentMissing
// when there is no such file.
QString component_version(const QString& path);

// Every component in the order of the information window, with its version.
std::vector<ComponentRow> component_rows(const AppContext& app);

}  // namespace plouvarine
