// Builds the demo base "demo.mdb" from the model base:
//   make_demo <model base> <output> <work folder> [today as yyyymmdd]
// One invented club with its officers, fees, activities and pools, a
// selection, 60 swimmers, three past competitions with their programmes,
// entries and relays, their results (each in a competition made for them, as
// the results import does), three seasons of performances, record bands
// and records, and an interclub to come with its teams. The results and the
// performances are written as the organisers' Lenex files into the work
// folder and taken in by the program's own imports. Names come from fixed
// lists and a fixed seed; the dates follow `today` (the day of the build).

#include "demo/meet.h"
#include "demo/people.h"

#include "components/exchange/trace.h"
#include "components/lenex/lenex_base.h"
#include "components/lenex/lenex_events.h"
#include "components/lenex/lenex_perfs.h"
#include "components/lenex/lenex_reader.h"
#include "components/lenex/lenex_results.h"
#include "src/base/errors.h"
#include "src/base/utils_date.h"
#include "src/frame/exchange_component.h"
#include "src/store/database.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cstdio>

using namespace plouvarine;
using namespace plouvarine::demo;
using lenex::Statement;

namespace {

const QString kClub = QStringLiteral("FRA2210290042");
const QString kSelection = QStringLiteral("FRA2210290000");
constexpr int kSwimmers = 60;

class Silent : public OperationProgress {
public:
    void set_message(int, const QString&) override {}
    void set_club(const QString&) override {}
    void set_swimmer(const QString&) override {}
    void set_progress(int, int) override {}
    void append_report(const QString&) override {}
};

QString day_text(const QDate& d)
{
    return d.toString(QStringLiteral("yyyyMMdd"));
}

int event_for(int code, const QString& sexe)
{
    return sexe == QLatin1String("M") ? code + 50 : code;
}

bool is_relay(int code)
{
    lenex::SwimStyle style;
    QChar gender;
    return lenex::event_style(code, style, gender) && style.relaycount > 1;
}

// The events a swimmer of `age` may swim (women's codes).
bool suits(int code, int age)
{
    lenex::SwimStyle style;
    QChar gender;
    lenex::event_style(code, style, gender);
    if (age <= 10)
        return style.distance <= 50 || (style.distance == 100 && style.stroke == QLatin1String("FREE"));
    if (age <= 13)
        return style.distance <= 200;
    return true;
}

// A relay leg's time for swimmer `s`: the stroke of the leg in a medley relay.
double leg_time(int relay_code, int leg, const Swimmer& s, const QDate& day, double jitter)
{
    lenex::SwimStyle style;
    QChar gender;
    lenex::event_style(relay_code, style, gender);
    static const char* const kMedley[] = {"BACK", "BREAST", "FLY", "FREE"};
    lenex::SwimStyle one{style.distance, 1,
                         style.stroke == QLatin1String("MEDLEY") ? QString::fromLatin1(kMedley[leg]) : QStringLiteral("FREE")};
    return swim_time(lenex::event_code(one, s.sexe.front()), s, day, jitter);
}

double add_times(double a, double b)
{
    return time_value(seconds_of(a) + seconds_of(b));
}

struct Competition {
    int autonum = 0;
    QString name, city, type;
    QDate date;
    int pool = 25;
    int piscine = 0;
    QVector<int> codes;  // women's and mixed codes; the men's follow each women's one
    QVector<int> programme() const
    {
        QVector<int> all;
        for (int c : codes) {
            all.append(c);
            if (c < 45)
                all.append(c + 50);
        }
        return all;
    }
};

class Generator {
public:
    Generator(Database& db, const QDate& today, const QString& work)
        : db_(db), today_(today), work_(work), people_(20261123)
    {
    }

    void run();

private:
    int insert(const QString& sql, std::initializer_list<QVariant> values)
    {
        Statement(db_, sql).run(values);
        Statement last(db_, QStringLiteral("SELECT last_insert_rowid()"));
        last.query();
        last.next();
        return last.integer(0);
    }
    void club();
    void swimmers();
    void competitions();
    void entries(const Competition& c);
    void interclub(const Competition& c);
    DemoMeet results_meet(const Competition& c);
    DemoMeet history_meet(const QString& name, const QString& city, const QDate& date, int pool,
                          const QVector<int>& codes);
    QVector<MeetRelay> relays_of(const QVector<int>& codes, const QDate& day, int club_index);
    void import_results(const Competition& c, const DemoMeet& meet);
    void import_performances(lenex::PerformanceImport& perfs, const DemoMeet& meet, const QString& name);
    struct Proposal {
        double time = 0;
        QString date, place;
        int pool = 0;
    };
    Proposal proposal(const Swimmer& s, int event, const QDate& day);
    void records();
    QVector<int> relay_swimmers(const QString& sexe, const QDate& day, int skip) const;

