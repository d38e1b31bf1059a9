#pragma once
// The open base held still for the save copy: a read-only connection of its
// own, in a read transaction begun at once, that sees the base as it was at
// that moment whatever the main connection commits afterwards (the write-ahead
// log keeps the later commits apart from it). Pinning costs a few
// milliseconds whatever the size of the base; the copy can then be written
// later, on another thread.
//
// It is opened on the main thread and may be handed to one other thread, which
// then alone uses it (SQLITE_OPEN_NOMUTEX, as the main connection). It must be
// released before the main connection closes: while it lives the log cannot be
// folded back and grows with every commit.

#include <QString>

struct sqlite3;

namespace plouvarine {

class Database;

class PinnedRead {
public:
    PinnedRead() = default;
    // Pins the base that `db` holds open, as of its last commit. Throws DbError.
    explicit PinnedRead(const Database& db);
    ~PinnedRead() { release(); }
    PinnedRead(PinnedRead&& other) noexcept;
    PinnedRead& operator=(PinnedRead&& other) noexcept;
    PinnedRead(const PinnedRead&) = delete;
    PinnedRead& operator=(const PinnedRead&) = delete;

    bool is_pinned() const { return db_ != nullptr; }
    // Writes the base as pinned to `target` (see Database::backup), then
    // releases it, whatever happens. Throws DbError.
    void snapshot_to(const QString& target);
    // Ends the read transaction and closes the connection.
    void release();

private:
    sqlite3* db_ = nullptr;
};

}  // namespace plouvarine
