#include "src/records/frm_view_record.h"

#include "src/base/files.h"
#include "src/base/services.h"
#include "src/base/sql_text.h"
#include "src/base/utils_date.h"
#include "src/base/utils_time.h"
#include "src/entries/convo_bordereau.h"
#include "src/frame/app_context.h"
#include "src/frame/choose_date_view.h"
#include "src/frame/list_export.h"
#include "src/frame/list_helpers.h"
#include "src/records/record_categories.h"
#include "src/records/record_finder.h"
#include "src/reports/templates.h"

#include <QFont>

namespace plouvarine {

namespace {

const QString kErreurLors = QStringLiteral("Une erreur s'est produite lors de ");

// One row of lsvRecords: the label, the name, the time, the date, the place,
// and the relay swimmers when shown.
void add_record_row(QStandardItemModel& list, int kind, const QStringList& cells, int columns)
{
    QList<QStandardItem*> items;
    for (int c = 0; c < columns; ++c)
        items << fixed_cell(cells.value(c));
    items[0]->setData(kind, FrmViewRecord::kKindRole);
    if (kind == FrmViewRecord::Title) {
        QFont bold = items[1]->font();
        bold.setBold(true);
        items[1]->setFont(bold);
    }
    list.appendRow(items);
}

}  // namespace

FrmViewRecord::FrmViewRecord(AppContext& app) : View(app, QString(kName))
{
    set_title(QStringLiteral("Records du club"));
}

FrmViewRecord::~FrmViewRecord()
{
    // The bands' dialog may outlive this window: it tells no one then.
    if (categories_)
        categories_->on_saved = nullptr;
}

void FrmViewRecord::ForceUnloadWindowsEngag(const QString& form_name)
{
    if (form_name == QLatin1String(DetCategorieRecordClub::kName))
        categories_ = nullptr;
}

void FrmViewRecord::charge_nages()
{
    const Rows rows = app().db.load_rows(QStringLiteral("SELECT Code_Nage, Libelle, Nb_nageurs, Possible_50 from Nage ") +
                                         QStringLiteral("ORDER BY Mixte DESC, Sexe, Nb_nageurs, Code_nage"));
    nages_.clear();
    nages_.setHorizontalHeaderLabels({QStringLiteral("Epreuves")});
    for (int r = 0; r < rows.size(); ++r) {
        QStandardItem* item = fixed_cell(rows.value(r, 1));
        item->setCheckable(true);
        item->setCheckState(Qt::Unchecked);
        item->setData(rows.value(r, 0), kKeyRole);
        item->setData(rows.value(r, 2).toInt(), kNbNageursRole);
        item->setData(rows.value(r, 3) != QLatin1String("Faux") && rows.value(r, 3) != QLatin1String("0"),
                      kPossible50Role);
        nages_.appendRow(item);
    }
    changed();
}

void FrmViewRecord::set_checked(int row, bool on)
{
    check_row(nages_, row, on);
}

void FrmViewRecord::cmd_view(int index)
{
    switch (index) {
    case 0: charge_records(); break;
    case 1: imprimer(); break;
    case 2: exporter(); break;
    case 3: effacer(); break;
    default: break;
    }
}

bool FrmViewRecord::charge_records()
{
    AppContext& a = app();
    const int columns = chk_relayeur ? 15 : 5;
    QStringList headers{QStringLiteral("Catégorie"), QStringLiteral("Nom"), QStringLiteral("Tps"),
                        QStringLiteral("Date"), QStringLiteral("Lieu")};
    if (chk_relayeur)
        for (int i = 1; i <= 10; ++i)
            headers << QStringLiteral("Rel ") + QString::number(i);
    records_.clear();
    records_.setHorizontalHeaderLabels(headers);
    search_titles_.clear();
    search_rows_.clear();
    bool ok = true;
    try {
        WaitCursor wait(a.ui);
        status_text(a.ui, QStringLiteral("Recherche des records en cours"));
        const bool tous = opt_view_bassin == 2;
        for (int row : checked_rows(nages_)) {
            const QString title = nages_.item(row, 0)->text();
            add_record_row(records_, Blank, {}, columns);
            add_record_row(records_, Blank, {}, columns);
            search_titles_ << title;
            search_rows_ << records_.rowCount();
            add_record_row(records_, Title, {QString(), title}, columns);
            add_record_row(records_, Blank, {}, columns);
            QString sql = QStringLiteral("SELECT Categori_record_club.Libelle, RecordClub.Nom, RecordClub.Prenom, "
                                         "RecordClub.Tps, RecordClub.Date_perf, RecordClub.Lieu ");
            if (chk_relayeur)
                sql += QStringLiteral(", Rel1, Rel2, Rel3, Rel4, Rel5, Rel6, Rel7, Rel8, Rel9, Rel10 ");
            sql += QStringLiteral("FROM Categori_record_club Categori_record_club, RecordClub RecordClub ") +
                   QStringLiteral("WHERE Categori_record_club.Num_cat = RecordClub.Categorie ") +
                   QStringLiteral("AND Categori_record_club.Code_Club = ") + quote_sql(a.state.club_code) +
                   QStringLiteral(" ") + QStringLiteral("AND RecordClub.Code_nage = ") +
                   sql_key(row_key(nages_, row));
            if (!tous)
                sql += QStringLiteral(" AND RecordClub.Bassin = ") + sql_number(opt_view_bassin == 0 ? 25 : 50);
            sql += QStringLiteral(" ORDER BY Categori_record_club.Num_cat, RecordClub.Tps, RecordClub.Date_perf");
            const Rows rows = a.db.load_rows(sql);
            QString last_label;
            QString last_time;
            QString last_date;
            bool first = true;
            for (int r = 0; r < rows.size(); ++r) {
                const QString label = rows.value(r, 0);
                const QString time = normalise_temps(rows.value(r, 3));
                const bool new_label = first || label != last_label;
                if (!new_label && time != last_time && !chk_histo)
                    continue;
                last_time = time;
                if (new_label) {
                    last_label = label;
                    last_date = QStringLiteral("99999999");
                    first = false;
                }
                // Both pools mixed: a slower time that came later was never a record.
                if (tous) {
                    if (rows.value(r, 4) > last_date)
                        continue;
                    last_date = rows.value(r, 4);
                }
                QStringList cells{label, rows.value(r, 1) + u' ' + rows.value(r, 2), affiche_temps(time),
                                  DateLongue(rows.value(r, 4)), rows.value(r, 5)};
                if (chk_relayeur)
                    for (int i = 0; i < 10; ++i)
                        cells << rows.value(r, 6 + i).trimmed();
                add_record_row(records_, Data, cells, columns);
            }
        }
        status_text(a.ui, QString());
    } catch (const std::exception& e) {
        msg_erreur(a.ui, kErreurLors + QStringLiteral("l'affichage des records."), &e);
        ok = false;
    }
    changed();
    return ok;
}

QString FrmViewRecord::titre_export() const
{
    if (opt_view_bassin == 2)
        return QStringLiteral("Records tous bassins");
    return QStringLiteral("Records en bassin de ") + (opt_view_bassin == 0 ? QStringLiteral("25") : QStringLiteral("50")) +
           QStringLiteral(" mètres");
}

bool FrmViewRecord::edite_records(RichBox& rich)
{
    AppContext& a = app();
    if (!ChargerModele(a, template_path(a, QStringLiteral("rec")), rich, QStringLiteral("rec")))
        return false;
    RemplacerBalisePartout(rich, tags::kNomClub, a.state.club_name);
    RemplacerBalisePartout(rich, tags::kDateMaj, date_longue(a.clock.today()));
    RemplacerBalisePartout(rich, tags::kTypeBassin,
                    opt_view_bassin == 2 ? QStringLiteral("Tous bassins")
                                         : QStringLiteral("Bassin de ") +
                                               (opt_view_bassin == 0 ? QStringLiteral("25") : QStringLiteral("50")) +
                                               QStringLiteral(" mètres"));
    rich.move_to_end();
    EcrireTexte(rich, QStringLiteral("\n"));
    QString last_label;
    for (int r = 0; r < records_.rowCount(); ++r) {
        const int kind = records_.item(r, 0)->data(kKindRole).toInt();
        if (kind == Title) {
            EcrireGras(rich, QStringLiteral("\t\t") + records_.item(r, 1)->text() + QStringLiteral("\n"));
            last_label.clear();
            continue;
        }
        if (kind == Blank) {
            EcrireTexte(rich, QStringLiteral("\n"));
            continue;
        }
        const QString label = records_.item(r, 0)->text();
        if (label != last_label) {
            EcrireTexte(rich, QStringLiteral("\t"));
            EcrireSouligne(rich, label);
            EcrireTexte(rich, QStringLiteral("\n"));
            last_label = label;
        }
        EcrireTexte(rich, Completer(records_.item(r, 1)->text(), 47) + CompleterGauche(records_.item(r, 2)->text(), 9) +
                              Completer(records_.item(r, 3)->text(), 18) + records_.item(r, 4)->text() +
                              QStringLiteral("\n"));
        if (chk_relayeur && records_.columnCount() > 5) {
            QStringList names;
            for (int c = 5; c < records_.columnCount(); ++c)
                if (!records_.item(r, c)->text().trimmed().isEmpty())
                    names << records_.item(r, c)->text().trimmed();
            if (!names.isEmpty())
                EcrireTexte(rich, QStringLiteral("(") + names.join(QStringLiteral("; ")) + QStringLiteral(")\n"));
        }
    }
    return true;
}

bool FrmViewRecord::imprimer()
{
    AppContext& a = app();
    bool printed = false;
    try {
        TempoRapport tempo;
        if (edite_records(tempo.rich)) {
            status_text(a.ui, QStringLiteral("Impression"));
            printed = ImprimerRich(a.ui, tempo.rich, QStringLiteral("Records du club"));
        }
    } catch (const std::exception& e) {
        msg_erreur(a.ui, kErreurLors + QStringLiteral("Impression des records."), &e);
    }
    status_text(a.ui, QString());
    return printed;
}

bool FrmViewRecord::exporter()
{
    AppContext& a = app();
    FileDialogRequest request;
    request.title = QStringLiteral("Exporter résultats");
    request.filter = QStringLiteral("Fichier texte séparateur tabulation (*.txt)|*.txt|Fichier texte enrichi (*.rtf)|*.rtf");
    request.save = true;
    request.confirm_overwrite = true;
    QString path = choose_file(a.ui, request);
    if (path.isEmpty())
        return false;
    // A name typed bare is a text file; ".rtf" asks for the report.
    path = with_ending(path, {QStringLiteral(".txt"), QStringLiteral(".rtf")});
    const bool rtf = path.endsWith(QStringLiteral(".rtf"), Qt::CaseInsensitive);
    try {
        if (rtf) {
            TempoRapport tempo;
            if (!edite_records(tempo.rich))
                return false;
            QString error;
            if (!tempo.rich.SaveFile(path, &error)) {
                msg_erreur(a.ui, kErreurLors + QStringLiteral("l'export des records.\n") + error);
                return false;
            }
            return true;
        }
        const QString error = exporte_texte(path, records_, titre_export());
        if (!error.isEmpty()) {
            msg_erreur(a.ui, kErreurLors + QStringLiteral("l'export des records.\n") + error);
            return false;
        }
    } catch (const std::exception& e) {
        msg_erreur(a.ui, kErreurLors + QStringLiteral("l'export des records."), &e);
        return false;
    }
    return true;
}

void FrmViewRecord::effacer()
{
    try {
        check_all(nages_, false);
    } catch (const std::exception& e) {
        msg_erreur(app().ui, kErreurLors + QStringLiteral("l'effacement des données."), &e);
    }
    charge_records();
}

// ---- Second tab ----

QString FrmViewRecord::bassin_caption(int index)
{
    return index == 1 ? QStringLiteral("50 m") : QStringLiteral("25 m");
}

QString FrmViewRecord::event_title() const
{
    const QStandardItem* item = nages_.item(event_row_, 0);
    return item ? item->text() : QString();
}

void FrmViewRecord::ouvre_saisie(int row)
{
    if (row < 0) {
        const std::vector<int> ticked = checked_rows(nages_);
        row = ticked.empty() ? 0 : ticked.front();
    }
    if (row < 0 || row >= nages_.rowCount())
        return;
    AppContext& a = app();
    try {
        event_row_ = row;
        const QString code = row_key(nages_, row);
        nb_relayeurs_ = nages_.item(row, 0)->data(kNbNageursRole).toInt();
        possible_50_ = nages_.item(row, 0)->data(kPossible50Role).toBool();
        if (!possible_50_)
            opt_bassin_ = 0;
        const QString sexe = sexe_categorie(
            a.db.load_rows(QStringLiteral("select Sexe from Nage where Code_Nage = ") + sql_key(code)).first());
        if (!cats_loaded_ || sexe != sexe_)
            charge_categories(sexe);
        charge_record();
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QString(), &e);
    }
}

