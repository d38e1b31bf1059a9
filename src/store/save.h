#pragma once
// The person's Save and Cancel, built on a zipped copy of the whole base that
// lies beside it ("club.mdb.sav"), and the crash control that Info.LastClose
// drives: true at rest, false in use.

#include <QString>

namespace plouvarine {

class Database;
class Services;

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
// base's own file name. Reports a failure itself and gives false.
bool zip_base(const BaseFile& base_file, const QString& archive);

// LastClose true, read back, the base zipped over its save file, LastClose false.
// False when the save file could not be written (the failure has been shown).
bool create_save(const BaseFile& base_file);
// Replaces the (closed) base with the content of its save file.
bool restore_save(const BaseFile& base_file);
void delete_save(const QString& base_path);
// Empties the five work tables.
void clear_tempo_tables(Database& db);

}  // namespace plouvarine
