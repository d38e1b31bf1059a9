// The sources of a programme read into frm_prog on a real base: an organiser's
// Pcomp.txt (with nage.txt), a past competition and a Lenex meet file. Bad
// files leave the programme on screen as it was.

#include "components/lenex/lenex_reader.h"
#include "src/base/utils_date.h"
#include "src/base/zip.h"
#include "src/clubs/pools.h"
#include "src/competitions/frm_prog.h"
#include "src/competitions/liste_compet.h"
#include "src/competitions/prog_sources.h"
#include "src/competitions/utils_programme.h"
#include "src/frame/keywords.h"
#include "src/frame/list_helpers.h"
#include "src/store/sentinels.h"
#include "competitions/compet_test_base.h"
#include "support/temp_files.h"

#include <QDir>
#include <QFile>
#include <QSet>

using namespace plouvarine;

namespace {

const QString kRecuperation =
    u"Une erreur s'est produite lors de la récupération des données d'un programme."_s;

class ProgSources : public plouvarine::testing::CompetFixture {
protected:
    void SetUp() override
    {
        CompetFixture::SetUp();
        app->state.profile_num = u"1"_s;
        QDir().mkpath(work_file(u"org"_s));
    }
    size_t errors() const { return ui.titled(u"Erreur"_s).size(); }
    FrmProg* compet_prog(const QString& num)
    {
        return OuvrirProg(*app, QString(keyword::kModif), num, false, u"Programme"_s, {});
    }
    // The competition's fields "name|place|first day|last day|length".
    QString meet_fields(const QString& num)
    {
        return value(u"select Nom || '|' || Lieu || '|' || Debut || '|' || Fin || '|' || Longueur from Rcomp "
                     "where AutoNum = "_s + num);
    }
    FrmProg* model_prog()
    {
        const QString num = app->db.append_row(u"Modele_prog"_s,
                                               {{"Nom_modele", "Meeting"}, {"Num_profil", 1}}, u"NumAuto"_s);
        return OuvrirProg(*app, QString(keyword::kModif), num, true, u"Modèle"_s, {});
    }
    QString write(const QString& name, const QByteArray& bytes)
    {
        const QString path = work_file(u"org/"_s + name);
        EXPECT_TRUE(plouvarine::testing::write_bytes(path, bytes)) << path.toStdString();
        return path;
    }
    // "code:day:type:finals:kind:order" of each programmed slot.
    static QStringList slots_of(const FrmProg& prog)
    {
        QStringList out;
        for (int c = 0; c < kEventSlots; ++c) {
            const ProgSlot& s = prog.tabProg()[size_t(c)];
            if (s.JourCourse > 0)
                out << u"%1:%2:%3:%4:%5:%6"_s.arg(c).arg(s.JourCourse).arg(s.Type).arg(s.Nb_finales)
                           .arg(s.Type_finale)
                           .arg(s.Num_ordre);
        }
        return out;
    }
};

}  // namespace

TEST_F(ProgSources, PcompFileIsTakenByItsNameWhateverTheCase)
{
    FrmProg* prog = model_prog();
    ASSERT_NE(prog, nullptr);
    // Windows line ends and a blank line are no trouble.
    const QByteArray text = "xxx0215032025 32T01\r\n\r\nxxx5216032025 11 03\r\n";
    prog->charger_pcomp(write(u"PCOMP.TXT"_s, text));
    EXPECT_EQ(errors(), 0u) << ui.texts().join(QLatin1Char('|')).toStdString();
    EXPECT_EQ(slots_of(*prog), (QStringList{"2:1:3:2:T:1", "52:2:1:1: :3"}));
    EXPECT_EQ(prog->txt_nb_journee, "2");
    EXPECT_EQ(prog->CboDate(), (QStringList{"1ère journée", "2ème journée"}));
    // Read from a copy that is gone once read.
    EXPECT_TRUE(ui.status_history.contains(u"Copie du fichier dans répertoire temporaire"_s));
    EXPECT_TRUE(QDir(app->tempo_dir()).entryList({u"tmpProg*"_s}, QDir::Dirs).isEmpty());

    ui.clear();
    prog->charger_pcomp(write(u"prog.txt"_s, text));
    EXPECT_EQ(ui.texts(), QStringList{u"Sélectionner un fichier Pcomp.txt !"_s});
    // Cancelling the dialog is no error.
    ui.clear();
    prog->Cmd_charger();
    EXPECT_TRUE(ui.messages.empty());
    ASSERT_EQ(ui.file_requests.size(), 1u);
    EXPECT_EQ(ui.file_requests[0].title, "Sélection Fichier Pcomp.txt");
    EXPECT_EQ(prog->txt_nb_journee, "2");
}

