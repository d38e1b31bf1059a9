#pragma once
// The commands of the Base menu that work on whole files: deletion, compaction
// and the zip archive a club keeps of its base.

#include <QString>

namespace plouvarine {

class AppContext;

// Compacts the base at `path` (the base in use) and reports by itself.
void compact_base(AppContext& app, const QString& path);
// Commands of the Base menu that work on files.
void delete_base_command(AppContext& app);
void compact_command(AppContext& app);
void archive_command(AppContext& app);

}  // namespace plouvarine
