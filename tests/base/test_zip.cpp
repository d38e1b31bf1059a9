// Zip archives written and read back through libzip: round trips of real
// files, replacement of an archive, damaged archives, full disks, and entries
// that try to leave their folder.

#include "src/base/errors.h"
#include "src/base/zip.h"
#include "support/scripted_services.h"
#include "support/temp_files.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <zip.h>

#include <utility>
#include <vector>

namespace plouvarine {
namespace {

using testing::random_bytes;
using testing::read_bytes;
using testing::ScriptedServices;
using testing::write_bytes;

const QString kCompressFailed = QStringLiteral("Une erreur s'est produite lors de la compression.");
const QString kUncompressFailed = QStringLiteral("Une erreur s'est produite lors de la décompression.");

struct Entry {
    QByteArray name;     // as stored; a name ending with "/" is a folder
    QByteArray content;
};

// An archive built with libzip alone, to hold what our writer never writes.
void make_zip(const QString& archive, const std::vector<Entry>& entries)
{
    int code = 0;
    zip_t* z = zip_open(QFile::encodeName(archive).constData(), ZIP_CREATE | ZIP_TRUNCATE, &code);
    ASSERT_NE(z, nullptr);
    for (const Entry& e : entries) {
        if (e.name.endsWith('/')) {
            ASSERT_GE(zip_dir_add(z, e.name.constData(), ZIP_FL_ENC_RAW), 0);
            continue;
        }
        zip_source_t* src = zip_source_buffer(z, e.content.constData(), zip_uint64_t(e.content.size()), 0);
        ASSERT_NE(src, nullptr);
        ASSERT_GE(zip_file_add(z, e.name.constData(), src, ZIP_FL_ENC_RAW), 0) << zip_strerror(z);
    }
    ASSERT_EQ(zip_close(z), 0) << zip_strerror(z);
}

class ZipTest : public ::testing::Test {
protected:
    QString at(const QString& name) const { return QDir(dir.path()).filePath(name); }
    QStringList listing(const QString& folder) const
    {
        return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }
    // Every file below the folder, by relative path, with its content.
    std::vector<std::pair<QString, QByteArray>> tree(const QString& folder) const
    {
        std::vector<std::pair<QString, QByteArray>> files;
        QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            it.next();
            files.emplace_back(QDir(folder).relativeFilePath(it.filePath()), read_bytes(it.filePath()));
        }
        std::sort(files.begin(), files.end());
        return files;
    }
    // The one message shown, an error ending with `text` after the cause.
    void expect_error(const QString& text)
    {
        ASSERT_EQ(ui.messages.size(), 1u) << ui.texts().join(QStringLiteral(" | ")).toStdString();
        EXPECT_EQ(ui.messages[0].title, QStringLiteral("Erreur"));
        EXPECT_TRUE(ui.messages[0].text.startsWith(QStringLiteral("Erreur n° "))) << ui.messages[0].text.toStdString();
        EXPECT_TRUE(ui.messages[0].text.endsWith(QLatin1Char('\n') + text)) << ui.messages[0].text.toStdString();
    }
    QString valid_archive(const QString& name, const QByteArray& content)
    {
        const QString source = at(QStringLiteral("payload.bin"));
        write_bytes(source, content);
        const QString archive = at(name);
        zip_file(archive, source);
        QFile::remove(source);
        return archive;
    }

