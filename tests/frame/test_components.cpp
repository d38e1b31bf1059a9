// The component list and the information window, on a real application
// folder: component files present, missing, or not plugins at all, and real
// bases from the model at various versions.

#include "src/frame/components.h"
#include "src/frame/splash_view.h"
#include "src/store/database.h"
#include "support/app_fixture.h"
#include "support/temp_files.h"

#include <QDir>
#include <QFile>
#include <QLibraryInfo>

#include <zipconf.h>

using namespace plouvarine;
using plouvarine::testing::AppFixture;
using plouvarine::testing::set_base_version;
using plouvarine::testing::write_bytes;

namespace {

// The components as the information window lists them, under their plugins'
// file names on this platform; the zip library is the build's own.
const QStringList kListed{
    QStringLiteral("calpts.so"),    QStringLiteral("createdisk.so"), QStringLiteral("expclub.so"),
    QStringLiteral("explic.so"),    QStringLiteral("expperf.so"),    QStringLiteral("rcpperf.so"),
    QStringLiteral("rcpres.so"),    QStringLiteral("rcptclub.so"),   QStringLiteral("rcptlic.so"),
    QStringLiteral("regmodele.so"), QStringLiteral("sviprf.so"),     QStringLiteral("libzip"),
    QStringLiteral("ziptools.so")};
const QString kZipLibrary = QStringLiteral("libzip");
const QString kNotInstalled = QStringLiteral("non installé");

// A real Qt plugin of the system, whose metadata carry no version.
QString qt_platform_plugin()
{
    return QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms/libqoffscreen.so");
}

class ComponentsTest : public AppFixture {
protected:
    QString app_path(const QString& name) const { return app->app_file(name); }

    const ComponentRow* row(const std::vector<ComponentRow>& rows, const QString& listed)
    {
        const QString shown = listed == kZipLibrary ? listed : component_file(listed);
        for (const ComponentRow& r : rows)
            if (r.file == shown)
                return &r;
        ADD_FAILURE() << "no row for " << listed.toStdString();
        return nullptr;
    }
};

}  // namespace

// ---- Component files -----------------------------------------------------------

TEST(ComponentFile, AComponentIsNamedWithThePlatformsPluginSuffix)
{
    EXPECT_EQ(component_file(QStringLiteral("calpts.dll")), QStringLiteral("calpts.so"));
    EXPECT_EQ(component_file(QStringLiteral("ZipTools.DLL")), QStringLiteral("ZipTools.so"));
    // Only the old suffix goes; a point inside the name stays.
    EXPECT_EQ(component_file(QStringLiteral("calc.pts.dll")), QStringLiteral("calc.pts.so"));
}

TEST_F(ComponentsTest, WithNoComponentInstalledEveryRowSaysSoAndTheListIsComplete)
{
    const std::vector<ComponentRow> rows = component_rows(*app);
    ASSERT_EQ(rows.size(), size_t(kListed.size()));
    const QString libzip = QString::fromLatin1(LIBZIP_VERSION);
    for (qsizetype i = 0; i < kListed.size(); ++i) {
        const ComponentRow& r = rows[size_t(i)];
        EXPECT_EQ(r.file, kListed[i]);
        EXPECT_FALSE(r.file.endsWith(QStringLiteral(".dll")));
        EXPECT_EQ(r.version, kListed[i] == kZipLibrary ? libzip : kNotInstalled) << r.file.toStdString();
        EXPECT_FALSE(r.version.contains(QStringLiteral("Erreur")));
    }
}

TEST_F(ComponentsTest, AFileThatIsNoPluginOrHasNoVersionSaysVersionNonDisponible)
{
    // Bytes of any kind, an empty file, and a real Qt plugin without a version.
    ASSERT_TRUE(write_bytes(app_path(component_file(QStringLiteral("expclub.dll"))), "ceci n'est pas un composant\n"));
    ASSERT_TRUE(write_bytes(app_path(component_file(QStringLiteral("rcpres.dll"))), QByteArray()));
    ASSERT_TRUE(QFile::exists(qt_platform_plugin())) << qt_platform_plugin().toStdString();
    ASSERT_TRUE(QFile::copy(qt_platform_plugin(), app_path(component_file(QStringLiteral("explic.dll")))));
    // Neither a folder of the component's name nor the file under its old name is the component.
    ASSERT_TRUE(QDir(app->app_dir()).mkdir(component_file(QStringLiteral("sviprf.dll"))));
    ASSERT_TRUE(write_bytes(app_path(QStringLiteral("regmodele.dll")), "MZ"));

    const std::vector<ComponentRow> rows = component_rows(*app);
    ASSERT_EQ(rows.size(), size_t(kListed.size()));
    for (const QString& name : {QStringLiteral("expclub.dll"), QStringLiteral("rcpres.dll"), QStringLiteral("explic.dll")}) {
        const ComponentRow* r = row(rows, name);
        ASSERT_TRUE(r);
        EXPECT_EQ(r->version, QStringLiteral("Version non disponible")) << name.toStdString();
    }
    for (const QString& name : {QStringLiteral("sviprf.dll"), QStringLiteral("regmodele.dll"), QStringLiteral("calpts.dll")}) {
        const ComponentRow* r = row(rows, name);
        ASSERT_TRUE(r);
        EXPECT_EQ(r->version, kNotInstalled) << name.toStdString();
    }
}

