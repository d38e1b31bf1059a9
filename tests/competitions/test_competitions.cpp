// The competition register on a real base: the roll-over at opening, the
// checks and the save of det_compet, the deletion pass and the list's modes.

#include "src/clubs/pools.h"
#include "src/competitions/competition_hooks.h"
#include "src/competitions/det_compet.h"
#include "src/competitions/liste_compet.h"
#include "src/competitions/utils_compet.h"
#include "src/frame/keywords.h"
#include "src/frame/list_helpers.h"
#include "src/base/sql_text.h"
#include "src/base/text.h"
#include "src/store/sentinels.h"
#include "competitions/compet_test_base.h"
#include "support/awkward_text.h"

using namespace plouvarine;
using plouvarine::testing::awkward_text;

namespace {

class CompetBase : public plouvarine::testing::CompetFixture {
protected:
    QString compet(const QString& num, const QString& debut, const QString& fin, bool deroule = false,
                   bool visible = true, const QString& type = u"C"_s, int longueur = 50, int lanes = 6)
    {
        exec(u"INSERT INTO Rcomp (Num, Type, Nom, Debut, Fin, Lieu, Longueur, Nb_couloir, Codif_fede, Codif_inter, "
             "Codif_reg, Codif_depar, Deroule, Visible, Num_Piscine) VALUES ('%1', '%2', 'Meeting %1', '%3', '%4', "
             "'Brest', %5, %6, 'Q', 'R', 'A', ' ', %7, %8, %9)"_s.arg(num, type, debut, fin)
                 .arg(longueur)
                 .arg(lanes)
                 .arg(bool_text(deroule).text(), bool_text(visible).text(), NumPiscineNulle(*app)));
        return value(u"select max(AutoNum) from Rcomp"_s);
    }
    QString state(const QString& autonum)
    {
        return plouvarine::testing::row_texts(
                   app->db.load_rows(u"select Deroule, Visible from Rcomp where AutoNum = "_s + autonum), u'/')
            .value(0);
    }
    // A new competition with every field right, to spoil one at a time.
    void fill(DetCompet& det)
    {
        det.text1 = {u"Coupe d'hiver"_s, u"B12"_s, u"Saint-Brieuc"_s};
        det.txt_date = {};
        det.txt_date[0] = "15", det.txt_date[1] = "3", det.txt_date[2] = "2025";
        det.txt_date[10] = "16", det.txt_date[11] = "03", det.txt_date[12] = "2025";
        det.set_type(DetCompet::kChampionnats);
        det.Op_bass = DetCompet::kBassin50;
        det.codif = {0, 1, 2, 0};
    }
    FrmListeCompet* open_list(const QString& mode, const QString& caption = u"&Go"_s)
    {
        return OuvrirListeCompet(*app, mode, caption, u"Titre"_s);
    }
    // The fields of the select's only row, apart.
    QStringList first_row(const QString& sql)
    {
        const Rows rows = app->db.load_rows(sql);
        EXPECT_EQ(rows.size(), 1) << sql.toStdString();
        QStringList out;
        for (int c = 0; c < rows.column_count(); ++c)
            out << rows.first(c);
        return out;
    }
    QStringList nums(FrmListeCompet* list) { return plouvarine::testing::column_texts(list->lsv_compet()); }
    // Chooses `pool` in the pool list the detail opens, taking its place and lanes.
    void choose_pool(DetCompet& det, Pool pool)
    {
        pool.num = AjoutePiscine(*app, pool);
        det.choose_pool();
        auto* pools = ui.window_as<PoolListView>(u"Frm_liste_piscine"_s);
        ASSERT_NE(pools, nullptr);
        ui.answers.push_back(Button::Yes);
        pools->ok({0});
        EXPECT_EQ(det.lbl_piscine, pool.nom);
        EXPECT_EQ(det.num_piscine, pool.num);
    }
    static QString fields(const DetCompet& det)
    {
        return QStringList{det.text1[DetCompet::kLieu], det.Cb_couloir, QString::number(det.Op_bass)}.join(u':');
    }
};

}  // namespace

TEST_F(CompetBase, RolloverRetiresCompetitionsOnTheMorningOfTheirFirstDay)
{
    const QString yesterday = compet("A", "20250309", "20250312");
    const QString today = compet("B", "20250310", "20250310");
    const QString tomorrow = compet("C", "20250311", "20250311");
    const QString hidden = compet("D", "20250301", "20250301", false, false);
    const QString results = compet("E", "20250101", "20250101", true, true);
    install_competition_hooks(*app);
    app->hooks.competitions_rollover(*app);
    EXPECT_EQ((QStringList{state(yesterday), state(today), state(tomorrow), state(hidden), state(results)}),
              (QStringList{"Vrai/Faux", "Vrai/Faux", "Faux/Vrai", "Faux/Faux", "Vrai/Vrai"}));
}