    QTemporaryDir dir;
    ScriptedServices ui;
};

TEST_F(ZipTest, BinaryFileRoundTripIntoAFolderToBeMadeWithItsBytesAndDate)
{
    QByteArray content;
    for (int round = 0; round < 64; ++round)
        for (int b = 0; b < 256; ++b)
            content.append(char(b));
    content += QByteArray(4096, '\0') + QByteArray("\r\n\x1a end") + random_bytes(5 * 1024 * 1024) +
               QByteArray(512 * 1024, 'a');
    const QString source = at(QStringLiteral("club.mdb"));
    ASSERT_TRUE(write_bytes(source, content));

    const QString archive = at(QStringLiteral("club.mdb.sav"));
    ASSERT_TRUE(zip_file(archive, source));
    EXPECT_EQ(zip_entries(archive), QStringList{QStringLiteral("club.mdb")});
    EXPECT_LT(QFileInfo(archive).size(), content.size());  // deflated, not stored

    const QString out = at(QStringLiteral("out/deeper"));
    ASSERT_TRUE(unzip_archive(archive, out));
    const QString back = QDir(out).filePath(QStringLiteral("club.mdb"));
    EXPECT_EQ(read_bytes(back), content);
    // Zip dates have a two-second step.
    EXPECT_LE(std::abs(QFileInfo(back).lastModified().secsTo(QFileInfo(source).lastModified())), 2);
}

TEST_F(ZipTest, NamesWithAccentsAndGivenNames)
{
    const QString source = at(QStringLiteral("Hélène Noël — Çà.txt"));
    ASSERT_TRUE(write_bytes(source, "accents"));
    const QString archive = at(QStringLiteral("accents.zip"));
    ASSERT_TRUE(zip_file(archive, source));
    EXPECT_EQ(zip_entries(archive), QStringList{QStringLiteral("Hélène Noël — Çà.txt")});

    // Stored as UTF-8, so that other tools read the same name.
    int code = 0;
    zip_t* z = zip_open(QFile::encodeName(archive).constData(), ZIP_RDONLY, &code);
    ASSERT_NE(z, nullptr);
    EXPECT_EQ(QByteArray(zip_get_name(z, 0, ZIP_FL_ENC_RAW)), QStringLiteral("Hélène Noël — Çà.txt").toUtf8());
    zip_discard(z);

    const QString out = at(QStringLiteral("dézippé"));
    ASSERT_TRUE(unzip_archive(archive, out));
    EXPECT_EQ(read_bytes(QDir(out).filePath(QStringLiteral("Hélène Noël — Çà.txt"))), QByteArray("accents"));

    // A snapshot file zipped under the base's own name.
    ASSERT_TRUE(zip_file(archive, source, QStringLiteral("club.mdb")));
    EXPECT_EQ(zip_entries(archive), QStringList{QStringLiteral("club.mdb")});
}

TEST_F(ZipTest, AnExistingArchiveIsReplacedWithoutLeftovers)
{
    const QString archive = valid_archive(QStringLiteral("club.zip"), "first");
    ASSERT_TRUE(write_bytes(at(QStringLiteral("second.txt")), "second"));
    ASSERT_TRUE(zip_file(archive, at(QStringLiteral("second.txt"))));
    EXPECT_EQ(zip_entries(archive), QStringList{QStringLiteral("second.txt")});
    EXPECT_EQ(listing(dir.path()), (QStringList{QStringLiteral("club.zip"), QStringLiteral("second.txt")}));

    // Whatever lay under the archive's name is replaced too.
    ASSERT_TRUE(write_bytes(archive, random_bytes(3000)));
    ASSERT_TRUE(zip_file(archive, at(QStringLiteral("second.txt"))));
    EXPECT_EQ(zip_entries(archive), QStringList{QStringLiteral("second.txt")});
}

TEST_F(ZipTest, MissingSourceKeepsTheOldArchive)
{
    const QString archive = valid_archive(QStringLiteral("club.mdb.sav"), "saved state");
    const QByteArray before = read_bytes(archive);
    const QString missing = at(QStringLiteral("club.mdb"));
    try {
        zip_file(archive, missing);
        FAIL() << "no error for a missing source";
    } catch (const FileError& e) {
        EXPECT_EQ(e.number(), 53);
        EXPECT_TRUE(e.description().contains(missing)) << e.description().toStdString();
    }
    EXPECT_EQ(read_bytes(archive), before);

    EXPECT_FALSE(zip_tool(ui, archive, missing, true));
    expect_error(kCompressFailed);
    EXPECT_EQ(read_bytes(archive), before);
}

TEST_F(ZipTest, UnwritableTargetFolderIsReported)
{
    ASSERT_TRUE(write_bytes(at(QStringLiteral("club.mdb")), "base"));
    const QString folder = testing::unwritable_folder(dir.path());
    const QString archive = QDir(folder).filePath(QStringLiteral("club.zip"));
    EXPECT_THROW(zip_file(archive, at(QStringLiteral("club.mdb"))), FileError);
    EXPECT_FALSE(QFileInfo::exists(archive));

    EXPECT_FALSE(zip_tool(ui, archive, at(QStringLiteral("club.mdb")), true));
    expect_error(kCompressFailed);
    EXPECT_TRUE(ui.messages[0].text.contains(archive));
}

TEST_F(ZipTest, FullDiskKeepsTheOldArchiveIntact)
{
    const QString archive = valid_archive(QStringLiteral("club.mdb.sav"), "the last good save");
    const QByteArray before = read_bytes(archive);
    const QString source = at(QStringLiteral("club.mdb"));
    ASSERT_TRUE(write_bytes(source, random_bytes(5 * 1024 * 1024)));

    // 0: refused as a full disk; 1: written all the same; 2: another error.
    const int code = testing::run_with_file_size_limit(1024 * 1024, [&] {
        try {
            zip_file(archive, source);
            return 1;
        } catch (const FileError& e) {
            return e.number() == 61 ? 0 : 2;
        }
    });
    EXPECT_EQ(code, 0);
    EXPECT_EQ(read_bytes(archive), before);
    EXPECT_EQ(zip_entries(archive), QStringList{QStringLiteral("payload.bin")});
    EXPECT_EQ(listing(dir.path()), (QStringList{QStringLiteral("club.mdb"), QStringLiteral("club.mdb.sav")}));
}

TEST_F(ZipTest, DamagedAndMissingArchivesAreReported)
{
    const QString missing = at(QStringLiteral("absent.zip"));
    try {
        unzip_archive(missing, at(QStringLiteral("out")));
        FAIL() << "no error for a missing archive";
    } catch (const FileError& e) {
        EXPECT_EQ(e.number(), 53);
        EXPECT_TRUE(e.description().contains(missing));
    }

    const QString random = at(QStringLiteral("random.zip"));
    ASSERT_TRUE(write_bytes(random, random_bytes(10000)));

    const QString truncated = valid_archive(QStringLiteral("truncated.zip"), random_bytes(50000));
    const QByteArray whole = read_bytes(truncated);
    ASSERT_TRUE(write_bytes(truncated, whole.left(whole.size() / 2)));

    // The directory is intact but the data are not: seen when reading the entry.
    const QString damaged = valid_archive(QStringLiteral("damaged.zip"), random_bytes(200000, 7));
    QByteArray bytes = read_bytes(damaged);
    for (int i = 100000; i < 100016; ++i)
        bytes[i] = char(~bytes[i]);
    ASSERT_TRUE(write_bytes(damaged, bytes));

    for (const QString& archive : {random, truncated, damaged, missing}) {
        SCOPED_TRACE(archive.toStdString());
        ui.clear();
        const QString out = at(QStringLiteral("out"));
        EXPECT_FALSE(unzip_file(ui, archive, out));
        expect_error(kUncompressFailed);
        EXPECT_TRUE(ui.messages[0].text.contains(archive));
        EXPECT_TRUE(listing(out).isEmpty());  // no half-written file
        EXPECT_THROW(unzip_archive(archive, out), FileError);
        QDir(out).removeRecursively();
    }
}

TEST_F(ZipTest, EntriesLeavingTheFolderAreRefusedBeforeAnythingIsWritten)
{
    const QString inside = at(QStringLiteral("a/b/out"));
    QDir().mkpath(QFileInfo(inside).absolutePath());
    const QByteArray absolute = QDir(dir.path()).filePath(QStringLiteral("abs.txt")).toUtf8();
    for (const QByteArray& bad : {QByteArray("../evil.txt"), QByteArray("sub/../../evil.txt"), absolute,
                                  QByteArray("..\\evil.txt"), QByteArray("C:/evil.txt"), QByteArray("../")}) {
        SCOPED_TRACE(bad.toStdString());
        ui.clear();
        const QString archive = at(QStringLiteral("slip.zip"));
        make_zip(archive, {{"good.txt", "fine"}, {bad, "gotcha"}});
        EXPECT_FALSE(unzip_file(ui, archive, inside));
        expect_error(kUncompressFailed);
        EXPECT_FALSE(QFileInfo::exists(QDir(inside).filePath(QStringLiteral("good.txt"))));
        EXPECT_FALSE(QFileInfo::exists(at(QStringLiteral("a/b/evil.txt"))));
        EXPECT_FALSE(QFileInfo::exists(at(QStringLiteral("abs.txt"))));
    }

    // Points inside names, and steps that stay within the folder, are fine.
    const QString archive = at(QStringLiteral("fine.zip"));
    make_zip(archive, {{"a..b.txt", "1"}, {"./c.txt", "2"}, {"sub/./d.txt", "3"}, {"..e", "4"}});
    ASSERT_TRUE(unzip_archive(archive, inside));
    EXPECT_EQ(tree(inside), (std::vector<std::pair<QString, QByteArray>>{
                                {QStringLiteral("..e"), "4"}, {QStringLiteral("a..b.txt"), "1"},
                                {QStringLiteral("c.txt"), "2"}, {QStringLiteral("sub/d.txt"), "3"}}));
}

TEST_F(ZipTest, LinksInTheFolderDoNotCarryEntriesOutside)
{
    const QString out = at(QStringLiteral("out"));
    const QString elsewhere = at(QStringLiteral("elsewhere"));
    QDir().mkpath(out);
    QDir().mkpath(elsewhere);
    ASSERT_TRUE(QFile::link(elsewhere, QDir(out).filePath(QStringLiteral("link"))));
    const QString archive = at(QStringLiteral("link.zip"));
    make_zip(archive, {{"link/planted.txt", "x"}});
    EXPECT_THROW(unzip_archive(archive, out), FileError);
    EXPECT_TRUE(listing(elsewhere).isEmpty());
}

TEST_F(ZipTest, SubFoldersAndFolderEntriesAreMade)
{
    const QString archive = at(QStringLiteral("tree.zip"));
    make_zip(archive, {{"d1/d2/f.txt", "deep"}, {"empty/", {}}, {"top.txt", "top"}});
    const QString out = at(QStringLiteral("tmpdezip"));
    ASSERT_TRUE(unzip_archive(archive, out));
    EXPECT_EQ(read_bytes(QDir(out).filePath(QStringLiteral("d1/d2/f.txt"))), QByteArray("deep"));
    EXPECT_TRUE(QFileInfo(QDir(out).filePath(QStringLiteral("empty"))).isDir());
    EXPECT_EQ(read_bytes(QDir(out).filePath(QStringLiteral("top.txt"))), QByteArray("top"));

    // Extracting again replaces the files.
    make_zip(archive, {{"top.txt", "again"}});
    ASSERT_TRUE(unzip_archive(archive, out));
    EXPECT_EQ(read_bytes(QDir(out).filePath(QStringLiteral("top.txt"))), QByteArray("again"));
}

TEST_F(ZipTest, ZipFolderRoundTrip)
{
    const QString folder = at(QStringLiteral("rep_res"));
    QDir().mkpath(folder + QStringLiteral("/épreuves/50 NL"));
    write_bytes(QDir(folder).filePath(QStringLiteral("link_nage.htm")), "<html>index</html>");
    write_bytes(QDir(folder).filePath(QStringLiteral("épreuves/50 NL/séries.htm")), "<html>séries</html>");
    write_bytes(QDir(folder).filePath(QStringLiteral(".cache")), random_bytes(70000));
    write_bytes(QDir(folder).filePath(QStringLiteral("vide.txt")), QByteArray());

    // An archive inside the folder it zips leaves itself out.
    const QString archive = QDir(folder).filePath(QStringLiteral("resultats.zip"));
    ASSERT_TRUE(zip_folder(archive, folder));
    ASSERT_TRUE(zip_folder(archive, folder));
    EXPECT_EQ(zip_entries(archive), (QStringList{QStringLiteral(".cache"), QStringLiteral("link_nage.htm"),
                                                 QStringLiteral("vide.txt"),
                                                 QStringLiteral("épreuves/50 NL/séries.htm")}));

    const QString out = at(QStringLiteral("out"));
    ASSERT_TRUE(unzip_archive(archive, out));
    auto expected = tree(folder);
    std::erase_if(expected, [](const auto& f) { return f.first == QStringLiteral("resultats.zip"); });
    EXPECT_EQ(tree(out), expected);
}

TEST_F(ZipTest, ZipFolderOfAnEmptyFolderGivesAnEmptyArchive)
{
    const QString empty = at(QStringLiteral("empty"));
    QDir().mkdir(empty);
    const QString archive = valid_archive(QStringLiteral("empty.zip"), "previous");
    ASSERT_TRUE(zip_folder(archive, empty));
    EXPECT_TRUE(zip_entries(archive).isEmpty());
    EXPECT_TRUE(unzip_archive(archive, at(QStringLiteral("out"))));
    EXPECT_TRUE(QFileInfo(at(QStringLiteral("out"))).isDir());

    EXPECT_THROW(zip_folder(archive, at(QStringLiteral("missing"))), FileError);
}

TEST_F(ZipTest, ZipToolBothWays)
{
    ASSERT_TRUE(write_bytes(at(QStringLiteral("club.mdb")), "base"));
    const QString archive = at(QStringLiteral("club.mdb.sav"));
    EXPECT_TRUE(zip_tool(ui, archive, at(QStringLiteral("club.mdb")), true));
    EXPECT_TRUE(zip_tool(ui, archive, at(QStringLiteral("tempo")), false));
    EXPECT_EQ(read_bytes(at(QStringLiteral("tempo/club.mdb"))), QByteArray("base"));
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(ZipTest, UnpackPackageMakesAFreshFolderAndRemovesItOnFailure)
{
    const QString app_dir = at(QStringLiteral("app"));
    QDir().mkdir(app_dir);
    const QString package = at(QStringLiteral("maj_base.zip"));
    make_zip(package, {{"maj_base.ini", "[Info]\r\nVersion finale=4\r\n"}, {"modele_base.sav", "model"}});

    const QString first = unpack_package(ui, app_dir, QStringLiteral("tmpmajbase"), package);
    EXPECT_EQ(first, QDir(app_dir).filePath(QStringLiteral("tmpmajbase")));
    EXPECT_EQ(read_bytes(QDir(first).filePath(QStringLiteral("modele_base.sav"))), QByteArray("model"));

    const QString second = unpack_package(ui, app_dir, QStringLiteral("tmpmajbase"), package);
    EXPECT_EQ(second, QDir(app_dir).filePath(QStringLiteral("tmpmajbase1")));
    EXPECT_TRUE(ui.messages.empty());

    ASSERT_TRUE(write_bytes(package, random_bytes(4000)));
    EXPECT_EQ(unpack_package(ui, app_dir, QStringLiteral("tmpmajbase"), package), QString());
    expect_error(kUncompressFailed);
    EXPECT_EQ(listing(app_dir), (QStringList{QStringLiteral("tmpmajbase"), QStringLiteral("tmpmajbase1")}));
}

}  // namespace
}  // namespace plouvarine
