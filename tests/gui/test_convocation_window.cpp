// The convocation window reached through the competition list: its boxes,
// toolbar and reply option wired to the view, and the ticked letters printed.

#include "entries/entries_test_base.h"
#include "window_test.h"

#include <QCheckBox>
#include <QPushButton>
#include <QTextEdit>
#include <QToolButton>
#include <QTreeView>

using namespace plouvarine;

namespace {

class ConvocationWindowTest : public plouvarine::testing::WindowTest<plouvarine::testing::EntriesBase> {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        app->state.club_name = QStringLiteral("Brest Natation");
        install_template_component();
        open_main();
    }
};

TEST_F(ConvocationWindowTest, TickedSwimmersGetTheStyledMessage)
{
    for (const char* name : {"Le Bihan", "Abgrall"})
        member(swimmer(QString::fromUtf8(name), QStringLiteral("M"), QStringLiteral("Yann")), 0, false);

    QWidget* window = open_chosen(QStringLiteral("mnuEngagConvoc"), QStringLiteral("frm_convocation"));
    ASSERT_NE(window, nullptr);
    auto* swimmers = window->findChild<QTreeView*>("Lsv_nageurs");
    ASSERT_EQ(swimmers->model()->rowCount(), 2);
    window->findChild<QCheckBox*>("Chk_all")->click();
    EXPECT_EQ(swimmers->model()->index(1, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));

    auto* date = window->findChild<QLineEdit*>("txt_description_0");
    EXPECT_FALSE(date->isEnabled());
    window->findChild<QCheckBox*>("chk_reponse")->click();
    EXPECT_TRUE(date->isEnabled());

    auto* message = window->findChild<QTextEdit*>("rich");
    message->setFocus();
    message->insertPlainText(QStringLiteral("Rendez-vous à 8h"));
    message->selectAll();
    window->findChild<QToolButton*>("cmd_text_0")->click();
    window->findChild<QToolButton*>("cmd_text_4")->click();

    window->resize(900, 560);
    shoot(window, QStringLiteral("convocation.png"));

    window->findChild<QPushButton*>("cmd_1")->click();
    ASSERT_EQ(ui.printed.size(), 1u);
    const auto& printed = ui.printed[0];
    EXPECT_EQ(printed.text.count(QStringLiteral("Rendez-vous à 8h")), 2);
    EXPECT_TRUE(printed.html.contains(QStringLiteral("font-weight:700")));
    EXPECT_TRUE(printed.html.contains(QStringLiteral("align=\"center\"")));
    EXPECT_EQ(printed.text.count(QString(QChar(0x2702))), 4);
}

}  // namespace
