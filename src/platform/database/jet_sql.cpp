#include "platform/database/jet_sql.h"

#include "platform/database/engine_errors.h"

#include <QList>
#include <algorithm>
#include <iterator>
#include <optional>

using namespace Qt::StringLiterals;

namespace database {
namespace {

struct Token {
    enum class Kind { Word, Name, Number, Text, Symbol };
    Kind kind;
    QString text;

    bool Is(QLatin1StringView word) const {
        return (kind == Kind::Word || kind == Kind::Symbol) && text.compare(word, Qt::CaseInsensitive) == 0;
    }
    bool Is_Operand() const { return kind != Kind::Symbol; }
};

using Tokens = QList<Token>;

[[noreturn]] void Refuse(const QString& description) {
    Raise_Engine_Error(errors::Syntax, description);
}

bool Starts_Word(QChar c) {
    return c.isLetter() || c == u'_';
}

bool Continues_Word(QChar c) {
    return c.isLetterOrNumber() || c == u'_';
}

// The place behind a quoted run that begins at `start`; a doubled closing mark stands for itself.
qsizetype End_Of_Quoted(const QString& jet, qsizetype start, QChar closing) {
    for (qsizetype at = start + 1; at < jet.size(); ++at) {
        if (jet[at] != closing) continue;
        if (closing != u']' && at + 1 < jet.size() && jet[at + 1] == closing) {
            ++at;
            continue;
        }
        return at + 1;
    }
    Refuse(u"Syntax error in string in query expression '"_s + jet.mid(start) + u"'."_s);
}

// Jet takes texts in double quotes as well; SQLite would read those as names.
QString Single_Quoted(const QString& quoted) {
    if (quoted.startsWith(u'\'')) return quoted;
    QString content = quoted.mid(1, quoted.size() - 2);
    content.replace(u"\"\""_s, u"\""_s).replace(u"'"_s, u"''"_s);
    return u'\'' + content + u'\'';
}

qsizetype End_Of_Number(const QString& jet, qsizetype at) {
    const auto digits = [&] {
        while (at < jet.size() && jet[at].isDigit())
            ++at;
    };
    digits();
    if (at < jet.size() && jet[at] == u'.') {
        ++at;
        digits();
    }
    if (at + 1 < jet.size() && jet[at].toLower() == u'e') {
        const qsizetype sign = jet[at + 1] == u'+' || jet[at + 1] == u'-' ? 1 : 0;
        if (at + 1 + sign < jet.size() && jet[at + 1 + sign].isDigit()) {
            at += 1 + sign;
            digits();
        }
    }
    return at;
}

qsizetype Symbol_Length(const QString& jet, qsizetype at) {
    static const QString pairs[] = {u"<="_s, u">="_s, u"<>"_s};
    const QString pair = jet.mid(at, 2);
    for (const QString& known : pairs)
        if (pair == known) return 2;
    return 1;
}

// A lifted text is a text to all that follows.
enum class Marks { Refused, Stand_For_Texts };

Tokens Tokens_Of(const QString& jet, Marks marks) {
    static const QString known_symbols = u"+-*/=<>(),.;"_s;
    Tokens tokens;
    qsizetype at = 0;
    const auto take = [&](Token::Kind kind, qsizetype end) {
        tokens.append({kind, jet.mid(at, end - at)});
        at = end;
    };
    while (at < jet.size()) {
        const QChar c = jet[at];
        if (c.isSpace()) {
            ++at;
        } else if (c == u'\'' || c == u'"') {
            take(Token::Kind::Text, End_Of_Quoted(jet, at, c));
            tokens.last().text = Single_Quoted(tokens.last().text);
        } else if (c == u'[') {
            take(Token::Kind::Name, End_Of_Quoted(jet, at, u']'));
        } else if (c.isDigit()) {
            take(Token::Kind::Number, End_Of_Number(jet, at));
        } else if (Starts_Word(c)) {
            qsizetype end = at;
            while (end < jet.size() && Continues_Word(jet[end]))
                ++end;
            take(Token::Kind::Word, end);
        } else if (c == u'?' && marks == Marks::Stand_For_Texts) {
            take(Token::Kind::Text, at + 1);
        } else if (known_symbols.contains(c)) {
            take(Token::Kind::Symbol, at + Symbol_Length(jet, at));
        } else {
            Refuse(u"Syntax error in query expression '"_s + jet.mid(at, 40) + u"'."_s);
        }
    }
    return tokens;
}

void Drop_The_End_Mark(Tokens& tokens) {
    for (qsizetype at = 0; at < tokens.size(); ++at) {
        if (!tokens[at].Is(";"_L1)) continue;
        if (at + 1 < tokens.size()) Refuse(u"Characters found after end of SQL statement."_s);
        tokens.removeAt(at);
    }
    if (tokens.isEmpty())
        Refuse(u"Invalid SQL statement; expected 'DELETE', 'INSERT', 'SELECT', or 'UPDATE'."_s);
}

// One sum: operands joined by "+" on one level of parentheses.
struct Sum {
    QList<qsizetype> plus_signs;
    bool holds_text = false;
    bool after_operand = false;
};

void Join_Texts(Tokens& tokens) {
    QList<Sum> open{Sum{}};
    const auto finish = [&](Sum& sum) {
        if (sum.holds_text)
            for (const qsizetype place : sum.plus_signs)
                tokens[place].text = u"||"_s;
        const bool joined = sum.holds_text && !sum.plus_signs.isEmpty();
        sum = Sum{};
        return joined;
    };
    for (qsizetype at = 0; at < tokens.size(); ++at) {
        const Token& token = tokens[at];
        if (token.Is("("_L1)) {
            open.append(Sum{});
        } else if (token.Is(")"_L1)) {
            const bool joined = finish(open.last());
            if (open.size() > 1) open.removeLast();
            open.last().holds_text |= joined;
            open.last().after_operand = true;
        } else if (token.Is("."_L1)) {
            open.last().after_operand = false; // table.column is one operand
        } else if (token.Is("+"_L1)) {
            open.last().plus_signs.append(at);
            open.last().after_operand = false;
        } else if (!token.Is_Operand()) {
            finish(open.last());
        } else {
            // Two operands side by side belong to two sums: a keyword lies between, or is one of them.
            if (open.last().after_operand) finish(open.last());
            open.last().holds_text |= token.kind == Token::Kind::Text;
            open.last().after_operand = true;
        }
    }
    for (Sum& sum : open)
        finish(sum);
}

// Gives each TEXT(n) of a definition its limit of n characters.
void Limit_Texts(Tokens& tokens) {
    if (!tokens.first().Is("CREATE"_L1) && !tokens.first().Is("ALTER"_L1)) return;
    for (qsizetype at = 1; at + 3 < tokens.size(); ++at) {
        const bool sized_text = tokens[at].Is("TEXT"_L1) && tokens[at + 1].Is("("_L1) &&
                                tokens[at + 2].kind == Token::Kind::Number && tokens[at + 3].Is(")"_L1);
        if (!sized_text) continue;
        // In one piece, since the file keeps a type as it is spelt here.
        tokens[at].text = u"TEXT(%2) COLLATE NOCASE CHECK(length(%1) <= %2)"_s.arg(tokens[at - 1].text,
                                                                                   tokens[at + 2].text);
        tokens.remove(at + 1, 3);
    }
}

// Gives each term of ORDER BY the program's collation.
void Sort_By_Text_Order(Tokens& tokens) {
    const QString collate = u"COLLATE "_s + QLatin1StringView(Text_Order);
    for (qsizetype at = 0; at + 2 < tokens.size(); ++at) {
        if (!tokens[at].Is("ORDER"_L1) || !tokens[at + 1].Is("BY"_L1)) continue;
        int depth = 0;
        bool named = false; // the term at hand has its collation already
        for (at += 2; at < tokens.size(); ++at) {
            const Token& token = tokens[at];
            if (token.Is("("_L1)) ++depth;
            if (token.Is(")"_L1) && --depth < 0) break;
            if (depth != 0) continue;
            if (token.Is(","_L1)) {
                if (!named) tokens.insert(at++, {Token::Kind::Name, collate});
                named = false;
            } else if ((token.Is("ASC"_L1) || token.Is("DESC"_L1)) && !named) {
                tokens.insert(at++, {Token::Kind::Name, collate});
                named = true;
            }
        }
        if (!named) tokens.insert(at, {Token::Kind::Name, collate});
        return;
    }
}

// The table that a recordset can write to: the only one of a SELECT that reads plain rows.
std::optional<QString> Only_Table(const Tokens& tokens) {
    if (!tokens.first().Is("SELECT"_L1)) return std::nullopt;
    static const QLatin1StringView derived[] = {"DISTINCT"_L1, "GROUP"_L1, "UNION"_L1, "JOIN"_L1,
                                                "SELECT"_L1};
    qsizetype from = -1;
    for (qsizetype at = 1; at < tokens.size(); ++at) {
        for (const QLatin1StringView& word : derived)
            if (tokens[at].Is(word)) return std::nullopt;
        if (tokens[at].Is("FROM"_L1) && from < 0) from = at;
    }
    if (from < 0 || from + 1 >= tokens.size()) return std::nullopt;
    const Token& table = tokens[from + 1];
    const bool named = table.kind == Token::Kind::Word || table.kind == Token::Kind::Name;
    const bool more = from + 2 < tokens.size() && tokens[from + 2].Is(","_L1);
    return named && !more ? std::optional(table.text) : std::nullopt;
}

// The columns that `SELECT * FROM table ... ORDER BY column, column` names behind its `by`; none where it is
// anything more than that.
QStringList Columns_Behind(const Tokens& tokens, qsizetype by) {
    QStringList columns;
    for (qsizetype at = by + 1; at < tokens.size(); at += 2) {
        const bool goes_on = at + 1 < tokens.size();
        if (tokens[at].kind != Token::Kind::Word || (goes_on && !tokens[at + 1].Is(","_L1))) return {};
        columns.append(tokens[at].text);
    }
    return tokens[1].Is("*"_L1) && tokens[2].Is("FROM"_L1) ? columns : QStringList();
}

QStringList Columns_Sorted_By(const Tokens& tokens) {
    for (qsizetype at = 4; at + 2 < tokens.size(); ++at)
        if (tokens[at].Is("ORDER"_L1) && tokens[at + 1].Is("BY"_L1)) return Columns_Behind(tokens, at + 1);
    return {};
}

QString Joined(const Tokens& tokens) {
    QStringList texts;
    texts.reserve(tokens.size());
    for (const Token& token : tokens)
        texts.append(token.text);
    return texts.join(u' ');
}

bool Takes_Values(QStringView jet) {
    static const QLatin1StringView words[] = {"SELECT"_L1, "INSERT"_L1, "UPDATE"_L1, "DELETE"_L1};
    const QStringView start = jet.trimmed();
    return std::any_of(std::begin(words), std::end(words), [start](QLatin1StringView word) {
        return start.startsWith(word, Qt::CaseInsensitive);
    });
}

bool Ends_A_Plain_Run(QChar c) {
    return c == u'\'' || c == u'"' || c == u'[' || c == u'?' || c.isNull();
}

// The place behind the quoted run's closing mark; -1 if it has none, or holds what ends a statement's text.
qsizetype Lifted_Text(const QString& jet, qsizetype start, QString& content) {
    const QChar mark = jet[start];
    qsizetype at = start + 1;
    for (;;) {
        const qsizetype closing = jet.indexOf(mark, at);
        if (closing < 0) return -1;
        const QStringView run = QStringView(jet).sliced(at, closing - at);
        if (run.contains(QChar::Null)) return -1;
        content.append(run);
        if (closing + 1 >= jet.size() || jet[closing + 1] != mark) return closing + 1;
        content.append(mark);
        at = closing + 2;
    }
}

} // namespace

Lifted_Statement Lift_Texts(const QString& jet) {
    const auto as_it_is = [&jet] { return Lifted_Statement{jet, {}, false}; };
    if (!Takes_Values(jet)) return as_it_is();
    const QStringView all(jet);
    Lifted_Statement lifted;
    lifted.is_lifted = true;
    lifted.shape.reserve(jet.size() + 1); // whoever keeps it adds a mark
    for (qsizetype at = 0; at < jet.size();) {
        const auto* stop = std::find_if(all.begin() + at, all.end(), Ends_A_Plain_Run);
        const qsizetype end = stop - all.begin();
        lifted.shape.append(all.sliced(at, end - at));
        at = end;
        if (at == jet.size()) break;
        if (*stop == u'[') {
            const qsizetype closing = jet.indexOf(u']', at);
            if (closing < 0) return as_it_is();
            lifted.shape.append(all.sliced(at, closing + 1 - at));
            at = closing + 1;
        } else if (*stop == u'\'' || *stop == u'"') {
            QString content(u""_s);
            at = Lifted_Text(jet, at, content);
            if (at < 0) return as_it_is();
            lifted.shape.append(u'?');
            lifted.texts.emplace_back(std::move(content));
        } else {
            return as_it_is();
        }
    }
    return lifted;
}

Translated_Statement Translate_Jet(const Lifted_Statement& lifted) {
    Tokens tokens = Tokens_Of(lifted.shape, lifted.is_lifted ? Marks::Stand_For_Texts : Marks::Refused);
    Drop_The_End_Mark(tokens);
    Join_Texts(tokens);
    Limit_Texts(tokens);
    const QStringList sorted_by = Columns_Sorted_By(tokens);
    Sort_By_Text_Order(tokens);

    Translated_Statement statement{Joined(tokens), {}, {}, {}, {}};
    if (const auto table = Only_Table(tokens)) {
        statement.table = *table;
        statement.with_row_identity = u"SELECT rowid , "_s + Joined(tokens.sliced(1));
        statement.sorted_by = sorted_by;
        if (!sorted_by.isEmpty())
            statement.order =
                statement.sql.sliced(statement.sql.lastIndexOf(" ORDER "_L1, -1, Qt::CaseInsensitive));
    }
    return statement;
}

} // namespace database
