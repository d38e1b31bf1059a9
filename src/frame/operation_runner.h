#pragma once
// The operation runner "frm_attente": the one window through which every
// exchange component runs. It asks for a folder or a file and one option,
// closes the base so that the component can open it, calls the component's
// method, shows its progress and the report it wrote, and opens the base again
// when it closes. Nine operations go through it, told by a keyword.

#include "src/frame/exchange_component.h"
#include "src/frame/view.h"

#include <QLatin1String>
#include <QString>
#include <functional>

namespace plouvarine {

class AppContext;

// One operation: its keyword, the component (ProgID and file of the component
// list), the method it calls, the window's title and the label before the path.
struct Operation {
    QLatin1String keyword;
    QLatin1String progid;
    QLatin1String file;
    QLatin1String method;
    QString title;
    QString label;
    // The option box's text; empty hides the box.
    QString option;
    bool option_ticked = false;
    // An export whose files replace those of the target folder.
    bool exports_to_folder = false;
};

// The operation of `keyword`, or null.
const Operation* find_operation(const QString& keyword);

// The competition made for results that go into a new one: its number, or the
// empty text when it could not be made (the maker has said why).
using CompetitionMaker = std::function<QString(AppContext&)>;

class OperationRunner : public View, public OperationProgress {
public:
    static constexpr QLatin1String kName{"frm_attente"};
    static inline const QString kLoadFailed =
        QStringLiteral("Une erreur s'est produite lors du chargement de la fenêtre");
    static inline const QString kOverwrite =
        QStringLiteral("Les fichiers dans le répertoire cibles seront écrasés.\nContinuer ?");
    static inline const QString kTraceUnreadable = QStringLiteral("Erreur de lecture du fichier trace !");

    explicit OperationRunner(AppContext& app);
    ~OperationRunner() override;

    // Loads the component of `progid` from the application folder, keeps the
    // values, and sets the title, the label and the option box. A component
    // that cannot be loaded gives kLoadFailed and false.
    bool setObjDll(const QString& progid, const QString& keyword, const QString& title, const QString& num_compet,
                   bool new_compet);
    // "impres" with a new competition: how it is made (the competitions layer
    // gives CreerCompetImport).
    void set_competition_maker(CompetitionMaker maker) { make_competition_ = std::move(maker); }

    // What the window shows.
    const QString& keyword() const { return keyword_; }
    const QString& label() const { return label_; }
    bool option_visible() const { return op_ && !op_->option.isEmpty(); }
    const QString& option_text() const;
    bool option_ticked() const { return option_ticked_; }
    bool option_enabled() const { return option_enabled_; }
    const QString& path() const { return path_; }
    bool ok_enabled() const { return ok_enabled_; }
    // The focus goes back to Cmd_rep after a run, for the next one.
    bool focus_on_path_button() const { return focus_rep_; }
    const QString& message(int line) const { return messages_[line & 3]; }
    const QString& club() const { return club_; }
    const QString& swimmer() const { return swimmer_; }
    int progress_value() const { return bar_value_; }
    int progress_maximum() const { return bar_maximum_; }
    // RichRapport: the lines the component added while it worked, then the
    // trace file once the run is over.
    const QString& report() const { return report_; }
    bool report_shown() const { return report_shown_; }
    bool running() const { return running_; }
    const QString& num_compet() const { return num_compet_; }

    // The work folder and trace file of the last run (gone once it is over).
    const QString& tmp_dir() const { return tmp_dir_; }
    const QString& trace_file() const { return trace_file_; }

    // The person's actions.
    void set_option_ticked(bool ticked);
    void set_path(const QString& path);
    void choose_path();  // Cmd_rep
    void ok();           // Cmd_ok: the run in its ten steps
    void quit();         // Cmd_quit
    bool query_close() override;
    // The unload step: the base opened again (or recovered). Runs once.
    void unload();

    // OperationProgress: what the component writes while it works.
    void set_message(int line, const QString& text) override;
    void set_club(const QString& text) override;
    void set_swimmer(const QString& text) override;
    void set_progress(int value, int maximum) override;
    void append_report(const QString& line) override;

private:
    // The path dialog of the keyword and option; the empty text on cancel.
    QString ask_path();
    bool source_is_zip() const;
    bool result_is_zip() const;
    ExchangeCall make_call() const;
    void zip_result();
    void copy_result();
    bool load_report();

    const Operation* op_ = nullptr;
    ExchangeComponent* component_ = nullptr;
    CompetitionMaker make_competition_;
    QString keyword_;
    QString num_compet_;
    bool new_compet_ = false;
    QString label_;
    bool option_ticked_ = false;
    bool option_enabled_ = true;
    QString path_;
    bool ok_enabled_ = true;
    bool focus_rep_ = false;
    QString messages_[4];
    QString club_;
    QString swimmer_;
    int bar_value_ = 0;
    int bar_maximum_ = 100;
    QString report_;
    bool report_shown_ = false;
    bool running_ = false;
    bool unloaded_ = false;
    QString tmp_dir_;
    QString trace_file_;
};

// Loads the runner, sets it up with setObjDll, and shows it modally. The base
// is open again when it returns.
void run_operation(AppContext& app, const QString& progid, const QString& keyword, const QString& title,
                   const QString& num_compet = {}, bool new_compet = false, CompetitionMaker maker = {});
// The same, from the operation's keyword.
void run_operation(AppContext& app, const QString& keyword, const QString& num_compet = {}, bool new_compet = false,
                   CompetitionMaker maker = {});

// The menu commands that open an operation: mnuBaseClubExport,
// mnuBaseClubImport, mnuLicExp, mnuLicImport, mnuLicMaj, mnuPerfExporter,
// mnuPerfImpor.
void install_exchange_commands(AppContext& app);

}  // namespace plouvarine
