#include "src/frame/base_commands.h"
#include "src/frame/user_guide.h"

#include "src/frame/base_file_commands.h"
#include "src/frame/software_update.h"
#include "src/frame/status_lines.h"

#include "src/frame/app_context.h"
#include "src/base/errors.h"
#include "src/base/text.h"
#include "src/frame/access.h"
#include "src/store/base_files.h"
#include "src/store/save.h"
#include "src/store/sentinels.h"
#include "src/frame/upgrade.h"

#include <QFileInfo>

namespace plouvarine {

namespace {

const QString kBaseFilter = QStringLiteral("Base de données (*.mdb)|*.mdb");
const QString kLoseUnsaved = QStringLiteral("Les données non sauvegardées seront effacées. Continuer ?");

void run_hook(AppContext& app, const std::function<void(AppContext&)>& hook)
{
    if (hook)
        hook(app);
}

void release_monitor(AppContext& app)
{
    run_hook(app, app.hooks.release_monitor);
}

// The end of work waits for the open windows; the status bar says why.
bool refused_while_busy(AppContext& app)
{
    if (!app.is_busy())
        return false;
    status_text(app.ui, kStatusCloseWindowsFirst);
    return true;
}

// The save copy: the snapshot now, its compression off the person's thread.
// When it is written the status bar says so. False when it could not start.
bool write_save(AppContext& app)
{
    return start_save(app.base_file(), app.saves, [&app](bool saved) {
        status_text(app.ui, saved ? saved_at_text(app) : QString());
    });
}

void show_save_in_progress(AppContext& app)
{
    if (app.saves.pending())
        status_text(app.ui, kStatusSaveWriting);
}

}  // namespace

void startup_controls(AppContext& app)
{
    app.enable_menus(true);
    status_text(app.ui, QStringLiteral("Contrôle Club"));
    run_hook(app, app.hooks.check_club);
    status_text(app.ui, QStringLiteral("Lecture profil"));
    run_hook(app, app.hooks.read_profile);
    status_text(app.ui, QStringLiteral("Contrôle Nageur et Piscine"));
    app.state.num_lic_nulle = check_licence_nulle(app.db, app.ui, app.state.club_code);
    check_piscine_reference(app.db, app.ui);
    status_text(app.ui, QString());
}

bool check_version(AppContext& app)
{
    status_text(app.ui, QStringLiteral("Contrôle Version Base"));
    QString version;
    try {
        version = app.db.load_rows(QStringLiteral("SELECT Version FROM Info")).first();
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QStringLiteral("Cette base n'est pas valide.\nImpossible de retrouver la version."), &e);
        version.clear();
    }
    if (version.isEmpty()) {
        if (app.db.is_open())
            app.db.close();
        return false;
    }
    if (text_to_double(version) >= kRequiredBaseVersion)
        return true;
    return upgrade_base(app, app.state.base_path);
}

void new_base_command(AppContext& app)
{
    FileDialogRequest req{QStringLiteral("Nouvelle Base"), kBaseFilter, true, false, true, QStringLiteral("mdb")};
    app.state.base_path = choose_file(app.ui, req);
    if (app.state.base_path.trimmed().size() < 5 || app.state.base_path.isEmpty())
        return;
    try {
        status_text(app.ui, QStringLiteral("Création de la Base"));
        app.state.model_path = app.app_file(QStringLiteral("modele_base.sav"));
        if (!copy_model(app.ui, app.state.model_path, app.state.base_path)) {
            status_text(app.ui, QString());
            return;
        }
        if (connect_base(app)) {
            startup_controls(app);
            create_save(app.base_file());
            status_text(app.ui, QString());
        } else {
            msg_erreur_base(app.ui, QStringLiteral("\nSuppression de la nouvelle base."));
            if (QFileInfo::exists(app.state.base_path))
                QFile::remove(app.state.base_path);
            status_text(app.ui, QString());
        }
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QStringLiteral("Erreur lors de la création de la base."), &e);
        status_text(app.ui, QString());
    }
}

