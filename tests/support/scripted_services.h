#pragma once
// The interaction services for tests: every message, dialog and status caption
// is recorded, and dialogs answer from a script queued by the test.

#include "frame/services.h"

#include <QString>
#include <QStringList>
#include <deque>
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

    Button message_box(const Message& message) override;
    QString file_dialog(const FileDialogRequest& request) override;
    QString browse_folder(const QString& prompt) override;
    void show_report(const QString& title, const std::vector<ReportLine>& lines) override;
    void set_status(int panel, const QString& text) override;
    void push_wait_cursor() override;
    void pop_wait_cursor() override;

    // Messages of one title ("Erreur", "Confirmation", "Information").
    std::vector<Message> titled(const QString& title) const;
    // The texts of all messages, in order.
    QStringList texts() const;
    void clear();
};

}  // namespace plouvarine::testing
