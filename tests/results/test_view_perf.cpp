// The performance history on a real base: best against latest, the custom count,
// the season filter, the relay line, the deletions, the exports.

#include "perf_test_base.h"

#include "src/frame/list_helpers.h"
#include "src/results/view_perf.h"
#include "support/golden.h"
#include "support/temp_files.h"

#include <QFileInfo>

using namespace plouvarine;
using plouvarine::testing::expect_golden;

namespace {

class ViewPerfTest : public plouvarine::testing::PerfBase {
protected:
    void SetUp() override
    {
        PerfBase::SetUp();
        view = std::make_unique<FrmViewPerf>(*app);
    }
    void TearDown() override
    {
        view.reset();
        PerfBase::TearDown();
    }
    // Ticks the swimmers named, reloading the list first.
    void tick(const QStringList& names)
    {
        view->charge_nageurs();
        for (int r = 0; r < view->lsv_nageur().rowCount(); ++r)
            view->set_checked(r, names.contains(view->lsv_nageur().item(r, 0)->text()));
    }
    void set_options(const PerfOptions& options)
    {
        view->cmd_modifier();
        view->edited_options() = options;
        ASSERT_TRUE(view->cmd_valider());
    }
    void show(const PerfOptions& options)
    {
        set_options(options);
        view->affiche_perfs();
    }
    QStringList column(int c) const { return plouvarine::testing::column_texts(view->lsv_perf(), c); }
    int row_of(const QString& time) const { return int(column(0).indexOf(time)); }
    void select(int row) { select_row_at(view->perf_selection(), row); }

    std::unique_ptr<FrmViewPerf> view;
};

TEST_F(ViewPerfTest, BestByTimeAndLatestByDatePerEventAndSwimmer)
{
    const QString anne = swimmer(QStringLiteral("Abgrall"), QStringLiteral("F"));
    perf(anne, 1, QStringLiteral("20241012"), QStringLiteral("0.3312"));
    perf(anne, 1, QStringLiteral("20250201"), QStringLiteral("0.3250"));
    perf(anne, 1, QStringLiteral("20250301"), QStringLiteral("0.3401"));
    perf(anne, 2, QStringLiteral("20240110"), QStringLiteral("1.1210"));
    // An intermediate time and a first leg are left out unless asked for.
    perf(anne, 1, QStringLiteral("20250302"), QStringLiteral("0.3001"), 25, QStringLiteral("0"), 0, true);
    perf(anne, 1, QStringLiteral("20250303"), QStringLiteral("0.2901"), 25, QStringLiteral("0"), 0, false, true);
    tick({QStringLiteral("Abgrall")});

    // A blank custom count keeps the options open; cancelled, they stand as they were.
    view->cmd_modifier();
    view->edited_options().nb_perf = 2;
    EXPECT_FALSE(view->cmd_valider());
    EXPECT_TRUE(view->editing());
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral(
                              "La valeur personnalisée du nombre de performances affichées doit être remplie.")});
    view->cmd_annuler();
    EXPECT_FALSE(view->editing());
    EXPECT_EQ(view->options(), PerfOptions{});

    PerfOptions best;  // by time, one performance, all seasons
    EXPECT_EQ(best.label_one(), QStringLiteral("Meilleure"));
    show(best);
    EXPECT_EQ(column(0), (QStringList{"", "", "", "32.50", "", "", "1:12.10"}));
    EXPECT_EQ(column(1), (QStringList{"Abgrall Anne", "", "50m n.l. Dames", "Brest", "", "100m n.l. Dames", "Brest"}));
    EXPECT_EQ(column(2)[3], QStringLiteral("01/02/2025"));
    EXPECT_TRUE(view->can_print());

    PerfOptions latest = best;
    latest.tri = 0;
    EXPECT_EQ(latest.label_one(), QStringLiteral("Dernière"));
    show(latest);
    EXPECT_EQ(column(0), (QStringList{"", "", "", "34.01", "", "", "1:12.10"}));

    // Two per event, with the intermediate and relay columns shown.
    PerfOptions custom = best;
    custom.nb_perf = 2;
    custom.txt_nb_perf = QStringLiteral("2");
    custom.tps_inter = true;
    custom.tps_relais = true;
    show(custom);
    EXPECT_EQ(view->lsv_perf().columnCount(), 6);
    EXPECT_EQ(column(0).mid(3, 3), (QStringList{"29.01", "30.01", ""}));
    EXPECT_EQ(column(4).mid(3, 2), (QStringList{"X", " "}));
    EXPECT_EQ(column(5).mid(3, 2), (QStringList{" ", "X"}));

    // The search lists: the swimmer's row and his events' rows.
    ASSERT_EQ(view->cbo_search_nageurs().size(), 1u);
    EXPECT_EQ(view->cbo_search_epreuve().size(), 2u);
    view->choose_search_event(1);
    EXPECT_EQ(view->perf_selection().currentIndex().row(), 6);
}

