// Opening, saving, crash recovery and the close paths, on real base files.

#include "src/frame/base_commands.h"
#include "src/base/zip.h"
#include "src/frame/access.h"
#include "src/frame/status_lines.h"
#include "src/store/save.h"
#include "support/app_fixture.h"
#include "support/temp_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

using namespace plouvarine;
using namespace plouvarine::testing;

namespace {

const QString kCrashQuestion = QStringLiteral("La base n'a pas été correctement fermée lors de la dernière utilisation.\n"
                                              "Reprendre la base depuis la dernière sauvegarde trouvée ?");
const QString kLoseUnsaved = QStringLiteral("Les données non sauvegardées seront effacées. Continuer ?");

class BaseCommandsTest : public AppFixture {
protected:
    void open(const QString& path)
    {
        ui.files.push_back(path);
        open_base_command(*app);
    }
    void add_pool(const QString& name) { exec(QStringLiteral("INSERT INTO Piscine (Nom) VALUES ('%1');").arg(name)); }
    QStringList pools() { return dump(QStringLiteral("select Nom from Piscine where Nom <> 'Null' order by Nom")); }
    QString flag() { return value(QStringLiteral("select LastClose from Info")); }

    // A base saved with the pool "Avant", then "Pendant" added by a process that crashed.
    QString saved_then_crashed()
    {
        const QString base = make_base();
        open(base);
        add_pool(QStringLiteral("Avant"));
        save_command(*app);
        app->saves.wait();
        app->db.close();  // as if the window were gone: the flag stays false
        crash_during(base, [](AppContext& a) {
            a.db.exec_sql(QStringLiteral("INSERT INTO Piscine (Nom) VALUES ('Pendant');"));
        });
        ui.clear();
        return base;
    }

    // Opens the base in a child process, runs `work` there and kills the child
    // before anything closes: what a crash or a power cut leaves.
    template <typename Work>
    void crash_during(const QString& path, Work work)
    {
        const pid_t child = fork();
        if (child == 0) {
            ScriptedServices child_ui;
            AppContext child_app(child_ui, app->app_dir());
            child_ui.files.push_back(path);
            open_base_command(child_app);
            if (!child_app.db.is_open())
                _exit(3);
            child_app.saves.wait();
            work(child_app);
            kill(getpid(), SIGKILL);
        }
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << "child ended with " << status;
    }
};

}  // namespace

TEST_F(BaseCommandsTest, OpeningABaseAtVersionThree)
{
    const QString base = make_base();
    open(base);
    ASSERT_TRUE(app->db.is_open());
    EXPECT_TRUE(app->menus_base_open());
    EXPECT_TRUE(ui.messages.empty()) << ui.texts().join(QStringLiteral(" | ")).toStdString();
    EXPECT_TRUE(ui.reports.empty());
    EXPECT_EQ(flag(), QStringLiteral("Faux"));
    // The window is given back while the save copy is written.
    EXPECT_EQ(ui.status[2], kStatusSaveWriting);
    EXPECT_TRUE(app->saves.wait());
    EXPECT_TRUE(QFile::exists(save_path(base)));
    EXPECT_TRUE(ui.status[2].startsWith(QStringLiteral("Base enregistrée à ")));
    EXPECT_EQ(ui.file_requests.at(0).title, QStringLiteral("Ouvrir une Base"));
    EXPECT_EQ(ui.file_requests.at(0).filter, QStringLiteral("Base de données (*.mdb)|*.mdb"));
    // The captions in their order, the crash control before the version control.
    const QStringList steps = ui.status_history;
    EXPECT_LT(steps.indexOf(QStringLiteral("Contrôle Version Base")), steps.indexOf(QStringLiteral("Contrôle Club")));
    EXPECT_LT(steps.indexOf(QStringLiteral("Lecture profil")), steps.indexOf(QStringLiteral("Contrôle Nageur et Piscine")));
    EXPECT_LT(steps.indexOf(QStringLiteral("Mise à jour des licences")), steps.indexOf(QStringLiteral("Création sauvegarde")));
    EXPECT_EQ(ui.wait_depth, 0);

    // The sentinels are made once, the licence nulle invisible with licence "1".
    EXPECT_EQ(dump(QStringLiteral("select Num, Licence, Visible from Licence where Nom = 'Null'")),
              QStringList{app->state.num_lic_nulle + QStringLiteral(":1:Faux")});
    EXPECT_EQ(count(QStringLiteral("select count(*) from Piscine where Nom = 'Null'")), 1);
    ASSERT_EQ(quit_command(*app), QuitOutcome::Stay);  // default No
    ui.answers.push_back(Button::Yes);
    ASSERT_EQ(quit_command(*app), QuitOutcome::Quit);
    open(base);
    EXPECT_EQ(count(QStringLiteral("select (select count(*) from Licence where Nom = 'Null') + "
                                   "(select count(*) from Piscine where Nom = 'Null')")), 2);
}

