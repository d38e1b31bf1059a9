#include "src/frame/splash_view.h"

#include "src/frame/app_context.h"
#include "src/frame/app_state.h"
#include "src/frame/list_helpers.h"
#include "src/base/text.h"

#include <QList>
#include <QStandardItem>

namespace plouvarine {

namespace {

QString application_version()
{
    return QStringLiteral("%1.%2.%3").arg(QString::number(PLOUVARINE_VERSION_MAJOR),
                                          QString::number(PLOUVARINE_VERSION_MINOR),
                                          QString::number(PLOUVARINE_VERSION_PATCH));
}

}  // namespace

SplashView::SplashView(AppContext& app)
    : version_text_(QStringLiteral("Version ") + application_version()),
      product_name_(QStringLiteral("Plouvarine")),
      needed_label_(QStringLiteral("Version de base nécessaire :")),
      needed_value_(QString::number(kRequiredBaseVersion)),
      connected_label_(QStringLiteral("Version de la base connectée :"))
{
    load_components(app);
    load_base_version(app);
}

void SplashView::load_components(const AppContext& app)
{
    components_ = component_rows(app);
    list_.clear();
    list_.setColumnCount(2);
    list_.setHorizontalHeaderLabels({QStringLiteral("dll"), QStringLiteral("Version")});
    for (const ComponentRow& row : components_)
        list_.appendRow(QList<QStandardItem*>{fixed_cell(row.file), fixed_cell(row.version)});
}

void SplashView::load_base_version(AppContext& app)
{
    if (!app.db.is_open()) {
        connected_value_ = QStringLiteral("Pas connecté");
        needed_in_red_ = false;
        return;
    }
    try {
        connected_value_ = app.db.load_rows(QStringLiteral("SELECT Version FROM Info")).first();
    } catch (const std::exception&) {
        // The read has shown the statement that failed; the window still opens,
        // with no version for the base.
        connected_value_.clear();
    }
    // A base whose version cannot be read is no more usable than an old one.
    needed_in_red_ = text_to_double(connected_value_) < kRequiredBaseVersion;
}

}  // namespace plouvarine
