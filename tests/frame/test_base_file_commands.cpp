// Deletion, compaction and archiving of real base files.

#include "src/base/zip.h"
#include "src/frame/access.h"
#include "src/frame/base_file_commands.h"
#include "src/store/base_files.h"
#include "src/store/save.h"
#include "support/app_fixture.h"
#include "support/temp_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cmath>

using namespace plouvarine;
using namespace plouvarine::testing;

namespace {

class BaseFilesTest : public AppFixture {
protected:
    void SetUp() override
    {
        AppFixture::SetUp();
        base = make_base();
        connect(base);
        app->db.set_last_close(QStringLiteral("False"));
        app->enable_menus(true);
    }
    void fill(int rows)
    {
        app->db.exec_sql(QStringLiteral("CREATE TABLE IF NOT EXISTS Remplissage (x TEXT)"));
        for (int i = 0; i < rows; ++i)
            app->db.exec_sql(QStringLiteral("INSERT INTO Remplissage VALUES ('%1')").arg(QString(2000, QLatin1Char('a' + i % 26))));
    }
    QString flag() { return value(QStringLiteral("select LastClose from Info")); }
    QString base;
};

}  // namespace

TEST_F(BaseFilesTest, CompactionShrinksTheBaseAndKeepsItsData)
{
    fill(200);
    exec(QStringLiteral("DELETE FROM Remplissage WHERE rowid > 10"));
    create_save(app->base_file());
    const QByteArray save_before = read_bytes(save_path(base));
    close_base(*app);
    const qint64 before = QFileInfo(base).size();
    connect(base);
    // A leftover of an earlier failure is cleared and the compaction goes on.
    ASSERT_TRUE(write_bytes(base + QStringLiteral(".tmp.compact"), "reste"));

    compact_command(*app);
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("Base compactée avec succès.")});
    ASSERT_TRUE(app->db.is_open());
    EXPECT_EQ(count(QStringLiteral("select count(*) from Remplissage")), 10);
    EXPECT_EQ(flag(), QStringLiteral("Vrai"));
    EXPECT_FALSE(QFile::exists(base + QStringLiteral(".tmp.compact")));
    EXPECT_TRUE(ui.status_history.contains(QStringLiteral("Compacter la base")));
    EXPECT_TRUE(ui.status[2].isEmpty());
    close_base(*app);
    // 190 rows of 2000 characters were deleted: their pages are given back.
    EXPECT_LT(QFileInfo(base).size(), before - 350000);
    EXPECT_EQ(read_bytes(save_path(base)), save_before) << "the compaction does not refresh the save";
}

TEST_F(BaseFilesTest, CompactionStopsOnAStuckTemporaryFile)
{
    ASSERT_TRUE(QDir().mkdir(base + QStringLiteral(".tmp.compact")));
    ASSERT_TRUE(write_bytes(base + QStringLiteral(".tmp.compact/occupé"), {}));
    compact_base(*app, base);
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("Impossible de compacter la base.\nLe fichier temporaire (") + base +
                                      QStringLiteral(".tmp.compact) est en cours d'utilisation.")});
    EXPECT_TRUE(app->db.is_open());
}

TEST_F(BaseFilesTest, AFailedCompactionReconnectsTheSameBase)
{
    fill(100);
    close_base(*app);
    // On a full disk: the copy cannot be written.
    EXPECT_EQ(run_with_file_size_limit(32 * 1024, [&] {
                  connect(base);
                  compact_base(*app, base);
                  const QStringList texts = ui.texts();
                  const bool told = texts.size() == 1 && texts[0].startsWith(QStringLiteral("Impossible de compacter la base.\n")) &&
                                    texts[0].endsWith(QStringLiteral("\nLe compactage a échoué."));
                  return told && app->db.is_open() ? 0 : 20;
              }),
              0);
    connect(base);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Remplissage")), 100);
    EXPECT_FALSE(QFile::exists(base + QStringLiteral(".tmp.compact")));
}

