#include "store/dialect.h"

#include <QStringList>
#include <vector>

namespace plouvarine {

namespace {

enum class Kind { Space, Word, Quoted, Number, Punct };

struct Token {
    Kind kind;
    QString text;
    bool is(const char* word) const { return kind == Kind::Word && text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0; }
    bool punct(QChar c) const { return kind == Kind::Punct && text.size() == 1 && text.at(0) == c; }
};

// Splits a statement into tokens, keeping every character, so that joining the
// tokens gives the statement back.
std::vector<Token> tokenize(const QString& sql)
{
    std::vector<Token> out;
    int i = 0;
    const int n = sql.size();
    while (i < n) {
        const QChar c = sql.at(i);
        int j = i + 1;
        Kind kind;
        if (c.isSpace()) {
            while (j < n && sql.at(j).isSpace()) ++j;
            kind = Kind::Space;
        } else if (c == QLatin1Char('\'') || c == QLatin1Char('"') || c == QLatin1Char('[') || c == QLatin1Char('`')) {
            const QChar close = c == QLatin1Char('[') ? QLatin1Char(']') : c;
            while (j < n) {
                if (sql.at(j) == close) {
                    if (close != QLatin1Char(']') && j + 1 < n && sql.at(j + 1) == close) { j += 2; continue; }
                    ++j;
                    break;
                }
                ++j;
            }
            kind = c == QLatin1Char('\'') ? Kind::Quoted : Kind::Word;
        } else if (c.isLetter() || c == QLatin1Char('_')) {
            while (j < n && (sql.at(j).isLetterOrNumber() || sql.at(j) == QLatin1Char('_'))) ++j;
            kind = Kind::Word;
        } else if (c.isDigit()) {
            while (j < n && (sql.at(j).isDigit() || sql.at(j) == QLatin1Char('.'))) ++j;
            kind = Kind::Number;
        } else {
            kind = Kind::Punct;
        }
        out.push_back({kind, sql.mid(i, j - i)});
        i = j;
    }
    return out;
}

// Index of the next token that is not a space, from `i`; tokens.size() if none.
size_t next(const std::vector<Token>& t, size_t i)
{
    while (i < t.size() && t[i].kind == Kind::Space) ++i;
    return i;
}

bool is_clause_word(const Token& t)
{
    static const char* words[] = {"where", "set", "inner", "left", "right", "join", "on", "order", "group", "as", "from", nullptr};
    if (t.kind != Kind::Word)
        return false;
    for (const char** w = words; *w; ++w)
        if (t.is(*w))
            return true;
    return false;
}

// After a table name at `table`: a bare alias gets "AS " in front of it.
void add_as_before_alias(std::vector<Token>& t, size_t table)
{
    const size_t alias = next(t, table + 1);
    if (alias < t.size() && t[alias].kind == Kind::Word && !is_clause_word(t[alias]))
        t.insert(t.begin() + long(alias), Token{Kind::Word, QStringLiteral("AS ")});
}

void rewrite_delete(std::vector<Token>& t, size_t del)
{
    size_t i = next(t, del + 1);
    // DELETE * FROM and DELETE t.* FROM: the selection of columns goes.
    if (i < t.size() && t[i].punct(QLatin1Char('*'))) {
        t.erase(t.begin() + long(i));
    } else if (i + 2 < t.size() && t[i].kind == Kind::Word && t[i + 1].punct(QLatin1Char('.')) && t[i + 2].punct(QLatin1Char('*'))) {
        t.erase(t.begin() + long(i), t.begin() + long(i + 3));
    }
    i = next(t, del + 1);
    if (i < t.size() && t[i].is("from")) {
        const size_t table = next(t, i + 1);
        if (table < t.size() && t[table].kind == Kind::Word)
            add_as_before_alias(t, table);
    }
}

void rewrite_update(std::vector<Token>& t, size_t upd)
{
    const size_t table = next(t, upd + 1);
    if (table >= t.size() || t[table].kind != Kind::Word)
        return;
    add_as_before_alias(t, table);
    // Qualified columns on the left of "=" in the SET list lose their qualifier.
    size_t i = table + 1;
    while (i < t.size() && !t[i].is("set")) ++i;
    if (i == t.size())
        return;
    int depth = 0;
    bool expect_column = true;
    for (++i; i < t.size(); ++i) {
        Token& tok = t[i];
        if (tok.punct(QLatin1Char('('))) ++depth;
        else if (tok.punct(QLatin1Char(')'))) --depth;
        if (depth > 0 || tok.kind == Kind::Space)
            continue;
        if (tok.is("where"))
            break;
        if (tok.punct(QLatin1Char(','))) {
            expect_column = true;
            continue;
        }
        if (expect_column && tok.kind == Kind::Word) {
            const size_t dot = next(t, i + 1);
            if (dot + 1 < t.size() && t[dot].punct(QLatin1Char('.')) && t[dot + 1].kind == Kind::Word)
                t.erase(t.begin() + long(i), t.begin() + long(dot + 1));
            expect_column = false;
        } else {
            expect_column = false;
        }
    }
}

}  // namespace

QString jet_to_sqlite(const QString& sql)
{
    std::vector<Token> t = tokenize(sql);
    const size_t first = next(t, 0);
    if (first < t.size()) {
        if (t[first].is("delete"))
            rewrite_delete(t, first);
        else if (t[first].is("update"))
            rewrite_update(t, first);
    }
    QString out;
    out.reserve(sql.size() + 8);
    for (const Token& tok : t)
        out += tok.text;
    return out;
}

}  // namespace plouvarine
