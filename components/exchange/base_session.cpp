#include "components/exchange/base_session.h"

namespace plouvarine::exchange {

BaseSession::BaseSession(const QString& path)
{
    db_.open(path);
}

BaseSession::~BaseSession()
{
    if (in_transaction_) {
        try {
            db_.exec_sql(QStringLiteral("ROLLBACK"));
        } catch (...) {
            // The connection's close drops what the transaction wrote anyway.
        }
    }
    db_.close();
}

void BaseSession::begin()
{
    db_.exec_sql(QStringLiteral("BEGIN IMMEDIATE"));
    in_transaction_ = true;
}

void BaseSession::commit()
{
    db_.exec_sql(QStringLiteral("COMMIT"));
    in_transaction_ = false;
}

}  // namespace plouvarine::exchange
