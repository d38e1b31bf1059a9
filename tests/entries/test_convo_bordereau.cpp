// The entry slip on a real base and the real "bor_engag" template: the
// individual section (team headings by number, sex and mixed flag, the name
// once per swimmer, blank times), the relays with their swimmers written in a
// second pass, the slip printed from the competition list, and the failures
// that print nothing.

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
#include <QRegularExpression>

using namespace plouvarine;
using plouvarine::testing::expect_golden;

namespace {

class Bordereau : public plouvarine::testing::EntriesBase {
protected:
    void SetUp() override
    {
        EntriesBase::SetUp();
        app->state.club_name = QStringLiteral("Brest Natation");
        exec(QStringLiteral("UPDATE Rcomp SET Fin = '20250406', Lieu = 'Quimper' WHERE AutoNum = ") + compet);
        install_template_component();
    }
    // A relay time in the base's canonical form.
    void relay_time(int code, int number, const QString& tps)
    {
        exec(QStringLiteral("UPDATE Relais SET Tps = %1 WHERE Code_epreuve = %2 AND Num_Lic = %3")
                 .arg(tps)
                 .arg(code)
                 .arg(number));
    }
    // The lines of the printed slip from the heading "Engagements individuels" on.
    QStringList body() const
    {
        const QString text = ui.printed.back().text;
        return text.mid(text.indexOf(QStringLiteral("Engagements individuels"))).split(u'\n');
    }
};

TEST_F(Bordereau, TheSlipOfSeveralTeamsMatchesItsReference)
{
    plouvarine::testing::ensure_gui_application();
    const QString martin = swimmer(QStringLiteral("Martin"), QStringLiteral("F"), QStringLiteral("Léa"));
    const QString bernard = swimmer(QStringLiteral("Bernard"), QStringLiteral("F"), QStringLiteral("Yvonne"));
    const QString artagnan = swimmer(QStringLiteral("D'Artagnan"), QStringLiteral("M"), QStringLiteral("Charles"));
    const QString legall = swimmer(QStringLiteral("Le Gall-Kerhervé-Quéméneur"), QStringLiteral("M"),
                                   QStringLiteral("Jean-Baptiste-Marie"));
    const QString durand = swimmer(QStringLiteral("Durand"), QStringLiteral("M"), QStringLiteral("Paul"));
    // Individual: three events of one swimmer, a time of 0.
    entry(martin, 2, 0, false, QStringLiteral("1.0512"));
    entry(martin, 1, 0, false, QStringLiteral("0.2934"));
    entry(martin, 11, 0, false, QStringLiteral("0.3456"));
    entry(durand, 51, 0, false, QStringLiteral("0"));
    // Team 1: men, women and mixed are three headings; team 2 a fourth.
    entry(artagnan, 61, 1, false, QStringLiteral("0.3101"));
    entry(artagnan, 51, 1, false, QStringLiteral("0.2512"));
    entry(bernard, 1, 1, false, QStringLiteral("0.3010"));
    entry(legall, 52, 1, true, QStringLiteral("10.0005"));
    entry(durand, 52, 2, false, QStringLiteral("0.5899"));
    // Relays: one with swimmers and a time, one with all places empty and no
    // time, a mixed one whose last swimmer stands in place 10.
    relay(8, 1, 1, false, {martin, bernard});
    relay_time(8, 1, QStringLiteral("2.1234"));
    relay(8, 2, 1, false);
    QStringList places{artagnan, martin};
    while (places.size() < 9)
        places << app->state.num_lic_nulle;
    places << legall;
    relay(46, 1, 1, true, places);

    ui.print_pdf = work_file(QStringLiteral("bordereau.pdf"));
    install_print_handoff();
    competition_chosen(*app, QString(keyword::kImprimBordereau), compet);
    ASSERT_EQ(ui.printed.size(), 1u) << messages().join(u'\n').toStdString();
    EXPECT_EQ(ui.printed[0].title, QStringLiteral("Bordereau d'engagements"));
    expect_golden(QStringLiteral("entries"), QStringLiteral("bordereau.txt"), ui.printed[0].text.toUtf8());
    // The name stands once over the three events; the columns line up.
    const QStringList lines = body();
    const int first = int(lines.indexOf(QRegularExpression(QStringLiteral("^Martin .*"))));
    ASSERT_GE(first, 0);
    EXPECT_TRUE(lines.at(first + 1).startsWith(QString(55, u' ')));
    EXPECT_TRUE(lines.at(first + 2).startsWith(QString(55, u' ')));
    EXPECT_EQ(lines.at(first).size(), lines.at(first + 1).size());
    // Team 1 men, women and mixed, and the women's and mixed relays.
    EXPECT_EQ(lines.filter(QStringLiteral("Equipe 1 ")).size(), 5);
    for (const char* step : {"Chargement du modèle", "Ecriture engagements par nageur", "Ecriture engagements par relais",
                             "Impression"})
        EXPECT_TRUE(ui.status_history.contains(QString::fromUtf8(step))) << step;

    // The relay swimmers are in the small size, the rest of the section in
    // the template's fixed-width font.
    const QString html = ui.printed[0].html;
    EXPECT_TRUE(html.contains(QStringLiteral("font-size:8pt")));
    EXPECT_FALSE(ui.printed[0].text.contains(QStringLiteral("<BALISE")));
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
    EXPECT_FALSE(text.contains(tags::kEngagIndiv));
    EXPECT_FALSE(text.contains(tags::kEngagRelais));
    EXPECT_FALSE(text.contains(QStringLiteral("Equipe")));
    EXPECT_FALSE(text.contains(QStringLiteral("Individuel")));
    EXPECT_TRUE(text.contains(QStringLiteral("Interclubs")));
    // Entries of another profile are not this club's slip.
    const QString anne = swimmer(QStringLiteral("Autre"), QStringLiteral("F"));
    exec(QStringLiteral("INSERT INTO Engag (Num_compet, Num_profil, Code_epreuve, Num_Lic, Num_equipe, Equipe_mixte, "
                        "Tps_engagement) VALUES (%1, 2, 1, %2, 0, false, 0.3)")
             .arg(compet, anne));
    ASSERT_TRUE(ImprimerBordereau(*app, compet));
    EXPECT_FALSE(ui.printed.back().text.contains(QStringLiteral("Autre")));
}

TEST_F(Bordereau, ATemplateWithoutTagsPrintsItsTextAndABadOneNothing)
{
    const QString anne = swimmer(QStringLiteral("Martin"), QStringLiteral("F"));
    entry(anne, 1, 0, false);
    relay(8, 1, 1, false, {anne});
    // An edited template without the tags: the entries go nowhere, no error.
    ASSERT_TRUE(QDir().mkpath(templates_folder(*app)));
    RichBox edited;
    edited.write(QStringLiteral("Bordereau du club ") + tags::kNomClub);
    ASSERT_TRUE(edited.SaveFile(template_path(*app, QStringLiteral("bor_engag"))));
    ASSERT_TRUE(ImprimerBordereau(*app, compet));
    EXPECT_EQ(ui.printed.back().text, QStringLiteral("Bordereau du club Brest Natation"));
    EXPECT_TRUE(ui.messages.empty());

    // A damaged template is named, and nothing is printed.
    QFile damaged(template_path(*app, QStringLiteral("bor_engag")));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly | QIODevice::Truncate));
    damaged.write("pas du RTF");
    damaged.close();
    EXPECT_FALSE(ImprimerBordereau(*app, compet));
    EXPECT_EQ(ui.printed.size(), 1u);
    ASSERT_FALSE(ui.messages.empty());
    EXPECT_TRUE(ui.messages.back().text.contains(QStringLiteral("bor_engag")));

    // Cancelling the printer choice prints nothing either.
    ASSERT_TRUE(QFile::remove(template_path(*app, QStringLiteral("bor_engag"))));
    ui.print_answer = false;
    EXPECT_FALSE(ImprimerBordereau(*app, compet));
    EXPECT_EQ(ui.printed.size(), 1u);
}

