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
using plouvarine::testing::LicenceBase;

namespace {

class DetLicenceTest : public LicenceBase {
protected:
    std::unique_ptr<DetLicence> open_new(const QString& numero = QStringLiteral("85001"))
    {
        auto v = std::make_unique<DetLicence>(*app, QStringLiteral("Nouveau"));
        v->load();
        v->text1[DetLicence::kNumero] = numero;
        v->text1[DetLicence::kNom] = QStringLiteral("Martin");
        v->text1[DetLicence::kPrenom] = QStringLiteral("Léa");
        v->txt_description = {QStringLiteral("7"), QStringLiteral("3"), QStringLiteral("1985")};
        v->Option_sexe = 1;
        return v;
    }
    int licences() { return count(QStringLiteral("select count(*) from Licence")); }
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
        EXPECT_EQ(ui.messages.at(0).title, QStringLiteral("Erreur"));
        EXPECT_FALSE(view->is_closed());
    }
    EXPECT_EQ(licences(), before);
}

TEST_F(DetLicenceTest, ANewLicenceWritesItsFieldsActivitiesAndFee)
{
    activity(QStringLiteral("Natation course"));
    fee(QStringLiteral("Adulte"));
    auto view = open_new();
    view->text1[DetLicence::kNom] = QStringLiteral(" Hélène d'Arc ");
    view->Cb_licence = 1;
    view->text1[DetLicence::kNationalite] = QStringLiteral("Atlantide");  // unknown: "FRA"
    view->Check1[5] = true;
    view->Option_type = 0;
    view->txt_description[DetLicence::kDepot] = QStringLiteral("20");
    view->txt_description[DetLicence::kDepot + 1] = QStringLiteral("9");
    view->txt_description[DetLicence::kDepot + 2] = QStringLiteral("2005");
    view->LsvActivites().item(0)->setCheckState(Qt::Checked);
    select_row_at(view->tarif_selection(), 0);
    ASSERT_TRUE(view->save());
    EXPECT_TRUE(view->is_closed());
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("Nageur mémorisé avec succès.")});

    const QString num = NumLicence(*app, QStringLiteral("85001C"), QLatin1String(kClub));
    const QStringList expected{"HELENE D'ARC", "F", "19850307", "FRA", "", "O", "20050920", "", "T", "N", "Adulte"};
    const Rows row = app->db.load_rows(QStringLiteral("select Nom, Sexe, Date_Naissance, Nationalite, Sportive, Maitre, "
                                                      "Date_Depot, Date_obliteration, Type_licence, Nature, Tarif "
                                                      "from Licence where Num = ") + num);
    for (int c = 0; c < expected.size(); ++c)
        EXPECT_EQ(row.value(0, c), expected[c]) << row.names()[c].toStdString();
    EXPECT_EQ(value(QStringLiteral("select Activite from Activite_licence where Num_lic = ") + num),
              QStringLiteral("Natation course"));
}

TEST_F(DetLicenceTest, ANumberOfTheSameClubIsRefusedBeforeTheChecksAnotherClubsIsNot)
{
    licence(QStringLiteral("DUPONT"), QStringLiteral("Anne"), QStringLiteral("85001F"));
    auto view = open_new();
    view->txt_description[0] = QStringLiteral("45");  // would fail the checks
    EXPECT_FALSE(view->save());
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("Numéro de licence déjà utilisé.\nInsertion du licencié annulé.")});

    exec(QStringLiteral("UPDATE Licence SET Code_club = '%1' WHERE Licence = '85001F'").arg(QLatin1String(kOtherClub)));
    EXPECT_TRUE(open_new()->save());
    EXPECT_EQ(count(QStringLiteral("select count(*) from Licence where Licence = '85001F'")), 2);
}

