// The read-only list over the rows read from a real base: cells and roles
// served from the result columns, rows leaving it as deletion marks, the
// list helpers working on it.

#include "src/base/sql_text.h"
#include "src/frame/list_helpers.h"
#include "src/frame/rows_table.h"
#include "src/store/database.h"
#include "support/app_fixture.h"
#include "support/awkward_text.h"

#include <QItemSelectionModel>

using namespace plouvarine;
using plouvarine::testing::AppFixture;
using plouvarine::testing::awkward_text;
using plouvarine::testing::column_texts;

namespace {

QString in_capitals(const QString& text)
{
    return text.toUpper();
}

class RowsTableTest : public AppFixture {
protected:
    void SetUp() override
    {
        AppFixture::SetUp();
        connect(make_base());
        for (const char* values : {"('Aquarena', 'Quimper', 8)", "('Piscine de la Plage', 'Brest', 8)",
                                   "('Piscine Saint-Marc', 'Brest', 6)"})
            app->db.exec_sql(QStringLiteral("INSERT INTO Piscine (Nom, Ville, NbCouloir) VALUES %1;")
                                 .arg(QLatin1String(values)));
        table.set_role(kKeyRole, 3);
        table.set_role(Qt::UserRole + 9,
                       [](const RawRows& rows, int row) { return rows.value(row, 1) + QLatin1Char('/') + rows.value(row, 0); });
        load();
    }
    void load()
    {
        table.reset(app->db.load_raw_rows(QStringLiteral(
                        "SELECT Nom, Ville, NbCouloir, Num FROM Piscine WHERE Nom <> 'Null' ORDER BY Nom")),
                    {{QStringLiteral("Ville"), 1, &in_capitals}, {QStringLiteral("Nom"), 0}});
    }
    QString key_of(const QString& nom)
    {
        return app->db.load_rows(QStringLiteral("SELECT Num FROM Piscine WHERE Nom = '%1'").arg(nom)).first();
    }
    QStringList column(int c) const
    {
        QStringList out;
        for (int row = 0; row < table.rowCount(); ++row)
            out << table.text(row, c);
        return out;
    }

    RowsTable table;
    QItemSelectionModel selection{&table};
};

}  // namespace

TEST_F(RowsTableTest, ServesTheChosenColumnsFormattedWithTheirKeysAndMadeRoles)
{
    ASSERT_EQ(table.columnCount(), 2);
    EXPECT_EQ(table.header_text(0), QStringLiteral("Ville"));
    EXPECT_EQ(table.header_text(1), QStringLiteral("Nom"));
    EXPECT_EQ(column(0), (QStringList{"QUIMPER", "BREST", "BREST"}));
    EXPECT_EQ(column(1), (QStringList{"Aquarena", "Piscine de la Plage", "Piscine Saint-Marc"}));
    EXPECT_EQ(row_key(table, 1), key_of(QStringLiteral("Piscine de la Plage")));
    // The other columns carry no role of the row; nothing is editable.
    EXPECT_FALSE(table.index(1, 1).data(kKeyRole).isValid());
    EXPECT_FALSE(table.flags(table.index(0, 0)).testFlag(Qt::ItemIsEditable));
    EXPECT_EQ(find_key(table, key_of(QStringLiteral("Piscine Saint-Marc"))), 2);
    EXPECT_EQ(incremental_search(table, QStringLiteral(" brest/piscine s"), 0, Qt::UserRole + 9), 2);
    EXPECT_EQ(find_row(table, QStringLiteral("brest"), 0, false, false, 0), 1);
}

TEST_F(RowsTableTest, SelectedRowsLeaveWithTheirKeysUntilTheRowsAreReadAgain)
{
    const QString plage = key_of(QStringLiteral("Piscine de la Plage"));
    const QString aquarena = key_of(QStringLiteral("Aquarena"));
    select_row_at(selection, 1);
    EXPECT_EQ(take_selected_rows(table, selection), QStringList{plage});
    EXPECT_EQ(column(1), (QStringList{"Aquarena", "Piscine Saint-Marc"}));
    EXPECT_EQ(selection.currentIndex().row(), 1);
    EXPECT_EQ(row_key(table, 1), key_of(QStringLiteral("Piscine Saint-Marc")));

    select_row_at(selection, 0);
    selection.select(table.index(1, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    EXPECT_EQ(take_selected_rows(table, selection).size(), 2);
    EXPECT_EQ(table.rowCount(), 0);
    EXPECT_FALSE(selection.currentIndex().isValid());
    EXPECT_FALSE(table.removeRows(0, 1));

    load();
    EXPECT_EQ(table.rowCount(), 3);
    EXPECT_EQ(row_key(table, 0), aquarena);
}

TEST_F(RowsTableTest, AwkwardNamesNullsAndBooleansAreDrawnAsReadAndFoundAfterRemovals)
{
    const QString insert = QStringLiteral("INSERT INTO Licence (Code_club, Nom, Prenom, Visible) VALUES ('T', %1)");
    app->db.exec_sql(insert.arg(quote_sql(awkward_text()) + QStringLiteral(", NULL, true")));
    app->db.exec_sql(insert.arg(QStringLiteral("'Ωμέγα', '', false")));
    app->db.exec_sql(insert.arg(QStringLiteral("'山田', 'Hana', true")));
    const QString sql = QStringLiteral("SELECT Num, Nom, Prenom, Visible FROM Licence WHERE Code_club = 'T' ORDER BY Num");
    RowsTable licences;
    licences.set_role(kKeyRole, 0);
    licences.set_role(Qt::UserRole + 2,
                      [](const RawRows& rows, int row) { return rows.value(row, 1) + QLatin1Char(' ') + rows.value(row, 2); });
    licences.reset(app->db.load_raw_rows(sql), {{QStringLiteral("Nom"), 1}, {QStringLiteral("Prénom"), 2},
                                                {QStringLiteral("Visible"), 3}, {QStringLiteral("Absente"), 9}});
    const Rows read = app->db.load_rows(sql);
    ASSERT_EQ(licences.rowCount(), 3);
    EXPECT_EQ(licences.text(0, 0), awkward_text());
    // A null first name draws as the null text, an empty one as the empty
    // text; a column the read does not have draws nothing at all.
    EXPECT_TRUE(licences.text(0, 1).isNull());
    EXPECT_FALSE(licences.text(1, 1).isNull());
    EXPECT_FALSE(licences.index(0, 3).data().isValid());
    EXPECT_EQ(column_texts(licences, 2), (QStringList{"Vrai", "Faux", "Vrai"}));

    // The search reads the rows still shown: a row gone is not found, the
    // rows after it are found where they now stand.
    EXPECT_EQ(incremental_search(licences, QStringLiteral("ωμέγα"), 0, Qt::UserRole + 2), 1);
    licences.removeRow(1);
    EXPECT_EQ(incremental_search(licences, QStringLiteral("ωμέγα"), 0, Qt::UserRole + 2), std::nullopt);
    EXPECT_EQ(incremental_search(licences, QStringLiteral("山田 h"), 0, Qt::UserRole + 2), 1);
    EXPECT_EQ(find_key(licences, read.value(2, 0)), 1);
    EXPECT_EQ(find_key(licences, read.value(1, 0)), std::nullopt);
    EXPECT_EQ(incremental_search(licences, awkward_text().left(12), 0, Qt::UserRole + 2), 0);
}