    Database& db_;
    QDate today_;
    QDir work_;
    People people_;
    QVector<DemoClub> clubs_;  // ours first, then the rivals
    QString nulle_;
    int profile_ = 0;
    QVector<int> pools_;
    int piscine_null_ = 0;
    QVector<Competition> past_, coming_;
};

void Generator::club()
{
    insert(QStringLiteral("INSERT INTO Club (Code_federal, Intitule, Selection, Visible, Adresse, Code_Postal, Ville, "
                          "Telephone, Fax, Mail) VALUES (?, ?, 0, 1, ?, ?, ?, ?, ?, ?)"),
           {kClub, QStringLiteral("Cercle des Nageurs de Plouvarine"), QStringLiteral("3 rue des Embruns"),
            QStringLiteral("29990"), QStringLiteral("Plouvarine"), QStringLiteral("02 98 00 00 42"), QString(),
            QStringLiteral("contact@cn-plouvarine.example")});
    insert(QStringLiteral("INSERT INTO Club (Code_federal, Intitule, Selection, Visible) VALUES (?, ?, 1, 1)"),
           {kSelection, QStringLiteral("Sélection départementale du Finistère")});
    profile_ = insert(QStringLiteral("INSERT INTO Profil (Libelle, Code_club, LastUse) VALUES (?, ?, 1)"),
                      {QStringLiteral("Secrétariat"), kClub});
    insert(QStringLiteral("INSERT INTO Profil (Libelle, Code_club, LastUse) VALUES (?, ?, 0)"),
           {QStringLiteral("Sélection"), kSelection});
    const char* const roles[] = {"Président", "Secrétaire", "Trésorier", "Entraîneur"};
    for (int i = 0; i < 4; ++i)
        insert(QStringLiteral("INSERT INTO Dirigeant (Code_federal, Fonction, Nom, Tel1, Tel2, Mail, Suppr) "
                              "VALUES (?, ?, ?, ?, '', ?, 0)"),
               {kClub, QString::fromUtf8(roles[i]), people_.person(), QStringLiteral("06 00 00 00 %1").arg(10 + i),
                QStringLiteral("bureau%1@cn-plouvarine.example").arg(i + 1)});
    const std::pair<const char*, double> fees[] = {{"Enfant", 150}, {"Adulte", 185}, {"Maîtres", 165}};
    for (const auto& [name, amount] : fees)
        insert(QStringLiteral("INSERT INTO Tarifs (Code_federal, Intitule, Tarif, Suppr) VALUES (?, ?, ?, 0)"),
               {kClub, QString::fromUtf8(name), amount});
    const char* const activities[] = {"École de natation", "Compétition", "Maîtres"};
    for (const char* a : activities)
        insert(QStringLiteral("INSERT INTO Activites (Code_federal, Activite, Responsable, Suppr) VALUES (?, ?, ?, 0)"),
               {kClub, QString::fromUtf8(a), people_.person()});
    // The reference pool first, as the opening of a new base makes it.
    piscine_null_ = insert(QStringLiteral("INSERT INTO Piscine (Nom) VALUES ('Null')"), {});
    const struct {
        const char *name, *address, *postcode, *city;
        int lanes, length;
    } pools[] = {{"Piscine des Embruns", "Allée du Port", "29990", "Plouvarine", 6, 25},
                 {"Centre aquatique de Kerbrestin", "Rue du Stade", "29991", "Kerbrestin", 8, 25},
                 {"Stade nautique de Lanvézec", "Boulevard de la Mer", "29992", "Lanvézec", 8, 50}};
    for (const auto& p : pools)
        pools_.append(insert(QStringLiteral("INSERT INTO Piscine (Nom, Adresse, Code_Postal, Ville, NbCouloir, Bassin) "
                                            "VALUES (?, ?, ?, ?, ?, ?)"),
                             {QString::fromUtf8(p.name), QString::fromUtf8(p.address), QString::fromLatin1(p.postcode),
                              QString::fromUtf8(p.city), p.lanes, p.length}));
}

void Generator::swimmers()
{
    DemoClub ours{kClub, QStringLiteral("Cercle des Nageurs de Plouvarine"), QStringLiteral("Plouvarine"),
                  people_.swimmers(kSwimmers, 8, 40, today_, 10421)};
    const QString season = DebutSaison(day_text(today_));
    Statement add(db_, QStringLiteral(
        "INSERT INTO Licence (Code_club, Licence, Nom, Prenom, Sexe, Date_Naissance, Nationalite, Adresse, "
        "Suite_adresse, Code_Postal, Localite, Telephone, Sportive, Synchro, Water_Polo, Plongeon, Dirigeant, Maitre, "
        "Date_Depot, Date_obliteration, Type_licence, Nature, Code_unique, Visible, Date_suppr, Tel2, Mail, Tarif, "
        "Medecin, Date_Ctrl_Medical) VALUES (?, ?, ?, ?, ?, ?, 'FRA', ?, '', '29990', 'Plouvarine', ?, 'O', 'N', 'N', "
        "'N', 'N', ?, ?, ?, ?, 'N', ?, 1, NULL, '', ?, ?, ?, ?)"));
    Statement activity(db_, QStringLiteral("INSERT INTO Activite_licence (Num_lic, Activite) VALUES (?, ?)"));
    Statement last(db_, QStringLiteral("SELECT last_insert_rowid()"));
    for (int i = 0; i < ours.swimmers.size(); ++i) {
        Swimmer& s = ours.swimmers[i];
        const int age = s.age_on(today_);
        const QString deposit = day_text(QDate::fromString(season, QStringLiteral("yyyyMMdd")).addDays(5 + people_.pick(40)));
        const QString fee = age >= 25 ? QStringLiteral("Maîtres") : age >= 18 ? QStringLiteral("Adulte") : QStringLiteral("Enfant");
        add.run({kClub, s.licence, s.nom, s.prenom, s.sexe, s.birth_text(),
                 QStringLiteral("%1 rue des Goélands").arg(1 + people_.pick(80)),
                 QStringLiteral("02 98 00 %1 %2").arg(10 + i).arg(20 + people_.pick(70)),
                 age >= 25 ? QStringLiteral("O") : QStringLiteral("N"), deposit, deposit,
                 i % 7 == 0 ? QStringLiteral("N") : QStringLiteral("R"), kClub + s.licence,
                 QStringLiteral("nageur%1@exemple.invalid").arg(i + 1), fee, QStringLiteral("Dr Kervella"),
                 day_text(QDate::fromString(deposit, QStringLiteral("yyyyMMdd")).addDays(-10))});
        last.query();
        last.next();
        s.num = last.integer(0);
        activity.run({s.num, age >= 25 ? QStringLiteral("Maîtres") : age <= 9 ? QStringLiteral("École de natation")
                                                                             : QStringLiteral("Compétition")});
    }
    // The licence nulle, as the opening of a base makes it under the club.
    nulle_ = QString::number(insert(QStringLiteral("INSERT INTO Licence (Code_club, Licence, Nom, Visible, Date_suppr) "
                                                   "VALUES (?, '1', 'Null', 0, '')"),
                                    {kClub}));
    Statement info(db_, QStringLiteral("UPDATE Info SET LastUpdtLic = ?"));
    info.run({season});
    // The departmental selection: the club's young swimmers of 11 to 14.
    Statement member(db_, QStringLiteral("INSERT INTO Selection (Code_Sel, Num_Lic, Suppr, Visible) VALUES (?, ?, 0, 1)"));
    int taken = 0;
    for (const Swimmer& s : ours.swimmers) {
        const int age = s.age_on(today_);
        if (age >= 11 && age <= 14 && taken < 8) {
            member.run({kSelection, s.num});
            ++taken;
        }
    }
    clubs_.append(ours);
    clubs_.append({QStringLiteral("FRA2210290051"), QStringLiteral("Kerbrestin Natation"), QStringLiteral("Kerbrestin"),
                   people_.swimmers(10, 9, 30, today_, 20113)});
    clubs_.append({QStringLiteral("FRA2210290077"), QStringLiteral("Dauphins de Lanvézec"), QStringLiteral("Lanvézec"),
                   people_.swimmers(10, 9, 30, today_, 30517)});
}

void Generator::competitions()
{
    const Competition plan[] = {
        {0, QStringLiteral("Meeting d'automne de Kerbrestin"), QStringLiteral("Kerbrestin"), QStringLiteral("C"),
         today_.addDays(-76), 25, pools_[1], {1, 11, 21, 31, 2, 22, 40, 7, 45}},
        {0, QStringLiteral("Championnats départementaux"), QStringLiteral("Plouvarine"), QStringLiteral("C"),
         today_.addDays(-48), 25, pools_[0], {2, 12, 22, 32, 3, 41, 1, 43}},
        {0, QStringLiteral("Trophée des Embruns"), QStringLiteral("Lanvézec"), QStringLiteral("C"), today_.addDays(-13),
         50, pools_[2], {1, 2, 3, 4, 12, 22, 32, 42, 8}},
        {0, QStringLiteral("Interclubs départementaux"), QStringLiteral("Kerbrestin"), QStringLiteral("I"),
         today_.addDays(26), 25, pools_[1], {2, 12, 22, 32, 41, 8, 44}},
    };
    Statement add_line(db_, QStringLiteral("INSERT INTO Pcomp (Num_compet, Code_epreuve, JourCourse, Type, Nb_finales, "
                                           "Type_finale, Num_ordre) VALUES (?, ?, 1, 1, 0, ' ', ?)"));
    int number = 1;
    for (Competition c : plan) {
        const bool past = c.date < today_;
        c.autonum = insert(QStringLiteral("INSERT INTO Rcomp (Num, Type, Nom, Debut, Fin, Lieu, Longueur, Nb_couloir, "
                                          "Codif_fede, Codif_inter, Codif_reg, Codif_depar, Deroule, Visible, "
                                          "Num_Piscine) VALUES (?, ?, ?, ?, ?, ?, ?, 8, ' ', ' ', ?, ?, ?, ?, ?)"),
                           {QStringLiteral("29%1%2").arg(today_.year() % 100).arg(number++, 3, 10, QLatin1Char('0')),
                            c.type, c.name, day_text(c.date), day_text(c.date), c.city, c.pool,
                            c.type == QLatin1String("I") ? QStringLiteral("R") : QStringLiteral(" "),
                            QStringLiteral("Q"), past ? 1 : 0, past ? 0 : 1, c.piscine});
        int order = 1;
        for (int code : c.programme())
            add_line.run({c.autonum, code, order++});
        (past ? past_ : coming_).append(c);
    }
}

// The swimmer's best time in the event before `day`, over this season and
// the one before, with its date, place and pool, as the entry window
// proposes it; the time alone, estimated, when there is none (pool 0).
Generator::Proposal Generator::proposal(const Swimmer& s, int event, const QDate& day)
{
    Statement best(db_, QStringLiteral("SELECT Tps, Date_perf, Lieu, Type_bassin FROM Liffn WHERE Num_Lic = ? AND "
                                       "Code_epreuve = ? AND Tps > 0 AND Date_perf >= ? AND Date_perf < ? "
                                       "ORDER BY Tps LIMIT 1"));
    best.query({s.num, event, DebutSaison(day_text(day), 1), day_text(day)});
    if (best.next())
        return {best.real(0), best.text(1), best.text(2), best.integer(3)};
    return {swim_time(event, s, day.addDays(-60), 0.01), QString(), QString(), 0};
}

void Generator::entries(const Competition& c)
{
    Statement engag(db_, QStringLiteral("INSERT INTO Engag (Num_compet, Num_profil, Code_epreuve, Num_Lic, Num_equipe, "
                                        "Equipe_mixte, Tps_engagement, Date_perf, Lieu_perf, Bassin) "
                                        "VALUES (?, ?, ?, ?, 0, 0, ?, ?, ?, ?)"));
    const QDate before = c.date.addDays(-60);
    for (const Swimmer& s : clubs_[0].swimmers) {
        const int age = s.age_on(c.date);
        if (age < 9 || people_.pick(4) == 0)
            continue;
        int taken = 0;
        for (int code : c.codes) {
            if (is_relay(code) || !suits(code, age) || people_.pick(3) == 0 || taken == 3)
                continue;
            const int event = event_for(code, s.sexe);
            const Proposal p = proposal(s, event, c.date);
            engag.run({c.autonum, profile_, event, s.num, p.time, p.date, p.place, p.pool ? p.pool : c.pool});
            ++taken;
        }
    }
    Statement relais(db_, QStringLiteral("INSERT INTO Relais (Num_profil, Num_compet, Code_epreuve, Num_Lic, Num_equipe, "
                                         "Equipe_mixte, Tps, Licence1, Licence2, Licence3, Licence4, Licence5, Licence6, "
                                         "Licence7, Licence8, Licence9, Licence10) "
                                         "VALUES (?, ?, ?, ?, 0, 0, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"));
    for (const MeetRelay& r : relays_of(c.codes, c.date, 0)) {
        double tps = 0;
        for (int leg = 0; leg < 4; ++leg)
            tps = add_times(tps, leg_time(r.code, leg, clubs_[0].swimmers[r.legs[leg]], before, 0.01));
        const auto num = [&](int leg) { return clubs_[0].swimmers[r.legs[leg]].num; };
        relais.run({profile_, c.autonum, r.code, r.number, tps, num(0), num(1), num(2), num(3), nulle_, nulle_, nulle_,
                    nulle_, nulle_, nulle_});
    }
}

// The club's relay swimmers of one sex, fastest first, from 11 years old;
// `skip` leaves out the first ones (the swimmers of relay 1 for relay 2).
QVector<int> Generator::relay_swimmers(const QString& sexe, const QDate& day, int skip) const
{
    QVector<int> found;
    const QVector<Swimmer>& list = clubs_[0].swimmers;
    for (int i = 0; i < list.size(); ++i)
        if (list[i].sexe == sexe && list[i].age_on(day) >= 11 && list[i].age_on(day) <= 30)
            found.append(i);
    std::sort(found.begin(), found.end(), [&](int a, int b) {
        return seconds_of(swim_time(2, list[a], day, 0)) < seconds_of(swim_time(2, list[b], day, 0));
    });
    return found.mid(skip);
}

QVector<MeetRelay> Generator::relays_of(const QVector<int>& codes, const QDate& day, int club_index)
{
    QVector<MeetRelay> relays;
    for (int code : codes) {
        if (!is_relay(code))
            continue;
        if (code >= 45) {
            const QVector<int> f = relay_swimmers(QStringLiteral("F"), day, 0);
            const QVector<int> m = relay_swimmers(QStringLiteral("M"), day, 0);
            relays.append({club_index, 1, code, 0, {m[0], f[0], m[1], f[1]}});
            continue;
        }
        for (const QString& sexe : {QStringLiteral("F"), QStringLiteral("M")}) {
            const QVector<int> all = relay_swimmers(sexe, day, 0);
            for (int number = 1; number <= 2 && all.size() >= number * 4; ++number)
                relays.append({club_index, number, event_for(code, sexe), 0, all.mid((number - 1) * 4, 4)});
        }
    }
    return relays;
}

void Generator::interclub(const Competition& c)
{
    // One women's and one men's team of six, and their entries and relays.
    Statement teams(db_, QStringLiteral("INSERT INTO Engag_equipe (Num_compet, Num_profil, Eq_Homme, Eq_Femme, Eq_Mixte, "
                                        "Old_Eq_Homme, Old_Eq_Femme, Old_Eq_Mixte) VALUES (?, ?, 1, 1, 0, 1, 1, 0)"));
    teams.run({c.autonum, profile_});
    Statement member(db_, QStringLiteral("INSERT INTO Engag_nageur (Num_compet, Num_profil, Num_Lic, Equipe, Equipe_m, "
                                         "Old_equipe, Old_equipe_m) VALUES (?, ?, ?, 1, 0, 1, 0)"));
    Statement engag(db_, QStringLiteral("INSERT INTO Engag (Num_compet, Num_profil, Code_epreuve, Num_Lic, Num_equipe, "
                                        "Equipe_mixte, Tps_engagement, Date_perf, Lieu_perf, Bassin) "
                                        "VALUES (?, ?, ?, ?, 1, 0, ?, ?, ?, ?)"));
    Statement relais(db_, QStringLiteral("INSERT INTO Relais (Num_profil, Num_compet, Code_epreuve, Num_Lic, Num_equipe, "
                                         "Equipe_mixte, Tps, Licence1, Licence2, Licence3, Licence4, Licence5, Licence6, "
                                         "Licence7, Licence8, Licence9, Licence10) "
                                         "VALUES (?, ?, ?, 1, 1, 0, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"));
    const QDate before = past_.back().date;
    const QVector<int> individual = {2, 12, 22, 32, 41};
    for (const QString& sexe : {QStringLiteral("F"), QStringLiteral("M")}) {
        const QVector<int> team = relay_swimmers(sexe, c.date, 0).mid(0, 6);
        for (int k = 0; k < team.size(); ++k) {
            const Swimmer& s = clubs_[0].swimmers[team[k]];
            member.run({c.autonum, profile_, s.num});
            // Each swimmer of the team swims one individual event, the last
            // one two.
            for (int e = k; e < individual.size() && e <= k + (k == 4 ? 1 : 0); ++e) {
                const int event = event_for(individual[e], sexe);
                const Proposal p = proposal(s, event, c.date);
                engag.run({c.autonum, profile_, event, s.num, p.time, p.date, p.place, p.pool ? p.pool : c.pool});
            }
        }
        for (int code : {8, 44}) {
            const int event = event_for(code, sexe);
            double tps = 0;
            for (int leg = 0; leg < 4; ++leg)
                tps = add_times(tps, leg_time(event, leg, clubs_[0].swimmers[team[leg]], before, 0.005));
            const auto num = [&](int leg) { return clubs_[0].swimmers[team[leg]].num; };
            relais.run({profile_, c.autonum, event, tps, num(0), num(1), num(2), num(3), nulle_, nulle_, nulle_, nulle_,
                        nulle_, nulle_});
        }
    }
}

DemoMeet Generator::results_meet(const Competition& c)
{
    DemoMeet meet{c.name, c.city, c.date, c.pool, c.programme(), {}, {}};
    // What the club entered, as the organiser's file gives it back.
    const QHash<int, int> index = [&] {
        QHash<int, int> h;
        for (int i = 0; i < clubs_[0].swimmers.size(); ++i)
            h.insert(clubs_[0].swimmers[i].num, i);
        return h;
    }();
    Statement entered(db_, QStringLiteral("SELECT Num_Lic, Code_epreuve FROM Engag WHERE Num_compet = ? ORDER BY rowid"));
    entered.query({c.autonum});
    while (entered.next()) {
        const int who = index.value(entered.integer(0));
        const int code = entered.integer(1);
        const int draw = people_.pick(40);
        const QString status = draw == 0 ? QStringLiteral("DSQ") : draw == 1 ? QStringLiteral("DNS") : QString();
        meet.swims.append({0, who, code,
                           status.isEmpty() ? swim_time(code, clubs_[0].swimmers[who], c.date, people_.uniform(-0.02, 0.03)) : 0,
                           status});
    }
    for (int k = 1; k < clubs_.size(); ++k) {
        for (int i = 0; i < clubs_[k].swimmers.size(); ++i) {
            const Swimmer& s = clubs_[k].swimmers[i];
            int taken = 0;
            for (int code : c.codes)
                if (!is_relay(code) && suits(code, s.age_on(c.date)) && people_.pick(2) == 0 && taken++ < 2) {
                    const int event = event_for(code, s.sexe);
                    meet.swims.append({k, i, event, swim_time(event, s, c.date, people_.uniform(-0.02, 0.03)), {}});
                }
        }
    }
    Statement relays(db_, QStringLiteral("SELECT Code_epreuve, Num_Lic, Licence1, Licence2, Licence3, Licence4 FROM Relais "
                                         "WHERE Num_compet = ? ORDER BY rowid"));
    relays.query({c.autonum});
    while (relays.next()) {
        MeetRelay r{0, relays.integer(1), relays.integer(0), 0, {}};
        for (int leg = 0; leg < 4; ++leg) {
            r.legs.append(index.value(relays.integer(2 + leg)));
            r.time = add_times(r.time, leg_time(r.code, leg, clubs_[0].swimmers[r.legs.back()], c.date,
                                                people_.uniform(-0.02, 0.02)));
        }
        meet.relays.append(r);
    }
    return meet;
}

DemoMeet Generator::history_meet(const QString& name, const QString& city, const QDate& date, int pool,
                                 const QVector<int>& codes)
{
    DemoMeet meet{name, city, date, pool, {}, {}, {}};
    for (int code : codes) {
        meet.codes.append(code);
        if (code < 45)
            meet.codes.append(code + 50);
    }
    for (int i = 0; i < clubs_[0].swimmers.size(); ++i) {
        const Swimmer& s = clubs_[0].swimmers[i];
        const int age = s.age_on(date);
        if (age < 8)
            continue;
        int taken = 0;
        for (int code : codes)
            if (!is_relay(code) && suits(code, age) && people_.pick(2) == 0 && taken++ < 3) {
                const int event = event_for(code, s.sexe);
                meet.swims.append({0, i, event, swim_time(event, s, date, people_.uniform(-0.01, 0.04)), {}});
            }
    }
    for (MeetRelay r : relays_of(codes, date, 0)) {
        for (int leg = 0; leg < 4; ++leg)
            r.time = add_times(r.time, leg_time(r.code, leg, clubs_[0].swimmers[r.legs[leg]], date, 0.01));
        meet.relays.append(r);
    }
    return meet;
}

// As the results import with "Nouvelle" does: a competition made for the
// results (taken place, shown, the reference pool), which the file fills.
void Generator::import_results(const Competition& c, const DemoMeet& meet)
{
    const QString file = work_.filePath(QStringLiteral("resultats_%1.lef").arg(c.autonum));
    write_meet(meet, clubs_, file);
    exchange::Trace trace(work_.filePath(QStringLiteral("trace_resultats.txt")));
    Silent progress;
    const int made = insert(QStringLiteral("INSERT INTO Rcomp (Deroule, Visible, Num_Piscine) VALUES (1, 1, ?)"),
                            {piscine_null_});
    const lenex::ResultCounts n = lenex::import_results(db_, lenex::read_lef(file), made, true, trace, progress);
    std::printf("make_demo: %s: %d swims, %d relays, %d clubs and %d swimmers added\n", qPrintable(c.name), n.swims,
                n.relays, n.clubs_added, n.swimmers_added);
}

void Generator::import_performances(lenex::PerformanceImport& perfs, const DemoMeet& meet, const QString& name)
{
    const QString file = work_.filePath(name);
    if (!QFileInfo::exists(file))
        write_meet(meet, clubs_, file);
    perfs.import(lenex::read_lef(file));
}

void Generator::records()
{
    Statement band(db_, QStringLiteral("INSERT INTO Categori_record_club (Code_Club, Libelle, Age_inf, Age_sup, Sexe, Old) "
                                       "VALUES (?, ?, ?, ?, ?, 0)"));
    Statement last(db_, QStringLiteral("SELECT last_insert_rowid()"));
    Statement record(db_, QStringLiteral("INSERT INTO RecordClub (Categorie, Code_nage, Bassin, Tps, Nom, Prenom, "
                                         "Date_perf, Lieu) VALUES (?, ?, ?, ?, ?, ?, ?, ?)"));
    const struct {
        const char* name;
        int low, high;
    } bands[] = {{"Jeunes", 8, 13}, {"Juniors", 14, 17}, {"Seniors", 18, 24}, {"Maîtres", 25, 99}};
    for (const QString& sexe : {QStringLiteral("Femme"), QStringLiteral("Homme")}) {
        for (const auto& b : bands) {
            band.run({kClub, QString::fromUtf8(b.name), b.low, b.high, sexe});
            last.query();
            last.next();
            const int num = last.integer(0);
            // The club's best swim of the band in each event and pool.
            Statement best(db_, QStringLiteral(
                "SELECT Liffn.Code_epreuve, Liffn.Type_bassin, Liffn.Tps, Licence.Nom, Licence.Prenom, "
                "Liffn.Date_perf, Liffn.Lieu FROM Liffn JOIN Licence ON Licence.Num = Liffn.Num_Lic "
                "WHERE Liffn.Code_club = ? AND Licence.Sexe = ? AND Liffn.Age_perf BETWEEN ? AND ? AND Liffn.Tps > 0 "
                "ORDER BY Liffn.Code_epreuve, Liffn.Type_bassin, Liffn.Tps, Liffn.Date_perf"));
            best.query({kClub, sexe.left(1) == QLatin1String("F") ? QStringLiteral("F") : QStringLiteral("M"), b.low,
                        b.high});
            QSet<QString> done;
            QVector<QVector<QVariant>> rows;
            while (best.next()) {
                const QString key = QStringLiteral("%1/%2").arg(best.integer(0)).arg(best.integer(1));
                if (done.contains(key))
                    continue;
                done.insert(key);
                rows.append({num, best.integer(0), best.integer(1), best.real(2), best.text(3), best.text(4),
                             best.text(5), best.text(6)});
            }
            for (const QVector<QVariant>& r : rows)
                record.run({r[0], r[1], r[2], r[3], r[4], r[5], r[6], r[7]});
        }
    }
}

void Generator::run()
{
    lenex::Transaction tx(db_);
    club();
    swimmers();
    competitions();
    tx.commit();
    exchange::Trace trace(work_.filePath(QStringLiteral("trace_performances.txt")));
    Silent progress;
    lenex::PerformanceImport perfs(db_, trace, progress);
    // The two seasons before that of the last competition, two meets each:
    // the history the first entries find their times in.
    const QDate season = QDate::fromString(DebutSaison(day_text(past_.back().date)), QStringLiteral("yyyyMMdd"));
    int n = 0;
    for (int back = 2; back >= 1; --back) {
        const QDate start = season.addYears(-back);
        import_performances(perfs, history_meet(QStringLiteral("Meeting de Noël"), QStringLiteral("Plouvarine"),
                                                start.addDays(95), 25, {1, 2, 11, 12, 21, 22, 31, 40, 7}),
                            QStringLiteral("performances_%1.lef").arg(++n));
        import_performances(perfs, history_meet(QStringLiteral("Meeting de printemps"), QStringLiteral("Lanvézec"),
                                                start.addDays(230), 50, {1, 2, 3, 12, 22, 32, 42, 8}),
                            QStringLiteral("performances_%1.lef").arg(++n));
    }
    // Each competition in turn: its entries, its results, and the results
    // into the performances, where the next entries find them.
    for (const Competition& c : past_) {
        lenex::Transaction entries_tx(db_);
        entries(c);
        entries_tx.commit();
        const DemoMeet meet = results_meet(c);
        import_results(c, meet);
        import_performances(perfs, meet, QStringLiteral("resultats_%1.lef").arg(c.autonum));
    }
    lenex::Transaction rest_tx(db_);
    for (const Competition& c : coming_)
        interclub(c);
    records();
    rest_tx.commit();
}

}  // namespace