void FrmViewRecord::charge_categories(const QString& sexe)
{
    const Rows rows = app().db.load_rows(QStringLiteral("SELECT Libelle, Num_cat FROM Categori_record_club ") +
                                         QStringLiteral("Where Code_Club = ") + quote_sql(app().state.club_code) +
                                         QStringLiteral(" and Sexe = ") + quote_sql(sexe));
    sexe_ = sexe;
    cats_loaded_ = true;
    cat_labels_ = rows.size() ? rows.column(0) : QStringList();
    cat_nums_ = rows.size() ? rows.column(1) : QStringList();
    cat_index_ = cat_labels_.isEmpty() ? -1 : 0;
}

void FrmViewRecord::set_cbo_cat(int index)
{
    cat_index_ = (index >= 0 && index < cat_labels_.size()) ? index : -1;
    charge_record();
}

void FrmViewRecord::set_opt_bassin(int index)
{
    opt_bassin_ = (index == 1 && possible_50_) ? 1 : 0;
    charge_record();
}

void FrmViewRecord::clear_fields()
{
    txt_nom.clear();
    txt_prenom.clear();
    txt_tps.clear();
    txt_date = {};
    txt_lieu.clear();
    txt_relayeur.clear();
    lsv_relais.clear();
    relais_selected = -1;
}

