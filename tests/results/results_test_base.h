#pragma once
// A connected copy of the model base holding one fixed meet with results (5-6
// April 2025, two clubs, categories Benjamins and Minimes), and the window's view:
//  1. 50m n.l. Dames: series 1 with a tie for first; series 2 opening on the time
//     that closed series 1, two disqualifications; series 3 of one swimmer at
//     90.5999; a Finale A with a swim of no time, a Finale Jeune with a 91.0001,
//     a barrage with no category.
//  2. 400m n.l. Dames: lanes 2 and 5 taken, splits.  3. 1500m n.l. Dames:
//     category 7 (no label), 14 splits, one swimmer with splits missing.
//  4. 50m dos Dames: no result.  5. 4x100m n.l. Dames: a relay final, an abandon.

#include "src/base/sql_text.h"
#include "src/frame/app_context.h"
#include "src/results/view_result.h"
#include "support/app_fixture.h"

#include <QDate>
#include <QStandardItemModel>

namespace plouvarine::testing {

class ResultsBase : public AppFixture {
protected:
    static constexpr const char* kClub = "FRA2210290017";
    static constexpr const char* kOther = "FRA2210290042";

    void SetUp() override
    {
        ensure_gui_application();
        AppFixture::SetUp();
        connect(make_base());
        exec(QStringLiteral("INSERT INTO Club (Code_federal, Intitule) VALUES ('%1', 'Brest Natation')").arg(kClub));
        exec(QStringLiteral("INSERT INTO Club (Code_federal, Intitule) VALUES ('%1', 'Quimper Natation')").arg(kOther));
        app->state.club_code = QLatin1String(kClub);
        app->state.profile_num = QStringLiteral("1");
        app->clock.set_today(QDate(2025, 4, 10));
        meet = competition(QStringLiteral("Meeting de Brest"), QStringLiteral("20250405"), true);
        lay_meet();
    }
    void TearDown() override
    {
        view.reset();  // before the base it reads closes
        AppFixture::TearDown();
    }

    QString competition(const QString& nom, const QString& debut, bool deroule, bool visible = true)
    {
        return app->db.append_row(QStringLiteral("Rcomp"),
                                  {{"Num", "M1"}, {"Nom", nom}, {"Debut", debut}, {"Fin", "20250406"},
                                   {"Lieu", "Brest"}, {"Longueur", 50}, {"Visible", visible}, {"Deroule", deroule}},
                                  QStringLiteral("AutoNum"));
    }
    QString swimmer(const QString& nom, const QString& prenom, const QString& born, const QString& club = {},
                    const QString& nat = QStringLiteral("FRA"))
    {
        return app->db.append_row(QStringLiteral("Licence"),
                                  {{"Code_club", club.isEmpty() ? QString::fromLatin1(kClub) : club},
                                   {"Licence", nom.toUpper()}, {"Nom", nom}, {"Prenom", prenom}, {"Sexe", "F"},
                                   {"Date_Naissance", born}, {"Nationalite", nat}},
                                  QStringLiteral("Num"));
    }
    // One swim; `cat` empty for none; `inters` from Inter1 on.
    void swim(const QString& table, const QString& compet, int code, const QString& lic, const char* club,
              const QString& tps, const QString& type, int serie, int lane, const QString& cat, int pts = 0,
              int equipe = 0, const QStringList& inters = {})
    {
        QStringList columns{"Num_compet", "Code_epreuve", "Num_Lic", "Code_club", "Num_equipe", "Tps", "Cotation_FFN",
                            "Type_course", "Numero_serie", "Numero_couloir", "Numero_ordre_couloir", "Num_categorie"};
        QStringList values{compet, QString::number(code), lic, quote_sql(QLatin1String(club)).text(),
                           QString::number(equipe), tps, QString::number(pts), quote_sql(type).text(),
                           QString::number(serie), QString::number(lane), "1", cat.isEmpty() ? "NULL" : cat};
        for (int i = 0; i < inters.size(); ++i) {
            columns << QStringLiteral("Inter%1").arg(i + 1);
            values << inters.at(i);
        }
        exec(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)").arg(table, columns.join(u','), values.join(u',')));
    }
    void programme(const QString& compet, int code, int day, int ordre)
    {
        exec(QStringLiteral("INSERT INTO Pcomp (Num_compet, Code_epreuve, JourCourse, Num_ordre) VALUES (%1, %2, %3, %4)")
                 .arg(compet, QString::number(code), QString::number(day), QString::number(ordre)));
    }