TEST_F(CompetBase, NewCompetitionIsCheckedInOrderThenSaved)
{
    DetCompet det(*app, QString(keyword::kNouveau));
    EXPECT_EQ(det.num_piscine, NumPiscineNulle(*app));
    EXPECT_EQ(det.Cb_couloir, "8");
    const QStringList expected{"le nom", "le numéro", "le lieu", "le type", "le type de bassin",
                               "la codification fédérale", "la codification inter régionale",
                               "la codification régionale", "la codification départementale"};
    // Each field filled in turn moves the refusal to the next one.
    for (int step = 0; step < expected.size(); ++step) {
        ui.clear();
        EXPECT_FALSE(det.save());
        EXPECT_EQ(ui.texts(), QStringList{"Veuillez spécifier " + expected[step] + " de la compétition."});
        if (step < 3) det.text1[size_t(step)] = QStringLiteral("X");
        else if (step == 3) det.Option1 = 0;
        else if (step == 4) det.Op_bass = 0;
        else det.codif[size_t(step - 5)] = 2;
    }

    struct Spoilt {
        int field;
        const char* value;
        const char* message;
    };
    const Spoilt dates[] = {{1, "13", "Format des dates non valides."},
                            {0, "10", "Date de début de la compétition est passée."},  // today
                            {10, "14", "La date de fin ne peut être avant la date de début."}};
    for (const Spoilt& d : dates) {
        fill(det);
        det.txt_date[size_t(d.field)] = QString::fromLatin1(d.value);
        ui.clear();
        EXPECT_FALSE(det.save());
        EXPECT_EQ(ui.texts(), QStringList{QString::fromUtf8(d.message)});
        if (d.field == 1) {
            EXPECT_EQ(det.focus_field(), "txt_date_0");  // a bad format puts the person back on the first field
        }
    }
    EXPECT_EQ(count(u"select count(*) from Rcomp"_s), 0);

    // Saved with texts that break a hand-made statement, on one day only.
    const QString t = awkward_text();
    fill(det);
    det.text1 = {t + "nom", t + "num", t + "lieu"};
    det.txt_date[10] = "15";
    ui.clear();
    EXPECT_TRUE(det.save());
    EXPECT_EQ(ui.texts(), QStringList{"Compétition mémorisée avec succès."});
    EXPECT_TRUE(det.is_closed());
    EXPECT_EQ(first_row(u"select Num, Type, Nom, Debut, Fin, Lieu, Longueur, Nb_couloir, Codif_fede, Codif_inter, "
                        "Codif_reg, Codif_depar, Deroule, Visible, Num_Piscine from Rcomp"_s),
              (QStringList{t + "num", "C", t + "nom", "20250315", "20250315", t + "lieu", "50", "8", "Q", "R", "A", "Q",
                           "Faux", "Vrai", NumPiscineNulle(*app)}));
}

TEST_F(CompetBase, InterclubsIsAlways25mAndAnimationAndTheKeyFilterKeepsCapitals)
{
    DetCompet det(*app, QString(keyword::kNouveau));
    fill(det);
    det.set_type(DetCompet::kInterclubs);
    EXPECT_FALSE(det.options_enabled());
    auto levels = [](const CompetRecord& r) {
        return QStringList{r.longueur, r.codif_fede, r.codif_inter, r.codif_reg, r.codif_depar};
    };
    EXPECT_EQ(levels(det.LitCompet()), (QStringList{"25", "A", "A", "A", "A"}));
    det.clear_options();
    EXPECT_EQ(levels(det.LitCompet()), (QStringList{"25", " ", " ", " ", " "}));
    EXPECT_EQ(DetCompet::FiltreNumero("b1'2-z"), "B12Z");
    EXPECT_EQ(DetCompet::FiltreToucheNumero('q'), 'Q');
    EXPECT_EQ(DetCompet::FiltreToucheNumero(8), 8);
    EXPECT_EQ(DetCompet::FiltreToucheNumero('\''), 0);

    // Stored as an interclubs of 50 m with 11 lanes: loads as 25 m, 8 lanes.
    const QString num = compet("I1", "20250401", "20250402", false, true, "I", 50, 11);
    DetCompet loaded(*app, QString(keyword::kModif), num);
    loaded.load();
    EXPECT_EQ(fields(loaded), u"Brest:8:%1"_s.arg(DetCompet::kBassin25));
    EXPECT_EQ(loaded.codif, (std::array<int, 4>{2, 2, 2, 2}));
    EXPECT_EQ(loaded.lbl_piscine, "");

    // The reference pool removed by hand: the detail makes it again and the
    // competition left on the old row still loads, on the new one.
    exec(u"delete from Piscine where Nom = 'Null'"_s);
    DetCompet orphan(*app, QString(keyword::kModif), num);
    orphan.load();
    EXPECT_EQ(orphan.text1[DetCompet::kNom], "Meeting I1");
    EXPECT_EQ(ChampCompet(*app, num, u"Num_Piscine"_s), NumPiscineNulle(*app));
}

