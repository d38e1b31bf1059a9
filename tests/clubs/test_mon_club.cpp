// The own club's data on a real base: the save that replaces officers,
// activities and fees, the fee a licence loses with it, and a save whose
// insert fails half-way, which must leave the old rows.

#include "src/clubs/mon_club.h"
#include "support/app_fixture.h"
#include "support/awkward_text.h"

using namespace plouvarine;
using plouvarine::testing::awkward_text;
using plouvarine::testing::AppFixture;

namespace {

const QString kCode = QStringLiteral("FRA2210290017");

class OwnClubTest : public AppFixture {
protected:
    void SetUp() override
    {
        AppFixture::SetUp();
        connect(make_base());
        app->db.exec_sql(QStringLiteral("INSERT INTO Club (Code_federal, Intitule) VALUES ('%1', 'Cercle des Nageurs');")
                             .arg(kCode));
        app->db.exec_sql(QStringLiteral("INSERT INTO Tarifs (Code_federal, Intitule, Tarif) VALUES "
                                        "('%1', 'Adulte', 150), ('%1', 'Jeune', 90);").arg(kCode));
        app->db.exec_sql(QStringLiteral("INSERT INTO Dirigeant (Code_federal, Fonction, Nom) VALUES "
                                        "('%1', 'Président', 'Le Gall');").arg(kCode));
        app->state.club_code = kCode;
        app->state.club_name = QStringLiteral("Cercle des Nageurs");
    }
    void add_licence(const QString& name, const QString& fee_sql)
    {
        app->db.exec_sql(QStringLiteral("INSERT INTO Licence (Nom, Code_club, Tarif) VALUES ('%1', '%2', %3);")
                             .arg(name, kCode, fee_sql));
    }
    QStringList column(const QString& sql) { return app->db.load_rows(sql).column(0); }
    // The rows of a two-column select as "first/second".
    QStringList pairs(const QString& sql) { return plouvarine::testing::row_texts(app->db.load_rows(sql), u'/'); }
};

}  // namespace

TEST_F(OwnClubTest, TheSaveReplacesTheListsAndLicencesLoseGoneFees)
{
    add_licence(QStringLiteral("ADULTE"), QStringLiteral("'Adulte'"));
    add_licence(QStringLiteral("JEUNE"), QStringLiteral("'Jeune'"));
    add_licence(QStringLiteral("SANS"), QStringLiteral("null"));

    OwnClubView view(*app);
    view.load();
    EXPECT_EQ(view.title(), QStringLiteral("Informations club Cercle des Nageurs"));
    ASSERT_EQ(view.Lsv_tarif().rowCount(), 2);
    ASSERT_EQ(view.Lsv_role().rowCount(), 1);

    view.info.ville = QStringLiteral("Saint-Malo");
    view.info.adresse = QStringLiteral("1 quai d'Estrées");
    view.put_officer({QStringLiteral("Trésorière"), QStringLiteral("Kerhervé"), QStringLiteral("0299"), {}, {}}, -1);
    view.add_activity(QStringLiteral("École de natation"));
    view.add_responsable(QStringLiteral("Morvan"));
    view.add_responsable(QStringLiteral("Tanguy"));
    view.add_activity(QStringLiteral("Maîtres"));
    // "Jeune" renamed: a removal and an addition.
    ASSERT_TRUE(view.put_fee(QStringLiteral("Jeunes"), QStringLiteral("12,50"), 1));
    ASSERT_TRUE(view.save());

    EXPECT_EQ(app->db.load_rows(QStringLiteral("select Ville, Adresse from Club")).first(1),
              QStringLiteral("1 quai d'Estrées"));
    EXPECT_EQ(column(QStringLiteral("select Nom from Dirigeant order by Nom")),
              (QStringList{"Kerhervé", "Le Gall"}));
    EXPECT_EQ(pairs(QStringLiteral("select Activite, Responsable from Activites order by Activite, Responsable")),
              (QStringList{"École de natation/Morvan", "École de natation/Tanguy", "Maîtres/"}));
    EXPECT_EQ(pairs(QStringLiteral("select Intitule, Tarif from Tarifs order by Intitule")),
              (QStringList{"Adulte/150", "Jeunes/12.5"}));
    EXPECT_EQ(app->db.count_query(QStringLiteral("select count(*) from Tarifs where Suppr = true")), 0);
    EXPECT_EQ(column(QStringLiteral("select Nom || ':' || coalesce(Tarif, 'null') from Licence order by Nom")),
              (QStringList{"ADULTE:Adulte", "JEUNE:", "SANS:null"}));
    EXPECT_EQ(NombreTarifs(*app, kCode), 2);
    EXPECT_EQ(ui.status[2], QStringLiteral("Club enregistré"));
    EXPECT_TRUE(ui.status_history.contains(QStringLiteral("Sauvegarde des informations sur le club")));

    // Read back, the lists are what was saved.
    OwnClubView again(*app);
    again.load();
    EXPECT_EQ(again.activities(), (QStringList{"École de natation", "Maîtres"}));
    again.choose_activity(QStringLiteral("École de natation"));
    EXPECT_EQ(again.lsv_responsable().rowCount(), 2);
}

