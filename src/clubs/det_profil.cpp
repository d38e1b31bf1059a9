#include "src/clubs/det_profil.h"

#include "src/clubs/liste_club.h"
#include "src/clubs/liste_profil.h"
#include "src/clubs/utils_profils.h"
#include "src/frame/app_context.h"
#include "src/frame/keywords.h"
#include "src/frame/list_helpers.h"
#include "src/base/sql_text.h"

#include <QStandardItemModel>

namespace plouvarine {

namespace {

QString caption_for(const QString& name, const QString& keyword)
{
    if (name == DetProfil::kObliName)
        return QStringLiteral("Création profil");
    if (keyword == keyword::kModif)
        return QStringLiteral("Modification d'un profil");
    if (keyword == keyword::kView)
        return QStringLiteral("Information profil");
    return QStringLiteral("Création d'un profil");
}

}  // namespace

DetProfil::DetProfil(AppContext& app, const QString& name, const QString& keyword)
    : View(app, name), keyword_(keyword)
{
    set_title(caption_for(name, keyword));
}

void DetProfil::set_nom(const QString& text)
{
    nom_ = text;
    changed();
}

void DetProfil::set_code(const QString& code, const QString& club_name)
{
    code_ = code;
    club_name_ = club_name;
    changed();
}

void DetProfil::set_source(const QStandardItemModel* list, int row)
{
    source_ = list;
    source_row_ = row;
}

void DetProfil::choose_club()
{
    if (fields_locked())
        return;
    auto take = [this](const QString& code, const QString& name) { set_code(code, name); };
    if (obligatory()) {
        FrmListeClubObli clubs(app());
        clubs.on_chosen = take;
        if (clubs.register_window(this->name()))
            app().ui.show_modal(clubs);
        return;
    }
    FrmListeClub clubs(app(), QString(keyword::kListeClubPourProfil));
    clubs.set_title(QStringLiteral("Choix d'un club à lier au profil"));
    clubs.set_ok_caption(QStringLiteral("&Choisir"));
    clubs.on_chosen = take;
    if (!clubs.register_window(this->name()))
        return;
    clubs.set_liste();
    app().ui.show_modal(clubs);
}

bool DetProfil::duplicate_in_source() const
{
    if (!source_)
        return false;
    for (int row = 0; row < source_->rowCount(); ++row)
        if (row != source_row_ && source_->index(row, 0).data().toString().compare(nom_, Qt::CaseInsensitive) == 0)
            return true;
    return false;
}

bool DetProfil::confirm()
{
    if (!ok_enabled())
        return false;
    AppContext& a = app();
    const QString duplicate = QStringLiteral("Un profil de même nom existe déjà.\nImpossible de le sauvegarder.");
    try {
        if (keyword_ == keyword::kModif && !obligatory()) {
            if (duplicate_in_source()) {
                msg_erreur(a.ui, duplicate);
                return false;
            }
            const QString num = source_ ? row_key(*source_, source_row_) : QString();
            const QString old_code =
                source_ ? source_->index(source_row_, 0).data(kProfileCodeRole).toString() : QString();
            if (num.isEmpty())
                return false;
            a.db.exec_sql(QStringLiteral("Update Profil Set ") + sql_set(profile_fields(code_, nom_))
                          + QStringLiteral(" where Num = ") + sql_key(num));
            // The profile's work was done for its old club.
            if (code_ != old_code)
                purge_profile_entries(a, num);
            read_profile(a, false);
        } else {
            if (a.db.count_query(QStringLiteral("select count(*) from Profil where Libelle =") + quote_sql(nom_))
                >= 1) {
                msg_erreur(a.ui, duplicate);
                return false;
            }
            if (!AjouteProfil(a, code_, nom_))
                return false;
            if (a.db.count_query(QStringLiteral("select count(*) from Profil")) == 1) {
                a.db.exec_sql(QStringLiteral("Update Profil Set LastUse = true"));
                read_profile(a, false);
            }
        }
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QStringLiteral("Une erreur s'est produite lors de la sauvegarde du profil."), &e);
        return false;
    }
    // The forced view too closes here, once its profile exists.
    source_ = nullptr;
    a.changes.changed(Subject::Profiles, {}, keyword_ != keyword::kModif || obligatory());
    close();
    return true;
}

void DetProfil::cancel()
{
    if (obligatory())
        return;
    close();
}

}  // namespace plouvarine
