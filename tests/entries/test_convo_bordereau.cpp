// The entry slip and the convocations on a real base and the real templates,
// printed from the competition list, and the failures that print nothing.

#include "src/competitions/handoff.h"
#include "src/entries/convo_bordereau.h"
#include "src/entries/frm_convocation.h"
#include "src/frame/keywords.h"
#include "src/reports/template_builder.h"
#include "src/reports/templates.h"
#include "support/golden.h"
#include "support/office_template.h"
#include "support/pdf_pages.h"
#include "entries_test_base.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace plouvarine;
using namespace Qt::Literals::StringLiterals;
using plouvarine::testing::expect_golden;

namespace {

// Overwrites the template `name` with what is no RTF.
void damage(AppContext& app, const QString& name)
{
    QFile damaged(template_path(app, name));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly | QIODevice::Truncate));
    damaged.write("pas du RTF");
}
// The places of a relay: the swimmers first, then the null licence up to the
// ninth place, then `tenth`.
QStringList with_tenth(QStringList places, const QString& nulle, const QString& tenth)
{
    while (places.size() < 9)
        places << nulle;
    return places << tenth;
}

class Bordereau : public plouvarine::testing::EntriesBase {
protected:
    void SetUp() override
    {
        EntriesBase::SetUp();
        app->state.club_name = u"Brest Natation"_s;
        exec(u"UPDATE Rcomp SET Fin = '20250406', Lieu = 'Quimper' WHERE AutoNum = "_s + compet);
        install_template_component();
    }
};

TEST_F(Bordereau, TheSlipOfSeveralTeamsMatchesItsReference)
{
    plouvarine::testing::ensure_gui_application();
    const QString martin = swimmer("Martin", "F", "Léa");
    const QString bernard = swimmer("Bernard", "F", "Yvonne");
    const QString artagnan = swimmer("D'Artagnan", "M", "Charles");
    const QString legall = swimmer("Le Gall-Kerhervé-Quéméneur", "M", "Jean-Baptiste-Marie");
    const QString durand = swimmer("Durand", "M", "Paul");
    // Individual: three events of one swimmer (the name once), a time of 0.
    entry(martin, 2, 0, false, "1.0512");
    entry(martin, 1, 0, false, "0.2934");
    entry(martin, 11, 0, false, "0.3456");
    entry(durand, 51, 0, false, "0");
    // Team 1: men, women and mixed are three headings; team 2 a fourth.
    entry(artagnan, 61, 1, false, "0.3101");
    entry(artagnan, 51, 1, false, "0.2512");
    entry(bernard, 1, 1, false, "0.3010");
    entry(legall, 52, 1, true, "10.0005");
    entry(durand, 52, 2, false, "0.5899");
    // Relays: one with swimmers and a time, one with all places empty and no
    // time, a mixed one whose last swimmer stands in place 10.
    relay(8, 1, 1, false, {martin, bernard});
    exec("UPDATE Relais SET Tps = 2.1234 WHERE Code_epreuve = 8 AND Num_Lic = 1");
    relay(8, 2, 1, false);
    relay(46, 1, 1, true, with_tenth({artagnan, martin}, app->state.num_lic_nulle, legall));

    ui.print_pdf = work_file(u"bordereau.pdf"_s);
    install_print_handoff();
    competition_chosen(*app, QString(keyword::kImprimBordereau), compet);
    ASSERT_EQ(ui.printed.size(), 1u) << messages().join(u'\n').toStdString();
    EXPECT_EQ(ui.printed[0].title, u"Bordereau d'engagements"_s);
    expect_golden(u"entries"_s, u"bordereau.txt"_s, ui.printed[0].text.toUtf8());
    for (const char* step : {"Chargement du modèle", "Ecriture engagements par nageur", "Ecriture engagements par relais",
                             "Impression"})
        EXPECT_TRUE(ui.status_history.contains(QString::fromUtf8(step))) << step;

    // The relay swimmers are in the small size.
    EXPECT_TRUE(ui.printed[0].html.contains(u"font-size:8pt"_s));
    // The printed slip, rendered as a reader sees it: pages with ink on them.
    const auto pages = plouvarine::testing::render_pdf(ui.print_pdf);
    ASSERT_GE(pages.size(), 1u);
    for (const QImage& page : pages)
        EXPECT_GT(plouvarine::testing::ink_share(page), 0.0);
}

