// The demo base the build makes: the model base's schema, opened by the
// ordinary Open path without a question, and holding what the guide says.

#include "src/frame/base_commands.h"
#include "src/subjects.h"
#include "src/store/database.h"
#include "support/app_fixture.h"
#include "support/temp_files.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QSet>
#include <QRegularExpression>
#include <sqlite3.h>

using namespace plouvarine;
using plouvarine::testing::AppFixture;
using plouvarine::testing::model_file;

namespace {

const QString kDemo = QStringLiteral(PLOUVARINE_DEMO_FILE);
const QString kGuideChapter = QStringLiteral(PLOUVARINE_SOURCE_DIR "/docs/guide/02-premiere-base.md");
const QString kClub = QStringLiteral("FRA2210290042");

// Every table, index and trigger of a base file, with its SQL, by name.
QStringList schema_of(const QString& path)
{
    sqlite3* db = nullptr;
    QStringList lines;
    if (sqlite3_open_v2(path.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK) {
        sqlite3_stmt* st = nullptr;
        sqlite3_prepare_v2(db, "SELECT type, name, sql FROM sqlite_master WHERE name NOT LIKE 'sqlite_%' ORDER BY name",
                           -1, &st, nullptr);
        while (sqlite3_step(st) == SQLITE_ROW)
            lines << QStringLiteral("%1 %2: %3")
                         .arg(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 0))),
                              QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 1))),
                              QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 2))));
        sqlite3_finalize(st);
    }
    sqlite3_close(db);
    return lines;
}

// The table of the guide that tells what the demo base holds: label and number.
std::vector<std::pair<QString, int>> guide_counts()
{
    QFile f(kGuideChapter);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    std::vector<std::pair<QString, int>> rows;
    bool in_table = false;
    const QRegularExpression row(QStringLiteral("^\\|\\s*(.+?)\\s*\\|\\s*(\\d+)\\s*\\|$"));
    for (const QString& line : QString::fromUtf8(f.readAll()).split(u'\n')) {
        if (line.startsWith(QStringLiteral("| Dans la base de démonstration")))
            in_table = true;
        else if (in_table && !line.startsWith(u'|'))
            break;
        else if (const auto m = row.match(line.trimmed()); in_table && m.hasMatch())
            rows.emplace_back(m.captured(1), m.captured(2).toInt());
    }
    return rows;
}

class DemoBase : public AppFixture {
protected:
    void SetUp() override
    {
        AppFixture::SetUp();
        ASSERT_TRUE(QFile::exists(kDemo)) << "demo base not built: " << kDemo.toStdString();
        install_subject_hooks(*app);
        base_ = make_base(QStringLiteral("demo.mdb"));
        QFile::remove(base_);
        ASSERT_TRUE(QFile::copy(kDemo, base_));
        QFile::setPermissions(base_, QFile::permissions(base_) | QFileDevice::WriteOwner);
    }
    int count(const QString& sql) { return app->db.count_query(sql); }
    QString base_;
};

TEST_F(DemoBase, HasTheModelSchemaAndOpensByTheOrdinaryPathWithoutAQuestion)
{
    EXPECT_EQ(schema_of(base_), schema_of(model_file()));
    ui.files.push_back(base_);
    open_base_command(*app);
    EXPECT_TRUE(ui.messages.empty()) << ui.messages.front().text.toStdString();
    EXPECT_TRUE(ui.shown_views.isEmpty()) << ui.shown_views.join(u' ').toStdString();
    ASSERT_TRUE(app->db.is_open());
    EXPECT_EQ(app->state.club_code, kClub);
    EXPECT_EQ(app->state.profile_name, QStringLiteral("Secrétariat"));
    // The sentinels were there already: the opening made none.
    EXPECT_EQ(count(QStringLiteral("select count(*) from Licence where Nom = 'Null'")), 1);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Piscine where Nom = 'Null'")), 1);
    EXPECT_EQ(app->state.num_lic_nulle,
              app->db.load_rows(QStringLiteral("select Num from Licence where Nom = 'Null'")).first());
    EXPECT_EQ(app->db.load_rows(QStringLiteral("pragma integrity_check")).first(), QStringLiteral("ok"));
}

