// The software update on real zip packages unpacked into a real application folder.

#include "src/base/files.h"
#include "src/base/zip.h"
#include "src/frame/software_update.h"
#include "support/app_fixture.h"
#include "support/temp_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <map>

using namespace plouvarine;
using namespace plouvarine::testing;

namespace {

const QString kSuccess = QStringLiteral("La mise à jour s'est déroulée avec succès.");
const QString kMissingHead = QStringLiteral("Des fichiers listés dans maj.txt n'ont pas été trouvés dans le répertoire :");

class SoftwareUpdateTest : public AppFixture {
protected:
    // A real package in the work folder holding the given files (paths may have folders).
    QString package(const std::map<QString, QByteArray>& entries,
                    const QString& name = QStringLiteral("maj_soft_2024.zip"))
    {
        QTemporaryDir content;
        for (const auto& [path, bytes] : entries) {
            const QString file = content.filePath(path);
            EXPECT_TRUE(QDir().mkpath(QFileInfo(file).absolutePath()));
            EXPECT_TRUE(write_bytes(file, bytes));
        }
        const QString archive = work_file(name);
        EXPECT_TRUE(zip_folder(archive, content.path()));
        return archive;
    }

    void run(const QString& archive)
    {
        ui.files.push_back(archive);
        software_update_command(*app);
    }

    QString app_path(const QString& name) const { return app->app_file(name); }
    QByteArray installed(const QString& name) const { return read_bytes(app_path(name)); }
    // The one message shown, as "title: text".
    QString shown() const
    {
        EXPECT_EQ(ui.messages.size(), 1u);
        return ui.messages.empty() ? QString() : ui.messages[0].title + QStringLiteral(": ") + ui.messages[0].text;
    }
    QStringList work_folders() const
    {
        return QDir(app->app_dir()).entryList({QStringLiteral("tmpmajsoft*")}, QDir::Dirs | QDir::NoDotAndDotDot);
    }

    // What every run leaves: no work folder, no caption, the normal cursor.
    void expect_clean_end()
    {
        EXPECT_TRUE(work_folders().isEmpty()) << work_folders().join(QLatin1Char(' ')).toStdString();
        EXPECT_TRUE(ui.status[2].isEmpty());
        EXPECT_EQ(ui.wait_depth, 0);
    }
};

}  // namespace


TEST(UpdateList, ValuesEndAtCommasAndLineBreaks)
{
    EXPECT_EQ(update_list_values(QStringLiteral("calpts.so\r\nrcpres.so\r\n")),
              (QStringList{QStringLiteral("calpts.so"), QStringLiteral("rcpres.so")}));
    EXPECT_EQ(update_list_values(QStringLiteral("  calpts.so ,\trcpres.so,,\n\n   \n expclub.so")),
              (QStringList{QStringLiteral("calpts.so"), QStringLiteral("rcpres.so"), QStringLiteral("expclub.so")}));
    // Quotes go, and a quoted value keeps its commas and inner blanks.
    EXPECT_EQ(update_list_values(QStringLiteral("\"calpts.so\",\"notes, v2.txt\"\r\n\"mon fichier.so\"  \r\n\"\"")),
              (QStringList{QStringLiteral("calpts.so"), QStringLiteral("notes, v2.txt"), QStringLiteral("mon fichier.so")}));
    // An old Mac line end counts too.
    EXPECT_EQ(update_list_values(QStringLiteral("a.so\rb.so")), (QStringList{QStringLiteral("a.so"), QStringLiteral("b.so")}));
    EXPECT_TRUE(update_list_values(QString()).isEmpty());
    EXPECT_TRUE(update_list_values(QStringLiteral(" , \r\n,")).isEmpty());
}


