#pragma once
// The person's Save and Cancel, built on a zipped copy of the whole base that
// lies beside it ("club.mdb.sav"), and the crash control that Info.LastClose
// drives: true at rest, false in use.

#include <QString>
#include <functional>

namespace plouvarine {

class Database;
class SaveWriter;
class Services;

// Deflate level of the save copy: level 1 (see the measurements in
// docs/architecture.md).
inline constexpr int kSaveDeflateLevel = 1;

// The base file that the save, restore and archive work on: the one
// connection, the person to report to, the file and the work folder "tempo".
struct BaseFile {
    Database& db;
    Services& ui;
    QString path;
    QString tempo_dir;
};

QString save_path(const QString& base_path);

// Compresses a consistent snapshot of the open base into `archive`, under the
// base's own file name. A snapshot that fails the engine's check never reaches
// the archive. Reports a failure itself and gives false; on success
// `snapshot_size`, when given, receives the size of what was zipped.
bool zip_base(const BaseFile& base_file, const QString& archive, qint64* snapshot_size = nullptr);

// Checks a snapshot as a base and zips it into `archive` under `name`; the
// snapshot is removed whatever happens. Throws on failure. Touches no
// connection: it may run on a worker thread.
void zip_snapshot(const QString& snapshot, const QString& archive, const QString& name, int level);
// The messages of a save copy that could not be written: the compression's
// error, then, when no save file is left at all, the advice about the disk.
void report_save_failure(Services& ui, const QString& archive, const std::exception* error);

// LastClose true, read back, the base zipped over its save file, LastClose false.
// False when the save file could not be written (the failure has been shown).
bool create_save(const BaseFile& base_file);
// The same, with the copy handed to `writer`: the base is pinned at once (as
// it holds LastClose true), LastClose is false again when this returns, and
// `done(saved)` runs when the save file is written from what was pinned.
// False, with the failure shown, when the base could not be pinned.
bool start_save(const BaseFile& base_file, SaveWriter& writer, std::function<void(bool)> done);
// Replaces the (closed) base with the content of its save file: unpacked in
// the work folder, checked as a base, copied whole beside the base and renamed
// over it, with the base's mode. Any failure before the rename leaves the base
// and the save as they were.
bool restore_save(const BaseFile& base_file);
// Removes what a killed run left: the work folder, and beside the base the
// partial copies, snapshots, temporary zips and compacted copies. Call it with
// the base's lock held.
void clean_leftovers(const QString& base_path, const QString& tempo_dir);
void delete_save(const QString& base_path);
// Empties the five work tables.
void clear_tempo_tables(Database& db);

}  // namespace plouvarine
