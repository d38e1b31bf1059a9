#include "support/scripted_services.h"

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
}

}  // namespace plouvarine::testing