TEST_F(SoftwareUpdateTest, EveryListedFileReplacesTheOneOfTheApplicationFolder)
{
    ASSERT_TRUE(write_bytes(app_path(QStringLiteral("calpts.so")), "ancienne version"));
    // A work folder left from before is not touched: the run takes another.
    ASSERT_TRUE(QDir(app->app_dir()).mkdir(QStringLiteral("tmpmajsoft")));
    ASSERT_TRUE(write_bytes(app_path(QStringLiteral("tmpmajsoft/calpts.so")), "oublié"));
    const QByteArray calpts = random_bytes(300 * 1024, 7);
    const QByteArray rcpres = random_bytes(2048, 8);
    const QByteArray table = random_bytes(512, 3);
    const QString archive = package({{QStringLiteral("maj.txt"), "calpts.so\r\nrcpres.so\r\ntables/points.csv\r\n"},
                                     {QStringLiteral("calpts.so"), calpts},
                                     {QStringLiteral("rcpres.so"), rcpres},
                                     {QStringLiteral("tables/points.csv"), table},
                                     {QStringLiteral("lisezmoi.txt"), "non listé"}});
    run(archive);

    EXPECT_EQ(installed(QStringLiteral("calpts.so")), calpts);
    EXPECT_EQ(installed(QStringLiteral("rcpres.so")), rcpres);
    EXPECT_EQ(installed(QStringLiteral("tables/points.csv")), table);
    EXPECT_FALSE(QFile::exists(app_path(QStringLiteral("lisezmoi.txt"))));
    EXPECT_FALSE(QFile::exists(app_path(QStringLiteral("maj.txt"))));

    ASSERT_EQ(ui.file_requests.size(), 1u);
    EXPECT_EQ(ui.file_requests[0].title, QStringLiteral("Sélection du package de mise à jour"));
    EXPECT_EQ(ui.file_requests[0].filter, QStringLiteral("Package de mise à jour (maj_soft_*.zip)|maj_soft_*.zip"));
    EXPECT_FALSE(ui.file_requests[0].save);
    EXPECT_EQ(shown(), QStringLiteral("Information: ") + kSuccess);
    EXPECT_EQ(ui.status_history, (QStringList{QStringLiteral("Création des fichiers temporaires pour la mise à jour."),
                                              QStringLiteral("Ouverture du fichier maj.txt"),
                                              QStringLiteral("Mise à jour de calpts.so"),
                                              QStringLiteral("Mise à jour de rcpres.so"),
                                              QStringLiteral("Mise à jour de tables/points.csv")}));
    EXPECT_EQ(installed(QStringLiteral("tmpmajsoft/calpts.so")), QByteArray("oublié"));
    EXPECT_EQ(work_folders(), QStringList{QStringLiteral("tmpmajsoft")});
    EXPECT_TRUE(ui.status[2].isEmpty());
    EXPECT_EQ(ui.wait_depth, 0);
    EXPECT_TRUE(QFile::exists(archive));
}

TEST_F(SoftwareUpdateTest, AFileMissingFromThePackageIsListedAndTheOthersInstalled)
{
    ASSERT_TRUE(write_bytes(app_path(QStringLiteral("expclub.so")), "ancienne"));
    const QByteArray calpts = random_bytes(4096, 1);
    const QByteArray rcpres = random_bytes(4096, 2);
    run(package({{QStringLiteral("maj.txt"), "calpts.so\r\nexpclub.so\r\nrcpres.so\r\nExplic.so\r\n"},
                 {QStringLiteral("calpts.so"), calpts},
                 {QStringLiteral("rcpres.so"), rcpres},
                 {QStringLiteral("explic.so"), "autre casse"}}));

    EXPECT_EQ(installed(QStringLiteral("calpts.so")), calpts);
    EXPECT_EQ(installed(QStringLiteral("rcpres.so")), rcpres);
    // The missing files keep what the folder had, or stay absent; names are
    // matched exactly, so "Explic.so" is not "explic.so".
    EXPECT_EQ(installed(QStringLiteral("expclub.so")), QByteArray("ancienne"));
    EXPECT_FALSE(QFile::exists(app_path(QStringLiteral("Explic.so"))));
    EXPECT_FALSE(QFile::exists(app_path(QStringLiteral("explic.so"))));
    EXPECT_EQ(shown(), QStringLiteral("Information: ") + kMissingHead +
                           QStringLiteral("\nFichier expclub.so non trouvé.\nFichier Explic.so non trouvé."));
    expect_clean_end();
}

