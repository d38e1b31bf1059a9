// Save, restore and cancel on real bases and real zip files, and the save
// copy taken from a pinned read while the person works on.

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
#include <sys/resource.h>

using namespace plouvarine;
using plouvarine::testing::AppFixture;
using plouvarine::testing::read_bytes;
using plouvarine::testing::run_with_file_size_limit;
using plouvarine::testing::ScriptedServices;
using plouvarine::testing::write_bytes;

namespace {

class SaveTest : public AppFixture {
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
    QStringList pools() { return pools(app->db); }
    QString flag(Database& db) { return db.load_rows(QStringLiteral("select LastClose from Info")).first(); }
    QString flag() { return flag(app->db); }

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

    // The pool names held in the save file, and its LastClose.
    QStringList pools_in_save(QString* flag_in_save = nullptr)
    {
        auto held = open_save();
        if (flag_in_save)
            *flag_in_save = flag(*held);
        return pools(*held);
    }

    QString base;
};

}  // namespace

TEST_F(SaveTest, TheSaveHoldsTheBaseAtRestUnderItsOwnName)
{
    add_pool(QStringLiteral("Bassin du matin"));
    create_save(app->base_file());
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(flag(), QStringLiteral("Faux"));
    EXPECT_EQ(zip_entries(save_path(base)), QStringList{QStringLiteral("club.mdb")});
    QString saved_flag;
    EXPECT_EQ(pools_in_save(&saved_flag), QStringList{QStringLiteral("Bassin du matin")});
    EXPECT_EQ(saved_flag, QStringLiteral("Vrai"));
    EXPECT_EQ(ui.max_wait_depth, 1);
    EXPECT_EQ(ui.wait_depth, 0);
    // The snapshot it was made from is gone.
    EXPECT_EQ(QDir(work_dir()).entryList({QStringLiteral("*.snapshot")}, QDir::Files).size(), 0);
}

TEST_F(SaveTest, CancelTwiceGivesTheLastSaveBothTimes)
{
    add_pool(QStringLiteral("Gardé"));
    create_save(app->base_file());
    add_pool(QStringLiteral("Perdu 1"));
    ASSERT_TRUE(cancel_operations(*app));
    EXPECT_EQ(pools(), QStringList{QStringLiteral("Gardé")});
    EXPECT_EQ(flag(), QStringLiteral("Vrai"));  // nothing writes false on this path
    add_pool(QStringLiteral("Perdu 2"));
    ASSERT_TRUE(cancel_operations(*app));
    EXPECT_EQ(pools(), QStringList{QStringLiteral("Gardé")});
    EXPECT_TRUE(QFile::exists(save_path(base)));
    EXPECT_FALSE(QFileInfo::exists(app->tempo_dir()));
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_TRUE(ui.status_history.contains(QStringLiteral("Restauration de la sauvegarde")));
    EXPECT_TRUE(ui.status[2].isEmpty());
}

TEST_F(SaveTest, WorkTablesAreEmptiedInOrder)
{
    app->db.exec_sql(QStringLiteral("INSERT INTO Licence_tempo (Num, Nom) VALUES (4, 'A');"));
    app->db.exec_sql(QStringLiteral("INSERT INTO Engag_tempo (Num_compet, Code_epreuve, Num_Lic) VALUES (1, 2, 3);"));
    clear_tempo_tables(app->db);
    for (const char* t : {"Licence_tempo", "Pcomp_tempo", "Rcomp_tempo", "Relais_tempo", "Engag_tempo"})
        EXPECT_EQ(app->db.count_query(QStringLiteral("select count(*) from %1").arg(QLatin1String(t))), 0) << t;
}

TEST_F(SaveTest, CancelWithoutSaveFileClosesTheBase)
{
    QFile::remove(save_path(base));
    EXPECT_FALSE(cancel_operations(*app));
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("Sauvegarde de la base non trouvée.")});
    EXPECT_FALSE(app->db.is_open());
    EXPECT_FALSE(app->menus_base_open());
    EXPECT_EQ(app->state.base_path, base);
}

TEST_F(SaveTest, ACorruptSaveLeavesTheBaseUntouched)
{
    add_pool(QStringLiteral("Intact"));
    close_base(*app);
    ASSERT_TRUE(write_bytes(save_path(base), "PK\x03\x04 ceci n'est plus une archive"));
    EXPECT_FALSE(restore_save(app->base_file()));
    const QStringList texts = ui.texts();
    ASSERT_EQ(texts.size(), 2);
    EXPECT_TRUE(texts[0].endsWith(QStringLiteral("Une erreur s'est produite lors de la décompression.")));
    EXPECT_EQ(texts[1], QStringLiteral("La restauration de la sauvegarde a échoué.\n"
                                       "Les opérations n'ont pas été annulées.\n"
                                       "Vérifier l'espace sur le disque dur, les droits d'accès."));
    connect(base);
    EXPECT_EQ(pools(), QStringList{QStringLiteral("Intact")});
}

TEST_F(SaveTest, ASaveHoldingAnythingButABaseNeverReplacesTheBase)
{
    add_pool(QStringLiteral("Intact"));
    close_base(*app);
    const QByteArray before = read_bytes(base);
    const QString other = work_file(QStringLiteral("autre"));
    QDir().mkdir(other);
    for (const QByteArray& content : {QByteArray("ceci n'est pas une base"), QByteArray()}) {
        const QString file = QDir(other).filePath(QStringLiteral("club.mdb"));
        ASSERT_TRUE(write_bytes(file, content));
        ASSERT_TRUE(zip_file(save_path(base), file));
        ui.messages.clear();
        EXPECT_FALSE(restore_save(app->base_file()));
        ASSERT_EQ(ui.messages.size(), 1u);
        EXPECT_TRUE(ui.messages[0].text.endsWith(QStringLiteral("Les opérations n'ont pas été annulées.\n"
                                                                "Vérifier l'espace sur le disque dur, les droits d'accès.")));
        EXPECT_EQ(read_bytes(base), before);
        EXPECT_TRUE(QFile::exists(save_path(base)));
    }
}