TEST_F(Bordereau, AnEmptyCompetitionLosesBothTagsAndEveryHeading)
{
    ASSERT_TRUE(ImprimerBordereau(*app, compet));
    const QString text = ui.printed.back().text;
    for (const QString& absent : {tags::kEngagIndiv, tags::kEngagRelais, u"Equipe"_s, u"Individuel"_s})
        EXPECT_FALSE(text.contains(absent)) << absent.toStdString();
    EXPECT_TRUE(text.contains(u"Interclubs"_s));
    // Entries of another profile are not this club's slip.
    exec(u"INSERT INTO Engag (Num_compet, Num_profil, Code_epreuve, Num_Lic, Num_equipe, Equipe_mixte, "
         "Tps_engagement) VALUES (%1, 2, 1, %2, 0, false, 0.3)"_s.arg(compet, swimmer("Autre", "F")));
    ASSERT_TRUE(ImprimerBordereau(*app, compet));
    EXPECT_FALSE(ui.printed.back().text.contains(u"Autre"_s));
}

TEST_F(Bordereau, ATemplateWithoutTagsPrintsItsTextAndABadOneNothing)
{
    const QString anne = swimmer("Martin", "F");
    entry(anne, 1, 0, false);
    relay(8, 1, 1, false, {anne});
    // An edited template without the tags: the entries go nowhere, no error.
    ASSERT_TRUE(QDir().mkpath(templates_folder(*app)));
    RichBox edited;
    edited.write(u"Bordereau du club "_s + tags::kNomClub);
    ASSERT_TRUE(edited.SaveFile(template_path(*app, u"bor_engag"_s)));
    ASSERT_TRUE(ImprimerBordereau(*app, compet));
    EXPECT_EQ(ui.printed.back().text, u"Bordereau du club Brest Natation"_s);
    EXPECT_TRUE(ui.messages.empty());

    // A damaged template is named, and nothing is printed.
    damage(*app, u"bor_engag"_s);
    EXPECT_FALSE(ImprimerBordereau(*app, compet));
    EXPECT_EQ(ui.printed.size(), 1u);
    ASSERT_FALSE(ui.messages.empty());
    EXPECT_TRUE(ui.messages.back().text.contains(u"bor_engag"_s));

    // Cancelling the printer choice prints nothing either.
    ASSERT_TRUE(QFile::remove(template_path(*app, u"bor_engag"_s)));
    ui.print_answer = false;
    EXPECT_FALSE(ImprimerBordereau(*app, compet));
    EXPECT_EQ(ui.printed.size(), 1u);
}

TEST_F(Bordereau, ASelectionOfSeveralClubsNamesItsRelaySwimmers)
{
    exec("INSERT INTO Club (Code_federal, Intitule) VALUES ('FRA2229000001', 'Quimper Natation')");
    const QString local = swimmer("Kerleroux", "F", "Maï");
    const QString guest = swimmer("Tanguy", "F", "Nolwenn");
    exec("UPDATE Licence SET Code_Club = 'FRA2229000001' WHERE Num = " + guest);
    exec(u"INSERT INTO Selection (Code_Sel, Num_Lic) VALUES ('%1', %2), ('%1', %3)"_s.arg(kClub, local, guest));
    app->state.club_selection = true;
    relay(8, 1, 1, false, {local, guest});
    ASSERT_TRUE(ImprimerBordereau(*app, compet)) << messages().join(u'\n').toStdString();
    EXPECT_TRUE(ui.printed.back().text.contains(u"\tKerleroux Maï (KERLEROUX)\n\tTanguy Nolwenn (TANGUY)\n"_s));
}

TEST(BordereauColumns, PaddingCutsAndFills)
{
    EXPECT_EQ(Completer(u"200m papillon Messieurs"_s, 17), u"200m papillon Mes"_s);
    EXPECT_EQ(Completer(u"ab"_s, 4), u"ab  "_s);
    EXPECT_EQ(Completer(u"ab"_s, 4, QString()), u"ab  "_s);
    EXPECT_EQ(CompleterGauche(u"29.34"_s, 8), u"   29.34"_s);
    EXPECT_EQ(CompleterGauche(u"7"_s, 3, u"0"_s), u"007"_s);
    EXPECT_EQ(LibelleEquipe(u"0"_s, true, u"M"_s), u"Individuel"_s);
    EXPECT_EQ(LibelleEquipe(u"1"_s, true, u"M"_s), u"Mixte"_s);
    EXPECT_EQ(LibelleEquipe(u"1"_s, false, u"M"_s), u"Homme"_s);
    EXPECT_EQ(LibelleEquipe(u"2"_s, false, QString()), u"Femme"_s);
}

}  // namespace

