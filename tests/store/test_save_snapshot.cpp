// The save copy taken from a pinned read of the base: what it holds when the
// base is written right after Save, a copy that fails on the worker, and the
// base closed or restored while the copy is still being written.

#include "src/base/errors.h"
#include "src/base/files.h"
#include "src/base/zip.h"
#include "src/frame/access.h"
#include "src/store/database.h"
#include "src/store/pinned_read.h"
#include "src/store/save.h"
#include "support/app_fixture.h"
#include "support/temp_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <memory>
#include <optional>

using namespace plouvarine;
using plouvarine::testing::AppFixture;
using plouvarine::testing::read_bytes;

namespace {

class SaveSnapshotTest : public AppFixture {
protected:
    void SetUp() override
    {
        AppFixture::SetUp();
        base = make_base();
        connect(base);
        app->db.set_last_close(QStringLiteral("False"));
    }

    void add_pool(const QString& name)
    {
        app->db.exec_sql(QStringLiteral("INSERT INTO Piscine (Nom) VALUES ('%1');").arg(name));
    }
    QStringList pools(Database& db) { return db.load_rows(QStringLiteral("select Nom from Piscine order by Nom")).column(0); }
    QString flag(Database& db) { return db.load_rows(QStringLiteral("select LastClose from Info")).first(); }

    // Some megabytes, so that the worker is still copying when the test goes on.
    void grow_base()
    {
        app->db.exec_sql(QStringLiteral("CREATE TABLE Remplissage (x TEXT)"));
        app->db.exec_sql(QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1500) "
                                        "INSERT INTO Remplissage SELECT hex(randomblob(2000)) FROM n"));
    }

    // Enregistrer's save; `saved` receives the outcome when it is reported.
    bool start(std::optional<bool>& saved)
    {
        return start_save(app->base_file(), app->saves, [&saved](bool ok) { saved = ok; });
    }

    // The base held in the save file, opened apart from the application.
    std::unique_ptr<Database> open_save()
    {
        const QString out = work_file(QStringLiteral("inspect"));
        QDir(out).removeRecursively();
        EXPECT_TRUE(unzip_archive(save_path(base), out));
        auto held = std::make_unique<Database>();
        held->open(QDir(out).filePath(QStringLiteral("club.mdb")));
        return held;
    }

    // What lies beside the base, the lock file left out.
    QStringList beside_base() const
    {
        QStringList names = QDir(work_dir()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
        names.removeAll(file_name(Database::lock_path(base)));
        return names;
    }

    QString base;
};

}  // namespace

// The engine's part, step by step on one thread: commits made after the pin,
// enough of them for the log to be checkpointed, never reach the copy.
TEST_F(SaveSnapshotTest, ACopyOfAPinnedReadHoldsTheBaseAsPinned)
{
    add_pool(QStringLiteral("Avant"));
    app->db.set_last_close(QStringLiteral("True"));
    PinnedRead pinned(app->db);
    ASSERT_TRUE(pinned.is_pinned());
    app->db.set_last_close(QStringLiteral("False"));
    add_pool(QStringLiteral("Après"));
    grow_base();
    app->db.exec_sql(QStringLiteral("PRAGMA wal_checkpoint(PASSIVE)"));

    const QString copy = work_file(QStringLiteral("copie.mdb"));
    pinned.snapshot_to(copy);
    EXPECT_FALSE(pinned.is_pinned());
    EXPECT_EQ(Database::check_base_file(copy), QString());
    EXPECT_FALSE(QFileInfo::exists(copy + QStringLiteral("-wal")));  // a file at rest
    Database held;
    held.open(copy);
    EXPECT_EQ(pools(held), QStringList{QStringLiteral("Avant")});
    EXPECT_EQ(flag(held), QStringLiteral("Vrai"));
    EXPECT_EQ(held.count_query(QStringLiteral("select count(*) from sqlite_master where name = 'Remplissage'")), 0);
    held.close();

    // The base went on as written, and with the pin released its last close
    // folds the log back and leaves nothing beside it.
    EXPECT_EQ(pools(app->db), (QStringList{QStringLiteral("Après"), QStringLiteral("Avant")}));
    EXPECT_EQ(flag(app->db), QStringLiteral("Faux"));
    app->db.close();
    EXPECT_EQ(beside_base(), (QStringList{QStringLiteral("club.mdb"), QStringLiteral("copie.mdb")}));

    EXPECT_THROW(PinnedRead{app->db}, DbError);  // no base open, nothing to pin
}

