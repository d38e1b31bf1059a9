// The tab-separated exchange components (clubs, licences) on real bases:
// what an export writes comes back the same through the import into a fresh
// base, the options are honoured, and an import that fails half-way leaves
// the base as it was.

#include "components/exchange/tab_columns.h"
#include "components/exchange/traced_run.h"
#include "src/frame/components.h"
#include "src/frame/exchange_component.h"
#include "src/store/database.h"
#include "support/app_fixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPluginLoader>

using namespace plouvarine;
using plouvarine::testing::model_file;

namespace {

class Recorder : public OperationProgress {
public:
    void set_message(int, const QString&) override {}
    void set_club(const QString& text) override { clubs << text; }
    void set_swimmer(const QString& text) override { swimmers << text; }
    void set_progress(int value, int maximum) override { last = {value, maximum}; }
    void append_report(const QString&) override {}
    QStringList clubs, swimmers;
    std::pair<int, int> last{-1, -1};
};

ExchangeComponent* component(const char* dll)
{
    QPluginLoader loader(QFileInfo(model_file()).dir().filePath(component_file(QString::fromLatin1(dll))));
    return qobject_cast<ExchangeComponent*>(loader.instance());
}

class TabComponentsTest : public ::testing::Test {
protected:
    QString make_base(const QString& name)
    {
        const QString path = dir.filePath(name);
        EXPECT_TRUE(QFile::copy(model_file(), path));
        QFile::setPermissions(path, QFile::permissions(path) | QFileDevice::WriteOwner);
        return path;
    }
    QString folder(const QString& name)
    {
        QDir().mkpath(dir.filePath(name));
        return dir.filePath(name);
    }
    // Runs a method; gives its result, the trace in `report`.
    bool run(const char* dll, const char* method, ExchangeCall call)
    {
        ExchangeComponent* c = component(dll);
        EXPECT_NE(c, nullptr) << dll;
        if (!c)
            return false;
        call.trace_file = dir.filePath(QStringLiteral("trace%1.txt").arg(++runs));
        const bool result = c->run(QString::fromLatin1(method), call, progress);
        QFile trace(call.trace_file);
        report = trace.open(QIODevice::ReadOnly) ? QString::fromUtf8(trace.readAll()) : QString();
        return result;
    }
    static void insert(const QString& base, const QString& table, const std::vector<std::pair<QString, QVariant>>& row)
    {
        Database db;
        db.open(base);
        db.append_row(table, row, QStringLiteral("Num"));
        db.close();
    }
    static Rows read(const QString& base, const QString& sql)
    {
        Database db;
        db.open(base);
        Rows rows = db.load_rows(sql);
        db.close();
        return rows;
    }
    static QStringList lines(const Rows& rows) { return plouvarine::testing::row_texts(rows, u'|'); }
    static void write(const QString& path, const QByteArray& bytes)
    {
        QFile f(path);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    }

