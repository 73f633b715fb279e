#include "platform/runtime/dao_dialect.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <initializer_list>
#include <vector>

#include "platform/runtime/runtime.h"

namespace dao {

namespace {

struct Token {
    enum Kind { Space, Word, Literal, Other } kind;
    std::string_view text;
};

bool IsWordChar(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v'; }

// Splits a statement into blanks, words, quoted parts ('text' with '' inside,
// "text", [name]; an unclosed one runs to the end) and single characters.
std::vector<Token> Tokenize(std::string_view sql) {
    std::vector<Token> tokens;
    std::size_t i = 0;
    while (i < sql.size()) {
        const std::size_t start = i;
        const char c = sql[i];
        Token::Kind kind = Token::Other;
        if (IsSpace(c)) {
            kind = Token::Space;
            while (i < sql.size() && IsSpace(sql[i])) ++i;
        } else if (IsWordChar(c)) {
            kind = Token::Word;
            while (i < sql.size() && IsWordChar(sql[i])) ++i;
        } else if (c == '\'' || c == '"' || c == '[') {
            kind = Token::Literal;
            const char close = c == '[' ? ']' : c;
            ++i;
            while (i < sql.size()) {
                if (sql[i++] != close) continue;
                if (close != ']' && i < sql.size() && sql[i] == close) {
                    ++i;  // a doubled quote stands for one
                    continue;
                }
                break;
            }
        } else {
            ++i;
        }
        tokens.push_back({kind, sql.substr(start, i - start)});
    }
    return tokens;
}

// Index of the next token after `i` that isn't blank, or tokens.size().
std::size_t NextSignificant(const std::vector<Token>& tokens, std::size_t i) {
    ++i;
    while (i < tokens.size() && tokens[i].kind == Token::Space) ++i;
    return i;
}

std::size_t FirstSignificant(const std::vector<Token>& tokens) {
    return tokens.empty() || tokens[0].kind != Token::Space ? 0 : NextSignificant(tokens, 0);
}

bool IsWord(const std::vector<Token>& tokens, std::size_t i, std::string_view word) {
    return i < tokens.size() && tokens[i].kind == Token::Word && SameName(tokens[i].text, word);
}

bool IsChar(const std::vector<Token>& tokens, std::size_t i, char c) {
    return i < tokens.size() && tokens[i].kind == Token::Other && tokens[i].text[0] == c;
}

std::string DateLiteral(double date) {
    char text[64];
    std::snprintf(text, sizeof text, "(%.17g)", date);
    return text;
}

}  // namespace

bool SameName(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::toupper(static_cast<unsigned char>(x)) == std::toupper(static_cast<unsigned char>(y));
           });
}

std::string TranslateStatement(std::string_view statement, double now) {
    const auto tokens = Tokenize(statement);
    std::string translated;
    const std::size_t first = FirstSignificant(tokens);
    // The star of DELETE * FROM goes.
    const std::size_t deleteStar = IsWord(tokens, first, "DELETE") ? NextSignificant(tokens, first) : tokens.size();
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (i == deleteStar && IsChar(tokens, i, '*')) continue;
        // "--" is two minus signs and "/*" a division by nothing: kept
        // apart, neither can hide the rest of the statement from the store.
        if (i > 0 && ((IsChar(tokens, i, '-') && IsChar(tokens, i - 1, '-')) ||
                      (IsChar(tokens, i, '*') && IsChar(tokens, i - 1, '/'))))
            translated += ' ';
        const bool isNow = IsWord(tokens, i, "Now") && !(i > 0 && IsChar(tokens, i - 1, '.'));
        if (!isNow) {
            translated += tokens[i].text;
            continue;
        }
        translated += DateLiteral(now);
        const std::size_t open = NextSignificant(tokens, i);
        const std::size_t close = NextSignificant(tokens, open);
        if (IsChar(tokens, open, '(') && IsChar(tokens, close, ')')) i = close;
    }
    return translated;
}

std::string StatementKind(std::string_view statement) {
    const auto tokens = Tokenize(statement);
    const std::size_t first = FirstSignificant(tokens);
    return first < tokens.size() && tokens[first].kind == Token::Word ? platform::UCase(tokens[first].text)
                                                                      : std::string();
}

bool IsRunnableKind(std::string_view kind) {
    return kind == "SELECT" || kind == "INSERT" || kind == "UPDATE" || kind == "DELETE";
}

bool OnlySeparators(std::string_view rest) {
    return std::all_of(rest.begin(), rest.end(), [](char c) { return IsSpace(c) || c == ';'; });
}

std::string WhereExpression(std::string_view statement) {
    const auto tokens = Tokenize(statement);
    std::size_t i = 0;
    while (i < tokens.size() && !IsWord(tokens, i, "WHERE")) ++i;
    if (i == tokens.size()) return {};
    std::string expression;
    for (i = NextSignificant(tokens, i); i < tokens.size(); ++i) {
        if (IsWord(tokens, i, "ORDER") && IsWord(tokens, NextSignificant(tokens, i), "BY")) break;
        expression += tokens[i].text;
    }
    while (!expression.empty() && (IsSpace(expression.back()) || expression.back() == ';')) expression.pop_back();
    return expression;
}

bool MergesRows(std::string_view select) {
    for (const Token& token : Tokenize(select))
        if (token.kind == Token::Word)
            for (std::string_view word : {"DISTINCT", "GROUP", "UNION", "INTERSECT", "EXCEPT"})
                if (SameName(token.text, word)) return true;
    return false;
}

std::string WithLeadingColumn(std::string_view select, std::string_view column) {
    const auto tokens = Tokenize(select);
    const Token& keyword = tokens[FirstSignificant(tokens)];
    const std::size_t at = static_cast<std::size_t>(keyword.text.data() - select.data()) + keyword.text.size();
    std::string text(select.substr(0, at));
    text += ' ';
    text += column;
    text += ',';
    text += select.substr(at);
    return text;
}

bool IsEngineFunction(std::string_view name) {
    static constexpr std::string_view kFunctions[] = {
        "count", "min",   "max",   "sum",    "total", "avg",    "abs",     "round",    "upper",  "lower", "length",
        "trim",  "ltrim", "rtrim", "substr", "instr", "replace", "coalesce", "ifnull", "nullif", "typeof", "like",
        "glob"};
    return std::any_of(std::begin(kFunctions), std::end(kFunctions),
                       [&](std::string_view function) { return SameName(name, function); });
}

std::string ConnectPassword(std::string_view connect) {
    std::size_t start = 0;
    while (start <= connect.size()) {
        const std::size_t end = std::min(connect.find(';', start), connect.size());
        const std::string_view part = connect.substr(start, end - start);
        if (SameName(part.substr(0, 4), "pwd=")) return std::string(part.substr(4));
        start = end + 1;
    }
    return {};
}

}  // namespace dao
