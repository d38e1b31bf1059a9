#pragma once
// The person's Save and Cancel, built on a zipped copy of the whole base that
// lies beside it ("club.mdb.sav"), and the crash control that Info.LastClose
// drives: true at rest, false in use.

#include <QString>

namespace plouvarine {

class AppContext;

QString save_path(const QString& base_path);

// Compresses a consistent snapshot of the open base into `archive`, under the
// base's own file name. Reports a failure itself and gives false.
bool zip_base(AppContext& app, const QString& archive);

// LastClose true, read back, the base zipped over its save file, LastClose false.
void create_save(AppContext& app);
// Replaces the (closed) base with the content of its save file.
bool restore_save(AppContext& app);
void delete_save(AppContext& app);
// Closes the base, restores the save and opens the base again.
bool cancel_operations(AppContext& app);
// True when the last use did not end cleanly and the person chose to restore.
bool check_crash(AppContext& app);
// After a failure that left the base closed: reconnect, or restore and give up.
void reopen_or_recover(AppContext& app);
// Empties the five work tables.
void clear_tempo_tables(AppContext& app);

}  // namespace plouvarine
