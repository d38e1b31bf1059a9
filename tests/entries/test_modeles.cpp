// Entry models taken from a competition, applied, overwritten, deleted with an
// undo; and the programme window's way to the programme models.

#include "entries/entries_test_base.h"
#include "src/competitions/frm_prog.h"
#include "src/competitions/utils_programme.h"
#include "src/entries/frm_engag.h"
#include "src/entries/liste_modele.h"
#include "src/entries/modeles.h"
#include "src/frame/keywords.h"
#include "src/frame/list_helpers.h"

using namespace plouvarine;
using plouvarine::testing::EntriesBase;

namespace {

class Modeles : public EntriesBase {
protected:
    void SetUp() override
    {
        EntriesBase::SetUp();
        install_model_commands(*app);
    }
    // det_modele_obli answered with `name` (after an empty try when asked).
    void name_as(const QString& name, bool empty_first = false)
    {
        ui.drivers[QString(DetModeleObli::kName)] = [name, empty_first](View& v) {
            auto& naming = static_cast<DetModeleObli&>(v);
            if (empty_first) {
                naming.txt_nom = QStringLiteral("  ");
                naming.cmd_ok();
                ASSERT_FALSE(naming.is_closed());
            }
            naming.txt_nom = name;
            naming.cmd_ok();
        };
    }
    QString model(const QString& name, const QString& table = QStringLiteral("Modele_engag"))
    {
        return app->db.append_row(table, {{"Nom_modele", name}, {"Num_profil", 1}}, QStringLiteral("NumAuto"));
    }
    FrmListeModele* list(const QString& kind, const QString& mode)
    {
        return OuvrirListeModele(*app, kind, mode, QStringLiteral("&Nouveau"), QStringLiteral("Modèles"));
    }
    FrmListeModele* standing() { return ui.window_as<FrmListeModele>(QString(FrmListeModele::kName)); }
    void choose(FrmListeModele& l, const QString& num) { select_row_at(l.selection(), *find_key(l.Lsv_modele(), num)); }
    QStringList model_entries(const QString& m)
    {
        return dump(QStringLiteral("select Code_epreuve, Num_Lic from Engag_modele where Num_modele = %1 "
                                   "order by Code_epreuve").arg(m));
    }
    QStringList entries_of(const QString& c)
    {
        return dump(QStringLiteral("select Code_epreuve, Num_Lic, Tps_engagement from Engag where Num_compet = %1 "
                                   "order by Code_epreuve").arg(c));
    }
};

}  // namespace

TEST_F(Modeles, TakenFromACompetitionAndAppliedByPoolLength)
{
    const QString source = compet;
    const QString anne = swimmer(QStringLiteral("Martin"), QStringLiteral("F"));
    const QString paul = swimmer(QStringLiteral("Durand"), QStringLiteral("M"), QStringLiteral("Paul"));
    member(anne, 1, false);
    member(paul, 0, false);
    entry(anne, 0, 1, false);   // 25 m free: a 25 m pool only
    entry(anne, 1, 1, false);
    entry(paul, 51, 0, false);
    exec(QStringLiteral("INSERT INTO Engag_equipe (Num_compet, Num_profil, Eq_Homme, Eq_Femme, Eq_Mixte) VALUES "
                        "(%1, 1, 0, 1, 0)").arg(source));

    name_as(QStringLiteral("Equipe A"), true);
    FrmListeModele* l = list(QString(keyword::kModelEngag), QString(keyword::kModeleDepuisEngagement));
    ASSERT_NE(l, nullptr);
    l->compet = source;
    l->cmd_action();
    EXPECT_EQ(messages(), QStringList{QStringLiteral("Donner un nom au profil.")});
    EXPECT_EQ(standing(), nullptr);
    const QString m = value(QStringLiteral("select NumAuto from Modele_engag where Nom_modele = 'Equipe A'"));
    ASSERT_FALSE(m.isEmpty());
    EXPECT_EQ(model_entries(m), (QStringList{"0:" + anne, "1:" + anne, "51:" + paul}));
    EXPECT_EQ(dump(QStringLiteral("select Num_Lic, Equipe from Engag_nageur_modele where Num_modele = %1 "
                                  "order by Num_Lic").arg(m)),
              (QStringList{anne + ":1", paul + ":0"}));

    // A 50 m competition with entries and a relay of its own.
    const QString big = competition(50);
    compet = big;
    entry(paul, 52, 0, false);
    relay(8, 1, 1, false, {anne});
    ASSERT_TRUE(AppliquerModele(*app, m, big));
    EXPECT_EQ(entries_of(big), (QStringList{"1:" + anne + ":", "51:" + paul + ":"}));
    EXPECT_EQ(count(QStringLiteral("select count(*) from Relais where Num_compet = ") + big), 0);
    EXPECT_EQ(dump(QStringLiteral("select Eq_Homme, Eq_Femme, Eq_Mixte from Engag_equipe where Num_compet = ") + big),
              QStringList{"0:1:0"});
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag_nageur where Num_compet = ") + big), 2);

    const QString small = competition(25);
    ASSERT_TRUE(AppliquerModele(*app, m, small));
    EXPECT_EQ(entries_of(small), (QStringList{"0:" + anne + ":", "1:" + anne + ":", "51:" + paul + ":"}));
    // The source's own entries are untouched.
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag where Num_compet = ") + source), 3);
}

