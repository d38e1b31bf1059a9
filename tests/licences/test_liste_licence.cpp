// The licence list on a real base: the order of a column's clicks, what
// "SsCotisation" shows, the search keys, deletion with its undo and its end,
// the fee menu, the commands and the printed report.

#include "src/frame/base_commands.h"
#include "src/frame/keywords.h"
#include "src/frame/list_helpers.h"
#include "src/frame/upgrade.h"
#include "src/licences/det_licence.h"
#include "src/licences/liste_licence.h"
#include "src/licences/utils_licences.h"
#include "licence_test_base.h"
#include "support/golden.h"

#include <QFile>
#include <QGuiApplication>

using namespace plouvarine;
using plouvarine::testing::expect_golden;
using plouvarine::testing::LicenceBase;

namespace {

class ListeLicenceTest : public LicenceBase {
protected:
    void SetUp() override
    {
        LicenceBase::SetUp();
        club(QLatin1String(kClub), QStringLiteral("Brest Natation"));
        club(QLatin1String(kOtherClub), QStringLiteral("Aber Natation"));
        dupont = licence(QStringLiteral("DUPONT"), QStringLiteral("Anne"), QStringLiteral("85001F"));
        martin = licence(QStringLiteral("MARTIN"), QStringLiteral("Léa"), QStringLiteral("90002F"), QLatin1String(kClub),
                         QStringLiteral("19900101"));
        bernard = licence(QStringLiteral("BERNARD"), QStringLiteral("Yves"), QStringLiteral("88003F"),
                          QLatin1String(kClub), QStringLiteral("19880615"));
    }
    std::unique_ptr<FrmListeLicence> open(const QString& mode)
    {
        auto list = std::make_unique<FrmListeLicence>(*app, mode);
        list->set_liste(QStringLiteral("Liste"));
        return list;
    }
    static QStringList names(FrmListeLicence& list)
    {
        QStringList out;
        for (int r = 0; r < list.lsv_licence().rowCount(); ++r)
            out << list.lsv_licence().text(r, 0);
        return out;
    }
    void select(FrmListeLicence& list, const QString& num)
    {
        select_row_at(list.selection(), *find_key(list.lsv_licence(), num));
    }
    QString dupont, martin, bernard;
};

}  // namespace

TEST_F(ListeLicenceTest, AColumnClickedThreeTimesSortsUpDownUp)
{
    auto list = open(QStringLiteral("View"));
    EXPECT_EQ(names(*list), (QStringList{"BERNARD", "DUPONT", "MARTIN"}));
    EXPECT_EQ(list->lsv_licence().text(0, 3), QStringLiteral("15 juin 1988"));
    list->sort_by_column(1);
    EXPECT_EQ(list->order_clause(), QStringLiteral("ORDER BY Nom, Prenom"));
    list->sort_by_column(1);
    EXPECT_EQ(list->order_clause(), QStringLiteral("ORDER BY Nom DESC, Prenom"));
    EXPECT_EQ(names(*list), (QStringList{"MARTIN", "DUPONT", "BERNARD"}));
    list->sort_by_column(1);
    EXPECT_EQ(names(*list), (QStringList{"BERNARD", "DUPONT", "MARTIN"}));
    // Another column starts ascending; a plain club's fourth column is the birth date.
    list->sort_by_column(4);
    EXPECT_EQ(list->order_clause(), QStringLiteral("ORDER BY Date_Naissance, Nom, Prenom"));
    EXPECT_EQ(names(*list), (QStringList{"DUPONT", "BERNARD", "MARTIN"}));

    // A selection shows the club of origin and sorts on it, then by name.
    const QString other = licence(QStringLiteral("ABALAIN"), QStringLiteral("Rose"), QStringLiteral("87004F"),
                                  QLatin1String(kOtherClub));
    for (const QString& num : {dupont, martin, other})
        exec(QStringLiteral("INSERT INTO Selection (Code_Sel, Num_Lic) VALUES ('%1', %2)").arg(QLatin1String(kSelection), num));
    use_selection();
    auto selection = open(QStringLiteral("View"));
    EXPECT_EQ(selection->lsv_licence().header_text(3), QStringLiteral("Club Origine"));
    selection->sort_by_column(4);
    selection->sort_by_column(4);
    EXPECT_EQ(selection->order_clause(), QStringLiteral("ORDER BY Club.Intitule DESC, Licence.Nom, Licence.Prenom"));
    EXPECT_EQ(names(*selection), (QStringList{"DUPONT", "MARTIN", "ABALAIN"}));
}

