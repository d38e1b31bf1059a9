#include "components/exchange/licence_match.h"

#include "src/base/text.h"
#include "src/store/database.h"

namespace plouvarine::exchange {

namespace {

QString plain(const QString& text)
{
    // SansAccents upper-cases French accented letters; the decomposition
    // catches the others ("ñ", "å").
    QString s = SansAccents(text.simplified()).normalized(QString::NormalizationForm_D);
    s.removeIf([](QChar c) { return c.category() == QChar::Mark_NonSpacing; });
    return s;
}

QString licence_key(const QString& licence)
{
    return licence.trimmed().toUpper();
}

}  // namespace

QString person_key(const QString& nom, const QString& prenom, const QString& date_naissance)
{
    return plain(nom) + QLatin1Char('\t') + plain(prenom) + QLatin1Char('\t') + date_naissance.trimmed();
}

void LicenceIndex::load(Database& db)
{
    const Rows rows =
        db.load_rows(QStringLiteral("SELECT Num, Code_club, Licence, Nom, Prenom, Date_Naissance FROM Licence"));
    for (int r = 0; r < rows.size(); ++r)
        add({rows.value(r, 0), rows.value(r, 1)}, rows.value(r, 2), rows.value(r, 3), rows.value(r, 4),
            rows.value(r, 5));
}

LicenceIndex::Found LicenceIndex::find(const QString& licence, const QString& nom, const QString& prenom,
                                       const QString& date_naissance) const
{
    if (const QString key = licence_key(licence); !key.isEmpty())
        if (const auto it = by_licence_.constFind(key); it != by_licence_.cend())
            return *it;
    if (nom.trimmed().isEmpty())
        return {};
    return by_person_.value(person_key(nom, prenom, date_naissance));
}

void LicenceIndex::add(const Found& who, const QString& licence, const QString& nom, const QString& prenom,
                       const QString& date_naissance)
{
    if (const QString key = licence_key(licence); !key.isEmpty())
        by_licence_.insert(key, who);
    if (!nom.trimmed().isEmpty())
        by_person_.insert(person_key(nom, prenom, date_naissance), who);
}

}  // namespace plouvarine::exchange
