// The list conventions: finding, selecting and ticking rows, filling lists from
// a real base, the search as the person types, key filters and minimum sizes.

#include "src/base/errors.h"
#include "src/frame/list_helpers.h"
#include "src/store/database.h"
#include "support/app_fixture.h"

#include <QItemSelectionModel>
#include <QStandardItemModel>
#include <stdexcept>

using namespace plouvarine;
using namespace plouvarine::testing;

namespace {

// A list of one column, with keys "k0", "k1"... and tick boxes.
void fill(QStandardItemModel& model, const QStringList& texts)
{
    model.clear();
    for (int row = 0; row < texts.size(); ++row) {
        auto* item = new QStandardItem(texts[row]);
        item->setCheckable(true);
        item->setCheckState(Qt::Unchecked);
        model.appendRow(item);
        set_row_key(model, row, QStringLiteral("k%1").arg(row));
    }
}

int selected_row(const QItemSelectionModel& selection)
{
    const auto rows = selection.selectedRows();
    return rows.size() == 1 ? rows.front().row() : -1;
}

}  // namespace

TEST(FindRow, SearchesFromTheStartRowCorrectedIntoTheListExactlyByWordOrByStart)
{
    QStandardItemModel model;
    fill(model, {QStringLiteral("Dupont"), QStringLiteral("Martin"), QStringLiteral("dupont"),
                 QStringLiteral("Durand")});

    EXPECT_EQ(find_row(model, QStringLiteral("DUPONT")), 0);
    // From row 1 the first Dupont is behind: the second one, without regard to case.
    EXPECT_EQ(find_row(model, QStringLiteral("Dupont"), 1), 2);
    // No wrapping round once past the last holder...
    EXPECT_FALSE(find_row(model, QStringLiteral("Martin"), 2).has_value());
    // ...but a start beyond the count, or below 0, restarts at the first row.
    EXPECT_EQ(find_row(model, QStringLiteral("Martin"), 4), 1);
    EXPECT_EQ(find_row(model, QStringLiteral("Martin"), 65535), 1);
    EXPECT_EQ(find_row(model, QStringLiteral("Martin"), -3), 1);
    EXPECT_EQ(find_row(model, QStringLiteral("Durand"), 9), 3);

    EXPECT_FALSE(find_row(model, QStringLiteral("Absent")).has_value());
    QStandardItemModel empty;
    EXPECT_FALSE(find_row(empty, QStringLiteral("Dupont")).has_value());

    // Exact, whole-word and partial matches.
    fill(model, {QStringLiteral("100m Nage Libre"), QStringLiteral("100 m papillon"), QStringLiteral("100"),
                 QStringLiteral("1000")});
    // Exact: the cell equals the text.
    EXPECT_EQ(find_row(model, QStringLiteral("100")), 2);
    // Whole word: the text, then a character that ends the word.
    EXPECT_EQ(find_row(model, QStringLiteral("100"), 0, true), 1);
    EXPECT_EQ(find_row(model, QStringLiteral("1000"), 0, true), 3);
    // Partial: the cell begins with the text.
    EXPECT_EQ(find_row(model, QStringLiteral("100"), 0, false, true), 0);
    EXPECT_EQ(find_row(model, QStringLiteral("100M nage"), 0, true, true), 0);
    EXPECT_FALSE(find_row(model, QStringLiteral("Nage"), 0, false, true).has_value());

    model.setItem(1, 1, new QStandardItem(QStringLiteral("Dames")));
    EXPECT_EQ(find_row(model, QStringLiteral("dames"), 0, false, false, 1), 1);
}

