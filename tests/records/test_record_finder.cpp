// The search of the performance history for new club records: a swim that
// beats or equals the record of its band is proposed, a slower one is not,
// and an accepted line goes through the rules of a record typed by hand.

#include "records_test_base.h"
#include "src/records/record_finder.h"

#include <gtest/gtest.h>

using namespace plouvarine;

namespace {

class RecordFinderTest : public plouvarine::testing::RecordsBase {
protected:
    QStringList proposed(const std::vector<RecordProposal>& list)
    {
        QStringList out;
        for (const RecordProposal& p : list)
            out << QStringLiteral("%1 %2 %3 %4 %5")
                       .arg(p.entry.nom, p.entry.libelle)
                       .arg(p.entry.bassin)
                       .arg(QString::number(p.entry.tps, 'f', 4), p.entry.date);
        return out;
    }
};

TEST_F(RecordFinderTest, BeatingAndEqualSwimsAreProposedSlowerOnesNot)
{
    const QString minimes = band(QStringLiteral("Minimes"), 12, 13, QStringLiteral("Homme"));
    band(QStringLiteral("Benjamines"), 12, 13, QStringLiteral("Femme"));
    record(minimes, 51, 50, 0.3000, QStringLiteral("20240101"), QStringLiteral("Ancien"));
    const QString yann = swimmer(QStringLiteral("Abgrall"), QStringLiteral("20120405"));  // 12 in 2024
    swim(yann, 51, 50, 0.2950, QStringLiteral("20240601"));  // beats
    swim(yann, 51, 50, 0.3000, QStringLiteral("20240701"));  // equals
    swim(yann, 51, 50, 0.3010, QStringLiteral("20240801"));  // slower
    swim(yann, 51, 50, 0.2900, QStringLiteral("20231201"));  // before the record stood
    swim(yann, 51, 25, 0.3100, QStringLiteral("20240901"));  // another pool, none yet
    swim(yann, 51, 50, 0.2800, QStringLiteral("20240901"), QStringLiteral("FRA9999999999"));  // for another club
    swim(yann, 51, 50, 0.2700, QStringLiteral("20260901"));  // aged 14: no band
    swim(yann, 1, 50, 0.2700, QStringLiteral("20240901"));   // a women's event: no band of his

    FrmChercheRecord finder(*app);
    finder.charge();
    EXPECT_EQ(proposed(finder.propositions()),
              (QStringList{"Abgrall Minimes 25 0.3100 20240901", "Abgrall Minimes 50 0.2950 20240601",
                           "Abgrall Minimes 50 0.3000 20240701"}));
    EXPECT_EQ(finder.lsv_propositions().item(2, 7)->text(), QStringLiteral("30.00"));

    // The first beating swim accepted: a record with its history.
    int told = 0;
    finder.on_accepted = [&] { ++told; };
    finder.selected = 1;
    ASSERT_TRUE(finder.accepter());
    EXPECT_EQ(told, 1);
    EXPECT_EQ(dump(QStringLiteral("SELECT Nom, Prenom, Tps, Date_perf, Lieu FROM RecordClub WHERE Bassin = 50 ORDER BY Tps")),
              (QStringList{"Abgrall:Yann:0.295:20240601:Rennes", "Ancien:Anne:0.3:20240101:Brest"}));
    // The equal one is now slower than the new record and later: the rule says no.
    ASSERT_EQ(finder.propositions().size(), 2u);
    finder.selected = 1;
    EXPECT_FALSE(finder.accepter());
    EXPECT_EQ(ui.messages.back().text, QString::fromUtf8(kRecordRefuse));
    finder.ignorer();
    EXPECT_EQ(finder.propositions().size(), 1u);

    // What is held is not proposed again.
    FrmChercheRecord again(*app);
    again.charge();
    EXPECT_EQ(proposed(again.propositions()), QStringList{"Abgrall Minimes 25 0.3100 20240901"});
}

TEST_F(RecordFinderTest, WithNoRecordTheChainOfBestTimesIsProposed)
{
    band(QStringLiteral("Open"), 0, 99, QStringLiteral("Femme"));
    const QString anne = swimmer(QStringLiteral("Le Bras"), QStringLiteral("20000101"), QStringLiteral("F"));
    swim(anne, 2, 25, 1.1000, QStringLiteral("20200101"));
    swim(anne, 2, 25, 1.0800, QStringLiteral("20210101"));
    swim(anne, 2, 25, 1.0900, QStringLiteral("20220101"));  // never a record
    swim(anne, 2, 25, 1.0500, QStringLiteral("20230101"));
    swim(anne, 2, 25, 1.0500, QStringLiteral("20240101"));  // equalled: tied
    FrmChercheRecord finder(*app);
    finder.charge();
    EXPECT_EQ(proposed(finder.propositions()),
              (QStringList{"Le Bras Open 25 1.1000 20200101", "Le Bras Open 25 1.0800 20210101",
                           "Le Bras Open 25 1.0500 20230101", "Le Bras Open 25 1.0500 20240101"}));
    // Taken in order, each one passes the rule.
    while (!finder.propositions().empty()) {
        finder.selected = 0;
        ASSERT_TRUE(finder.accepter());
    }
    EXPECT_EQ(app->db.count_query(QStringLiteral("SELECT count(*) FROM RecordClub")), 4);
    FrmChercheRecord again(*app);
    again.charge();
    EXPECT_TRUE(again.propositions().empty());
}

TEST_F(RecordFinderTest, ARelayTakesTheBandOfItsOldestSwimmer)
{
    band(QStringLiteral("Jeunes"), 10, 12, QStringLiteral("Mixte"));
    const QString open = band(QStringLiteral("Grands"), 13, 99, QStringLiteral("Mixte"));
    QStringList legs;
    for (const char* birth : {"20120101", "20110101", "20100101", "20080101"})
        legs << swimmer(QStringLiteral("N") + QLatin1String(birth), QLatin1String(birth));
    while (legs.size() < 10)
        legs << app->state.num_lic_nulle;
    app->db.exec_sql(QStringLiteral("INSERT INTO Liffn_relais (Code_epreuve, Code_club, Num_Lic, Type_bassin, Date_perf, "
                                    "Tps, Lieu, Relayeur1, Relayeur2, Relayeur3, Relayeur4, Relayeur5, Relayeur6, "
                                    "Relayeur7, Relayeur8, Relayeur9, Relayeur10) VALUES (45, '%1', 1, 25, '20240505', "
                                    "2.0500, 'Vannes', %2)")
                         .arg(QLatin1String(kClub), legs.join(QStringLiteral(", "))));
    FrmChercheRecord finder(*app);
    finder.charge();
    ASSERT_EQ(finder.propositions().size(), 1u);
    const RecordEntry& e = finder.propositions()[0].entry;
    EXPECT_EQ(e.categorie, open);  // the oldest is 16
    EXPECT_EQ(e.nom, QStringLiteral("Brest Natation"));
    EXPECT_EQ(e.relais, (QStringList{"N20120101 Yann", "N20110101 Yann", "N20100101 Yann", "N20080101 Yann"}));
    finder.selected = 0;
    ASSERT_TRUE(finder.accepter());
    EXPECT_EQ(dump(QStringLiteral("SELECT Nom, Rel1, Rel4, Rel5 FROM RecordClub")),
              QStringList{"Brest Natation:N20120101 Yann:N20080101 Yann: "});
}

}  // namespace
