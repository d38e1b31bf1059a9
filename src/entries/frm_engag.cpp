#include "src/entries/frm_engag.h"

#include "src/base/text.h"
#include "src/base/utils_date.h"
#include "src/base/utils_time.h"
#include "src/competitions/liste_compet.h"
#include "src/frame/app_context.h"
#include "src/frame/keywords.h"
#include "src/frame/list_helpers.h"
#include "src/licences/removed_swimmers.h"

namespace plouvarine {

namespace {

constexpr int kMaxTeams = 49;

// A flag raised for the length of a scope.
class Raised {
public:
    explicit Raised(bool& flag) : flag_(flag), old_(flag) { flag_ = true; }
    ~Raised() { flag_ = old_; }

private:
    bool& flag_;
    bool old_;
};

int team_count(const QString& text)
{
    return qBound(0, text.trimmed().toInt(), kMaxTeams);
}

}  // namespace

FrmEngag::FrmEngag(AppContext& app, const QString& mode, const QString& key, bool modele)
    : View(app, QString(kName)), mode_(mode), key_(key), modele_(modele)
{
    target_.key = key;
    target_.modele = modele;
    target_.profile = app.state.profile_num;
    QObject::connect(&engag_selection_, &QItemSelectionModel::currentRowChanged, &engag_selection_,
                     [this](const QModelIndex& current) {
                         if (!loading_ && current.isValid())
                             on_swimmer(current.row());
                     });
}

QString FrmEngag::key_test(const QString& table) const
{
    if (modele_)
        return table + QStringLiteral(".Num_modele = ") + key_;
    return table + QStringLiteral(".Num_compet = ") + key_ + QStringLiteral(" and ") + table +
           QStringLiteral(".Num_profil = ") + target_.profile;
}

void FrmEngag::Remplir_Info_Engag()
{
    AppContext& a = app();
    try {
        const QString table = modele_ ? QStringLiteral("Engag_equipe_modele") : QStringLiteral("Engag_equipe");
        const Rows counts = a.db.load_rows(QStringLiteral("SELECT Eq_Homme, Eq_Femme, Eq_Mixte") +
                                           QStringLiteral(" FROM ") + table + QStringLiteral(" where ") +
                                           key_test(table));
        fill_teams(team_count(counts.first(0)), team_count(counts.first(1)), team_count(counts.first(2)));
        several_clubs_ = a.db.count_query(QStringLiteral("select count(*) from Club")) > 1;
        events_ = ChargerEpreuves(a.db);
        if (!modele_) {
            const Rows compet =
                a.db.load_rows(QStringLiteral("select Longueur, Debut from Rcomp where AutoNum = ") + key_);
            longueur_ = compet.first(0).toInt();
            debut_perf_ = DebutPerf(compet.first(1));
        }
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QString(), &e);
    }
    set_team(0);
}

void FrmEngag::fill_teams(int hommes, int femmes, int mixtes)
{
    teams_ = {kIndividuel};
    const std::pair<int, const char*> kinds[] = {{hommes, "Homme"}, {femmes, "Femme"}, {mixtes, "Mixte"}};
    for (const auto& [count, kind] : kinds)
        for (int n = 1; n <= count; ++n)
            teams_ << QStringLiteral("Equipe ") + QString::number(n) + QLatin1Char(' ') + QLatin1String(kind);
}

void FrmEngag::SetAccessControleForModele()
{
    edit_enabled_ = mode_ != keyword::kView;
    changed();
}

bool FrmEngag::row_shown(int row) const
{
    return row >= 0 && row < kPanelRows && events_[size_t(row)].shown;
}

bool FrmEngag::has_option_50(int row) const
{
    return row_shown(row) && events_[size_t(row)].possible_50;
}

bool FrmEngag::check_enabled(int row) const
{
    if (!row_shown(row) || swimmer_.isEmpty())
        return false;
    // The events swum only in a 25 m pool can't be entered elsewhere.
    return modele_ || longueur_ == 25 || events_[size_t(row)].possible_50;
}

bool FrmEngag::fields_enabled(int row) const
{
    return !modele_ && check_enabled(row) && panel_[size_t(row)].checked;
}

