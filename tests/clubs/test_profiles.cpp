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

const QString kBrest = u"FRA2210290017"_s;

class ProfileTest : public ClubBase {
protected:
    FrmListeProfil* open_list(const QLatin1String& keyword)
    {
        OuvreListeProfils(*app, QString(keyword), u"Modifier profils"_s, u"&Modifier"_s);
        return ui.window_as<FrmListeProfil>(u"Frm_liste_profil"_s);
    }
    // The detail of the profile named `name`, opened from the list as a double click does.
    DetProfil* open_detail(FrmListeProfil& list, const QString& name)
    {
        const auto row = find_row(list.list(), name);
        EXPECT_TRUE(row.has_value()) << name.toStdString();
        if (!row)
            return nullptr;
        select_row_at(list.selection(), *row);
        list.ok();
        return ui.window_as<DetProfil>(u"det_profil"_s);
    }
    // A new profile of the club Brest named `name`; whether it was saved.
    bool create(const QString& name)
    {
        DetProfil detail(*app, QString(DetProfil::kName), QString(keyword::kNouveau));
        detail.set_code(kBrest, u"Brest"_s);
        detail.set_nom(name);
        return detail.confirm();
    }
};

TEST_F(ProfileTest, ReadProfileFillsTheStateAndLocksOwnClubForASelection)
{
    add_club(kBrest, u"Brest"_s);
    add_club(u"FRA2210000000"_s, u"Bretagne"_s);
    exec(u"Update Club Set Selection = true where Code_federal = 'FRA2210000000'"_s);
    add_profile(u"Coach d'été"_s, u"FRA2210000000"_s, true);
    exec(u"Update Profil Set lgPosXSuivi = 120, lgIntervalSuivi = 5000, bAlwaysVisibleSuivi = true"_s);

    read_profile(*app, true);
    const AppState& s = app->state;
    EXPECT_EQ(QStringList({s.profile_name, s.club_code}), QStringList({u"Coach d'été"_s, u"FRA2210000000"_s}));
    EXPECT_TRUE(s.club_selection);
    EXPECT_EQ(std::tuple(s.monitor_pos_x, s.monitor_interval, s.monitor_always_visible), std::tuple(120, 5000, true));
    EXPECT_EQ(ui.status[1], u"Profil : Coach d'été (Bretagne)"_s);
    EXPECT_EQ(app->menus.counter(u"mnuBaseClubConfig"_s), 1);

    // Back to a club: "Votre Club" is given back once, however often it is read.
    exec(u"Update Profil Set Code_club = '%1'"_s.arg(kBrest));
    read_profile(*app, false);
    read_profile(*app, false);
    EXPECT_FALSE(s.club_selection);
    EXPECT_EQ(app->menus.counter(u"mnuBaseClubConfig"_s), 0);

    // A profile whose club is gone is no profile: the choice is forced, and
    // cancelling it leaves the state empty.
    exec(u"Update Profil Set Code_club = 'FRA0000009999'"_s);
    read_profile(*app, false);
    EXPECT_EQ(ui.shown_views.back(), u"Frm_liste_profil_obli"_s);
    EXPECT_TRUE(s.profile_num.isEmpty());
    EXPECT_EQ(ui.status[1], u"Profil :  ()"_s);
}

TEST_F(ProfileTest, NewProfilesAreUniqueAndOnlyTheFirstBecomesCurrent)
{
    add_club(kBrest, u"Brest"_s);
    install_club_hooks(*app);
    ui.drivers[u"det_profil_obli"_s] = [](View& v) {
        auto& d = dynamic_cast<DetProfil&>(v);
        EXPECT_EQ(d.title(), u"Création profil"_s);
        EXPECT_FALSE(d.ok_enabled());
        d.set_nom(u"L'entraîneur"_s);
        d.set_code(kBrest, u"Brest"_s);
        EXPECT_TRUE(d.confirm());
    };
    app->hooks.check_club(*app);  // a visible club exists: nothing shown
    app->hooks.read_profile(*app);
    EXPECT_EQ(ui.shown_views, QStringList{u"det_profil_obli"_s});
    EXPECT_EQ(app->state.profile_name, u"L'entraîneur"_s);

    EXPECT_FALSE(create(u"l'ENTRAÎNEUR"_s));
    EXPECT_EQ(ui.messages.back().text, u"Un profil de même nom existe déjà.\nImpossible de le sauvegarder."_s);
    // A name that breaks a hand-made statement is saved as typed, and found
    // again as a duplicate.
    const QString name = awkward_text();
    EXPECT_TRUE(create(name));
    EXPECT_FALSE(create(name));
    EXPECT_EQ(dump(u"select Libelle, Code_club, LastUse from Profil order by Num"_s),
              (QStringList{u"L'entraîneur:FRA2210290017:Vrai"_s, name + u":FRA2210290017:Faux"_s}));
    EXPECT_EQ(app->state.profile_name, u"L'entraîneur"_s);
}