TEST_F(BaseFilesTest, ArchiveToAChosenFolder)
{
    fill(50);
    exec(QStringLiteral("INSERT INTO Rcomp_tempo (AutoNum) VALUES (5);"));
    const QString target_dir = work_file(QStringLiteral("archives"));
    ASSERT_TRUE(QDir().mkdir(target_dir));
    ui.folders.push_back(target_dir);
    archive_command(*app);

    const QString archive = QDir(target_dir).filePath(QStringLiteral("club.zip"));
    ASSERT_TRUE(QFile::exists(archive));
    EXPECT_EQ(zip_entries(archive), QStringList{QStringLiteral("club.mdb")});
    ASSERT_EQ(ui.messages.size(), 1u);
    const QString report = ui.messages[0].text;
    const qint64 zip_size = QFileInfo(archive).size();
    // The rate is that of the file zipped: the rows still in the write-ahead
    // log count, though the main file does not hold them yet.
    const QString unpacked = work_file(QStringLiteral("unpacked"));
    ASSERT_TRUE(unzip_archive(archive, unpacked));
    const qint64 zipped = QFileInfo(QDir(unpacked).filePath(QStringLiteral("club.mdb"))).size();
    EXPECT_GT(zipped, QFileInfo(base).size());
    EXPECT_EQ(report, QStringLiteral("Base archivée mémorisée avec succès.\nTaille de l'archive : %1 ko.\nTaux de compression : %2 %.")
                          .arg(int(std::nearbyint(zip_size / 1024.0)))
                          .arg(compression_rate(zipped, zip_size)));
    EXPECT_EQ(ui.folder_prompts, QStringList{QStringLiteral("Répertoire d'archivage :")});
    EXPECT_EQ(flag(), QStringLiteral("Faux"));
    EXPECT_EQ(count(QStringLiteral("select count(*) from Rcomp_tempo")), 0);
    EXPECT_FALSE(QFileInfo::exists(app->tempo_dir()));

    // The archive holds a base at rest.
    Database copy;
    copy.open(QDir(unpacked).filePath(QStringLiteral("club.mdb")));
    EXPECT_EQ(copy.load_rows(QStringLiteral("select LastClose from Info")).first(), QStringLiteral("Vrai"));
    EXPECT_EQ(copy.count_query(QStringLiteral("select count(*) from Remplissage")), 50);
    copy.close();
}

TEST_F(BaseFilesTest, ArchiveOverAnExistingOneAnsweredNo)
{
    const QString target_dir = work_file(QStringLiteral("archives"));
    ASSERT_TRUE(QDir().mkdir(target_dir));
    const QString existing = QDir(target_dir).filePath(QStringLiteral("club.zip"));
    ASSERT_TRUE(write_bytes(existing, "ancienne archive"));
    ui.folders.push_back(target_dir);
    archive_command(*app);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, existing + QStringLiteral("\nRemplacer cette archive déjà existante ?"));
    EXPECT_EQ(ui.messages[0].default_button, Button::No);
    EXPECT_EQ(QFileInfo(existing).size(), 16);
    EXPECT_FALSE(QFileInfo::exists(app->tempo_dir()));
    EXPECT_EQ(flag(), QStringLiteral("Faux"));

    // Answered Yes, the archive is replaced; a cancelled folder choice does nothing.
    ui.clear();
    ui.folders.push_back(target_dir);
    ui.answers.push_back(Button::Yes);
    archive_command(*app);
    EXPECT_GT(QFileInfo(existing).size(), 16);
    EXPECT_EQ(zip_entries(existing), QStringList{QStringLiteral("club.mdb")});
    ui.clear();
    archive_command(*app);
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_FALSE(QFileInfo::exists(app->tempo_dir()));
}

TEST_F(BaseFilesTest, ArchiveNamesAndRates)
{
    EXPECT_EQ(archive_name(QStringLiteral("/d/club.mdb")), QStringLiteral("club.zip"));
    EXPECT_EQ(archive_name(QStringLiteral("/d/base_sans")), QStringLiteral("base_.zip"));
    EXPECT_EQ(compression_rate(1000000, 250000), 75);
    EXPECT_EQ(compression_rate(1000, 875), 12);   // 12.5 rounds to even
    EXPECT_EQ(compression_rate(1000, 865), 14);   // 13.5 rounds to even
    // Beyond 32-bit products: a large base still reports its rate.
    EXPECT_EQ(compression_rate(50'000'000, 10'000'000), 80);
}

TEST_F(BaseFilesTest, DeletingABaseFile)
{
    const QString other = make_base(QStringLiteral("autre.mdb"));
    ASSERT_TRUE(write_bytes(save_path(other), {}));

    // The open base is refused even before any question.
    ui.files.push_back(base);
    delete_base_command(*app);
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("Impossible de supprimer cette base.\nBase actuellement ouverte.")});
    EXPECT_TRUE(QFile::exists(base));

    ui.clear();
    ui.files.push_back(other);
    delete_base_command(*app);  // default No
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("Supprimer la base : autre.mdb")});
    EXPECT_TRUE(QFile::exists(other));
    EXPECT_TRUE(ui.status[2].isEmpty());

    ui.clear();
    ui.files.push_back(other);
    ui.answers.push_back(Button::Yes);
    delete_base_command(*app);
    EXPECT_FALSE(QFile::exists(other));
    EXPECT_EQ(ui.status[2], QStringLiteral("Suppression enregistrée"));
    EXPECT_TRUE(QFile::exists(save_path(other))) << "the save file beside it stays";
    EXPECT_EQ(ui.file_requests.back().title, QStringLiteral("Supprimer une Base"));

    // A base held by another process stays, whatever the answer.
    const QString held = make_base(QStringLiteral("tenue.mdb"));
    BaseHeldElsewhere holder(held);
    ui.clear();
    ui.files.push_back(held);
    ui.answers.push_back(Button::Yes);
    delete_base_command(*app);
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("Impossible de supprimer cette base.\nUne connexion est active sur la base.")});
    EXPECT_TRUE(QFile::exists(held));
}
