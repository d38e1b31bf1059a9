#include "src/frame/user_guide.h"

#include "src/frame/app_context.h"

#include <QFileInfo>

namespace plouvarine {

QString user_guide_path(const AppContext& app)
{
    for (const char* page : {"guide/index.html", "guide/index.md"}) {
        const QString path = app.app_file(QString::fromLatin1(page));
        if (QFileInfo(path).isFile())
            return path;
    }
    return {};
}

void user_guide_command(AppContext& app)
{
    const QString path = user_guide_path(app);
    if (path.isEmpty()) {
        msg_erreur(app.ui, QStringLiteral("Le guide de l'utilisateur est introuvable dans le dossier du programme :\n") +
                               app.app_file(QStringLiteral("guide")));
        return;
    }
    if (!app.ui.open_document(path))
        msg_erreur(app.ui, QStringLiteral("Aucun programme n'a pu ouvrir le guide de l'utilisateur :\n") + path);
}

}  // namespace plouvarine
