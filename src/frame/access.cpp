#include "src/frame/access.h"

#include "src/frame/app_context.h"
#include "src/base/errors.h"
#include "src/store/save.h"

#include <QFileInfo>

namespace plouvarine {

namespace {

const QString kStatusRestore = QStringLiteral("Restauration de la sauvegarde");

}  // namespace

bool connect_base(AppContext& app, std::optional<Error>* failure)
{
    close_base(app);
    status_text(app.ui, QStringLiteral("Ouverture de la base"));
    try {
        app.db.open(app.state.base_path);
        clean_leftovers(app.state.base_path, app.tempo_dir());
    } catch (const std::exception& e) {
        if (failure) {
            const auto* known = dynamic_cast<const Error*>(&e);
            failure->emplace(known ? *known : Error(0, QString::fromLocal8Bit(e.what())));
        }
        app.db.close();
        status_text(app.ui, QString());
        return false;
    }
    status_text(app.ui, QString());
    return true;
}

void close_base(AppContext& app)
{
    // The save being written goes to its end: the next step may replace,
    // delete or restore it, or end the program.
    app.saves.wait();
    // The windows go first, while their unload can still reach the base.
    app.windows.close_all();
    disconnect_base(app);
}

void disconnect_base(AppContext& app)
{
    // The save's worker reads the base through a connection of its own, which
    // must not outlive this one.
    app.saves.wait();
    if (!app.db.is_open())
        return;
    try {
        app.db.set_last_close(QStringLiteral("True"));
    } catch (const std::exception&) {
        // A base that cannot take the flag (no Info table, read-only) still closes.
    }
    app.db.close();
}

bool cancel_operations(AppContext& app)
{
    close_base(app);
    status_text(app.ui, kStatusRestore);
    bool result = restore_save(app.base_file());
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
        if (restore_save(app.base_file()))
            delete_save(app.state.base_path);
        else
            msg_info(app.ui, QStringLiteral("Erreur lors de la restauration de la dernière sauvegarde.\n"
                                            "La sauvegarde temporaire n'a pas été supprimée."));
        app.enable_menus(false);
        app.state.base_path.clear();
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QStringLiteral("Une erreur s'est produite."), &e);
    }
}

}  // namespace plouvarine
