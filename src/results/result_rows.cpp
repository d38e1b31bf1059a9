#include "src/results/result_rows.h"

#include "src/base/text.h"

#include <QStandardItemModel>

namespace plouvarine {

QString libelle_statut_temps(const QString& canonical)
{
    struct Status {
        double value;
        const char* text;
    };
    static const Status kStatuses[] = {
        {91, "Forf\tExc."},    {92, "Forf\tDec."}, {93, "Disq\tRel."}, {94, "Forf\tNon Dec."},
        {95, "Aban\t "},       {96, "Disq\tAtt."}, {97, "Disq\tFD."},  {98, "Disq\tVI."},
        {99, "Disq\tNI."},     {99.9999, "Disq\t "},
    };
    const double value = text_to_double(canonical);
    for (const Status& s : kStatuses)
        if (value == s.value)
            return QString::fromUtf8(s.text);
    return QStringLiteral("NA\t ");
}

namespace {

bool code_is_series(const QString& code)
{
    return code == QLatin1String("S") || code == QLatin1String("Inconnu");
}

}  // namespace

QString libelle_type_course(const QString& code)
{
    if (code == QLatin1String("F"))
        return QStringLiteral("Finale");
    if (code == QLatin1String("J"))
        return QStringLiteral("Finale Jeune");
    if (code == QLatin1String("2"))
        return QStringLiteral("1/2 Finale");
    if (code == QLatin1String("4"))
        return QStringLiteral("1/4 Finale");
    if (code == QLatin1String("8"))
        return QStringLiteral("1/8 Finale");
    if (code_is_series(code))
        return QStringLiteral("Série");
    if (code == QLatin1String("B"))
        return QStringLiteral("Barrage");
    return {};
}

QString titre_course(const QString& type, const QString& serie, const QString& categorie)
{
    const QString label = libelle_type_course(type);
    QString title;
    if (code_is_series(type)) {
        title = label + u' ' + serie;
    } else {
        title = label;
        const int letter = serie.trimmed().toInt();
        if (letter >= 1 && letter <= 3)
            title += u' ' + QChar(u'A' + letter - 1);
    }
    if (!categorie.isEmpty())
        title += QStringLiteral(" catégorie ") + categorie;
    return title;
}

QList<int> distances_inter(int distance)
{
    QList<int> out;
    if (distance < 51)
        return out;
    const int step = distance < 401 ? 50 : 100;
    for (int d = distance - step; d > 0; d -= step)
        out << d;
    return out;
}

bool is_status_text(const QString& tps)
{
    return tps == QLatin1String("Disq") || tps == QLatin1String("Forf") || tps == QLatin1String("Aban") ||
           tps == QLatin1String("NA");
}

QString cell(const QStandardItemModel& rows, int row, int column)
{
    const QStandardItem* item = rows.item(row, column);
    return item ? item->text() : QString();
}

RowKind row_kind(const QStandardItemModel& rows, int row)
{
    if (!cell(rows, row, 0).trimmed().isEmpty())
        return RowKind::Data;
    return cell(rows, row, 1).trimmed().isEmpty() ? RowKind::Blank : RowKind::Title;
}

int inter_count(const ResultSheet& sheet, int row)
{
    if (!sheet.tps_inter)
        return 0;
    int m = 0;
    while (sheet.first_inter + m < sheet.rows->columnCount() &&
           !cell(*sheet.rows, row, sheet.first_inter + m).trimmed().isEmpty())
        ++m;
    return m;
}

bool EventWalker::begins_event(const QString& text)
{
    if (next_ < events_.size() && text == events_.at(next_)) {
        ++next_;
        return true;
    }
    return false;
}

}  // namespace plouvarine
