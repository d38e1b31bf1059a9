#pragma once
// A real application folder in a temporary directory, holding the real model
// base, with an application context whose person is scripted.

#include "src/frame/app_context.h"
#include "support/scripted_services.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

namespace plouvarine::testing {

// The model base the build made.
QString model_file();
// Writes `version` (a value as the statement takes it) into the base file at `path`, not open.
void set_base_version(const QString& path, const QString& version);

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

    QTemporaryDir app_dir_;
    QTemporaryDir work_;
    ScriptedServices ui;
    std::unique_ptr<AppContext> app;
};

}  // namespace plouvarine::testing
