// The series of the progression chart, built from the swims read in the base:
// the two pools apart, the seasons' openings, the best of each season.

#include "perf_test_base.h"

#include "src/results/perf_progression.h"

using namespace plouvarine;

namespace {

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

    ASSERT_EQ(p.bassin25.size(), 4u);
    ASSERT_EQ(p.bassin50.size(), 2u);
    EXPECT_EQ(p.bassin25[0].date, QDate(2023, 9, 20));
    EXPECT_DOUBLE_EQ(p.bassin25[0].seconds, 72.10);
    EXPECT_EQ(p.bassin25[0].time, QStringLiteral("1:12.10"));
    EXPECT_DOUBLE_EQ(p.bassin25[3].seconds, 68.20);
    EXPECT_DOUBLE_EQ(p.bassin50[1].seconds, 68.99);
    EXPECT_EQ(p.bassin50[1].pool, 50);

    // The swims span two seasons: one opening is marked, 16 September 2024.
    EXPECT_EQ(p.saisons, std::vector<QDate>{QDate(2024, 9, 16)});

    // The best of each season in each pool, by date.
    std::vector<std::pair<QDate, int>> bests;
    for (const ProgressionPoint& b : p.meilleurs)
        bests.emplace_back(b.date, b.pool);
    EXPECT_EQ(bests, (std::vector<std::pair<QDate, int>>{{QDate(2024, 3, 1), 50},
                                                          {QDate(2024, 9, 15), 25},
                                                          {QDate(2024, 12, 1), 50},
                                                          {QDate(2025, 1, 10), 25}}));
}

TEST(ProgressionAxis, SecondsReadAsSwimTimes)
{
    EXPECT_EQ(texte_secondes(68.2), QStringLiteral("1:08.20"));
    EXPECT_EQ(texte_secondes(32.5), QStringLiteral("32.50"));
    EXPECT_EQ(texte_secondes(59.999), QStringLiteral("1:00.00"));
    EXPECT_EQ(texte_secondes(secondes_temps(15.0512)), QStringLiteral("15:05.12"));
}

TEST(ProgressionAxis, MarksAreRoundTimesAroundTheSwims)
{
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
    ASSERT_EQ(relays.bassin25.size(), 2u);
    EXPECT_DOUBLE_EQ(relays.bassin25[1].seconds, 265.10);
    EXPECT_TRUE(relays.saisons.empty());
    ASSERT_EQ(relays.meilleurs.size(), 1u);
    EXPECT_EQ(relays.meilleurs[0].date, QDate(2024, 12, 2));

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
    QFile file(png);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray("\x89PNG-old"));
}

}  // namespace
