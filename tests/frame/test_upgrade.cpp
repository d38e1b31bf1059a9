// The base upgrade on real bases from the model, real upgrade files and real zip packages.

#include "src/base/zip.h"
#include "src/frame/access.h"
#include "src/store/database.h"
#include "src/store/save.h"
#include "src/frame/upgrade.h"
#include "support/app_fixture.h"
#include "support/temp_files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <map>

using namespace plouvarine;
using namespace plouvarine::testing;

namespace {

const QString kTitle = QStringLiteral("Mise à jour de la base");

class UpgradeTest : public AppFixture {
protected:
    void write_upgrade_file(const QString& content) { write_bytes(upgrade_file_path(*app), content.toUtf8()); }

    QString base_at(const QString& version)
    {
        const QString path = make_base();
        set_base_version(path, version);
        return path;
    }
    QString connected_base(const QString& version)
    {
        const QString path = base_at(version);
        connect(path);
        return path;
    }
    QString version() { return value(QStringLiteral("SELECT Version FROM Info")); }
    bool table_exists(const QString& name) { return !tables_among({name}).isEmpty(); }
    // Those of `names` that are tables of the base, in their order.
    QStringList tables_among(const QStringList& names)
    {
        QStringList out;
        for (const QString& name : names)
            if (count(QStringLiteral("select count(*) from sqlite_master where type = 'table' and name = '%1'").arg(name)) == 1)
                out << name;
        return out;
    }
    // No caption left, the normal cursor.
    void expect_idle()
    {
        EXPECT_TRUE(ui.status[2].isEmpty());
        EXPECT_EQ(ui.wait_depth, 0);
    }
    // A real maj_base.zip in the work folder holding the given files.
    QString package(const std::map<QString, QByteArray>& entries)
    {
        QTemporaryDir content;
        for (const auto& [name, bytes] : entries)
            write_bytes(content.filePath(name), bytes);
        const QString path = work_file(QStringLiteral("maj_base.zip"));
        EXPECT_TRUE(zip_folder(path, content.path()));
        return path;
    }

    // The lines of the one report shown, or its red lines only.
    QStringList report(bool red_only = false)
    {
        EXPECT_EQ(ui.reports.size(), 1u);
        if (ui.reports.empty())
            return {};
        EXPECT_EQ(ui.reports.back().title, kTitle);
        QStringList out;
        for (const ReportLine& l : ui.reports.back().lines)
            if (l.error || !red_only)
                out << l.text;
        return out;
    }
    QStringList work_folders() const
    {
        return QDir(app->app_dir()).entryList({QStringLiteral("tmpmajbase*")}, QDir::Dirs | QDir::NoDotAndDotDot);
    }
};

}  // namespace


TEST(ReadIni, ReadsValuesAsThePrivateProfileCallDoes)
{
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("maj_base.ini"));
    const QString prefix = QStringLiteral("UPDATE Licence SET Nom = '");
    const QString long_value = prefix + QString(300 - prefix.size() - 1, QLatin1Char('x')) + QLatin1Char('\'');
    write_bytes(file, QStringLiteral("; upgrades of the base\r\n"
                                    "orphan=before any section\r\n"
                                    "[info]\r\n"
                                    "  VERSION Finale =  \"3\"  \r\n"
                                    "[FROM 1]\r\n"
                                    "maj1=INSERT INTO T (a, b) VALUES ('c:\\tempo', 'x,y')\r\n"
                                    "MAJ2 = UPDATE Info Set Version = 2\r\n"
                                    ";maj3=DROP TABLE Licence\r\n"
                                    "maj4=\"inner \"quotes\" stay\"\r\n"
                                    "maj5=").toUtf8() + long_value.toUtf8() + "\r\n[FROM 1]\r\nmaj3=second section\r\n");

    const auto read = [&](const char* section, const char* key) {
        return read_ini(QLatin1String(section), QLatin1String(key), file);
    };
    EXPECT_EQ(read("INFO", "Version finale"), QStringLiteral("3"));
    // Commas and backslashes are part of a statement.
    EXPECT_EQ(read("from 1", "maj1"), QStringLiteral("INSERT INTO T (a, b) VALUES ('c:\\tempo', 'x,y')"));
    EXPECT_EQ(read("FROM 1", "maj2"), QStringLiteral("UPDATE Info Set Version = 2"));
    EXPECT_EQ(read("FROM 1", "maj4"), QStringLiteral("inner \"quotes\" stay"));
    // 255 characters of buffer: the value is cut to 254.
    EXPECT_EQ(read("FROM 1", "maj5"), long_value.left(254));
    // A comment is no key, and a second section of the same name is not looked
    // at; then a missing key, section or file.
    for (const auto& [section, key] : {std::pair{"FROM 1", "maj3"}, {"FROM 1", "orphan"}, {"FROM 1", "maj6"},
                                       {"FROM 2", "maj1"}, {"INFO", "Version"}})
        EXPECT_EQ(read(section, key), QString()) << section << " " << key;
    EXPECT_EQ(read_ini(QStringLiteral("INFO"), QStringLiteral("Version finale"), dir.filePath(QStringLiteral("absent.ini"))),
              QString());
}

