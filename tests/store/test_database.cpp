// The access layer on real bases made from the model base.

#include "src/base/errors.h"
#include "src/frame/access.h"
#include "src/store/collation.h"
#include "src/store/database.h"
#include "support/app_fixture.h"
#include "support/temp_files.h"

#include <QFile>
#include <sqlite3.h>

using namespace plouvarine;
using plouvarine::testing::AppFixture;
using plouvarine::testing::BaseHeldElsewhere;

namespace {

class DatabaseTest : public AppFixture {
protected:
    void SetUp() override
    {
        AppFixture::SetUp();
        base = make_base();
        connect(base);
    }
    QString base;
};

QString last_close(Database& db)
{
    return db.load_rows(QStringLiteral("select LastClose from Info")).first();
}

}  // namespace

TEST_F(DatabaseTest, ReadsEveryValueAsText)
{
    auto& db = app->db;
    db.exec_sql(QStringLiteral("INSERT INTO Piscine (Nom) VALUES ('O''Brien');"));
    // No rows: one empty column per selected field.
    Rows none = db.load_rows(QStringLiteral("select Num, Nom from Piscine where Nom = 'personne'"));
    EXPECT_EQ(none.column_count(), 2);
    EXPECT_EQ(none.size(), 0);
    EXPECT_TRUE(none.column(1).isEmpty());
    EXPECT_TRUE(none.first().isEmpty());

    // Apostrophes as stored.
    EXPECT_EQ(db.load_rows(QStringLiteral("select Nom from Piscine")).first(), QStringLiteral("O'Brien"));

    // Nulls read as the empty text, in every row.
    db.exec_sql(QStringLiteral("INSERT INTO Piscine (Nom) VALUES ('Deux');"));
    Rows nulls = db.load_rows(QStringLiteral("select NULL, Nom from Piscine order by Nom"));
    ASSERT_EQ(nulls.size(), 2);
    EXPECT_EQ(nulls.value(0, 0), QString());
    EXPECT_EQ(nulls.value(1, 0), QString());

    // Booleans in words, numbers in their plain form with a point.
    EXPECT_EQ(last_close(db), QStringLiteral("Vrai"));
    db.set_last_close(QStringLiteral("False"));
    EXPECT_EQ(last_close(db), QStringLiteral("Faux"));
    Rows numbers = db.load_rows(QStringLiteral("select Version, 1.2545, 3 * 2, 0.5 from Info"));
    EXPECT_EQ(numbers.value(0, 0), QStringLiteral("5"));
    EXPECT_EQ(numbers.value(0, 1), QStringLiteral("1.2545"));
    EXPECT_EQ(numbers.value(0, 2), QStringLiteral("6"));
    EXPECT_EQ(numbers.value(0, 3), QStringLiteral("0.5"));
}

TEST_F(DatabaseTest, CountQueryNeedsARow)
{
    EXPECT_EQ(app->db.count_query(QStringLiteral("select count(*) from Piscine")), 0);
    EXPECT_THROW(app->db.count_query(QStringLiteral("select Num from Piscine")), DbError);
    EXPECT_THROW(app->db.exec_sql(QStringLiteral("select * from TableAbsente")), DbError);
}

TEST_F(DatabaseTest, AStatementThatCannotRunIsShownAndGoesOn)
{
    const QString sql = QStringLiteral("select Nom from Piscine where Nom = 'O'Brien'");
    EXPECT_THROW(app->db.load_rows(sql), DbError);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].title, QStringLiteral("Erreur"));
    EXPECT_TRUE(ui.messages[0].text.startsWith(QStringLiteral("Erreur n° ")));
    EXPECT_TRUE(ui.messages[0].text.endsWith(QStringLiteral("\nLa requête suivante n'a pu être exécutée : ") + sql));
}

TEST_F(DatabaseTest, AppendGivesTheNewKey)
{
    const QString first = app->db.append_row(QStringLiteral("Piscine"), {{QStringLiteral("Nom"), QStringLiteral("Bassin A")}},
                                             QStringLiteral("Num"));
    const QString second = app->db.append_row(QStringLiteral("Piscine"), {{QStringLiteral("Nom"), QStringLiteral("Bassin B")}},
                                              QStringLiteral("Num"));
    EXPECT_FALSE(first.isEmpty());
    EXPECT_EQ(second.toInt(), first.toInt() + 1);
    EXPECT_EQ(app->db.load_rows(QStringLiteral("select Nom from Piscine where Num = ") + second).first(),
              QStringLiteral("Bassin B"));
    // Auto-numbers are not reused after a deletion.
    app->db.exec_sql(QStringLiteral("delete from Piscine where Num = ") + second);
    const QString third = app->db.append_row(QStringLiteral("Piscine"), {{QStringLiteral("Nom"), QStringLiteral("C")}},
                                             QStringLiteral("Num"));
    EXPECT_EQ(third.toInt(), second.toInt() + 1);
}

