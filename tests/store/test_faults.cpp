// Save, Cancel, Fermer, Compact, Archive and crash recovery under a full disk,
// a kill at any moment and a second process: the base stays whole and private.

#include "src/base/files.h"
#include "src/base/zip.h"
#include "src/frame/access.h"
#include "src/frame/base_commands.h"
#include "src/frame/base_file_commands.h"
#include "src/store/database.h"
#include "src/store/save.h"
#include "support/app_fixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <chrono>
#include <csignal>
#include <random>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace plouvarine;
using namespace Qt::Literals::StringLiterals;
using plouvarine::testing::AppFixture;
using plouvarine::testing::ScriptedServices;

namespace {

enum class Op { Save, Close, Cancel, Compact, Archive, Recovery };

struct Case {
    const char* name;
    Op op;
};

const Case kCases[] = {{"Enregistrer", Op::Save},   {"Fermer", Op::Close},    {"Annuler", Op::Cancel},
                       {"Compacter", Op::Compact}, {"Archiver", Op::Archive}, {"Reprise", Op::Recovery}};

constexpr int kBaseMode = 0640;  // a mode the person chose, kept through every operation

class FaultTest : public AppFixture {
protected:
    void SetUp() override
    {
        AppFixture::SetUp();
        base = make_base();
        QFile::setPermissions(base, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadGroup);
        connect(base);
        app->db.exec_sql(QStringLiteral("CREATE TABLE Remplissage (x TEXT)"));
        for (int i = 0; i < 60; ++i)
            app->db.exec_sql(QStringLiteral("INSERT INTO Remplissage VALUES (hex(randomblob(4000)))"));
        app->db.exec_sql(QStringLiteral("INSERT INTO Piscine (Nom) VALUES ('Sauvée')"));
        create_save(app->base_file());
        close_base(*app);
        archives = work_file(QStringLiteral("archives"));
        QDir().mkpath(archives);
    }

    // Runs one operation in this process, on its own context, as the program
    // does after the person's change of one row.
    static void run(Op op, const QString& base, const QString& app_dir, const QString& archives,
                    const std::function<void()>& before)
    {
        ScriptedServices ui;
        AppContext a(ui, app_dir);
        a.state.base_path = base;
        if (!connect_base(a))
            _exit(10);
        a.db.exec_sql(QStringLiteral("INSERT INTO Piscine (Nom) VALUES ('Non sauvée')"));
        if (op == Op::Recovery)
            a.db.set_last_close(QStringLiteral("False"));
        for (int i = 0; i < 4; ++i)
            ui.answers.push_back(Button::Yes);
        ui.folders.push_back(archives);
        before();
        switch (op) {
        case Op::Save: save_command(a); break;
        case Op::Close: close_command(a); break;
        case Op::Cancel: cancel_operations(a); break;
        case Op::Compact: compact_base(a, base); break;
        case Op::Archive: archive_command(a); break;
        case Op::Recovery:
            // The process dies with the flag false; the next opening recovers.
            a.db.close();
            if (connect_base(a))
                check_crash(a);
            break;
        }
        a.db.close();
    }

