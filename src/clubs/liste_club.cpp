#include "src/clubs/liste_club.h"

#include "src/clubs/dem_info.h"
#include "src/clubs/utils_club.h"
#include "src/clubs/utils_profils.h"
#include "src/frame/status_lines.h"
#include "src/frame/app_context.h"
#include "src/frame/keywords.h"
#include "src/frame/list_helpers.h"
#include "src/base/sql_text.h"

namespace plouvarine {

namespace {

// Fills a two-column club list from (code, name, num) rows.
void fill_clubs(Database& db, QStandardItemModel& list, const QString& sql)
{
    list.clear();
    list.setHorizontalHeaderLabels({QStringLiteral("Code Club"), QStringLiteral("Libellé Club")});
    const Rows rows = db.load_rows(sql);
    for (int r = 0; r < rows.size(); ++r) {
        auto* code = new QStandardItem(rows.value(r, 0));
        code->setEditable(false);
        code->setData(rows.value(r, 0), kClubCodeRole);
        code->setData(rows.value(r, 1), kClubNameRole);
        if (rows.column_count() > 2)
            code->setData(rows.value(r, 2), kKeyRole);
        auto* name = new QStandardItem(rows.value(r, 1));
        name->setEditable(false);
        list.appendRow({code, name});
    }
}

}  // namespace

MenuLocks FrmListeClub::locks_for(const QString& keyword)
{
    if (keyword == keyword::kModif || keyword == keyword::kSuppr)
        return {whole_group(LockGroup::Club)};
    if (keyword == keyword::kView)
        return locks_on({QStringLiteral("mnuBaseClubListe"), QStringLiteral("mnuBaseClubSuppr")});
    return {};
}

FrmListeClub::FrmListeClub(AppContext& app, const QString& keyword) : View(app, QString(kName)), keyword_(keyword)
{
    follow(Subject::Clubs, [this](const Change&) { set_liste(); });
}

void FrmListeClub::set_ok_caption(const QString& caption)
{
    ok_caption_ = caption;
    changed();
}

void FrmListeClub::set_liste()
{
    status_text(app().ui, QStringLiteral("Chargement de la liste des clubs"));
    try {
        fill_clubs(app().db, list_,
                   sql_.isEmpty() ? QStringLiteral("SELECT Code_federal, Intitule, Num FROM Club where Visible = true order by Intitule")
                                  : sql_);
    } catch (const std::exception&) {
        list_.removeRows(0, list_.rowCount());
    }
    marked_.clear();
    if (list_.rowCount() > 0)
        select_row_at(selection_, 0);
    status_text(app().ui, QString());
    changed();
}

bool FrmListeClub::ok_visible() const
{
    return !(keyword_ == keyword::kView && ok_caption_.isEmpty());
}

bool FrmListeClub::ok_enabled() const
{
    if (keyword_ == keyword::kSuppr)
        return list_.rowCount() > 0 && selection_.currentIndex().isValid();
    return selected_row().has_value();
}

std::optional<int> FrmListeClub::selected_row() const
{
    const QModelIndex current = selection_.currentIndex();
    if (!current.isValid() || current.row() >= list_.rowCount())
        return std::nullopt;
    return current.row();
}

void FrmListeClub::ok()
{
    const auto row = selected_row();
    if (keyword_ == keyword::kSuppr) {
        mark_selected();
        return;
    }
    if (!row)
        return;
    const QStandardItem* item = list_.item(*row, 0);
    const QString code = item->data(kClubCodeRole).toString();
    const QString name = item->data(kClubNameRole).toString();
    if (keyword_ == keyword::kModif || keyword_ == keyword::kView) {
        if (app().windows.check_window_open(QString(DemInfo::kName)))
            return;
        auto detail = std::make_unique<DemInfo>(app(), QString(DemInfo::kName), keyword_,
                                                item->data(kKeyRole).toString(), code, name);
        if (!detail->register_window(this->name()))
            return;
        app().ui.show_window(std::move(detail));
        return;
    }
    // "Choisir", "liste club pour profil": the club goes back to the caller.
    chosen_code_ = code;
    chosen_name_ = name;
    if (on_chosen)
        on_chosen(code, name);
    close();
}

void FrmListeClub::mark_selected()
{
    if (keyword_ != keyword::kSuppr)
        return;
    marked_ << take_selected_rows(list_, selection_);
    changed();
}

void FrmListeClub::confirm_deletion()
{
    AppContext& a = app();
    bool deleted = false;
    if (!marked_.isEmpty()) {
        status_text(a.ui, QStringLiteral("Suppression des clubs et des licenciés"));
        QStringList numeric, quoted;
        for (const QString& num : marked_) {
            numeric << QStringLiteral("Num = ") + sql_key(num);
            quoted << QStringLiteral("Code_Club = ") + quote_sql(num);
        }
        deleted =
            SupprimeClubs(a, numeric.join(QStringLiteral(" or ")), quoted.join(QStringLiteral(" or ")));
        marked_.clear();
        status_text(a.ui, QString());
    }
    // The base must always hold a club.
    int visible = 1;
    try {
        visible = ExisteClubVisible(a);
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QString(), &e);
    }
    if (visible == 0) {
        DemInfo forced(a, QString(DemInfo::kObliName), QString(keyword::kNouveau));
        if (forced.register_window())
            a.ui.show_modal(forced);
    }
    try {
        read_profile(a, false);
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QString(), &e);
    }
    set_liste();
    if (deleted)
        status_text(a.ui, kStatusDeleted);
}


FrmListeClubObli::FrmListeClubObli(AppContext& app) : View(app, QString(kName))
{
    set_title(QStringLiteral("Selection d'un club"));
    try {
        fill_clubs(app.db, list_,
                   QStringLiteral("SELECT Code_federal, Intitule FROM Club where Visible = true order by Intitule"));
    } catch (const std::exception&) {
        list_.removeRows(0, list_.rowCount());
    }
    if (list_.rowCount() > 0)
        select_row_at(selection_, 0);
}

void FrmListeClubObli::confirm()
{
    const QModelIndex current = selection_.currentIndex();
    if (!current.isValid())
        return;
    const QStandardItem* item = list_.item(current.row(), 0);
    if (on_chosen)
        on_chosen(item->data(kClubCodeRole).toString(), item->data(kClubNameRole).toString());
    close();
}

}  // namespace plouvarine
