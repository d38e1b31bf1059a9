#include "support/app_fixture.h"

#include "src/reports/templates.h"
#include "src/frame/components.h"
#include "src/frame/access.h"
#include "src/store/database.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace plouvarine::testing {

QString model_file()
{
    return QStringLiteral(PLOUVARINE_MODEL_FILE);
}

void set_base_version(const QString& path, const QString& version)
{
    Database db;
    db.open(path);
    db.exec_sql(QStringLiteral("UPDATE Info Set Version = ") + version);
    db.close();
}

void AppFixture::SetUp()
{
    ASSERT_TRUE(app_dir_.isValid());
    ASSERT_TRUE(work_.isValid());
    ASSERT_TRUE(QFile::exists(model_file())) << "model base not built: " << model_file().toStdString();
    ASSERT_TRUE(QFile::copy(model_file(), app_dir_.filePath(QStringLiteral("modele_base.sav"))));
    app = std::make_unique<AppContext>(ui, app_dir_.path());
    app->state.model_path = app->app_file(QStringLiteral("modele_base.sav"));
}

void AppFixture::TearDown()
{
    ui.drop_windows();
    if (app)
        app->db.close();
    app.reset();
}

QString AppFixture::work_file(const QString& name) const
{
    return QDir(work_.path()).filePath(name);
}

QString AppFixture::make_base(const QString& name)
{
    const QString path = work_file(name);
    QFile::remove(path);
    EXPECT_TRUE(QFile::copy(model_file(), path));
    QFile::setPermissions(path, QFile::permissions(path) | QFileDevice::WriteOwner);
    return path;
}

void AppFixture::connect(const QString& path)
{
    app->state.base_path = path;
    ASSERT_TRUE(connect_base(*app)) << "cannot open " << path.toStdString();
}

}  // namespace plouvarine::testing

namespace plouvarine::testing {

void AppFixture::install_template_component()
{
    const QString built = QFileInfo(model_file()).dir().filePath(component_file(QStringLiteral("regmodele.dll")));
    ASSERT_TRUE(QFile::exists(built)) << built.toStdString();
    ASSERT_TRUE(QFile::copy(built, template_component_path(*app)));
}

}  // namespace plouvarine::testing
