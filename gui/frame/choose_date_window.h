#pragma once
// The window of the day picker "frm_choose_date": draws a ChooseDateView.

#include "gui/frame/view_window.h"

class QCalendarWidget;
class QComboBox;
class QLineEdit;
class QPushButton;

namespace plouvarine {
class ChooseDateView;
}

namespace plouvarine::gui {

class ChooseDateWindow : public ViewWindow {
    Q_OBJECT
public:
    ChooseDateWindow(ChooseDateView& view, QWidget* parent = nullptr);

protected:
    void refresh() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    ChooseDateView& view_;
    QLineEdit* txt_annee_;
    QComboBox* cb_mois_;
    QCalendarWidget* calendar_;
    QPushButton* ok_;
    QPushButton* cancel_;
    bool refreshing_ = false;
};

}  // namespace plouvarine::gui