void FrmEngag::set_team(int index)
{
    if (index < 0 || index >= teams_.size())
        return;
    save_current();
    team_index_ = index;
    const QString team = teams_[index];
    target_.equipe = 0;
    target_.mixte = false;
    sexe_.clear();
    if (team != kIndividuel) {
        const QStringList parts = team.mid(QStringLiteral("Equipe ").size()).split(QLatin1Char(' '));
        target_.equipe = parts.value(0).toInt();
        const QString kind = parts.value(1);
        if (kind == QLatin1String("Homme"))
            sexe_ = QStringLiteral("M");
        else if (kind == QLatin1String("Femme"))
            sexe_ = QStringLiteral("F");
        else
            target_.mixte = true;
    }
    swimmer_.clear();
    PurgeInfoEngagementNageur();
    fill_lists();
    changed();
}

void FrmEngag::fill_lists()
{
    AppContext& a = app();
    const QString t = modele_ ? QStringLiteral("Engag_nageur_modele") : QStringLiteral("Engag_nageur");
    const QString n = QString::number(target_.equipe);
    const QString flag = bool_text(target_.mixte);
    Raised loading(loading_);
    engag_.clear();
    licencie_.clear();
    try {
        QStringList headers{QStringLiteral("Nom"), QStringLiteral("Prénom"), QStringLiteral("Licence")};
        if (several_clubs_)
            headers << QStringLiteral("Club Origine");
        const QString sql =
            QStringLiteral("SELECT Licence.Nom, Licence.Prenom, Licence.Licence, ") +
            (several_clubs_ ? QStringLiteral("Club.Intitule,") : QString()) + QStringLiteral(" Licence.Num ") +
            QStringLiteral("FROM Licence Licence") + QStringLiteral(",Club Club") + QStringLiteral(", ") + t +
            QStringLiteral(" ") + t + QStringLiteral(" WHERE ") +
            QStringLiteral("Club.Code_federal = Licence.Code_Club AND ") + QStringLiteral("Licence.Num = ") + t +
            QStringLiteral(".Num_Lic AND ") + key_test(t) + QStringLiteral(" AND ") + t + QStringLiteral(".Equipe = ") +
            n + QStringLiteral(" AND ") + t + QStringLiteral(".Equipe_m = ") + flag +
            (sexe_.isEmpty() ? QString() : QStringLiteral(" AND Licence.Sexe = '") + sexe_ + QStringLiteral("'")) +
            QStringLiteral(" AND Licence.Visible = true ORDER BY Licence.Nom, Licence.Prenom");
        std::vector<int> columns{0, 1, 2};
        if (several_clubs_)
            columns.push_back(3);
        fill_collections(a.db, sql, {{&engag_, columns, several_clubs_ ? 4 : 3, false}});
        engag_.setHorizontalHeaderLabels(headers);

        // Individuals and members of this team stay among those who can be added.
        const QString other_teams = QStringLiteral(" AND NOT (") + QStringLiteral("Num IN ") +
                                    QStringLiteral("(SELECT Num_Lic FROM ") + t + QStringLiteral(" WHERE ") +
                                    key_test(t) + QStringLiteral(" AND NOT (") + t +
                                    QStringLiteral(".Equipe = 0 AND ") + t + QStringLiteral(".Equipe_m = false) AND not (") +
                                    t + QStringLiteral(".Equipe = ") + n + QStringLiteral(" AND ") + t +
                                    QStringLiteral(".Equipe_m = ") + flag + QStringLiteral(")))");
        QString free;
        if (a.state.club_selection) {
            free = QStringLiteral("SELECT Licence.Licence, Licence.Nom, Licence.Prenom, Licence.Num, Club.Intitule ") +
                   QStringLiteral("FROM Club Club, Licence Licence, Selection Selection ") +
                   QStringLiteral("WHERE Club.Code_federal = Licence.Code_club and Licence.Num = Selection.Num_Lic and ") +
                   QStringLiteral("Selection.Code_Sel =  '") + quote_sql(a.state.club_code) +
                   QStringLiteral("' and Selection.Visible = true and Licence.Visible = true");
            QString licence_num = other_teams;
            licence_num.replace(QStringLiteral(" AND NOT (Num IN "), QStringLiteral(" AND NOT (Licence.Num IN "));
            free += licence_num;
        } else {
            free = QStringLiteral("SELECT Licence, Nom, Prenom, Num FROM Licence ") + QStringLiteral("where Code_Club = '") +
                   quote_sql(a.state.club_code) + QStringLiteral("' and Visible = true") + other_teams;
        }
        if (!sexe_.isEmpty())
            free += QStringLiteral(" and ") + QStringLiteral("Sexe = '") + sexe_ + QStringLiteral("'");
        free += QStringLiteral(" order by ") + QStringLiteral("Nom, ") + QStringLiteral("Prenom");
        fill_collections(a.db, free, {{&licencie_, {0, 1, 2}, 3, false}});
        licencie_.setHorizontalHeaderLabels({QStringLiteral("Licence"), QStringLiteral("Nom"), QStringLiteral("Prénom")});
        for (int r = 0; r < licencie_.rowCount(); ++r)
            licencie_.item(r, 0)->setData(licencie_.item(r, 1)->text() + QLatin1Char(' ') + licencie_.item(r, 2)->text(),
                                          kNomPrenomRole);
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QString(), &e);
    }
    engag_selection_.clear();
    licencie_selection_.clear();
}

