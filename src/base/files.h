#pragma once
// Small path and file operations shared by the whole frame: joining names,
// free names for work files and folders, copies that never leave a
// half-written target, forced deletes, free space.
//
// Paths use "/" as the separator. Helpers that can fail report through their
// result (a boolean, an empty text or an error text); none of them throws.

#include <QString>
#include <QtGlobal>
#include <optional>

namespace plouvarine {

// The folder, a "/" unless the folder already ends with one, and the name.
QString path_join(const QString& folder, const QString& name);
// The name after the last "/".
QString file_name(const QString& path);
// The folder of a file, with a final "/" when `with_slash` is true.
QString parent_folder(const QString& path, bool with_slash);

// The name of `path` in `folder` if nothing of that name is there; else the
// stem followed by a counter from 0, a point and the extension, the first one
// free: "a.txt", then "a0.txt", "a1.txt"... A name with no extension gets the
// counter at its end.
QString unique_name(const QString& path, const QString& folder);
// `name` in `folder` if nothing of that name is there; else the name followed
// by a counter from 1: "tmpexpimp", then "tmpexpimp1", "tmpexpimp2"...
QString unique_folder(const QString& name, const QString& folder);

// Copies `source` over `target`. The copy is written beside the target and
// renamed over it at the end, so that a failure leaves the old target whole.
bool copy_file_over(const QString& source, const QString& target);
// A copy of the file under `unique_name` in the folder; gives the new path, or
// the empty text when the copy failed.
QString copy_unique(const QString& path, const QString& folder);
// Puts the file into the folder under its own name, replacing what is there,
// and deletes the source. Gives the empty text on success, else the error text.
QString move_file(const QString& path, const QString& folder);

// Deletes a file even if it is read-only. True when the file was deleted.
bool delete_file_forced(const QString& path);
// Deletes every file of the folder, forced, then the folder itself, which
// stays if it still holds something. Errors are ignored, step by step.
void delete_folder(const QString& path);

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
