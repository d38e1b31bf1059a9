// Path and file helpers on real files in temporary folders.

#include "src/base/files.h"
#include "support/temp_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace plouvarine {
namespace {

using testing::random_bytes;
using testing::read_bytes;
using testing::write_bytes;

class FilesTest : public ::testing::Test {
protected:
    QString at(const QString& name) const { return QDir(dir.path()).filePath(name); }
    QStringList listing(const QString& folder) const
    {
        return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }
    void make_read_only(const QString& path)
    {
        QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::ReadGroup | QFileDevice::ReadOther);
    }

    QTemporaryDir dir;
};

TEST_F(FilesTest, PathJoinFileNameAndParentFolder)
{
    EXPECT_EQ(path_join(QStringLiteral("/srv/club"), QStringLiteral("club.mdb")), QStringLiteral("/srv/club/club.mdb"));
    EXPECT_EQ(path_join(QStringLiteral("/srv/club/"), QStringLiteral("club.mdb")), QStringLiteral("/srv/club/club.mdb"));
    EXPECT_EQ(path_join(QStringLiteral("/"), QStringLiteral("tempo")), QStringLiteral("/tempo"));

    EXPECT_EQ(file_name(QStringLiteral("/srv/club/Hélène.mdb")), QStringLiteral("Hélène.mdb"));
    EXPECT_EQ(file_name(QStringLiteral("club.mdb")), QStringLiteral("club.mdb"));
    EXPECT_EQ(file_name(QStringLiteral("/srv/club/")), QString());

    ASSERT_TRUE(write_bytes(at(QStringLiteral("club.mdb")), "x"));
    const QString folder = QFileInfo(dir.path()).absoluteFilePath();
    EXPECT_EQ(parent_folder(at(QStringLiteral("club.mdb")), false), folder);
    EXPECT_EQ(parent_folder(at(QStringLiteral("club.mdb")), true), folder + QLatin1Char('/'));
}

TEST_F(FilesTest, UniqueNameCountsFromZeroBeforeTheExtension)
{
    const QString source = QStringLiteral("/elsewhere/a.txt");
    EXPECT_EQ(unique_name(source, dir.path()), at(QStringLiteral("a.txt")));

    write_bytes(at(QStringLiteral("a.txt")), "1");
    EXPECT_EQ(unique_name(source, dir.path()), at(QStringLiteral("a0.txt")));

    write_bytes(at(QStringLiteral("a0.txt")), "2");
    EXPECT_EQ(unique_name(source, dir.path()), at(QStringLiteral("a1.txt")));

    // The counter goes before the last extension only; a folder takes the name too.
    write_bytes(at(QStringLiteral("club.mdb.sav")), "3");
    QDir().mkdir(at(QStringLiteral("club.mdb0.sav")));
    EXPECT_EQ(unique_name(QStringLiteral("club.mdb.sav"), dir.path()), at(QStringLiteral("club.mdb1.sav")));

    write_bytes(at(QStringLiteral("notes")), "4");
    EXPECT_EQ(unique_name(QStringLiteral("notes"), dir.path()), at(QStringLiteral("notes0")));
}

TEST_F(FilesTest, UniqueFolderCountsFromOne)
{
    const QString name = QStringLiteral("tmpexpimp");
    EXPECT_EQ(unique_folder(name, dir.path()), at(name));
    QDir().mkdir(at(name));
    EXPECT_EQ(unique_folder(name, dir.path()), at(QStringLiteral("tmpexpimp1")));
    // A file of the name is taken as well: no folder could be made there.
    write_bytes(at(QStringLiteral("tmpexpimp1")), "x");
    EXPECT_EQ(unique_folder(name, dir.path() + QLatin1Char('/')), at(QStringLiteral("tmpexpimp2")));
}

TEST_F(FilesTest, CopyFileOverReplacesTheWholeTarget)
{
    const QByteArray content = random_bytes(5 * 1024 * 1024 + 17);
    ASSERT_TRUE(write_bytes(at(QStringLiteral("source.bin")), content));
    ASSERT_TRUE(write_bytes(at(QStringLiteral("target.bin")), random_bytes(6 * 1024 * 1024, 2)));

    ASSERT_TRUE(copy_file_over(at(QStringLiteral("source.bin")), at(QStringLiteral("target.bin"))));
    EXPECT_EQ(read_bytes(at(QStringLiteral("target.bin"))), content);
    EXPECT_EQ(read_bytes(at(QStringLiteral("source.bin"))), content);
    EXPECT_EQ(listing(dir.path()), (QStringList{QStringLiteral("source.bin"), QStringLiteral("target.bin")}));

    // An empty file is copied as an empty file.
    ASSERT_TRUE(write_bytes(at(QStringLiteral("empty")), QByteArray()));
    ASSERT_TRUE(copy_file_over(at(QStringLiteral("empty")), at(QStringLiteral("target.bin"))));
    EXPECT_EQ(QFileInfo(at(QStringLiteral("target.bin"))).size(), 0);
}