TEST_F(OwnClubTest, AnInsertFailingHalfWayLeavesTheOldRows)
{
    add_licence(QStringLiteral("JEUNE"), QStringLiteral("'Jeune'"));
    app->db.exec_sql(QStringLiteral("CREATE TRIGGER refuse_boom BEFORE INSERT ON Tarifs WHEN NEW.Intitule = 'Boom' "
                                    "BEGIN SELECT RAISE(ABORT, 'tarif refusé'); END;"));
    OwnClubView view(*app);
    view.load();
    view.put_officer({QStringLiteral("Secrétaire"), QStringLiteral("Riou"), {}, {}, {}}, -1);
    view.remove_fee(1);  // Jeune
    ASSERT_TRUE(view.put_fee(QStringLiteral("Aaa"), QStringLiteral("10"), -1));
    ASSERT_TRUE(view.put_fee(QStringLiteral("Boom"), QStringLiteral("20"), -1));
    EXPECT_FALSE(view.save());
    EXPECT_NE(ui.status[2], QStringLiteral("Club enregistré"));

    const QString shown = ui.messages.back().text;
    EXPECT_TRUE(shown.startsWith(QStringLiteral("Erreur n° "))) << shown.toStdString();
    EXPECT_TRUE(shown.endsWith(QStringLiteral("Erreur lors de la sauvegarde du tarif Boom."))) << shown.toStdString();
    // The fees stand as before the save, unmarked; the licence keeps its fee.
    EXPECT_EQ(pairs(QStringLiteral("select Intitule, Suppr from Tarifs order by Intitule")),
              (QStringList{"Adulte/Faux", "Jeune/Faux"}));
    EXPECT_EQ(column(QStringLiteral("select Tarif from Licence")), QStringList{QStringLiteral("Jeune")});
    // The officers went through on their own.
    EXPECT_EQ(column(QStringLiteral("select Nom from Dirigeant order by Nom")), (QStringList{"Le Gall", "Riou"}));
}