    QTemporaryDir tmp;
    QDir dir{tmp.path()};
    Recorder progress;
    QString report;
    int runs = 0;
};

const QString kClubRows =
    QStringLiteral("select Code_federal, Intitule, Selection, Adresse, Code_Postal, Ville, Telephone, Fax, Mail "
                   "from Club where Visible = true order by Code_federal");

TEST_F(TabComponentsTest, ClubsExportedComeBackTheSameAndAKnownClubChangesOnlyWhenForced)
{
    const QString a = make_base(QStringLiteral("a.mdb"));
    insert(a, QStringLiteral("Club"), {{"Code_federal", "0123"}, {"Intitule", "Cercle des Nageurs d'Étel"}, {"Selection", false},
                                       {"Adresse", "1 rue du Port\tQuai"}, {"Code_Postal", "56410"}, {"Ville", "Étel"},
                                       {"Mail", "cn@etel.fr"}});
    insert(a, QStringLiteral("Club"), {{"Code_federal", "0456"}, {"Intitule", "Sélection Bretagne"}, {"Selection", true}});
    insert(a, QStringLiteral("Club"), {{"Code_federal", "0789"}, {"Intitule", "Club caché"}, {"Visible", false}});
    const QString out = folder(QStringLiteral("out"));
    ExchangeCall call;
    call.base = a;
    call.tmp_dir = out;
    ASSERT_TRUE(run("expclub.dll", "bExport_Club", call)) << report.toStdString();
    EXPECT_TRUE(report.contains(QStringLiteral("2 club(s) exporté(s)")));
    QFile written(QDir(out).filePath(QStringLiteral("clubs.txt")));
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    EXPECT_TRUE(written.readLine().startsWith("\xEF\xBB\xBF" "Code_federal\tIntitule\tSelection\t"));

    const QString b = make_base(QStringLiteral("b.mdb"));
    insert(b, QStringLiteral("Club"), {{"Code_federal", "0456"}, {"Intitule", "Ancien nom"}});
    call = {};
    call.base = b;
    call.source = out;
    EXPECT_FALSE(run("rcptclub.dll", "bImport_Club", call));
    EXPECT_TRUE(report.contains(QStringLiteral("1 club(s) ajouté(s), 0 mis à jour, 1 déjà présent(s)"))) << report.toStdString();
    QStringList rows = lines(read(b, kClubRows));
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[1], QStringLiteral("0456|Ancien nom|Faux||||||"));

    call.option = true;
    run("rcptclub.dll", "bImport_Club", call);
    EXPECT_TRUE(report.contains(QStringLiteral("Club mis à jour : 0456 Sélection Bretagne")));
    // The tab inside the address could not travel: it became a blank.
    QStringList expected = lines(read(a, kClubRows));
    expected[0].replace(QLatin1Char('\t'), QLatin1Char(' '));
    EXPECT_EQ(lines(read(b, kClubRows)), expected);
    EXPECT_EQ(progress.clubs.last(), QStringLiteral("Sélection Bretagne"));
    EXPECT_EQ(progress.last, std::make_pair(2, 2));
}

const QString kLicenceRows =
    QStringLiteral("select Licence, Code_club, Nom, Prenom, Sexe, Date_Naissance, Nationalite, Code_unique, Mail, "
                   "Visible from Licence order by Nom, Prenom");

