#pragma once
// The interaction services for tests: every message, dialog and status caption
// is recorded, and dialogs answer from a script queued by the test.

#include "src/base/services.h"

#include "src/frame/view.h"

#include <QString>
#include <QStringList>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace plouvarine::testing {

class ScriptedServices : public Services {
public:
    // Answers, consumed in order. A message box with no queued answer takes its
    // default button; a file or folder dialog with none is cancelled.
    std::deque<Button> answers;
    std::deque<QString> files;
    std::deque<QString> folders;

    // What was shown.
    std::vector<Message> messages;
    std::vector<FileDialogRequest> file_requests;
    QStringList folder_prompts;
    struct Report {
        QString title;
        std::vector<ReportLine> lines;
    };
    std::vector<Report> reports;
    QStringList status_history;     // every caption written to panel 2
    QString status[3];              // the panels as they stand now (1 and 2 used)
    int wait_depth = 0;
    int max_wait_depth = 0;

    // A modal view is played by the driver of its name, then closed by its close
    // box if still open. Child windows stay in `windows` until closed.
    std::map<QString, std::function<void(View&)>> drivers;
    // Window tests: views drawn by these (Qt) services, messages still scripted.
    Services* draw_with = nullptr;
    QStringList shown_views;
    std::vector<std::unique_ptr<View>> windows;
    // An open child window, or null.
    View* window(const QString& name) const;
    template <typename T>
    T* window_as(const QString& name) const { return dynamic_cast<T*>(window(name)); }
    // Closes the child window as its close box would; false if it refused.
    bool close_window(const QString& name);
    // Closes and destroys every child window (before the application goes).
    void drop_windows();

    // Printing: what was sent, in order. `print_answer` false cancels the
    // printer choice; with `print_pdf` set, the document is also written there.
    struct Printed {
        QString title;
        QString text;  // the document's plain text
        QString html;
        QByteArray rtf;  // the document as the report would be saved
        QString header;  // the plain text of the page's header and footer
        QString footer;
    };
    std::vector<Printed> printed;
    bool print_answer = true;
    QString print_pdf;

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
    // Writes a real PDF and records its path in `pdfs`.
    bool write_pdf(const QString& path, const QString& title, const QTextDocument& document,
                   const PageSetup& page) override;
    // The documents opened, in order; `open_answer` false: no program could.
    QStringList opened_documents;
    bool open_answer = true;
    bool open_document(const QString& path) override;
    QStringList pdfs;
    // The person stops the run when `done` reaches `cancel_at` (-1: never).
    bool progress(const QString& caption, int done, int total) override;
    void progress_end() override { progress_shown = false; }
    int cancel_at = -1;
    bool progress_shown = false;

    // Messages of one title ("Erreur", "Confirmation", "Information").
    std::vector<Message> titled(const QString& title) const;
    // The texts of all messages, in order.
    QStringList texts() const;
    void clear();
};

}  // namespace plouvarine::testing
