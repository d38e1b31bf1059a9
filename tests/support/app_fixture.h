#pragma once
// A real application folder in a temporary directory, holding the real model
// base, with an application context whose person is scripted.

#include "src/frame/app_context.h"
#include "support/scripted_services.h"

#include <QAbstractItemModel>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

QT_BEGIN_NAMESPACE
// Texts in failures as texts, not as bytes.
inline void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }
QT_END_NAMESPACE

namespace plouvarine::testing {

// The model base the build made.
QString model_file();
// A QGuiApplication for the tests that draw documents (fonts, PDF), made once.
void ensure_gui_application();
// Writes `version` (a value as the statement takes it) into the base file at `path`, not open.
void set_base_version(const QString& path, const QString& version);
// Each row's fields joined by `separator`, for whole-result checks.
QStringList row_texts(const Rows& rows, QChar separator = u':');
// The texts a list shows in `column`, top to bottom.
QStringList column_texts(const QAbstractItemModel& model, int column = 0);

class AppFixture : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // A folder for bases, apart from the application folder.
    QString work_dir() const { return work_.path(); }
    QString work_file(const QString& name) const;
    // A copy of the model base in the work folder, not open.
    QString make_base(const QString& name = QStringLiteral("club.mdb"));
    // Makes `path` the base in use and connects it, as the opening does before
    // its controls. Fails the test if the base cannot be opened.
    void connect(const QString& path);
    // Lays the template component the build made out in the application folder.
    void install_template_component();
    // Lays the components the build made ("expclub.dll"...) out in the application folder.
    void install_components(std::initializer_list<const char*> names);

    // The base in use, read and written as the tests check it.
    void exec(const QString& sql) { app->db.exec_sql(sql); }
    int count(const QString& sql) { return app->db.count_query(sql); }
    QString value(const QString& sql) { return app->db.load_rows(sql).first(); }
    // Every row of a select, its fields joined by ":", in the select's order.
    QStringList dump(const QString& sql) { return row_texts(app->db.load_rows(sql)); }
    QStringList messages() const { return ui.texts(); }

    QTemporaryDir app_dir_;
    QTemporaryDir work_;
    ScriptedServices ui;
    std::unique_ptr<AppContext> app;
};

// The model base connected with the club of profile 1, "Brest Natation", its
// null licence, and today 10 March 2025.
class ProfileClubFixture : public AppFixture {
protected:
    static constexpr const char* kClub = "FRA2210290017";
    void SetUp() override;
};

}  // namespace plouvarine::testing
