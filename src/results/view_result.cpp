#include "src/results/view_result.h"

#include "src/base/services.h"
#include "src/base/sql_text.h"
#include "src/base/text.h"
#include "src/base/utils_date.h"
#include "src/base/utils_time.h"
#include "src/frame/app_context.h"
#include "src/frame/list_export.h"
#include "src/frame/list_helpers.h"
#include "src/frame/menu_state.h"
#include "src/results/results_export.h"

#include <QDate>
#include <QFont>
#include <QFileInfo>

namespace plouvarine {

namespace {

const QString kTable = QStringLiteral("<TABLE>");
const QString kCodeNage = QStringLiteral("<CODE_NAGE>");
const QString kTypeCourse = QStringLiteral("<TYPE_COURSE>");

constexpr int kInterCount = 14;

QString on_table(QString text, const QString& table)
{
    return text.replace(kTable, table);
}

// A day yyyymmdd as "d/mm/yyyy"; empty when it is no date.
QString date_courte(const QString& day)
{
    const QDate date = QDate::fromString(day, QStringLiteral("yyyyMMdd"));
    return date.isValid() ? date.toString(QStringLiteral("d/MM/yyyy")) : QString();
}

// Where the failure of a command is told: "Une erreur s'est produite lors de "
// and the step.
void command_failed(Services& ui, const QString& step, const std::exception& e)
{
    msg_erreur(ui, QStringLiteral("Une erreur s'est produite lors de ") + step, &e);
}

}  // namespace

DisplayOrder lire_options_affichage(const ResultOptions& options)
{
    DisplayOrder out;
    out.order = QStringLiteral("<TABLE>.Numero_serie");
    if (options.type_affich == 1 && options.pres_serie == 1) {
        out.order += QStringLiteral(", <TABLE>.Numero_couloir, <TABLE>.Numero_ordre_couloir");
    } else if (options.type_affich == 1) {
        out.order += QStringLiteral(", <TABLE>.Tps");
    } else {
        out.order += QStringLiteral(", <TABLE>.Tps");
        out.by_series = false;
    }
    out.series_order = out.by_series ? out.order : QStringLiteral("<TABLE>.Tps");
    if (options.tps_inter) {
        QStringList inters;
        for (int i = 1; i <= kInterCount; ++i)
            inters << QStringLiteral("<TABLE>.Inter%1").arg(i);
        out.inter_select = QStringLiteral(", ") + inters.join(QStringLiteral(", ")) + u' ';
    } else {
        out.inter_select = QStringLiteral(" ");
    }
    return out;
}

FrmViewResult::FrmViewResult(AppContext& app) : View(app, QString(kName))
{
    set_title(QStringLiteral("Résultats des compétitions"));
    compets_.setHorizontalHeaderLabels(
        {QStringLiteral("Num"), QStringLiteral("Nom"), QStringLiteral("Lieu"), QStringLiteral("Date")});
    nages_.setHorizontalHeaderLabels(
        {QStringLiteral("Code Nage"), QStringLiteral("Libelle"), QStringLiteral("Date"), QStringLiteral("N° ordre")});
    prepare_colonnes();
}

void FrmViewResult::charge_competitions()
{
    const Rows rows = app().db.load_rows(
        QStringLiteral("SELECT Rcomp.AutoNum, Rcomp.Num, Rcomp.Nom, Rcomp.Debut, Rcomp.Fin, Rcomp.Lieu ") +
        QStringLiteral("FROM Rcomp Rcomp, Prres Prres ") + QStringLiteral("WHERE Rcomp.AutoNum = Prres.Num_compet ") +
        QStringLiteral("AND Rcomp.Deroule = true ") + QStringLiteral("AND Rcomp.Visible = true ") +
        QStringLiteral("GROUP BY Rcomp.AutoNum, Rcomp.Num, Rcomp.Nom, Rcomp.Debut, Rcomp.Fin, Rcomp.Lieu ") +
        QStringLiteral("ORDER BY Rcomp.Debut DESC"));
    compets_.removeRows(0, compets_.rowCount());
    for (int r = 0; r < rows.size(); ++r) {
        QList<QStandardItem*> items{fixed_cell(rows.value(r, 1)), fixed_cell(rows.value(r, 2)),
                                    fixed_cell(rows.value(r, 5)),
                                    fixed_cell(date_courte(rows.value(r, 3)))};
        items[0]->setData(rows.value(r, 0).trimmed(), kAutoNumRole);
        compets_.appendRow(items);
    }
    compet_.clear();
    if (!rows.empty())
        click_compet(0);
    changed();
}

void FrmViewResult::click_compet(int row)
{
    const QStandardItem* item = compets_.item(row, 0);
    if (!item)
        return;
    const QString num = item->data(kAutoNumRole).toString();
    if (num == compet_)
        return;
    AppContext& a = app();
    try {
        const Rows rows = a.db.load_rows(
            QStringLiteral("SELECT Pcomp.Code_epreuve, Pcomp.JourCourse, Pcomp.Num_ordre, Nage.Libelle, "
                           "Nage.Nb_nageurs, Nage.Distance ") +
            QStringLiteral("FROM Nage Nage, Pcomp Pcomp ") + QStringLiteral("WHERE Nage.Code_Nage = Pcomp.Code_epreuve ") +
            QStringLiteral("AND Pcomp.Num_compet = ") + sql_key(num) + u' ' + QStringLiteral("ORDER BY Pcomp.Num_ordre"));
        const QString debut =
            a.db.load_rows(QStringLiteral("SELECT Debut FROM Rcomp WHERE AutoNum = ") + sql_key(num)).first();
        const QDate start = QDate::fromString(debut, QStringLiteral("yyyyMMdd"));
        nages_.removeRows(0, nages_.rowCount());
        for (int r = 0; r < rows.size(); ++r) {
            QString day;
            if (start.isValid())
                day = date_courte(start.addDays(rows.value(r, 1).toInt() - 1).toString(QStringLiteral("yyyyMMdd")));
            QList<QStandardItem*> items{fixed_cell(rows.value(r, 0)), fixed_cell(rows.value(r, 3)), fixed_cell(day),
                                        fixed_cell(rows.value(r, 2))};
            items[0]->setCheckable(true);
            items[0]->setCheckState(chk_all_ ? Qt::Checked : Qt::Unchecked);
            items[0]->setData(rows.value(r, 4).toInt(), kNbNageursRole);
            items[0]->setData(rows.value(r, 5).toInt(), kDistanceRole);
            nages_.appendRow(items);
        }
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QString(), &e);
        return;
    }
    compet_ = num;
    results_.removeRows(0, results_.rowCount());
    search_.clear();
    current_row_ = -1;
    print_enabled_ = false;
    changed();
}

