#pragma once
// The one boundary between the core and the person: message boxes, file and
// folder dialogs, the status bar, the wait cursor. The Qt application implements
// it with real dialogs; the tests implement it with scripted answers.

#include "src/base/page_setup.h"

#include <QString>
#include <exception>
#include <memory>
#include <vector>

class QTextDocument;

namespace plouvarine {

class View;

// Button values of the platform's message box: Yes is 6, No is 7.
enum class Button { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

enum class MsgIcon { Stop, Question, Information };

// Style bits of msg_confirm: 0 puts the default on Yes, 256 on No.
constexpr int kDefaultYes = 0;
constexpr int kDefaultNo = 256;

struct Message {
    QString title;
    QString text;
    MsgIcon icon = MsgIcon::Information;
    bool yes_no = false;              // Yes and No buttons, else OK alone
    Button default_button = Button::Ok;
};

struct FileDialogRequest {
    QString title;
    QString filter;                   // "Label (*.ext)|*.ext", as the commands write it
    bool save = false;                // the Save form, else the Open form
    bool must_exist = false;          // Open: the file must exist
    bool confirm_overwrite = false;   // Save: ask before replacing a file
    QString default_suffix;           // "mdb": added to a name typed without it
};

// One line of a report window (the upgrade report), red when it tells an error.
struct ReportLine {
    QString text;
    bool error = false;
};

class Services {
public:
    virtual ~Services() = default;

    // The single call to the platform's message box; gives the button pressed.
    virtual Button message_box(const Message& message) = 0;
    // Gives the trimmed chosen path, or the empty text on cancel.
    virtual QString file_dialog(const FileDialogRequest& request) = 0;
    // The folder browser with its prompt; the empty text on cancel.
    virtual QString browse_folder(const QString& prompt) = 0;
    // A report window, shown modally with its one close button.
    virtual void show_report(const QString& title, const std::vector<ReportLine>& lines) = 0;
    // Status bar: panel 1 holds the profile, panel 2 the running step's caption.
    virtual void set_status(int panel, const QString& text) = 0;
    // Wait cursor, nested: each push is matched by one pop.
    virtual void push_wait_cursor() = 0;
    virtual void pop_wait_cursor() = 0;

    // The window of `view`, shown modally: returns once the view is closed.
    virtual void show_modal(View& view) = 0;
    // The window of `view` among the child windows of the main window. The
    // window owns the view and destroys it after it has closed.
    virtual void show_window(std::unique_ptr<View> view) = 0;
    // Puts in front the modal window named `name`, if one of show_modal is
    // shown; true when one was. Child windows are the main window's to raise.
    virtual bool bring_to_front(const QString& name) { return false; }
    // Prints `document` under `title` on the pages of `page`: the printer
    // choice, with a preview and PDF output. False when the person cancels.
    virtual bool print_document(const QString& title, const QTextDocument& document,
                                const PageSetup& page = PageSetup()) = 0;
    // Writes `document` under `title` as the PDF file `path`, with no dialog.
    // False when the file could not be written.
    virtual bool write_pdf(const QString& path, const QString& title, const QTextDocument& document,
                           const PageSetup& page = PageSetup()) = 0;
    // The progress of a run of `total` steps, `done` of them over, under
    // `caption`; false once the person has asked to stop. progress_end takes
    // the progress away.
    virtual bool progress(const QString& caption, int done, int total) = 0;
    virtual void progress_end() = 0;
    // Opens the document at `path` (the user guide) with the desktop's own
    // program for its kind; false when none could open it.
    virtual bool open_document(const QString& path) = 0;
};

// The file dialog, with the request's default suffix added to a chosen name
// that lacks it, whatever the dialog did: a base typed "club" is "club.mdb".
// When the file must exist, only if "club.mdb" does.
QString choose_file(Services& ui, const FileDialogRequest& request);

// The message helpers every command uses. `pending` is the error caught by the
// command, if any: its number and description come before the text.
void msg_erreur(Services& ui, const QString& text, const std::exception* pending = nullptr);
Button msg_confirm(Services& ui, const QString& text, int style);
void msg_info(Services& ui, const QString& text);
void msg_erreur_base(Services& ui, const QString& text, const std::exception* pending = nullptr);
void msg_club_double(Services& ui, const QString& text);
// Caption of the running step in the second panel of the status bar.
void status_text(Services& ui, const QString& text);

// Shows the wait cursor for the life of the guard.
class WaitCursor {
public:
    explicit WaitCursor(Services& ui) : ui_(&ui) { ui_->push_wait_cursor(); }
    ~WaitCursor() { release(); }
    // Brings the normal cursor back before the guard ends (before a dialog, say).
    void release() { if (ui_) { ui_->pop_wait_cursor(); ui_ = nullptr; } }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

private:
    Services* ui_;
};

}  // namespace plouvarine
