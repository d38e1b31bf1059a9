#include "src/frame/list_export.h"

#include "src/base/files.h"

#include <QAbstractItemModel>
#include <QStringList>

namespace plouvarine {

QString exporte_texte(const QString& path, const QAbstractItemModel& list, const QString& first_line)
{
    QString text;
    if (!first_line.isEmpty())
        text += first_line + QStringLiteral("\r\n");
    const int columns = list.columnCount();
    QStringList line;
    for (int c = 0; c < columns; ++c)
        line << list.headerData(c, Qt::Horizontal).toString();
    text += line.join(QLatin1Char('\t')) + QStringLiteral("\r\n");
    for (int r = 0; r < list.rowCount(); ++r) {
        line.clear();
        for (int c = 0; c < columns; ++c)
            line << list.index(r, c).data().toString();
        text += line.join(QLatin1Char('\t')) + QStringLiteral("\r\n");
    }
    const QByteArray data = QByteArrayLiteral("\xEF\xBB\xBF") + text.toUtf8();
    WholeFile file(path);
    if (!file.write(data.constData(), data.size()) || !file.commit())
        return file.error_text();
    return {};
}

}  // namespace plouvarine
