// The access layer on real bases made from the model base.

#include "src/base/errors.h"
#include "src/frame/access.h"
#include "src/store/collation.h"
#include "src/store/database.h"
#include "support/app_fixture.h"
#include "support/temp_files.h"

#include <QFile>
#include <sqlite3.h>

using namespace Qt::Literals::StringLiterals;
using namespace plouvarine;
using plouvarine::testing::AppFixture;
using plouvarine::testing::BaseHeldElsewhere;
using plouvarine::testing::row_texts;

namespace {

class DatabaseTest : public AppFixture {
protected:
    void SetUp() override
    {
        AppFixture::SetUp();
        base = make_base();
        connect(base);
    }
    // No file of the engine is left beside the base.
    void expect_no_siblings()
    {
        for (const QString& s : Database::sibling_files(base))
            EXPECT_FALSE(QFile::exists(s)) << s.toStdString();
    }
    QString base;
};

QString last_close(Database& db)
{
    return db.load_rows(u"select LastClose from Info"_s).first();
}

}  // namespace

TEST_F(DatabaseTest, ReadsEveryValueAsText)
{
    auto& db = app->db;
    db.exec_sql(u"INSERT INTO Piscine (Nom) VALUES ('O''Brien');"_s);
    // No rows: one empty column per selected field.
    Rows none = db.load_rows(u"select Num, Nom from Piscine where Nom = 'personne'"_s);
    EXPECT_EQ(QList<int>({none.column_count(), none.size()}), QList<int>({2, 0}));
    EXPECT_TRUE(none.column(1).isEmpty());
    EXPECT_TRUE(none.first().isEmpty());

    // Apostrophes as stored; nulls read as the empty text, in every row.
    db.exec_sql(u"INSERT INTO Piscine (Nom) VALUES ('Deux');"_s);
    EXPECT_EQ(row_texts(db.load_rows(u"select NULL, Nom from Piscine order by Nom"_s), u'|'),
              QStringList({u"|Deux"_s, u"|O'Brien"_s}));

    // Booleans in words, numbers in their plain form with a point.
    EXPECT_EQ(last_close(db), u"Vrai"_s);
    db.set_last_close(u"False"_s);
    EXPECT_EQ(last_close(db), u"Faux"_s);
    EXPECT_EQ(row_texts(db.load_rows(u"select Version, 1.2545, 3 * 2, 0.5 from Info"_s), u'|'),
              QStringList{u"5|1.2545|6|0.5"_s});
}

TEST_F(DatabaseTest, AStatementThatCannotRunIsShownAndGoesOn)
{
    EXPECT_EQ(app->db.count_query(u"select count(*) from Piscine"_s), 0);
    EXPECT_THROW(app->db.count_query(u"select Num from Piscine"_s), DbError);  // no row to count
    EXPECT_THROW(app->db.exec_sql(u"select * from TableAbsente"_s), DbError);

    ui.clear();
    const QString sql = u"select Nom from Piscine where Nom = 'O'Brien'"_s;
    EXPECT_THROW(app->db.load_rows(sql), DbError);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].title, u"Erreur"_s);
    EXPECT_TRUE(ui.messages[0].text.startsWith(u"Erreur n° "_s));
    EXPECT_TRUE(ui.messages[0].text.endsWith(u"\nLa requête suivante n'a pu être exécutée : "_s + sql));
}

TEST_F(DatabaseTest, AppendGivesTheNewKeyAndNeverReusesOne)
{
    const auto append = [&](const QString& name) {
        return app->db.append_row(u"Piscine"_s, {{u"Nom"_s, name}}, u"Num"_s);
    };
    const QString first = append(u"Bassin A"_s);
    const QString second = append(u"Bassin B"_s);
    EXPECT_FALSE(first.isEmpty());
    EXPECT_EQ(second.toInt(), first.toInt() + 1);
    EXPECT_EQ(app->db.load_rows(u"select Nom from Piscine where Num = "_s + second).first(), u"Bassin B"_s);
    app->db.exec_sql(u"delete from Piscine where Num = "_s + second);
    EXPECT_EQ(append(u"C"_s).toInt(), second.toInt() + 1);
}