TEST(ReadIni, ReadsAFileInTheOldEightBitCodePage)
{
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("maj_base.ini"));
    write_bytes(file, QByteArray("[FROM 2]\nmaj1=UPDATE Nage SET Libelle = 'Brasse d\xe9\x62utant'\n"));
    EXPECT_EQ(read_ini(QStringLiteral("FROM 2"), QStringLiteral("maj1"), file),
              QStringLiteral("UPDATE Nage SET Libelle = 'Brasse débutant'"));
}


TEST_F(UpgradeTest, AnOldBaseIsBroughtToTheFinalVersionStepByStep)
{
    write_upgrade_file(QStringLiteral("[INFO]\nVersion finale=3\n"
                                      "[FROM 1]\nmaj1=CREATE TABLE Nouvelle (x INTEGER)\nmaj2=INSERT INTO Nouvelle VALUES (7)\n"
                                      "[FROM 2]\nmaj1=ALTER TABLE Nouvelle ADD COLUMN y TEXT\n"));
    const QString base = connected_base(QStringLiteral("1"));
    app->state.base_path.clear();

    EXPECT_TRUE(upgrade_base(*app, base));
    EXPECT_EQ(app->state.base_path, base);
    EXPECT_EQ(version(), QStringLiteral("3"));
    EXPECT_EQ(dump(QStringLiteral("select x, y is null from Nouvelle")), QStringList{QStringLiteral("7:1")});

    EXPECT_EQ(report(), (QStringList{
        QStringLiteral("Version de la base : 1"), QString(),
        QStringLiteral("Mise à jour vers une version 3"),
        QStringLiteral("CREATE TABLE Nouvelle (x INTEGER)"), QStringLiteral("... OK"),
        QStringLiteral("INSERT INTO Nouvelle VALUES (7)"), QStringLiteral("... OK"),
        QStringLiteral("ALTER TABLE Nouvelle ADD COLUMN y TEXT"), QStringLiteral("... OK"),
        QStringLiteral("Nouvelle version de la base : 3"),
        QStringLiteral("UPDATE Info Set Version = 3"), QStringLiteral("... OK"),
        QStringLiteral("Mise à jour de la base (") + base + QStringLiteral(") réussie.")}));
    EXPECT_TRUE(report(true).isEmpty());
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_TRUE(ui.status_history.contains(kTitle));
    expect_idle();
    EXPECT_EQ(ui.max_wait_depth, 1);
}

TEST_F(UpgradeTest, ABaseAlreadyAtTheFinalVersionIsLeftAsItIs)
{
    write_upgrade_file(QStringLiteral("[INFO]\nVersion finale=3\n[FROM 3]\nmaj1=CREATE TABLE Jamais (x INTEGER)\n"));
    // A decimal version counts by its whole part.
    const QString base = connected_base(QStringLiteral("3.5"));
    EXPECT_TRUE(upgrade_base(*app, base));
    EXPECT_EQ(report(), (QStringList{QStringLiteral("Version de la base : 3"), QString(),
                                     QStringLiteral("Pas de mise à jour nécessaire pour cette base")}));
    EXPECT_FALSE(table_exists(QStringLiteral("Jamais")));
    EXPECT_EQ(version(), QStringLiteral("3.5"));
}

