#include "src/frame/menu_state.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace plouvarine {

namespace {

// One line of the tree: depth 0 is a menu of the bar. A line is a menu when the
// next line is deeper.
struct TreeLine {
    int depth;
    const char* name;
    const char* caption;  // UTF-8
};

constexpr TreeLine kTree[] = {
    {0, "mnuBase", "&Base"},
    {1, "mnuBaseNew", "&Nouvelle"},
    {1, "mnuBaseOpen", "&Ouvrir"},
    {1, "mnuBaseSave", "&Enregistrer"},
    {1, "mnuBaseSuppr", "&Supprimer"},
    {1, "mnuBaseAnnuler", "&Annuler Opérations"},
    {1, "mnuBaseClose", "&Fermer"},
    {1, "mnuBaseGestion", "&Gestion Base"},
    {2, "mnuBaseArchive", "&Archiver Base"},
    {2, "mnuBaseCompacter", "&Compacter"},
    {1, "mnuBaseProfil", "&Profil"},
    {2, "mnuBaseProfilNew", "&Nouveau"},
    {2, "mnuBaseProfilList", "&Liste"},
    {2, "mnuBaseProfilModif", "&Modifier"},
    {2, "mnuBaseProfilSuppr", "&Supprimer"},
    {2, "mnuBaseProfilInfo", "&Information Profil Actuel"},
    {2, "mnuBaseProfilChange", "&Changer de Profil"},
    {1, "mnuFileBar0", "-"},
    {1, "mnuExit", "&Quitter"},

    {0, "mnuBaseClub", "&Club"},
    {1, "mnuBaseClubNew", "&Nouveau"},
    {1, "mnuBaseClubImport", "&Importer"},
    {1, "mnuBaseClubListe", "&Liste"},
    {1, "mnuBaseClubModif", "&Modifier"},
    {1, "mnuBaseClubSuppr", "&Supprimer"},
    {1, "mnuBaseClubExport", "&Exporter"},
    {1, "mnuBaseClubConfig", "Votre Club"},
    {2, "mnuBaseClubConfigInfo", "&Information générale"},
    {2, "mnuBaseClubConfigRapport", "&Rapport cotisation"},
    {2, "mnuBaseClubCotisationUnknown", "&Listing cotisation manquante"},

    {0, "mnuLicence", "&Licence"},
    {1, "mnuLicNew", "&Nouvelle"},
    {1, "mnuLicImport", "&Importer"},
    {1, "mnuLicListe", "&Liste Licence"},
    {1, "mnuLicModif", "&Modifier"},
    {1, "mnuLicSuppr", "&Supprimer"},
    {1, "mnuLicMaj", "&Mise à jour IUF"},
    {1, "mnuLicExp", "&Exporter"},
    {1, "mnuLicPrint", "Imprimer &Rapport"},

    {0, "mnuCompet", "Compét&ition"},
    {1, "mnuCompetNew", "&Nouvelle"},
    {1, "mnuCompetListe", "&Liste"},
    {1, "mnuCompetModif", "&Modifier"},
    {1, "mnuCompetSuppr", "&Supprimer"},
    {1, "mnuCompetDonnees", "&Données"},
    {2, "mnuEngagProgramme", "&Programme"},
    {2, "mnuEngag", "&Engagements"},
    {3, "mnuEngagIndiv", "&Nageur(s)"},
    {3, "mnuEngagRelais", "&Relais"},
    {3, "mnuEngagDisk", "&Disquette"},
    {3, "mnuEngagConvoc", "&Convocations"},
    {3, "mnuEngagBordereau", "&Bordereaux"},
    {2, "mnuCompetResult", "&Importation Résultats"},
    {2, "mnuCompetVoirResult", "&Voir Résultats"},

    {0, "mnuModele", "&Modèles"},
    {1, "mnuModeleEngag", "&Engagements"},
    {2, "mnuModeleEngagNew", "&Nouveaux"},
    {2, "mnuModeleEngagView", "&Voir"},
    {2, "mnuModeleEngagModif", "&Modifier"},
    {2, "mnuModeleEngagSuppr", "&Supprimer"},
    {1, "mnuModelePiscine", "&Piscine"},
    {2, "mnuModelePiscineNew", "&Nouvelle"},
    {2, "mnuModelePiscineView", "&Voir"},
    {2, "mnuModelePiscineModif", "&Modifier"},
    {2, "mnuModelePiscineSuppr", "&Supprimer"},
    {1, "mnuModeleProg", "&Programme compétition"},
    {2, "mnuModeleProgNew", "&Nouveau"},
    {2, "mnuModeleProgView", "&Voir"},
    {2, "mnuModeleProgModif", "&Modifier"},
    {2, "mnuModeleProgSuppr", "&Supprimer"},

    {0, "mnuPerf", "&Performances"},
    {1, "mnuPerfImpor", "&Importer"},
    {1, "mnuPerfAjout", "&Ajouter"},
    {1, "mnuPerfAjoutRelais", "Ajout &Relais"},
    {1, "mnuPerfView", "&Voir"},
    {1, "mnuPerfExporter", "&Exporter"},
    {1, "mnuPerfRecClub", "Records &Club"},
    {2, "mnuPerfRecView", "&Modifier"},
    {2, "mnuPerfRecModifier", "&Def Catégories"},
    {1, "mnuPerfRec", "&Records"},
    {2, "mnuPerfRecImport", "&Importer"},
    {2, "mnuPerfRecConsult", "&Consulter"},

    {0, "mnuOutils", "O&utils"},
    {1, "mnuOutilsCalculTps", "Calculatrice &temps"},
    {1, "mnuOutilsCalculPoint", "&Calculatrice points"},
    {1, "mnuOutilsCalculPointEquipe", "Calcul points équipe &interclubs"},
    {1, "mnuPerfOrdi", "&Perf Ordinateur"},
    {2, "mnuPerfOrdiAffiche", "&Afficher"},
    {2, "mnuPerfOrdiMasquer", "&Masquer"},
    {2, "mnuPerfOrdiParam", "&Paramètres"},
    {2, "mnuPerfOrdiTjsVisible", "&Toujours visible"},

    // The help menu: "?" as its caption, the usual place of help on Windows.
    {0, "mnuHelp", "&?"},
    {1, "mnuHelpGuide", "&Guide de l'utilisateur"},
    {1, "mnuMaj", "&Mise à jour"},
    {2, "mnuMajLogiciel", "&Logiciel"},
    {2, "mnuMajBase", "&Bases"},
    {1, "mnuHelpInfo", "&A propos"},

    // The fee context menu of the licence list; its lines are tarifs().
    {0, "mnuTarifs", "Tarifs"},
};

// Switched by the base state: on with a base, off without one.
constexpr const char* kOnWithBase[] = {
    "mnuBaseAnnuler", "mnuBaseClose", "mnuBaseSave", "mnuBaseGestion", "mnuCompet",
    "mnuLicence", "mnuPerf", "mnuBaseClub", "mnuBaseProfil", "mnuBaseCompacter",
    "mnuBaseArchive", "mnuModele", "mnuOutils",
};
// Switched the other way: a base is created or opened only when none is.
constexpr const char* kOffWithBase[] = {"mnuBaseOpen", "mnuBaseNew"};

QStringList group_list(std::initializer_list<const char*> names)
{
    QStringList list;
    for (const char* n : names)
        list << QLatin1String(n);
    return list;
}

const std::vector<QStringList>& groups()
{
    static const std::vector<QStringList> all = {
        group_list({"mnuBaseClubNew", "mnuBaseClubListe", "mnuBaseClubModif", "mnuBaseClubSuppr",
                    "mnuBaseClubConfig"}),
        group_list({"mnuBaseProfilNew", "mnuBaseProfilList", "mnuBaseProfilModif", "mnuBaseProfilSuppr",
                    "mnuBaseProfilInfo", "mnuBaseProfilChange"}),
        group_list({"mnuLicNew", "mnuLicImport", "mnuLicListe", "mnuLicModif", "mnuLicSuppr", "mnuLicExp",
                    "mnuLicPrint"}),
        group_list({"mnuCompetNew", "mnuCompetListe", "mnuCompetModif", "mnuCompetSuppr", "mnuEngagProgramme",
                    "mnuCompetResult", "mnuCompetVoirResult"}),
        group_list({"mnuEngagIndiv", "mnuEngagRelais", "mnuEngagDisk", "mnuEngagConvoc", "mnuEngagBordereau"}),
        group_list({"mnuModeleEngagNew", "mnuModeleEngagView", "mnuModeleEngagModif", "mnuModeleEngagSuppr"}),
        group_list({"mnuModelePiscineNew", "mnuModelePiscineView", "mnuModelePiscineModif",
                    "mnuModelePiscineSuppr"}),
        group_list({"mnuModeleProgNew", "mnuModeleProgView", "mnuModeleProgModif", "mnuModeleProgSuppr"}),
        group_list({"mnuPerfImpor", "mnuPerfAjout", "mnuPerfAjoutRelais", "mnuPerfView", "mnuPerfExporter",
                    "mnuPerfRecView", "mnuPerfRecModifier"}),
        group_list({"mnuOutilsCalculPointEquipe"}),
    };
    return all;
}

qint16 saturated(int value)
{
    return qint16(std::clamp(value, int(std::numeric_limits<qint16>::min()),
                             int(std::numeric_limits<qint16>::max())));
}

}  // namespace

