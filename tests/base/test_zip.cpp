// Zip archives through libzip: round trips, replacement, damaged archives,
// full disks, and entries that try to leave their folder.

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

using namespace Qt::Literals::StringLiterals;

namespace plouvarine {
namespace {

using testing::random_bytes;
using testing::read_bytes;
using testing::ScriptedServices;
using testing::write_bytes;
using Tree = std::vector<std::pair<QString, QByteArray>>;

const QString kCompressFailed = u"Une erreur s'est produite lors de la compression."_s;
const QString kUncompressFailed = u"Une erreur s'est produite lors de la décompression."_s;

struct Entry {
    QByteArray name;  // as stored; a name ending with "/" is a folder
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
    Tree tree(const QString& folder) const
    {
        Tree files;
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
        ASSERT_EQ(ui.messages.size(), 1u) << ui.texts().join(u" | "_s).toStdString();
        EXPECT_EQ(ui.messages[0].title, u"Erreur"_s);
        EXPECT_TRUE(ui.messages[0].text.startsWith(u"Erreur n° "_s)) << ui.messages[0].text.toStdString();
        EXPECT_TRUE(ui.messages[0].text.endsWith(u'\n' + text)) << ui.messages[0].text.toStdString();
    }
    // A missing file is error 53, its path in the description.
    template <typename Call>
    void expect_missing(Call call, const QString& missing)
    {
        try {
            call();
            FAIL() << "no error for " << missing.toStdString();
        } catch (const FileError& e) {
            EXPECT_EQ(e.number(), 53);
            EXPECT_TRUE(e.description().contains(missing)) << e.description().toStdString();
        }
    }
    QString valid_archive(const QString& name, const QByteArray& content)
    {
        const QString source = at(u"payload.bin"_s);
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
    for (int b = 0; b < 64 * 256; ++b)
        content.append(char(b));
    content += QByteArray(4096, '\0') + QByteArray("\r\n\x1a end") + random_bytes(5 * 1024 * 1024) +
               QByteArray(512 * 1024, 'a');
    const QString source = at(u"club.mdb"_s);
    ASSERT_TRUE(write_bytes(source, content));

    const QString archive = at(u"club.mdb.sav"_s);
    ASSERT_TRUE(zip_file(archive, source));
    EXPECT_EQ(zip_entries(archive), QStringList{u"club.mdb"_s});
    EXPECT_LT(QFileInfo(archive).size(), content.size());  // deflated, not stored

    const QString out = at(u"out/deeper"_s);
    ASSERT_TRUE(unzip_archive(archive, out));
    const QString back = QDir(out).filePath(u"club.mdb"_s);
    EXPECT_EQ(read_bytes(back), content);
    // Zip dates have a two-second step.
    EXPECT_LE(std::abs(QFileInfo(back).lastModified().secsTo(QFileInfo(source).lastModified())), 2);

    // The tool both ways, with no message.
    EXPECT_TRUE(zip_tool(ui, archive, source, true));
    EXPECT_TRUE(zip_tool(ui, archive, at(u"tempo"_s), false));
    EXPECT_EQ(read_bytes(at(u"tempo/club.mdb"_s)), content);
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(ZipTest, NamesWithAccentsAndGivenNamesAndAnArchiveReplacedWhole)
{
    const QString name = u"Hélène Noël — Çà.txt"_s;
    const QString source = at(name);
    ASSERT_TRUE(write_bytes(source, "accents"));
    const QString archive = at(u"accents.zip"_s);
    ASSERT_TRUE(zip_file(archive, source));
    EXPECT_EQ(zip_entries(archive), QStringList{name});

    // Stored as UTF-8, so that other tools read the same name.
    int code = 0;
    zip_t* z = zip_open(QFile::encodeName(archive).constData(), ZIP_RDONLY, &code);
    ASSERT_NE(z, nullptr);
    EXPECT_EQ(QByteArray(zip_get_name(z, 0, ZIP_FL_ENC_RAW)), name.toUtf8());
    zip_discard(z);

    const QString out = at(u"dézippé"_s);
    ASSERT_TRUE(unzip_archive(archive, out));
    EXPECT_EQ(read_bytes(QDir(out).filePath(name)), QByteArray("accents"));

    // A snapshot file zipped under the base's own name, over the archive
    // there, leaving nothing beside it.
    ASSERT_TRUE(zip_file(archive, source, u"club.mdb"_s));
    EXPECT_EQ(zip_entries(archive), QStringList{u"club.mdb"_s});
    EXPECT_EQ(listing(dir.path()), QStringList({u"Hélène Noël — Çà.txt"_s, u"accents.zip"_s, u"dézippé"_s}));
    // Whatever lay under the archive's name is replaced too.
    ASSERT_TRUE(write_bytes(archive, random_bytes(3000)));
    ASSERT_TRUE(zip_file(archive, source));
    EXPECT_EQ(zip_entries(archive), QStringList{name});
}

TEST_F(ZipTest, AMissingSourceOrAnUnwritableFolderIsReportedAndKeepsTheOldArchive)
{
    const QString archive = valid_archive(u"club.mdb.sav"_s, "saved state");
    const QByteArray before = read_bytes(archive);
    const QString missing = at(u"club.mdb"_s);
    expect_missing([&] { zip_file(archive, missing); }, missing);
    EXPECT_EQ(read_bytes(archive), before);
    EXPECT_FALSE(zip_tool(ui, archive, missing, true));
    expect_error(kCompressFailed);
    EXPECT_EQ(read_bytes(archive), before);

    ui.clear();
    ASSERT_TRUE(write_bytes(missing, "base"));
    const QString locked = QDir(testing::unwritable_folder(dir.path())).filePath(u"club.zip"_s);
    EXPECT_THROW(zip_file(locked, missing), FileError);
    EXPECT_FALSE(QFileInfo::exists(locked));
    EXPECT_FALSE(zip_tool(ui, locked, missing, true));
    expect_error(kCompressFailed);
    EXPECT_TRUE(ui.messages[0].text.contains(locked));
}

TEST_F(ZipTest, FullDiskKeepsTheOldArchiveIntact)
{
    const QString archive = valid_archive(u"club.mdb.sav"_s, "the last good save");
    const QByteArray before = read_bytes(archive);
    const QString source = at(u"club.mdb"_s);
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
    EXPECT_EQ(listing(dir.path()), QStringList({"club.mdb", "club.mdb.sav"}));
}

TEST_F(ZipTest, DamagedAndMissingArchivesAreReported)
{
    const QString missing = at(u"absent.zip"_s);
    expect_missing([&] { unzip_archive(missing, at(u"out"_s)); }, missing);

    const QString random = at(u"random.zip"_s);
    ASSERT_TRUE(write_bytes(random, random_bytes(10000)));
    const QString truncated = valid_archive(u"truncated.zip"_s, random_bytes(50000));
    const QByteArray whole = read_bytes(truncated);
    ASSERT_TRUE(write_bytes(truncated, whole.left(whole.size() / 2)));
    // The directory is intact but the data are not: seen when reading the entry.
    const QString damaged = valid_archive(u"damaged.zip"_s, random_bytes(200000, 7));
    QByteArray bytes = read_bytes(damaged);
    for (int i = 100000; i < 100016; ++i)
        bytes[i] = char(~bytes[i]);
    ASSERT_TRUE(write_bytes(damaged, bytes));

    for (const QString& archive : {random, truncated, damaged, missing}) {
        SCOPED_TRACE(archive.toStdString());
        ui.clear();
        const QString out = at(u"out"_s);
        EXPECT_FALSE(unzip_file(ui, archive, out));
        expect_error(kUncompressFailed);
        EXPECT_TRUE(ui.messages[0].text.contains(archive));
        EXPECT_TRUE(listing(out).isEmpty());  // no half-written file
        EXPECT_THROW(unzip_archive(archive, out), FileError);
        QDir(out).removeRecursively();
    }
}

TEST_F(ZipTest, EntriesLeavingTheFolderAreRefusedBeforeAnythingIsWrittenAndTheOthersMade)
{
    const QString inside = at(u"a/b/out"_s);
    QDir().mkpath(QFileInfo(inside).absolutePath());
    const QByteArray absolute = QDir(dir.path()).filePath(u"abs.txt"_s).toUtf8();
    for (const QByteArray& bad : {QByteArray("../evil.txt"), QByteArray("sub/../../evil.txt"), absolute,
                                  QByteArray("..\\evil.txt"), QByteArray("C:/evil.txt"), QByteArray("../")}) {
        SCOPED_TRACE(bad.toStdString());
        ui.clear();
        const QString archive = at(u"slip.zip"_s);
        make_zip(archive, {{"good.txt", "fine"}, {bad, "gotcha"}});
        EXPECT_FALSE(unzip_file(ui, archive, inside));
        expect_error(kUncompressFailed);
        EXPECT_FALSE(QFileInfo::exists(QDir(inside).filePath(u"good.txt"_s)));
        EXPECT_FALSE(QFileInfo::exists(at(u"a/b/evil.txt"_s)));
        EXPECT_FALSE(QFileInfo::exists(at(u"abs.txt"_s)));
    }

    // Points inside names, and steps that stay within the folder, are fine;
    // sub-folders and folder entries are made; extracting again replaces.
    const QString archive = at(u"fine.zip"_s);
    make_zip(archive, {{"a..b.txt", "1"}, {"./c.txt", "2"}, {"sub/./d.txt", "3"}, {"..e", "4"}, {"d1/d2/f.txt", "5"},
                       {"empty/", {}}});
    ASSERT_TRUE(unzip_archive(archive, inside));
    EXPECT_EQ(tree(inside), Tree({{u"..e"_s, "4"}, {u"a..b.txt"_s, "1"}, {u"c.txt"_s, "2"}, {u"d1/d2/f.txt"_s, "5"},
                                  {u"sub/d.txt"_s, "3"}}));
    EXPECT_TRUE(QFileInfo(QDir(inside).filePath(u"empty"_s)).isDir());
    make_zip(archive, {{"c.txt", "again"}});
    ASSERT_TRUE(unzip_archive(archive, inside));
    EXPECT_EQ(read_bytes(QDir(inside).filePath(u"c.txt"_s)), QByteArray("again"));

    // A link in the folder does not carry an entry outside.
    const QString elsewhere = at(u"elsewhere"_s);
    QDir().mkpath(elsewhere);
    ASSERT_TRUE(QFile::link(elsewhere, QDir(inside).filePath(u"link"_s)));
    make_zip(archive, {{"link/planted.txt", "x"}});
    EXPECT_THROW(unzip_archive(archive, inside), FileError);
    EXPECT_TRUE(listing(elsewhere).isEmpty());
}

TEST_F(ZipTest, ZipFolderRoundTripAndEmptyFolder)
{
    const QString folder = at(u"rep_res"_s);
    QDir().mkpath(folder + u"/épreuves/50 NL"_s);
    write_bytes(QDir(folder).filePath(u"link_nage.htm"_s), "<html>index</html>");
    write_bytes(QDir(folder).filePath(u"épreuves/50 NL/séries.htm"_s), "<html>séries</html>");
    write_bytes(QDir(folder).filePath(u".cache"_s), random_bytes(70000));
    write_bytes(QDir(folder).filePath(u"vide.txt"_s), QByteArray());

    // An archive inside the folder it zips leaves itself out.
    const QString archive = QDir(folder).filePath(u"resultats.zip"_s);
    ASSERT_TRUE(zip_folder(archive, folder));
    ASSERT_TRUE(zip_folder(archive, folder));
    EXPECT_EQ(zip_entries(archive),
              QStringList({u".cache"_s, u"link_nage.htm"_s, u"vide.txt"_s, u"épreuves/50 NL/séries.htm"_s}));
    const QString out = at(u"out"_s);
    ASSERT_TRUE(unzip_archive(archive, out));
    auto expected = tree(folder);
    std::erase_if(expected, [](const auto& f) { return f.first == u"resultats.zip"_s; });
    EXPECT_EQ(tree(out), expected);

    const QString empty = at(u"empty"_s);
    QDir().mkdir(empty);
    const QString previous = valid_archive(u"empty.zip"_s, "previous");
    ASSERT_TRUE(zip_folder(previous, empty));
    EXPECT_TRUE(zip_entries(previous).isEmpty());
    EXPECT_TRUE(unzip_archive(previous, at(u"out2"_s)));
    EXPECT_TRUE(QFileInfo(at(u"out2"_s)).isDir());
    EXPECT_THROW(zip_folder(previous, at(u"missing"_s)), FileError);
}

TEST_F(ZipTest, UnpackPackageMakesAFreshFolderAndRemovesItOnFailure)
{
    const QString app_dir = at(u"app"_s);
    QDir().mkdir(app_dir);
    const QString package = at(u"maj_base.zip"_s);
    make_zip(package, {{"maj_base.ini", "[Info]\r\nVersion finale=4\r\n"}, {"modele_base.sav", "model"}});

    const QString first = unpack_package(ui, app_dir, u"tmpmajbase"_s, package);
    EXPECT_EQ(first, QDir(app_dir).filePath(u"tmpmajbase"_s));
    EXPECT_EQ(read_bytes(QDir(first).filePath(u"modele_base.sav"_s)), QByteArray("model"));
    const QString second = unpack_package(ui, app_dir, u"tmpmajbase"_s, package);
    EXPECT_EQ(second, QDir(app_dir).filePath(u"tmpmajbase1"_s));
    EXPECT_TRUE(ui.messages.empty());

    ASSERT_TRUE(write_bytes(package, random_bytes(4000)));
    EXPECT_EQ(unpack_package(ui, app_dir, u"tmpmajbase"_s, package), QString());
    expect_error(kUncompressFailed);
    EXPECT_EQ(listing(app_dir), QStringList({"tmpmajbase", "tmpmajbase1"}));
}

}  // namespace
}  // namespace plouvarine
