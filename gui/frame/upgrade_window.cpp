#include "gui/frame/upgrade_window.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace plouvarine::gui {

UpgradeWindow::UpgradeWindow(AppContext& app, QWidget* parent)
    : QDialog(parent), view_(app), txt_base_(new QLineEdit(this)), txt_rep_(new QLineEdit(this)),
      label_(new QLabel(this)), run_(new QPushButton(QStringLiteral("&Mettre à jour"), this))
{
    setObjectName(QStringLiteral("frm_upgrade_base"));
    setWindowTitle(QStringLiteral("Mise à jour des bases"));
    txt_base_->setObjectName(QStringLiteral("txt_base"));
    txt_rep_->setObjectName(QStringLiteral("txt_rep"));
    txt_base_->setReadOnly(true);
    txt_rep_->setReadOnly(true);
    auto* cmd_base = new QPushButton(QStringLiteral("..."), this);
    cmd_base->setObjectName(QStringLiteral("Cmd_base"));
    auto* cmd_package = new QPushButton(QStringLiteral("..."), this);
    cmd_package->setObjectName(QStringLiteral("Cmd_package"));
    run_->setObjectName(QStringLiteral("Cmd_run"));
    auto* close = new QPushButton(QStringLiteral("&Fermer"), this);

    auto* grid = new QGridLayout(this);
    grid->addWidget(new QLabel(QStringLiteral("Base à mettre à jour :"), this), 0, 0);
    grid->addWidget(txt_base_, 0, 1);
    grid->addWidget(cmd_base, 0, 2);
    grid->addWidget(new QLabel(QStringLiteral("Package de mise à jour :"), this), 1, 0);
    grid->addWidget(txt_rep_, 1, 1);
    grid->addWidget(cmd_package, 1, 2);
    grid->addWidget(label_, 2, 0, 1, 3);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(run_);
    buttons->addWidget(close);
    grid->addLayout(buttons, 3, 0, 1, 3);
    grid->setColumnStretch(1, 1);

    connect(cmd_base, &QPushButton::clicked, this, [this] { view_.choose_base(); refresh(); });
    connect(cmd_package, &QPushButton::clicked, this, [this] { view_.choose_package(); refresh(); });
    connect(run_, &QPushButton::clicked, this, [this] { view_.run(); refresh(); });
    connect(close, &QPushButton::clicked, this, &QDialog::accept);

    view_.load();
    refresh();
    resize(560, 170);
}

UpgradeWindow::~UpgradeWindow()
{
    view_.unload();
}

void UpgradeWindow::refresh()
{
    txt_base_->setText(view_.txt_base());
    txt_rep_->setText(view_.txt_rep());
    label_->setText(view_.package_label());
    run_->setEnabled(view_.run_enabled());
}

}  // namespace plouvarine::gui
