#pragma once

#include "store/dialect/Schema.h"

/// @return the catalogue's tables as its schema declares them.
inline Schema CatalogueSchema()
{
    using enum ColumnType;
    Schema schema;
    schema.Add({u"MUSICA"_qs,
                {{u"ID"_qs, Long},
                 {u"TITULO"_qs, Text},
                 {u"REFERENCIA"_qs, Text},
                 {u"MUSICA"_qs, Text},
                 {u"MUSICA2"_qs, Text},
                 {u"TOM"_qs, Text},
                 {u"VARIACAO"_qs, Text},
                 {u"CATEGORIA"_qs, Integer},
                 {u"CONTADOR"_qs, Long}}});
    schema.Add(
        {u"TEMA"_qs,
         {{u"ID"_qs, Long}, {u"DESCRICAO"_qs, Text}, {u"ORDEM"_qs, Integer}, {u"COR"_qs, Text}}});
    schema.Add({u"TEMA_MUSICA"_qs, {{u"ID_MUSICA"_qs, Long}, {u"ID_TEMA"_qs, Long}}});
    schema.Add({u"LISTA"_qs, {{u"ID"_qs, Long}, {u"NOME"_qs, Text}, {u"DATA"_qs, Date}}});
    schema.Add({u"LISTA_MUSICA"_qs,
                {{u"ID_LISTA"_qs, Long}, {u"ID_MUSICA"_qs, Long}, {u"ORDEM"_qs, Integer}}});
    schema.Add(
        {u"TOM"_qs,
         {{u"ID"_qs, Long}, {u"NOTA"_qs, Text}, {u"ORDEM"_qs, Integer}, {u"MAIS"_qs, Text}}});
    schema.Add({u"VARIACAO"_qs, {{u"ID"_qs, Long}, {u"NOMENCLATURA"_qs, Text}}});
    return schema;
}
