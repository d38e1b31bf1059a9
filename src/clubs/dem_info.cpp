#include "src/clubs/dem_info.h"

#include "src/clubs/utils_club.h"
#include "src/clubs/utils_profils.h"
#include "src/frame/status_lines.h"
#include "src/frame/app_context.h"
#include "src/frame/keywords.h"

namespace plouvarine {

DemInfo::DemInfo(AppContext& app, const QString& name, const QString& keyword, const QString& num,
                 const QString& code, const QString& nom)
    : View(app, name), keyword_(keyword), num_(num)
{
    set_title(obligatory() ? QStringLiteral("Nouveau Club") : QStringLiteral("Information club"));
    set_nom(nom);
    set_code(code);
    if (obligatory() || keyword_ == keyword::kNouveau) {
        try {
            cancel_enabled_ = ExisteClubVisible(app) > 0;
        } catch (const std::exception&) {
            cancel_enabled_ = true;
        }
    }
}

void DemInfo::set_nom(const QString& text)
{
    qsizetype start = 0;
    while (start < text.size() && text.at(start) == QLatin1Char(' '))
        ++start;
    nom_ = text.mid(start);
    changed();
}

bool DemInfo::code_key_accepted(QChar c)
{
    return c.isLetterOrNumber() || c == QChar(8) || c == QChar(13);
}

void DemInfo::set_code(const QString& text)
{
    QString kept;
    for (const QChar c : text)
        if (c.isLetterOrNumber())
            kept += c.toUpper();
    code_ = kept;
    changed();
}

bool DemInfo::ok_enabled() const
{
    return !fields_locked() && !nom_.isEmpty() && code_.size() >= kClubCodeLength;
}

void DemInfo::aide()
{
    if (fields_locked())
        return;
    QString field = code_;
    if (AideCodeClub(app(), field))
        set_code(field);
}

bool DemInfo::confirm()
{
    if (!ok_enabled())
        return false;
    AppContext& a = app();
    try {
        if (keyword_ == keyword::kModif && !obligatory()) {
            if (ClubExiste(a, code_, num_, true, QStringLiteral("Modification annulée.")))
                return false;
            if (!ModifieClub(a, code_, nom_, num_, {}))
                return false;
            read_profile(a, false);
        } else {
            const QString prefix = obligatory() ? QStringLiteral("Sauvegarde annulée") : QStringLiteral("Sauvegarde annulée.");
            if (ClubExiste(a, code_, {}, true, prefix))
                return false;
            if (!AjouteClub(a, code_, nom_))
                return false;
        }
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QStringLiteral("Une erreur s'est produite lors de la sauvegarde du club."), &e);
        return false;
    }
    cancel_enabled_ = true;
    a.changes.changed(Subject::Clubs, num_, keyword_ != keyword::kModif || obligatory());
    status_text(a.ui, kStatusClubSaved);
    close();
    return true;
}

void DemInfo::cancel()
{
    if (!cancel_enabled_)
        return;
    close();
}

bool DemInfo::query_close()
{
    return cancel_enabled_;
}

}  // namespace plouvarine