TEST_F(TabComponentsTest, LicencesOfTheClubAndItsSelectionComeBackTheSame)
{
    const QString a = make_base(QStringLiteral("a.mdb"));
    insert(a, QStringLiteral("Licence"), {{"Licence", "111"}, {"Code_club", "0123"}, {"Nom", "Le Gall"}, {"Prenom", "Élodie"},
                                          {"Sexe", "F"}, {"Date_Naissance", "20100304"}, {"Nationalite", "FRA"},
                                          {"Code_unique", "A1"}, {"Mail", "e@x.fr"}});
    insert(a, QStringLiteral("Licence"), {{"Licence", "222"}, {"Code_club", "0999"}, {"Nom", "Durand"}, {"Prenom", "Paul"},
                                          {"Sexe", "M"}, {"Date_Naissance", "20090101"}});
    insert(a, QStringLiteral("Licence"), {{"Licence", "333"}, {"Code_club", "0999"}, {"Nom", "Autre"}, {"Prenom", "Club"}});
    insert(a, QStringLiteral("Licence"), {{"Licence", "444"}, {"Code_club", "0123"}, {"Nom", "Parti"}, {"Visible", false}});
    const QString selected = read(a, QStringLiteral("select Num from Licence where Licence = '222'")).first();
    {
        Database db;
        db.open(a);
        db.exec_sql(QStringLiteral("insert into Selection (Code_Sel, Num_Lic) values ('0123', ") + selected + QStringLiteral(")"));
        db.close();
    }
    const QString out = folder(QStringLiteral("out"));
    ExchangeCall call;
    call.base = a;
    call.tmp_dir = out;
    call.club_code = QStringLiteral("0123");
    call.club_selection = QStringLiteral("false");
    ASSERT_TRUE(run("explic.dll", "bExport_licence", call));
    EXPECT_TRUE(report.contains(QStringLiteral("1 licence(s) exportée(s)"))) << report.toStdString();
    call.club_selection = QStringLiteral("true");
    ASSERT_TRUE(run("explic.dll", "bExport_licence", call));
    EXPECT_TRUE(report.contains(QStringLiteral("2 licence(s) exportée(s)"))) << report.toStdString();

    const QString b = make_base(QStringLiteral("b.mdb"));
    call = {};
    call.base = b;
    call.source = out;
    run("rcptlic.dll", "bimport_licence", call);
    EXPECT_TRUE(report.contains(QStringLiteral("2 licence(s) ajoutée(s), 0 mise(s) à jour."))) << report.toStdString();
    // Every column of the file, as it was.
    const QString all = QStringLiteral("select ") + exchange::licence_columns().join(QStringLiteral(", ")) +
                        QStringLiteral(", Visible from Licence ");
    EXPECT_EQ(lines(read(b, all + QStringLiteral("order by Licence"))).join(QLatin1Char('\n')).toStdString(),
              lines(read(a, all + QStringLiteral("where Licence in ('111', '222') order by Licence"))).join(QLatin1Char('\n')).toStdString());
    // The same file again finds every swimmer and adds nobody.
    run("rcptlic.dll", "bimport_licence", call);
    EXPECT_TRUE(report.contains(QStringLiteral("0 licence(s) ajoutée(s), 2 mise(s) à jour."))) << report.toStdString();
    const QStringList in_b = lines(read(b, kLicenceRows));
    ASSERT_EQ(in_b.size(), 2);
    EXPECT_EQ(in_b[0], QStringLiteral("222|0999|Durand|Paul|M|20090101||||Vrai"));
    EXPECT_EQ(in_b[1], QStringLiteral("111|0123|Le Gall|Élodie|F|20100304|FRA|A1|e@x.fr|Vrai"));
}

TEST_F(TabComponentsTest, ASwimmerIsFoundByNameAndBirthDateWhateverTheAccentsAndCase)
{
    const QString b = make_base(QStringLiteral("b.mdb"));
    insert(b, QStringLiteral("Licence"), {{"Nom", "Le Gall"}, {"Prenom", "Élodie"}, {"Date_Naissance", "20100304"},
                                          {"Mail", "garde@x.fr"}});
    const QString in = folder(QStringLiteral("in"));
    write(QDir(in).filePath(QStringLiteral("licences.txt")),
          "\xEF\xBB\xBFNom\tPrenom\tDate_Naissance\tLicence\tMail\r\n"
          "LE GALL\tELODIE\t20100304\t111\t\r\n"
          "Le Gall\tElodie\t20110304\t112\tsoeur@x.fr\r\n"
          "\r\n"
          "le gall\télodie\t20110304\t\tautre@x.fr\r\n");
    ExchangeCall call;
    call.base = b;
    call.source = in;
    run("rcptlic.dll", "bimport_licence", call);
    EXPECT_TRUE(report.contains(QStringLiteral("1 licence(s) ajoutée(s), 2 mise(s) à jour."))) << report.toStdString();
    // The first line found the swimmer of the base and gave her licence, an
    // empty field keeping what the base knew; the last found the sister that
    // the second line added.
    EXPECT_EQ(lines(read(b, QStringLiteral("select Licence, Prenom, Date_Naissance, Mail from Licence order by Num"))),
              (QStringList{QStringLiteral("111|Élodie|20100304|garde@x.fr"), QStringLiteral("112|Elodie|20110304|autre@x.fr")}));
}

