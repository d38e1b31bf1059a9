// The own club's data on a real base: the save that replaces officers,
// activities and fees, the fee a licence loses with it, and a save whose
// insert fails half-way, which must leave the old rows.

#include "src/clubs/mon_club.h"
#include "club_test_base.h"
#include "support/awkward_text.h"

using namespace plouvarine;
using plouvarine::testing::awkward_text;

namespace {

const QString kCode = u"FRA2210290017"_s;

class OwnClubTest : public plouvarine::testing::ClubBase {
protected:
    void SetUp() override
    {
        ClubBase::SetUp();
        exec(u"INSERT INTO Club (Code_federal, Intitule) VALUES ('%1', 'Cercle des Nageurs');"_s.arg(kCode));
        exec(u"INSERT INTO Tarifs (Code_federal, Intitule, Tarif) VALUES ('%1', 'Adulte', 150), ('%1', 'Jeune', 90);"_s
                 .arg(kCode));
        exec(u"INSERT INTO Dirigeant (Code_federal, Fonction, Nom) VALUES ('%1', 'Président', 'Le Gall');"_s
                 .arg(kCode));
        app->state.club_code = kCode;
        app->state.club_name = u"Cercle des Nageurs"_s;
    }
    void add_licence(const QString& name, const QString& fee_sql)
    {
        exec(u"INSERT INTO Licence (Nom, Code_club, Tarif) VALUES ('%1', '%2', %3);"_s.arg(name, kCode, fee_sql));
    }
    // The rows of a two-column select as "first/second".
    QStringList pairs(const QString& sql) { return plouvarine::testing::row_texts(app->db.load_rows(sql), u'/'); }
};

}  // namespace

TEST_F(OwnClubTest, TheSaveReplacesTheListsAndLicencesLoseGoneFees)
{
    add_licence(u"ADULTE"_s, u"'Adulte'"_s);
    add_licence(u"JEUNE"_s, u"'Jeune'"_s);
    add_licence(u"SANS"_s, u"null"_s);

    OwnClubView view(*app);
    view.load();
    EXPECT_EQ(view.title(), u"Informations club Cercle des Nageurs"_s);
    ASSERT_EQ(view.Lsv_tarif().rowCount(), 2);
    ASSERT_EQ(view.Lsv_role().rowCount(), 1);

    view.info.ville = u"Saint-Malo"_s;
    view.info.adresse = u"1 quai d'Estrées"_s;
    view.put_officer({u"Trésorière"_s, u"Kerhervé"_s, u"0299"_s, {}, {}}, -1);
    view.add_activity(u"École de natation"_s);
    view.add_responsable(u"Morvan"_s);
    view.add_responsable(u"Tanguy"_s);
    view.add_activity(u"Maîtres"_s);
    // "Jeune" renamed: a removal and an addition.
    ASSERT_TRUE(view.put_fee(u"Jeunes"_s, u"12,50"_s, 1));
    ASSERT_TRUE(view.save());

    EXPECT_EQ(pairs(u"select Ville, Adresse from Club"_s), QStringList{u"Saint-Malo/1 quai d'Estrées"_s});
    EXPECT_EQ(dump(u"select Nom from Dirigeant order by Nom"_s), (QStringList{"Kerhervé", "Le Gall"}));
    EXPECT_EQ(pairs(u"select Activite, Responsable from Activites order by Activite, Responsable"_s),
              (QStringList{"École de natation/Morvan", "École de natation/Tanguy", "Maîtres/"}));
    EXPECT_EQ(pairs(u"select Intitule, Tarif from Tarifs where Suppr = false order by Intitule"_s),
              (QStringList{"Adulte/150", "Jeunes/12.5"}));
    EXPECT_EQ(count(u"select count(*) from Tarifs"_s), 2);
    EXPECT_EQ(dump(u"select Nom, coalesce(Tarif, 'null') from Licence order by Nom"_s),
              (QStringList{"ADULTE:Adulte", "JEUNE:", "SANS:null"}));
    EXPECT_EQ(NombreTarifs(*app, kCode), 2);
    EXPECT_EQ(ui.status[2], u"Club enregistré"_s);
    EXPECT_TRUE(ui.status_history.contains(u"Sauvegarde des informations sur le club"_s));

    // Read back, the lists are what was saved.
    OwnClubView again(*app);
    again.load();
    EXPECT_EQ(again.activities(), (QStringList{"École de natation", "Maîtres"}));
    again.choose_activity(u"École de natation"_s);
    EXPECT_EQ(again.lsv_responsable().rowCount(), 2);
}

