#include "src/base/files.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStorageInfo>

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

QString unique_folder(const QString& name, const QString& folder)
{
    QString candidate = path_join(folder, name);
    for (qint64 i = 1; taken(candidate); ++i)
        candidate = path_join(folder, name + QString::number(i));
    return candidate;
}

bool copy_file_over(const QString& source, const QString& target)
{
    QFile in(source);
    if (!in.open(QIODevice::ReadOnly))
        return false;
    QSaveFile out(target);
    if (!out.open(QIODevice::WriteOnly))
        return false;
    while (!in.atEnd()) {
        const QByteArray chunk = in.read(kCopyChunk);
        if (chunk.isEmpty() || out.write(chunk) != chunk.size())
            break;
    }
    if (!in.atEnd() || in.error() != QFileDevice::NoError) {
        out.cancelWriting();  // the temporary file goes with `out`
        return false;
    }
    return out.commit();
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

void delete_folder(const QString& path)
{
    QDir dir(path);
    const QStringList files = dir.entryList(QDir::Files | QDir::Hidden | QDir::System);
    for (const QString& name : files)
        delete_file_forced(dir.filePath(name));
    QDir().rmdir(path);
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
