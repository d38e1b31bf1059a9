#pragma once
// The columns of the tab-separated exchange files of clubs and licences, in
// the order written, with the base column each one holds. docs/formats.md
// describes the files.

#include <QString>
#include <QStringList>
#include <utility>
#include <vector>

namespace plouvarine {
class Database;
}

namespace plouvarine::exchange {

// "clubs.txt": one line per visible club.
inline const QString kClubFile = QStringLiteral("clubs.txt");
// Code_federal first: the key of a club.
QStringList club_columns();
// Selection is the one boolean column of the clubs.
inline const QString kClubFlag = QStringLiteral("Selection");

// "licences.txt": one line per visible licence of the club.
inline const QString kLicenceFile = QStringLiteral("licences.txt");
QStringList licence_columns();

// A boolean as the files write it ("1" or "0"), from the base's "Vrai"/"Faux".
QString flag_text(const QString& base_value);
// "1", "Vrai", "true", "oui" or "x" (case ignored) is true.
bool flag_value(const QString& text);

// "a = 'x', b = 'y'" for an UPDATE, the values quoted.
QString assignments(const std::vector<std::pair<QString, QString>>& fields);

// Reads the columns of a table as the file writes them (booleans as "1"/"0").
std::vector<QStringList> read_columns(Database& db, const QStringList& columns, const QString& from_where,
                                      const QStringList& flags = {});

}  // namespace plouvarine::exchange