void FrmEngag::select_swimmer(int row)
{
    const QModelIndex current = engag_selection_.currentIndex();
    if (current.isValid() && current.row() == row)
        on_swimmer(row);
    else
        select_row_at(engag_selection_, row);  // the selection's signal shows him
}

void FrmEngag::on_swimmer(int row)
{
    const QString num = row_key(engag_, row);
    if (num.isEmpty() || num == swimmer_)
        return;
    AppContext& a = app();
    save_current();
    PurgeInfoEngagementNageur();
    swimmer_ = num;
    status_text(a.ui, QStringLiteral("Affichage des engagements du nageur en cours"));
    try {
        AfficherEngagNageur(a.db, target_, swimmer_, events_, panel_);
        if (!modele_)
            tab_perf_ = ChercherPerfs(a.db, swimmer_, debut_perf_);
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QString(), &e);
    }
    status_text(a.ui, QString());
    changed();
}

void FrmEngag::PurgeInfoEngagementNageur()
{
    panel_ = EngagPanel{};
    tab_perf_ = TabPerf{};
}

void FrmEngag::save_current()
{
    if (mode_ == keyword::kView || swimmer_.isEmpty())
        return;
    SaveEngagNageur(app(), target_, swimmer_, events_, panel_);
}

void FrmEngag::set_checked(int row, bool checked)
{
    if (loading_ || !check_enabled(row))
        return;
    EngagRow& entry = row_at(row);
    entry = EngagRow{};
    entry.checked = checked;
    if (checked && !modele_) {
        const PerfSlot& perf = tab_perf_[size_t(row)];
        if (!perf.temps.isEmpty()) {
            entry.temps = perf.temps;
            entry.lieu = perf.lieu;
            if (!perf.date.isEmpty())
                AfficheDate(entry.jour, entry.mois, entry.annee, perf.date);
            entry.bassin_50 = perf.bassin == QLatin1String("50") && has_option_50(row);
        }
    }
    changed();
}

void FrmEngag::set_temps(int row, const QString& text)
{
    if (fields_enabled(row))
        row_at(row).temps = text;
}

void FrmEngag::leave_temps(int row)
{
    if (!fields_enabled(row))
        return;
    row_at(row).temps = normalise_temps(row_at(row).temps);
    changed();
}

void FrmEngag::set_lieu(int row, const QString& text)
{
    if (fields_enabled(row))
        row_at(row).lieu = text;
}

void FrmEngag::set_date_part(int row, int part, const QString& text)
{
    if (!fields_enabled(row))
        return;
    EngagRow& entry = row_at(row);
    (part == 0 ? entry.jour : part == 1 ? entry.mois : entry.annee) = text;
}

void FrmEngag::set_bassin_50(int row, bool on)
{
    if (!fields_enabled(row))
        return;
    row_at(row).bassin_50 = on && has_option_50(row);
    changed();
}

void FrmEngag::set_search_text(const QString& text)
{
    search_ = text;
    incremental_select(licencie_selection_, search_, 0, kNomPrenomRole);
    changed();
}

