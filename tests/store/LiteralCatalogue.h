#pragma once

#include "store/CatalogueSchema.h"
#include "store/dialect/Parser.h"
#include "store/dialect/Resolver.h"
#include "store/dialect/Writer.h"
#include "store/sqlite/SqlFunctions.h"
#include "store/sqlite/Statement.h"

#include <QList>
#include <QStringList>

#include <sqlite3.h>

/// A catalogue of the test's own, read by each statement exactly as it is written: no join is
/// folded, nothing is answered from memory.
class LiteralCatalogue
{
public:
    explicit LiteralCatalogue(const QString& path)
    {
        if (sqlite3_open(path.toUtf8().constData(), &m_database) != SQLITE_OK)
            qFatal("the catalogue does not open");
        SqlFunctions::AddAll(m_database);
    }
    ~LiteralCatalogue() { sqlite3_close(m_database); }
    LiteralCatalogue(const LiteralCatalogue&) = delete;
    LiteralCatalogue& operator=(const LiteralCatalogue&) = delete;

    /// @return all fields of all rows; NULL is a null QString
    QList<QStringList> Rows(const QString& sql) const
    {
        static const Schema schema = CatalogueSchema();
        const Complaint complaint(sql);
        Syntax::Statement tree = Parser(sql, complaint).ParseStatement();
        Resolver(schema, complaint).Resolve(tree);
        const Translation translation = Writer::Write(tree);
        Statement statement(m_database, translation.sql);
        statement.Bind(translation.values);
        QList<QStringList> rows;
        while (statement.Step()) {
            QStringList row;
            for (int i = 0; i < statement.ColumnCount(); ++i) {
                const std::string_view text = statement.Text(i);
                row.append(statement.ColumnKind(i) == Statement::Kind::Null
                               ? QString()
                               : QString::fromUtf8(text.data(), qsizetype(text.size())));
            }
            rows.append(row);
        }
        return rows;
    }

private:
    sqlite3* m_database = nullptr;
};
