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
using namespace Qt::Literals::StringLiterals;
using plouvarine::testing::AppFixture;
using plouvarine::testing::model_file;

namespace {

const QString kDemo = QStringLiteral(PLOUVARINE_DEMO_FILE);
const QString kGuideChapter = QStringLiteral(PLOUVARINE_SOURCE_DIR "/docs/guide/02-premiere-base.md");
const QString kClub = u"FRA2210290042"_s;

// Every table, index and trigger of a base file, with its SQL, by name.
QStringList schema_of(const QString& path)
{
    sqlite3* db = nullptr;
    QStringList lines;
    if (sqlite3_open_v2(path.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK)
        sqlite3_exec(
            db, "SELECT type || ' ' || name || ': ' || sql FROM sqlite_master WHERE name NOT LIKE 'sqlite_%' "
                "ORDER BY name",
            [](void* out, int, char** values, char**) {
                *static_cast<QStringList*>(out) << QString::fromUtf8(values[0]);
                return 0;
            },
            &lines, nullptr);
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
    const QRegularExpression row(u"^\\|\\s*(.+?)\\s*\\|\\s*(\\d+)\\s*\\|$"_s);
    for (const QString& line : QString::fromUtf8(f.readAll()).split(u'\n')) {
        if (line.startsWith(u"| Dans la base de démonstration"_s))
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
        base_ = work_file(u"demo.mdb"_s);
        ASSERT_TRUE(QFile::copy(kDemo, base_));
        QFile::setPermissions(base_, QFile::permissions(base_) | QFileDevice::WriteOwner);
    }
    int count(const QString& sql) { return app->db.count_query(sql); }
    QString base_;
};

TEST_F(DemoBase, HasTheModelSchemaAndOpensByTheOrdinaryPathWithoutAQuestion)
{
    const QStringList schema = schema_of(model_file());
    ASSERT_GT(schema.size(), 10);
    EXPECT_EQ(schema_of(base_), schema);
    ui.files.push_back(base_);
    open_base_command(*app);
    EXPECT_TRUE(ui.messages.empty()) << ui.messages.front().text.toStdString();
    EXPECT_TRUE(ui.shown_views.isEmpty()) << ui.shown_views.join(u' ').toStdString();
    ASSERT_TRUE(app->db.is_open());
    EXPECT_EQ(app->state.club_code, kClub);
    EXPECT_EQ(app->state.profile_name, u"Secrétariat"_s);
    // The sentinels were there already: the opening made none.
    EXPECT_EQ(count(u"select count(*) from Licence where Nom = 'Null'"_s), 1);
    EXPECT_EQ(count(u"select count(*) from Piscine where Nom = 'Null'"_s), 1);
    EXPECT_EQ(app->state.num_lic_nulle, app->db.load_rows(u"select Num from Licence where Nom = 'Null'"_s).first());
    EXPECT_EQ(app->db.load_rows(u"pragma integrity_check"_s).first(), u"ok"_s);
}

TEST_F(DemoBase, HoldsWhatTheGuideSays)
{
    connect(base_);
    const QString club = u"'"_s + kClub + u"'"_s;
    const std::map<QString, QString> queries = {
        {u"Nageuses et nageurs du club"_s,
         u"select count(*) from Licence where Code_club = %1 and Nom <> 'Null'"_s.arg(club)},
        {u"dont nageuses"_s, u"select count(*) from Licence where Code_club = %1 and Sexe = 'F'"_s.arg(club)},
        {u"Dirigeants"_s, u"select count(*) from Dirigeant"_s},
        {u"Tarifs de cotisation"_s, u"select count(*) from Tarifs"_s},
        {u"Activités"_s, u"select count(*) from Activites"_s},
        {u"Piscines"_s, u"select count(*) from Piscine where Nom <> 'Null'"_s},
        {u"Profils"_s, u"select count(*) from Profil"_s},
        {u"Membres de la sélection départementale"_s, u"select count(*) from Selection"_s},
        {u"Clubs adverses, ajoutés par l'import des résultats"_s,
         u"select count(*) from Club where Selection = false and Code_federal <> %1"_s.arg(club)},
        {u"Compétitions passées, avec programme, engagements et relais"_s,
         QStringLiteral("select count(*) from Rcomp where Deroule = true and Visible = false and AutoNum in "
                        "(select Num_compet from Pcomp) and AutoNum in (select Num_compet from Engag) and AutoNum in "
                        "(select Num_compet from Relais)")},
        // What the results browser lists: taken place, shown, with results.
        {u"Compétitions de résultats importés"_s,
         QStringLiteral("select count(*) from Rcomp where Deroule = true and Visible = true and AutoNum in "
                        "(select Num_compet from Prres) and AutoNum in (select Num_compet from Prres_relais) and "
                        "AutoNum in (select Num_compet from Categori) and Nom <> '' and Longueur > 0")},
        {u"Interclubs à venir"_s,
         u"select count(*) from Rcomp where Type = 'I' and Deroule = false and Visible = true"_s},
        {u"Équipes engagées à l'interclub"_s,
         u"select sum(Eq_Homme + Eq_Femme + Eq_Mixte) from Engag_equipe"_s},
        {u"Saisons de performances"_s,
         QStringLiteral("select count(distinct case when substr(Date_perf, 5, 4) >= '0916' then substr(Date_perf, 1, 4) + 0 "
                        "else substr(Date_perf, 1, 4) - 1 end) from Liffn")},
        {u"Catégories de records"_s, u"select count(*) from Categori_record_club"_s},
    };
    const auto rows = guide_counts();
    ASSERT_GE(rows.size(), queries.size()) << "table not found in " << kGuideChapter.toStdString();
    for (const auto& [label, number] : rows) {
        const auto it = queries.find(label);
        ASSERT_NE(it, queries.end()) << "no query for the guide's line: " << label.toStdString();
        EXPECT_EQ(count(it->second), number) << label.toStdString();
    }
    EXPECT_GT(count(QStringLiteral("select count(*) from RecordClub where Nom in (select Nom from Licence where "
                                   "Code_club = %1)")
                        .arg(club)),
              50);
}

// Every picture a chapter shows is in the guide's images, and small enough
// for the repository; every picture there is shown somewhere.
TEST(UserGuide, ShowsEveryPictureItHasAndHasEveryPictureItShows)
{
    const QDir guide(QStringLiteral(PLOUVARINE_SOURCE_DIR "/docs/guide"));
    const QStringList chapters = guide.entryList({u"[0-9][0-9]-*.md"_s}, QDir::Files, QDir::Name);
    ASSERT_EQ(chapters.size(), 11);
    QSet<QString> shown;
    const QRegularExpression picture(u"!\\[[^\\]]*\\]\\(images/([^)]+)\\)"_s);
    for (const QString& chapter : chapters) {
        QFile f(guide.filePath(chapter));
        ASSERT_TRUE(f.open(QIODevice::ReadOnly));
        for (const auto& m : picture.globalMatch(QString::fromUtf8(f.readAll())))
            shown.insert(m.captured(1));
    }
    QSet<QString> present;
    for (const QFileInfo& png : QDir(guide.filePath(u"images"_s)).entryInfoList({u"*.png"_s})) {
        present.insert(png.fileName());
        EXPECT_LT(png.size(), 250 * 1024) << png.fileName().toStdString();
    }
    EXPECT_EQ(shown, present);
}

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
    const QString first = dir.filePath(u"a.mdb"_s), second = dir.filePath(u"b.mdb"_s);
    ASSERT_EQ(run_make_demo({model_file(), first, dir.filePath(u"lenex_a"_s), u"20270301"_s}), 0);
    ASSERT_EQ(run_make_demo({model_file(), second, dir.filePath(u"lenex_b"_s), u"20270301"_s}), 0);
    QFile a(first), b(second);
    ASSERT_TRUE(a.open(QIODevice::ReadOnly) && b.open(QIODevice::ReadOnly));
    EXPECT_TRUE(a.readAll() == b.readAll());
    {
        Database db;
        db.open(first);
        const Rows ages = db.load_rows(QStringLiteral(
            "select max(Date_Naissance), min(Date_Naissance) from Licence where Code_club = 'FRA2210290042' and Nom <> 'Null'"));
        db.close();
        EXPECT_GT(ages.value(0, 0), u"20180301"_s);
        EXPECT_LE(ages.value(0, 0), u"20190301"_s);
        EXPECT_GT(ages.value(0, 1), u"19860301"_s);
        EXPECT_LE(ages.value(0, 1), u"19870301"_s);
    }

    const QString missing = dir.filePath(u"missing.mdb"_s);
    EXPECT_EQ(run_make_demo({dir.filePath(u"no_model.sav"_s), missing, dir.filePath(u"l"_s)}), 1);
    EXPECT_FALSE(QFile::exists(missing));
    // A model that is no base: the generator stops and takes its work away.
    const QString garbage = dir.filePath(u"garbage.sav"_s);
    ASSERT_TRUE(plouvarine::testing::write_bytes(garbage, QByteArray(4096, 'x')));
    EXPECT_EQ(run_make_demo({garbage, missing, dir.filePath(u"l"_s)}), 1);
    EXPECT_FALSE(QFile::exists(missing));
    EXPECT_FALSE(QFile::exists(missing + u".building"_s));
}

}  // namespace