TEST_F(ProgSources, PcompWithoutDatesKeepsDayOneAndTheDayCount)
{
    FrmProg* prog = model_prog();
    prog->txt_nb_journee = u"3"_s;
    prog->SetListeFromText();
    prog->charger_pcomp(write(u"Pcomp.txt"_s, "   03         1  07\n   13         21C11\n"));
    EXPECT_EQ(slots_of(*prog), (QStringList{"3:1:1:0: :7", "13:1:2:1:C:11"}));
    EXPECT_EQ(prog->txt_nb_journee, "3");
    EXPECT_EQ(prog->CboDate().size(), 3);
}

TEST_F(ProgSources, UnknownCodesAreReportedAndTheOthersLoaded)
{
    FrmProg* prog = model_prog();
    const QString pcomp =
        write(u"Pcomp.txt"_s, "   9710032025 1  04\n   0110032025 1  01\n   9811032025 1  09\n");
    prog->charger_pcomp(pcomp);
    EXPECT_EQ(slots_of(*prog), QStringList{"1:1:1:0: :1"});
    EXPECT_EQ(errors(), 1u);
    EXPECT_EQ(ui.texts().join(QString()),
              "Des codes nages sont inconnus dans le fichier pcomp.txt : \n97\n98\n"
              "Fichier nage.txt non présent, impossible de trouver des informations sur ces codes.");

    // nage.txt in Latin-1, as the organisers' tools write it.
    ui.clear();
    write(u"nage.txt"_s, u"97Relais élite\r\n98Nage palmée\r\n"_s.toLatin1());
    prog->charger_pcomp(pcomp);
    EXPECT_EQ(ui.texts().join(QString()),
              "Des codes nages sont inconnus dans le fichier pcomp.txt : \n"
              "97Relais élite        , journée 1, ordre 4\n"
              "98Nage palmée         , journée 2, ordre 9");
}

TEST_F(ProgSources, UnreadablePcompLeavesTheProgrammeAsItWas)
{
    FrmProg* prog = model_prog();
    prog->charger_pcomp(write(u"Pcomp.txt"_s, "   0210032025 3  01\n"));
    const QStringList before = slots_of(*prog);
    ASSERT_EQ(before.size(), 1);
    for (const QByteArray& bad : {QByteArray("   0510032025 1  02\nab\n"), QByteArray("   x510032025 1  02\n"),
                                  QByteArray("   0510032025 Z  02\n"), QByteArray("   0531132025 1  02\n")}) {
        ui.clear();
        prog->charger_pcomp(write(u"Pcomp.txt"_s, bad));
        ASSERT_EQ(errors(), 1u) << bad.toStdString();
        EXPECT_TRUE(ui.texts().first().startsWith(kRecuperation + QLatin1String("\nLigne ")))
            << ui.texts().first().toStdString();
        EXPECT_EQ(slots_of(*prog), before) << bad.toStdString();
    }
    // A file gone between the dialog and the reading.
    ui.clear();
    prog->charger_pcomp(work_file(u"org/gone/Pcomp.txt"_s));
    EXPECT_EQ(ui.texts(), QStringList{kRecuperation + u"\nLe fichier Pcomp.txt ne peut être copié dans le répertoire "
                                                      "temporaire."_s});
    EXPECT_EQ(slots_of(*prog), before);
}

TEST_F(ProgSources, CopyListShowsRetiredCompetitionsWithAProgramme)
{
    const QString retired = compet("20240301", "20240302", 25, true, false);
    compet("20240401", "20240401", 25, true, false);  // retired, with no programme
    const QString to_come = compet("20250401", "20250402", 50);
    const std::tuple<QString, int, int> lines[] = {{retired, 0, 1}, {retired, 3, 2}, {to_come, 5, 1}};
    for (const auto& [num, code, day] : lines)
        exec(u"INSERT INTO Pcomp (Num_compet, Code_epreuve, JourCourse, Type, Nb_finales, Type_finale, Num_ordre) "
             "VALUES (%1, %2, %3, '1', '0', ' ', 0)"_s.arg(num).arg(code).arg(day));
    FrmProg* prog = model_prog();
    prog->Cmd_compet();
    auto* list = ui.window_as<FrmListeCompet>(QString(FrmListeCompet::kName));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->title(), "Choix d'une compétition mémorisée pour copie du programme");
    ASSERT_EQ(list->lsv_compet().rowCount(), 1);
    EXPECT_EQ(list->current_autonum(), retired);
    list->cmd0();
    EXPECT_EQ(slots_of(*prog), (QStringList{"0:1:1:0: :0", "3:2:1:0: :0"}));
    EXPECT_EQ(prog->txt_nb_journee, "2");
    EXPECT_EQ(prog->CboDate().size(), 2);
}

