// One instance per window: the "already open" check, busy_count, the menu locks
// that follow the open windows, and the caller told when its detail closes.

#include "src/frame/base_commands.h"
#include "src/frame/window_registry.h"
#include "support/app_fixture.h"

#include <stdexcept>

using namespace plouvarine;
using plouvarine::testing::AppFixture;

namespace {

// A view that opens detail windows and records what it is told.
struct CallerView : WindowInstance {
    QStringList unloaded;
    void ForceUnloadWindowsEngag(const QString& form_name) override { unloaded << form_name; }
};

class WindowRegistryTest : public AppFixture {
protected:
    void SetUp() override
    {
        AppFixture::SetUp();
        windows = std::make_unique<WindowRegistry>(*app);
        windows->on_bring_to_front = [this](const QString& name) { fronted << name; };
        app->enable_menus(true);
    }
    void TearDown() override
    {
        windows.reset();
        AppFixture::TearDown();
    }
    bool enabled(const char* command) const { return app->menus.is_enabled(QLatin1String(command)); }

    std::unique_ptr<WindowRegistry> windows;
    QStringList fronted;
};

}  // namespace

TEST_F(WindowRegistryTest, AnOpenWindowIsToldAndBroughtToTheFront)
{
    const QString list = QStringLiteral("Frm_liste_compet");
    EXPECT_FALSE(windows->check_window_open(list));
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_TRUE(fronted.isEmpty());

    ASSERT_TRUE(windows->opened(list, WindowRegistry::kMainWindow));
    EXPECT_TRUE(windows->check_window_open(list));
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("La fenêtre est déjà ouverte.\nTerminer la précédente opération.")});
    EXPECT_EQ(ui.messages[0].title, QStringLiteral("Information"));
    EXPECT_EQ(ui.messages[0].icon, MsgIcon::Information);
    EXPECT_EQ(fronted, QStringList{list});

    // Silent: no word, but the window still comes forward.
    EXPECT_TRUE(windows->check_window_open(list, true));
    EXPECT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(fronted, (QStringList{list, list}));

    // Names are compared exactly: another window is not open.
    EXPECT_FALSE(windows->check_window_open(QStringLiteral("frm_liste_compet")));
}

TEST_F(WindowRegistryTest, BusyCountFollowsTheOpenWindows)
{
    EXPECT_FALSE(app->is_busy());
    ASSERT_TRUE(windows->opened(QStringLiteral("frm_liste_licence")));
    ASSERT_TRUE(windows->opened(QStringLiteral("det_licence"), QStringLiteral("frm_liste_licence")));
    EXPECT_EQ(app->state.busy_count, 2);
    // A second instance of an open window is refused and counts for nothing.
    EXPECT_FALSE(windows->opened(QStringLiteral("det_licence")));
    EXPECT_EQ(app->state.busy_count, 2);
    EXPECT_EQ(windows->open_windows(), (QStringList{QStringLiteral("frm_liste_licence"), QStringLiteral("det_licence")}));

    EXPECT_TRUE(windows->closed(QStringLiteral("det_licence")));
    EXPECT_FALSE(windows->closed(QStringLiteral("det_licence")));
    EXPECT_EQ(app->state.busy_count, 1);
    EXPECT_TRUE(app->is_busy());
    EXPECT_TRUE(windows->closed(QStringLiteral("frm_liste_licence")));
    EXPECT_EQ(app->state.busy_count, 0);
    EXPECT_FALSE(app->is_busy());

    // A window whose locks are wrong does not open, nor lock its first group.
    EXPECT_THROW(windows->opened(QStringLiteral("frm_view_perf"), {},
                                 {whole_group(LockGroup::Licence), {LockGroup::Performance, {1, 1}}}),
                 std::invalid_argument);
    EXPECT_FALSE(windows->is_open(QStringLiteral("frm_view_perf")));
    EXPECT_EQ(app->state.busy_count, 0);
    EXPECT_TRUE(enabled("mnuLicListe"));
}

