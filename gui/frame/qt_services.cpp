#include "frame/qt_services.h"

#include "frame/report_window.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

namespace plouvarine::gui {

Button QtServices::message_box(const Message& message)
{
    QMessageBox box(parent());
    box.setWindowTitle(message.title);
    box.setText(message.text);
    switch (message.icon) {
    case MsgIcon::Stop: box.setIcon(QMessageBox::Critical); break;
    case MsgIcon::Question: box.setIcon(QMessageBox::Question); break;
    case MsgIcon::Information: box.setIcon(QMessageBox::Information); break;
    }
    if (!message.yes_no) {
        box.setStandardButtons(QMessageBox::Ok);
        box.exec();
        return Button::Ok;
    }
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(message.default_button == Button::Yes ? QMessageBox::Yes : QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes ? Button::Yes : Button::No;
}

QString QtServices::qt_filter(const QString& filter)
{
    const QStringList parts = filter.split(QLatin1Char('|'));
    QStringList out;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        QString label = parts[i];
        // The pattern goes into the label when the label does not show it.
        if (!label.contains(parts[i + 1]))
            label += QStringLiteral(" (") + parts[i + 1] + QLatin1Char(')');
        out << label;
    }
    if (out.isEmpty() && !filter.isEmpty())
        out << filter;
    return out.join(QStringLiteral(";;"));
}

QString QtServices::file_dialog(const FileDialogRequest& request)
{
    QString path;
    if (request.save) {
        QFileDialog::Options options;
        if (!request.confirm_overwrite)
            options |= QFileDialog::DontConfirmOverwrite;
        path = QFileDialog::getSaveFileName(parent(), request.title, QString(), qt_filter(request.filter), nullptr, options);
    } else {
        path = QFileDialog::getOpenFileName(parent(), request.title, QString(), qt_filter(request.filter));
    }
    return path.trimmed();
}

QString QtServices::browse_folder(const QString& prompt)
{
    return QFileDialog::getExistingDirectory(parent(), prompt);
}

void QtServices::show_report(const QString& title, const std::vector<ReportLine>& lines)
{
    ReportWindow window(title, lines, parent());
    window.exec();
}

void QtServices::set_status(int panel, const QString& text)
{
    if (on_status)
        on_status(panel, text);
}

void QtServices::push_wait_cursor()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

void QtServices::pop_wait_cursor()
{
    QApplication::restoreOverrideCursor();
}

}  // namespace plouvarine::gui
