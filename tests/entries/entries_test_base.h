#pragma once
// A connected copy of the model base with a club, a profile, the null licence
// and a competition, and helpers to lay swimmers, team members, entries,
// relays and performances into it.

#include "src/base/text.h"
#include "src/frame/app_context.h"
#include "src/store/sentinels.h"
#include "support/app_fixture.h"

#include <QDate>

QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }
QT_END_NAMESPACE

namespace plouvarine::testing {

class EntriesBase : public AppFixture {
protected:
    static constexpr const char* kClub = "FRA2210290017";

    void SetUp() override
    {
        AppFixture::SetUp();
        connect(make_base());
        exec(QStringLiteral("INSERT INTO Club (Code_federal, Intitule) VALUES ('%1', 'Brest Natation')").arg(kClub));
        app->state.club_code = QLatin1String(kClub);
        app->state.profile_num = QStringLiteral("1");
        app->state.num_lic_nulle = check_licence_nulle(app->db, app->ui, QLatin1String(kClub));
        app->clock.set_today(QDate(2025, 3, 10));
        compet = competition(50);
    }

    QString competition(int longueur)
    {
        return app->db.append_row(QStringLiteral("Rcomp"),
                                  {{"Nom", "Interclubs"}, {"Longueur", longueur}, {"Debut", "20250405"},
                                   {"Visible", true}, {"Deroule", false}},
                                  QStringLiteral("AutoNum"));
    }
    QString swimmer(const QString& nom, const QString& sexe, const QString& prenom = QStringLiteral("Anne"))
    {
        return app->db.append_row(QStringLiteral("Licence"),
                                  {{"Code_club", kClub}, {"Licence", nom.toUpper()}, {"Nom", nom}, {"Prenom", prenom},
                                   {"Sexe", sexe}, {"Date_Naissance", "20050307"}},
                                  QStringLiteral("Num"));
    }
    // A team member of the competition (profile 1).
    void member(const QString& num, int team, bool mixed)
    {
        exec(QStringLiteral("INSERT INTO Engag_nageur (Num_compet, Num_profil, Num_Lic, Equipe, Equipe_m) "
                            "VALUES (%1, 1, %2, %3, %4)")
                 .arg(compet, num)
                 .arg(team)
                 .arg(bool_text(mixed)));
    }
    void entry(const QString& num, int code, int team, bool mixed, const QString& tps = QStringLiteral("1.0512"))
    {
        exec(QStringLiteral("INSERT INTO Engag (Num_compet, Num_profil, Code_epreuve, Num_Lic, Num_equipe, "
                            "Equipe_mixte, Tps_engagement, Date_perf, Lieu_perf, Bassin) "
                            "VALUES (%1, 1, %2, %3, %4, %5, %6, '20241012', 'Brest', 50)")
                 .arg(compet)
                 .arg(code)
                 .arg(num)
                 .arg(team)
                 .arg(bool_text(mixed), tps));
    }
    // Relay `number` of a team in event `code`, with its swimmers in order.
    void relay(int code, int number, int team, bool mixed, const QStringList& swimmers = {})
    {
        QStringList places;
        for (int i = 0; i < 10; ++i)
            places << (i < swimmers.size() ? swimmers.at(i) : app->state.num_lic_nulle);
        exec(QStringLiteral("INSERT INTO Relais VALUES (1, %1, %2, %3, %4, %5, 0, %6)")
                 .arg(compet)
                 .arg(code)
                 .arg(number)
                 .arg(team)
                 .arg(bool_text(mixed), places.join(QStringLiteral(", "))));
    }
    void perf(const QString& num, int code, const QString& tps, const QString& date, int bassin = 50)
    {
        exec(QStringLiteral("INSERT INTO Liffn (Code_epreuve, Code_club, Num_Lic, Type_bassin, Date_perf, Tps, Lieu) "
                            "VALUES (%1, '%2', %3, %4, '%5', %6, 'Rennes')")
                 .arg(code)
                 .arg(QLatin1String(kClub), num)
                 .arg(bassin)
                 .arg(date, tps));
    }

    void exec(const QString& sql) { app->db.exec_sql(sql); }
    int count(const QString& sql) { return app->db.count_query(sql); }
    QString value(const QString& sql) { return app->db.load_rows(sql).first(); }
    // Every row of a select, its fields joined by ":", in the select's order.
    QStringList dump(const QString& sql)
    {
        const Rows rows = app->db.load_rows(sql);
        QStringList out;
        for (int r = 0; r < rows.size(); ++r) {
            QStringList cells;
            for (int c = 0; c < rows.column_count(); ++c)
                cells << rows.value(r, c);
            out << cells.join(QLatin1Char(':'));
        }
        return out;
    }
    QStringList messages() const
    {
        QStringList out;
        for (const auto& m : ui.messages)
            out << m.text;
        return out;
    }

    QString compet;
};

}  // namespace plouvarine::testing
