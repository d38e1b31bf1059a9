#include "components/exchange/tab_file.h"

#include <QFile>
#include <QSaveFile>
#include <QStringDecoder>

namespace plouvarine::exchange {

namespace {

QString clean_field(QString text)
{
    for (QChar& c : text)
        if (c == QLatin1Char('\t') || c == QLatin1Char('\n') || c == QLatin1Char('\r'))
            c = QLatin1Char(' ');
    return text;
}

QByteArray tab_line(const QStringList& fields)
{
    QStringList cleaned;
    cleaned.reserve(fields.size());
    for (const QString& f : fields)
        cleaned << clean_field(f);
    return cleaned.join(QLatin1Char('\t')).toUtf8() + '\n';
}

}  // namespace

QString write_tab_file(const QString& path, const QStringList& header, const std::vector<QStringList>& rows)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    // The byte-order mark lets spreadsheets that guess the encoding read UTF-8.
    file.write("\xEF\xBB\xBF");
    file.write(tab_line(header));
    for (const QStringList& row : rows)
        file.write(tab_line(row));
    if (!file.commit())
        return file.errorString();
    return {};
}

QStringList tab_header(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QString line = QString::fromUtf8(file.readLine()).trimmed();
    if (line.startsWith(QChar(0xFEFF)))
        line.remove(0, 1);
    QStringList names = line.split(QLatin1Char('\t'));
    for (QString& name : names)
        name = name.trimmed();
    return names;
}

TabFile::TabFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw TabFileError(0, QStringLiteral("fichier illisible : %1 (%2)").arg(path, file.errorString()));
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(file.readAll());
    if (utf8.hasError())
        throw TabFileError(0, QStringLiteral("le fichier %1 n'est pas en UTF-8").arg(path));
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        QString line = lines[i];
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
        if (i == 0 && line.startsWith(QChar(0xFEFF)))
            line.remove(0, 1);
        if (line.trimmed().isEmpty())
            continue;
        const QStringList fields = line.split(QLatin1Char('\t'));
        if (header_.isEmpty()) {
            header_ = fields;
            for (QString& name : header_)
                name = name.trimmed();
            continue;
        }
        if (fields.size() != header_.size())
            throw TabFileError(i + 1, QStringLiteral("ligne %1 : %2 champs au lieu de %3")
                                          .arg(i + 1)
                                          .arg(fields.size())
                                          .arg(header_.size()));
        rows_.push_back(fields);
        lines_.push_back(i + 1);
    }
    if (header_.isEmpty())
        throw TabFileError(1, QStringLiteral("ligne 1 : l'en-tête des colonnes manque"));
}

int TabFile::column(const QString& name) const
{
    for (int i = 0; i < header_.size(); ++i)
        if (header_[i].compare(name, Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

QString TabFile::field(int row, const QString& name) const
{
    const int c = column(name);
    return c < 0 ? QString() : rows_[size_t(row)][c].trimmed();
}

void TabFile::require(const QStringList& names) const
{
    QStringList missing;
    for (const QString& name : names)
        if (column(name) < 0)
            missing << name;
    if (!missing.isEmpty())
        throw TabFileError(1, QStringLiteral("ligne 1 : colonne absente : %1").arg(missing.join(QStringLiteral(", "))));
}

}  // namespace plouvarine::exchange
