// The licence detail on a real base: the checks and their order, what a new or
// changed licence writes, and the selection's ways of taking a swimmer in.

#include "src/clubs/liste_club.h"
#include "src/frame/list_helpers.h"
#include "src/licences/det_licence.h"
#include "src/licences/liste_licence.h"
#include "src/licences/utils_licences.h"
#include "licence_test_base.h"
#include "support/awkward_text.h"

using namespace plouvarine;
using plouvarine::testing::awkward_text;

namespace {

// The free texts of the detail and their columns.
const std::pair<int, const char*> kTexts[] = {
    {DetLicence::kPrenom, "Prenom"},       {DetLicence::kAdresse, "Adresse"},
    {DetLicence::kSuiteAdresse, "Suite_adresse"}, {DetLicence::kCodePostal, "Code_Postal"},
    {DetLicence::kLocalite, "Localite"},   {DetLicence::kTelephone, "Telephone"},
    {DetLicence::kCodeUnique, "Code_unique"}, {DetLicence::kTel2, "Tel2"},
    {DetLicence::kMail, "Mail"}};

class DetLicenceTest : public plouvarine::testing::LicenceBase {
protected:
    std::unique_ptr<DetLicence> open_new(const QString& numero = u"85001"_s) { return new_licence(numero); }
    int licences() { return count(u"select count(*) from Licence"_s); }
    // Every free text of `view` made of `text` and its column's name.
    static void fill(DetLicence& view, const QString& text)
    {
        for (const auto& [index, column] : kTexts)
            view.text1[size_t(index)] = text + QLatin1String(column);
        view.txt_Medecin = text + u"medecin"_s;
    }
    void expect_filled(const QString& num, const QString& text)
    {
        for (const auto& [index, column] : kTexts)
            EXPECT_EQ(field(num, QLatin1String(column)), text + QLatin1String(column)) << column;
        EXPECT_EQ(field(num, u"Medecin"_s), text + u"medecin"_s);
    }
};

}  // namespace

TEST_F(DetLicenceTest, TheChecksRunInOrderAndTheFirstFailureAloneIsShown)
{
    struct Case {
        const char *numero, *day, *nom, *prenom, *message;
    };
    const Case cases[] = {
        {"8500", "32", "A", "B", "Date de naissance invalide."},  // hides the short number
        {"8500", "7", "A", "B", "Numéro de licence incomplet."},
        {"58001", "7", "A", "B", "La licence et annee de naissance ne correspondent pas."},
        {" 85001 ", "7", "  ", "", "Nom de famille non renseigné."},
        {"85001", "7", "A", " ", "Prénom non renseigné."},
    };
    const int before = licences();
    for (const Case& c : cases) {
        ui.clear();
        auto view = open_new(QString::fromUtf8(c.numero));
        view->txt_description[0] = QString::fromUtf8(c.day);
        view->text1[DetLicence::kNom] = QString::fromUtf8(c.nom);
        view->text1[DetLicence::kPrenom] = QString::fromUtf8(c.prenom);
        EXPECT_FALSE(view->save());
        EXPECT_EQ(ui.texts(), QStringList{QString::fromUtf8(c.message)});
        EXPECT_EQ(ui.messages.at(0).title, u"Erreur"_s);
        EXPECT_FALSE(view->is_closed());
    }
    EXPECT_EQ(licences(), before);
}

