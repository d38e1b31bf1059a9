#pragma once
// frm_upgrade_base: the base upgrade window, drawn from UpgradeView.

#include "src/frame/upgrade_view.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

namespace plouvarine::gui {

class UpgradeWindow : public QDialog {
    Q_OBJECT
public:
    UpgradeWindow(AppContext& app, QWidget* parent = nullptr);
    ~UpgradeWindow() override;
    UpgradeView& view() { return view_; }

private:
    void refresh();

    UpgradeView view_;
    QLineEdit* txt_base_;
    QLineEdit* txt_rep_;
    QLabel* label_;
    QPushButton* run_;
};

}  // namespace plouvarine::gui
