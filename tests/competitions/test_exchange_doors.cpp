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
using namespace Qt::Literals::StringLiterals;

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
        return QDir(app->app_dir()).entryList({u"tmp*"_s, u"trace*"_s}, QDir::AllEntries);
    }
};

TEST_F(ExchangeDoorsTest, ResultsWithoutACompetitionGoIntoOneMadeForThem)
{
    const QString source = folder(u"resultats"_s);
    QFile(QDir(source).filePath(u"meet.lef"_s)).open(QIODevice::WriteOnly);
    QStringList labels;
    const QString report = choose(keyword::kImporRes, QString(), [&](OperationRunner& runner) {
        labels << runner.title() << runner.label();
        runner.set_option_ticked(true);
        labels << runner.label();
        runner.set_option_ticked(false);
        labels << runner.label();
        runner.set_path(source);
    });
    EXPECT_EQ(labels, (QStringList{u"Importer Résultats"_s, u"Répertoire source :"_s,
                                   u"Fichier source :"_s, u"Répertoire source :"_s}));
    const QString made = value(u"select max(AutoNum) from Rcomp where Deroule = true and Visible = true"_s);
    ASSERT_FALSE(made.isEmpty());
    EXPECT_EQ(report.trimmed(), u"bimport_result num=%1 new=1 option=0 source=meet.lef"_s.arg(made));
    EXPECT_TRUE(ui.texts().isEmpty());
    EXPECT_EQ(work_folders(), QStringList());
}

TEST_F(ExchangeDoorsTest, ACompetitionThatCannotBeMadeClosesTheRunnerBeforeTheComponent)
{
    bool closed_by_run = false;
    QString report;
    ui.drivers[QString(OperationRunner::kName)] = [&](View& view) {
        auto& runner = dynamic_cast<OperationRunner&>(view);
        runner.set_path(folder(u"resultats"_s));
        runner.ok();
        closed_by_run = runner.is_closed();
        report = runner.report();
    };
    run_operation(*app, u"impres"_s, QString(), true, [](AppContext&) { return QString(); });
    EXPECT_TRUE(closed_by_run);
    EXPECT_TRUE(report.isEmpty());
    EXPECT_EQ(work_folders(), QStringList());
    EXPECT_TRUE(app->db.is_open());
}

TEST_F(ExchangeDoorsTest, AZippedResultsSourceIsReadUnpackedAndTheUnpackFolderGoes)
{
    const QString archive = work_file(u"resultats.zip"_s);
    const QString inside = folder(u"contenu"_s);
    QFile(QDir(inside).filePath(u"meet.lxf"_s)).open(QIODevice::WriteOnly);
    ASSERT_TRUE(zip_folder(archive, inside));
    const QString report = choose(keyword::kImporRes, u"7"_s, [&](OperationRunner& runner) {
        runner.set_option_ticked(true);
        ui.files.push_back(archive);
        runner.choose_path();
    });
    EXPECT_EQ(report.trimmed(), u"bimport_result num=7 new=0 option=1 source=meet.lxf"_s);
    EXPECT_EQ(ui.file_requests.at(0).filter, u"Fichier de résultats (*.zip)|*.zip"_s);
    EXPECT_EQ(work_folders(), QStringList());
}

TEST_F(ExchangeDoorsTest, EntryFilesGoIntoOneZipOrIntoTheFolderAfterTheQuestion)
{
    const QString archive = work_file(u"engagements.zip"_s);
    QString report = choose(keyword::kDisk, u"3"_s, [&](OperationRunner& runner) {
        EXPECT_EQ(runner.title(), u"Création Fichiers Engagements"_s);
        runner.set_option_ticked(true);
        EXPECT_EQ(runner.label(), u"Fichier généré :"_s);
        ui.files.push_back(archive);
        runner.choose_path();
    });
    EXPECT_TRUE(report.startsWith(u"bCreation_disquette num=3 new=0 option=1"_s));
    EXPECT_TRUE(ui.file_requests.at(0).save);
    EXPECT_EQ(zip_entries(archive), (QStringList{u"engagements.lef"_s, u"relais.lef"_s}));
    EXPECT_TRUE(ui.texts().isEmpty());

    // A zip that cannot be written is told by its name and leaves nothing.
    const QString refused = QDir(plouvarine::testing::unwritable_folder(work_dir())).filePath(u"e.zip"_s);
    choose(keyword::kDisk, u"3"_s, [&](OperationRunner& runner) {
        runner.set_option_ticked(true);
        runner.set_path(refused);
    });
    EXPECT_EQ(ui.texts(), QStringList{u"Erreur lors de la compression  du fichier e.zip."_s});
    EXPECT_FALSE(QFile::exists(refused));
    ui.clear();

    const QString target = folder(u"cible"_s);
    report = choose(keyword::kDisk, u"3"_s, [&](OperationRunner& runner) {
        ui.answers.push_back(Button::Yes);
        runner.set_path(target);
    });
    EXPECT_EQ(QDir(target).entryList(QDir::Files), (QStringList{u"engagements.lef"_s, u"relais.lef"_s}));
    EXPECT_EQ(ui.texts(), QStringList{OperationRunner::kOverwrite});

    // A target that is gone stops the copy, and the work folder still goes.
    ui.clear();
    report = choose(keyword::kDisk, u"3"_s, [&](OperationRunner& runner) {
        ui.answers.push_back(Button::Yes);
        runner.set_path(work_file(u"absent"_s));
    });
    EXPECT_EQ(ui.texts(), (QStringList{OperationRunner::kOverwrite,
                                       u"Le répertoire de sauvegarde n'existe pas.\nCopie annulée"_s}));
    EXPECT_EQ(work_folders(), QStringList());
}

TEST_F(ExchangeDoorsTest, AFileTooLargeForTheTargetAsksForAnotherOneAndIsNeverLeftHalfCopied)
{
    const QString first = folder(u"disque1"_s);
    const QString second = folder(u"disque2"_s);
    const QString kNoRoom = u"Pas assez de place dans le répertoire cible.\n\nChanger de Répertoire ou Annuler"_s;
    const QString kCancelCopy = u"Annuler la copie des fichiers ?"_s;
    const QString report = choose(keyword::kDisk, u"huge"_s, [&](OperationRunner& runner) {
        runner.set_path(first);
        // Overwrite: yes. No room: change. No folder given: do not cancel,
        // ask again; the second disk. No room there either: stop.
        ui.answers = {Button::Yes, Button::Yes, Button::No, Button::No};
        ui.folders = {QString(), second};
    });
    if (report.contains(u"sparse file refused"_s))
        GTEST_SKIP() << "the file system does not take a sparse file larger than the space left";
    EXPECT_EQ(ui.texts(), (QStringList{OperationRunner::kOverwrite, kNoRoom, kCancelCopy, kNoRoom}));
    EXPECT_EQ(ui.folder_prompts.size(), 2);
    EXPECT_TRUE(QDir(first).isEmpty());
    EXPECT_TRUE(QDir(second).isEmpty());
    EXPECT_EQ(work_folders(), QStringList());
}

}  // namespace