TEST_F(BaseCommandsTest, OpeningRefusesWhatIsNotAnUsableBase)
{
    // An upper-case extension, though the file is a base.
    const QString upper = make_base(QStringLiteral("x.MDB"));
    open(upper);
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("Mauvais format de fichier.")});
    EXPECT_FALSE(app->db.is_open());
    EXPECT_EQ(app->state.base_path, upper);

    // Fewer than five characters: the dialog was cancelled.
    ui.clear();
    app->state.base_path.clear();
    open(QStringLiteral("a.md"));
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_TRUE(app->state.base_path.isEmpty());

    ui.clear();
    const QString text = work_file(QStringLiteral("notes.mdb"));
    ASSERT_TRUE(write_bytes(text, "liste des nageurs\n"));
    open(text);
    ASSERT_EQ(ui.messages.size(), 1u);
    // The engine's reason comes first, then the command's text.
    EXPECT_TRUE(ui.messages[0].text.startsWith(QStringLiteral("Erreur n° 26, file is not a database"))) << ui.messages[0].text.toStdString();
    EXPECT_TRUE(ui.messages[0].text.endsWith(QStringLiteral("Erreur lors de la connexion à la base.")));
    EXPECT_FALSE(app->db.is_open());
    EXPECT_FALSE(app->menus_base_open());
    EXPECT_FALSE(QFile::exists(save_path(text)));
    EXPECT_FALSE(QFile::exists(Database::lock_path(text)));

    // A base held by another process.
    const QString held = make_base(QStringLiteral("tenue.mdb"));
    BaseHeldElsewhere other(held);
    ui.clear();
    open(held);
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("Une connexion est déjà active sur la base.\n"
                                                     "Vérifier qu'elle n'est pas ouverte dans une autre application.")});
    EXPECT_FALSE(app->db.is_open());

    // A base without Info is closed again.
    const QString base = make_base();
    connect(base);
    exec(QStringLiteral("DROP TABLE Info"));
    app->db.close();
    ui.clear();
    open(base);
    EXPECT_FALSE(app->db.is_open());
    EXPECT_FALSE(app->menus_base_open());
    EXPECT_EQ(app->state.base_path, base);
    ASSERT_FALSE(ui.messages.empty());
    EXPECT_TRUE(ui.messages.back().text.endsWith(
        QStringLiteral("Cette base n'est pas valide.\nImpossible de retrouver la version.")));
    EXPECT_FALSE(QFile::exists(save_path(base)));
}