TEST_F(ViewPerfTest, RelayLineIsReadOnlyAsTheLastTickedEntry)
{
    // A swimmer called "Relais" stands among the others; the club's relay
    // line comes last.
    const QString relais = swimmer(QStringLiteral("Relais"), QStringLiteral("F"));
    const QString zed = swimmer(QStringLiteral("Zed"), QStringLiteral("F"));
    perf(relais, 1, QStringLiteral("20241012"), QStringLiteral("0.3500"));
    perf(zed, 1, QStringLiteral("20241012"), QStringLiteral("0.3600"));
    relay_perf(8, QStringLiteral("20241201"), QStringLiteral("4.3010"), 2, QStringLiteral("77"));
    relay_perf(8, QStringLiteral("20230601"), QStringLiteral("4.2000"), 1, QStringLiteral("78"));
    view->charge_nageurs();
    EXPECT_EQ(plouvarine::testing::column_texts(view->lsv_nageur()), (QStringList{"Relais", "Zed", "Relais"}));
    EXPECT_TRUE(view->lsv_nageur().item(2, 0)->data(FrmViewPerf::kNumRole).toString().isEmpty());

    // The swimmer "Relais" followed by another: his own swims.
    tick({QStringLiteral("Relais"), QStringLiteral("Zed")});
    view->set_checked(2, false);
    view->affiche_perfs();
    EXPECT_TRUE(column(0).contains(QStringLiteral("35.00")));
    EXPECT_FALSE(column(1).join(u'|').contains(QStringLiteral("Equipe")));

    // Ticked last, he is read as the relay line.
    tick({});
    view->set_checked(0, true);
    view->affiche_perfs();
    EXPECT_FALSE(column(0).contains(QStringLiteral("35.00")));
    EXPECT_TRUE(column(1).contains(QStringLiteral("Quimper (Equipe n° 1)")));

    // The season filter reaches the relay line: this season only.
    PerfOptions season;
    season.saison = 0;
    season.nb_perf = 0;
    set_options(season);
    tick({QStringLiteral("Zed"), QStringLiteral("Relais")});
    view->set_checked(0, false);
    view->set_checked(2, true);
    view->affiche_perfs();
    EXPECT_EQ(column(1).filter(QStringLiteral("Equipe")), QStringList{QStringLiteral("Quimper (Equipe n° 2)")});
    EXPECT_TRUE(column(0).contains(QStringLiteral("36.00")));
    // Last ticked, the line "Relais" is the relay pass too.
    EXPECT_EQ(column(1)[view->cbo_search_nageurs().back().row], QStringLiteral("Relais"));
}

TEST_F(ViewPerfTest, DeletingAManualSwimRemovesThatNumberFromBothTablesButNeedsASwimmer)
{
    const QString anne = swimmer(QStringLiteral("Abgrall"), QStringLiteral("F"));
    perf(anne, 1, QStringLiteral("20241012"), QStringLiteral("0.3312"), 25, QStringLiteral("0"), 1);
    perf(anne, 2, QStringLiteral("20241013"), QStringLiteral("1.1000"), 25, QStringLiteral("0"), 2);
    relay_perf(8, QStringLiteral("20241201"), QStringLiteral("4.3010"), 1, QStringLiteral("0"), 2);
    relay_perf(8, QStringLiteral("20241202"), QStringLiteral("4.4010"), 1, QStringLiteral("0"), 1);
    PerfOptions all;
    all.nb_perf = 0;
    set_options(all);
    tick({QStringLiteral("Abgrall")});
    view->affiche_perfs();
    const int row = row_of(QStringLiteral("1:10.00"));
    EXPECT_EQ(view->num_compet_key(row), QStringLiteral("0,2"));
    select(row - 1);  // the event's title: nothing to delete
    EXPECT_FALSE(view->can_delete());
    select(row);
    ASSERT_TRUE(view->can_delete());

    ui.answers.push_back(Button::No);
    view->supprime_perf();
    EXPECT_EQ(value(QStringLiteral("SELECT count(*) FROM Liffn")), QStringLiteral("2"));
    EXPECT_EQ(ui.messages.back().text, QStringLiteral("Supprimer la performance ?"));
    EXPECT_EQ(ui.messages.back().default_button, Button::No);

    ui.answers.push_back(Button::Yes);
    view->supprime_perf();
    EXPECT_EQ(value(QStringLiteral("SELECT group_concat(NumManuel) FROM Liffn")), QStringLiteral("1"));
    EXPECT_EQ(value(QStringLiteral("SELECT group_concat(NumManuel) FROM Liffn_relais")), QStringLiteral("1"));
    // The list is shown again without it.
    EXPECT_EQ(row_of(QStringLiteral("1:10.00")), -1);

    // On the relay line alone, a manual relay swim has no swimmer to go by.
    tick({QStringLiteral("Relais")});
    view->affiche_perfs();
    const int relay = row_of(QStringLiteral("4:40.10"));
    EXPECT_EQ(view->num_compet_key(relay), QStringLiteral("0,"));
    select(relay);
    view->supprime_perf();
    EXPECT_EQ(ui.titled(QStringLiteral("Erreur")).size(), 1u);
    EXPECT_TRUE(ui.texts().back().endsWith(QStringLiteral("Une erreur s'est produite lors de la suppression.")));
    EXPECT_EQ(value(QStringLiteral("SELECT count(*) FROM Liffn_relais")), QStringLiteral("1"));
}

