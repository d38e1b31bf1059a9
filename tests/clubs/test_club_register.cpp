// The club register: adding, changing and soft-deleting clubs, and what the
// deletion carries into the rows that hold the club's code.

#include "src/clubs/dem_info.h"
#include "src/clubs/det_profil.h"
#include "src/clubs/liste_profil.h"
#include "src/clubs/liste_club.h"
#include "src/clubs/utils_club.h"
#include "src/clubs/utils_profils.h"
#include "club_test_base.h"
#include "support/awkward_text.h"
#include "src/frame/keywords.h"
#include "src/frame/list_helpers.h"

using namespace plouvarine;
using plouvarine::testing::awkward_text;
using plouvarine::testing::ClubBase;

namespace {

const QString kBrest = u"FRA2210290017"_s;
const QString kRennes = u"FRA2210350003"_s;

class ClubRegisterTest : public ClubBase {
protected:
    void SetUp() override
    {
        ClubBase::SetUp();
        app->clock.set_today(QDate(2026, 3, 14));
    }
    // The club list in "Suppr", opened as the menu opens it, with `codes` marked.
    FrmListeClub* open_suppr_list(const QStringList& codes)
    {
        OuvreListeClubs(*app, QString(keyword::kSuppr), u"Supprimer Clubs"_s, u"&Supprimer"_s);
        auto* list = ui.window_as<FrmListeClub>(u"Frm_liste_club"_s);
        for (const QString& code : codes) {
            const auto row = list ? find_row(list->list(), code) : std::nullopt;
            EXPECT_TRUE(row.has_value()) << code.toStdString();
            if (!row)
                return nullptr;
            select_row_at(list->selection(), *row);
            list->mark_selected();
        }
        return list;
    }
};

TEST_F(ClubRegisterTest, AddAndModifyDeriveSelectionAndRefuseDuplicates)
{
    EXPECT_TRUE(AjouteClub(*app, u"FRA2210290000"_s, u"Comité d'Finistère"_s));
    EXPECT_EQ(dump(u"select Intitule, Selection, Visible from Club"_s),
              QStringList{u"Comité d'Finistère:Vrai:Vrai"_s});
    EXPECT_FALSE(AjouteClub(*app, u"FRA1210290001"_s, u"Faux"_s));
    EXPECT_EQ(count(u"select count(*) from Club"_s), 1);
    EXPECT_EQ(ui.messages.back().text, u"Ajout annulé.\nLe code club tapé n'est pas valide."_s);

    const QString num = NumClub(*app, u"FRA2210290000"_s);
    ASSERT_FALSE(num.isEmpty());
    EXPECT_TRUE(NumClub(*app, u"FRA2210299999"_s).isEmpty());
    const QString lic = add_licence(u"Le Gall"_s, u"FRA2210290000"_s);

    // Its own row does not count as a duplicate.
    EXPECT_TRUE(ClubExiste(*app, u"FRA2210290000"_s, {}, false, {}));
    EXPECT_FALSE(ClubExiste(*app, u"FRA2210290000"_s, num, false, {}));
    EXPECT_TRUE(ModifieClub(*app, kBrest, u"Brest"_s, num, {}));
    EXPECT_EQ(value(u"select Selection from Club where Num = "_s + num), u"Faux"_s);
    // The new code has travelled into the licence.
    EXPECT_EQ(value(u"select Code_club from Licence where Num = "_s + lic), kBrest);

    // Through dem_info: a second club with the same code is refused, the view
    // stays; names that break a hand-made statement are saved as typed.
    const QString name = awkward_text();
    DemInfo detail(*app, QString(DemInfo::kName), QString(keyword::kNouveau));
    EXPECT_TRUE(detail.cancel_enabled());
    detail.set_nom(u"  "_s + name);
    EXPECT_EQ(detail.nom(), name);
    detail.set_code(u"fra-221029001"_s);
    EXPECT_EQ(detail.code(), u"FRA221029001"_s);
    EXPECT_FALSE(detail.ok_enabled());
    detail.set_code(u"fra2210290017"_s);
    ASSERT_TRUE(detail.ok_enabled());
    EXPECT_FALSE(detail.confirm());
    EXPECT_FALSE(detail.is_closed());
    EXPECT_EQ(ui.messages.back().text, u"Sauvegarde annulée.\nUn club avec le même code existe déjà."_s);
    detail.set_code(u"FRA2210290018"_s);
    EXPECT_TRUE(detail.confirm());
    EXPECT_TRUE(detail.is_closed());
    const QString added = NumClub(*app, u"FRA2210290018"_s);
    EXPECT_EQ(dump(u"select Intitule, Visible from Club where Num = "_s + added), QStringList{name + u":Vrai"_s});

    const QString changed = awkward_text("2 ");
    DemInfo edit(*app, QString(DemInfo::kName), QString(keyword::kModif), added, u"FRA2210290018"_s, name);
    edit.set_nom(changed);
    edit.set_code(u"FRA2210290019"_s);
    ASSERT_TRUE(edit.confirm());
    EXPECT_EQ(dump(u"select Intitule, Code_federal from Club where Num = "_s + added),
              QStringList{changed + u":FRA2210290019"_s});
}

TEST_F(ClubRegisterTest, DeletionFreesTheCodeAndHidesWhatHangsOnIt)
{
    const QString brest = add_club(kBrest, u"Brest"_s);
    add_club(kRennes, u"Rennes"_s);
    add_profile(u"Brest"_s, kBrest, true);
    add_profile(u"Rennes"_s, kRennes, false);
    const QString lic = add_licence(u"Le Gall"_s, kBrest);
    add_licence(u"Morvan"_s, kRennes);
    exec(u"INSERT INTO Selection (Code_Sel, Num_Lic) VALUES ('FRA2210000000', %1)"_s.arg(lic));
    read_profile(*app, false);
    ASSERT_EQ(app->state.club_code, kBrest);

    FrmListeClub* list = open_suppr_list({kBrest});
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(app->menus.counter(u"mnuBaseClubNew"_s), 1);
    EXPECT_EQ(list->marked(), QStringList{brest});
    EXPECT_EQ(list->list().rowCount(), 1);
    // The current profile goes with its club: the choice of another is forced.
    ui.drivers[u"Frm_liste_profil_obli"_s] = [](View& v) { dynamic_cast<FrmListeProfilObli&>(v).confirm(); };
    list->confirm_deletion();

    EXPECT_EQ(dump(u"select Code_federal, Visible from Club where Num = "_s + brest), QStringList{brest + u":Faux"_s});
    EXPECT_EQ(dump(u"select Libelle from Profil"_s), QStringList{u"Rennes"_s});
    EXPECT_EQ(dump(u"select Nom, Visible, Date_suppr from Licence order by Nom"_s),
              (QStringList{u"Le Gall:Faux:20260314"_s, u"Morvan:Vrai:"_s}));
    EXPECT_EQ(value(u"select Visible from Selection where Num_Lic = "_s + lic), u"Faux"_s);
    EXPECT_TRUE(ui.shown_views.contains(u"Frm_liste_profil_obli"_s));
    EXPECT_EQ(app->state.profile_name, u"Rennes"_s);
    EXPECT_EQ(ui.status[1], u"Profil : Rennes (Rennes)"_s);
    EXPECT_EQ(list->list().rowCount(), 1);

    // The code is free again at once.
    EXPECT_FALSE(ClubExiste(*app, kBrest, {}, false, {}));
    EXPECT_TRUE(AjouteClub(*app, kBrest, u"Brest 2"_s));
    EXPECT_NE(NumClub(*app, kBrest), brest);

    ASSERT_TRUE(ui.close_window(u"Frm_liste_club"_s));
    EXPECT_EQ(app->menus.counter(u"mnuBaseClubNew"_s), 0);
    EXPECT_EQ(app->state.busy_count, 0);
}

// The entries are deleted through "Code_club = Code_Club = '<first>' or
// Code_Club = '<second>' ...": the first term compares a truth value with the
// first club's number and never holds, so the first club's entries stay, as
// the old engine left them. Kept as composed on purpose.
TEST_F(ClubRegisterTest, DeletionKeepsTheEntriesOfTheFirstClubAsComposed)
{
    add_club(u"FRA2210290001"_s, u"Quimper"_s);
    add_profile(u"Quimper"_s, u"FRA2210290001"_s, true);
    add_club(kBrest, u"Brest"_s);
    add_club(kRennes, u"Rennes"_s);
    const QString first = add_licence(u"Le Gall"_s, kBrest);
    const QString second = add_licence(u"Morvan"_s, kRennes);
    for (const QString& lic : {first, second}) {
        exec(u"INSERT INTO Engag (Num_compet, Num_profil, Code_epreuve, Num_Lic) VALUES (1, 1, 2, %1)"_s.arg(lic));
        exec(u"INSERT INTO Engag_nageur (Num_compet, Num_profil, Num_Lic) VALUES (1, 1, %1)"_s.arg(lic));
    }
    read_profile(*app, false);

    FrmListeClub* list = open_suppr_list({kBrest, kRennes});
    ASSERT_NE(list, nullptr);
    ui.clear();
    list->confirm_deletion();
    EXPECT_TRUE(ui.messages.empty()) << ui.texts().join(u" | "_s).toStdString();
    EXPECT_EQ(ui.status[2], u"Suppression enregistrée"_s);
    for (const char* table : {"Engag", "Engag_nageur"})
        EXPECT_EQ(dump(u"select Num_Lic from %1"_s.arg(QLatin1String(table))), QStringList{first}) << table;
    // Both swimmers are hidden all the same.
    EXPECT_EQ(count(u"select count(*) from Licence where Visible = false"_s), 2);
}

TEST_F(ClubRegisterTest, DeletingTheLastClubForcesANewOne)
{
    add_club(kBrest, u"Brest"_s);
    add_profile(u"Brest"_s, kBrest, true);
    read_profile(*app, false);

    int obli_cancel_enabled = -1;
    ui.drivers[u"dem_info_obli"_s] = [&](View& v) {
        auto& d = dynamic_cast<DemInfo&>(v);
        obli_cancel_enabled = d.cancel_enabled();
        EXPECT_FALSE(d.query_close());
        d.set_nom(u"Morlaix"_s);
        d.set_code(u"FRA2210290021"_s);
        EXPECT_TRUE(d.confirm());
    };
    ui.drivers[u"det_profil_obli"_s] = [](View& v) {
        auto& d = dynamic_cast<DetProfil&>(v);
        d.cancel();  // does nothing
        EXPECT_FALSE(d.is_closed());
        d.choose_club();
        d.set_nom(u"Morlaix"_s);
        EXPECT_TRUE(d.confirm());
    };
    ui.drivers[u"Frm_liste_club_obli"_s] = [](View& v) {
        auto& l = dynamic_cast<FrmListeClubObli&>(v);
        ASSERT_EQ(l.list().rowCount(), 1);
        l.confirm();
    };

    FrmListeClub* list = open_suppr_list({kBrest});
    ASSERT_NE(list, nullptr);
    EXPECT_FALSE(list->ok_enabled());
    list->confirm_deletion();

    EXPECT_EQ(obli_cancel_enabled, 0);
    EXPECT_EQ(ui.shown_views.filter(u"_obli"_s),
              (QStringList{u"dem_info_obli"_s, u"det_profil_obli"_s, u"Frm_liste_club_obli"_s}));
    EXPECT_EQ(app->state.club_code, u"FRA2210290021"_s);
    EXPECT_EQ(ui.status[1], u"Profil : Morlaix (Morlaix)"_s);
    EXPECT_EQ(list->list().rowCount(), 1);
    ui.drop_windows();
    EXPECT_EQ(app->state.busy_count, 0);
}

}  // namespace