    // The base is whole and holds the saved row; the save, when there, holds a
    // whole base; no other account can read a file of the folder.
    void expect_sound(const std::string& what)
    {
        SCOPED_TRACE(what);
        EXPECT_EQ(Database::check_base_file(base).toStdString(), "");
        const QString sav = save_path(base);
        if (QFileInfo::exists(sav)) {
            const QString out = work_file(QStringLiteral("inspect"));
            QDir(out).removeRecursively();
            EXPECT_TRUE(unzip_archive(sav, out));
            EXPECT_EQ(Database::check_base_file(QDir(out).filePath(QStringLiteral("club.mdb"))).toStdString(), "");
            QDir(out).removeRecursively();
        }
        connect(base);  // takes the lock and clears what a dead run left
        EXPECT_EQ(app->db.count_query(QStringLiteral("select count(*) from Piscine where Nom = 'Sauvée'")), 1);
        for (const QFileInfo& f : QDir(work_dir()).entryInfoList(QDir::Files | QDir::Hidden)) {
            const QString name = f.fileName();
            EXPECT_TRUE(name == "club.mdb"_L1 || name == "club.mdb.sav"_L1 || name == "club.ldb"_L1 ||
                        name.startsWith("club.mdb-"_L1))
                << "left over: " << name.toStdString();
            const bool base_file = name.startsWith("club.mdb"_L1) && !name.endsWith(".sav"_L1);
            EXPECT_EQ(file_mode(f.filePath()), base_file ? kBaseMode : 0600) << name.toStdString();
        }
        for (const QFileInfo& f : QDir(archives).entryInfoList(QDir::Files))
            EXPECT_EQ(file_mode(f.filePath()), 0600) << f.fileName().toStdString();
        EXPECT_FALSE(QFileInfo::exists(app->tempo_dir()));
        close_base(*app);
    }

    QString base;
    QString archives;
};

}  // namespace

TEST_F(FaultTest, AFullDiskAtAnyLevelLosesNothingSaved)
{
    const qint64 size = QFileInfo(base).size();
    for (const Case& c : kCases) {
        for (const qint64 limit : {qint64(16 * 1024), size / 3, size - 4096, size + 64 * 1024}) {
            const pid_t child = fork();
            if (child == 0) {
                signal(SIGXFSZ, SIG_IGN);
                run(c.op, base, app->app_dir(), archives, [limit] {
                    rlimit l{rlim_t(limit), rlim_t(limit)};
                    setrlimit(RLIMIT_FSIZE, &l);
                });
                _exit(0);
            }
            int status = 0;
            waitpid(child, &status, 0);
            const std::string what = std::string(c.name) + " limit " + std::to_string(limit);
            EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << what;
            expect_sound(what);
        }
    }
}

TEST_F(FaultTest, AKillAtAnyMomentLeavesAWholeBase)
{
    std::mt19937 random(17);
    const Op ops[] = {Op::Save, Op::Cancel, Op::Archive, Op::Compact};
    for (int run_no = 0; run_no < 60; ++run_no) {
        const Op op = ops[run_no % 4];
        const pid_t child = fork();
        if (child == 0) {
            for (;;)
                run(op, base, app->app_dir(), archives, [] {});
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5 + random() % 120));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        expect_sound(std::string(kCases[int(op)].name) + " run " + std::to_string(run_no));
        if (::testing::Test::HasFailure())
            break;
    }
}

TEST_F(FaultTest, TwoProcessesOpeningOneBaseAtOnceGiveItToOne)
{
    for (int round = 0; round < 10; ++round) {
        int go[2];
        ASSERT_EQ(pipe(go), 0);
        pid_t children[2];
        for (pid_t& child : children) {
            child = fork();
            if (child == 0) {
                close(go[1]);
                char c;
                (void)!read(go[0], &c, 1);  // both start at the parent's word
                Database db;
                try {
                    db.open(base);
                } catch (const std::exception&) {
                    _exit(1);
                }
                usleep(300 * 1000);
                db.close();
                _exit(0);
            }
        }
        close(go[0]);
        close(go[1]);  // end of file releases both readers at once
        int held = 0;
        for (pid_t child : children) {
            int status = 0;
            waitpid(child, &status, 0);
            ASSERT_TRUE(WIFEXITED(status));
            held += WEXITSTATUS(status) == 0;
        }
        EXPECT_EQ(held, 1) << "round " << round;
    }
    // A lock file this account does not own counts as held.
    if (getuid() == 0) {
        const QString lock = Database::lock_path(base);
        QFile f(lock);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.close();
        ASSERT_EQ(chown(QFile::encodeName(lock).constData(), 65534, 65534), 0);
        EXPECT_TRUE(Database::lock_held(base));
        Database db;
        EXPECT_THROW(db.open(base), DbError);
        QFile::remove(lock);
    }
}
