#include "src/store/dialect.h"

#include <QHash>
#include <QRegularExpression>
#include <QStringList>
#include <sqlite3.h>

#include <functional>
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
    // DELETE * FROM and DELETE t.* FROM: the selection of columns goes, with
    // the blank after it.
    size_t end = i;
    if (i < t.size() && t[i].punct(QLatin1Char('*')))
        end = i + 1;
    else if (i + 2 < t.size() && t[i].kind == Kind::Word && t[i + 1].punct(QLatin1Char('.')) &&
             t[i + 2].punct(QLatin1Char('*')))
        end = i + 3;
    if (end > i) {
        if (end < t.size() && t[end].kind == Kind::Space)
            ++end;
        t.erase(t.begin() + long(i), t.begin() + long(end));
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

// Keywords that may follow a value; a number glued to one of them gets a blank.
bool follows_a_value(const Token& t)
{
    static const char* words[] = {"and", "or", "not", "in", "is", "like", "between", "as", "asc", "desc",
                                  "order", "group", "having", "where", "from", "union",
                                  "inner", "left", "right", "join", "on", nullptr};
    if (t.kind != Kind::Word)
        return false;
    for (const char** w = words; *w; ++w)
        if (t.is(*w))
            return true;
    return false;
}

void unglue_numbers(std::vector<Token>& t)
{
    for (size_t i = 1; i < t.size(); ++i) {
        if (t[i - 1].kind == Kind::Number && follows_a_value(t[i])) {
            t.insert(t.begin() + long(i), Token{Kind::Space, QStringLiteral(" ")});
            ++i;
        }
    }
}

// A table name as the base knows it: without its brackets or quotes.
QString bare_name(const QString& name)
{
    if (name.size() >= 2 && (name.startsWith(QLatin1Char('[')) || name.startsWith(QLatin1Char('"')) ||
                             name.startsWith(QLatin1Char('`'))))
        return name.mid(1, name.size() - 2);
    return name;
}

QString column_name(const QString& name)
{
    static const QRegularExpression plain(QStringLiteral("^[A-Za-z_][A-Za-z0-9_]*$"));
    if (plain.match(name).hasMatch())
        return name;
    return QLatin1Char('"') + QString(name).replace(QLatin1Char('"'), QStringLiteral("\"\"")) + QLatin1Char('"');
}

// What the base says of a table's columns, in their order.
struct Column {
    QString name;
    bool boolean;  // declared BOOLEAN
};
using ColumnsOf = std::function<std::vector<Column>(const QString& table)>;

// INSERT INTO t VALUES (...) with fewer values than t has columns: the values
// are given the names of the first columns, the others take their defaults.
void name_inserted_columns(std::vector<Token>& t, size_t ins, const ColumnsOf& columns_of)
{
    const size_t into = next(t, ins + 1);
    if (into >= t.size() || !t[into].is("into"))
        return;
    const size_t table = next(t, into + 1);
    if (table >= t.size() || t[table].kind != Kind::Word)
        return;
    const size_t values = next(t, table + 1);
    if (values >= t.size() || !t[values].is("values"))
        return;
    const size_t open = next(t, values + 1);
    if (open >= t.size() || !t[open].punct(QLatin1Char('(')))
        return;
    int depth = 0;
    int count = 1;
    bool closed = false, empty = true;
    for (size_t i = open + 1; i < t.size() && !closed; ++i) {
        const Token& tok = t[i];
        if (tok.punct(QLatin1Char('('))) {
            ++depth;
        } else if (tok.punct(QLatin1Char(')'))) {
            if (depth == 0)
                closed = true;
            else
                --depth;
        } else if (depth == 0 && tok.punct(QLatin1Char(','))) {
            ++count;
        }
        if (!closed && tok.kind != Kind::Space)
            empty = false;
    }
    if (!closed || empty)
        return;
    const std::vector<Column> columns = columns_of(bare_name(t[table].text));
    if (int(columns.size()) <= count)
        return;
    QStringList names;
    for (int c = 0; c < count; ++c)
        names << column_name(columns.at(size_t(c)).name);
    t.insert(t.begin() + long(table + 1),
             Token{Kind::Word, QStringLiteral(" (") + names.join(QStringLiteral(", ")) + QLatin1Char(')')});
}

// A table of a FROM clause and the name the statement gives it.
struct Source {
    QString table;
    QString alias;
};

bool ends_from_clause(const Token& t)
{
    return t.is("where") || t.is("group") || t.is("order") || t.is("having") || t.is("union") ||
           t.punct(QLatin1Char(';'));
}

// The tables of the FROM clause at `from`: comma lists and joins, each with
// its alias (the table's own name when it has none). Subqueries are skipped.
std::vector<Source> from_sources(const std::vector<Token>& t, size_t from)
{
    std::vector<Source> out;
    QStringList words;
    bool in_condition = false;
    const auto flush = [&] {
        if (!words.isEmpty())
            out.push_back({bare_name(words.first()), bare_name(words.last())});
        words.clear();
    };
    int depth = 0;
    for (size_t i = from + 1; i < t.size(); ++i) {
        const Token& tok = t[i];
        if (tok.punct(QLatin1Char('('))) {
            ++depth;
            continue;
        }
        if (tok.punct(QLatin1Char(')'))) {
            if (depth == 0)
                break;
            --depth;
            continue;
        }
        if (depth > 0 || tok.kind == Kind::Space)
            continue;
        if (ends_from_clause(tok))
            break;
        if (tok.punct(QLatin1Char(',')) || tok.is("inner") || tok.is("left") || tok.is("right") || tok.is("join")) {
            flush();
            in_condition = false;
        } else if (tok.is("on")) {
            flush();
            in_condition = true;
        } else if (!in_condition && tok.kind == Kind::Word && !tok.is("as") && !tok.is("outer")) {
            words << tok.text;
        }
    }
    flush();
    return out;
}

// Jet keeps true as -1 and the base keeps it as 1, so an order on a yes/no
// column runs the other way round: "ORDER BY Mixte DESC" lists the events that
// are not mixed first under Jet. Each ORDER BY key that names a boolean column
// of the FROM tables has its direction turned, so that lists come out as Jet
// gave them.
void turn_boolean_order(std::vector<Token>& t, size_t select, const ColumnsOf& columns_of)
{
    size_t from = t.size(), by = t.size();
    int depth = 0;
    for (size_t i = select + 1; i < t.size(); ++i) {
        if (t[i].punct(QLatin1Char('('))) ++depth;
        else if (t[i].punct(QLatin1Char(')'))) --depth;
        if (depth != 0)
            continue;
        if (from == t.size() && t[i].is("from")) {
            from = i;
        } else if (t[i].is("order")) {
            const size_t b = next(t, i + 1);
            if (b < t.size() && t[b].is("by"))
                by = b;
        }
    }
    if (from == t.size() || by == t.size())
        return;
    const std::vector<Source> sources = from_sources(t, from);
    QHash<QString, std::vector<Column>> known;
    const auto is_boolean = [&](const QString& qualifier, const QString& column) {
        for (const Source& s : sources) {
            if (!qualifier.isEmpty() && s.alias.compare(qualifier, Qt::CaseInsensitive) != 0 &&
                s.table.compare(qualifier, Qt::CaseInsensitive) != 0)
                continue;
            const QString key = s.table.toLower();
            if (!known.contains(key))
                known.insert(key, columns_of(s.table));
            for (const Column& c : known.value(key))
                if (c.name.compare(column, Qt::CaseInsensitive) == 0)
                    return c.boolean;
        }
        return false;
    };

    // The keys, split at the commas; a key that is a plain column may turn.
    std::vector<size_t> key;  // its tokens that are not blanks
    const auto turn = [&] {
        size_t n = key.size();
        const bool has_direction = n >= 2 && (t[key[n - 1]].is("asc") || t[key[n - 1]].is("desc"));
        if (has_direction)
            --n;
        QString qualifier, column;
        size_t last = 0;
        if (n == 1 && t[key[0]].kind == Kind::Word) {
            column = bare_name(t[key[0]].text);
            last = key[0];
        } else if (n == 3 && t[key[0]].kind == Kind::Word && t[key[1]].punct(QLatin1Char('.')) &&
                   t[key[2]].kind == Kind::Word) {
            qualifier = bare_name(t[key[0]].text);
            column = bare_name(t[key[2]].text);
            last = key[2];
        } else {
            return;
        }
        if (!is_boolean(qualifier, column))
            return;
        if (has_direction) {
            Token& dir = t[key.back()];
            const bool upper = dir.text.at(0).isUpper();
            const bool desc = dir.is("desc");
            dir.text = desc ? (upper ? QStringLiteral("ASC") : QStringLiteral("asc"))
                            : (upper ? QStringLiteral("DESC") : QStringLiteral("desc"));
        } else {
            t[last].text += QStringLiteral(" DESC");
        }
    };
    depth = 0;
    for (size_t i = by + 1; i < t.size(); ++i) {
        const Token& tok = t[i];
        if (tok.punct(QLatin1Char('('))) ++depth;
        else if (tok.punct(QLatin1Char(')')) && --depth < 0)
            break;
        if (depth == 0 && (tok.punct(QLatin1Char(';')) || tok.is("limit")))
            break;
        if (depth == 0 && tok.punct(QLatin1Char(','))) {
            turn();
            key.clear();
        } else if (tok.kind != Kind::Space) {
            key.push_back(i);
        }
    }
    turn();
}

std::vector<Column> table_columns(sqlite3* db, const QString& table)
{
    std::vector<Column> columns;
    sqlite3_stmt* stmt = nullptr;
    if (sqlite3_prepare_v2(db, "SELECT name, type FROM pragma_table_info(?1)", -1, &stmt, nullptr) == SQLITE_OK) {
        const QByteArray name = table.toUtf8();
        sqlite3_bind_text(stmt, 1, name.constData(), int(name.size()), SQLITE_TRANSIENT);
        while (sqlite3_step(stmt) == SQLITE_ROW) {
            const auto text = [stmt](int c) {
                return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt, c)),
                                         sqlite3_column_bytes(stmt, c));
            };
            columns.push_back({text(0), text(1).compare(QLatin1String("BOOLEAN"), Qt::CaseInsensitive) == 0});
        }
    }
    sqlite3_finalize(stmt);
    return columns;
}

QString rewrite(const QString& sql, const ColumnsOf& columns_of)
{
    std::vector<Token> t = tokenize(sql);
    unglue_numbers(t);
    const size_t first = next(t, 0);
    if (first < t.size()) {
        if (t[first].is("delete"))
            rewrite_delete(t, first);
        else if (t[first].is("update"))
            rewrite_update(t, first);
        else if (t[first].is("insert") && columns_of)
            name_inserted_columns(t, first, columns_of);
        else if (t[first].is("select") && columns_of)
            turn_boolean_order(t, first, columns_of);
    }
    QString out;
    out.reserve(sql.size() + 8);
    for (const Token& tok : t)
        out += tok.text;
    return out;
}

}  // namespace

QString jet_to_sqlite(const QString& sql)
{
    return rewrite(sql, {});
}

QString jet_to_sqlite(const QString& sql, sqlite3* db)
{
    if (!db)
        return rewrite(sql, {});
    return rewrite(sql, [db](const QString& table) { return table_columns(db, table); });
}

}  // namespace plouvarine