TEST_F(ListeLicenceTest, WithoutFeeMeansABlankNothingOrTheEmptyText)
{
    exec(QStringLiteral("UPDATE Licence SET Tarif = ' ' WHERE Num = ") + dupont);
    exec(QStringLiteral("UPDATE Licence SET Tarif = '' WHERE Num = ") + martin);
    licence(QStringLiteral("LE GALL"), QStringLiteral("Jo"), QStringLiteral("85009F"));
    exec(QStringLiteral("UPDATE Licence SET Tarif = 'Adulte' WHERE Nom = 'LE GALL'"));
    EXPECT_EQ(names(*open(QStringLiteral("SsCotisation"))), (QStringList{"BERNARD", "DUPONT", "MARTIN"}));

    // An empty club: an empty list, a disabled command, a search that finds nothing.
    app->state.club_code = QStringLiteral("FRA2210290099");
    auto empty = open(QStringLiteral("Modif"));
    EXPECT_FALSE(empty->cmd2_enabled());
    empty->list_key('D');
    empty->list_key(13);
    EXPECT_TRUE(ui.shown_views.isEmpty());
}

TEST_F(ListeLicenceTest, TheSearchFollowsTheKeysOfTheListAndOfItsField)
{
    auto list = open(QStringLiteral("Modif"));
    list->list_key('m');
    EXPECT_EQ(list->current_num(), martin);
    list->list_key('x');  // nothing begins with "mx": the row stays
    EXPECT_EQ(list->current_num(), martin);
    for (int i = 0; i < 3; ++i)
        list->list_key(8);
    EXPECT_TRUE(list->search_text().isEmpty());
    list->set_search_text(QStringLiteral("dupont a"));
    EXPECT_EQ(list->current_num(), dupont);
    list->list_key(27);
    EXPECT_TRUE(list->search_text().isEmpty());
    EXPECT_FALSE(list->search_field_key('a'));
    // Enter empties the field and opens the current row in the detail.
    list->set_search_text(QStringLiteral("bern"));
    EXPECT_TRUE(list->search_field_key(13));
    EXPECT_TRUE(list->search_text().isEmpty());
    auto* detail = ui.window_as<DetLicence>(QStringLiteral("det_licence"));
    ASSERT_NE(detail, nullptr);
    EXPECT_EQ(detail->num(), bernard);
    EXPECT_EQ(detail->title(), QStringLiteral("Modifier Licence"));
}

TEST_F(ListeLicenceTest, DeletedRowsComeBackAllAtOnceOnUndoAndTurnFinalOnConfirmation)
{
    const QString open_meet = competition(true, false);
    const QString run_meet = competition(true, true);
    entry(open_meet, dupont);
    entry(open_meet, martin);
    exec(QStringLiteral("INSERT INTO Relais (Num_compet, Licence1, Licence2) VALUES (%1, %2, %3), (%4, %2, %3)")
             .arg(open_meet, dupont, martin, run_meet));
    auto list = open(QStringLiteral("Suppr"));
    select(*list, dupont);
    list->supprime_selection();
    select(*list, martin);
    list->SimulAction();
    EXPECT_EQ(names(*list), QStringList{"BERNARD"});
    EXPECT_EQ(field(dupont, QStringLiteral("Visible")), QStringLiteral("Faux"));
    EXPECT_EQ(count(QStringLiteral("select count(*) from Licence_tempo")), 2);
    // Annuler puts every row back and ends the deletion.
    list->cmd1();
    EXPECT_EQ(names(*list), (QStringList{"BERNARD", "DUPONT", "MARTIN"}));
    EXPECT_EQ(count(QStringLiteral("select count(*) from Licence where Visible = false")), 0);
    EXPECT_TRUE(list->is_closed());

    // Valider makes the deletion final and ends it too.
    app->clock.set_today(QDate(2006, 3, 14));
    list = open(QStringLiteral("Suppr"));
    select(*list, dupont);
    list->supprime_selection();
    list->cmd0();
    EXPECT_EQ(ui.status[2], QStringLiteral("Suppression enregistrée"));
    EXPECT_TRUE(list->is_closed());
    EXPECT_EQ(field(dupont, QStringLiteral("Date_suppr")), QStringLiteral("20060314"));
    EXPECT_EQ(field(martin, QStringLiteral("Date_suppr")), QString());
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag where Num_Lic = ") + dupont), 0);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag where Num_Lic = ") + martin), 1);
    const Rows relays = app->db.load_rows(QStringLiteral("select Licence1, Licence2 from Relais order by Num_compet"));
    EXPECT_EQ(relays.value(0, 0), app->state.num_lic_nulle);
    EXPECT_EQ(relays.value(0, 1), martin);
    EXPECT_EQ(relays.value(1, 0), dupont);  // a meet already run keeps its relay
    // Nothing is left to bring back in the next deletion list.
    open(QStringLiteral("Suppr"))->cmd1();
    EXPECT_EQ(field(dupont, QStringLiteral("Visible")), QStringLiteral("Faux"));
}

