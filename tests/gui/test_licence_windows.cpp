// The licence windows used as the person would: a column header clicked, a
// name typed on the list, a licence changed in its detail, a fee from the menu.

#include "licences/licence_test_base.h"
#include "window_test.h"

#include <QAction>
#include <QHeaderView>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

using namespace plouvarine;
using namespace plouvarine::testing;

namespace {

void click_header(QTreeView* list, int section)
{
    QHeaderView* header = list->header();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      QPoint(header->sectionViewportPosition(section) + 4, header->height() / 2));
}

class LicenceWindowTest : public WindowTest<LicenceBase> {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        open_main();
        dupont = licence(QStringLiteral("DUPONT"), QStringLiteral("Anne"), QStringLiteral("85001F"));
        martin = licence(QStringLiteral("MARTIN"), QStringLiteral("Léa"), QStringLiteral("90002F"),
                         QLatin1String(kClub), QStringLiteral("19900101"));
    }
    // Any child window of that name, shown or not: a closed window must be gone.
    QWidget* child_window(const QString& name)
    {
        for (QMdiSubWindow* sub : main->mdi_area()->subWindowList())
            if (sub->objectName() == name)
                return sub->widget();
        return nullptr;
    }

    QString dupont, martin;
};

}  // namespace

TEST_F(LicenceWindowTest, TheListSortsSearchesAndOpensTheDetailThatSavesAChange)
{
    main->trigger(QStringLiteral("mnuLicModif"));
    QWidget* window = child_window(QStringLiteral("frm_liste_licence"));
    ASSERT_NE(window, nullptr);
    auto* list = find<QTreeView>(window, QStringLiteral("lsv_licence"));
    EXPECT_EQ(column_texts(*list->model()), (QStringList{"DUPONT", "MARTIN"}));
    // The rows are plain items: the list itself refuses editing, F2 opens no editor.
    ASSERT_TRUE(list->currentIndex().isValid());
    QTest::keyClick(list, Qt::Key_F2);
    EXPECT_EQ(list->findChild<QLineEdit*>(), nullptr);

    click_header(list, 0);
    click_header(list, 0);
    EXPECT_EQ(column_texts(*list->model()), (QStringList{"MARTIN", "DUPONT"}));

    // Letters typed on the list go to the search field and find the row.
    list->setFocus();
    type_in(list, QStringLiteral("ma"));
    EXPECT_EQ(window->findChild<QLineEdit*>(QStringLiteral("txt_recherche"))->text(), QStringLiteral("ma"));
    EXPECT_EQ(list->currentIndex().row(), 0);
    QTest::keyClick(list, Qt::Key_Return);
    QWidget* detail = child_window(QStringLiteral("det_licence"));
    ASSERT_NE(detail, nullptr);
    auto* nom = find<QLineEdit>(detail, QStringLiteral("text1_1"));
    EXPECT_EQ(nom->text(), QStringLiteral("MARTIN"));

    nom->selectAll();
    type_in(nom, QStringLiteral("Mårtin-Noël"));
    click(detail, QStringLiteral("Option_sexe_0"));
    click(detail, QStringLiteral("Command1_0"));
    EXPECT_EQ(ui.texts(), QStringList{QStringLiteral("Nageur modifié avec succès.")});
    EXPECT_EQ(field(martin, QStringLiteral("Nom")), QStringLiteral("MÅRTIN-NOEL"));
    EXPECT_EQ(field(martin, QStringLiteral("Sexe")), QStringLiteral("M"));
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(child_window(QStringLiteral("det_licence")), nullptr);
}

TEST_F(LicenceWindowTest, TheContextMenuOfTheMainWindowGivesAFee)
{
    fee(QStringLiteral("Adulte"));
    fee(QStringLiteral("Jeune"));
    main->trigger(QStringLiteral("mnuBaseClubCotisationUnknown"));
    QWidget* window = child_window(QStringLiteral("frm_liste_licence"));
    ASSERT_NE(window, nullptr);
    auto* list = window->findChild<QTreeView*>(QStringLiteral("lsv_licence"));
    const QList<QAction*> lines = main->tarifs_menu()->actions();
    ASSERT_EQ(lines.size(), 3);
    list->setCurrentIndex(list->model()->index(1, 0));
    lines[2]->trigger();

    ASSERT_TRUE(find<QPushButton>(window, QStringLiteral("cmd_0"))->isVisible());
    click(window, QStringLiteral("cmd_0"));
    EXPECT_EQ(field(martin, QStringLiteral("Tarif")), QStringLiteral("Jeune"));
}
