#include "src/clubs/liste_pays.h"

#include "src/frame/app_context.h"
#include "src/frame/list_helpers.h"

namespace plouvarine {

FrmListePays::FrmListePays(AppContext& app) : View(app, QString(kName))
{
    set_title(QStringLiteral("Liste des Pays"));
    try {
        fill_collections(app.db, QStringLiteral("select Libelle from Pays order by Libelle"), {ListFill{&list_, {0}}});
    } catch (const std::exception&) {
        list_.removeRows(0, list_.rowCount());
    }
    list_.setHorizontalHeaderLabels({QStringLiteral("Pays")});
    if (list_.rowCount() > 0)
        select_row_at(selection_, 0);
}

void FrmListePays::confirm()
{
    if (!ok_enabled())
        return;
    chosen_ = list_.item(selection_.currentIndex().row(), 0)->text();
    close();
}

QString ChoisirPays(AppContext& app, const QString& caller)
{
    FrmListePays list(app);
    if (!list.register_window(caller))
        return {};
    app.ui.show_modal(list);
    return list.chosen();
}

}  // namespace plouvarine
