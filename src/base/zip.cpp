#include "src/base/zip.h"

#include "src/base/errors.h"
#include "src/base/files.h"
#include "src/base/services.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <zip.h>

#include <cerrno>
#include <cstring>
#include <memory>
#include <optional>
#include <vector>

namespace plouvarine {

namespace {

// Error numbers, in the family of the file errors the rest of the frame reports.
constexpr int kFileNotFound = 53;
constexpr int kDiskFull = 61;
constexpr int kPermissionDenied = 70;
constexpr int kAccessError = 75;
constexpr int kPathNotFound = 76;

constexpr qint64 kReadChunk = 256 * 1024;

const QString kCompressFailed = QStringLiteral("Une erreur s'est produite lors de la compression.");
const QString kUncompressFailed = QStringLiteral("Une erreur s'est produite lors de la décompression.");

struct Discard {
    void operator()(zip_t* z) const { zip_discard(z); }
};
using Archive = std::unique_ptr<zip_t, Discard>;

QByteArray native(const QString& path)
{
    return QFile::encodeName(path);
}

QString label(int number)
{
    switch (number) {
    case kFileNotFound: return QStringLiteral("Fichier introuvable");
    case kDiskFull: return QStringLiteral("Disque plein");
    case kPermissionDenied: return QStringLiteral("Permission refusée");
    case kPathNotFound: return QStringLiteral("Chemin d'accès introuvable");
    default: return QStringLiteral("Erreur d'accès au chemin ou au fichier");
    }
}

FileError file_error(int number, const QString& path, const QString& detail = {})
{
    QString text = label(number) + QStringLiteral(" : ") + path;
    if (!detail.isEmpty())
        text += QStringLiteral(" (") + detail + QLatin1Char(')');
    return FileError(number, text);
}

[[noreturn]] void fail(int number, const QString& path, const QString& detail = {})
{
    throw file_error(number, path, detail);
}

bool is_damage(int zip_code)
{
    switch (zip_code) {
    case ZIP_ER_NOZIP: case ZIP_ER_INCONS: case ZIP_ER_CRC: case ZIP_ER_ZLIB: case ZIP_ER_EOF:
    case ZIP_ER_COMPNOTSUPP: case ZIP_ER_ENCRNOTSUPP: case ZIP_ER_MULTIDISK: case ZIP_ER_COMPRESSED_DATA:
    case ZIP_ER_NOPASSWD:
        return true;
    default:
        return false;
    }
}

// libzip's error as a FileError, numbered after the cause the person can act
// on: a full disk, missing rights, a missing folder, a damaged archive.
FileError file_error(zip_error_t* error, const QString& path)
{
    const QString detail = QString::fromLocal8Bit(zip_error_strerror(error));
    const int zip_code = zip_error_code_zip(error);
    if (is_damage(zip_code))
        return FileError(kAccessError, QStringLiteral("Archive endommagée ou illisible : ") + path +
                                           QStringLiteral(" (") + detail + QLatin1Char(')'));
    int number = zip_code == ZIP_ER_NOENT ? kFileNotFound : kAccessError;
    if (zip_error_system_type(error) == ZIP_ET_SYS) {
        switch (zip_error_code_system(error)) {
        case ENOSPC: case EFBIG: case EDQUOT: number = kDiskFull; break;
        case EACCES: case EPERM: case EROFS: number = kPermissionDenied; break;
        case ENOENT: case ENOTDIR: number = kPathNotFound; break;
        default: break;
        }
    }
    return file_error(number, path, detail);
}

[[noreturn]] void fail(zip_error_t* error, const QString& path)
{
    throw file_error(error, path);
}

[[noreturn]] void fail_code(int zip_code, const QString& path)
{
    zip_error_t error;
    zip_error_init_with_code(&error, zip_code);
    const FileError e = file_error(&error, path);
    zip_error_fini(&error);
    throw e;
}

[[noreturn]] void fail_write(const WholeFile& out)
{
    int number = kAccessError;
    switch (out.error_number()) {
    case ENOSPC: case EFBIG: case EDQUOT: number = kDiskFull; break;
    case EACCES: case EPERM: case EROFS: number = kPermissionDenied; break;
    case ENOENT: case ENOTDIR: number = kPathNotFound; break;
    default: break;
    }
    throw FileError(number, out.error_text());
}

// ---- writing ----

Archive open_for_writing(const QString& archive)
{
    int code = 0;
    // ZIP_TRUNCATE ignores what the archive holds now. libzip writes the new
    // archive to a temporary file beside it at zip_close and renames it over
    // the old one only when complete; on failure the temporary file is removed
    // and the old archive stays as it was.
    zip_t* z = zip_open(native(archive).constData(), ZIP_CREATE | ZIP_TRUNCATE, &code);
    if (!z)
        fail_code(code, archive);
    return Archive(z);
}

void check_readable(const QString& file)
{
    const QFileInfo info(file);
    if (!info.exists())
        fail(kFileNotFound, file);
    if (!info.isFile())
        fail(kAccessError, file, QStringLiteral("ce n'est pas un fichier"));
    QFile probe(file);
    if (!probe.open(QIODevice::ReadOnly))
        fail(kPermissionDenied, file, probe.errorString());
}

void add_file(zip_t* z, const QString& file, const QString& name, const QString& archive, int level = kDeflateLevel)
{
    zip_source_t* source = zip_source_file(z, native(file).constData(), 0, -1);
    if (!source)
        fail(zip_get_error(z), file);
    const zip_int64_t index = zip_file_add(z, name.toUtf8().constData(), source, ZIP_FL_ENC_UTF_8 | ZIP_FL_OVERWRITE);
    if (index < 0) {
        zip_source_free(source);
        fail(zip_get_error(z), archive);
    }
    if (zip_set_file_compression(z, zip_uint64_t(index), ZIP_CM_DEFLATE, zip_uint32_t(level)) < 0)
        fail(zip_get_error(z), archive);
}

// libzip checks its writes and renames its temporary file over the archive
// only when complete; the archive then reaches the disk with `mode`.
void commit(Archive z, const QString& archive, int mode)
{
    if (zip_close(z.get()) < 0)
        fail(zip_get_error(z.get()), archive);  // `z` is discarded on the way out
    z.release();  // zip_close freed it
    if (!settle_file(archive, mode))
        fail(kAccessError, archive, QString::fromLocal8Bit(std::strerror(errno)));
}

// libzip writes no file for an archive without entries; an empty folder still
// gives an archive, the bare end-of-central-directory record.
void write_empty_archive(const QString& archive)
{
    QByteArray record("PK\x05\x06", 4);
    record.append(18, '\0');
    WholeFile out(archive);
    if (!out.write(record.constData(), record.size()) || !out.commit())
        fail_write(out);
}

// ---- reading ----

Archive open_for_reading(const QString& archive)
{
    if (!QFileInfo(archive).isFile())
        fail(kFileNotFound, archive);
    int code = 0;
    zip_t* z = zip_open(native(archive).constData(), ZIP_RDONLY | ZIP_CHECKCONS, &code);
    if (!z)
        fail_code(code, archive);
    return Archive(z);
}

QString entry_name(zip_t* z, zip_uint64_t index, const QString& archive)
{
    const char* name = zip_get_name(z, index, ZIP_FL_ENC_GUESS);  // old CP437 names come back as UTF-8
    if (!name)
        fail(zip_get_error(z), archive);
    return QString::fromUtf8(name);
}


bool inside(const QString& root, const QString& folder)
{
    const QString canonical = QFileInfo(folder).canonicalFilePath();
    return canonical == root || canonical.startsWith(root + QLatin1Char('/'));
}

void extract_entry(zip_t* z, zip_uint64_t index, const QString& target, const QString& archive)
{
    zip_file_t* entry = zip_fopen_index(z, index, 0);
    if (!entry)
        fail(zip_get_error(z), archive);
    WholeFile out(target);
    QByteArray buffer(kReadChunk, Qt::Uninitialized);
    for (;;) {
        const zip_int64_t n = zip_fread(entry, buffer.data(), zip_uint64_t(buffer.size()));
        if (n == 0)
            break;
        if (n < 0) {
            // A CRC mismatch or damaged data shows here, at the latest at the end.
            const FileError error = file_error(zip_file_get_error(entry), archive);
            zip_fclose(entry);
            throw error;
        }
        if (!out.write(buffer.constData(), n))
            break;
    }
    zip_fclose(entry);
    if (!out.commit())
        fail_write(out);

    zip_stat_t st;
    if (zip_stat_index(z, index, 0, &st) == 0 && (st.valid & ZIP_STAT_MTIME)) {
        QFile done(target);
        if (done.open(QIODevice::ReadWrite))
            done.setFileTime(QDateTime::fromSecsSinceEpoch(st.mtime), QFileDevice::FileModificationTime);
    }
}

}  // namespace

bool zip_file(const QString& archive, const QString& file, const QString& name_in_archive, int level)
{
    check_readable(file);
    const int mode = file_mode(archive);
    Archive z = open_for_writing(archive);
    add_file(z.get(), file, name_in_archive.isEmpty() ? file_name(file) : name_in_archive, archive, level);
    commit(std::move(z), archive, mode);
    return true;
}

bool zip_folder(const QString& archive, const QString& folder)
{
    const QDir root(folder);
    if (!QFileInfo(folder).isDir())
        fail(kPathNotFound, folder);
    const QString self = QFileInfo(archive).absoluteFilePath();
    QStringList names;
    QDirIterator it(folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        it.next();
        if (it.fileInfo().absoluteFilePath() != self)  // an archive made inside the folder it zips
            names << root.relativeFilePath(it.filePath());
    }
    names.sort();
    if (names.isEmpty()) {
        write_empty_archive(archive);
        return true;
    }
    for (const QString& name : names)
        check_readable(root.filePath(name));
    const int mode = file_mode(archive);
    Archive z = open_for_writing(archive);
    for (const QString& name : names)
        add_file(z.get(), root.filePath(name), name, archive);
    commit(std::move(z), archive, mode);
    return true;
}

bool unzip_archive(const QString& archive, const QString& folder)
{
    Archive z = open_for_reading(archive);
    const zip_int64_t count = zip_get_num_entries(z.get(), 0);

    // Every name is checked before anything is written.
    struct Target {
        QString relative;
        bool folder;
    };
    std::vector<Target> targets;
    targets.reserve(size_t(count));
    for (zip_int64_t i = 0; i < count; ++i) {
        const QString name = entry_name(z.get(), zip_uint64_t(i), archive);
        const std::optional<QString> relative = safe_relative_path(name);
        if (!relative)
            fail(kAccessError, archive, QStringLiteral("entrée hors du dossier de destination refusée : ") + name);
        targets.push_back({*relative, name.endsWith(QLatin1Char('/')) || name.endsWith(QLatin1Char('\\'))});
    }

    if (!make_private_folder(folder))
        fail(kPathNotFound, folder);
    const QDir base(folder);
    const QString root = QFileInfo(folder).canonicalFilePath();
    for (zip_int64_t i = 0; i < count; ++i) {
        const Target& entry = targets[size_t(i)];
        if (entry.relative.isEmpty())
            continue;
        const QString target = base.filePath(entry.relative);
        const QString parent = entry.folder ? target : QFileInfo(target).absolutePath();
        if (!make_private_folder(parent))
            fail(kPathNotFound, parent);
        // A link already in the folder must not carry an entry elsewhere.
        if (!inside(root, parent))
            fail(kAccessError, archive, QStringLiteral("entrée hors du dossier de destination refusée : ") + entry.relative);
        if (!entry.folder)
            extract_entry(z.get(), zip_uint64_t(i), target, archive);
    }
    return true;
}

QStringList zip_entries(const QString& archive)
{
    Archive z = open_for_reading(archive);
    const zip_int64_t count = zip_get_num_entries(z.get(), 0);
    QStringList names;
    for (zip_int64_t i = 0; i < count; ++i)
        names << entry_name(z.get(), zip_uint64_t(i), archive);
    return names;
}

bool zip_tool(Services& ui, const QString& archive, const QString& target, bool compress)
{
    try {
        return compress ? zip_file(archive, target) : unzip_archive(archive, target);
    } catch (const std::exception& e) {
        msg_erreur(ui, compress ? kCompressFailed : kUncompressFailed, &e);
        return false;
    }
}

bool unzip_file(Services& ui, const QString& archive, const QString& folder)
{
    return zip_tool(ui, archive, folder, false);
}

QString unpack_package(Services& ui, const QString& app_dir, const QString& name, const QString& archive)
{
    const QString folder = unique_folder(name, app_dir);
    if (!make_private_folder(folder)) {
        const FileError error(kPathNotFound, label(kPathNotFound) + QStringLiteral(" : ") + folder);
        msg_erreur(ui, kUncompressFailed, &error);
        return {};
    }
    if (!unzip_file(ui, archive, folder)) {
        QDir(folder).removeRecursively();
        return {};
    }
    return folder;
}

}  // namespace plouvarine
