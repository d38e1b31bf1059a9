#pragma once
// The menu commands, registered by the subject that runs them (as windows are
// registered by their name), so that the main window wires them in one loop.

#include <QHash>
#include <QString>
#include <functional>

namespace plouvarine {

class AppContext;

class CommandTable {
public:
    using Run = std::function<void(AppContext&)>;

    // Registers (or replaces) what the command named `name` runs.
    void add(const QString& name, Run run) { runs_.insert(name, std::move(run)); }
    // What `name` runs, or null when nothing is registered under it.
    const Run* find(const QString& name) const
    {
        const auto it = runs_.constFind(name);
        return it == runs_.cend() ? nullptr : &*it;
    }
    QList<QString> names() const { return runs_.keys(); }

private:
    QHash<QString, Run> runs_;
};

}  // namespace plouvarine
