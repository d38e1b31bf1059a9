#include "src/frame/software_update.h"

#include "src/frame/app_context.h"
#include "src/base/errors.h"
#include "src/base/files.h"
#include "src/base/zip.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
#include <optional>

namespace plouvarine {

namespace {

const QString kListFile = QStringLiteral("maj.txt");
const QString kPackagePrefix = QStringLiteral("maj_soft_");

constexpr int kAccessError = 75;

bool is_update_package_name(const QString& path)
{
    return is_zip(path) && file_name(path).left(kPackagePrefix.size()) == kPackagePrefix;
}

bool ends_value(QChar c)
{
    return c == QLatin1Char(',') || c == QLatin1Char('\n') || c == QLatin1Char('\r');
}

bool is_blank(QChar c)
{
    return c == QLatin1Char(' ') || c == QLatin1Char('\t');
}

// The list file as text: UTF-8, or the old platform's 8-bit code page read as
// Latin-1 when the bytes are no UTF-8.
QString read_list_file(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        throw FileError(kAccessError, QStringLiteral("Lecture impossible : ") + path + QStringLiteral(" (") +
                                          f.errorString() + QLatin1Char(')'));
    QByteArray bytes = f.readAll();
    if (bytes.startsWith("\xEF\xBB\xBF"))
        bytes.remove(0, 3);
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString text = utf8(bytes);
    if (utf8.hasError())
        text = QString::fromLatin1(bytes);
    return text;
}

// The name as a path below the application folder, or nothing when it would
// land outside it: an absolute path, a drive letter or a ".." step. Backslashes
// count as separators, as packages made on Windows write them.
std::optional<QString> relative_name(const QString& name)
{
    const std::optional<QString> path = safe_relative_path(name);
    if (!path || path->isEmpty())
        return std::nullopt;
    return path;
}

// The caption of the step in progress, kept for the error message.
class Steps {
public:
    explicit Steps(AppContext& app) : app_(app) {}
    void operator()(const QString& text)
    {
        current_ = text;
        status_text(app_.ui, text);
    }
    const QString& current() const { return current_; }

private:
    AppContext& app_;
    QString current_;
};

// Copies each file that "maj.txt" names from the work folder over the one of
// the application folder, then tells how it went.
void install_listed_files(AppContext& app, const QString& work, Steps& step)
{
    const QString list_file = path_join(work, kListFile);
    if (!QFileInfo(list_file).isFile()) {
        msg_erreur(app.ui, QStringLiteral("Le package sélectionné ne contenait pas le fichier maj.txt.\n"
                                          "Mise à jour logiciel annulé"));
        return;
    }
    step(QStringLiteral("Ouverture du fichier maj.txt"));
    const QStringList names = update_list_values(read_list_file(list_file));

    QString missing;
    QString refused;
    for (const QString& name : names) {
        step(QStringLiteral("Mise à jour de ") + name);
        // A name that would leave the application folder is treated as absent
        // from the package: nothing outside the folder is ever replaced.
        const std::optional<QString> relative = relative_name(name);
        const QString source = relative ? path_join(work, *relative) : QString();
        if (!relative || !QFileInfo(source).isFile()) {
            missing += QStringLiteral("\nFichier ") + name + QStringLiteral(" non trouvé.");
            continue;
        }
        // Components are plugins found by their file name: there is nothing to
        // register or unregister, replacing the file is the whole installation.
        const QString target = app.app_file(*relative);
        // The running program and the model base change only through their
        // own upgrade path, never under the program's feet.
        const QString canonical = QFileInfo(target).canonicalFilePath();
        if (!canonical.isEmpty() &&
            (canonical == QFileInfo(QCoreApplication::applicationFilePath()).canonicalFilePath() ||
             canonical == QFileInfo(app.app_file(QStringLiteral("modele_base.sav"))).canonicalFilePath())) {
            refused += QStringLiteral("\nFichier ") + name + QStringLiteral(" en cours d'utilisation, non remplacé.");
            continue;
        }
        make_private_folder(QFileInfo(target).absolutePath());
        QString cause;
        if (!copy_file_over(source, target, &cause))  // keeps the target's mode, run bits included
            throw FileError(kAccessError, QStringLiteral("Impossible de copier ") + source +
                                              QStringLiteral(" vers ") + target + QLatin1Char('\n') + cause);
    }

    if (!refused.isEmpty())
        msg_erreur(app.ui, QStringLiteral("Des fichiers du paquet ne peuvent pas être remplacés par cette mise à jour :") +
                               refused);
    if (!missing.isEmpty())
        msg_info(app.ui, QStringLiteral("Des fichiers listés dans maj.txt n'ont pas été trouvés dans le répertoire :") +
                             missing);
    else
        msg_info(app.ui, QStringLiteral("La mise à jour s'est déroulée avec succès."));
}

}  // namespace

QStringList update_list_values(const QString& text)
{
    QStringList values;
    const qsizetype n = text.size();
    qsizetype i = 0;
    while (i < n) {
        while (i < n && is_blank(text.at(i)))
            ++i;
        QString value;
        if (i < n && text.at(i) == QLatin1Char('"')) {
            const qsizetype close = text.indexOf(QLatin1Char('"'), i + 1);
            value = close < 0 ? text.mid(i + 1) : text.mid(i + 1, close - i - 1);
            i = close < 0 ? n : close + 1;
            // What follows the closing quote, up to the delimiter, is dropped.
            while (i < n && !ends_value(text.at(i)))
                ++i;
        } else {
            const qsizetype start = i;
            while (i < n && !ends_value(text.at(i)))
                ++i;
            value = text.mid(start, i - start);
        }
        ++i;  // the delimiter
        value = value.trimmed();
        if (!value.isEmpty())
            values << value;
    }
    return values;
}

void software_update_command(AppContext& app)
{
    const QString package = app.ui.file_dialog({QStringLiteral("Sélection du package de mise à jour"),
                                                QStringLiteral("Package de mise à jour (maj_soft_*.zip)|maj_soft_*.zip"),
                                                false, true, false, {}});
    if (package.isEmpty())
        return;
    if (!is_update_package_name(package)) {
        msg_erreur(app.ui, QStringLiteral("Sélectionner un package de mise à jour."));
        return;
    }

    Steps step(app);
    QString work;
    try {
        step(QStringLiteral("Création des fichiers temporaires pour la mise à jour."));
        // A package that cannot be unpacked has shown its own message.
        work = unpack_package(app.ui, app.app_dir(), QStringLiteral("tmpmajsoft"), package);
        if (!work.isEmpty())
            install_listed_files(app, work, step);
    } catch (const std::exception& e) {
        msg_erreur(app.ui, QStringLiteral("Une erreur s'est produite lors de la tentative de la mise à jour.\nEtape : ") +
                               step.current(),
                   &e);
    }
    if (!work.isEmpty())
        QDir(work).removeRecursively();
    status_text(app.ui, QString());
}

}  // namespace plouvarine
