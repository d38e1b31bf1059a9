#pragma once
// The points component and its table of base times, as the build lays them
// out, copied into a test's application folder.

#include "src/frame/components.h"
#include "src/tools/calcul_points.h"
#include "support/app_fixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace plouvarine::testing {

inline QString built_file(const QString& name)
{
    return QFileInfo(model_file()).dir().filePath(name);
}

inline void install_points_component(AppContext& app)
{
    const QString plugin = component_file(QStringLiteral("calpts.dll"));
    ASSERT_TRUE(QFile::copy(built_file(plugin), app.app_file(plugin)));
    ASSERT_TRUE(QFile::copy(built_file(QStringLiteral("calpts_bases.txt")), points_table_path(app)));
}

}  // namespace plouvarine::testing
