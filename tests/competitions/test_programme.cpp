// The programme of a competition on a real base: what frm_prog loads, how the
// fields follow the ticked event, the order warning, the finished programme
// list and what the write-back leaves in Pcomp.

#include "src/clubs/pools.h"
#include "src/competitions/frm_prog.h"
#include "src/competitions/utils_programme.h"
#include "src/frame/keywords.h"
#include "src/frame/list_helpers.h"
#include "src/base/text.h"
#include "src/store/sentinels.h"
#include "competitions/compet_test_base.h"

#include <stdexcept>

using namespace plouvarine;

namespace {

const QString kOrderWarning =
    u"Le numéro d'ordre spécifié est inférieur au maximum des journées précédentes."_s;

class ProgBase : public plouvarine::testing::CompetFixture {
protected:
    void line(const QString& num, int code, int day, int type, int finales, const QString& kind, int order,
              const QString& table = u"Pcomp"_s, const QString& key = u"Num_compet"_s)
    {
        app->db.exec_sql(QStringLiteral("INSERT INTO %1 (%2, Code_epreuve, JourCourse, Type, Nb_finales, "
                                        "Type_finale, Num_ordre) VALUES (%3, %4, %5, %6, %7, '%8', %9)")
                             .arg(table, key, num)
                             .arg(code)
                             .arg(day)
                             .arg(type)
                             .arg(finales)
                             .arg(kind)
                             .arg(order));
    }
    // The rows of the programme, "code:day:type:finals:kind:order", by code.
    QStringList stored(const QString& num)
    {
        return dump(QStringLiteral("select Code_epreuve, JourCourse, Type, Nb_finales, Type_finale, Num_ordre from "
                                   "Pcomp where Num_compet = %1 order by Code_epreuve").arg(num));
    }
    FrmProg* open(const QString& num)
    {
        return OuvrirProg(*app, QString(keyword::kModif), num, false, u"Programme compétition"_s, {});
    }
    int row_of(FrmProg& prog, int code)
    {
        return *find_row(prog.LsvNage(), QString::number(code), 0, false, false, 1);
    }
    bool ticked(FrmProg& prog, int code)
    {
        return prog.LsvNage().item(row_of(prog, code), 0)->checkState() == Qt::Checked;
    }
};

}  // namespace

