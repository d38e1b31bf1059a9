// The pool register on a real base: the reference pool kept out of sight, the
// deletion that moves competitions to it, the detail's saves and the choice
// made for a competition.

#include "src/clubs/pools.h"
#include "src/frame/keywords.h"
#include "src/frame/list_helpers.h"
#include "support/app_fixture.h"
#include "support/awkward_text.h"

#include <QStandardItem>

using namespace plouvarine;
using plouvarine::testing::awkward_text;
using plouvarine::testing::AppFixture;

namespace {

class PoolsTest : public AppFixture {
protected:
    void SetUp() override
    {
        AppFixture::SetUp();
        connect(make_base());
        // The start-up controls guarantee the reference pool.
        app->db.exec_sql(QStringLiteral("INSERT INTO Piscine (Nom) VALUES ('Null');"));
    }
    QString add(const QString& name, const QString& town = {}, int lanes = 8, int length = 25)
    {
        Pool p;
        p.nom = name;
        p.ville = town;
        p.couloirs = lanes;
        p.bassin = length;
        return AjoutePiscine(*app, p);
    }
    QStringList shown(PoolListView& list) { return plouvarine::testing::column_texts(list.Lsv_piscine()); }
    PoolListView* open_list(const QString& keyword)
    {
        return OuvreListePiscines(*app, keyword, QStringLiteral("Piscines"), QStringLiteral("&Voir"));
    }
};

}  // namespace

TEST_F(PoolsTest, TheListNeverShowsTheReferencePool)
{
    const QString reference = NumPiscineNulle(*app);
    ASSERT_FALSE(reference.isEmpty());
    add(QStringLiteral("Piscine Gayeulles"), QStringLiteral("Rennes"), 8, 50);
    add(QStringLiteral("Aquatis"));
    add(QStringLiteral("null"));  // typed by someone: taken for the reference pool

    PoolListView* list = open_list(QString(keyword::kView));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(shown(*list), (QStringList{"Aquatis", "Piscine Gayeulles"}));
    const Pool p = list->pool_at(1);
    EXPECT_EQ(p.ville, QStringLiteral("Rennes"));
    EXPECT_EQ(p.couloirs, 8);
    EXPECT_EQ(p.bassin, 50);
    EXPECT_EQ(row_key(list->Lsv_piscine(), 1), p.num);
    EXPECT_EQ(ui.status_history.back(), QStringLiteral("Chargement de la liste des piscines"));

    // One list at a time: the second opening says so and gives nothing.
    EXPECT_EQ(open_list(QString(keyword::kModif)), nullptr);
    EXPECT_EQ(ui.messages.back().text, WindowRegistry::already_open_message());
}

TEST_F(PoolsTest, DeletingAPoolMovesItsCompetitionsToTheReference)
{
    const QString used = add(QStringLiteral("Bréquigny"), QStringLiteral("Rennes"), 6, 25);
    const QString other = add(QStringLiteral("Saint-Georges"));
    add(QStringLiteral("Gardée"));
    app->db.exec_sql(QStringLiteral("INSERT INTO Rcomp (Nom, Lieu, Nb_couloir, Longueur, Num_Piscine) VALUES "
                                    "('Meeting', 'Rennes', 6, 25, %1), ('Coupe', 'Brest', 8, 50, %2);")
                         .arg(used, other));

    PoolListView* list = open_list(QString(keyword::kSuppr));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(app->menus.counter(QStringLiteral("mnuModelePiscineView")), 1);
    list->ok({0});          // Bréquigny
    list->delete_key({1});  // Saint-Georges, now second
    EXPECT_EQ(shown(*list), QStringList{QStringLiteral("Gardée")});
    EXPECT_EQ(list->Lsv_num().rowCount(), 2);
    EXPECT_EQ(list->close_caption(), QStringLiteral("&Valider"));
    list->close_command();
    EXPECT_EQ(ui.status[2], QStringLiteral("Suppression enregistrée"));

    EXPECT_EQ(app->db.load_rows(QStringLiteral("select Nom from Piscine where Nom <> 'Null'")).column(0),
              QStringList{QStringLiteral("Gardée")});
    const Rows meets = app->db.load_rows(
        QStringLiteral("select Num_Piscine, Lieu, Nb_couloir, Longueur from Rcomp order by Nom"));
    for (int r = 0; r < 2; ++r)
        EXPECT_EQ(meets.value(r, 0), NumPiscineNulle(*app));
    EXPECT_EQ(meets.value(1, 1), QStringLiteral("Rennes"));
    EXPECT_EQ(meets.value(1, 2), QStringLiteral("6"));
    EXPECT_EQ(app->menus.counter(QStringLiteral("mnuModelePiscineView")), 0);
    EXPECT_FALSE(app->is_busy());
}