void FrmEngag::search_return()
{
    if (!edit_enabled_ || !incremental_search(licencie_, search_, 0, kNomPrenomRole))
        return;
    Cmd_add();
    search_.clear();
    changed();
}

void FrmEngag::Cmd_add()
{
    if (!edit_enabled_)
        return;
    AppContext& a = app();
    QStringList added;
    std::vector<int> rows;
    for (const QModelIndex& index : licencie_selection_.selectedRows())
        rows.push_back(index.row());
    if (rows.empty())
        if (const QModelIndex current = licencie_selection_.currentIndex(); current.isValid())
            rows.push_back(current.row());
    try {
        const QString t = modele_ ? QStringLiteral("Engag_nageur_modele") : QStringLiteral("Engag_nageur");
        const QString n = QString::number(target_.equipe);
        const QString flag = bool_text(target_.mixte);
        for (int row : rows) {
            const QString num = row_key(licencie_, row);
            if (num.isEmpty())
                continue;
            const QString count =
                modele_ ? QStringLiteral("select count(*) from Engag_nageur_modele ") +
                              QStringLiteral("where Num_modele = ") + key_ + QStringLiteral(" And Num_Lic = ") + num
                        : QStringLiteral("select count(*) from Engag_nageur where Num_compet = ") + key_ +
                              QStringLiteral(" and Num_Lic = ") + num + QStringLiteral(" and Num_profil = ") +
                              target_.profile;
            if (a.db.count_query(count) < 1) {
                if (modele_)
                    a.db.exec_sql(QStringLiteral("INSERT INTO Engag_nageur_modele (Num_modele") +
                                  QStringLiteral(", Num_Lic") + QStringLiteral(", Equipe, Equipe_m") +
                                  QStringLiteral(") ") + QStringLiteral("VALUES (") + key_ + QStringLiteral(", ") +
                                  num + QStringLiteral(", ") + n + QStringLiteral(", ") + flag + QStringLiteral(");"));
                else
                    a.db.exec_sql(QStringLiteral("INSERT INTO Engag_nageur (Num_profil, Num_compet") +
                                  QStringLiteral(", Num_Lic") + QStringLiteral(", Equipe, Equipe_m") +
                                  QStringLiteral(") ") + QStringLiteral("VALUES (") + target_.profile +
                                  QStringLiteral(", ") + key_ + QStringLiteral(", ") + num + QStringLiteral(", ") + n +
                                  QStringLiteral(", ") + flag + QStringLiteral(");"));
            } else {
                // AffecterEquipe: the swimmer was an individual or in this team.
                a.db.exec_sql(QStringLiteral("Update ") + t + QStringLiteral(" Set ") + QStringLiteral("Equipe = ") + n +
                              QStringLiteral(", Equipe_m = ") + flag + QStringLiteral(" where Num_Lic = ") + num +
                              (modele_ ? QStringLiteral(" and Num_modele = ") + key_
                                       : QStringLiteral(" and Num_compet = ") + key_ +
                                             QStringLiteral(" and Num_profil = ") + target_.profile));
            }
            added << num;
        }
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QStringLiteral("Une erreur s'est produite lors de l'opération."), &e);
    }
    if (added.isEmpty())
        return;
    // The lists are read again: the swimmers move from right to left.
    const QString shown = swimmer_;
    save_current();
    swimmer_.clear();
    PurgeInfoEngagementNageur();
    fill_lists();
    if (const std::optional<int> row = find_key(engag_, added.last()))
        select_swimmer(*row);
    else if (const std::optional<int> before = find_key(engag_, shown))
        select_swimmer(*before);
    changed();
}

