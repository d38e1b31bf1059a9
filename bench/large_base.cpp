#include "large_base.h"

#include "src/frame/access.h"
#include "src/frame/app_context.h"
#include "src/store/database.h"

#include <QFile>
#include <random>
#include <sqlite3.h>
#include <stdexcept>

namespace plouvarine::bench {

namespace {

void exec(sqlite3* db, const char* sql)
{
    char* err = nullptr;
    if (sqlite3_exec(db, sql, nullptr, nullptr, &err) != SQLITE_OK) {
        std::string msg = err ? err : "?";
        sqlite3_free(err);
        throw std::runtime_error(msg);
    }
}

struct Insert {
    Insert(sqlite3* db, const char* sql) { sqlite3_prepare_v2(db, sql, -1, &stmt, nullptr); }
    ~Insert() { sqlite3_finalize(stmt); }
    void text(int i, const QString& v)
    {
        const QByteArray b = v.toUtf8();
        sqlite3_bind_text(stmt, i, b.constData(), int(b.size()), SQLITE_TRANSIENT);
    }
    void integer(int i, qint64 v) { sqlite3_bind_int64(stmt, i, v); }
    void real(int i, double v) { sqlite3_bind_double(stmt, i, v); }
    void run()
    {
        if (sqlite3_step(stmt) != SQLITE_DONE)
            throw std::runtime_error("insert failed");
        sqlite3_reset(stmt);
    }
    sqlite3_stmt* stmt = nullptr;
};

QString club_code(int i)
{
    return QStringLiteral("FRA1%1%2%3").arg(11 + i % 20, 2, 10, QLatin1Char('0')).arg(1 + i % 95, 3, 10, QLatin1Char('0')).arg(i + 1, 4, 10, QLatin1Char('0'));
}

}  // namespace

void generate_large_base(const QString& model, const QString& path, const LargeBaseSize& size)
{
    QFile::remove(path);
    if (!QFile::copy(model, path))
        throw std::runtime_error("cannot copy the model base");
    QFile::setPermissions(path, QFile::permissions(path) | QFileDevice::WriteOwner);

    sqlite3* db = nullptr;
    sqlite3_open_v2(QFile::encodeName(path).constData(), &db, SQLITE_OPEN_READWRITE, nullptr);
    Database::prepare_connection(db);
    exec(db, "PRAGMA journal_mode=DELETE");
    exec(db, "BEGIN");
    std::mt19937 rng(20261123);
    static const char* names[] = {"MARTIN", "BERNARD", "THOMAS", "PETIT", "ROBERT", "RICHARD", "DURAND", "DUBOIS",
                                  "MOREAU", "LAURENT", "SIMON", "MICHEL", "LEFEBVRE", "LEROY", "ROUX", "DAVID"};
    static const char* firsts[] = {"Léa", "Hugo", "Chloé", "Lucas", "Emma", "Louis", "Inès", "Jules", "Zoé", "Noé"};
    {
        Insert club(db, "INSERT INTO Club (Code_federal, Intitule, Selection, Visible) VALUES (?, ?, 0, 1)");
        for (int i = 0; i < size.clubs; ++i) {
            club.text(1, club_code(i));
            club.text(2, QStringLiteral("Cercle des nageurs %1").arg(i + 1));
            club.run();
        }
    }
    {
        Insert lic(db, "INSERT INTO Licence (Code_club, Licence, Nom, Prenom, Sexe, Date_Naissance, Nationalite, Visible, Date_suppr) "
                       "VALUES (?, ?, ?, ?, ?, ?, 'FRA', 1, '')");
        for (int i = 0; i < size.licences; ++i) {
            lic.text(1, club_code(i % size.clubs));
            lic.text(2, QString::number(100000 + i));
            lic.text(3, QStringLiteral("%1 %2").arg(QLatin1String(names[rng() % 16])).arg(i));
            lic.text(4, QString::fromUtf8(firsts[rng() % 10]));
            lic.text(5, (i % 2) ? QStringLiteral("M") : QStringLiteral("F"));
            lic.text(6, QStringLiteral("%1%2%3").arg(1950 + int(rng() % 70)).arg(1 + rng() % 12, 2, 10, QLatin1Char('0')).arg(1 + rng() % 28, 2, 10, QLatin1Char('0')));
            lic.run();
        }
    }
    static const int events[] = {1, 2, 3, 4, 11, 12, 13, 21, 22, 23, 31, 32, 33, 41, 42};
    {
        Insert perf(db, "INSERT INTO Liffn (Code_epreuve, Code_club, Num_Lic, Type_bassin, Date_perf, Tps, Lieu, Age_perf, Num_compet) "
                        "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)");
        for (int i = 0; i < size.performances; ++i) {
            const int lic = 1 + int(rng() % size.licences);
            perf.integer(1, events[rng() % 15] + ((lic % 2) ? 50 : 0));
            perf.text(2, club_code((lic - 1) % size.clubs));
            perf.integer(3, lic);
            perf.integer(4, (rng() % 2) ? 25 : 50);
            perf.text(5, QStringLiteral("20%1%2%3").arg(10 + rng() % 16).arg(1 + rng() % 12, 2, 10, QLatin1Char('0')).arg(1 + rng() % 28, 2, 10, QLatin1Char('0')));
            perf.real(6, 0.25 + double(rng() % 500) / 100.0);
            perf.text(7, QStringLiteral("Piscine %1").arg(rng() % 300));
            perf.integer(8, 10 + int(rng() % 50));
            perf.integer(9, 1 + int(rng() % 500));
            perf.run();
        }
    }
    {
        Insert res(db, "INSERT INTO Prres (Num_compet, Code_epreuve, Num_Lic, Code_club, Tps, Cotation_FFN, Type_course, Numero_serie, Numero_couloir) "
                       "VALUES (?, ?, ?, ?, ?, ?, 'SER', ?, ?)");
        for (int i = 0; i < size.results; ++i) {
            const int lic = 1 + int(rng() % size.licences);
            res.integer(1, 1 + int(rng() % 200));
            res.integer(2, events[rng() % 15] + ((lic % 2) ? 50 : 0));
            res.integer(3, lic);
            res.text(4, club_code((lic - 1) % size.clubs));
            res.real(5, 0.25 + double(rng() % 500) / 100.0);
            res.integer(6, int(rng() % 1400));
            res.integer(7, 1 + int(rng() % 10));
            res.integer(8, 1 + int(rng() % 8));
            res.run();
        }
    }
    exec(db, "COMMIT");
    sqlite3_close(db);
}

LargePlace::LargePlace(const QString& name, const LargeBaseSize& size) : base(dir.filePath(name))
{
    QFile::copy(QStringLiteral(PLOUVARINE_MODEL_FILE), dir.filePath(QStringLiteral("modele_base.sav")));
    generate_large_base(QStringLiteral(PLOUVARINE_MODEL_FILE), base, size);
}

void open_large_base(AppContext& app, const LargePlace& place)
{
    app.state.base_path = place.base;
    app.state.model_path = app.app_file(QStringLiteral("modele_base.sav"));
    connect_base(app);
}

}  // namespace plouvarine::bench