TEST_F(Bordereau, ASelectionOfSeveralClubsNamesItsRelaySwimmers)
{
    exec(QStringLiteral("INSERT INTO Club (Code_federal, Intitule) VALUES ('FRA2229000001', 'Quimper Natation')"));
    const QString local = swimmer(QStringLiteral("Kerleroux"), QStringLiteral("F"), QStringLiteral("Maï"));
    const QString guest = swimmer(QStringLiteral("Tanguy"), QStringLiteral("F"), QStringLiteral("Nolwenn"));
    exec(QStringLiteral("UPDATE Licence SET Code_Club = 'FRA2229000001' WHERE Num = ") + guest);
    exec(QStringLiteral("INSERT INTO Selection (Code_Sel, Num_Lic) VALUES ('%1', %2), ('%1', %3)").arg(kClub, local, guest));
    app->state.club_selection = true;
    relay(8, 1, 1, false, {local, guest});
    ASSERT_TRUE(ImprimerBordereau(*app, compet)) << messages().join(u'\n').toStdString();
    const QString text = ui.printed.back().text;
    EXPECT_TRUE(text.contains(QStringLiteral("\tKerleroux Maï (KERLEROUX)\n\tTanguy Nolwenn (TANGUY)\n")));
}

TEST(BordereauColumns, PaddingCutsAndFills)
{
    EXPECT_EQ(Completer(QStringLiteral("200m papillon Messieurs"), 17), QStringLiteral("200m papillon Mes"));
    EXPECT_EQ(Completer(QStringLiteral("ab"), 4), QStringLiteral("ab  "));
    EXPECT_EQ(Completer(QStringLiteral("ab"), 4, QString()), QStringLiteral("ab  "));
    EXPECT_EQ(CompleterGauche(QStringLiteral("29.34"), 8), QStringLiteral("   29.34"));
    EXPECT_EQ(CompleterGauche(QStringLiteral("7"), 3, QStringLiteral("0")), QStringLiteral("007"));
    EXPECT_EQ(LibelleEquipe(QStringLiteral("0"), true, QStringLiteral("M")), QStringLiteral("Individuel"));
    EXPECT_EQ(LibelleEquipe(QStringLiteral("1"), true, QStringLiteral("M")), QStringLiteral("Mixte"));
    EXPECT_EQ(LibelleEquipe(QStringLiteral("1"), false, QStringLiteral("M")), QStringLiteral("Homme"));
    EXPECT_EQ(LibelleEquipe(QStringLiteral("2"), false, QString()), QStringLiteral("Femme"));
}

}  // namespace