void FrmViewRecord::charge_record()
{
    saisie_ = Saisie::None;
    clear_fields();
    current_.clear();
    if (event_row_ < 0 || cat_index_ < 0) {
        changed();
        return;
    }
    AppContext& a = app();
    try {
        const Rows rows = a.db.load_rows(
            QStringLiteral("SELECT RecordClub.Num_auto, RecordClub.Tps, RecordClub.Nom, RecordClub.Prenom, "
                           "RecordClub.Date_perf, RecordClub.Lieu, RecordClub.Rel1, RecordClub.Rel2, RecordClub.Rel3, "
                           "RecordClub.Rel4, RecordClub.Rel5, RecordClub.Rel6, RecordClub.Rel7, RecordClub.Rel8, "
                           "RecordClub.Rel9, RecordClub.Rel10 ") +
            QStringLiteral("FROM Categori_record_club Categori_record_club, RecordClub RecordClub ") +
            QStringLiteral("WHERE Categori_record_club.Num_cat = RecordClub.Categorie ") +
            QStringLiteral("AND Categori_record_club.Code_Club=") + quote_sql(a.state.club_code) + QStringLiteral(" ") +
            QStringLiteral("AND Categori_record_club.Libelle=") + quote_sql(cat_labels_[cat_index_]) +
            QStringLiteral(" ") + QStringLiteral("AND RecordClub.Code_nage=") + sql_key(row_key(nages_, event_row_)) +
            QStringLiteral(" ") + QStringLiteral("AND RecordClub.Bassin = ") + sql_number(opt_bassin_ == 1 ? 50 : 25) +
            QStringLiteral(" ") + QStringLiteral("ORDER BY RecordClub.Tps"));
        if (!rows.empty()) {
            current_ = rows.value(0, 0);
            txt_tps = normalise_temps(rows.value(0, 1));
            txt_nom = rows.value(0, 2);
            txt_prenom = rows.value(0, 3);
            AfficheDate(txt_date[0], txt_date[1], txt_date[2], rows.value(0, 4));
            txt_lieu = rows.value(0, 5);
            for (int i = 0; i < 10; ++i)
                if (!rows.value(0, 6 + i).trimmed().isEmpty())
                    lsv_relais << rows.value(0, 6 + i).trimmed();
        }
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QString(), &e);
    }
    changed();
}

