#include "src/competitions/liste_compet.h"

#include "src/competitions/handoff.h"
#include "src/competitions/utils_compet.h"
#include "src/frame/status_lines.h"
#include "src/frame/app_context.h"
#include "src/frame/keywords.h"
#include "src/frame/list_helpers.h"
#include "src/base/sql_text.h"
#include "src/base/utils_date.h"

#include <algorithm>

namespace plouvarine {

namespace {

bool is_entry_mode(const QString& mode)
{
    return mode == keyword::kChoixPourEngagements || mode == keyword::kChoixPourEngagementsRelais ||
           mode == keyword::kDisk || mode == keyword::kImprimConvoc || mode == keyword::kImprimBordereau;
}

constexpr int kResColumn = 4;

}  // namespace

MenuLocks FrmListeCompet::locks_for(const QString& mode)
{
    if (mode == keyword::kModif || mode == keyword::kSuppr)
        return {whole_group(LockGroup::Competition), whole_group(LockGroup::Entry)};
    if (mode == keyword::kView)
        return locks_on({QStringLiteral("mnuCompetSuppr")});
    if (mode == keyword::kImporRes)
        return locks_on({QStringLiteral("mnuCompetModif"), QStringLiteral("mnuCompetSuppr"),
                         QStringLiteral("mnuCompetVoirResult")});
    if (mode == keyword::kModifProg || is_entry_mode(mode))
        return locks_on({QStringLiteral("mnuCompetModif"), QStringLiteral("mnuCompetSuppr")});
    return {};
}

QStringList FrmListeCompet::busy_windows(const QString& mode)
{
    if (mode == keyword::kModifProg)
        return {QStringLiteral("frm_prog")};
    if (is_entry_mode(mode))
        return {QStringLiteral("frm_engag"), QStringLiteral("frm_engag_relais"), QStringLiteral("frm_convocation")};
    return {};
}

FrmListeCompet::FrmListeCompet(AppContext& app, const QString& mode) : View(app, QString(kName)), mode_(mode)
{
    if (mode_ == keyword::kSuppr)
        empty_tempo();
    // A competition saved elsewhere shows here at once, selected.
    follow(Subject::Competitions, [this](const Change& change) {
        ReloadListe(change.key.isEmpty() ? current_autonum() : change.key);
    });
}

void FrmListeCompet::empty_tempo()
{
    if (app().db.is_open())
        app().db.clear_table(QStringLiteral("Rcomp_tempo"));
}

void FrmListeCompet::set_action_caption(const QString& caption)
{
    caption_ = caption;
    changed();
}

void FrmListeCompet::set_liste(const QString& title, const QString& sql)
{
    set_title(title);
    QString statement = sql;
    if (statement.isEmpty())
        statement = QStringLiteral("select AutoNum, Num, Nom, Debut, Fin, Lieu from Rcomp ") +
                    QStringLiteral("where Deroule = ") + bool_text(mode_ == keyword::kImporRes) +
                    QStringLiteral(" and visible = true order by Debut");
    const qsizetype cut = statement.toLower().indexOf(QStringLiteral(" order by"));
    sql_base_ = cut < 0 ? statement : statement.left(cut);
    order_ = cut < 0 ? QString() : statement.mid(cut + 1);
    sort_column_.clear();
    descending_ = false;
    ReloadListe(QString());
}

void FrmListeCompet::load(const QString& sql)
{
    list_.clear();
    QStringList headers{QStringLiteral("Num"), QStringLiteral("Nom"), QStringLiteral("lieu"),
                        QStringLiteral("Date Début")};
    if (mode_ == keyword::kImporRes)
        headers << QStringLiteral("Res");
    list_.setHorizontalHeaderLabels(headers);
    const Rows rows = app().db.load_rows(sql);
    for (int r = 0; r < rows.size(); ++r) {
        auto* num = fixed_cell(rows.value(r, 1));
        num->setData(rows.value(r, 0), kKeyRole);
        const QString dates = DateLongue(rows.value(r, 3), QStringLiteral("d/mm")) + QStringLiteral(" - ") +
                              DateLongue(rows.value(r, 4), QString::fromLatin1(kFormatDateCourte));
        QList<QStandardItem*> line{num, fixed_cell(rows.value(r, 2)), fixed_cell(rows.value(r, 5)), fixed_cell(dates)};
        if (mode_ == keyword::kImporRes)
            line << fixed_cell(QString());
        list_.appendRow(line);
    }
    if (mode_ == keyword::kImporRes)
        mark_results();
    const bool filled = list_.rowCount() > 0;
    cmd2_enabled_ = filled;
    if (!filled)
        cmd1_enabled_ = false;
}

void FrmListeCompet::mark_results()
{
    const Rows rows = app().db.load_rows(QStringLiteral("SELECT Num_compet FROM Prres GROUP BY Num_compet"));
    for (int r = 0; r < rows.size(); ++r)
        if (const auto row = find_key(list_, rows.value(r, 0)))
            list_.item(*row, kResColumn)->setText(QStringLiteral("X"));
}

void FrmListeCompet::ReloadListe(const QString& autonum)
{
    try {
        load(sql_base_ + QLatin1Char(' ') + order_);
    } catch (const std::exception& e) {
        msg_erreur(app().ui, QStringLiteral("Une erreur s'est produite."), &e);
    }
    if (const auto row = find_key(list_, autonum))
        select_row_at(selection_, *row);
    else if (list_.rowCount() > 0)
        select_row_at(selection_, 0);
    changed();
}

QString FrmListeCompet::current_autonum() const
{
    const QModelIndex current = selection_.currentIndex();
    if (!current.isValid() || current.row() >= list_.rowCount())
        return {};
    return row_key(list_, current.row());
}

void FrmListeCompet::sort_by_column(int column)
{
    static const char* const kColumns[] = {"Num", "Nom", "Lieu", "Debut"};
    if (column < 1 || column > 4)
        return;
    const QString name = QLatin1String(kColumns[column - 1]);  // sorted_column() reads them back
    descending_ = name == sort_column_ ? !descending_ : false;
    sort_column_ = name;
    order_ = QStringLiteral("order by ") + name + (descending_ ? QStringLiteral(" DESC") : QString());
    ReloadListe(current_autonum());
}

int FrmListeCompet::sorted_column() const
{
    static const QStringList kColumns{QStringLiteral("Num"), QStringLiteral("Nom"), QStringLiteral("Lieu"),
                                      QStringLiteral("Debut")};
    return int(kColumns.indexOf(sort_column_)) + 1;
}

bool FrmListeCompet::cmd3_visible() const
{
    return mode_ == keyword::kImporRes;
}

void FrmListeCompet::cmd0()
{
    try {
        if (mode_ == keyword::kSuppr) {
            const bool deleted = app().db.count_query(QStringLiteral("select count(*) from Rcomp_tempo")) > 0;
            empty_tempo();
            if (deleted)
                status_text(app().ui, kStatusDeleted);
        } else if (mode_ == kChooseForProg) {
            const QString autonum = current_autonum();
            if (autonum.isEmpty())
                return;
            if (on_chosen)
                on_chosen(autonum);
        }
    } catch (const std::exception& e) {
        msg_erreur(app().ui, QStringLiteral("Une erreur s'est produite."), &e);
        return;
    }
    close();
}

void FrmListeCompet::cmd1()
{
    if (mode_ == keyword::kSuppr) {
        try {
            undo_deletion();
        } catch (const std::exception& e) {
            msg_erreur(app().ui, QStringLiteral("Une erreur s'est produite."), &e);
            return;
        }
    }
    close();
}

void FrmListeCompet::undo_deletion()
{
    AppContext& a = app();
    a.db.exec_sql(QStringLiteral(
        "Update Rcomp Set Visible = true where AutoNum in (select AutoNum from Rcomp_tempo)"));
    empty_tempo();
}

bool FrmListeCompet::query_close()
{
    if (mode_ == keyword::kSuppr) {
        try {
            undo_deletion();
        } catch (const std::exception& e) {
            msg_erreur(app().ui, QStringLiteral("Une erreur s'est produite."), &e);
        }
    }
    return true;
}

void FrmListeCompet::cmd2()
{
    const QString autonum = current_autonum();
    if (autonum.isEmpty() || mode_ == keyword::kView)
        return;
    AppContext& a = app();
    try {
        if (mode_ == keyword::kModif) {
            OuvrirDetCompet(a, QString(keyword::kModif), QStringLiteral("Modification de la compétition"), name(),
                            autonum);
        } else if (mode_ == keyword::kSuppr) {
            hide_selection();
        } else if (mode_ == kChooseForProg) {
            cmd0();
        } else {
            hand_off(autonum);
        }
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QStringLiteral("Une erreur s'est produite."), &e);
    }
}