TEST_F(FilesTest, CopyFileOverFailureKeepsTheOldTarget)
{
    ASSERT_TRUE(write_bytes(at(QStringLiteral("target.bin")), "old content"));
    EXPECT_FALSE(copy_file_over(at(QStringLiteral("missing.bin")), at(QStringLiteral("target.bin"))));
    EXPECT_EQ(read_bytes(at(QStringLiteral("target.bin"))), QByteArray("old content"));

    ASSERT_TRUE(write_bytes(at(QStringLiteral("source.bin")), "new"));
    EXPECT_FALSE(copy_file_over(at(QStringLiteral("source.bin")),
                                QDir(testing::unwritable_folder(dir.path())).filePath(QStringLiteral("t.bin"))));
}

TEST_F(FilesTest, CopyFileOverOnAFullDiskLeavesNoHalfWrittenTarget)
{
    const QString source = at(QStringLiteral("source.bin"));
    const QString target = at(QStringLiteral("target.bin"));
    ASSERT_TRUE(write_bytes(source, random_bytes(3 * 1024 * 1024)));
    ASSERT_TRUE(write_bytes(target, "old content"));

    const int code = testing::run_with_file_size_limit(1024 * 1024, [&] {
        QString cause;
        return copy_file_over(source, target, &cause) ? 1 : cause.startsWith(QStringLiteral("Disque plein : ")) ? 0 : 2;
    });
    EXPECT_EQ(code, 0) << "the failure names a full disk";
    EXPECT_EQ(read_bytes(target), QByteArray("old content"));
    EXPECT_EQ(listing(dir.path()), (QStringList{QStringLiteral("source.bin"), QStringLiteral("target.bin")}));
}

TEST_F(FilesTest, CopyUniqueKeepsWhatIsThere)
{
    QDir().mkdir(at(QStringLiteral("out")));
    const QString out = at(QStringLiteral("out"));
    write_bytes(at(QStringLiteral("a.txt")), "new");
    write_bytes(QDir(out).filePath(QStringLiteral("a.txt")), "old");

    const QString copy = copy_unique(at(QStringLiteral("a.txt")), out);
    EXPECT_EQ(copy, QDir(out).filePath(QStringLiteral("a0.txt")));
    EXPECT_EQ(read_bytes(copy), QByteArray("new"));
    EXPECT_EQ(read_bytes(QDir(out).filePath(QStringLiteral("a.txt"))), QByteArray("old"));

    EXPECT_EQ(copy_unique(at(QStringLiteral("missing.txt")), out), QString());
}

TEST_F(FilesTest, MoveFileReplacesTheTargetOrGivesTheErrorAndKeepsTheSource)
{
    const QString out = at(QStringLiteral("out"));
    QDir().mkdir(out);
    const QString source = at(QStringLiteral("modele_base.sav"));
    write_bytes(source, "new model");
    write_bytes(QDir(out).filePath(QStringLiteral("modele_base.sav")), "older model, longer");
    make_read_only(source);  // the source is deleted forced
    EXPECT_EQ(move_file(source, out), QString());
    EXPECT_FALSE(QFileInfo::exists(source));
    EXPECT_EQ(read_bytes(QDir(out).filePath(QStringLiteral("modele_base.sav"))), QByteArray("new model"));

    // Onto itself: the file stays.
    const QString base = at(QStringLiteral("club.mdb"));
    write_bytes(base, "data");
    EXPECT_EQ(move_file(base, dir.path() + QLatin1Char('/')), QString());
    EXPECT_EQ(read_bytes(base), QByteArray("data"));

    // Failures give the error text and keep the source.
    const QString missing = move_file(at(QStringLiteral("missing.txt")), dir.path());
    EXPECT_TRUE(missing.contains(QStringLiteral("missing.txt"))) << missing.toStdString();
    EXPECT_FALSE(move_file(base, testing::unwritable_folder(dir.path())).isEmpty());
    EXPECT_EQ(read_bytes(base), QByteArray("data"));
}

TEST_F(FilesTest, DeleteFileForcedRemovesReadOnlyFiles)
{
    const QString path = at(QStringLiteral("club.mdb.sav"));
    write_bytes(path, "x");
    make_read_only(path);
    EXPECT_TRUE(delete_file_forced(path));
    EXPECT_FALSE(QFileInfo::exists(path));
    EXPECT_FALSE(delete_file_forced(path));
}