TEST_F(UpgradeTest, TheWalkStopsAtTheFirstMissingSectionAndASectionAtItsFirstMissingKey)
{
    // An empty maj2 ends section 1, a missing maj2 ends section 2; no section
    // for 3, so the walk writes 3 though 5 is announced.
    write_upgrade_file(QStringLiteral("[INFO]\nVersion finale=5\n"
                                      "[FROM 1]\nmaj1=CREATE TABLE Premier (x INTEGER)\nmaj2=\nmaj3=CREATE TABLE Oublie (x INTEGER)\n"
                                      "[FROM 2]\nmaj1=CREATE TABLE Second (x INTEGER)\nmaj3=CREATE TABLE Saute (x INTEGER)\n"
                                      "[FROM 4]\nmaj1=CREATE TABLE Etape4 (x INTEGER)\n"));
    const QString base = connected_base(QStringLiteral("1"));
    EXPECT_TRUE(upgrade_base(*app, base));
    EXPECT_EQ(version(), QStringLiteral("3"));
    EXPECT_EQ(tables_among({QStringLiteral("Premier"), QStringLiteral("Oublie"), QStringLiteral("Second"),
                            QStringLiteral("Saute"), QStringLiteral("Etape4")}),
              (QStringList{QStringLiteral("Premier"), QStringLiteral("Second")}));
    const QStringList lines = report();
    EXPECT_TRUE(lines.contains(QStringLiteral("Nouvelle version de la base : 3")));
    EXPECT_TRUE(lines.contains(QStringLiteral("UPDATE Info Set Version = 3")));
}

TEST_F(UpgradeTest, WithoutTheUpgradeFileNothingRuns)
{
    const QString base = connected_base(QStringLiteral("1"));
    EXPECT_FALSE(upgrade_base(*app, base));
    EXPECT_EQ(report(), (QStringList{
        QStringLiteral("Fichier (maj_base.ini) des mises à jour introuvable."),
        QStringLiteral("Il faut télécharger depuis le site Plouvarine le package de mise à jour des bases.")}));
    EXPECT_EQ(version(), QStringLiteral("1"));
    EXPECT_TRUE(app->db.is_open());
    expect_idle();
}


class UpgradeFailureTest : public UpgradeTest {
protected:
    void SetUp() override
    {
        UpgradeTest::SetUp();
        write_upgrade_file(QStringLiteral("[INFO]\nVersion finale=3\n"
                                          "[FROM 1]\nmaj1=CREATE TABLE Partielle (x INTEGER)\n"
                                          "maj2=INSERT INTO Absente VALUES (1)\nmaj3=CREATE TABLE Jamais (x INTEGER)\n"));
        base = connected_base(QStringLiteral("1"));
    }

    // The save as it stands before the upgrade, then work done after it.
    void save_then_work()
    {
        create_save(app->base_file());
        exec(QStringLiteral("INSERT INTO Piscine (Nom) VALUES ('Après la sauvegarde')"));
    }

    // The upgrade, with `answer` ready for the question that must come.
    void upgrade_answering(Button answer)
    {
        ui.answers.push_back(answer);
        EXPECT_FALSE(upgrade_base(*app, base));
        ASSERT_FALSE(ui.messages.empty());
        EXPECT_EQ(ui.messages[0].title, QStringLiteral("Confirmation"));
        EXPECT_EQ(ui.messages[0].text,
                  QStringLiteral("Suite à une erreur (voir rapport), souhaitez vous revenir à la précédente version de la "
                                 "base (recommandé) ?\nToutes opérations non sauvegardées réalisées avant cette tentative "
                                 "d'update seront annulées."));
    }