TEST_F(ListeLicenceTest, TheUndoOfASelectionTakesEveryMarkOfItsCode)
{
    for (const QString& num : {dupont, martin, bernard})
        exec(QStringLiteral("INSERT INTO Selection (Code_Sel, Num_Lic) VALUES ('%1', %2)").arg(QLatin1String(kSelection), num));
    // A mark left by an interrupted deletion, and one of another selection.
    exec(QStringLiteral("UPDATE Selection SET Suppr = true, Visible = false WHERE Num_Lic = ") + bernard);
    exec(QStringLiteral("INSERT INTO Selection (Code_Sel, Num_Lic, Suppr, Visible) VALUES ('FRA2200000000', %1, true, false)")
             .arg(martin));
    use_selection();
    auto list = open(QStringLiteral("Suppr"));
    select(*list, dupont);
    list->supprime_selection();
    EXPECT_EQ(names(*list), QStringList{"MARTIN"});
    EXPECT_EQ(field(dupont, QStringLiteral("Visible")), QStringLiteral("Vrai"));  // the licence itself stays
    list->annule_suppression();
    EXPECT_EQ(names(*list), (QStringList{"BERNARD", "DUPONT", "MARTIN"}));
    EXPECT_EQ(count(QStringLiteral("select count(*) from Selection where Suppr = true")), 1);
}

TEST_F(ListeLicenceTest, TheFeeMenuNotesAFeePerSwimmerAndTheConfirmationSavesIt)
{
    // Without a fee the command says so and opens nothing.
    run_licence_command(*app, QStringLiteral("mnuBaseClubCotisationUnknown"));
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("Vous devez d'abord définir au moins un tarif.")});
    EXPECT_TRUE(ui.shown_views.isEmpty());
    fee(QStringLiteral("Jeune"));
    fee(QStringLiteral("Adulte"));
    EXPECT_TRUE(run_licence_command(*app, QStringLiteral("mnuBaseClubCotisationUnknown")));
    EXPECT_EQ(app->menus.counter(QStringLiteral("mnuLicNew")), 1);
    auto* list = ui.window_as<FrmListeLicence>(QStringLiteral("frm_liste_licence"));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->title(), QStringLiteral("Licences sans cotisation"));
    EXPECT_EQ(app->menus.tarifs(), (QStringList{"Aucun", "Adulte", "Jeune"}));

    select(*list, dupont);
    list->mnuTarifsSel_Click(2);
    list->prepare_menu_tarifs();
    EXPECT_EQ(app->menus.checked_tarif(), 2);
    list->mnuTarifsSel_Click(1);  // a different fee replaces it
    select(*list, martin);
    list->mnuTarifsSel_Click(2);
    list->mnuTarifsSel_Click(0);  // "Aucun" forgets it
    list->cmd0();
    EXPECT_EQ(field(dupont, QStringLiteral("Tarif")), QStringLiteral("Adulte"));
    EXPECT_EQ(field(martin, QStringLiteral("Tarif")), QString());
    EXPECT_EQ(names(*list), (QStringList{"BERNARD", "MARTIN"}));
}

TEST_F(ListeLicenceTest, TheReportListsTheSwimmersAndPrintsToARealPdf)
{
    // Laying out and printing a document needs the fonts of a GUI application.
    static int argc = 1;
    static char name[] = "test_licences";
    static char* argv[] = {name, nullptr};
    if (!QCoreApplication::instance())
        new QGuiApplication(argc, argv);
    exec(QStringLiteral("UPDATE Licence SET Visible = false WHERE Num = ") + martin);
    app->clock.set_today(QDate(2026, 3, 14));
    install_template_component();
    ui.print_pdf = work_file(QStringLiteral("rapport.pdf"));
    ASSERT_TRUE(run_licence_command(*app, QStringLiteral("mnuLicPrint")));
    ASSERT_EQ(ui.printed.size(), 1u);
    // The profile, the club, the day, then the visible swimmers by name (see golden/README).
    expect_golden(QStringLiteral("licences"), QStringLiteral("rapport_licences.txt"), ui.printed[0].text.toUtf8());
    expect_golden(QStringLiteral("licences"), QStringLiteral("rapport_licences.rtf"), ui.printed[0].rtf);
    EXPECT_TRUE(ui.status_history.contains(QStringLiteral("Impression du rapport")));
    QFile pdf(ui.print_pdf);
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    EXPECT_TRUE(pdf.read(5).startsWith("%PDF"));

    ui.print_answer = false;
    EXPECT_FALSE(ImprimeRapportLicences(*app));

    // A damaged template is named, and nothing is printed.
    QFile damaged(app->app_file(QStringLiteral("modeles/rptlic.rtf")));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly | QIODevice::Truncate));
    damaged.write("pas du RTF");
    damaged.close();
    ui.print_answer = true;
    EXPECT_FALSE(ImprimeRapportLicences(*app));
    EXPECT_EQ(ui.printed.size(), 1u);
    EXPECT_TRUE(ui.messages.back().text.contains(QStringLiteral("rptlic")));
}