TEST_F(FilesTest, DeleteFolderRemovesTheFolderWithWhatItHolds)
{
    const QString work = at(QStringLiteral("tempo"));
    QDir().mkpath(work + QStringLiteral("/sub/deeper"));
    write_bytes(QDir(work).filePath(QStringLiteral(".hidden")), "x");
    write_bytes(QDir(work).filePath(QStringLiteral("sub/deeper/b.txt")), "x");
    write_bytes(QDir(work).filePath(QStringLiteral("locked.txt")), "x");
    make_read_only(QDir(work).filePath(QStringLiteral("locked.txt")));
    EXPECT_TRUE(delete_folder(work));
    EXPECT_FALSE(QFileInfo::exists(work));
    EXPECT_TRUE(delete_folder(at(QStringLiteral("missing"))));
}

TEST_F(FilesTest, WholeFileIsPrivateOrKeepsTheModeItReplaces)
{
    const QString fresh = at(QStringLiteral("fresh.bin"));
    ASSERT_TRUE(write_bytes(at(QStringLiteral("source.bin")), "abc"));
    ASSERT_TRUE(copy_file_over(at(QStringLiteral("source.bin")), fresh));
    EXPECT_EQ(file_mode(fresh), 0600);
    QFile::setPermissions(fresh, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner |
                                     QFileDevice::ReadGroup | QFileDevice::ExeGroup);
    ASSERT_TRUE(copy_file_over(at(QStringLiteral("source.bin")), fresh));
    EXPECT_EQ(file_mode(fresh), 0750);  // an executable keeps its run bits
    ASSERT_TRUE(make_private_folder(at(QStringLiteral("a/b"))));
    EXPECT_EQ(file_mode(at(QStringLiteral("a"))), 0700);
    EXPECT_EQ(file_mode(at(QStringLiteral("a/b"))), 0700);
}

TEST_F(FilesTest, IsZipWantsTheExactExtension)
{
    EXPECT_TRUE(is_zip(QStringLiteral("/srv/maj_base.zip")));
    EXPECT_TRUE(is_zip(QStringLiteral("résultats.lxf.zip")));
    EXPECT_FALSE(is_zip(QStringLiteral("/srv/maj_base.ZIP")));
    EXPECT_FALSE(is_zip(QStringLiteral("/srv/maj_base.zip.bak")));
    EXPECT_FALSE(is_zip(QStringLiteral("/srv/zip")));
    EXPECT_FALSE(is_zip(QStringLiteral("/srv.zip/base")));
}

TEST_F(FilesTest, EnoughSpaceComparesWithTheVolume)
{
    const QString small = at(QStringLiteral("small.bin"));
    write_bytes(small, random_bytes(1000));
    EXPECT_TRUE(enough_space(small, dir.path()));
    // A folder still to be made is measured on the volume that will hold it.
    EXPECT_TRUE(enough_space(small, at(QStringLiteral("tempo/sub"))));
    // The drive of a path, made or to be made, is there; no path has none.
    EXPECT_TRUE(drive_ready(dir.path()));
    EXPECT_TRUE(drive_ready(at(QStringLiteral("tempo/sub"))));
    EXPECT_FALSE(drive_ready(QString()));

    // A sparse file larger than the space left.
    const QString huge = at(QStringLiteral("huge.bin"));
    QFile f(huge);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    const qint64 available = QStorageInfo(dir.path()).bytesAvailable();
    if (!f.resize(available + 1024 * 1024))
        GTEST_SKIP() << "the file system does not take a sparse file of " << available << " bytes";
    f.close();
    EXPECT_FALSE(enough_space(huge, dir.path()));
}

TEST_F(FilesTest, FolderSizeCountsFilesAtAnyDepth)
{
    const QString work = at(QStringLiteral("tempo"));
    QDir().mkpath(work + QStringLiteral("/a/b"));
    EXPECT_EQ(folder_size(work), 0);
    write_bytes(QDir(work).filePath(QStringLiteral("empty.txt")), QByteArray());
    EXPECT_EQ(folder_size(work), 0);
    write_bytes(QDir(work).filePath(QStringLiteral("one.bin")), QByteArray(100, 'x'));
    write_bytes(QDir(work).filePath(QStringLiteral("a/b/.two")), QByteArray(23, 'y'));
    EXPECT_EQ(folder_size(work), 123);
    EXPECT_EQ(folder_size(at(QStringLiteral("missing"))), 0);
}

}  // namespace
}  // namespace plouvarine