TEST_F(DemoBase, HoldsWhatTheGuideSays)
{
    connect(base_);
    const QString club = QStringLiteral("'") + kClub + QStringLiteral("'");
    const std::map<QString, QString> queries = {
        {QStringLiteral("Nageuses et nageurs du club"),
         QStringLiteral("select count(*) from Licence where Code_club = %1 and Nom <> 'Null'").arg(club)},
        {QStringLiteral("dont nageuses"),
         QStringLiteral("select count(*) from Licence where Code_club = %1 and Sexe = 'F'").arg(club)},
        {QStringLiteral("Dirigeants"), QStringLiteral("select count(*) from Dirigeant")},
        {QStringLiteral("Tarifs de cotisation"), QStringLiteral("select count(*) from Tarifs")},
        {QStringLiteral("Activités"), QStringLiteral("select count(*) from Activites")},
        {QStringLiteral("Piscines"), QStringLiteral("select count(*) from Piscine where Nom <> 'Null'")},
        {QStringLiteral("Profils"), QStringLiteral("select count(*) from Profil")},
        {QStringLiteral("Membres de la sélection départementale"), QStringLiteral("select count(*) from Selection")},
        {QStringLiteral("Clubs adverses, ajoutés par l'import des résultats"),
         QStringLiteral("select count(*) from Club where Selection = false and Code_federal <> %1").arg(club)},
        {QStringLiteral("Compétitions passées, avec programme, engagements et relais"),
         QStringLiteral("select count(*) from Rcomp where Deroule = true and Visible = false and AutoNum in "
                        "(select Num_compet from Pcomp) and AutoNum in (select Num_compet from Engag) and AutoNum in "
                        "(select Num_compet from Relais)")},
        // What the results browser lists: taken place, shown, with results.
        {QStringLiteral("Compétitions de résultats importés"),
         QStringLiteral("select count(*) from Rcomp where Deroule = true and Visible = true and AutoNum in "
                        "(select Num_compet from Prres) and AutoNum in (select Num_compet from Prres_relais) and "
                        "AutoNum in (select Num_compet from Categori) and Nom <> '' and Longueur > 0")},
        {QStringLiteral("Interclubs à venir"),
         QStringLiteral("select count(*) from Rcomp where Type = 'I' and Deroule = false and Visible = true")},
        {QStringLiteral("Équipes engagées à l'interclub"),
         QStringLiteral("select sum(Eq_Homme + Eq_Femme + Eq_Mixte) from Engag_equipe")},
        {QStringLiteral("Saisons de performances"),
         QStringLiteral("select count(distinct case when substr(Date_perf, 5, 4) >= '0916' then substr(Date_perf, 1, 4) + 0 "
                        "else substr(Date_perf, 1, 4) - 1 end) from Liffn")},
        {QStringLiteral("Catégories de records"), QStringLiteral("select count(*) from Categori_record_club")},
    };
    const auto rows = guide_counts();
    ASSERT_GE(rows.size(), queries.size()) << "table not found in " << kGuideChapter.toStdString();
    for (const auto& [label, number] : rows) {
        const auto it = queries.find(label);
        ASSERT_NE(it, queries.end()) << "no query for the guide's line: " << label.toStdString();
        EXPECT_EQ(count(it->second), number) << label.toStdString();
    }
    // Ages 8 to 40 on the day of the build (a year older at most since).
    const Rows ages = app->db.load_rows(
        QStringLiteral("select max(Date_Naissance), min(Date_Naissance) from Licence where Code_club = %1 and Nom <> 'Null'")
            .arg(club));
    const auto age = [](const QString& birth) {
        const QDate b = QDate::fromString(birth, QStringLiteral("yyyyMMdd"));
        const QDate today = QDate::currentDate();
        return today.year() - b.year() - (QDate(today.year(), b.month(), 1).addDays(b.day() - 1) > today ? 1 : 0);
    };
    const int youngest = age(ages.value(0, 0)), oldest = age(ages.value(0, 1));
    EXPECT_TRUE(youngest == 8 || youngest == 9) << youngest;
    EXPECT_TRUE(oldest == 40 || oldest == 41) << oldest;
    EXPECT_GT(count(QStringLiteral("select count(*) from RecordClub where Nom in (select Nom from Licence where "
                                   "Code_club = %1)")
                        .arg(club)),
              50);
}

}  // namespace