void FrmViewResult::set_chk_all(bool on)
{
    chk_all_ = on;
    if (on)
        check_all(nages_, true);
    changed();
}

void FrmViewResult::set_ticked(int row, bool on)
{
    check_row(nages_, row, on || chk_all_);
}

bool FrmViewResult::ticked(int row) const
{
    return is_checked(nages_, row);
}

void FrmViewResult::set_options(const ResultOptions& options)
{
    if (!options_open_)
        return;
    options_ = options;
    if (options_.type_affich == 0)
        options_.pres_serie = 0;
    changed();
}

void FrmViewResult::cmd_option(int index)
{
    switch (index) {
    case 0:  // "&Modifier"
        saved_ = options_;
        options_open_ = true;
        print_enabled_ = false;
        break;
    case 1:  // "&Valider"
        options_open_ = false;
        print_enabled_ = false;
        prepare_colonnes();
        break;
    case 2:  // "&Annuler"
        options_open_ = false;
        options_ = saved_;
        print_enabled_ = !search_.isEmpty();
        break;
    default:
        return;
    }
    changed();
}

void FrmViewResult::prepare_colonnes()
{
    QStringList headers{QStringLiteral("C"), QStringLiteral("Nom"), QStringLiteral("Année")};
    if (options_.nationalite)
        headers << QStringLiteral("Nat");
    headers << QStringLiteral("Club");
    if (options_.equipe)
        headers << QStringLiteral("Eq");
    headers << QStringLiteral("Tps") << QStringLiteral("Pts");
    first_inter_ = int(headers.size());
    if (options_.tps_inter)
        for (int i = 1; i <= kInterCount; ++i)
            headers << QStringLiteral("Inter %1").arg(i);
    results_.clear();
    results_.setHorizontalHeaderLabels(headers);
    search_.clear();
    current_row_ = -1;
    changed();
}

