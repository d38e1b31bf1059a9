#include "src/frame/upgrade.h"

#include "src/frame/app_context.h"
#include "src/base/errors.h"
#include "src/base/files.h"
#include "src/base/text.h"
#include "src/base/zip.h"
#include "src/frame/access.h"
#include "src/store/save.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
#include <cmath>
#include <utility>
#include <vector>

namespace plouvarine {

namespace {

const QString kUpgradeFile = QStringLiteral("maj_base.ini");
const QString kModelFile = QStringLiteral("modele_base.sav");
const QString kPackageName = QStringLiteral("maj_base.zip");
const QString kReportTitle = QStringLiteral("Mise à jour de la base");
const QString kInfoSection = QStringLiteral("INFO");
const QString kFinalKey = QStringLiteral("Version finale");
const QString kUpgradeFailed = QStringLiteral("Une erreur s'est produite lors de la mise à jour de la base.");

// The private-profile call copies a value into a buffer of 255 characters, the
// last one taken by the terminating null.
constexpr int kIniValueMax = 254;

// A small INI reader with the rules of the platform's private-profile call.
// QSettings is not used on purpose: it splits a value on commas into a list and
// reads backslash escapes, and the values here are SQL statements, which hold both.
class IniFile {
public:
    static IniFile load(const QString& path)
    {
        IniFile ini;
        QFile f(path);
        if (!f.open(QIODevice::ReadOnly))
            return ini;
        QByteArray bytes = f.readAll();
        if (bytes.startsWith("\xEF\xBB\xBF"))
            bytes.remove(0, 3);
        // Files written by the old platform are in its 8-bit code page, read as Latin-1.
        QStringDecoder utf8(QStringDecoder::Utf8);
        QString text = utf8(bytes);
        if (utf8.hasError())
            text = QString::fromLatin1(bytes);
        for (const QString& raw : text.split(QLatin1Char('\n')))
            ini.add_line(raw.trimmed());
        return ini;
    }

    // The first section of that name decides, and in it the first key of that name.
    QString value(const QString& section, const QString& key) const
    {
        for (const Section& s : sections_) {
            if (s.name.compare(section, Qt::CaseInsensitive) != 0)
                continue;
            for (const auto& [k, v] : s.entries)
                if (k.compare(key, Qt::CaseInsensitive) == 0)
                    return v.left(kIniValueMax);
            return {};
        }
        return {};
    }

private:
    struct Section {
        QString name;
        std::vector<std::pair<QString, QString>> entries;
    };

    void add_line(const QString& line)
    {
        if (line.isEmpty() || line.startsWith(QLatin1Char(';')))
            return;
        if (line.startsWith(QLatin1Char('['))) {
            const qsizetype close = line.indexOf(QLatin1Char(']'));
            const QString name = close < 0 ? line.mid(1) : line.mid(1, close - 1);
            sections_.push_back({name.trimmed(), {}});
            return;
        }
        if (sections_.empty())
            return;
        const qsizetype eq = line.indexOf(QLatin1Char('='));
        const QString key = (eq < 0 ? line : line.left(eq)).trimmed();
        QString value = eq < 0 ? QString() : line.mid(eq + 1).trimmed();
        if (value.size() >= 2 && value.startsWith(QLatin1Char('"')) && value.endsWith(QLatin1Char('"')))
            value = value.mid(1, value.size() - 2);
        sections_.back().entries.emplace_back(key, value);
    }