    // The report's lines after the failure, which has been told in red.
    QStringList failure_report()
    {
        const QStringList red = report(true);
        EXPECT_EQ(red.value(0), QStringLiteral("Une erreur s'est produite lors de la mise à jour de la base."));
        EXPECT_TRUE(red.size() == 2 && red[1].startsWith(QStringLiteral("Erreur n° ")) &&
                    red[1].contains(QStringLiteral("Absente")))
            << red.join(QLatin1Char('|')).toStdString();
        const QStringList lines = report();
        EXPECT_EQ(lines.count(QStringLiteral("... OK")), 1);
        EXPECT_FALSE(lines.contains(QStringLiteral("CREATE TABLE Jamais (x INTEGER)")));
        EXPECT_FALSE(lines.contains(QStringLiteral("Nouvelle version de la base : 2")));
        return lines;
    }

    int pools_after_save() { return count(QStringLiteral("select count(*) from Piscine where Nom = 'Après la sauvegarde'")); }

    QString base;
};

TEST_F(UpgradeFailureTest, YesBringsTheBaseBackToItsSave)
{
    save_then_work();
    upgrade_answering(Button::Yes);
    EXPECT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(failure_report().back(), QStringLiteral("Restauration de la précédente sauvegarde de la base."));
    ASSERT_TRUE(app->db.is_open());
    EXPECT_EQ(pools_after_save(), 0);
    EXPECT_FALSE(table_exists(QStringLiteral("Partielle")));
    EXPECT_EQ(version(), QStringLiteral("1"));
    EXPECT_TRUE(QFile::exists(save_path(base)));
}

TEST_F(UpgradeFailureTest, NoKeepsTheHalfUpgradedBase)
{
    save_then_work();
    upgrade_answering(Button::No);
    EXPECT_EQ(ui.messages.size(), 1u);
    const QStringList lines = failure_report();
    EXPECT_EQ(lines.mid(lines.size() - 2),
              (QStringList{QStringLiteral("La dernière sauvegarde n'a pas été restaurée."),
                           QStringLiteral("Le logiciel ne pourra pas fonctionner correctement.")}));
    ASSERT_TRUE(app->db.is_open());
    EXPECT_EQ(pools_after_save(), 1);
    EXPECT_TRUE(table_exists(QStringLiteral("Partielle")));
    EXPECT_EQ(version(), QStringLiteral("1"));
}

TEST_F(UpgradeFailureTest, AFailedRestoreSpeaksForItself)
{
    save_then_work();
    write_bytes(save_path(base), "PK\x03\x04 plus une archive");
    upgrade_answering(Button::Yes);
    EXPECT_FALSE(ui.titled(QStringLiteral("Erreur")).empty());
    EXPECT_FALSE(failure_report().contains(QStringLiteral("Restauration de la précédente sauvegarde de la base.")));
    // The base is closed, as it stood, and the save is kept.
    EXPECT_FALSE(app->db.is_open());
    EXPECT_FALSE(app->menus_base_open());
    EXPECT_TRUE(QFile::exists(save_path(base)));
    connect(base);
    EXPECT_TRUE(table_exists(QStringLiteral("Partielle")));
    EXPECT_EQ(pools_after_save(), 1);
}

TEST_F(UpgradeFailureTest, WithoutASaveThereIsNothingToAsk)
{
    ASSERT_FALSE(QFile::exists(save_path(base)));
    EXPECT_FALSE(upgrade_base(*app, base));
    EXPECT_TRUE(ui.messages.empty());
    const QStringList lines = failure_report();
    EXPECT_EQ(lines.mid(lines.size() - 2),
              (QStringList{QStringLiteral("Aucune sauvegarde n'était disponible."),
                           QStringLiteral("Votre base est donc instable, contacter les fournisseurs de Plouvarine.")}));
    EXPECT_TRUE(table_exists(QStringLiteral("Partielle")));
    EXPECT_EQ(ui.wait_depth, 0);
}


