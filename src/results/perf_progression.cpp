#include "src/results/perf_progression.h"

#include "src/base/files.h"
#include "src/base/services.h"
#include "src/base/sql_text.h"
#include "src/base/utils_date.h"
#include "src/base/utils_time.h"
#include "src/frame/app_context.h"
#include "src/store/rows.h"

#include <cmath>

#include <algorithm>
#include <map>

namespace plouvarine {

double secondes_temps(double value)
{
    const TempsDecoupe t = decoupe_temps(value);
    return t.minutes * 60.0 + t.secondes + t.centiemes / 100.0;
}

QString texte_secondes(double seconds)
{
    const qint64 hundredths = qRound64(seconds * 100);
    const qint64 minutes = hundredths / 6000;
    const QString rest = QStringLiteral("%1.%2")
                             .arg(hundredths / 100 % 60, 2, 10, QLatin1Char('0'))
                             .arg(hundredths % 100, 2, 10, QLatin1Char('0'));
    return minutes > 0 ? QString::number(minutes) + u':' + rest : rest;
}

std::vector<double> graduations_temps(double low, double high)
{
    if (!(high > low))
        return {low};
    static constexpr double kSteps[] = {0.1, 0.2, 0.5, 1, 2, 5, 10, 15, 30, 60, 120, 300, 600};
    constexpr int kMaxMarks = 8;
    double step = kSteps[std::size(kSteps) - 1];
    for (double s : kSteps)
        if ((std::ceil(high / s - 1e-9) - std::floor(low / s + 1e-9)) + 1 <= kMaxMarks) {
            step = s;
            break;
        }
    // Counted in hundredths, so that the marks are exact swim times.
    const qint64 hundredths = qRound64(step * 100);
    const qint64 first = qint64(std::floor(low / step + 1e-9)) * hundredths;
    const qint64 end = qint64(std::ceil(high / step - 1e-9)) * hundredths;
    std::vector<double> marks;
    for (qint64 v = first; v <= end; v += hundredths)
        marks.push_back(double(v) / 100);
    return marks;
}

Progression construit_progression(const Rows& rows)
{
    Progression p;
    // Best of each (season, pool): ties keep the earlier swim.
    std::map<std::pair<QString, int>, ProgressionPoint> best;
    QDate first;
    std::vector<QString> starts;
    for (int r = 0; r < rows.size(); ++r) {
        const QString date_text = rows.value(r, 0).trimmed();
        const double tps = rows.value(r, 1).toDouble();
        const QDate date = QDate::fromString(date_text, QStringLiteral("yyyyMMdd"));
        if (!date.isValid() || tps <= 0 || tps >= 91)
            continue;
        ProgressionPoint point;
        point.date = date;
        point.seconds = secondes_temps(tps);
        point.time = affiche_temps(rows.value(r, 1));
        point.pool = rows.value(r, 2).toInt() == 50 ? 50 : 25;
        (point.pool == 50 ? p.bassin50 : p.bassin25).push_back(point);
        if (!first.isValid() || date < first)
            first = date;
        const QString season = DebutSaison(date_text);
        starts.push_back(season);
        const auto key = std::make_pair(season, point.pool);
        auto found = best.find(key);
        if (found == best.end() || point.seconds < found->second.seconds ||
            (point.seconds == found->second.seconds && point.date < found->second.date))
            best[key] = point;
    }
    const auto by_date = [](const ProgressionPoint& a, const ProgressionPoint& b) { return a.date < b.date; };
    std::stable_sort(p.bassin25.begin(), p.bassin25.end(), by_date);
    std::stable_sort(p.bassin50.begin(), p.bassin50.end(), by_date);
    std::sort(starts.begin(), starts.end());
    starts.erase(std::unique(starts.begin(), starts.end()), starts.end());
    for (const QString& s : starts) {
        const QDate opening = QDate::fromString(s, QStringLiteral("yyyyMMdd"));
        if (opening > first)
            p.saisons.push_back(opening);
    }
    for (const auto& [key, point] : best)
        p.meilleurs.push_back(point);
    std::stable_sort(p.meilleurs.begin(), p.meilleurs.end(), by_date);
    return p;
}

QString requete_progression(const ProgressionChoice& choice, const QString& club)
{
    const QString event = QStringLiteral("(SELECT Code_Nage FROM Nage WHERE Libelle = ") + quote_sql(choice.event) +
                          u')';
    if (choice.num.isEmpty())
        return QStringLiteral("SELECT Date_perf, Tps, Type_bassin FROM Liffn_relais WHERE Code_club = ") +
               quote_sql(club) + QStringLiteral(" AND Code_epreuve = ") + event + QStringLiteral(" ORDER BY Date_perf");
    return QStringLiteral("SELECT Date_perf, Tps, Type_bassin FROM Liffn WHERE Num_Lic = ") + sql_key(choice.num) +
           QStringLiteral(" AND Code_epreuve = ") + event +
           QStringLiteral(" AND Tps_inter = false ORDER BY Date_perf");
}

PerfProgressionView::PerfProgressionView(AppContext& app, ProgressionChoice choice)
    : View(app, QString(kName)), choice_(std::move(choice))
{
    set_title(QStringLiteral("Progression : ") + choice_.name + QStringLiteral(" - ") + choice_.event);
}

void PerfProgressionView::load()
{
    try {
        progression_ = construit_progression(app().db.load_rows(requete_progression(choice_, app().state.club_code)));
    } catch (const std::exception& e) {
        progression_ = {};
        msg_erreur(app().ui, QStringLiteral("Une erreur s'est produite lors de l'affichage de la progression."), &e);
    }
    changed();
}

QString PerfProgressionView::choose_file()
{
    FileDialogRequest request;
    request.title = QStringLiteral("Enregistrer le graphique");
    request.filter = QStringLiteral("Image PNG (*.png)|*.png|Document PDF (*.pdf)|*.pdf");
    request.save = true;
    request.confirm_overwrite = true;
    // A name typed with neither ending is a picture.
    const QString path = app().ui.file_dialog(request);
    return path.isEmpty() ? path : with_ending(path, {QStringLiteral(".png"), QStringLiteral(".pdf")});
}

bool PerfProgressionView::save(const QString& path, const QByteArray& data)
{
    WholeFile file(path);
    if (data.isEmpty() || !file.write(data.constData(), data.size()) || !file.commit()) {
        msg_erreur(app().ui, QStringLiteral("Une erreur s'est produite lors de la sauvegarde du graphique. ") +
                                 (data.isEmpty() ? path : file.error_text()));
        return false;
    }
    return true;
}

PerfProgressionView* OuvrirProgression(AppContext& app, const ProgressionChoice& choice, const QString& caller)
{
    // One chart at a time: the one on show gives way to the new choice.
    if (auto* open = dynamic_cast<View*>(app.windows.instance(QString(PerfProgressionView::kName))))
        open->close();
    auto view = std::make_unique<PerfProgressionView>(app, choice);
    if (!view->register_window(caller))
        return nullptr;
    view->load();
    return show_child(app.ui, std::move(view));
}

}  // namespace plouvarine
