// The tab-separated exchange components (clubs, licences) on real bases:
// what an export writes comes back the same through the import into a fresh
// base, the options are honoured, and an import that fails half-way leaves
// the base as it was.

#include "components/exchange/tab_columns.h"
#include "components/exchange/traced_run.h"
#include "components/lenex_support.h"
#include "support/temp_files.h"

namespace plouvarine::testing {
namespace {

// The open base is the one exported from (or imported into when alone).
class TabComponentsTest : public LenexBase {
protected:
    QString folder(const QString& name)
    {
        QDir().mkpath(path(name));
        return path(name);
    }
    void insert(const QString& table, const std::vector<std::pair<QString, QVariant>>& row)
    {
        db.append_row(table, row, QStringLiteral("Num"));
    }
    // The rows of another base, not open.
    static QStringList rows_of(const QString& base, const QString& sql)
    {
        Database other;
        other.open(base);
        return row_texts(other.load_rows(sql), u'|');
    }
};

const QString kClubRows =
    QStringLiteral("select Code_federal, Intitule, Selection, Adresse, Code_Postal, Ville, Telephone, Fax, Mail "
                   "from Club where Visible = true order by Code_federal");

TEST_F(TabComponentsTest, ClubsExportedComeBackTheSameAndAKnownClubChangesOnlyWhenForced)
{
    insert(QStringLiteral("Club"), {{"Code_federal", "0123"}, {"Intitule", "Cercle des Nageurs d'Étel"},
                                    {"Selection", false}, {"Adresse", "1 rue du Port\tQuai"}, {"Code_Postal", "56410"},
                                    {"Ville", "Étel"}, {"Mail", "cn@etel.fr"}});
    insert(QStringLiteral("Club"), {{"Code_federal", "0456"}, {"Intitule", "Sélection Bretagne"}, {"Selection", true}});
    insert(QStringLiteral("Club"), {{"Code_federal", "0789"}, {"Intitule", "Club caché"}, {"Visible", false}});
    const QString out = folder(QStringLiteral("out"));
    ExchangeCall call;
    call.tmp_dir = out;
    ASSERT_TRUE(run(QStringLiteral("expclub"), QStringLiteral("bExport_Club"), call)) << trace().toStdString();
    EXPECT_TRUE(trace().contains(QStringLiteral("2 club(s) exporté(s)")));
    EXPECT_TRUE(read_bytes(QDir(out).filePath(QStringLiteral("clubs.txt")))
                    .startsWith("\xEF\xBB\xBF" "Code_federal\tIntitule\tSelection\t"));

    const QString b = copy_model(QStringLiteral("b.mdb"));
    {
        Database other;
        other.open(b);
        other.append_row(QStringLiteral("Club"), {{"Code_federal", "0456"}, {"Intitule", "Ancien nom"}},
                         QStringLiteral("Num"));
    }
    call = {};
    call.base = b;
    call.source = out;
    EXPECT_FALSE(run(QStringLiteral("rcptclub"), QStringLiteral("bImport_Club"), call));
    EXPECT_TRUE(trace().contains(QStringLiteral("1 club(s) ajouté(s), 0 mis à jour, 1 déjà présent(s)")))
        << trace().toStdString();
    // The tab inside the address could not travel: it became a blank.
    QStringList expected = rows(kClubRows);
    expected[0].replace(QLatin1Char('\t'), QLatin1Char(' '));
    EXPECT_EQ(rows_of(b, kClubRows), (QStringList{expected[0], "0456|Ancien nom|Faux||||||"}));

    call.option = true;
    run(QStringLiteral("rcptclub"), QStringLiteral("bImport_Club"), call);
    EXPECT_TRUE(trace().contains(QStringLiteral("Club mis à jour : 0456 Sélection Bretagne")));
    EXPECT_EQ(rows_of(b, kClubRows), expected);
    EXPECT_EQ(progress.clubs.last(), QStringLiteral("Sélection Bretagne"));
    EXPECT_EQ(progress.last, std::make_pair(2, 2));
}

const QString kLicenceRows =
    QStringLiteral("select Licence, Code_club, Nom, Prenom, Sexe, Date_Naissance, Nationalite, Code_unique, Mail, "
                   "Visible from Licence order by Nom, Prenom");

TEST_F(TabComponentsTest, LicencesOfTheClubAndItsSelectionComeBackTheSame)
{
    insert(QStringLiteral("Licence"), {{"Licence", "111"}, {"Code_club", "0123"}, {"Nom", "Le Gall"}, {"Prenom", "Élodie"},
                                       {"Sexe", "F"}, {"Date_Naissance", "20100304"}, {"Nationalite", "FRA"},
                                       {"Code_unique", "A1"}, {"Mail", "e@x.fr"}});
    insert(QStringLiteral("Licence"), {{"Licence", "222"}, {"Code_club", "0999"}, {"Nom", "Durand"}, {"Prenom", "Paul"},
                                       {"Sexe", "M"}, {"Date_Naissance", "20090101"}});
    insert(QStringLiteral("Licence"), {{"Licence", "333"}, {"Code_club", "0999"}, {"Nom", "Autre"}, {"Prenom", "Club"}});
    insert(QStringLiteral("Licence"), {{"Licence", "444"}, {"Code_club", "0123"}, {"Nom", "Parti"}, {"Visible", false}});
    db.exec_sql(QStringLiteral("insert into Selection (Code_Sel, Num_Lic) "
                               "select '0123', Num from Licence where Licence = '222'"));
    const QString out = folder(QStringLiteral("out"));
    ExchangeCall call;
    call.tmp_dir = out;
    call.club_code = QStringLiteral("0123");
    call.club_selection = QStringLiteral("false");
    ASSERT_TRUE(run(QStringLiteral("explic"), QStringLiteral("bExport_licence"), call));
    EXPECT_TRUE(trace().contains(QStringLiteral("1 licence(s) exportée(s)"))) << trace().toStdString();
    call.club_selection = QStringLiteral("true");
    ASSERT_TRUE(run(QStringLiteral("explic"), QStringLiteral("bExport_licence"), call));
    EXPECT_TRUE(trace().contains(QStringLiteral("2 licence(s) exportée(s)"))) << trace().toStdString();

    const QString b = copy_model(QStringLiteral("b.mdb"));
    call = {};
    call.base = b;
    call.source = out;
    run(QStringLiteral("rcptlic"), QStringLiteral("bimport_licence"), call);
    EXPECT_TRUE(trace().contains(QStringLiteral("2 licence(s) ajoutée(s), 0 mise(s) à jour."))) << trace().toStdString();
    // Every column of the file, as it was.
    const QString all = QStringLiteral("select ") + exchange::licence_columns().join(QStringLiteral(", ")) +
                        QStringLiteral(", Visible from Licence ");
    EXPECT_EQ(rows_of(b, all + QStringLiteral("order by Licence")),
              rows(all + QStringLiteral("where Licence in ('111', '222') order by Licence")));
    // The same file again finds every swimmer and adds nobody.
    run(QStringLiteral("rcptlic"), QStringLiteral("bimport_licence"), call);
    EXPECT_TRUE(trace().contains(QStringLiteral("0 licence(s) ajoutée(s), 2 mise(s) à jour."))) << trace().toStdString();
    EXPECT_EQ(rows_of(b, kLicenceRows), (QStringList{"222|0999|Durand|Paul|M|20090101||||Vrai",
                                                    "111|0123|Le Gall|Élodie|F|20100304|FRA|A1|e@x.fr|Vrai"}));
}

TEST_F(TabComponentsTest, ASwimmerIsFoundByNameAndBirthDateWhateverTheAccentsAndCase)
{
    insert(QStringLiteral("Licence"), {{"Nom", "Le Gall"}, {"Prenom", "Élodie"}, {"Date_Naissance", "20100304"},
                                       {"Mail", "garde@x.fr"}});
    const QString in = folder(QStringLiteral("in"));
    write_bytes(QDir(in).filePath(QStringLiteral("licences.txt")),
                "\xEF\xBB\xBFNom\tPrenom\tDate_Naissance\tLicence\tMail\r\n"
                "LE GALL\tELODIE\t20100304\t111\t\r\n"
                "Le Gall\tElodie\t20110304\t112\tsoeur@x.fr\r\n"
                "\r\n"
                "le gall\télodie\t20110304\t\tautre@x.fr\r\n");
    ExchangeCall call;
    call.source = in;
    run(QStringLiteral("rcptlic"), QStringLiteral("bimport_licence"), call);
    EXPECT_TRUE(trace().contains(QStringLiteral("1 licence(s) ajoutée(s), 2 mise(s) à jour."))) << trace().toStdString();
    // The first line found the swimmer of the base and gave her licence, an
    // empty field keeping what the base knew; the last found the sister that
    // the second line added.
    EXPECT_EQ(rows(QStringLiteral("select Licence, Prenom, Date_Naissance, Mail from Licence order by Num")),
              (QStringList{QStringLiteral("111|Élodie|20100304|garde@x.fr"), QStringLiteral("112|Elodie|20110304|autre@x.fr")}));
}

TEST_F(TabComponentsTest, AnImportThatFailsHalfWayLeavesTheBaseAsItWasAndNamesTheLine)
{
    const QString state = QStringLiteral("select (select count(*) from Licence), (select count(*) from Club)");
    const QStringList before = rows(state);
    // {file, its content, what the trace says}
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"licences.txt", "Licence\tNom\tPrenom\tDate_Naissance\n1\tA\ta\t20000101\n2\tB\tb\t20000101\n3\t\tc\t20000101\n",
         "Erreur : ligne 4 : le nom est obligatoire."},
        {"licences.txt", "Licence\tNom\tPrenom\tDate_Naissance\n1\tA\ta\t20000101\n2\tB\n",
         "Erreur : ligne 3 : 2 champs au lieu de 4"},
        {"licences.txt", "Licence\tPrenom\n1\ta\n", "colonne absente : Nom, Date_Naissance"},
        {"clubs.txt", "Code_federal\tIntitule\n0001\tUn\n0002\tDeux\n\tTrois\n",
         "Erreur : ligne 4 : le code fédéral et l'intitulé du club sont obligatoires."},
        {"clubs.txt", "Code_federal\tIntitule\n0001\tCr\xe9teil\n", "n'est pas en UTF-8"}};
    int n = 0;
    for (const auto& [name, content, said] : cases) {
        ExchangeCall call;
        call.source = folder(QStringLiteral("in%1").arg(++n));
        write_bytes(QDir(call.source).filePath(QLatin1String(name)), content);
        const bool licences = QLatin1String(name) == u"licences.txt";
        run(licences ? QStringLiteral("rcptlic") : QStringLiteral("rcptclub"),
            licences ? QStringLiteral("bimport_licence") : QStringLiteral("bImport_Club"), call);
        EXPECT_TRUE(trace().contains(QString::fromUtf8(said))) << trace().toStdString();
        EXPECT_TRUE(trace().contains(exchange::kImportCancelled)) << trace().toStdString();
        EXPECT_EQ(rows(state), before) << said;
    }

