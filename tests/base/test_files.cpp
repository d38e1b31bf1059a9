// Path and file helpers on real files in temporary folders.

#include "src/base/files.h"
#include "support/temp_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

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

TEST_F(FilesTest, PathJoinFileNameParentFolderAndZipExtension)
{
    EXPECT_EQ(QStringList({path_join(u"/srv/club"_s, u"club.mdb"_s), path_join(u"/srv/club/"_s, u"club.mdb"_s),
                           path_join(u"/"_s, u"tempo"_s)}),
              QStringList({"/srv/club/club.mdb", "/srv/club/club.mdb", "/tempo"}));
    EXPECT_EQ(QStringList({file_name(u"/srv/club/Hélène.mdb"_s), file_name(u"club.mdb"_s), file_name(u"/srv/club/"_s)}),
              QStringList({u"Hélène.mdb"_s, u"club.mdb"_s, QString()}));

    ASSERT_TRUE(write_bytes(at(u"club.mdb"_s), "x"));
    const QString folder = QFileInfo(dir.path()).absoluteFilePath();
    EXPECT_EQ(parent_folder(at(u"club.mdb"_s), false), folder);
    EXPECT_EQ(parent_folder(at(u"club.mdb"_s), true), folder + u'/');

    for (const QString& zip : {u"/srv/maj_base.zip"_s, u"résultats.lxf.zip"_s})
        EXPECT_TRUE(is_zip(zip)) << zip.toStdString();
    for (const QString& other : {u"/srv/maj_base.ZIP"_s, u"/srv/maj_base.zip.bak"_s, u"/srv/zip"_s, u"/srv.zip/base"_s})
        EXPECT_FALSE(is_zip(other)) << other.toStdString();
}

TEST_F(FilesTest, UniqueNamesCountFromZeroBeforeTheExtensionAndFoldersFromOne)
{
    const QString source = u"/elsewhere/a.txt"_s;
    EXPECT_EQ(unique_name(source, dir.path()), at(u"a.txt"_s));
    write_bytes(at(u"a.txt"_s), "1");
    EXPECT_EQ(unique_name(source, dir.path()), at(u"a0.txt"_s));
    write_bytes(at(u"a0.txt"_s), "2");
    EXPECT_EQ(unique_name(source, dir.path()), at(u"a1.txt"_s));
    // The counter goes before the last extension only; a folder takes the name too.
    write_bytes(at(u"club.mdb.sav"_s), "3");
    QDir().mkdir(at(u"club.mdb0.sav"_s));
    EXPECT_EQ(unique_name(u"club.mdb.sav"_s, dir.path()), at(u"club.mdb1.sav"_s));
    write_bytes(at(u"notes"_s), "4");
    EXPECT_EQ(unique_name(u"notes"_s, dir.path()), at(u"notes0"_s));

    const QString name = u"tmpexpimp"_s;
    EXPECT_EQ(unique_folder(name, dir.path()), at(name));
    QDir().mkdir(at(name));
    EXPECT_EQ(unique_folder(name, dir.path()), at(u"tmpexpimp1"_s));
    // A file of the name is taken as well: no folder could be made there.
    write_bytes(at(u"tmpexpimp1"_s), "x");
    EXPECT_EQ(unique_folder(name, dir.path() + u'/'), at(u"tmpexpimp2"_s));

    // A copy under a unique name keeps what is there.
    const QString out = at(u"out"_s);
    QDir().mkdir(out);
    write_bytes(QDir(out).filePath(u"a.txt"_s), "old");
    write_bytes(at(u"a.txt"_s), "new");
    const QString copy = copy_unique(at(u"a.txt"_s), out);
    EXPECT_EQ(copy, QDir(out).filePath(u"a0.txt"_s));
    EXPECT_EQ(read_bytes(copy), QByteArray("new"));
    EXPECT_EQ(read_bytes(QDir(out).filePath(u"a.txt"_s)), QByteArray("old"));
    EXPECT_EQ(copy_unique(at(u"missing.txt"_s), out), QString());
}

TEST_F(FilesTest, CopyFileOverReplacesTheWholeTargetOrKeepsTheOldOne)
{
    const QByteArray content = random_bytes(5 * 1024 * 1024 + 17);
    ASSERT_TRUE(write_bytes(at(u"source.bin"_s), content));
    ASSERT_TRUE(write_bytes(at(u"target.bin"_s), random_bytes(6 * 1024 * 1024, 2)));
    ASSERT_TRUE(copy_file_over(at(u"source.bin"_s), at(u"target.bin"_s)));
    EXPECT_EQ(read_bytes(at(u"target.bin"_s)), content);
    EXPECT_EQ(read_bytes(at(u"source.bin"_s)), content);
    EXPECT_EQ(listing(dir.path()), QStringList({"source.bin", "target.bin"}));
    // An empty file is copied as an empty file.
    ASSERT_TRUE(write_bytes(at(u"empty"_s), QByteArray()));
    ASSERT_TRUE(copy_file_over(at(u"empty"_s), at(u"target.bin"_s)));
    EXPECT_EQ(QFileInfo(at(u"target.bin"_s)).size(), 0);

    ASSERT_TRUE(write_bytes(at(u"target.bin"_s), "old content"));
    EXPECT_FALSE(copy_file_over(at(u"missing.bin"_s), at(u"target.bin"_s)));
    EXPECT_EQ(read_bytes(at(u"target.bin"_s)), QByteArray("old content"));
    EXPECT_FALSE(
        copy_file_over(at(u"source.bin"_s), QDir(testing::unwritable_folder(dir.path())).filePath(u"t.bin"_s)));
}

