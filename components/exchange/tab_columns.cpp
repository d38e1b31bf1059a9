#include "components/exchange/tab_columns.h"

#include "src/base/sql_text.h"

#include "src/base/text.h"
#include "src/store/database.h"

namespace plouvarine::exchange {

QStringList club_columns()
{
    return {QStringLiteral("Code_federal"), QStringLiteral("Intitule"),    QStringLiteral("Selection"),
            QStringLiteral("Adresse"),      QStringLiteral("Code_Postal"), QStringLiteral("Ville"),
            QStringLiteral("Telephone"),    QStringLiteral("Fax"),         QStringLiteral("Mail")};
}

QStringList licence_columns()
{
    return {QStringLiteral("Licence"),          QStringLiteral("Code_club"),     QStringLiteral("Nom"),
            QStringLiteral("Prenom"),           QStringLiteral("Sexe"),          QStringLiteral("Date_Naissance"),
            QStringLiteral("Nationalite"),      QStringLiteral("Code_unique"),   QStringLiteral("Adresse"),
            QStringLiteral("Suite_adresse"),    QStringLiteral("Code_Postal"),   QStringLiteral("Localite"),
            QStringLiteral("Telephone"),        QStringLiteral("Tel2"),          QStringLiteral("Mail"),
            QStringLiteral("Sportive"),         QStringLiteral("Synchro"),       QStringLiteral("Water_Polo"),
            QStringLiteral("Plongeon"),         QStringLiteral("Dirigeant"),     QStringLiteral("Maitre"),
            QStringLiteral("Type_licence"),     QStringLiteral("Nature"),        QStringLiteral("Date_Depot"),
            QStringLiteral("Date_obliteration"), QStringLiteral("Tarif"),        QStringLiteral("Medecin"),
            QStringLiteral("Date_Ctrl_Medical")};
}

QString flag_text(const QString& base_value)
{
    return flag_value(base_value) ? QStringLiteral("1") : QStringLiteral("0");
}

bool flag_value(const QString& text)
{
    const QString t = text.trimmed().toLower();
    return t == QLatin1String("1") || t == QLatin1String("vrai") || t == QLatin1String("true") ||
           t == QLatin1String("oui") || t == QLatin1String("x");
}

QString assignments(const std::vector<std::pair<QString, QString>>& fields)
{
    // Every value a text, quoted where all the statements quote.
    SqlFields quoted;
    for (const auto& [column, value] : fields)
        quoted.push_back({column, quote_sql(value)});
    return sql_set(quoted);
}

std::vector<QStringList> read_columns(Database& db, const QStringList& columns, const QString& from_where,
                                      const QStringList& flags)
{
    const Rows rows = db.load_rows(QStringLiteral("SELECT ") + columns.join(QStringLiteral(", ")) +
                                   QLatin1Char(' ') + from_where);
    std::vector<QStringList> out;
    out.reserve(size_t(rows.size()));
    for (int r = 0; r < rows.size(); ++r) {
        QStringList line;
        for (int c = 0; c < columns.size(); ++c)
            line << (flags.contains(columns[c]) ? flag_text(rows.value(r, c)) : rows.value(r, c));
        out.push_back(line);
    }
    return out;
}

}  // namespace plouvarine::exchange
