#pragma once
// Finding the base's swimmer for a person named in an exchange file: first by
// licence number, then by family name, first name and birth date, with accents
// and case ignored ("Élodie DUPRÉ" is "elodie dupre").

#include <QHash>
#include <QString>

namespace plouvarine {
class Database;
}

namespace plouvarine::exchange {

// The key of a person: names without accents nor case, trimmed, and the
// birth date as it stands.
QString person_key(const QString& nom, const QString& prenom, const QString& date_naissance);

class LicenceIndex {
public:
    struct Found {
        QString num;        // Licence.Num
        QString code_club;  // Licence.Code_club
        bool found() const { return !num.isEmpty(); }
    };

    // Every licence of the base, hidden ones included.
    void load(Database& db);
    // The swimmer, by licence number when given and known, else by person.
    Found find(const QString& licence, const QString& nom, const QString& prenom,
               const QString& date_naissance) const;
    // A swimmer added or changed during the import, so that a later line finds it.
    void add(const Found& who, const QString& licence, const QString& nom, const QString& prenom,
             const QString& date_naissance);

private:
    QHash<QString, Found> by_licence_;
    QHash<QString, Found> by_person_;
};

}  // namespace plouvarine::exchange
