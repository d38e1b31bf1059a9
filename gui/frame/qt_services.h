#pragma once
// The interaction services on real Qt dialogs, in French.

#include "src/base/services.h"

#include <functional>
#include <memory>
#include <vector>

class QProgressDialog;
class QWidget;

namespace plouvarine::gui {

class QtServices : public Services {
public:
    // Dialogs are parented to the window that `parent` gives at the time of the call.
    explicit QtServices(std::function<QWidget*()> parent = {});
    ~QtServices() override;

    Button message_box(const Message& message) override;
    QString file_dialog(const FileDialogRequest& request) override;
    QString browse_folder(const QString& prompt) override;
    void show_report(const QString& title, const std::vector<ReportLine>& lines) override;
    void set_status(int panel, const QString& text) override;
    void push_wait_cursor() override;
    void pop_wait_cursor() override;
    void show_modal(View& view) override;
    void show_window(std::unique_ptr<View> view) override;
    bool print_document(const QString& title, const QTextDocument& document, const PageSetup& page) override;
    bool write_pdf(const QString& path, const QString& title, const QTextDocument& document,
                   const PageSetup& page) override;
    bool open_document(const QString& path) override;
    bool progress(const QString& caption, int done, int total) override;
    void progress_end() override;
    bool bring_to_front(const QString& name) override;

    // Where the status panels are drawn (set by the main window).
    std::function<void(int, const QString&)> on_status;
    // Places a child window in the main window.
    std::function<void(QWidget*)> show_child;

    // "Label (*.ext)|*.ext|Other (*.x)|*.x" as Qt's filter ("Label (*.ext);;Other (*.x)").
    static QString qt_filter(const QString& filter);

private:
    QWidget* parent() const { return parent_ ? parent_() : nullptr; }
    std::function<QWidget*()> parent_;
    // The modal windows being shown, the innermost last.
    std::vector<QWidget*> modal_;
    // The progress of the run under way, if any.
    std::unique_ptr<QProgressDialog> progress_;
};

}  // namespace plouvarine::gui