#ifdef PLOUVARINE_PLUGIN_FIXTURE
TEST_F(ComponentsTest, APluginsVersionComesFromItsMetadata)
{
    // The fixture plugin declares the version 2.4.1 (plugin_fixture/version_plugin.json).
    const QString fixture = QStringLiteral(PLOUVARINE_PLUGIN_FIXTURE);
    ASSERT_TRUE(QFile::exists(fixture)) << fixture.toStdString();
    ASSERT_TRUE(QFile::copy(fixture, app_path(component_file(QStringLiteral("calpts.dll")))));
    ASSERT_TRUE(QFile::copy(fixture, app_path(component_file(QStringLiteral("ziptools.dll")))));

    EXPECT_EQ(component_version(app_path(QStringLiteral("calpts.so"))), QStringLiteral("2.4.1"));
    const std::vector<ComponentRow> rows = component_rows(*app);
    EXPECT_EQ(row(rows, QStringLiteral("calpts.dll"))->version, QStringLiteral("2.4.1"));
    EXPECT_EQ(row(rows, QStringLiteral("ziptools.dll"))->version, QStringLiteral("2.4.1"));
    EXPECT_EQ(row(rows, QStringLiteral("createdisk.dll"))->version, kNotInstalled);

    // A component replaced by a file that is no plugin is read afresh.
    QFile::remove(app_path(QStringLiteral("calpts.so")));
    ASSERT_TRUE(write_bytes(app_path(QStringLiteral("calpts.so")), "remplacé"));
    EXPECT_EQ(component_version(app_path(QStringLiteral("calpts.so"))), QStringLiteral("Version non disponible"));
}
#endif

// ---- The information window ------------------------------------------------------

TEST_F(ComponentsTest, InformationWindowWithNoBaseSaysPasConnecte)
{
    const SplashView view(*app);
    EXPECT_EQ(view.connected_value(), QStringLiteral("Pas connecté"));
    EXPECT_FALSE(view.needed_in_red());
    EXPECT_TRUE(ui.messages.empty());

    // The list draws the component rows in order; a missing component does
    // not stop the window.
    const QStandardItemModel& list = view.Lst_DLL();
    ASSERT_EQ(list.rowCount(), kListed.size());
    ASSERT_EQ(view.components().size(), size_t(kListed.size()));
    for (int i = 0; i < list.rowCount(); ++i) {
        EXPECT_EQ(list.item(i, SplashView::ColumnDll)->text(), view.components()[size_t(i)].file);
        EXPECT_EQ(list.item(i, SplashView::ColumnVersion)->text(), view.components()[size_t(i)].version);
        EXPECT_FALSE(list.item(i, SplashView::ColumnDll)->isEditable());
    }
}

TEST_F(ComponentsTest, InformationWindowShowsTheVersionOfTheOpenBase)
{
    struct Case {
        QString stored;
        bool red;
    };
    // The version compares as a number: "10" is above 5 though it sorts before it as text.
    const Case cases[] = {{QStringLiteral("5"), false}, {QStringLiteral("4"), true},
                          {QStringLiteral("4.9"), true}, {QStringLiteral("10"), false}};
    int n = 0;
    for (const Case& c : cases) {
        const QString base = make_base(QStringLiteral("club%1.mdb").arg(n++));
        set_base_version(base, c.stored);
        connect(base);
        const SplashView view(*app);
        EXPECT_EQ(view.connected_value(), c.stored);
        EXPECT_EQ(view.needed_in_red(), c.red) << c.stored.toStdString();
        EXPECT_EQ(view.needed_value(), QStringLiteral("5"));
        // Opening the window leaves the base as it was.
        EXPECT_TRUE(app->db.is_open());
        EXPECT_EQ(app->db.load_rows(QStringLiteral("SELECT Version FROM Info")).first(), c.stored);
    }
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(ComponentsTest, InformationWindowOpensOnABaseWhoseVersionCannotBeRead)
{
    const QString base = make_base();
    connect(base);
    app->db.exec_sql(QStringLiteral("DROP TABLE Info"));
    const SplashView view(*app);
    EXPECT_TRUE(view.connected_value().isEmpty());
    EXPECT_TRUE(view.needed_in_red());
    EXPECT_EQ(view.Lst_DLL().rowCount(), kListed.size());
    // The failed read is shown once, by the read itself.
    EXPECT_EQ(ui.messages.size(), 1u);
}
