#include "src/clubs/liste_profil.h"

#include "src/clubs/det_profil.h"
#include "src/clubs/utils_profils.h"
#include "src/frame/status_lines.h"
#include "src/frame/app_context.h"
#include "src/frame/keywords.h"
#include "src/frame/list_helpers.h"
#include "src/base/sql_text.h"

namespace plouvarine {

MenuLocks FrmListeProfil::locks_for(const QString& keyword)
{
    if (keyword == keyword::kModif || keyword == keyword::kSuppr)
        return {whole_group(LockGroup::Profile)};
    return locks_on({QStringLiteral("mnuBaseProfilSuppr")});
}

FrmListeProfil::FrmListeProfil(AppContext& app, const QString& keyword) : View(app, QString(kName)), keyword_(keyword)
{
    set_title(QStringLiteral("Liste Profils"));
    follow(Subject::Profiles, [this](const Change&) { set_liste(); });
}

void FrmListeProfil::set_ok_caption(const QString& caption)
{
    ok_caption_ = caption;
    changed();
}

void FrmListeProfil::set_liste()
{
    status_text(app().ui, QStringLiteral("Chargement de la liste des profils"));
    list_.clear();
    list_.setHorizontalHeaderLabels({QStringLiteral("Profil"), QStringLiteral("Utilisé")});
    try {
        const Rows rows = app().db.load_rows(QStringLiteral("SELECT Libelle, LastUse, Num, Code_club from Profil"));
        for (int r = 0; r < rows.size(); ++r) {
            auto* name = new QStandardItem(rows.value(r, 0));
            name->setEditable(false);
            name->setData(rows.value(r, 2), kKeyRole);
            name->setData(rows.value(r, 3), kProfileCodeRole);
            auto* used = new QStandardItem(rows.value(r, 1) == QLatin1String("Vrai") ? QStringLiteral("X") : QString());
            used->setEditable(false);
            list_.appendRow({name, used});
        }
    } catch (const std::exception&) {
        list_.removeRows(0, list_.rowCount());
    }
    marked_.clear();
    if (list_.rowCount() > 0)
        select_row_at(selection_, 0);
    status_text(app().ui, QString());
    changed();
}

void FrmListeProfil::ok()
{
    const QModelIndex current = selection_.currentIndex();
    if (keyword_ == keyword::kSuppr) {
        mark_selected();
        return;
    }
    if (!current.isValid())
        return;
    const int row = current.row();
    const QString name = list_.item(row, 0)->text();
    AppContext& a = app();
    if (keyword_ == keyword::kChoisir) {
        try {
            choose_profile(a, name, true);
        } catch (const std::exception& e) {
            msg_erreur(a.ui, QString(), &e);
            return;
        }
        close();
        return;
    }
    // "View", "Modif": the profile in det_profil.
    if (a.windows.check_window_open(QString(DetProfil::kName)))
        return;
    auto detail = std::make_unique<DetProfil>(a, QString(DetProfil::kName), keyword_);
    detail->set_nom(name);
    const QString code = list_.item(row, 0)->data(kProfileCodeRole).toString();
    QString club;
    try {
        club = a.db.load_rows(QStringLiteral("select Intitule from Club where Code_federal = ") + quote_sql(code))
                   .first();
    } catch (const std::exception&) {
    }
    detail->set_code(code, club);
    detail->set_source(&list_, row);
    if (!detail->register_window(this->name()))
        return;
    a.ui.show_window(std::move(detail));
}

void FrmListeProfil::mark_selected()
{
    if (keyword_ != keyword::kSuppr)
        return;
    marked_ << take_selected_rows(list_, selection_);
    changed();
}

void FrmListeProfil::confirm_deletion()
{
    if (marked_.isEmpty())
        return;
    AppContext& a = app();
    QStringList condition;
    for (const QString& num : marked_)
        condition << QStringLiteral("Num = ") + sql_key(num);
    bool deleted = false;
    try {
        a.db.exec_sql(QStringLiteral("Delete from Profil where ") + condition.join(QStringLiteral(" or ")));
        deleted = true;
        marked_.clear();
        read_profile(a, false);
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QString(), &e);
    }
    set_liste();
    if (deleted)
        status_text(a.ui, kStatusDeleted);
}


FrmListeProfilObli::FrmListeProfilObli(AppContext& app) : View(app, QString(kName))
{
    set_title(QStringLiteral("Selection d'un profil"));
    list_.setHorizontalHeaderLabels({QStringLiteral("Profil")});
    try {
        fill_collections(app.db, QStringLiteral("SELECT Libelle FROM Profil"), {ListFill{&list_, {0}}});
        list_.setHorizontalHeaderLabels({QStringLiteral("Profil")});
    } catch (const std::exception&) {
        list_.removeRows(0, list_.rowCount());
    }
    if (list_.rowCount() > 0)
        select_row_at(selection_, 0);
}

void FrmListeProfilObli::confirm()
{
    const QModelIndex current = selection_.currentIndex();
    if (!current.isValid())
        return;
    const QString name = list_.item(current.row(), 0)->text();
    close();
    try {
        choose_profile(app(), name, false);
    } catch (const std::exception& e) {
        msg_erreur(app().ui, QString(), &e);
    }
}

}  // namespace plouvarine