TEST_F(FilesTest, CopyFileOverOnAFullDiskLeavesNoHalfWrittenTarget)
{
    const QString source = at(u"source.bin"_s);
    const QString target = at(u"target.bin"_s);
    ASSERT_TRUE(write_bytes(source, random_bytes(3 * 1024 * 1024)));
    ASSERT_TRUE(write_bytes(target, "old content"));

    const int code = testing::run_with_file_size_limit(1024 * 1024, [&] {
        QString cause;
        return copy_file_over(source, target, &cause) ? 1 : cause.startsWith(u"Disque plein : "_s) ? 0 : 2;
    });
    EXPECT_EQ(code, 0) << "the failure names a full disk";
    EXPECT_EQ(read_bytes(target), QByteArray("old content"));
    EXPECT_EQ(listing(dir.path()), QStringList({"source.bin", "target.bin"}));
}

TEST_F(FilesTest, MoveFileReplacesTheTargetOrGivesTheErrorAndKeepsTheSource)
{
    const QString out = at(u"out"_s);
    QDir().mkdir(out);
    const QString source = at(u"modele_base.sav"_s);
    write_bytes(source, "new model");
    write_bytes(QDir(out).filePath(u"modele_base.sav"_s), "older model, longer");
    make_read_only(source);  // the source is deleted forced
    EXPECT_EQ(move_file(source, out), QString());
    EXPECT_FALSE(QFileInfo::exists(source));
    EXPECT_EQ(read_bytes(QDir(out).filePath(u"modele_base.sav"_s)), QByteArray("new model"));

    // Onto itself: the file stays.
    const QString base = at(u"club.mdb"_s);
    write_bytes(base, "data");
    EXPECT_EQ(move_file(base, dir.path() + u'/'), QString());
    EXPECT_EQ(read_bytes(base), QByteArray("data"));

    // Failures give the error text and keep the source.
    const QString missing = move_file(at(u"missing.txt"_s), dir.path());
    EXPECT_TRUE(missing.contains(u"missing.txt"_s)) << missing.toStdString();
    EXPECT_FALSE(move_file(base, testing::unwritable_folder(dir.path())).isEmpty());
    EXPECT_EQ(read_bytes(base), QByteArray("data"));
}

TEST_F(FilesTest, DeletingRemovesReadOnlyFilesAndFoldersWithWhatTheyHold)
{
    const QString path = at(u"club.mdb.sav"_s);
    write_bytes(path, "x");
    make_read_only(path);
    EXPECT_TRUE(delete_file_forced(path));
    EXPECT_FALSE(QFileInfo::exists(path));
    EXPECT_FALSE(delete_file_forced(path));

    const QString work = at(u"tempo"_s);
    QDir().mkpath(work + u"/sub/deeper"_s);
    for (const QString& name : {u".hidden"_s, u"sub/deeper/b.txt"_s, u"locked.txt"_s})
        write_bytes(QDir(work).filePath(name), "x");
    make_read_only(QDir(work).filePath(u"locked.txt"_s));
    EXPECT_TRUE(delete_folder(work));
    EXPECT_FALSE(QFileInfo::exists(work));
    EXPECT_TRUE(delete_folder(at(u"missing"_s)));
}

TEST_F(FilesTest, WholeFileIsPrivateOrKeepsTheModeItReplaces)
{
    const QString fresh = at(u"fresh.bin"_s);
    ASSERT_TRUE(write_bytes(at(u"source.bin"_s), "abc"));
    ASSERT_TRUE(copy_file_over(at(u"source.bin"_s), fresh));
    EXPECT_EQ(file_mode(fresh), 0600);
    QFile::setPermissions(fresh, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner |
                                     QFileDevice::ReadGroup | QFileDevice::ExeGroup);
    ASSERT_TRUE(copy_file_over(at(u"source.bin"_s), fresh));
    EXPECT_EQ(file_mode(fresh), 0750);  // an executable keeps its run bits
    ASSERT_TRUE(make_private_folder(at(u"a/b"_s)));
    EXPECT_EQ(QList<int>({file_mode(at(u"a"_s)), file_mode(at(u"a/b"_s))}), QList<int>({0700, 0700}));
}

TEST_F(FilesTest, SpaceDrivesAndFolderSizes)
{
    const QString small = at(u"small.bin"_s);
    write_bytes(small, random_bytes(1000));
    EXPECT_TRUE(enough_space(small, dir.path()));
    // A folder still to be made is measured on the volume that will hold it.
    EXPECT_TRUE(enough_space(small, at(u"tempo/sub"_s)));
    // The drive of a path, made or to be made, is there; no path has none.
    EXPECT_TRUE(drive_ready(dir.path()));
    EXPECT_TRUE(drive_ready(at(u"tempo/sub"_s)));
    EXPECT_FALSE(drive_ready(QString()));

    const QString work = at(u"tempo"_s);
    QDir().mkpath(work + u"/a/b"_s);
    EXPECT_EQ(folder_size(work), 0);
    write_bytes(QDir(work).filePath(u"empty.txt"_s), QByteArray());
    EXPECT_EQ(folder_size(work), 0);
    write_bytes(QDir(work).filePath(u"one.bin"_s), QByteArray(100, 'x'));
    write_bytes(QDir(work).filePath(u"a/b/.two"_s), QByteArray(23, 'y'));
    EXPECT_EQ(folder_size(work), 123);
    EXPECT_EQ(folder_size(at(u"missing"_s)), 0);

    // A sparse file larger than the space left.
    const QString huge = at(u"huge.bin"_s);
    QFile f(huge);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    const qint64 available = QStorageInfo(dir.path()).bytesAvailable();
    if (!f.resize(available + 1024 * 1024))
        GTEST_SKIP() << "the file system does not take a sparse file of " << available << " bytes";
    f.close();
    EXPECT_FALSE(enough_space(huge, dir.path()));
}

}  // namespace
}  // namespace plouvarine