TEST_F(WindowRegistryTest, TheWorkCannotEndWhileAWindowIsOpen)
{
    ui.files.push_back(make_base());
    open_base_command(*app);
    ASSERT_TRUE(app->db.is_open());
    ui.clear();

    WindowRegistration engag(*windows, QStringLiteral("frm_engag"), WindowRegistry::kMainWindow,
                             locks_on({QStringLiteral("mnuEngagIndiv")}));
    ASSERT_TRUE(engag.registered());
    // Each way out refuses without a question, and the status bar says why.
    const QString why = QStringLiteral("Fermez d'abord les fenêtres ouvertes.");
    close_command(*app);
    EXPECT_EQ(ui.status[2], why);
    ui.status[2].clear();
    EXPECT_EQ(quit_command(*app), QuitOutcome::Refused);
    EXPECT_EQ(ui.status[2], why);
    ui.status[2].clear();
    EXPECT_FALSE(query_close(*app));
    EXPECT_EQ(ui.status[2], why);
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_TRUE(app->db.is_open());

    // Once the window is gone, Fermer asks its question again.
    engag.release();
    EXPECT_TRUE(enabled("mnuEngagIndiv"));
    ui.answers.push_back(Button::No);
    close_command(*app);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].title, QStringLiteral("Confirmation"));
}

TEST_F(WindowRegistryTest, LocksAreHeldWhileOpenAndGivenBackOnce)
{
    // A club list in "Modif" locks its group; a profile detail locks one club
    // command too, and a row of its own group.
    ASSERT_TRUE(windows->opened(QStringLiteral("Frm_liste_club"), WindowRegistry::kMainWindow,
                                {whole_group(LockGroup::Club)}));
    ASSERT_TRUE(windows->opened(QStringLiteral("det_profil"), WindowRegistry::kMainWindow,
                                locks_on({QStringLiteral("mnuBaseClubListe"), QStringLiteral("mnuBaseProfilNew")})));
    EXPECT_FALSE(enabled("mnuBaseClubModif"));
    EXPECT_FALSE(enabled("mnuBaseClubListe"));
    EXPECT_FALSE(enabled("mnuBaseProfilNew"));
    EXPECT_TRUE(enabled("mnuBaseProfilList"));
    EXPECT_EQ(windows->locks_of(QStringLiteral("det_profil")).size(), 2u);

    // The first to go releases its own rows only; closing it again is no
    // second reversal.
    windows->closed(QStringLiteral("Frm_liste_club"));
    windows->closed(QStringLiteral("Frm_liste_club"));
    EXPECT_TRUE(enabled("mnuBaseClubModif"));
    EXPECT_FALSE(enabled("mnuBaseClubListe"));
    EXPECT_EQ(app->menus.counter(QStringLiteral("mnuBaseClubListe")), 1);

    windows->closed(QStringLiteral("det_profil"));
    EXPECT_TRUE(enabled("mnuBaseClubListe"));
    EXPECT_TRUE(enabled("mnuBaseProfilNew"));
    for (int g = 0; g < kLockGroupCount; ++g)
        for (const QString& name : lock_group_commands(LockGroup(g)))
            EXPECT_EQ(app->menus.counter(name), 0) << name.toStdString();
    EXPECT_TRUE(windows->locks_of(QStringLiteral("det_profil")).empty());
}