TEST_F(TabComponentsTest, AnImportThatFailsHalfWayLeavesTheBaseAsItWasAndNamesTheLine)
{
    const QString b = make_base(QStringLiteral("b.mdb"));
    const QString in = folder(QStringLiteral("in"));
    const QString licences = QStringLiteral("select count(*) from Licence");
    const QString clubs = QStringLiteral("select count(*) from Club");
    const QString before_licences = read(b, licences).first();
    const QString before_clubs = read(b, clubs).first();
    ExchangeCall call;
    call.base = b;
    call.source = in;

    write(QDir(in).filePath(QStringLiteral("licences.txt")),
          "Licence\tNom\tPrenom\tDate_Naissance\n1\tA\ta\t20000101\n2\tB\tb\t20000101\n3\t\tc\t20000101\n");
    run("rcptlic.dll", "bimport_licence", call);
    EXPECT_TRUE(report.contains(QStringLiteral("Erreur : ligne 4 : le nom est obligatoire."))) << report.toStdString();
    EXPECT_TRUE(report.contains(exchange::kImportCancelled));
    EXPECT_EQ(read(b, licences).first(), before_licences);

    write(QDir(in).filePath(QStringLiteral("licences.txt")), "Licence\tNom\tPrenom\tDate_Naissance\n1\tA\ta\t20000101\n2\tB\n");
    run("rcptlic.dll", "bimport_licence", call);
    EXPECT_TRUE(report.contains(QStringLiteral("Erreur : ligne 3 : 2 champs au lieu de 4"))) << report.toStdString();
    EXPECT_EQ(read(b, licences).first(), before_licences);

    write(QDir(in).filePath(QStringLiteral("licences.txt")), "Licence\tPrenom\n1\ta\n");
    run("rcptlic.dll", "bimport_licence", call);
    EXPECT_TRUE(report.contains(QStringLiteral("colonne absente : Nom, Date_Naissance"))) << report.toStdString();

    write(QDir(in).filePath(QStringLiteral("clubs.txt")), "Code_federal\tIntitule\n0001\tUn\n0002\tDeux\n\tTrois\n");
    run("rcptclub.dll", "bImport_Club", call);
    EXPECT_TRUE(report.contains(QStringLiteral("Erreur : ligne 4 : le code fédéral et l'intitulé du club sont obligatoires.")))
        << report.toStdString();
    EXPECT_EQ(read(b, clubs).first(), before_clubs);

    // Not UTF-8, and no file at all.
    write(QDir(in).filePath(QStringLiteral("clubs.txt")), "Code_federal\tIntitule\n0001\tCr\xe9teil\n");
    run("rcptclub.dll", "bImport_Club", call);
    EXPECT_TRUE(report.contains(QStringLiteral("n'est pas en UTF-8"))) << report.toStdString();
    call.source = folder(QStringLiteral("empty"));
    run("rcptclub.dll", "bImport_Club", call);
    EXPECT_TRUE(report.contains(QStringLiteral("Erreur : fichier illisible"))) << report.toStdString();
    call.source.clear();
    run("rcptlic.dll", "bimport_licence", call);
    EXPECT_TRUE(report.contains(QStringLiteral("Erreur : aucun répertoire source choisi."))) << report.toStdString();
    EXPECT_EQ(read(b, clubs).first(), before_clubs);
}

TEST_F(TabComponentsTest, AnExportWithoutACurrentClubWritesNothing)
{
    ExchangeCall call;
    call.base = make_base(QStringLiteral("a.mdb"));
    call.tmp_dir = folder(QStringLiteral("out"));
    EXPECT_FALSE(run("explic.dll", "bExport_licence", call));
    EXPECT_TRUE(report.contains(QStringLiteral("Erreur : aucun club courant")));
    EXPECT_TRUE(QDir(call.tmp_dir).isEmpty());
    // A base that cannot be opened is told in the trace, not thrown.
    call.base = dir.filePath(QStringLiteral("absent.mdb"));
    EXPECT_FALSE(run("expclub.dll", "bExport_Club", call));
    EXPECT_TRUE(report.startsWith(QStringLiteral("Export des clubs")));
    EXPECT_TRUE(report.contains(QStringLiteral("Erreur : ")));
}

}  // namespace
