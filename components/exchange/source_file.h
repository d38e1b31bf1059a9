#pragma once
// The file an import reads: the source itself when it names a file, else the
// file of that name in the source folder.

#include "src/base/files.h"

#include <QFileInfo>
#include <QString>

namespace plouvarine::exchange {

inline QString source_file(const QString& source, const QString& name)
{
    return QFileInfo(source).isFile() ? source : path_join(source, name);
}

}  // namespace plouvarine::exchange