// ---------------------------------------------------------------- convocations

namespace {

class Convocation : public plouvarine::testing::EntriesBase {
protected:
    void SetUp() override
    {
        EntriesBase::SetUp();
        app->state.club_name = QStringLiteral("Brest Natation");
        const QString pool = app->db.append_row(
            QStringLiteral("Piscine"),
            {{"Nom", "Piscine de Kerhallet"}, {"Adresse", "Rue d'Ouessant"}, {"Code_Postal", "29200"},
             {"Ville", "Brest"}},
            QStringLiteral("Num"));
        exec(QStringLiteral("UPDATE Rcomp SET Fin = '20250406', Lieu = 'Brest', Num_Piscine = %1 WHERE AutoNum = %2")
                 .arg(pool, compet));
        install_template_component();
        artagnan = swimmer(QStringLiteral("D'Artagnan"), QStringLiteral("M"), QStringLiteral("Charles"));
        martin = swimmer(QStringLiteral("Martin"), QStringLiteral("F"), QStringLiteral("Léa"));
        member(artagnan, 0, false);
        member(martin, 1, true);
    }
    void programme(int code, int day, int order)
    {
        exec(QStringLiteral("INSERT INTO Pcomp (Num_compet, Code_epreuve, JourCourse, Num_ordre) VALUES (%1, %2, %3, %4)")
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
    entry(artagnan, 51, 0, false, QStringLiteral("0.2512"));
    entry(artagnan, 61, 1, true, QStringLiteral("0"));
    QStringList places{martin};
    while (places.size() < 9)
        places << app->state.num_lic_nulle;
    places << artagnan;  // the tenth place
    relay(46, 2, 1, true, places);
    programme(61, 2, 1);
    programme(51, 1, 2);
    programme(1, 1, 1);
    programme(11, 1, 0);  // not ordered yet: first of its day

    FrmConvocation* view = open();
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->title(), QStringLiteral("Impression des convocations"));
    ASSERT_EQ(view->lsv_nageurs().rowCount(), 2);
    EXPECT_EQ(view->lsv_nageurs().item(0, 0)->text(), QStringLiteral("D'Artagnan"));
    EXPECT_FALSE(view->cmd1());  // nothing ticked: nothing printed, nothing said
    EXPECT_TRUE(ui.printed.empty());
    EXPECT_TRUE(ui.messages.empty());

    view->rich.write(QStringLiteral("Rendez-vous à 8h ") + QString(10000, u'x'));
    view->rich.select(0, 11);
    view->cmd_text(0);
    view->Chk_prog = true;
    view->chk_reponse = true;
    view->txt_description = {QStringLiteral("2"), QStringLiteral("4"), QStringLiteral("2025")};
    view->set_checked(0, true);
    ASSERT_TRUE(view->cmd1());
    ASSERT_EQ(ui.printed.size(), 1u);
    const QString text = ui.printed[0].text;
    expect_golden(QStringLiteral("entries"), QStringLiteral("convocation.txt"), text.toUtf8());
    EXPECT_TRUE(ui.status_history.contains(QStringLiteral("Impression de la convocation de D'Artagnan Charles")));
    EXPECT_EQ(text.count(kCiseaux), 2);
    EXPECT_TRUE(text.contains(QStringLiteral("Réponse souhaitée avant : 2 avril 2025")));
    // The relay is found through its tenth place; the message keeps its bold.
    EXPECT_TRUE(text.contains(QStringLiteral("4x100m n.l. Mixte")));
    EXPECT_TRUE(ui.printed[0].html.contains(QStringLiteral("font-weight:700")));
}

TEST_F(Convocation, RelaysOnlyNoCouponNoProgrammeNoPool)
{
    relay(46, 1, 1, true, {martin, artagnan});
    exec(QStringLiteral("UPDATE Rcomp SET Num_Piscine = 999 WHERE AutoNum = ") + compet);
    programme(1, 1, 1);
    FrmConvocation* view = open();
    ASSERT_NE(view, nullptr);
    view->set_chk_all(true);
    EXPECT_TRUE(view->checked(0) && view->checked(1));
    view->set_checked(0, false);
    EXPECT_TRUE(view->chk_all());  // a row's box leaves "Sélectionner tous" alone
    view->txt_description = {QStringLiteral("31"), QStringLiteral("4"), QStringLiteral("2025")};
    ASSERT_TRUE(view->cmd1());
    const QString text = ui.printed.back().text;
    EXPECT_TRUE(text.contains(QStringLiteral("Martin Léa")));
    EXPECT_FALSE(text.contains(QStringLiteral("D'Artagnan Charles")));
    EXPECT_TRUE(text.contains(QStringLiteral(" 4x100m n.l. Mixte                 1          1  X")));
    EXPECT_FALSE(text.contains(kCiseaux));
    EXPECT_FALSE(text.contains(QStringLiteral("Programme :")));
    EXPECT_FALSE(text.contains(QStringLiteral("50m n.l. Dames")));
    EXPECT_FALSE(text.contains(QStringLiteral("<")));  // every tag replaced or emptied
    EXPECT_TRUE(text.contains(QStringLiteral("Interclubs")));

    // Both ticked: two letters, the second on a page of its own.
    view->set_checked(0, true);
    ASSERT_TRUE(view->cmd1());
    EXPECT_EQ(ui.printed.back().text.count(QStringLiteral("Convocation\n")), 2);
    EXPECT_TRUE(ui.printed.back().html.contains(QStringLiteral("page-break-before:always")));

    // The club's letterhead: its logo in each letter, its header filled for every page.
    const QByteArray logo = plouvarine::testing::solid_png(8, 4, Qt::darkBlue).toHex();
    QFile letterhead(template_path(*app, QStringLiteral("convo")));
    ASSERT_TRUE(letterhead.open(QIODevice::WriteOnly | QIODevice::Truncate));
    letterhead.write("{\\rtf1\\ansi{\\header {\\pict\\pngblip " + logo + "} <NOM_CLUB>\\par}{\\pict\\pngblip"
                     "\\picwgoal600\\pichgoal300 " + logo + "}Convocation\\par <NAGEUR>\\par}");
    letterhead.close();
    ASSERT_TRUE(view->cmd1());
    EXPECT_EQ(ui.printed.back().text.count(QStringLiteral("Convocation\n")), 2);
    EXPECT_EQ(ui.printed.back().html.count(QStringLiteral("<img src=\"picture:")), 2);
    EXPECT_TRUE(ui.printed.back().header.contains(app->state.club_name));
    EXPECT_FALSE(ui.printed.back().header.contains(QLatin1Char('<')));

    // A damaged template: named, and nothing printed.
    QFile damaged(template_path(*app, QStringLiteral("convo")));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly | QIODevice::Truncate));
    damaged.write("pas du RTF");
    damaged.close();
    const size_t before = ui.printed.size();
    EXPECT_FALSE(view->cmd1());
    EXPECT_EQ(ui.printed.size(), before);
}