TEST_F(OwnClubTest, TheFeeFieldsAndTheirChecks)
{
    EXPECT_EQ(OwnClubView::franc_conversion(QStringLiteral("12,50")), QStringLiteral("81.99"));
    EXPECT_DOUBLE_EQ(OwnClubView::amount_value(QStringLiteral("12,50")), 12.5);
    EXPECT_TRUE(OwnClubView::amount_key_accepted(QStringLiteral("12"), QLatin1Char(',')));
    EXPECT_FALSE(OwnClubView::amount_key_accepted(QStringLiteral("12,5"), QLatin1Char(',')));
    EXPECT_TRUE(OwnClubView::amount_key_accepted(QStringLiteral("185"), QLatin1Char('.')));
    EXPECT_FALSE(OwnClubView::amount_key_accepted(QStringLiteral("185.5"), QLatin1Char(',')));
    EXPECT_FALSE(OwnClubView::amount_key_accepted(QStringLiteral("185,5"), QLatin1Char('.')));
    EXPECT_FALSE(OwnClubView::amount_key_accepted(QStringLiteral("12"), QLatin1Char('a')));

    OwnClubView view(*app);
    view.load();
    // Either mark gives the same amount, shown the French way and saved as a number.
    EXPECT_EQ(view.Lsv_tarif().item(0, 1)->text(), QStringLiteral("150,00 €"));
    ASSERT_TRUE(view.put_fee(QStringLiteral("Adulte"), QStringLiteral("185.50"), 0));
    ASSERT_TRUE(view.put_fee(QStringLiteral("Famille"), QStringLiteral("185,5"), -1));
    EXPECT_EQ(view.Lsv_tarif().item(0, 1)->text(), QStringLiteral("185,50 €"));
    EXPECT_EQ(view.Lsv_tarif().item(2, 1)->text(), QStringLiteral("185,50 €"));
    EXPECT_EQ(OwnClubView::amount_field(OwnClubView::amount_value(view.Lsv_tarif().item(0, 1)->text())),
              QStringLiteral("185,50"));
    ASSERT_TRUE(view.save());
    EXPECT_EQ(pairs(QStringLiteral("select Intitule, Tarif from Tarifs order by Intitule")),
              (QStringList{"Adulte/185.5", "Famille/185.5", "Jeune/90"}));
    ui.clear();
    EXPECT_FALSE(view.put_fee(QStringLiteral("   "), QStringLiteral("10"), -1));
    EXPECT_FALSE(view.put_fee(QStringLiteral("Famille"), QStringLiteral("0,00"), -1));
    EXPECT_EQ(ui.texts(), (QStringList{"Vous devez spécifier un intitulé du tarif.", "Vous devez spécifier un montant."}));
    EXPECT_EQ(ui.messages.back().title, QStringLiteral("Information"));
    EXPECT_EQ(view.Lsv_tarif().rowCount(), 3);
}

TEST_F(OwnClubTest, AwkwardTextsAreSavedAsTypedNewAndChanged)
{
    // Every text of the window, new rows first, then the same rows changed.
    for (const char* tag : {"", "2 "}) {
        const QString t = awkward_text(tag);
        OwnClubView view(*app);
        view.load();
        view.nom = t;
        view.info = ClubInfo{t + "a", t + "c", t + "v", t + "t", t + "f", t + "m"};
        // The second round changes the rows the first one added.
        const QString before = awkward_text("");
        const auto row_of = [&](const QStandardItemModel& model, const QString& text) {
            for (int r = 0; *tag && r < model.rowCount(); ++r)
                if (model.item(r, 0)->text() == text)
                    return r;
            return -1;
        };
        view.put_officer({t + "fonction", t + "nom", t + "1", t + "2", t + "mail"},
                         row_of(view.Lsv_role(), before + "fonction"));
        view.add_activity(t + "activite");
        view.add_responsable(t + "resp");
        ASSERT_TRUE(view.put_fee(t + "tarif", QStringLiteral("12,50"), row_of(view.Lsv_tarif(), before + "tarif")));
        ASSERT_TRUE(view.save());

        const Rows club = app->db.load_rows(
            QStringLiteral("select Intitule, Adresse, Code_Postal, Ville, Telephone, Fax, Mail from Club"));
        ASSERT_EQ(club.size(), 1);
        EXPECT_EQ(club.value(0, 0), t);
        const QStringList suffixes{"", "a", "c", "v", "t", "f", "m"};
        for (int c = 1; c < 7; ++c)
            EXPECT_EQ(club.value(0, c), t + suffixes.at(c));
        EXPECT_TRUE(column(QStringLiteral("select Fonction || '|' || Nom || '|' || Tel1 || '|' || Tel2 || '|' || Mail "
                                          "from Dirigeant"))
                        .contains(QStringList{t + "fonction", t + "nom", t + "1", t + "2", t + "mail"}.join('|')));
        EXPECT_TRUE(pairs(QStringLiteral("select Activite, Responsable from Activites"))
                        .contains(t + "activite/" + t + "resp"));
        EXPECT_TRUE(pairs(QStringLiteral("select Intitule, Tarif from Tarifs")).contains(t + "tarif/12.5"));
    }
    // The changed officer and fee replaced the new ones.
    EXPECT_EQ(app->db.count_query(QStringLiteral("select count(*) from Dirigeant")), 2);
    EXPECT_EQ(app->db.count_query(QStringLiteral("select count(*) from Tarifs")), 3);
}
