#pragma once
// The report templates: where they lie, how they are loaded (and built by the
// component "regmodele" when missing), the profile and competition tags, and
// the common course of a printed report.

#include "src/reports/rich_text.h"
#include "src/reports/template_builder.h"

#include <QString>
#include <functional>
#include <optional>

namespace plouvarine {

class AppContext;

// The buffers of a report: `rich` the working text, `rich_modele` the loaded
// template that the convocation copies for each swimmer.
struct TempoRapport {
    RichBox rich;
    RichBox rich_modele;
};

// The templates folder: "modeles" in the application folder.
QString templates_folder(const AppContext& app);
// The template file of `kind` in the templates folder ("rescompet" gives
// ".../modeles/rescomp.rtf"); empty for an unknown kind.
QString template_path(const AppContext& app, const QString& kind);
// The component's file in the application folder.
QString template_component_path(const AppContext& app);

// Builds the default template of `kind` at `path` through the component.
// False, with the reason in `error`, when the component is missing or fails.
bool build_template(const AppContext& app, const QString& path, const QString& kind, QString* error = nullptr);

// Loads the template at `path` into `rich`. A missing file is first built by
// the component unless `skip_build`. On failure shows "Erreur lors du
// chargement du modèle " and the kind, and gives false.
bool ChargerModele(AppContext& app, const QString& path, RichBox& rich, const QString& kind, bool skip_build = false);

// <NOM_CLUB> and <CODE_CLUB> from the profile in use, <DATE_JOUR> today.
void EcrireTagsProfil(AppContext& app, RichBox& rich);

// What the competition tags are made of.
struct CompetitionInfo {
    QString nom;
    QString debut;     // yyyymmdd
    QString fin;       // yyyymmdd
    QString lieu;
    QString longueur;
    bool with_pool = false;
    QString piscine_nom;
    QString piscine_adresse;
    QString piscine_code_postal;
    QString piscine_ville;
};

// Reads the competition `num` ("Rcomp.AutoNum"), with its pool when
// `with_pool`. Nothing when there is no such row.
std::optional<CompetitionInfo> lire_competition(AppContext& app, const QString& num, bool with_pool);
// The start as "d/mm", " - ", the end as "d/mm/yyyy".
QString date_compet_text(const QString& debut, const QString& fin);
// A day as "d mmmm yyyy", in French.
QString date_longue(const QDate& date);
// <NOM_COMPET>, <DATE_COMPET>, <LIEU_COMPET>, <BASSIN>, and with the pool
// <NOM_PISCINE> (empty for the pool "Null"), <ADRESSE_PISCINE>, <VILLE_PISCINE>.
void EcrireTagsCompetition(AppContext& app, RichBox& rich, const CompetitionInfo& info);

// The common course of a report: load the template of `kind`, write the
// profile tags when asked, the competition tags when a competition is given,
// then `fill` writes the report's own content, and the text is printed under
// `title`. Nothing is printed when the template fails or `fill` throws (the
// exception goes on to the caller's trap). False when nothing was printed.
struct ReportJob {
    QString kind;
    QString title;
    bool profile_tags = true;
    QString competition;          // Rcomp.AutoNum, or empty
    bool competition_pool = false;
    std::function<void(TempoRapport&)> fill;
};
bool imprimer_rapport(AppContext& app, const ReportJob& job);

}  // namespace plouvarine