TEST_F(Convocation, OnePdfPerSwimmerNamedWithoutClashAndStoppable)
{
    plouvarine::testing::ensure_gui_application();
    exec(QStringLiteral("UPDATE Rcomp SET Nom = 'Meeting/Été' WHERE AutoNum = ") + compet);
    entry(artagnan, 51, 0, false, QStringLiteral("0.2512"));
    FrmConvocation* view = open();
    ASSERT_NE(view, nullptr);
    view->set_chk_all(true);
    EXPECT_EQ(view->cmd_pdf(), 0);  // the folder choice cancelled
    EXPECT_EQ(ui.folder_prompts, QStringList{QStringLiteral("Dossier des convocations")});

    const QString folder = work_file(QStringLiteral("convocations"));
    ASSERT_TRUE(QDir().mkpath(folder));
    const QString taken = folder + QStringLiteral("/D'Artagnan Charles - Meeting_Été.pdf");
    QFile existing(taken);
    ASSERT_TRUE(existing.open(QIODevice::WriteOnly));
    existing.close();
    ui.folders.push_back(folder);
    ASSERT_EQ(view->cmd_pdf(), 2);
    EXPECT_EQ(ui.pdfs, (QStringList{folder + QStringLiteral("/D'Artagnan Charles - Meeting_Été (2).pdf"),
                                    folder + QStringLiteral("/Martin Léa - Meeting_Été.pdf")}));
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
    EXPECT_TRUE(ui.pdfs[0].endsWith(QStringLiteral("Meeting_Été (3).pdf")));
    EXPECT_TRUE(ui.status_history.contains(QStringLiteral("Opérations annulées")));
}

}  // namespace
