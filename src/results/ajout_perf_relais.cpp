#include "src/results/ajout_perf.h"

#include "src/base/services.h"
#include "src/base/sql_text.h"
#include "src/frame/app_context.h"
#include "src/frame/list_helpers.h"

namespace plouvarine {

FrmAjoutPerfRelais::FrmAjoutPerfRelais(AppContext& app) : AjoutPerfForm(app, QString(kName))
{
    set_title(QStringLiteral("Ajout manuel de performances de relais"));
    QStringList headers{QStringLiteral("Nom"), QStringLiteral("Prénom"), QStringLiteral("Licence")};
    if (several_clubs_)
        headers << QStringLiteral("Club");
    licences_.setHorizontalHeaderLabels(headers);
    compo_.setHorizontalHeaderLabels(headers);
}

void FrmAjoutPerfRelais::charge_nages()
{
    const Rows rows = app().db.load_rows(QStringLiteral("SELECT Code_Nage, Libelle, Possible_50, Sexe, Nb_nageurs from Nage ") +
                                         QStringLiteral("WHERE Nb_nageurs > 1 ") +
                                         QStringLiteral("ORDER BY Sexe, distance, Code_nage"));
    nages_.removeRows(0, nages_.rowCount());
    for (int r = 0; r < rows.size(); ++r) {
        append_perf_row(nages_, {rows.value(r, 0), rows.value(r, 1)}, rows.value(r, 0));
        QStandardItem* item = nages_.item(r, 0);
        item->setData(rows.value(r, 2) == QLatin1String("Vrai"), kPossible50Role);
        item->setData(rows.value(r, 3), kSexeRole);
        item->setData(rows.value(r, 4).toInt(), kNbNageursRole);
    }
    changed();
}

void FrmAjoutPerfRelais::choose_event(int row)
{
    const QStandardItem* item = nages_.item(row, 0);
    if (!item)
        return;
    AppContext& a = app();
    nb_nageurs_ = item->data(kNbNageursRole).toInt();
    const QString sexe = item->data(kSexeRole).toString().trimmed();
    QString sql;
    if (several_clubs_) {
        sql = QStringLiteral("SELECT Licence.Num, Licence.Licence, Licence.Nom, Licence.Prenom, Club.Intitule ") +
              QStringLiteral("FROM Club Club, Licence Licence, Selection Selection ") +
              QStringLiteral("WHERE Club.Code_federal = Licence.Code_Club AND Licence.Num = Selection.Num_Lic AND ") +
              QStringLiteral("Selection.Code_Sel = ") + quote_sql(a.state.club_code) +
              QStringLiteral(" AND Selection.Visible = true ");
        if (!sexe.isEmpty())
            sql += QStringLiteral("AND Licence.Sexe = ") + quote_sql(sexe) + u' ';
        sql += QStringLiteral("ORDER BY Licence.Nom, Licence.Prenom, Club.Intitule");
    } else {
        sql = QStringLiteral("SELECT Num, Licence, Nom, Prenom ") + QStringLiteral("FROM Licence WHERE Code_Club = ") +
              quote_sql(a.state.club_code) + QStringLiteral(" AND Visible = true ");
        if (!sexe.isEmpty())
            sql += QStringLiteral("AND Sexe = ") + quote_sql(sexe) + u' ';
        sql += QStringLiteral("ORDER BY Nom, Prenom");
    }
    const Rows rows = a.db.load_rows(sql);
    licences_.removeRows(0, licences_.rowCount());
    compo_.removeRows(0, compo_.rowCount());
    for (int r = 0; r < rows.size(); ++r) {
        QStringList cells{rows.value(r, 2), rows.value(r, 3), rows.value(r, 1)};
        if (several_clubs_)
            cells << rows.value(r, 4);
        append_perf_row(licences_, cells, rows.value(r, 0));
    }
    if (licences_.rowCount() > 0)
        select_row_at(licence_selection_, 0);
    AjoutPerfForm::choose_event(row);
}

bool FrmAjoutPerfRelais::can_add(int index) const
{
    return index == 0 ? licences_.rowCount() > 0 && compo_.rowCount() < nb_nageurs_ : compo_.rowCount() > 0;
}

void FrmAjoutPerfRelais::move_row(QStandardItemModel& from, QItemSelectionModel& from_selection,
                                  QStandardItemModel& to, QItemSelectionModel& to_selection)
{
    const QModelIndex current = from_selection.currentIndex();
    if (!current.isValid())
        return;
    const int row = current.row();
    to.appendRow(from.takeRow(row));
    select_row_at(to_selection, to.rowCount() - 1);
    // The selection goes to the line that took the moved one's place.
    if (const std::optional<int> next = row_after_removal(row, from.rowCount()))
        select_row_at(from_selection, *next);
    else
        from_selection.clear();
}

void FrmAjoutPerfRelais::cmd_add(int index)
{
    if (!can_add(index))
        return;
    if (index == 0)
        move_row(licences_, licence_selection_, compo_, compo_selection_);
    else
        move_row(compo_, compo_selection_, licences_, licence_selection_);
    changed();
}

void FrmAjoutPerfRelais::swap_legs(int offset)
{
    const QModelIndex current = compo_selection_.currentIndex();
    if (!current.isValid())
        return;
    const int row = current.row();
    const int other = row + offset;
    if (other < 0 || other >= compo_.rowCount())
        return;
    const QList<QStandardItem*> items = compo_.takeRow(row);
    compo_.insertRow(other, items);
    select_row_at(compo_selection_, other);
    changed();
}

void FrmAjoutPerfRelais::cmd_plus()
{
    swap_legs(-1);
}

void FrmAjoutPerfRelais::cmd_moins()
{
    swap_legs(1);
}

bool FrmAjoutPerfRelais::cmd_enregistrer()
{
    AppContext& a = app();
    if (event_row_ < 0)
        return false;
    entry.leave_time();
    if (!verif_saisie_perf(a, entry, nb_nageurs_, compo_.rowCount()))
        return false;
    PerfTarget target;
    target.code_epreuve = event_code();
    target.libelle = event_label();
    target.club = a.state.club_code;
    target.num_lic = QStringLiteral("1");
    for (int r = 0; r < compo_.rowCount(); ++r)
        target.relayeurs << row_key(compo_, r);
    if (!enregistre_perf(a, entry, true, target))
        return false;
    reset_entry();
    return true;
}

FrmAjoutPerfRelais* OuvrirAjoutPerfRelais(AppContext& app)
{
    if (app.windows.check_window_open(QString(FrmAjoutPerfRelais::kName)))
        return nullptr;
    auto view = std::make_unique<FrmAjoutPerfRelais>(app);
    if (!view->register_window(QString(WindowRegistry::kMainWindow)))
        return nullptr;
    try {
        view->charge_nages();
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QString(), &e);
        return nullptr;
    }
    return show_child(app.ui, std::move(view));
}

}  // namespace plouvarine
