#include "support/scripted_services.h"

#include "src/reports/rtf_writer.h"

#include <QFileInfo>
#include <QPdfWriter>
#include <QTextDocument>
#include <algorithm>

namespace plouvarine::testing {

namespace {

// The next scripted answer, or `fallback` when the script has run out.
template <typename T>
T take(std::deque<T>& queue, T fallback)
{
    if (queue.empty())
        return fallback;
    T front = queue.front();
    queue.pop_front();
    return front;
}

}  // namespace

Button ScriptedServices::message_box(const Message& message)
{
    messages.push_back(message);
    return message.yes_no ? take(answers, message.default_button) : Button::Ok;
}

QString ScriptedServices::file_dialog(const FileDialogRequest& request)
{
    file_requests.push_back(request);
    return take(files, QString()).trimmed();
}

QString ScriptedServices::browse_folder(const QString& prompt)
{
    folder_prompts << prompt;
    return take(folders, QString());
}

void ScriptedServices::show_report(const QString& title, const std::vector<ReportLine>& lines)
{
    reports.push_back({title, lines});
}

void ScriptedServices::set_status(int panel, const QString& text)
{
    if (panel >= 1 && panel <= 2)
        status[panel] = text;
    if (panel == 2 && !text.isEmpty())
        status_history << text;
}

void ScriptedServices::push_wait_cursor()
{
    max_wait_depth = std::max(max_wait_depth, ++wait_depth);
}

void ScriptedServices::pop_wait_cursor()
{
    --wait_depth;
}

void ScriptedServices::show_modal(View& view)
{
    shown_views << view.name();
    if (draw_with) {
        draw_with->show_modal(view);
        return;
    }
    const auto driver = drivers.find(view.name());
    if (driver != drivers.end() && driver->second)
        driver->second(view);
    if (!view.is_closed() && view.query_close())
        view.close();
}

void ScriptedServices::show_window(std::unique_ptr<View> view)
{
    shown_views << view->name();
    if (draw_with) {
        draw_with->show_window(std::move(view));
        return;
    }
    windows.push_back(std::move(view));
}

View* ScriptedServices::window(const QString& name) const
{
    for (const auto& w : windows)
        if (w->name() == name && !w->is_closed())
            return w.get();
    return nullptr;
}

bool ScriptedServices::close_window(const QString& name)
{
    View* w = window(name);
    if (!w || !w->query_close())
        return false;
    w->close();
    return true;
}

void ScriptedServices::drop_windows()
{
    for (auto& w : windows)
        w->close();
    windows.clear();
}

bool ScriptedServices::print_document(const QString& title, const QTextDocument& document, const PageSetup& page)
{
    if (!print_answer)
        return false;
    printed.push_back({title, document.toPlainText(), document.toHtml(), write_rtf(document),
                       page.header ? page.header->toPlainText() : QString(),
                       page.footer ? page.footer->toPlainText() : QString()});
    if (!print_pdf.isEmpty()) {
        QPdfWriter pdf(print_pdf);
        pdf.setTitle(title);
        document.print(&pdf);
    }
    return true;
}

bool ScriptedServices::open_document(const QString& path)
{
    opened_documents << path;
    return open_answer;
}

bool ScriptedServices::write_pdf(const QString& path, const QString& title, const QTextDocument& document,
                                 const PageSetup&)
{
    {
        QPdfWriter pdf(path);
        pdf.setTitle(title);
        document.print(&pdf);
    }
    pdfs << path;
    return QFileInfo(path).size() > 0;
}

bool ScriptedServices::progress(const QString&, int done, int)
{
    progress_shown = true;
    return cancel_at < 0 || done < cancel_at;
}

std::vector<Message> ScriptedServices::titled(const QString& title) const
{
    std::vector<Message> out;
    for (const auto& m : messages)
        if (m.title == title)
            out.push_back(m);
    return out;
}

QStringList ScriptedServices::texts() const
{
    QStringList out;
    for (const auto& m : messages)
        out << m.text;
    return out;
}

void ScriptedServices::clear()
{
    messages.clear();
    file_requests.clear();
    folder_prompts.clear();
    status_history.clear();
    reports.clear();
    shown_views.clear();
    printed.clear();
    pdfs.clear();
    opened_documents.clear();
}

}  // namespace plouvarine::testing
