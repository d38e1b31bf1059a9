// The base upgrade window's view on real bases, upgrade files and a package.

#include "src/base/zip.h"
#include "src/store/database.h"
#include "src/store/save.h"
#include "src/frame/upgrade.h"
#include "src/frame/upgrade_view.h"
#include "support/app_fixture.h"
#include "support/temp_files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace plouvarine;
using namespace plouvarine::testing;

namespace {

const QString kConnectionError = QStringLiteral("Erreur lors de la connexion à la base.");
const QString kLabelHead = QStringLiteral("Package dispo pour upgrade vers version ");

const QString kUpgradeTo3 = QStringLiteral("[INFO]\nVersion finale=3\n"
                                           "[FROM 1]\nmaj1=CREATE TABLE Bassin_Historique (Num INTEGER, Nom TEXT)\n"
                                           "maj2=INSERT INTO Bassin_Historique VALUES (1, 'Piscine Saint-Georges')\n"
                                           "[FROM 2]\nmaj1=ALTER TABLE Bassin_Historique ADD COLUMN Longueur INTEGER\n"
                                           "maj2=UPDATE Bassin_Historique SET Longueur = 25\n");

class UpgradeViewTest : public AppFixture {
protected:
    void write_upgrade_file(const QString& content)
    {
        ASSERT_TRUE(write_bytes(upgrade_file_path(*app), content.toUtf8()));
    }

    QString base_at(const QString& version)
    {
        const QString path = make_base();
        set_base_version(path, version);
        return path;
    }

    // A value read from a closed base, which is left closed.
    static QString read_value(const QString& base, const QString& sql)
    {
        Database db;
        db.open(base);
        const QString value = db.load_rows(sql).first();
        db.close();
        return value;
    }
};

}  // namespace


TEST_F(UpgradeViewTest, LoadClosesTheBaseInUseAndUnloadOpensItAgain)
{
    const QString base = base_at(QStringLiteral("3"));
    connect(base);
    app->db.set_last_close(QStringLiteral("False"));

    UpgradeView view(*app);
    view.load();
    EXPECT_FALSE(app->db.is_open());
    EXPECT_FALSE(QFile::exists(Database::lock_path(base)));
    // Closed in good order: the flag says so in the file.
    EXPECT_EQ(read_value(base, QStringLiteral("select LastClose from Info")), QStringLiteral("Vrai"));
    EXPECT_EQ(app->state.base_path, base);

    view.unload();
    ASSERT_TRUE(app->db.is_open());
    EXPECT_EQ(app->db.path(), base);
    EXPECT_TRUE(ui.messages.empty());

    // A base that has meanwhile become something else is reported, and left as it is.
    UpgradeView again(*app);
    again.load();
    ASSERT_TRUE(write_bytes(base, "liste des nageurs\n"));
    again.unload();
    EXPECT_FALSE(app->db.is_open());
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].title + QLatin1Char('|') + ui.messages[0].text, QStringLiteral("Erreur|") + kConnectionError);
    EXPECT_EQ(read_bytes(base), QByteArray("liste des nageurs\n"));

    // With no base in use, nothing is opened.
    ui.clear();
    app->state.base_path.clear();
    UpgradeView no_base(*app);
    no_base.load();
    no_base.unload();
    EXPECT_FALSE(app->db.is_open());
    EXPECT_TRUE(ui.messages.empty());
}


