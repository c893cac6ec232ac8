#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// A catalogue in the older format as years of use leave it, and what a conversion of it must hold,
/// which was written from what was asked for and not read from the file.
namespace CatalogoAntigo {

/// @return the path of the sample
QString Caminho();

QByteArray Conteudo();

/// @param nome  of a table as the file writes it
/// @return the sample in which that table is called otherwise
QByteArray SemTabela(const char* nome);

/// @return where a converted catalogue differs from what it must hold, a line for each row that is
/// missing or too many; it also differs when new rows would not go on after the last number given
QStringList Diferencas(const QString& catalogo);

/// @return the number of rows of each of the seven tables, as text
QString Linhas(const QString& catalogo);

/// @return that text for the sample
QString LinhasEsperadas();

/// @return "sound" as SQLite finds the file and with the tables that the program opens, else what
/// is wrong
QString Estado(const QString& catalogo);

} // namespace CatalogoAntigo