// ---------------------------------------------------------------- Lenex

namespace {

// What the file holds, read by the Lenex components' own reader: the days
// from the first session date to the last, and the codes its events give.
struct Expected {
    int days = 1;
    QSet<int> codes;
    int without_code = 0;
};

Expected expected_of(const QString& path, const QString& work)
{
    const QStringList lefs = lenex::lef_files(path, work);
    const lenex::Meet meet = lenex::read_lef(lefs.first()).meets.first();
    Expected e;
    if (!meet.first_date.isEmpty())
        e.days = int(QDate::fromString(meet.first_date, "yyyyMMdd").daysTo(QDate::fromString(meet.last_date, "yyyyMMdd"))) + 1;
    for (const lenex::Event& ev : meet.events) {
        const QStringList genders = ev.gender == "F" || ev.gender == "M" || ev.gender == "X" ? QStringList{ev.gender}
                                                                                               : QStringList{"F", "M"};
        bool known = false;
        for (const QString& g : genders)
            if (const int code = lenex::event_code(ev.style, g.front()); code >= 0) {
                e.codes.insert(code);
                known = true;
            }
        e.without_code += known ? 0 : 1;
    }
    return e;
}

}  // namespace

TEST_F(ProgSources, EachRealLenexFileGivesItsDaysAndEvents)
{
    if (!QDir(QStringLiteral(PLOUVARINE_LENEX_DIR)).exists())
        GTEST_SKIP() << "no Lenex files at " PLOUVARINE_LENEX_DIR;
    for (const char* name : {"example-results.lef", "16032025_Erlangen_lenex3_results.lxf", "38468.lxf"}) {
        SCOPED_TRACE(name);
        const QString path = QStringLiteral(PLOUVARINE_LENEX_DIR "/") + QLatin1String(name);
        const Expected expected = expected_of(path, work_file(u"lxf"_s));
        FrmProg* prog = model_prog();
        ASSERT_NE(prog, nullptr);
        ui.clear();
        prog->charger_lenex(path);
        EXPECT_EQ(prog->txt_nb_journee, QString::number(expected.days));
        EXPECT_EQ(prog->CboDate().size(), expected.days);
        EXPECT_EQ(slots_of(*prog).size(), expected.codes.size());
        for (int code : expected.codes)
            EXPECT_GE(prog->tabProg()[size_t(code)].JourCourse, 1) << code;
        // The events with no code are told in one message.
        if (expected.without_code > 0) {
            ASSERT_EQ(errors(), 1u);
            EXPECT_EQ(ui.texts().first().count(QLatin1String("Epreuve ")), expected.without_code);
        } else {
            EXPECT_EQ(errors(), 0u);
        }
        ui.close_window(QString(FrmProg::kName));
    }
}

