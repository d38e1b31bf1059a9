#pragma once
// The event catalogue (Nage, supplied by the model base and never written)
// and the programme of a competition (Pcomp) or of a model (Pcomp_modele).
//
// A programme in edit is held as TabProg: one slot per event code, 0 to 99.
// A slot whose JourCourse is 0 is not in the programme. The whole array goes
// back to its table in one operation: the old rows are deleted, then one
// INSERT per programmed slot.

#include <QString>
#include <QStringList>
#include <array>
#include <functional>

class QStandardItemModel;

namespace plouvarine {

class AppContext;
class Database;

// One programmed event.
struct ProgSlot {
    qint16 JourCourse = 0;  // 0: not in the programme
    qint16 Type = 0;        // 1 time, 2 semi-finals, 3 heats-finals, 4 quarter, 8 eighth
    qint16 Nb_finales = 0;  // 0 to 3
    QString Type_finale;    // "T", "C" or " "
    qint16 Num_ordre = 0;   // 0: not ordered yet

    bool operator==(const ProgSlot&) const = default;
};

inline constexpr int kEventSlots = 100;
using TabProg = std::array<ProgSlot, kEventSlots>;

// The usual order of the catalogue.
inline constexpr char kOrdreNage[] = "ORDER BY Mixte DESC, Sexe, Nb_nageurs, Code_nage";

// Label and code of the catalogue's events, only those swum in a 50 m pool
// when `longueur` is 50.
QString ListeNageSql(int longueur);
// The programme of a competition.
QString TabFromTabSql(const QString& num_compet);
// The programme of a model; for a pool other than 25 m only the events that
// exist in a 50 m pool.
QString TabFromModeleSql(const QString& num_modele, int longueur);

// The loaded programme and the highest day met (at least 1).
struct LoadedProg {
    TabProg tab{};
    int journee_max = 1;
};
// Runs `sql` (columns Code_epreuve, JourCourse, Type, Nb_finales,
// Type_finale, Num_ordre) into a fresh array. An event code outside 0 to 99
// has no slot: std::out_of_range. The engine's errors go to the caller.
LoadedProg ChargeTabProg(Database& db, const QString& sql);

// The INSERT of one slot.
QString InsertProgSql(const QString& table, const QString& key, const QString& num, int code, const ProgSlot& slot);
// Replaces the rows of `num` in `table` (key Num_modele when `modele`, else
// Num_compet) by the programmed slots of `tab`. A day beyond `day_count` is
// first lowered to it, in the array too. On any error the message is shown and
// the writing stops where it stood (nothing is rolled back): false.
bool SaveTabInTable(AppContext& app, TabProg& tab, int day_count, const QString& table, const QString& num,
                    bool modele);

// "1ère journée", "2ème journée"...
QString LibelleJournee(int day);
// The text of a classification in the programme list:
// "(Classement au temps)", or "(1/2 finales, finale A - B, par catégories)"...
QString DescriptionEpreuve(int type, int nb_finales, const QString& type_finale);

// The finished programme of `num` in `table` (its key column `key`) into
// `list` (columns "Libelle", "Num Ordre"): the unordered events first, then
// day by day, an empty line and the day's heading (given by `heading`) before
// each day.
void ChargerListeProg(Database& db, QStandardItemModel& list, const QString& table, const QString& key,
                      const QString& num, const std::function<QString(int day)>& heading);

class FrmProg;
// Opens frm_prog (unless it stands already) for the competition or model
// `key` in `mode` under `title`; `caller` is told when it closes. The
// definition side shows when `definition` is true, the finished programme
// otherwise; `load_model_prog` fills that list from the model. Null when the
// window was open already.
FrmProg* OuvrirProg(AppContext& app, const QString& mode, const QString& key, bool modele, const QString& title,
                    const QString& caller, bool definition = true, bool load_model_prog = false);

}  // namespace plouvarine
