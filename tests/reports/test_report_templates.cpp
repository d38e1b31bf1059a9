// The report templates: filling at the selection, tags replaced once, the
// loader with the template component, the profile and competition tags read
// from a real base, and printing to a real PDF.

#include "src/reports/rich_text.h"
#include "src/reports/rtf_writer.h"
#include "src/reports/templates.h"
#include "src/frame/components.h"
#include "report_test_support.h"
#include "support/app_fixture.h"
#include "support/temp_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextCursor>
#include <gtest/gtest.h>

#include <stdexcept>

namespace plouvarine::testing {
namespace {

// A document holding `text` in the given font, as the template of a test.
void set_text(RichBox& rich, const QString& text, const QString& family = QStringLiteral("Arial"))
{
    QTextCharFormat f;
    f.setFontFamilies(QStringList{family});
    f.setFontPointSize(10);
    rich.document().clear();
    QTextCursor(&rich.document()).insertText(text, f);
}

TEST(RichBoxOperations, TagReplacedOnlyAtItsFirstPlaceAfterTheStart)
{
    ensure_gui_application();
    RichBox rich;
    set_text(rich, QStringLiteral("<NOM_CLUB> écrit à <NOM_CLUB>"));
    EXPECT_TRUE(RemplacerBalise(rich, QStringLiteral("<NOM_CLUB>"), QStringLiteral("CN Brest")));
    EXPECT_EQ(rich.text(), QStringLiteral("CN Brest écrit à <NOM_CLUB>"));

    // From a start past the first place, the second one changes.
    set_text(rich, QStringLiteral("<X> puis <X> puis <X>"));
    EXPECT_TRUE(RemplacerBalise(rich, QStringLiteral("<X>"), QStringLiteral("b"), 1));
    EXPECT_EQ(rich.text(), QStringLiteral("<X> puis b puis <X>"));

    // A tag that is not there writes nothing anywhere.
    set_text(rich, QStringLiteral("Bonjour"));
    rich.select(3, 0);
    EXPECT_FALSE(RemplacerBalise(rich, QStringLiteral("<ENGAG>"), QStringLiteral("perdu")));
    EXPECT_EQ(rich.text(), QStringLiteral("Bonjour"));

    // The text takes the tag's font; the tag is found in any case.
    set_text(rich, QStringLiteral("Ligne <engag_indiv> fin"), QStringLiteral("Courier New"));
    ASSERT_TRUE(RemplacerBalise(rich, QStringLiteral("<ENGAG_INDIV>"), QStringLiteral("DUPONT\nMARTIN")));
    EXPECT_EQ(rich.text(), QStringLiteral("Ligne DUPONT\nMARTIN fin"));
    EXPECT_EQ(rich.document().blockCount(), 2);
    EXPECT_EQ(run_with(rich.document(), QStringLiteral("MARTIN")).family, QStringLiteral("Courier New"));
}

TEST(RichBoxOperations, StylesApplyToWhatIsWrittenAndStop)
{
    ensure_gui_application();
    RichBox rich;
    set_text(rich, QStringLiteral("<ENGAG>"));
    ASSERT_EQ(rich.Find(QStringLiteral("<ENGAG>")), 0);
    int start = -1, length = -1;
    LirePosition(rich, start, length);
    EXPECT_EQ(start, 0);
    EXPECT_EQ(length, 7);

    EcrireSouligne(rich, QStringLiteral("Equipe 1 Homme"), 12);
    EcrireTexte(rich, QStringLiteral(" / "));
    EcrireGras(rich, QStringLiteral("gras"));
    EcrireStyle(rich, QStringLiteral("les deux"), 8, true, true);
    EcrireTexte(rich, QStringLiteral("fin"), 0);
    EXPECT_EQ(rich.text(), QStringLiteral("Equipe 1 Homme / grasles deuxfin"));

    const TextRun heading = run_with(rich.document(), QStringLiteral("Equipe"));
    EXPECT_TRUE(heading.underline);
    EXPECT_FALSE(heading.bold);
    EXPECT_EQ(heading.size, 12);
    const TextRun plain = run_with(rich.document(), QStringLiteral(" / "));
    EXPECT_FALSE(plain.underline);
    EXPECT_EQ(plain.size, 12);  // a size of 0 keeps the size in use
    EXPECT_TRUE(run_with(rich.document(), QStringLiteral("gras")).bold);
    const TextRun both = run_with(rich.document(), QStringLiteral("les deux"));
    EXPECT_TRUE(both.bold && both.underline);
    EXPECT_EQ(both.size, 8);
    const TextRun last = run_with(rich.document(), QStringLiteral("fin"));
    EXPECT_FALSE(last.bold || last.underline);
    EXPECT_EQ(last.size, 8);

    // Attributes set on a selection change it in place.
    rich.select(0, 6);
    SetGras(rich, true);
    SetPolice(rich, QStringLiteral("Wingdings"));
    EXPECT_TRUE(run_with(rich.document(), QStringLiteral("Equipe")).bold);
    EXPECT_EQ(run_with(rich.document(), QStringLiteral("Equipe")).family, QStringLiteral("Wingdings"));
    EXPECT_FALSE(run_with(rich.document(), QStringLiteral(" 1 Homme")).bold);
    SetAlignement(rich, Qt::AlignRight);
    EXPECT_EQ(rich.document().begin().blockFormat().alignment() & Qt::AlignHorizontal_Mask, Qt::AlignRight);
}

TEST(RichBoxOperations, RichMessageKeepsItsFormattingInPlaceOfTheTag)
{
    ensure_gui_application();
    RichBox message;
    set_text(message, QStringLiteral("Rendez-vous "));
    message.move_to_end();
    EcrireGras(message, QStringLiteral("à 8 h"));
    RichBox rich;
    set_text(rich, QStringLiteral("Début <MSG_PERSO> suite"), QStringLiteral("Times New Roman"));
    ASSERT_GE(rich.Find(QStringLiteral("<MSG_PERSO>")), 0);
    EcrireRich(rich, message);
    EXPECT_EQ(rich.text(), QStringLiteral("Début Rendez-vous à 8 h suite"));
    EXPECT_TRUE(run_with(rich.document(), QStringLiteral("à 8 h")).bold);
    EXPECT_EQ(run_with(rich.document(), QStringLiteral("Rendez-vous")).family, QStringLiteral("Arial"));
    EXPECT_EQ(run_with(rich.document(), QStringLiteral(" suite")).family, QStringLiteral("Times New Roman"));

    // A copy of a loaded template is independent of it.
    RichBox copy;
    copy.copy_from(rich);
    RemplacerBalise(copy, QStringLiteral("Début"), QStringLiteral("X"));
    EXPECT_TRUE(rich.text().startsWith(QStringLiteral("Début")));
    EXPECT_TRUE(copy.text().startsWith(QStringLiteral("X ")));
}

class ReportTemplates : public AppFixture {
protected:
    void SetUp() override
    {
        ensure_gui_application();
        AppFixture::SetUp();
    }