TEST_F(SoftwareUpdateTest, NamesThatWouldLeaveTheApplicationFolderAreListedAsMissing)
{
    // The work folder lies inside the application folder, so "../x" would take
    // the application's own file and put it in the folder above.
    const QString escaped = QStringLiteral("evade_%1.so").arg(QFileInfo(app->app_dir()).fileName());
    const QString above = QFileInfo(app->app_dir()).absolutePath() + QLatin1Char('/') + escaped;
    ASSERT_FALSE(QFile::exists(above));
    ASSERT_TRUE(write_bytes(app_path(escaped), "dans le dossier"));
    // An absolute name points at a file of another folder; the package holds
    // a file at the same path below its root, so that only the refusal of the
    // name keeps it out.
    const QString outside = work_file(QStringLiteral("victime.so"));
    ASSERT_TRUE(write_bytes(outside, "hors du dossier"));
    const QString mirrored = outside.mid(1);
    const QByteArray calpts = random_bytes(100, 5);

    const QByteArray list = "../" + escaped.toUtf8() + "\r\n" + outside.toUtf8() + "\r\ncalpts.so\r\nsub\\..\\..\\" +
                            escaped.toUtf8() + "\r\n";
    run(package({{QStringLiteral("maj.txt"), list},
                 {QStringLiteral("calpts.so"), calpts},
                 {mirrored, "remplaçant"}}));

    EXPECT_FALSE(QFile::exists(above));
    EXPECT_EQ(read_bytes(outside), QByteArray("hors du dossier"));
    EXPECT_FALSE(QFile::exists(app_path(mirrored)));
    EXPECT_EQ(installed(escaped), QByteArray("dans le dossier"));
    EXPECT_EQ(installed(QStringLiteral("calpts.so")), calpts);
    EXPECT_EQ(shown(), QStringLiteral("Information: ") + kMissingHead + QStringLiteral("\nFichier ../") + escaped +
                           QStringLiteral(" non trouvé.\nFichier ") + outside + QStringLiteral(" non trouvé.\nFichier sub\\..\\..\\") +
                           escaped + QStringLiteral(" non trouvé."));
    expect_clean_end();
    if (QFile::exists(above))
        QFile::remove(above);
}


TEST_F(SoftwareUpdateTest, RefusedOrBrokenPackagesInstallNothing)
{
    software_update_command(*app);
    EXPECT_EQ(ui.file_requests.size(), 1u);
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_TRUE(ui.status_history.isEmpty());
    expect_clean_end();

    // A package named otherwise is refused before anything is unpacked.
    const std::map<QString, QByteArray> content{{QStringLiteral("maj.txt"), "calpts.so\r\n"},
                                                {QStringLiteral("calpts.so"), "nouveau"}};
    for (const QString& name : {QStringLiteral("mise_a_jour.zip"), QStringLiteral("maj_soft_2.ZIP"),
                                QStringLiteral("Maj_soft_2.zip"), QStringLiteral("maj_soft.zip"),
                                QStringLiteral("maj_soft_2.zip.txt")}) {
        ui.clear();
        run(package(content, name));
        EXPECT_EQ(shown(), QStringLiteral("Erreur: Sélectionner un package de mise à jour.")) << name.toStdString();
        EXPECT_TRUE(ui.status_history.isEmpty()) << name.toStdString();
        EXPECT_FALSE(QFile::exists(app_path(QStringLiteral("calpts.so"))));
        expect_clean_end();
    }

    // Without maj.txt (names are matched exactly) nothing is installed.
    ASSERT_TRUE(write_bytes(app_path(QStringLiteral("calpts.so")), "en place"));
    ui.clear();
    run(package({{QStringLiteral("calpts.so"), "nouveau"}, {QStringLiteral("MAJ.TXT.bak"), "calpts.so"}}));
    EXPECT_EQ(shown(), QStringLiteral("Erreur: Le package sélectionné ne contenait pas le fichier maj.txt.\n"
                                      "Mise à jour logiciel annulé"));
    EXPECT_EQ(installed(QStringLiteral("calpts.so")), QByteArray("en place"));
    expect_clean_end();

    const QString archive = work_file(QStringLiteral("maj_soft_3.zip"));
    ASSERT_TRUE(write_bytes(archive, "PK ceci n'est pas une archive"));
    ui.clear();
    run(archive);
    EXPECT_TRUE(shown().startsWith(QStringLiteral("Erreur: "))) << shown().toStdString();
    EXPECT_TRUE(shown().endsWith(QStringLiteral("Une erreur s'est produite lors de la décompression."))) << shown().toStdString();
    EXPECT_EQ(installed(QStringLiteral("calpts.so")), QByteArray("en place"));
    expect_clean_end();
}

