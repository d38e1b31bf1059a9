// The competition list's doors to the operation runner: results into a
// competition made for them, a zipped results source, and the entry files
// written into a folder or one zip. A recording component stands in for the
// Lenex ones and tells what the runner gave it.

#include "src/base/zip.h"
#include "src/competitions/handoff.h"
#include "src/frame/components.h"
#include "src/frame/keywords.h"
#include "src/frame/operation_runner.h"
#include "support/app_fixture.h"
#include "support/temp_files.h"

#include <QDir>
#include <QFile>

using namespace plouvarine;

namespace {

class ExchangeDoorsTest : public plouvarine::testing::AppFixture {
protected:
    void SetUp() override
    {
        AppFixture::SetUp();
        for (const char* dll : {"rcpres.dll", "createdisk.dll"})
            ASSERT_TRUE(QFile::copy(QStringLiteral(PLOUVARINE_RECORDING_COMPONENT),
                                    app->app_file(component_file(QString::fromLatin1(dll)))));
        connect(make_base());
        install_exchange_doors();
    }
    // Chooses `num` in the list of `keyword`, the runner played by `play`;
    // gives the report.
    QString choose(QLatin1String keyword, const QString& num, const std::function<void(OperationRunner&)>& play)
    {
        QString report;
        ui.drivers[QString(OperationRunner::kName)] = [&](View& view) {
            auto& runner = dynamic_cast<OperationRunner&>(view);
            play(runner);
            runner.ok();
            report = runner.report();
        };
        competition_chosen(*app, QString(keyword), num);
        EXPECT_TRUE(app->db.is_open());
        return report;
    }
    QString folder(const QString& name)
    {
        QDir().mkpath(work_file(name));
        return work_file(name);
    }
    QStringList work_folders() const
    {
        return QDir(app->app_dir()).entryList({QStringLiteral("tmp*"), QStringLiteral("trace*")}, QDir::AllEntries);
    }
};

TEST_F(ExchangeDoorsTest, ResultsWithoutACompetitionGoIntoOneMadeForThem)
{
    const QString source = folder(QStringLiteral("resultats"));
    QFile(QDir(source).filePath(QStringLiteral("meet.lef"))).open(QIODevice::WriteOnly);
    QStringList labels;
    const QString report = choose(keyword::kImporRes, QString(), [&](OperationRunner& runner) {
        labels << runner.title() << runner.label();
        runner.set_option_ticked(true);
        labels << runner.label();
        runner.set_option_ticked(false);
        labels << runner.label();
        runner.set_path(source);
    });
    EXPECT_EQ(labels, (QStringList{QStringLiteral("Importer Résultats"), QStringLiteral("Répertoire source :"),
                                   QStringLiteral("Fichier source :"), QStringLiteral("Répertoire source :")}));
    const QString made = app->db.load_rows(QStringLiteral("select max(AutoNum) from Rcomp where Deroule = true and Visible = true")).first();
    ASSERT_FALSE(made.isEmpty());
    EXPECT_EQ(report.trimmed(), QStringLiteral("bimport_result num=%1 new=1 option=0 source=meet.lef").arg(made));
    EXPECT_TRUE(ui.texts().isEmpty());
    EXPECT_TRUE(work_folders().isEmpty());
}

TEST_F(ExchangeDoorsTest, ACompetitionThatCannotBeMadeClosesTheRunnerBeforeTheComponent)
{
    bool closed_by_run = false;
    QString report;
    ui.drivers[QString(OperationRunner::kName)] = [&](View& view) {
        auto& runner = dynamic_cast<OperationRunner&>(view);
        runner.set_path(folder(QStringLiteral("resultats")));
        runner.ok();
        closed_by_run = runner.is_closed();
        report = runner.report();
    };
    run_operation(*app, QStringLiteral("impres"), QString(), true, [](AppContext&) { return QString(); });
    EXPECT_TRUE(closed_by_run);
    EXPECT_TRUE(report.isEmpty());
    EXPECT_TRUE(work_folders().isEmpty()) << work_folders().join(QLatin1Char(' ')).toStdString();
    EXPECT_TRUE(app->db.is_open());
}

TEST_F(ExchangeDoorsTest, AZippedResultsSourceIsReadUnpackedAndTheUnpackFolderGoes)
{
    const QString archive = work_file(QStringLiteral("resultats.zip"));
    const QString inside = folder(QStringLiteral("contenu"));
    QFile(QDir(inside).filePath(QStringLiteral("meet.lxf"))).open(QIODevice::WriteOnly);
    ASSERT_TRUE(zip_folder(archive, inside));
    const QString report = choose(keyword::kImporRes, QStringLiteral("7"), [&](OperationRunner& runner) {
        runner.set_option_ticked(true);
        ui.files.push_back(archive);
        runner.choose_path();
    });
    EXPECT_EQ(report.trimmed(), QStringLiteral("bimport_result num=7 new=0 option=1 source=meet.lxf"));
    EXPECT_EQ(ui.file_requests.at(0).filter, QStringLiteral("Fichier de résultats (*.zip)|*.zip"));
    EXPECT_TRUE(work_folders().isEmpty()) << work_folders().join(QLatin1Char(' ')).toStdString();
}

TEST_F(ExchangeDoorsTest, EntryFilesGoIntoOneZipOrIntoTheFolderAfterTheQuestion)
{
    const QString archive = work_file(QStringLiteral("engagements.zip"));
    QString report = choose(keyword::kDisk, QStringLiteral("3"), [&](OperationRunner& runner) {
        EXPECT_EQ(runner.title(), QStringLiteral("Création Fichiers Engagements"));
        runner.set_option_ticked(true);
        EXPECT_EQ(runner.label(), QStringLiteral("Fichier généré :"));
        ui.files.push_back(archive);
        runner.choose_path();
    });
    EXPECT_TRUE(report.startsWith(QStringLiteral("bCreation_disquette num=3 new=0 option=1")));
    EXPECT_TRUE(ui.file_requests.at(0).save);
    EXPECT_EQ(zip_entries(archive), (QStringList{QStringLiteral("engagements.lef"), QStringLiteral("relais.lef")}));
    EXPECT_TRUE(ui.texts().isEmpty());

    // A zip that cannot be written is told by its name and leaves nothing.
    const QString refused = QDir(plouvarine::testing::unwritable_folder(work_dir())).filePath(QStringLiteral("e.zip"));
    choose(keyword::kDisk, QStringLiteral("3"), [&](OperationRunner& runner) {
        runner.set_option_ticked(true);
        runner.set_path(refused);
    });
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("Erreur lors de la compression  du fichier e.zip.")});
    EXPECT_FALSE(QFile::exists(refused));
    ui.clear();

    const QString target = folder(QStringLiteral("cible"));
    report = choose(keyword::kDisk, QStringLiteral("3"), [&](OperationRunner& runner) {
        ui.answers.push_back(Button::Yes);
        runner.set_path(target);
    });
    EXPECT_EQ(QDir(target).entryList(QDir::Files), (QStringList{QStringLiteral("engagements.lef"), QStringLiteral("relais.lef")}));
    EXPECT_EQ(ui.texts(), QStringList{OperationRunner::kOverwrite});

    // A target that is gone stops the copy, and the work folder still goes.
    ui.clear();
    report = choose(keyword::kDisk, QStringLiteral("3"), [&](OperationRunner& runner) {
        ui.answers.push_back(Button::Yes);
        runner.set_path(work_file(QStringLiteral("absent")));
    });
    EXPECT_EQ(ui.texts(), (QStringList{OperationRunner::kOverwrite,
                                       QStringLiteral("Le répertoire de sauvegarde n'existe pas.\nCopie annulée")}));
    EXPECT_TRUE(work_folders().isEmpty()) << work_folders().join(QLatin1Char(' ')).toStdString();
}

