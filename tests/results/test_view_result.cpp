// The results browser on the fixed meet: the competitions offered, the rows of
// each presentation against their references, the options' commands, the texts.

#include "results_test_base.h"

#include "src/results/result_rows.h"
#include "support/golden.h"

using namespace plouvarine;
using plouvarine::testing::column_texts;
using plouvarine::testing::expect_golden;

namespace {

using ResultsView = plouvarine::testing::ResultsBase;

TEST(ResultTexts, StatusesTitlesAndSplitHeadings)
{
    const std::pair<const char*, const char*> statuses[] = {
        {"91.0000", "Forf\tExc."}, {"92", "Forf\tDec."},   {"93", "Disq\tRel."}, {"94", "Forf\tNon Dec."},
        {"95", "Aban\t "},         {"96", "Disq\tAtt."},   {"97", "Disq\tFD."},  {"98", "Disq\tVI."},
        {"99", "Disq\tNI."},       {"99.9999", "Disq\t "}, {"91.0001", "NA\t "}, {"100", "NA\t "},
    };
    for (const auto& [value, text] : statuses)
        EXPECT_EQ(libelle_statut_temps(QLatin1String(value)), QString::fromUtf8(text)) << value;

    const char* titles[][4] = {{"S", "3", "", "Série 3"},
                               {"F", "1", "Benjamins", "Finale A catégorie Benjamins"},
                               {"2", "2", "", "1/2 Finale B"},
                               {"8", "4", "", "1/8 Finale"},
                               {"Inconnu", "2", "", "Série 2"},
                               {"X", "1", "Minimes", " A catégorie Minimes"}};
    for (const auto& [type, number, category, title] : titles)
        EXPECT_EQ(titre_course(QLatin1String(type), QLatin1String(number), QLatin1String(category)),
                  QString::fromUtf8(title))
            << type << " " << number;

    EXPECT_EQ(distances_inter(400), (QList<int>{350, 300, 250, 200, 150, 100, 50}));
    EXPECT_EQ(distances_inter(1500),
              (QList<int>{1400, 1300, 1200, 1100, 1000, 900, 800, 700, 600, 500, 400, 300, 200, 100}));
    EXPECT_EQ(distances_inter(800), (QList<int>{700, 600, 500, 400, 300, 200, 100}));
    EXPECT_EQ(distances_inter(100), (QList<int>{50}));
    EXPECT_TRUE(distances_inter(50).isEmpty());
}

TEST_F(ResultsView, OffersTheMeetsThatTookPlaceWithIndividualResultsLatestFirst)
{
    const QString later = competition(QStringLiteral("Championnat"), QStringLiteral("20250510"), true);
    const QString coming = competition(QStringLiteral("A venir"), QStringLiteral("20250601"), false);
    const QString hidden = competition(QStringLiteral("Cachée"), QStringLiteral("20250301"), true, false);
    const QString relays = competition(QStringLiteral("Relais seuls"), QStringLiteral("20250201"), true);
    const QString empty = competition(QStringLiteral("Sans résultat"), QStringLiteral("20250101"), true);
    for (const QString& c : {later, coming, hidden})
        swim(QStringLiteral("Prres"), c, 1, QStringLiteral("1"), kClub, "0.3000", "S", 1, 1, "1");
    swim(QStringLiteral("Prres_relais"), relays, 8, QStringLiteral("1"), kClub, "4.0000", "F", 1, 1, "1");
    Q_UNUSED(empty);

    FrmViewResult& v = open_view();
    EXPECT_EQ(column_texts(v.lsv_compet(), 1), (QStringList{"Championnat", "Meeting de Brest"}));
    EXPECT_EQ(v.lsv_compet().item(1, 3)->text(), QStringLiteral("5/04/2025"));
    EXPECT_EQ(v.current_compet(), later) << "the first competition is clicked";

    v.click_compet(1);
    EXPECT_EQ(v.current_compet(), meet);
    // Every programme line, with results or not.
    EXPECT_EQ(column_texts(v.lsv_nage(), 1), (QStringList{"50m n.l. Dames", "400m n.l. Dames", "1500m n.l. Dames",
                                                         "50m dos Dames", "4x100m n.l. Dames"}));
    EXPECT_EQ(column_texts(v.lsv_nage(), 2),
              (QStringList{"5/04/2025", "5/04/2025", "6/04/2025", "6/04/2025", "6/04/2025"}));
    EXPECT_EQ(v.lsv_nage().item(4, 0)->data(FrmViewResult::kNbNageursRole).toInt(), 4);
}

TEST_F(ResultsView, TicksAndOptionsFollowTheirCommands)
{
    FrmViewResult& v = open_view();
    EXPECT_FALSE(v.imprimer_enabled());
    v.set_ticked(1, true);
    v.affiche_resultats();
    EXPECT_EQ(v.cbo_search(), QStringList{QStringLiteral("400m n.l. Dames")});
    EXPECT_TRUE(v.imprimer_enabled());
    EXPECT_TRUE(v.exporter_enabled());

    // "Afficher toutes les nages" keeps every event ticked.
    v.set_chk_all(true);
    v.set_ticked(0, false);
    EXPECT_TRUE(v.ticked(0));

    v.cmd_option(0);
    EXPECT_TRUE(v.options_open());
    EXPECT_FALSE(v.voir_enabled());
    EXPECT_FALSE(v.imprimer_enabled());
    EXPECT_FALSE(v.modifier_enabled());
    v.set_options({1, 1, 0, true, true, true});
    EXPECT_TRUE(v.pres_serie_enabled());
    v.set_options({0, 1, 0, true, true, true});
    EXPECT_EQ(v.options().pres_serie, 0) << "by type of race forces by time";
    EXPECT_FALSE(v.pres_serie_enabled());
    // "&Annuler" puts the settings back, the list stays and its outputs too.
    v.cmd_option(2);
    EXPECT_EQ(v.options(), ResultOptions{});
    EXPECT_TRUE(v.imprimer_enabled());
    EXPECT_GT(v.lsv_results().rowCount(), 0);

    // "&Valider" empties the list; the columns it builds head the references.
    v.cmd_option(0);
    v.set_options({0, 0, 0, true, true, true});
    v.cmd_option(1);
    EXPECT_EQ(v.lsv_results().rowCount(), 0);
    EXPECT_FALSE(v.imprimer_enabled());

    // "Epreuve :" finds the event's title row.
    v.affiche_resultats();
    ASSERT_EQ(v.cbo_search().size(), 5);
    const int row = v.choose_search(2);
    ASSERT_GE(row, 0);
    EXPECT_EQ(v.lsv_results().item(row, 1)->text(), QStringLiteral("1500m n.l. Dames"));
    EXPECT_EQ(v.lsv_results().item(row, 8)->text(), QStringLiteral("1400"));
}

// The references hold, by type of race: the series run together by time
// (30.12, 30.12, 32.00, 32.00 give 1, 1, 3, 3), no time sorts first, blank, with
// its points, two disqualifications share one place, 90.5999 is still a time,
// 91.0001 is "NA", a swimmer deleted since drops out, a relay's abandon.
TEST_F(ResultsView, ByTypeOfRaceRanksTiesStatusesAndOddTimes)
{
    show({0, 0, 0, true, true, true});
    expect_golden(QStringLiteral("results"), QStringLiteral("rows_type.txt"), rows_text());
}

// By series, the place of series 2 opening on the time that closed series 1 is
// 0: the last time survives the new block.
TEST_F(ResultsView, BySeriesTheLastTimeSurvivesANewBlock)
{
    show({1, 0, 0, false, false, false});
    expect_golden(QStringLiteral("results"), QStringLiteral("rows_series.txt"), rows_text());
}

// In lane order the empty lanes 3 and 4 of the 400 m stand between 2 and 5 for
// all clubs; for the own club there is no empty lane before or after.
TEST_F(ResultsView, InLaneOrderTheEmptyLanesBetweenAreShownForAllClubsOnly)
{
    show({1, 1, 0, false, false, false});
    expect_golden(QStringLiteral("results"), QStringLiteral("rows_lanes.txt"), rows_text());
    view->cmd_option(0);
    view->set_options({1, 1, 1, false, false, false});
    view->cmd_option(1);
    view->affiche_resultats();
    expect_golden(QStringLiteral("results"), QStringLiteral("rows_lanes_club.txt"), rows_text());
}

TEST_F(ResultsView, OwnClubKeepsThePlacesOfTheWholeRace)
{
    show({0, 0, 1, false, false, false});
    EXPECT_TRUE(places_of(QStringLiteral("Bernard Zoé")).isEmpty());
    EXPECT_EQ(places_of(QStringLiteral("Martin Léa")), (QStringList{QStringLiteral("3|30.01|650"),
                                                                    QStringLiteral("1|30.12|612")}));
    EXPECT_EQ(places_of(QStringLiteral("Relais n° 1")), QStringList{QStringLiteral("2|4:10.00|700")});
}

TEST_F(ResultsView, AFailedReadEndsTheDisplayWithItsMessage)
{
    FrmViewResult& v = open_view();
    v.set_chk_all(true);
    exec(QStringLiteral("DROP TABLE Categori"));
    v.affiche_resultats();
    // The access layer tells the statement; the command tells what it was doing.
    ASSERT_FALSE(messages().isEmpty());
    EXPECT_TRUE(messages().last().endsWith(QStringLiteral("Une erreur s'est produite lors de l'affichage des résultats.")))
        << messages().last().toStdString();
    EXPECT_EQ(ui.wait_depth, 0);
}

}  // namespace
