// The composed INSERT of a licence and the reach of a selection code.

#include "src/licences/utils_licences.h"
#include "licence_test_base.h"

using namespace plouvarine;
using plouvarine::testing::LicenceBase;

namespace {

QStringList tab(const QString& nom)
{
    QStringList t(kTabLicenceSize);
    t[kTabCodeClub] = QStringLiteral("FRA2210290017");
    t[kTabLicence] = QStringLiteral("85001F");
    t[kTabNom] = nom;
    t[kTabDateCtrlMedical] = QStringLiteral("20050901");
    t[kTabActivites] = QStringLiteral("never inserted");
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
    QStringList other = tab(QStringLiteral("LE") + QChar(0xA0) + QStringLiteral("GALL"));
    other[kTabLicence] = QStringLiteral("85002F");
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