TEST_F(DatabaseTest, TextsCompareWithoutCaseAndSortAccentsWithTheirLetter)
{
    auto& db = app->db;
    for (const char* name : {"Enzo", "émile", "Emile", "zoé", "Éric", "eve"})
        db.exec_sql(QStringLiteral("INSERT INTO Piscine (Nom) VALUES ('%1');").arg(QString::fromUtf8(name)));
    EXPECT_EQ(db.count_query(QStringLiteral("select count(*) from Piscine where Nom = 'ENZO'")), 1);
    EXPECT_EQ(db.count_query(QStringLiteral("select count(*) from Piscine where Nom = 'ÉMILE'")), 1);
    const QStringList sorted = db.load_rows(QStringLiteral("select Nom from Piscine order by Nom")).column(0);
    EXPECT_EQ(sorted, (QStringList{QStringLiteral("Emile"), QStringLiteral("émile"), QStringLiteral("Enzo"),
                                   QStringLiteral("Éric"), QStringLiteral("eve"), QStringLiteral("zoé")}));
    EXPECT_LT(compare_texts(QStringLiteral("Emile"), QStringLiteral("Émile")), 0);
    EXPECT_EQ(compare_texts(QStringLiteral("HÉLÈNE"), QStringLiteral("hélène")), 0);
}

TEST_F(DatabaseTest, CloseWritesTheCleanCloseFlagOnce)
{
    app->db.set_last_close(QStringLiteral("false"));
    close_base(*app);
    EXPECT_FALSE(app->db.is_open());
    close_base(*app);  // nothing open: nothing written, no error

    // Connecting to another base closes the first one in good order.
    connect(base);
    app->db.set_last_close(QStringLiteral("false"));
    const QString other = make_base(QStringLiteral("autre.mdb"));
    connect(other);
    app->db.close();
    connect(base);
    EXPECT_EQ(last_close(app->db), QStringLiteral("Vrai"));
}

TEST_F(DatabaseTest, ACleanCloseLeavesOneFile)
{
    app->db.exec_sql(QStringLiteral("INSERT INTO Piscine (Nom) VALUES ('Bassin');"));
    EXPECT_TRUE(QFile::exists(Database::lock_path(base)));
    close_base(*app);
    for (const QString& s : Database::sibling_files(base))
        EXPECT_FALSE(QFile::exists(s)) << s.toStdString();
    EXPECT_FALSE(QFile::exists(Database::lock_path(base)));

    // A statement still unfinalized at the close, here one stopped half way
    // through its rows, does not keep the engine's files beside the base.
    connect(base);
    app->db.exec_sql(QStringLiteral("INSERT INTO Piscine (Nom) VALUES ('Bassin 2');"));
    sqlite3_stmt* pending = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(app->db.handle(), "select Nom from Piscine", -1, &pending, nullptr), SQLITE_OK);
    ASSERT_EQ(sqlite3_step(pending), SQLITE_ROW);
    ASSERT_TRUE(QFile::exists(base + QStringLiteral("-wal")));
    close_base(*app);
    for (const QString& s : Database::sibling_files(base))
        EXPECT_FALSE(QFile::exists(s)) << s.toStdString();
    connect(base);
    EXPECT_EQ(app->db.count_query(QStringLiteral("select count(*) from Piscine where Nom like 'Bassin%'")), 2);
}

TEST_F(DatabaseTest, TheLockTellsALiveBaseFromALeftover)
{
    close_base(*app);
    BaseHeldElsewhere other(base);
    EXPECT_TRUE(Database::lock_held(base));
    Database second;
    EXPECT_THROW(second.open(base), DbError);

    // Killed: the lock file stays behind, held by nobody.
    other.crash();
    EXPECT_TRUE(QFile::exists(Database::lock_path(base)));
    EXPECT_FALSE(Database::lock_held(base));
    EXPECT_NO_THROW(second.open(base));
    second.close();
}

// A text file named like a base is refused by the opening command's tests.
TEST_F(DatabaseTest, AMissingBaseIsRefusedAndNotCreated)
{
    close_base(*app);
    Database db;
    EXPECT_THROW(db.open(work_file(QStringLiteral("absente.mdb"))), DbError);
    EXPECT_FALSE(db.is_open());
    EXPECT_FALSE(QFile::exists(work_file(QStringLiteral("absente.mdb"))));
    EXPECT_FALSE(QFile::exists(Database::lock_path(work_file(QStringLiteral("absente.mdb")))));
}

TEST_F(DatabaseTest, ACompactedCopyGoesToAnyFileName)
{
    // The target is bound, not composed: quotes and semicolons in the name are plain characters.
    const QString source = make_base(QStringLiteral("source.mdb"));
    Database::compact_file(source, work_dir() + QStringLiteral("/l'été \"x\"; y.mdb"));
    Database copy;
    copy.open(work_dir() + QStringLiteral("/l'été \"x\"; y.mdb"));
    EXPECT_GT(copy.count_query(QStringLiteral("select count(*) from Nage")), 0);
    copy.close();
    EXPECT_THROW(Database::compact_file(source, work_dir() + QStringLiteral("/absent/c.mdb")), DbError);
}