const QStringList& lock_group_commands(LockGroup group)
{
    return groups().at(size_t(group));
}

std::optional<LockGroup> lock_group_of(const QString& command)
{
    for (int g = 0; g < kLockGroupCount; ++g)
        if (groups()[size_t(g)].contains(command))
            return LockGroup(g);
    return std::nullopt;
}

GroupLocks whole_group(LockGroup group)
{
    return {group, std::vector<int>(size_t(lock_group_commands(group).size()), 1)};
}

MenuLocks locks_on(const QStringList& commands)
{
    std::vector<std::vector<int>> deltas(kLockGroupCount);
    for (const QString& name : commands) {
        const auto group = lock_group_of(name);
        if (!group)
            throw std::invalid_argument("no lock counter for the menu entry " + name.toStdString());
        auto& row = deltas[size_t(*group)];
        if (row.empty())
            row.assign(size_t(lock_group_commands(*group).size()), 0);
        row[size_t(lock_group_commands(*group).indexOf(name))] = 1;
    }
    MenuLocks locks;
    for (int g = 0; g < kLockGroupCount; ++g)
        if (!deltas[size_t(g)].empty())
            locks.push_back({LockGroup(g), std::move(deltas[size_t(g)])});
    return locks;
}

MenuLocks reversed(MenuLocks locks)
{
    for (auto& group : locks)
        for (int& d : group.deltas)
            d = -d;
    return locks;
}