TEST_F(UpgradeTest, APackageIsInstalledOnlyWhenItBringsAHigherVersion)
{
    // No upgrade file yet: any version is an improvement; a package without
    // a model keeps the model.
    EXPECT_TRUE(upgrade_package_label(*app).isEmpty());
    const QString model_file = app->app_file(QStringLiteral("modele_base.sav"));
    const QByteArray model = read_bytes(model_file);
    const QByteArray installed = "[INFO]\nVersion finale=9\n[FROM 8]\nmaj1=CREATE TABLE Ancienne (x INTEGER)\n";
    EXPECT_TRUE(install_upgrade_package(*app, package({{QStringLiteral("maj_base.ini"), installed}})));
    EXPECT_EQ(final_version(*app), QStringLiteral("9"));
    EXPECT_EQ(read_bytes(model_file), model);
    EXPECT_TRUE(work_folders().isEmpty());

    // A broken package, or the same version written otherwise, is refused.
    const QString broken = work_file(QStringLiteral("maj_base.zip"));
    write_bytes(broken, "PK\x03\x04 ceci n'est pas une archive");
    EXPECT_FALSE(install_upgrade_package(*app, broken));
    EXPECT_EQ(ui.titled(QStringLiteral("Erreur")).size(), 1u);
    ui.clear();
    const QString same = package({{QStringLiteral("maj_base.ini"), "[INFO]\nVersion finale=9.0\n"},
                                  {QStringLiteral("modele_base.sav"), "nouveau modèle"}});
    EXPECT_FALSE(install_upgrade_package(*app, same));
    EXPECT_EQ(ui.titled(QStringLiteral("Information")).size(), 1u);
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("La version apportée par le package 9.0\n"
                                                     "n'est pas supérieure à celle déjà disponible.\n"
                                                     "L'installation du package sélectionné est annulée.")});
    EXPECT_EQ(read_bytes(upgrade_file_path(*app)), installed);
    EXPECT_EQ(read_bytes(model_file), model);
    EXPECT_TRUE(work_folders().isEmpty());

    // 10 is above 9 as a number, though not as a text. A work folder of that
    // name already there is left alone.
    ui.clear();
    ASSERT_TRUE(QDir(app->app_dir()).mkdir(QStringLiteral("tmpmajbase")));
    const QByteArray offered = "[INFO]\nVersion finale=10\n[FROM 9]\nmaj1=CREATE TABLE Dixieme (x INTEGER)\n";
    EXPECT_TRUE(install_upgrade_package(*app, package({{QStringLiteral("maj_base.ini"), offered},
                                                        {QStringLiteral("modele_base.sav"), "nouveau modèle"}})));
    EXPECT_TRUE(ui.messages.empty()) << ui.texts().join(QLatin1Char('|')).toStdString();
    EXPECT_EQ(read_bytes(upgrade_file_path(*app)), offered);
    EXPECT_EQ(read_bytes(model_file), QByteArray("nouveau modèle"));
    EXPECT_EQ(final_version(*app), QStringLiteral("10"));
    EXPECT_EQ(work_folders(), QStringList{QStringLiteral("tmpmajbase")});
    EXPECT_EQ(upgrade_package_label(*app), QStringLiteral("Package dispo pour upgrade vers version 10"));
}

