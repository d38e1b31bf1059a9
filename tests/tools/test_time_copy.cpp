// The time calculator's total copied into the time field of the individual
// entries last typed in, by "&Copier" and, with the option, by "&Quitter".

#include "entries/engag_test_base.h"
#include "src/entries/frm_engag.h"
#include "src/entries/utils_engag.h"
#include "src/tools/frm_caltps.h"

using namespace plouvarine;

namespace {

class TimeCopy : public plouvarine::testing::EngagBase {};

TEST_F(TimeCopy, TheTotalGoesIntoTheTimeFieldLastTypedIn)
{
    const QString compet = competition(QStringLiteral("20250315"), 25);
    const QString anna = swimmer(QStringLiteral("LE GALL"), QStringLiteral("Anna"), QStringLiteral("F"));
    individual(compet, anna);
    FrmEngag* engag = OuvrirEngag(*app, QStringLiteral("Modif"), compet, QStringLiteral("Définition des engagements"), false);
    ASSERT_NE(engag, nullptr);
    engag->select_swimmer(0);

    FrmCalTps* calc = OuvrirCalculTemps(*app);
    ASSERT_NE(calc, nullptr);
    ASSERT_TRUE(calc->copie_enabled());
    calc->txt_tps_ajout = QStringLiteral("0.1500");
    calc->cmd_Ajout();
    calc->cmd_Copie();  // no time field typed in yet: nowhere to go
    for (int row = 0; row < int(engag->panel().size()); ++row)
        EXPECT_TRUE(engag->panel()[size_t(row)].temps.isEmpty()) << row;
    calc->histo_selection().setCurrentIndex(calc->lsv_histo().index(0, 0), QItemSelectionModel::ClearAndSelect);
    calc->cmd_Suppr();
    for (const char* leg : {"0.3012", "0.3245"}) {
        calc->txt_tps_ajout = QLatin1String(leg);
        calc->cmd_Ajout();
    }
    engag->set_checked(3, true);
    engag->set_temps(3, QStringLiteral("2"));
    calc->cmd_Copie();
    EXPECT_EQ(engag->panel()[3].temps, QStringLiteral("1.0257"));

    // With the option, "&Quitter" copies too.
    calc->txt_tps_ajout = QStringLiteral("1.0000");
    calc->cmd_Ajout();
    calc->chk_CopieCalcul = true;
    calc->cmd_Quitter();
    EXPECT_TRUE(calc->is_closed());
    EXPECT_EQ(engag->panel()[3].temps, QStringLiteral("2.0257"));

    // Once the entries have closed, it copies nowhere.
    calc = OuvrirCalculTemps(*app);
    ASSERT_NE(calc, nullptr);
    EXPECT_TRUE(calc->copie_enabled());
    engag->cmd_annuler();
    EXPECT_FALSE(calc->copie_enabled());
}

}  // namespace
