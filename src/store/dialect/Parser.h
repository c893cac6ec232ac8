#pragma once

#include "store/dialect/Lexer.h"
#include "store/dialect/Syntax.h"

/// Reads one statement into its tree, by recursive descent with one token of lookahead. Nesting is
/// bounded, so that no text whatever can exhaust our stack or SQLite's, which ends at 100 symbols.
class Parser
{
public:
    /// Parentheses, function calls, sub-queries and prefixed operators inside one another.
    static constexpr int DeepestNesting = 12;
    /// What a sub-query counts among them: it fills SQLite's stack faster.
    static constexpr int SubQueryNesting = 3;
    /// Operators in a row, such as 1 + 1 + 1 (& AND and OR, which gather theirs, apart).
    static constexpr int LongestChain = 100;

    /// @param sql        the statement; must outlive the parser
    /// @param complaint  raises what is wrong with it
    Parser(QStringView sql, const Complaint& complaint);

    /// @return the tree of the one statement, which may end with one ';'
    /// @throws RuntimeError StoreFailure when the text is anything else
    Syntax::Statement ParseStatement();

private:
    /// From the loosest to the tightest; NOT and minus stand before their operand.
    enum class Precedence { Or, And, Not, Comparison, Concat, Sum, Product, Minus };

    class Nesting;

    Syntax::Select ParseSelect();
    std::vector<Syntax::ResultColumn> ParseResultColumns();
    std::vector<Syntax::Join> ParseJoins();
    std::vector<Syntax::OrderTerm> ParseOrderTerms();
    Syntax::Insert ParseInsert();
    Syntax::Update ParseUpdate();
    Syntax::Delete ParseDelete();
    std::optional<Syntax::Expression> ParseWhere();
    Syntax::Source ParseSource();
    Syntax::Target ParseTarget();
    Syntax::Name ParseName(const QString& expected);

    Syntax::Expression ParseExpression(Precedence loosest = Precedence::Or);
    Syntax::Expression ParseOperand();
    Syntax::Expression ParsePrefixed(Syntax::Expression::Kind kind, Precedence loosest);
    Syntax::Expression ParseParenthesis();
    Syntax::Expression ParseColumnOrCall();
    Syntax::Expression ParseCall(const Syntax::Name& name);

    std::optional<Precedence> InfixPrecedence() const;
    Syntax::Expression ParseInfix(Syntax::Expression left, Precedence precedence);
    Syntax::Expression ParseTest(Syntax::Expression value);
    Syntax::Expression ParseBetween(Syntax::Expression value);
    Syntax::Expression ParseIn(Syntax::Expression value);
    Syntax::Expression ParseIsNull(Syntax::Expression value);

    Syntax::Expression Begin(Syntax::Expression::Kind kind) const;
    void Adopt(Syntax::Expression& parent, Syntax::Expression child) const;

    void Advance() { m_token = m_lexer.Next(); }
    bool Accept(QStringView word);
    void Expect(QStringView word);
    [[noreturn]] void Fail(const QString& expected) const;

    const Complaint& m_complaint;
    Lexer m_lexer;
    Token m_token;
    int m_nesting = 0;
};
