#pragma once

#include "store/Value.h"

#include <QString>

class ListControl;

/// Routines that fill lists from queries on Conexao. Column 0 of a query is the identifier, column
/// 1 the text to show. The query comes by value because selecting an item runs handlers, and those
/// write the shared SQL buffer.
namespace Funcoes {

/// Fills a single-choice list.
/// @param controle       cleared first
/// @param consulta       the query
/// @param selecao        a number selects the row with that identifier (not when negative), a text
///                       the row with exactly that text; the last match wins
/// @param seleciona_unico  a single row is selected whatever selecao says
/// @param primeiro_item  put before the rows with item data 0, and selected, unless empty
/// @throws RuntimeError of the store
void Preenche_Combo(ListControl& controle, QString consulta, const Value& selecao,
                    bool seleciona_unico, const QString& primeiro_item);

/// Fills a multiple-selection list.
/// @param controle         cleared first
/// @param consulta         the query
/// @param selecionados     identifiers to select, decimal digits joined by bare commas
/// @param seleciona_unico  a single row is selected when selecionados is empty
/// @throws RuntimeError of the store while filling; errors while selecting are ignored
void Preenche_ListBox(ListControl& controle, QString consulta, const QString& selecionados,
                      bool seleciona_unico);

/// @param id  MUSICA.ID
/// @return the song's theme descriptions joined by ", ", by ORDEM and DESCRICAO; "" without themes
/// @throws RuntimeError of the store
QString Busca_Temas_Musica(double id);

} // namespace Funcoes
