// The main window's menu as data: tree, enabling, lock counters, fee menu and command table.

#include "src/frame/app_context.h"
#include "src/frame/commands.h"
#include "src/frame/menu_state.h"
#include "support/scripted_services.h"

#include <QSet>
#include <gtest/gtest.h>
#include <stdexcept>

using namespace plouvarine;

namespace {

QSet<QString> enabled_commands(const MenuState& menus)
{
    QSet<QString> names;
    for (const MenuEntry& e : menus.entries())
        if (e.kind == MenuKind::Command && menus.is_enabled(e.name))
            names << e.name;
    return names;
}

QSet<QString> all_commands(const MenuState& menus)
{
    QSet<QString> names;
    for (const MenuEntry& e : menus.entries())
        if (e.kind == MenuKind::Command)
            names << e.name;
    return names;
}

QSet<QString> commands_under(const MenuState& menus, const QString& menu)
{
    QSet<QString> names;
    for (const MenuEntry* e : menus.children(menu)) {
        if (e->kind == MenuKind::Command)
            names << e->name;
        else if (e->kind == MenuKind::Menu)
            names += commands_under(menus, e->name);
    }
    return names;
}

// A command's counter and whether it is enabled.
std::pair<int, bool> lock_state(const MenuState& menus, const QString& name)
{
    return {menus.counter(name), menus.is_enabled(name)};
}

std::vector<int> deltas(LockGroup group, int value)
{
    return std::vector<int>(size_t(lock_group_commands(group).size()), value);
}

}  // namespace

TEST(MenuTree, EveryEntryHasOneParentMenuAndAPlace)
{
    MenuState menus;
    QSet<QString> seen;
    QHash<QString, QList<int>> orders;
    for (const MenuEntry& e : menus.entries()) {
        EXPECT_FALSE(seen.contains(e.name)) << e.name.toStdString();
        seen << e.name;
        EXPECT_TRUE(e.name.startsWith(QLatin1String("mnu"))) << e.name.toStdString();
        EXPECT_FALSE(e.caption.isEmpty()) << e.name.toStdString();
        EXPECT_LE(e.caption.count(QLatin1Char('&')), 1) << e.name.toStdString();
        if (!e.parent.isEmpty()) {
            // Depth first: a menu comes before its entries.
            ASSERT_TRUE(seen.contains(e.parent)) << e.name.toStdString();
            EXPECT_EQ(menus.entry(e.parent)->kind, MenuKind::Menu) << e.name.toStdString();
        }
        orders[e.parent] << e.order;
    }
    for (auto it = orders.cbegin(); it != orders.cend(); ++it)
        for (int k = 0; k < it.value().size(); ++k)
            EXPECT_EQ(it.value()[k], k) << "entries of " << it.key().toStdString();

    EXPECT_TRUE(menus.children(QStringLiteral("mnuUnknown")).empty());
    EXPECT_EQ(menus.entry(QStringLiteral("mnuUnknown")), nullptr);

    // Everything that names an entry names one of the tree; a command is in
    // one lock group at most.
    QSet<QString> locked;
    for (int g = 0; g < kLockGroupCount; ++g) {
        for (const QString& name : lock_group_commands(LockGroup(g))) {
            EXPECT_TRUE(menus.contains(name)) << name.toStdString();
            EXPECT_FALSE(locked.contains(name)) << name.toStdString();
            locked << name;
            EXPECT_EQ(lock_group_of(name), LockGroup(g));
        }
    }
    EXPECT_FALSE(lock_group_of(QStringLiteral("mnuBaseOpen")).has_value());
    for (const CommandTarget& target : command_table()) {
        ASSERT_TRUE(menus.contains(target.command)) << target.command.toStdString();
        EXPECT_EQ(menus.entry(target.command)->kind, MenuKind::Command) << target.command.toStdString();
    }
}