TEST_F(CompetBase, ModifShortensTheProgrammeAndChoosesAPool)
{
    const QString num = compet("M1", "20250401", "20250403");
    for (int day : {1, 2, 3})
        exec(u"INSERT INTO Pcomp (Num_compet, Code_epreuve, JourCourse, Num_ordre) VALUES (%1, %2, %2, 5)"_s.arg(num)
                 .arg(day));
    FrmListeCompet* list = open_list(QString(keyword::kModif), "&Modifier");
    ASSERT_NE(list, nullptr);
    list->cmd2();
    auto* det = ui.window_as<DetCompet>("det_compet");
    ASSERT_NE(det, nullptr);
    EXPECT_EQ(det->title(), "Modification de la compétition");
    EXPECT_EQ(det->text1[DetCompet::kLieu], "Brest");
    EXPECT_EQ(det->codif, (std::array<int, 4>{0, 1, 2, -1}));
    choose_pool(*det, Pool{{}, "Piscine de Kerlan", "", "29000", "Quimper", 10, 25});
    EXPECT_EQ(fields(*det), u"Quimper:10:%1"_s.arg(DetCompet::kBassin25));

    // Changed texts are saved as typed.
    const QString t = awkward_text("2 ");
    det->codif[3] = 2;
    det->txt_date[10] = "02";  // three days become two
    det->text1 = {t + "nom", t + "num", t + "lieu"};
    ui.clear();
    EXPECT_TRUE(det->save());
    EXPECT_EQ(ui.texts(), QStringList{"Compétition modifiée avec succès."});
    EXPECT_EQ(first_row(u"select Nom, Num, Lieu, Num_Piscine, Fin from Rcomp where AutoNum = "_s + num),
              (QStringList{t + "nom", t + "num", t + "lieu", det->num_piscine, "20250402"}));
    EXPECT_EQ(value("select group_concat(JourCourse || ':' || Num_ordre) from (select * from Pcomp order by "
                    "Code_epreuve)"),
              "1:5,2:5,1:0");
    EXPECT_EQ(list->lsv_compet().item(0, 2)->text(), t + "lieu");
}

TEST_F(CompetBase, APoolChosenForAnInterclubsSetsItsLength)
{
    OuvrirDetCompet(*app, QString(keyword::kNouveau), "Nouvelle compétition");
    auto* det = ui.window_as<DetCompet>("det_compet");
    ASSERT_NE(det, nullptr);
    det->set_type(DetCompet::kInterclubs);
    ASSERT_FALSE(det->options_enabled());
    choose_pool(*det, Pool{{}, "Piscine olympique", "", "35000", "Rennes", 10, 50});
    EXPECT_EQ(det->Op_bass, DetCompet::kBassin50);
    EXPECT_EQ(det->LitCompet().longueur, "50");
    EXPECT_FALSE(det->options_enabled());
}

TEST_F(CompetBase, DeletionHidesWithUndoAndKeepsTheProgramme)
{
    const QString a = compet("A", "20250401", "20250401");
    const QString b = compet("B", "20250402", "20250402");
    compet("C", "20250403", "20250403");
    exec("INSERT INTO Pcomp (Num_compet, Code_epreuve, JourCourse) VALUES (" + a + ", 1, 1)");
    FrmListeCompet* list = open_list(QString(keyword::kSuppr), "&Supprimer");
    for (int row : {0, 1})
        list->selection().select(list->lsv_compet().index(row, 0),
                                 QItemSelectionModel::Select | QItemSelectionModel::Rows);
    list->delete_key();
    EXPECT_EQ(nums(list), QStringList{"C"});
    const QString hidden_and_kept = u"select count(*) from Rcomp where Visible = false union all "
                                    "select count(*) from Rcomp_tempo"_s;
    EXPECT_EQ(dump(hidden_and_kept), (QStringList{"2", "2"}));
    list->cmd1();
    EXPECT_EQ(dump(hidden_and_kept), (QStringList{"0", "0"}));
    EXPECT_TRUE(ui.status[2].isEmpty());

    list = open_list(QString(keyword::kSuppr), "&Supprimer");
    list->cmd2();  // the first row, current
    list->cmd0();
    EXPECT_EQ(ui.status[2], "Suppression enregistrée");
    EXPECT_EQ(state(a), "Faux/Faux");
    EXPECT_EQ(state(b), "Faux/Vrai");
    EXPECT_EQ(count(u"select count(*) from Rcomp_tempo"_s), 0);
    EXPECT_EQ(count(u"select count(*) from Pcomp where Num_compet = "_s + a), 1);
}