// The texts are written with characters that break a hand-made statement.
TEST_F(DetLicenceTest, ANewLicenceWritesItsFieldsActivitiesAndFee)
{
    const QString t = awkward_text();
    activity(t + u"activite"_s);
    fee(t + u"tarif"_s);
    auto view = open_new();
    fill(*view, t);
    view->text1[DetLicence::kNom] = u" Hélène d'Arc "_s;
    view->Cb_licence = 1;
    view->text1[DetLicence::kNationalite] = u"Atlantide"_s;  // unknown: "FRA"
    view->Check1[5] = true;
    view->Option_type = 0;
    view->txt_description[DetLicence::kDepot] = u"20"_s;
    view->txt_description[DetLicence::kDepot + 1] = u"9"_s;
    view->txt_description[DetLicence::kDepot + 2] = u"2005"_s;
    view->LsvActivites().item(0)->setCheckState(Qt::Checked);
    select_row_at(view->tarif_selection(), 0);
    ASSERT_TRUE(view->save());
    EXPECT_TRUE(view->is_closed());
    EXPECT_EQ(ui.texts(), QStringList{u"Nageur mémorisé avec succès."_s});

    const QString num = NumLicence(*app, u"85001C"_s, QLatin1String(kClub));
    EXPECT_EQ(dump(u"select Nom, Sexe, Date_Naissance, Nationalite, Sportive, Maitre, Date_Depot, "
                   "Date_obliteration, Type_licence, Nature from Licence where Num = "_s + num),
              QStringList{u"HELENE D'ARC:F:19850307:FRA::O:20050920::T:N"_s});
    EXPECT_EQ(field(num, u"Tarif"_s), t + u"tarif"_s);
    expect_filled(num, t);
    EXPECT_EQ(value(u"select Activite from Activite_licence where Num_lic = "_s + num), t + u"activite"_s);
}

TEST_F(DetLicenceTest, ANumberOfTheSameClubIsRefusedBeforeTheChecksAnotherClubsIsNot)
{
    licence(u"DUPONT"_s, u"Anne"_s, u"85001F"_s);
    auto view = open_new();
    view->txt_description[0] = u"45"_s;  // would fail the checks
    EXPECT_FALSE(view->save());
    EXPECT_EQ(ui.texts(), QStringList{u"Numéro de licence déjà utilisé.\nInsertion du licencié annulé."_s});

    exec(u"UPDATE Licence SET Code_club = '%1' WHERE Licence = '85001F'"_s.arg(QLatin1String(kOtherClub)));
    EXPECT_TRUE(open_new()->save());
    EXPECT_EQ(count(u"select count(*) from Licence where Licence = '85001F'"_s), 2);
}

TEST_F(DetLicenceTest, AChangeLoadsTheRowAndAChangeOfSexAloneRemovesTheEntries)
{
    const QString t = awkward_text();
    activity(t + u"activite"_s);
    fee(u"Adulte"_s);
    const QString num = licence(u"DUPONT"_s, u"Anne"_s, u"85001C"_s);
    exec(u"UPDATE Licence SET Sportive = 'o', Type_licence = 'N', Tarif = 'Adulte' WHERE Num = "_s + num);
    exec(u"INSERT INTO Activite_licence VALUES (%1, %2)"_s.arg(num, quote_sql(t + u"activite"_s).text()));
    exec(u"INSERT INTO Selection (Code_Sel, Num_Lic) VALUES ('%1', %2)"_s.arg(QLatin1String(kSelection), num));
    const QString open = competition(true, false);
    const QString hidden = competition(false, false);
    entry(open, num);
    entry(hidden, num);

    DetLicence view(*app, u"Modif"_s, num);
    view.load();
    EXPECT_EQ((QStringList{view.text1[DetLicence::kNumero] + DetLicence::licence_letters()[view.Cb_licence],
                           view.text1[DetLicence::kNationalite],
                           view.txt_description[0] + view.txt_description[1] + view.txt_description[2]}),
              (QStringList{"85001C", "FRANCE", "07031985"}));
    // "Sportive", the type "N", the activity and the fee read back.
    EXPECT_EQ(std::tuple(view.Check1[0], view.Option_type, view.LsvActivites().item(0)->checkState(),
                         view.tarif_selection().currentIndex().isValid()),
              std::tuple(true, 1, Qt::Checked, true));

    view.unselect_tarif();
    view.LsvActivites().item(0)->setCheckState(Qt::Unchecked);
    view.Option_sexe = 0;
    ASSERT_TRUE(view.save());
    EXPECT_EQ(ui.texts(), QStringList{u"Nageur modifié avec succès."_s});
    EXPECT_EQ(field(num, u"Sexe"_s) + field(num, u"Tarif"_s), u"M"_s);
    EXPECT_EQ(count(u"select count(*) from Activite_licence"_s), 0);
    // Entries of open competitions go; the deletion marks are not touched.
    EXPECT_EQ(count(u"select count(*) from Engag where Num_compet = "_s + open), 0);
    EXPECT_EQ(count(u"select count(*) from Engag where Num_compet = "_s + hidden), 1);
    EXPECT_EQ(field(num, u"Date_suppr"_s), QString());
    EXPECT_EQ(value(u"select Visible from Selection"_s), u"Vrai"_s);

    // Any other change keeps the entries; texts are saved as typed, the name
    // in capitals without accents.
    entry(open, num);
    DetLicence again(*app, u"Modif"_s, num);
    again.load();
    const QString u = awkward_text("2 ");
    fill(again, u);
    again.text1[DetLicence::kNom] = u;
    again.LsvActivites().item(0)->setCheckState(Qt::Checked);
    ASSERT_TRUE(again.save());
    EXPECT_EQ(count(u"select count(*) from Engag where Num_compet = "_s + open), 1);
    EXPECT_EQ(field(num, u"Nom"_s), SansAccents(u));
    expect_filled(num, u);
    EXPECT_EQ(value(u"select Activite from Activite_licence where Num_lic = "_s + num), t + u"activite"_s);
    DetLicence reloaded(*app, u"Modif"_s, num);
    reloaded.load();
    EXPECT_EQ(reloaded.text1[DetLicence::kPrenom], u + u"Prenom"_s);
}