// ---------------------------------------------------------------- convocations

namespace {

class Convocation : public plouvarine::testing::EntriesBase {
protected:
    void SetUp() override
    {
        EntriesBase::SetUp();
        app->state.club_name = u"Brest Natation"_s;
        const QString pool = app->db.append_row(
            u"Piscine"_s,
            {{"Nom", "Piscine de Kerhallet"}, {"Adresse", "Rue d'Ouessant"}, {"Code_Postal", "29200"},
             {"Ville", "Brest"}},
            u"Num"_s);
        exec(u"UPDATE Rcomp SET Fin = '20250406', Lieu = 'Brest', Num_Piscine = %1 WHERE AutoNum = %2"_s
                 .arg(pool, compet));
        install_template_component();
        artagnan = swimmer("D'Artagnan", "M", "Charles");
        martin = swimmer("Martin", "F", "Léa");
        member(artagnan, 0, false);
        member(martin, 1, true);
    }
    void programme(int code, int day, int order)
    {
        exec(u"INSERT INTO Pcomp (Num_compet, Code_epreuve, JourCourse, Num_ordre) VALUES (%1, %2, %3, %4)"_s
                 .arg(compet)
                 .arg(code)
                 .arg(day)
                 .arg(order));
    }
    FrmConvocation* open()
    {
        install_print_handoff();
        competition_chosen(*app, QString(keyword::kImprimConvoc), compet);
        return ui.window_as<FrmConvocation>(QString(FrmConvocation::kName));
    }
    QString artagnan;
    QString martin;
};

TEST_F(Convocation, OneLetterMatchesItsReference)
{
    entry(artagnan, 51, 0, false, "0.2512");
    entry(artagnan, 61, 1, true, "0");
    // The relay is found through its tenth place.
    relay(46, 2, 1, true, with_tenth({martin}, app->state.num_lic_nulle, artagnan));
    programme(61, 2, 1);
    programme(51, 1, 2);
    programme(1, 1, 1);
    programme(11, 1, 0);  // not ordered yet: first of its day

    FrmConvocation* view = open();
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->title(), u"Impression des convocations"_s);
    ASSERT_EQ(view->lsv_nageurs().rowCount(), 2);
    EXPECT_EQ(view->lsv_nageurs().item(0, 0)->text(), u"D'Artagnan"_s);
    EXPECT_FALSE(view->cmd1());  // nothing ticked: nothing printed, nothing said
    EXPECT_TRUE(ui.printed.empty());
    EXPECT_TRUE(ui.messages.empty());

    view->rich.write(u"Rendez-vous à 8h "_s + QString(10000, u'x'));
    view->rich.select(0, 11);
    view->cmd_text(0);
    view->Chk_prog = true;
    view->chk_reponse = true;
    view->txt_description = {u"2"_s, u"4"_s, u"2025"_s};
    view->set_checked(0, true);
    ASSERT_TRUE(view->cmd1());
    ASSERT_EQ(ui.printed.size(), 1u);
    expect_golden(u"entries"_s, u"convocation.txt"_s, ui.printed[0].text.toUtf8());
    EXPECT_TRUE(ui.status_history.contains(u"Impression de la convocation de D'Artagnan Charles"_s));
    // The message keeps its bold.
    EXPECT_TRUE(ui.printed[0].html.contains(u"font-weight:700"_s));
}

