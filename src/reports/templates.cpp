#include "src/reports/templates.h"

#include "src/frame/app_context.h"
#include "src/frame/components.h"
#include "src/base/files.h"
#include "src/base/services.h"
#include "src/base/sql_text.h"

#include <QDate>
#include <QFileInfo>
#include <QLocale>
#include <QPluginLoader>

namespace plouvarine {

namespace {

QDate date_of(const QString& text)
{
    return QDate::fromString(text, QStringLiteral("yyyyMMdd"));
}

}  // namespace

QString templates_folder(const AppContext& app)
{
    return app.app_file(QStringLiteral("modeles"));
}

QString template_path(const AppContext& app, const QString& kind)
{
    const TemplateKind* k = find_template_kind(kind);
    return k ? path_join(templates_folder(app), k->file) : QString();
}

QString template_component_path(const AppContext& app)
{
    return app.app_file(component_file(QStringLiteral("regmodele.dll")));
}

bool build_template(const AppContext& app, const QString& path, const QString& kind, QString* error)
{
    const QString component = template_component_path(app);
    if (!QFileInfo(component).isFile()) {
        if (error)
            *error = QStringLiteral("Composant introuvable : ") + component;
        return false;
    }
    // The component stays loaded once loaded: its instance is shared by every
    // report of the session.
    QPluginLoader loader(component);
    auto* builder = qobject_cast<TemplateBuilder*>(loader.instance());
    if (!builder) {
        if (error)
            *error = loader.errorString();
        return false;
    }
    if (!builder->Construct_Modele(path, kind)) {
        if (error)
            *error = QStringLiteral("Le modèle n'a pu être construit : ") + path;
        return false;
    }
    return true;
}

bool ChargerModele(AppContext& app, const QString& path, RichBox& rich, const QString& kind, bool skip_build)
{
    QString error;
    bool ok = true;
    if (!QFileInfo::exists(path) && !skip_build)
        ok = build_template(app, path, kind, &error);
    if (ok)
        ok = rich.LoadFile(path, &error);
    if (!ok) {
        msg_erreur(app.ui, QStringLiteral("Erreur lors du chargement du modèle ") + kind);
        return false;
    }
    // What the template holds that cannot be printed is told, and the report goes on.
    if (!rich.load_notes().isEmpty()) {
        std::vector<ReportLine> lines;
        for (const QString& note : rich.load_notes())
            lines.push_back({note, false});
        app.ui.show_report(QStringLiteral("Chargement du modèle ") + kind, lines);
    }
    return true;
}

void EcrireTagsProfil(AppContext& app, RichBox& rich)
{
    status_text(app.ui, QStringLiteral("Impression information profil utilisateur"));
    const std::pair<QString, QString> values[] = {{tags::kNomClub, app.state.club_name},
                                                  {tags::kCodeClub, app.state.club_code},
                                                  {tags::kDateJour, date_longue(app.clock.today())}};
    for (const auto& [tag, text] : values)
        RemplacerBalisePartout(rich, tag, text);
}

QString date_longue(const QDate& date)
{
    return QLocale(QLocale::French, QLocale::France).toString(date, QStringLiteral("d MMMM yyyy"));
}

QString date_compet_text(const QString& debut, const QString& fin)
{
    const QDate start = date_of(debut);
    const QDate end = date_of(fin);
    const QString first = start.isValid() ? start.toString(QStringLiteral("d/MM")) : QString();
    const QString last = end.isValid() ? end.toString(QStringLiteral("d/MM/yyyy")) : QString();
    return first + QStringLiteral(" - ") + last;
}

std::optional<CompetitionInfo> lire_competition(AppContext& app, const QString& num, bool with_pool)
{
    const QString sql = with_pool
        ? QStringLiteral("SELECT Rcomp.Nom, Rcomp.Debut, Rcomp.Fin, Rcomp.Lieu, Rcomp.Longueur, Piscine.Nom, "
                         "Piscine.Adresse, Piscine.Code_Postal, Piscine.Ville") +
              QStringLiteral(" FROM Piscine Piscine, Rcomp Rcomp ") + QStringLiteral("WHERE Piscine.Num = Rcomp.Num_Piscine ") +
              QStringLiteral("AND Rcomp.AutoNum = ") + sql_key(num)
        : QStringLiteral("SELECT Nom, Debut, Fin, Lieu, Longueur") + QStringLiteral(" FROM Rcomp") +
              QStringLiteral(" WHERE AutoNum = ") + sql_key(num);
    const Rows rows = app.db.load_rows(sql);
    if (rows.empty())
        return std::nullopt;
    CompetitionInfo info;
    info.nom = rows.value(0, 0);
    info.debut = rows.value(0, 1);
    info.fin = rows.value(0, 2);
    info.lieu = rows.value(0, 3);
    info.longueur = rows.value(0, 4);
    info.with_pool = with_pool;
    if (with_pool) {
        info.piscine_nom = rows.value(0, 5);
        info.piscine_adresse = rows.value(0, 6);
        info.piscine_code_postal = rows.value(0, 7);
        info.piscine_ville = rows.value(0, 8);
    }
    return info;
}

void EcrireTagsCompetition(AppContext& app, RichBox& rich, const CompetitionInfo& info)
{
    status_text(app.ui, QStringLiteral("Ecriture informations sur la compétition"));
    const std::pair<QString, QString> values[] = {{tags::kNomCompet, info.nom},
                                                  {tags::kDateCompet, date_compet_text(info.debut, info.fin)},
                                                  {tags::kLieuCompet, info.lieu},
                                                  {tags::kBassin, info.longueur}};
    for (const auto& [tag, text] : values)
        RemplacerBalisePartout(rich, tag, text);
    if (!info.with_pool)
        return;
    // The sentinel pool "Null" stands for no pool: its tags vanish.
    const bool no_pool = info.piscine_nom == QLatin1String("Null");
    RemplacerBalisePartout(rich, tags::kNomPiscine, no_pool ? QString() : info.piscine_nom);
    RemplacerBalisePartout(rich, tags::kAdressePiscine, no_pool ? QString() : info.piscine_adresse);
    RemplacerBalisePartout(rich, tags::kVillePiscine,
                    no_pool ? QString() : info.piscine_code_postal + QLatin1Char(' ') + info.piscine_ville);
}

bool imprimer_rapport(AppContext& app, const ReportJob& job)
{
    TempoRapport tempo;
    status_text(app.ui, QStringLiteral("Chargement du modèle"));
    if (!ChargerModele(app, template_path(app, job.kind), tempo.rich, job.kind))
        return false;
    if (job.profile_tags)
        EcrireTagsProfil(app, tempo.rich);
    if (!job.competition.isEmpty()) {
        if (const auto info = lire_competition(app, job.competition, job.competition_pool))
            EcrireTagsCompetition(app, tempo.rich, *info);
    }
    if (job.fill)
        job.fill(tempo);
    status_text(app.ui, QStringLiteral("Impression"));
    return ImprimerRich(app.ui, tempo.rich, job.title);
}

}  // namespace plouvarine
