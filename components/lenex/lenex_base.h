#pragma once
// The base file as the Lenex components work on it: their own connection, one
// transaction per file, prepared statements for the rows they write by the
// thousand, and the matching of the file's clubs and swimmers with the base's.
//
// Rule: one thread, one component call. The runner has closed the base on the
// program's side, so the component's connection is the only one.

#include "src/store/database.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QVariant>
#include <initializer_list>
#include <memory>

struct sqlite3_stmt;

namespace plouvarine::lenex {

// A prepared statement, bound by position (from 1). Throws DbError.
class Statement {
public:
    Statement(Database& db, const QString& sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    // Binds the values in order (a null QVariant binds NULL) and runs the
    // statement to its end; for a write.
    void run(std::initializer_list<QVariant> values);
    // Binds and starts a read; next() moves to each row.
    void query(std::initializer_list<QVariant> values = {});
    bool next();
    QString text(int column) const;
    int integer(int column) const;
    double real(int column) const;

private:
    void bind(std::initializer_list<QVariant> values);
    Database& db_;
    sqlite3_stmt* stmt_ = nullptr;
};

// BEGIN at construction; ROLLBACK at destruction unless commit() ran.
class Transaction {
public:
    explicit Transaction(Database& db);
    ~Transaction();
    void commit();

private:
    Database& db_;
    bool done_ = false;
};

// Names compared as the matching wants them: capitals, no accents of any
// language (foreign swimmers' names too, which SansAccents leaves), single
// blanks.
QString fold_name(const QString& text);

// The base's swimmers, found by licence number, then by name, first name and
// birth date.
class Swimmers {
public:
    explicit Swimmers(Database& db);
    // Licence.Num, or 0.
    int find(const QString& license, const QString& lastname, const QString& firstname,
             const QString& birthdate) const;
    QString club_of(int num) const { return club_.value(num); }
    QString birthdate_of(int num) const { return birth_.value(num); }
    // Adds a licence and gives its Num.
    int add(const QString& club, const QString& license, const QString& lastname, const QString& firstname,
            const QString& gender, const QString& birthdate, const QString& nation);
    // The licence nulle that fills an empty relay place (0 when the base has none).
    int nulle() const { return nulle_; }

private:
    void remember(int num, const QString& license, const QString& key, const QString& club, const QString& birth);
    Database& db_;
    std::unique_ptr<Statement> insert_;
    QHash<QString, int> by_license_, by_name_;
    QHash<int, QString> club_, birth_;
    int nulle_ = 0;
};

// The base's clubs, found by federal code, then by name.
class Clubs {
public:
    explicit Clubs(Database& db);
    // Club.Code_federal, or the empty text.
    QString find(const QString& code, const QString& name) const;
    // Adds a club (its code is the file's, or its name when the file has none)
    // and gives its code.
    QString add(const QString& code, const QString& name);
    QString name_of(const QString& code) const { return names_.value(code.toUpper()); }

private:
    Database& db_;
    std::unique_ptr<Statement> insert_;
    QHash<QString, QString> by_code_, by_name_, names_;
};

}  // namespace plouvarine::lenex
