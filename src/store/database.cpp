#include "src/store/database.h"

#include "src/base/errors.h"
#include "src/base/files.h"
#include "src/base/services.h"
#include "src/store/collation.h"
#include "src/store/dialect.h"

#include <QFile>
#include <QFileInfo>
#include <sqlite3.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <sys/stat.h>
#include <functional>
#include <utility>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace plouvarine {

namespace {

std::function<void(const SentStatement&)>& statement_recorder()
{
    static std::function<void(const SentStatement&)> recorder;
    return recorder;
}

}  // namespace

// A prepared statement that finalizes itself.
class PreparedStatement {
public:
    PreparedStatement(sqlite3* db, const QString& sql)
    {
        const QByteArray utf8 = sql.toUtf8();
        rc_ = sqlite3_prepare_v2(db, utf8.constData(), int(utf8.size()), &stmt_, nullptr);
    }
    ~PreparedStatement() { sqlite3_finalize(stmt_); }
    PreparedStatement(const PreparedStatement&) = delete;
    PreparedStatement& operator=(const PreparedStatement&) = delete;
    int rc() const { return rc_; }
    sqlite3_stmt* get() const { return stmt_; }
    PreparedStatement(PreparedStatement&& other) noexcept : stmt_(std::exchange(other.stmt_, nullptr)), rc_(other.rc_) {}

private:
    sqlite3_stmt* stmt_ = nullptr;
    int rc_ = SQLITE_OK;
};

namespace {

QString number_text(double d)
{
    // The plain form of a number: no exponent for the values a base holds,
    // a point as the decimal separator, no trailing zeros.
    QString s = QString::number(d, 'f', 10);
    if (s.contains(QLatin1Char('.'))) {
        while (s.endsWith(QLatin1Char('0'))) s.chop(1);
        if (s.endsWith(QLatin1Char('.'))) s.chop(1);
    }
    if (s == QLatin1String("-0"))
        s = QStringLiteral("0");
    return s;
}

bool is_boolean_column(sqlite3_stmt* stmt, int column)
{
    const char* decl = sqlite3_column_decltype(stmt, column);
    return decl && sqlite3_stricmp(decl, "BOOLEAN") == 0;
}

// The bytes of a number written out, kept from one value to the next so that
// a whole number costs no allocation.
struct NumberBytes {
    std::array<char, 24> digits;
    QByteArray decimal;
};

// A value as UTF-8, as every read writes it out: a null as a null view,
// booleans in words, numbers in their plain form. Texts stay in the engine's
// buffer, numbers in `scratch`.
QByteArrayView value_utf8(sqlite3_stmt* stmt, int column, bool boolean, NumberBytes& scratch)
{
    switch (sqlite3_column_type(stmt, column)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER: {
        const sqlite3_int64 v = sqlite3_column_int64(stmt, column);
        if (boolean)
            return v ? QByteArrayView("Vrai") : QByteArrayView("Faux");
        const auto end = std::to_chars(scratch.digits.data(), scratch.digits.data() + scratch.digits.size(), v).ptr;
        return QByteArrayView(scratch.digits.data(), end - scratch.digits.data());
    }
    case SQLITE_FLOAT: {
        const double v = sqlite3_column_double(stmt, column);
        if (boolean)
            return v != 0 ? QByteArrayView("Vrai") : QByteArrayView("Faux");
        scratch.decimal = number_text(v).toUtf8();
        return scratch.decimal;
    }
    default: {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(stmt, column));
        return QByteArrayView(text, text ? sqlite3_column_bytes(stmt, column) : 0);
    }
    }
}

// The engine makes its files readable by all; one made empty beforehand keeps
// the mode it was made with, and so do the engine's -wal and -shm beside it.
void create_private(const QString& path, int mode)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode_t(mode));
    if (fd >= 0) {
        ::fchmod(fd, mode_t(mode));  // whatever the umask took away
        ::close(fd);
    }
}

}  // namespace

Database::Database() = default;

QString Database::check_base_file(const QString& path)
{
    sqlite3* db = nullptr;
    // Read-write: a file that a killed process left with its write-ahead log
    // is first brought back to its last commit, as any opening does.
    int rc = sqlite3_open_v2(QFile::encodeName(path).constData(), &db, SQLITE_OPEN_READWRITE, nullptr);
    QString reason;
    if (rc == SQLITE_OK) {
        prepare_connection(db);
        sqlite3_stmt* stmt = nullptr;
        rc = sqlite3_prepare_v2(db, "PRAGMA quick_check", -1, &stmt, nullptr);
        if (rc == SQLITE_OK && sqlite3_step(stmt) == SQLITE_ROW) {
            const QString verdict = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0)));
            if (verdict != QLatin1String("ok"))
                reason = QStringLiteral("Base endommagée : ") + verdict;
        } else {
            reason = QString::fromUtf8(sqlite3_errmsg(db));
        }
        sqlite3_finalize(stmt);
        if (reason.isEmpty() && sqlite3_exec(db, "select count(*) from Info", nullptr, nullptr, nullptr) != SQLITE_OK)
            reason = QStringLiteral("Ce fichier n'est pas une base du club : ") + QString::fromUtf8(sqlite3_errmsg(db));
    } else {
        reason = db ? QString::fromUtf8(sqlite3_errmsg(db)) : QStringLiteral("out of memory");
    }
    sqlite3_close_v2(db);
    return reason.isEmpty() ? QString() : reason + QStringLiteral(" (") + path + QLatin1Char(')');
}

