// The change notifier: who hears a change, and that a handle which ends, moves
// or outlives the notifier never leaves a handler to be called.

#include "src/frame/change_notifier.h"

#include <QStringList>
#include <gtest/gtest.h>
#include <optional>

using namespace plouvarine;

TEST(ChangeNotifier, OnlyTheSubjectsListenersHearAndInTheirOrder)
{
    ChangeNotifier changes;
    QStringList heard;
    auto clubs = changes.subscribe(Subject::Clubs, [&](const Change& c) { heard << "clubs " + c.key; });
    auto first = changes.subscribe(Subject::Licences, [&](const Change& c) {
        heard << QStringLiteral("first %1 %2").arg(c.key).arg(c.created);
    });
    auto second = changes.subscribe(Subject::Licences, [&](const Change& c) { heard << "second " + c.key; });

    changes.changed(Subject::Licences, QStringLiteral("12"), true);
    changes.changed(Subject::Competitions, QStringLiteral("3"));
    EXPECT_EQ(heard, (QStringList{"first 12 1", "second 12"}));
    EXPECT_EQ(changes.subscribers(Subject::Licences), 2);
    EXPECT_EQ(changes.subscribers(Subject::Competitions), 0);
}

TEST(ChangeNotifier, AHandleEndsItsSubscriptionHoweverItGoes)
{
    ChangeNotifier changes;
    int calls = 0;
    std::optional<ChangeNotifier::Subscription> held =
        changes.subscribe(Subject::Pools, [&](const Change&) { ++calls; });

    // Moved: the new handle carries it, the old one ends nothing.
    ChangeNotifier::Subscription moved = std::move(*held);
    held.reset();
    changes.changed(Subject::Pools);
    EXPECT_EQ(calls, 1);

    moved.reset();
    EXPECT_FALSE(moved.active());
    changes.changed(Subject::Pools);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(changes.subscribers(Subject::Pools), 0);

    // A handle that outlives its notifier ends harmlessly.
    ChangeNotifier::Subscription orphan;
    {
        ChangeNotifier gone;
        orphan = gone.subscribe(Subject::Pools, [&](const Change&) { ++calls; });
        EXPECT_TRUE(orphan.active());
    }
    EXPECT_FALSE(orphan.active());
    orphan.reset();
}

TEST(ChangeNotifier, AListThatClosesWhileAChangeIsToldIsNotCalledAfterwards)
{
    ChangeNotifier changes;
    QStringList heard;
    ChangeNotifier::Subscription later;
    ChangeNotifier::Subscription opened;
    // The first handler closes the second list and opens a third one: the
    // closed list is skipped, the one opened during the change waits for the next.
    auto first = changes.subscribe(Subject::Entries, [&](const Change&) {
        heard << QStringLiteral("first");
        later.reset();
        if (!opened.active())
            opened = changes.subscribe(Subject::Entries, [&](const Change&) { heard << QStringLiteral("opened"); });
    });
    later = changes.subscribe(Subject::Entries, [&](const Change&) { heard << QStringLiteral("later"); });
    // A handler may end its own subscription while it runs.
    ChangeNotifier::Subscription self;
    self = changes.subscribe(Subject::Entries, [&](const Change&) {
        self.reset();
        heard << QStringLiteral("self");
    });

    changes.changed(Subject::Entries);
    EXPECT_EQ(heard, (QStringList{"first", "self"}));
    changes.changed(Subject::Entries);
    EXPECT_EQ(heard, (QStringList{"first", "self", "first", "opened"}));
}