TEST_F(ProfileTest, ChangingClubDropsTheEntriesOfTheFiveTables)
{
    add_club(kBrest, u"Brest"_s);
    add_club(u"FRA2210350003"_s, u"Rennes"_s);
    const QString coach = add_profile(u"Coach"_s, kBrest, true);
    const QString other = add_profile(u"Autre"_s, kBrest, false);
    add_profile_entries(coach);
    add_profile_entries(other);
    read_profile(*app, false);

    FrmListeProfil* list = open_list(keyword::kModif);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(app->menus.counter(u"mnuBaseProfilChange"_s), 1);
    EXPECT_EQ(list->list().item(*find_row(list->list(), u"Coach"_s), 1)->text(), u"X"_s);

    // A name taken by another row of the list is refused.
    DetProfil* detail = open_detail(*list, u"Coach"_s);
    ASSERT_NE(detail, nullptr);
    EXPECT_EQ(detail->title(), u"Modification d'un profil"_s);
    EXPECT_EQ(detail->club_name(), u"Brest"_s);
    detail->set_nom(u"autre"_s);
    EXPECT_FALSE(detail->confirm());
    // A new name alone keeps the entries; it is saved as typed.
    const QString name = awkward_text();
    detail->set_nom(name);
    EXPECT_TRUE(detail->confirm());
    EXPECT_EQ(profile_entries(coach), 5);
    EXPECT_EQ(value(u"select Libelle from Profil where Num = "_s + coach), name);
    EXPECT_EQ(app->state.profile_name, name);

    // The list has reloaded; now the club changes, through the club choice.
    detail = open_detail(*list, name);
    ASSERT_NE(detail, nullptr);
    ui.drivers[u"Frm_liste_club"_s] = [](View& v) {
        auto& clubs = dynamic_cast<FrmListeClub&>(v);
        EXPECT_EQ(clubs.keyword(), u"liste club pour profil"_s);
        EXPECT_EQ(clubs.title(), u"Choix d'un club à lier au profil"_s);
        select_row_at(clubs.selection(), *find_row(clubs.list(), u"FRA2210350003"_s));
        clubs.ok();
    };
    detail->choose_club();
    EXPECT_EQ(detail->code(), u"FRA2210350003"_s);
    EXPECT_TRUE(detail->confirm());
    EXPECT_EQ(profile_entries(coach), 0);
    EXPECT_EQ(profile_entries(other), 5);
    EXPECT_EQ(app->state.club_name, u"Rennes"_s);

    ui.drop_windows();
    EXPECT_EQ(app->menus.counter(u"mnuBaseProfilChange"_s), 0);
    EXPECT_EQ(app->state.busy_count, 0);
}

TEST_F(ProfileTest, ChooseAndDeleteProfiles)
{
    add_club(kBrest, u"Brest"_s);
    add_profile(u"Un"_s, kBrest, true);
    add_profile(u"Deux"_s, kBrest, false);
    read_profile(*app, false);

    FrmListeProfil* list = open_list(keyword::kChoisir);
    ASSERT_NE(list, nullptr);
    select_row_at(list->selection(), *find_row(list->list(), u"Deux"_s));
    list->ok();
    EXPECT_TRUE(list->is_closed());
    EXPECT_EQ(app->state.profile_name, u"Deux"_s);
    EXPECT_EQ(dump(u"select Libelle from Profil where LastUse = true"_s), QStringList{u"Deux"_s});
    ui.drop_windows();

    // Deleting every profile leads to the first-profile view.
    list = open_list(keyword::kSuppr);
    ASSERT_NE(list, nullptr);
    list->mark_selected();
    list->mark_selected();
    EXPECT_EQ(list->marked().size(), 2);
    EXPECT_EQ(list->list().rowCount(), 0);
    list->confirm_deletion();
    EXPECT_EQ(count(u"select count(*) from Profil"_s), 0);
    EXPECT_EQ(ui.shown_views.back(), u"det_profil_obli"_s);
    ui.drop_windows();
}

}  // namespace
