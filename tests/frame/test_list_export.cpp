// The tab-text export of a list: captions, rows as shown (blank cells kept),
// the first line, and a place that cannot be written.

#include "src/frame/list_export.h"

#include <QDir>
#include <QFile>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace plouvarine;

namespace {

void fill_results(QStandardItemModel& model)
{
    model.setColumnCount(3);
    model.setHorizontalHeaderLabels({QStringLiteral("Pl"), QStringLiteral("Nom"), QStringLiteral("Tps")});
    model.appendRow({new QStandardItem(QStringLiteral(" ")), new QStandardItem(QStringLiteral("100 Nage Libre Dames")),
                     new QStandardItem(QStringLiteral(" "))});
    model.appendRow({new QStandardItem(QStringLiteral("1")), new QStandardItem(QStringLiteral("LEFÈVRE Zoé")),
                     new QStandardItem(QStringLiteral("1:02.35"))});
}

QByteArray read_all(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

TEST(ListExport, WritesCaptionsAndRowsAsShownWithTheFirstLine)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("res.txt"));
    QStandardItemModel list;
    fill_results(list);

    ASSERT_EQ(exporte_texte(path, list, QStringLiteral("Meeting d'automne")), QString());
    EXPECT_TRUE(read_all(path).startsWith("\xEF\xBB\xBF"));
    EXPECT_EQ(QString::fromUtf8(read_all(path)),
              QStringLiteral("Meeting d'automne\r\nPl\tNom\tTps\r\n \t100 Nage Libre Dames\t \r\n"
                             "1\tLEFÈVRE Zoé\t1:02.35\r\n"));

    ASSERT_EQ(exporte_texte(path, list), QString());
    EXPECT_TRUE(QString::fromUtf8(read_all(path)).startsWith(QStringLiteral("Pl\tNom\tTps\r\n")));
}

TEST(ListExport, APlaceThatCannotBeWrittenGivesTheCause)
{
    QTemporaryDir dir;
    QStandardItemModel list;
    fill_results(list);
    const QString cause = exporte_texte(dir.filePath(QStringLiteral("absent/res.txt")), list);
    EXPECT_TRUE(cause.contains(QStringLiteral("absent/res.txt"))) << cause.toStdString();
}
