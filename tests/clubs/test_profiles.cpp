// Profiles: the current one read into the state, the forced choices, and a
// change of club that takes the profile's entries away.

#include "src/clubs/club_hooks.h"
#include "src/clubs/det_profil.h"
#include "src/clubs/liste_club.h"
#include "src/clubs/liste_profil.h"
#include "src/clubs/utils_profils.h"
#include "club_test_base.h"
#include "support/awkward_text.h"
#include "src/frame/keywords.h"
#include "src/frame/list_helpers.h"

using namespace plouvarine;
using plouvarine::testing::awkward_text;
using plouvarine::testing::ClubBase;

namespace {

class ProfileTest : public ClubBase {
protected:
    FrmListeProfil* open_list(const QLatin1String& keyword)
    {
        OuvreListeProfils(*app, QString(keyword), QStringLiteral("Modifier profils"), QStringLiteral("&Modifier"));
        return ui.window_as<FrmListeProfil>(QStringLiteral("Frm_liste_profil"));
    }
};

TEST_F(ProfileTest, ReadProfileFillsTheStateAndLocksOwnClubForASelection)
{
    add_club(QStringLiteral("FRA2210290017"), QStringLiteral("Brest"));
    add_club(QStringLiteral("FRA2210000000"), QStringLiteral("Bretagne"));
    exec(QStringLiteral("Update Club Set Selection = true where Code_federal = 'FRA2210000000'"));
    add_profile(QStringLiteral("Coach d'été"), QStringLiteral("FRA2210000000"), true);
    exec(QStringLiteral("Update Profil Set lgPosXSuivi = 120, lgIntervalSuivi = 5000, bAlwaysVisibleSuivi = true"));

    read_profile(*app, true);
    EXPECT_EQ(app->state.profile_name, QStringLiteral("Coach d'été"));
    EXPECT_EQ(app->state.club_code, QStringLiteral("FRA2210000000"));
    EXPECT_TRUE(app->state.club_selection);
    EXPECT_EQ(app->state.monitor_pos_x, 120);
    EXPECT_EQ(app->state.monitor_interval, 5000);
    EXPECT_TRUE(app->state.monitor_always_visible);
    EXPECT_EQ(ui.status[1], QStringLiteral("Profil : Coach d'été (Bretagne)"));
    EXPECT_EQ(app->menus.counter(QStringLiteral("mnuBaseClubConfig")), 1);

    // Back to a club: "Votre Club" is given back once, however often it is read.
    exec(QStringLiteral("Update Profil Set Code_club = 'FRA2210290017'"));
    read_profile(*app, false);
    read_profile(*app, false);
    EXPECT_FALSE(app->state.club_selection);
    EXPECT_EQ(app->menus.counter(QStringLiteral("mnuBaseClubConfig")), 0);

    // A profile whose club is gone is no profile: the choice is forced, and
    // cancelling it leaves the state empty.
    exec(QStringLiteral("Update Profil Set Code_club = 'FRA0000009999'"));
    read_profile(*app, false);
    EXPECT_EQ(ui.shown_views.back(), QStringLiteral("Frm_liste_profil_obli"));
    EXPECT_TRUE(app->state.profile_num.isEmpty());
    EXPECT_EQ(ui.status[1], QStringLiteral("Profil :  ()"));
}

TEST_F(ProfileTest, NewProfilesAreUniqueAndOnlyTheFirstBecomesCurrent)
{
    add_club(QStringLiteral("FRA2210290017"), QStringLiteral("Brest"));
    install_club_hooks(*app);
    ui.drivers[QStringLiteral("det_profil_obli")] = [](View& v) {
        auto& d = dynamic_cast<DetProfil&>(v);
        EXPECT_EQ(d.title(), QStringLiteral("Création profil"));
        EXPECT_FALSE(d.ok_enabled());
        d.set_nom(QStringLiteral("L'entraîneur"));
        d.set_code(QStringLiteral("FRA2210290017"), QStringLiteral("Brest"));
        EXPECT_TRUE(d.confirm());
    };
    app->hooks.check_club(*app);  // a visible club exists: nothing shown
    app->hooks.read_profile(*app);
    EXPECT_EQ(ui.shown_views, QStringList{QStringLiteral("det_profil_obli")});
    EXPECT_EQ(app->state.profile_name, QStringLiteral("L'entraîneur"));

    DetProfil second(*app, QString(DetProfil::kName), QString(keyword::kNouveau));
    second.set_code(QStringLiteral("FRA2210290017"), QStringLiteral("Brest"));
    second.set_nom(QStringLiteral("l'ENTRAÎNEUR"));
    EXPECT_FALSE(second.confirm());
    EXPECT_EQ(ui.messages.back().text, QStringLiteral("Un profil de même nom existe déjà.\nImpossible de le sauvegarder."));
    EXPECT_FALSE(second.is_closed());
    second.set_nom(QStringLiteral("Secrétaire"));
    EXPECT_TRUE(second.confirm());
    EXPECT_EQ(count(QStringLiteral("select count(*) from Profil")), 2);
    EXPECT_EQ(value(QStringLiteral("select LastUse from Profil where Libelle = 'Secrétaire'")), QStringLiteral("Faux"));
    EXPECT_EQ(app->state.profile_name, QStringLiteral("L'entraîneur"));
}

TEST_F(ProfileTest, ChangingClubDropsTheEntriesOfTheFiveTables)
{
    add_club(QStringLiteral("FRA2210290017"), QStringLiteral("Brest"));
    add_club(QStringLiteral("FRA2210350003"), QStringLiteral("Rennes"));
    const QString coach = add_profile(QStringLiteral("Coach"), QStringLiteral("FRA2210290017"), true);
    const QString other = add_profile(QStringLiteral("Autre"), QStringLiteral("FRA2210290017"), false);
    add_profile_entries(coach);
    add_profile_entries(other);
    read_profile(*app, false);

    FrmListeProfil* list = open_list(keyword::kModif);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(app->menus.counter(QStringLiteral("mnuBaseProfilChange")), 1);
    const auto row = find_row(list->list(), QStringLiteral("Coach"));
    ASSERT_TRUE(row.has_value());
    EXPECT_EQ(list->list().item(*row, 1)->text(), QStringLiteral("X"));

    // A name taken by another row of the list is refused.
    select_row_at(list->selection(), *row);
    list->ok();
    auto* detail = ui.window_as<DetProfil>(QStringLiteral("det_profil"));
    ASSERT_NE(detail, nullptr);
    EXPECT_EQ(detail->title(), QStringLiteral("Modification d'un profil"));
    EXPECT_EQ(detail->club_name(), QStringLiteral("Brest"));
    detail->set_nom(QStringLiteral("autre"));
    EXPECT_FALSE(detail->confirm());
    // A new name alone keeps the entries.
    detail->set_nom(QStringLiteral("Coach principal"));
    EXPECT_TRUE(detail->confirm());
    EXPECT_EQ(profile_entries(coach), 5);
    EXPECT_EQ(app->state.profile_name, QStringLiteral("Coach principal"));

    // The list has reloaded; now the club changes, through the club choice.
    const auto renamed = find_row(list->list(), QStringLiteral("Coach principal"));
    ASSERT_TRUE(renamed.has_value());
    select_row_at(list->selection(), *renamed);
    list->ok();
    detail = ui.window_as<DetProfil>(QStringLiteral("det_profil"));
    ASSERT_NE(detail, nullptr);
    ui.drivers[QStringLiteral("Frm_liste_club")] = [](View& v) {
        auto& clubs = dynamic_cast<FrmListeClub&>(v);
        EXPECT_EQ(clubs.keyword(), QStringLiteral("liste club pour profil"));
        EXPECT_EQ(clubs.title(), QStringLiteral("Choix d'un club à lier au profil"));
        select_row_at(clubs.selection(), *find_row(clubs.list(), QStringLiteral("FRA2210350003")));
        clubs.ok();
    };
    detail->choose_club();
    EXPECT_EQ(detail->code(), QStringLiteral("FRA2210350003"));
    EXPECT_TRUE(detail->confirm());
    EXPECT_EQ(profile_entries(coach), 0);
    EXPECT_EQ(profile_entries(other), 5);
    EXPECT_EQ(app->state.club_name, QStringLiteral("Rennes"));

    ui.drop_windows();
    EXPECT_EQ(app->menus.counter(QStringLiteral("mnuBaseProfilChange")), 0);
    EXPECT_EQ(app->state.busy_count, 0);
}

TEST_F(ProfileTest, ChooseAndDeleteProfiles)
{
    add_club(QStringLiteral("FRA2210290017"), QStringLiteral("Brest"));
    add_profile(QStringLiteral("Un"), QStringLiteral("FRA2210290017"), true);
    add_profile(QStringLiteral("Deux"), QStringLiteral("FRA2210290017"), false);
    read_profile(*app, false);

    FrmListeProfil* list = open_list(keyword::kChoisir);
    ASSERT_NE(list, nullptr);
    select_row_at(list->selection(), *find_row(list->list(), QStringLiteral("Deux")));
    list->ok();
    EXPECT_TRUE(list->is_closed());
    EXPECT_EQ(app->state.profile_name, QStringLiteral("Deux"));
    EXPECT_EQ(count(QStringLiteral("select count(*) from Profil where LastUse = true")), 1);
    ui.drop_windows();

    // Deleting every profile leads to the first-profile view.
    list = open_list(keyword::kSuppr);
    ASSERT_NE(list, nullptr);
    list->mark_selected();
    list->mark_selected();
    EXPECT_EQ(list->marked().size(), 2);
    EXPECT_EQ(list->list().rowCount(), 0);
    list->confirm_deletion();
    EXPECT_EQ(count(QStringLiteral("select count(*) from Profil")), 0);
    EXPECT_EQ(ui.shown_views.back(), QStringLiteral("det_profil_obli"));
    ui.drop_windows();
}

}  // namespace