TEST_F(DatabaseTest, TextsCompareWithoutCaseAndSortAccentsWithTheirLetter)
{
    auto& db = app->db;
    for (const char* name : {"Enzo", "émile", "Emile", "zoé", "Éric", "eve"})
        db.exec_sql(u"INSERT INTO Piscine (Nom) VALUES ('%1');"_s.arg(QString::fromUtf8(name)));
    EXPECT_EQ(db.count_query(u"select count(*) from Piscine where Nom = 'ENZO'"_s), 1);
    EXPECT_EQ(db.count_query(u"select count(*) from Piscine where Nom = 'ÉMILE'"_s), 1);
    EXPECT_EQ(db.load_rows(u"select Nom from Piscine order by Nom"_s).column(0),
              QStringList({u"Emile"_s, u"émile"_s, u"Enzo"_s, u"Éric"_s, u"eve"_s, u"zoé"_s}));
    EXPECT_LT(compare_texts(u"Emile"_s, u"Émile"_s), 0);
    EXPECT_EQ(compare_texts(u"HÉLÈNE"_s, u"hélène"_s), 0);
}

TEST_F(DatabaseTest, ACleanCloseWritesItsFlagOnceAndLeavesOneFile)
{
    app->db.exec_sql(u"INSERT INTO Piscine (Nom) VALUES ('Bassin');"_s);
    app->db.set_last_close(u"false"_s);
    EXPECT_TRUE(QFile::exists(Database::lock_path(base)));
    close_base(*app);
    EXPECT_FALSE(app->db.is_open());
    expect_no_siblings();
    EXPECT_FALSE(QFile::exists(Database::lock_path(base)));
    close_base(*app);  // nothing open: nothing written, no error

    // Connecting to another base closes the first one in good order.
    connect(base);
    EXPECT_EQ(last_close(app->db), u"Vrai"_s);
    app->db.set_last_close(u"false"_s);
    connect(make_base(u"autre.mdb"_s));
    app->db.close();
    connect(base);
    EXPECT_EQ(last_close(app->db), u"Vrai"_s);

    // A statement still unfinalized at the close, here one stopped half way
    // through its rows, does not keep the engine's files beside the base.
    app->db.exec_sql(u"INSERT INTO Piscine (Nom) VALUES ('Bassin 2');"_s);
    sqlite3_stmt* pending = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(app->db.handle(), "select Nom from Piscine", -1, &pending, nullptr), SQLITE_OK);
    ASSERT_EQ(sqlite3_step(pending), SQLITE_ROW);
    ASSERT_TRUE(QFile::exists(base + u"-wal"_s));
    close_base(*app);
    expect_no_siblings();
    connect(base);
    EXPECT_EQ(app->db.count_query(u"select count(*) from Piscine where Nom like 'Bassin%'"_s), 2);
}

TEST_F(DatabaseTest, TheLockTellsALiveBaseFromALeftoverAndAMissingBaseIsNotCreated)
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

    // A text file named like a base is refused by the opening command's tests.
    const QString absent = work_file(u"absente.mdb"_s);
    EXPECT_THROW(second.open(absent), DbError);
    EXPECT_FALSE(second.is_open());
    EXPECT_FALSE(QFile::exists(absent));
    EXPECT_FALSE(QFile::exists(Database::lock_path(absent)));
}

TEST_F(DatabaseTest, ACompactedCopyGoesToAnyFileName)
{
    // The target is bound, not composed: quotes and semicolons in the name are plain characters.
    const QString source = make_base(u"source.mdb"_s);
    const QString target = work_dir() + u"/l'été \"x\"; y.mdb"_s;
    Database::compact_file(source, target);
    Database copy;
    copy.open(target);
    EXPECT_GT(copy.count_query(u"select count(*) from Nage"_s), 0);
    copy.close();
    EXPECT_THROW(Database::compact_file(source, work_dir() + u"/absent/c.mdb"_s), DbError);
}
