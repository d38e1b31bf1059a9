#pragma once
// The statements of the system are written in the Jet dialect. SQLite takes
// nearly all of them as they stand; jet_to_sqlite rewrites the few forms it does
// not accept, and nothing else:
//   DELETE * FROM t ...           -> DELETE FROM t ...
//   DELETE t.* FROM t ...         -> DELETE FROM t ...
//   DELETE FROM t a WHERE a.x ... -> DELETE FROM t AS a WHERE a.x ...
//   UPDATE t a SET ...            -> UPDATE t AS a SET ...
//   UPDATE t SET t.col = ...      -> UPDATE t SET col = ...   (qualified columns in SET)

#include <QString>

namespace plouvarine {

QString jet_to_sqlite(const QString& sql);

}  // namespace plouvarine