TEST(SelectRows, SelectByTextAndAfterARemoval)
{
    QStandardItemModel model;
    fill(model, {QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")});
    QItemSelectionModel selection(&model);

    EXPECT_EQ(select_row(selection, QStringLiteral("b")), 1);
    EXPECT_EQ(selected_row(selection), 1);
    EXPECT_EQ(selection.currentIndex().row(), 1);
    EXPECT_FALSE(select_row(selection, QStringLiteral("Z")).has_value());
    EXPECT_EQ(selected_row(selection), 1);

    // Removing the middle row selects the row that took its place.
    model.removeRow(1);
    EXPECT_EQ(select_last_row(selection, 1), 1);
    EXPECT_EQ(selection.currentIndex().data().toString(), QStringLiteral("C"));
    model.removeRow(1);
    EXPECT_EQ(select_last_row(selection, 1), 0);
    EXPECT_EQ(selected_row(selection), 0);
    model.removeRow(0);
    EXPECT_FALSE(select_last_row(selection, 0).has_value());
    EXPECT_FALSE(selection.hasSelection());

    EXPECT_EQ(row_after_removal(5, 3), 2);
    EXPECT_EQ(row_after_removal(-1, 3), 0);
}

TEST(Ticks, CheckAllAndCount)
{
    QStandardItemModel model;
    fill(model, {QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C"), QStringLiteral("D")});
    EXPECT_EQ(count_checked(model), 0);
    model.item(2)->setCheckState(Qt::Checked);
    model.item(0)->setCheckState(Qt::PartiallyChecked);  // not a tick
    EXPECT_EQ(count_checked(model), 1);
    EXPECT_EQ(checked_keys(model), QStringList{QStringLiteral("k2")});

    check_all(model, true);
    EXPECT_EQ(count_checked(model), 4);
    EXPECT_EQ(checked_rows(model), (std::vector<int>{0, 1, 2, 3}));
    check_all(model, false);
    EXPECT_EQ(count_checked(model), 0);
    EXPECT_TRUE(checked_keys(model).isEmpty());

    QStandardItemModel empty;
    check_all(empty, true);
    EXPECT_EQ(count_checked(empty), 0);
}

TEST(IncrementalSearch, FindsTheFirstRowBeginningWithTheTypedText)
{
    QStandardItemModel model;
    fill(model, {QStringLiteral("MARTIN Paul"), QStringLiteral("DUPONT Anne"), QStringLiteral("DUPONT Luc"),
                 QStringLiteral("Dupuis Marc")});
    QItemSelectionModel selection(&model);

    EXPECT_EQ(incremental_search(model, QStringLiteral("d")), 1);
    EXPECT_EQ(incremental_search(model, QStringLiteral("dupont l")), 2);
    EXPECT_EQ(incremental_search(model, QStringLiteral("  dupu ")), 3);
    // The text is matched at the start only.
    EXPECT_FALSE(incremental_search(model, QStringLiteral("Paul")).has_value());

    // Each key narrows the search; a key that matches nothing leaves the row.
    EXPECT_EQ(incremental_select(selection, QStringLiteral("du")), 1);
    EXPECT_EQ(incremental_select(selection, QStringLiteral("dupon")), 1);
    EXPECT_EQ(incremental_select(selection, QStringLiteral("dupont L")), 2);
    EXPECT_FALSE(incremental_select(selection, QStringLiteral("dupont Lx")).has_value());
    EXPECT_EQ(selected_row(selection), 2);
    EXPECT_FALSE(incremental_select(selection, QStringLiteral("   ")).has_value());
    EXPECT_EQ(selected_row(selection), 2);

    // The search may run on a hidden column, or a role, that the list does not show.
    for (int row = 0; row < model.rowCount(); ++row)
        model.setData(model.index(row, 0), QStringLiteral("n%1").arg(3 - row), Qt::UserRole + 5);
    EXPECT_EQ(incremental_search(model, QStringLiteral("N1"), 0, Qt::UserRole + 5), 2);

}

TEST(KeyFilters, EnterAndEscapeClearTheSearchAndDigitFieldsTakeDigitsAndControlKeysOnly)
{
    EXPECT_TRUE(search_key_clears(13));
    EXPECT_TRUE(search_key_clears(27));
    EXPECT_FALSE(search_key_clears('a'));
    EXPECT_FALSE(search_key_clears(8));
    for (int c = '0'; c <= '9'; ++c)
        EXPECT_TRUE(digit_key_accepted(c)) << c;
    for (int c : {8, 13, 27})
        EXPECT_TRUE(digit_key_accepted(c)) << c;
    for (int c : {int(' '), int('a'), int('Z'), int('-'), int('+'), int(','), int('.'), 0xE9, 0x660})
        EXPECT_FALSE(digit_key_accepted(c)) << c;
}

TEST(MinimumSizes, AWindowKeepsItsMinimumUnlessMinimized)
{
    const MinimumSize min{640, 480};
    EXPECT_EQ(min.corrected({500, 600}), QSize(640, 600));
    EXPECT_EQ(min.corrected({800, 300}), QSize(800, 480));
    EXPECT_EQ(min.corrected({900, 700}), QSize(900, 700));
    EXPECT_EQ(min.corrected({100, 20}, true), QSize(100, 20));
    EXPECT_EQ(min.excess({700, 400}), QSize(60, 0));
    EXPECT_EQ(min.excess(min.corrected({10, 10})), QSize(0, 0));
}

class FillCollectionsTest : public AppFixture {
protected:
    void SetUp() override
    {
        AppFixture::SetUp();
        connect(make_base());
        for (const char* values : {"('Piscine de la Plage', 'Brest', 8, 50)", "('Piscine Saint-Marc', 'Brest', 6, 25)",
                                   "('Aquarena', 'Quimper', 8, 50)"})
            app->db.exec_sql(QStringLiteral("INSERT INTO Piscine (Nom, Ville, NbCouloir, Bassin) VALUES %1;")
                                 .arg(QLatin1String(values)));
    }

    const QString sql = QStringLiteral(
        "SELECT Nom, Ville, NbCouloir, Num FROM Piscine WHERE Nom <> 'Null' ORDER BY Nom");
};

TEST_F(FillCollectionsTest, FillsTwoListsInStepWithTextsSubItemsAndKeys)
{
    QStandardItemModel visible;
    visible.setHorizontalHeaderLabels({QStringLiteral("Nom"), QStringLiteral("Ville"), QStringLiteral("Couloirs")});
    QStandardItemModel twin;
    const int count = fill_collections(app->db, sql,
                                       {{&visible, {0, 1, 2}, 3, true}, {&twin, {1, 3}}},
                                       QStringLiteral("Piscine "));

    const Rows rows = app->db.load_rows(sql);
    ASSERT_EQ(count, 3);
    EXPECT_EQ(visible.columnCount(), 3);
    EXPECT_EQ(visible.headerData(2, Qt::Horizontal).toString(), QStringLiteral("Couloirs"));
    // The first cell loses "Piscine "; the sub-items keep their text. The
    // twin has the town as its text, the number as its sub-item, and no key.
    EXPECT_EQ(column_texts(visible), (QStringList{QStringLiteral("Aquarena"), QStringLiteral("de la Plage"),
                                              QStringLiteral("Saint-Marc")}));
    EXPECT_EQ(column_texts(visible, 1) + column_texts(visible, 2), rows.column(1) + rows.column(2));
    EXPECT_EQ(column_texts(twin) + column_texts(twin, 1), rows.column(1) + rows.column(3));
    for (int row = 0; row < count; ++row) {
        EXPECT_EQ(row_key(visible, row), rows.value(row, 3));
        EXPECT_TRUE(visible.item(row, 0)->isCheckable());
        EXPECT_TRUE(row_key(twin, row).isEmpty());
    }
    EXPECT_EQ(count_checked(visible), 0);

    const auto row = find_key(visible, app->db.load_rows(
        QStringLiteral("select Num from Piscine where Nom = 'Aquarena'")).first());
    ASSERT_TRUE(row.has_value());
    EXPECT_EQ(visible.item(*row, 0)->text(), QStringLiteral("Aquarena"));
}

TEST_F(FillCollectionsTest, ARefillReplacesTheRowsAndAFailureLeavesTheListsEmpty)
{
    QStandardItemModel list;
    fill_collections(app->db, sql, {{&list, {0}, 3}});
    app->db.exec_sql(QStringLiteral("DELETE FROM Piscine WHERE Nom = 'Aquarena';"));
    EXPECT_EQ(fill_collections(app->db, sql, {{&list, {0}, 3}}), 2);
    EXPECT_EQ(column_texts(list), (QStringList{QStringLiteral("Piscine de la Plage"), QStringLiteral("Piscine Saint-Marc")}));

    // A query that cannot run: the engine's error goes on, the person saw the
    // statement, and the list holds no stale rows.
    ui.clear();
    EXPECT_THROW(fill_collections(app->db, QStringLiteral("SELECT Nom FROM PasDeTable"), {{&list, {0}}}), DbError);
    EXPECT_EQ(list.rowCount(), 0);
    ASSERT_FALSE(ui.messages.empty());
    EXPECT_TRUE(ui.messages.back().text.contains(QStringLiteral("SELECT Nom FROM PasDeTable")));

    // A list that names a column the result lacks is the caller's mistake.
    EXPECT_THROW(fill_collections(app->db, sql, {{&list, {0, 4}}}), std::invalid_argument);
    EXPECT_THROW(fill_collections(app->db, sql, {{&list, {0}, 7}}), std::invalid_argument);

    EXPECT_EQ(fill_collections(app->db, QStringLiteral("SELECT Nom FROM Piscine WHERE Nom = 'aucune'"),
                               {{&list, {0}}}),
              0);
    EXPECT_EQ(list.rowCount(), 0);
}