MenuState::MenuState() : tarifs_{QStringLiteral("Aucun")}
{
    constexpr int count = int(std::size(kTree));
    std::vector<int> parents_by_depth;
    std::vector<int> next_order(count, 0);
    int top_order = 0;
    for (int i = 0; i < count; ++i) {
        const TreeLine& line = kTree[i];
        parents_by_depth.resize(size_t(line.depth));
        const int parent = line.depth == 0 ? -1 : parents_by_depth.back();

        MenuEntry e;
        e.name = QLatin1String(line.name);
        e.caption = QString::fromUtf8(line.caption);
        e.parent = parent < 0 ? QString() : entries_[size_t(parent)].name;
        e.order = parent < 0 ? top_order++ : next_order[size_t(parent)]++;
        const bool has_entries = i + 1 < count && kTree[i + 1].depth > line.depth;
        e.kind = has_entries ? MenuKind::Menu : e.caption == QLatin1String("-") ? MenuKind::Separator
                                                                                  : MenuKind::Command;
        e.visible = e.name != QLatin1String("mnuTarifs");
        e.checkable = e.name == QLatin1String("mnuPerfOrdiTjsVisible");
        if (e.name == QLatin1String("mnuTarifs"))
            e.kind = MenuKind::Menu;

        Node node;
        node.parent = parent;
        node.outside_base = e.name == QLatin1String("mnuPerfOrdi");
        index_.insert(e.name, i);
        entries_.push_back(std::move(e));
        nodes_.push_back(node);
        parents_by_depth.push_back(i);
    }

    // The process starts with no base.
    for (const char* n : kOnWithBase)
        nodes_[size_t(index_of(QLatin1String(n)))].base_flag = false;
}

const MenuEntry* MenuState::entry(const QString& name) const
{
    const int i = index_of(name);
    return i < 0 ? nullptr : &entries_[size_t(i)];
}

