// The club records window: the rule of time and date when a record is
// inserted, replaced or corrected, with its messages; the list by band with
// or without history, "Tous bassins" included; the printed and exported list.

#include "records_test_base.h"
#include "src/frame/choose_date_view.h"
#include "src/frame/list_helpers.h"
#include "src/records/frm_view_record.h"
#include "src/records/record_categories.h"
#include "src/records/utils_record.h"
#include "src/reports/templates.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace plouvarine;

namespace {

class ClubRecordsTest : public plouvarine::testing::RecordsBase {
protected:
    void SetUp() override
    {
        plouvarine::testing::RecordsBase::SetUp();
        cat = band(QStringLiteral("Minimes"), 13, 14, QStringLiteral("Homme"));
        view = std::make_unique<FrmViewRecord>(*app);
        view->charge_nages();
    }
    int row_of(int code) const
    {
        for (int r = 0; r < view->lsv_nage().rowCount(); ++r)
            if (view->lsv_nage().item(r, 0)->data(kKeyRole).toString() == QString::number(code))
                return r;
        return -1;
    }
    // Opens the tab on an event and types a record into the fields.
    void type(const QString& nom, const QString& tps, const QString& day, const QString& month, const QString& year)
    {
        view->txt_nom = nom;
        view->txt_prenom = QStringLiteral("Yann");
        view->txt_tps = tps;
        view->txt_date = {day, month, year};
        view->txt_lieu = QStringLiteral("Brest");
    }
    // The data rows shown: name, time, date.
    QStringList shown()
    {
        QStringList out;
        QStandardItemModel& list = view->lsv_records();
        for (int r = 0; r < list.rowCount(); ++r)
            if (list.item(r, 0)->data(FrmViewRecord::kKindRole).toInt() == FrmViewRecord::Data)
                out << list.item(r, 1)->text() + u'|' + list.item(r, 2)->text() + u'|' + list.item(r, 3)->text();
        return out;
    }
    QStringList stored()
    {
        return dump(QStringLiteral("SELECT Nom, Tps, Date_perf, Bassin FROM RecordClub ORDER BY Tps, Date_perf"));
    }

