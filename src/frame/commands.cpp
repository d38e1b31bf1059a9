#include "src/frame/commands.h"

#include "src/frame/keywords.h"

namespace plouvarine {

namespace {

using namespace keyword;

CommandTarget list(const char* command, const char* window, QLatin1String kw, const char* title,
                   const char* ok_caption, QLatin1String model_kind = {})
{
    return {QLatin1String(command), CommandKind::List, QLatin1String(window), kw, QString::fromUtf8(title),
            QString::fromUtf8(ok_caption), model_kind, false};
}

CommandTarget detail(const char* command, const char* window, QLatin1String kw, const char* title = "",
                     QLatin1String model_kind = {})
{
    return {QLatin1String(command), CommandKind::Detail, QLatin1String(window), kw, QString::fromUtf8(title),
            QString(), model_kind, false};
}

CommandTarget window(const char* command, const char* name, bool modal = false)
{
    return {QLatin1String(command), CommandKind::Window, QLatin1String(name), {}, {}, {}, {}, modal};
}

CommandTarget no_action(const char* command)
{
    return {QLatin1String(command), CommandKind::NoAction, {}, {}, {}, {}, {}, false};
}

std::vector<CommandTarget> make_table()
{
    constexpr const char* kClubs = "Frm_liste_club";
    constexpr const char* kProfils = "Frm_liste_profil";
    constexpr const char* kLicences = "frm_liste_licence";
    constexpr const char* kCompets = "Frm_liste_compet";
    constexpr const char* kModeles = "frm_liste_modele";
    constexpr const char* kPiscines = "Frm_liste_piscine";
    return {
        list("mnuBaseClubListe", kClubs, kView, "Liste des Clubs", ""),
        list("mnuBaseClubModif", kClubs, kModif, "Modifier Clubs", "&Modifier"),
        list("mnuBaseClubSuppr", kClubs, kSuppr, "Supprimer Clubs", "&Supprimer"),
        list("mnuBaseProfilChange", kProfils, kChoisir, "Choisir un profil", ""),
        list("mnuBaseProfilList", kProfils, kView, "Liste des profils", "&Voir"),
        list("mnuBaseProfilModif", kProfils, kModif, "Modifier profils", "&Modifier"),
        list("mnuBaseProfilSuppr", kProfils, kSuppr, "Supprimer profils", "&Supprimer"),
        list("mnuLicListe", kLicences, kView, "Liste des Licences", ""),
        list("mnuLicModif", kLicences, kModif, "Modifier Licences", "&Modifier"),
        list("mnuLicSuppr", kLicences, kSuppr, "Supprimer Licences", "&Supprimer"),
        list("mnuBaseClubCotisationUnknown", kLicences, kSsCotisation, "Licences sans cotisation", ""),
        list("mnuCompetListe", kCompets, kView, "Liste des compétitions à venir", ""),
        list("mnuCompetModif", kCompets, kModif, "Modifier des informations des compétitions", "&Modifier"),
        list("mnuCompetSuppr", kCompets, kSuppr, "Supprimer Compétitions", "&Supprimer"),
        list("mnuEngagProgramme", kCompets, kModifProg, "Choix d'une compétition pour définition du programme",
             "&Prog"),
        list("mnuEngagIndiv", kCompets, kChoixPourEngagements,
             "Choix d'une compétition pour engagements des nageurs", "&Engag"),
        list("mnuEngagRelais", kCompets, kChoixPourEngagementsRelais,
             "Choix d'une compétition pour engagements des relais", "&Engag"),
        list("mnuEngagDisk", kCompets, kDisk, "Choix d'une compétition pour création des disquettes", "&Disk"),
        list("mnuEngagConvoc", kCompets, kImprimConvoc,
             "Choix d'une compétition pour impression des convocations", "&Imprimer"),
        list("mnuEngagBordereau", kCompets, kImprimBordereau,
             "Choix d'une compétition pour impression bordereau d'engagement.", "&Imprimer"),
        list("mnuCompetResult", kCompets, kImporRes, "Importation résultats pour compétition", "&Résultats"),
        list("mnuModeleEngagView", kModeles, kView, "Liste des modèles d'engagements", "&Voir", kModelEngag),
        list("mnuModeleEngagModif", kModeles, kModif, "Modification des modèles d'engagements", "&Modifier",
             kModelEngag),
        list("mnuModeleEngagSuppr", kModeles, kSuppr, "Supprimer des modèles d'engagements", "&Supprimer",
             kModelEngag),
        list("mnuModeleProgView", kModeles, kView, "Liste des modèles de programme", "&Voir", kModelProg),
        list("mnuModeleProgModif", kModeles, kModif, "Modifier Modèles de programme", "&Modifier", kModelProg),
        list("mnuModeleProgSuppr", kModeles, kSuppr, "Supprimer des modèles de programme", "&Supprimer",
             kModelProg),
        list("mnuModelePiscineView", kPiscines, kView, "Liste des piscines", "&Voir"),
        list("mnuModelePiscineModif", kPiscines, kModif, "Modifier Piscines", "&Modifier"),
        list("mnuModelePiscineSuppr", kPiscines, kSuppr, "Supprimer Piscines", "&Supprimer"),

        // New records, each through the detail window of its record.
        detail("mnuBaseClubNew", "dem_info", kNouveau),
        detail("mnuBaseProfilNew", "det_profil", kNouveau),
        detail("mnuLicNew", "det_licence", kNouveau, "Nouvelle Licence"),
        detail("mnuCompetNew", "det_compet", kNouveau, "Nouvelle compétition"),
        detail("mnuModelePiscineNew", "det_Piscine", kNouveau, "Nouvelle piscine"),
        detail("mnuModeleEngagNew", "det_modele_obli", kNouveau, "", kModelEngag),
        detail("mnuModeleProgNew", "det_modele_obli", kNouveauProg, "", kModelProg),
        // The current profile, shown read-only.
        detail("mnuBaseProfilInfo", "det_profil", kView),

        window("mnuBaseClubConfigInfo", "det_mon_club"),
        window("mnuCompetVoirResult", "frm_view_result"),
        window("mnuPerfView", "frm_view_perf"),
        window("mnuPerfRecView", "frm_view_record"),
        window("mnuPerfRecModifier", "det_categorie_record_club"),
        window("mnuPerfAjout", "frm_ajout_perf"),
        window("mnuPerfAjoutRelais", "frm_ajout_perf_relais"),
        window("mnuOutilsCalculTps", "frm_calTps"),
        window("mnuOutilsCalculPoint", "frm_calpts"),
        window("mnuOutilsCalculPointEquipe", "frm_PtsInter"),
        window("mnuMajBase", "frm_upgrade_base", true),
        window("mnuHelpInfo", "frmSplash", true),

        no_action("mnuBaseClubConfigRapport"),
        no_action("mnuPerfRecImport"),
        no_action("mnuPerfRecConsult"),
    };
}

}  // namespace

const std::vector<CommandTarget>& command_table()
{
    static const std::vector<CommandTarget> table = make_table();
    return table;
}

const CommandTarget* find_command(const QString& command)
{
    for (const CommandTarget& target : command_table())
        if (target.command == command)
            return &target;
    return nullptr;
}

std::vector<const CommandTarget*> commands_opening(const QString& window)
{
    std::vector<const CommandTarget*> found;
    for (const CommandTarget& target : command_table())
        if (target.window == window)
            found.push_back(&target);
    return found;
}

}  // namespace plouvarine