TEST_F(WindowRegistryTest, TheCallerIsToldWhenItsDetailCloses)
{
    CallerView list;
    CallerView main_window;
    windows->set_main_window(&main_window);

    ASSERT_TRUE(windows->opened(QStringLiteral("Frm_liste_piscine"), WindowRegistry::kMainWindow,
                                {whole_group(LockGroup::Pool)}, &list));
    ASSERT_TRUE(windows->opened(QStringLiteral("det_Piscine"), QStringLiteral("Frm_liste_piscine")));
    EXPECT_EQ(windows->caller_of(QStringLiteral("det_Piscine")), QStringLiteral("Frm_liste_piscine"));
    EXPECT_EQ(windows->instance(QStringLiteral("Frm_liste_piscine")), &list);
    EXPECT_EQ(windows->instance(QStringLiteral("det_Piscine")), nullptr);

    // The caller hears of it once the detail's place and locks are given back,
    // so it may open the detail again at once.
    bool reopened = false;
    struct Reopener : CallerView {
        WindowRegistry* registry = nullptr;
        bool* reopened = nullptr;
        void ForceUnloadWindowsEngag(const QString& form_name) override
        {
            CallerView::ForceUnloadWindowsEngag(form_name);
            *reopened = !registry->is_open(form_name) && registry->opened(form_name, QStringLiteral("frm_prog"));
        }
    } prog;
    prog.registry = windows.get();
    prog.reopened = &reopened;
    ASSERT_TRUE(windows->opened(QStringLiteral("frm_prog"), {}, {}, &prog));
    ASSERT_TRUE(windows->opened(QStringLiteral("Frm_liste_compet"), QStringLiteral("frm_prog")));
    windows->closed(QStringLiteral("Frm_liste_compet"));
    EXPECT_EQ(prog.unloaded, QStringList{QStringLiteral("Frm_liste_compet")});
    EXPECT_TRUE(reopened);

    windows->closed(QStringLiteral("det_Piscine"));
    EXPECT_EQ(list.unloaded, QStringList{QStringLiteral("det_Piscine")});
    EXPECT_TRUE(main_window.unloaded.isEmpty());

    // A list opened from the menu tells the main window.
    windows->closed(QStringLiteral("Frm_liste_piscine"));
    EXPECT_EQ(main_window.unloaded, QStringList{QStringLiteral("Frm_liste_piscine")});
    EXPECT_TRUE(enabled("mnuModelePiscineNew"));

    // A detail whose caller closed first tells nobody, not even a new list of
    // the caller's name, which did not open it.
    CallerView first;
    CallerView second;
    ASSERT_TRUE(windows->opened(QStringLiteral("Frm_liste_club"), {}, {}, &first));
    ASSERT_TRUE(windows->opened(QStringLiteral("dem_info"), QStringLiteral("Frm_liste_club")));
    windows->closed(QStringLiteral("Frm_liste_club"));
    EXPECT_TRUE(windows->caller_of(QStringLiteral("dem_info")).isEmpty());

    ASSERT_TRUE(windows->opened(QStringLiteral("Frm_liste_club"), {}, {}, &second));
    windows->closed(QStringLiteral("dem_info"));
    EXPECT_TRUE(first.unloaded.isEmpty());
    EXPECT_TRUE(second.unloaded.isEmpty());
    EXPECT_EQ(main_window.unloaded, QStringList{QStringLiteral("Frm_liste_piscine")});
}

TEST_F(WindowRegistryTest, ARegistrationGivesBackWhatItTookHoweverItEnds)
{
    {
        WindowRegistration calc(*windows, QStringLiteral("frm_PtsInter"), {}, {whole_group(LockGroup::TeamPoints)});
        ASSERT_TRUE(calc.registered());
        EXPECT_FALSE(enabled("mnuOutilsCalculPointEquipe"));
        // A second one for the same window holds nothing and frees nothing.
        WindowRegistration twice(*windows, QStringLiteral("frm_PtsInter"), {}, {whole_group(LockGroup::TeamPoints)});
        EXPECT_FALSE(twice.registered());
        EXPECT_EQ(app->menus.counter(QStringLiteral("mnuOutilsCalculPointEquipe")), 1);

        WindowRegistration moved = std::move(calc);
        EXPECT_FALSE(calc.registered());
        EXPECT_TRUE(moved.registered());
        EXPECT_EQ(app->state.busy_count, 1);
    }
    EXPECT_EQ(app->state.busy_count, 0);
    EXPECT_TRUE(enabled("mnuOutilsCalculPointEquipe"));
    EXPECT_FALSE(windows->is_open(QStringLiteral("frm_PtsInter")));
}