TEST_F(ProfileTest, AwkwardNamesAreSavedAsTypedNewAndChanged)
{
    add_club(QStringLiteral("FRA2210290017"), QStringLiteral("Brest"));
    const QString name = awkward_text();
    DetProfil created(*app, QString(DetProfil::kName), QString(keyword::kNouveau));
    created.set_code(QStringLiteral("FRA2210290017"), QStringLiteral("Brest"));
    created.set_nom(name);
    ASSERT_TRUE(created.confirm());
    EXPECT_EQ(value(QStringLiteral("select Libelle from Profil")), name);
    EXPECT_EQ(value(QStringLiteral("select Code_club from Profil")), QStringLiteral("FRA2210290017"));
    // The same name is found again as a duplicate, whatever it holds.
    DetProfil twin(*app, QString(DetProfil::kName), QString(keyword::kNouveau));
    twin.set_code(QStringLiteral("FRA2210290017"), QStringLiteral("Brest"));
    twin.set_nom(name);
    EXPECT_FALSE(twin.confirm());
    EXPECT_EQ(count(QStringLiteral("select count(*) from Profil")), 1);

    FrmListeProfil* list = open_list(keyword::kModif);
    ASSERT_NE(list, nullptr);
    const auto row = find_row(list->list(), name);
    ASSERT_TRUE(row.has_value());
    select_row_at(list->selection(), *row);
    list->ok();
    auto* detail = ui.window_as<DetProfil>(QStringLiteral("det_profil"));
    ASSERT_NE(detail, nullptr);
    const QString changed = awkward_text("2 ");
    detail->set_nom(changed);
    ASSERT_TRUE(detail->confirm());
    EXPECT_EQ(value(QStringLiteral("select Libelle from Profil")), changed);
    EXPECT_EQ(app->state.profile_name, changed);
}
