#pragma once

#include <QList>
#include <QString>

/// What a search asks for, as the search panel's controls give it.
struct Pedido_Pesquisa
{
    QString inicial = {};     ///< first letter of the titles; "" for a search by the boxes
    QString titulo = {};      ///< part of the title
    QString referencia = {};  ///< part of the reference
    QString letra = {};       ///< part of the song text, version 1
    int religiosa = 1;        ///< check box value: 0 unchecked, 1 checked, 2 greyed
    int secular = 1;          ///< likewise
    QList<qint64> temas = {}; ///< TEMA.ID of the chosen themes; none means all songs
    bool ordenar = false;     ///< most played songs first
};

/// @return the categories of an IN list. Neither box checked asks for both, as both checked does.
QString Lista_Categorias(int religiosa, int secular);

/// @return the statement that finds the songs: ID, TITULO, REFERENCIA, TOM, VARIACAO, CONTADOR and
/// MUSICA of MUSICA. Apostrophes of the boxes are dropped, so that a typed one is simply ignored;
/// with a first letter the boxes and the themes do not count.
QString Monta_SQL_Pesquisa(const Pedido_Pesquisa& pedido);