TEST(MenuTree, TheMenusOfTheBarHaveAccessKeysOfTheirOwn)
{
    MenuState menus;
    // Alt and a letter opens one menu only, and never takes the "O" of the
    // windows' OK buttons.
    QSet<QChar> keys{QLatin1Char('O')};
    for (const MenuEntry* top : menus.children(QString())) {
        if (!top->visible)
            continue;
        const qsizetype amp = top->caption.indexOf(QLatin1Char('&'));
        ASSERT_GE(amp, 0) << top->name.toStdString();
        const QChar key = top->caption.at(amp + 1).toUpper();
        EXPECT_FALSE(keys.contains(key)) << top->caption.toStdString();
        keys << key;
    }
}

TEST(MenuEnabling, WithNoBaseOnlyBaseFileHelpAndMonitorCommandsLeadAnywhereWithABaseAllButNewAndOpen)
{
    MenuState menus;
    // The process starts as enable_menus(false) leaves it.
    const QSet<QString> at_start = enabled_commands(menus);
    menus.enable_menus(false);
    EXPECT_EQ(enabled_commands(menus), at_start);

    QSet<QString> expected = {QStringLiteral("mnuBaseNew"), QStringLiteral("mnuBaseOpen"),
                              QStringLiteral("mnuBaseSuppr"), QStringLiteral("mnuExit")};
    expected += commands_under(menus, QStringLiteral("mnuHelp"));
    expected += commands_under(menus, QStringLiteral("mnuPerfOrdi"));
    EXPECT_EQ(expected.size(), 4 + 4 + 4);
    EXPECT_EQ(enabled_commands(menus), expected);

    // The menus that open: those that lead to one of these commands.
    for (const char* open : {"mnuBase", "mnuHelp", "mnuMaj", "mnuOutils", "mnuPerfOrdi"})
        EXPECT_TRUE(menus.is_enabled(QLatin1String(open))) << open;
    for (const char* closed : {"mnuBaseClub", "mnuLicence", "mnuCompet", "mnuModele", "mnuPerf", "mnuBaseGestion",
                               "mnuBaseProfil", "mnuCompetDonnees", "mnuEngag", "mnuOutilsCalculTps"})
        EXPECT_FALSE(menus.is_enabled(QLatin1String(closed))) << closed;
    // "O&utils" opens for the monitor alone: its own switch is off.
    EXPECT_FALSE(menus.own_enabled(QStringLiteral("mnuOutils")));
    EXPECT_FALSE(menus.base_open());

    // With a base everything but New and Open is enabled.
    menus.enable_menus(true);
    EXPECT_TRUE(menus.base_open());
    QSet<QString> with_base = all_commands(menus);
    with_base.remove(QStringLiteral("mnuBaseNew"));
    with_base.remove(QStringLiteral("mnuBaseOpen"));
    EXPECT_EQ(enabled_commands(menus), with_base);
    for (const MenuEntry& e : menus.entries())
        if (e.kind == MenuKind::Menu) {
            EXPECT_TRUE(menus.is_enabled(e.name)) << e.name.toStdString();
        }

    // Closing the base gives back exactly the state of the start.
    menus.enable_menus(false);
    EXPECT_EQ(enabled_commands(menus), at_start);
}

TEST(MenuEnabling, AppContextDrivesTheMenuAndStillTellsTheFrame)
{
    plouvarine::testing::ScriptedServices ui;
    AppContext app(ui, QStringLiteral("/nowhere"));
    std::vector<bool> told;
    app.on_enable_menus = [&](bool open) { told.push_back(open); };
    int refreshes = 0;
    app.menus.on_changed = [&] { ++refreshes; };

    app.enable_menus(true);
    EXPECT_TRUE(app.menus_base_open());
    EXPECT_TRUE(app.menus.is_enabled(QStringLiteral("mnuLicListe")));
    app.enable_menus(false);
    EXPECT_FALSE(app.menus_base_open());
    EXPECT_FALSE(app.menus.is_enabled(QStringLiteral("mnuLicListe")));
    EXPECT_EQ(told, (std::vector<bool>{true, false}));
    EXPECT_EQ(refreshes, 2);
}

