#include "components/lenex/lenex_base.h"

#include "src/base/errors.h"

#include <sqlite3.h>

namespace plouvarine::lenex {

namespace {

[[noreturn]] void raise(Database& db)
{
    throw DbError(sqlite3_errcode(db.handle()), QString::fromUtf8(sqlite3_errmsg(db.handle())));
}

void exec(Database& db, const char* sql)
{
    if (sqlite3_exec(db.handle(), sql, nullptr, nullptr, nullptr) != SQLITE_OK)
        raise(db);
}

}  // namespace

Statement::Statement(Database& db, const QString& sql) : db_(db)
{
    const QByteArray utf8 = sql.toUtf8();
    if (sqlite3_prepare_v2(db.handle(), utf8.constData(), int(utf8.size()), &stmt_, nullptr) != SQLITE_OK)
        raise(db);
}

Statement::~Statement()
{
    sqlite3_finalize(stmt_);
}

void Statement::bind(std::initializer_list<QVariant> values)
{
    sqlite3_reset(stmt_);
    sqlite3_clear_bindings(stmt_);
    int i = 1;
    for (const QVariant& v : values) {
        int rc = SQLITE_OK;
        switch (v.typeId()) {
        case QMetaType::UnknownType:
            rc = sqlite3_bind_null(stmt_, i);
            break;
        case QMetaType::Int:
        case QMetaType::Bool:
        case QMetaType::LongLong:
            rc = sqlite3_bind_int64(stmt_, i, v.toLongLong());
            break;
        case QMetaType::Double:
            rc = sqlite3_bind_double(stmt_, i, v.toDouble());
            break;
        default: {
            const QByteArray utf8 = v.toString().toUtf8();
            rc = sqlite3_bind_text(stmt_, i, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
        }
        }
        if (rc != SQLITE_OK)
            raise(db_);
        ++i;
    }
}

void Statement::run(std::initializer_list<QVariant> values)
{
    bind(values);
    if (sqlite3_step(stmt_) != SQLITE_DONE)
        raise(db_);
    sqlite3_reset(stmt_);
}

void Statement::query(std::initializer_list<QVariant> values)
{
    bind(values);
}

bool Statement::next()
{
    const int rc = sqlite3_step(stmt_);
    if (rc == SQLITE_ROW)
        return true;
    if (rc != SQLITE_DONE)
        raise(db_);
    return false;
}

QString Statement::text(int column) const
{
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt_, column)),
                             sqlite3_column_bytes(stmt_, column));
}

int Statement::integer(int column) const
{
    return sqlite3_column_int(stmt_, column);
}

double Statement::real(int column) const
{
    return sqlite3_column_double(stmt_, column);
}

Transaction::Transaction(Database& db) : db_(db)
{
    exec(db_, "BEGIN");
}

Transaction::~Transaction()
{
    if (!done_)
        sqlite3_exec(db_.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::commit()
{
    exec(db_, "COMMIT");
    done_ = true;
}

QString fold_name(const QString& text)
{
    const QString decomposed = text.normalized(QString::NormalizationForm_D);
    QString out;
    out.reserve(decomposed.size());
    for (QChar c : decomposed) {
        if (c.category() != QChar::Mark_NonSpacing)
            out.append(c);
    }
    return out.toUpper().simplified();
}

namespace {

QString name_key(const QString& lastname, const QString& firstname, const QString& birthdate)
{
    return fold_name(lastname) + u'|' + fold_name(firstname) + u'|' + birthdate;
}

}  // namespace

Swimmers::Swimmers(Database& db) : db_(db)
{
    Statement s(db, QStringLiteral("SELECT Num, Licence, Nom, Prenom, Date_Naissance, Code_club FROM Licence"));
    s.query();
    while (s.next()) {
        const int num = s.integer(0);
        if (s.text(2) == QLatin1String("Null")) {
            nulle_ = num;
            continue;
        }
        remember(num, s.text(1), name_key(s.text(2), s.text(3), s.text(4)), s.text(5), s.text(4));
    }
}

void Swimmers::remember(int num, const QString& license, const QString& key, const QString& club,
                        const QString& birth)
{
    const QString l = license.trimmed().toUpper();
    if (!l.isEmpty())
        by_license_.insert(l, num);
    by_name_.insert(key, num);
    club_.insert(num, club);
    birth_.insert(num, birth);
}

int Swimmers::find(const QString& license, const QString& lastname, const QString& firstname,
                   const QString& birthdate) const
{
    const QString l = license.trimmed().toUpper();
    if (!l.isEmpty()) {
        if (const int num = by_license_.value(l))
            return num;
    }
    // Without a birth date, a swimmer of the same name who has none either: so
    // that one added that way is found again.
    if (lastname.isEmpty())
        return 0;
    return by_name_.value(name_key(lastname, firstname, birthdate));
}

int Swimmers::add(const QString& club, const QString& license, const QString& lastname, const QString& firstname,
                  const QString& gender, const QString& birthdate, const QString& nation)
{
    if (!insert_)
        insert_ = std::make_unique<Statement>(
            db_, QStringLiteral("INSERT INTO Licence (Code_club, Licence, Nom, Prenom, Sexe, Date_Naissance, "
                                "Nationalite, Visible) VALUES (?, ?, ?, ?, ?, ?, ?, 1)"));
    insert_->run({club, license, lastname, firstname, gender, birthdate, nation});
    const int num = int(sqlite3_last_insert_rowid(db_.handle()));
    remember(num, license, name_key(lastname, firstname, birthdate), club, birthdate);
    return num;
}

Clubs::Clubs(Database& db) : db_(db)
{
    Statement s(db, QStringLiteral("SELECT Code_federal, Intitule FROM Club"));
    s.query();
    while (s.next()) {
        const QString code = s.text(0);
        by_code_.insert(code.toUpper(), code);
        by_name_.insert(fold_name(s.text(1)), code);
        names_.insert(code.toUpper(), s.text(1));
    }
}

QString Clubs::find(const QString& code, const QString& name) const
{
    if (!code.isEmpty()) {
        const auto it = by_code_.constFind(code.toUpper());
        if (it != by_code_.cend())
            return *it;
    }
    return name.isEmpty() ? QString() : by_name_.value(fold_name(name));
}

QString Clubs::add(const QString& code, const QString& name)
{
    const QString c = code.isEmpty() ? name : code;
    if (!insert_)
        insert_ = std::make_unique<Statement>(
            db_, QStringLiteral("INSERT INTO Club (Code_federal, Intitule, Selection, Visible) VALUES (?, ?, 0, 1)"));
    insert_->run({c, name});
    by_code_.insert(c.toUpper(), c);
    by_name_.insert(fold_name(name), c);
    names_.insert(c.toUpper(), name);
    return c;
}

}  // namespace plouvarine::lenex
