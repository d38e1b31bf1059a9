#pragma once
// The rows of the results list and the texts they are made of: the status
// codes that stand in the time column, the titles of the blocks, the
// intermediate headings, and how a row's kind is told from its first cells.

#include <QString>
#include <QStringList>

class QStandardItemModel;

namespace plouvarine {

// Every value of 91 or more in a result's time is a status, never a time.
inline constexpr double kFirstStatus = 91.0;

// The two texts of a status, for "Tps" and "Pts", separated by a tab: 93 gives
// "Disq\tRel.". The canonical text is compared as a number, exactly.
QString libelle_statut_temps(const QString& canonical);

// The label of a type of race ("F" "Finale", "S" "Série"...); empty if unknown.
QString libelle_type_course(const QString& code);
// The title of a block: "Série 3", "Finale A", "1/2 Finale B catégorie Benjamins".
QString titre_course(const QString& type, const QString& serie, const QString& categorie);

// The distances of the intermediate headings, from the one nearest the finish:
// 400 gives 350, 300 ... 50; 1500 gives 1400 ... 100; under 51 none.
QList<int> distances_inter(int distance);

// The "Tps" texts that are the first half of a status.
bool is_status_text(const QString& tps);

// The list as the exports read it: the rows of LsvResults, the events of
// Cbo_search in order, and the columns shown.
struct ResultSheet {
    const QStandardItemModel* rows = nullptr;
    QStringList events;
    bool nationalite = false;
    bool equipe = false;
    bool tps_inter = false;
    int first_inter = 6;
};

enum class RowKind { Blank, Title, Data };
// A row is blank when its first and "Nom" cells are empty once trimmed, a
// title when only the first one is, else a data row (an empty lane too).
RowKind row_kind(const QStandardItemModel& rows, int row);
QString cell(const QStandardItemModel& rows, int row, int column);
// The number of intermediate headings of an event's title row: the "Inter"
// cells that hold one, from the first up to the first empty one.
int inter_count(const ResultSheet& sheet, int row);

// Walks the rows telling which title rows begin an event: a title begins one
// when its text is the next event of the list not yet reached, so a title
// repeated between events counts once and two events with one label count
// twice.
class EventWalker {
public:
    explicit EventWalker(const QStringList& events) : events_(events) {}
    // True when the title `text` is the next event; moves past it.
    bool begins_event(const QString& text);
    int events_reached() const { return next_; }

private:
    const QStringList& events_;
    int next_ = 0;
};

}  // namespace plouvarine
