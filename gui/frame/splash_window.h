#pragma once
// frmSplash: the information window, drawn from SplashView.

#include "src/frame/splash_view.h"

#include <QDialog>

class QLabel;
class QTreeView;

namespace plouvarine::gui {

class SplashWindow : public QDialog {
    Q_OBJECT
public:
    SplashWindow(AppContext& app, QWidget* parent = nullptr);
    const SplashView& view() const { return view_; }

private:
    SplashView view_;
};

}  // namespace plouvarine::gui