TEST_F(Modeles, OverwriteAnsweredNoLeavesTheModel)
{
    const QString anne = swimmer(QStringLiteral("Martin"), QStringLiteral("F"));
    entry(anne, 2, 0, false);
    const QString m = model(QStringLiteral("Equipe A"));
    exec(QStringLiteral("INSERT INTO Engag_modele (Num_modele, Code_epreuve, Num_Lic, Num_equipe, Equipe_mixte) "
                        "VALUES (%1, 5, %2, 0, false)").arg(m, anne));
    FrmListeModele* l = list(QString(keyword::kModelEngag), QString(keyword::kModeleDepuisEngagement));
    l->compet = compet;
    choose(*l, m);
    ui.answers.push_back(Button::No);
    l->cmd_ok();
    EXPECT_EQ(messages(), QStringList{QStringLiteral("Ecraser le modèle d'engagements Equipe A ?")});
    EXPECT_EQ(model_entries(m), QStringList{"5:" + anne});
    ASSERT_EQ(standing(), l);

    ui.answers.push_back(Button::Yes);
    l->activate();
    EXPECT_EQ(model_entries(m), QStringList{"2:" + anne});
    EXPECT_EQ(standing(), nullptr);
}

TEST_F(Modeles, CancelOfSupprBringsBackTheMarkedRows)
{
    const QString a = model(QStringLiteral("A"));
    const QString b = model(QStringLiteral("B"));
    const QString c = model(QStringLiteral("C"));
    exec(QStringLiteral("INSERT INTO Engag_modele (Num_modele, Code_epreuve, Num_Lic, Num_equipe, Equipe_mixte) "
                        "VALUES (%1, 5, 1, 0, false)").arg(a));
    FrmListeModele* l = list(QString(keyword::kModelEngag), QString(keyword::kSuppr));
    choose(*l, a);
    l->delete_key();
    choose(*l, c);
    l->cmd_action();
    EXPECT_EQ(l->Lsv_modele().rowCount(), 1);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Modele_engag where Suppr = true")), 2);
    l->cmd_annuler();
    EXPECT_EQ(count(QStringLiteral("select count(*) from Modele_engag where Suppr = false")), 3);

    // The close box undoes the pass too; "&Ok" makes it stand, with the model's rows.
    l = list(QString(keyword::kModelEngag), QString(keyword::kSuppr));
    choose(*l, b);
    l->delete_key();
    ui.close_window(QString(FrmListeModele::kName));
    EXPECT_EQ(count(QStringLiteral("select count(*) from Modele_engag where Suppr = false")), 3);
    l = list(QString(keyword::kModelEngag), QString(keyword::kSuppr));
    choose(*l, a);
    l->delete_key();
    l->cmd_ok();
    EXPECT_EQ(dump(QStringLiteral("select Nom_modele from Modele_engag order by Nom_modele")), (QStringList{"B", "C"}));
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag_modele")), 0);
}