void FrmViewResult::add_row(const QStringList& cells)
{
    QList<QStandardItem*> items;
    items.reserve(cells.size());
    for (const QString& text : cells)
        items << fixed_cell(text);
    results_.appendRow(items);
}

void FrmViewResult::ajoute_ligne_titre(const QString& text, int distance, const QString& first)
{
    QStringList cells(results_.columnCount(), QStringLiteral(" "));
    cells[0] = first.isEmpty() ? QStringLiteral(" ") : first;
    cells[1] = text;
    if (options_.tps_inter && distance > 0) {
        const QList<int> headings = distances_inter(distance);
        for (int i = 0; i < headings.size() && first_inter_ + i < cells.size(); ++i)
            cells[first_inter_ + i] = QString::number(headings[i]);
    }
    add_row(cells);
    // Titles stand out on screen; the exports read the texts only.
    QFont bold;
    bold.setBold(true);
    results_.item(results_.rowCount() - 1, 1)->setData(bold, Qt::FontRole);
}

QString FrmViewResult::libelle_categorie(const QString& num_cat)
{
    return app()
        .db
        .load_rows(QStringLiteral("SELECT Categori.Libelle ") + QStringLiteral("FROM Rcomp Rcomp, Categori Categori ") +
                   QStringLiteral("WHERE Rcomp.AutoNum = Categori.Num_compet ") +
                   QStringLiteral("AND Rcomp.AutoNum = ") + sql_key(compet_) + u' ' +
                   QStringLiteral("AND Categori.Num_cat = ") + sql_key(num_cat))
        .first()
        .trimmed();
}

void FrmViewResult::affiche_resultats()
{
    AppContext& a = app();
    WaitCursor wait(a.ui);
    results_.removeRows(0, results_.rowCount());
    search_.clear();
    current_row_ = -1;
    std::vector<int> events;
    for (int r = 0; r < nages_.rowCount(); ++r)
        if (ticked(r))
            events.push_back(r);
    if (!events.empty()) {
        try {
            const DisplayOrder order = lire_options_affichage(options_);
            const int total = int(events.size());
            for (int i = 0; i < total; ++i) {
                a.ui.progress(QStringLiteral("Génération des résultats en cours"), i, total);
                const QStandardItem* event = nages_.item(events[size_t(i)], 0);
                const QString libelle = nages_.item(events[size_t(i)], 1)->text();
                add_row(QStringList(results_.columnCount(), QString()));
                add_row(QStringList(results_.columnCount(), QString()));
                ajoute_ligne_titre(libelle, event->data(kDistanceRole).toInt());
                search_ << libelle;
                remplir_resultats_epreuve(event->text(), event->data(kNbNageursRole).toInt() > 1, order);
            }
        } catch (const std::exception& e) {
            a.ui.progress_end();
            command_failed(a.ui, QStringLiteral("l'affichage des résultats."), e);
            print_enabled_ = !search_.isEmpty();
            changed();
            return;
        }
        a.ui.progress_end();
        if (results_.rowCount() > 0)
            current_row_ = 0;
    }
    print_enabled_ = !search_.isEmpty();
    changed();
}