TEST_F(ListeLicenceTest, AnOpenListFollowsTheDetailsSavesAndAClosedOneNoLonger)
{
    auto list = open(QString(keyword::kModif));
    ASSERT_TRUE(list->register_window(QString(WindowRegistry::kMainWindow)));
    select(*list, dupont);

    // Opened from the menu, not from the list: the list still reloads, and
    // selects the changed swimmer.
    DetLicence detail(*app, QString(keyword::kModif), bernard);
    detail.load();
    detail.text1[DetLicence::kNom] = QStringLiteral("Abbas");
    ASSERT_TRUE(detail.save());
    EXPECT_EQ(names(*list), (QStringList{"ABBAS", "DUPONT", "MARTIN"}));
    EXPECT_EQ(list->current_num(), bernard);

    // A new swimmer shows at once too.
    DetLicence created(*app, QString(keyword::kNouveau));
    created.load();
    created.text1[DetLicence::kNumero] = QStringLiteral("91004");
    created.text1[DetLicence::kNom] = QStringLiteral("Morvan");
    created.text1[DetLicence::kPrenom] = QStringLiteral("Loïc");
    created.txt_description = {QStringLiteral("7"), QStringLiteral("3"), QStringLiteral("1991")};
    created.Option_sexe = 1;
    ASSERT_TRUE(created.save());
    EXPECT_EQ(names(*list), (QStringList{"ABBAS", "DUPONT", "MARTIN", "MORVAN"}));
    EXPECT_EQ(list->current_num(), created.num());

    // Closed, the list is told nothing more, though its view lives on.
    list->close();
    EXPECT_EQ(app->changes.subscribers(Subject::Licences), 0);
    DetLicence later(*app, QString(keyword::kModif), martin);
    later.load();
    later.text1[DetLicence::kNom] = QStringLiteral("Zidane");
    ASSERT_TRUE(later.save());
    EXPECT_EQ(field(martin, QStringLiteral("Nom")), QStringLiteral("ZIDANE"));
    EXPECT_EQ(names(*list), (QStringList{"ABBAS", "DUPONT", "MARTIN", "MORVAN"}));
}

TEST_F(ListeLicenceTest, TheClubListReadsItsOrderFromAnIndexAlsoOnAnUpgradedBase)
{
    auto list = open(QStringLiteral("View"));
    const auto plan = [&] {
        const Rows rows = app->db.load_rows(QStringLiteral("EXPLAIN QUERY PLAN ") + list->sql_base() +
                                            QLatin1Char(' ') + list->order_clause());
        return rows.column(rows.column_count() - 1).join(QLatin1Char('|'));
    };
    EXPECT_TRUE(plan().contains(QStringLiteral("idx_Licence_Code_club_Nom"))) << plan().toStdString();
    EXPECT_FALSE(plan().contains(QStringLiteral("TEMP B-TREE"))) << plan().toStdString();

    // A base of version 3, before the index.
    exec(QStringLiteral("DROP INDEX idx_Licence_Code_club_Nom"));
    exec(QStringLiteral("UPDATE Info Set Version = 3"));
    ASSERT_TRUE(plan().contains(QStringLiteral("TEMP B-TREE")));
    ASSERT_TRUE(QFile::copy(QStringLiteral(PLOUVARINE_SOURCE_DIR "/data/maj_base.ini"), upgrade_file_path(*app)));
    EXPECT_TRUE(upgrade_base(*app, app->state.base_path));
    EXPECT_EQ(value(QStringLiteral("select Version from Info")), QStringLiteral("5"));
    EXPECT_FALSE(plan().contains(QStringLiteral("TEMP B-TREE"))) << plan().toStdString();
    list->ReloadListe(QString());
    EXPECT_EQ(names(*list), (QStringList{"BERNARD", "DUPONT", "MARTIN"}));

    // A base that reached version 4 before the index was part of that step
    // gets it at its opening; one that has it passes the step unharmed.
    for (const bool had_index : {false, true}) {
        if (!had_index)
            exec(QStringLiteral("DROP INDEX idx_Licence_Code_club_Nom"));
        exec(QStringLiteral("UPDATE Info Set Version = 4"));
        ASSERT_EQ(plan().contains(QStringLiteral("TEMP B-TREE")), !had_index);
        EXPECT_TRUE(check_version(*app));
        EXPECT_EQ(value(QStringLiteral("select Version from Info")), QStringLiteral("5"));
        EXPECT_FALSE(plan().contains(QStringLiteral("TEMP B-TREE"))) << plan().toStdString();
    }
}
