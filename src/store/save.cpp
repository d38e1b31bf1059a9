#include "src/store/save.h"

#include "src/base/errors.h"
#include "src/base/files.h"
#include "src/base/zip.h"
#include "src/base/services.h"
#include "src/store/database.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace plouvarine {

namespace {

// Deletes a file the way the platform's plain delete does: a read-only file is
// refused rather than removed.
void delete_not_forced(const QString& path)
{
    if (!(QFile::permissions(path) & QFileDevice::WriteOwner))
        throw FileError(75, QStringLiteral("Accès refusé : ") + path);
    QFile f(path);
    if (!f.remove())
        throw FileError(75, f.errorString() + QStringLiteral(" : ") + path);
}

// The engine's journal files must never outlive the file they belong to.
void delete_siblings(const QString& base_path)
{
    for (const QString& s : Database::sibling_files(base_path))
        if (QFileInfo::exists(s))
            delete_file_forced(s);
}

}  // namespace

QString save_path(const QString& base_path)
{
    return base_path + QStringLiteral(".sav");
}

bool zip_base(const BaseFile& base_file, const QString& archive)
{
    const QString base = base_file.path;
    const QString snapshot = archive + QStringLiteral(".snapshot");
    try {
        QFile::remove(snapshot);
        base_file.db.snapshot_to(snapshot);
        zip_file(archive, snapshot, file_name(base));
        QFile::remove(snapshot);
        return true;
    } catch (const std::exception& e) {
        QFile::remove(snapshot);
        msg_erreur(base_file.ui, QStringLiteral("Une erreur s'est produite lors de la compression."), &e);
        return false;
    }
}

void create_save(const BaseFile& base_file)
{
    WaitCursor wait(base_file.ui);
    const QString sav = save_path(base_file.path);
    try {
        // The copy holds the flag at true: the update is committed before the
        // snapshot that zip_base takes.
        base_file.db.set_last_close(QStringLiteral("true"));
        zip_base(base_file, sav);
        if (!QFileInfo::exists(sav))
            msg_erreur(base_file.ui, QStringLiteral("La création de la sauvegarde a échoué.\n"
                                              "Vérifier l'espace sur le disque dur, les droits d'accès."));
    } catch (const std::exception& e) {
        msg_erreur(base_file.ui, QStringLiteral("La création de la sauvegarde a échoué.\n"
                                          "Vérifier l'espace sur le disque dur, les droits d'accès."), &e);
    }
    try {
        base_file.db.set_last_close(QStringLiteral("false"));
    } catch (const std::exception&) {
        // Already reported by the step that failed.
    }
}

bool restore_save(const BaseFile& base_file)
{
    const QString base = base_file.path;
    const QString sav = save_path(base);
    if (!QFileInfo::exists(sav)) {
        msg_erreur(base_file.ui, QStringLiteral("Sauvegarde de la base non trouvée."));
        return false;
    }
    QString failure;
    try {
        const QString name = file_name(base);
        const QString folder = parent_folder(base, true);
        const QString tempo = base_file.tempo_dir;
        const QString unpacked = path_join(tempo, name);
        if (QFileInfo::exists(unpacked))
            delete_not_forced(unpacked);
        unzip_file(base_file.ui, sav, tempo);
        if (!QFileInfo::exists(unpacked)) {
            msg_erreur(base_file.ui, QStringLiteral("La restauration de la sauvegarde a échoué.\n"
                                              "Les opérations n'ont pas été annulées.\n"
                                              "Vérifier l'espace sur le disque dur, les droits d'accès."));
            return false;
        }
        failure = QStringLiteral("Impossible de supprimer la base ") + base + QLatin1Char('\n');
        if (QFileInfo::exists(base))
            delete_not_forced(base);
        delete_siblings(base);
        failure = QStringLiteral("Impossible de remplacer la base ") + base + QStringLiteral(" par la sauvegarde.\n");
        const QString moved = move_file(unpacked, folder);
        if (!moved.isEmpty())
            throw FileError(75, moved);
        failure = QStringLiteral("Erreur lors de la suppression du répertoire temporaire \n") + tempo + QLatin1Char('\n');
        if (!QDir().rmdir(tempo))
            throw FileError(75, QStringLiteral("Le répertoire n'est pas vide ou est inaccessible."));
        return true;
    } catch (const std::exception& e) {
        msg_erreur(base_file.ui, QStringLiteral("Erreur lors de la restauration de la sauvegarde.\n") + failure, &e);
        return false;
    }
}

void delete_save(const QString& base_path)
{
    const QString sav = save_path(base_path);
    if (QFileInfo::exists(sav))
        delete_file_forced(sav);
}

void clear_tempo_tables(Database& db)
{
    for (const char* table : {"Licence_tempo", "Pcomp_tempo", "Rcomp_tempo", "Relais_tempo", "Engag_tempo"})
        db.clear_table(QLatin1String(table));
}

}  // namespace plouvarine
