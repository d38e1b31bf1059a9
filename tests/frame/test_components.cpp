// The component list and the information window, on a real application folder.

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
using namespace plouvarine::testing;

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

class ComponentsTest : public AppFixture {
protected:
    QString app_path(const QString& name) const { return app->app_file(name); }

    static QString version_of(const std::vector<ComponentRow>& rows, const QString& dll)
    {
        for (const ComponentRow& r : rows)
            if (r.file == component_file(dll))
                return r.version;
        return QStringLiteral("no row for ") + dll;
    }
};

}  // namespace


TEST(ComponentFile, AComponentIsNamedWithThePlatformsPluginSuffix)
{
    EXPECT_EQ(component_file(QStringLiteral("calpts.dll")), QStringLiteral("calpts.so"));
    EXPECT_EQ(component_file(QStringLiteral("ZipTools.DLL")), QStringLiteral("ZipTools.so"));
    // Only the old suffix goes; a point inside the name stays.
    EXPECT_EQ(component_file(QStringLiteral("calc.pts.dll")), QStringLiteral("calc.pts.so"));
}

TEST_F(ComponentsTest, WithNoComponentInstalledEveryRowSaysSoAndTheWindowListsThemAll)
{
    const SplashView view(*app);
    EXPECT_EQ(view.connected_value(), QStringLiteral("Pas connecté"));
    EXPECT_FALSE(view.needed_in_red());
    EXPECT_TRUE(ui.messages.empty());

    QStringList rows, expected;
    const QStandardItemModel& list = view.Lst_DLL();
    for (int i = 0; i < list.rowCount(); ++i) {
        rows << list.item(i, SplashView::ColumnDll)->text() + QLatin1Char(' ') +
                    list.item(i, SplashView::ColumnVersion)->text();
        EXPECT_FALSE(list.item(i, SplashView::ColumnDll)->isEditable());
    }
    for (const QString& file : kListed)
        expected << file + QLatin1Char(' ') + (file == kZipLibrary ? QString::fromLatin1(LIBZIP_VERSION) : kNotInstalled);
    EXPECT_EQ(rows, expected);
}

TEST_F(ComponentsTest, AFileThatIsNoPluginOrHasNoVersionSaysVersionNonDisponible)
{
    // Bytes of any kind, an empty file, and a real Qt plugin without a version.
    ASSERT_TRUE(write_bytes(app_path(component_file(QStringLiteral("expclub.dll"))), "ceci n'est pas un composant\n"));
    ASSERT_TRUE(write_bytes(app_path(component_file(QStringLiteral("rcpres.dll"))), QByteArray()));
    const QString qt_plugin = QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms/libqoffscreen.so");
    ASSERT_TRUE(QFile::copy(qt_plugin, app_path(component_file(QStringLiteral("explic.dll"))))) << qt_plugin.toStdString();
    // Neither a folder of the component's name nor the file under its old name is the component.
    ASSERT_TRUE(QDir(app->app_dir()).mkdir(component_file(QStringLiteral("sviprf.dll"))));
    ASSERT_TRUE(write_bytes(app_path(QStringLiteral("regmodele.dll")), "MZ"));

    const std::vector<ComponentRow> rows = component_rows(*app);
    ASSERT_EQ(rows.size(), size_t(kListed.size()));
    const QString unknown = QStringLiteral("Version non disponible");
    for (const auto& [name, version] : {std::pair{"expclub.dll", unknown}, {"rcpres.dll", unknown}, {"explic.dll", unknown},
                                        {"sviprf.dll", kNotInstalled}, {"regmodele.dll", kNotInstalled},
                                        {"calpts.dll", kNotInstalled}})
        EXPECT_EQ(version_of(rows, QLatin1String(name)), version) << name;
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
    EXPECT_EQ(version_of(rows, QStringLiteral("calpts.dll")), QStringLiteral("2.4.1"));
    EXPECT_EQ(version_of(rows, QStringLiteral("ziptools.dll")), QStringLiteral("2.4.1"));
    EXPECT_EQ(version_of(rows, QStringLiteral("createdisk.dll")), kNotInstalled);

    // A component replaced by a file that is no plugin is read afresh.
    QFile::remove(app_path(QStringLiteral("calpts.so")));
    ASSERT_TRUE(write_bytes(app_path(QStringLiteral("calpts.so")), "remplacé"));
    EXPECT_EQ(component_version(app_path(QStringLiteral("calpts.so"))), QStringLiteral("Version non disponible"));
}
#endif


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
        EXPECT_EQ(value(QStringLiteral("SELECT Version FROM Info")), c.stored);
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
