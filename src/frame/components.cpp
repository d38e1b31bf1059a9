#include "src/frame/components.h"

#include "src/frame/app_context.h"
#include "src/base/files.h"

#include <QFileInfo>
#include <QJsonObject>
#include <QJsonValue>
#include <QPluginLoader>

#include <zip.h>

namespace plouvarine {

namespace {

enum class Location { App, Sys };

struct Component {
    const char* name;
    Location location;
};

// In the order of the information window.
constexpr Component kComponents[] = {
    {"calpts.dll", Location::App},      // points calculator
    {"createdisk.dll", Location::App},  // entry files
    {"expclub.dll", Location::App},     // club export
    {"explic.dll", Location::App},      // licence export
    {"expperf.dll", Location::App},     // performance export
    {"rcpperf.dll", Location::App},     // performance import
    {"rcpres.dll", Location::App},      // results import
    {"rcptclub.dll", Location::App},    // club import
    {"rcptlic.dll", Location::App},     // licence import and IUF codes
    {"regmodele.dll", Location::App},   // report templates
    {"sviprf.dll", Location::App},      // performance monitor
    {"libzip", Location::Sys},          // zip library of the zip component
    {"ziptools.dll", Location::App},    // zip component
};

QString plugin_suffix()
{
#if defined(Q_OS_WIN)
    return QStringLiteral(".dll");
#elif defined(Q_OS_MACOS)
    return QStringLiteral(".dylib");
#else
    return QStringLiteral(".so");
#endif
}

QString version_text(const QJsonValue& value)
{
    if (value.isString())
        return value.toString().trimmed();
    if (value.isDouble())
        return QString::number(value.toDouble());
    return {};
}

}  // namespace

QString component_file(const QString& name)
{
    QString stem = name;
    if (stem.endsWith(QLatin1String(".dll"), Qt::CaseInsensitive))
        stem.chop(4);
    return stem + plugin_suffix();
}

QString component_version(const QString& path)
{
    if (!QFileInfo(path).isFile())
        return kComponentMissing;
    // metaData() reads the plugin's metadata section from the file; the library
    // is not loaded, so a broken or foreign component cannot run any code here.
    const QPluginLoader loader(path);
    const QString version = version_text(loader.metaData().value(QLatin1String("MetaData")).toObject().value(
        QLatin1String("Version")));
    return version.isEmpty() ? kVersionUnavailable : version;
}

std::vector<ComponentRow> component_rows(const AppContext& app)
{
    std::vector<ComponentRow> rows;
    rows.reserve(std::size(kComponents));
    for (const Component& c : kComponents) {
        const QString name = QString::fromLatin1(c.name);
        if (c.location == Location::Sys) {
            // The two zip libraries of the old zip component are one here:
            // the libzip this build is linked with.
            rows.push_back({name, QString::fromLatin1(zip_libzip_version())});
        } else {
            const QString file = component_file(name);
            rows.push_back({file, component_version(path_join(app.app_dir(), file))});
        }
    }
    return rows;
}

}  // namespace plouvarine
