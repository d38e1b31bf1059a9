#include "src/store/collation.h"

#include <sqlite3.h>

namespace plouvarine {

namespace {

// The letter without its accent, in lower case.
QChar base_letter(QChar c)
{
    if (c.unicode() < 0x80)
        return c.toLower();
    const QString d = c.decomposition();
    if (!d.isEmpty() && c.decompositionTag() == QChar::Canonical)
        return d.at(0).toLower();
    if (c == QChar(0x00DF))  // ß
        return QLatin1Char('s');
    return c.toCaseFolded();
}

int ascii_nocase(const unsigned char* a, int an, const unsigned char* b, int bn)
{
    const int n = an < bn ? an : bn;
    for (int i = 0; i < n; ++i) {
        int ca = a[i], cb = b[i];
        if (ca >= 'A' && ca <= 'Z') ca += 32;
        if (cb >= 'A' && cb <= 'Z') cb += 32;
        if (ca != cb)
            return ca - cb;
    }
    return an - bn;
}

bool is_ascii(const char* s, int n)
{
    for (int i = 0; i < n; ++i)
        if (static_cast<unsigned char>(s[i]) >= 0x80)
            return false;
    return true;
}

int collate(void*, int an, const void* a, int bn, const void* b)
{
    return compare_utf8(static_cast<const char*>(a), an, static_cast<const char*>(b), bn);
}

}  // namespace

int compare_texts(const QString& a, const QString& b)
{
    const int n = std::min(a.size(), b.size());
    for (int i = 0; i < n; ++i) {
        const QChar ca = base_letter(a.at(i)), cb = base_letter(b.at(i));
        if (ca != cb)
            return ca.unicode() < cb.unicode() ? -1 : 1;
    }
    if (a.size() != b.size())
        return a.size() < b.size() ? -1 : 1;
    // Same letters: the accents decide, case never does.
    const int c = QString::compare(a.toCaseFolded(), b.toCaseFolded());
    return c < 0 ? -1 : (c > 0 ? 1 : 0);
}

int compare_utf8(const char* a, int a_len, const char* b, int b_len)
{
    if (is_ascii(a, a_len) && is_ascii(b, b_len))
        return ascii_nocase(reinterpret_cast<const unsigned char*>(a), a_len,
                            reinterpret_cast<const unsigned char*>(b), b_len);
    return compare_texts(QString::fromUtf8(a, a_len), QString::fromUtf8(b, b_len));
}

void register_collation(sqlite3* db)
{
    sqlite3_create_collation(db, "NOCASE", SQLITE_UTF8, nullptr, collate);
}

}  // namespace plouvarine
