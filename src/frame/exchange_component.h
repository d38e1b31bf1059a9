#pragma once
// The exchange components: the plugins that trade files with the federation and
// the meet organisers (clubs, licences, IUF codes, performances, results, entry
// files). The operation runner closes the base, loads the component by its file
// name, and calls its one method; the component opens the base file by itself,
// writes its files into the run's work folder, and tells what it did in the
// trace file, which the runner shows as the report.

#include <QString>
#include <QtPlugin>

namespace plouvarine {

// What the runner's window shows while a component works. Components write
// into it through this interface only, never into widgets.
class OperationProgress {
public:
    virtual ~OperationProgress() = default;
    // The four message lines (0 to 3) above the bar.
    virtual void set_message(int line, const QString& text) = 0;
    // The club and the swimmer being worked on.
    virtual void set_club(const QString& text) = 0;
    virtual void set_swimmer(const QString& text) = 0;
    // The bar: `value` out of `maximum` (a maximum of 0 shows a busy bar).
    virtual void set_progress(int value, int maximum) = 0;
    // A line added to the report box while the work goes on.
    virtual void append_report(const QString& line) = 0;
};

// The arguments of one call; each method reads those it takes.
struct ExchangeCall {
    QString base;            // the base file, closed on the program's side
    QString source;          // the source folder or file of an import
    QString tmp_dir;         // the run's work folder: exports write their files there
    QString trace_file;      // the report, UTF-8, one French line per event
    QString club_code;       // the current club (state)
    QString club_selection;  // "true" when the current club is a selection club (bool_text of the state)
    QString profile_num;     // the current profile (state)
    QString num_compet;      // the competition of "disk" and "impres"
    bool new_compet = false; // "impres": the results go into a competition made for them
    bool option = false;     // the runner's option box ticked: force, compressed, my club only
                             // ("expperf": all clubs when it is not ticked)
};

class ExchangeComponent {
public:
    virtual ~ExchangeComponent() = default;
    // Runs `method` ("bExport_Club", "bImport_Club", "bExport_licence",
    // "bimport_licence", "bImport_CodeIUF", "bexport_performance",
    // "bimport_perf", "bimport_result", "bCreation_disquette") with the call's
    // arguments. True when the work folder holds files to hand over; a failure
    // is told in the trace file and gives false.
    virtual bool run(const QString& method, const ExchangeCall& call, OperationProgress& progress) = 0;
};

}  // namespace plouvarine

#define PLOUVARINE_EXCHANGE_COMPONENT_IID "fr.plouvarine.ExchangeComponent/1.0"
Q_DECLARE_INTERFACE(plouvarine::ExchangeComponent, PLOUVARINE_EXCHANGE_COMPONENT_IID)
