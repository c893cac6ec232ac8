#pragma once

#include <QString>

#include <memory>

class QTreeWidget;

/// A search as one would write it first: the statement handed to SQLite as it stands, letters
/// compared by ICU in every LIKE and in the sorting, one item widget per row, its themes asked for
/// row by row. It shares no code with the program.
class NaiveSearch
{
public:
    explicit NaiveSearch(const QString& catalogue);
    ~NaiveSearch();
    NaiveSearch(const NaiveSearch&) = delete;
    NaiveSearch& operator=(const NaiveSearch&) = delete;

    /// Runs the statement and fills the list. @return the number of rows
    int Run(const QString& sql, QTreeWidget& list);

private:
    struct Database;

    std::unique_ptr<Database> m_database;
};