TEST(MenuLocks, ACommandIsEnabledOnlyBelowOneAndUnderTheBaseState)
{
    MenuState menus;
    menus.enable_menus(true);
    const QString list = QStringLiteral("mnuLicListe");

    // A window locks while a base is open...
    menus.lock_menus(LockGroup::Licence, {0, 0, 1, 0, 0, 0, 0});
    EXPECT_EQ(lock_state(menus, list), std::pair(1, false));
    EXPECT_FALSE(menus.own_enabled(list));
    EXPECT_TRUE(menus.is_enabled(QStringLiteral("mnuLicModif")));
    // ...the base state moves around it and never frees it...
    menus.enable_menus(false);
    menus.enable_menus(true);
    EXPECT_EQ(lock_state(menus, list), std::pair(1, false));
    // ...only the reverse delta does.
    menus.lock_menus(LockGroup::Licence, {0, 0, -1, 0, 0, 0, 0});
    EXPECT_EQ(lock_state(menus, list), std::pair(0, true));

    // With no base the licence menu is off whatever the counters say.
    menus.enable_menus(false);
    menus.lock_menus(LockGroup::Licence, deltas(LockGroup::Licence, -1));
    EXPECT_EQ(lock_state(menus, list), std::pair(-1, false));
    EXPECT_TRUE(menus.own_enabled(list));
}

TEST(MenuLocks, ALockedSubMenuClosesItsEntries)
{
    MenuState menus;
    menus.enable_menus(true);
    // "Votre Club" has a counter of its own in the club group.
    menus.apply_locks(locks_on({QStringLiteral("mnuBaseClubConfig")}));
    for (const char* closed : {"mnuBaseClubConfig", "mnuBaseClubConfigInfo", "mnuBaseClubCotisationUnknown"})
        EXPECT_FALSE(menus.is_enabled(QLatin1String(closed))) << closed;
    EXPECT_TRUE(menus.own_enabled(QStringLiteral("mnuBaseClubConfigInfo")));
    EXPECT_TRUE(menus.is_enabled(QStringLiteral("mnuBaseClubImport")));
}

TEST(MenuLocks, AReversalWithoutItsLockGoesNegativeAndLeavesTheCommandEnabled)
{
    MenuState menus;
    menus.enable_menus(true);
    const QString team = QStringLiteral("mnuOutilsCalculPointEquipe");
    menus.lock_menus(LockGroup::TeamPoints, {-1});
    EXPECT_EQ(lock_state(menus, team), std::pair(-1, true));
    // The next window's lock is swallowed by the debt: the command stays usable.
    menus.lock_menus(LockGroup::TeamPoints, {1});
    EXPECT_EQ(lock_state(menus, team), std::pair(0, true));

    // 16-bit counters stop at their ends instead of wrapping round to unlocked.
    menus.lock_menus(LockGroup::TeamPoints, {40000});
    EXPECT_EQ(menus.counter(team), 32767);
    menus.lock_menus(LockGroup::TeamPoints, {1});
    EXPECT_EQ(lock_state(menus, team), std::pair(32767, false));
}

TEST(MenuLocks, WrongDeltaListsChangeNothing)
{
    MenuState menus;
    menus.enable_menus(true);
    int refreshes = 0;
    menus.on_changed = [&] { ++refreshes; };

    EXPECT_THROW(menus.lock_menus(LockGroup::Club, {1, 1}), std::invalid_argument);
    // A window whose second group is wrong does not keep its first.
    EXPECT_THROW(menus.apply_locks({whole_group(LockGroup::Pool), {LockGroup::Entry, {1}}}),
                 std::invalid_argument);
    EXPECT_EQ(menus.counter(QStringLiteral("mnuModelePiscineNew")), 0);
    EXPECT_THROW(locks_on({QStringLiteral("mnuBaseOpen")}), std::invalid_argument);
    // Zero deltas move nothing and need no refresh.
    menus.lock_menus(LockGroup::Performance, deltas(LockGroup::Performance, 0));
    EXPECT_EQ(refreshes, 0);
    menus.lock_menus(LockGroup::Performance, deltas(LockGroup::Performance, 1));
    EXPECT_EQ(refreshes, 1);
}