TEST_F(Modeles, ANewModelIsNamedThenDefinedAndEditedWithAnUndo)
{
    name_as(QStringLiteral("Poussins"));
    (*app->commands.find(QStringLiteral("mnuModeleEngagNew")))(*app);
    auto* engag = ui.window_as<FrmEngag>(QString(FrmEngag::kName));
    ASSERT_NE(engag, nullptr);
    EXPECT_EQ(engag->title(), "Définition des engagements pour nouveau modèle Poussins");
    EXPECT_EQ(engag->mode(), "new modele");
    engag->cmd_annuler();
    EXPECT_EQ(count(QStringLiteral("select count(*) from Modele_engag")), 0);

    // Editing: the rows are kept aside, and "&Annuler" puts them back.
    const QString m = model(QStringLiteral("Benjamins"));
    exec(QStringLiteral("INSERT INTO Engag_modele (Num_modele, Code_epreuve, Num_Lic, Num_equipe, Equipe_mixte) "
                        "VALUES (%1, 5, 7, 0, false)").arg(m));
    FrmListeModele* l = list(QString(keyword::kModelEngag), QString(keyword::kModif));
    choose(*l, m);
    l->cmd_action();
    engag = ui.window_as<FrmEngag>(QString(FrmEngag::kName));
    ASSERT_NE(engag, nullptr);
    EXPECT_EQ(engag->title(), "Modification du modèle d'engagements Benjamins");
    EXPECT_EQ(dump(QStringLiteral("select Num_compet, Code_epreuve from Engag_tempo")), QStringList{m + ":5"});
    exec(QStringLiteral("DELETE FROM Engag_modele"));
    engag->cmd_annuler();
    EXPECT_EQ(model_entries(m), QStringList{"5:7"});
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag_tempo")), 0);

    // "Ok" of an edited model asks its name again.
    l->cmd_action();
    name_as(QStringLiteral("Benjamins 2025"));
    ui.window_as<FrmEngag>(QString(FrmEngag::kName))->cmd_ok();
    EXPECT_EQ(value(QStringLiteral("select Nom_modele from Modele_engag where NumAuto = ") + m), "Benjamins 2025");
    EXPECT_EQ(l->current_name(), "Benjamins 2025");
}

TEST_F(Modeles, EntryWindowAppliesAModelAndMakesOne)
{
    const QString anne = swimmer(QStringLiteral("Martin"), QStringLiteral("F"));
    const QString m = model(QStringLiteral("Equipe A"));
    exec(QStringLiteral("INSERT INTO Engag_modele (Num_modele, Code_epreuve, Num_Lic, Num_equipe, Equipe_mixte) "
                        "VALUES (%1, 0, %2, 0, false), (%1, 3, %2, 0, false)").arg(m, anne));
    exec(QStringLiteral("INSERT INTO Engag_nageur_modele (Num_modele, Num_Lic, Equipe, Equipe_m) VALUES (%1, %2, 0, "
                        "false)").arg(m, anne));
    relay(8, 1, 0, false, {anne});
    EngagerCompetition(*app, compet, {});
    auto* engag = ui.window_as<FrmEngag>(QString(FrmEngag::kName));
    ASSERT_NE(engag, nullptr);
    engag->Cmd_modele();
    FrmListeModele* l = standing();
    ASSERT_NE(l, nullptr);
    EXPECT_EQ(l->title(), "Choix d'un modèle d'engagements");
    l->activate();
    // 50 m: the 25 m free is left out; the relay is gone.
    EXPECT_EQ(entries_of(compet), QStringList{"3:" + anne + ":"});
    EXPECT_EQ(count(QStringLiteral("select count(*) from Relais")), 0);
    EXPECT_EQ(engag->lsv_engag().rowCount(), 1);

    // "Faire un modèle": the entries go on into a new model once the pass ends.
    engag->Chk_DoModele = true;
    name_as(QStringLiteral("Copie"));
    engag->cmd_ok();
    l = standing();
    ASSERT_NE(l, nullptr);
    EXPECT_EQ(l->title(), "Enregistrement dans un modèle");
    l->cmd_action();
    const QString copy = value(QStringLiteral("select NumAuto from Modele_engag where Nom_modele = 'Copie'"));
    EXPECT_EQ(model_entries(copy), QStringList{"3:" + anne});
}