std::vector<const MenuEntry*> MenuState::children(const QString& menu) const
{
    const int parent = menu.isEmpty() ? -1 : index_of(menu);
    std::vector<const MenuEntry*> list;
    if (!menu.isEmpty() && parent < 0)
        return list;
    for (size_t i = 0; i < entries_.size(); ++i)
        if (nodes_[i].parent == parent)
            list.push_back(&entries_[i]);
    return list;
}

void MenuState::enable_menus(bool base_open)
{
    base_open_ = base_open;
    for (const char* n : kOffWithBase)
        nodes_[size_t(index_of(QLatin1String(n)))].base_flag = !base_open;
    for (const char* n : kOnWithBase)
        nodes_[size_t(index_of(QLatin1String(n)))].base_flag = base_open;
    changed();
}

void MenuState::lock_menus(LockGroup group, const std::vector<int>& deltas)
{
    const QStringList& commands = lock_group_commands(group);
    if (deltas.size() != size_t(commands.size()))
        throw std::invalid_argument("lock_menus: one delta per command of the group is expected");
    bool moved = false;
    for (int k = 0; k < commands.size(); ++k) {
        const int d = deltas[size_t(k)];
        if (d == 0)
            continue;
        Node& node = nodes_[size_t(index_of(commands[k]))];
        node.counter = saturated(node.counter + d);
        moved = true;
    }
    if (moved)
        changed();
}

void MenuState::apply_locks(const MenuLocks& locks)
{
    // All or nothing: a wrong delta list leaves every counter as it was.
    for (const auto& group : locks)
        if (group.deltas.size() != size_t(lock_group_commands(group.group).size()))
            throw std::invalid_argument("apply_locks: one delta per command of the group is expected");
    for (const auto& group : locks)
        lock_menus(group.group, group.deltas);
}

void MenuState::release_locks(const MenuLocks& locks)
{
    apply_locks(reversed(locks));
}

qint16 MenuState::counter(const QString& name) const
{
    const int i = index_of(name);
    return i < 0 ? 0 : nodes_[size_t(i)].counter;
}

bool MenuState::own_enabled(const QString& name) const
{
    const int i = index_of(name);
    return i >= 0 && nodes_[size_t(i)].base_flag && nodes_[size_t(i)].counter < 1;
}

// Walks up to the bar: every entry on the way must be unlocked and switched on
// by the base state, unless an entry below it stands outside the base state.
bool MenuState::reachable(int i) const
{
    bool outside_base = false;
    for (int n = i; n >= 0; n = nodes_[size_t(n)].parent) {
        const Node& node = nodes_[size_t(n)];
        outside_base = outside_base || node.outside_base;
        if (node.counter >= 1)
            return false;
        if (!node.base_flag && !outside_base)
            return false;
    }
    return true;
}

bool MenuState::has_enabled_entry(int i) const
{
    for (size_t k = 0; k < nodes_.size(); ++k)
        if (nodes_[k].parent == i && is_enabled(entries_[k].name))
            return true;
    return false;
}

bool MenuState::is_enabled(const QString& name) const
{
    const int i = index_of(name);
    if (i < 0)
        return false;
    if (reachable(i))
        return true;
    // A menu that the base state switched off still opens for an entry that
    // stands outside the base state; a locked menu never does.
    return entries_[size_t(i)].kind == MenuKind::Menu && nodes_[size_t(i)].counter < 1 && has_enabled_entry(i);
}

bool MenuState::is_checked(const QString& name) const
{
    const int i = index_of(name);
    return i >= 0 && nodes_[size_t(i)].checked;
}

void MenuState::set_checked(const QString& name, bool checked)
{
    const int i = index_of(name);
    if (i < 0 || !entries_[size_t(i)].checkable || nodes_[size_t(i)].checked == checked)
        return;
    nodes_[size_t(i)].checked = checked;
    changed();
}

void MenuState::set_tarifs(const QStringList& fees)
{
    tarifs_ = QStringList{QStringLiteral("Aucun")} + fees;
    if (checked_tarif_ >= tarifs_.size())
        checked_tarif_ = -1;
    if (on_tarifs_changed)
        on_tarifs_changed();
}

void MenuState::set_checked_tarif(int index)
{
    const int value = index >= 0 && index < tarifs_.size() ? index : -1;
    if (value == checked_tarif_)
        return;
    checked_tarif_ = value;
    if (on_tarifs_changed)
        on_tarifs_changed();
}

void MenuState::changed()
{
    if (on_changed)
        on_changed();
}

}  // namespace plouvarine