void FrmViewRecord::cmd_date()
{
    if (editing() && ChoisirDateChamps(app(), txt_date[0], txt_date[1], txt_date[2]))
        changed();
}

void FrmViewRecord::add_relayeur()
{
    const QString name = txt_relayeur.trimmed();
    if (!editing() || !relais_enabled() || name.isEmpty() || relais_full())
        return;
    lsv_relais << name;
    txt_relayeur.clear();
    relais_selected = int(lsv_relais.size()) - 1;
    changed();
}

void FrmViewRecord::remove_relayeur()
{
    if (!editing() || relais_selected < 0 || relais_selected >= lsv_relais.size())
        return;
    lsv_relais.removeAt(relais_selected);
    relais_selected = std::min<int>(relais_selected, int(lsv_relais.size()) - 1);
    changed();
}

void FrmViewRecord::move_relayeur(int delta)
{
    const int to = relais_selected + delta;
    if (!editing() || relais_selected < 0 || to < 0 || to >= lsv_relais.size())
        return;
    lsv_relais.swapItemsAt(relais_selected, to);
    relais_selected = to;
    changed();
}

RecordEntry FrmViewRecord::entry() const
{
    RecordEntry e;
    e.categorie = cat_nums_.value(cat_index_);
    e.libelle = cat_labels_.value(cat_index_);
    e.code_nage = row_key(nages_, event_row_).toInt();
    e.bassin = bassin_caption(opt_bassin_).left(2).toInt();
    e.nom = txt_nom.trimmed();
    e.prenom = txt_prenom.trimmed();
    e.tps = normalise_temps(txt_tps).toDouble();
    e.date = date_record(txt_date[0], txt_date[1], txt_date[2], app().clock.today());
    e.lieu = txt_lieu.trimmed();
    e.relais = lsv_relais;
    return e;
}

