// The club code against the model base's geography, and its composition help.

#include "src/clubs/construc_code_club.h"
#include "src/clubs/liste_pays.h"
#include "src/frame/list_helpers.h"
#include "src/clubs/utils_club.h"
#include "club_test_base.h"

using namespace plouvarine;
using plouvarine::testing::ClubBase;

namespace {

class ClubCodeTest : public ClubBase {
protected:
    // The code the help composes from its fields as they stand.
    static QString composed(ConstrucCodeClub& help)
    {
        help.compose();
        return help.codification();
    }
};

TEST_F(ClubCodeTest, ValidationFollowsTheGeography)
{
    const std::pair<const char*, bool> cases[] = {
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
    for (const auto& [code, valid] : cases)
        EXPECT_EQ(CodeClubValide(*app, QString::fromLatin1(code), false, {}), valid) << code;
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_TRUE(EstCodeSelection(u"FRA0000000000"_s));
    EXPECT_FALSE(EstCodeSelection(u"FRA2210291234"_s));

    // Refused aloud, a code of the wrong size says nothing; the others are
    // told, after the prefix when there is one.
    for (const char* code : {"FRA000000000", "FRA00000000000", "FRA1210000000"})
        EXPECT_FALSE(CodeClubValide(*app, QString::fromLatin1(code), true, u"Ajout annulé."_s)) << code;
    EXPECT_FALSE(CodeClubValide(*app, u"BEL1000001234"_s, true, {}));
    EXPECT_EQ(ui.texts(), (QStringList{u"Ajout annulé.\nLe code club tapé n'est pas valide."_s,
                                       u"Le code club tapé n'est pas valide."_s}));
    EXPECT_EQ(ui.messages[0].title, u"Erreur"_s);
}

TEST_F(ClubCodeTest, CompositionOfClubAndSelections)
{
    ConstrucCodeClub help(*app, QString());
    EXPECT_EQ(help.pays().value, u"FRANCE"_s);
    EXPECT_EQ(help.type(), ConstrucCodeClub::Club);
    EXPECT_TRUE(help.inter().enabled);
    EXPECT_FALSE(help.inter().items.contains(u"Null"_s));

    // An empty number gives a club 0001.
    help.set_inter(u"Nord-Ouest"_s);
    help.set_region(u"Bretagne"_s);
    ASSERT_TRUE(help.departement().items.contains(u"Finistère"_s));
    help.set_departement(u"Finistère"_s);
    EXPECT_EQ(composed(help), u"FRA2210290001"_s);
    EXPECT_EQ(help.code_fourni(), u"0001"_s);

    // Letters end the number.
    help.set_code_fourni(u"12ab-"_s);
    EXPECT_EQ(help.code_fourni(), u"12AB"_s);
    EXPECT_EQ(composed(help), u"FRA2210290012"_s);
    EXPECT_TRUE(CodeClubValide(*app, help.codification(), false, {}));

    // A regional selection: the department stays closed, the number is 0000.
    help.set_type(ConstrucCodeClub::Regionale);
    EXPECT_FALSE(help.code_fourni_enabled());
    help.set_inter(u"Nord-Ouest"_s);
    help.set_region(u"Bretagne"_s);
    EXPECT_FALSE(help.departement().enabled);
    EXPECT_EQ(composed(help), u"FRA2210000000"_s);

    // Abroad only a club or a federal selection exists.
    help.set_type(ConstrucCodeClub::Club);
    help.set_pays(u"BELGIQUE"_s);
    EXPECT_FALSE(help.type_enabled(ConstrucCodeClub::InterRegionale));
    EXPECT_FALSE(help.type_enabled(ConstrucCodeClub::Departementale));
    EXPECT_FALSE(help.inter().enabled);
    help.set_code_fourni(u"77"_s);
    EXPECT_EQ(composed(help), u"BEL0000000077"_s);
    help.set_pays(u"FRANCE"_s);
    EXPECT_TRUE(help.type_enabled(ConstrucCodeClub::Regionale));
}

TEST_F(ClubCodeTest, HelpStartsFromTheFieldAndCopiesOnYes)
{
    ConstrucCodeClub opened(*app, u"FRA2210291234"_s);
    EXPECT_EQ(opened.type(), ConstrucCodeClub::Club);
    EXPECT_EQ((QStringList{opened.inter().value, opened.region().value, opened.departement().value,
                           opened.code_fourni()}),
              (QStringList{"Nord-Ouest", "Bretagne", "Finistère", "1234"}));
    EXPECT_EQ(ConstrucCodeClub::type_of_code(u"FRA2210290000"_s), ConstrucCodeClub::Departementale);
    EXPECT_EQ(ConstrucCodeClub::type_of_code(u"FRA2000000000"_s), ConstrucCodeClub::InterRegionale);

    // Through AideCodeClub: compose then close; No keeps the field.
    ui.drivers[u"construc_code_club"_s] = [](View& v) {
        auto& help = dynamic_cast<ConstrucCodeClub&>(v);
        help.set_code_fourni(u"42"_s);
        help.compose();
        help.close_command();
    };
    QString field = u"FRA2210291234"_s;
    ui.answers = {Button::No};
    EXPECT_FALSE(AideCodeClub(*app, field));
    EXPECT_EQ(field, u"FRA2210291234"_s);
    ui.answers = {Button::Yes};
    EXPECT_TRUE(AideCodeClub(*app, field));
    EXPECT_EQ(field, u"FRA2210290042"_s);
    EXPECT_EQ(ui.titled(u"Confirmation"_s).back().text, u"Copier le code Club ?"_s);
    EXPECT_EQ(app->state.busy_count, 0);
}

TEST_F(ClubCodeTest, CountryListGivesOneName)
{
    ui.drivers[u"frm_liste_pays"_s] = [](View& v) {
        auto& list = dynamic_cast<FrmListePays&>(v);
        EXPECT_EQ(list.title(), u"Liste des Pays"_s);
        select_row_at(list.selection(), *find_row(list.list(), u"BELGIQUE"_s));
        list.confirm();
    };
    EXPECT_EQ(ChoisirPays(*app, u"frm_licence"_s), u"BELGIQUE"_s);

    // With no country the confirmation stays disabled and nothing is given.
    exec(u"delete from Pays"_s);
    ui.drivers[u"frm_liste_pays"_s] = [](View& v) {
        auto& list = dynamic_cast<FrmListePays&>(v);
        EXPECT_FALSE(list.ok_enabled());
        list.confirm();
    };
    EXPECT_TRUE(ChoisirPays(*app, u"frm_licence"_s).isEmpty());
    EXPECT_EQ(app->state.busy_count, 0);
}

}  // namespace