TEST_F(SaveTest, LeftoversInTheWorkFolderNeverStopARestore)
{
    add_pool(QStringLiteral("Gardé"));
    create_save(app->base_file());
    add_pool(QStringLiteral("Perdu"));
    // What a killed archive leaves: a snapshot, a temporary zip, a read-only file, a folder.
    const QDir tempo(app->tempo_dir());
    QDir().mkpath(tempo.filePath(QStringLiteral("sous-dossier")));
    for (const char* name : {"club.zip.snapshot", "club.zip.Ab12Cd", "sous-dossier/x", "verrouillé"})
        ASSERT_TRUE(write_bytes(tempo.filePath(QString::fromUtf8(name)), "reste"));
    QFile::setPermissions(tempo.filePath(QStringLiteral("verrouillé")), QFileDevice::ReadOwner);
    ASSERT_TRUE(cancel_operations(*app));
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(pools(), QStringList{QStringLiteral("Gardé")});
    EXPECT_FALSE(QFileInfo::exists(app->tempo_dir()));
}

TEST_F(SaveTest, AReadOnlyBaseCannotBeReplaced)
{
    create_save(app->base_file());
    close_base(*app);
    QFile::setPermissions(base, QFileDevice::ReadOwner | QFileDevice::ReadGroup);
    EXPECT_FALSE(restore_save(app->base_file()));
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_TRUE(ui.messages[0].text.endsWith(QStringLiteral("Erreur lors de la restauration de la sauvegarde.\n"
                                                            "Impossible de supprimer la base ") + base + QStringLiteral("\n")));
    // The save remains.
    EXPECT_TRUE(QFile::exists(save_path(base)));
    QFile::setPermissions(base, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

TEST_F(SaveTest, RestoreNeverAppliesAStaleJournal)
{
    add_pool(QStringLiteral("Sauvé"));
    create_save(app->base_file());
    add_pool(QStringLiteral("Après"));
    // A journal left beside the base (as a crash leaves it) must not survive the restore.
    const QString wal = base + QStringLiteral("-wal");
    app->db.close();
    ASSERT_TRUE(write_bytes(wal, QByteArray(4096, 'x')));
    ASSERT_TRUE(restore_save(app->base_file()));
    EXPECT_FALSE(QFile::exists(wal));
    connect(base);
    EXPECT_EQ(pools(), QStringList{QStringLiteral("Sauvé")});
}

TEST_F(SaveTest, AFullDiskKeepsTheOldSaveAndLeavesTheBaseInUse)
{
    add_pool(QStringLiteral("Première"));
    create_save(app->base_file());
    const QByteArray good = read_bytes(save_path(base));
    // Enough rows that a copy of the base no longer fits under the limit.
    app->db.exec_sql(QStringLiteral("CREATE TABLE Remplissage (x TEXT)"));
    for (int i = 0; i < 40; ++i)
        app->db.exec_sql(QStringLiteral("INSERT INTO Remplissage VALUES (hex(randomblob(4000)))"));
    app->db.close();

    // On the person's thread; then on the writer's worker, the disk filling
    // after the base was pinned.
    for (const bool in_background : {false, true}) {
        const int code = run_with_file_size_limit(in_background ? 1 << 30 : 64 * 1024, [&] {
            ScriptedServices child_ui;
            AppContext child_app(child_ui, app->app_dir());
            child_app.state.base_path = base;
            if (!connect_base(child_app))
                return 10;
            if (in_background) {
                const QString snapshot = save_path(base) + QStringLiteral(".snapshot");
                PinnedRead pinned(child_app.db);
                const rlimit full{64 * 1024, 1 << 30};
                setrlimit(RLIMIT_FSIZE, &full);
                bool done_saved = true;
                child_app.saves.start(std::move(pinned), snapshot, save_path(base), file_name(base),
                                      [&](bool saved) { done_saved = saved; });
                if (child_app.saves.wait() || done_saved)
                    return 40;
                return child_ui.titled(QStringLiteral("Erreur")).empty() ? 20 : 0;
            }
            create_save(child_app.base_file());
            const QString f = child_app.db.load_rows(QStringLiteral("select LastClose from Info")).first();
            const bool reported = !child_ui.titled(QStringLiteral("Erreur")).empty();
            child_app.db.close();
            return f == QLatin1String("Faux") && reported ? 0 : 20;
        });
        EXPECT_EQ(code, 0) << "the failed save must be reported and leave the flag false";
        EXPECT_EQ(read_bytes(save_path(base)), good);
        EXPECT_TRUE(QDir(QFileInfo(base).path()).entryList({QStringLiteral("*.snapshot")}).isEmpty());
    }
    connect(base);
    EXPECT_EQ(pools_in_save(), QStringList{QStringLiteral("Première")});
}

// The engine's part, step by step on one thread: commits made after the pin,
// enough of them for the log to be checkpointed, never reach the copy.
TEST_F(SaveTest, ACopyOfAPinnedReadHoldsTheBaseAsPinned)
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

TEST_F(SaveTest, TheSaveHoldsTheStateAtSaveWhateverIsWrittenRightAfter)
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
TEST_F(SaveTest, ACopyThatFailsOnTheWorkerLeavesTheOldSaveWhole)
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
TEST_F(SaveTest, ClosingOrRestoringWhileTheSaveIsWrittenWaitsForIt)
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