TEST_F(ProgSources, LenexInvitationFillsAnEmptyCompetition)
{
    const QString num = compet("20250601", "20250601", 25);
    FrmProg* prog = compet_prog(num);
    const QByteArray lef =
        "<?xml version=\"1.0\"?><LENEX version=\"3.0\"><MEETS><MEET name=\"Meeting d'été\" city=\"Quimper\" "
        "course=\"LCM\"><POOL lanemax=\"10\"/><SESSIONS>"
        "<SESSION number=\"1\" date=\"2025-06-14\"><EVENTS>"
        "<EVENT eventid=\"1\" number=\"1\" gender=\"F\" round=\"PRE\"><SWIMSTYLE distance=\"100\" relaycount=\"1\" stroke=\"FREE\"/></EVENT>"
        "<EVENT eventid=\"2\" number=\"2\" gender=\"A\"><SWIMSTYLE distance=\"200\" relaycount=\"1\" stroke=\"BACK\"/></EVENT>"
        "<EVENT eventid=\"3\" number=\"3\" gender=\"X\"><SWIMSTYLE distance=\"50\" relaycount=\"4\" stroke=\"MEDLEY\"/></EVENT>"
        "</EVENTS></SESSION><SESSION number=\"2\" date=\"2025-06-15\"><EVENTS>"
        "<EVENT eventid=\"4\" number=\"4\" gender=\"F\" round=\"FIN\"><SWIMSTYLE distance=\"100\" relaycount=\"1\" stroke=\"FREE\"/></EVENT>"
        "<EVENT eventid=\"5\" number=\"5\" gender=\"M\"><SWIMSTYLE distance=\"300\" relaycount=\"1\" stroke=\"SURF\"/></EVENT>"
        "<EVENT eventid=\"6\" number=\"99999999999\" gender=\"M\"><SWIMSTYLE distance=\"99999999999\" relaycount=\"1\" stroke=\"FREE\"/></EVENT>"
        "</EVENTS></SESSION></SESSIONS></MEET></MEETS></LENEX>";
    ui.answers.push_back(Button::Yes);
    prog->charger_lenex(write(u"meet.lef"_s, lef));
    EXPECT_EQ(meet_fields(num), "Meeting d'été|Quimper|20250614|20250615|50");
    EXPECT_EQ(value(u"select Nb_couloir from Rcomp where AutoNum = "_s + num), "10");
    EXPECT_EQ(prog->CboDate().size(), 2);
    // 100 free heats and final: one line, "Séries - Finales"; an open event for each sex.
    EXPECT_EQ(slots_of(*prog), (QStringList{"2:1:3:1:T:1", "13:1:1:0: :2", "48:1:1:0: :3", "63:1:1:0: :2"}));
    const QStringList texts = ui.texts();
    ASSERT_EQ(errors(), 1u);
    EXPECT_TRUE(texts.last().contains(QLatin1String("Epreuve 5 : 300 m SURF, sexe M"))) << texts.last().toStdString();
    EXPECT_TRUE(texts.last().contains(QLatin1String("Epreuve 0 : 0 m FREE, sexe M"))) << texts.last().toStdString();

    // A programme that stands already: the competition is not offered again.
    ui.clear();
    prog->charger_lenex(work_file(u"org/meet.lef"_s));
    EXPECT_TRUE(ui.titled(u"Confirmation"_s).empty());

    // Bad files: a clear message, the programme as it was.
    const QStringList before = slots_of(*prog);
    const QString zip_inside = write(u"inner.lef"_s, lef);
    const QString twice = work_file(u"org/twice.lxf"_s);
    const QString once = work_file(u"org/once.lxf"_s);
    ASSERT_TRUE(zip_file(once, zip_inside, u"meet.lef"_s));
    ASSERT_TRUE(zip_file(twice, once, u"meet.lxf"_s));
    const QStringList bad{write(u"notxml.lef"_s, "Programme du meeting\nEpreuve 1"),
                          write(u"cut.lef"_s, lef.left(lef.size() / 2)),
                          write(u"fake.lxf"_s, "PK\x03\x04 not a zip"), twice};
    for (const QString& path : bad) {
        ui.clear();
        prog->charger_lenex(path);
        ASSERT_EQ(errors(), 1u) << path.toStdString();
        EXPECT_TRUE(ui.texts().first().startsWith(kRecuperation + QLatin1Char('\n'))) << path.toStdString();
        EXPECT_EQ(slots_of(*prog), before) << path.toStdString();
    }
}

TEST_F(ProgSources, LenexInvitationRefusedKeepsTheCompetitionAndTheFilesDays)
{
    const QString num = compet("20250601", "20250601", 25);
    FrmProg* prog = compet_prog(num);
    const QByteArray lef =
        "<?xml version=\"1.0\"?><LENEX version=\"3.0\"><MEETS><MEET name=\"Meeting d'été\" city=\"Quimper\" "
        "course=\"LCM\"><SESSIONS>"
        "<SESSION number=\"1\" date=\"2025-06-14\"><EVENTS>"
        "<EVENT eventid=\"1\" number=\"1\" gender=\"F\"><SWIMSTYLE distance=\"100\" relaycount=\"1\" stroke=\"FREE\"/></EVENT>"
        "</EVENTS></SESSION><SESSION number=\"2\" date=\"2025-06-15\"><EVENTS>"
        "<EVENT eventid=\"2\" number=\"2\" gender=\"F\"><SWIMSTYLE distance=\"200\" relaycount=\"1\" stroke=\"BACK\"/></EVENT>"
        "</EVENTS></SESSION></SESSIONS></MEET></MEETS></LENEX>";
    const QString before = meet_fields(num);
    ui.answers.push_back(Button::No);
    prog->charger_lenex(write(u"meet.lef"_s, lef));
    ASSERT_EQ(ui.titled(u"Confirmation"_s).size(), 1u);
    EXPECT_EQ(meet_fields(num), before);
    EXPECT_EQ(slots_of(*prog), (QStringList{"2:1:1:0: :1", "13:2:1:0: :2"}));
    // The competition's own day stays, the file's second day follows it: the
    // 200 back is not moved onto the first day when the programme is saved.
    EXPECT_EQ(prog->CboDate(), (QStringList{DateLongue(u"20250601"_s, u"d mmm yyyy"_s),
                                            LibelleJournee(2)}));
    ASSERT_TRUE(prog->SaveTabInTable(u"Pcomp"_s, num, false));
    EXPECT_EQ(dump(u"select Code_epreuve, JourCourse from Pcomp where Num_compet = %1 order by Code_epreuve"_s.arg(num)),
              (QStringList{"2:1", "13:2"}));
}
