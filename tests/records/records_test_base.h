#pragma once
// A connected copy of the model base with a club, and helpers to lay record
// bands, records, swimmers and swims into it.

#include "src/base/sql_text.h"
#include "src/frame/app_context.h"
#include "src/store/sentinels.h"
#include "support/app_fixture.h"

#include <QDate>

QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }
QT_END_NAMESPACE

namespace plouvarine::testing {

class RecordsBase : public AppFixture {
protected:
    static constexpr const char* kClub = "FRA2210290017";

    void SetUp() override
    {
        AppFixture::SetUp();
        connect(make_base());
        app->db.exec_sql(
            QStringLiteral("INSERT INTO Club (Code_federal, Intitule) VALUES ('%1', 'Brest Natation')").arg(kClub));
        app->state.club_code = QLatin1String(kClub);
        app->state.club_name = QStringLiteral("Brest Natation");
        app->state.profile_num = QStringLiteral("1");
        app->state.num_lic_nulle = check_licence_nulle(app->db, app->ui, QLatin1String(kClub));
        app->clock.set_today(QDate(2025, 3, 10));
    }

    QString band(const QString& label, int inf, int sup, const QString& sexe, const QString& club = QLatin1String(kClub))
    {
        return app->db.append_row(QStringLiteral("Categori_record_club"),
                                  {{"Code_Club", club}, {"Libelle", label}, {"Age_inf", inf}, {"Age_sup", sup},
                                   {"Sexe", sexe}},
                                  QStringLiteral("Num_cat"));
    }
    QString record(const QString& cat, int code, int bassin, double tps, const QString& date,
                   const QString& nom = QStringLiteral("Le Gall"))
    {
        return app->db.append_row(QStringLiteral("RecordClub"),
                                  {{"Categorie", cat.toInt()}, {"Code_nage", code}, {"Bassin", bassin}, {"Tps", tps},
                                   {"Nom", nom}, {"Prenom", "Anne"}, {"Date_perf", date}, {"Lieu", "Brest"}},
                                  QStringLiteral("Num_auto"));
    }
    QString swimmer(const QString& nom, const QString& birth, const QString& sexe = QStringLiteral("M"))
    {
        return app->db.append_row(QStringLiteral("Licence"),
                                  {{"Code_club", kClub}, {"Licence", nom.toUpper()}, {"Nom", nom}, {"Prenom", "Yann"},
                                   {"Sexe", sexe}, {"Date_Naissance", birth}},
                                  QStringLiteral("Num"));
    }
    void swim(const QString& num, int code, int bassin, double tps, const QString& date,
              const QString& club = QLatin1String(kClub))
    {
        app->db.append_row(QStringLiteral("Liffn"),
                           {{"Code_epreuve", code}, {"Code_club", club}, {"Num_Lic", num.toInt()}, {"Type_bassin", bassin},
                            {"Date_perf", date}, {"Tps", tps}, {"Lieu", "Rennes"}},
                           QStringLiteral("Num_Lic"));
    }

    // Every row of a select, its fields joined by ":".
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
};

}  // namespace plouvarine::testing