    void install_component() { install_template_component(); }

    QString add_competition(const QString& pool_name)
    {
        app->db.exec_sql(QStringLiteral("INSERT INTO Piscine (Nom, Adresse, Code_Postal, Ville) VALUES ('") +
                         pool_name + QStringLiteral("', '12 rue du Port', '29200', 'Brest')"));
        const QString pool = app->db.load_rows(QStringLiteral("SELECT max(Num) FROM Piscine")).first();
        app->db.exec_sql(QStringLiteral("INSERT INTO Rcomp (Nom, Debut, Fin, Lieu, Longueur, Num_Piscine) VALUES "
                                        "('Meeting d''hiver', '20260207', '20260208', 'Brest', 25, ") +
                         pool + QStringLiteral(")"));
        return app->db.load_rows(QStringLiteral("SELECT max(AutoNum) FROM Rcomp")).first();
    }
};

TEST_F(ReportTemplates, MissingComponentNamesTheKindAndBuildsNothing)
{
    const QString path = template_path(*app, QStringLiteral("convo"));
    EXPECT_TRUE(path.endsWith(QStringLiteral("/modeles/convo.rtf")));
    RichBox rich;
    EXPECT_FALSE(ChargerModele(*app, path, rich, QStringLiteral("convo")));
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("Erreur lors du chargement du modèle convo")});
    EXPECT_EQ(ui.messages.at(0).title, QStringLiteral("Erreur"));
    EXPECT_FALSE(QFile::exists(path));