namespace {

// Every picture a chapter shows is in the guide's images, and small enough
// for the repository; every picture there is shown somewhere.
TEST(UserGuide, ShowsEveryPictureItHasAndHasEveryPictureItShows)
{
    const QDir guide(QStringLiteral(PLOUVARINE_SOURCE_DIR "/docs/guide"));
    const QStringList chapters = guide.entryList({QStringLiteral("[0-9][0-9]-*.md")}, QDir::Files, QDir::Name);
    ASSERT_EQ(chapters.size(), 11);
    QSet<QString> shown;
    const QRegularExpression picture(QStringLiteral("!\\[[^\\]]*\\]\\(images/([^)]+)\\)"));
    for (const QString& chapter : chapters) {
        QFile f(guide.filePath(chapter));
        ASSERT_TRUE(f.open(QIODevice::ReadOnly));
        for (const auto& m : picture.globalMatch(QString::fromUtf8(f.readAll())))
            shown.insert(m.captured(1));
    }
    QSet<QString> present;
    for (const QFileInfo& png : QDir(guide.filePath(QStringLiteral("images"))).entryInfoList({QStringLiteral("*.png")})) {
        present.insert(png.fileName());
        EXPECT_LT(png.size(), 250 * 1024) << png.fileName().toStdString();
    }
    EXPECT_EQ(shown, present);
}

}  // namespace

namespace {

int run_make_demo(const QStringList& args)
{
    QProcess p;
    p.start(QStringLiteral(PLOUVARINE_MAKE_DEMO), args);
    if (!p.waitForFinished(120000))
        return -1;
    return p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
}

// The generator draws from a fixed seed: one day gives one base, its swimmers
// from 8 to 40 years old that day. A model it cannot read, or a folder it
// cannot write, leaves no base behind.
TEST(MakeDemo, OneDayGivesOneBaseAndAFailureLeavesNone)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString first = dir.filePath(QStringLiteral("a.mdb")), second = dir.filePath(QStringLiteral("b.mdb"));
    ASSERT_EQ(run_make_demo({model_file(), first, dir.filePath(QStringLiteral("lenex_a")), QStringLiteral("20270301")}), 0);
    ASSERT_EQ(run_make_demo({model_file(), second, dir.filePath(QStringLiteral("lenex_b")), QStringLiteral("20270301")}), 0);
    QFile a(first), b(second);
    ASSERT_TRUE(a.open(QIODevice::ReadOnly) && b.open(QIODevice::ReadOnly));
    EXPECT_TRUE(a.readAll() == b.readAll());
    {
        Database db;
        db.open(first);
        const Rows ages = db.load_rows(QStringLiteral(
            "select max(Date_Naissance), min(Date_Naissance) from Licence where Code_club = 'FRA2210290042' and Nom <> 'Null'"));
        db.close();
        EXPECT_GT(ages.value(0, 0), QStringLiteral("20180301"));
        EXPECT_LE(ages.value(0, 0), QStringLiteral("20190301"));
        EXPECT_GT(ages.value(0, 1), QStringLiteral("19860301"));
        EXPECT_LE(ages.value(0, 1), QStringLiteral("19870301"));
    }

    const QString missing = dir.filePath(QStringLiteral("missing.mdb"));
    EXPECT_EQ(run_make_demo({dir.filePath(QStringLiteral("no_model.sav")), missing, dir.filePath(QStringLiteral("l"))}), 1);
    EXPECT_FALSE(QFile::exists(missing));
    // A model that is no base: the generator stops and takes its work away.
    const QString garbage = dir.filePath(QStringLiteral("garbage.sav"));
    ASSERT_TRUE(plouvarine::testing::write_bytes(garbage, QByteArray(4096, 'x')));
    EXPECT_EQ(run_make_demo({garbage, missing, dir.filePath(QStringLiteral("l"))}), 1);
    EXPECT_FALSE(QFile::exists(missing));
    EXPECT_FALSE(QFile::exists(missing + QStringLiteral(".building")));
}

}  // namespace
