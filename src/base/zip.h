#pragma once
// Zip archives on libzip: the save copy of a base, the archives, the packages
// and the exchange files. The plain calls throw FileError with the cause; the
// frame wrappers turn a failure into the one message of the command.

#include <QString>
#include <QStringList>

namespace plouvarine {

class Services;

// Deflate level of the archives: the usual tools' default.
constexpr int kDeflateLevel = 6;

// Writes an archive that holds the one file, under its own name or under
// `name_in_archive`, compressed with Deflate at `level`. An existing archive is
// replaced; the new one is written beside it and renamed over it once
// complete, so that a failure (full disk, unreadable source, unwritable
// folder) leaves the old archive as it was. Throws FileError on failure.
bool zip_file(const QString& archive, const QString& file, const QString& name_in_archive = {},
              int level = kDeflateLevel);

// Writes an archive of every file below `folder`, named by its path relative
// to the folder, replacing the archive as zip_file does. An empty folder
// gives an empty archive. Throws FileError on failure.
bool zip_folder(const QString& archive, const QString& folder);

// Extracts every entry into `folder`, which is made if missing, with the
// sub-folders of the entries. An archive with an entry that would land
// outside the folder ("../x", "/x") is refused before anything is written.
// Throws FileError on a missing, corrupt or refused archive.
bool unzip_archive(const QString& archive, const QString& folder);

// The names of the entries, in the archive's order. Throws FileError.
QStringList zip_entries(const QString& archive);

// compress: zips the file `target` into `archive`; else unzips `archive` into
// the folder `target`. A failure shows "Une erreur s'est produite lors de la
// compression." (or "décompression.") and gives false.
bool zip_tool(Services& ui, const QString& archive, const QString& target, bool compress);
bool unzip_file(Services& ui, const QString& archive, const QString& folder);

// Unpacks a package into a new folder of the application folder, named after
// `name` and made unique ("tmpmajsoft", "tmpmajsoft1"...). Gives the folder's
// path, or the empty text on failure, with the folder removed.
QString unpack_package(Services& ui, const QString& app_dir, const QString& name, const QString& archive);

}  // namespace plouvarine
