#include "src/tools/frm_caltps.h"

#include "src/base/services.h"
#include "src/base/text.h"
#include "src/base/utils_time.h"
#include "src/entries/frm_engag.h"
#include "src/frame/app_context.h"
#include "src/frame/list_helpers.h"

#include <stdexcept>

namespace plouvarine {

namespace {

FrmEngag* entry_window(AppContext& app)
{
    return dynamic_cast<FrmEngag*>(app.windows.instance(QString(FrmEngag::kName)));
}

}  // namespace

FrmCalTps::FrmCalTps(AppContext& app) : View(app, QString(kName))
{
    set_title(QStringLiteral("Calculatrice de temps"));
    histo_.setHorizontalHeaderLabels({QStringLiteral("Tps ajouté"), QStringLiteral("Total")});
}

void FrmCalTps::cmd_Ajout()
{
    const QString typed = normalise_temps(txt_tps_ajout);
    if (text_to_double(typed) == 0)
        return;
    try {
        const QString sum = ajoute_temps(total_, text_to_double(typed));
        total_ = text_to_double(sum);
        histo_.appendRow({fixed_cell(typed), fixed_cell(sum)});
        select_row_at(histo_selection_, histo_.rowCount() - 1);
        txt_tps_ajout.clear();
    } catch (const std::overflow_error& e) {
        msg_erreur(app().ui, QString(), &e);
    }
    changed();
}

void FrmCalTps::cmd_Suppr()
{
    const QModelIndex current = histo_selection_.currentIndex();
    if (!current.isValid())
        return;
    const int row = current.row();
    histo_.removeRow(row);
    // Each row holds the total after it; the rows below keep theirs, as the
    // list showed them, and the total is that of the last row left.
    total_ = row > 0 ? text_to_double(histo_.item(row - 1, 1)->text()) : 0;
    select_last_row(histo_selection_, row);
    changed();
}

bool FrmCalTps::copie_enabled() const
{
    // Opened from the entries, and they are still open: the registry forgets
    // a caller that has closed.
    return app().windows.caller_of(QString(kName)) == FrmEngag::kName && entry_window(app());
}

void FrmCalTps::cmd_Copie()
{
    FrmEngag* engag = copie_enabled() ? entry_window(app()) : nullptr;
    // The time goes where the person last typed one.
    if (!engag || engag->last_temps_row() < 0)
        return;
    const int row = engag->last_temps_row();
    engag->set_temps(row, normalise_temps(format_temps(total_)));
    engag->leave_temps(row);
}

void FrmCalTps::cmd_Quitter()
{
    if (chk_CopieCalcul)
        cmd_Copie();
    close();
}

FrmCalTps* OuvrirCalculTemps(AppContext& app)
{
    if (app.windows.check_window_open(QString(FrmCalTps::kName)))
        return nullptr;
    auto view = std::make_unique<FrmCalTps>(app);
    // Opened while the individual entries are open, it is theirs: they hear of
    // its closing.
    const QString caller = entry_window(app) ? QString(FrmEngag::kName) : QString(WindowRegistry::kMainWindow);
    if (!view->register_window(caller))
        return nullptr;
    return show_child(app.ui, std::move(view));
}

}  // namespace plouvarine
