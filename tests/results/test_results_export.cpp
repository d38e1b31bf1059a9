// The outputs of the results list on the fixed meet against their references
// (tab text, HTML tree, rich text through "rescompet", print), and the failures,
// none of which leaves a half-written file behind.

#include "results_test_base.h"

#include "src/base/services.h"
#include "src/reports/templates.h"
#include "src/results/results_export.h"
#include "support/golden.h"
#include "support/temp_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace plouvarine;
using plouvarine::testing::expect_golden;
using plouvarine::testing::read_bytes;
using plouvarine::testing::write_bytes;

namespace {

const QString kSaveFailed =
    QStringLiteral("Une erreur s'est produite lors de la sauvegarde des résultats dans un fichier externe.");

class ResultsExport : public plouvarine::testing::ResultsBase {
protected:
    void SetUp() override
    {
        ResultsBase::SetUp();
        install_template_component();
        show({0, 0, 0, true, true, true});
    }
    bool export_to(const QString& path)
    {
        ui.files.push_back(path);
        return view->exporter();
    }
    QStringList files_in(const QString& folder) const
    {
        return QDir(folder).entryList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    }
};

TEST_F(ResultsExport, TabTextIsTheListAsItStands)
{
    const QString path = work_file(QStringLiteral("resultats.txt"));
    ASSERT_TRUE(export_to(path));
    EXPECT_TRUE(ui.messages.empty());
    ASSERT_EQ(ui.file_requests.size(), 1u);
    EXPECT_EQ(ui.file_requests[0].title, QStringLiteral("Exporter résultats"));
    EXPECT_EQ(ui.file_requests[0].filter,
              QStringLiteral("Fichier texte séparateur tabulation (*.txt)|*.txt|Fichier texte enrichi (*.rtf)|*.rtf|"
                             "Fichier HTML(*.htm)|*.htm"));
    expect_golden(QStringLiteral("results"), QStringLiteral("export.txt"), read_bytes(path));
}

TEST_F(ResultsExport, HtmlTreeHasTheFramesTheLinksAndOnePagePerEvent)
{
    const QString path = work_file(QStringLiteral("meeting.htm"));
    ASSERT_TRUE(export_to(path));
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(files_in(work_dir() + QStringLiteral("/rep_res")),
              (QStringList{QStringLiteral("link_nage.htm"), QStringLiteral("n1.htm"), QStringLiteral("n2.htm"),
                           QStringLiteral("n3.htm"), QStringLiteral("n4.htm"), QStringLiteral("n5.htm")}));
    expect_golden(QStringLiteral("results"), QStringLiteral("html_frames.htm"), read_bytes(path));
    // n2 and n3 hold the splits' inner tables: 7 on one line for the 400 m, 14 on two for the 1500 m.
    for (const char* page : {"link_nage.htm", "n1.htm", "n2.htm", "n3.htm", "n4.htm", "n5.htm"})
        expect_golden(QStringLiteral("results"), QStringLiteral("html_") + QLatin1String(page),
                      read_bytes(work_dir() + QStringLiteral("/rep_res/") + QLatin1String(page)));

    // Again into the folder that now exists: asked first, and written on Yes.
    ui.answers.push_back(Button::Yes);
    ASSERT_TRUE(export_to(path));
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].title, QStringLiteral("Confirmation"));
    EXPECT_TRUE(ui.messages[0].text.startsWith(
        QStringLiteral("Le sous répertoire dans lequel seront copiés les pages de résultats\n")));
    EXPECT_TRUE(ui.messages[0].text.endsWith(
        QStringLiteral("\nexiste déjà. Des fichiers peuvent être écrasés.\nContinuer ?")));
}

TEST_F(ResultsExport, TwoEventsWithOneLabelGetTwoPages)
{
    exec(QStringLiteral("UPDATE Nage SET Libelle = '50m n.l. Dames' WHERE Code_Nage = 11"));
    view.reset();
    show({0, 0, 0, false, false, false});
    const std::map<QString, QString> files = pages_html(view->sheet(), QStringLiteral("M"), QStringLiteral("f.htm"));
    ASSERT_TRUE(files.count(QStringLiteral("rep_res/n4.htm")));
    EXPECT_TRUE(files.at(QStringLiteral("rep_res/n4.htm")).contains(QStringLiteral("<TITLE>Résultats de l'épreuve "
                                                                                     "50m n.l. Dames</TITLE>")));
    EXPECT_TRUE(files.count(QStringLiteral("rep_res/n5.htm")));
    EXPECT_EQ(files.at(QStringLiteral("rep_res/link_nage.htm")).count(QStringLiteral("<a href")), 5);
}

