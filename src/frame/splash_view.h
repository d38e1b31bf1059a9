#pragma once
// The information window (frmSplash), opened on demand from the Help menu: the
// components with their versions, the version of the application, and the
// base version that is needed beside the version of the base in use.

#include "src/frame/components.h"

#include <QStandardItemModel>
#include <QString>
#include <vector>

namespace plouvarine {

class AppContext;

class SplashView {
public:
    // Columns of the component list Lst_DLL.
    enum Column { ColumnDll = 0, ColumnVersion = 1 };

    // Loads everything the window shows.
    explicit SplashView(AppContext& app);

    // The components, in order, and the same rows as the list Lst_DLL draws them,
    // under the headers "dll" and "Version".
    const std::vector<ComponentRow>& components() const { return components_; }
    QStandardItemModel& Lst_DLL() { return list_; }
    const QStandardItemModel& Lst_DLL() const { return list_; }

    // "Version " and major.minor.revision of the application.
    const QString& version_text() const { return version_text_; }
    const QString& product_name() const { return product_name_; }

    const QString& needed_label() const { return needed_label_; }
    // The base version the application needs, shown in red when the open base is older.
    const QString& needed_value() const { return needed_value_; }
    bool needed_in_red() const { return needed_in_red_; }

    const QString& connected_label() const { return connected_label_; }
    // Info.Version of the open base, or "Pas connecté".
    const QString& connected_value() const { return connected_value_; }

    // Caption of the one button, which closes the window.
    static QString close_caption() { return QStringLiteral("&Fermer"); }

private:
    void load_components(const AppContext& app);
    void load_base_version(AppContext& app);

    std::vector<ComponentRow> components_;
    QStandardItemModel list_;
    QString version_text_;
    QString product_name_;
    QString needed_label_;
    QString needed_value_;
    bool needed_in_red_ = false;
    QString connected_label_;
    QString connected_value_;
};

}  // namespace plouvarine