TEST_F(BaseCommandsTest, AnOlderVersionGoesThroughTheUpgrade)
{
    ASSERT_TRUE(write_bytes(app->app_file(QStringLiteral("maj_base.ini")),
                            "[INFO]\nVersion finale=3\n[FROM 2]\nmaj1=CREATE TABLE Ajout_v3 (x INTEGER)\n"));
    const QString base = make_base();
    set_base_version(base, QStringLiteral("2.9"));
    open(base);
    ASSERT_TRUE(app->db.is_open());
    ASSERT_EQ(ui.reports.size(), 1u);
    EXPECT_EQ(ui.reports[0].title, QStringLiteral("Mise à jour de la base"));
    EXPECT_EQ(count(QStringLiteral("select count(*) from Ajout_v3")), 0);

    // A version that starts with a letter reads as 0 and is upgraded too: with
    // no section for 0 nothing runs and the version written is 0.
    ui.clear();
    const QString odd = make_base(QStringLiteral("odd.mdb"));
    set_base_version(odd, QStringLiteral("'v3'"));
    open(odd);
    ASSERT_EQ(ui.reports.size(), 1u);
}

TEST_F(BaseCommandsTest, CrashThenOpenWithTheSaveAnsweredYes)
{
    const QString base = saved_then_crashed();
    const QByteArray saved = read_bytes(save_path(base));
    ui.answers.push_back(Button::Yes);
    open(base);
    ASSERT_TRUE(app->db.is_open());
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].title + QLatin1Char('|') + ui.messages[0].text, QStringLiteral("Confirmation|") + kCrashQuestion);
    EXPECT_EQ(ui.messages[0].default_button, Button::Yes);
    EXPECT_EQ(pools(), QStringList{QStringLiteral("Avant")});
    EXPECT_EQ(flag(), QStringLiteral("Faux"));
    EXPECT_EQ(read_bytes(save_path(base)), saved) << "a restored base keeps the save it came from";
    EXPECT_EQ(ui.status[2], QStringLiteral("Base reprise depuis la dernière sauvegarde"));
}

TEST_F(BaseCommandsTest, CrashThenOpenWithTheSaveAnsweredNo)
{
    const QString base = saved_then_crashed();
    ui.answers.push_back(Button::No);
    open(base);
    ASSERT_TRUE(app->db.is_open());
    EXPECT_EQ(pools(), (QStringList{QStringLiteral("Avant"), QStringLiteral("Pendant")}));
    // The save now holds the crashed state.
    ASSERT_TRUE(cancel_operations(*app));
    EXPECT_EQ(pools(), (QStringList{QStringLiteral("Avant"), QStringLiteral("Pendant")}));
}

TEST_F(BaseCommandsTest, CrashWithTheSaveRemovedByHand)
{
    const QString base = make_base();
    crash_during(base, [](AppContext& a) {
        a.db.exec_sql(QStringLiteral("INSERT INTO Piscine (Nom) VALUES ('Pendant');"));
    });
    ASSERT_TRUE(QFile::remove(save_path(base)));
    open(base);
    ASSERT_TRUE(app->db.is_open());
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("La base n'a pas été correctement fermée lors de la dernière utilisation\n"
                                                     "La dernière sauvegarde n'a pas été trouvée.\n"
                                                     "Il serait bon de reprendre la base depuis la dernière archive.")});
    EXPECT_EQ(ui.messages[0].title, QStringLiteral("Information"));
    EXPECT_EQ(pools(), QStringList{QStringLiteral("Pendant")});
    EXPECT_TRUE(app->saves.wait());
    EXPECT_TRUE(QFile::exists(save_path(base)));
}

TEST_F(BaseCommandsTest, CancelThenCrashGoesUnnoticed)
{
    const QString base = make_base();
    crash_during(base, [](AppContext& a) {
        a.db.exec_sql(QStringLiteral("INSERT INTO Piscine (Nom) VALUES ('Annulé');"));
        cancel_operations(a);
        a.db.exec_sql(QStringLiteral("INSERT INTO Piscine (Nom) VALUES ('Après annulation');"));
    });
    open(base);
    ASSERT_TRUE(app->db.is_open());
    EXPECT_TRUE(ui.titled(QStringLiteral("Confirmation")).empty());
    EXPECT_EQ(pools(), QStringList{QStringLiteral("Après annulation")});
}