    // A component file that is no plugin fails the same way.
    ui.clear();
    ASSERT_TRUE(write_bytes(template_component_path(*app), "MZ not a plugin"));
    EXPECT_FALSE(ChargerModele(*app, path, rich, QStringLiteral("convo")));
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("Erreur lors du chargement du modèle convo")});
}

TEST_F(ReportTemplates, EachKindIsBuiltWithItsTagsThenLoaded)
{
    install_component();
    for (const TemplateKind& kind : template_kinds()) {
        SCOPED_TRACE(kind.kind.toStdString());
        const QString path = template_path(*app, kind.kind);
        ASSERT_FALSE(QFile::exists(path));
        RichBox rich;
        ASSERT_TRUE(ChargerModele(*app, path, rich, kind.kind));
        EXPECT_TRUE(QFile::exists(path));
        for (const QString& tag : kind.tags)
            EXPECT_TRUE(rich.text().contains(tag)) << tag.toStdString();
        EXPECT_EQ(rich.text().contains(kProgrammeHeading), kind.programme_heading);
        // The last paragraph, where the reports append their lines, is in the
        // fixed-width font.
        rich.move_to_end();
        EXPECT_EQ(rich.cursor().charFormat().fontFamilies().toStringList().value(0), kFixedFont);
    }
    EXPECT_TRUE(ui.messages.empty());

    // The column tags stand in the fixed-width font.
    RichBox slip;
    ASSERT_TRUE(ChargerModele(*app, template_path(*app, QStringLiteral("bor_engag")), slip, QStringLiteral("bor_engag")));
    EXPECT_EQ(run_with(slip.document(), tags::kEngagIndiv).family, kFixedFont);
    EXPECT_EQ(run_with(slip.document(), tags::kEngagRelais).family, kFixedFont);
    RichBox convo;
    ASSERT_TRUE(ChargerModele(*app, template_path(*app, QStringLiteral("convo")), convo, QStringLiteral("convo")));
    EXPECT_EQ(run_with(convo.document(), tags::kEngag).family, kFixedFont);
    EXPECT_NE(run_with(convo.document(), tags::kMsgPerso).family, kFixedFont);

    QString error;
    EXPECT_FALSE(build_template(*app, app->app_file(QStringLiteral("modeles/x.rtf")), QStringLiteral("inconnu"), &error));
    EXPECT_FALSE(QFile::exists(app->app_file(QStringLiteral("modeles/x.rtf"))));
}

TEST_F(ReportTemplates, AnEditedTemplateIsLoadedAsItIsAndNeverRebuilt)
{
    install_component();
    const QString path = template_path(*app, QStringLiteral("sperf"));
    ASSERT_TRUE(QDir().mkpath(templates_folder(*app)));
    ASSERT_TRUE(write_bytes(path, "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0 Suivi de <NOM_CLUB> modifi\\'e9\\par}"));
    RichBox rich;
    ASSERT_TRUE(ChargerModele(*app, path, rich, QStringLiteral("sperf")));
    EXPECT_EQ(rich.text(), QStringLiteral("Suivi de <NOM_CLUB> modifié"));
    // The absent tag <DATE_MAJ> is skipped with no error.
    EXPECT_FALSE(RemplacerBalise(rich, tags::kDateMaj, QStringLiteral("1 mars 2026")));
    EXPECT_EQ(rich.text(), QStringLiteral("Suivi de <NOM_CLUB> modifié"));

    // A damaged template names its kind; with the build skipped, a missing one too.
    ASSERT_TRUE(write_bytes(path, "pas du RTF"));
    EXPECT_FALSE(ChargerModele(*app, path, rich, QStringLiteral("sperf")));
    const QString rec = template_path(*app, QStringLiteral("rec"));
    EXPECT_FALSE(ChargerModele(*app, rec, rich, QStringLiteral("rec"), true));
    EXPECT_FALSE(QFile::exists(rec));
    EXPECT_EQ(ui.texts(), (QStringList{QStringLiteral("Erreur lors du chargement du modèle sperf"),
                                       QStringLiteral("Erreur lors du chargement du modèle rec")}));
}

