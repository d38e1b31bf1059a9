// The report templates: tags replaced at the selection, the loader with the
// template component, tags read from a real base, and printing to a real PDF.

#include "src/reports/rich_text.h"
#include "src/reports/rtf_writer.h"
#include "src/reports/templates.h"
#include "src/frame/components.h"
#include "report_test_support.h"
#include "support/app_fixture.h"
#include "support/temp_files.h"

#include <QDir>
#include <QFile>
#include <QTextCursor>
#include <gtest/gtest.h>

#include <stdexcept>

using namespace Qt::Literals::StringLiterals;

namespace plouvarine::testing {
namespace {

// A document holding `text` in the given font, as the template of a test.
void set_text(RichBox& rich, const QString& text, const QString& family = u"Arial"_s)
{
    QTextCharFormat f;
    f.setFontFamilies(QStringList{family});
    f.setFontPointSize(10);
    rich.document().clear();
    QTextCursor(&rich.document()).insertText(text, f);
}

TEST(RichBoxOperations, TagReplacedOnlyAtItsFirstPlaceAfterTheStartByTextOrRichText)
{
    ensure_gui_application();
    RichBox rich;
    set_text(rich, u"<NOM_CLUB> écrit à <NOM_CLUB>"_s);
    EXPECT_TRUE(RemplacerBalise(rich, u"<NOM_CLUB>"_s, u"CN Brest"_s));
    EXPECT_EQ(rich.text(), u"CN Brest écrit à <NOM_CLUB>"_s);

    // From a start past the first place, the second one changes.
    set_text(rich, u"<X> puis <X> puis <X>"_s);
    EXPECT_TRUE(RemplacerBalise(rich, u"<X>"_s, u"b"_s, 1));
    EXPECT_EQ(rich.text(), u"<X> puis b puis <X>"_s);

    // A tag that is not there writes nothing anywhere.
    set_text(rich, u"Bonjour"_s);
    rich.select(3, 0);
    EXPECT_FALSE(RemplacerBalise(rich, u"<ENGAG>"_s, u"perdu"_s));
    EXPECT_EQ(rich.text(), u"Bonjour"_s);

    // The text takes the tag's font; the tag is found in any case.
    set_text(rich, u"Ligne <engag_indiv> fin"_s, u"Courier New"_s);
    ASSERT_TRUE(RemplacerBalise(rich, u"<ENGAG_INDIV>"_s, u"DUPONT\nMARTIN"_s));
    EXPECT_EQ(rich.text(), u"Ligne DUPONT\nMARTIN fin"_s);
    EXPECT_EQ(rich.document().blockCount(), 2);
    EXPECT_EQ(run_with(rich.document(), u"MARTIN"_s).family, u"Courier New"_s);

    // A rich message keeps its formatting in place of the tag.
    RichBox message;
    set_text(message, u"Rendez-vous "_s);
    message.move_to_end();
    EcrireGras(message, u"à 8 h"_s);
    set_text(rich, u"Début <MSG_PERSO> suite"_s, u"Times New Roman"_s);
    ASSERT_GE(rich.Find(u"<MSG_PERSO>"_s), 0);
    EcrireRich(rich, message);
    EXPECT_EQ(rich.text(), u"Début Rendez-vous à 8 h suite"_s);
    const QTextDocument& doc = rich.document();
    EXPECT_EQ(QStringList({look(doc, u"Rendez-vous"_s), look(doc, u"à 8 h"_s), look(doc, u" suite"_s)}),
              QStringList({"Arial 10", "Arial 10 bold", "Times New Roman 10"}));

    // A copy of a loaded template is independent of it.
    RichBox copy;
    copy.copy_from(rich);
    RemplacerBalise(copy, u"Début"_s, u"X"_s);
    EXPECT_EQ(QStringList({rich.text(), copy.text()}),
              QStringList({u"Début Rendez-vous à 8 h suite"_s, u"X Rendez-vous à 8 h suite"_s}));
}

TEST(RichBoxOperations, StylesApplyToWhatIsWrittenAndStop)
{
    ensure_gui_application();
    RichBox rich;
    set_text(rich, u"<ENGAG>"_s);
    ASSERT_EQ(rich.Find(u"<ENGAG>"_s), 0);
    int start = -1, length = -1;
    LirePosition(rich, start, length);
    EXPECT_EQ(QList<int>({start, length}), QList<int>({0, 7}));

    EcrireSouligne(rich, u"Equipe 1 Homme"_s, 12);
    EcrireTexte(rich, u" / "_s);
    EcrireGras(rich, u"gras"_s);
    EcrireStyle(rich, u"les deux"_s, 8, true, true);
    EcrireTexte(rich, u"fin"_s, 0);
    EXPECT_EQ(rich.text(), u"Equipe 1 Homme / grasles deuxfin"_s);

    // A size of 0 keeps the size in use.
    const QTextDocument& doc = rich.document();
    EXPECT_EQ(QStringList({look(doc, u"Equipe"_s), look(doc, u" / "_s), look(doc, u"gras"_s), look(doc, u"les deux"_s),
                           look(doc, u"fin"_s)}),
              QStringList({"Arial 12 underline", "Arial 12", "Arial 12 bold", "Arial 8 bold underline", "Arial 8"}));

    // Attributes set on a selection change it in place.
    rich.select(0, 6);
    SetGras(rich, true);
    SetPolice(rich, u"Wingdings"_s);
    EXPECT_EQ(QStringList({look(doc, u"Equipe"_s), look(doc, u" 1 Homme"_s)}),
              QStringList({"Wingdings 12 bold underline", "Arial 12 underline"}));
    SetAlignement(rich, Qt::AlignRight);
    EXPECT_EQ(alignment(doc.begin()), Qt::AlignRight);
}

class ReportTemplates : public AppFixture {
protected:
    void SetUp() override
    {
        ensure_gui_application();
        AppFixture::SetUp();
    }

