// The composed INSERT of a licence and the reach of a selection code.

#include "src/licences/utils_licences.h"
#include "licence_test_base.h"

using namespace plouvarine;
using plouvarine::testing::LicenceBase;

namespace {

LicenceRecord tab(const QString& nom)
{
    LicenceRecord t;
    t.code_club = u"FRA2210290017"_s;
    t.licence = u"85001F"_s;
    t.nom = nom;
    t.date_ctrl_medical = u"20050901"_s;
    t.activites = QStringList{u"never inserted"_s};
    return t;
}

}  // namespace

TEST_F(LicenceBase, TheInsertQuotesEachValue)
{
    // The activities go to a table of their own.
    EXPECT_FALSE(AjouteLicenceSql(tab(u"O'NEIL"_s)).contains(u"never inserted"_s));
    AjouteLicence(*app, tab(u"O'NEIL"_s));
    const QString num = NumLicence(*app, u"85001F"_s, QLatin1String(kClub));
    EXPECT_EQ(dump(u"select Nom, Date_Ctrl_Medical from Licence where Num = "_s + num),
              QStringList{u"O'NEIL:20050901"_s});
    EXPECT_TRUE(NumLicence(*app, u"85001F"_s, QLatin1String(kOtherClub)).isEmpty());

    // A no-break space is a character like any other.
    LicenceRecord other = tab(u"LE"_s + QChar(0xA0) + u"GALL"_s);
    other.licence = u"85002F"_s;
    AjouteLicence(*app, other);
    EXPECT_EQ(field(NumLicence(*app, u"85002F"_s, QLatin1String(kClub)), u"Nom"_s), u"LE"_s + QChar(0xA0) + u"GALL"_s);
}

TEST(PrefixeSelection, TheLongestRunOfZerosDecidesTheReach)
{
    const QStringList codes{"FRA0000000000", "FRA2000000000", "FRA2210000000", "FRA2210290000", "FRA2210290017"};
    QStringList prefixes;
    for (const QString& code : codes)
        prefixes << PrefixeSelection(code);
    EXPECT_EQ(prefixes, (QStringList{"FRA", "FRA2", "FRA221", "FRA221029", ""}));
}

TEST_F(LicenceBase, TheUpdateQuotesEachValueAndLeavesTheClubAlone)
{
    const QString num = licence(u"DUPONT"_s, u"Anne"_s, u"85001F"_s);
    LicenceRecord changed = tab(u"D'ARC"_s);
    changed.code_club = QLatin1String(kOtherClub);
    changed.prenom = u"Jeanne"_s;
    changed.sportive = u"O"_s;
    ModifieLicence(*app, changed, num);
    EXPECT_EQ(dump(u"select Nom, Prenom, Sportive, Code_club from Licence where Num = "_s + num),
              QStringList{u"D'ARC:Jeanne:O:"_s + QLatin1String(kClub)});
}
