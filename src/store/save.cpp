#include "src/store/save.h"

#include "src/base/errors.h"
#include "src/base/files.h"
#include "src/base/zip.h"
#include "src/base/services.h"
#include "src/store/database.h"
#include "src/store/pinned_read.h"
#include "src/store/save_writer.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace plouvarine {

namespace {

// The engine's journal files must never outlive the file they belong to.
void delete_siblings(const QString& base_path)
{
    for (const QString& s : Database::sibling_files(base_path))
        if (QFileInfo::exists(s))
            delete_file_forced(s);
}

const QString kCompressFailed = QStringLiteral("Une erreur s'est produite lors de la compression.");
const QString kSaveFailed = QStringLiteral("La création de la sauvegarde a échoué.\n"
                                           "Vérifier l'espace sur le disque dur, les droits d'accès.");

// The copy holds the flag at true: the update is committed before the snapshot.
void take_flagged_snapshot(const BaseFile& base_file, const QString& snapshot)
{
    base_file.db.set_last_close(QStringLiteral("true"));
    base_file.db.snapshot_to(snapshot);
}

// The same state held still for a copy written later: the flag committed, then pinned.
PinnedRead pin_flagged(const BaseFile& base_file)
{
    base_file.db.set_last_close(QStringLiteral("true"));
    return PinnedRead(base_file.db);
}

// The base in use carries LastClose false again, whatever the save became.
void set_in_use(const BaseFile& base_file)
{
    try {
        base_file.db.set_last_close(QStringLiteral("false"));
    } catch (const std::exception&) {
        // Already reported by the step that failed.
    }
}

}  // namespace

QString save_path(const QString& base_path)
{
    return base_path + QStringLiteral(".sav");
}

void zip_snapshot(const QString& snapshot, const QString& archive, const QString& name, int level)
{
    try {
        const QString damaged = Database::check_base_file(snapshot);
        if (!damaged.isEmpty())
            throw DbError(11, damaged);
        zip_file(archive, snapshot, name, level);
    } catch (...) {
        QFile::remove(snapshot);
        throw;
    }
    QFile::remove(snapshot);
}

void report_save_failure(Services& ui, const QString& archive, const std::exception* error)
{
    if (error)
        msg_erreur(ui, kCompressFailed, error);
    if (!QFileInfo::exists(archive))
        msg_erreur(ui, kSaveFailed);
}

bool zip_base(const BaseFile& base_file, const QString& archive, qint64* snapshot_size)
{
    const QString snapshot = archive + QStringLiteral(".snapshot");
    try {
        base_file.db.snapshot_to(snapshot);
        if (snapshot_size)
            *snapshot_size = QFileInfo(snapshot).size();
        zip_snapshot(snapshot, archive, file_name(base_file.path), kDeflateLevel);
        return true;
    } catch (const std::exception& e) {
        msg_erreur(base_file.ui, kCompressFailed, &e);
        return false;
    }
}

bool create_save(const BaseFile& base_file)
{
    WaitCursor wait(base_file.ui);
    const QString sav = save_path(base_file.path);
    const QString snapshot = sav + QStringLiteral(".snapshot");
    bool saved = false;
    try {
        take_flagged_snapshot(base_file, snapshot);
        zip_snapshot(snapshot, sav, file_name(base_file.path), kSaveDeflateLevel);
        saved = QFileInfo::exists(sav);
        if (!saved)
            report_save_failure(base_file.ui, sav, nullptr);
    } catch (const std::exception& e) {
        report_save_failure(base_file.ui, sav, &e);
    }
    set_in_use(base_file);
    return saved;
}

bool start_save(const BaseFile& base_file, SaveWriter& writer, std::function<void(bool)> done)
{
    // A save still being written goes to its end before the next snapshot.
    writer.wait();
    const QString sav = save_path(base_file.path);
    const QString snapshot = sav + QStringLiteral(".snapshot");
    bool started = false;
    try {
        WaitCursor wait(base_file.ui);
        writer.start(pin_flagged(base_file), snapshot, sav, file_name(base_file.path), std::move(done));
        started = true;
    } catch (const std::exception& e) {
        report_save_failure(base_file.ui, sav, &e);
    }
    set_in_use(base_file);
    return started;
}

bool restore_save(const BaseFile& base_file)
{
    const QString base = base_file.path;
    const QString sav = save_path(base);
    if (!QFileInfo::exists(sav)) {
        msg_erreur(base_file.ui, QStringLiteral("Sauvegarde de la base non trouvée."));
        return false;
    }
    const QString not_restored = QStringLiteral("La restauration de la sauvegarde a échoué.\n"
                                                "Les opérations n'ont pas été annulées.\n"
                                                "Vérifier l'espace sur le disque dur, les droits d'accès.");
    const QString tempo = base_file.tempo_dir;
    const QString unpacked = path_join(tempo, file_name(base));
    // What an earlier run left in the work folder must not stand in the way.
    delete_folder(tempo);
    if (!unzip_file(base_file.ui, sav, tempo) || !QFileInfo::exists(unpacked)) {
        msg_erreur(base_file.ui, not_restored);
        return false;
    }
    // A save that does not hold a whole base never replaces the live one.
    const QString damaged = Database::check_base_file(unpacked);
    if (!damaged.isEmpty()) {
        const FileError error(75, damaged);
        msg_erreur(base_file.ui, not_restored, &error);
        delete_folder(tempo);
        return false;
    }
    QString failure;
    try {
        failure = QStringLiteral("Impossible de supprimer la base ") + base + QLatin1Char('\n');
        if (QFileInfo::exists(base) && !(QFile::permissions(base) & QFileDevice::WriteOwner))
            throw FileError(75, QStringLiteral("Accès refusé : ") + base);
        // A journal of the old file would be applied to the new one.
        delete_siblings(base);
        failure = QStringLiteral("Impossible de remplacer la base ") + base + QStringLiteral(" par la sauvegarde.\n");
        QString cause;
        if (!copy_file_over(unpacked, base, &cause))
            throw FileError(75, cause);
    } catch (const std::exception& e) {
        msg_erreur(base_file.ui, QStringLiteral("Erreur lors de la restauration de la sauvegarde.\n") + failure, &e);
        return false;
    }
    // The base is restored; a work folder that will not go is cleared at the next opening.
    delete_folder(tempo);
    return true;
}

void clean_leftovers(const QString& base_path, const QString& tempo_dir)
{
    delete_folder(tempo_dir);
    const QString name = file_name(base_path);
    const QStringList prefixes{partial_prefix(name), save_path(name) + QLatin1Char('.'),
                               name + QStringLiteral(".tmp.compact")};
    const QDir folder(parent_folder(base_path, false));
    for (const QString& entry : folder.entryList(QDir::Files | QDir::Hidden | QDir::System)) {
        for (const QString& prefix : prefixes)
            if (entry.startsWith(prefix)) {
                delete_file_forced(folder.filePath(entry));
                break;
            }
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
