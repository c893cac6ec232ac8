#pragma once

#include "store/dialect/Dialect.h"
#include "store/dialect/Syntax.h"

/// Writes a resolved statement as SQLite text. Texts become bound parameters, numbers stand in the
/// statement, every name is quoted and every column named with its table, so that nothing is left
/// for SQLite to interpret in its own way.
class Writer
{
public:
    /// What becomes of a whole number that a column is compared with.
    enum class Compared {
        Written, ///< stands in the statement
        Bound    ///< is a parameter: one prepared statement serves all songs; also a number that is
                 ///< stored or stands in a short list
    };

    /// @return the statement for SQLite with its parameters
    static Translation Write(const Syntax::Statement& statement,
                             Compared numbers = Compared::Written);

private:
    /// How tightly SQLite binds what an expression becomes, the loosest first.
    enum class Level { Or, And, Not, Comparison, Sum, Product, Unary, Primary };

    void Write(const Syntax::Select& select);
    void Write(const Syntax::Insert& insert);
    void Write(const Syntax::Update& update);
    void Write(const Syntax::Delete& deletion);

    void WriteBody(const Syntax::Select& select, const std::vector<Syntax::Target>* targets);
    void WriteResultColumns(const Syntax::Select& select,
                            const std::vector<Syntax::Target>* targets);
    void WriteSources(const Syntax::Select& select);
    void WriteOrder(const Syntax::Select& select);
    void WriteOrderTerm(const Syntax::OrderTerm& term, const Syntax::Select& select);
    QByteArray TieBreaks(const Syntax::Select& select) const;
    void WriteWhere(const std::optional<Syntax::Expression>& where);
    void WriteTargets(const std::vector<Syntax::Target>& targets);
    void WriteAssigned(const Syntax::Expression& value, const Column& column);

    void Write(const Syntax::Expression& expression, Level loosest = Level::Or);
    void WriteBare(const Syntax::Expression& expression);
    void WriteCollated(const Syntax::Expression& expression, bool collated);
    void WriteTested(const Syntax::Expression& value, bool collated);
    void WriteChain(const Syntax::Expression& expression, const char* word, Level operand);
    void WriteFunction(const char* name, const std::vector<Syntax::Expression>& arguments);
    void WriteCall(const Syntax::Expression& expression);
    void WriteNot(const Syntax::Expression& expression);
    void WriteArithmetic(const Syntax::Expression& expression);
    void WriteComparison(const Syntax::Expression& expression);
    bool Bind(const Syntax::Expression& number);
    void AddValue(Value value, qsizetype place);
    void WriteLike(const Syntax::Expression& expression);
    void WriteIsNull(const Syntax::Expression& expression);
    void WriteBetween(const Syntax::Expression& expression);
    void WriteInList(const Syntax::Expression& expression);
    void WriteInQuery(const Syntax::Expression& expression);

    static Level LevelOf(const Syntax::Expression& expression);
    static QByteArray Quoted(const QString& name);
    static QByteArray QuotedColumn(const Table& table, const Column& column);
    static Translation Fragment(const Syntax::Expression& expression);

    Translation m_out;
    Compared m_numbers = Compared::Written;
};