TEST_F(UpgradeViewTest, RunIsEnabledOnceAnMdbBaseOrAPackageOfTheOneNameIsChosen)
{
    UpgradeView view(*app);
    view.load();
    const QString good = base_at(QStringLiteral("1"));

    EXPECT_FALSE(view.choose_base());
    EXPECT_TRUE(view.txt_base().isEmpty());
    ASSERT_EQ(ui.file_requests.size(), 1u);
    EXPECT_EQ(ui.file_requests[0].title, QStringLiteral("Sélection d'une Base"));
    EXPECT_EQ(ui.file_requests[0].filter, QStringLiteral("Base de données (*.mdb)|*.mdb"));
    EXPECT_FALSE(ui.file_requests[0].save);
    // With nothing chosen, Run is off and does nothing at all.
    view.set_txt_base(QStringLiteral("   "));
    EXPECT_FALSE(view.run_enabled());
    view.run();
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_TRUE(ui.reports.empty());
    EXPECT_EQ(ui.max_wait_depth, 0);

    ui.files.push_back(good);
    EXPECT_TRUE(view.choose_base());
    EXPECT_EQ(view.txt_base(), good);
    EXPECT_TRUE(view.run_enabled());

    // A base under another extension, even an upper-case one, is refused, and
    // the base chosen before stays.
    const QString upper = work_file(QStringLiteral("autre.MDB"));
    ASSERT_TRUE(QFile::copy(good, upper));
    for (const QString& wrong : {upper, save_path(good), work_file(QStringLiteral("nageurs.txt")),
                                 work_file(QStringLiteral("mdb"))}) {
        ui.clear();
        ui.files.push_back(wrong);
        EXPECT_FALSE(view.choose_base()) << wrong.toStdString();
        EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("Le fichier sélectionné n'est pas une base reconnue.")});
        EXPECT_EQ(ui.messages[0].title, QStringLiteral("Erreur"));
        EXPECT_EQ(view.txt_base(), good);
    }

    // A package alone will do; it must be named maj_base.zip, exactly.
    ui.clear();
    UpgradeView package_only(*app);
    package_only.load();
    for (const QString& wrong : {work_file(QStringLiteral("maj_base (1).zip")), work_file(QStringLiteral("MAJ_BASE.ZIP")),
                                 work_file(QStringLiteral("maj_soft_2.zip"))}) {
        ui.files.push_back(wrong);
        EXPECT_FALSE(package_only.choose_package()) << wrong.toStdString();
        EXPECT_TRUE(package_only.txt_rep().isEmpty());
    }
    EXPECT_FALSE(package_only.run_enabled());
    const QString package = work_file(QStringLiteral("maj_base.zip"));
    ui.files.push_back(package);
    EXPECT_TRUE(package_only.choose_package());
    EXPECT_EQ(package_only.txt_rep(), package);
    EXPECT_TRUE(package_only.run_enabled());
    for (const FileDialogRequest& r : ui.file_requests)
        EXPECT_EQ(r.filter, QStringLiteral("Package maj base (maj_base.zip)|maj_base.zip"));
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(UpgradeViewTest, RunInstallsAPackageThenUpgradesWithItAndTheLabelFollows)
{
    write_upgrade_file(QStringLiteral("[INFO]\nVersion finale=1\n"));
    const QString base = base_at(QStringLiteral("1"));
    QTemporaryDir content;
    write_bytes(content.filePath(QStringLiteral("maj_base.ini")), kUpgradeTo3.toUtf8());
    const QString package = work_file(QStringLiteral("maj_base.zip"));
    ASSERT_TRUE(zip_folder(package, content.path()));

    UpgradeView view(*app);
    view.load();
    EXPECT_EQ(view.package_label(), kLabelHead + QStringLiteral("1"));
    ui.files.push_back(package);
    ASSERT_TRUE(view.choose_package());
    ui.files.push_back(base);
    ASSERT_TRUE(view.choose_base());
    view.run();

    EXPECT_TRUE(ui.messages.empty()) << ui.texts().join(QLatin1Char('|')).toStdString();
    EXPECT_EQ(view.package_label(), kLabelHead + QStringLiteral("3"));
    EXPECT_EQ(read_bytes(upgrade_file_path(*app)), kUpgradeTo3.toUtf8());
    EXPECT_EQ(read_value(base, QStringLiteral("SELECT Version FROM Info")), QStringLiteral("3"));
    EXPECT_EQ(read_value(base, QStringLiteral("select Nom from Bassin_Historique where Longueur = 25")),
              QStringLiteral("Piscine Saint-Georges"));
    EXPECT_TRUE(QDir(app->app_dir()).entryList({QStringLiteral("tmpmajbase*")}, QDir::Dirs).isEmpty());
}
