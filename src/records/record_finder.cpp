#include "src/records/record_finder.h"

#include "src/base/services.h"
#include "src/base/sql_text.h"
#include "src/base/utils_date.h"
#include "src/base/utils_time.h"
#include "src/frame/app_context.h"
#include "src/frame/list_helpers.h"

#include <QHash>
#include <algorithm>
#include <map>
#include <set>
#include <tuple>

namespace plouvarine {

namespace {

struct Band {
    QString num;
    QString libelle;
    int age_inf = 0;
    int age_sup = 0;
    QString sexe;
};

struct Current {
    double tps = 0;
    QString date;
};

// A record's place: band, event, pool.
using Place = std::tuple<QString, int, int>;

// One swim of the history, individual or relay.
struct Swim {
    int code = 0;
    int bassin = 0;
    double tps = 0;
    QString date;
    QString lieu;
    int age = -1;
    QString sexe;      // the band's sex, from the event
    QString epreuve;
    QString nom;
    QString prenom;
    QStringList relais;
};

int year_of(const QString& date) { return date.left(4).toInt(); }

// The swim of row `r` of a history read whose first columns are the event,
// the pool, the time, the date and the place, as both tables keep them.
Swim swim_of(const Rows& rows, int r)
{
    Swim s;
    s.code = rows.value(r, 0).toInt();
    s.bassin = rows.value(r, 1).toInt();
    s.tps = rows.value(r, 2).toDouble();
    s.date = rows.value(r, 3);
    s.lieu = rows.value(r, 4);
    return s;
}

std::vector<Band> read_bands(AppContext& app)
{
    const Rows rows = app.db.load_rows(
        QStringLiteral("SELECT Num_cat, Libelle, Age_inf, Age_sup, Sexe FROM Categori_record_club WHERE Code_Club = ") +
        quote_sql(app.state.club_code) + QStringLiteral(" AND Old = false ORDER BY Age_inf, Sexe"));
    std::vector<Band> bands;
    for (int r = 0; r < rows.size(); ++r)
        bands.push_back({rows.value(r, 0), rows.value(r, 1), rows.value(r, 2).toInt(), rows.value(r, 3).toInt(),
                         rows.value(r, 4)});
    return bands;
}

// The current record of each place (the fastest, the earliest of a tie), and
// every row held, so that a swim already taken is not proposed again.
void read_records(AppContext& app, std::map<Place, Current>& current, std::set<std::tuple<Place, QString, QString>>& held)
{
    const Rows rows = app.db.load_rows(
        QStringLiteral("SELECT RecordClub.Categorie, RecordClub.Code_nage, RecordClub.Bassin, RecordClub.Tps, "
                       "RecordClub.Date_perf ") +
        QStringLiteral("FROM Categori_record_club Categori_record_club, RecordClub RecordClub ") +
        QStringLiteral("WHERE Categori_record_club.Num_cat = RecordClub.Categorie AND Categori_record_club.Code_Club = ") +
        quote_sql(app.state.club_code) +
        QStringLiteral(" ORDER BY RecordClub.Categorie, RecordClub.Code_nage, RecordClub.Bassin, RecordClub.Tps, "
                       "RecordClub.Date_perf"));
    for (int r = 0; r < rows.size(); ++r) {
        const Place place{rows.value(r, 0), rows.value(r, 1).toInt(), rows.value(r, 2).toInt()};
        current.try_emplace(place, Current{rows.value(r, 3).toDouble(), rows.value(r, 4)});
        held.insert({place, normalise_temps(rows.value(r, 3)), rows.value(r, 4)});
    }
}

std::vector<Swim> read_individual(AppContext& app)
{
    const Rows rows = app.db.load_rows(
        QStringLiteral("SELECT Liffn.Code_epreuve, Liffn.Type_bassin, Liffn.Tps, Liffn.Date_perf, Liffn.Lieu, "
                       "Liffn.Age_perf, Licence.Nom, Licence.Prenom, Licence.Date_Naissance, Nage.Sexe, Nage.Libelle, "
                       "Licence.Sexe ") +
        QStringLiteral("FROM Liffn Liffn, Licence Licence, Nage Nage ") +
        QStringLiteral("WHERE Licence.Num = Liffn.Num_Lic AND Nage.Code_Nage = Liffn.Code_epreuve ") +
        QStringLiteral("AND Liffn.Code_club = ") + quote_sql(app.state.club_code) +
        QStringLiteral(" AND Liffn.Tps > 0 AND Liffn.Tps < 91 AND Liffn.Tps_inter = false"));
    std::vector<Swim> swims;
    for (int r = 0; r < rows.size(); ++r) {
        Swim s = swim_of(rows, r);
        s.age = rows.value(r, 5).toInt();
        if (s.age <= 0 && !rows.value(r, 8).isEmpty())
            s.age = year_of(s.date) - year_of(rows.value(r, 8));
        s.nom = rows.value(r, 6);
        s.prenom = rows.value(r, 7);
        s.sexe = sexe_categorie(rows.value(r, 9));
        s.epreuve = rows.value(r, 10);
        // A swim filed under the other sex's event belongs to no band of the swimmer.
        if (!rows.value(r, 11).trimmed().isEmpty() && s.sexe != QLatin1String("Mixte") &&
            sexe_categorie(rows.value(r, 11)) != s.sexe)
            continue;
        swims.push_back(s);
    }
    return swims;
}

std::vector<Swim> read_relays(AppContext& app)
{
    QString legs;
    for (int i = 1; i <= 10; ++i)
        legs += QStringLiteral(", Liffn_relais.Relayeur") + QString::number(i);
    const Rows rows = app.db.load_rows(
        QStringLiteral("SELECT Liffn_relais.Code_epreuve, Liffn_relais.Type_bassin, Liffn_relais.Tps, "
                       "Liffn_relais.Date_perf, Liffn_relais.Lieu, Nage.Sexe, Nage.Libelle") +
        legs + QStringLiteral(" FROM Liffn_relais Liffn_relais, Nage Nage ") +
        QStringLiteral("WHERE Nage.Code_Nage = Liffn_relais.Code_epreuve AND Liffn_relais.Code_club = ") +
        quote_sql(app.state.club_code) + QStringLiteral(" AND Liffn_relais.Tps > 0 AND Liffn_relais.Tps < 91"));
    if (rows.empty())
        return {};
    // The swimmers of the legs, read once.
    QHash<QString, std::pair<QString, QString>> swimmers;  // Num -> name, birth date
    const Rows people = app.db.load_rows(
        QStringLiteral("SELECT Licence.Num, Licence.Nom, Licence.Prenom, Licence.Date_Naissance FROM Licence Licence, "
                       "Liffn_relais Liffn_relais WHERE Liffn_relais.Code_club = ") +
        quote_sql(app.state.club_code) +
        QStringLiteral(" AND (Licence.Num = Liffn_relais.Relayeur1 OR Licence.Num = Liffn_relais.Relayeur2 OR "
                       "Licence.Num = Liffn_relais.Relayeur3 OR Licence.Num = Liffn_relais.Relayeur4 OR "
                       "Licence.Num = Liffn_relais.Relayeur5 OR Licence.Num = Liffn_relais.Relayeur6 OR "
                       "Licence.Num = Liffn_relais.Relayeur7 OR Licence.Num = Liffn_relais.Relayeur8 OR "
                       "Licence.Num = Liffn_relais.Relayeur9 OR Licence.Num = Liffn_relais.Relayeur10) "
                       "GROUP BY Licence.Num, Licence.Nom, Licence.Prenom, Licence.Date_Naissance"));
    for (int r = 0; r < people.size(); ++r)
        swimmers.insert(people.value(r, 0),
                        {people.value(r, 1) + u' ' + people.value(r, 2), people.value(r, 3)});
    std::vector<Swim> swims;
    for (int r = 0; r < rows.size(); ++r) {
        Swim s = swim_of(rows, r);
        s.sexe = sexe_categorie(rows.value(r, 5));
        s.epreuve = rows.value(r, 6);
        s.nom = app.state.club_name;
        for (int i = 0; i < 10; ++i) {
            const QString num = rows.value(r, 7 + i);
            if (num.isEmpty() || num == app.state.num_lic_nulle || !swimmers.contains(num))
                continue;
            const auto& [name, birth] = swimmers.value(num);
            s.relais << name;
            if (!birth.isEmpty())
                s.age = std::max(s.age, year_of(s.date) - year_of(birth));
        }
        swims.push_back(s);
    }
    return swims;
}

}  // namespace

std::vector<RecordProposal> cherche_records(AppContext& app)
{
    const std::vector<Band> bands = read_bands(app);
    std::map<Place, Current> current;
    std::set<std::tuple<Place, QString, QString>> held;
    read_records(app, current, held);
    std::vector<Swim> swims = read_individual(app);
    for (Swim& s : read_relays(app))
        swims.push_back(std::move(s));

    std::map<Place, std::vector<RecordProposal>> found;
    for (const Swim& s : swims) {
        for (const Band& band : bands) {
            if (s.age < band.age_inf || s.age > band.age_sup || band.sexe.compare(s.sexe, Qt::CaseInsensitive) != 0)
                continue;
            const Place place{band.num, s.code, s.bassin};
            if (held.count({place, normalise_temps(QString::number(s.tps, 'f', 4)), s.date}))
                continue;
            const auto record = current.find(place);
            if (record != current.end() && (s.tps > record->second.tps || s.date < record->second.date))
                continue;
            RecordProposal p;
            p.entry = {band.num, band.libelle, s.code, s.bassin, s.nom, s.prenom, s.tps, s.date, s.lieu, s.relais};
            p.epreuve = s.epreuve;
            if (record != current.end())
                p.record_tps = normalise_temps(QString::number(record->second.tps, 'f', 4));
            found[place].push_back(p);
        }
    }
    std::vector<RecordProposal> out;
    for (auto& [place, list] : found) {
        std::sort(list.begin(), list.end(), [](const RecordProposal& a, const RecordProposal& b) {
            return std::tie(a.entry.date, a.entry.tps) < std::tie(b.entry.date, b.entry.tps);
        });
        // With no record yet, the fastest swim is the record; the slower ones
        // before it stood as records too and are part of its history.
        if (!current.count(place)) {
            std::vector<RecordProposal> chain;
            QString last_date = QStringLiteral("99999999");
            std::vector<RecordProposal> by_time = list;
            std::stable_sort(by_time.begin(), by_time.end(),
                             [](const RecordProposal& a, const RecordProposal& b) { return a.entry.tps < b.entry.tps; });
            for (const RecordProposal& p : by_time)
                if (p.entry.date <= last_date) {
                    chain.push_back(p);
                    last_date = p.entry.date;
                }
            std::reverse(chain.begin(), chain.end());
            // The best time equalled later is a record too, tied.
            for (const RecordProposal& p : list)
                if (p.entry.tps == chain.back().entry.tps && p.entry.date > chain.back().entry.date)
                    chain.push_back(p);
            list = chain;
        }
        out.insert(out.end(), list.begin(), list.end());
    }
    return out;
}

FrmChercheRecord::FrmChercheRecord(AppContext& app) : View(app, QString(kName))
{
    set_title(QStringLiteral("Records à valider"));
}

void FrmChercheRecord::charge()
{
    proposals_ = cherche_records(app());
    list_.clear();
    list_.setHorizontalHeaderLabels({QStringLiteral("Nom"), QStringLiteral("Epreuve"), QStringLiteral("Catégorie"),
                                     QStringLiteral("Bassin"), QStringLiteral("Tps"), QStringLiteral("Date"),
                                     QStringLiteral("Lieu"), QStringLiteral("Record actuel")});
    for (const RecordProposal& p : proposals_) {
        list_.appendRow(fixed_row(
            {(p.entry.nom + u' ' + p.entry.prenom).trimmed(), p.epreuve, p.entry.libelle,
             QString::number(p.entry.bassin), affiche_temps(QString::number(p.entry.tps, 'f', 4)),
             DateLongue(p.entry.date), p.entry.lieu, p.record_tps.isEmpty() ? QString() : affiche_temps(p.record_tps)}));
    }
    selected = proposals_.empty() ? -1 : 0;
    changed();
}

void FrmChercheRecord::remove_selected()
{
    proposals_.erase(proposals_.begin() + selected);
    list_.removeRow(selected);
    if (selected >= int(proposals_.size()))
        selected = int(proposals_.size()) - 1;
    changed();
}

bool FrmChercheRecord::accepter()
{
    if (selected < 0 || selected >= int(proposals_.size()))
        return false;
    try {
        if (accepte_record(app(), 1, proposals_[size_t(selected)].entry, QString()).isEmpty())
            return false;
    } catch (const std::exception& e) {
        msg_erreur(app().ui, QString(), &e);
        return false;
    }
    remove_selected();
    if (on_accepted)
        on_accepted();
    return true;
}

void FrmChercheRecord::ignorer()
{
    if (selected >= 0 && selected < int(proposals_.size()))
        remove_selected();
}

void FrmChercheRecord::ouvre(const QString& caller)
{
    try {
        WaitCursor wait(app().ui);
        charge();
    } catch (const std::exception& e) {
        msg_erreur(app().ui, QString(), &e);
        return;
    }
    if (proposals_.empty()) {
        msg_info(app().ui, QStringLiteral("Aucune performance du club ne bat ni n'égale un record."));
        return;
    }
    if (!register_window(caller))
        return;
    app().ui.show_modal(*this);
}

}  // namespace plouvarine
