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

using namespace plouvarine;
using plouvarine::testing::expect_golden;
using plouvarine::testing::LicenceBase;

namespace {

class ListeLicenceTest : public LicenceBase {
protected:
    void SetUp() override
    {
        LicenceBase::SetUp();
        club(QLatin1String(kClub), u"Brest Natation"_s);
        club(QLatin1String(kOtherClub), u"Aber Natation"_s);
        dupont = licence(u"DUPONT"_s, u"Anne"_s, u"85001F"_s);
        martin = licence(u"MARTIN"_s, u"Léa"_s, u"90002F"_s, QLatin1String(kClub), u"19900101"_s);
        bernard = licence(u"BERNARD"_s, u"Yves"_s, u"88003F"_s, QLatin1String(kClub), u"19880615"_s);
    }
    std::unique_ptr<FrmListeLicence> open(const QString& mode)
    {
        auto list = std::make_unique<FrmListeLicence>(*app, mode);
        list->set_liste(u"Liste"_s);
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
    auto list = open(u"View"_s);
    EXPECT_EQ(names(*list), (QStringList{"BERNARD", "DUPONT", "MARTIN"}));
    EXPECT_EQ(list->lsv_licence().text(0, 3), u"15 juin 1988"_s);
    // Another column starts ascending; a plain club's fourth column is the birth date.
    const std::tuple<int, QString, QStringList> clicks[] = {
        {1, u"ORDER BY Nom, Prenom"_s, {"BERNARD", "DUPONT", "MARTIN"}},
        {1, u"ORDER BY Nom DESC, Prenom"_s, {"MARTIN", "DUPONT", "BERNARD"}},
        {1, u"ORDER BY Nom, Prenom"_s, {"BERNARD", "DUPONT", "MARTIN"}},
        {4, u"ORDER BY Date_Naissance, Nom, Prenom"_s, {"DUPONT", "BERNARD", "MARTIN"}}};
    for (const auto& [column, order, rows] : clicks) {
        list->sort_by_column(column);
        EXPECT_EQ(list->order_clause(), order);
        EXPECT_EQ(names(*list), rows) << order.toStdString();
    }

    // A selection shows the club of origin and sorts on it, then by name.
    const QString other = licence(u"ABALAIN"_s, u"Rose"_s, u"87004F"_s, QLatin1String(kOtherClub));
    for (const QString& num : {dupont, martin, other})
        exec(u"INSERT INTO Selection (Code_Sel, Num_Lic) VALUES ('%1', %2)"_s.arg(QLatin1String(kSelection), num));
    use_selection();
    auto selection = open(u"View"_s);
    EXPECT_EQ(selection->lsv_licence().header_text(3), u"Club Origine"_s);
    selection->sort_by_column(4);
    selection->sort_by_column(4);
    EXPECT_EQ(selection->order_clause(), u"ORDER BY Club.Intitule DESC, Licence.Nom, Licence.Prenom"_s);
    EXPECT_EQ(names(*selection), (QStringList{"DUPONT", "MARTIN", "ABALAIN"}));
}

TEST_F(ListeLicenceTest, WithoutFeeMeansABlankNothingOrTheEmptyText)
{
    exec(u"UPDATE Licence SET Tarif = ' ' WHERE Num = "_s + dupont);
    exec(u"UPDATE Licence SET Tarif = '' WHERE Num = "_s + martin);
    licence(u"LE GALL"_s, u"Jo"_s, u"85009F"_s);
    exec(u"UPDATE Licence SET Tarif = 'Adulte' WHERE Nom = 'LE GALL'"_s);
    EXPECT_EQ(names(*open(u"SsCotisation"_s)), (QStringList{"BERNARD", "DUPONT", "MARTIN"}));

    // An empty club: an empty list, a disabled command, a search that finds nothing.
    app->state.club_code = u"FRA2210290099"_s;
    auto empty = open(u"Modif"_s);
    EXPECT_FALSE(empty->cmd2_enabled());
    empty->list_key('D');
    empty->list_key(13);
    EXPECT_TRUE(ui.shown_views.isEmpty());
}

TEST_F(ListeLicenceTest, TheSearchFollowsTheKeysOfTheListAndOfItsField)
{
    auto list = open(u"Modif"_s);
    list->list_key('m');
    EXPECT_EQ(list->current_num(), martin);
    list->list_key('x');  // nothing begins with "mx": the row stays
    EXPECT_EQ(list->current_num(), martin);
    for (int i = 0; i < 3; ++i)
        list->list_key(8);
    EXPECT_TRUE(list->search_text().isEmpty());
    list->set_search_text(u"dupont a"_s);
    EXPECT_EQ(list->current_num(), dupont);
    list->list_key(27);
    EXPECT_TRUE(list->search_text().isEmpty());
    EXPECT_FALSE(list->search_field_key('a'));
    // Enter empties the field and opens the current row in the detail.
    list->set_search_text(u"bern"_s);
    EXPECT_TRUE(list->search_field_key(13));
    EXPECT_TRUE(list->search_text().isEmpty());
    auto* detail = ui.window_as<DetLicence>(u"det_licence"_s);
    ASSERT_NE(detail, nullptr);
    EXPECT_EQ(detail->num(), bernard);
    EXPECT_EQ(detail->title(), u"Modifier Licence"_s);
}

TEST_F(ListeLicenceTest, DeletedRowsComeBackAllAtOnceOnUndoAndTurnFinalOnConfirmation)
{
    const QString open_meet = competition(true, false);
    entry(open_meet, dupont);
    entry(open_meet, martin);
    auto list = open(u"Suppr"_s);
    select(*list, dupont);
    list->supprime_selection();
    select(*list, martin);
    list->SimulAction();
    EXPECT_EQ(names(*list), QStringList{"BERNARD"});
    EXPECT_EQ(field(dupont, u"Visible"_s), u"Faux"_s);
    EXPECT_EQ(count(u"select count(*) from Licence_tempo"_s), 2);
    // Annuler puts every row back and ends the deletion.
    list->cmd1();
    EXPECT_EQ(names(*list), (QStringList{"BERNARD", "DUPONT", "MARTIN"}));
    EXPECT_EQ(count(u"select count(*) from Licence where Visible = false"_s), 0);
    EXPECT_TRUE(list->is_closed());

    // Valider makes the deletion final and ends it too.
    app->clock.set_today(QDate(2006, 3, 14));
    list = open(u"Suppr"_s);
    select(*list, dupont);
    list->supprime_selection();
    list->cmd0();
    EXPECT_EQ(ui.status[2], u"Suppression enregistrée"_s);
    EXPECT_TRUE(list->is_closed());
    // The deleted swimmer's entries go with it (what else goes is pinned by the season tests).
    EXPECT_EQ(dump(u"select Nom, Date_suppr from Licence where Nom <> 'Null' order by Nom"_s),
              (QStringList{"BERNARD:", "DUPONT:20060314", "MARTIN:"}));
    EXPECT_EQ(dump(u"select Num_Lic from Engag"_s), QStringList{martin});
    // Nothing is left to bring back in the next deletion list.
    open(u"Suppr"_s)->cmd1();
    EXPECT_EQ(field(dupont, u"Visible"_s), u"Faux"_s);
}

TEST_F(ListeLicenceTest, TheUndoOfASelectionTakesEveryMarkOfItsCode)
{
    for (const QString& num : {dupont, martin, bernard})
        exec(u"INSERT INTO Selection (Code_Sel, Num_Lic) VALUES ('%1', %2)"_s.arg(QLatin1String(kSelection), num));
    // A mark left by an interrupted deletion, and one of another selection.
    exec(u"UPDATE Selection SET Suppr = true, Visible = false WHERE Num_Lic = "_s + bernard);
    exec(u"INSERT INTO Selection (Code_Sel, Num_Lic, Suppr, Visible) VALUES ('FRA2200000000', %1, true, false)"_s
             .arg(martin));
    use_selection();
    auto list = open(u"Suppr"_s);
    select(*list, dupont);
    list->supprime_selection();
    EXPECT_EQ(names(*list), QStringList{"MARTIN"});
    EXPECT_EQ(field(dupont, u"Visible"_s), u"Vrai"_s);  // the licence itself stays
    list->annule_suppression();
    EXPECT_EQ(names(*list), (QStringList{"BERNARD", "DUPONT", "MARTIN"}));
    EXPECT_EQ(count(u"select count(*) from Selection where Suppr = true"_s), 1);
}

TEST_F(ListeLicenceTest, TheFeeMenuNotesAFeePerSwimmerAndTheConfirmationSavesIt)
{
    // Without a fee the command says so and opens nothing.
    run_licence_command(*app, u"mnuBaseClubCotisationUnknown"_s);
    EXPECT_EQ(ui.texts(), QStringList{u"Vous devez d'abord définir au moins un tarif."_s});
    EXPECT_TRUE(ui.shown_views.isEmpty());
    fee(u"Jeune"_s);
    fee(u"Adulte"_s);
    EXPECT_TRUE(run_licence_command(*app, u"mnuBaseClubCotisationUnknown"_s));
    EXPECT_EQ(app->menus.counter(u"mnuLicNew"_s), 1);
    auto* list = ui.window_as<FrmListeLicence>(u"frm_liste_licence"_s);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->title(), u"Licences sans cotisation"_s);
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
    EXPECT_EQ(field(dupont, u"Tarif"_s), u"Adulte"_s);
    EXPECT_EQ(field(martin, u"Tarif"_s), QString());
    EXPECT_EQ(names(*list), (QStringList{"BERNARD", "MARTIN"}));
}

// The PDF, a cancelled printer and a damaged template go through the report
// path every report shares, pinned by the report templates' tests.
TEST_F(ListeLicenceTest, TheReportListsTheVisibleSwimmers)
{
    plouvarine::testing::ensure_gui_application();  // fonts to lay the document out
    exec(u"UPDATE Licence SET Visible = false WHERE Num = "_s + martin);
    app->clock.set_today(QDate(2026, 3, 14));
    install_template_component();
    ASSERT_TRUE(run_licence_command(*app, u"mnuLicPrint"_s));
    ASSERT_EQ(ui.printed.size(), 1u);
    // The profile, the club, the day, then the visible swimmers by name (see golden/README).
    expect_golden(u"licences"_s, u"rapport_licences.txt"_s, ui.printed[0].text.toUtf8());
    expect_golden(u"licences"_s, u"rapport_licences.rtf"_s, ui.printed[0].rtf);
    EXPECT_TRUE(ui.status_history.contains(u"Impression du rapport"_s));
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
    detail.text1[DetLicence::kNom] = u"Abbas"_s;
    ASSERT_TRUE(detail.save());
    EXPECT_EQ(names(*list), (QStringList{"ABBAS", "DUPONT", "MARTIN"}));
    EXPECT_EQ(list->current_num(), bernard);

    // A new swimmer shows at once too.
    auto created = new_licence(u"91004"_s, u"Morvan"_s, u"Loïc"_s, u"1991"_s);
    ASSERT_TRUE(created->save());
    EXPECT_EQ(names(*list), (QStringList{"ABBAS", "DUPONT", "MARTIN", "MORVAN"}));
    EXPECT_EQ(list->current_num(), created->num());

    // Closed, the list is told nothing more, though its view lives on.
    list->close();
    EXPECT_EQ(app->changes.subscribers(Subject::Licences), 0);
    DetLicence later(*app, QString(keyword::kModif), martin);
    later.load();
    later.text1[DetLicence::kNom] = u"Zidane"_s;
    ASSERT_TRUE(later.save());
    EXPECT_EQ(field(martin, u"Nom"_s), u"ZIDANE"_s);
    EXPECT_EQ(names(*list), (QStringList{"ABBAS", "DUPONT", "MARTIN", "MORVAN"}));
}

TEST_F(ListeLicenceTest, TheClubListReadsItsOrderFromAnIndexAlsoOnAnUpgradedBase)
{
    auto list = open(u"View"_s);
    const auto plan = [&] {
        const Rows rows = app->db.load_rows(u"EXPLAIN QUERY PLAN "_s + list->sql_base() +
                                            QLatin1Char(' ') + list->order_clause());
        return rows.column(rows.column_count() - 1).join(QLatin1Char('|'));
    };
    EXPECT_TRUE(plan().contains(u"idx_Licence_Code_club_Nom"_s)) << plan().toStdString();
    EXPECT_FALSE(plan().contains(u"TEMP B-TREE"_s)) << plan().toStdString();

    // A base of version 3, before the index.
    exec(u"DROP INDEX idx_Licence_Code_club_Nom"_s);
    exec(u"UPDATE Info Set Version = 3"_s);
    ASSERT_TRUE(plan().contains(u"TEMP B-TREE"_s));
    ASSERT_TRUE(QFile::copy(QStringLiteral(PLOUVARINE_SOURCE_DIR "/data/maj_base.ini"), upgrade_file_path(*app)));
    EXPECT_TRUE(upgrade_base(*app, app->state.base_path));
    EXPECT_EQ(value(u"select Version from Info"_s), u"5"_s);
    EXPECT_FALSE(plan().contains(u"TEMP B-TREE"_s)) << plan().toStdString();
    list->ReloadListe(QString());
    EXPECT_EQ(names(*list), (QStringList{"BERNARD", "DUPONT", "MARTIN"}));

    // A base that reached version 4 before the index was part of that step
    // gets it at its opening; one that has it passes the step unharmed.
    for (const bool had_index : {false, true}) {
        if (!had_index)
            exec(u"DROP INDEX idx_Licence_Code_club_Nom"_s);
        exec(u"UPDATE Info Set Version = 4"_s);
        ASSERT_EQ(plan().contains(u"TEMP B-TREE"_s), !had_index);
        EXPECT_TRUE(check_version(*app));
        EXPECT_EQ(value(u"select Version from Info"_s), u"5"_s);
        EXPECT_FALSE(plan().contains(u"TEMP B-TREE"_s)) << plan().toStdString();
    }
}
