#include "gui/frame/attente_window.h"

#include "gui/frame/window_factory.h"
#include "src/frame/operation_runner.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTextEdit>

namespace plouvarine::gui {

AttenteWindow::AttenteWindow(OperationRunner& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
{
    setObjectName(QString(OperationRunner::kName));
    lbl_path_ = new QLabel(this);
    txt_path_ = new QLineEdit(this);
    txt_path_->setObjectName(QStringLiteral("txt_rep"));
    cmd_rep_ = new QPushButton(QStringLiteral("..."), this);
    cmd_rep_->setObjectName(QStringLiteral("Cmd_rep"));
    chk_option_ = new QCheckBox(this);
    chk_option_->setObjectName(QStringLiteral("chk_option"));
    for (int i = 0; i < 4; ++i) {
        lb_message_[size_t(i)] = new QLabel(this);
        lb_message_[size_t(i)]->setObjectName(QStringLiteral("lb_message_%1").arg(i));
    }
    lb_club_ = new QLabel(this);
    lb_club_->setObjectName(QStringLiteral("lb_club"));
    lb_nageur_ = new QLabel(this);
    lb_nageur_->setObjectName(QStringLiteral("lb_nageur"));
    progress_ = new QProgressBar(this);
    progress_->setObjectName(QStringLiteral("ProgressBar1"));
    rich_rapport_ = new QTextEdit(this);
    rich_rapport_->setObjectName(QStringLiteral("RichRapport"));
    rich_rapport_->setReadOnly(true);
    rich_rapport_->setVisible(false);
    cmd_ok_ = new QPushButton(QStringLiteral("&OK"), this);
    cmd_ok_->setObjectName(QStringLiteral("Cmd_ok"));
    cmd_quit_ = new QPushButton(QStringLiteral("&Quitter"), this);
    cmd_quit_->setObjectName(QStringLiteral("Cmd_quit"));
    cmd_ok_->setAutoDefault(false);
    cmd_quit_->setAutoDefault(false);

    auto* grid = new QGridLayout(this);
    grid->addWidget(lbl_path_, 0, 0);
    grid->addWidget(txt_path_, 0, 1);
    grid->addWidget(cmd_rep_, 0, 2);
    grid->addWidget(chk_option_, 1, 1, 1, 2);
    for (int i = 0; i < 4; ++i)
        grid->addWidget(lb_message_[size_t(i)], 2 + i, 0, 1, 3);
    grid->addWidget(lb_club_, 6, 0, 1, 3);
    grid->addWidget(lb_nageur_, 7, 0, 1, 3);
    grid->addWidget(progress_, 8, 0, 1, 3);
    grid->addWidget(rich_rapport_, 9, 0, 1, 3);
    grid->setRowStretch(9, 1);
    grid->setColumnStretch(1, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmd_ok_);
    buttons->addWidget(cmd_quit_);
    grid->addLayout(buttons, 10, 0, 1, 3);

    connect(txt_path_, &QLineEdit::textEdited, this, [this](const QString& text) { view_.set_path(text); });
    connect(chk_option_, &QCheckBox::toggled, this, [this](bool ticked) {
        if (!refreshing_)
            view_.set_option_ticked(ticked);
    });
    connect(cmd_rep_, &QPushButton::clicked, this, [this] { view_.choose_path(); });
    connect(cmd_ok_, &QPushButton::clicked, this, [this] { view_.ok(); });
    connect(cmd_quit_, &QPushButton::clicked, this, [this] { view_.quit(); });

    resize(520, 300);
    refresh();
}

void AttenteWindow::refresh()
{
    refreshing_ = true;
    setWindowTitle(view_.title());
    lbl_path_->setText(view_.label());
    if (txt_path_->text() != view_.path())
        txt_path_->setText(view_.path());
    chk_option_->setVisible(view_.option_visible());
    chk_option_->setText(view_.option_text());
    chk_option_->setChecked(view_.option_ticked());
    chk_option_->setEnabled(view_.option_enabled());
    for (int i = 0; i < 4; ++i)
        lb_message_[size_t(i)]->setText(view_.message(i));
    lb_club_->setText(view_.club());
    lb_nageur_->setText(view_.swimmer());
    progress_->setMaximum(view_.progress_maximum());
    progress_->setValue(view_.progress_value());
    if (rich_rapport_->toPlainText() != view_.report())
        rich_rapport_->setPlainText(view_.report());
    // The report box appears with the first line, the window enlarged for it.
    if (!view_.report().isEmpty() && !enlarged_) {
        enlarged_ = true;
        rich_rapport_->setVisible(true);
        resize(width() + 160, height() + 260);
    }
    cmd_ok_->setEnabled(view_.ok_enabled());
    cmd_rep_->setEnabled(!view_.running());
    cmd_quit_->setEnabled(!view_.running());
    txt_path_->setReadOnly(view_.running());
    if (view_.focus_on_path_button())
        cmd_rep_->setFocus();
    refreshing_ = false;
    // The component works inside the call: the window is drawn as it goes.
    if (view_.running())
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void register_attente_window()
{
    register_window(QString(OperationRunner::kName), [](View& view, QWidget* parent) -> ViewWindow* {
        auto* runner = dynamic_cast<OperationRunner*>(&view);
        return runner ? new AttenteWindow(*runner, parent) : nullptr;
    });
}

}  // namespace plouvarine::gui
