#include "gui/frame/report_window.h"

#include <QPushButton>
#include <QTextEdit>
#include <QVBoxLayout>

namespace plouvarine::gui {

ReportWindow::ReportWindow(const QString& title, const std::vector<ReportLine>& lines, QWidget* parent)
    : QDialog(parent), report_(new QTextEdit(this))
{
    setObjectName(QStringLiteral("frm_update"));
    setWindowTitle(title);
    report_->setReadOnly(true);
    for (const ReportLine& line : lines) {
        report_->setTextColor(line.error ? Qt::red : palette().color(QPalette::Text));
        report_->append(line.text);
    }
    auto* close = new QPushButton(QStringLiteral("&Fermer"), this);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(report_);
    layout->addWidget(close, 0, Qt::AlignRight);
    resize(560, 380);
}

}  // namespace plouvarine::gui
