#pragma once
// The base upgrade window (frm_upgrade_base): a base to bring up to date, a
// package "maj_base.zip" that brings a newer upgrade file, or both, and the
// run that does the work. While the window is open no base is in use: the
// base the person works on is closed at load and opened again at unload.

#include <QString>

namespace plouvarine {

class AppContext;

class UpgradeView {
public:
    explicit UpgradeView(AppContext& app);

    // Load: closes the base in use, and reads the label.
    void load();
    // Unload: connects the base of base_path again when there is one;
    // "Erreur lors de la connexion à la base." when it cannot be opened.
    void unload();

    // The chosen base (txt_base) and package (txt_rep). The buttons Cmd_base
    // and Cmd_package fill them; a window whose boxes take typing sets them.
    const QString& txt_base() const { return txt_base_; }
    const QString& txt_rep() const { return txt_rep_; }
    void set_txt_base(const QString& path) { txt_base_ = path; }
    void set_txt_rep(const QString& path) { txt_rep_ = path; }

    // Cmd_base: the file dialog for a base. A file without the extension "mdb"
    // is refused with its message. True when txt_base took a new path.
    bool choose_base();
    // Cmd_package: the file dialog for a package, which must be named
    // "maj_base.zip". True when txt_rep took a new path.
    bool choose_package();

    // The run button is enabled when a base or a package is chosen.
    bool run_enabled() const;
    // "Package dispo pour upgrade vers version " and the final version of the
    // upgrade file of the application folder, or the empty text without one.
    const QString& package_label() const { return package_label_; }

    // Installs the package, then upgrades the base, with the wait cursor; the
    // label is read again, since the package may have brought a new version.
    void run();

private:
    AppContext& app_;
    QString txt_base_;
    QString txt_rep_;
    QString package_label_;
};

}  // namespace plouvarine