Database::~Database()
{
    close();
}

QString Database::lock_path(const QString& base_path)
{
    return base_path.left(base_path.size() - 3) + QStringLiteral("ldb");
}

bool Database::lock_held(const QString& base_path)
{
    const QString lock = lock_path(base_path);
    if (!QFileInfo::exists(lock))
        return false;
    const int fd = ::open(QFile::encodeName(lock).constData(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
    if (fd < 0)
        return true;  // there, but we cannot even look at it: count it as held
    struct stat st;
    const bool foreign = ::fstat(fd, &st) != 0 || st.st_uid != ::getuid();
    const bool held = foreign || (::flock(fd, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK);
    ::close(fd);
    return held;
}

QStringList Database::sibling_files(const QString& base_path)
{
    return {base_path + QStringLiteral("-journal"), base_path + QStringLiteral("-wal"),
            base_path + QStringLiteral("-shm")};
}

void Database::prepare_connection(sqlite3* db)
{
    register_collation(db);
    sqlite3_extended_result_codes(db, 1);
    sqlite3_busy_timeout(db, 2000);
}

// Opening the lock file and taking its lock is one step that either gives the
// base to this process or refuses it: no window between a look and a lock.
void Database::take_lock(const QString& path)
{
    const QString refused = QStringLiteral("La base est ouverte par une autre application.");
    const QByteArray lock = QFile::encodeName(lock_path(path));
    for (int tries = 0; tries < 10; ++tries) {
        const int fd = ::open(lock.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
        if (fd < 0)
            throw DbError(SQLITE_BUSY, refused + QStringLiteral(" (") + QString::fromLocal8Bit(std::strerror(errno)) +
                                           QStringLiteral(" : ") + lock_path(path) + QLatin1Char(')'));
        struct stat held, named;
        if (::fstat(fd, &held) != 0 || held.st_uid != ::getuid() || ::flock(fd, LOCK_EX | LOCK_NB) != 0) {
            ::close(fd);
            throw DbError(SQLITE_BUSY, refused);
        }
        // The holder before us removes the file as it closes: a lock on a file
        // that no longer has the name is worth nothing, and the name is tried again.
        if (::stat(lock.constData(), &named) == 0 && named.st_ino == held.st_ino && named.st_dev == held.st_dev) {
            lock_fd_ = fd;
            return;
        }
        ::close(fd);
    }
    throw DbError(SQLITE_BUSY, refused);
}

void Database::open(const QString& path)
{
    close();
    take_lock(path);

    sqlite3* db = nullptr;
    const QByteArray file = QFile::encodeName(path);
    // No SQLITE_OPEN_CREATE: opening a missing file is an error, not a new base.
    // NOMUTEX: one thread uses the connection (see the rule in database.h), so
    // SQLite takes no lock on each call.
    const int rc = sqlite3_open_v2(file.constData(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    if (rc != SQLITE_OK) {
        const QString msg = db ? QString::fromUtf8(sqlite3_errmsg(db)) : QStringLiteral("out of memory");
        sqlite3_close(db);
        path_ = path;
        close();
        throw DbError(rc, msg + QStringLiteral(" (") + path + QLatin1Char(')'));
    }
    prepare_connection(db);
    db_ = db;
    path_ = path;
    try {
        // Reading the schema proves the file is a base; the write-ahead log keeps
        // each statement's commit cheap, and a clean close folds it back.
        exec_sql(QStringLiteral("PRAGMA journal_mode=WAL"));
        exec_sql(QStringLiteral("PRAGMA synchronous=NORMAL"));
        exec_sql(QStringLiteral("PRAGMA foreign_keys=OFF"));
        if (sqlite3_db_readonly(db_, "main") == 1)
            throw DbError(SQLITE_READONLY, QStringLiteral("La base est en lecture seule (") + path + QLatin1Char(')'));
    } catch (...) {
        close();
        throw;
    }
}

void Database::close()
{
    if (db_) {
        // A statement left unfinalized would keep the connection alive as a
        // zombie after a lazy close, the file open, and its -wal and -shm
        // beside the base after the program ends. The last close checkpoints
        // the log and removes both.
        if (sqlite3_close(db_) == SQLITE_BUSY) {
            while (sqlite3_stmt* stmt = sqlite3_next_stmt(db_, nullptr))
                sqlite3_finalize(stmt);
            sqlite3_close(db_);
        }
        db_ = nullptr;
    }
    if (lock_fd_ >= 0) {
        // Removed while still held, so that no other process locks a file
        // about to lose its name (take_lock checks the name after its lock).
        if (!path_.isEmpty())
            ::unlink(QFile::encodeName(lock_path(path_)).constData());
        ::close(lock_fd_);
        lock_fd_ = -1;
    }
    path_.clear();
}

void Database::raise(const QString& context) const
{
    const int code = db_ ? sqlite3_extended_errcode(db_) : SQLITE_MISUSE;
    QString text = db_ ? QString::fromUtf8(sqlite3_errmsg(db_)) : QStringLiteral("Aucune base ouverte.");
    if (!context.isEmpty())
        text += QStringLiteral(" : ") + context;
    throw DbError(code, text);
}

void Database::set_statement_recorder(std::function<void(const SentStatement&)> recorder)
{
    statement_recorder() = std::move(recorder);
}

PreparedStatement Database::prepare(const QString& sql) const
{
    const QString rewritten = jet_to_sqlite(sql, db_);
    PreparedStatement stmt(db_, rewritten);
    if (const auto& recorder = statement_recorder())
        recorder({sql, rewritten, stmt.rc() == SQLITE_OK});
    return stmt;
}

void Database::exec_sql(const QString& sql)
{
    if (!db_)
        raise();
    PreparedStatement stmt = prepare(sql);
    if (stmt.rc() != SQLITE_OK)
        raise(sql);
    int rc;
    while ((rc = sqlite3_step(stmt.get())) == SQLITE_ROW) {
    }
    if (rc != SQLITE_DONE)
        raise(sql);
}

template <class Begin, class Cell>
void Database::read_cells(const QString& sql, Begin begin, Cell cell)
{
    if (!db_)
        raise();
    PreparedStatement stmt = prepare(sql);
    if (stmt.rc() != SQLITE_OK) {
        try {
            raise(sql);
        } catch (const DbError& e) {
            if (ui_)
                msg_erreur(*ui_, QStringLiteral("La requête suivante n'a pu être exécutée : ") + sql, &e);
            throw;
        }
    }
    const int n = sqlite3_column_count(stmt.get());
    QStringList names;
    std::vector<bool> boolean(size_t(n > 0 ? n : 0));
    for (int c = 0; c < n; ++c) {
        names << QString::fromUtf8(sqlite3_column_name(stmt.get(), c));
        boolean[size_t(c)] = is_boolean_column(stmt.get(), c);
    }
    begin(std::move(names));
    NumberBytes scratch;
    int rc;
    while ((rc = sqlite3_step(stmt.get())) == SQLITE_ROW) {
        for (int c = 0; c < n; ++c)
            cell(c, value_utf8(stmt.get(), c, boolean[size_t(c)], scratch));
    }
    if (rc != SQLITE_DONE)
        raise(sql);
}

Rows Database::load_rows(const QString& sql)
{
    Rows rows;
    read_cells(
        sql, [&rows](QStringList names) { rows = Rows(std::move(names)); },
        [&rows](int column, QByteArrayView utf8) { rows.append(column, QString::fromUtf8(utf8)); });
    return rows;
}

RawRows Database::load_raw_rows(const QString& sql)
{
    RawRows rows;
    read_cells(
        sql, [&rows](QStringList names) { rows = RawRows(std::move(names)); },
        [&rows](int, QByteArrayView utf8) { rows.append(utf8); });
    return rows;
}

int Database::count_query(const QString& sql)
{
    if (!db_)
        raise();
    PreparedStatement stmt = prepare(sql);
    if (stmt.rc() != SQLITE_OK)
        raise(sql);
    const int rc = sqlite3_step(stmt.get());
    if (rc == SQLITE_DONE)
        throw DbError(SQLITE_NOTFOUND, QStringLiteral("Aucun enregistrement : ") + sql);
    if (rc != SQLITE_ROW)
        raise(sql);
    return int(sqlite3_column_int64(stmt.get(), 0));
}

void Database::set_last_close(const QString& value)
{
    exec_sql(QStringLiteral("Update Info Set LastClose = ") + value);
}

void Database::clear_table(const QString& name)
{
    exec_sql(QStringLiteral("delete from ") + name);
}

QString Database::append_row(const QString& table, const std::vector<std::pair<QString, QVariant>>& fields,
                             const QString& key_column)
{
    if (!db_)
        raise();
    QStringList columns, marks;
    for (const auto& f : fields) {
        columns << f.first;
        marks << QStringLiteral("?");
    }
    QString sql = QStringLiteral("INSERT INTO ") + table;
    sql += fields.empty() ? QStringLiteral(" DEFAULT VALUES")
                          : QStringLiteral(" (") + columns.join(QStringLiteral(", ")) + QStringLiteral(") VALUES (") +
                                marks.join(QStringLiteral(", ")) + QLatin1Char(')');
    PreparedStatement stmt(db_, sql);
    if (stmt.rc() != SQLITE_OK)
        raise(sql);
    int i = 1;
    for (const auto& f : fields) {
        const QVariant& v = f.second;
        int rc;
        if (v.isNull())
            rc = sqlite3_bind_null(stmt.get(), i);
        else if (v.typeId() == QMetaType::Bool || v.typeId() == QMetaType::Int || v.typeId() == QMetaType::LongLong)
            rc = sqlite3_bind_int64(stmt.get(), i, v.toLongLong());
        else if (v.typeId() == QMetaType::Double)
            rc = sqlite3_bind_double(stmt.get(), i, v.toDouble());
        else {
            const QByteArray t = v.toString().toUtf8();
            rc = sqlite3_bind_text(stmt.get(), i, t.constData(), int(t.size()), SQLITE_TRANSIENT);
        }
        if (rc != SQLITE_OK)
            raise(sql);
        ++i;
    }
    if (sqlite3_step(stmt.get()) != SQLITE_DONE)
        raise(sql);
    const sqlite3_int64 rowid = sqlite3_last_insert_rowid(db_);
    const Rows key = load_rows(QStringLiteral("SELECT ") + key_column + QStringLiteral(" FROM ") + table +
                               QStringLiteral(" WHERE rowid = ") + QString::number(rowid));
    return key.first().trimmed();
}

void Database::snapshot_to(const QString& target) const
{
    if (!db_)
        raise();
    backup(db_, target);
}

void Database::backup(sqlite3* source, const QString& target)
{
    sqlite3* out = nullptr;
    const QByteArray file = QFile::encodeName(target);
    // A leftover of a killed run would keep its own mode.
    QFile::remove(target);
    create_private(target, 0600);
    int rc = sqlite3_open_v2(file.constData(), &out, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    if (rc == SQLITE_OK) {
        prepare_connection(out);
        // A source already in a read transaction is copied as that transaction
        // sees it; otherwise the step takes its own, and one step copies all.
        sqlite3_backup* copy = sqlite3_backup_init(out, "main", source, "main");
        if (copy) {
            rc = sqlite3_backup_step(copy, -1);
            sqlite3_backup_finish(copy);
            rc = rc == SQLITE_DONE ? SQLITE_OK : rc;
        } else {
            rc = sqlite3_errcode(out);
        }
        // The copy is a file at rest: no write-ahead log beside it.
        if (rc == SQLITE_OK)
            rc = sqlite3_exec(out, "PRAGMA journal_mode=DELETE", nullptr, nullptr, nullptr);
    }
    const QString msg = out ? QString::fromUtf8(sqlite3_errmsg(out)) : QString();
    sqlite3_close_v2(out);
    if (rc != SQLITE_OK) {
        QFile::remove(target);
        throw DbError(rc, msg + QStringLiteral(" (") + target + QLatin1Char(')'));
    }
}

void Database::compact_file(const QString& source, const QString& target)
{
    sqlite3* db = nullptr;
    int rc = sqlite3_open_v2(QFile::encodeName(source).constData(), &db, SQLITE_OPEN_READWRITE, nullptr);
    QString msg;
    if (rc == SQLITE_OK) {
        create_private(target, file_mode(source));
        prepare_connection(db);
        // The target is a bound parameter: no file name can change the statement.
        sqlite3_stmt* vacuum = nullptr;
        rc = sqlite3_prepare_v2(db, "VACUUM INTO ?1", -1, &vacuum, nullptr);
        if (rc == SQLITE_OK) {
            const QByteArray into = target.toUtf8();
            rc = sqlite3_bind_text(vacuum, 1, into.constData(), int(into.size()), SQLITE_TRANSIENT);
            if (rc == SQLITE_OK)
                rc = sqlite3_step(vacuum);
            if (rc == SQLITE_DONE)
                rc = SQLITE_OK;
        }
        sqlite3_finalize(vacuum);
    }
    if (rc != SQLITE_OK)
        msg = db ? QString::fromUtf8(sqlite3_errmsg(db)) : QStringLiteral("out of memory");
    sqlite3_close_v2(db);
    if (rc != SQLITE_OK) {
        QFile::remove(target);
        throw DbError(rc, msg);
    }
}

}  // namespace plouvarine
