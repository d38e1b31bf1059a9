#pragma once
// A connected copy of the model base with its reference pool, today 10 March
// 2025, and competitions laid at that pool.

#include "src/clubs/pools.h"
#include "src/frame/app_context.h"
#include "src/store/sentinels.h"
#include "support/app_fixture.h"

#include <QDate>

using namespace Qt::Literals::StringLiterals;

namespace plouvarine::testing {

class CompetFixture : public AppFixture {
protected:
    void SetUp() override
    {
        AppFixture::SetUp();
        connect(make_base());
        check_piscine_reference(app->db, app->ui);
        app->clock.set_today(QDate(2025, 3, 10));
    }
    // A competition "Meeting" at Brest; its AutoNum.
    QString compet(const QString& debut, const QString& fin, int longueur = 50, bool deroule = false,
                   bool visible = true)
    {
        return app->db.append_row(QStringLiteral("Rcomp"),
                                  {{"Num", "N1"}, {"Type", "C"}, {"Nom", "Meeting"}, {"Debut", debut}, {"Fin", fin},
                                   {"Lieu", "Brest"}, {"Longueur", longueur}, {"Nb_couloir", 8}, {"Codif_fede", "Q"},
                                   {"Codif_inter", "Q"}, {"Codif_reg", "Q"}, {"Codif_depar", "Q"},
                                   {"Deroule", deroule}, {"Visible", visible},
                                   {"Num_Piscine", NumPiscineNulle(*app).toInt()}},
                                  QStringLiteral("AutoNum"));
    }
};

}  // namespace plouvarine::testing
