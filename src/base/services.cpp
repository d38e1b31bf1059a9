#include "src/base/services.h"

#include "src/base/errors.h"

#include <QFileInfo>

namespace plouvarine {

namespace {

QString pending_prefix(const std::exception* pending)
{
    if (!pending)
        return {};
    if (auto* err = dynamic_cast<const Error*>(pending))
        return QStringLiteral("Erreur n° %1, %2\n").arg(QString::number(err->number()).trimmed(), err->description());
    return QStringLiteral("Erreur n° 0, %1\n").arg(QString::fromLocal8Bit(pending->what()));
}

}  // namespace

QString choose_file(Services& ui, const FileDialogRequest& request)
{
    const QString path = ui.file_dialog(request);
    const QString suffix = QLatin1Char('.') + request.default_suffix;
    if (path.isEmpty() || request.default_suffix.isEmpty() || path.endsWith(suffix, Qt::CaseInsensitive))
        return path;
    // A file that must exist takes the suffix only when that names one.
    if (request.must_exist && !QFileInfo::exists(path + suffix))
        return path;
    return path + suffix;
}

void msg_erreur(Services& ui, const QString& text, const std::exception* pending)
{
    ui.message_box({QStringLiteral("Erreur"), pending_prefix(pending) + text, MsgIcon::Stop, false, Button::Ok});
}

Button msg_confirm(Services& ui, const QString& text, int style)
{
    const Button def = (style & kDefaultNo) ? Button::No : Button::Yes;
    return ui.message_box({QStringLiteral("Confirmation"), text, MsgIcon::Question, true, def});
}

void msg_info(Services& ui, const QString& text)
{
    ui.message_box({QStringLiteral("Information"), text, MsgIcon::Information, false, Button::Ok});
}

void msg_erreur_base(Services& ui, const QString& text, const std::exception* pending)
{
    QString full = text;
    if (!full.isEmpty())
        full += QLatin1Char('\n');
    full += QStringLiteral("Erreur lors de la connexion à la base.");
    msg_erreur(ui, full, pending);
}

void msg_club_double(Services& ui, const QString& text)
{
    msg_erreur(ui, text + QStringLiteral("Un club avec le même code existe déjà."));
}

void status_text(Services& ui, const QString& text)
{
    ui.set_status(2, text);
}

}  // namespace plouvarine
