#include "src/frame/change_notifier.h"

#include <algorithm>
#include <utility>

namespace plouvarine {

struct ChangeNotifier::Subscription::Entries {
    std::vector<ChangeNotifier::Entry> list;
};

ChangeNotifier::ChangeNotifier() : entries_(std::make_shared<Subscription::Entries>()) {}

ChangeNotifier::Subscription::Subscription(Subscription&& other) noexcept
    : entries_(std::move(other.entries_)), id_(other.id_)
{
    other.entries_.reset();
}

ChangeNotifier::Subscription& ChangeNotifier::Subscription::operator=(Subscription&& other) noexcept
{
    if (this != &other) {
        reset();
        entries_ = std::move(other.entries_);
        other.entries_.reset();
        id_ = other.id_;
    }
    return *this;
}

void ChangeNotifier::Subscription::reset()
{
    if (const std::shared_ptr<Entries> entries = entries_.lock())
        std::erase_if(entries->list, [this](const Entry& e) { return e.id == id_; });
    entries_.reset();
}

ChangeNotifier::Subscription ChangeNotifier::subscribe(Subject subject, Handler handler)
{
    const int id = next_id_++;
    entries_->list.push_back({id, subject, std::move(handler)});
    return Subscription(entries_, id);
}

void ChangeNotifier::changed(const Change& change)
{
    // The ids first: a handler may close a list (ending its subscription) or
    // open one, and only those listening when the change was told hear it.
    std::vector<int> ids;
    for (const Entry& e : entries_->list)
        if (e.subject == change.subject)
            ids.push_back(e.id);
    for (int id : ids) {
        const auto& list = entries_->list;
        const auto it = std::find_if(list.begin(), list.end(), [id](const Entry& e) { return e.id == id; });
        if (it == list.end())
            continue;
        // A copy: the handler may end its own subscription while it runs.
        const Handler handler = it->handler;
        if (handler)
            handler(change);
    }
}

int ChangeNotifier::subscribers(Subject subject) const
{
    return int(std::count_if(entries_->list.begin(), entries_->list.end(),
                             [subject](const Entry& e) { return e.subject == subject; }));
}

}  // namespace plouvarine