TEST_F(Convocation, RelaysOnlyNoCouponNoProgrammeNoPool)
{
    relay(46, 1, 1, true, {martin, artagnan});
    exec(u"UPDATE Rcomp SET Num_Piscine = 999 WHERE AutoNum = "_s + compet);
    programme(1, 1, 1);
    FrmConvocation* view = open();
    ASSERT_NE(view, nullptr);
    view->set_chk_all(true);
    EXPECT_TRUE(view->checked(0) && view->checked(1));
    view->set_checked(0, false);
    EXPECT_TRUE(view->chk_all());  // a row's box leaves "Sélectionner tous" alone
    view->txt_description = {u"31"_s, u"4"_s, u"2025"_s};
    ASSERT_TRUE(view->cmd1());
    const QString text = ui.printed.back().text;
    EXPECT_TRUE(text.contains(u"Martin Léa"_s));
    EXPECT_FALSE(text.contains(u"D'Artagnan Charles"_s));
    EXPECT_TRUE(text.contains(u" 4x100m n.l. Mixte                 1          1  X"_s));
    // No coupon, no programme, no individual entry, every tag replaced or emptied.
    for (const QString& absent : {kCiseaux, u"Programme :"_s, u"50m n.l. Dames"_s, u"<"_s})
        EXPECT_FALSE(text.contains(absent)) << absent.toStdString();
    EXPECT_TRUE(text.contains(u"Interclubs"_s));

    // Both ticked: two letters, the second on a page of its own.
    view->set_checked(0, true);
    ASSERT_TRUE(view->cmd1());
    EXPECT_EQ(ui.printed.back().text.count(u"Convocation\n"_s), 2);
    EXPECT_TRUE(ui.printed.back().html.contains(u"page-break-before:always"_s));

    // The club's letterhead: its logo in each letter, its header filled for every page.
    const QByteArray logo = plouvarine::testing::solid_png(8, 4, Qt::darkBlue).toHex();
    QFile letterhead(template_path(*app, u"convo"_s));
    ASSERT_TRUE(letterhead.open(QIODevice::WriteOnly | QIODevice::Truncate));
    letterhead.write("{\\rtf1\\ansi{\\header {\\pict\\pngblip " + logo + "} <NOM_CLUB>\\par}{\\pict\\pngblip"
                     "\\picwgoal600\\pichgoal300 " + logo + "}Convocation\\par <NAGEUR>\\par}");
    letterhead.close();
    ASSERT_TRUE(view->cmd1());
    EXPECT_EQ(ui.printed.back().text.count(u"Convocation\n"_s), 2);
    EXPECT_EQ(ui.printed.back().html.count(u"<img src=\"picture:"_s), 2);
    EXPECT_TRUE(ui.printed.back().header.contains(app->state.club_name));
    EXPECT_FALSE(ui.printed.back().header.contains(QLatin1Char('<')));

    // A damaged template: named, and nothing printed.
    damage(*app, u"convo"_s);
    const size_t before = ui.printed.size();
    EXPECT_FALSE(view->cmd1());
    EXPECT_EQ(ui.printed.size(), before);
}

TEST_F(Convocation, OnePdfPerSwimmerNamedWithoutClashAndStoppable)
{
    plouvarine::testing::ensure_gui_application();
    exec(u"UPDATE Rcomp SET Nom = 'Meeting/Été' WHERE AutoNum = "_s + compet);
    entry(artagnan, 51, 0, false, "0.2512");
    FrmConvocation* view = open();
    ASSERT_NE(view, nullptr);
    view->set_chk_all(true);
    EXPECT_EQ(view->cmd_pdf(), 0);  // the folder choice cancelled
    EXPECT_EQ(ui.folder_prompts, QStringList{u"Dossier des convocations"_s});

    const QString folder = work_file(u"convocations"_s);
    ASSERT_TRUE(QDir().mkpath(folder));
    const QString taken = folder + u"/D'Artagnan Charles - Meeting_Été.pdf"_s;
    QFile existing(taken);
    ASSERT_TRUE(existing.open(QIODevice::WriteOnly));
    existing.close();
    ui.folders.push_back(folder);
    ASSERT_EQ(view->cmd_pdf(), 2);
    EXPECT_EQ(ui.pdfs, (QStringList{folder + u"/D'Artagnan Charles - Meeting_Été (2).pdf"_s,
                                    folder + u"/Martin Léa - Meeting_Été.pdf"_s}));
    EXPECT_EQ(QFileInfo(taken).size(), 0);  // the file that was there is left alone
    for (const QString& path : ui.pdfs) {
        const auto pages = plouvarine::testing::render_pdf(path);
        ASSERT_EQ(pages.size(), 1u) << path.toStdString();
        EXPECT_GT(plouvarine::testing::ink_share(pages[0]), 0.0) << path.toStdString();
    }
    EXPECT_FALSE(ui.progress_shown);

    // Stopped after the first swimmer: one file, and the run says so.
    ui.pdfs.clear();
    ui.cancel_at = 1;
    ui.folders.push_back(folder);
    EXPECT_EQ(view->cmd_pdf(), 1);
    EXPECT_EQ(ui.pdfs.size(), 1);
    EXPECT_TRUE(ui.pdfs[0].endsWith(u"Meeting_Été (3).pdf"_s));
    EXPECT_TRUE(ui.status_history.contains(u"Opérations annulées"_s));
}

}  // namespace
