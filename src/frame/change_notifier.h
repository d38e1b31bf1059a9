#pragma once
// What changed in the base, told by the view that changed it to the lists that
// show it. A detail view says `app.changes.changed(Subject::Licences, num)`
// after a save or a deletion; a list subscribes while it is open and loads
// again. Neither knows the other: a detail never reaches for the window that
// opened it, and a list opened from anywhere stays in step.
//
// A subscription ends with its handle: a list keeps the handle as a member, so
// a closed or destroyed list is never called. A handle that outlives the
// notifier ends harmlessly. Handlers run on the thread that
// tells the change, in the order they subscribed; a handler may subscribe or
// end subscriptions, its own included, while a change is being told.

#include <QString>
#include <functional>
#include <memory>
#include <vector>

namespace plouvarine {

enum class Subject {
    Clubs,
    Profiles,
    Pools,
    Licences,
    Competitions,
    Programme,
    Entries,
    Results,
};

struct Change {
    Subject subject;
    // The row that changed (Num, AutoNum...); empty when several did.
    QString key;
    // The row is new.
    bool created = false;
};

class ChangeNotifier {
public:
    using Handler = std::function<void(const Change&)>;

    // Ends its subscription when destroyed or reset. Movable, not copyable.
    class Subscription {
    public:
        Subscription() = default;
        ~Subscription() { reset(); }
        Subscription(Subscription&& other) noexcept;
        Subscription& operator=(Subscription&& other) noexcept;
        Subscription(const Subscription&) = delete;
        Subscription& operator=(const Subscription&) = delete;

        bool active() const { return !entries_.expired(); }
        void reset();

    private:
        friend class ChangeNotifier;
        struct Entries;  // the notifier's list of subscribers
        Subscription(std::weak_ptr<Entries> entries, int id) : entries_(std::move(entries)), id_(id) {}
        std::weak_ptr<Entries> entries_;
        int id_ = 0;
    };

    ChangeNotifier();
    ChangeNotifier(const ChangeNotifier&) = delete;
    ChangeNotifier& operator=(const ChangeNotifier&) = delete;

    [[nodiscard]] Subscription subscribe(Subject subject, Handler handler);
    // Tells every subscriber of the change's subject, at once.
    void changed(const Change& change);
    void changed(Subject subject, const QString& key = {}, bool created = false)
    {
        changed(Change{subject, key, created});
    }
    // How many are listening to `subject`.
    int subscribers(Subject subject) const;

private:
    struct Entry {
        int id;
        Subject subject;
        Handler handler;
    };
    // Shared with the handles, which see it go when the notifier does.
    std::shared_ptr<Subscription::Entries> entries_;
    int next_id_ = 1;
};

}  // namespace plouvarine