TEST_F(ProgBase, ProgrammeIsEditedInMemoryAndWrittenBackOnOk)
{
    const QString num = compet("20250315", "20250317");
    line(num, 2, 1, 3, 2, "C", 5);
    line(num, 12, 3, 1, 0, " ", 0);
    FrmProg* prog = open(num);
    ASSERT_NE(prog, nullptr);
    EXPECT_EQ(prog->title(), "Programme compétition");
    // A 50 m competition opened for the first time lists the 25 m-only events too.
    EXPECT_EQ(prog->LsvNage().rowCount(), value("select count(*) from Nage").toInt());
    EXPECT_EQ((std::array{ticked(*prog, 0), ticked(*prog, 1), ticked(*prog, 2), ticked(*prog, 12)}),
              (std::array{false, false, true, true}));
    // Length, days, last day; a competition's programme offers no source to load nor a day count.
    EXPECT_EQ(std::tuple(prog->longueur(), prog->CboDate().size(), prog->intJourneeMax()), std::tuple(50, 3, 3));
    EXPECT_EQ(std::tuple(prog->Chk_modele_visible(), prog->Cmd_charger_visible(), prog->journee_visible()),
              std::tuple(true, false, false));

    prog->select_event(row_of(*prog, 2));
    EXPECT_EQ(std::tuple(prog->Optclass, prog->optNbFinales, prog->OptType, prog->txtordre, prog->cbo_index()),
              std::tuple(3, 2, int(FrmProg::kCategories), u"5"_s, 0));
    EXPECT_TRUE(prog->finales_enabled());
    // A kind with finals proposes "Finale A" and "Toutes catégories"; "Temps" locks them.
    prog->set_optclass(8);
    EXPECT_EQ(std::tuple(prog->optNbFinales, prog->OptType), std::tuple(1, int(FrmProg::kToutesCategories)));
    prog->set_optclass(2);
    prog->optNbFinales = 3;

    // A newly ticked event: "Temps" on the first day, finals locked.
    prog->set_checked(row_of(*prog, 1), true);
    EXPECT_EQ(prog->selected_event(), row_of(*prog, 1));
    EXPECT_EQ(prog->Optclass, 1);
    EXPECT_FALSE(prog->finales_enabled());
    EXPECT_TRUE(prog->cbo_enabled());
    EXPECT_EQ(prog->cbo_index(), 0);
    prog->set_cbo_index(2);
    prog->txtordre = u"7"_s;

    // Unticked: the fields empty and lock; it leaves the programme.
    prog->set_checked(row_of(*prog, 12), false);
    EXPECT_EQ(prog->Optclass, 0);
    EXPECT_TRUE(prog->txtordre.isEmpty());
    EXPECT_FALSE(prog->cbo_enabled());
    EXPECT_FALSE(prog->optclass_enabled());

    // Nothing reaches the base before Ok.
    EXPECT_EQ(stored(num), (QStringList{"2:1:3:2:C:5", "12:3:1:0: :0"}));
    EXPECT_NE(ui.status[2], u"Programme enregistré"_s);
    prog->cmd_ok();
    EXPECT_TRUE(prog->is_closed());
    EXPECT_EQ(stored(num), (QStringList{"1:3:1:0: :7", "2:1:2:3:T:5"}));
    EXPECT_TRUE(ui.texts().isEmpty());
    EXPECT_EQ(ui.status[2], u"Programme enregistré"_s);
}

TEST_F(ProgBase, DetailListsUnorderedEventsFirstThenDayByDay)
{
    const QString num = compet("20250315", "20250316");
    line(num, 3, 2, 1, 0, " ", 1);
    line(num, 2, 1, 2, 1, "T", 4);
    line(num, 1, 1, 4, 3, "C", 4);  // same day and order as 2: the code decides
    line(num, 12, 1, 8, 2, "T", 0);
    line(num, 13, 2, 6, 1, "C", 2);  // no text of its own for this kind
    FrmProg* prog = open(num);
    ASSERT_NE(prog, nullptr);
    prog->Cmd_det_def();
    EXPECT_FALSE(prog->definition_visible());
    EXPECT_EQ(prog->Cmd_det_def_caption(), "&Déf");
    QStringList lines;
    for (int r = 0; r < prog->Lsv_prog().rowCount(); ++r)
        lines << prog->Lsv_prog().item(r, 0)->text() + u'|' + prog->Lsv_prog().item(r, 1)->text();
    EXPECT_EQ(lines, (QStringList{
                         "100m dos Dames|0",
                         "|",
                         "15 mars 2025|",
                         "50m n.l. Dames (1/4 finales, finale A - B - C, par catégories)|4",
                         "100m n.l. Dames (1/2 finales, finale A, toutes catégories)|4",
                         "|",
                         "16 mars 2025|",
                         "200m n.l. Dames (Classement au temps)|1",
                         "200m dos Dames finale A, par catégories)|2",
                     }));
    EXPECT_EQ(value("select count(*) from Pcomp_tempo"), "0");
    prog->Cmd_det_def();
    EXPECT_TRUE(prog->definition_visible());
    EXPECT_EQ(prog->Cmd_det_def_caption(), "&Détail");
}

