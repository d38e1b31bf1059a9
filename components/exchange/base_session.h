#pragma once
// A component's own connection to the base file, which the runner has closed
// on the program's side, and the one transaction of an import: the import
// commits at its end, and anything that stops it before leaves the base as it
// was.

#include "src/store/database.h"

#include <QString>

namespace plouvarine::exchange {

class BaseSession {
public:
    // Opens the base file. Throws DbError.
    explicit BaseSession(const QString& path);
    // Rolls back a transaction that was not committed, and closes.
    ~BaseSession();
    BaseSession(const BaseSession&) = delete;
    BaseSession& operator=(const BaseSession&) = delete;

    Database& db() { return db_; }
    void begin();
    void commit();

private:
    Database db_;
    bool in_transaction_ = false;
};

}  // namespace plouvarine::exchange
