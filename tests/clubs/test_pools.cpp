// The pool register on a real base: the reference pool kept out of sight, the
// deletion that moves competitions to it, the detail's saves and the choice
// made for a competition.

#include "src/clubs/pools.h"
#include "src/frame/keywords.h"
#include "src/frame/list_helpers.h"
#include "club_test_base.h"
#include "support/awkward_text.h"

#include <QStandardItem>

using namespace plouvarine;
using plouvarine::testing::awkward_text;

namespace {

class PoolsTest : public plouvarine::testing::ClubBase {
protected:
    void SetUp() override
    {
        ClubBase::SetUp();
        // The start-up controls guarantee the reference pool.
        exec(u"INSERT INTO Piscine (Nom) VALUES ('Null');"_s);
    }
    QString add(const QString& name, const QString& town = {}, int lanes = 8, int length = 25)
    {
        return AjoutePiscine(*app, Pool{{}, name, {}, {}, town, lanes, length});
    }
    QStringList shown(PoolListView& list) { return plouvarine::testing::column_texts(list.Lsv_piscine()); }
    PoolListView* open_list(const QString& keyword)
    {
        return OuvreListePiscines(*app, keyword, u"Piscines"_s, u"&Voir"_s);
    }
    static QString fields(const Pool& p)
    {
        return QStringList{p.nom, p.ville, QString::number(p.couloirs), QString::number(p.bassin)}.join(u':');
    }
};

}  // namespace

TEST_F(PoolsTest, TheListNeverShowsTheReferencePool)
{
    ASSERT_FALSE(NumPiscineNulle(*app).isEmpty());
    add(u"Piscine Gayeulles"_s, u"Rennes"_s, 8, 50);
    add(u"Aquatis"_s);
    add(u"null"_s);  // typed by someone: taken for the reference pool

    PoolListView* list = open_list(QString(keyword::kView));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(shown(*list), (QStringList{"Aquatis", "Piscine Gayeulles"}));
    EXPECT_EQ(fields(list->pool_at(1)), u"Piscine Gayeulles:Rennes:8:50"_s);
    EXPECT_EQ(row_key(list->Lsv_piscine(), 1), list->pool_at(1).num);
    EXPECT_EQ(ui.status_history.back(), u"Chargement de la liste des piscines"_s);

    // One list at a time: the second opening says so and gives nothing.
    EXPECT_EQ(open_list(QString(keyword::kModif)), nullptr);
    EXPECT_EQ(ui.messages.back().text, WindowRegistry::already_open_message());
}

TEST_F(PoolsTest, DeletingAPoolMovesItsCompetitionsToTheReference)
{
    const QString used = add(u"Bréquigny"_s, u"Rennes"_s, 6, 25);
    const QString other = add(u"Saint-Georges"_s);
    add(u"Gardée"_s);
    exec(u"INSERT INTO Rcomp (Nom, Lieu, Nb_couloir, Longueur, Num_Piscine) VALUES "
         "('Meeting', 'Rennes', 6, 25, %1), ('Coupe', 'Brest', 8, 50, %2);"_s.arg(used, other));

    PoolListView* list = open_list(QString(keyword::kSuppr));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(app->menus.counter(u"mnuModelePiscineView"_s), 1);
    list->ok({0});          // Bréquigny
    list->delete_key({1});  // Saint-Georges, now second
    EXPECT_EQ(shown(*list), QStringList{u"Gardée"_s});
    EXPECT_EQ(list->Lsv_num().rowCount(), 2);
    EXPECT_EQ(list->close_caption(), u"&Valider"_s);
    list->close_command();
    EXPECT_EQ(ui.status[2], u"Suppression enregistrée"_s);

    EXPECT_EQ(dump(u"select Nom from Piscine where Nom <> 'Null'"_s), QStringList{u"Gardée"_s});
    // The competitions keep their own place and lanes.
    const QString ref = NumPiscineNulle(*app);
    EXPECT_EQ(dump(u"select Num_Piscine, Lieu, Nb_couloir, Longueur from Rcomp order by Nom"_s),
              (QStringList{ref + u":Brest:8:50"_s, ref + u":Rennes:6:25"_s}));
    EXPECT_EQ(app->menus.counter(u"mnuModelePiscineView"_s), 0);
    EXPECT_FALSE(app->is_busy());
}

