#include "src/results/view_perf.h"

#include "src/base/services.h"
#include "src/base/sql_text.h"
#include "src/base/utils_date.h"
#include "src/base/utils_time.h"
#include "src/frame/app_context.h"
#include "src/frame/list_export.h"
#include "src/frame/list_helpers.h"
#include "src/results/perf_progression.h"
#include "src/results/perf_report.h"

namespace plouvarine {

namespace {

// Columns of the individual statement, by position; the relay statement
// shares the first ten and ends with Num_Lic (the team) and NumManuel.
enum PerfColumn : int {
    kLibelle = 0,
    kNumCompet = 1,
    kTps = 2,
    kLieu = 3,
    kDatePerf = 4,
    kTypeBassin = 5,
    kCodifFede = 6,
    kPassageRelais = 10,
    kTpsInter = 11,
    kNumManuel = 12,
    kEquipe = 10,
};

const QString kRelayLine = QStringLiteral("relais");

}  // namespace

FrmViewPerf::FrmViewPerf(AppContext& app)
    : View(app, QString(kName)), several_clubs_(app.state.club_selection)
{
    set_title(QStringLiteral("Performances des licenciés"));
    edited_ = options_;
    set_columns();
}

void FrmViewPerf::charge_nageurs()
{
    AppContext& a = app();
    const Rows rows = a.db.load_rows(requete_nageurs_perf(a.state.club_code, several_clubs_));
    nageurs_.clear();
    QStringList headers{QStringLiteral("Nom"), QStringLiteral("Prénom"), QStringLiteral("N° Licence")};
    if (several_clubs_)
        headers << QStringLiteral("Club Origine");
    headers << QStringLiteral("Date Naissance");
    nageurs_.setHorizontalHeaderLabels(headers);
    const int birth = several_clubs_ ? 5 : 4;
    const auto add = [this](QList<QStandardItem*> items, const QString& num, const QString& full, const QString& club) {
        for (QStandardItem* item : items)
            item->setEditable(false);
        items[0]->setCheckable(true);
        items[0]->setCheckState(chk_all_ ? Qt::Checked : Qt::Unchecked);
        items[0]->setData(num, kNumRole);
        items[0]->setData(full, kFullNameRole);
        items[0]->setData(club, kClubRole);
        nageurs_.appendRow(items);
    };
    for (int r = 0; r < rows.size(); ++r) {
        QList<QStandardItem*> items;
        for (int c : {1, 2, 3})
            items << new QStandardItem(rows.value(r, c));
        const QString club = several_clubs_ ? rows.value(r, 4) : QString();
        if (several_clubs_)
            items << new QStandardItem(club);
        items << new QStandardItem(DateLongue(rows.value(r, birth), QString::fromLatin1(kFormatDateCourte)));
        add(items, rows.value(r, 0), rows.value(r, 1) + u' ' + rows.value(r, 2), club);
    }
    const QString relays = a.db.load_rows(QStringLiteral("SELECT count(*) FROM Liffn_relais WHERE Code_club = ") +
                                          quote_sql(a.state.club_code))
                               .first();
    if (relays.toInt() > 0) {
        QList<QStandardItem*> items{new QStandardItem(QStringLiteral("Relais"))};
        while (items.size() < headers.size())
            items << new QStandardItem;
        add(items, QString(), QStringLiteral("Relais"), QString());
    }
    changed();
}

void FrmViewPerf::set_checked(int row, bool on)
{
    check_row(nageurs_, row, on);
}

bool FrmViewPerf::checked(int row) const
{
    return is_checked(nageurs_, row);
}

void FrmViewPerf::flip_selected()
{
    const QModelIndex current = nageur_selection_.currentIndex();
    if (current.isValid())
        set_checked(current.row(), !checked(current.row()));
}

void FrmViewPerf::set_chk_all_nageurs(bool on)
{
    chk_all_ = on;
    check_all(nageurs_, on);
    changed();
}

std::optional<int> FrmViewPerf::recherche(const QString& typed)
{
    return incremental_select(nageur_selection_, typed);
}

void FrmViewPerf::cmd_modifier()
{
    edited_ = options_;
    editing_ = true;
    changed();
}

bool FrmViewPerf::cmd_valider()
{
    if (edited_.nb_perf == 2 && edited_.txt_nb_perf.trimmed().isEmpty()) {
        msg_erreur(app().ui, QStringLiteral(
                                 "La valeur personnalisée du nombre de performances affichées doit être remplie."));
        return false;
    }
    options_ = edited_;
    editing_ = false;
    can_print_ = false;
    set_columns();
    changed();
    return true;
}

void FrmViewPerf::cmd_annuler()
{
    edited_ = options_;
    editing_ = false;
    changed();
}

void FrmViewPerf::set_columns()
{
    perfs_.clear();
    QStringList headers{QStringLiteral("Temps"), QStringLiteral("Lieu"), QStringLiteral("Date"),
                        QStringLiteral("Bassin")};
    if (options_.codif)
        headers << QStringLiteral("Codif F") << QStringLiteral("Codif I") << QStringLiteral("Codif R")
                << QStringLiteral("Codif D");
    if (options_.tps_relais)
        headers << QStringLiteral("Relais");
    if (options_.tps_inter)
        headers << QStringLiteral("Inter");
    perfs_.setHorizontalHeaderLabels(headers);
    search_swimmers_.clear();
    swimmer_events_.clear();
    search_events_.clear();
    search_swimmer_ = -1;
}

QString FrmViewPerf::num_compet_key(int row) const
{
    return row_key(perfs_, row);
}

void FrmViewPerf::add_row(const QStringList& cells, const QString& key, const QString& num, const QString& event,
                          bool relay)
{
    QList<QStandardItem*> items;
    items.reserve(perfs_.columnCount());
    for (int c = 0; c < perfs_.columnCount(); ++c)
        items << fixed_cell(c < cells.size() ? cells[c] : QString());
    if (!key.isEmpty())
        items[0]->setData(key, kKeyRole);
    if (!num.isEmpty())
        items[0]->setData(num, kNumRole);
    if (!event.isEmpty())
        items[0]->setData(event, kEventRole);
    if (relay)
        items[0]->setData(true, kRelayRole);
    perfs_.appendRow(items);
}

void FrmViewPerf::affiche_perfs()
{
    AppContext& a = app();
    set_columns();
    can_print_ = false;
    WaitCursor wait(a.ui);
    try {
        fill();
    } catch (const std::exception& e) {
        a.ui.progress_end();
        msg_erreur(a.ui, QStringLiteral("Une erreur s'est produite lors l'affichage du suivi des performances. "), &e);
    }
    can_print_ = perfs_.rowCount() > 0;
    if (!search_swimmers_.empty())
        choose_search_swimmer(0);
    changed();
}

void FrmViewPerf::fill()
{
    AppContext& a = app();
    const std::vector<int> ticked = checked_rows(nageurs_);
    if (ticked.empty())
        return;
    const int limit = options_.limit();
    const PerfQueries queries = construit_requetes_perf(options_, a.state.club_code, a.clock.today_text());
    const QString caption = QStringLiteral("Affichage du suivi des performances");
    // The manual number of the last swim read: the relay pass reads none of
    // its own and keeps that one in its keys.
    QString num_manuel;
    for (size_t i = 0; i < ticked.size(); ++i) {
        a.ui.progress(caption, int(i), int(ticked.size()));
        const QStandardItem* swimmer = nageurs_.item(ticked[i], 0);
        const bool relay = i + 1 == ticked.size() && swimmer->text().toLower() == kRelayLine;
        QString sql = queries.relais;
        QString name = swimmer->data(kFullNameRole).toString();
        const QString num = relay ? QString() : swimmer->data(kNumRole).toString();
        if (!relay) {
            sql = queries.individuel;
            sql.replace(kNumLicence, sql_key(num).text());
            if (several_clubs_)
                name += QStringLiteral(" (") + swimmer->data(kClubRole).toString() + u')';
        }
        if (i > 0) {
            add_row({});
            add_row({});
        }
        search_swimmers_.push_back({name, perfs_.rowCount()});
        swimmer_events_.emplace_back();
        add_row({QString(), name}, {}, num, {}, relay);

        const Rows rows = a.db.load_rows(sql);
        QString last_event;
        bool first_event = true;
        int counter = 0;
        for (int r = 0; r < rows.size(); ++r) {
            const QString event = rows.value(r, kLibelle);
            if (first_event || event != last_event) {
                first_event = false;
                last_event = event;
                add_row({});
                swimmer_events_.back().push_back({event, perfs_.rowCount()});
                add_row({QString(), event}, {}, num, event, relay);
                counter = 0;
            }
            if (limit >= 0 && ++counter > limit)
                continue;
            QStringList cells{affiche_temps(rows.value(r, kTps))};
            QString lieu = rows.value(r, kLieu);
            if (relay)
                lieu += QStringLiteral(" (Equipe n° ") + rows.value(r, kEquipe) + u')';
            cells << lieu << DateLongue(rows.value(r, kDatePerf), QStringLiteral("dd/mm/yyyy"))
                  << rows.value(r, kTypeBassin);
            if (options_.codif)
                for (int c = kCodifFede; c < kCodifFede + 4; ++c)
                    cells << rows.value(r, c);
            if (!relay) {
                if (options_.tps_relais)
                    cells << (rows.value(r, kPassageRelais) == QLatin1String("R") ? QStringLiteral("X")
                                                                                   : QStringLiteral(" "));
                if (options_.tps_inter)
                    cells << (rows.value(r, kTpsInter) == QLatin1String("Vrai") ? QStringLiteral("X") : QStringLiteral(" "));
                num_manuel = rows.value(r, kNumManuel);
            }
            add_row(cells, rows.value(r, kNumCompet) + u',' + num_manuel, num, event, relay);
        }
    }
    a.ui.progress_end();
}

void FrmViewPerf::choose_search_swimmer(int index)
{
    if (index < 0 || index >= int(search_swimmers_.size()))
        return;
    search_swimmer_ = index;
    search_events_ = swimmer_events_[size_t(index)];
    select_row_at(perf_selection_, search_swimmers_[size_t(index)].row);
    changed();
}

void FrmViewPerf::choose_search_event(int index)
{
    if (index < 0 || index >= int(search_events_.size()))
        return;
    select_row_at(perf_selection_, search_events_[size_t(index)].row);
    changed();
}

bool FrmViewPerf::can_delete() const
{
    const QModelIndex current = perf_selection_.currentIndex();
    return current.isValid() && perf_selection_.isRowSelected(current.row()) &&
           !num_compet_key(current.row()).isEmpty();
}

std::optional<ProgressionChoice> FrmViewPerf::chart_choice() const
{
    const QModelIndex current = perf_selection_.currentIndex();
    if (!current.isValid() || !perf_selection_.isRowSelected(current.row()))
        return std::nullopt;
    const QStandardItem* item = perfs_.item(current.row(), 0);
    const QString event = item->data(kEventRole).toString();
    if (event.isEmpty())
        return std::nullopt;
    // The swimmer is the one whose title stands last above the row.
    QString name;
    for (const SearchEntry& s : search_swimmers_)
        if (s.row <= current.row())
            name = s.text;
    return ProgressionChoice{item->data(kNumRole).toString(), event, name};
}

bool FrmViewPerf::cmd_imprimer()
{
    AppContext& a = app();
    try {
        return edite_perfs(a, *this, true, {});
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QStringLiteral("Une erreur s'est produite lors de l'impression du suivi des performances"),
                   &e);
    }
    return false;
}

