// The "?" menu's guide: found in the application folder, HTML first, opened through the desktop.

#include "src/frame/user_guide.h"
#include "support/app_fixture.h"
#include "support/temp_files.h"

#include <QDir>

using namespace plouvarine;
using plouvarine::testing::AppFixture;
using plouvarine::testing::write_bytes;

namespace {

class UserGuideTest : public AppFixture {};

TEST_F(UserGuideTest, OpensTheHtmlGuideElseItsMarkdownAndSaysWhenThereIsNone)
{
    user_guide_command(*app);
    EXPECT_TRUE(ui.opened_documents.isEmpty());
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].title, QStringLiteral("Erreur"));
    EXPECT_TRUE(ui.messages[0].text.endsWith(app->app_file(QStringLiteral("guide")))) << ui.messages[0].text.toStdString();

    // A folder named like the page is no page.
    ASSERT_TRUE(QDir(app->app_dir()).mkpath(QStringLiteral("guide/index.html")));
    write_bytes(app->app_file(QStringLiteral("guide/index.md")), "# Guide\n");
    ui.clear();
    user_guide_command(*app);
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(ui.opened_documents, QStringList{app->app_file(QStringLiteral("guide/index.md"))});

    ASSERT_TRUE(QDir(app->app_file(QStringLiteral("guide"))).rmdir(QStringLiteral("index.html")));
    write_bytes(app->app_file(QStringLiteral("guide/index.html")), "<h1>Guide</h1>");
    EXPECT_EQ(user_guide_path(*app), app->app_file(QStringLiteral("guide/index.html")));
}

TEST_F(UserGuideTest, SaysSoWhenNoProgramCanOpenIt)
{
    ASSERT_TRUE(QDir(app->app_dir()).mkpath(QStringLiteral("guide")));
    write_bytes(app->app_file(QStringLiteral("guide/index.html")), "<h1>Guide</h1>");
    ui.open_answer = false;
    user_guide_command(*app);
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("Aucun programme n'a pu ouvrir le guide de l'utilisateur :\n") +
                                      app->app_file(QStringLiteral("guide/index.html"))});
}

}  // namespace
