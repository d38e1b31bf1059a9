#pragma once
// Text comparison of the base: without regard to case, and with accented letters
// sorting beside their plain letter ("Émile" between "Emile" and "Enzo"). It
// replaces SQLite's NOCASE on every connection the program opens, so columns
// declared COLLATE NOCASE compare this way in WHERE, ORDER BY and indexes. On
// plain ASCII texts it orders exactly as SQLite's own NOCASE does.

#include <QString>

struct sqlite3;

namespace plouvarine {

// <0, 0, >0 as a sorts before, with or after b.
int compare_texts(const QString& a, const QString& b);
int compare_utf8(const char* a, int a_len, const char* b, int b_len);

void register_collation(sqlite3* db);

}  // namespace plouvarine
