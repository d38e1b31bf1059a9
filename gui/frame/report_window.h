#pragma once
// frm_update: the report of an upgrade, its lines in order, errors in red, with
// its one close button.

#include "src/base/services.h"

#include <QDialog>

class QTextEdit;

namespace plouvarine::gui {

class ReportWindow : public QDialog {
    Q_OBJECT
public:
    ReportWindow(const QString& title, const std::vector<ReportLine>& lines, QWidget* parent = nullptr);
    QTextEdit* report() const { return report_; }

private:
    QTextEdit* report_;
};

}  // namespace plouvarine::gui
