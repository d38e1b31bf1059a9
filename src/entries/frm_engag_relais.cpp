#include "src/entries/frm_engag_relais.h"

#include "src/base/services.h"
#include "src/base/text.h"
#include "src/base/utils_time.h"
#include "src/competitions/handoff.h"
#include "src/frame/app_context.h"
#include "src/frame/keywords.h"
#include "src/frame/list_helpers.h"
#include "src/frame/menu_state.h"

#include <algorithm>

namespace plouvarine {

namespace {

std::optional<int> current_row(const QItemSelectionModel& selection)
{
    const QModelIndex index = selection.currentIndex();
    if (!index.isValid() || !selection.isRowSelected(index.row(), {}))
        return std::nullopt;
    return index.row();
}

const QString kOpError = QStringLiteral("Une erreur s'est produite lors de l'opération.");

// Runs the reads of a command. A statement that fails has been shown to the
// person by load_rows already: the command only stops, and says false.
template <typename Read>
bool reading(Services& ui, Read&& read)
{
    try {
        read();
        return true;
    } catch (const std::exception&) {
        status_text(ui, QString());
        return false;
    }
}

}  // namespace

FrmEngagRelais::FrmEngagRelais(AppContext& app, const QString& mode, const QString& key)
    : View(app, QString(kName)), mode_(mode), key_(key)
{
    events_.setHorizontalHeaderLabels({QStringLiteral("Epreuve"), QStringLiteral("Nb relais")});
    QObject::connect(&events_selection_, &QItemSelectionModel::currentRowChanged, &events_selection_,
                     [this](const QModelIndex& current) {
                         if (!loading_)
                             select_event(current.isValid() ? current.row() : -1);
                     });
    QObject::connect(&numbers_selection_, &QItemSelectionModel::currentRowChanged, &numbers_selection_,
                     [this](const QModelIndex& current) {
                         if (!loading_ && current.isValid())
                             select_relay(row_key(numbers_, current.row()).toInt());
                     });
}

bool FrmEngagRelais::read_only() const { return mode_ == keyword::kView; }

Team FrmEngagRelais::team() const
{
    return team_index_ >= 0 && team_index_ < teams_.size() ? parse_team(teams_.at(team_index_)) : Team{};
}

void FrmEngagRelais::RemplirInfo()
{
    AppContext& a = app();
    several_clubs_ = a.state.club_selection;
    reading(a.ui, [&] {
        longueur_ =
            a.db.load_rows(QStringLiteral("select Longueur from Rcomp where AutoNum = ") + key_).first().toInt();
        teams_ = team_list(read_counts(a, EntryScope::competition(key_, a.state.profile_num)));
    });
    team_index_ = 0;
    load_events();
    changed();
}

void FrmEngagRelais::set_team_index(int index)
{
    // The team is chosen on the selection page only.
    if (composition_ || index == team_index_ || index < 0 || index >= teams_.size())
        return;
    if (!save_counts())
        return;
    team_index_ = index;
    load_events();
    changed();
}

void FrmEngagRelais::load_events()
{
    AppContext& a = app();
    const Team t = team();
    status_text(a.ui, QStringLiteral("Chargement de la liste des relais pour l'équipe en cours"));
    QString sql = QStringLiteral("SELECT Code_Nage, Libelle, Nb_nageurs FROM Nage ") + QStringLiteral("WHERE Nb_nageurs > 1 ");
    if (!t.sex.isEmpty())
        sql += QStringLiteral("AND Sexe = '") + t.sex + QStringLiteral("' ");
    if (longueur_ == 50)
        sql += QStringLiteral("AND Possible_50 = true ");
    sql += QStringLiteral("ORDER BY Sexe, distance, Code_nage");
    Rows events;
    Rows stored;
    // The stored counts: the highest relay number of each event. A mixed
    // team's relays are told by their flag, a men's or women's team's by the
    // event's sex; the individuals' relays are those not mixed.
    QString stored_sql = QStringLiteral("SELECT Relais.code_epreuve, Max(Relais.Num_Lic) AS MaxDeNum_Lic ") +
                         QStringLiteral("FROM Nage Nage, Relais Relais ") +
                         QStringLiteral("WHERE Nage.Code_Nage = Relais.Code_epreuve ") +
                         QStringLiteral("AND Relais.Num_compet = ") + key_ +
                         QStringLiteral(" AND Relais.Num_profil = ") + a.state.profile_num +
                         QStringLiteral(" AND Relais.Num_equipe = ") + QString::number(t.number);
    if (t.mixed)
        stored_sql += QStringLiteral(" and Relais.Equipe_mixte = true");
    else if (!t.sex.isEmpty())
        stored_sql += QStringLiteral(" and Nage.Sexe = '") + t.sex + QStringLiteral("'");
    else
        stored_sql += QStringLiteral(" and Relais.Equipe_mixte = false");
    stored_sql += QStringLiteral(" group by Relais.code_epreuve");
    if (!reading(a.ui, [&] {
            events = a.db.load_rows(sql);
            stored = a.db.load_rows(stored_sql);
        }))
        events = Rows();

    loading_ = true;
    events_.removeRows(0, events_.rowCount());
    info_.clear();
    for (int r = 0; r < events.size(); ++r) {
        RelayCount count;
        count.code = events.value(r, 0);
        count.nb_nageurs = events.value(r, 2).toInt();
        const qsizetype at = stored.column(0).indexOf(count.code);
        count.nb_equipe_ori = at < 0 ? 0 : stored.value(int(at), 1).toInt();
        count.nb_equipe = count.nb_equipe_ori;
        info_.push_back(count);
        events_.appendRow({fixed_cell(events.value(r, 1)), fixed_cell(QString::number(count.nb_equipe))});
        set_row_key(events_, r, count.code);
    }
    events_selection_.clearSelection();
    events_selection_.setCurrentIndex({}, QItemSelectionModel::NoUpdate);
    loading_ = false;
    event_row_ = -1;
    nb_equipe_.clear();
    status_text(a.ui, QString());
}

void FrmEngagRelais::select_event(int row)
{
    event_row_ = row >= 0 && row < int(info_.size()) ? row : -1;
    if (event_row_ < 0)
        nb_equipe_.clear();
    else {
        const int count = info_[size_t(event_row_)].nb_equipe;
        nb_equipe_ = count == 0 ? QStringLiteral("1") : QString::number(count);
    }
    changed();
}

void FrmEngagRelais::set_count(int row, int value)
{
    if (row < 0 || row >= int(info_.size()) || read_only())
        return;
    value = std::clamp(value, 0, kMaxRelays);
    info_[size_t(row)].nb_equipe = value;
    events_.item(row, 1)->setText(QString::number(value));
    nb_equipe_ = QString::number(value);
    changed();
}

void FrmEngagRelais::set_nb_equipe(const QString& text)
{
    nb_equipe_ = text;
    if (!text.trimmed().isEmpty())
        set_count(event_row_, text.trimmed().toInt());
}

void FrmEngagRelais::cmd_plus()
{
    if (composition_) {
        const auto row = current_row(composition_selection_);
        if (!row || *row == 0)
            return;
        composition_list_.insertRow(*row - 1, composition_list_.takeRow(*row));
        select_row_at(composition_selection_, *row - 1);
        changed();
        return;
    }
    if (event_row_ >= 0)
        set_count(event_row_, nb_equipe_.toInt() + 1);
}

void FrmEngagRelais::cmd_moins()
{
    if (composition_) {
        const auto row = current_row(composition_selection_);
        if (!row || *row + 1 >= composition_list_.rowCount())
            return;
        composition_list_.insertRow(*row + 1, composition_list_.takeRow(*row));
        select_row_at(composition_selection_, *row + 1);
        changed();
        return;
    }
    if (event_row_ >= 0)
        set_count(event_row_, nb_equipe_.toInt() - 1);
}

bool FrmEngagRelais::save_counts()
{
    if (read_only() || team_index_ < 0)
        return true;
    return save_relay_counts(app(), app().state.profile_num, key_, team(), info_);
}

void FrmEngagRelais::cmd_composition()
{
    if (!composition_) {
        if (!save_counts())
            return;
        composition_ = true;
        load_relay_events();
    } else {
        if (!save_relay())
            return;
        composition_ = false;
        relay_number_ = 0;
        load_events();
    }
    changed();
}

void FrmEngagRelais::load_relay_events()
{
    AppContext& a = app();
    const Team t = team();
    status_text(a.ui, QStringLiteral("Chargement de la liste des relais engagés pour l'équipe en cours"));
    QString sql = QStringLiteral("SELECT Nage.Code_Nage, Nage.Libelle, Nage.Nb_nageurs, Max(Relais.Num_Lic) AS "
                                 "MaxDeNum_Lic, Nage.Sexe ") +
                  QStringLiteral("FROM Nage Nage, Relais Relais ") +
                  QStringLiteral("WHERE Nage.Code_Nage = Relais.Code_epreuve ") +
                  QStringLiteral("AND Relais.Num_compet = ") + key_ + QStringLiteral(" AND Relais.Num_profil = ") +
                  a.state.profile_num + QStringLiteral(" AND Relais.Num_equipe = ") + QString::number(t.number);
    if (t.mixed)
        sql += QStringLiteral(" and Relais.Equipe_mixte = true");
    else if (!t.sex.isEmpty())
        sql += QStringLiteral(" and Nage.Sexe = '") + t.sex + QStringLiteral("'");
    else
        sql += QStringLiteral(" and Relais.Equipe_mixte = false");
    sql += QStringLiteral(" GROUP BY Nage.Libelle, Nage.Code_Nage, Nage.Sexe, Nage.distance, Nage.Nb_nageurs") +
           QStringLiteral(" order by Nage.Sexe, Nage.distance, Nage.Code_nage");
    Rows rows;
    reading(a.ui, [&] { rows = a.db.load_rows(sql); });
    relay_events_.clear();
    relay_labels_.clear();
    for (int r = 0; r < rows.size(); ++r) {
        relay_events_.push_back({rows.value(r, 0), rows.value(r, 1), rows.value(r, 2).toInt(), rows.value(r, 3).toInt()});
        relay_labels_ << rows.value(r, 1);
    }
    status_text(a.ui, QString());
    relay_event_index_ = -1;
    relay_number_ = 0;
    set_relay_event(relay_events_.empty() ? -1 : 0);
}

void FrmEngagRelais::set_relay_event(int index)
{
    if (relay_number_ > 0 && index != relay_event_index_ && !save_relay())
        return;
    relay_event_index_ = index >= 0 && index < int(relay_events_.size()) ? index : -1;
    relay_number_ = 0;
    loading_ = true;
    numbers_.removeRows(0, numbers_.rowCount());
    composition_list_.clear();
    members_.clear();
    txt_temps.clear();
    if (relay_event_index_ >= 0) {
        const RelayEvent& event = relay_events_[size_t(relay_event_index_)];
        for (int n = 1; n <= event.count; ++n) {
            numbers_.appendRow(fixed_cell(QStringLiteral("Relais ") + QString::number(n)));
            set_row_key(numbers_, n - 1, QString::number(n));
        }
    }
    loading_ = false;
    if (numbers_.rowCount() > 0)
        select_row_at(numbers_selection_, 0);  // the selection's signal shows relay 1
    changed();
}

int FrmEngagRelais::nb_nageurs() const
{
    return relay_event_index_ < 0 ? 0 : relay_events_[size_t(relay_event_index_)].nb_nageurs;
}

RelayKey FrmEngagRelais::relay_key() const
{
    return {app().state.profile_num, key_, relay_events_[size_t(relay_event_index_)].code, relay_number_, team()};
}

void FrmEngagRelais::select_relay(int number)
{
    if (relay_event_index_ < 0 || number == relay_number_)
        return;
    if (relay_number_ > 0 && !save_relay())
        return;
    AppContext& a = app();
    relay_number_ = number;
    status_text(a.ui, QStringLiteral("Affichage de la composition du relais en cours"));
    composition_list_.clear();
    QStringList headers{QStringLiteral("Nom"), QStringLiteral("Prénom"), QStringLiteral("Licence")};
    if (several_clubs_)
        headers << QStringLiteral("Club Origine");
    composition_list_.setHorizontalHeaderLabels(headers);
    const QString one = several_clubs_
                            ? QStringLiteral("SELECT Licence.Nom, Licence.Prenom, Licence.Licence, Club.Intitule ") +
                                  QStringLiteral("FROM Club Club, Licence Licence, Selection Selection ") +
                                  QStringLiteral("WHERE Club.Code_federal = Licence.Code_club and Licence.Num = "
                                                 "Selection.Num_Lic and ") +
                                  QStringLiteral("Selection.Visible = true and Licence.Visible = true and ") +
                                  QStringLiteral("Selection.Num_Lic = <NUM_LICENCE>")
                            : QStringLiteral("SELECT Nom, Prenom, Licence") + QStringLiteral(" FROM Licence ") +
                                  QStringLiteral(" WHERE Visible = true") + QStringLiteral(" AND Num = <NUM_LICENCE>");
    const bool read = reading(a.ui, [&] {
        const RelayRow row = load_relay(a, relay_key());
        txt_temps = text_to_double(row.tps) > 0 ? normalise_temps(row.tps) : QString();
        for (const QString& num : row.licences) {
            if (num.isEmpty() || num == a.state.num_lic_nulle)
                continue;
            const Rows swimmer = a.db.load_rows(QString(one).replace(QStringLiteral("<NUM_LICENCE>"), num));
            if (swimmer.empty())
                continue;  // deleted since: the place shows nothing
            QList<QStandardItem*> items;
            for (int c = 0; c < swimmer.column_count(); ++c)
                items << fixed_cell(swimmer.value(0, c));
            composition_list_.appendRow(items);
            set_row_key(composition_list_, composition_list_.rowCount() - 1, num);
        }
    });
    if (!read) {
        // A relay half read is not shown, so that no save can write it back.
        relay_number_ = 0;
        composition_list_.removeRows(0, composition_list_.rowCount());
        txt_temps.clear();
        changed();
        return;
    }
    load_members();
    status_text(a.ui, QString());
    changed();
}

void FrmEngagRelais::load_members()
{
    AppContext& a = app();
    const Team t = team();
    QString sql = several_clubs_
                      ? QStringLiteral("SELECT Licence.Nom, Licence.Prenom, Licence.Licence, Club.Intitule, Licence.Num ") +
                            QStringLiteral("FROM Club Club, Licence Licence, Engag_nageur Engag_nageur ") +
                            QStringLiteral("WHERE Club.Code_federal = Licence.Code_Club AND ")
                      : QStringLiteral("SELECT Licence.Nom, Licence.Prenom, Licence.Licence, Licence.Num ") +
                            QStringLiteral("FROM Licence Licence, Engag_nageur ") + QStringLiteral("WHERE ");
    sql += QStringLiteral("Licence.Num = Engag_nageur.Num_Lic AND ") + QStringLiteral("Engag_nageur.Num_compet = ") +
           key_ + QStringLiteral(" AND ") + QStringLiteral("Engag_nageur.Num_profil = ") + a.state.profile_num +
           t.filter(QStringLiteral("Engag_nageur.Equipe"), QStringLiteral("Engag_nageur.Equipe_m"));
    if (!t.sex.isEmpty())
        sql += QStringLiteral(" and Licence.Sexe = '") + t.sex + QStringLiteral("'");
    sql += QStringLiteral(" ORDER BY Licence.Nom, Licence.Prenom");
    members_.clear();
    const int key_column = several_clubs_ ? 4 : 3;
    std::vector<int> columns{0, 1, 2};
    if (several_clubs_)
        columns.push_back(3);
    reading(a.ui, [&] { fill_collections(a.db, sql, {ListFill{&members_, columns, key_column}}); });
    QStringList headers{QStringLiteral("Nom"), QStringLiteral("Prénom"), QStringLiteral("Licence")};
    if (several_clubs_)
        headers << QStringLiteral("Club Origine");
    members_.setHorizontalHeaderLabels(headers);
    // Who swims in the relay is no longer to choose.
    for (const QString& num : composition_nums())
        if (const auto row = find_key(members_, num))
            members_.removeRow(*row);
}

QStringList FrmEngagRelais::composition_nums() const
{
    QStringList nums;
    for (int r = 0; r < composition_list_.rowCount(); ++r)
        nums << row_key(composition_list_, r);
    return nums;
}

bool FrmEngagRelais::can_add() const
{
    return relay_number_ > 0 && !read_only() && composition_list_.rowCount() < nb_nageurs();
}

void FrmEngagRelais::cmd_add(int index)
{
    if (relay_number_ <= 0 || read_only())
        return;
    QStandardItemModel& from = index == 0 ? members_ : composition_list_;
    QStandardItemModel& to = index == 0 ? composition_list_ : members_;
    QItemSelectionModel& selection = index == 0 ? members_selection_ : composition_selection_;
    const auto row = current_row(selection);
    if (!row || (index == 0 && !can_add()))
        return;
    to.appendRow(from.takeRow(*row));
    if (const auto next = row_after_removal(*row, from.rowCount()))
        select_row_at(selection, *next);
    select_row_at(index == 0 ? composition_selection_ : members_selection_, to.rowCount() - 1);
    changed();
}

void FrmEngagRelais::cmd_caltps()
{
    if (relay_number_ <= 0)
        return;
    std::vector<RelaySwimmer> swimmers;
    for (int r = 0; r < composition_list_.rowCount(); ++r)
        swimmers.push_back({row_key(composition_list_, r), composition_list_.item(r, 0)->text(),
                            composition_list_.item(r, 1)->text()});
    RelayTime result;
    if (!reading(app().ui, [&] {
            result = calcul_temps_relais(app(), relay_events_[size_t(relay_event_index_)].libelle, swimmers, longueur_);
        }))
        return;
    if (result.ok())
        txt_temps = result.time;
    else
        msg_erreur(app().ui, relay_time_message(result));
    changed();
}

bool FrmEngagRelais::save_relay()
{
    if (read_only() || relay_number_ <= 0 || relay_event_index_ < 0)
        return true;
    AppContext& a = app();
    status_text(a.ui, QStringLiteral("Sauvegarde de la composition du relais en cours"));
    if (!(text_to_double(normalise_temps(txt_temps)) > 0))
        txt_temps = QStringLiteral("0.0000");
    try {
        a.db.exec_sql(relay_save_sql(relay_key(), normalise_temps(txt_temps), composition_nums(), a.state.num_lic_nulle));
    } catch (const std::exception& e) {
        status_text(a.ui, QString());
        msg_erreur(a.ui, kOpError, &e);
        return false;
    }
    status_text(a.ui, QString());
    return true;
}

bool FrmEngagRelais::save_shown()
{
    return composition_ ? save_relay() : save_counts();
}

void FrmEngagRelais::empty_tempo()
{
    AppContext& a = app();
    status_text(a.ui, QStringLiteral("Suppression des données temporaires"));
    try {
        a.db.clear_table(QStringLiteral("Relais_tempo"));
    } catch (const std::exception& e) {
        msg_erreur(a.ui, kOpError, &e);
    }
    status_text(a.ui, QString());
}

void FrmEngagRelais::finish()
{
    empty_tempo();
    close();
}

void FrmEngagRelais::cmd_ok()
{
    if (save_shown())
        finish();
}

void FrmEngagRelais::cmd_annuler()
{
    if (!read_only() && !CopierEtat(app(), QStringLiteral("Relais"), QStringLiteral("Relais_tempo"),
                                    app().state.profile_num, key_))
        return;
    finish();
}

bool FrmEngagRelais::query_close()
{
    if (!save_shown())
        return false;
    empty_tempo();
    return true;
}

FrmEngagRelais* OuvrirEngagRelais(AppContext& app, const QString& mode, const QString& key, const QString& title,
                                  const QString& caller)
{
    if (app.windows.check_window_open(QString(FrmEngagRelais::kName)))
        return nullptr;
    auto relais = std::make_unique<FrmEngagRelais>(app, mode, key);
    relais->set_title(title);
    // While relays are composed, the competitions stay as they are.
    if (!relais->register_window(caller.isEmpty() ? QString(WindowRegistry::kMainWindow) : caller,
                                 locks_on({QStringLiteral("mnuCompetModif"), QStringLiteral("mnuCompetSuppr")})))
        return nullptr;
    relais->RemplirInfo();
    return show_child(app.ui, std::move(relais));
}

void install_relay_handoff()
{
    set_competition_door(QString(keyword::kChoixPourEngagementsRelais), [](AppContext& app, const QString& num) {
        if (!CopierEtat(app, QStringLiteral("Relais_tempo"), QStringLiteral("Relais"), app.state.profile_num, num))
            return;
        OuvrirEngagRelais(app, QString(keyword::kModif), num, QStringLiteral("Définition des engagements des relais"),
                          QStringLiteral("Frm_liste_compet"));
    });
}

}  // namespace plouvarine