TEST_F(SaveSnapshotTest, TheSaveHoldsTheStateAtSaveWhateverIsWrittenRightAfter)
{
    grow_base();
    add_pool(QStringLiteral("Avant"));
    std::optional<bool> saved;
    ASSERT_TRUE(start(saved));
    // The command has given the window back: the person works on at once.
    EXPECT_EQ(flag(app->db), QStringLiteral("Faux"));
    for (int i = 0; i < 20; ++i)
        add_pool(QStringLiteral("Après %1").arg(i));
    app->db.exec_sql(QStringLiteral("DELETE FROM Remplissage"));

    ASSERT_TRUE(app->saves.wait());
    EXPECT_EQ(saved, std::optional<bool>(true));
    EXPECT_TRUE(ui.messages.empty());
    auto held = open_save();
    EXPECT_EQ(pools(*held), QStringList{QStringLiteral("Avant")});
    EXPECT_EQ(flag(*held), QStringLiteral("Vrai"));
    EXPECT_EQ(held->count_query(QStringLiteral("select count(*) from Remplissage")), 1500);
    EXPECT_EQ(pools(app->db).size(), 21);
    EXPECT_EQ(flag(app->db), QStringLiteral("Faux"));
}

// The snapshot cannot be written (its name is taken by a folder): the failure
// is shown as any failed save, the old save stays whole and the pin is
// released all the same.
TEST_F(SaveSnapshotTest, ACopyThatFailsOnTheWorkerLeavesTheOldSaveWhole)
{
    add_pool(QStringLiteral("Première"));
    create_save(app->base_file());
    const QByteArray good = read_bytes(save_path(base));
    ASSERT_FALSE(good.isEmpty());
    add_pool(QStringLiteral("Seconde"));
    const QString blocked = save_path(base) + QStringLiteral(".snapshot");
    ASSERT_TRUE(QDir().mkpath(blocked + QStringLiteral("/dedans")));

    std::optional<bool> saved;
    ASSERT_TRUE(start(saved));  // the pin was taken: the failure comes from the worker
    EXPECT_FALSE(app->saves.wait());
    EXPECT_EQ(saved, std::optional<bool>(false));
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_TRUE(ui.messages[0].text.endsWith(QStringLiteral("Une erreur s'est produite lors de la compression.")));
    EXPECT_EQ(read_bytes(save_path(base)), good);
    EXPECT_EQ(flag(app->db), QStringLiteral("Faux"));

    QDir(blocked).removeRecursively();
    close_base(*app);
    EXPECT_EQ(beside_base(), (QStringList{QStringLiteral("club.mdb"), QStringLiteral("club.mdb.sav")}));
    auto held = open_save();
    EXPECT_EQ(pools(*held), QStringList{QStringLiteral("Première")});
}

// Closing the base, handing it to a component, or cancelling while the copy is
// written: each waits for the save, which is whole and reported, and leaves
// neither the pin nor the log behind.
TEST_F(SaveSnapshotTest, ClosingOrRestoringWhileTheSaveIsWrittenWaitsForIt)
{
    grow_base();
    for (void (*close)(AppContext&) : {close_base, disconnect_base}) {
        add_pool(QStringLiteral("Fermée"));
        std::optional<bool> saved;
        ASSERT_TRUE(start(saved));
        close(*app);
        EXPECT_EQ(saved, std::optional<bool>(true));
        EXPECT_FALSE(app->saves.pending());
        EXPECT_EQ(beside_base(), (QStringList{QStringLiteral("club.mdb"), QStringLiteral("club.mdb.sav")}));
        EXPECT_EQ(pools(*open_save()), QStringList{QStringLiteral("Fermée")});
        connect(base);
        app->db.exec_sql(QStringLiteral("DELETE FROM Piscine"));
    }

    add_pool(QStringLiteral("Sauvée"));
    std::optional<bool> saved;
    ASSERT_TRUE(start(saved));
    add_pool(QStringLiteral("Annulée"));
    ASSERT_TRUE(cancel_operations(*app));
    EXPECT_EQ(saved, std::optional<bool>(true));
    EXPECT_EQ(pools(app->db), QStringList{QStringLiteral("Sauvée")});
    EXPECT_EQ(flag(app->db), QStringLiteral("Vrai"));
    EXPECT_TRUE(ui.messages.empty());
}