bool FrmViewPerf::cmd_sauvegarder()
{
    AppContext& a = app();
    FileDialogRequest request;
    request.title = QStringLiteral("Exporter suivi des performances");
    request.filter = QStringLiteral(
        "Fichier texte séparateur tabulation (*.txt)|*.txt|Fichier texte enrichi (*.rtf)|*.rtf");
    request.save = true;
    request.confirm_overwrite = true;
    const QString path = a.ui.file_dialog(request);
    if (path.isEmpty())
        return false;
    try {
        if (path.endsWith(QLatin1String(".rtf"), Qt::CaseInsensitive))
            return edite_perfs(a, *this, false, path);
        const QString error = exporte_texte(path, perfs_);
        if (error.isEmpty())
            return true;
        msg_erreur(a.ui, QStringLiteral("Une erreur s'est produite lors de la sauvegarde du suivi des performances") +
                             QStringLiteral("\n") + error);
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QStringLiteral("Une erreur s'est produite lors de la sauvegarde du suivi des performances"),
                   &e);
    }
    return false;
}

void FrmViewPerf::supprime_perf()
{
    if (!can_delete())
        return;
    AppContext& a = app();
    const QString key = num_compet_key(perf_selection_.currentIndex().row());
    try {
        const QString num_compet = key.section(u',', 0, 0);
        const QString num_manuel = key.section(u',', 1);
        const Rows compet =
            a.db.load_rows(QStringLiteral("Select Nom, Debut from Rcomp where AutoNum = ") + sql_key(num_compet));
        QString condition = sql_key(num_compet).text();
        QString question;
        if (!compet.empty()) {
            question = QStringLiteral("Supprimer toutes les performances liées à la compétition suivante ?\n") +
                       QStringLiteral("Nom compétition : ") + compet.value(0, 0) + u'\n' +
                       QStringLiteral("Date de début : ") +
                       DateLongue(compet.value(0, 1), QStringLiteral("dd/mm/yyyy")) + QStringLiteral("\n\n") +
                       QStringLiteral("Attention ! Cette suppression s'applique à tous les nageurs de la base,\n") +
                       QStringLiteral("sans tenir compte du profil en cours d'utilisation.");
        } else {
            // A manual number that is no number (a relay swim listed before
            // any swimmer's) is refused here, as the engine would.
            condition += QStringLiteral(" and NumManuel = ") + sql_key(num_manuel);
            question = QStringLiteral("Supprimer la performance ?");
        }
        if (msg_confirm(a.ui, question, kDefaultNo) != Button::Yes)
            return;
        a.db.exec_sql(QStringLiteral("Delete from Liffn where Num_compet = ") + condition);
        a.db.exec_sql(QStringLiteral("Delete from Liffn_relais where Num_compet = ") + condition);
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QStringLiteral("Une erreur s'est produite lors de la suppression."), &e);
        return;
    }
    affiche_perfs();
}

void FrmViewPerf::cmd_effacer()
{
    chk_all_ = false;
    check_all(nageurs_, false);
    affiche_perfs();
}

void FrmViewPerf::cmd_progression()
{
    if (const std::optional<ProgressionChoice> choice = chart_choice())
        OuvrirProgression(app(), *choice, name());
}

FrmViewPerf* OuvrirViewPerf(AppContext& app)
{
    if (app.windows.check_window_open(QString(FrmViewPerf::kName)))
        return nullptr;
    auto view = std::make_unique<FrmViewPerf>(app);
    if (!view->register_window(QString(WindowRegistry::kMainWindow)))
        return nullptr;
    try {
        view->charge_nageurs();
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QStringLiteral("Une erreur s'est produite lors de l'affichage du suivi des performances"),
                   &e);
        return nullptr;
    }
    return show_child(app.ui, std::move(view));
}

}  // namespace plouvarine
