// Manual performances on a real base: the check of the entry, the numbers of each
// table, the age, the pool of an event with no 50 m, the relay's null licences.

#include "perf_test_base.h"

#include "src/frame/list_helpers.h"
#include "src/results/ajout_perf.h"

using namespace plouvarine;

namespace {

class AjoutPerfTest : public plouvarine::testing::PerfBase {
protected:
    void fill(PerfEntry& entry, const QString& date, const QString& tps = QStringLiteral("1.0512"))
    {
        entry.txt_info[kFieldTemps] = tps;
        entry.txt_info[kFieldLieu] = QStringLiteral("L'Hermine");
        entry.txt_info[kFieldJour] = date.mid(6, 2);
        entry.txt_info[kFieldMois] = date.mid(4, 2);
        entry.txt_info[kFieldAnnee] = date.left(4);
    }
    int row_of_event(AjoutPerfForm& form, const QString& code)
    {
        return find_key(form.lsv_nage(), code).value_or(-1);
    }
};

TEST_F(AjoutPerfTest, EntryIsRefusedAtTheFirstMissingItem)
{
    PerfEntry entry;
    EXPECT_FALSE(verif_saisie_perf(*app, entry));
    EXPECT_EQ(entry.focus, kFieldTemps);
    fill(entry, QStringLiteral("20250310"));
    entry.txt_info[kFieldLieu] = QStringLiteral("  ");
    EXPECT_FALSE(verif_saisie_perf(*app, entry));
    EXPECT_EQ(entry.focus, kFieldLieu);
    fill(entry, QStringLiteral("20250230"));
    EXPECT_FALSE(verif_saisie_perf(*app, entry));
    EXPECT_EQ(entry.focus, kFieldJour);
    // Today passes, tomorrow does not.
    fill(entry, QStringLiteral("20250311"));
    EXPECT_FALSE(verif_saisie_perf(*app, entry));
    fill(entry, QStringLiteral("20250310"));
    EXPECT_TRUE(verif_saisie_perf(*app, entry));
    EXPECT_FALSE(verif_saisie_perf(*app, entry, 4, 3));
    EXPECT_EQ(entry.focus, kFocusLicences);
    EXPECT_EQ(ui.texts(), (QStringList{"Veuillez spécifier le temps réalisé.", "Veuillez spécifier le lieu de la performance.",
                                       "Veuillez spécifier une date valide pour la performance.",
                                       "Veuillez spécifier une date valide pour la performance.",
                                       "Veuillez spécifier la composition complète du relais.."}));
}

TEST_F(AjoutPerfTest, IndividualSwimsAreNumberedInTheirOwnTable)
{
    const QString anne = swimmer(QStringLiteral("Abgrall"), QStringLiteral("F"), QStringLiteral("20001231"));
    swimmer(QStringLiteral("Bihan"), QStringLiteral("M"));
    relay_perf(8, QStringLiteral("20241201"), QStringLiteral("4.3010"), 1, QStringLiteral("0"), 5);
    perf(anne, 2, QStringLiteral("20241201"), QStringLiteral("1.1000"), 25, QStringLiteral("12"));

    FrmAjoutPerf form(*app);
    form.charge_licences();
    ASSERT_EQ(form.lsv_licence().rowCount(), 2);
    form.choose_swimmer(0);
    EXPECT_EQ(form.tab(), 1);
    EXPECT_EQ(form.sexe_caption(), QStringLiteral("Dames"));
    EXPECT_EQ(QString::number(form.lsv_nage().rowCount()),
              value(QStringLiteral("SELECT count(*) FROM Nage WHERE Nb_nageurs = 1 AND Sexe = 'F'")));

    // 25m n.l. cannot be swum in a 50 m pool.
    form.choose_event(row_of_event(form, QStringLiteral("0")));
    EXPECT_FALSE(form.entry.bassin50_enabled);
    form.choose_event(row_of_event(form, QStringLiteral("1")));
    EXPECT_TRUE(form.entry.bassin50_enabled);
    form.entry.opt_bassin = 1;
    fill(form.entry, QStringLiteral("20100101"), QStringLiteral("0.312349"));
    form.entry.codif = {0, 1, -1, 2};
    form.entry.chk_inter = true;
    ui.answers.push_back(Button::Yes);
    ASSERT_TRUE(form.cmd_enregistrer());
    EXPECT_EQ(ui.messages.back().text,
              QStringLiteral("Enregistrer la nouvelle perfomance sur le 50m n.l. Dames\n pour Abgrall Anne avec le temps 31.23 ?"));
    // The entry is reset, the pool back to 25 m.
    EXPECT_TRUE(form.entry.txt_info[kFieldTemps].isEmpty());
    EXPECT_EQ(form.entry.opt_bassin, 0);
    EXPECT_EQ(form.entry.codif[0], -1);

    fill(form.entry, QStringLiteral("20250310"));
    form.entry.chk_relais = true;
    ui.answers.push_back(Button::Yes);
    ASSERT_TRUE(form.cmd_enregistrer());
    // "No" stores nothing.
    fill(form.entry, QStringLiteral("20250310"));
    ui.answers.push_back(Button::No);
    EXPECT_FALSE(form.cmd_enregistrer());

    // The age is the difference of the years (born 31/12/2000: 10 on 1/1/2010).
    // The second is number 2 whatever the relays hold; 25 m, from a relay start.
    const QString swum = QLatin1String(kClub) + u'|' + anne + QStringLiteral("|");
    EXPECT_EQ(plouvarine::testing::row_texts(app->db.load_rows(QStringLiteral(
                  "SELECT Code_epreuve, Code_club, Num_Lic, Type_bassin, Date_perf, Tps, Lieu, Codif_Fede, Codif_Inter, "
                  "Codif_Reg, Codif_Depart, Passage_relais, Tps_inter, Age_perf, NumManuel FROM Liffn "
                  "WHERE Num_compet = 0 ORDER BY NumManuel")), u'|'),
              (QStringList{"1|" + swum + "50|20100101|0.3123|L'Hermine|Q|R| |A| |Vrai|10|1",
                           "1|" + swum + "25|20250310|1.0512|L'Hermine| | | | |R|Faux|25|2"}));
}

TEST_F(AjoutPerfTest, RelayStoresItsLegsThenTheNullLicence)
{
    QStringList nums;
    for (const char* name : {"Abgrall", "Bihan", "Cozic", "Derrien", "Le Gall"})
        nums << swimmer(QLatin1String(name), QStringLiteral("F"));
    swimmer(QStringLiteral("Ollivier"), QStringLiteral("M"));
    perf(nums[0], 1, QStringLiteral("20241201"), QStringLiteral("0.3000"), 25, QStringLiteral("0"), 7);

    FrmAjoutPerfRelais form(*app);
    form.charge_nages();
    form.choose_event(row_of_event(form, QStringLiteral("8")));  // 4x100m n.l. Dames
    EXPECT_EQ(form.nb_nageurs(), 4);
    ASSERT_EQ(form.lsv_licence().rowCount(), 5);  // the ladies only
    for (int i = 0; i < 3; ++i)
        form.cmd_add(0);
    fill(form.entry, QStringLiteral("20250301"), QStringLiteral("4.1"));
    EXPECT_FALSE(form.cmd_enregistrer());  // three legs of four
    form.cmd_add(0);
    EXPECT_FALSE(form.can_add(0));
    // The last leg one place up: Derrien swims third.
    form.cmd_plus();
    ui.answers.push_back(Button::Yes);
    ASSERT_TRUE(form.cmd_enregistrer());
    EXPECT_EQ(ui.messages.back().text,
              QStringLiteral("Enregistrer la nouvelle perfomance sur le 4x100m n.l. Dames\n avec le temps 4:10.00 ?"));

    const Rows rows = app->db.load_rows(QStringLiteral("SELECT * FROM Liffn_relais"));
    ASSERT_EQ(rows.size(), 1);
    QStringList legs;
    for (int c = 7; c < 17; ++c)
        legs << rows.value(0, c);
    const QString nulle = app->state.num_lic_nulle;
    EXPECT_EQ(legs, (QStringList{nums[0], nums[1], nums[3], nums[2], nulle, nulle, nulle, nulle, nulle, nulle}));
    EXPECT_EQ(rows.value(0, 1), QLatin1String(kClub));
    EXPECT_EQ(rows.value(0, 2), QStringLiteral("1"));
    EXPECT_EQ(rows.value(0, 22), QStringLiteral("1"));  // numbered apart from Liffn's 7
    EXPECT_EQ(form.lsv_compo_relais().rowCount(), 0);
}

}  // namespace