TEST_F(BaseCommandsTest, NewBaseFromTheModelWithOrWithoutTheExtensionTyped)
{
    const QString target = work_file(QStringLiteral("nouvelle.mdb"));
    ASSERT_TRUE(write_bytes(target, "une ancienne base remplacée"));
    ui.files.push_back(target);
    new_base_command(*app);
    ASSERT_TRUE(app->db.is_open());
    EXPECT_TRUE(ui.messages.empty()) << ui.texts().join(QStringLiteral(" | ")).toStdString();
    EXPECT_EQ(ui.file_requests.at(0).title, QStringLiteral("Nouvelle Base"));
    EXPECT_TRUE(ui.file_requests.at(0).confirm_overwrite);
    EXPECT_EQ(ui.file_requests.at(0).default_suffix, QStringLiteral("mdb"));
    EXPECT_EQ(flag(), QStringLiteral("Faux"));
    EXPECT_TRUE(QFile::exists(save_path(target)));
    EXPECT_FALSE(app->state.num_lic_nulle.isEmpty());
    EXPECT_EQ(count(QStringLiteral("select count(*) from Club")), 0);
    EXPECT_GT(count(QStringLiteral("select count(*) from Nage")), 0);
    unload_main(*app);

    // Whatever the dialog does with its default suffix, the base is "club.mdb",
    // its lock "club.ldb", and Ouvrir and Supprimer find it under the bare name.
    const QString bare = work_file(QStringLiteral("club"));
    const QString base = bare + QStringLiteral(".mdb");
    ui.clear();
    ui.files.push_back(bare);
    new_base_command(*app);
    ASSERT_TRUE(app->db.is_open()) << ui.texts().join(QStringLiteral(" | ")).toStdString();
    EXPECT_EQ(app->state.base_path, base);
    EXPECT_TRUE(QFile::exists(base));
    EXPECT_FALSE(QFile::exists(bare));
    EXPECT_TRUE(QFile::exists(work_file(QStringLiteral("club.ldb"))));
    unload_main(*app);
    ui.clear();
    open(bare);
    EXPECT_TRUE(ui.messages.empty()) << ui.texts().join(QStringLiteral(" | ")).toStdString();
    EXPECT_TRUE(app->db.is_open());
    EXPECT_EQ(app->state.base_path, base);
    EXPECT_EQ(ui.file_requests.at(0).default_suffix, QStringLiteral("mdb"));
    unload_main(*app);

    // Without the model nothing is made.
    QFile::remove(app->app_file(QStringLiteral("modele_base.sav")));
    const QString lost = work_file(QStringLiteral("perdue.mdb"));
    ui.clear();
    ui.files.push_back(lost);
    new_base_command(*app);
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("Modèle de base non trouvée.\n"
                                                     "Impossible de continuer, le programme va être terminé.\n"
                                                     "Contactez le fournisseur.")});
    EXPECT_FALSE(QFile::exists(lost));
    EXPECT_FALSE(app->db.is_open());
}