TEST_F(UpgradeTest, TheToolInstallsThePackageThenUpgradesTheBase)
{
    // A package that brings no higher version leaves the base as it was.
    write_upgrade_file(QStringLiteral("[INFO]\nVersion finale=1\n[FROM 1]\nmaj1=CREATE TABLE Nouvelle (x INTEGER)\n"));
    const QString base = base_at(QStringLiteral("1"));
    run_upgrade_tool(*app, base, package({{QStringLiteral("maj_base.ini"), "[INFO]\nVersion finale=1\n"}}));
    EXPECT_EQ(ui.titled(QStringLiteral("Information")).size(), 1u);
    EXPECT_TRUE(ui.reports.empty());
    EXPECT_FALSE(app->db.is_open());
    expect_idle();
    EXPECT_FALSE(QFile::exists(save_path(base)));

    ui.clear();
    run_upgrade_tool(*app, base, package({{QStringLiteral("maj_base.ini"),
                                           "[INFO]\nVersion finale=2\n[FROM 1]\nmaj1=CREATE TABLE Nouvelle (x INTEGER)\n"}}));
    EXPECT_TRUE(ui.messages.empty()) << ui.texts().join(QLatin1Char('|')).toStdString();
    const QStringList lines = report();
    EXPECT_TRUE(lines.contains(QStringLiteral("UPDATE Info Set Version = 2")));
    EXPECT_EQ(lines.value(lines.size() - 1), QStringLiteral("Mise à jour de la base (") + base + QStringLiteral(") réussie."));
    EXPECT_EQ(final_version(*app), QStringLiteral("2"));
    // The base is left closed in good order, without the save made for the run.
    EXPECT_FALSE(app->db.is_open());
    EXPECT_FALSE(QFile::exists(save_path(base)));
    EXPECT_EQ(app->state.base_path, base);
    const QStringList steps{QStringLiteral("Connexion à la base"), QStringLiteral("Sauvegarde de la base"), kTitle,
                            QStringLiteral("Déconnexion"), QStringLiteral("Suppression de la sauvegarde temporaire")};
    qsizetype at = -1;
    for (const QString& step : steps) {
        const qsizetype next = ui.status_history.indexOf(step, at + 1);
        EXPECT_GT(next, at) << step.toStdString();
        at = next;
    }
    expect_idle();

    connect(base);
    EXPECT_EQ(version(), QStringLiteral("2"));
    EXPECT_TRUE(table_exists(QStringLiteral("Nouvelle")));
    EXPECT_EQ(value(QStringLiteral("select LastClose from Info")), QStringLiteral("Vrai"));
}

TEST_F(UpgradeTest, TheToolRestoresTheBaseAfterAFailedStatement)
{
    write_upgrade_file(QStringLiteral("[INFO]\nVersion finale=2\n"
                                      "[FROM 1]\nmaj1=CREATE TABLE Partielle (x INTEGER)\nmaj2=DROP TABLE Absente\n"));
    const QString base = base_at(QStringLiteral("1"));
    ui.answers.push_back(Button::Yes);
    run_upgrade_tool(*app, base, QString());
    EXPECT_EQ(ui.titled(QStringLiteral("Confirmation")).size(), 1u);
    EXPECT_EQ(report().back(), QStringLiteral("Restauration de la précédente sauvegarde de la base."));
    EXPECT_FALSE(app->db.is_open());
    // A failed upgrade keeps the save: it may be the one good copy of the base.
    EXPECT_TRUE(QFile::exists(save_path(base)));
    connect(base);
    EXPECT_FALSE(table_exists(QStringLiteral("Partielle")));
    EXPECT_EQ(version(), QStringLiteral("1"));
}

TEST_F(UpgradeTest, TheToolStopsOnABaseThatCannotBeOpened)
{
    write_upgrade_file(QStringLiteral("[INFO]\nVersion finale=2\n"));
    const QString text = work_file(QStringLiteral("notes.mdb"));
    write_bytes(text, "liste des nageurs\n");
    run_upgrade_tool(*app, text, QString());
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("Erreur lors de la connexion à la base.")});
    EXPECT_TRUE(ui.reports.empty());
    EXPECT_FALSE(QFile::exists(save_path(text)));
    EXPECT_EQ(read_bytes(text), QByteArray("liste des nageurs\n"));
}

TEST_F(UpgradeTest, AVersionBeyondTheWholeNumbersIsAFailureNotASuccess)
{
    write_upgrade_file(QStringLiteral("[INFO]\nVersion finale=3\n[FROM 1]\nmaj1=CREATE TABLE Etape1 (x INTEGER)\n"));
    for (const QString& v : {QStringLiteral("-1e300"), QStringLiteral("1e19")}) {
        ui.clear();
        const QString base = connected_base(v);
        EXPECT_FALSE(upgrade_base(*app, base)) << v.toStdString();
        if (app->db.is_open()) {
            EXPECT_FALSE(table_exists(QStringLiteral("Etape1")));
        }
        close_base(*app);
    }
}