TEST_F(PoolsTest, TheDetailSavesNewAndChangedPools)
{
    PoolDetailView detail(*app, QString(keyword::kNouveau));
    detail.pool.nom = QStringLiteral("  ");
    EXPECT_FALSE(detail.save());
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("Preciser le nom de la piscine !")});

    detail.pool.nom = QStringLiteral("L'Hermine");  // the name alone is enough
    ASSERT_TRUE(detail.save());
    EXPECT_EQ(ui.messages.back().text, QStringLiteral("Nouvelle piscine enregistrée."));
    const Rows row = app->db.load_rows(
        QStringLiteral("select Num, Nom, Ville, NbCouloir, Bassin from Piscine where Num = ") + detail.pool.num);
    EXPECT_EQ(row.first(1), QStringLiteral("L'Hermine"));
    EXPECT_EQ(row.first(2), QString());
    EXPECT_EQ(row.first(3), QStringLiteral("8"));
    EXPECT_EQ(row.first(4), QStringLiteral("25"));

    PoolListView* list = open_list(QString(keyword::kModif));
    ASSERT_NE(list, nullptr);
    list->ok({0});
    auto* edit = ui.window_as<PoolDetailView>(QString(PoolDetailView::kName));
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(app->windows.caller_of(edit->name()), list->name());
    EXPECT_EQ(edit->pool.nom, QStringLiteral("L'Hermine"));
    edit->pool.ville = QStringLiteral("Saint-Brieuc d'Armor");
    edit->pool.couloirs = 10;
    edit->pool.bassin = 50;
    edit->confirm();
    EXPECT_TRUE(edit->is_closed());
    EXPECT_EQ(list->pool_at(0).ville, QStringLiteral("Saint-Brieuc d'Armor"));
    EXPECT_EQ(list->pool_at(0).couloirs, 10);
    EXPECT_EQ(list->pool_at(0).bassin, 50);
}

TEST_F(PoolsTest, ChoosingAPoolForACompetition)
{
    add(QStringLiteral("Aquarena"), QStringLiteral("Lorient"), 10, 50);
    Pool chosen;
    std::vector<bool> replaced;
    auto open_choice = [&] {
        PoolListView* list = OuvreListePiscines(*app, QString(keyword::kChoisir), QStringLiteral("Choisir"),
                                                QStringLiteral("&Choisir"));
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
              QStringLiteral("Remplacer les informations (lieu et nombre de couloir) sur la compétition ?"));
    EXPECT_EQ(chosen.nom, QStringLiteral("Aquarena"));
    EXPECT_EQ(replaced, std::vector<bool>{false});
    EXPECT_TRUE(list->is_closed());

    // A pool made from the choice list is chosen as soon as it is saved.
    list = open_choice();
    ASSERT_NE(list, nullptr);
    list->new_pool();
    auto* created = ui.window_as<PoolDetailView>(QString(PoolDetailView::kName));
    ASSERT_NE(created, nullptr);
    EXPECT_EQ(created->mode(), QString(PoolDetailView::kCreation));
    created->pool.nom = QStringLiteral("Plijadur");
    created->pool.ville = QStringLiteral("Guingamp");
    ui.answers.push_back(Button::Yes);
    created->confirm();
    EXPECT_EQ(chosen.nom, QStringLiteral("Plijadur"));
    EXPECT_EQ(chosen.ville, QStringLiteral("Guingamp"));
    EXPECT_FALSE(chosen.num.isEmpty());
    EXPECT_EQ(replaced, (std::vector<bool>{false, true}));
}

TEST_F(PoolsTest, AwkwardTextsAreSavedAsTypedNewAndChanged)
{
    // A new pool, then the same pool changed.
    Pool saved;
    for (const char* tag : {"", "2 "}) {
        const QString t = awkward_text(tag);
        PoolDetailView view(*app, QString(*tag ? keyword::kModif : keyword::kNouveau));
        if (*tag)
            view.remplir_champs(saved);
        view.pool.nom = t + "nom";
        view.pool.adresse = t + "adresse";
        view.pool.code_postal = t + "cp";
        view.pool.ville = t + "ville";
        ASSERT_TRUE(view.save());
        if (!*tag)
            saved = view.pool;
        EXPECT_EQ(dump(QStringLiteral("select Nom, Adresse, Code_Postal, Ville from Piscine where Num = ") + saved.num),
                  QStringList{t + "nom:" + t + "adresse:" + t + "cp:" + t + "ville"});
    }
}