int main(int argc, char** argv)
{
    QCoreApplication qapp(argc, argv);
    if (argc != 4 && argc != 5) {
        std::fprintf(stderr, "usage: make_demo <model base> <output> <work folder> [yyyymmdd]\n");
        return 2;
    }
    const QString model = QString::fromLocal8Bit(argv[1]);
    const QString output = QString::fromLocal8Bit(argv[2]);
    const QString work = QString::fromLocal8Bit(argv[3]);
    const QDate today = argc == 5 ? QDate::fromString(QString::fromLatin1(argv[4]), QStringLiteral("yyyyMMdd"))
                                  : QDate::currentDate();
    const QString temp = output + QStringLiteral(".building");
    QFile::remove(temp);
    QDir(work).removeRecursively();
    QDir().mkpath(work);
    if (!today.isValid() || !QFile::copy(model, temp)) {
        std::fprintf(stderr, "make_demo: cannot copy %s\n", qPrintable(model));
        return 1;
    }
    QFile::setPermissions(temp, QFile::permissions(temp) | QFileDevice::WriteOwner);
    try {
        Database db;
        db.open(temp);
        Generator(db, today, work).run();
        db.close();
    } catch (const lenex::LenexError& e) {
        std::fprintf(stderr, "make_demo: %s\n", qPrintable(e.text()));
        QFile::remove(temp);
        return 1;
    } catch (const std::exception& e) {
        std::fprintf(stderr, "make_demo: %s\n", e.what());
        QFile::remove(temp);
        return 1;
    }
    QFile::remove(output);
    if (!QFile::rename(temp, output)) {
        std::fprintf(stderr, "make_demo: cannot write %s\n", qPrintable(output));
        return 1;
    }
    return 0;
}