void FrmViewResult::remplir_resultats_epreuve(const QString& code, bool relay, const DisplayOrder& order)
{
    AppContext& a = app();
    const QString table = relay ? QStringLiteral("Prres_relais") : QStringLiteral("Prres");
    const QString inter = on_table(order.inter_select, table);
    QString base;
    if (relay)
        base = QStringLiteral("SELECT Prres_relais.Num_Lic, Club.Intitule, Prres_relais.Num_equipe, Prres_relais.Tps, "
                              "Prres_relais.Cotation_FFN, Prres_relais.Type_course, Prres_relais.Numero_serie, "
                              "Prres_relais.Numero_couloir, Club.Code_federal, Prres_relais.Num_categorie") +
               inter + QStringLiteral("FROM Club Club, Prres_relais Prres_relais ") +
               QStringLiteral("WHERE Club.Code_federal = Prres_relais.Code_club ") +
               QStringLiteral("AND Prres_relais.Num_compet = ") + sql_key(compet_) + u' ' +
               QStringLiteral("AND Prres_relais.Code_epreuve = <CODE_NAGE> ") +
               QStringLiteral("AND Prres_relais.Type_course = '<TYPE_COURSE>' ") + QStringLiteral("ORDER BY ");
    else
        base = QStringLiteral("SELECT Licence.Nom, Licence.Prenom, Licence.Date_Naissance, Club.Intitule, "
                              "Prres.Num_equipe, Prres.Tps, Prres.Cotation_FFN, Prres.Type_course, Prres.Numero_serie, "
                              "Prres.Numero_couloir, Club.Code_federal, Licence.Nationalite, Prres.Num_categorie") +
               inter + QStringLiteral("FROM Licence Licence, Club Club, Prres Prres ") +
               QStringLiteral("WHERE Licence.Num = Prres.Num_Lic AND Prres.Code_club = Club.Code_federal AND ") +
               QStringLiteral("Prres.Num_compet = ") + sql_key(compet_) +
               QStringLiteral(" AND Prres.Code_epreuve = <CODE_NAGE> AND (Prres.Type_course = '<TYPE_COURSE>') ") +
               QStringLiteral("ORDER BY ");
    base.replace(kCodeNage, QString() + sql_key(code));

    // Columns of the two reads.
    const int cTps = relay ? 3 : 5, cPts = relay ? 4 : 6, cType = relay ? 5 : 7, cSerie = relay ? 6 : 8,
              cCouloir = relay ? 7 : 9, cClub = relay ? 8 : 10, cCat = relay ? 9 : 12, cInter = relay ? 10 : 13,
              cIntitule = relay ? 1 : 3, cEquipe = relay ? 2 : 4;
    const QString blocks = on_table(QStringLiteral("<TABLE>.Type_course, <TABLE>.Num_categorie, ") + order.order, table);
    const struct {
        QString type;
        QString order;
    } queries[] = {
        {relay ? QStringLiteral("F") : QStringLiteral("F' or Prres.Type_course = 'J"), blocks},
        {QStringLiteral("2"), blocks},
        {QStringLiteral("4"), blocks},
        {QStringLiteral("8"), blocks},
        {QStringLiteral("S"), on_table(order.series_order, table)},
        {QStringLiteral("B"), on_table(order.order, table)},
    };
    const bool lanes = options_.type_affich == 1 && options_.pres_serie == 1;
    const bool own_club = options_.club == 1;
    const int columns = results_.columnCount();

    for (int q = 0; q < 6; ++q) {
        const Rows rows = a.db.load_rows(QString(base).replace(kTypeCourse, queries[q].type) + queries[q].order);
        QString last_serie, last_type, last_cat, last_time;
        int rank = 0;
        int place = 0;
        int last_lane = -1;
        const bool one_block = q == 4 && !order.by_series;
        for (int r = 0; r < rows.size(); ++r) {
            const QString serie = rows.value(r, cSerie), type = rows.value(r, cType), cat = rows.value(r, cCat);
            if (!one_block) {
                // A null among the three keys never begins a block.
                const bool nulls = serie.isEmpty() || type.isEmpty() || cat.isEmpty();
                if (!nulls && (serie != last_serie || type != last_type || cat != last_cat)) {
                    last_serie = serie;
                    last_type = type;
                    last_cat = cat;
                    add_row(QStringList(columns, QString()));
                    ajoute_ligne_titre(titre_course(type, serie, libelle_categorie(cat)));
                    rank = 0;
                    place = 0;
                    last_lane = -1;
                }
            } else if (r == 0) {
                add_row(QStringList(columns, QString()));
                ajoute_ligne_titre(libelle_type_course(QStringLiteral("S")));
            }
            const QString time = normalise_temps(rows.value(r, cTps));
            ++rank;
            if (lanes) {
                const int lane = rows.value(r, cCouloir).toInt();
                place = lane;
                if (lane > last_lane + 1 && last_lane >= 0 && !own_club)
                    for (int empty = last_lane + 1; empty < lane; ++empty) {
                        QStringList cells(columns, QStringLiteral(" "));
                        cells[0] = QString::number(empty);
                        add_row(cells);
                    }
                last_lane = lane;
            } else if (time != last_time) {
                place = rank;
            }
            last_time = time;
            if (own_club && rows.value(r, cClub) != a.state.club_code)
                continue;

            QStringList cells;
            cells.reserve(columns);
            cells << QString::number(place);
            if (relay)
                cells << QStringLiteral("Relais n° ") + rows.value(r, 0) << QStringLiteral(" ");
            else
                cells << rows.value(r, 0) + u' ' + rows.value(r, 1) << rows.value(r, 2).left(4);
            if (options_.nationalite)
                cells << (relay ? QStringLiteral(" ") : rows.value(r, 11));
            cells << rows.value(r, cIntitule);
            if (options_.equipe)
                cells << rows.value(r, cEquipe);
            if (text_to_double(time) < kFirstStatus) {
                cells << affiche_temps(time) << rows.value(r, cPts);
            } else {
                const QStringList status = libelle_statut_temps(time).split(u'\t');
                cells << status.value(0) << status.value(1);
            }
            if (options_.tps_inter)
                for (int i = 0; i < kInterCount; ++i)
                    cells << affiche_temps(rows.value(r, cInter + i));
            add_row(cells);
        }
    }
}

