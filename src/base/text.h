#pragma once
// Text helpers shared across the system: SQL quoting, the literals and numbers
// that statements are composed with, the family-name normalisation, and the
// writing of a text file.

#include <QString>
#include <QStringList>

namespace plouvarine {

class Services;

// Every apostrophe doubled, so that the text can stand between apostrophes in SQL.
QString quote_sql(const QString& text);
// "true" or "false", the boolean literals of the statements.
QString bool_text(bool value);
// The number at the start of the text, commas read as decimal points, so that
// "12,5" is 12.5 whatever the machine's settings. As the platform's Val: blanks,
// tabs and line feeds are skipped, reading stops at the first character that
// cannot continue the number, and a text with no number gives 0.
double text_to_double(const QString& text);
// Ties go to the even neighbour: 2.5 gives 2, 3.5 gives 4.
int round_half_even(double value);

// The text in capitals without the accents of French: "Hélène" gives "HELENE".
// Letters with other accents keep them ("ñ" gives "Ñ").
QString SansAccents(const QString& text);
// "field = 'v1' or field = 'v2'...", for a WHERE clause; the values are quoted.
QString text_or(const QStringList& values, const QString& field);

// Writes the text in UTF-8. The file is replaced only once the new text is
// completely written, so a failure leaves the old file as it was; it shows
// "Une erreur s'est produite lors de l'écriture du fichier." and gives false.
bool write_text_file(Services& ui, const QString& path, const QString& text);

}  // namespace plouvarine
