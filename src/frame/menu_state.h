#pragma once
// The menu of the main window as data: the tree of entries with their captions,
// the base state that switches whole menus, and the lock counters by which open
// windows keep conflicting commands disabled. The main window builds its menu
// bar from entries() and, on each change, asks is_enabled() for every entry.
//
// How the two rules combine. enable_menus sets a flag on the entries it names
// and never touches a counter; a window's locks move counters and never touch a
// flag. An entry is enabled exactly when its own flag is on, its counter is
// below 1, and the menu that holds it is enabled. So a command that a window
// locked stays disabled when a base is opened, and a command whose menu the base
// state switched off stays disabled whatever its counter says.
//
// One exception: the performance monitor's menu `mnuPerfOrdi` is outside the
// base state: it is not tied to a base, so "O&utils" opens when no
// base is open, with its calculators disabled and only "&Perf Ordinateur" on.

#include <QHash>
#include <QString>
#include <QStringList>
#include <QtGlobal>
#include <functional>
#include <optional>
#include <vector>

namespace plouvarine {

enum class MenuKind {
    Menu,       // holds entries: a menu of the bar or a sub-menu
    Command,
    Separator,  // "mnuFileBar0"
};

struct MenuEntry {
    QString name;          // "mnuBaseNew"
    QString caption;       // with the "&" of the access key; "-" for a separator
    QString parent;        // the menu that holds it; empty for the menus of the bar
    int order = 0;         // position among the entries of its parent, from 0
    MenuKind kind = MenuKind::Command;
    bool visible = true;   // false for "mnuTarifs", a context menu never shown in the bar
    bool checkable = false;
};

// The ten groups of lock counters.
enum class LockGroup {
    Club,
    Profile,
    Licence,
    Competition,
    Entry,
    EntryModel,
    Pool,
    ProgrammeModel,
    Performance,
    TeamPoints,
};
inline constexpr int kLockGroupCount = 10;

// The commands of a group, in their order; a delta list follows this order.
const QStringList& lock_group_commands(LockGroup group);
// The group that holds the counter of a command, if it has one.
std::optional<LockGroup> lock_group_of(const QString& command);

// The deltas a window holds on one group, one per command of the group:
// +1 locks, 0 leaves as it is.
struct GroupLocks {
    LockGroup group;
    std::vector<int> deltas;
    bool operator==(const GroupLocks&) const = default;
};
// Everything a window locks, group by group.
using MenuLocks = std::vector<GroupLocks>;

// +1 on every command of the group, as a list in "Modif" or "Suppr" does.
GroupLocks whole_group(LockGroup group);
// +1 on each named command, gathered by group in the groups' order. A name
// that has no counter is a mistake of the caller: std::invalid_argument.
MenuLocks locks_on(const QStringList& commands);
// The same deltas with the sign reversed, as a window gives them back.
MenuLocks reversed(MenuLocks locks);

class MenuState {
public:
    MenuState();

    // The tree, depth first, each menu followed by its entries in order.
    const std::vector<MenuEntry>& entries() const { return entries_; }
    const MenuEntry* entry(const QString& name) const;
    bool contains(const QString& name) const { return index_.contains(name); }
    // The entries of a menu in order; the empty name gives the menus of the bar
    // (with the hidden "mnuTarifs" last).
    std::vector<const MenuEntry*> children(const QString& menu) const;

    // Enabling by base state. "mnuBaseOpen" and "mnuBaseNew" take the opposite
    // of `base_open`; the base menus and commands take `base_open`.
    void enable_menus(bool base_open);
    bool base_open() const { return base_open_; }

    // Moves each counter of `group` by its delta (a zero delta leaves it).
    // `deltas` must have one value per command of the group, else
    // std::invalid_argument and nothing changes. Counters are 16-bit and stop
    // at the ends of their range.
    void lock_menus(LockGroup group, const std::vector<int>& deltas);
    // All the deltas of a window as it opens, and their reverse as it closes.
    void apply_locks(const MenuLocks& locks);
    void release_locks(const MenuLocks& locks);
    // The lock counter of a command; 0 for an entry that has none. Below 1 the
    // command is not locked, so a negative count leaves it enabled.
    qint16 counter(const QString& name) const;
    bool has_counter(const QString& name) const { return lock_group_of(name).has_value(); }

    // True when the entry can be used: for a command, a click reaches it; for
    // a menu, it opens. False for an unknown name.
    bool is_enabled(const QString& name) const;
    // The entry's own state, without the menus above it: its base flag and its counter.
    bool own_enabled(const QString& name) const;

    // The tick of a checkable entry ("mnuPerfOrdiTjsVisible").
    bool is_checked(const QString& name) const;
    void set_checked(const QString& name, bool checked);

    // The lines of the fee menu "mnuTarifs", by index: "Aucun" first, then the
    // fees. A click gives the index to the licence list.
    const QStringList& tarifs() const { return tarifs_; }
    // ChargeMenuTarifs: the fees after "Aucun", replacing the earlier ones.
    void set_tarifs(const QStringList& fees);
    // The line that shows a tick (-1 for none), the row's noted fee.
    int checked_tarif() const { return checked_tarif_; }
    void set_checked_tarif(int index);

    // Called after any change of an enabled or checked state, so that the
    // window refreshes its actions.
    std::function<void()> on_changed;
    // Called after the fee lines change, so that the window rebuilds the menu.
    std::function<void()> on_tarifs_changed;

private:
    struct Node {
        bool base_flag = true;       // set by enable_menus
        bool outside_base = false;   // the menus above do not switch it off by base state
        qint16 counter = 0;
        bool checked = false;
        int parent = -1;
    };

    int index_of(const QString& name) const { return index_.value(name, -1); }
    bool reachable(int i) const;
    bool has_enabled_entry(int i) const;
    void changed();

    std::vector<MenuEntry> entries_;
    std::vector<Node> nodes_;
    QHash<QString, int> index_;
    bool base_open_ = false;
    QStringList tarifs_;
    int checked_tarif_ = -1;
};

}  // namespace plouvarine
