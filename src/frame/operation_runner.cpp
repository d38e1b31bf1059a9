#include "src/frame/operation_runner.h"

#include "src/base/sql_text.h"

#include "src/base/files.h"
#include "src/base/text.h"
#include "src/base/zip.h"
#include "src/frame/access.h"
#include "src/frame/app_context.h"
#include "src/frame/components.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPluginLoader>
#include <QStringDecoder>

namespace plouvarine {

namespace {

const QString kSaveFolder = QStringLiteral("Répertoire de sauvegarde :");
const QString kSourceFolder = QStringLiteral("Répertoire source :");
const QString kSourceFile = QStringLiteral("Fichier source :");
const QString kGeneratedFile = QStringLiteral("Fichier généré :");

const Operation kOperations[] = {
    {QLatin1String("expclub"), QLatin1String("expclub.clsExportClub"), QLatin1String("expclub.dll"),
     QLatin1String("bExport_Club"), QStringLiteral("Exporter Clubs"), kSaveFolder, {}, false, true},
    {QLatin1String("impclub"), QLatin1String("rcptclub.clsRecupClub"), QLatin1String("rcptclub.dll"),
     QLatin1String("bImport_Club"), QStringLiteral("Importer Clubs"), kSourceFolder,
     QStringLiteral("Force mise à jour des clubs"), false, false},
    {QLatin1String("explic"), QLatin1String("explic.clsExportLicence"), QLatin1String("explic.dll"),
     QLatin1String("bExport_licence"), QStringLiteral("Exporter Licences"), kSaveFolder, {}, false, true},
    {QLatin1String("implic"), QLatin1String("rcptlic.clsRecupLicence"), QLatin1String("rcptlic.dll"),
     QLatin1String("bimport_licence"), QStringLiteral("Importer Licences"), kSourceFolder, {}, false, false},
    {QLatin1String("majiuf"), QLatin1String("rcptlic.clsMajIUF"), QLatin1String("rcptlic.dll"),
     QLatin1String("bImport_CodeIUF"), QStringLiteral("Mise à jour des codes IUF"), kSourceFile,
     QStringLiteral("Mettre à jour uniquement licence de mon club"), false, false},
    {QLatin1String("expperf"), QLatin1String("export_perf.clsExportPerf"), QLatin1String("expperf.dll"),
     QLatin1String("bexport_performance"), QStringLiteral("Exporter Performances"), kSaveFolder,
     QStringLiteral("Restreindre à mon club"), true, true},
    {QLatin1String("impperf"), QLatin1String("RecupPerf.clsRecupPerf"), QLatin1String("rcpperf.dll"),
     QLatin1String("bimport_perf"), QStringLiteral("Importer performances"), kSourceFolder, {}, false, false},
    {QLatin1String("impres"), QLatin1String("RecupResultat.clsRecupResult"), QLatin1String("rcpres.dll"),
     QLatin1String("bimport_result"), QStringLiteral("Importer Résultats"), kSourceFolder,
     QStringLiteral("Fichier compressé"), false, false},
    {QLatin1String("disk"), QLatin1String("createdisk.clscreate_disk"), QLatin1String("createdisk.dll"),
     QLatin1String("bCreation_disquette"), QStringLiteral("Création Fichiers Engagements"), kSaveFolder,
     QStringLiteral("Compresser les fichiers"), false, true},
};

const QString kNoOption;

}  // namespace

const Operation* find_operation(const QString& keyword)
{
    for (const Operation& op : kOperations)
        if (op.keyword == keyword)
            return &op;
    return nullptr;
}

OperationRunner::OperationRunner(AppContext& app) : View(app, QString(kName)) {}

OperationRunner::~OperationRunner() = default;

bool OperationRunner::setObjDll(const QString& progid, const QString& keyword, const QString& title,
                                const QString& num_compet, bool new_compet)
{
    const Operation* op = find_operation(keyword);
    ExchangeComponent* component = nullptr;
    if (op && progid.compare(op->progid, Qt::CaseInsensitive) == 0) {
        // The plugin stays loaded for the session, as a registered component does.
        QPluginLoader loader(app().app_file(component_file(op->file)));
        component = qobject_cast<ExchangeComponent*>(loader.instance());
    }
    if (!component) {
        msg_erreur(app().ui, kLoadFailed);
        return false;
    }
    op_ = op;
    component_ = component;
    keyword_ = keyword;
    num_compet_ = num_compet;
    new_compet_ = new_compet;
    option_ticked_ = op->option_ticked;
    label_ = op->label;
    set_title(title);
    return true;
}

const QString& OperationRunner::option_text() const
{
    return op_ ? op_->option : kNoOption;
}

void OperationRunner::set_option_ticked(bool ticked)
{
    if (!op_ || op_->option.isEmpty() || !option_enabled_)
        return;
    option_ticked_ = ticked;
    if (keyword_ == QLatin1String("impres"))
        label_ = ticked ? kSourceFile : kSourceFolder;
    else if (keyword_ == QLatin1String("disk"))
        label_ = ticked ? kGeneratedFile : kSaveFolder;
    changed();
}

void OperationRunner::set_path(const QString& path)
{
    path_ = path;
    changed();
}

bool OperationRunner::source_is_zip() const
{
    return keyword_ == QLatin1String("majiuf") || (keyword_ == QLatin1String("impres") && option_ticked_);
}

bool OperationRunner::result_is_zip() const
{
    return keyword_ == QLatin1String("disk") && option_ticked_;
}

QString OperationRunner::ask_path()
{
    Services& ui = app().ui;
    FileDialogRequest request;
    if (keyword_ == QLatin1String("impres") && option_ticked_) {
        request = {QStringLiteral("Sélectionner fichier compressé de résultats"),
                   QStringLiteral("Fichier de résultats (*.zip)|*.zip"), false, true, false, QStringLiteral("zip")};
    } else if (keyword_ == QLatin1String("majiuf")) {
        request = {QStringLiteral("Sélectionner fichier compressé de résultats"),
                   QStringLiteral("Fichier de mise à jour (*.zip)|*.zip"), false, true, false, QStringLiteral("zip")};
    } else if (result_is_zip()) {
        request = {QStringLiteral("Création disquette d'engagements"),
                   QStringLiteral("Fichier d'engagements compressés (*.zip)|*.zip"), true, false, true, QStringLiteral("zip")};
    } else {
        const QString lower = label_.toLower();
        return ui.browse_folder(QStringLiteral("Sélectionner le ") + lower.left(lower.size() - 2));
    }
    const QString file = ui.file_dialog(request);
    return is_zip(file) ? file : QString();
}

void OperationRunner::choose_path()
{
    if (!op_ || running_)
        return;
    const QString chosen = ask_path();
    if (!chosen.isEmpty())
        set_path(chosen);
}

ExchangeCall OperationRunner::make_call() const
{
    const AppState& state = app().state;
    ExchangeCall call;
    call.base = state.base_path;
    call.source = path_;
    call.tmp_dir = tmp_dir_;
    call.trace_file = trace_file_;
    call.club_code = state.club_code;
    call.club_selection = bool_text(state.club_selection).text();
    call.profile_num = state.profile_num;
    call.num_compet = num_compet_;
    call.new_compet = new_compet_;
    call.option = option_ticked_;
    return call;
}

void OperationRunner::ok()
{
    if (!op_ || !ok_enabled_ || running_ || is_closed())
        return;
    AppContext& a = app();
    // 1. The run cannot start twice, nor change its option.
    WaitCursor wait(a.ui);
    ok_enabled_ = false;
    option_enabled_ = false;
    focus_rep_ = false;
    running_ = true;
    changed();
    QString unpack_dir;
    bool success = false;
    [&] {
        // 2, 3. Fresh work folder and trace file for every run.
        tmp_dir_ = unique_folder(QStringLiteral("tmpexpimp"), a.app_dir());
        QDir().mkpath(tmp_dir_);
        trace_file_ = unique_name(QStringLiteral("traceexpimp.txt"), a.app_dir());
        // 4. A zip source is unpacked, and the component reads the folder.
        if (source_is_zip()) {
            unpack_dir = unique_folder(QStringLiteral("tmpdezip"), a.app_dir());
            if (!unzip_file(a.ui, path_, unpack_dir))
                return;
            path_ = unpack_dir;
            changed();
        }
        // 5. Results for a competition made for them.
        if (keyword_ == QLatin1String("impres") && new_compet_) {
            num_compet_ = make_competition_ ? make_competition_(a) : QString();
            if (num_compet_.isEmpty()) {
                running_ = false;
                unload();
                close();
                return;
            }
        }
        // 6. From here on the component owns the base file.
        disconnect_base(a);
        // 7.
        if (op_->exports_to_folder && !result_is_zip() &&
            msg_confirm(a.ui, kOverwrite, kDefaultYes) != Button::Yes)
            return;
        if (op_->exports_to_folder)
            messages_[0] = QStringLiteral("Export en cours");
        else if (keyword_ == QLatin1String("majiuf"))
            messages_[0] = QStringLiteral("Mise à jour en cours");
        else
            messages_[0] = QStringLiteral("Import en cours");
        changed();
        bool files = false;
        try {
            files = component_->run(QString(op_->method), make_call(), *this);
        } catch (const std::exception& e) {
            // A component tells its failures in the trace; one that throws
            // anyway is told there too, so that the report says it.
            QFile trace(trace_file_);
            if (trace.open(QIODevice::WriteOnly | QIODevice::Append))
                trace.write(QStringLiteral("Erreur : %1\n").arg(QString::fromUtf8(e.what())).toUtf8());
        }
        // 8.
        if (result_is_zip())
            zip_result();
        else if (files)
            copy_result();
        // 9.
        if (!load_report()) {
            msg_erreur(a.ui, kTraceUnreadable);
            running_ = false;
            unload();
            close();
            return;
        }
        success = true;
    }();
    // 10.
    running_ = false;
    wait.release();
    if (success) {
        path_.clear();
        ok_enabled_ = true;
        focus_rep_ = true;
    }
    QDir(tmp_dir_).removeRecursively();
    if (!unpack_dir.isEmpty())
        QDir(unpack_dir).removeRecursively();
    changed();
}

void OperationRunner::zip_result()
{
    const QString target = path_;
    try {
        zip_folder(target, tmp_dir_);
    } catch (const std::exception&) {
        // The file that could not be read, else the archive itself.
        QString name = file_name(target);
        for (const QFileInfo& info : QDir(tmp_dir_).entryInfoList(QDir::Files, QDir::Name))
            if (!info.isReadable()) {
                name = info.fileName();
                break;
            }
        msg_erreur(app().ui, QStringLiteral("Erreur lors de la compression  du fichier ") + name + QStringLiteral("."));
        delete_file_forced(target);
    }
}

void OperationRunner::copy_result()
{
    Services& ui = app().ui;
    const QFileInfoList files = QDir(tmp_dir_).entryInfoList(QDir::Files, QDir::Name);
    for (qsizetype i = 0; i < files.size(); ++i) {
        const QString file = files[i].filePath();
        while (!path_.isEmpty() && !drive_ready(path_))
            if (msg_confirm(ui, QStringLiteral("Le lecteur n'est pas pret.\nContinuer la copie des fichiers ?"),
                            kDefaultYes) != Button::Yes)
                return;
        if (path_.isEmpty() || !QFileInfo(path_).isDir()) {
            msg_erreur(ui, QStringLiteral("Le répertoire de sauvegarde n'existe pas.\nCopie annulée"));
            return;
        }
        if (enough_space(file, path_)) {
            const QString error = move_file(file, path_);
            if (!error.isEmpty())
                msg_erreur(ui, QStringLiteral("Erreur lors de la copie du fichier ") + files[i].fileName() +
                                   QStringLiteral(".\n") + error);
            continue;
        }
        if (msg_confirm(ui,
                        QStringLiteral("Pas assez de place dans le répertoire cible.\n\n"
                                       "Changer de Répertoire ou Annuler"),
                        kDefaultYes) != Button::Yes)
            return;
        QString chosen;
        while ((chosen = ask_path()).isEmpty())
            if (msg_confirm(ui, QStringLiteral("Annuler la copie des fichiers ?"), kDefaultYes) == Button::Yes)
                return;
        path_ = chosen;
        // The file that did not fit goes to the new place, so that none is lost.
        --i;
    }
}

bool OperationRunner::load_report()
{
    QFile trace(trace_file_);
    if (!trace.open(QIODevice::ReadOnly))
        return false;
    QStringDecoder utf8(QStringDecoder::Utf8);
    report_ = utf8(trace.readAll());
    trace.close();
    if (utf8.hasError())
        return false;
    delete_file_forced(trace_file_);
    report_shown_ = true;
    return true;
}

void OperationRunner::quit()
{
    if (running_)
        return;
    unload();
    close();
}

bool OperationRunner::query_close()
{
    // The component runs inside the call: the window waits for it.
    if (running_)
        return false;
    unload();
    return true;
}

void OperationRunner::unload()
{
    if (unloaded_)
        return;
    unloaded_ = true;
    component_ = nullptr;
    reopen_or_recover(app());
}

void OperationRunner::set_message(int line, const QString& text)
{
    messages_[line & 3] = text;
    changed();
}

void OperationRunner::set_club(const QString& text)
{
    club_ = text;
    changed();
}

void OperationRunner::set_swimmer(const QString& text)
{
    swimmer_ = text;
    changed();
}

void OperationRunner::set_progress(int value, int maximum)
{
    bar_value_ = value;
    bar_maximum_ = maximum;
    changed();
}

void OperationRunner::append_report(const QString& line)
{
    if (!report_.isEmpty())
        report_ += QLatin1Char('\n');
    report_ += line;
    changed();
}

void run_operation(AppContext& app, const QString& progid, const QString& keyword, const QString& title,
                   const QString& num_compet, bool new_compet, CompetitionMaker maker)
{
    OperationRunner runner(app);
    if (!runner.register_window() || !runner.setObjDll(progid, keyword, title, num_compet, new_compet))
        return;
    runner.set_competition_maker(std::move(maker));
    app.ui.show_modal(runner);
    // A window dropped without its close still gives the base back.
    runner.unload();
}

void run_operation(AppContext& app, const QString& keyword, const QString& num_compet, bool new_compet,
                   CompetitionMaker maker)
{
    if (const Operation* op = find_operation(keyword))
        run_operation(app, QString(op->progid), keyword, op->title, num_compet, new_compet, std::move(maker));
}

void install_exchange_commands(AppContext& app)
{
    const std::pair<const char*, const char*> commands[] = {
        {"mnuBaseClubExport", "expclub"}, {"mnuBaseClubImport", "impclub"}, {"mnuLicExp", "explic"},
        {"mnuLicImport", "implic"},       {"mnuLicMaj", "majiuf"},          {"mnuPerfExporter", "expperf"},
        {"mnuPerfImpor", "impperf"},
    };
    for (const auto& [name, keyword] : commands)
        app.commands.add(QString::fromLatin1(name),
                         [keyword = QString::fromLatin1(keyword)](AppContext& a) { run_operation(a, keyword); });
}

}  // namespace plouvarine
