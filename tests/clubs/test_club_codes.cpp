// The club code against the model base's geography, and its composition help.

#include "src/clubs/construc_code_club.h"
#include "src/clubs/liste_pays.h"
#include "src/frame/list_helpers.h"
#include "src/clubs/utils_club.h"
#include "club_test_base.h"

using namespace plouvarine;
using plouvarine::testing::ClubBase;

namespace {

class ClubCodeTest : public ClubBase {};

TEST_F(ClubCodeTest, ValidationFollowsTheGeography)
{
    struct Case {
        const char* code;
        bool valid;
    };
    const Case cases[] = {
        {"FRA0000000000", true},   // federal selection
        {"FRA2000000000", true},   // inter-regional selection
        {"FRA2210000000", true},   // Bretagne in Nord-Ouest
        {"FRA2210290000", true},   // Finistère in Bretagne
        {"FRA2210291234", true},
        {"BEL0000001234", true},   // abroad, only country and inter are read
        {"BEL0999991234", true},
        {"BEL1000001234", false},  // abroad with an inter-region
        {"XXX0000001234", false},  // no such country
        {"FRA1210000000", false},  // Bretagne belongs to another inter-region
        {"FRA2210750000", false},  // Paris is not in Bretagne
        {"FRA0210000000", false},  // no inter-region, yet a region
        {"FRA2000290000", false},  // no region, yet a department
        {"FRA9000000000", false},  // no inter-region 9
        {"FRAX000000000", false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(CodeClubValide(*app, QString::fromLatin1(c.code), false, {}), c.valid) << c.code;
    EXPECT_TRUE(ui.messages.empty());

    EXPECT_TRUE(EstCodeSelection(QStringLiteral("FRA0000000000")));
    EXPECT_FALSE(EstCodeSelection(QStringLiteral("FRA2210291234")));
}

TEST_F(ClubCodeTest, RefusalsShowThePrefixOnlyForWellSizedCodes)
{
    EXPECT_FALSE(CodeClubValide(*app, QStringLiteral("FRA000000000"), true, QStringLiteral("Ajout annulé.")));
    EXPECT_FALSE(CodeClubValide(*app, QStringLiteral("FRA00000000000"), true, QStringLiteral("Ajout annulé.")));
    EXPECT_TRUE(ui.messages.empty());

    EXPECT_FALSE(CodeClubValide(*app, QStringLiteral("FRA1210000000"), true, QStringLiteral("Ajout annulé.")));
    EXPECT_FALSE(CodeClubValide(*app, QStringLiteral("BEL1000001234"), true, {}));
    ASSERT_EQ(ui.messages.size(), 2u);
    EXPECT_EQ(ui.messages[0].title, QStringLiteral("Erreur"));
    EXPECT_EQ(ui.messages[0].text, QStringLiteral("Ajout annulé.\nLe code club tapé n'est pas valide."));
    EXPECT_EQ(ui.messages[1].text, QStringLiteral("Le code club tapé n'est pas valide."));
}

TEST_F(ClubCodeTest, CompositionOfClubAndSelections)
{
    ConstrucCodeClub help(*app, QString());
    EXPECT_EQ(help.pays().value, QStringLiteral("FRANCE"));
    EXPECT_EQ(help.type(), ConstrucCodeClub::Club);
    EXPECT_TRUE(help.inter().enabled);
    EXPECT_FALSE(help.inter().items.contains(QStringLiteral("Null")));

    // An empty number gives a club 0001.
    help.set_inter(QStringLiteral("Nord-Ouest"));
    help.set_region(QStringLiteral("Bretagne"));
    ASSERT_TRUE(help.departement().items.contains(QStringLiteral("Finistère")));
    help.set_departement(QStringLiteral("Finistère"));
    help.compose();
    EXPECT_EQ(help.codification(), QStringLiteral("FRA2210290001"));
    EXPECT_EQ(help.code_fourni(), QStringLiteral("0001"));

    // Letters end the number.
    help.set_code_fourni(QStringLiteral("12ab-"));
    EXPECT_EQ(help.code_fourni(), QStringLiteral("12AB"));
    help.compose();
    EXPECT_EQ(help.codification(), QStringLiteral("FRA2210290012"));
    EXPECT_TRUE(CodeClubValide(*app, help.codification(), false, {}));

    // A regional selection: the department stays closed, the number is 0000.
    help.set_type(ConstrucCodeClub::Regionale);
    EXPECT_FALSE(help.code_fourni_enabled());
    help.set_inter(QStringLiteral("Nord-Ouest"));
    help.set_region(QStringLiteral("Bretagne"));
    EXPECT_FALSE(help.departement().enabled);
    help.compose();
    EXPECT_EQ(help.codification(), QStringLiteral("FRA2210000000"));

    // Abroad only a club or a federal selection exists.
    help.set_type(ConstrucCodeClub::Club);
    help.set_pays(QStringLiteral("BELGIQUE"));
    EXPECT_FALSE(help.type_enabled(ConstrucCodeClub::InterRegionale));
    EXPECT_FALSE(help.type_enabled(ConstrucCodeClub::Departementale));
    EXPECT_FALSE(help.inter().enabled);
    help.set_code_fourni(QStringLiteral("77"));
    help.compose();
    EXPECT_EQ(help.codification(), QStringLiteral("BEL0000000077"));
    help.set_pays(QStringLiteral("FRANCE"));
    EXPECT_TRUE(help.type_enabled(ConstrucCodeClub::Regionale));
}

TEST_F(ClubCodeTest, HelpStartsFromTheFieldAndCopiesOnYes)
{
    ConstrucCodeClub opened(*app, QStringLiteral("FRA2210291234"));
    EXPECT_EQ(opened.type(), ConstrucCodeClub::Club);
    EXPECT_EQ(opened.inter().value, QStringLiteral("Nord-Ouest"));
    EXPECT_EQ(opened.region().value, QStringLiteral("Bretagne"));
    EXPECT_EQ(opened.departement().value, QStringLiteral("Finistère"));
    EXPECT_EQ(opened.code_fourni(), QStringLiteral("1234"));
    EXPECT_EQ(ConstrucCodeClub::type_of_code(QStringLiteral("FRA2210290000")), ConstrucCodeClub::Departementale);
    EXPECT_EQ(ConstrucCodeClub::type_of_code(QStringLiteral("FRA2000000000")), ConstrucCodeClub::InterRegionale);

    // Through AideCodeClub: compose then close; No keeps the field.
    ui.drivers[QStringLiteral("construc_code_club")] = [](View& v) {
        auto& help = dynamic_cast<ConstrucCodeClub&>(v);
        help.set_code_fourni(QStringLiteral("42"));
        help.compose();
        help.close_command();
    };
    QString field = QStringLiteral("FRA2210291234");
    ui.answers = {Button::No};
    EXPECT_FALSE(AideCodeClub(*app, field));
    EXPECT_EQ(field, QStringLiteral("FRA2210291234"));
    ui.answers = {Button::Yes};
    EXPECT_TRUE(AideCodeClub(*app, field));
    EXPECT_EQ(field, QStringLiteral("FRA2210290042"));
    EXPECT_EQ(ui.titled(QStringLiteral("Confirmation")).back().text, QStringLiteral("Copier le code Club ?"));
    EXPECT_EQ(app->state.busy_count, 0);
}

TEST_F(ClubCodeTest, CountryListGivesOneName)
{
    ui.drivers[QStringLiteral("frm_liste_pays")] = [](View& v) {
        auto& list = dynamic_cast<FrmListePays&>(v);
        EXPECT_EQ(list.title(), QStringLiteral("Liste des Pays"));
        select_row_at(list.selection(), *find_row(list.list(), QStringLiteral("BELGIQUE")));
        list.confirm();
    };
    EXPECT_EQ(ChoisirPays(*app, QStringLiteral("frm_licence")), QStringLiteral("BELGIQUE"));

    // With no country the confirmation stays disabled and nothing is given.
    exec(QStringLiteral("delete from Pays"));
    ui.drivers[QStringLiteral("frm_liste_pays")] = [](View& v) {
        auto& list = dynamic_cast<FrmListePays&>(v);
        EXPECT_FALSE(list.ok_enabled());
        list.confirm();
    };
    EXPECT_TRUE(ChoisirPays(*app, QStringLiteral("frm_licence")).isEmpty());
    EXPECT_EQ(app->state.busy_count, 0);
}

}  // namespace
