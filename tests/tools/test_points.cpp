// The points component against the points World Aquatics' scoring gave to
// real swims, both ways, and what it does with what is no time or no points.

#include "points_fixture.h"
#include "src/base/text.h"
#include "src/base/utils_time.h"
#include "src/tools/calcul_points.h"
#include "support/temp_files.h"

#include <QFile>

using namespace plouvarine;
using namespace plouvarine::testing;

namespace {

class PointsTest : public AppFixture {
protected:
    void SetUp() override
    {
        AppFixture::SetUp();
        install_points_component(*app);
    }
    PointsCalculator& calcul()
    {
        PointsCalculator* c = cree_calcul_points(*app);
        EXPECT_NE(c, nullptr);
        return *c;
    }
};

// Swims of two meets published with their points on the 2023 table, in the
// results files themselves (Lenex POINTTABLE "FINA Point Scoring" 2023):
// Erlangen 2025 (50 m) and Campeonato Sulbrasileiro 2024 (25 m).
struct Published {
    int bassin;
    qint16 code;  // the catalogue's event
    const char* time;  // m.sscc
    int points;
};
constexpr Published kPublished[] = {
    {50, 73, "3.1102", 286},  // 200 m brasse Messieurs, 3:11.02
    {50, 54, "5.5931", 229},  // 400 m n.l. Messieurs
    {50, 62, "1.3131", 180},  // 100 m dos Messieurs
    {50, 71, "0.3443", 428},  // 50 m brasse Messieurs
    {50, 1, "1.1421", 32},    // 50 m n.l. Dames
    {50, 23, "2.5704", 483},  // 200 m brasse Dames
    {50, 41, "3.1778", 259},  // 200 m 4 nages Dames
    {50, 9, "8.5373", 637},   // 4x200 m n.l. Dames
    {50, 59, "9.5011", 356},  // 4x200 m n.l. Messieurs
    {25, 3, "3.0448", 213},   // 200 m n.l. Dames
    {25, 12, "1.1452", 399},  // 100 m dos Dames
    {25, 4, "5.4064", 313},   // 400 m n.l. Dames
    {25, 81, "0.4560", 108},  // 50 m papillon Messieurs
    {25, 90, "1.3510", 139},  // 100 m 4 nages Messieurs
    {25, 7, "2.1655", 310},   // 4x50 m n.l. Dames
    {25, 57, "1.5797", 333},  // 4x50 m n.l. Messieurs
    {25, 43, "2.2563", 347},  // 4x50 m 4 nages Dames
    {25, 45, "2.0515", 339},  // 4x50 m n.l. Mixte
    {25, 48, "2.1534", 347},  // 4x50 m 4 nages Mixte
};

TEST_F(PointsTest, GivesThePublishedPointsAndTheTimeBackForBothCoursesSexesAndRelays)
{
    PointsCalculator& c = calcul();
    EXPECT_EQ(c.table_name(), QStringLiteral("World Aquatics Points 2023"));
    for (const Published& p : kPublished) {
        SCOPED_TRACE(std::to_string(p.code) + " " + p.time);
        EXPECT_EQ(c.CalculPoint(text_to_double(QLatin1String(p.time)), p.code, p.bassin), p.points);
        // The time given for those points is worth them, and one hundredth
        // slower is not.
        const QString time = c.CalculTps(qint16(p.points), p.code, p.bassin);
        ASSERT_FALSE(time.isEmpty());
        EXPECT_GE(text_to_double(time), text_to_double(QLatin1String(p.time)));
        EXPECT_EQ(c.CalculPoint(text_to_double(time), p.code, p.bassin), p.points);
    }
    // The base time itself is worth 1000: 100 m n.l. Messieurs, 46.86 in
    // 50 m, 44.84 in 25 m.
    EXPECT_EQ(c.CalculPoint(0.4686, 52, 50), 1000);
    EXPECT_EQ(c.CalculPoint(0.4687, 52, 50), 999);
    EXPECT_EQ(c.CalculPoint(0.4484, 52, 25), 1000);
}

TEST_F(PointsTest, PointsAndTimesAreInverseOverTheWholeRange)
{
    PointsCalculator& c = calcul();
    for (const qint16 code : {qint16(1), qint16(56), qint16(44), qint16(94), qint16(91)}) {
        for (int bassin : {25, 50}) {
            for (int points = 1; points <= PointsCalculator::kMaxPoints; points += 7) {
                const QString time = c.CalculTps(qint16(points), code, bassin);
                ASSERT_FALSE(time.isEmpty()) << code << " " << bassin << " " << points;
                const double t = text_to_double(time);
                // The slowest time worth the points: near the top one
                // hundredth is worth more than one point.
                EXPECT_GE(c.CalculPoint(t, code, bassin), points);
                const double slower = text_to_double(ajoute_temps(t, 0.0001));
                EXPECT_LT(c.CalculPoint(slower, code, bassin), points) << time.toStdString();
            }
        }
    }
}

TEST_F(PointsTest, NothingForWhatIsNoTimeOrNoPoints)
{
    PointsCalculator& c = calcul();
    for (int points : {0, -5, 5000, PointsCalculator::kMaxPoints + 1})
        EXPECT_TRUE(c.CalculTps(qint16(points), 52, 50).isEmpty()) << points;
    // Ten times the base time is worth 1 point, slower than that nothing.
    EXPECT_EQ(c.CalculPoint(7.4860, 52, 50), 1);
    // No time; slower than ten times the base time; minutes beyond 16 bits; the
    // 25 m and the 100 m 4 nages with no base time in 50 m; an unknown pool or event.
    const std::tuple<double, qint16, int> nothing[] = {{0, 52, 50},      {-1.0, 52, 50},   {9.0, 52, 50},
                                                       {99999.0, 52, 50}, {0.15, 0, 25},    {1.0, 40, 50},
                                                       {1.0, 52, 33},     {1.0, 123, 50}};
    for (const auto& [time, code, bassin] : nothing)
        EXPECT_EQ(c.CalculPoint(time, code, bassin), 0) << time << " " << code << " " << bassin;
    EXPECT_TRUE(c.CalculTps(500, 40, 50).isEmpty());
}

TEST_F(PointsTest, AMissingOrDamagedTableIsAMissingComponent)
{
    const QString table = points_table_path(*app);
    ASSERT_TRUE(QFile::remove(table));
    QString why;
    EXPECT_EQ(cree_calcul_points(*app, &why), nullptr);
    EXPECT_TRUE(why.contains(QStringLiteral("introuvable")));
    ASSERT_EQ(ui.texts(), QStringList{kCalculPointsIndisponible});

    for (const QByteArray& damaged : {QByteArray("PK\x03\x04 not a table"),
                                      QByteArray("# table: X\nLCM;M;1;100;FREE;vite\n"),
                                      QByteArray("LCM;M;1;100;FREE;46.86\n")}) {
        ASSERT_TRUE(write_bytes(table, damaged));
        EXPECT_EQ(cree_calcul_points(*app, &why), nullptr) << damaged.toStdString();
    }
    EXPECT_EQ(ui.titled(QStringLiteral("Erreur")).size(), 4u);

    // Without the plugin itself, the same message.
    ASSERT_TRUE(QFile::remove(app->app_file(component_file(QStringLiteral("calpts.dll")))));
    EXPECT_EQ(cree_calcul_points(*app, &why), nullptr);
    EXPECT_EQ(ui.titled(QStringLiteral("Erreur")).size(), 5u);
}

}  // namespace