void open_base_command(AppContext& app)
{
    FileDialogRequest req{QStringLiteral("Ouvrir une Base"), kBaseFilter, false, true, false, QStringLiteral("mdb")};
    const QString path = choose_file(app.ui, req);
    WaitCursor wait(app.ui);
    app.enable_menus(false);
    auto finish = [&] {
        wait.release();
        status_text(app.ui, QString());
    };
    if (path.size() < 5) {
        finish();
        return;
    }
    app.state.base_path = path;
    if (!path.endsWith(QStringLiteral(".mdb"), Qt::CaseSensitive)) {
        msg_erreur(app.ui, QStringLiteral("Mauvais format de fichier."));
        finish();
        return;
    }
    if (Database::lock_held(path)) {
        msg_erreur(app.ui, QStringLiteral("Une connexion est déjà active sur la base.\n"
                                          "Vérifier qu'elle n'est pas ouverte dans une autre application."));
        finish();
        return;
    }
    // The connection is closed on failure without a write to LastClose.
    auto give_up = [&] {
        if (app.db.is_open())
            app.db.close();
        app.enable_menus(false);
        finish();
    };
    std::optional<Error> failure;
    if (!connect_base(app, &failure)) {
        msg_erreur_base(app.ui, QString(), failure ? &*failure : nullptr);
        give_up();
        return;
    }
    status_text(app.ui, QStringLiteral("Contrôle Version Base"));
    status_text(app.ui, QStringLiteral("Contrôle crash"));
    const bool restored = check_crash(app);
    if (!app.db.is_open() || !check_version(app)) {
        give_up();
        return;
    }
    app.db.set_last_close(QStringLiteral("False"));
    startup_controls(app);
    status_text(app.ui, QStringLiteral("Mise à jour des compétitions"));
    run_hook(app, app.hooks.competitions_rollover);
    status_text(app.ui, QStringLiteral("Mise à jour des licences"));
    run_hook(app, app.hooks.licences_maintenance);
    if (!restored) {
        status_text(app.ui, QStringLiteral("Création sauvegarde"));
        write_save(app);
    }
    finish();
    if (restored)
        status_text(app.ui, kStatusRestored);
    show_save_in_progress(app);
}

void save_command(AppContext& app)
{
    status_text(app.ui, QStringLiteral("Création sauvegarde"));
    try {
        clear_tempo_tables(app.db);
        if (write_save(app)) {
            show_save_in_progress(app);
            return;
        }
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QStringLiteral("La création de la sauvegarde a échoué."), &e);
    }
    status_text(app.ui, QString());
}

void cancel_command(AppContext& app)
{
    if (msg_confirm(app.ui, QStringLiteral("Annuler toutes les opérations depuis la dernière sauvegarde ?"), kDefaultNo) ==
        Button::Yes && cancel_operations(app))
        status_text(app.ui, kStatusCancelled);
    // The restored base may hold another current profile.
    if (app.db.is_open())
        run_hook(app, app.hooks.read_profile);
}

void close_command(AppContext& app)
{
    if (refused_while_busy(app))
        return;
    if (msg_confirm(app.ui, kLoseUnsaved, kDefaultNo) == Button::Yes) {
        app.enable_menus(false);
        close_base(app);
        // A save that could not be put back stays for the next opening.
        if (restore_save(app.base_file()))
            delete_save(app.state.base_path);
        app.state.base_path.clear();
    }
    release_monitor(app);
    app.ui.set_status(1, QString());
}

QuitOutcome quit_command(AppContext& app)
{
    if (refused_while_busy(app))
        return QuitOutcome::Refused;
    if (!app.db.is_open())
        return QuitOutcome::Quit;
    if (msg_confirm(app.ui, kLoseUnsaved, kDefaultNo) != Button::Yes)
        return QuitOutcome::Stay;
    // No restore on this path, whatever the caption says: the base keeps its
    // changes and loses its save file.
    close_base(app);
    status_text(app.ui, QStringLiteral("Restauration de la dernière sauvegarde"));
    status_text(app.ui, QStringLiteral("Suppression de la sauvegarde"));
    delete_save(app.state.base_path);
    status_text(app.ui, QString());
    return QuitOutcome::Quit;
}

bool query_close(AppContext& app)
{
    if (refused_while_busy(app))
        return false;
    if (app.db.is_open()) {
        // The save about to be deleted or restored is written to its end first.
        app.saves.wait();
        bool done = true;
        if (msg_confirm(app.ui, QStringLiteral("Sauvegarder les données ?"), kDefaultNo) == Button::Yes) {
            clear_tempo_tables(app.db);
        } else {
            close_base(app);
            done = restore_save(app.base_file());
        }
        if (done)
            delete_save(app.state.base_path);
    }
    release_monitor(app);
    return true;
}

void unload_main(AppContext& app)
{
    close_base(app);
}

void install_base_commands(AppContext& app)
{
    app.commands.add(QStringLiteral("mnuBaseNew"), new_base_command);
    app.commands.add(QStringLiteral("mnuBaseOpen"), open_base_command);
    app.commands.add(QStringLiteral("mnuBaseSave"), save_command);
    app.commands.add(QStringLiteral("mnuBaseAnnuler"), cancel_command);
    app.commands.add(QStringLiteral("mnuBaseClose"), close_command);
    app.commands.add(QStringLiteral("mnuBaseSuppr"), delete_base_command);
    app.commands.add(QStringLiteral("mnuBaseCompacter"), compact_command);
    app.commands.add(QStringLiteral("mnuBaseArchive"), archive_command);
    app.commands.add(QStringLiteral("mnuMajLogiciel"), software_update_command);
    app.commands.add(QStringLiteral("mnuHelpGuide"), user_guide_command);
}

}  // namespace plouvarine
