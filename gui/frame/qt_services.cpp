#include "gui/frame/qt_services.h"

#include "gui/frame/page_printer.h"
#include "gui/frame/report_window.h"
#include "src/frame/view.h"
#include "gui/frame/view_window.h"
#include "gui/frame/window_factory.h"

#include <QApplication>
#include <QDesktopServices>
#include <QUrl>
#include <QFileDialog>
#include <QMessageBox>
#include <QFileInfo>
#include <QPdfWriter>
#include <QPrintPreviewDialog>
#include <QProgressDialog>
#include <QPrinter>
#include <QPushButton>
#include <QTextDocument>
#include <stdexcept>

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
    // The static helpers take no default suffix: the dialog is built here.
    QFileDialog dialog(parent(), request.title, QString(), qt_filter(request.filter));
    dialog.setAcceptMode(request.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(request.save || !request.must_exist ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    if (request.save && !request.confirm_overwrite)
        dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setDefaultSuffix(request.default_suffix);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return dialog.selectedFiles().first().trimmed();
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

void QtServices::show_modal(View& view)
{
    if (view.is_closed())
        return;
    std::unique_ptr<ViewWindow> window(make_window(view, parent()));
    if (!window)
        throw std::logic_error("no window drawn for " + view.name().toStdString());
    // The wait cursor of the command that opens the window is not the window's.
    int waits = 0;
    while (QApplication::overrideCursor()) {
        QApplication::restoreOverrideCursor();
        ++waits;
    }
    // The window ends when its view closes; a window merely hidden comes back.
    // Whatever way the loop ends, even by an exception out of a command, the
    // window leaves the modal stack and the cursors come back.
    modal_.push_back(window.get());
    struct Restore {
        std::vector<QWidget*>& modal;
        ViewWindow* window;
        int waits;
        ~Restore()
        {
            std::erase(modal, window);
            while (waits-- > 0)
                QApplication::setOverrideCursor(Qt::WaitCursor);
        }
    } restore{modal_, window.get(), waits};
    while (!view.is_closed())
        window->exec();
}

void QtServices::show_window(std::unique_ptr<View> view)
{
    View* owned = view.release();
    ViewWindow* window = make_window(*owned, nullptr);
    if (!window) {
        owned->close();
        delete owned;
        throw std::logic_error("no window drawn for a child view");
    }
    // The view goes with its window, closed first so that its locks come back.
    QObject::connect(window, &QObject::destroyed, [owned] {
        owned->close();
        delete owned;
    });
    window->setAttribute(Qt::WA_DeleteOnClose);
    if (show_child)
        show_child(window);
    else
        window->show();
}

bool QtServices::bring_to_front(const QString& name)
{
    for (QWidget* window : modal_) {
        if (window->objectName() == name && window->isVisible()) {
            window->raise();
            window->activateWindow();
            return true;
        }
    }
    return false;
}

bool QtServices::print_document(const QString& title, const QTextDocument& document, const PageSetup& page)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(title);
    QPrintPreviewDialog preview(&printer, parent());
    preview.setWindowTitle(title);
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
                     [&document, &page](QPrinter* p) { print_pages(*p, document, page); });
    return preview.exec() == QDialog::Accepted;
}

QtServices::QtServices(std::function<QWidget*()> parent) : parent_(std::move(parent)) {}

QtServices::~QtServices() = default;

bool QtServices::write_pdf(const QString& path, const QString& title, const QTextDocument& document,
                           const PageSetup& page)
{
    {
        QPdfWriter pdf(path);
        pdf.setTitle(title);
        pdf.setCreator(QStringLiteral("Plouvarine"));
        print_pages(pdf, document, page);
    }
    return QFileInfo(path).size() > 0;
}

bool QtServices::progress(const QString& caption, int done, int total)
{
    if (!progress_) {
        progress_ = std::make_unique<QProgressDialog>(parent());
        progress_->setWindowModality(Qt::WindowModal);
        progress_->setCancelButtonText(QStringLiteral("Annuler"));
        progress_->setMinimumDuration(0);
        progress_->setAutoReset(false);
        progress_->setAutoClose(false);
    }
    progress_->setMaximum(total);
    progress_->setLabelText(caption);
    progress_->setValue(done);
    QApplication::processEvents();
    return !progress_->wasCanceled();
}

void QtServices::progress_end()
{
    progress_.reset();
}

void QtServices::push_wait_cursor()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

void QtServices::pop_wait_cursor()
{
    QApplication::restoreOverrideCursor();
}

bool QtServices::open_document(const QString& path)
{
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

}  // namespace plouvarine::gui