TEST(MenuLocks, LocksByNameGatherByGroupAndReverse)
{
    const MenuLocks locks = locks_on({QStringLiteral("mnuPerfView"), QStringLiteral("mnuBaseClubNew"),
                                      QStringLiteral("mnuPerfImpor")});
    ASSERT_EQ(locks.size(), 2u);
    EXPECT_EQ(locks[0].group, LockGroup::Club);
    EXPECT_EQ(locks[0].deltas, (std::vector<int>{1, 0, 0, 0, 0}));
    EXPECT_EQ(locks[1].group, LockGroup::Performance);
    EXPECT_EQ(locks[1].deltas, (std::vector<int>{1, 0, 0, 1, 0, 0, 0}));
    const MenuLocks back = reversed(locks);
    EXPECT_EQ(back[1].deltas, (std::vector<int>{-1, 0, 0, -1, 0, 0, 0}));
    EXPECT_EQ(reversed(back), locks);
}

TEST(MenuTicks, TicksAndTheFeeMenu)
{
    MenuState menus;
    int refreshes = 0, rebuilds = 0;
    menus.on_changed = [&] { ++refreshes; };
    menus.on_tarifs_changed = [&] { ++rebuilds; };

    menus.set_checked(QStringLiteral("mnuPerfOrdiTjsVisible"), true);
    EXPECT_TRUE(menus.is_checked(QStringLiteral("mnuPerfOrdiTjsVisible")));
    menus.set_checked(QStringLiteral("mnuPerfOrdiTjsVisible"), true);
    menus.set_checked(QStringLiteral("mnuLicListe"), true);  // not a ticked entry
    EXPECT_FALSE(menus.is_checked(QStringLiteral("mnuLicListe")));
    EXPECT_EQ(refreshes, 1);

    ASSERT_EQ(menus.tarifs().size(), 1);
    const QString none = menus.tarifs().front();
    EXPECT_EQ(none, QStringLiteral("Aucun"));
    menus.set_tarifs({QStringLiteral("Adulte"), QStringLiteral("Jeune")});
    EXPECT_EQ(menus.tarifs(), (QStringList{none, QStringLiteral("Adulte"), QStringLiteral("Jeune")}));
    menus.set_checked_tarif(2);
    EXPECT_EQ(menus.checked_tarif(), 2);
    // A new list replaces the old lines after "Aucun"; a tick beyond it goes.
    menus.set_tarifs({QStringLiteral("Famille")});
    EXPECT_EQ(menus.tarifs(), (QStringList{none, QStringLiteral("Famille")}));
    EXPECT_EQ(menus.checked_tarif(), -1);
    menus.set_checked_tarif(7);
    EXPECT_EQ(menus.checked_tarif(), -1);
    EXPECT_EQ(rebuilds, 3);
}

TEST(CommandTable, ListCommandsCarryWhatTheirListNeeds)
{
    MenuState menus;
    QSet<QString> seen;
    for (const CommandTarget& t : command_table()) {
        EXPECT_FALSE(seen.contains(t.command)) << t.command.toStdString();
        seen << t.command;
        EXPECT_EQ(find_command(t.command), &t);
        switch (t.kind) {
        case CommandKind::List:
            EXPECT_FALSE(t.title.isEmpty()) << t.command.toStdString();
            EXPECT_FALSE(t.keyword.isEmpty()) << t.command.toStdString();
            // Model lists, and only they, say which models they hold.
            EXPECT_EQ(t.window == QLatin1String("frm_liste_modele"), !t.model_kind.isEmpty())
                << t.command.toStdString();
            break;
        case CommandKind::NoAction:
            EXPECT_TRUE(t.window.isEmpty());
            break;
        default:
            EXPECT_FALSE(t.window.isEmpty()) << t.command.toStdString();
        }
        if (!t.ok_caption.isEmpty()) {
            EXPECT_EQ(t.ok_caption.count(QLatin1Char('&')), 1) << t.command.toStdString();
        }
    }
    EXPECT_EQ(find_command(QStringLiteral("mnuBaseOpen")), nullptr);
}
