// The club records window: the rule of time and date of a record typed in,
// the list by band with or without history, the printed and exported list.

#include "records_test_base.h"
#include "src/frame/choose_date_view.h"
#include "src/frame/list_helpers.h"
#include "src/records/frm_view_record.h"
#include "src/records/record_categories.h"
#include "src/records/utils_record.h"
#include "src/reports/templates.h"
#include "support/temp_files.h"

#include <gtest/gtest.h>

using namespace plouvarine;
using namespace Qt::Literals::StringLiterals;

namespace {

class ClubRecordsTest : public plouvarine::testing::RecordsBase {
protected:
    void SetUp() override
    {
        plouvarine::testing::RecordsBase::SetUp();
        cat = band("Minimes", 13, 14, "Homme");
        view = std::make_unique<FrmViewRecord>(*app);
        view->charge_nages();
    }
    int row_of(int code) const { return find_key(view->lsv_nage(), QString::number(code)).value_or(-1); }
    // Types a record into the fields, the date as "d/m/yyyy".
    void type(const QString& nom, const QString& tps, const QString& date)
    {
        const QStringList dmy = date.split(u'/');
        view->txt_nom = nom;
        view->txt_prenom = u"Yann"_s;
        view->txt_tps = tps;
        view->txt_date = {dmy.value(0), dmy.value(1), dmy.value(2)};
        view->txt_lieu = u"Brest"_s;
    }
    // Command `index` (1 add, 2 replace) begun, the record typed, then saved.
    bool enter(int index, const QString& nom, const QString& tps, const QString& date)
    {
        EXPECT_TRUE(view->cmd_def(index)) << nom.toStdString();
        type(nom, tps, date);
        return view->cmd_def(index);
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
        return dump(u"SELECT Nom, Tps, Date_perf, Bassin FROM RecordClub ORDER BY Tps, Date_perf"_s);
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
    type("Abgrall", "1.0512", "12/5/2020");
    ASSERT_TRUE(view->cmd_def(1));
    EXPECT_FALSE(view->editing());
    EXPECT_EQ(stored(), QStringList{"Abgrall:1.0512:20200512:25"});

    // The same time on a later day: a tie, accepted.
    ASSERT_TRUE(enter(1, "Bihan", "1.0512", "1/6/2021"));
    // Better but earlier, or later but slower: refused with both rules.
    const QString refusal = QString::fromUtf8(kRecordRefuse);
    EXPECT_FALSE(enter(1, "Corre", "1.0400", "1/1/2019"));
    EXPECT_EQ(ui.messages.back().text, refusal);
    EXPECT_EQ(ui.messages.back().title, u"Erreur"_s);
    type("Corre", "1.0600", "1/1/2024");
    EXPECT_FALSE(view->cmd_def(1));
    EXPECT_TRUE(view->editing());
    EXPECT_EQ(ui.messages.size(), 2u);
    view->cmd_def(0);
    EXPECT_EQ(stored().size(), 2);

    // Replace: checked against the record the replaced one beat.
    ASSERT_FALSE(view->current_record().isEmpty());
    const QString replaced = view->current_record();
    EXPECT_FALSE(enter(2, "Derrien", "1.0600", "2/2/2022"));
    EXPECT_EQ(ui.messages.back().text, refusal);
    type("Derrien", "1.0500", "2/2/2022");
    ASSERT_TRUE(view->cmd_def(2));
    EXPECT_EQ(view->current_record(), replaced);
    EXPECT_EQ(view->txt_tps, u"1.0500"_s);
    EXPECT_EQ(app->db.count_query(u"SELECT count(*) FROM RecordClub"_s), 2);

    // Correct: the record shown, changed in place, under the same rule.
    ASSERT_TRUE(view->cmd_def(3));
    EXPECT_EQ(view->txt_nom, u"Derrien"_s);
    view->txt_lieu = u"Quimper d'en haut"_s;
    ASSERT_TRUE(view->cmd_def(2));
    EXPECT_EQ(dump(u"SELECT Lieu, Categorie, Code_nage FROM RecordClub WHERE Num_auto = %1"_s.arg(replaced)),
              QStringList{"Quimper d'en haut:" + cat + ":52"});
}

TEST_F(ClubRecordsTest, ReplacingTheOnlyRecordAndMissingFields)
{
    view->ouvre_saisie(row_of(52));
    view->set_opt_bassin(1);
    ASSERT_TRUE(enter(1, "Abgrall", "1.0512", "12/5/2020"));
    // One row only: no second row to beat, any time passes.
    ASSERT_TRUE(enter(2, "Bihan", "1.2000", "1/1/2000"));
    EXPECT_EQ(stored(), QStringList{"Bihan:1.2:20000101:50"});

    // Blank holder, no time, a day to come: all three named.
    EXPECT_FALSE(enter(2, " ", "0", "11/3/2025"));
    EXPECT_EQ(ui.messages.back().text,
              QStringLiteral("Impossible d'enregistrer le record car les données suivantes sont manquantes : \n"
                             "Nom du détenteur\nTemps réalisé\nDate de le performance"));
    // A day picked in the calendar fills the three fields.
    ui.drivers[u"frm_choose_date"_s] = [](View& v) {
        auto& picker = dynamic_cast<ChooseDateView&>(v);
        picker.set_calendar_date(QDate(2024, 6, 9));
        picker.ok();
    };
    view->cmd_date();
    EXPECT_EQ(view->txt_date, (std::array<QString, 3>{"09", "06", "2024"}));
    // An impossible day is no date either.
    type("Bihan", "1.1000", "30/2/2024");
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
    const QString mixte = band("Jeunes", 10, 14, "Mixte");
    const int row = row_of(45);  // a mixed relay
    ASSERT_GE(row, 0);
    view->ouvre_saisie(row);
    ASSERT_EQ(view->cbo_cat(), QStringList{"Jeunes"});
    ASSERT_TRUE(view->relais_enabled());
    view->cmd_def(1);
    type("Brest Natation 1", "2.0000", "1/2/2025");
    view->txt_prenom.clear();
    for (const char* name : {"Le Goff", "O'Neil", "Tanguy", "Morvan", "En trop"}) {
        view->txt_relayeur = QString::fromUtf8(name);
        view->add_relayeur();
    }
    EXPECT_EQ(view->lsv_relais.size(), 4);
    view->relais_selected = 1;
    view->move_relayeur(-1);
    ASSERT_TRUE(view->cmd_def(1));
    EXPECT_EQ(dump(u"SELECT Categorie, Rel1, Rel2, Rel4, Rel5 FROM RecordClub"_s),
              QStringList{mixte + ":O'Neil:Le Goff:Morvan: "});

    // Shown with the swimmers, and printed with them in brackets.
    install_template_component();
    view->set_checked(row, true);
    view->chk_relayeur = true;
    ASSERT_TRUE(view->charge_records());
    QStandardItemModel& list = view->lsv_records();
    ASSERT_EQ(list.columnCount(), 15);
    EXPECT_EQ(list.horizontalHeaderItem(14)->text(), u"Rel 10"_s);
    EXPECT_EQ(list.item(list.rowCount() - 1, 5)->text(), u"O'Neil"_s);
    EXPECT_EQ(list.item(list.rowCount() - 1, 9)->text(), QString());
    ASSERT_TRUE(view->imprimer());
    EXPECT_TRUE(ui.printed.back().text.contains(u"(O'Neil; Le Goff; Tanguy; Morvan)"_s));
}

TEST_F(ClubRecordsTest, TheListShowsBestTimesOrTheirHistory)
{
    const QString benj = band("Benjamins", 11, 12, "Homme");
    record(cat, 51, 25, 0.3010, "20010101", "Quinze");
    record(cat, 51, 50, 0.3050, "20030101", "Tardif");
    record(cat, 51, 50, 0.3050, "19990101", "Ancien");
    record(benj, 51, 25, 0.3200, "20020101", "Egal un");
    record(benj, 51, 25, 0.3200, "20040101", "Egal deux");
    record(benj, 51, 25, 0.3300, "20000101", "Avant");
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
    EXPECT_EQ(app->menus.counter(u"mnuPerfRecModifier"_s), 1);
    records->ouvre_saisie(row);
    ASSERT_EQ(records->cbo_cat(), QStringList{"Minimes"});

    records->categories();
    auto* bands = ui.window_as<DetCategorieRecordClub>(QString(DetCategorieRecordClub::kName));
    ASSERT_NE(bands, nullptr);
    EXPECT_EQ(app->menus.counter(u"mnuPerfRecView"_s), 1);
    bands->txt_libelle = u"Cadets"_s;
    bands->txt_age = {u"15"_s, u"16"_s};
    bands->opt_sexe = 0;
    ASSERT_TRUE(bands->cmd_def(0));
    ASSERT_TRUE(bands->ok());
    EXPECT_EQ(records->cbo_cat(), (QStringList{"Minimes", "Cadets"}));
    EXPECT_EQ(app->menus.counter(u"mnuPerfRecView"_s), 0);

    // The bands' dialog outliving the records window tells no one.
    records->categories();
    bands = ui.window_as<DetCategorieRecordClub>(QString(DetCategorieRecordClub::kName));
    ASSERT_NE(bands, nullptr);
    ASSERT_TRUE(ui.close_window(QString(FrmViewRecord::kName)));
    std::erase_if(ui.windows, [](const auto& w) { return w->name() == QLatin1String(FrmViewRecord::kName); });
    EXPECT_EQ(app->menus.counter(u"mnuPerfRecModifier"_s), 0);
    EXPECT_TRUE(bands->ok());
    EXPECT_EQ(app->state.busy_count, 0);
    EXPECT_EQ(app->db.count_query(u"SELECT count(*) FROM Categori_record_club"_s), 2);
}

TEST_F(ClubRecordsTest, PrintAndExportTheListAndFillAClubsOwnTemplate)
{
    install_template_component();
    record(cat, 51, 50, 0.3050, "20030101", "Kerhervé");
    view->set_checked(row_of(51), true);
    view->opt_view_bassin = 1;
    view->charge_records();

    view->cmd_view(1);
    ASSERT_EQ(ui.printed.size(), 1u);
    const QString text = ui.printed[0].text;
    // The columns line up in the template's fixed font.
    EXPECT_TRUE(ui.printed[0].html.contains(u"Courier New"_s));
    const QString line = u"Kerhervé Anne"_s.leftJustified(47) + u"30.50"_s.rightJustified(9) +
                         u"1 janvier 2003"_s.leftJustified(18) + u"Brest"_s;
    for (const QString& part : {u"Brest Natation"_s, u"Bassin de 50 mètres"_s, u"10 mars 2025"_s, line})
        EXPECT_TRUE(text.contains(part)) << text.toStdString();

    const QString txt = work_file(u"records.txt"_s);
    ui.files.push_back(txt);
    ASSERT_TRUE(view->exporter());
    const QString written = QString::fromUtf8(plouvarine::testing::read_bytes(txt));
    EXPECT_TRUE(written.contains(u"Records en bassin de 50 mètres\r\n"_s));
    EXPECT_TRUE(written.contains(u"Kerhervé Anne\t30.50"_s));
    EXPECT_EQ(ui.file_requests.back().title, u"Exporter résultats"_s);

    const QString rtf = work_file(u"records.rtf"_s);
    ui.files.push_back(rtf);
    ASSERT_TRUE(view->exporter()) << messages().join(u'|').toStdString();
    EXPECT_TRUE(plouvarine::testing::read_bytes(rtf).startsWith("{\\rtf"));

    // A place that cannot be written: the message, nothing else.
    ui.files.push_back(work_file(u"absent/records.txt"_s));
    EXPECT_FALSE(view->exporter());
    EXPECT_TRUE(ui.messages.back().text.startsWith(u"Une erreur s'est produite lors de l'export des records."_s));

    // A club's own template: the pool and the date of the list at the top and
    // at the foot of every page as well as in the body.
    ASSERT_TRUE(plouvarine::testing::write_bytes(
        template_path(*app, u"rec"_s),
        "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}{\\header <NOM_CLUB> - <TYPE_BASSIN>\\par}"
        "{\\footer Liste du <DATE_MAJ>\\par}Records au <DATE_MAJ>\\par}"));
    view->cmd_view(1);
    ASSERT_EQ(ui.printed.size(), 2u);
    EXPECT_EQ(ui.printed[1].header.trimmed(), u"Brest Natation - Bassin de 50 mètres"_s);
    EXPECT_EQ(ui.printed[1].footer.trimmed(), u"Liste du 10 mars 2025"_s);
    EXPECT_TRUE(ui.printed[1].text.startsWith(u"Records au 10 mars 2025"_s));
}

}  // namespace