    QString add_competition(const QString& pool_name)
    {
        app->db.exec_sql(u"INSERT INTO Piscine (Nom, Adresse, Code_Postal, Ville) VALUES ('"_s + pool_name +
                         u"', '12 rue du Port', '29200', 'Brest')"_s);
        const QString pool = app->db.load_rows(u"SELECT max(Num) FROM Piscine"_s).first();
        app->db.exec_sql(QStringLiteral("INSERT INTO Rcomp (Nom, Debut, Fin, Lieu, Longueur, Num_Piscine) VALUES "
                                        "('Meeting d''hiver', '20260207', '20260208', 'Brest', 25, ") +
                         pool + u")"_s);
        return app->db.load_rows(u"SELECT max(AutoNum) FROM Rcomp"_s).first();
    }
};

TEST_F(ReportTemplates, EachKindIsBuiltWithItsTagsThenLoaded)
{
    install_template_component();
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
    ASSERT_TRUE(ChargerModele(*app, template_path(*app, u"bor_engag"_s), slip, u"bor_engag"_s));
    RichBox convo;
    ASSERT_TRUE(ChargerModele(*app, template_path(*app, u"convo"_s), convo, u"convo"_s));
    EXPECT_EQ(QStringList({run_with(slip.document(), tags::kEngagIndiv).family,
                           run_with(slip.document(), tags::kEngagRelais).family,
                           run_with(convo.document(), tags::kEngag).family}),
              QStringList(3, kFixedFont));
    EXPECT_NE(run_with(convo.document(), tags::kMsgPerso).family, kFixedFont);

    QString error;
    EXPECT_FALSE(build_template(*app, app->app_file(u"modeles/x.rtf"_s), u"inconnu"_s, &error));
    EXPECT_FALSE(QFile::exists(app->app_file(u"modeles/x.rtf"_s)));
}

TEST_F(ReportTemplates, FailedLoadsNameTheKindAndAnEditedTemplateIsNeverRebuilt)
{
    const QString convo = template_path(*app, u"convo"_s);
    EXPECT_TRUE(convo.endsWith(u"/modeles/convo.rtf"_s));
    RichBox rich;
    EXPECT_FALSE(ChargerModele(*app, convo, rich, u"convo"_s));
    EXPECT_EQ(ui.messages.at(0).title, u"Erreur"_s);
    EXPECT_FALSE(QFile::exists(convo));
    // A component file that is no plugin fails the same way.
    ASSERT_TRUE(write_bytes(template_component_path(*app), "MZ not a plugin"));
    EXPECT_FALSE(ChargerModele(*app, convo, rich, u"convo"_s));

    QFile::remove(template_component_path(*app));
    install_template_component();
    const QString path = template_path(*app, u"sperf"_s);
    ASSERT_TRUE(QDir().mkpath(templates_folder(*app)));
    ASSERT_TRUE(write_bytes(path, "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0 Suivi de <NOM_CLUB> modifi\\'e9\\par}"));
    ASSERT_TRUE(ChargerModele(*app, path, rich, u"sperf"_s));
    EXPECT_EQ(rich.text(), u"Suivi de <NOM_CLUB> modifié"_s);
    // The absent tag <DATE_MAJ> is skipped with no error.
    EXPECT_FALSE(RemplacerBalise(rich, tags::kDateMaj, u"1 mars 2026"_s));
    EXPECT_EQ(rich.text(), u"Suivi de <NOM_CLUB> modifié"_s);

    // A damaged template names its kind; with the build skipped, a missing one too.
    ASSERT_TRUE(write_bytes(path, "pas du RTF"));
    EXPECT_FALSE(ChargerModele(*app, path, rich, u"sperf"_s));
    const QString rec = template_path(*app, u"rec"_s);
    EXPECT_FALSE(ChargerModele(*app, rec, rich, u"rec"_s, true));
    EXPECT_FALSE(QFile::exists(rec));
    EXPECT_EQ(ui.texts(), QStringList({u"Erreur lors du chargement du modèle convo"_s,
                                       u"Erreur lors du chargement du modèle convo"_s,
                                       u"Erreur lors du chargement du modèle sperf"_s,
                                       u"Erreur lors du chargement du modèle rec"_s}));
}

TEST_F(ReportTemplates, ProfileAndCompetitionTagsFromTheBase)
{
    connect(make_base());
    install_template_component();
    app->state.club_name = u"Cercle Nautique de Brest"_s;
    app->state.club_code = u"FRA3290290012"_s;
    app->clock.set_today(QDate(2026, 2, 1));
    const QString num = add_competition(u"Piscine de Recouvrance"_s);

    RichBox rich;
    ASSERT_TRUE(ChargerModele(*app, template_path(*app, u"convo"_s), rich, u"convo"_s));
    EcrireTagsProfil(*app, rich);
    const auto info = lire_competition(*app, num, true);
    ASSERT_TRUE(info.has_value());
    EcrireTagsCompetition(*app, rich, *info);
    // Every tag filled, the pool's address among them, is pinned by the
    // convocation's golden file (tests/entries).
    EXPECT_TRUE(ui.status_history.contains(u"Impression information profil utilisateur"_s));
    EXPECT_TRUE(ui.status_history.contains(u"Ecriture informations sur la compétition"_s));

    // The pool "Null" stands for no pool: the three pool tags vanish.
    const QString without = add_competition(u"Null"_s);
    RichBox other;
    ASSERT_TRUE(ChargerModele(*app, template_path(*app, u"convo"_s), other, u"convo"_s));
    EcrireTagsCompetition(*app, other, *lire_competition(*app, without, true));
    EXPECT_TRUE(other.text().contains(u"Piscine : \n\n\n"_s));
    EXPECT_FALSE(other.text().contains(u"Brest\n29200"_s));
    EXPECT_FALSE(other.text().contains(u"Null"_s));

    EXPECT_FALSE(lire_competition(*app, u"9999"_s, false).has_value());
    EXPECT_EQ(date_compet_text(u"20261115"_s, u"20261115"_s), u"15/11 - 15/11/2026"_s);
}

TEST_F(ReportTemplates, PrintsHeadersAndFootersFilledAndNothingHalfFilled)
{
    connect(make_base());
    install_template_component();
    app->state.club_name = u"CN Brest"_s;
    const QString num = add_competition(u"Piscine de Recouvrance"_s);

    ReportJob job;
    job.kind = u"bor_engag"_s;
    job.title = u"Bordereau"_s;
    job.competition = num;
    // A filling that fails prints nothing. A filled slip, its pages and its
    // status line, is pinned by the slip's golden file (tests/entries).
    job.fill = [](TempoRapport&) { throw std::runtime_error("lecture impossible"); };
    EXPECT_THROW(imprimer_rapport(*app, job), std::runtime_error);
    EXPECT_TRUE(ui.printed.empty());

    // A metafile logo is told and left out; the header and the footer, printed
    // on every page, have all their tags filled.
    ASSERT_TRUE(write_bytes(template_path(*app, u"rptlic"_s),
                            "{\\rtf1\\ansi{\\header Licences du <NOM_CLUB>\\par}{\\footer <NOM_CLUB>, "
                            "<NOM_CLUB>\\par}{\\pict\\wmetafile8\\picwgoal600\\pichgoal300 01000900}"
                            "Liste de <NOM_CLUB>\\par}"));
    job = ReportJob();
    job.kind = u"rptlic"_s;
    job.title = u"Licences"_s;
    ASSERT_TRUE(imprimer_rapport(*app, job));
    ASSERT_EQ(ui.reports.size(), 1u);
    EXPECT_EQ(ui.reports.at(0).title, u"Chargement du modèle rptlic"_s);
    ASSERT_EQ(ui.reports.at(0).lines.size(), 1u);
    EXPECT_TRUE(ui.reports.at(0).lines.at(0).text.contains(u"WMF"_s));
    EXPECT_TRUE(ui.messages.empty());
    ASSERT_EQ(ui.printed.size(), 1u);
    EXPECT_EQ(QStringList({ui.printed.back().text, ui.printed.back().header, ui.printed.back().footer}),
              QStringList({"Liste de CN Brest", "Licences du CN Brest", "CN Brest, CN Brest"}));

    // Cancelling the printer choice prints nothing and is no error.
    ui.clear();
    ui.print_answer = false;
    job.kind = u"rescompet"_s;
    EXPECT_FALSE(imprimer_rapport(*app, job));
    EXPECT_TRUE(ui.messages.empty());
}

}  // namespace
}  // namespace plouvarine::testing
