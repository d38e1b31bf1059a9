// Builds the model base "modele_base.sav" from the schema and the catalogue rows:
//   make_model <output> <schema.sql> <catalogue folder>
// The catalogue files run in the order of their names. The base is written under
// a temporary name and renamed at the end, so a failed build leaves no model.

#include "src/store/database.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cstdio>
#include <sqlite3.h>

namespace {

bool run_file(sqlite3* db, const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "make_model: cannot read %s\n", qPrintable(path));
        return false;
    }
    const QByteArray sql = f.readAll();
    char* err = nullptr;
    if (sqlite3_exec(db, sql.constData(), nullptr, nullptr, &err) != SQLITE_OK) {
        std::fprintf(stderr, "make_model: %s: %s\n", qPrintable(path), err ? err : "?");
        sqlite3_free(err);
        return false;
    }
    return true;
}

bool exec(sqlite3* db, const char* sql)
{
    char* err = nullptr;
    if (sqlite3_exec(db, sql, nullptr, nullptr, &err) != SQLITE_OK) {
        std::fprintf(stderr, "make_model: %s: %s\n", sql, err ? err : "?");
        sqlite3_free(err);
        return false;
    }
    return true;
}

}  // namespace

int main(int argc, char** argv)
{
    QCoreApplication qapp(argc, argv);
    if (argc != 4) {
        std::fprintf(stderr, "usage: make_model <output> <schema.sql> <catalogue folder>\n");
        return 2;
    }
    const QString output = QString::fromLocal8Bit(argv[1]);
    const QString schema = QString::fromLocal8Bit(argv[2]);
    const QDir catalogue(QString::fromLocal8Bit(argv[3]));
    const QString temp = output + QStringLiteral(".building");
    QFile::remove(temp);
    QDir().mkpath(QFileInfo(output).absolutePath());

    sqlite3* db = nullptr;
    if (sqlite3_open_v2(QFile::encodeName(temp).constData(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) != SQLITE_OK) {
        std::fprintf(stderr, "make_model: cannot create %s\n", qPrintable(temp));
        return 1;
    }
    plouvarine::Database::prepare_connection(db);
    bool ok = exec(db, "PRAGMA journal_mode=DELETE") && exec(db, "BEGIN") && run_file(db, schema);
    for (const QString& name : catalogue.entryList({QStringLiteral("*.sql")}, QDir::Files, QDir::Name))
        ok = ok && run_file(db, catalogue.filePath(name));
    ok = ok && exec(db, "COMMIT") && exec(db, "VACUUM");
    sqlite3_close(db);
    if (!ok) {
        QFile::remove(temp);
        return 1;
    }
    QFile::remove(output);
    if (!QFile::rename(temp, output)) {
        std::fprintf(stderr, "make_model: cannot write %s\n", qPrintable(output));
        return 1;
    }
    return 0;
}
