#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class TestCatalogue;

using Rows = QList<QStringList>;

/// One statement as the program writes it, and what it gives on the catalogue of FillCatalogue.
struct StatementCase
{
    QString name;
    QString sql;
    QStringList fields; ///< of a query: what the recordset calls its columns
    Rows rows;          ///< of a query, or of readBack; NULL is a null QString
    QString readBack;   ///< of an action: what plain SQLite is asked afterwards
};

using StatementCases = QList<StatementCase>;

/// Puts songs, themes, links and setlists into a new catalogue (FillCatalogue.cpp lists them).
void FillCatalogue(const TestCatalogue& catalogue);

/// Every statement of the program, by the place that writes it.
StatementCases ListCases();     ///< the fillers, note tables and new identifiers
StatementCases SearchCases();   ///< the search panel in all its combinations
StatementCases SongCases();     ///< the entry panel and its suggestions
StatementCases ThemeCases();    ///< the themes of the entry panel
StatementCases SetlistCases();  ///< the setlist panel
StatementCases ViewerCases();   ///< the viewer's list, counter and save
StatementCases ExchangeCases(); ///< export and import
