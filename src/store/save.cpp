#include "store/save.h"

#include "frame/app_context.h"
#include "frame/errors.h"
#include "frame/files.h"
#include "frame/zip.h"
#include "store/access.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace plouvarine {

namespace {

const QString kStatusRestore = QStringLiteral("Restauration de la sauvegarde");

// Deletes a file the way the platform's plain delete does: a read-only file is
// refused rather than removed.
void delete_not_forced(const QString& path)
{
    if (!(QFile::permissions(path) & QFileDevice::WriteOwner))
        throw FileError(75, QStringLiteral("Accès refusé : ") + path);
    QFile f(path);
    if (!f.remove())
        throw FileError(75, f.errorString() + QStringLiteral(" : ") + path);
}

// The engine's journal files must never outlive the file they belong to.
void delete_siblings(const QString& base_path)
{
    for (const QString& s : Database::sibling_files(base_path))
        if (QFileInfo::exists(s))
            delete_file_forced(s);
}

}  // namespace

QString save_path(const QString& base_path)
{
    return base_path + QStringLiteral(".sav");
}

bool zip_base(AppContext& app, const QString& archive)
{
    const QString base = app.state.base_path;
    const QString snapshot = archive + QStringLiteral(".snapshot");
    try {
        QFile::remove(snapshot);
        app.db.snapshot_to(snapshot);
        zip_file(archive, snapshot, file_name(base));
        QFile::remove(snapshot);
        return true;
    } catch (const std::exception& e) {
        QFile::remove(snapshot);
        msg_erreur(app.ui, QStringLiteral("Une erreur s'est produite lors de la compression."), &e);
        return false;
    }
}

void create_save(AppContext& app)
{
    WaitCursor wait(app.ui);
    const QString sav = save_path(app.state.base_path);
    try {
        app.db.set_last_close(QStringLiteral("true"));
        // The copy must hold the flag at true: read it back before compressing.
        for (int tries = 0; tries < 100; ++tries) {
            const Rows rows = app.db.load_rows(QStringLiteral("select LastClose from Info"));
            if (rows.first() == QLatin1String("Vrai"))
                break;
        }
        zip_base(app, sav);
        if (!QFileInfo::exists(sav))
            msg_erreur(app.ui, QStringLiteral("La création de la sauvegarde a échoué.\n"
                                              "Vérifier l'espace sur le disque dur, les droits d'accès."));
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QStringLiteral("La création de la sauvegarde a échoué.\n"
                                          "Vérifier l'espace sur le disque dur, les droits d'accès."), &e);
    }
    try {
        app.db.set_last_close(QStringLiteral("false"));
    } catch (const std::exception&) {
        // Already reported by the step that failed.
    }
}

bool restore_save(AppContext& app)
{
    const QString base = app.state.base_path;
    const QString sav = save_path(base);
    if (!QFileInfo::exists(sav)) {
        msg_erreur(app.ui, QStringLiteral("Sauvegarde de la base non trouvée."));
        return false;
    }
    QString failure;
    try {
        const QString name = file_name(base);
        const QString folder = parent_folder(base, true);
        const QString tempo = app.tempo_dir();
        const QString unpacked = path_join(tempo, name);
        if (QFileInfo::exists(unpacked))
            delete_not_forced(unpacked);
        unzip_file(app.ui, sav, tempo);
        if (!QFileInfo::exists(unpacked)) {
            msg_erreur(app.ui, QStringLiteral("La restauration de la sauvegarde a échoué.\n"
                                              "Les opérations n'ont pas été annulées.\n"
                                              "Vérifier l'espace sur le disque dur, les droits d'accès."));
            return false;
        }
        failure = QStringLiteral("Impossible de supprimer la base ") + base + QLatin1Char('\n');
        if (QFileInfo::exists(base))
            delete_not_forced(base);
        delete_siblings(base);
        failure = QStringLiteral("Impossible de remplacer la base ") + base + QStringLiteral(" par la sauvegarde.\n");
        const QString moved = move_file(unpacked, folder);
        if (!moved.isEmpty())
            throw FileError(75, moved);
        failure = QStringLiteral("Erreur lors de la suppression du répertoire temporaire \n") + tempo + QLatin1Char('\n');
        if (!QDir().rmdir(tempo))
            throw FileError(75, QStringLiteral("Le répertoire n'est pas vide ou est inaccessible."));
        return true;
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QStringLiteral("Erreur lors de la restauration de la sauvegarde.\n") + failure, &e);
        return false;
    }
}

void delete_save(AppContext& app)
{
    const QString sav = save_path(app.state.base_path);
    if (QFileInfo::exists(sav))
        delete_file_forced(sav);
}

bool cancel_operations(AppContext& app)
{
    close_base(app);
    status_text(app.ui, kStatusRestore);
    bool result = restore_save(app);
    if (result) {
        if (connect_base(app)) {
            status_text(app.ui, QString());
            return true;
        }
        msg_erreur_base(app.ui, QStringLiteral("\nAprès annulation des dernières opérations."));
        result = false;
    }
    app.enable_menus(false);
    status_text(app.ui, QString());
    return result;
}

bool check_crash(AppContext& app)
{
    QString flag;
    try {
        flag = app.db.load_rows(QStringLiteral("select LastClose from Info")).first().toLower();
    } catch (const Error&) {
        // No Info table: the version control that follows turns the base away.
        return false;
    }
    if (flag != QLatin1String("faux"))
        return false;
    if (QFileInfo::exists(save_path(app.state.base_path))) {
        const Button answer = msg_confirm(app.ui,
            QStringLiteral("La base n'a pas été correctement fermée lors de la dernière utilisation.\n"
                           "Reprendre la base depuis la dernière sauvegarde trouvée ?"),
            kDefaultYes);
        if (answer != Button::Yes)
            return false;
        status_text(app.ui, kStatusRestore);
        cancel_operations(app);
        status_text(app.ui, QString());
        return true;
    }
    msg_info(app.ui, QStringLiteral("La base n'a pas été correctement fermée lors de la dernière utilisation\n"
                                    "La dernière sauvegarde n'a pas été trouvée.\n"
                                    "Il serait bon de reprendre la base depuis la dernière archive."));
    return false;
}

void reopen_or_recover(AppContext& app)
{
    try {
        if (connect_base(app))
            return;
        msg_erreur_base(app.ui, QStringLiteral("\nRestauration de la dernière sauvegarde."));
        if (restore_save(app))
            delete_save(app);
        else
            msg_info(app.ui, QStringLiteral("Erreur lors de la restauration de la dernière sauvegarde.\n"
                                            "La sauvegarde temporaire n'a pas été supprimée."));
        app.enable_menus(false);
        app.state.base_path.clear();
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QStringLiteral("Une erreur s'est produite."), &e);
    }
}

void clear_tempo_tables(AppContext& app)
{
    for (const char* table : {"Licence_tempo", "Pcomp_tempo", "Rcomp_tempo", "Relais_tempo", "Engag_tempo"})
        app.db.clear_table(QLatin1String(table));
}

}  // namespace plouvarine
