#include "src/results/perf_report.h"

#include "src/base/services.h"
#include "src/base/utils_date.h"
#include "src/frame/app_context.h"
#include "src/reports/templates.h"
#include "src/results/view_perf.h"

namespace plouvarine {

namespace {

// The text cut to `width` characters or filled with blanks on the right.
QString field(const QString& text, int width)
{
    return text.left(width).leftJustified(width, u' ');
}

QString cell(const QStandardItemModel& list, int row, int column)
{
    return column < list.columnCount() ? list.index(row, column).data().toString() : QString();
}

void line_end(RichBox& rich)
{
    EcrireTexte(rich, QStringLiteral("\n"));
}

}  // namespace

void ecrit_perfs(AppContext& app, FrmViewPerf& view, RichBox& rich)
{
    RemplacerBalisePartout(rich, tags::kNomClub, app.state.club_name);
    RemplacerBalisePartout(rich, tags::kDateMaj, DateLongue(app.clock.today_text()));
    rich.move_to_end();
    line_end(rich);

    const PerfOptions& options = view.options();
    const QStandardItemModel& list = view.lsv_perf();
    // The option columns follow "Bassin" in the order the list shows them.
    int next = 4;
    const int codif = options.codif ? next : -1;
    next += options.codif ? 4 : 0;
    const int relais = options.tps_relais ? next++ : -1;
    const int inter = options.tps_inter ? next++ : -1;

    const auto& swimmers = view.cbo_search_nageurs();
    size_t swimmer = 0;
    for (int r = 0; r < list.rowCount(); ++r) {
        const QString text = cell(list, r, 0).trimmed();
        const QString lieu = cell(list, r, 1).trimmed();
        if (swimmer < swimmers.size() && swimmers[swimmer].row == r) {
            EcrireTexte(rich, QStringLiteral("\t\t"));
            EcrireGras(rich, cell(list, r, 1));
            line_end(rich);
            ++swimmer;
        } else if (text.isEmpty() && lieu.isEmpty()) {
            line_end(rich);
        } else if (text.isEmpty()) {
            EcrireTexte(rich, QStringLiteral("\t"));
            EcrireSouligne(rich, cell(list, r, 1));
            line_end(rich);
        } else {
            QString out = field(cell(list, r, 0), 8) + u' ' + field(cell(list, r, 1), 36) + u' ' +
                          field(cell(list, r, 2), 17) + u' ' + field(cell(list, r, 3), 2);
            if (codif >= 0) {
                QStringList values;
                for (int c = codif; c < codif + 4; ++c)
                    values << cell(list, r, c);
                out += u' ' + values.join(u'/');
            }
            if (relais >= 0)
                out += u' ' + (cell(list, r, relais) == QLatin1String("X") ? QStringLiteral("R") : QStringLiteral(" "));
            if (inter >= 0)
                out += u' ' + (cell(list, r, inter) == QLatin1String("X") ? QStringLiteral("I") : QStringLiteral(" "));
            EcrireTexte(rich, out);
            line_end(rich);
        }
    }

    EcrireTexte(rich, QStringLiteral("\n\n\t"));
    EcrireSouligne(rich, QStringLiteral("Légende"));
    QStringList legend{QString(), QStringLiteral("Chaque ligne comprend : "), QStringLiteral("- Le temps réalisé"),
                       QStringLiteral("- Le lieu de la performance + information sur le numéro d'équipe dans le cas "
                                      "d'un relais "),
                       QStringLiteral("- La date de la performance"), QStringLiteral("- La longueur du bassin")};
    if (options.codif)
        legend << QStringLiteral("- La codification de la performance au format N/I/R/D avec :")
               << QStringLiteral("\t. N : codification nationale") << QStringLiteral("\t. I : codification interrégionale")
               << QStringLiteral("\t. R : codification régionale")
               << QStringLiteral("\t. D : codification départementale") << QStringLiteral("Les valeurs étant : ")
               << QStringLiteral("\t. Q : pour Qualificative") << QStringLiteral("\t. R : pour Référence")
               << QStringLiteral("\t. A : pour Animation");
    if (options.tps_relais)
        legend << QStringLiteral("- Temps réalisé lors d'un relais : R ou rien");
    if (options.tps_inter)
        legend << QStringLiteral("- Temps intermédiaire : I ou rien");
    EcrireTexte(rich, legend.join(u'\n'));
}

bool edite_perfs(AppContext& app, FrmViewPerf& view, bool print, const QString& path)
{
    TempoRapport tempo;
    status_text(app.ui, QStringLiteral("Chargement du modèle"));
    if (!ChargerModele(app, template_path(app, QStringLiteral("sperf")), tempo.rich, QStringLiteral("sperf")))
        return false;
    ecrit_perfs(app, view, tempo.rich);
    status_text(app.ui, QString());
    if (print)
        return ImprimerRich(app.ui, tempo.rich, QStringLiteral("Suivi des performances"));
    QString error;
    if (tempo.rich.SaveFile(path, &error))
        return true;
    msg_erreur(app.ui, QStringLiteral("Une erreur s'est produite lors de la sauvegarde du suivi des performances") +
                           QStringLiteral("\n") + error);
    return false;
}

}  // namespace plouvarine