    void lay_meet()
    {
        const QString P = QStringLiteral("Prres");
        exec(QStringLiteral("INSERT INTO Categori VALUES (%1, 1, 'Benjamins')").arg(meet));
        exec(QStringLiteral("INSERT INTO Categori VALUES (%1, 2, ' Minimes ')").arg(meet));
        programme(meet, 1, 1, 1);
        programme(meet, 4, 1, 2);
        programme(meet, 6, 2, 3);
        programme(meet, 11, 2, 4);
        programme(meet, 8, 2, 5);
        // Partie Eve is deleted from the licences once her swims are in: they drop out.
        const char* people[][5] = {
            {"Martin", "Léa", "20130307", kClub, "FRA"},    {"Bernard", "Zoé", "20130512", kOther, "BEL"},
            {"Petit", "Inès", "20131101", kClub, "FRA"},    {"Durand", "Emma", "20130220", kOther, "FRA"},
            {"Roux", "Chloé", "20130909", kClub, "FRA"},    {"Simon", "Jade", "20130404", kOther, "FRA"},
            {"Le Roy-Kerhervé", "Anne-Sophie", "20110606", kClub, "FRA"},
            {"David", "Lou", "20110101", kOther, "FRA"},    {"Michel", "Maud", "20130808", kClub, "FRA"},
            {"Partie", "Eve", "20130101", kClub, "FRA"}};
        QStringList n;
        for (const auto& p : people)
            n << swimmer(QString::fromUtf8(p[0]), QString::fromUtf8(p[1]), p[2], p[3], p[4]);
        const QString &martin = n[0], &bernard = n[1], &petit = n[2], &durand = n[3], &roux = n[4], &simon = n[5];
        const QString &leroy = n[6], &david = n[7], &michel = n[8], &gone = n[9];

        // 50m n.l.: series 1, a tie for first.
        swim(P, meet, 1, martin, kClub, "0.3012", "S", 1, 3, "1", 612, 1);
        swim(P, meet, 1, bernard, kOther, "0.3012", "S", 1, 4, "1", 612);
        swim(P, meet, 1, petit, kClub, "0.3200", "S", 1, 6, "1", 540, 2);
        // Series 2 opens on 32.00 again; two disqualifications.
        swim(P, meet, 1, durand, kOther, "0.3200", "S", 2, 5, "1", 540);
        swim(P, meet, 1, roux, kClub, "93", "S", 2, 2, "1");
        swim(P, meet, 1, michel, kClub, "93", "S", 2, 1, "1");
        swim(P, meet, 1, gone, kClub, "0.3300", "S", 2, 3, "1", 500);
        // Series 3: one swimmer, the largest time that is still a time.
        swim(P, meet, 1, leroy, kClub, "90.5999", "S", 3, 4, "2", 1);
        // Finale A (Benjamins) with a swim of no time, Finale Jeune (Minimes), a barrage with no category.
        swim(P, meet, 1, bernard, kOther, "0.2950", "F", 1, 4, "1", 680);
        swim(P, meet, 1, simon, kOther, "0", "F", 1, 3, "1", 12);
        swim(P, meet, 1, martin, kClub, "0.3001", "F", 1, 5, "1", 650, 1);
        swim(P, meet, 1, david, kOther, "91.0001", "J", 1, 3, "2");
        swim(P, meet, 1, leroy, kClub, "0.3500", "J", 1, 4, "2", 300);
        swim(P, meet, 1, petit, kClub, "0.3150", "B", 1, 4, "", 550);
        swim(P, meet, 1, durand, kOther, "0.3180", "B", 1, 5, "", 530);

        // 400m n.l.: lanes 2 and 5, seven splits (Inter1 is at 350 m).
        swim(P, meet, 4, leroy, kClub, "4.5012", "S", 1, 5, "2", 720, 0,
             {"3.5501", "3.1502", "2.4003", "2.0504", "1.3005", "0.5506", "0.2507"});
        swim(P, meet, 4, david, kOther, "4.4508", "S", 1, 2, "2", 760, 0,
             {"3.5000", "3.1000", "2.3500", "2.0000", "1.2500", "0.5000", "0.2400"});

        // 1500m n.l.: fourteen splits, and one swimmer with splits missing.
        swim(P, meet, 6, leroy, kClub, "17.1234", "S", 1, 4, "7", 801, 0,
             {"16.0501", "14.5802", "13.5103", "12.4404", "11.3705", "10.3006", "9.2307", "8.1608", "7.0909",
              "6.0210", "4.5511", "3.4812", "2.4113", "1.3414"});
        swim(P, meet, 6, david, kOther, "17.3000", "S", 1, 5, "7", 790, 0,
             {"16.1000", "0", "0", "12.5000", "0", "0", "0", "8.2000", "0", "0", "0", "0", "0", "1.3500"});

        // 4x100m n.l. relays: a final with splits and an abandon.
        const QString R = QStringLiteral("Prres_relais");
        swim(R, meet, 8, "1", kClub, "4.1000", "F", 1, 4, "1", 700, 1, {"3.0500", "2.0100", "1.0000"});
        swim(R, meet, 8, "2", kOther, "4.0500", "F", 1, 5, "1", 730, 0, {"3.0000", "1.5900", "0.5800"});
        swim(R, meet, 8, "3", kOther, "95", "F", 1, 3, "1", 0, 2);

        exec(QStringLiteral("DELETE FROM Licence WHERE Num = ") + gone);
    }