TEST_F(ResultsExport, RichTextAndPrintGoThroughTheTemplate)
{
    const QString path = work_file(QStringLiteral("resultats.rtf"));
    ASSERT_TRUE(export_to(path));
    EXPECT_TRUE(ui.messages.empty());
    ASSERT_TRUE(QFileInfo::exists(template_path(*app, QStringLiteral("rescompet"))))
        << "the missing template is built by the component";
    expect_golden(QStringLiteral("results"), QStringLiteral("export.rtf"), read_bytes(path));
    RichBox saved;
    ASSERT_TRUE(saved.LoadFile(path));
    expect_golden(QStringLiteral("results"), QStringLiteral("export_rtf.txt"), saved.text().toUtf8());

    ASSERT_TRUE(view->imprimer());
    ASSERT_EQ(ui.printed.size(), 1u);
    const QString printed = ui.printed[0].text;
    EXPECT_EQ(printed.count(QStringLiteral("Compétition : Meeting de Brest")), 5) << "the head again on each event";
    EXPECT_EQ(ui.printed[0].html.count(QStringLiteral("page-break-before:always")), 4);

    ui.print_answer = false;
    EXPECT_FALSE(view->imprimer()) << "a cancelled printer choice prints nothing and says nothing";
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(ResultsExport, MissingTemplateComponentStopsTheReport)
{
    QFile::remove(template_component_path(*app));
    EXPECT_FALSE(export_to(work_file(QStringLiteral("resultats.rtf"))));
    EXPECT_FALSE(QFileInfo::exists(work_file(QStringLiteral("resultats.rtf"))));
    ASSERT_FALSE(messages().isEmpty());
    EXPECT_TRUE(messages().last().contains(QStringLiteral("Erreur lors du chargement du modèle rescompet")));
}

TEST_F(ResultsExport, FailuresLeaveThePreviousExportWhole)
{
    const QString path = work_file(QStringLiteral("meeting.htm"));
    ASSERT_TRUE(export_to(path));
    const QByteArray frames = read_bytes(path);
    const QByteArray n1 = read_bytes(work_dir() + QStringLiteral("/rep_res/n1.htm"));

    // "rep_res" exists and the person says no: nothing is touched.
    ui.answers.push_back(Button::No);
    exec(QStringLiteral("UPDATE Rcomp SET Nom = 'Autre nom'"));
    EXPECT_FALSE(export_to(path));
    EXPECT_EQ(read_bytes(path), frames);

    // A disk that fills up: the page that fails is not replaced, nor the frameset.
    const QString folder = work_dir();
    const int code = plouvarine::testing::run_with_file_size_limit(1500, [&] {
        ui.answers.push_back(Button::Yes);
        ui.messages.clear();
        const bool written = export_to(path);
        return !written && messages().size() == 2 && messages().last().startsWith(kSaveFailed) ? 0 : 1;
    });
    EXPECT_EQ(code, 0);
    EXPECT_EQ(read_bytes(path), frames);
    EXPECT_EQ(read_bytes(folder + QStringLiteral("/rep_res/n1.htm")), n1);
    for (const QString& name : files_in(folder + QStringLiteral("/rep_res")))
        EXPECT_TRUE(name.endsWith(QStringLiteral(".htm"))) << "no work file left: " << name.toStdString();

    // A folder that cannot be written: the three forms say so and write nothing.
    ui.messages.clear();
    const QString locked = plouvarine::testing::unwritable_folder(work_dir());
    for (const char* name : {"r.htm", "r.txt", "r.rtf"}) {
        EXPECT_FALSE(export_to(locked + u'/' + QLatin1String(name))) << name;
        ASSERT_FALSE(ui.messages.empty()) << name;
        EXPECT_TRUE(ui.messages.back().text.startsWith(kSaveFailed)) << ui.messages.back().text.toStdString();
        EXPECT_FALSE(QFileInfo::exists(locked + u'/' + QLatin1String(name)));
    }

    // A cancelled dialog is no failure.
    ui.messages.clear();
    EXPECT_FALSE(view->exporter());
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(ResultsExport, AListWithNoEventOpensNoPage)
{
    view->set_chk_all(false);
    for (int r = 0; r < view->lsv_nage().rowCount(); ++r)
        view->lsv_nage().item(r, 0)->setCheckState(Qt::Unchecked);
    view->affiche_resultats();
    EXPECT_FALSE(view->exporter_enabled());
    EXPECT_FALSE(exporte_html(*app, view->sheet(), meet, work_file(QStringLiteral("vide.htm"))));
    EXPECT_EQ(messages(), QStringList{kSaveFailed});
    EXPECT_FALSE(QFileInfo::exists(work_file(QStringLiteral("vide.htm"))));
    EXPECT_FALSE(QFileInfo::exists(work_file(QStringLiteral("rep_res"))));
}

}  // namespace