TEST_F(ReportTemplates, ProfileAndCompetitionTagsFromTheBase)
{
    connect(make_base());
    install_component();
    app->state.club_name = QStringLiteral("Cercle Nautique de Brest");
    app->state.club_code = QStringLiteral("FRA3290290012");
    app->clock.set_today(QDate(2026, 2, 1));
    const QString num = add_competition(QStringLiteral("Piscine de Recouvrance"));

    RichBox rich;
    ASSERT_TRUE(ChargerModele(*app, template_path(*app, QStringLiteral("convo")), rich, QStringLiteral("convo")));
    EcrireTagsProfil(*app, rich);
    const auto info = lire_competition(*app, num, true);
    ASSERT_TRUE(info.has_value());
    EcrireTagsCompetition(*app, rich, *info);
    const QString text = rich.text();
    for (const QString& expected :
         {QStringLiteral("Cercle Nautique de Brest"), QStringLiteral("Code club : FRA3290290012"),
          QStringLiteral("Le 1 février 2026"), QStringLiteral("Meeting d'hiver"), QStringLiteral("7/02 - 8/02/2026"),
          QStringLiteral("Bassin : 25 m"), QStringLiteral("Piscine : Piscine de Recouvrance"),
          QStringLiteral("12 rue du Port"), QStringLiteral("29200 Brest")})
        EXPECT_TRUE(text.contains(expected)) << expected.toStdString();
    for (const QString& gone : {tags::kNomClub, tags::kCodeClub, tags::kDateJour, tags::kNomCompet, tags::kDateCompet,
                                tags::kLieuCompet, tags::kBassin, tags::kNomPiscine, tags::kVillePiscine})
        EXPECT_FALSE(text.contains(gone)) << gone.toStdString();
    // The rich-text export of a filled report reads back as it was.
    const QString saved = work_file(QStringLiteral("convocation.rtf"));
    ASSERT_TRUE(rich.SaveFile(saved));
    RichBox again;
    ASSERT_TRUE(again.LoadFile(saved));
    EXPECT_EQ(again.text(), text);
    EXPECT_TRUE(run_with(again.document(), QStringLiteral("Meeting")).bold);
    EXPECT_TRUE(ui.status_history.contains(QStringLiteral("Impression information profil utilisateur")));
    EXPECT_TRUE(ui.status_history.contains(QStringLiteral("Ecriture informations sur la compétition")));

    // The pool "Null" stands for no pool: the three pool tags vanish.
    const QString without = add_competition(QStringLiteral("Null"));
    RichBox other;
    ASSERT_TRUE(ChargerModele(*app, template_path(*app, QStringLiteral("convo")), other, QStringLiteral("convo")));
    EcrireTagsCompetition(*app, other, *lire_competition(*app, without, true));
    EXPECT_TRUE(other.text().contains(QStringLiteral("Piscine : \n\n\n")));
    EXPECT_FALSE(other.text().contains(QStringLiteral("Brest\n29200")));
    EXPECT_FALSE(other.text().contains(QStringLiteral("Null")));

    EXPECT_FALSE(lire_competition(*app, QStringLiteral("9999"), false).has_value());
    EXPECT_EQ(date_compet_text(QStringLiteral("20261115"), QStringLiteral("20261115")), QStringLiteral("15/11 - 15/11/2026"));
}

