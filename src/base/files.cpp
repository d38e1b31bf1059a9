#include "src/base/files.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace plouvarine {

namespace {

const QChar kSeparator = QLatin1Char('/');

// Large enough to stream a base quickly, small enough to stay off the heap's
// large-allocation path.
constexpr qint64 kCopyChunk = 256 * 1024;

// Anything of that name, file or folder, makes the name taken: a file would
// stop a folder of the same name from being made, and the other way round.
bool taken(const QString& path)
{
    return QFileInfo::exists(path) || QFileInfo(path).isSymLink();
}

}  // namespace

QString path_join(const QString& folder, const QString& name)
{
    if (folder.endsWith(kSeparator))
        return folder + name;
    return folder + kSeparator + name;
}

QString file_name(const QString& path)
{
    return path.mid(path.lastIndexOf(kSeparator) + 1);
}

QString parent_folder(const QString& path, bool with_slash)
{
    const QString folder = QFileInfo(path).absolutePath();
    if (with_slash && !folder.endsWith(kSeparator))
        return folder + kSeparator;
    return folder;
}

QString unique_name(const QString& path, const QString& folder)
{
    const QString name = file_name(path);
    QString candidate = path_join(folder, name);
    if (!taken(candidate))
        return candidate;
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    const QString stem = dot < 0 ? name : name.left(dot);
    const QString extension = dot < 0 ? QString() : name.mid(dot);  // with its point
    for (qint64 i = 0;; ++i) {
        candidate = path_join(folder, stem + QString::number(i) + extension);
        if (!taken(candidate))
            return candidate;
    }
}

QString with_ending(const QString& path, const QStringList& endings)
{
    for (const QString& ending : endings)
        if (path.endsWith(ending, Qt::CaseInsensitive))
            return path;
    return endings.isEmpty() ? path : path + endings.first();
}

QString unique_folder(const QString& name, const QString& folder)
{
    QString candidate = path_join(folder, name);
    for (qint64 i = 1; taken(candidate); ++i)
        candidate = path_join(folder, name + QString::number(i));
    return candidate;
}

WholeFile::WholeFile(const QString& target) : target_(target)
{
    QByteArray name = QFile::encodeName(partial_prefix(target) + QStringLiteral("XXXXXX"));
    fd_ = ::mkostemp(name.data(), O_CLOEXEC);  // made 0600
    if (fd_ < 0) {
        errno_ = errno;
        return;
    }
    temporary_ = QFile::decodeName(name);
    struct stat st;
    if (::stat(QFile::encodeName(target).constData(), &st) == 0 && ::fchmod(fd_, st.st_mode & 07777) != 0)
        fail(errno);
}

WholeFile::~WholeFile()
{
    if (fd_ >= 0)
        ::close(fd_);
    if (!temporary_.isEmpty())
        ::unlink(QFile::encodeName(temporary_).constData());
}

bool WholeFile::fail(int number)
{
    if (errno_ == 0)
        errno_ = number ? number : EIO;
    return false;
}

bool WholeFile::write(const char* data, qint64 size)
{
    if (errno_ != 0 || fd_ < 0)
        return fail(EBADF);
    while (size > 0) {
        const ssize_t n = ::write(fd_, data, size_t(size));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)  // a short write is retried; the one after it tells the cause
            return fail(n < 0 ? errno : ENOSPC);
        data += n;
        size -= n;
    }
    return true;
}

bool WholeFile::commit()
{
    if (errno_ != 0 || fd_ < 0)
        return fail(EBADF);
    if (::fsync(fd_) != 0)
        return fail(errno);
    const int fd = fd_;
    fd_ = -1;
    if (::close(fd) != 0)
        return fail(errno);
    if (::rename(QFile::encodeName(temporary_).constData(), QFile::encodeName(target_).constData()) != 0)
        return fail(errno);
    temporary_.clear();
    // The rename itself reaches the disk with the folder.
    const int dir = ::open(QFile::encodeName(parent_folder(target_, false)).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (dir >= 0) {
        ::fsync(dir);
        ::close(dir);
    }
    return true;
}

QString WholeFile::error_text() const
{
    return error_cause(errno_) + QStringLiteral(" : ") + target_;
}

QString error_cause(int number)
{
    switch (number) {
    case ENOSPC: case EFBIG: case EDQUOT: return QStringLiteral("Disque plein");
    case EACCES: case EPERM: return QStringLiteral("Permission refusée");
    case EROFS: return QStringLiteral("Disque en lecture seule");
    case ENOENT: case ENOTDIR: return QStringLiteral("Chemin d'accès introuvable");
    case EIO: return QStringLiteral("Erreur d'entrée/sortie");
    default: return QStringLiteral("Erreur d'accès au fichier (") + QString::fromLocal8Bit(std::strerror(number)) + QLatin1Char(')');
    }
}

bool copy_file_over(const QString& source, const QString& target, QString* cause)
{
    const auto failed = [&](const QString& text) {
        if (cause)
            *cause = text;
        return false;
    };
    const int in = ::open(QFile::encodeName(source).constData(), O_RDONLY | O_CLOEXEC);
    if (in < 0)
        return failed(error_cause(errno) + QStringLiteral(" : ") + source);
    WholeFile out(target);
    QByteArray chunk(kCopyChunk, Qt::Uninitialized);
    for (;;) {
        const ssize_t n = ::read(in, chunk.data(), size_t(chunk.size()));
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0) {
            const int number = errno;
            ::close(in);
            return failed(error_cause(number) + QStringLiteral(" : ") + source);
        }
        if (n == 0)
            break;
        if (!out.write(chunk.constData(), n))
            break;
    }
    ::close(in);
    if (!out.commit())
        return failed(out.error_text());
    return true;
}

