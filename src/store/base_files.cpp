#include "src/store/base_files.h"

#include "src/base/errors.h"
#include "src/base/files.h"
#include "src/base/text.h"
#include "src/base/services.h"
#include "src/store/database.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace plouvarine {

bool copy_model(Services& ui, const QString& model, const QString& target)
{
    if (!QFileInfo::exists(model)) {
        msg_erreur(ui, QStringLiteral("Modèle de base non trouvée.\n"
                                          "Impossible de continuer, le programme va être terminé.\n"
                                          "Contactez le fournisseur."));
        return false;
    }
    // The new base must not inherit the journal of a file it replaces.
    for (const QString& s : Database::sibling_files(target))
        if (QFileInfo::exists(s))
            delete_file_forced(s);
    if (!copy_file_over(model, target))
        throw FileError(75, QStringLiteral("Copie impossible vers ") + target);
    QFile::setPermissions(target, QFile::permissions(target) | QFileDevice::WriteOwner | QFileDevice::ReadOwner);
    return true;
}

QString archive_name(const QString& base_path)
{
    const QString name = file_name(base_path);
    return name.left(name.size() - 4) + QStringLiteral(".zip");
}

int compression_rate(qint64 base_size, qint64 zip_size)
{
    if (base_size <= 0)
        return 0;
    return round_half_even(double(base_size - zip_size) * 100.0 / double(base_size));
}

}  // namespace plouvarine