bool FrmViewRecord::cmd_def_enabled(int index) const
{
    if (event_row_ < 0 || cat_index_ < 0)
        return false;
    switch (index) {
    case 0: return editing();
    case 1: return saisie_ == Saisie::None || saisie_ == Saisie::Insert;
    case 2: return saisie_ != Saisie::Insert && !current_.isEmpty();
    case 3: return saisie_ == Saisie::None && !current_.isEmpty();
    default: return false;
    }
}

bool FrmViewRecord::cmd_def(int index)
{
    if (!cmd_def_enabled(index))
        return false;
    switch (index) {
    case 0:
        charge_record();
        return true;
    case 3:
        charge_record();
        saisie_ = Saisie::Correct;
        changed();
        return true;
    default:
        break;
    }
    if (saisie_ == Saisie::None) {
        clear_fields();
        saisie_ = index == 1 ? Saisie::Insert : Saisie::Replace;
        changed();
        return true;
    }
    try {
        const QString num = accepte_record(app(), index, entry(), current_);
        if (num.isEmpty())
            return false;
        charge_record();
        txt_tps = normalise_temps(txt_tps);
        changed();
    } catch (const std::exception& e) {
        msg_erreur(app().ui, QString(), &e);
        return false;
    }
    return true;
}

void FrmViewRecord::categories()
{
    categories_ = OuvrirCategoriesRecord(app(), name());
    if (categories_)
        categories_->on_saved = [this] {
            cats_loaded_ = false;
            charge_records();
            if (event_row_ >= 0)
                ouvre_saisie(event_row_);
        };
}

void FrmViewRecord::chercher()
{
    FrmChercheRecord finder(app());
    finder.on_accepted = [this] {
        if (event_row_ >= 0)
            charge_record();
    };
    finder.ouvre(name());
}

FrmViewRecord* OuvrirRecords(AppContext& app)
{
    if (app.windows.check_window_open(QString(FrmViewRecord::kName)))
        return nullptr;
    auto view = std::make_unique<FrmViewRecord>(app);
    // The bands change only through this window's own door, which reloads them.
    if (!view->register_window(QString(WindowRegistry::kMainWindow), locks_on({QStringLiteral("mnuPerfRecModifier")})))
        return nullptr;
    try {
        view->charge_nages();
        view->charge_records();
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QString(), &e);
        return nullptr;
    }
    return show_child(app.ui, std::move(view));
}

void install_record_commands(AppContext& app)
{
    app.commands.add(QStringLiteral("mnuPerfRecView"), [](AppContext& a) { OuvrirRecords(a); });
    app.commands.add(QStringLiteral("mnuPerfRecModifier"), [](AppContext& a) { OuvrirCategoriesRecord(a); });
}

}  // namespace plouvarine
