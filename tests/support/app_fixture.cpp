#include "support/app_fixture.h"

#include "src/reports/templates.h"
#include "src/frame/components.h"
#include "src/frame/access.h"
#include "src/store/database.h"
#include "src/store/sentinels.h"

#include <QDate>
#include <QGuiApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace plouvarine::testing {

QString model_file()
{
    return QStringLiteral(PLOUVARINE_MODEL_FILE);
}

void ensure_gui_application()
{
    static int argc = 1;
    static char name[] = "test";
    static char* argv[] = {name, nullptr};
    if (!QCoreApplication::instance())
        new QGuiApplication(argc, argv);
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
    if (app) {
        app->saves.wait();  // its worker reads the base until then
        app->db.close();
    }
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

// The build lays its components beside the model base.
static QString built_component(const QString& file)
{
    return QFileInfo(model_file()).dir().filePath(file);
}

void AppFixture::install_template_component()
{
    const QString built = built_component(component_file(QStringLiteral("regmodele.dll")));
    ASSERT_TRUE(QFile::copy(built, template_component_path(*app))) << built.toStdString();
}

void AppFixture::install_components(std::initializer_list<const char*> names)
{
    for (const char* name : names) {
        const QString file = component_file(QString::fromLatin1(name));
        ASSERT_TRUE(QFile::copy(built_component(file), app->app_file(file))) << file.toStdString();
    }
}

QStringList row_texts(const Rows& rows, QChar separator)
{
    QStringList out;
    for (int r = 0; r < rows.size(); ++r) {
        QStringList cells;
        for (int c = 0; c < rows.column_count(); ++c)
            cells << rows.value(r, c);
        out << cells.join(separator);
    }
    return out;
}

QStringList column_texts(const QAbstractItemModel& model, int column)
{
    QStringList out;
    for (int r = 0; r < model.rowCount(); ++r)
        out << model.index(r, column).data().toString();
    return out;
}

void ProfileClubFixture::SetUp()
{
    AppFixture::SetUp();
    connect(make_base());
    exec(QStringLiteral("INSERT INTO Club (Code_federal, Intitule) VALUES ('%1', 'Brest Natation')").arg(kClub));
    app->state.club_code = QLatin1String(kClub);
    app->state.profile_num = QStringLiteral("1");
    app->state.num_lic_nulle = check_licence_nulle(app->db, app->ui, QLatin1String(kClub));
    app->clock.set_today(QDate(2025, 3, 10));
}

}  // namespace plouvarine::testing