TEST_F(DetLicenceTest, AChangeLoadsTheRowAndAChangeOfSexAloneRemovesTheEntries)
{
    activity(QStringLiteral("Natation course"));
    fee(QStringLiteral("Adulte"));
    const QString num = licence(QStringLiteral("DUPONT"), QStringLiteral("Anne"), QStringLiteral("85001C"));
    exec(QStringLiteral("UPDATE Licence SET Sportive = 'o', Type_licence = 'N', Tarif = 'Adulte' WHERE Num = ") + num);
    exec(QStringLiteral("INSERT INTO Activite_licence VALUES (%1, 'Natation course')").arg(num));
    exec(QStringLiteral("INSERT INTO Selection (Code_Sel, Num_Lic) VALUES ('%1', %2)").arg(QLatin1String(kSelection), num));
    const QString open = competition(true, false);
    const QString hidden = competition(false, false);
    entry(open, num);
    entry(hidden, num);

    DetLicence view(*app, QStringLiteral("Modif"), num);
    view.load();
    EXPECT_EQ(view.text1[DetLicence::kNumero] + DetLicence::licence_letters()[view.Cb_licence], QStringLiteral("85001C"));
    EXPECT_EQ(view.text1[DetLicence::kNationalite], QStringLiteral("FRANCE"));
    EXPECT_EQ(view.txt_description[0] + view.txt_description[1] + view.txt_description[2], QStringLiteral("07031985"));
    EXPECT_TRUE(view.Check1[0]);
    EXPECT_EQ(view.Option_type, 1);
    EXPECT_EQ(view.LsvActivites().item(0)->checkState(), Qt::Checked);
    EXPECT_TRUE(view.tarif_selection().currentIndex().isValid());

    view.unselect_tarif();
    view.LsvActivites().item(0)->setCheckState(Qt::Unchecked);
    view.Option_sexe = 0;
    ASSERT_TRUE(view.save());
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("Nageur modifié avec succès.")});
    EXPECT_EQ(field(num, QStringLiteral("Sexe")) + field(num, QStringLiteral("Tarif")), QStringLiteral("M"));
    EXPECT_EQ(count(QStringLiteral("select count(*) from Activite_licence")), 0);
    // Entries of open competitions go; the deletion marks are not touched.
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag where Num_compet = ") + open), 0);
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag where Num_compet = ") + hidden), 1);
    EXPECT_EQ(field(num, QStringLiteral("Date_suppr")), QString());
    EXPECT_EQ(value(QStringLiteral("select Visible from Selection")), QStringLiteral("Vrai"));

    entry(open, num);
    DetLicence again(*app, QStringLiteral("Modif"), num);
    again.load();
    again.text1[DetLicence::kPrenom] = QStringLiteral("Annie");
    ASSERT_TRUE(again.save());
    EXPECT_EQ(count(QStringLiteral("select count(*) from Engag where Num_compet = ") + open), 1);
}

TEST_F(DetLicenceTest, ASelectionTakesOverAnExistingSwimmerAsAMemberOnly)
{
    club(QLatin1String(kClub), QStringLiteral("Brest Natation"));
    club(QStringLiteral("FRA2220290011"), QStringLiteral("Quimper"));
    const QString num = licence(QStringLiteral("DUPONT"), QStringLiteral("Anne"), QStringLiteral("85001F"));
    licence(QStringLiteral("ALLAIN"), QStringLiteral("Zoé"), QStringLiteral("86001F"), QStringLiteral("FRA2220290011"));
    exec(QStringLiteral("INSERT INTO Activite_licence VALUES (%1, 'Natation course')").arg(num));
    use_selection();
    auto view = open_new();
    EXPECT_TRUE(view->text1[DetLicence::kCodeClub].isEmpty());
    EXPECT_FALSE(view->tab_enabled(DetLicence::kTabMedical));

    int offered = -1;
    ui.drivers[QStringLiteral("frm_liste_licence")] = [&](View& v) {
        auto& list = dynamic_cast<FrmListeLicence&>(v);
        offered = list.lsv_licence().rowCount();
        list.cmd0();
    };
    view->choose_origin();
    EXPECT_EQ(offered, 1);  // the clubs of the selection only
    EXPECT_EQ(view->text1[DetLicence::kCodeClub], QLatin1String(kClub));
    EXPECT_EQ(view->text1[DetLicence::kOrigine], QStringLiteral("FRA221029001785001F"));

    // What is typed now is not written: the swimmer only joins.
    view->text1[DetLicence::kNom] = QStringLiteral("Autre");
    view->txt_description[0] = QStringLiteral("99");
    const int before = count(QStringLiteral("select count(*) from Licence"));
    ASSERT_TRUE(view->save());
    EXPECT_EQ(count(QStringLiteral("select count(*) from Licence")), before);
    EXPECT_EQ(field(num, QStringLiteral("Nom")), QStringLiteral("DUPONT"));
    EXPECT_EQ(count(QStringLiteral("select count(*) from Activite_licence")), 1);
    EXPECT_EQ(value(QStringLiteral("select Code_Sel from Selection where Visible = true and Num_Lic = ") + num),
              QLatin1String(kSelection));

    // A new swimmer goes to the club chosen among the selection's.
    ui.drivers[QStringLiteral("Frm_liste_club")] = [&](View& v) {
        offered = dynamic_cast<FrmListeClub&>(v).list().rowCount();
        dynamic_cast<FrmListeClub&>(v).ok();
    };
    auto fresh = open_new(QStringLiteral("85002"));
    fresh->choose_club();
    EXPECT_EQ(offered, 1);
    ASSERT_TRUE(fresh->save());
    const QString added = NumLicence(*app, QStringLiteral("85002F"), QLatin1String(kClub));
    EXPECT_EQ(value(QStringLiteral("select Code_Sel from Selection where Num_Lic = ") + added), QLatin1String(kSelection));
}