void FrmEngag::delete_key()
{
    if (!edit_enabled_ || swimmer_.isEmpty())
        return;
    AppContext& a = app();
    const QString num = swimmer_;
    const QModelIndex current = engag_selection_.currentIndex();
    const int row = current.isValid() ? current.row() : 0;
    try {
        a.db.exec_sql(EffacerEngagNageurSql(target_, num));
        const QString t = modele_ ? QStringLiteral("Engag_nageur_modele") : QStringLiteral("Engag_nageur");
        const QString where = QStringLiteral(" where Num_Lic = ") + num + QStringLiteral(" and ") + key_test(t);
        // A swimmer taken out of "Individuel" has neither team nor entries
        // left: his row goes, as the end of the pass would take it.
        if (target_.equipe == 0 && !target_.mixte)
            a.db.exec_sql(QStringLiteral("Delete from ") + t + where);
        else
            a.db.exec_sql(QStringLiteral("Update ") + t + QStringLiteral(" Set Equipe = 0, Equipe_m = false") + where);
        if (!modele_)
            RetirerDesRelais(a, num, key_, target_.equipe, target_.mixte, target_.profile);
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QStringLiteral("Une erreur s'est produite lors de l'opération."), &e);
    }
    swimmer_.clear();
    PurgeInfoEngagementNageur();
    fill_lists();
    if (const std::optional<int> next = row_after_removal(row, engag_.rowCount()))
        select_swimmer(*next);
    changed();
}

void FrmEngag::cmd_ok()
{
    AppContext& a = app();
    save_current();
    const bool modele_wanted = !modele_ && Chk_DoModele && mode_ != keyword::kView;
    const QString key = key_;
    finish();
    // The entries go on into a new model once this pass has ended, through the
    // model list that the entry models register.
    if (modele_wanted)
        if (const HandoffTable::Run* run = a.handoffs.find(QString(keyword::kModeleDepuisEngagement)))
            (*run)(a, key);
}

void FrmEngag::cmd_annuler()
{
    AppContext& a = app();
    if (mode_ != keyword::kView) {
        status_text(a.ui, QStringLiteral("Annulation des modifications"));
        try {
            if (mode_ == kNewModele) {
                a.db.exec_sql(QStringLiteral("DELETE from Modele_engag where NumAuto = ") + key_);
            } else if (modele_) {
                RecopierModele(a.db, key_);
            } else {
                CopierVersTempo(a.db, target_.profile, key_, true);
                CopierEtat(a.db, QStringLiteral("Relais"), QStringLiteral("Relais_tempo"), target_.profile, key_);
            }
        } catch (const std::exception& e) {
            msg_erreur(a.ui, QString(), &e);
        }
    }
    finish();
}

void FrmEngag::finish()
{
    AppContext& a = app();
    status_text(a.ui, QStringLiteral("Suppression des données temporaires"));
    try {
        if (a.db.is_open()) {
            a.db.clear_table(QStringLiteral("Engag_tempo"));
            a.db.clear_table(QStringLiteral("Relais_tempo"));
        }
    } catch (const std::exception& e) {
        msg_erreur(a.ui, QString(), &e);
    }
    status_text(a.ui, QString());
    swimmer_.clear();
    close();
}

bool FrmEngag::query_close()
{
    // The close box keeps the pass, as command 0 does.
    save_current();
    swimmer_.clear();
    return true;
}

FrmEngag* OuvrirEngag(AppContext& app, const QString& mode, const QString& key, const QString& title, bool modele,
                      const QString& caller)
{
    if (app.windows.check_window_open(QString(FrmEngag::kName)))
        return nullptr;
    auto engag = std::make_unique<FrmEngag>(app, mode, key, modele);
    engag->set_title(title);
    if (!engag->register_window(caller.isEmpty() ? QString(WindowRegistry::kMainWindow) : caller))
        return nullptr;
    engag->SetAccessControleForModele();
    engag->Remplir_Info_Engag();
    FrmEngag* shown = engag.get();
    app.ui.show_window(std::move(engag));
    return shown;
}

void EngagerCompetition(AppContext& app, const QString& compet, const QString& caller)
{
    try {
        CopierVersTempo(app.db, app.state.profile_num, compet);
        CopierEtat(app.db, QStringLiteral("Relais_tempo"), QStringLiteral("Relais"), app.state.profile_num, compet);
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QString(), &e);
        return;
    }
    OuvrirEngag(app, QString(keyword::kModif), compet, QStringLiteral("Définition des engagements"), false, caller);
}

void install_entries_handoffs(AppContext& app)
{
    app.handoffs.add(QString(keyword::kChoixPourEngagements), [](AppContext& a, const QString& compet) {
        EngagerCompetition(a, compet, QString(FrmListeCompet::kName));
    });
}

}  // namespace plouvarine
