#pragma once

#include "store/dialect/Complaint.h"
#include "store/dialect/Syntax.h"

/// Finds the tables and columns that the names of a statement mean, and with them what type each
/// expression gives.
class Resolver
{
public:
    /// @param schema     the tables; must outlive the resolved statement
    /// @param complaint  raises what is wrong with the statement
    Resolver(const Schema& schema, const Complaint& complaint)
        : m_schema(schema)
        , m_complaint(complaint)
    {
    }

    /// Fills in whatever the tree marks "resolved".
    /// @throws RuntimeError StoreFailure for an unknown table or column, a column that several
    ///         tables of FROM have, a number of values that does not fit the columns
    void Resolve(Syntax::Statement& statement) const;

private:
    /// The tables whose columns a name may mean; a sub-query sees its own before those around it.
    struct Scope
    {
        std::vector<const Syntax::Source*> sources;
        const Scope* outer = nullptr;
    };

    void Resolve(Syntax::Select& select, const Scope* outer = nullptr) const;
    void Resolve(Syntax::Insert& insert) const;
    void Resolve(Syntax::Update& update) const;
    void Resolve(Syntax::Delete& deletion) const;

    void Resolve(Syntax::Expression& expression, const Scope& scope) const;
    void Resolve(std::optional<Syntax::Expression>& expression, const Scope& scope) const;
    void ResolveColumn(Syntax::Expression& expression, const Scope& scope) const;
    void ResolveOrder(Syntax::OrderTerm& term, const Syntax::Select& select,
                      const Scope& scope) const;

    Scope OpenSources(Syntax::Select& select, const Scope* outer) const;
    void Resolve(Syntax::Source& source) const;
    void Resolve(Syntax::Target& target, const Table& table) const;
    void CheckCount(const Syntax::Insert& insert, std::size_t values) const;

    const Syntax::Source* FindSource(const Syntax::Expression& name, const Scope& scope) const;
    [[noreturn]] void FailColumn(const Syntax::Expression& name, const Scope& scope) const;

    const Schema& m_schema;
    const Complaint& m_complaint;
};