TEST_F(BaseCommandsTest, EachWayOutKeepsOrRestoresAsAnswered)
{
    // The close box answered Yes keeps the work, No restores the save.
    const QString base = make_base();
    open(base);
    add_pool(QStringLiteral("Gardé"));
    ui.answers.push_back(Button::Yes);
    ASSERT_TRUE(query_close(*app));
    EXPECT_EQ(ui.messages.back().text, QStringLiteral("Sauvegarder les données ?"));
    EXPECT_EQ(ui.messages.back().default_button, Button::No);
    unload_main(*app);
    EXPECT_FALSE(QFile::exists(save_path(base)));
    open(base);
    EXPECT_EQ(pools(), QStringList{QStringLiteral("Gardé")});
    add_pool(QStringLiteral("Perdu"));
    ui.answers.push_back(Button::No);
    ASSERT_TRUE(query_close(*app));
    unload_main(*app);
    EXPECT_FALSE(QFile::exists(save_path(base)));

    // Fermer restores the save, Quitter keeps the work though its question
    // speaks of losing it.
    open(base);
    EXPECT_EQ(pools(), QStringList{QStringLiteral("Gardé")});
    add_pool(QStringLiteral("Perdu"));
    ui.answers.push_back(Button::Yes);
    close_command(*app);
    EXPECT_FALSE(app->db.is_open());
    EXPECT_TRUE(app->state.base_path.isEmpty());
    EXPECT_EQ(app->main_title(), QStringLiteral("Plouvarine"));
    EXPECT_FALSE(QFile::exists(save_path(base)));
    EXPECT_FALSE(app->menus_base_open());
    open(base);
    EXPECT_EQ(pools(), QStringList{QStringLiteral("Gardé")});
    add_pool(QStringLiteral("Gardé malgré la question"));
    ui.answers.push_back(Button::Yes);
    EXPECT_EQ(quit_command(*app), QuitOutcome::Quit);
    EXPECT_EQ(ui.messages.back().text, kLoseUnsaved);
    EXPECT_FALSE(QFile::exists(save_path(base)));
    connect(base);
    EXPECT_EQ(pools(), (QStringList{QStringLiteral("Gardé"), QStringLiteral("Gardé malgré la question")}));
    EXPECT_EQ(flag(), QStringLiteral("Vrai"));
    // Every way out left the flag of a close in good order: no reopening took it for a crash.
    EXPECT_TRUE(ui.texts().filter(QStringLiteral("correctement fermée")).isEmpty());
}

TEST_F(BaseCommandsTest, SaveAndCancelCommands)
{
    const QString base = make_base();
    open(base);
    EXPECT_EQ(app->main_title(), QStringLiteral("Plouvarine - club.mdb"));
    exec(QStringLiteral("INSERT INTO Licence_tempo (Num, Nom) VALUES (7, 'En attente');"));
    add_pool(QStringLiteral("Enregistré"));
    app->clock.set_now(QTime(13, 4, 59));
    save_command(*app);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Licence_tempo")), 0);
    EXPECT_EQ(flag(), QStringLiteral("Faux"));
    EXPECT_EQ(ui.status[2], kStatusSaveWriting);
    // Work goes on while the copy is compressed; the copy is the state at the command.
    add_pool(QStringLiteral("Annulé"));
    app->clock.set_now(QTime(13, 5, 30));
    EXPECT_TRUE(app->saves.wait());
    EXPECT_EQ(ui.status[2], QStringLiteral("Base enregistrée à 13:05"));

    int profile_reads = 0;
    app->hooks.read_profile = [&](AppContext&) { ++profile_reads; };
    cancel_command(*app);  // default No: nothing restored, the profile is read again
    EXPECT_EQ(ui.messages.back().text, QStringLiteral("Annuler toutes les opérations depuis la dernière sauvegarde ?"));
    EXPECT_EQ(pools().size(), 2);
    EXPECT_EQ(profile_reads, 1);
    EXPECT_FALSE(ui.status_history.contains(QStringLiteral("Opérations annulées")));
    ui.answers.push_back(Button::Yes);
    cancel_command(*app);
    EXPECT_EQ(pools(), QStringList{QStringLiteral("Enregistré")});
    EXPECT_EQ(profile_reads, 2);
    EXPECT_EQ(ui.status[2], QStringLiteral("Opérations annulées"));

    // A save that cannot be written says nothing was saved.
    ui.clear();
    QFile::remove(save_path(base));
    ASSERT_TRUE(QDir().mkpath(save_path(base) + QStringLiteral("/bloque")));
    save_command(*app);
    EXPECT_FALSE(app->saves.wait());
    EXPECT_FALSE(ui.titled(QStringLiteral("Erreur")).empty());
    EXPECT_FALSE(ui.status[2].startsWith(QStringLiteral("Base enregistrée")));
    QDir(save_path(base)).removeRecursively();
}
