// The record bands: the overlap rules within one sex, the order of the list,
// and the save that replaces the definition and carries the records over.

#include "records_test_base.h"
#include "src/records/record_categories.h"

#include <gtest/gtest.h>

using namespace plouvarine;
using namespace Qt::Literals::StringLiterals;

namespace {

class RecordCategoriesTest : public plouvarine::testing::RecordsBase {
protected:
    // Types a band into the fields and runs Cmd_def `index` on it.
    bool put(DetCategorieRecordClub& view, int index, const QString& label, const QString& low, const QString& high,
             int sexe)
    {
        view.txt_libelle = label;
        view.txt_age = {low, high};
        view.opt_sexe = sexe;
        return view.cmd_def(index);
    }
    QStringList shown(DetCategorieRecordClub& view)
    {
        QStringList out;
        for (const CategorieRecord& b : view.lines())
            out << u"%1 %2-%3 %4"_s.arg(b.libelle).arg(b.age_inf).arg(b.age_sup).arg(b.sexe);
        return out;
    }
    static constexpr int kHomme = 0, kFemme = 1, kMixte = 2;
};

TEST_F(RecordCategoriesTest, OverlapIsTestedWithinOneSexBoundsIncluded)
{
    band("Benjamins", 10, 12, "Homme");
    DetCategorieRecordClub view(*app);
    view.charge();
    const QString refused = u"Ajouter impossible !\nLes ages limites sont déjà compris dans une catégorie"_s;

    // Another sex, and "Mixte" beside both, do not collide.
    EXPECT_TRUE(put(view, 0, u"Benjamines"_s, u"10"_s, u"12"_s, kFemme));
    EXPECT_TRUE(put(view, 0, u"Relais jeunes"_s, u"10"_s, u"12"_s, kMixte));
    EXPECT_TRUE(ui.messages.empty());
    // "Mixte" collides with "Mixte".
    EXPECT_FALSE(put(view, 0, u"Relais"_s, u"11"_s, QString(), kMixte));
    // A shared bound counts; the next age does not.
    EXPECT_FALSE(put(view, 0, u"Minimes"_s, u"12"_s, u"14"_s, kHomme));
    EXPECT_TRUE(put(view, 0, u"Minimes"_s, u"13"_s, u"14"_s, kHomme));
    // A band enclosing another has neither end inside it: retained as allowed.
    EXPECT_TRUE(put(view, 0, u"Jeunes"_s, u"9"_s, u"15"_s, kFemme));
    EXPECT_EQ(messages(), QStringList(2, refused));
    EXPECT_EQ(ui.messages[0].title, u"Information"_s);

    // Kept in the order of the load: lowest age, then sex.
    EXPECT_EQ(shown(view), (QStringList{"Jeunes 9-15 Femme", "Benjamines 10-12 Femme", "Benjamins 10-12 Homme",
                                        "Relais jeunes 10-12 Mixte", "Minimes 13-14 Homme"}));

    // A line changed is not compared with itself; the others still count.
    view.select_line(2);
    EXPECT_EQ(view.txt_libelle, u"Benjamins"_s);
    EXPECT_TRUE(put(view, 1, u"Benjamins"_s, u"10"_s, u"11"_s, kHomme));
    view.select_line(2);
    EXPECT_FALSE(put(view, 1, u"Benjamins"_s, u"10"_s, u"13"_s, kHomme));
    EXPECT_EQ(ui.messages.back().text,
              u"Modifier impossible !\nLes ages limites sont déjà compris dans une catégorie"_s);
}

TEST_F(RecordCategoriesTest, BadLinesAreRefusedWithTheirReasons)
{
    DetCategorieRecordClub view(*app);
    view.charge();
    EXPECT_FALSE(put(view, 0, u"  "_s, u"8"_s, u"9"_s, kHomme));
    EXPECT_EQ(ui.messages.back().text, u"Ajouter impossible !\nLe libellé est manquant.\n"_s);
    EXPECT_FALSE(put(view, 0, u"Envers"_s, u"14"_s, u"12"_s, kHomme));
    EXPECT_EQ(ui.messages.back().text, u"Ajouter impossible !\nL'age mini est supérieur à l'age maxi.\n"_s);
    EXPECT_EQ(view.lsv_cat().rowCount(), 0);
    // Blank ages: the lowest is 0, the highest the lowest.
    EXPECT_TRUE(put(view, 0, u"Avenirs"_s, QString(), QString(), kFemme));
    EXPECT_EQ(shown(view), QStringList{"Avenirs 0-0 Femme"});
    // Modifier and Supprimer with no line chosen do nothing.
    view.select_line(-1);
    EXPECT_FALSE(view.cmd_def(1));
    EXPECT_FALSE(view.cmd_def(2));
    EXPECT_EQ(view.lsv_cat().rowCount(), 1);
}

TEST_F(RecordCategoriesTest, MergingTwoBandsKeepsTheChainOfRecords)
{
    const QString young = band("10-11 ans", 10, 11, "Homme");
    const QString older = band("12-13 ans", 12, 13, "Homme");
    const QString girls = band("Filles", 10, 13, "Femme");
    const QString seniors = band("Seniors", 20, 99, "Homme");
    const QString other = band("Autre club", 10, 13, "Homme", "FRA9999999999");
    record(young, 52, 50, 1.0000, "20010510", "Rapide");
    record(older, 52, 50, 1.0500, "20030612", "Lent tardif");
    record(older, 52, 50, 1.1000, "19990101", "Ancien");
    record(older, 52, 25, 1.0800, "20030612", "Petit bassin");
    record(girls, 2, 50, 1.0900, "20020202", "Fille");
    const QString orphan = record(seniors, 52, 50, 0.5500, "20050505", "Senior");
    record(other, 52, 50, 1.2000, "20040404", "Voisin");

    DetCategorieRecordClub view(*app);
    view.charge();
    ASSERT_EQ(view.lsv_cat().rowCount(), 4);
    bool told = false;
    view.on_saved = [&] { told = true; };
    // 12-13 and Seniors go, 10-11 becomes 10-13.
    view.select_line(2);
    ASSERT_EQ(view.txt_libelle, u"12-13 ans"_s);
    ASSERT_TRUE(view.cmd_def(2));
    view.select_line(2);
    ASSERT_EQ(view.txt_libelle, u"Seniors"_s);
    ASSERT_TRUE(view.cmd_def(2));
    view.select_line(1);
    ASSERT_EQ(view.txt_libelle, u"10-11 ans"_s);
    ASSERT_TRUE(put(view, 1, u"Benjamins d'hier"_s, u"10"_s, u"13"_s, kHomme));
    ASSERT_TRUE(view.ok());
    EXPECT_TRUE(told);
    EXPECT_TRUE(view.is_closed());

    EXPECT_EQ(dump(u"SELECT Libelle, Age_inf, Age_sup, Sexe, Old FROM Categori_record_club WHERE Code_Club = '%1' "
                   "ORDER BY Age_inf, Sexe"_s.arg(kClub)),
              (QStringList{"Filles:10:13:Femme:Faux", "Benjamins d'hier:10:13:Homme:Faux"}));
    // The slower record of 2003 never stood against the 2001 one: deleted.
    // The 1999 one was a record before 2001 and stays in the history. Another
    // club's bands and records are not touched.
    EXPECT_EQ(dump("SELECT RecordClub.Nom, Bassin, ifnull(Libelle, '-') FROM RecordClub LEFT JOIN Categori_record_club "
                   "ON Num_cat = Categorie ORDER BY RecordClub.Nom"),
              (QStringList{"Ancien:50:Benjamins d'hier", "Fille:50:Filles", "Petit bassin:25:Benjamins d'hier",
                           "Rapide:50:Benjamins d'hier", "Senior:50:-", "Voisin:50:Autre club"}));
    // No band took the seniors: their record stays, pointing at nothing.
    EXPECT_EQ(dump(u"SELECT Categorie FROM RecordClub WHERE Num_auto = %1"_s.arg(orphan)), QStringList{seniors});
}

TEST_F(RecordCategoriesTest, EqualTimesKeepTheEarlierDate)
{
    const QString cat = band("Open", 0, 99, "Femme");
    record(cat, 3, 50, 2.1000, "20030101", "Seconde");
    record(cat, 3, 50, 2.1000, "20010101", "Premiere");
    record(cat, 3, 25, 2.1000, "20050101", "Autre bassin");
    purge_records(app->db, cat);
    EXPECT_EQ(dump(u"SELECT Nom FROM RecordClub ORDER BY Bassin DESC"_s), (QStringList{"Premiere", "Autre bassin"}));
}

}  // namespace
