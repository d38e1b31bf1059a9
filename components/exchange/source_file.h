#pragma once
// The file an import reads: the source itself when it names a file, else the
// file of that name in the source folder. Throws TabFileError without a source.

#include "components/exchange/tab_file.h"
#include "src/base/files.h"

#include <QFileInfo>
#include <QString>

namespace plouvarine::exchange {

inline QString source_file(const QString& source, const QString& name)
{
    if (source.trimmed().isEmpty())
        throw TabFileError(0, QStringLiteral("aucun répertoire source choisi."));
    return QFileInfo(source).isFile() ? source : path_join(source, name);
}

}  // namespace plouvarine::exchange
