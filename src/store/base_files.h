#pragma once
// Base files as whole files: a new base from the model, deletion, compaction
// and the zip archive a club keeps of its base.

#include <QString>

namespace plouvarine {

class AppContext;

// Copies the model base over `target`; reports a missing model and gives false.
bool copy_model(AppContext& app, const QString& target);
// Compacts the base at `path` (the base in use) and reports by itself.
void compact_base(AppContext& app, const QString& path);
// The archive's file name: the base's name less its last four characters, ".zip".
QString archive_name(const QString& base_path);
// The rate of an archive: the space saved in percent, rounded half to even.
int compression_rate(qint64 base_size, qint64 zip_size);

// Commands of the Base menu that work on files.
void delete_base_command(AppContext& app);
void compact_command(AppContext& app);
void archive_command(AppContext& app);

}  // namespace plouvarine
