#pragma once
// The contract between the program and the template component
// "regmodele": the seven report kinds, their files and tags, and the
// interface through which the component writes a default template.

#include <QString>
#include <QStringList>
#include <QtPlugin>

#include <vector>

namespace plouvarine {

// The template tags, as they stand in the templates.
namespace tags {
inline const QString kNomProfil = QStringLiteral("<NOM_PROFIL>");
inline const QString kNomClub = QStringLiteral("<NOM_CLUB>");
inline const QString kCodeClub = QStringLiteral("<CODE_CLUB>");
inline const QString kDateJour = QStringLiteral("<DATE_JOUR>");
inline const QString kNomCompet = QStringLiteral("<NOM_COMPET>");
inline const QString kDateCompet = QStringLiteral("<DATE_COMPET>");
inline const QString kLieuCompet = QStringLiteral("<LIEU_COMPET>");
inline const QString kBassin = QStringLiteral("<BASSIN>");
inline const QString kNomPiscine = QStringLiteral("<NOM_PISCINE>");
inline const QString kAdressePiscine = QStringLiteral("<ADRESSE_PISCINE>");
inline const QString kVillePiscine = QStringLiteral("<VILLE_PISCINE>");
inline const QString kEngagIndiv = QStringLiteral("<ENGAG_INDIV>");
inline const QString kEngagRelais = QStringLiteral("<ENGAG_RELAIS>");
inline const QString kMsgPerso = QStringLiteral("<MSG_PERSO>");
inline const QString kProg = QStringLiteral("<PROG>");
inline const QString kNageur = QStringLiteral("<NAGEUR>");
inline const QString kLicence = QStringLiteral("<LICENCE>");
inline const QString kEngag = QStringLiteral("<ENGAG>");
inline const QString kDateMaj = QStringLiteral("<DATE_MAJ>");
inline const QString kTypeBassin = QStringLiteral("<TYPE_BASSIN>");
// The temporary mark of relay n on the entry slip.
inline QString balise(int n) { return QStringLiteral("<BALISE %1>").arg(n); }
}  // namespace tags

// The heading of the programme in the convocation, emptied when the programme
// is not printed.
inline const QString kProgrammeHeading = QStringLiteral("Programme :");
// The fixed-width font of the columns of the reports.
inline const QString kFixedFont = QStringLiteral("Courier New");

struct TemplateKind {
    QString kind;    // the name given to the loader and the component
    QString file;    // the file in the templates folder
    QStringList tags;
    bool programme_heading = false;  // holds kProgrammeHeading
};

// The seven kinds, with the tags that their reports replace.
inline const std::vector<TemplateKind>& template_kinds()
{
    using namespace tags;
    static const std::vector<TemplateKind> kinds = {
        {QStringLiteral("rptlic"), QStringLiteral("rptlic.rtf"), {kNomProfil, kNomClub, kCodeClub}},
        {QStringLiteral("respts"), QStringLiteral("respts.rtf"), {kNomCompet, kDateCompet, kLieuCompet, kBassin}},
        {QStringLiteral("rescompet"), QStringLiteral("rescomp.rtf"), {kNomCompet, kDateCompet, kLieuCompet}},
        {QStringLiteral("rec"), QStringLiteral("rec.rtf"), {kNomClub, kDateMaj, kTypeBassin}},
        {QStringLiteral("sperf"), QStringLiteral("sperf.rtf"), {kNomClub, kDateMaj}},
        {QStringLiteral("bor_engag"), QStringLiteral("bor_engag.rtf"),
         {kNomClub, kCodeClub, kDateJour, kNomCompet, kDateCompet, kLieuCompet, kBassin, kEngagIndiv,
          kEngagRelais}},
        {QStringLiteral("convo"), QStringLiteral("convo.rtf"),
         {kNomClub, kCodeClub, kDateJour, kMsgPerso, kNomCompet, kDateCompet, kLieuCompet, kBassin, kNomPiscine,
          kAdressePiscine, kVillePiscine, kProg, kNageur, kLicence, kEngag, kEngagRelais},
         true},
    };
    return kinds;
}

// The kind of that name, or null.
inline const TemplateKind* find_template_kind(const QString& kind)
{
    for (const TemplateKind& k : template_kinds())
        if (k.kind == kind)
            return &k;
    return nullptr;
}

// What the component "regmodele" offers, as the class Reg_modele.clsRegModele.
class TemplateBuilder {
public:
    virtual ~TemplateBuilder() = default;
    // Writes the default template of `kind` to `path`, making its folder if
    // needed. False when the kind is unknown or the file cannot be written.
    virtual bool Construct_Modele(const QString& path, const QString& kind) = 0;
};

}  // namespace plouvarine

#define PLOUVARINE_TEMPLATE_BUILDER_IID "org.plouvarine.Reg_modele.clsRegModele/1.0"
Q_DECLARE_INTERFACE(plouvarine::TemplateBuilder, PLOUVARINE_TEMPLATE_BUILDER_IID)
