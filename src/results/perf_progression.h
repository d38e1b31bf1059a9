#pragma once
// The progression of one swimmer in one event (or of the club's relays in one
// relay event): the swims as time against date, the 25 m and 50 m pools as
// two series, the openings of the seasons they span, and the best swim of
// each season in each pool. The series are built here from the rows read;
// the chart window only draws them.

#include "src/frame/view.h"

#include <QByteArray>
#include <QDate>
#include <QString>
#include <vector>

namespace plouvarine {

class Rows;

// What the chart is of, taken from the chosen row of the history.
struct ProgressionChoice {
    QString num;    // Licence.Num; empty for the club's relays
    QString event;  // Nage.Libelle
    QString name;   // the swimmer's full name, or "Relais"
    bool operator==(const ProgressionChoice&) const = default;
};

struct ProgressionPoint {
    QDate date;
    double seconds = 0;  // the time in seconds, for the vertical axis
    QString time;        // the time as shown ("1:02.35")
    int pool = 25;
    bool operator==(const ProgressionPoint&) const = default;
};

struct Progression {
    std::vector<ProgressionPoint> bassin25;  // by date
    std::vector<ProgressionPoint> bassin50;
    // The openings of the seasons after the first swim's, up to the last swim.
    std::vector<QDate> saisons;
    // The best swim of each season in each pool, by date.
    std::vector<ProgressionPoint> meilleurs;
    bool empty() const { return bassin25.empty() && bassin50.empty(); }
};

// A time value m.sscc in seconds: 1.0235 gives 62.35.
double secondes_temps(double value);

// Seconds as a swim time is read: 68.2 gives "1:08.20", 32.5 gives "32.50".
QString texte_secondes(double seconds);

// The marks of the time axis between `low` and `high` seconds: a round step
// (a tenth, a fifth, half a second, one, two, five, ten, fifteen, thirty
// seconds or whole minutes) giving at most eight marks, from the multiple of
// the step at or below `low` to the one at or above `high`.
std::vector<double> graduations_temps(double low, double high);

// The series from rows of Date_perf, Tps and Type_bassin. Rows with no time,
// a status code (91 and more), or a date that is none are left out.
Progression construit_progression(const Rows& rows);

// The swims of the choice, all seasons, intermediate times left out.
QString requete_progression(const ProgressionChoice& choice, const QString& club);

// "frm_perf_progression": the chart's window, printed or saved as PNG or PDF.
class PerfProgressionView : public View {
public:
    static constexpr QLatin1String kName{"frm_perf_progression"};

    PerfProgressionView(AppContext& app, ProgressionChoice choice);
    const ProgressionChoice& choice() const { return choice_; }
    const Progression& progression() const { return progression_; }
    void load();

    // The file to save the chart to, PNG or PDF as its name ends; empty on cancel.
    QString choose_file();
    // Writes the drawn chart whole over `path`; false, with the message shown,
    // when it cannot be written.
    bool save(const QString& path, const QByteArray& data);
    void cmd_quitter() { close(); }

private:
    ProgressionChoice choice_;
    Progression progression_;
};

// Opens the chart of `choice` among the child windows, in place of the one
// on show; `caller` is told of its closing.
PerfProgressionView* OuvrirProgression(AppContext& app, const ProgressionChoice& choice, const QString& caller);

}  // namespace plouvarine