TEST_F(DetLicenceTest, ASelectionTakesOverAnExistingSwimmerAsAMemberOnly)
{
    club(QLatin1String(kClub), u"Brest Natation"_s);
    club(u"FRA2220290011"_s, u"Quimper"_s);
    const QString num = licence(u"DUPONT"_s, u"Anne"_s, u"85001F"_s);
    licence(u"ALLAIN"_s, u"Zoé"_s, u"86001F"_s, u"FRA2220290011"_s);
    exec(u"INSERT INTO Activite_licence VALUES (%1, 'Natation course')"_s.arg(num));
    use_selection();
    auto view = open_new();
    EXPECT_TRUE(view->text1[DetLicence::kCodeClub].isEmpty());
    EXPECT_FALSE(view->tab_enabled(DetLicence::kTabMedical));

    int offered = -1;
    ui.drivers[u"frm_liste_licence"_s] = [&](View& v) {
        auto& list = dynamic_cast<FrmListeLicence&>(v);
        offered = list.lsv_licence().rowCount();
        list.cmd0();
    };
    view->choose_origin();
    EXPECT_EQ(offered, 1);  // the clubs of the selection only
    EXPECT_EQ(view->text1[DetLicence::kCodeClub], QLatin1String(kClub));
    EXPECT_EQ(view->text1[DetLicence::kOrigine], u"FRA221029001785001F"_s);

    // What is typed now is not written: the swimmer only joins.
    view->text1[DetLicence::kNom] = u"Autre"_s;
    view->txt_description[0] = u"99"_s;
    const int before = licences();
    ASSERT_TRUE(view->save());
    EXPECT_EQ(licences(), before);
    EXPECT_EQ(field(num, u"Nom"_s), u"DUPONT"_s);
    EXPECT_EQ(count(u"select count(*) from Activite_licence"_s), 1);
    EXPECT_EQ(value(u"select Code_Sel from Selection where Visible = true and Num_Lic = "_s + num),
              QLatin1String(kSelection));

    // A new swimmer goes to the club chosen among the selection's.
    ui.drivers[u"Frm_liste_club"_s] = [&](View& v) {
        offered = dynamic_cast<FrmListeClub&>(v).list().rowCount();
        dynamic_cast<FrmListeClub&>(v).ok();
    };
    auto fresh = open_new(u"85002"_s);
    fresh->choose_club();
    EXPECT_EQ(offered, 1);
    ASSERT_TRUE(fresh->save());
    const QString added = NumLicence(*app, u"85002F"_s, QLatin1String(kClub));
    EXPECT_EQ(value(u"select Code_Sel from Selection where Num_Lic = "_s + added), QLatin1String(kSelection));
}