TEST_F(Modeles, ProgrammeTakenFromAModelAndSavedIntoOne)
{
    const QString m = model(QStringLiteral("Meeting"), QStringLiteral("Modele_prog"));
    exec(QStringLiteral("INSERT INTO Pcomp_modele (Num_modele, Code_epreuve, JourCourse, Type, Nb_finales, "
                        "Type_finale, Num_ordre) VALUES (%1, 0, 1, '1', '0', ' ', 1), (%1, 2, 1, '3', '1', 'T', 2)")
             .arg(m));
    FrmProg* prog = OuvrirProg(*app, QString(keyword::kModif), compet, false, QStringLiteral("Programme"), {});
    ASSERT_NE(prog, nullptr);
    prog->Cmd_modele();
    FrmListeModele* l = standing();
    ASSERT_NE(l, nullptr);
    EXPECT_EQ(l->title(), "Choix d'un modèle de programme");
    l->cmd_ok();
    // A 50 m competition takes the model without its 25 m-only event.
    EXPECT_EQ(prog->tabProg()[0].JourCourse, 0);
    EXPECT_EQ(prog->tabProg()[2].Type, 3);

    prog->Chk_modele = true;
    name_as(QStringLiteral("Meeting 50"));
    prog->cmd_ok();
    l = standing();
    ASSERT_NE(l, nullptr);
    EXPECT_EQ(l->title(), "Enregistrement du programme dans un modèle");
    l->cmd_action();
    const QString saved = value(QStringLiteral("select NumAuto from Modele_prog where Nom_modele = 'Meeting 50'"));
    EXPECT_EQ(dump(QStringLiteral("select Code_epreuve, Type from Pcomp_modele where Num_modele = %1").arg(saved)),
              QStringList{"2:3"});
    EXPECT_EQ(dump(QStringLiteral("select Code_epreuve from Pcomp where Num_compet = %1").arg(compet)),
              QStringList{"2"});
}

TEST_F(Modeles, ProgrammeModelsAreShownEditedAndRenamed)
{
    const QString m = model(QStringLiteral("Meeting"), QStringLiteral("Modele_prog"));
    exec(QStringLiteral("INSERT INTO Pcomp_modele (Num_modele, Code_epreuve, JourCourse, Type, Nb_finales, "
                        "Type_finale, Num_ordre) VALUES (%1, 2, 2, '1', '0', ' ', 4)").arg(m));
    FrmListeModele* l = list(QString(keyword::kModelProg), QString(keyword::kView));
    l->activate();
    auto* prog = ui.window_as<FrmProg>(QString(FrmProg::kName));
    ASSERT_NE(prog, nullptr);
    EXPECT_EQ(prog->title(), "Modèle de programme Meeting");
    EXPECT_FALSE(prog->definition_visible());
    EXPECT_EQ(prog->Lsv_prog().item(1, 0)->text(), "2ème journée");
    ui.close_window(QString(FrmProg::kName));
    l->cmd_annuler();

    l = list(QString(keyword::kModelProg), QString(keyword::kModif));
    l->cmd_action();
    prog = ui.window_as<FrmProg>(QString(FrmProg::kName));
    ASSERT_NE(prog, nullptr);
    EXPECT_EQ(prog->title(), "Modification du modèle de programme Meeting");
    EXPECT_EQ(prog->CboDate().size(), 2);
    name_as(QStringLiteral("Meeting d'hiver"));
    prog->cmd_ok();
    EXPECT_EQ(l->current_name(), "Meeting d'hiver");
    EXPECT_EQ(dump(QStringLiteral("select Code_epreuve, JourCourse from Pcomp_modele")), QStringList{"2:2"});
}

TEST_F(Modeles, FailuresOfTheBaseAreToldAndStopTheWork)
{
    const QString anne = swimmer(QStringLiteral("Martin"), QStringLiteral("F"));
    entry(anne, 2, 0, false);
    const QString m = model(QStringLiteral("A"));
    // Editing a model whose rows can't be kept aside doesn't open it.
    exec(QStringLiteral("DROP TABLE Engag_tempo"));
    FrmListeModele* l = list(QString(keyword::kModelEngag), QString(keyword::kModif));
    l->cmd_action();
    l->cmd_annuler();
    EXPECT_EQ(messages().value(0).section(QLatin1Char('\n'), -1),
              "Erreur lors de la mémorisation des engagements dans la table temporaire");
    EXPECT_EQ(ui.window(QString(FrmEngag::kName)), nullptr);
    ui.clear();
    // A base whose model tables are not what they should be.
    exec(QStringLiteral("DROP TABLE Engag_nageur_modele"));
    EXPECT_FALSE(ModeleDepuisCompet(*app, m, compet));
    EXPECT_EQ(messages().value(0).section(QLatin1Char('\n'), -1), "Erreur durant la sauvegarde du modèle.");
    ui.clear();
    EXPECT_FALSE(AppliquerModele(*app, m, compet));
    EXPECT_EQ(messages(), QStringList{"Des erreurs sont apparues lors de la lecture des données depuis le modèle."});
    EXPECT_EQ(ui.titled(QStringLiteral("Information")).size(), 1u);
}
