// The operation runner "frm_attente" with the real club and licence components.

#include "src/frame/operation_runner.h"
#include "src/frame/components.h"
#include "support/app_fixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <zip.h>

using namespace plouvarine;
using plouvarine::testing::AppFixture;

namespace {

const QString kOverwrite = QStringLiteral("Les fichiers dans le répertoire cibles seront écrasés.\nContinuer ?");

class OperationRunnerTest : public AppFixture {
protected:
    void SetUp() override
    {
        AppFixture::SetUp();
        install_components({"expclub.dll", "rcptclub.dll", "explic.dll", "rcptlic.dll"});
        base = make_base();
        connect(base);
        app->state.club_code = QStringLiteral("0123");
    }

    // What the runner left in the application folder besides the model base.
    QStringList leftovers() const
    {
        QStringList names = QDir(app->app_dir()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
        names.removeIf([](const QString& n) { return n == QLatin1String("modele_base.sav") || n.endsWith(QLatin1String(".so")); });
        return names;
    }
    QString folder(const QString& name)
    {
        const QString path = work_file(name);
        QDir().mkpath(path);
        return path;
    }
    QString last_close() { return value(QStringLiteral("select LastClose from Info")); }

    QString base;
};

TEST_F(OperationRunnerTest, TwoExportsInOneWindowUseFreshWorkFoldersBesideALeftOverOne)
{
    app->db.append_row(QStringLiteral("Club"), {{QStringLiteral("Code_federal"), QStringLiteral("0123")},
                                                {QStringLiteral("Intitule"), QStringLiteral("Cercle des Nageurs d'Étel")}},
                       QStringLiteral("Num"));
    // What a crash left behind: the run takes the next free name.
    ASSERT_TRUE(QDir().mkpath(app->app_file(QStringLiteral("tmpexpimp"))));
    const QString first = folder(QStringLiteral("first"));
    const QString second = folder(QStringLiteral("second"));
    QStringList tmp_dirs, traces;
    bool base_closed_during_run = false;
    ui.drivers[QString(OperationRunner::kName)] = [&](View& view) {
        auto& runner = dynamic_cast<OperationRunner&>(view);
        EXPECT_EQ(runner.label(), QStringLiteral("Répertoire de sauvegarde :"));
        EXPECT_FALSE(runner.option_visible());
        for (const QString& target : {first, second}) {
            ui.folders.push_back(target);
            runner.choose_path();
            ui.answers.push_back(Button::Yes);
            runner.ok();
            base_closed_during_run = base_closed_during_run || !app->db.is_open();
            tmp_dirs << runner.tmp_dir();
            traces << runner.trace_file();
            EXPECT_TRUE(runner.report_shown());
            EXPECT_TRUE(runner.report().contains(QStringLiteral("1 club(s) exporté(s)"))) << runner.report().toStdString();
            EXPECT_EQ(runner.message(0), QStringLiteral("Export en cours"));
            // Ready for the next run.
            EXPECT_TRUE(runner.path().isEmpty());
            EXPECT_TRUE(runner.ok_enabled());
            EXPECT_TRUE(runner.focus_on_path_button());
            EXPECT_EQ(leftovers(), QStringList{QStringLiteral("tmpexpimp")});
        }
        runner.quit();
    };
    run_operation(*app, QStringLiteral("expclub"));

    EXPECT_EQ(ui.folder_prompts.first(), QStringLiteral("Sélectionner le répertoire de sauvegarde"));
    EXPECT_EQ(tmp_dirs, QStringList(2, app->app_file(QStringLiteral("tmpexpimp1"))));
    EXPECT_EQ(traces, QStringList(2, app->app_file(QStringLiteral("traceexpimp.txt"))));
    EXPECT_EQ(ui.texts(), QStringList(2, kOverwrite));
    for (const QString& target : {first, second}) {
        QFile file(QDir(target).filePath(QStringLiteral("clubs.txt")));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << target.toStdString();
        const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        ASSERT_EQ(lines.size(), 2);
        EXPECT_TRUE(lines[1].startsWith(QStringLiteral("0123\tCercle des Nageurs d'Étel\t0")));
    }
    EXPECT_TRUE(base_closed_during_run);
    // The base is back, and the flag of the close stays until the next save.
    ASSERT_TRUE(app->db.is_open());
    EXPECT_EQ(app->db.path(), base);
    EXPECT_EQ(last_close(), QStringLiteral("Vrai"));
    EXPECT_EQ(ui.wait_depth, 0);
}

TEST_F(OperationRunnerTest, NoAtTheOverwriteQuestionRemovesTheWorkFoldersAndTheBaseComesBackAtTheClose)
{
    const QString target = folder(QStringLiteral("target"));
    ui.drivers[QString(OperationRunner::kName)] = [&](View& view) {
        auto& runner = dynamic_cast<OperationRunner&>(view);
        runner.set_path(target);
        ui.answers.push_back(Button::No);
        runner.ok();
        EXPECT_FALSE(app->db.is_open());
        EXPECT_TRUE(leftovers().isEmpty()) << leftovers().join(QLatin1Char(' ')).toStdString();
        EXPECT_FALSE(runner.report_shown());
        EXPECT_FALSE(runner.ok_enabled());
        EXPECT_FALSE(runner.option_enabled());
    };
    run_operation(*app, QStringLiteral("explic"));
    EXPECT_EQ(ui.texts(), QStringList{kOverwrite});
    EXPECT_TRUE(QDir(target).isEmpty());
    ASSERT_TRUE(app->db.is_open());
    EXPECT_EQ(app->db.path(), base);
}

TEST_F(OperationRunnerTest, QuitBeforeOkStillTakesTheBaseBackThroughAFreshConnection)
{
    ui.drivers[QString(OperationRunner::kName)] = [&](View& view) {
        auto& runner = dynamic_cast<OperationRunner&>(view);
        // Cleared here, the flag tells afterwards that the base was closed in
        // good order before it was opened again.
        exec(QStringLiteral("UPDATE Info SET LastClose = false"));
        runner.quit();
        EXPECT_TRUE(runner.is_closed());
    };
    run_operation(*app, QStringLiteral("impclub"));
    ASSERT_TRUE(app->db.is_open());
    EXPECT_EQ(last_close(), QStringLiteral("Vrai"));
    EXPECT_TRUE(ui.texts().isEmpty());
    EXPECT_TRUE(ui.status_history.contains(QStringLiteral("Ouverture de la base")));
}

TEST_F(OperationRunnerTest, OptionsAndPathDialogsFollowTheKeyword)
{
    ui.drivers[QString(OperationRunner::kName)] = [&](View& view) {
        auto& runner = dynamic_cast<OperationRunner&>(view);
        if (runner.keyword() == QLatin1String("impclub")) {
            EXPECT_TRUE(runner.option_visible());
            EXPECT_EQ(runner.option_text(), QStringLiteral("Force mise à jour des clubs"));
            EXPECT_FALSE(runner.option_ticked());
            EXPECT_EQ(runner.label(), QStringLiteral("Répertoire source :"));
            runner.choose_path();  // cancelled: nothing taken
            EXPECT_TRUE(runner.path().isEmpty());
        } else {
            EXPECT_EQ(runner.option_text(), QStringLiteral("Mettre à jour uniquement licence de mon club"));
            EXPECT_EQ(runner.label(), QStringLiteral("Fichier source :"));
            // A file that is no zip is not taken.
            ui.files.push_back(work_file(QStringLiteral("maj.txt")));
            runner.choose_path();
            EXPECT_TRUE(runner.path().isEmpty());
            ui.files.push_back(work_file(QStringLiteral("maj.zip")));
            runner.choose_path();
            EXPECT_EQ(runner.path(), work_file(QStringLiteral("maj.zip")));
        }
    };
    run_operation(*app, QStringLiteral("impclub"));
    run_operation(*app, QStringLiteral("majiuf"));
    EXPECT_EQ(ui.folder_prompts, QStringList{QStringLiteral("Sélectionner le répertoire source")});
    ASSERT_EQ(ui.file_requests.size(), 2u);
    EXPECT_EQ(ui.file_requests[0].filter, QStringLiteral("Fichier de mise à jour (*.zip)|*.zip"));
    EXPECT_EQ(ui.file_requests[0].title, QStringLiteral("Sélectionner fichier compressé de résultats"));
    EXPECT_TRUE(app->db.is_open());
}

TEST_F(OperationRunnerTest, EachMenuCommandOpensItsOperation)
{
    // Performances are the Lenex components' own, not laid out here: their
    // commands reach the runner, which says so.
    QStringList titles;
    ui.drivers[QString(OperationRunner::kName)] = [&](View& view) { titles << view.title(); };
    for (const char* name : {"mnuBaseClubExport", "mnuBaseClubImport", "mnuLicExp", "mnuLicImport", "mnuLicMaj",
                             "mnuPerfExporter", "mnuPerfImpor"}) {
        const CommandTable::Run* run = app->commands.find(QString::fromLatin1(name));
        ASSERT_NE(run, nullptr) << name;
        (*run)(*app);
    }
    EXPECT_EQ(titles, (QStringList{QStringLiteral("Exporter Clubs"), QStringLiteral("Importer Clubs"),
                                   QStringLiteral("Exporter Licences"), QStringLiteral("Importer Licences"),
                                   QStringLiteral("Mise à jour des codes IUF")}));
    EXPECT_EQ(ui.texts(), QStringList(2, OperationRunner::kLoadFailed));
    EXPECT_TRUE(app->db.is_open());
}

TEST_F(OperationRunnerTest, AComponentMissingFromTheApplicationFolderGivesTheLoadError)
{
    QFile::remove(app->app_file(component_file(QStringLiteral("rcptclub.dll"))));
    run_operation(*app, QStringLiteral("impclub"));
    // A ProgID that does not belong to the keyword is refused the same way.
    run_operation(*app, QStringLiteral("explic.clsExportLicence"), QStringLiteral("expclub"), QStringLiteral("x"));
    EXPECT_EQ(ui.texts(), QStringList(2, QStringLiteral("Une erreur s'est produite lors du chargement de la fenêtre")));
    EXPECT_TRUE(ui.shown_views.isEmpty());
    EXPECT_TRUE(app->db.is_open());
}

// An IUF update package: one zip of tab-separated files.
void make_zip(const QString& archive, const std::vector<std::pair<QByteArray, QByteArray>>& entries)
{
    int code = 0;
    zip_t* z = zip_open(QFile::encodeName(archive).constData(), ZIP_CREATE | ZIP_TRUNCATE, &code);
    ASSERT_NE(z, nullptr);
    for (const auto& [name, content] : entries) {
        zip_source_t* src = zip_source_buffer(z, content.constData(), zip_uint64_t(content.size()), 0);
        ASSERT_GE(zip_file_add(z, name.constData(), src, ZIP_FL_ENC_RAW), 0);
    }
    ASSERT_EQ(zip_close(z), 0);
}

class IufUpdateTest : public OperationRunnerTest {
protected:
    void add_licence(const QString& licence, const QString& club, const QString& nom)
    {
        app->db.append_row(QStringLiteral("Licence"),
                           {{QStringLiteral("Licence"), licence}, {QStringLiteral("Code_club"), club},
                            {QStringLiteral("Nom"), nom}, {QStringLiteral("Prenom"), QStringLiteral("Anne")},
                            {QStringLiteral("Date_Naissance"), QStringLiteral("20100304")}},
                           QStringLiteral("Num"));
    }
    QStringList codes() { return dump(QStringLiteral("select Code_unique from Licence where Licence <> '' order by Licence")); }
    QString run(const QString& package, bool my_club_only)
    {
        QString report;
        ui.drivers[QString(OperationRunner::kName)] = [&](View& view) {
            auto& runner = dynamic_cast<OperationRunner&>(view);
            runner.set_option_ticked(my_club_only);
            runner.set_path(package);
            runner.ok();
            report = runner.report();
        };
        run_operation(*app, QStringLiteral("majiuf"));
        return report;
    }
};

TEST_F(IufUpdateTest, UpdatesTheCodesOfKnownSwimmersOnlyTheOwnClubsWhenAskedAndRefusesAnEscapingPath)
{
    add_licence(QStringLiteral("111"), QStringLiteral("0123"), QStringLiteral("Martin"));
    add_licence(QStringLiteral("222"), QStringLiteral("9999"), QStringLiteral("Durand"));
    const QString package = work_file(QStringLiteral("maj.zip"));
    make_zip(package, {{"lisezmoi.txt", "Codes IUF de la saison\n\tà jour\n"},
                       {"maj/iuf.txt", "Licence\tCode_unique\r\n111\tA1\r\n222\tB2\r\n333\tC3\r\n"}});

    QString report = run(package, true);
    EXPECT_EQ(codes(), (QStringList{QStringLiteral("A1"), QString()}));
    EXPECT_TRUE(report.contains(QStringLiteral("1 code(s) IUF mis à jour, 1 licence(s) inconnue(s), 1 licence(s) d'autres clubs")))
        << report.toStdString();
    EXPECT_TRUE(report.contains(QStringLiteral("ligne 4 : licence 333 inconnue")));
    EXPECT_TRUE(report.contains(QStringLiteral("Fichier lisezmoi.txt ignoré")));

    report = run(package, false);
    EXPECT_EQ(codes(), (QStringList{QStringLiteral("A1"), QStringLiteral("B2")}));
    EXPECT_TRUE(leftovers().isEmpty()) << leftovers().join(QLatin1Char(' ')).toStdString();

    // A package with a path out of its folder is refused before anything is written.
    ui.clear();
    make_zip(package, {{"iuf.txt", "Licence\tCode_unique\n111\tZZ\n"}, {"../evil.txt", "Licence\tCode_unique\n222\tZZ\n"}});
    EXPECT_TRUE(run(package, false).isEmpty());
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_TRUE(ui.messages[0].text.endsWith(QStringLiteral("Une erreur s'est produite lors de la décompression.")));
    EXPECT_FALSE(QFile::exists(QDir(app->app_dir()).filePath(QStringLiteral("../evil.txt"))));
    EXPECT_TRUE(leftovers().isEmpty()) << leftovers().join(QLatin1Char(' ')).toStdString();
    ASSERT_TRUE(app->db.is_open());
    EXPECT_EQ(codes(), (QStringList{QStringLiteral("A1"), QStringLiteral("B2")}));
}

}  // namespace
