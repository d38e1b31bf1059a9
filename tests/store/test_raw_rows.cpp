// The read kept as UTF-8: every cell must come out as the very text that
// load_rows gives for it, nulls and empty texts kept apart, and a statement
// that cannot run must reach the person as load_rows reports it.

#include "src/base/errors.h"
#include "src/store/database.h"
#include "support/app_fixture.h"
#include "support/awkward_text.h"

#include <stdexcept>

using namespace plouvarine;
using plouvarine::testing::AppFixture;
using plouvarine::testing::awkward_text;

namespace {

class RawRowsTest : public AppFixture {
protected:
    void SetUp() override
    {
        AppFixture::SetUp();
        connect(make_base());
    }
    void add_licence(const QVariant& nom, const QVariant& prenom, const QVariant& sexe, bool visible)
    {
        app->db.append_row(QStringLiteral("Licence"),
                           {{QStringLiteral("Code_club"), QStringLiteral("TEST")},
                            {QStringLiteral("Nom"), nom},
                            {QStringLiteral("Prenom"), prenom},
                            {QStringLiteral("Sexe"), sexe},
                            {QStringLiteral("Date_Naissance"), QStringLiteral("20010203")},
                            {QStringLiteral("Visible"), visible}},
                           QStringLiteral("Num"));
    }
};

}  // namespace

TEST_F(RawRowsTest, EveryCellGivesTheTextOfLoadRowsWithNullsAndEmptyTextsApart)
{
    add_licence(awkward_text("a "), QVariant(), QString(QLatin1String("")), true);
    add_licence(QStringLiteral("Éloïse"), QString(QLatin1String("")), QStringLiteral("F"), false);
    add_licence(QStringLiteral("Zoé"), awkward_text(), QVariant(), true);
    const QString sql = QStringLiteral(
        "SELECT Num, Nom, Prenom, Sexe, Visible, Date_Naissance, Num * 1.5, -Num, 0.1 + 0.2, NULL "
        "FROM Licence WHERE Code_club = 'TEST' ORDER BY Nom");
    const Rows texts = app->db.load_rows(sql);
    const RawRows raw = app->db.load_raw_rows(sql);

    ASSERT_EQ(raw.size(), 3);
    ASSERT_EQ(raw.column_count(), texts.column_count());
    EXPECT_EQ(raw.names(), texts.names());
    for (int row = 0; row < raw.size(); ++row)
        for (int column = 0; column < raw.column_count(); ++column) {
            SCOPED_TRACE(::testing::Message() << "row " << row << ", column " << column);
            EXPECT_EQ(raw.value(row, column), texts.value(row, column));
            EXPECT_EQ(raw.value(row, column).isNull(), texts.value(row, column).isNull());
        }

    // The rows as stored, and not merely alike: the null first name apart
    // from the empty sex, the booleans in words, the names whole.
    EXPECT_TRUE(raw.is_null(0, 2));
    EXPECT_FALSE(raw.is_null(0, 3));
    EXPECT_FALSE(raw.value(0, 3).isNull());
    EXPECT_EQ(raw.value(0, 1), awkward_text("a "));
    EXPECT_EQ(raw.utf8(1, 1), QByteArrayView("\xc3\x89lo\xc3\xafse"));
    EXPECT_EQ(raw.value(1, 4), QStringLiteral("Faux"));
    EXPECT_EQ(raw.value(2, 8), QStringLiteral("0.3"));
    EXPECT_THROW(raw.value(3, 0), std::out_of_range);
    EXPECT_THROW(raw.value(0, 10), std::out_of_range);
}

TEST_F(RawRowsTest, AReadWithoutRowsKeepsItsColumns)
{
    const RawRows none = app->db.load_raw_rows(QStringLiteral("SELECT Num, Nom FROM Licence WHERE Nom = 'personne'"));
    EXPECT_EQ(none.names(), (QStringList{"Num", "Nom"}));
    EXPECT_TRUE(none.empty());
    EXPECT_TRUE(none.first(1).isNull());
}

TEST_F(RawRowsTest, AStatementThatCannotRunIsShownAsLoadRowsShowsIt)
{
    const QString sql = QStringLiteral("SELECT Nom FROM Licence WHERE Nom = 'O'Brien'");
    EXPECT_THROW(app->db.load_rows(sql), DbError);
    EXPECT_THROW(app->db.load_raw_rows(sql), DbError);
    ASSERT_EQ(ui.messages.size(), 2u);
    EXPECT_EQ(ui.messages[1].title, ui.messages[0].title);
    EXPECT_EQ(ui.messages[1].text, ui.messages[0].text);
    EXPECT_TRUE(ui.messages[1].text.endsWith(QStringLiteral("\nLa requête suivante n'a pu être exécutée : ") + sql));

    // No base open: an error, and nothing read.
    app->db.close();
    EXPECT_THROW(app->db.load_raw_rows(QStringLiteral("SELECT 1")), DbError);
}