TEST_F(OwnClubTest, AnInsertFailingHalfWayLeavesTheOldRows)
{
    add_licence(u"JEUNE"_s, u"'Jeune'"_s);
    exec(u"CREATE TRIGGER refuse_boom BEFORE INSERT ON Tarifs WHEN NEW.Intitule = 'Boom' "
         "BEGIN SELECT RAISE(ABORT, 'tarif refusé'); END;"_s);
    OwnClubView view(*app);
    view.load();
    view.put_officer({u"Secrétaire"_s, u"Riou"_s, {}, {}, {}}, -1);
    view.remove_fee(1);  // Jeune
    ASSERT_TRUE(view.put_fee(u"Aaa"_s, u"10"_s, -1));
    ASSERT_TRUE(view.put_fee(u"Boom"_s, u"20"_s, -1));
    EXPECT_FALSE(view.save());
    EXPECT_NE(ui.status[2], u"Club enregistré"_s);

    const QString shown = ui.messages.back().text;
    EXPECT_TRUE(shown.startsWith(u"Erreur n° "_s)) << shown.toStdString();
    EXPECT_TRUE(shown.endsWith(u"Erreur lors de la sauvegarde du tarif Boom."_s)) << shown.toStdString();
    // The fees stand as before the save, unmarked; the licence keeps its fee.
    EXPECT_EQ(pairs(u"select Intitule, Suppr from Tarifs order by Intitule"_s),
              (QStringList{"Adulte/Faux", "Jeune/Faux"}));
    EXPECT_EQ(dump(u"select Tarif from Licence"_s), QStringList{u"Jeune"_s});
    // The officers went through on their own.
    EXPECT_EQ(dump(u"select Nom from Dirigeant order by Nom"_s), (QStringList{"Le Gall", "Riou"}));
}

TEST_F(OwnClubTest, TheFeeFieldsAndTheirChecks)
{
    EXPECT_EQ(OwnClubView::franc_conversion(u"12,50"_s), u"81.99"_s);
    EXPECT_DOUBLE_EQ(OwnClubView::amount_value(u"12,50"_s), 12.5);
    // One decimal mark at most, of either kind, and digits only.
    const std::tuple<const char*, char, bool> keys[] = {{"12", ',', true},     {"12,5", ',', false},
                                                         {"185", '.', true},    {"185.5", ',', false},
                                                         {"185,5", '.', false}, {"12", 'a', false}};
    for (const auto& [field, key, accepted] : keys)
        EXPECT_EQ(OwnClubView::amount_key_accepted(QString::fromLatin1(field), QLatin1Char(key)), accepted)
            << field << " + " << key;

    OwnClubView view(*app);
    view.load();
    // Either mark gives the same amount, shown the French way and saved as a number.
    EXPECT_EQ(view.Lsv_tarif().item(0, 1)->text(), u"150,00 €"_s);
    ASSERT_TRUE(view.put_fee(u"Adulte"_s, u"185.50"_s, 0));
    ASSERT_TRUE(view.put_fee(u"Famille"_s, u"185,5"_s, -1));
    EXPECT_EQ(plouvarine::testing::column_texts(view.Lsv_tarif(), 1),
              (QStringList{"185,50 €", "90,00 €", "185,50 €"}));
    EXPECT_EQ(OwnClubView::amount_field(OwnClubView::amount_value(view.Lsv_tarif().item(0, 1)->text())), u"185,50"_s);
    ASSERT_TRUE(view.save());
    EXPECT_EQ(pairs(u"select Intitule, Tarif from Tarifs order by Intitule"_s),
              (QStringList{"Adulte/185.5", "Famille/185.5", "Jeune/90"}));
    ui.clear();
    EXPECT_FALSE(view.put_fee(u"   "_s, u"10"_s, -1));
    EXPECT_FALSE(view.put_fee(u"Famille"_s, u"0,00"_s, -1));
    EXPECT_EQ(ui.texts(),
              (QStringList{"Vous devez spécifier un intitulé du tarif.", "Vous devez spécifier un montant."}));
    EXPECT_EQ(ui.messages.back().title, u"Information"_s);
    EXPECT_EQ(view.Lsv_tarif().rowCount(), 3);
}

TEST_F(OwnClubTest, AwkwardTextsAreSavedAsTypedNewAndChanged)
{
    // Every text of the window: new rows first, then the rows the first round added, changed.
    for (const char* tag : {"", "2 "}) {
        const QString t = awkward_text(tag);
        const QString before = awkward_text();
        OwnClubView view(*app);
        view.load();
        view.nom = t;
        view.info = ClubInfo{t + "a", t + "c", t + "v", t + "t", t + "f", t + "m"};
        const auto row_of = [&](const QStandardItemModel& model, const QString& text) {
            const QStringList texts = plouvarine::testing::column_texts(model);
            return *tag ? int(texts.indexOf(text)) : -1;
        };
        view.put_officer({t + "fonction", t + "nom", t + "1", t + "2", t + "mail"},
                         row_of(view.Lsv_role(), before + "fonction"));
        view.add_activity(t + "activite");
        view.add_responsable(t + "resp");
        ASSERT_TRUE(view.put_fee(t + "tarif", u"12,50"_s, row_of(view.Lsv_tarif(), before + "tarif")));
        ASSERT_TRUE(view.save());

        EXPECT_EQ(pairs(u"select Intitule || Adresse || Code_Postal, Ville || Telephone || Fax || Mail from Club"_s),
                  QStringList{t + t + "a" + t + "c/" + t + "v" + t + "t" + t + "f" + t + "m"});
        EXPECT_TRUE(pairs(u"select Fonction || Nom, Tel1 || Tel2 || Mail from Dirigeant"_s)
                        .contains(t + "fonction" + t + "nom/" + t + "1" + t + "2" + t + "mail"));
        EXPECT_TRUE(pairs(u"select Activite, Responsable from Activites"_s).contains(t + "activite/" + t + "resp"));
        EXPECT_TRUE(pairs(u"select Intitule, Tarif from Tarifs"_s).contains(t + "tarif/12.5"));
    }
    // The changed officer and fee replaced the new ones.
    EXPECT_EQ(count(u"select count(*) from Dirigeant"_s), 2);
    EXPECT_EQ(count(u"select count(*) from Tarifs"_s), 3);
}