TEST_F(CompetBase, ListModesShowTheirRowsAndHandTheChoiceOn)
{
    const QString a = compet("A", "20250309", "20250311");
    compet("B", "20250402", "20250402");
    const QString done = compet("R", "20250101", "20250102", true, true);
    compet("X", "20250103", "20250103", true, true);
    exec("INSERT INTO Prres (Num_compet, Code_epreuve) VALUES (" + done + ", 1)");

    FrmListeCompet* list = open_list(QString(keyword::kView), "");
    EXPECT_EQ(nums(list), (QStringList{"A", "B"}));
    EXPECT_EQ(list->lsv_compet().item(0, 3)->text(), "9/03 - 11/03/2025");
    EXPECT_FALSE(list->cmd2_visible());
    EXPECT_EQ(app->menus.counter("mnuCompetSuppr"), 1);
    list->sort_by_column(1);
    list->sort_by_column(1);
    EXPECT_EQ(nums(list), (QStringList{"B", "A"}));
    EXPECT_EQ(list->order_clause(), "order by Num DESC");
    list->sort_by_column(1);
    EXPECT_EQ(nums(list), (QStringList{"A", "B"}));
    list->cmd1();
    EXPECT_EQ(app->menus.counter("mnuCompetSuppr"), 0);

    list = open_list(QString(keyword::kImporRes), "&Résultats");
    EXPECT_EQ(nums(list), (QStringList{"R", "X"}));
    EXPECT_EQ(plouvarine::testing::column_texts(list->lsv_compet(), 4), (QStringList{"X", ""}));
    EXPECT_TRUE(list->cmd3_visible());
    // The import of results is still to come: choosing a competition, or
    // "&Nouvelle", says so and leaves the list open.
    const QString unavailable = u"Cette fonction n'est pas encore disponible."_s;
    ui.clear();
    list->activate();
    list->cmd3();
    EXPECT_EQ(ui.texts(), (QStringList{unavailable, unavailable}));
    EXPECT_FALSE(list->is_closed());
    list->cmd0();

    // An entries window at work stops the hand-over with the usual message.
    View engag(*app, "frm_engag");
    ASSERT_TRUE(engag.register_window());
    list = open_list(QString(keyword::kChoixPourEngagements), "&Engag");
    ui.clear();
    list->activate();
    engag.close();
    list->activate();
    EXPECT_EQ(ui.texts(),
              (QStringList{"La fenêtre est déjà ouverte.\nTerminer la précédente opération.", unavailable}));
    list->cmd0();

    // The programme window's copy list hands the chosen competition back.
    list = open_list(QString(FrmListeCompet::kChooseForProg));
    QString chosen;
    list->on_chosen = [&](const QString& num) { chosen = num; };
    list->activate();
    EXPECT_EQ(chosen, a);
    EXPECT_TRUE(list->is_closed());

    // An empty list leaves nothing to act on.
    list = open_list(QString(keyword::kModif), "&Modifier");
    list->set_liste("Vide", "select AutoNum, Num, Nom, Debut, Fin, Lieu from Rcomp where Num = 'none'");
    EXPECT_FALSE(list->cmd2_enabled());
    EXPECT_FALSE(list->cmd1_enabled());
}

TEST_F(CompetBase, StatementHelpersReadAndCreate)
{
    const QString a = compet("A", "20250401", "20250401");
    EXPECT_EQ(DebutCompet(*app, a), "20250401");
    EXPECT_EQ(LongueurCompet(*app, a), 50);
    const QString imported = CreerCompetImport(*app);
    ASSERT_FALSE(imported.isEmpty());
    EXPECT_EQ(state(imported), "Vrai/Vrai");
    EXPECT_EQ(ChampCompet(*app, imported, "Num_Piscine"), NumPiscineNulle(*app));
}