TEST_F(SoftwareUpdateTest, AFileThatCannotBeReplacedStopsWithTheStepInProgress)
{
    // A folder stands where the file should go: the copy over it fails.
    ASSERT_TRUE(QDir(app->app_dir()).mkdir(QStringLiteral("rcpres.so")));
    const QByteArray calpts = random_bytes(100, 9);
    run(package({{QStringLiteral("maj.txt"), "calpts.so\r\nrcpres.so\r\nexpclub.so\r\n"},
                 {QStringLiteral("calpts.so"), calpts},
                 {QStringLiteral("rcpres.so"), "nouveau"},
                 {QStringLiteral("expclub.so"), "nouveau"}}));

    const QString text = shown();
    EXPECT_TRUE(text.startsWith(QStringLiteral("Erreur: Erreur n° "))) << text.toStdString();
    EXPECT_TRUE(text.endsWith(QStringLiteral("\nUne erreur s'est produite lors de la tentative de la mise à jour.\n"
                                             "Etape : Mise à jour de rcpres.so")))
        << text.toStdString();
    // What came before the failure is installed; nothing after it is.
    EXPECT_EQ(installed(QStringLiteral("calpts.so")), calpts);
    EXPECT_TRUE(QFileInfo(app_path(QStringLiteral("rcpres.so"))).isDir());
    EXPECT_FALSE(QFile::exists(app_path(QStringLiteral("expclub.so"))));
    expect_clean_end();
}

TEST_F(SoftwareUpdateTest, AProgramKeepsItsRunBitsAndTheModelBaseIsNotReplaced)
{
    ASSERT_TRUE(write_bytes(app_path(QStringLiteral("outil")), "ancien"));
    QFile::setPermissions(app_path(QStringLiteral("outil")),
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    ASSERT_TRUE(write_bytes(app_path(QStringLiteral("modele_base.sav")), "modèle"));
    const QByteArray tool = random_bytes(2048, 5);
    run(package({{QStringLiteral("maj.txt"), "outil\r\nmodele_base.sav\r\n"},
                 {QStringLiteral("outil"), tool},
                 {QStringLiteral("modele_base.sav"), "autre modèle"}}));
    EXPECT_EQ(installed(QStringLiteral("outil")), tool);
    EXPECT_EQ(file_mode(app_path(QStringLiteral("outil"))), 0700);
    EXPECT_EQ(installed(QStringLiteral("modele_base.sav")), QByteArray("modèle"));
    ASSERT_EQ(ui.messages.size(), 2u);
    EXPECT_EQ(ui.messages[0].title, QStringLiteral("Erreur"));
    EXPECT_TRUE(ui.messages[0].text.endsWith(QStringLiteral("\nFichier modele_base.sav en cours d'utilisation, non remplacé.")));
    expect_clean_end();
}
