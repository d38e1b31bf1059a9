// The composed INSERT of a licence and the reach of a selection code.

#include "src/licences/utils_licences.h"
#include "licence_test_base.h"

using namespace plouvarine;
using plouvarine::testing::LicenceBase;

namespace {

LicenceRecord tab(const QString& nom)
{
    LicenceRecord t;
    t.code_club = QStringLiteral("FRA2210290017");
    t.licence = QStringLiteral("85001F");
    t.nom = nom;
    t.date_ctrl_medical = QStringLiteral("20050901");
    t.activites = QStringList{QStringLiteral("never inserted")};
    return t;
}

}  // namespace

TEST_F(LicenceBase, TheInsertQuotesEachValue)
{
    const QString sql = AjouteLicenceSql(tab(QStringLiteral("O'NEIL")));
    EXPECT_TRUE(sql.contains(QStringLiteral("VALUES ('FRA2210290017', '85001F', 'O''NEIL', '', ")));
    EXPECT_TRUE(sql.endsWith(QStringLiteral("'20050901');")));
    EXPECT_FALSE(sql.contains(QStringLiteral("never inserted")));
    AjouteLicence(*app, tab(QStringLiteral("O'NEIL")));
    const QString num = NumLicence(*app, QStringLiteral("85001F"), QLatin1String(kClub));
    EXPECT_EQ(field(num, QStringLiteral("Nom")), QStringLiteral("O'NEIL"));
    EXPECT_EQ(field(num, QStringLiteral("Date_Ctrl_Medical")), QStringLiteral("20050901"));
    EXPECT_TRUE(NumLicence(*app, QStringLiteral("85001F"), QLatin1String(kOtherClub)).isEmpty());

    // A no-break space is a character like any other.
    LicenceRecord other = tab(QStringLiteral("LE") + QChar(0xA0) + QStringLiteral("GALL"));
    other.licence = QStringLiteral("85002F");
    AjouteLicence(*app, other);
    EXPECT_EQ(field(NumLicence(*app, QStringLiteral("85002F"), QLatin1String(kClub)), QStringLiteral("Nom")),
              QStringLiteral("LE") + QChar(0xA0) + QStringLiteral("GALL"));
}

TEST(PrefixeSelection, TheLongestRunOfZerosDecidesTheReach)
{
    EXPECT_EQ(PrefixeSelection(QStringLiteral("FRA0000000000")), QStringLiteral("FRA"));
    EXPECT_EQ(PrefixeSelection(QStringLiteral("FRA2000000000")), QStringLiteral("FRA2"));
    EXPECT_EQ(PrefixeSelection(QStringLiteral("FRA2210000000")), QStringLiteral("FRA221"));
    EXPECT_EQ(PrefixeSelection(QStringLiteral("FRA2210290000")), QStringLiteral("FRA221029"));
    EXPECT_EQ(PrefixeSelection(QStringLiteral("FRA2210290017")), QString());
}

TEST_F(LicenceBase, TheUpdateQuotesEachValueAndLeavesTheClubAlone)
{
    const QString num = licence(QStringLiteral("DUPONT"), QStringLiteral("Anne"), QStringLiteral("85001F"));
    LicenceRecord changed = tab(QStringLiteral("D'ARC"));
    changed.code_club = QLatin1String(kOtherClub);
    changed.prenom = QStringLiteral("Jeanne");
    changed.sportive = QStringLiteral("O");
    const QString sql = ModifieLicenceSql(changed, num);
    EXPECT_FALSE(sql.contains(QStringLiteral("Code_club")));
    ModifieLicence(*app, changed, num);
    EXPECT_EQ(field(num, QStringLiteral("Nom")) + field(num, QStringLiteral("Prenom")), QStringLiteral("D'ARCJeanne"));
    EXPECT_EQ(field(num, QStringLiteral("Sportive")) + field(num, QStringLiteral("Code_club")),
              QStringLiteral("O") + QLatin1String(kClub));
}