int FrmViewResult::choose_search(int index)
{
    if (index < 0 || index >= search_.size())
        return -1;
    const QList<QStandardItem*> found = results_.findItems(search_.at(index), Qt::MatchExactly, 1);
    current_row_ = found.isEmpty() ? -1 : found.first()->row();
    changed();
    return current_row_;
}

ResultSheet FrmViewResult::sheet() const
{
    return {&results_, search_, options_.nationalite, options_.equipe, options_.tps_inter, first_inter_};
}

bool FrmViewResult::imprimer()
{
    AppContext& a = app();
    try {
        return edite_resultats(a, sheet(), compet_, true, QString());
    } catch (const std::exception& e) {
        command_failed(a.ui, QStringLiteral("l'impression des résultats."), e);
    }
    return false;
}

bool FrmViewResult::exporter()
{
    AppContext& a = app();
    FileDialogRequest request;
    request.title = QStringLiteral("Exporter résultats");
    request.filter = QStringLiteral("Fichier texte séparateur tabulation (*.txt)|*.txt|Fichier texte enrichi "
                                    "(*.rtf)|*.rtf|Fichier HTML(*.htm)|*.htm");
    request.save = true;
    request.confirm_overwrite = true;
    const QString path = choose_file(a.ui, request);
    if (path.isEmpty())
        return false;
    const QString step = QStringLiteral("la sauvegarde des résultats dans un fichier externe.");
    try {
        const QString suffix = QFileInfo(path).suffix().toLower();
        if (suffix == QLatin1String("rtf"))
            return edite_resultats(a, sheet(), compet_, false, path);
        if (suffix == QLatin1String("htm") || suffix == QLatin1String("html"))
            return exporte_html(a, sheet(), compet_, path);
        const QString failure = exporte_texte(path, results_);
        if (failure.isEmpty())
            return true;
        msg_erreur(a.ui, QStringLiteral("Une erreur s'est produite lors de ") + step + u'\n' + failure);
    } catch (const std::exception& e) {
        command_failed(a.ui, step, e);
    }
    return false;
}

FrmViewResult* OuvrirResultats(AppContext& app)
{
    if (app.windows.check_window_open(QString(FrmViewResult::kName)))
        return nullptr;
    auto view = std::make_unique<FrmViewResult>(app);
    // The competitions and their results must stay as they are while shown.
    if (!view->register_window(QString(WindowRegistry::kMainWindow),
                               locks_on({QStringLiteral("mnuCompetModif"), QStringLiteral("mnuCompetSuppr"),
                                         QStringLiteral("mnuCompetResult")})))
        return nullptr;
    try {
        view->charge_competitions();
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QString(), &e);
    }
    return show_child(app.ui, std::move(view));
}

}  // namespace plouvarine