    FrmViewResult& open_view()
    {
        view = std::make_unique<FrmViewResult>(*app);
        view->charge_competitions();
        return *view;
    }
    // Ticks every event and shows the results with `options`.
    void show(const ResultOptions& options)
    {
        if (!view)
            open_view();
        view->cmd_option(0);
        view->set_options(options);
        view->cmd_option(1);
        view->set_chk_all(true);
        view->affiche_resultats();
    }
    // The list's rows, their cells joined by "|", as one text.
    QByteArray rows_text() const
    {
        const QStandardItemModel& m = view->lsv_results();
        QStringList lines;
        QStringList head;
        for (int c = 0; c < m.columnCount(); ++c)
            head << m.headerData(c, Qt::Horizontal).toString();
        lines << head.join(u'|');
        for (int r = 0; r < m.rowCount(); ++r) {
            QStringList cells;
            for (int c = 0; c < m.columnCount(); ++c)
                cells << m.item(r, c)->text();
            lines << cells.join(u'|');
        }
        return (lines.join(u'\n') + u'\n').toUtf8();
    }
    // The rows whose "Nom" is `nom`: "place|Tps|Pts" each.
    QStringList places_of(const QString& nom) const
    {
        const QStandardItemModel& m = view->lsv_results();
        const int tps = m.columnCount() > 0 ? view->first_inter() - 2 : 0;
        QStringList out;
        for (int r = 0; r < m.rowCount(); ++r)
            if (m.item(r, 1)->text() == nom)
                out << m.item(r, 0)->text() + u'|' + m.item(r, tps)->text() + u'|' + m.item(r, tps + 1)->text();
        return out;
    }

    QString meet;
    std::unique_ptr<FrmViewResult> view;
};

}  // namespace plouvarine::testing