TEST_F(ReportTemplates, AMetafileLogoIsToldAndLeftOutAndTheHeaderIsFilledAndPrinted)
{
    connect(make_base());
    app->state.club_name = QStringLiteral("CN Brest");
    const QString path = template_path(*app, QStringLiteral("rptlic"));
    ASSERT_TRUE(QDir().mkpath(templates_folder(*app)));
    ASSERT_TRUE(write_bytes(path, "{\\rtf1\\ansi{\\header Licences du <NOM_CLUB>\\par}{\\footer <NOM_CLUB>, "
                                  "<NOM_CLUB>\\par}{\\pict\\wmetafile8\\picwgoal600\\pichgoal300 01000900}"
                                  "Liste de <NOM_CLUB>\\par}"));
    ReportJob job;
    job.kind = QStringLiteral("rptlic");
    job.title = QStringLiteral("Licences");
    ASSERT_TRUE(imprimer_rapport(*app, job));
    ASSERT_EQ(ui.reports.size(), 1u);
    EXPECT_EQ(ui.reports.at(0).title, QStringLiteral("Chargement du modèle rptlic"));
    ASSERT_EQ(ui.reports.at(0).lines.size(), 1u);
    EXPECT_TRUE(ui.reports.at(0).lines.at(0).text.contains(QStringLiteral("WMF")));
    EXPECT_TRUE(ui.messages.empty());
    ASSERT_EQ(ui.printed.size(), 1u);
    EXPECT_EQ(ui.printed.at(0).text, QStringLiteral("Liste de CN Brest"));
    // Printed on every page, the header and the footer have all their tags filled.
    EXPECT_EQ(ui.printed.at(0).header, QStringLiteral("Licences du CN Brest"));
    EXPECT_EQ(ui.printed.at(0).footer, QStringLiteral("CN Brest, CN Brest"));
}

TEST_F(ReportTemplates, PrintsAFilledReportToPdfAndNothingHalfFilled)
{
    connect(make_base());
    install_component();
    app->state.club_name = QStringLiteral("CN Brest");
    const QString num = add_competition(QStringLiteral("Piscine de Recouvrance"));
    const QString pdf = work_file(QStringLiteral("bordereau.pdf"));
    ui.print_pdf = pdf;

    ReportJob job;
    job.kind = QStringLiteral("bor_engag");
    job.title = QStringLiteral("Bordereau");
    job.competition = num;
    job.fill = [](TempoRapport& tempo) {
        RemplacerBalise(tempo.rich, tags::kEngagIndiv, QStringLiteral("DUPONT               Jean  100 Nage Libre  1:02.35"));
        RemplacerBalise(tempo.rich, tags::kEngagRelais, QString());
    };
    ASSERT_TRUE(imprimer_rapport(*app, job));
    ASSERT_EQ(ui.printed.size(), 1u);
    EXPECT_EQ(ui.printed.at(0).title, QStringLiteral("Bordereau"));
    EXPECT_TRUE(ui.printed.at(0).text.contains(QStringLiteral("Meeting d'hiver")));
    EXPECT_TRUE(ui.printed.at(0).text.contains(QStringLiteral("DUPONT")));
    EXPECT_FALSE(ui.printed.at(0).text.contains(QLatin1Char('<')));
    const QByteArray bytes = read_bytes(pdf);
    EXPECT_TRUE(bytes.startsWith("%PDF"));
    EXPECT_GT(bytes.size(), 1000);
    EXPECT_EQ(ui.status_history.last(), QStringLiteral("Impression"));

    // A filling that fails prints nothing.
    job.fill = [](TempoRapport&) { throw std::runtime_error("lecture impossible"); };
    EXPECT_THROW(imprimer_rapport(*app, job), std::runtime_error);
    EXPECT_EQ(ui.printed.size(), 1u);

    // A damaged template stops the report with its kind named, before printing.
    ASSERT_TRUE(write_bytes(template_path(*app, QStringLiteral("bor_engag")), QByteArray()));
    job.fill = nullptr;
    EXPECT_FALSE(imprimer_rapport(*app, job));
    EXPECT_EQ(ui.printed.size(), 1u);
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("Erreur lors du chargement du modèle bor_engag")});

    // Cancelling the printer choice prints nothing and is no error.
    ui.clear();
    ui.print_answer = false;
    job.kind = QStringLiteral("rescompet");
    EXPECT_FALSE(imprimer_rapport(*app, job));
    EXPECT_TRUE(ui.messages.empty());
}

}  // namespace
}  // namespace plouvarine::testing
