#include "src/tools/frm_pts_inter.h"

#include "src/base/services.h"
#include "src/base/sql_text.h"
#include "src/base/text.h"
#include "src/base/utils_time.h"
#include "src/frame/app_context.h"
#include "src/frame/list_helpers.h"
#include "src/reports/templates.h"
#include "src/tools/calcul_points.h"

namespace plouvarine {

namespace {

// "Nom Prénom" in 20, the time in 8 and the points in 4.
QString sheet_line(const QString& name, const QString& time, int points)
{
    return name.leftJustified(20, u' ', true) + u' ' + affiche_temps(time).rightJustified(8) + u' '
           + QString::number(points).rightJustified(4) + u'\n';
}

}  // namespace

FrmPtsInter::FrmPtsInter(AppContext& app) : View(app, QString(kName))
{
    set_title(QStringLiteral("Calculs des points des équipes interclubs"));
}

void FrmPtsInter::load_competitions()
{
    const Rows rows = app().db.load_rows(QStringLiteral("SELECT AutoNum, Num, Nom FROM Rcomp ")
                                         + QStringLiteral("WHERE Type = 'I' and visible = true and Deroule = false"));
    compet_.clear();
    compet_.setHorizontalHeaderLabels({QStringLiteral("Num"), QStringLiteral("Nom"), QStringLiteral("Numauto")});
    for (int r = 0; r < rows.size(); ++r)
        compet_.appendRow({fixed_cell(rows.value(r, 1)), fixed_cell(rows.value(r, 2)), fixed_cell(rows.value(r, 0))});
    if (compet_.rowCount() > 0)
        select_row_at(compet_selection_, 0);
    changed();
}

QString FrmPtsInter::competition() const
{
    const QModelIndex current = compet_selection_.currentIndex();
    return current.isValid() ? compet_.item(current.row(), 2)->text() : QString();
}

void FrmPtsInter::calcule_points_equipes()
{
    const QString c = competition();
    if (c.isEmpty())
        return;
    AppContext& a = app();
    const SqlText p = sql_key(a.state.profile_num);
    rich.select_all();
    rich.write(QString());
    // The columns of the sheets line up.
    SetPolice(rich, QStringLiteral("Courier New"));
    print_enabled_ = false;
    computed_.clear();
    const Rows teams = a.db.load_rows(QStringLiteral("SELECT Eq_Homme, Eq_Femme, Eq_Mixte FROM Engag_equipe ")
                                      + QStringLiteral("WHERE Num_compet = ") + sql_key(c)
                                      + QStringLiteral(" AND Num_profil = ") + p);
    const int counts[3] = {teams.first(0).toInt(), teams.first(1).toInt(), teams.first(2).toInt()};
    if (teams.empty() || (counts[0] == 0 && counts[1] == 0 && counts[2] == 0)) {
        EcrireGras(rich, kAucuneEquipe, 18);
        changed();
        return;
    }
    PointsCalculator* calcul = cree_calcul_points(a);
    if (!calcul) {
        changed();
        return;
    }
    print_enabled_ = true;
    computed_ = c;
    const int bassin = a.db.load_rows(QStringLiteral("SELECT Longueur FROM Rcomp WHERE AutoNum = ") + sql_key(c))
                           .first()
                           .toInt();
    struct Kind {
        const char* name;
        const char* mixite;
        const char* sexe;
    };
    const Kind kinds[3] = {{"Masculine", "false", "M"}, {"Feminine", "false", "F"}, {"Mixte", "true", ""}};
    for (int k = 0; k < 3; ++k)
        for (int team = 1; team <= counts[k]; ++team)
            team_sheet(*calcul, QLatin1String(kinds[k].name), team, QLatin1String(kinds[k].mixite),
                       QLatin1String(kinds[k].sexe), bassin);
    changed();
}

void FrmPtsInter::team_sheet(PointsCalculator& calcul, const QString& kind, int number, const QString& mixite,
                             const QString& sexe, int bassin)
{
    AppContext& a = app();
    const SqlText c = sql_key(computed_);
    const SqlText p = sql_key(a.state.profile_num);
    const bool mixed = sexe.isEmpty();
    EcrireGras(rich, QStringLiteral("Equipe ") + kind + u' ' + QString::number(number));
    EcrireTexte(rich, QStringLiteral("\n"));
    qint16 total = 0;

    QString indiv = QStringLiteral("SELECT Engag.Code_epreuve, Nage.Libelle, Engag.Tps_engagement, Licence.Nom, "
                                   "Licence.Prenom ")
                    + QStringLiteral("FROM Nage Nage, Licence Licence, Engag Engag ")
                    + QStringLiteral("Where Nage.Code_Nage = Engag.Code_epreuve AND Engag.Num_Lic = Licence.Num AND ")
                    + QStringLiteral("Engag.Num_equipe = <NUM_TEAM> AND Engag.Equipe_mixte = <MIXITE> AND "
                                     "Engag.Num_compet = ")
                    + c + QStringLiteral(" AND Engag.Num_profil = ") + p
                    + QStringLiteral(" AND Licence.Sexe = '<SEXE_NAGEUR>' ") + QStringLiteral("ORDER BY Engag.Code_epreuve");
    QString relais = QStringLiteral("SELECT Relais.Code_epreuve, Nage.Libelle, Relais.Num_Lic, Relais.Tps ")
                     + QStringLiteral("FROM Nage Nage, Relais Relais ")
                     + QStringLiteral("WHERE Nage.Code_Nage = Relais.Code_epreuve ")
                     + QStringLiteral("AND Relais.Num_equipe = <NUM_TEAM> ")
                     + QStringLiteral("AND Relais.Equipe_mixte = <MIXITE> ")
                     + QStringLiteral("AND Nage.Sexe = '<SEXE_NAGE>' ") + QStringLiteral("AND Relais.Num_profil = ") + p
                     + QStringLiteral(" ") + QStringLiteral("AND Relais.Num_compet = ") + c + QStringLiteral(" ")
                     + QStringLiteral("ORDER BY Relais.Code_epreuve;");
    if (mixed) {
        // The removal matches the relay clause only: the individual one is
        // written "AND" and keeps its placeholder, so a mixed team lists no
        // individual swim, as the club's sheets always did.
        indiv.remove(QStringLiteral("And Licence.Sexe = '<SEXE_NAGEUR>' "));
        relais.remove(QStringLiteral("AND Nage.Sexe = '<SEXE_NAGE>' "));
    } else {
        indiv.replace(QStringLiteral("<SEXE_NAGEUR>"), sexe);
        relais.replace(QStringLiteral("<SEXE_NAGE>"), sexe);
    }
    for (QString* sql : {&indiv, &relais}) {
        sql->replace(QStringLiteral("<NUM_TEAM>"), QString::number(number));
        sql->replace(QStringLiteral("<MIXITE>"), mixite);
    }

    auto walk = [&](const Rows& rows, bool relay) {
        QString event;
        for (int r = 0; r < rows.size(); ++r) {
            if (rows.value(r, 0) != event) {
                event = rows.value(r, 0);
                EcrireSouligne(rich, rows.value(r, 1));
                EcrireTexte(rich, QStringLiteral("\n"));
            }
            const QString time = relay ? rows.value(r, 3) : rows.value(r, 2);
            const int points = calcul.CalculPoint(text_to_double(time), qint16(event.toInt()), bassin);
            total = qint16(total + (relay && chk_relais ? 2 * points : points));
            const QString name = relay ? QStringLiteral("Equipe n° ") + QString::number(number)
                                       : rows.value(r, 3) + u' ' + rows.value(r, 4);
            EcrireTexte(rich, sheet_line(name, time, points));
        }
    };
    walk(a.db.load_rows(indiv), false);
    walk(a.db.load_rows(relais), true);
    EcrireGras(rich, QStringLiteral("TOTAL POINTS :") + u' ' + QString::number(total));
    EcrireTexte(rich, QStringLiteral("\n\n"));
}

bool FrmPtsInter::imprime_points()
{
    if (!print_enabled_ || computed_.isEmpty())
        return false;
    status_text(app().ui, QStringLiteral("Préparation de l'impression"));
    ReportJob job;
    job.kind = QStringLiteral("respts");
    job.title = QStringLiteral("Impression");
    job.profile_tags = false;
    job.competition = computed_;
    job.fill = [this](TempoRapport& tempo) {
        tempo.rich.move_to_end();
        EcrireRich(tempo.rich, rich);
    };
    return imprimer_rapport(app(), job);
}

FrmPtsInter* OuvrirPointsEquipes(AppContext& app)
{
    if (app.windows.check_window_open(QString(FrmPtsInter::kName)))
        return nullptr;
    auto view = std::make_unique<FrmPtsInter>(app);
    if (!view->register_window(QString(WindowRegistry::kMainWindow)))
        return nullptr;
    view->load_competitions();
    return show_child(app.ui, std::move(view));
}

}  // namespace plouvarine