TEST_F(ProgBase, OrderWarningLooksAtEventZeroOnlyAndNeverStopsTheSave)
{
    const QString num = compet("20250315", "20250316", 25);
    line(num, 2, 1, 1, 0, " ", 9);
    FrmProg* prog = open(num);
    ASSERT_NE(prog, nullptr);
    // No event of code 0: a lower order on day 2 passes in silence.
    prog->select_event(row_of(*prog, 2));
    prog->set_cbo_index(1);
    prog->txtordre = u"1"_s;
    prog->select_event(row_of(*prog, 3));
    EXPECT_TRUE(ui.texts().isEmpty());

    // Event 0 on day 1 with order 10: an order of 10 or below on day 2 is warned of.
    prog->set_checked(row_of(*prog, 0), true);
    prog->txtordre = u"10"_s;
    prog->set_checked(row_of(*prog, 3), true);
    prog->set_cbo_index(1);
    prog->txtordre = u"10"_s;
    prog->select_event(row_of(*prog, 2));
    EXPECT_EQ(ui.texts(), QStringList{kOrderWarning});
    ui.clear();
    prog->txtordre = u"11"_s;
    prog->cmd_ok();
    EXPECT_TRUE(ui.texts().isEmpty());
    EXPECT_EQ(stored(num), (QStringList{"0:1:1:0: :10", "2:2:1:0: :11", "3:2:1:0: :10"}));
}

TEST_F(ProgBase, DaysAreBroughtWithinTheCompetitionAndFailuresReported)
{
    const QString num = compet("20250315", "20250316");
    line(num, 2, 4, 1, 0, " ", 3);
    FrmProg* prog = open(num);
    ASSERT_NE(prog, nullptr);
    prog->select_event(row_of(*prog, 2));
    EXPECT_EQ(prog->cbo_index(), 1);  // the last day shows
    TabProg& tab = prog->tabProg();
    EXPECT_EQ(tab[2].JourCourse, 4);
    prog->SaveTabInTable(u"Pcomp"_s, num, false);
    EXPECT_EQ(tab[2].JourCourse, 2);
    EXPECT_EQ(stored(num), QStringList{"2:2:1:0: :3"});

    EXPECT_FALSE(prog->SaveTabInTable(u"Pcomp_absente"_s, num, false));
    EXPECT_EQ(ui.texts().value(0).section(QLatin1Char('\n'), -1),
              "Une erreur s'est produite lors de l'enregistrement du programme.");
    prog->cmd_annuler();
    EXPECT_TRUE(prog->is_closed());
    EXPECT_EQ(stored(num), QStringList{"2:2:1:0: :3"});

    // No competition row: no days, a 50 m pool, and a ticked event is not stored.
    ui.clear();
    FrmProg* lost = open(u"999"_s);
    ASSERT_NE(lost, nullptr);
    EXPECT_TRUE(lost->CboDate().isEmpty());
    EXPECT_EQ(lost->longueur(), 50);
    lost->set_checked(row_of(*lost, 1), true);
    lost->cmd_ok();
    EXPECT_TRUE(stored(u"999"_s).isEmpty());
}

TEST_F(ProgBase, ModelLinesForA50mPoolDropThe25mEventsAndCodesBeyond99Fail)
{
    line(u"7"_s, 0, 1, 1, 0, " ", 1, "Pcomp_modele", "Num_modele");
    line(u"7"_s, 1, 4, 2, 1, "T", 2, "Pcomp_modele", "Num_modele");
    const LoadedProg all = ChargeTabProg(app->db, TabFromModeleSql(u"7"_s, 25));
    EXPECT_EQ(all.tab[0].JourCourse, 1);
    EXPECT_EQ(all.journee_max, 4);
    const LoadedProg fifty = ChargeTabProg(app->db, TabFromModeleSql(u"7"_s, 50));
    EXPECT_EQ(fifty.tab[0].JourCourse, 0);
    EXPECT_EQ(fifty.tab[1], all.tab[1]);
    line(u"7"_s, 100, 1, 1, 0, " ", 0, "Pcomp_modele", "Num_modele");
    EXPECT_THROW(ChargeTabProg(app->db, TabFromModeleSql(u"7"_s, 25)), std::out_of_range);
}
