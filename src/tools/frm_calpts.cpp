#include "src/tools/frm_calpts.h"

#include "src/base/services.h"
#include "src/base/text.h"
#include "src/base/utils_time.h"
#include "src/frame/app_context.h"
#include "src/frame/list_helpers.h"
#include "src/tools/calcul_points.h"

namespace plouvarine {

namespace {

// A points field as a 16-bit number; what is no such number is 0.
qint16 points_value(const QString& text)
{
    bool ok = false;
    const int value = text.trimmed().toInt(&ok);
    return ok && value >= -32768 && value <= 32767 ? qint16(value) : qint16(0);
}

}  // namespace

FrmCalpts::FrmCalpts(AppContext& app, PointsCalculator& calcul) : View(app, QString(kName)), calcul_(calcul)
{
    set_title(QStringLiteral("Table Cotation"));
}

void FrmCalpts::load_events()
{
    const Rows rows = app().db.load_rows(QStringLiteral("SELECT Libelle, Code_Nage FROM Nage ")
                                         + QStringLiteral("ORDER BY Mixte DESC, Sexe, Nb_nageurs, Code_nage"));
    nage_.clear();
    nage_.setHorizontalHeaderLabels({QStringLiteral("Libelle"), QStringLiteral("Code Nage")});
    for (int r = 0; r < rows.size(); ++r)
        nage_.appendRow({fixed_cell(rows.value(r, 0)), fixed_cell(rows.value(r, 1))});
    if (nage_.rowCount() > 0)
        select_row_at(nage_selection_, 0);
    changed();
}

qint16 FrmCalpts::code_nage() const
{
    const QModelIndex current = nage_selection_.currentIndex();
    return current.isValid() ? points_value(nage_.item(current.row(), 1)->text()) : qint16(-1);
}

void FrmCalpts::select_event(int row)
{
    if (row < 0 || row >= nage_.rowCount())
        return;
    select_row_at(nage_selection_, row);
    clear_all();
}

void FrmCalpts::set_bassin(int metres)
{
    if (metres != 25 && metres != 50)
        return;
    bassin_ = metres;
    clear_all();
}

void FrmCalpts::clear_all()
{
    pts_cal_.clear();
    tps_cal_.clear();
    txt_time.fill(QString());
    txt_pts.fill(QString());
    table_.clear();
    changed();
}

void FrmCalpts::Cmd_calpts()
{
    const int points = calcul_.CalculPoint(text_to_double(txt_time[0]), code_nage(), bassin_);
    pts_cal_ = points == 0 ? kNonDispo : QString::number(points).trimmed();
    changed();
}

void FrmCalpts::Cmd_caltps()
{
    const QString time = calcul_.CalculTps(points_value(txt_pts[0]), code_nage(), bassin_);
    tps_cal_ = time.isEmpty() ? kNonDispo : affiche_temps(time);
    changed();
}

void FrmCalpts::Cmd_TablePts()
{
    const int from = points_value(txt_pts[1]);
    const int to = points_value(txt_pts[2]);
    if (from >= to) {
        msg_erreur(app().ui, kErreurPoints);
        return;
    }
    remplit_table(from, to, true);
}

void FrmCalpts::Cmd_TableTps()
{
    const double fast = text_to_double(txt_time[1]);
    const double slow = text_to_double(txt_time[2]);
    if (fast >= slow) {
        msg_erreur(app().ui, kErreurTemps);
        return;
    }
    // The slow end is worth fewer points: walking the points up, the times go
    // down the rows.
    remplit_table(calcul_.CalculPoint(slow, code_nage(), bassin_), calcul_.CalculPoint(fast, code_nage(), bassin_),
                  false);
}

void FrmCalpts::remplit_table(int from, int to, bool points_first)
{
    table_.clear();
    table_.setHorizontalHeaderLabels(points_first ? QStringList{QStringLiteral("Points"), QStringLiteral("Temps")}
                                                  : QStringList{QStringLiteral("Temps"), QStringLiteral("Points")});
    for (int i = from; i <= to; ++i) {
        const QString time = calcul_.CalculTps(qint16(i), code_nage(), bassin_);
        if (text_to_double(time) == 0)
            break;
        QStandardItem* points = fixed_cell(QString::number(i));
        QStandardItem* shown = fixed_cell(affiche_temps(time));
        table_.appendRow(points_first ? QList<QStandardItem*>{points, shown} : QList<QStandardItem*>{shown, points});
    }
    if (table_.rowCount() == 0)
        table_.appendRow({fixed_cell(kNonDispo), fixed_cell(kNonDispo)});
    table_shown_ = true;
    changed();
}

FrmCalpts* OuvrirCalculPoints(AppContext& app)
{
    if (app.windows.check_window_open(QString(FrmCalpts::kName)))
        return nullptr;
    PointsCalculator* calcul = cree_calcul_points(app);
    if (!calcul)
        return nullptr;
    auto view = std::make_unique<FrmCalpts>(app, *calcul);
    if (!view->register_window(QString(WindowRegistry::kMainWindow)))
        return nullptr;
    view->load_events();
    return show_child(app.ui, std::move(view));
}

}  // namespace plouvarine
