#pragma once

#include <QString>

/// The statements of the setlist panel. Identifiers come as decimal text ("" matches nothing).
namespace SQL_Lista {

/// All setlists, newest first: ID, NOME and DATA, which is day/month/year without leading zeros.
QString Listas();

/// One setlist. @param id  LISTA.ID
QString Lista(const QString& id);

/// The identifier of the setlist that was stored last, as ID.
QString Ultima_Lista();

/// The songs of a setlist in their order: MUSICA.ID, title and reference, position.
QString Musicas_Da_Lista(const QString& id);

/// All themes as lists show them.
QString Temas();

/// What songs the panel offers.
struct Filtro
{
    int categoria = 1;   ///< 1 or 2
    QString tema = {};   ///< TEMA.ID; "" for all themes
    QString inicio = {}; ///< how titles begin, taken as typed: % and _ are wildcards, and an
                         ///< apostrophe makes a statement that no store understands
};

/// The songs on offer, each once: MUSICA.ID, title and reference. A song without a theme is none.
QString Musicas_Disponiveis(const Filtro& filtro);

// Changes. A name comes with its apostrophes doubled, a date as dd/mm/yyyy.
QString Inclui_Lista(const QString& nome, const QString& data);
QString Altera_Lista(const QString& id, const QString& nome, const QString& data);
QString Exclui_Lista(const QString& id);
QString Exclui_Musicas(const QString& id);
/// @param ordem  position from 0
QString Inclui_Musica(const QString& id, const QString& musica, int ordem);

} // namespace SQL_Lista
