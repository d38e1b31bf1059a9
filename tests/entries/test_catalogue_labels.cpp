// The event labels of the model base fit the 17 columns of an event on the
// entry slip and tell the event, the relay time rule's legs included.

#include "src/entries/relays.h"
#include "src/frame/base_commands.h"
#include "src/frame/upgrade.h"
#include "src/store/database.h"
#include "support/app_fixture.h"

#include <QFile>
#include <QRegularExpression>

using namespace plouvarine;
using plouvarine::testing::AppFixture;

namespace {

class CatalogueLabels : public AppFixture {};

}  // namespace

TEST_F(CatalogueLabels, EveryEventLabelFitsTheSlipAndAnUpgradeBringsTheShortOnes)
{
    connect(make_base());
    const Rows rows = app->db.load_rows(
        QStringLiteral("select Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance from Nage order by Code_Nage"));
    ASSERT_EQ(rows.size(), 59);
    const QRegularExpression form(QStringLiteral("^(4x)?(\\d+)m (n\\.l\\.|dos|brasse|pap\\.|4N) (Dames|Mess\\.|Mixte)$"));
    QStringList labels = rows.column(1);
    EXPECT_EQ(labels.removeDuplicates(), 0);  // each is unique
    for (int r = 0; r < rows.size(); ++r) {
        const auto row = [&](int column) { return rows.value(r, column); };
        const QString label = row(1);
        SCOPED_TRACE(label.toStdString());
        EXPECT_LE(label.size(), 17);

        const auto match = form.match(label);
        ASSERT_TRUE(match.hasMatch());
        const bool relay = row(2).toInt() > 1;
        EXPECT_EQ(!match.captured(1).isEmpty(), relay);
        const QString sex = match.captured(4);
        const bool mixed = row(4) == QStringLiteral("Vrai");
        EXPECT_EQ(sex == QStringLiteral("Mixte"), mixed);
        if (!mixed) {
            EXPECT_EQ(sex == QStringLiteral("Dames"), row(3) == QStringLiteral("F"));
        }
        const int leg = match.captured(2).toInt();
        EXPECT_EQ(relay ? 4 * leg : leg, row(5).toInt());
        if (relay) {
            const RelayLegs legs = relay_legs(label);
            EXPECT_EQ(legs.distance, leg);
            EXPECT_EQ(legs.free, match.captured(3) == QStringLiteral("n.l."));
        }
    }

    // A base made before keeps no long label past its upgrade.
    const QString read = QStringLiteral("select Libelle from Nage order by Code_Nage");
    const QStringList model = app->db.load_rows(read).column(0);
    app->db.exec_sql(QStringLiteral("UPDATE Nage SET Libelle = REPLACE(REPLACE(REPLACE(Libelle, ' Mess.', ' Messieurs'), "
                                    "'m pap. ', 'm papillon '), 'm 4N ', 'm 4 nages ')"));
    app->db.exec_sql(QStringLiteral("UPDATE Info SET Version = 4"));
    ASSERT_TRUE(app->db.load_rows(read).column(0).contains(QStringLiteral("4x100m 4 nages Messieurs")));
    ASSERT_TRUE(QFile::copy(QStringLiteral(PLOUVARINE_SOURCE_DIR "/data/maj_base.ini"), upgrade_file_path(*app)));

    EXPECT_TRUE(check_version(*app));
    EXPECT_EQ(app->db.load_rows(read).column(0), model);
}
