// The series of the progression chart, built from the swims read in the base:
// the two pools apart, the seasons' openings, the best of each season.

#include "perf_test_base.h"

#include "src/results/perf_progression.h"
#include "support/temp_files.h"

using namespace plouvarine;

namespace {

// Each point as "date pool time seconds".
QStringList points(const std::vector<ProgressionPoint>& list)
{
    QStringList out;
    for (const ProgressionPoint& p : list)
        out << QStringLiteral("%1 %2 %3 %4").arg(p.date.toString(Qt::ISODate)).arg(p.pool).arg(p.time).arg(p.seconds);
    return out;
}

class ProgressionTest : public plouvarine::testing::PerfBase {};

TEST_F(ProgressionTest, SeriesFromTheSwimsOfOneEvent)
{
    const QString anne = swimmer(QStringLiteral("Abgrall"), QStringLiteral("F"));
    perf(anne, 2, QStringLiteral("20230920"), QStringLiteral("1.1210"));       // season 2023
    perf(anne, 2, QStringLiteral("20240301"), QStringLiteral("1.0950"), 50);   // season 2023
    perf(anne, 2, QStringLiteral("20240915"), QStringLiteral("1.0940"));       // last day of 2023
    perf(anne, 2, QStringLiteral("20241005"), QStringLiteral("1.1005"));       // season 2024
    perf(anne, 2, QStringLiteral("20241201"), QStringLiteral("1.0899"), 50);
    perf(anne, 2, QStringLiteral("20250110"), QStringLiteral("1.0820"));
    perf(anne, 2, QStringLiteral("20250111"), QStringLiteral("0.5000"), 25, QStringLiteral("0"), 0, true);  // split
    perf(anne, 1, QStringLiteral("20250110"), QStringLiteral("0.3100"));       // another event
    perf(anne, 2, QStringLiteral("20250112"), QStringLiteral("99"));           // a status code

    const ProgressionChoice choice{anne, QStringLiteral("100m n.l. Dames"), QStringLiteral("Abgrall Anne")};
    const Progression p =
        construit_progression(app->db.load_rows(requete_progression(choice, app->state.club_code)));

    EXPECT_EQ(points(p.bassin25), (QStringList{"2023-09-20 25 1:12.10 72.1", "2024-09-15 25 1:09.40 69.4",
                                               "2024-10-05 25 1:10.05 70.05", "2025-01-10 25 1:08.20 68.2"}));
    EXPECT_EQ(points(p.bassin50), (QStringList{"2024-03-01 50 1:09.50 69.5", "2024-12-01 50 1:08.99 68.99"}));

    // The swims span two seasons: one opening is marked, 16 September 2024.
    EXPECT_EQ(p.saisons, std::vector<QDate>{QDate(2024, 9, 16)});

    // The best of each season in each pool, by date.
    EXPECT_EQ(points(p.meilleurs), (QStringList{"2024-03-01 50 1:09.50 69.5", "2024-09-15 25 1:09.40 69.4",
                                                "2024-12-01 50 1:08.99 68.99", "2025-01-10 25 1:08.20 68.2"}));
}

TEST(ProgressionAxis, MarksAreRoundTimesAroundTheSwimsReadAsSwimTimes)
{
    EXPECT_EQ(texte_secondes(59.999), QStringLiteral("1:00.00"));
    EXPECT_EQ(texte_secondes(secondes_temps(15.0512)), QStringLiteral("15:05.12"));
    const auto labels = [](const std::vector<double>& marks) {
        QStringList out;
        for (double m : marks)
            out << texte_secondes(m);
        return out.join(u' ');
    };
    // A 100 m over a few seasons: whole seconds.
    EXPECT_EQ(labels(graduations_temps(67.7, 72.6)), QStringLiteral("1:07.00 1:08.00 1:09.00 1:10.00 1:11.00 1:12.00 1:13.00"));
    // A 50 m that hardly moves: tenths, then fifths.
    EXPECT_EQ(labels(graduations_temps(30.12, 30.61)), QStringLiteral("30.10 30.20 30.30 30.40 30.50 30.60 30.70"));
    EXPECT_EQ(labels(graduations_temps(30.12, 31.1)), QStringLiteral("30.00 30.20 30.40 30.60 30.80 31.00 31.20"));
    // A 1500 m from a first season to a last: half minutes.
    EXPECT_EQ(labels(graduations_temps(1010.5, 1150.2)),
              QStringLiteral("16:30.00 17:00.00 17:30.00 18:00.00 18:30.00 19:00.00 19:30.00"));
    // Bounds on a mark stay the ends; a single time is one mark.
    EXPECT_EQ(labels(graduations_temps(60, 64)), QStringLiteral("1:00.00 1:01.00 1:02.00 1:03.00 1:04.00"));
    EXPECT_EQ(graduations_temps(62.5, 62.5), std::vector<double>{62.5});
}

TEST_F(ProgressionTest, ClubRelaysAndNothingToDraw)
{
    relay_perf(8, QStringLiteral("20241201"), QStringLiteral("4.3010"), 1);
    relay_perf(8, QStringLiteral("20241202"), QStringLiteral("4.2510"), 2);
    const Progression relays = construit_progression(app->db.load_rows(
        requete_progression({QString(), QStringLiteral("4x100m n.l. Dames"), QStringLiteral("Relais")},
                            app->state.club_code)));
    EXPECT_EQ(points(relays.bassin25), (QStringList{"2024-12-01 25 4:30.10 270.1", "2024-12-02 25 4:25.10 265.1"}));
    EXPECT_TRUE(relays.saisons.empty());
    EXPECT_EQ(points(relays.meilleurs), QStringList{"2024-12-02 25 4:25.10 265.1"});

    const QString none = swimmer(QStringLiteral("Vide"), QStringLiteral("F"));
    EXPECT_TRUE(construit_progression(app->db.load_rows(requete_progression(
                                          {none, QStringLiteral("100m n.l. Dames"), QString()}, app->state.club_code)))
                    .empty());
}

TEST_F(ProgressionTest, ChartIsSavedWholeOrNotAtAll)
{
    PerfProgressionView view(*app, {QString(), QStringLiteral("4x100m n.l. Dames"), QStringLiteral("Relais")});
    EXPECT_EQ(view.title(), QStringLiteral("Progression : Relais - 4x100m n.l. Dames"));
    const QString png = work_file(QStringLiteral("chart.png"));
    EXPECT_TRUE(view.save(png, QByteArray("\x89PNG-old")));
    EXPECT_FALSE(view.save(png + QStringLiteral("/inside.png"), QByteArray("new")));
    EXPECT_TRUE(ui.texts().back().startsWith(QStringLiteral("Une erreur s'est produite lors de la sauvegarde du graphique.")));
    EXPECT_EQ(plouvarine::testing::read_bytes(png), QByteArray("\x89PNG-old"));
}

}  // namespace