    std::vector<Section> sections_;
};

// A version read from the base or a file, as the whole number that names its section.
long long whole_version(const QString& text)
{
    const double d = text_to_double(text);
    if (!std::isfinite(d))
        return 0;
    // Beyond the range of the whole numbers the conversion has no result.
    if (d <= -9.2e18 || d >= 9.2e18)
        throw DbError(0, QStringLiteral("Numéro de version hors limites : ") + text);
    return static_cast<long long>(std::trunc(d));
}

class Report {
public:
    void add(const QString& text, bool error = false) { lines_.push_back({text, error}); }
    const std::vector<ReportLine>& lines() const { return lines_; }

private:
    std::vector<ReportLine> lines_;
};

// Runs the sections from version `v` on, each taking the base one version up,
// until a version has no section. Gives the version reached.
long long run_sections(AppContext& app, const IniFile& ini, long long v, Report& report)
{
    for (;;) {
        const QString section = QStringLiteral("FROM ") + QString::number(v);
        int i = 1;
        for (;; ++i) {
            const QString sql = ini.value(section, QStringLiteral("maj") + QString::number(i));
            if (sql.isEmpty())
                break;
            report.add(sql);
            app.db.exec_sql(sql);
            report.add(QStringLiteral("... OK"));
        }
        if (i == 1)
            return v;
        ++v;
    }
}

// After a failed statement the base is half upgraded: offer to go back to the save.
void recover_from_failure(AppContext& app, Report& report, const std::exception& e)
{
    report.add(kUpgradeFailed, true);
    if (auto* err = dynamic_cast<const Error*>(&e))
        report.add(QStringLiteral("Erreur n° %1, %2").arg(QString::number(err->number()), err->description()), true);
    else
        report.add(QStringLiteral("Erreur n° 0, %1").arg(QString::fromLocal8Bit(e.what())), true);

    if (!QFileInfo::exists(save_path(app.state.base_path))) {
        report.add(QStringLiteral("Aucune sauvegarde n'était disponible."));
        report.add(QStringLiteral("Votre base est donc instable, contacter les fournisseurs de Plouvarine."));
        return;
    }
    const Button answer = msg_confirm(app.ui,
        QStringLiteral("Suite à une erreur (voir rapport), souhaitez vous revenir à la précédente version "
                       "de la base (recommandé) ?\n"
                       "Toutes opérations non sauvegardées réalisées avant cette tentative d'update seront annulées."),
        kDefaultYes);
    if (answer == Button::Yes) {
        // A failed restore has shown its own messages.
        if (cancel_operations(app))
            report.add(QStringLiteral("Restauration de la précédente sauvegarde de la base."));
        return;
    }
    report.add(QStringLiteral("La dernière sauvegarde n'a pas été restaurée."));
    report.add(QStringLiteral("Le logiciel ne pourra pas fonctionner correctement."));
}

// The walk from the base's version to the last one the file knows. True on success.
bool upgrade_walk(AppContext& app, const QString& file, Report& report)
{
    const IniFile ini = IniFile::load(file);
    try {
        long long v = whole_version(app.db.load_rows(QStringLiteral("SELECT Version FROM Info")).first());
        report.add(QStringLiteral("Version de la base : ") + QString::number(v));
        report.add(QString());

        const QString target = ini.value(kInfoSection, kFinalKey);
        if (!(text_to_double(target) > double(v))) {
            report.add(QStringLiteral("Pas de mise à jour nécessaire pour cette base"));
            return true;
        }
        report.add(QStringLiteral("Mise à jour vers une version ") + target);
        v = run_sections(app, ini, v, report);

        report.add(QStringLiteral("Nouvelle version de la base : ") + QString::number(v));
        const QString update = QStringLiteral("UPDATE Info Set Version = ") + QString::number(v);
        report.add(update);
        app.db.exec_sql(update);
        report.add(QStringLiteral("... OK"));
        report.add(QStringLiteral("Mise à jour de la base (") + app.state.base_path + QStringLiteral(") réussie."));
        return true;
    } catch (const std::exception& e) {
        recover_from_failure(app, report, e);
        return false;
    }
}

void remove_work_folder(const QString& folder)
{
    if (!folder.isEmpty())
        QDir(folder).removeRecursively();
}

// The steps of the upgrade window's run; each failure that has its own message
// ends the run quietly.
void run_tool_steps(AppContext& app, const QString& base, const QString& package)
{
    if (!package.isEmpty() && !install_upgrade_package(app, package))
        return;
    if (base.isEmpty())
        return;
    app.state.base_path = base;
    status_text(app.ui, QStringLiteral("Connexion à la base"));
    if (!connect_base(app)) {
        msg_erreur_base(app.ui, QString());
        return;
    }
    status_text(app.ui, QStringLiteral("Sauvegarde de la base"));
    create_save(app.base_file());
    const bool upgraded = upgrade_base(app, base);
    status_text(app.ui, QStringLiteral("Déconnexion"));
    close_base(app);
    // After a failed upgrade the save may be the one good copy of the base: it stays.
    if (!upgraded)
        return;
    status_text(app.ui, QStringLiteral("Suppression de la sauvegarde temporaire"));
    delete_save(app.state.base_path);
}

}  // namespace

QString read_ini(const QString& section, const QString& key, const QString& file)
{
    return IniFile::load(file).value(section, key);
}

QString upgrade_file_path(const AppContext& app)
{
    return app.app_file(kUpgradeFile);
}

QString final_version(const AppContext& app)
{
    return read_ini(kInfoSection, kFinalKey, upgrade_file_path(app));
}

bool upgrade_base(AppContext& app, const QString& path)
{
    status_text(app.ui, kReportTitle);
    WaitCursor wait(app.ui);
    app.state.base_path = path;

    Report report;
    bool ok = false;
    const QString file = upgrade_file_path(app);
    if (!QFileInfo(file).isFile()) {
        report.add(QStringLiteral("Fichier (maj_base.ini) des mises à jour introuvable."));
        report.add(QStringLiteral("Il faut télécharger depuis le site Plouvarine le package de mise à jour des bases."));
    } else {
        ok = upgrade_walk(app, file, report);
    }

    wait.release();
    status_text(app.ui, QString());
    app.ui.show_report(kReportTitle, report.lines());
    return ok;
}

bool install_upgrade_package(AppContext& app, const QString& package)
{
    QString work;
    bool installed = false;
    try {
        work = unpack_package(app.ui, app.app_dir(), QStringLiteral("tmpmajbase"), package);
        if (work.isEmpty())
            return false;
        const QString offered = read_ini(kInfoSection, kFinalKey, path_join(work, kUpgradeFile));
        if (!(text_to_double(offered) > text_to_double(final_version(app)))) {
            msg_info(app.ui, QStringLiteral("La version apportée par le package ") + offered +
                                 QStringLiteral("\nn'est pas supérieure à celle déjà disponible.\n"
                                                "L'installation du package sélectionné est annulée."));
        } else {
            // The model first: the upgrade file announces the new version only
            // once everything it comes with is in place.
            installed = true;
            for (const QString& name : {kModelFile, kUpgradeFile}) {
                const QString source = path_join(work, name);
                if (!QFileInfo::exists(source))
                    continue;
                if (!move_file(source, app.app_dir()).isEmpty()) {
                    msg_erreur(app.ui, QStringLiteral("Une erreur s'est produite lors de la sauvegarde \n"
                                                      "du fichier de mise à jour : ") + name + QLatin1Char('.'));
                    installed = false;
                    break;
                }
            }
        }
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QStringLiteral("Une erreur s'est produite lors de l'installation du package"), &e);
        installed = false;
    }
    remove_work_folder(work);
    return installed;
}

void run_upgrade_tool(AppContext& app, const QString& base, const QString& package)
{
    WaitCursor wait(app.ui);
    try {
        run_tool_steps(app, base, package);
    } catch (const std::exception& e) {
        msg_erreur(app.ui, kUpgradeFailed, &e);
    }
    status_text(app.ui, QString());
}

bool is_upgrade_package_name(const QString& path)
{
    return file_name(path) == kPackageName;
}

bool is_base_file_name(const QString& path)
{
    const QString name = file_name(path);
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    return dot >= 0 && name.mid(dot + 1) == QLatin1String("mdb");
}

QString upgrade_package_label(const AppContext& app)
{
    if (!QFileInfo(upgrade_file_path(app)).isFile())
        return {};
    return QStringLiteral("Package dispo pour upgrade vers version ") + final_version(app);
}

}  // namespace plouvarine