// A base without the reference row (from elsewhere, or edited by hand): the
// deletion makes it again, once, and the competitions fall on it, those left
// on the removed row too.
TEST_F(PoolsTest, DeletingOnABaseWithoutTheReferenceMakesItAgain)
{
    exec(u"INSERT INTO Rcomp (Nom, Num_Piscine) VALUES ('Coupe', %1);"_s.arg(NumPiscineNulle(*app)));
    exec(u"DELETE FROM Piscine WHERE Nom = 'Null';"_s);
    const QString gone = add(u"Bréquigny"_s);
    exec(u"INSERT INTO Rcomp (Nom, Num_Piscine) VALUES ('Meeting', %1);"_s.arg(gone));

    PoolListView* list = open_list(QString(keyword::kSuppr));
    ASSERT_NE(list, nullptr);
    list->ok({0});
    list->close_command();
    EXPECT_TRUE(ui.messages.empty()) << ui.texts().join(u'|').toStdString();
    EXPECT_EQ(ui.status[2], u"Suppression enregistrée"_s);
    EXPECT_EQ(dump(u"select Nom, NbCouloir, Bassin from Piscine"_s), QStringList{u"Null::"_s});
    const QString ref = NumPiscineNulle(*app);
    EXPECT_EQ(dump(u"select Num_Piscine from Rcomp"_s), (QStringList{ref, ref}));
}

// Every text is written with characters that break a hand-made statement,
// new and then changed.
TEST_F(PoolsTest, TheDetailSavesNewAndChangedPoolsAsTyped)
{
    PoolDetailView detail(*app, QString(keyword::kNouveau));
    detail.pool.nom = u"  "_s;
    EXPECT_FALSE(detail.save());
    EXPECT_EQ(ui.texts(), QStringList{u"Preciser le nom de la piscine !"_s});

    const QString t = awkward_text();
    detail.pool.nom = t;  // the name alone is enough
    ASSERT_TRUE(detail.save());
    EXPECT_EQ(ui.messages.back().text, u"Nouvelle piscine enregistrée."_s);
    const QString row = u"select Nom, Adresse, Code_Postal, Ville, NbCouloir, Bassin from Piscine where Num = "_s;
    EXPECT_EQ(dump(row + detail.pool.num), QStringList{t + u"::::8:25"_s});
    PoolDetailView full(*app, QString(keyword::kNouveau));
    full.pool = Pool{{}, t + "nom", t + "adresse", t + "cp", t + "ville", 6, 50};
    ASSERT_TRUE(full.save());
    EXPECT_EQ(dump(row + full.pool.num), QStringList{t + "nom:" + t + "adresse:" + t + "cp:" + t + "ville:6:50"});

    PoolListView* list = open_list(QString(keyword::kModif));
    ASSERT_NE(list, nullptr);
    list->ok({0});
    auto* edit = ui.window_as<PoolDetailView>(QString(PoolDetailView::kName));
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(app->windows.caller_of(edit->name()), list->name());
    EXPECT_EQ(edit->pool.nom, t);
    const QString u = awkward_text("2 ");
    edit->pool = Pool{edit->pool.num, u + "nom", u + "adresse", u + "cp", u + "ville", 10, 50};
    edit->confirm();
    EXPECT_TRUE(edit->is_closed());
    EXPECT_EQ(dump(row + detail.pool.num),
              QStringList{u + "nom:" + u + "adresse:" + u + "cp:" + u + "ville:10:50"});
    EXPECT_EQ(fields(list->pool_at(0)), fields(edit->pool));
}

TEST_F(PoolsTest, ChoosingAPoolForACompetition)
{
    add(u"Aquarena"_s, u"Lorient"_s, 10, 50);
    Pool chosen;
    std::vector<bool> replaced;
    auto open_choice = [&] {
        PoolListView* list = OuvreListePiscines(*app, QString(keyword::kChoisir), u"Choisir"_s, u"&Choisir"_s);
        if (list)
            list->on_chosen = [&](const Pool& p, bool replace) {
                chosen = p;
                replaced.push_back(replace);
            };
        return list;
    };

    PoolListView* list = open_choice();
    ASSERT_NE(list, nullptr);
    ASSERT_TRUE(list->new_visible());
    ui.answers.push_back(Button::No);
    list->ok({0});
    EXPECT_EQ(ui.messages.back().text,
              u"Remplacer les informations (lieu et nombre de couloir) sur la compétition ?"_s);
    EXPECT_EQ(chosen.nom, u"Aquarena"_s);
    EXPECT_EQ(replaced, std::vector<bool>{false});
    EXPECT_TRUE(list->is_closed());

    // A pool made from the choice list is chosen as soon as it is saved.
    list = open_choice();
    ASSERT_NE(list, nullptr);
    list->new_pool();
    auto* created = ui.window_as<PoolDetailView>(QString(PoolDetailView::kName));
    ASSERT_NE(created, nullptr);
    EXPECT_EQ(created->mode(), QString(PoolDetailView::kCreation));
    created->pool.nom = u"Plijadur"_s;
    created->pool.ville = u"Guingamp"_s;
    ui.answers.push_back(Button::Yes);
    created->confirm();
    EXPECT_EQ(fields(chosen), u"Plijadur:Guingamp:8:25"_s);
    EXPECT_FALSE(chosen.num.isEmpty());
    EXPECT_EQ(replaced, (std::vector<bool>{false, true}));
}
