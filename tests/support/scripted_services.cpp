#include "support/scripted_services.h"

#include "src/reports/rtf_writer.h"

#include <QFileInfo>
#include <QPdfWriter>
#include <QTextDocument>

namespace plouvarine::testing {

Button ScriptedServices::message_box(const Message& message)
{
    messages.push_back(message);
    if (!message.yes_no)
        return Button::Ok;
    if (answers.empty())
        return message.default_button;
    const Button b = answers.front();
    answers.pop_front();
    return b;
}

QString ScriptedServices::file_dialog(const FileDialogRequest& request)
{
    file_requests.push_back(request);
    if (files.empty())
        return {};
    QString f = files.front();
    files.pop_front();
    return f.trimmed();
}

QString ScriptedServices::browse_folder(const QString& prompt)
{
    folder_prompts << prompt;
    if (folders.empty())
        return {};
    QString f = folders.front();
    folders.pop_front();
    return f;
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
    ++wait_depth;
    if (wait_depth > max_wait_depth)
        max_wait_depth = wait_depth;
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

bool ScriptedServices::progress(const QString& caption, int done, int total)
{
    progress_shown = true;
    progress_history << QStringLiteral("%1 (%2/%3)").arg(caption).arg(done).arg(total);
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
    progress_history.clear();
    opened_documents.clear();
}

}  // namespace plouvarine::testing