    // No file at all, and no folder chosen.
    ExchangeCall call;
    call.source = folder(QStringLiteral("empty"));
    run(QStringLiteral("rcptclub"), QStringLiteral("bImport_Club"), call);
    EXPECT_TRUE(trace().contains(QStringLiteral("Erreur : fichier illisible"))) << trace().toStdString();
    call.source.clear();
    run(QStringLiteral("rcptlic"), QStringLiteral("bimport_licence"), call);
    EXPECT_TRUE(trace().contains(QStringLiteral("Erreur : aucun répertoire source choisi."))) << trace().toStdString();
    EXPECT_EQ(rows(state), before);
}

TEST_F(TabComponentsTest, AnExportWithoutACurrentClubWritesNothing)
{
    ExchangeCall call;
    call.tmp_dir = folder(QStringLiteral("out"));
    EXPECT_FALSE(run(QStringLiteral("explic"), QStringLiteral("bExport_licence"), call));
    EXPECT_TRUE(trace().contains(QStringLiteral("Erreur : aucun club courant")));
    EXPECT_TRUE(QDir(call.tmp_dir).isEmpty());
    // A base that cannot be opened is told in the trace, not thrown.
    call.base = path(QStringLiteral("absent.mdb"));
    EXPECT_FALSE(run(QStringLiteral("expclub"), QStringLiteral("bExport_Club"), call));
    EXPECT_TRUE(trace().startsWith(QStringLiteral("Export des clubs")));
    EXPECT_TRUE(trace().contains(QStringLiteral("Erreur : ")));
}

}  // namespace
}  // namespace plouvarine::testing
