#pragma once
// The components of the application and their versions, as the information
// window lists them.
//
// Each component of the application folder is a Qt plugin named after its
// component name with the platform's plugin suffix and no "lib" prefix:
// "calpts.dll" is "calpts.so" here. Its version is the "Version" key of the
// plugin's metadata, read from the file without loading it. The two zip
// libraries of the system folder are one row, "libzip", answered by the zip
// library this build is linked with. A component that is not in the folder is
// "non installé": an optional part, not a fault.

#include <QString>
#include <vector>

namespace plouvarine {

class AppContext;

struct ComponentRow {
    QString file;     // the plugin's file name ("regmodele.so"), or "libzip"
    QString version;  // the version, or the text that says why there is none
};

inline const QString kVersionUnavailable = QStringLiteral("Version non disponible");
inline const QString kComponentMissing = QStringLiteral("non installé");

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
