#include "src/frame/upgrade_view.h"

#include "src/frame/app_context.h"
#include "src/frame/access.h"
#include "src/frame/upgrade.h"

namespace plouvarine {

namespace {

const QString kPackageDialogTitle = QStringLiteral("Sélection d'un Package");

}  // namespace

UpgradeView::UpgradeView(AppContext& app) : app_(app) {}

void UpgradeView::load()
{
    // The upgrade works on closed bases: the one in use is closed in good order.
    if (app_.db.is_open())
        close_base(app_);
    package_label_ = upgrade_package_label(app_);
}

void UpgradeView::unload()
{
    if (app_.state.base_path.isEmpty())
        return;
    if (!connect_base(app_))
        msg_erreur_base(app_.ui, QString());
}

bool UpgradeView::choose_base()
{
    const QString path = app_.ui.file_dialog({kUpgradeBaseDialogTitle, kUpgradeBaseFilter, false, true, false, {}});
    if (path.isEmpty())
        return false;
    if (!is_base_file_name(path)) {
        msg_erreur(app_.ui, kUpgradeNotABase);
        return false;
    }
    txt_base_ = path;
    return true;
}

bool UpgradeView::choose_package()
{
    const QString path = app_.ui.file_dialog({kPackageDialogTitle, kUpgradePackageFilter, false, true, false, {}});
    // Only the dialog's filter guides the choice; another name typed in the
    // dialog is left aside.
    if (path.isEmpty() || !is_upgrade_package_name(path))
        return false;
    txt_rep_ = path;
    return true;
}

bool UpgradeView::run_enabled() const
{
    return !txt_base_.trimmed().isEmpty() || !txt_rep_.trimmed().isEmpty();
}

void UpgradeView::run()
{
    if (!run_enabled())
        return;
    run_upgrade_tool(app_, txt_base_.trimmed(), txt_rep_.trimmed());
    package_label_ = upgrade_package_label(app_);
}

}  // namespace plouvarine