TEST_F(DetLicenceTest, AwkwardTextsAreSavedAsTypedNewAndChanged)
{
    const QString t = awkward_text();
    activity(t + "activite");
    fee(t + "tarif");
    const QList<std::pair<int, const char*>> texts = {
        {DetLicence::kPrenom, "Prenom"},   {DetLicence::kAdresse, "Adresse"},
        {DetLicence::kSuiteAdresse, "Suite_adresse"}, {DetLicence::kCodePostal, "Code_Postal"},
        {DetLicence::kLocalite, "Localite"}, {DetLicence::kTelephone, "Telephone"},
        {DetLicence::kCodeUnique, "Code_unique"}, {DetLicence::kTel2, "Tel2"},
        {DetLicence::kMail, "Mail"}};
    const auto fill = [&](DetLicence& view, const QString& text) {
        view.text1[DetLicence::kNom] = text;
        view.text1[DetLicence::kNationalite] = text;  // unknown: "FRA"
        for (const auto& [index, column] : texts)
            view.text1[size_t(index)] = text + QLatin1String(column);
        view.txt_Medecin = text + "medecin";
    };
    const auto check = [&](const QString& num, const QString& text) {
        EXPECT_EQ(field(num, QStringLiteral("Nom")), SansAccents(text));
        EXPECT_EQ(field(num, QStringLiteral("Nationalite")), QStringLiteral("FRA"));
        for (const auto& [index, column] : texts)
            EXPECT_EQ(field(num, QLatin1String(column)), text + QLatin1String(column)) << column;
        EXPECT_EQ(field(num, QStringLiteral("Medecin")), text + "medecin");
        EXPECT_EQ(field(num, QStringLiteral("Tarif")), t + "tarif");
        EXPECT_EQ(value(QStringLiteral("select Activite from Activite_licence where Num_lic = ") + num), t + "activite");
    };

    auto view = open_new();
    fill(*view, t);
    view->LsvActivites().item(0)->setCheckState(Qt::Checked);
    select_row_at(view->tarif_selection(), 0);
    ASSERT_TRUE(view->save());
    const QString num = NumLicence(*app, QStringLiteral("85001F"), QLatin1String(kClub));
    ASSERT_FALSE(num.isEmpty());
    check(num, t);

    const QString u = awkward_text("2 ");
    DetLicence changed(*app, QStringLiteral("Modif"), num);
    changed.load();
    EXPECT_EQ(changed.text1[DetLicence::kPrenom], t + "Prenom");
    EXPECT_EQ(changed.LsvActivites().item(0)->checkState(), Qt::Checked);
    fill(changed, u);
    ASSERT_TRUE(changed.save());
    check(num, u);
}
