#include "src/store/pinned_read.h"

#include "src/base/errors.h"
#include "src/store/database.h"

#include <QFile>
#include <sqlite3.h>

#include <utility>

namespace plouvarine {

PinnedRead::PinnedRead(const Database& db)
{
    if (!db.is_open())
        throw DbError(SQLITE_MISUSE, QStringLiteral("Aucune base ouverte."));
    const QString path = db.path();
    const int rc = sqlite3_open_v2(QFile::encodeName(path).constData(), &db_,
                                   SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr);
    QString failure;
    if (rc != SQLITE_OK) {
        failure = db_ ? QString::fromUtf8(sqlite3_errmsg(db_)) : QStringLiteral("out of memory");
    } else {
        Database::prepare_connection(db_);
        // BEGIN alone takes no snapshot: the first read does, and the
        // transaction keeps it until the connection is released.
        sqlite3_stmt* stmt = nullptr;
        if (sqlite3_exec(db_, "BEGIN", nullptr, nullptr, nullptr) != SQLITE_OK ||
            sqlite3_prepare_v2(db_, "SELECT count(*) FROM sqlite_master", -1, &stmt, nullptr) != SQLITE_OK ||
            sqlite3_step(stmt) != SQLITE_ROW)
            failure = QString::fromUtf8(sqlite3_errmsg(db_));
        sqlite3_finalize(stmt);
    }
    if (!failure.isEmpty()) {
        const int code = db_ ? sqlite3_extended_errcode(db_) : rc;
        release();
        throw DbError(code, failure + QStringLiteral(" (") + path + QLatin1Char(')'));
    }
}

PinnedRead::PinnedRead(PinnedRead&& other) noexcept : db_(std::exchange(other.db_, nullptr)) {}

PinnedRead& PinnedRead::operator=(PinnedRead&& other) noexcept
{
    if (this != &other) {
        release();
        db_ = std::exchange(other.db_, nullptr);
    }
    return *this;
}

void PinnedRead::snapshot_to(const QString& target)
{
    if (!db_)
        throw DbError(SQLITE_MISUSE, QStringLiteral("Aucune lecture en cours de la base."));
    try {
        Database::backup(db_, target);
    } catch (...) {
        release();
        throw;
    }
    release();
}

void PinnedRead::release()
{
    // Closing rolls the read transaction back: nothing was written.
    if (db_)
        sqlite3_close_v2(std::exchange(db_, nullptr));
}

}  // namespace plouvarine