    QString cat;
    std::unique_ptr<FrmViewRecord> view;
};

TEST_F(ClubRecordsTest, InsertReplaceAndCorrectFollowTheRuleOfTimeAndDate)
{
    view->ouvre_saisie(row_of(52));  // 100 m n.l. Messieurs
    ASSERT_EQ(view->cbo_cat(), QStringList{"Minimes"});
    EXPECT_TRUE(view->current_record().isEmpty());
    EXPECT_FALSE(view->cmd_def_enabled(2));

    // No record yet: any time and date.
    ASSERT_TRUE(view->cmd_def(1));
    EXPECT_TRUE(view->editing());
    type(QStringLiteral("Abgrall"), QStringLiteral("1.0512"), QStringLiteral("12"), QStringLiteral("5"), QStringLiteral("2020"));
    ASSERT_TRUE(view->cmd_def(1));
    EXPECT_FALSE(view->editing());
    EXPECT_EQ(stored(), QStringList{"Abgrall:1.0512:20200512:25"});

    // The same time on a later day: a tie, accepted.
    view->cmd_def(1);
    type(QStringLiteral("Bihan"), QStringLiteral("1.0512"), QStringLiteral("1"), QStringLiteral("6"), QStringLiteral("2021"));
    ASSERT_TRUE(view->cmd_def(1));
    // Better but earlier, or later but slower: refused with both rules.
    const QString refusal = QString::fromUtf8(kRecordRefuse);
    view->cmd_def(1);
    type(QStringLiteral("Corre"), QStringLiteral("1.0400"), QStringLiteral("1"), QStringLiteral("1"), QStringLiteral("2019"));
    EXPECT_FALSE(view->cmd_def(1));
    EXPECT_EQ(ui.messages.back().text, refusal);
    EXPECT_EQ(ui.messages.back().title, QStringLiteral("Erreur"));
    type(QStringLiteral("Corre"), QStringLiteral("1.0600"), QStringLiteral("1"), QStringLiteral("1"), QStringLiteral("2024"));
    EXPECT_FALSE(view->cmd_def(1));
    EXPECT_TRUE(view->editing());
    EXPECT_EQ(ui.messages.size(), 2u);
    view->cmd_def(0);
    EXPECT_EQ(stored().size(), 2);

    // Replace: checked against the record the replaced one beat.
    ASSERT_FALSE(view->current_record().isEmpty());
    const QString replaced = view->current_record();
    ASSERT_TRUE(view->cmd_def(2));
    type(QStringLiteral("Derrien"), QStringLiteral("1.0600"), QStringLiteral("2"), QStringLiteral("2"), QStringLiteral("2022"));
    EXPECT_FALSE(view->cmd_def(2));
    EXPECT_EQ(ui.messages.back().text, refusal);
    type(QStringLiteral("Derrien"), QStringLiteral("1.0500"), QStringLiteral("2"), QStringLiteral("2"), QStringLiteral("2022"));
    ASSERT_TRUE(view->cmd_def(2));
    EXPECT_EQ(view->current_record(), replaced);
    EXPECT_EQ(view->txt_tps, QStringLiteral("1.0500"));
    EXPECT_EQ(app->db.count_query(QStringLiteral("SELECT count(*) FROM RecordClub")), 2);

    // Correct: the record shown, changed in place, under the same rule.
    ASSERT_TRUE(view->cmd_def(3));
    EXPECT_EQ(view->txt_nom, QStringLiteral("Derrien"));
    view->txt_lieu = QStringLiteral("Quimper d'en haut");
    ASSERT_TRUE(view->cmd_def(2));
    EXPECT_EQ(dump(QStringLiteral("SELECT Lieu, Categorie, Code_nage FROM RecordClub WHERE Num_auto = %1").arg(replaced)),
              QStringList{"Quimper d'en haut:" + cat + ":52"});
}

TEST_F(ClubRecordsTest, ReplacingTheOnlyRecordAndMissingFields)
{
    view->ouvre_saisie(row_of(52));
    view->set_opt_bassin(1);
    view->cmd_def(1);
    type(QStringLiteral("Abgrall"), QStringLiteral("1.0512"), QStringLiteral("12"), QStringLiteral("5"), QStringLiteral("2020"));
    ASSERT_TRUE(view->cmd_def(1));
    // One row only: no second row to beat, any time passes.
    view->cmd_def(2);
    type(QStringLiteral("Bihan"), QStringLiteral("1.2000"), QStringLiteral("1"), QStringLiteral("1"), QStringLiteral("2000"));
    ASSERT_TRUE(view->cmd_def(2));
    EXPECT_EQ(stored(), QStringList{"Bihan:1.2:20000101:50"});

    // Blank holder, no time, a day to come: all three named.
    view->cmd_def(2);
    type(QStringLiteral(" "), QStringLiteral("0"), QStringLiteral("11"), QStringLiteral("3"), QStringLiteral("2025"));
    EXPECT_FALSE(view->cmd_def(2));
    EXPECT_EQ(ui.messages.back().text,
              QStringLiteral("Impossible d'enregistrer le record car les données suivantes sont manquantes : \n"
                             "Nom du détenteur\nTemps réalisé\nDate de le performance"));
    // A day picked in the calendar fills the three fields.
    ui.drivers[QStringLiteral("frm_choose_date")] = [](View& v) {
        auto& picker = dynamic_cast<ChooseDateView&>(v);
        picker.set_calendar_date(QDate(2024, 6, 9));
        picker.ok();
    };
    view->cmd_date();
    EXPECT_EQ(view->txt_date, (std::array<QString, 3>{"09", "06", "2024"}));
    // An impossible day is no date either.
    type(QStringLiteral("Bihan"), QStringLiteral("1.1000"), QStringLiteral("30"), QStringLiteral("2"), QStringLiteral("2024"));
    EXPECT_FALSE(view->cmd_def(2));
    EXPECT_EQ(ui.messages.back().text,
              QStringLiteral("Impossible d'enregistrer le record car la donnée suivante est manquante : \n"
                             "Date de le performance"));
    EXPECT_EQ(stored(), QStringList{"Bihan:1.2:20000101:50"});

    // An event swum in 25 m pools only keeps its 50 m option off.
    view->cmd_def(0);
    view->ouvre_saisie(row_of(50));
    EXPECT_FALSE(view->possible_50());
    EXPECT_EQ(view->opt_bassin(), 0);
    view->set_opt_bassin(1);
    EXPECT_EQ(view->opt_bassin(), 0);
}

TEST_F(ClubRecordsTest, ARelayKeepsItsSwimmersAndNeedsNoFirstName)
{
    const QString mixte = band(QStringLiteral("Jeunes"), 10, 14, QStringLiteral("Mixte"));
    const int row = row_of(45);  // a mixed relay
    ASSERT_GE(row, 0);
    view->ouvre_saisie(row);
    ASSERT_EQ(view->cbo_cat(), QStringList{"Jeunes"});
    ASSERT_TRUE(view->relais_enabled());
    view->cmd_def(1);
    type(QStringLiteral("Brest Natation 1"), QStringLiteral("2.0000"), QStringLiteral("1"), QStringLiteral("2"),
         QStringLiteral("2025"));
    view->txt_prenom.clear();
    for (const char* name : {"Le Goff", "O'Neil", "Tanguy", "Morvan", "En trop"}) {
        view->txt_relayeur = QString::fromUtf8(name);
        view->add_relayeur();
    }
    EXPECT_EQ(view->lsv_relais.size(), 4);
    view->relais_selected = 1;
    view->move_relayeur(-1);
    ASSERT_TRUE(view->cmd_def(1));
    EXPECT_EQ(dump(QStringLiteral("SELECT Categorie, Rel1, Rel2, Rel4, Rel5 FROM RecordClub")),
              QStringList{mixte + ":O'Neil:Le Goff:Morvan: "});

    // Shown with the swimmers, and printed with them in brackets.
    install_template_component();
    view->set_checked(row, true);
    view->chk_relayeur = true;
    ASSERT_TRUE(view->charge_records());
    QStandardItemModel& list = view->lsv_records();
    ASSERT_EQ(list.columnCount(), 15);
    EXPECT_EQ(list.horizontalHeaderItem(14)->text(), QStringLiteral("Rel 10"));
    EXPECT_EQ(list.item(list.rowCount() - 1, 5)->text(), QStringLiteral("O'Neil"));
    EXPECT_EQ(list.item(list.rowCount() - 1, 9)->text(), QString());
    ASSERT_TRUE(view->imprimer());
    EXPECT_TRUE(ui.printed.back().text.contains(QStringLiteral("(O'Neil; Le Goff; Tanguy; Morvan)")));
}

TEST_F(ClubRecordsTest, TheListShowsBestTimesOrTheirHistory)
{
    const QString benj = band(QStringLiteral("Benjamins"), 11, 12, QStringLiteral("Homme"));
    record(cat, 51, 25, 0.3010, QStringLiteral("20010101"), QStringLiteral("Quinze"));
    record(cat, 51, 50, 0.3050, QStringLiteral("20030101"), QStringLiteral("Tardif"));
    record(cat, 51, 50, 0.3050, QStringLiteral("19990101"), QStringLiteral("Ancien"));
    record(benj, 51, 25, 0.3200, QStringLiteral("20020101"), QStringLiteral("Egal un"));
    record(benj, 51, 25, 0.3200, QStringLiteral("20040101"), QStringLiteral("Egal deux"));
    record(benj, 51, 25, 0.3300, QStringLiteral("20000101"), QStringLiteral("Avant"));
    view->set_checked(row_of(51), true);

    // One pool, no history: the best of each band, ties together.
    view->opt_view_bassin = 0;
    ASSERT_TRUE(view->charge_records());
    EXPECT_EQ(shown(), (QStringList{"Quinze Anne|30.10|1 janvier 2001", "Egal un Anne|32.00|1 janvier 2002",
                                    "Egal deux Anne|32.00|1 janvier 2004"}));
    EXPECT_EQ(view->cbo_search().size(), 1);
    EXPECT_EQ(view->lsv_records().item(view->search_row(0), 1)->text(), view->lsv_nage().item(row_of(51), 0)->text());

    // Both pools with history: a slower time that came later never stood.
    view->opt_view_bassin = 2;
    view->chk_histo = true;
    ASSERT_TRUE(view->charge_records());
    EXPECT_EQ(shown(), (QStringList{"Quinze Anne|30.10|1 janvier 2001", "Ancien Anne|30.50|1 janvier 1999",
                                    "Egal un Anne|32.00|1 janvier 2002", "Avant Anne|33.00|1 janvier 2000"}));

    // Effacer unticks all and empties the list.
    view->cmd_view(3);
    EXPECT_TRUE(shown().isEmpty());
    EXPECT_EQ(view->lsv_records().rowCount(), 0);
}

TEST_F(ClubRecordsTest, TheBandsChangedFromTheWindowAreReloadedAndLockedElsewhere)
{
    const int row = row_of(52);
    view.reset();
    FrmViewRecord* records = OuvrirRecords(*app);
    ASSERT_NE(records, nullptr);
    EXPECT_EQ(app->menus.counter(QStringLiteral("mnuPerfRecModifier")), 1);
    records->ouvre_saisie(row);
    ASSERT_EQ(records->cbo_cat(), QStringList{"Minimes"});

    records->categories();
    auto* bands = ui.window_as<DetCategorieRecordClub>(QString(DetCategorieRecordClub::kName));
    ASSERT_NE(bands, nullptr);
    EXPECT_EQ(app->menus.counter(QStringLiteral("mnuPerfRecView")), 1);
    bands->txt_libelle = QStringLiteral("Cadets");
    bands->txt_age = {QStringLiteral("15"), QStringLiteral("16")};
    bands->opt_sexe = 0;
    ASSERT_TRUE(bands->cmd_def(0));
    ASSERT_TRUE(bands->ok());
    EXPECT_EQ(records->cbo_cat(), (QStringList{"Minimes", "Cadets"}));
    EXPECT_EQ(app->menus.counter(QStringLiteral("mnuPerfRecView")), 0);

    // The bands' dialog outliving the records window tells no one.
    records->categories();
    bands = ui.window_as<DetCategorieRecordClub>(QString(DetCategorieRecordClub::kName));
    ASSERT_NE(bands, nullptr);
    ASSERT_TRUE(ui.close_window(QString(FrmViewRecord::kName)));
    std::erase_if(ui.windows, [](const auto& w) { return w->name() == QLatin1String(FrmViewRecord::kName); });
    EXPECT_EQ(app->menus.counter(QStringLiteral("mnuPerfRecModifier")), 0);
    EXPECT_TRUE(bands->ok());
    EXPECT_EQ(app->state.busy_count, 0);
    EXPECT_EQ(app->db.count_query(QStringLiteral("SELECT count(*) FROM Categori_record_club")), 2);
}

TEST_F(ClubRecordsTest, PrintAndExportTheList)
{
    install_template_component();
    record(cat, 51, 50, 0.3050, QStringLiteral("20030101"), QStringLiteral("Kerhervé"));
    view->set_checked(row_of(51), true);
    view->opt_view_bassin = 1;
    view->charge_records();

    view->cmd_view(1);
    ASSERT_EQ(ui.printed.size(), 1u);
    const QString text = ui.printed[0].text;
    // The columns line up in the template's fixed font.
    EXPECT_TRUE(ui.printed[0].html.contains(QStringLiteral("Courier New")));
    EXPECT_TRUE(text.contains(QStringLiteral("Brest Natation"))) << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("Bassin de 50 mètres")));
    EXPECT_TRUE(text.contains(QStringLiteral("10 mars 2025")));
    EXPECT_TRUE(text.contains(QStringLiteral("Kerhervé Anne").leftJustified(47) + QStringLiteral("30.50").rightJustified(9) +
                              QStringLiteral("1 janvier 2003").leftJustified(18) + QStringLiteral("Brest")));

    const QString txt = work_file(QStringLiteral("records.txt"));
    ui.files.push_back(txt);
    ASSERT_TRUE(view->exporter());
    QFile file(txt);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString written = QString::fromUtf8(file.readAll());
    EXPECT_TRUE(written.contains(QStringLiteral("Records en bassin de 50 mètres\r\n")));
    EXPECT_TRUE(written.contains(QStringLiteral("Kerhervé Anne\t30.50")));
    EXPECT_EQ(ui.file_requests.back().title, QStringLiteral("Exporter résultats"));

    const QString rtf = work_file(QStringLiteral("records.rtf"));
    ui.files.push_back(rtf);
    ASSERT_TRUE(view->exporter());
    QFile rich(rtf);
    ASSERT_TRUE(rich.open(QIODevice::ReadOnly)) << messages().join(u'|').toStdString();
    EXPECT_TRUE(rich.readAll().startsWith("{\\rtf"));

    // A place that cannot be written: the message, nothing else.
    ui.files.push_back(work_file(QStringLiteral("absent/records.txt")));
    EXPECT_FALSE(view->exporter());
    EXPECT_TRUE(ui.messages.back().text.startsWith(QStringLiteral("Une erreur s'est produite lors de l'export des records.")));
}

TEST_F(ClubRecordsTest, TheReportTagsOfAClubsHeaderAndFooterAreFilled)
{
    // A club's own template: the pool and the date of the list at the top and
    // at the foot of every page as well as in the body.
    QDir().mkpath(templates_folder(*app));
    QFile file(template_path(*app, QStringLiteral("rec")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}{\\header <NOM_CLUB> - <TYPE_BASSIN>\\par}"
               "{\\footer Liste du <DATE_MAJ>\\par}Records au <DATE_MAJ>\\par}");
    file.close();
    view->opt_view_bassin = 1;
    view->charge_records();
    view->cmd_view(1);
    ASSERT_EQ(ui.printed.size(), 1u);
    EXPECT_EQ(ui.printed[0].header.trimmed(), QStringLiteral("Brest Natation - Bassin de 50 mètres"));
    EXPECT_EQ(ui.printed[0].footer.trimmed(), QStringLiteral("Liste du 10 mars 2025"));
    EXPECT_TRUE(ui.printed[0].text.startsWith(QStringLiteral("Records au 10 mars 2025")));
}

}  // namespace
