#pragma once
// Small path and file operations shared by the whole frame: joining names,
// free names for work files and folders, copies that never leave a
// half-written target, forced deletes, free space.
//
// Paths use "/" as the separator. Helpers that can fail report through their
// result (a boolean, an empty text or an error text); none of them throws.

#include <QString>
#include <QStringList>
#include <QtGlobal>
#include <optional>

namespace plouvarine {

// The folder, a "/" unless the folder already ends with one, and the name.
QString path_join(const QString& folder, const QString& name);
// The name after the last "/".
QString file_name(const QString& path);
// The folder of a file, with a final "/" when `with_slash` is true.
QString parent_folder(const QString& path, bool with_slash);

// The path as typed when it ends with one of `endings` (".png"), without
// regard to case; else with the first of them added: a name typed bare in a
// save dialog takes the first kind of file the dialog offers.
QString with_ending(const QString& path, const QStringList& endings);

// The name of `path` in `folder` if nothing of that name is there; else the
// stem followed by a counter from 0, a point and the extension, the first one
// free: "a.txt", then "a0.txt", "a1.txt"... A name with no extension gets the
// counter at its end.
QString unique_name(const QString& path, const QString& folder);
// `name` in `folder` if nothing of that name is there; else the name followed
// by a counter from 1: "tmpexpimp", then "tmpexpimp1", "tmpexpimp2"...
QString unique_folder(const QString& name, const QString& folder);

// A file written whole or not at all. The data goes to a temporary file beside
// the target, made for the user only (or with the mode of the file it
// replaces); every write is checked for its count, and commit() flushes the
// data to the disk and renames the file over the target. Until then the old
// target stays as it was; a writer dropped without commit removes its file.
class WholeFile {
public:
    explicit WholeFile(const QString& target);
    ~WholeFile();
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;

    bool write(const char* data, qint64 size);
    bool commit();
    // The errno of the first failure (0 when none) and its cause in French,
    // with the path: "Disque plein : /x/club.mdb".
    int error_number() const { return errno_; }
    QString error_text() const;

private:
    bool fail(int number);

    QString target_;
    QString temporary_;
    int fd_ = -1;
    int errno_ = 0;
};

// A system error number in French, as the person can act on it.
QString error_cause(int number);

// Copies `source` over `target` through a WholeFile, so that a failure leaves
// the old target whole. `cause`, when given, receives the reason of a failure.
bool copy_file_over(const QString& source, const QString& target, QString* cause = nullptr);
// Flushes a file that another writer (the engine, the zip library) finished
// to the disk and gives it `mode`. False when it cannot be done.
bool settle_file(const QString& path, int mode);
// Makes the folder and its missing parents for the user only (0700).
bool make_private_folder(const QString& path);
// The mode bits of a file, or 0600 when it does not exist.
int file_mode(const QString& path);
// The temporary files that WholeFile leaves beside `target` when the process
// is killed before commit ("club.mdb.partXXXXXX").
QString partial_prefix(const QString& target);
// A copy of the file under `unique_name` in the folder; gives the new path, or
// the empty text when the copy failed.
QString copy_unique(const QString& path, const QString& folder);
// Puts the file into the folder under its own name, replacing what is there,
// and deletes the source. Gives the empty text on success, else the error text.
QString move_file(const QString& path, const QString& folder);

// Deletes a file even if it is read-only. True when the file was deleted.
bool delete_file_forced(const QString& path);
// Deletes the folder with everything below it. True when nothing of it is left;
// a failure part way leaves the rest where it is.
bool delete_folder(const QString& path);

// True when the extension is "zip", exactly (so "a.ZIP" is not).
bool is_zip(const QString& path);
// True when the volume of the path (or of its nearest existing folder) is
// there and ready; false for the empty path.
bool drive_ready(const QString& path);
// True when the file is smaller than the space left to the user on the
// volume of the folder.
bool enough_space(const QString& file, const QString& folder);
// The total size in bytes of the files below the folder, at any depth.
qint64 folder_size(const QString& path);

// A path given in an archive or a list, relative to the folder it goes into,
// or nothing when it would land outside: an absolute name, a drive letter or a
// ".." step. Backslashes count as separators, as Windows tools write them.
std::optional<QString> safe_relative_path(const QString& name);

}  // namespace plouvarine
