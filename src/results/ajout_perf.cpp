#include "src/results/ajout_perf.h"

#include "src/base/services.h"
#include "src/base/sql_text.h"
#include "src/base/utils_date.h"
#include "src/frame/app_context.h"
#include "src/frame/choose_date_view.h"
#include "src/frame/list_helpers.h"

namespace plouvarine {

AjoutPerfForm::AjoutPerfForm(AppContext& app, const QString& name)
    : View(app, name), several_clubs_(app.state.club_selection)
{
    nages_.setHorizontalHeaderLabels({QStringLiteral("Code"), QStringLiteral("Libellé")});
}

void append_perf_row(QStandardItemModel& model, const QStringList& cells, const QString& key)
{
    QList<QStandardItem*> items = fixed_row(cells);
    items[0]->setData(key, kKeyRole);
    model.appendRow(items);
}

void AjoutPerfForm::choose_event(int row)
{
    const QStandardItem* item = nages_.item(row, 0);
    if (!item)
        return;
    event_row_ = row;
    select_row_at(nage_selection_, row);
    entry.opt_bassin = 0;
    entry.bassin50_enabled = item->data(kPossible50Role).toBool();
    changed();
}

QString AjoutPerfForm::event_code() const
{
    return row_key(nages_, event_row_);
}

QString AjoutPerfForm::event_label() const
{
    const QStandardItem* item = nages_.item(event_row_, 1);
    return item ? item->text() : QString();
}

void AjoutPerfForm::cmd_date()
{
    if (ChoisirDateChamps(app(), entry.txt_info[kFieldJour], entry.txt_info[kFieldMois], entry.txt_info[kFieldAnnee]))
        changed();
}

void AjoutPerfForm::cmd_codif_clear()
{
    efface_codifs(entry);
    changed();
}

void AjoutPerfForm::reset_entry()
{
    efface_saisie_perf(entry);
    // The click on the chosen event again: the pool goes back to its start.
    if (event_row_ >= 0)
        choose_event(event_row_);
    changed();
}

void AjoutPerfForm::cmd_annuler()
{
    reset_entry();
}

FrmAjoutPerf::FrmAjoutPerf(AppContext& app) : AjoutPerfForm(app, QString(kName))
{
    set_title(QStringLiteral("Ajout manuel de performances"));
}

void FrmAjoutPerf::charge_licences(int order)
{
    AppContext& a = app();
    QString sql;
    QStringList fields;
    if (several_clubs_) {
        sql = QStringLiteral("SELECT Licence.Num, Licence.Licence, Licence.Nom, Licence.Prenom, Licence.Date_Naissance, "
                             "Licence.Sexe, Club.Code_federal, Club.Intitule ") +
              QStringLiteral("FROM Club Club, Licence Licence, Selection Selection ") +
              QStringLiteral("WHERE Club.Code_federal = Licence.Code_Club AND Licence.Num = Selection.Num_Lic AND ") +
              QStringLiteral("Selection.Code_Sel = ") + quote_sql(a.state.club_code) +
              QStringLiteral(" and Selection.Visible = true ");
        fields = {QStringLiteral("Licence.Nom"), QStringLiteral("Licence.Prenom"), QStringLiteral("Licence.Licence"),
                  QStringLiteral("Club.Intitule"), QStringLiteral("Licence.Date_Naissance")};
        sql += order >= 0 && order < fields.size() ? QStringLiteral("ORDER BY ") + fields[order]
                                                   : QStringLiteral("ORDER BY Licence.Nom, Licence.Prenom, Club.Intitule");
    } else {
        sql = QStringLiteral("SELECT Num, Licence, Nom, Prenom, Date_Naissance, Sexe, Code_Club ") +
              QStringLiteral("FROM Licence ") + QStringLiteral("WHERE Code_Club = ") + quote_sql(a.state.club_code) +
              QStringLiteral(" and Visible = true ");
        fields = {QStringLiteral("Nom"), QStringLiteral("Prenom"), QStringLiteral("Licence"),
                  QStringLiteral("Date_Naissance")};
        sql += order >= 0 && order < fields.size() ? QStringLiteral("ORDER BY ") + fields[order]
                                                   : QStringLiteral("order by Nom, Prenom");
    }
    const Rows rows = a.db.load_rows(sql);
    licences_.clear();
    QStringList headers{QStringLiteral("Nom"), QStringLiteral("Prénom"), QStringLiteral("N° Licence")};
    if (several_clubs_)
        headers << QStringLiteral("Club Origine");
    headers << QStringLiteral("Date Naissance");
    licences_.setHorizontalHeaderLabels(headers);
    for (int r = 0; r < rows.size(); ++r) {
        QStringList cells{rows.value(r, 2), rows.value(r, 3), rows.value(r, 1)};
        if (several_clubs_)
            cells << rows.value(r, 7);
        cells << DateLongue(rows.value(r, 4), QStringLiteral("dd/mm/yyyy"));
        append_perf_row(licences_, cells, rows.value(r, 0));
        QStandardItem* first = licences_.item(licences_.rowCount() - 1, 0);
        first->setData(rows.value(r, 2) + u' ' + rows.value(r, 3), kNomCompletRole);
        first->setData(rows.value(r, 5), kSexeRole);
        first->setData(rows.value(r, 6), kClubRole);
        first->setData(rows.value(r, 4), kNaissanceRole);
    }
    swimmer_row_ = -1;
    changed();
}

void FrmAjoutPerf::set_tab(int tab)
{
    tab_ = tab;
    changed();
}

void FrmAjoutPerf::choose_swimmer(int row)
{
    const QStandardItem* item = licences_.item(row, 0);
    if (!item)
        return;
    swimmer_row_ = row;
    select_row_at(licence_selection_, row);
    const QString sexe = item->data(kSexeRole).toString();
    sexe_caption_ = sexe == QLatin1String("M") ? QStringLiteral("Messieurs") : QStringLiteral("Dames");
    const Rows rows = app().db.load_rows(QStringLiteral("SELECT Code_Nage, Libelle, Possible_50 from Nage ") +
                                         QStringLiteral("WHERE Nb_nageurs = 1 AND Sexe =") + quote_sql(sexe) +
                                         QStringLiteral(" ORDER BY Mixte DESC, Sexe, Nb_nageurs, Code_nage"));
    nages_.removeRows(0, nages_.rowCount());
    for (int r = 0; r < rows.size(); ++r) {
        append_perf_row(nages_, {rows.value(r, 0), rows.value(r, 1)}, rows.value(r, 0));
        nages_.item(r, 0)->setData(rows.value(r, 2) == QLatin1String("Vrai"), kPossible50Role);
    }
    event_row_ = -1;
    tab_ = 1;
    changed();
}

bool FrmAjoutPerf::cmd_enregistrer()
{
    AppContext& a = app();
    const QStandardItem* swimmer = licences_.item(swimmer_row_, 0);
    if (!swimmer || event_row_ < 0)
        return false;
    entry.leave_time();
    if (!verif_saisie_perf(a, entry))
        return false;
    PerfTarget target;
    target.code_epreuve = event_code();
    target.libelle = event_label();
    target.club = swimmer->data(kClubRole).toString();
    target.num_lic = swimmer->data(kKeyRole).toString();
    target.nom_complet = swimmer->data(kNomCompletRole).toString();
    target.naissance = swimmer->data(kNaissanceRole).toString();
    if (!enregistre_perf(a, entry, false, target))
        return false;
    reset_entry();
    return true;
}

FrmAjoutPerf* OuvrirAjoutPerf(AppContext& app)
{
    if (app.windows.check_window_open(QString(FrmAjoutPerf::kName)))
        return nullptr;
    auto view = std::make_unique<FrmAjoutPerf>(app);
    if (!view->register_window(QString(WindowRegistry::kMainWindow)))
        return nullptr;
    try {
        view->charge_licences();
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QString(), &e);
        return nullptr;
    }
    return show_child(app.ui, std::move(view));
}

}  // namespace plouvarine