TEST_F(ExchangeDoorsTest, AFileTooLargeForTheTargetAsksForAnotherOneAndIsNeverLeftHalfCopied)
{
    const QString first = folder(QStringLiteral("disque1"));
    const QString second = folder(QStringLiteral("disque2"));
    const QString kNoRoom = QStringLiteral("Pas assez de place dans le répertoire cible.\n\nChanger de Répertoire ou Annuler");
    const QString kCancelCopy = QStringLiteral("Annuler la copie des fichiers ?");
    const QString report = choose(keyword::kDisk, QStringLiteral("huge"), [&](OperationRunner& runner) {
        runner.set_path(first);
        // Overwrite: yes. No room: change. No folder given: do not cancel,
        // ask again; the second disk. No room there either: stop.
        ui.answers = {Button::Yes, Button::Yes, Button::No, Button::No};
        ui.folders = {QString(), second};
    });
    if (report.contains(QStringLiteral("sparse file refused")))
        GTEST_SKIP() << "the file system does not take a sparse file larger than the space left";
    EXPECT_EQ(ui.texts(), (QStringList{OperationRunner::kOverwrite, kNoRoom, kCancelCopy, kNoRoom}));
    EXPECT_EQ(ui.folder_prompts.size(), 2);
    EXPECT_TRUE(QDir(first).isEmpty());
    EXPECT_TRUE(QDir(second).isEmpty());
    EXPECT_TRUE(work_folders().isEmpty()) << work_folders().join(QLatin1Char(' ')).toStdString();
}

}  // namespace