TEST_F(ViewPerfTest, DeletingACompetitionSwimRemovesTheWholeCompetitionForEveryone)
{
    const QString compet = competition(QStringLiteral("Interclubs"), QStringLiteral("20241116"));
    const QString anne = swimmer(QStringLiteral("Abgrall"), QStringLiteral("F"));
    const QString other = swimmer(QStringLiteral("Bihan"), QStringLiteral("F"));
    perf(anne, 1, QStringLiteral("20241116"), QStringLiteral("0.3312"), 25, compet);
    perf(anne, 2, QStringLiteral("20241010"), QStringLiteral("1.1000"));
    perf(other, 1, QStringLiteral("20241116"), QStringLiteral("0.3500"), 25, compet);
    relay_perf(8, QStringLiteral("20241116"), QStringLiteral("4.3010"), 1, compet);
    tick({QStringLiteral("Abgrall")});
    view->affiche_perfs();
    select(row_of(QStringLiteral("33.12")));

    ui.answers.push_back(Button::Yes);
    view->supprime_perf();
    const QString question = ui.messages.back().text;
    EXPECT_TRUE(question.startsWith(QStringLiteral(
        "Supprimer toutes les performances liées à la compétition suivante ?\nNom compétition : Interclubs\n"
        "Date de début : 16/11/2024\n\nAttention ! Cette suppression s'applique à tous les nageurs de la base,\n")))
        << question.toStdString();
    EXPECT_EQ(value(QStringLiteral("SELECT count(*) FROM Liffn")), QStringLiteral("1"));
    EXPECT_EQ(value(QStringLiteral("SELECT count(*) FROM Liffn_relais")), QStringLiteral("0"));
}

TEST_F(ViewPerfTest, SwimsOfASwimmerDeletedSince)
{
    const QString anne = swimmer(QStringLiteral("Abgrall"), QStringLiteral("F"));
    const QString gone = swimmer(QStringLiteral("Parti"), QStringLiteral("F"));
    perf(anne, 1, QStringLiteral("20241012"), QStringLiteral("0.3312"));
    perf(gone, 1, QStringLiteral("20241012"), QStringLiteral("0.3412"));
    tick({QStringLiteral("Abgrall"), QStringLiteral("Parti")});
    // The licence goes while the list stands: his swims still show.
    exec(QStringLiteral("DELETE FROM Licence WHERE Num = ") + gone);
    view->affiche_perfs();
    EXPECT_TRUE(column(0).contains(QStringLiteral("34.12")));
    EXPECT_TRUE(ui.titled(QStringLiteral("Erreur")).empty());
    // Listed again, he is no longer offered.
    view->charge_nageurs();
    EXPECT_EQ(plouvarine::testing::column_texts(view->lsv_nageur()), QStringList{"Abgrall"});
}

TEST_F(ViewPerfTest, PrintedAndSavedAsTheListStands)
{
    install_template_component();
    const QString anne = swimmer(QStringLiteral("Abgrall"), QStringLiteral("F"));
    perf(anne, 1, QStringLiteral("20241012"), QStringLiteral("0.3312"));
    PerfOptions codif;
    codif.codif = true;
    set_options(codif);
    tick({QStringLiteral("Abgrall")});
    view->affiche_perfs();

    // The references: the club and the day in the head, the codification
    // columns and their legend, no intermediate time column.
    ASSERT_TRUE(view->cmd_imprimer());
    ASSERT_EQ(ui.printed.size(), 1u);
    expect_golden(QStringLiteral("results"), QStringLiteral("perfs_printed.txt"), ui.printed[0].text.toUtf8());
    const QString txt = work_file(QStringLiteral("perfs.txt"));
    ui.files.push_back(txt);
    ASSERT_TRUE(view->cmd_sauvegarder());
    EXPECT_EQ(ui.file_requests.back().title, QStringLiteral("Exporter suivi des performances"));
    expect_golden(QStringLiteral("results"), QStringLiteral("perfs_export.txt"), plouvarine::testing::read_bytes(txt));

    const QString rtf = work_file(QStringLiteral("perfs.rtf"));
    ui.files.push_back(rtf);
    ASSERT_TRUE(view->cmd_sauvegarder());
    EXPECT_TRUE(plouvarine::testing::read_bytes(rtf).startsWith("{\\rtf"));

    // A target that cannot be written (its folder is a file): the message,
    // and the file in the way stays as it was.
    const qint64 size = QFileInfo(txt).size();
    ui.files.push_back(txt + QStringLiteral("/perfs.txt"));
    EXPECT_FALSE(view->cmd_sauvegarder());
    EXPECT_TRUE(ui.texts().back().startsWith(
        QStringLiteral("Une erreur s'est produite lors de la sauvegarde du suivi des performances")));
    EXPECT_EQ(QFileInfo(txt).size(), size);
}

}  // namespace
