#pragma once
// The operation runner's window "frm_attente": the path and its option, the
// progress lines and bar, and the report box, drawn from an OperationRunner.

#include "gui/frame/view_window.h"

#include <array>

class QCheckBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QTextEdit;

namespace plouvarine {
class OperationRunner;
}

namespace plouvarine::gui {

class AttenteWindow : public ViewWindow {
    Q_OBJECT
public:
    AttenteWindow(OperationRunner& view, QWidget* parent = nullptr);

protected:
    void refresh() override;

private:
    OperationRunner& view_;
    QLabel* lbl_path_;
    QLineEdit* txt_path_;
    QPushButton* cmd_rep_;
    QCheckBox* chk_option_;
    std::array<QLabel*, 4> lb_message_{};
    QLabel* lb_club_;
    QLabel* lb_nageur_;
    QProgressBar* progress_;
    QTextEdit* rich_rapport_;
    QPushButton* cmd_ok_;
    QPushButton* cmd_quit_;
    bool refreshing_ = false;
    bool enlarged_ = false;
};

void register_attente_window();

}  // namespace plouvarine::gui
