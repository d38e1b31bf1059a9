#include "gui/frame/splash_window.h"

#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace plouvarine::gui {

SplashWindow::SplashWindow(AppContext& app, QWidget* parent) : QDialog(parent), view_(app)
{
    setObjectName(QStringLiteral("frmSplash"));
    setWindowTitle(view_.product_name());

    auto* product = new QLabel(view_.product_name(), this);
    QFont big = product->font();
    big.setPointSize(big.pointSize() + 6);
    big.setBold(true);
    product->setFont(big);
    auto* version = new QLabel(view_.version_text(), this);

    auto* list = new QTreeView(this);
    list->setObjectName(QStringLiteral("Lst_DLL"));
    list->setModel(&view_.Lst_DLL());
    list->setRootIsDecorated(false);
    list->setSelectionMode(QAbstractItemView::NoSelection);
    list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);

    auto* needed = new QLabel(view_.needed_value(), this);
    needed->setObjectName(QStringLiteral("lbl_needed"));
    if (view_.needed_in_red())
        needed->setStyleSheet(QStringLiteral("color: red; font-weight: bold;"));
    auto* connected = new QLabel(view_.connected_value(), this);
    connected->setObjectName(QStringLiteral("lbl_connected"));
    auto* versions = new QFormLayout;
    versions->addRow(view_.needed_label(), needed);
    versions->addRow(view_.connected_label(), connected);

    auto* close = new QPushButton(SplashView::close_caption(), this);
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(product);
    layout->addWidget(version);
    layout->addWidget(list, 1);
    layout->addLayout(versions);
    layout->addWidget(close, 0, Qt::AlignRight);
    resize(440, 460);
}

}  // namespace plouvarine::gui