bool settle_file(const QString& path, int mode)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return false;
    const bool ok = ::fchmod(fd, mode_t(mode)) == 0 && ::fsync(fd) == 0;
    return ::close(fd) == 0 && ok;
}

bool make_private_folder(const QString& path)
{
    if (QFileInfo(path).isDir())
        return true;
    const QString parent = QFileInfo(path).absolutePath();
    if (parent != path && !make_private_folder(parent))
        return false;
    return ::mkdir(QFile::encodeName(path).constData(), 0700) == 0 || (errno == EEXIST && QFileInfo(path).isDir());
}

int file_mode(const QString& path)
{
    struct stat st;
    if (::stat(QFile::encodeName(path).constData(), &st) != 0)
        return 0600;
    return int(st.st_mode & 07777);
}

QString partial_prefix(const QString& target)
{
    return target + QStringLiteral(".part");
}

QString copy_unique(const QString& path, const QString& folder)
{
    const QString target = unique_name(path, folder);
    return copy_file_over(path, target) ? target : QString();
}

QString move_file(const QString& path, const QString& folder)
{
    const QFileInfo source(path);
    if (!source.isFile())
        return QStringLiteral("Fichier introuvable : ") + path;
    const QString target = path_join(folder, file_name(path));
    // Moving a file onto itself must not end with deleting it.
    if (QFileInfo(target).canonicalFilePath() == source.canonicalFilePath())
        return {};
    if (!copy_file_over(path, target))
        return QStringLiteral("Impossible de copier ") + path + QStringLiteral(" vers ") + target;
    if (!delete_file_forced(path))
        return QStringLiteral("Impossible de supprimer ") + path;
    return {};
}

bool delete_file_forced(const QString& path)
{
    QFile file(path);
    if (!file.exists())
        return false;
    // The read-only attribute is cleared first, as a forced delete does; where
    // the file's own rights would refuse the delete, this lifts them.
    file.setPermissions(file.permissions() | QFileDevice::WriteOwner | QFileDevice::WriteUser);
    return file.remove();
}

bool delete_folder(const QString& path)
{
    if (!QFileInfo::exists(path) && !QFileInfo(path).isSymLink())
        return true;
    QDir(path).removeRecursively();
    return !QFileInfo::exists(path);
}

bool is_zip(const QString& path)
{
    const QString name = file_name(path);
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    return dot >= 0 && QStringView(name).mid(dot + 1) == QLatin1String("zip");
}

namespace {

// The volume of a path: a folder that is still to be made lies on the volume
// of its nearest existing ancestor.
QStorageInfo volume_of(const QString& path)
{
    QDir dir(QFileInfo(path).absoluteFilePath());
    while (!dir.exists() && !dir.isRoot())
        dir.setPath(QFileInfo(dir.path()).absolutePath());
    return QStorageInfo(dir.path());
}

}  // namespace

bool drive_ready(const QString& path)
{
    if (path.isEmpty())
        return false;
    const QStorageInfo volume = volume_of(path);
    return volume.isValid() && volume.isReady();
}

bool enough_space(const QString& file, const QString& folder)
{
    const QStorageInfo volume = volume_of(folder);
    if (!volume.isValid() || !volume.isReady())
        return false;
    return QFileInfo(file).size() < volume.bytesAvailable();
}

qint64 folder_size(const QString& path)
{
    qint64 total = 0;
    QDirIterator it(path, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        it.next();
        total += it.fileInfo().size();
    }
    return total;
}

std::optional<QString> safe_relative_path(const QString& name)
{
    QString n = name;
    n.replace(QLatin1Char('\\'), QLatin1Char('/'));
    if (n.startsWith(QLatin1Char('/')) || (n.size() >= 2 && n.at(1) == QLatin1Char(':') && n.at(0).isLetter()))
        return std::nullopt;
    QStringList parts;
    for (const QString& part : n.split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
        if (part == QLatin1String(".."))
            return std::nullopt;
        if (part != QLatin1String("."))
            parts << part;
    }
    return parts.join(QLatin1Char('/'));
}

}  // namespace plouvarine