void FrmListeCompet::cmd3()
{
    if (!cmd3_visible())
        return;
    try {
        hand_off(QString());
    } catch (const std::exception& e) {
        msg_erreur(app().ui, QStringLiteral("Une erreur s'est produite."), &e);
    }
}

void FrmListeCompet::hand_off(const QString& autonum)
{
    AppContext& a = app();
    for (const QString& window : busy_windows(mode_))
        if (a.windows.check_window_open(window))
            return;
    competition_chosen(a, mode_, autonum);
    if (mode_ == keyword::kImporRes && !is_closed()) {
        status_text(a.ui, QStringLiteral("Recharger la liste des compétitions"));
        ReloadListe(autonum);
        status_text(a.ui, QString());
    }
}

void FrmListeCompet::hide_selection()
{
    AppContext& a = app();
    std::vector<int> rows;
    for (const QModelIndex& index : selection_.selectedRows())
        rows.push_back(index.row());
    if (rows.empty())
        if (const QModelIndex current = selection_.currentIndex(); current.isValid())
            rows.push_back(current.row());
    if (rows.empty())
        return;
    std::sort(rows.rbegin(), rows.rend());
    QStringList keys;
    for (int row : rows)
        keys << row_key(list_, row);
    const SqlText in_list = sql_keys(keys);
    if (!SauverCompetTempo(a, in_list))
        return;
    a.db.exec_sql(QStringLiteral("Update Rcomp Set Visible = false where AutoNum IN (") + in_list +
                  QStringLiteral(")"));
    for (int row : rows)
        list_.removeRow(row);
    select_last_row(selection_, rows.back());
    cmd2_enabled_ = list_.rowCount() > 0;
    changed();
}

void FrmListeCompet::activate()
{
    if (mode_ == keyword::kView)
        return;
    if (mode_ == kChooseForProg) {
        cmd0();
        return;
    }
    const QString autonum = current_autonum();
    cmd2();
    // The list may have been filled again meanwhile: the row stays chosen.
    if (!is_closed())
        if (const auto row = find_key(list_, autonum))
            select_row_at(selection_, *row);
}

void FrmListeCompet::delete_key()
{
    if (mode_ == keyword::kSuppr)
        cmd2();
}

}  // namespace plouvarine
