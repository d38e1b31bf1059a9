#pragma once
// The one connection to the open base (`cn_base`).
//
// Rule: one thread. The connection lives on the main thread, and is opened
// without SQLite's per-call locking (SQLITE_OPEN_NOMUTEX): using it from a
// second thread is a fault. The save writer's worker (save_writer.h) never
// touches it: it copies the base through a read-only connection of its own
// (PinnedRead, pinned_read.h), opened on the main thread at Save and handed
// over whole, and checks the copy through another. Whatever closes the base
// waits for that worker first. The application context owns the only Database;
// every read and write of the system goes through it, statement by statement,
// with no transaction. Statements arrive in the Jet dialect the commands compose and are
// rewritten by jet_to_sqlite before they reach SQLite. A read brings its whole
// result into a Rows value: nobody holds a cursor across calls.
//
// While a base is open its lock file (the path with "ldb" in place of the last
// three characters) holds an advisory lock, so that another process can tell a
// live base from what a crash left behind.

#include "src/store/raw_rows.h"
#include "src/store/rows.h"

#include <QString>
#include <QVariant>
#include <functional>
#include <utility>
#include <vector>

struct sqlite3;

namespace plouvarine {

class PreparedStatement;
class Services;

// A statement as the system sent it, as it reached SQLite, and whether SQLite
// could prepare it.
struct SentStatement {
    QString jet;
    QString sqlite;
    bool prepared = false;
};

class Database {
public:
    Database();
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    // Opens the base file read-write and takes its lock. Throws DbError.
    void open(const QString& path);
    // Closes the connection as it stands (no write), releases and removes the lock.
    void close();
    bool is_open() const { return db_ != nullptr; }
    const QString& path() const { return path_; }
    sqlite3* handle() const { return db_; }

    // Where `open_read` reports a statement that cannot run (may be null).
    void set_services(Services* ui) { ui_ = ui; }

    // Runs a statement that returns no rows. Throws DbError.
    void exec_sql(const QString& sql);
    // Reads a whole result as texts: null as the empty text, booleans as
    // "Vrai"/"Faux", numbers in their plain form with a point; a text read here
    // goes back into a statement through quote_sql like any other.
    // A statement that cannot run is shown to the person ("La requête suivante
    // n'a pu être exécutée : ") and the error goes on to the caller.
    Rows load_rows(const QString& sql);
    // The same read, its values kept as UTF-8 and made into texts (the same
    // texts) only when asked for: for a long list that draws a few of them.
    RawRows load_raw_rows(const QString& sql);
    // The first field of the first row as a whole number; no row is an error.
    int count_query(const QString& sql);
    // "Update Info Set LastClose = " followed by the value, unquoted.
    void set_last_close(const QString& value);
    // "delete from " followed by the table name.
    void clear_table(const QString& name);
    // Adds one row with the given fields and gives back the key that the engine
    // numbered, as text (the way a table opened for append reads it back).
    QString append_row(const QString& table, const std::vector<std::pair<QString, QVariant>>& fields,
                       const QString& key_column);

    // Writes a consistent copy of the open base to `target` (online backup),
    // whatever the journal holds. Throws DbError.
    void snapshot_to(const QString& target) const;
    // The one backup routine: what the connection `source` sees, written to
    // `target` (replaced) as a base at rest, without a write-ahead log. A
    // partial copy is removed. Throws DbError.
    static void backup(sqlite3* source, const QString& target);

    // Writes a compacted copy of the base file `source` (not open) to `target`.
    static void compact_file(const QString& source, const QString& target);

    // Checks that a base file (not open) is whole and is a base: the engine's
    // quick check passes and the Info table is there. Gives the empty text
    // when it is, else the reason.
    static QString check_base_file(const QString& path);

    // The lock file of a base path, and whether a live process holds it. A
    // lock file that this account cannot open counts as held.
    static QString lock_path(const QString& base_path);
    static bool lock_held(const QString& base_path);
    // The engine's sibling files of a base path (journal, write-ahead log, shared memory).
    static QStringList sibling_files(const QString& base_path);

    // Registers the text comparison and the dialect's functions on a connection.
    static void prepare_connection(sqlite3* db);

    // Hands every statement that goes through the dialect, in every Database
    // of the process, to `recorder` (none when empty). The tests survey the
    // dialect on the statements the system really sends.
    static void set_statement_recorder(std::function<void(const SentStatement&)> recorder);

private:
    void take_lock(const QString& path);
    [[noreturn]] void raise(const QString& context = {}) const;
    // The statement rewritten and prepared on this connection.
    PreparedStatement prepare(const QString& sql) const;
    // The one stepping of a read: `begin` gets the column names, then `cell`
    // each value as UTF-8 (a null view for a null), row after row.
    template <class Begin, class Cell>
    void read_cells(const QString& sql, Begin begin, Cell cell);

    sqlite3* db_ = nullptr;
    QString path_;
    int lock_fd_ = -1;
    Services* ui_ = nullptr;
};

}  // namespace plouvarine
