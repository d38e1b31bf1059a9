#pragma once
// The statements of the system are written in the Jet dialect. SQLite takes
// nearly all of them as they stand; jet_to_sqlite rewrites the few forms it does
// not accept, and nothing else. Texts in apostrophes and names in brackets or
// double quotes are never touched.
//   DELETE * FROM t ...           -> DELETE FROM t ...
//   DELETE t.* FROM t ...         -> DELETE FROM t ...
//   DELETE FROM t a WHERE a.x ... -> DELETE FROM t AS a WHERE a.x ...
//   UPDATE t a SET ...            -> UPDATE t AS a SET ...
//   UPDATE t SET t.col = ...      -> UPDATE t SET col = ...   (qualified columns in SET)
//   ... = 5AND ... / = 7ORDER BY  -> ... = 5 AND ... / = 7 ORDER BY
//        A key joined into the text right before the next piece leaves a number
//        glued to the keyword that follows. Jet reads them apart; SQLite refuses
//        the token. Only before a keyword: "1e5" stays a number.
// With the connection, two more forms, which need the tables' columns:
//   INSERT INTO t VALUES (a, b)   -> INSERT INTO t (c1, c2) VALUES (a, b)
//        when t has more columns than the values given: Jet fills the columns
//        left over with their defaults, SQLite refuses the statement. The values
//        go to the first columns in the table's order, as Jet puts them.
//   SELECT ... ORDER BY Mixte DESC, Engag.Equipe_mixte
//                                 -> SELECT ... ORDER BY Mixte ASC, Engag.Equipe_mixte DESC
//        A key that names a BOOLEAN column of the FROM tables has its direction
//        turned: Jet keeps true as -1, the base keeps it as 1, and the lists are
//        to come out in Jet's order (the events that are not mixed first).
//
// No Jet function, "&" concatenation, date literal, TOP, DISTINCTROW or bracketed
// join appears in the system's statements, so none is translated.

#include <QString>

struct sqlite3;

namespace plouvarine {

QString jet_to_sqlite(const QString& sql);
// The same, and the two forms that need the tables of `db`; with a null `db`,
// as the one above. Apply it once to a statement: a turned order turns back.
QString jet_to_sqlite(const QString& sql, sqlite3* db);

}  // namespace plouvarine
