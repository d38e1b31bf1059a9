#include "src/frame/base_file_commands.h"

#include "src/base/errors.h"
#include "src/base/files.h"
#include "src/base/text.h"
#include "src/frame/access.h"
#include "src/frame/app_context.h"
#include "src/frame/status_lines.h"
#include "src/store/base_files.h"
#include "src/store/save.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace plouvarine {

namespace {

const QString kBaseFilter = QStringLiteral("Base de données (*.mdb)|*.mdb");
const QString kCannotCompact = QStringLiteral("Impossible de compacter la base.");

}  // namespace

void delete_base_command(AppContext& app)
{
    FileDialogRequest req{QStringLiteral("Supprimer une Base"), kBaseFilter, false, true, false, QStringLiteral("mdb")};
    const QString path = choose_file(app.ui, req);
    if (path.isEmpty())
        return;
    if (path == app.state.base_path) {
        msg_erreur(app.ui, QStringLiteral("Impossible de supprimer cette base.\nBase actuellement ouverte."));
        return;
    }
    if (Database::lock_held(path)) {
        msg_erreur(app.ui, QStringLiteral("Impossible de supprimer cette base.\nUne connexion est active sur la base."));
        return;
    }
    if (!QFileInfo::exists(path))
        return;
    if (msg_confirm(app.ui, QStringLiteral("Supprimer la base : ") + file_name(path), kDefaultNo) != Button::Yes)
        return;
    delete_file_forced(path);
    // What the engine or a crash left beside it goes too; the save file stays.
    QStringList leftovers = Database::sibling_files(path);
    leftovers << Database::lock_path(path);
    for (const QString& s : leftovers)
        if (QFileInfo::exists(s))
            delete_file_forced(s);
    if (!QFileInfo::exists(path))
        status_text(app.ui, kStatusDeleted);
}

void compact_base(AppContext& app, const QString& path)
{
    const QString compact = path + QStringLiteral(".tmp.compact");
    int step = 0;
    try {
        // 0: a leftover of an earlier failure is cleared.
        if (QFileInfo::exists(compact) && !delete_file_forced(compact)) {
            msg_erreur(app.ui, kCannotCompact + QStringLiteral("\nLe fichier temporaire (") + compact +
                                   QStringLiteral(") est en cours d'utilisation."));
            return;
        }
        step = 1;
        try {
            close_base(app);
        } catch (const std::exception& e) {
            msg_erreur(app.ui, kCannotCompact + QStringLiteral("\nLa fermeture de la connexion actuelle a échoué."), &e);
            return;
        }
        step = 2;
        try {
            Database::compact_file(path, compact);
        } catch (const Error& e) {
            msg_erreur(app.ui, kCannotCompact + QLatin1Char('\n') + e.description() + QStringLiteral("\nLe compactage a échoué."));
            reopen_or_recover(app);
            return;
        }
        step = 3;
        // Only a whole base takes the place of the live one, in one rename.
        QString cause = Database::check_base_file(compact);
        if (cause.isEmpty()) {
            for (const QString& s : Database::sibling_files(path))
                if (QFileInfo::exists(s))
                    delete_file_forced(s);
        }
        if (!cause.isEmpty() || !copy_file_over(compact, path, &cause)) {
            const FileError error(75, cause);
            msg_erreur(app.ui, QStringLiteral("Impossible de sauvegardée la base compactée.\nLe fichier (") + path +
                                   QStringLiteral(") est en cours d'utilisation."), &error);
            delete_file_forced(compact);
            reopen_or_recover(app);
            return;
        }
        step = 4;
        if (!connect_base(app)) {
            msg_erreur(app.ui, QStringLiteral("Connexion impossible à la base compactée.\nOpération annulée."));
            app.enable_menus(false);
            return;
        }
        step = 5;
        if (QFileInfo::exists(compact) && !delete_file_forced(compact)) {
            msg_info(app.ui, QStringLiteral("Base compactée avec succès.\nImpossible de supprimer la base temporaire."));
            return;
        }
        msg_info(app.ui, QStringLiteral("Base compactée avec succès."));
    } catch (const std::exception& e) {
        msg_erreur(app.ui, kCannotCompact, &e);
        if (step >= 2 && step <= 3 && !app.db.is_open())
            reopen_or_recover(app);
    }
}

void compact_command(AppContext& app)
{
    WaitCursor wait(app.ui);
    status_text(app.ui, QStringLiteral("Compacter la base"));
    compact_base(app, app.state.base_path);
    status_text(app.ui, QString());
}

void archive_command(AppContext& app)
{
    WaitCursor wait(app.ui);
    const QString tempo = app.tempo_dir();
    QString temp_archive;
    try {
        status_text(app.ui, QStringLiteral("Archiver la base"));
        const QString name = archive_name(app.state.base_path);
        make_private_folder(tempo);
        temp_archive = unique_name(name, tempo);

        app.db.set_last_close(QStringLiteral("true"));
        clear_tempo_tables(app.db);
        qint64 base_size = 0;  // what was zipped: the write-ahead log folded in
        zip_base(app.base_file(), temp_archive, &base_size);
        app.db.set_last_close(QStringLiteral("False"));

        if (!QFileInfo::exists(temp_archive)) {
            msg_erreur(app.ui, QStringLiteral("L'archivage de la base a échoué.\n"
                                              "Vérifier l'espace sur le disque dur, les droits d'accès."));
            wait.release();
        } else {
            wait.release();
            const QString folder = app.ui.browse_folder(QStringLiteral("Répertoire d'archivage :"));
            if (!folder.isEmpty()) {
                const QString target = path_join(folder, name);
                bool go = true;
                if (QFileInfo::exists(target)) {
                    go = msg_confirm(app.ui, target + QStringLiteral("\nRemplacer cette archive déjà existante ?"),
                                     kDefaultNo) == Button::Yes;
                    if (go && !delete_file_forced(target))
                        throw FileError(75, QStringLiteral("Impossible de supprimer ") + target);
                }
                if (go) {
                    QString cause;
                    if (!copy_file_over(temp_archive, target, &cause))
                        throw FileError(75, QStringLiteral("Copie impossible vers ") + target + QLatin1Char('\n') + cause);
                    const qint64 zip_size = QFileInfo(temp_archive).size();
                    msg_info(app.ui, QStringLiteral("Base archivée mémorisée avec succès.\nTaille de l'archive : ") +
                                         QString::number(round_half_even(double(zip_size) / 1024.0)) +
                                         QStringLiteral(" ko.\nTaux de compression : ") +
                                         QString::number(compression_rate(base_size, zip_size)) + QStringLiteral(" %."));
                }
            }
        }
        status_text(app.ui, QString());
    } catch (const std::exception& e) {
        wait.release();
        msg_erreur(app.ui, QStringLiteral("Une erreur s'est produite lors de la création de l'archive."), &e);
        status_text(app.ui, QString());
    }
    if (!temp_archive.isEmpty() && QFileInfo::exists(temp_archive))
        QFile::remove(temp_archive);
    if (QFileInfo(tempo).isDir() && folder_size(tempo) == 0)
        QDir().rmdir(tempo);
}

}  // namespace plouvarine
